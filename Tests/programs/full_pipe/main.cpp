// A program that runs a child to its end in one of the ways that launch, wait and read: full_pipe WAY CHILD
// ARGUMENTS... Says how many bytes it got.
#include "VELTRuntime/VELTRuntime.h"

#include <string>

namespace {

using namespace velt;

class Owner : public NSObject {
    VELT_OBJECT(Owner, NSObject)

public:
    static void describe(ClassBuilder<Owner>& c) {
        c.method("job_stdout:", &Owner::piece).method("job_stderr:", &Owner::piece);
    }
    void piece(const id& data) { count += dataOf(data)->length(); }
    std::size_t count = 0;
};

std::size_t waitedFor(const std::string& way, const id& child, const id& arguments) {
    const Ref<Owner> owner = make<Owner>();
    const id task = VELT_VLTASK_INIT(owner, "job");
    VELT_VLTASK_PATH(task, child);
    VELT_VLTASK_ARGUMENTS(task, arguments);
    way == "start" ? VELT_VLTASK_STARTANDWAIT(task, VELT_ID(BOOL{0})) : VELT_VLTASK_LAUNCHANDWAIT(task);
    while (!VELT_CBOOL(valueForKey(task, "stdoutEmpty")) || !VELT_CBOOL(valueForKey(task, "stderrEmpty"))) {
        VELT_DORUNLOOP(VELT_ID(0.01));
    }
    return owner->count;
}

int program(int count, char** given) {
    const std::string way = given[1];
    const id child = string(given[2]);
    const Ref<NSMutableArray> arguments = make<NSMutableArray>();
    std::string command = "exec '" + std::string(given[2]) + "'";
    for (int i = 3; i < count; ++i) {
        arguments->append(string(given[i]));
        command += " '" + std::string(given[i]) + "'";
    }
    std::size_t size = 0;
    if (way == "run") size = utf8(VELT_RUN(child, arguments)).size();
    if (way == "bash") size = utf8(VELT_BASH(string(command), nil)).size();
    if (way == "launch" || way == "start") size = waitedFor(way, child, arguments);
    VELT_STDOUT(string(std::to_string(size) + " bytes\n"));
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return count < 3 ? 2 : velt::runProgram(program, count, arguments); }
