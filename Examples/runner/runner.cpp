// runner.bas as the translator writes it: a task whose output comes piece by piece while the program waits.
#include "support/clock.h"
#include "support/console.h"
#include "support/terminal.h"

using example::argumentList;
using example::countInterrupts;
using example::interrupts;
using example::print;
using example::printError;
using example::seconds;

namespace {

class Runner : public NSObject {
    VELT_OBJECT(Runner, NSObject)

public:
    id task;

    static void describe(velt::ClassBuilder<Runner>& c) {
        c.property("task", &Runner::task)
            .method("job_stdout:", &Runner::jobStdout)
            .method("job_stderr:", &Runner::jobStderr)
            .method("jobstopped", &Runner::jobStopped);
    }

    void show(id kind, id text) {
        VELTS("runner.bas", "Runner.Show", "8", "");
        id stamp = VELT__STRING(VELT_RIGHT(
            VELT_CONCAT("       "_v, VELT_FORMATDECIMAL(seconds(), VELT_ID(BOOL{0}), VELT_ID(3L))), VELT_ID(8L)));
        VELTS("runner.bas", "Runner.Show", "9", "");
        id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(text, VELT_CHARACTER(VELT_ID(10L))));
        VELTS("runner.bas", "Runner.Show", "10", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("runner.bas", "Runner.Show", "11", "");
            if (VELT_CBOOL(VELT_ORELSE(VELT_SMALLER(i, VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L))),
                                       VELT_GREATER(VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, i)), VELT_ID(0L))))) {
                VELTS("runner.bas", "Runner.Show", "12", "");
                print(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(stamp, " "_v), kind), " "_v),
                                  VELT_NSMUTABLEARRAY_OBJECT(lines, i)));
            }
        }
    }

    void jobStdout(id piece) {
        VELTS("runner.bas", "Runner.Job_Stdout", "18", "");
        show("out"_v, VELT__STRING(VELT_CSTRING(piece)));
    }

    void jobStderr(id piece) {
        VELTS("runner.bas", "Runner.Job_Stderr", "22", "");
        show("err"_v, VELT__STRING(VELT_CSTRING(piece)));
    }

    void jobStopped() {
        VELTS("runner.bas", "Runner.JobStopped", "26", "");
        show("end"_v, VELT__STRING(VELT_CONCAT("status "_v, VELT_VLTASK_EXITSTATUS(task))));
    }

    id isDone() {
        VELTS("runner.bas", "Runner.IsDone", "30", "");
        return VELT__BOOLEAN(VELT_ANDALSO(
            VELT_ANDALSO(velt::valueForKey(task, "taskDidTerminate"), velt::valueForKey(task, "stdoutEmpty")),
            velt::valueForKey(task, "stderrEmpty")));
    }

    id run(id arguments) {
        VELTS("runner.bas", "Runner.Run", "34", "");
        task = VELT__VLTASK(VELT_VLTASK_INIT(id(this), "job"));
        VELTS("runner.bas", "Runner.Run", "35", "");
        VELT_VLTASK_PATH(task, "/usr/bin/env"_v);
        VELTS("runner.bas", "Runner.Run", "36", "");
        VELT_VLTASK_ARGUMENTS(task, arguments);
        VELTS("runner.bas", "Runner.Run", "37", "");
        velt::send(velt::valueForKey(task, "mytask"), "launch");
        VELTS("runner.bas", "Runner.Run", "38", "");
        show("run"_v, VELT__STRING(VELT_JOIN(arguments, " "_v)));
        VELTS("runner.bas", "Runner.Run", "39", "");
        id asked = VELT__INTEGER(VELT_ID(0L));
        while (VELTS("runner.bas", "Runner.Run", "40", ""), VELT_CBOOL(VELT_NOT(isDone()))) {
            VELTS("runner.bas", "Runner.Run", "41", "");
            VELT_DORUNLOOP(VELT_ID(0.02));
            VELTS("runner.bas", "Runner.Run", "42", "");
            if (VELT_CBOOL(VELT_GREATER(interrupts(), asked))) {
                VELTS("runner.bas", "Runner.Run", "43", "");
                asked = VELT__INTEGER(interrupts());
                VELTS("runner.bas", "Runner.Run", "44", "");
                if (VELT_CBOOL(VELT_EQUAL(asked, VELT_ID(1L)))) {
                    VELTS("runner.bas", "Runner.Run", "45", "");
                    show("int"_v, "once more ends it"_v);
                } else {
                    VELTS("runner.bas", "Runner.Run", "47", "");
                    show("int"_v, "ending it"_v);
                    VELTS("runner.bas", "Runner.Run", "48", "");
                    VELT_VLTASK_STOP(task);
                }
            }
        }
        VELTS("runner.bas", "Runner.Run", "52", "");
        return VELT__INTEGER(VELT_VLTASK_EXITSTATUS(task));
    }
};

id mainFunction(id arguments) {
    VELTS("runner.bas", "Main", "57", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
        VELTS("runner.bas", "Main", "58", "");
        printError("usage: runner COMMAND [ARGUMENT...]"_v);
        VELTS("runner.bas", "Main", "59", "");
        return VELT_ID(2L);
    }
    VELTS("runner.bas", "Main", "61", "");
    countInterrupts();
    VELTS("runner.bas", "Main", "62", "");
    seconds();
    VELTS("runner.bas", "Main", "63", "");
    velt::Ref<Runner> runner = velt::make<Runner>();
    VELTS("runner.bas", "Main", "64", "");
    id status = VELT__INTEGER(runner->run(arguments));
    VELTS("runner.bas", "Main", "65", "");
    runner->task = nil;
    VELTS("runner.bas", "Main", "66", "");
    return VELT__INTEGER(status);
}

int program(int count, char** arguments) {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    return static_cast<int>(VELT_CINTEGER(mainFunction(argumentList(count, arguments))));
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
