// Starts and ends.
#include <iostream>

int main() { return std::cout.good() ? 0 : 1; }
