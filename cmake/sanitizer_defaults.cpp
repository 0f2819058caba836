// Part of every program that is built with sanitizers, which ask for these functions before main begins.
// fontconfig loses some 300 bytes when it reads its own configuration, once per process; a leak checker would
// end the program with an error for it.
#define ORVANE_ASKED_FOR extern "C" __attribute__((visibility("default")))

ORVANE_ASKED_FOR const char* __lsan_default_suppressions() { return "leak:libfontconfig.so"; }
ORVANE_ASKED_FOR const char* __lsan_default_options() { return "print_suppressions=0"; }
