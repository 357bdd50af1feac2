// Compiled only so that there is a program whose precompiled headers the test programs share.
int main() {}
