// The runtime's method tables, Foundation's singletons and the text libraries' caches live as long as the process;
// reporting them as leaks would hide every other message. Foundation's readers of damaged files ask for more memory
// than there can be, and handle the refusal.
// A program that links the runtime as an archive links sim_sanitizer_options besides: the sanitizer has a definition of
// its own, so that nothing asks the archive for this one.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "detect_leaks=0:allocator_may_return_null=1"; }
