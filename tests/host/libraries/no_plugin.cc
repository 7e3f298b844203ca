// A shared library that is no plug-in: it exports nothing that a host needs.
extern "C" __attribute__((visibility("default"))) int somethingElse() {
  return 0;
}
