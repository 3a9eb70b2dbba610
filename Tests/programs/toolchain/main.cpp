// Runs one step of the toolchain that lies beside it and shows what came of it: toolchain STEP [ARGUMENT...]
#include "VELTRuntime/VELTRuntime.h"

#include <cstdio>
#include <string>

namespace {

id perform(const std::string& step, const id& arguments) {
    if (step == "translate") return VELT_VELTRUNVELTCOMPILE(arguments);
    if (step == "header") return VELT_VELTRUNOBJCHEADER(arguments);
    if (step == "compile") return VELT_VELTRUNOBJCCOMPILE(arguments);
    if (step == "link") return VELT_VELTRUNOBJCLINKER(arguments);
    if (step == "folder") return VELT_VELTBINARYPATH();
    if (step == "runtime") return VELT_VELTRUNTIMEPATH();
    if (step == "examples") return VELT_VELTEXAMPLESPATH();
    return velt::string("no such step");
}

int program(int count, char** values) {
    const velt::Ref<NSMutableArray> arguments = velt::make<NSMutableArray>();
    for (int i = 2; i < count; ++i) arguments->append(velt::string(values[i]));
    const std::string text = velt::utf8(perform(values[1], arguments));
    std::printf("{%s}\n%s\n", text.c_str(), velt::utf8(arguments->description()).c_str());
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return count < 2 ? 2 : velt::runProgram(program, count, arguments); }
