// Foundation and its runtime keep their class tables and constants until the process ends. Leaks of our own still fail,
// in programs that do not play the phone: a process of the phone turns the leak checker off.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libobjc.so\nleak:libgnustep-base.so\n"; }

// Builds without a leak checker have nothing to switch off.
extern "C" {
void __lsan_disable();
void __lsan_enable();
__attribute__((weak)) void __lsan_disable() {}
__attribute__((weak)) void __lsan_enable() {}
}
