// Does nothing: what the start of a C++ program takes.

int main() {
  return 0;
}
