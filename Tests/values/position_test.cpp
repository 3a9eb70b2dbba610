#include "support/processes.h"
#include "support/values.h"

using namespace velt::test;

class PositionRecord : public ::testing::Test {
protected:
    ~PositionRecord() override { META_acCurrentFile = META_acCurrentScope = META_acCurrentLine = ""; }
};

TEST(PositionRecordOfAProgram, IsEmptyBeforeTheFirstStatement) {
    EXPECT_EQ("file '' scope '' line ''\n", runProgram("position").output);
}

TEST_F(PositionRecord, HoldsTheCallersTexts) {
    const char* file = "a.bas";
    EXPECT_VALUE("c 1", VELTS(file, "Main", "12", "ignored"));
    EXPECT_EQ(file, META_acCurrentFile);
    EXPECT_VALUE("'a.bas'", VeltF());
    EXPECT_VALUE("'Main'", VeltS());
    EXPECT_VALUE("'12'", VeltL());
    VeltB();
    EXPECT_VALUE("'12'", VeltL());
}

TEST_F(PositionRecord, IsPartOfAnException) {
    VELTS("a.bas", "Main", "7", "");
    try {
        VELT_CINTEGER(nil);
        FAIL();
    } catch (const NSException& exception) {
        EXPECT_EQ("a.bas:7: in Main: VLCastException: 'Integer' expected", velt::reportText(exception));
    }
}

TEST(DebuggerVariables, HaveTheirInitialValues) {
    EXPECT_EQ(0, bDEBUG);
    EXPECT_EQ(1, bDEBUG_STEPINTO);
    EXPECT_EQ(0, nBreakpoints);
    EXPECT_EQ(0, nStepOneLine);
}
