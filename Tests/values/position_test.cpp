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

TEST(LoadState, HoldsServicesAndPanelOptions) {
    EXPECT_VALUE("'NSProcessInfo'", VELT_CLASSNAME(VELT_id_NSPROCESSINFO));
    EXPECT_VALUE("'NSUserDefaults'", VELT_CLASSNAME(VELT_id_NSUSERDEFAULTS));
    EXPECT_VALUE("'NSNotificationCenter'", VELT_CLASSNAME(VELT_id_NSNOTIFICATIONCENTER));
    EXPECT_VALUE("'NSBundle'", VELT_CLASSNAME(VELT_id_NSBUNDLE));
    EXPECT_VALUE("'NSFileManager'", VELT_CLASSNAME(VELT_id_FILE));
    EXPECT_VALUE("c 1", VELT_idOPENPANEL_CANCHOOSEFILES);
    EXPECT_VALUE("c 0", VELT_idOPENPANEL_CANCHOOSEDIRECTORIES);
    EXPECT_VALUE("c 0", VELT_idOPENPANEL_RESOLVESALIASES);
    EXPECT_VALUE("c 0", VELT_idOPENPANEL_ALLOWSMULTIPLESELECTION);
    for (const id& value :
         {VELT_idOPENPANEL_DIRECTORY, VELT_idOPENPANEL_FILE, VELT_idOPENPANEL_TYPES, VELT_idOPENPANEL_FILENAMES,
          VELT_idOPENPANEL_URLS, VELT_idAPPLICATION, VELT_idFIRSTRESPONDER, VELT_mSuppressSpotlightForHelp}) {
        EXPECT_TRUE(value.isNil());
    }
}
