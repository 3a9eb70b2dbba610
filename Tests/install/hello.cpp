// The program that the README shows, built outside the project.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>

static int program(int, char**) {
    VELTS("hello.bas", "Main", "1", "");                    // where we are, before each statement
    const id words = VELT_SPLIT("one two three"_v, " "_v);  // "…"_v is a string value
    VELTS("hello.bas", "Main", "2", "");
    const id text = VELT_CONCAT("Words: "_v, VELT_NSARRAY_COUNT(words));
    std::puts(velt::utf8(text).c_str());
    return 0;
}

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
