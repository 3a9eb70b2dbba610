// A program whose task reports to a method that raises, while another task runs on: raising_task FILE
#include "VELTRuntime/VELTRuntime.h"

namespace {

class Raiser : public NSObject {
    VELT_OBJECT(Raiser, NSObject)

public:
    static void describe(velt::ClassBuilder<Raiser>& c) { c.method("job_stdout:", &Raiser::output); }
    void output(const id&) {
        VELTS("raiser.bas", "Raiser.Job_Stdout", "12", "");
        VELT_SUB("x"_v, VELT_ID(1L));
    }
};

id launched(const id& owner, const char* command, const char* argument) {
    const id task = VELT_VLTASK_INIT(owner, "job");
    const velt::Ref<NSMutableArray> arguments = velt::make<NSMutableArray>();
    for (const char* text : {"-c", command, "sh", argument}) arguments->append(velt::string(text));
    VELT_VLTASK_PATH(task, "/bin/sh"_v);
    VELT_VLTASK_ARGUMENTS(task, arguments);
    velt::send(velt::send(task, "task"), "launch");
    return task;
}

int program(int, char** arguments) {
    const id other = launched(nil, "sleep 0.3; echo done >\"$1\"", arguments[1]);
    const id raising = launched(velt::make<Raiser>(), "echo x", "");
    VELT_DORUNLOOP(VELT_ID(60.0));
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return count < 2 ? 2 : velt::runProgram(program, count, arguments); }
