#include "simulator/frameworks/substrate/substrate.h"
