// A library to inject: its initialiser leaves a trace where the test can see it.

#include <stdlib.h>

__attribute__((constructor)) static void loaded() { setenv("GOOD_LIBRARY", "loaded", 1); }
