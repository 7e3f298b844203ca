// The source with which the header that tests share is precompiled.

int main() {}
