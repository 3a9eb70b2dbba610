#include "support/processes.h"
#include "support/values.h"

using namespace velt::test;

TEST(Exceptions, HaveNameReasonAndText) {
    const NSException exception("VLException", "it failed");
    EXPECT_EQ("VLException", exception.name());
    EXPECT_EQ("it failed", exception.reason());
    const std::exception& base = exception;
    EXPECT_STREQ("VLException: it failed", base.what());
}

TEST(Exceptions, KeepThePositionWhereTheyWereRaised) {
    VELTS("a.bas", "Sub", "5", "");
    const NSException exception("VLException", "it failed");
    VELTS("b.bas", "Main", "9", "");
    EXPECT_EQ("a.bas", exception.file());
    EXPECT_EQ("Sub", exception.scope());
    EXPECT_EQ("5", exception.line());
    EXPECT_EQ("a.bas:5: in Sub: VLException: it failed", velt::reportText(exception));
    VELTS("", "", "", "");
}

class UncaughtException : public ::testing::TestWithParam<const char*> {};

TEST_P(UncaughtException, IsReportedWithItsStatementAfterTheOutput) {
    const ProgramResult result = runProgram("uncaught", {GetParam()});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("written before", result.output);
    EXPECT_EQ("program.bas:12: in Main: VLCastException: 'Integer' expected\n", result.errors);
}
INSTANTIATE_TEST_SUITE_P(From, UncaughtException, ::testing::Values("run", "main", "callback", "thread"),
                         [](const auto& way) { return std::string(way.param); });

TEST(UncaughtExceptions, AreReportedBeforeTheFirstStatement) {
    const ProgramResult result = runProgram("uncaught", {"first"});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("VLCastException: 'Integer' expected\n", result.errors);
    const ProgramResult early = runProgram("early");
    EXPECT_EQ(1, early.status);
    EXPECT_EQ("VLCastException: 'String' or number expected\n", early.errors);
}

TEST(UncaughtExceptions, OfOtherTypesAreReportedFromTheProgramsMain) {
    const ProgramResult result = runProgram("uncaught", {"other"});
    EXPECT_EQ(1, result.status);
    EXPECT_EQ("program.bas:3: in Main: not ours\n", result.errors);
}
