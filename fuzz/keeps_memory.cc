// Linked into targets that by design do not free all their memory: leaks are
// not findings there.

extern "C" const char* __asan_default_options();
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() {
  return "detect_leaks=0";
}
