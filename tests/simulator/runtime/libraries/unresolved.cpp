// A library that cannot be loaded: nobody has the function it calls.

void nobodyHasThisFunction();

__attribute__((constructor)) static void loaded() { nobodyHasThisFunction(); }
