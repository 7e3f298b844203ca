// A shared library that is not a plug-in: it exports nothing that a host needs.
extern "C" __attribute__((visibility("default"))) int somethingElse() {
  return 0;
}
