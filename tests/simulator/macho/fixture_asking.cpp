// The library of fixture.cpp, asking for one function more than there is.
#define FIXTURE_ASKS_FOR_TOO_MUCH
#include "tests/simulator/macho/fixture.cpp"
