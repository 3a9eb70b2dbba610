#include "VELTRuntime/editor/line_roles.h"

#include "formatting.h"

namespace velt::test {

namespace {

LineRole roleOf(std::u16string_view line) { return lineRole(lineStart(line)); }

/// The level before a line and after it, from a level of 5.
std::pair<int, int> levelsAt(std::u16string_view line, bool isCaseOpen = false) {
    Indentation indentation{5, isCaseOpen};
    const bool raises = applyIndentation(indentation, lineStart(line), lineStart(line));
    return {indentation.level, indentation.level + raises};
}

}  // namespace

TEST(LineRoles, OpenersIndentTheNextLine) {
    for (const auto* line : {u"if a then", u"for i = 0 to 1", u"select a", u"do while a", u"public a", u"private a",
                             u"sub a", u"function a", u"action a", u"ibaction a", u"iboutlet a", u"property a",
                             u"event a", u"case 1", u"public sub a", u"private function a"}) {
        EXPECT_EQ(LineRole::Opener, roleOf(line)) << shown(line);
    }
}

TEST(LineRoles, ClosersMoveLeft) {
    for (const auto* line :
         {u"end if", u"end sub", u"end function", u"end action", u"end ibaction", u"end iboutlet", u"end delegate",
          u"end event", u"end select", u"loop", u"loop while a", u"else", u"else 'b", u"elseif a then", u"case"}) {
        EXPECT_EQ(LineRole::Closer, roleOf(line)) << shown(line);
    }
}

TEST(LineRoles, FieldsAndConstantsOpenNothing) {
    for (const auto* line : {u"public dim a", u"public const a", u"private dim a", u"private const a", u"dim a"}) {
        EXPECT_EQ(LineRole::Plain, roleOf(line)) << shown(line);
    }
}

TEST(LineRoles, KeepTheGapsThatProgramsRelyOn) {
    EXPECT_EQ(LineRole::Plain, roleOf(u"delegate a"));
    EXPECT_EQ(LineRole::Plain, roleOf(u"end property"));
    EXPECT_EQ(LineRole::Plain, roleOf(u"next i"));
    EXPECT_EQ(LineRole::Closer, roleOf(u"elsewhere = 1"));
    EXPECT_EQ(LineRole::Closer, roleOf(u"loops = 1"));
}

TEST(LineRoles, AWordAloneOpensNothing) {
    for (const auto* line : {u"if", u"for", u"select", u"do", u"public", u"sub", u"do ", u"iffy = 1", u""}) {
        EXPECT_EQ(LineRole::Plain, roleOf(line)) << shown(line);
    }
}

TEST(LineRoles, AreReadInAnyCaseAndWithinAnyWhiteSpace) {
    EXPECT_EQ(LineRole::Opener, roleOf(u" \t\u00A0IF a THEN  \r\n"));
    EXPECT_EQ(LineRole::Closer, roleOf(u"\u3000End Sub\u2028"));
    EXPECT_EQ(u"if a then", lineStart(u"\t If A Then \n"));
    EXPECT_EQ(u"", lineStart(u" \n"));
}

TEST(LineRoles, DeclarationsStandAtColumnZero) {
    for (const std::u16string scope : {u"", u"public ", u"private "}) {
        for (const std::u16string kind :
             {u"sub ", u"function ", u"property ", u"delegate ", u"action ", u"ibaction ", u"iboutlet ", u"event "}) {
            EXPECT_TRUE(isDeclaration(lineStart(scope + kind + u"a"))) << shown(scope + kind);
        }
    }
    for (const auto* line : {u"public dim a", u"end sub", u"sub", u"subs = 1", u"public  sub a", u"if a then"}) {
        EXPECT_FALSE(isDeclaration(lineStart(line))) << shown(line);
    }
}

TEST(PassIndentation, BlocksRaiseWhatComesAfterThem) {
    for (const auto* line : {u"if a then", u"for i = 0 to 1", u"do while a", u"select a"}) {
        EXPECT_EQ(std::pair(5, 6), levelsAt(line)) << shown(line);
    }
}

TEST(PassIndentation, DeclarationsBeginAtTheLeft) {
    for (const auto* line : {u"public a", u"private a", u"sub a", u"function a", u"action a", u"ibaction a",
                             u"iboutlet a", u"property a", u"delegate a", u"event a"}) {
        EXPECT_EQ(std::pair(0, 1), levelsAt(line)) << shown(line);
    }
}

TEST(PassIndentation, EndsOfDeclarationsAreAtTheLeft) {
    for (const auto* line : {u"end sub", u"end function", u"end action", u"end ibaction", u"end iboutlet",
                             u"end property", u"end delegate", u"end event"}) {
        EXPECT_EQ(std::pair(0, 0), levelsAt(line)) << shown(line);
    }
}

TEST(PassIndentation, EndsOfBlocksLower) {
    for (const auto* line : {u"end if", u"loop while a", u"loop'a", u"loop 'a", u"next i", u"next'i", u"next 'i"}) {
        EXPECT_EQ(std::pair(4, 4), levelsAt(line)) << shown(line);
    }
    EXPECT_EQ(std::pair(3, 3), levelsAt(u"end select"));
}

TEST(PassIndentation, ElseIsBetweenTwoBlocks) {
    for (const auto* line : {u"else 'a", u"else'a", u"else if a then"}) {
        EXPECT_EQ(std::pair(4, 5), levelsAt(line)) << shown(line);
    }
}

TEST(PassIndentation, BareLoopNextAndElseChangeNothing) {
    for (const auto* line : {u"loop\n", u"next\n", u"else\n", u"loop", u"next \n", u" else \n", u"elseif a then"}) {
        EXPECT_EQ(std::pair(5, 5), levelsAt(line)) << shown(line);
    }
}

TEST(PassIndentation, FieldsAndConstantsChangeNothing) {
    for (const auto* line : {u"public dim a", u"public const a", u"private dim a", u"private const a", u"dim a", u""}) {
        EXPECT_EQ(std::pair(5, 5), levelsAt(line)) << shown(line);
    }
}

TEST(PassIndentation, CasesCloseTheCaseBeforeThem) {
    EXPECT_EQ(std::pair(5, 6), levelsAt(u"case 1", false));
    EXPECT_EQ(std::pair(4, 5), levelsAt(u"case 1", true));
    Indentation indentation{0, true};
    EXPECT_TRUE(applyIndentation(indentation, u"select a", u"select a"));
    EXPECT_FALSE(indentation.isCaseOpen);
    EXPECT_TRUE(applyIndentation(indentation, u"case 1", u"case 1"));
    EXPECT_TRUE(indentation.isCaseOpen);
    EXPECT_EQ(0, indentation.level);
}

TEST(PassIndentation, FallsBelowZero) {
    Indentation indentation;
    applyIndentation(indentation, u"end select", u"end select");
    applyIndentation(indentation, u"end if", u"end if");
    EXPECT_EQ(-3, indentation.level);
}

TEST(PassIndentation, AFieldAtTheVeryStartOfTheTextOpensAScope) {
    Indentation indentation{5, false};
    EXPECT_TRUE(applyIndentation(indentation, u"public dim a", u""));
    EXPECT_EQ(0, indentation.level);
}

}  // namespace velt::test
