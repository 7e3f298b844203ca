// Prints a number and a small letter as the locale of the process has them, so
// that a test knows that the locale is in force.

#include <cstdio>
#include <cwctype>

int main() {
  std::printf("%.1f %u\n", 2.5, static_cast<unsigned>(std::towlower(L'I')));
  return 0;
}
