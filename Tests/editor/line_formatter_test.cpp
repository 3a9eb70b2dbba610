#include "VELTRuntime/editor/line_formatter.h"

#include "formatting.h"
#include "support/generated.h"

namespace velt::test {

namespace {

const Recasing& words() {
    static const Recasing recasing = smallLanguage().recasing();
    return recasing;
}

std::string typed(std::u16string_view line) { return shown(formatTypedLine(line, lineRole(lineStart(line)), words())); }
std::string inPass(std::u16string_view line, int level) {
    Indentation indentation{level, false};
    return shown(formatPassLine(line, lineStart(line), indentation, words()));
}

class LineFormatterOnGeneratedLines : public Generated {};

}  // namespace

TEST(LineFormatter, KeepsTheIndentationOfATypedLine) {
    EXPECT_EQ("  a = b\n", typed(u"  a=b\n"));
    EXPECT_EQ("   a = b\n", typed(u"   a=b\n"));
    EXPECT_EQ(" a = b\n", typed(u" a=b\n"));
    EXPECT_EQ("a = b\n", typed(u"a=b\n"));
    EXPECT_EQ("  a\n", typed(u"\t\ta\n"));
    EXPECT_EQ("  .a\n", typed(u"  . a\n"));
}

TEST(LineFormatter, MovesATypedCloserOneUnitLeft) {
    EXPECT_EQ("  End If\n", typed(u"    end if\n"));
    EXPECT_EQ(" End If\n", typed(u"   end if\n"));
    EXPECT_EQ("End If\n", typed(u"end if\n"));
}

TEST(LineFormatter, LeavesOneBlankBeforeACloserAtTheFirstUnit) {
    EXPECT_EQ(" End If\n", typed(u"  end if\n"));
    EXPECT_EQ(" End If\n", typed(u" end if\n"));
}

TEST(LineFormatter, MovesDeclarationsToColumnZero) {
    EXPECT_EQ("Public Sub Main\n", typed(u"  public sub Main\n"));
    EXPECT_EQ("Function a()\n", typed(u"\tfunction a()\n"));
}

TEST(LineFormatter, KeepsLinesOfBlanks) {
    EXPECT_EQ("   \n", typed(u"   \n"));
    EXPECT_EQ("\n", typed(u"\n"));
    EXPECT_EQ("\n", typed(u"\r\n"));
}

TEST(LineFormatter, KeepsLiteralsAndComments) {
    EXPECT_EQ("s = \"a+b  If\" & t 'x+y  If\n", typed(u"s=\"a+b  If\"&t 'x+y  If\n"));
    EXPECT_EQ("s = \"\" & \"=\" & \"\t\"\n", typed(u"s=\"\"&\"=\"&\"\t\"\n"));
    EXPECT_EQ("'a=b\r\n", typed(u"'a=b\r\n"));
    EXPECT_EQ("a = b ' \"c=d\" e=f\n", typed(u"a=b ' \"c=d\" e=f\n"));
    EXPECT_EQ("  'a=b\n", typed(u"  'a=b\n"));
}

TEST(LineFormatter, SpacesALiteralUpToItsApostrophe) {
    EXPECT_EQ("s = \"a + b's+t\"\n", typed(u"s=\"a+b's+t\"\n"));
    EXPECT_EQ("s = \"x+y\" & \"a + b's+t\"\n", typed(u"s=\"x+y\"&\"a+b's+t\"\n"));
}

TEST(LineFormatter, SpacesALiteralThatDoesNotEnd) { EXPECT_EQ("s = \"a + b\n", typed(u"s=\"a+b\n")); }

TEST(LineFormatter, RecasesKeywordsBuiltinsAndTypes) {
    EXPECT_EQ("If Len(s) = 0 Then Dim w As NSWindow\n", typed(u"IF len(s)=0 THEN dim w as nswindow\n"));
}

TEST(LineFormatter, GivesIndentedLinesOfAPassTwoBlanksALevel) {
    EXPECT_EQ("    a = b\n", inPass(u" a=b\n", 2));
    EXPECT_EQ("    a = b\n", inPass(u"        a=b\n", 2));
    EXPECT_EQ("  a = b\n", inPass(u"  a=b\n", 1));
}

TEST(LineFormatter, GivesOtherLinesOfAPassOneBlankLess) {
    EXPECT_EQ("   a = b\n", inPass(u"a=b\n", 2));
    EXPECT_EQ(" a = b\n", inPass(u"a=b\n", 1));
    EXPECT_EQ("   .a\n", inPass(u"  . a\n", 2));
}

TEST(LineFormatter, KeepsOneBlankOfAnIndentedLineAtLevelZero) {
    EXPECT_EQ(" a\n", inPass(u"    a\n", 0));
    EXPECT_EQ(" a\n", inPass(u"    a\n", -3));
    EXPECT_EQ("a\n", inPass(u"a\n", 0));
    EXPECT_EQ(" End Sub\n", inPass(u"  end sub\n", 4));
}

TEST(LineFormatter, IndentsTheLinesAfterABlocksBegin) {
    Indentation indentation{1, false};
    EXPECT_EQ("  If a Then\n", shown(formatPassLine(u" if a then\n", u"if a then", indentation, words())));
    EXPECT_EQ("    b\n", shown(formatPassLine(u" b\n", u"b", indentation, words())));
    EXPECT_EQ("  End If\n", shown(formatPassLine(u" end if\n", u"end if", indentation, words())));
    EXPECT_EQ(1, indentation.level);
}

TEST(LineFormatter, LeavesShortLinesOfAPassAsTheyAre) {
    Indentation indentation{3, true};
    EXPECT_EQ("\n", shown(formatPassLine(u"\n", u"", indentation, words())));
    EXPECT_EQ(3, indentation.level);
}

TEST(LineFormatter, IndentsANewLineAsTheFinishedOne) {
    EXPECT_EQ(0U, unitsAfter(u"a", LineRole::Plain));
    EXPECT_EQ(1U, unitsAfter(u"a", LineRole::Opener));
    EXPECT_EQ(0U, unitsAfter(u" a", LineRole::Plain));
    EXPECT_EQ(1U, unitsAfter(u" a", LineRole::Opener));
    EXPECT_EQ(1U, unitsAfter(u"  a", LineRole::Closer));
    EXPECT_EQ(1U, unitsAfter(u"   a", LineRole::Plain));
    EXPECT_EQ(2U, unitsAfter(u"   a", LineRole::Opener));
    EXPECT_EQ(2U, unitsAfter(u"\t   ", LineRole::Plain));
}

TEST_F(LineFormatterOnGeneratedLines, KeepsEveryLiteralAndCommentByteForByte) {
    const std::u16string_view pieces[] = {u"if ", u"x", u"+",  u"(", u" ", u"=",  u"\t",
                                          u"<>",  u",", u"IF", u"!", u".", u"\r", u"ä"};
    for (int round = 0; round < iterations(5000); ++round) {
        std::u16string line;
        std::vector<std::u16string> kept;
        const auto random = [&] {
            std::u16string some;
            for (std::size_t count = below(6); count > 0; --count) some += pieces[below(std::size(pieces))];
            return some;
        };
        for (std::size_t count = below(4); count > 0; --count) {
            kept.push_back(std::u16string(u"\"").append(random()).append(u"\""));
            line.append(random()).append(kept.back());
        }
        line += random();
        if (below(2)) {
            kept.push_back(std::u16string(u"'").append(random()).append(u"\"").append(random()));
            line += kept.back();
        }
        line += u'\n';
        Indentation indentation{static_cast<int>(below(4)), false};
        for (const std::u16string& result : {formatTypedLine(line, lineRole(lineStart(line)), words()),
                                             formatPassLine(line, lineStart(line), indentation, words())}) {
            std::size_t from = 0;
            for (const std::u16string& each : kept) {
                const std::size_t found = result.find(each, from);
                ASSERT_NE(result.npos, found) << shown(line) << shown(result);
                from = found + each.size();
            }
        }
    }
}

}  // namespace velt::test
