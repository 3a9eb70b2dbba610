// Starts and ends with the library.
#include <VELTRuntime/VELTRuntime.h>

int main() { return VELTS("empty.bas", "Main", "1", "").isNil(); }
