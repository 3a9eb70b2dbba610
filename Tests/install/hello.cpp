// A program outside the project, as its README shows one.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>

static int program(int, char**) {
    VELTS("hello.bas", "Main", "1", "");
    const id words = VELT_SPLIT("one two three four five six seven"_v, " "_v);
    VELTS("hello.bas", "Main", "2", "");
    const id text = VELT_CONCAT(VELT_CONCAT("Hello, "_v, VELT_NSARRAY_COUNT(words)), " words"_v);
    std::puts(velt::utf8(text).c_str());
    return 0;
}

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
