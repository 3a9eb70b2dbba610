// Fails in the way that its argument names.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>
#include <stdexcept>
#include <string_view>
#include <thread>

namespace {

void failAtStatement() {
    VELTS("program.bas", "Main", "12", "");
    VELT_CINTEGER(nil);
}

int failingProgram(int, char**) {
    std::fputs("written before", stdout);
    failAtStatement();
    return 0;
}

void failInCallback() noexcept { failAtStatement(); }

int runtimeErrorProgram(int, char**) {
    VELTS("program.bas", "Main", "3", "");
    throw std::runtime_error("not ours");
}

}  // namespace

int main(int count, char** arguments) {
    const std::string_view way = arguments[1];
    if (way == "run") return velt::runProgram(failingProgram, count, arguments);
    if (way == "other") return velt::runProgram(runtimeErrorProgram, count, arguments);
    if (way == "first") VELT_CINTEGER(nil);
    std::fputs("written before", stdout);
    if (way == "main") failAtStatement();
    if (way == "callback") failInCallback();
    if (way == "thread") std::thread(failAtStatement).join();
    return 0;
}
