// A program that drops a task whose last output makes the target fail: dropped_task raise|other
#include "VELTRuntime/VELTRuntime.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"

#include <stdexcept>
#include <string_view>

namespace {

bool failsOtherwise = false;

class Owner : public NSObject {
    VELT_OBJECT(Owner, NSObject)

public:
    static void describe(velt::ClassBuilder<Owner>& c) { c.method("job_stdout:", &Owner::output); }
    void output(const id&) {
        if (failsOtherwise) throw std::runtime_error("of another kind");
        velt::raise("VLException", "a reason");
    }
};

int program(int, char** arguments) {
    failsOtherwise = std::string_view(arguments[1]) == "other";
    {
        const id task = VELT_VLTASK_INIT(velt::make<Owner>(), "job");
        VELT_VLTASK_PATH(task, "/bin/echo"_v);
        const id process = velt::send(task, "task");
        velt::send(process, "launch");
        const id reading = velt::send(velt::send(process, "standardOutput"), "fileHandleForReading");
        velt::waitReadable(velt::as<NSFileHandle>(reading)->fileDescriptor(), -1);
    }
    VELT_STDOUT("went on\n"_v);
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return count < 2 ? 2 : velt::runProgram(program, count, arguments); }
