// A library for the tests of FetchSymbol() to load.

extern "C" __attribute__((visibility("default"))) int PlatformTestLibraryRoutine();

int PlatformTestLibraryRoutine() {
  return 43;
}
