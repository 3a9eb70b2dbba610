#include "VELTRuntime/editor/source_formatter.h"

#include "plain_formatter.h"
#include "support/generated.h"

namespace velt::test {

namespace {

/// A document in which the last character, a line end, has just been typed.
std::string afterReturn(std::u16string_view text, std::u16string_view behind = {}) {
    FormattedDocument editor(std::u16string(text.substr(0, text.size() - 1)).append(behind));
    editor.moveTo(text.size() - 1);
    editor.type(text.substr(text.size() - 1));
    return editor.text();
}

/// A text after a pass over all of it at a level.
std::string formatted(std::u16string_view text, int level = 0) {
    FormattedDocument editor(text);
    editor.formatter.setLevel(level);
    editor.formatter.formatText();
    return editor.text();
}

class FormatterOnGeneratedTexts : public Generated {
protected:
    std::u16string source() {
        static const std::u16string_view kLines[] = {
            u"if a=b then",
            u"else",
            u"else 'x",
            u"else if b then",
            u"end if",
            u"for i=1 to 3",
            u"next",
            u"next i",
            u"do",
            u"do while a",
            u"loop",
            u"loop until b",
            u"select a",
            u"case 1",
            u"case",
            u"end select",
            u"public sub Main()",
            u"private dim x as integer",
            u"public const y=1",
            u"end sub",
            u"delegate d()",
            u"end delegate",
            u"property p",
            u"end property",
            u"dim s=\"a+b\"",
            u"s=\"it's+x\"",
            u"x=-1 'a+b",
            u"'",
            u"foo ( a , b )",
            u"return a!b",
            u"\"",
            u"",
            u"   ",
            u"äö+1",
            u"a:=b<>c",
            u"event e",
            u"print \"x",
        };
        static const std::u16string_view kBlanks[] = {u"", u" ", u"  ", u"   ", u"\t", u"    ", u" \t "};
        std::u16string text;
        for (std::size_t count = below(25); count > 0; --count) {
            text += kBlanks[below(std::size(kBlanks))];
            text += kLines[below(std::size(kLines))];
            text += kBlanks[below(std::size(kBlanks))];
            text += below(12) == 0 ? u"\r\n" : u"\n";
        }
        if (below(2)) text += u"tail=1";
        return text;
    }
    std::u16string garbage() {
        static const std::u16string_view kPieces[] = {
            u"\n",    u"\n", u"'",      u"\"",        u" ",   u"  ",     u"\t",         u"\r",     u"+",       u"-",
            u"<",     u">",  u"=",      u":",         u"(",   u")",      u".",          u",",      u"!",       u"&",
            u"/",     u"\\", u"<objc>", u"</string>", u"if ", u"IF",     u"end ",       u"sub ",   u"loop",    u"case ",
            u"else ", u"a",  u"_b",     u"1",         u"é",   u"\u2028", u"\U0001D400", u"\u0301", u"select ",
        };
        std::u16string text;
        for (std::size_t count = below(60); count > 0; --count) text += kPieces[below(std::size(kPieces))];
        return text;
    }
    /// Formats two documents, ours and the plain one's, and compares them.
    void comparePasses(const std::u16string& text, const LanguageWords& words) {
        FormattedDocument ours(text, words);
        PlainFormatter plain(text, words);
        const bool isSelection = below(2) && !text.empty();
        std::size_t begin = 0;
        ours.formatter.setLevel(static_cast<int>(below(4)));
        plain.level = ours.formatter.level();
        if (isSelection) {
            const std::size_t from = below(text.size());
            ours.document.select({from, 1 + below(text.size() - from)});
            while (begin = from, begin > 0 && text[begin - 1] != u'\n') {
                begin = text.rfind(u'\n', from - 1) + 1;  // npos + 1 is 0
                break;
            }
        }
        ours.formatter.formatText();
        plain.formatText(begin, isSelection);
        ASSERT_EQ(shown(plain.text), ours.text()) << shown(text);
        ASSERT_EQ(plain.level, ours.formatter.level()) << shown(text);
        ASSERT_EQ(plain.isCaseOpen, ours.shared.isCaseOpen) << shown(text);
    }
    void compareTyping(const std::u16string& text, const LanguageWords& words) {
        const std::size_t position = below(text.size() + 1);
        FormattedDocument ours(text, words);
        ours.moveTo(position);
        ours.type(u"\n");
        PlainFormatter plain(text, words);
        plain.text.insert(position, u"\n");
        plain.caret = position + 1;
        plain.finishLine(position, std::nullopt);
        ASSERT_EQ(shown(plain.text), ours.text()) << shown(text) << "\nat " << position;
        ASSERT_EQ(plain.caret, ours.caret()) << shown(text) << "\nat " << position;
        ours.document.undo();
        ours.document.undo();
        ASSERT_EQ(shown(text), ours.text());
    }
};

}  // namespace

TEST(SourceFormatter, SpacesAFinishedLineAndIndentsTheNewOne) {
    FormattedDocument editor(u"\n  if a=b then");
    editor.moveTo(editor.document.buffer().length());
    editor.type(u"\n");
    EXPECT_EQ("\n  If a = b Then\n    ", editor.text());
    EXPECT_EQ(editor.document.buffer().length(), editor.caret());
}

TEST(SourceFormatter, IndentsWholeUnitsOnly) {
    EXPECT_EQ("\n   a\n  ", afterReturn(u"\n   a\n"));
    EXPECT_EQ("\n a\n", afterReturn(u"\n a\n"));
    EXPECT_EQ("\n a\n", afterReturn(u"\n\ta\n"));
    EXPECT_EQ("\n Do While a\n  ", afterReturn(u"\n do while a\n"));
    EXPECT_EQ("\nDo While a\n  ", afterReturn(u"\ndo while a\n"));
    EXPECT_EQ("\na\n", afterReturn(u"\na\n"));
}

TEST(SourceFormatter, KeepsTheIndentationOfALineOfBlanks) {
    EXPECT_EQ("\n    \n    ", afterReturn(u"\n    \n"));
    EXPECT_EQ("\n\n", afterReturn(u"\n\n"));
    EXPECT_EQ("\n", afterReturn(u"\n"));
}

TEST(SourceFormatter, MovesAClosersLineLeftAndIndentsTheNewOneAsItWas) {
    EXPECT_EQ("\n  End If\n    ", afterReturn(u"\n    end if\n"));
}

TEST(SourceFormatter, FormatsInTheMiddleOfAText) {
    EXPECT_EQ("\n  x = 1\n  tail=1\nmore=2\n", afterReturn(u"\n  x=1\n", u"tail=1\nmore=2\n"));
}

TEST(SourceFormatter, GivesALineAtTheVeryStartOfTheTextNoRole) {
    EXPECT_EQ("If a Then\n", afterReturn(u"if a then\n"));
    EXPECT_EQ("  If a Then\n    ", afterReturn(u"  if a then\n"));
    EXPECT_EQ("Else\n", afterReturn(u"else\n"));
}

TEST(SourceFormatter, DoesNothingBeforeItIsTurnedOn) {
    FormattedDocument editor;
    SourceFormatter formatter(editor.document, editor, editor.shared);
    editor.document.insertText(u"if  a then\n");
    formatter.textTyped(10, u"\n");
    formatter.formatText();
    EXPECT_EQ("if  a then\n", editor.text());
    EXPECT_FALSE(formatter.isOn());
    EXPECT_TRUE(editor.lineEnds.empty());
    EXPECT_EQ(2U, editor.handled.size());
}

TEST(SourceFormatter, FormatsOnlyWhenALineEndIsTyped) {
    FormattedDocument editor;
    editor.type(u"a=b");
    EXPECT_EQ("a=b", editor.text());
    editor.document.insertText(u"\n\n");
    editor.formatter.textTyped(3, u"\n\n");
    EXPECT_EQ("a=b\n\n", editor.text());
    editor.formatter.textTyped(3, u"\n");
    EXPECT_EQ("a = b\n\n", editor.text());
}

TEST(SourceFormatter, FormatsUpToTheNextLineFeedBehindACarriageReturn) {
    FormattedDocument editor(u"\n  a=b");
    editor.moveTo(6);
    editor.type(u"\r");
    EXPECT_EQ("\n  a=b\r  ", editor.text());
    FormattedDocument before(u"\n  a=b\nc");
    before.moveTo(6);
    before.type(u"\r");
    EXPECT_EQ("\n  a = b \nc", before.text());
}

TEST(SourceFormatter, TellsOfLineEndsBeforeItChangesAnything) {
    FormattedDocument editor(u"\n  a=b");
    editor.moveTo(6);
    editor.type(u"\n");
    EXPECT_EQ((std::vector<std::size_t>{7}), editor.lineEnds);
    EXPECT_EQ((std::vector<std::pair<std::size_t, std::u16string>>{{6, u"\n"}}), editor.handled);
}

TEST(SourceFormatter, MakesItsWordsOnceForAllEditors) {
    FormattedDocument first(u"dim x");
    first.moveTo(5);
    first.type(u"\n");
    EXPECT_EQ(1, first.timesAsked);
    first.words.keywords = {u"DIM"};
    first.type(u"dim y\n");
    EXPECT_EQ(1, first.timesAsked);
    EXPECT_EQ("Dim x\nDim y\n", first.text());

    FormattedDocument second(u"dim x\n", {.keywords = {u"DIM"}, .builtins = {}, .types = {}});
    SourceFormatter formatter(second.document, second, first.shared);
    formatter.turnOn();
    formatter.formatText();
    EXPECT_EQ("Dim x\n", second.text());
    EXPECT_EQ(0, second.timesAsked);
}

TEST(SourceFormatter, KeepsToTheEmptyListsOfTheFirstEditor) {
    FormattedDocument editor(u"", {});
    editor.type(u"if a\n");
    editor.words = smallLanguage();
    editor.type(u"if a\n");
    EXPECT_EQ("if a\nif a\n  ", editor.text());
}

TEST(SourceFormatter, UndoesWhatALineEndDidInOneStep) {
    FormattedDocument editor(u"\n  if a=b then");
    editor.moveTo(14);
    editor.document.insertText(u"\n");
    editor.formatter.textTyped(14, u"\n");
    EXPECT_EQ("\n  If a = b Then\n    ", editor.text());
    editor.document.undo();
    EXPECT_EQ("\n  if a=b then\n", editor.text());
}

TEST(SourceFormatter, LeavesALineWhoseChangeIsRefused) {
    FormattedDocument editor(u"a=b");
    editor.moveTo(3);
    editor.document.insertText(u"\n");
    editor.document.allows = [](NSRange, std::u16string_view) { return false; };
    editor.formatter.textTyped(3, u"\n");
    EXPECT_EQ("a=b\n", editor.text());
    EXPECT_EQ(4U, editor.caret());
}

TEST(FormattingAText, IndentsBlocks) {
    EXPECT_EQ("Sub Main()\n"
              "  If a = b Then\n"
              "    For i = 0 To 3\n"
              "      foo(i)\n"
              "    Next i\n"
              "  Else ' not\n"
              "    bar()\n"
              "  End If\n"
              "End Sub\n",
              formatted(u"sub Main()\n if a=b then\n for i=0 to 3\n foo ( i )\n next i\n else ' not\n bar()\n end if\n"
                        u"end sub\n"));
}

TEST(FormattingAText, IndentsCases) {
    EXPECT_EQ("Sub Main()\n"
              "  Select Case a\n"
              "    Case 1\n"
              "      b\n"
              "    Case 2\n"
              "      Select c\n"
              "        Case 3\n"
              "      End Select\n"
              "  End Select\n"
              "End Sub\n",
              formatted(u"sub Main()\n select case a\n case 1\n b\n case 2\n select c\n case 3\n end select\n"
                        u" end select\nend sub\n"));
}

TEST(FormattingAText, LeavesABareElseWhereItIs) {
    EXPECT_EQ("Sub a()\n  If b Then\n    c\n    Else\n    d\n  End If\n",
              formatted(u"sub a()\n if b then\n c\n else\n d\n end if\n"));
    EXPECT_EQ("Sub a()\n  If b Then\n    c\n  Else 'd\n", formatted(u"sub a()\n if b then\n c\n else 'd\n"));
}

TEST(FormattingAText, GivesLinesWithoutIndentationOneBlankLess) {
    EXPECT_EQ("Sub a()\n b\n  c\n", formatted(u"sub a()\nb\n c\n"));
}

TEST(FormattingAText, GoesOnAtTheLevelOfTheLastPass) {
    FormattedDocument editor(u" if a then\n b\n");
    editor.formatter.formatText();
    EXPECT_EQ(" If a Then\n  b\n", editor.text());
    EXPECT_EQ(1, editor.formatter.level());
    editor.formatter.formatText();
    EXPECT_EQ("  If a Then\n    b\n", editor.text());
    EXPECT_EQ(2, editor.formatter.level());
}

TEST(FormattingAText, BeginsASelectionAtLevelOne) {
    FormattedDocument editor(u"a=1\n b=2\n c=3\nd=4\n");
    editor.formatter.setLevel(7);
    editor.document.select({6, 1});
    editor.formatter.formatText();
    EXPECT_EQ("a=1\n  b = 2\n  c = 3\n d = 4\n", editor.text());
    EXPECT_EQ(1, editor.formatter.level());
}

TEST(FormattingAText, GoesOnBehindTheSelectionToTheEnd) {
    FormattedDocument editor(u"a=1\nb=2\nc=3");
    editor.document.select({0, 1});
    editor.formatter.formatText();
    EXPECT_EQ(" a = 1\n b = 2\nc=3", editor.text());
}

TEST(FormattingAText, LeavesALastLineWithoutALineEnd) {
    EXPECT_EQ("a=b", formatted(u"a=b"));
    EXPECT_EQ("", formatted(u""));
    FormattedDocument editor(u"a=b");
    editor.formatter.setLevel(3);
    editor.document.select({0, 3});
    editor.formatter.formatText();
    EXPECT_EQ(3, editor.formatter.level());
}

TEST(FormattingAText, FormatsTextsBeyondSixteenBits) {
    std::u16string text = u"sub a()\n";
    std::string expected = "Sub a()\n";
    for (int i = 0; i < iterations(70000); ++i) {
        text += u" x=1\n";
        expected += "  x = 1\n";
    }
    EXPECT_TRUE(expected == formatted(text));
}

TEST(FormattingAText, IsUndoneInOneStep) {
    FormattedDocument editor(u"sub a()\n b=1\n  c=2\nend sub\n");
    editor.formatter.formatText();
    EXPECT_EQ("Sub a()\n  b = 1\n  c = 2\nEnd Sub\n", editor.text());
    editor.document.undo();
    EXPECT_EQ("sub a()\n b=1\n  c=2\nend sub\n", editor.text());
    editor.document.redo();
    EXPECT_EQ("Sub a()\n  b = 1\n  c = 2\nEnd Sub\n", editor.text());
}

TEST(FormattingAText, TellsOfEveryLine) {
    FormattedDocument editor(u"a=1\n\nb\n");
    editor.formatter.formatText();
    EXPECT_EQ("a = 1\n\nb\n", editor.text());
    EXPECT_EQ((std::vector<std::size_t>{0, 6, 6}), editor.lineEnds);
    EXPECT_EQ((std::vector<std::pair<std::size_t, std::u16string>>{{3, u"\n"}, {6, u"\n"}, {8, u"\n"}}),
              editor.handled);
}

TEST_F(FormatterOnGeneratedTexts, FormatsPassesAsThePlainOneDoes) {
    for (int round = 0; round < iterations(3000); ++round) comparePasses(source(), smallLanguage());
}

TEST_F(FormatterOnGeneratedTexts, FormatsGarbageAsThePlainOneDoes) {
    for (int round = 0; round < iterations(3000); ++round) {
        comparePasses(garbage(), below(4) ? smallLanguage() : LanguageWords());
    }
}

TEST_F(FormatterOnGeneratedTexts, FormatsTypedLinesAsThePlainOneDoes) {
    for (int round = 0; round < iterations(3000); ++round) {
        compareTyping(source(), smallLanguage());
        compareTyping(garbage(), smallLanguage());
    }
}

TEST_F(FormatterOnGeneratedTexts, FormatsASecondTimeToTheSame) {
    for (int round = 0; round < iterations(2000); ++round) {
        // One pass gives lines without indentation theirs; from then on nothing changes any more.
        FormattedDocument editor(std::u16string(u"sub a()\n").append(source()));
        for (int pass = 0; pass < 3; ++pass) {
            editor.formatter.setLevel(0);
            editor.shared.isCaseOpen = false;
            editor.formatter.formatText();
        }
        const std::string before = editor.text();
        editor.formatter.setLevel(0);
        editor.shared.isCaseOpen = false;
        editor.formatter.formatText();
        ASSERT_EQ(before, editor.text());
    }
}

}  // namespace velt::test
