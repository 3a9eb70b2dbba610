// Writes the position record before any statement.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>

int main() {
    std::printf("file '%s' scope '%s' line '%s'\n", velt::utf8(VeltF()).c_str(), velt::utf8(VeltS()).c_str(),
                velt::utf8(VeltL()).c_str());
}
