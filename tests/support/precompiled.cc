// Stands in for the tests when the header that they share is compiled.

int main() {}
