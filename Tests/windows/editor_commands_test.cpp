// Commands of the source editor: blocks of lines, case, finding and replacing, and how they are undone.
#include "windows/editor_support.h"

#include <random>

using namespace velt::test;
using velt::Ref;

namespace {

void undo(const EditorWindow& shown) { VELT_NSTEXTVIEW_UNDO(shown.view); }
void redo(const EditorWindow& shown) { VELT_NSTEXTVIEW_REDO(shown.view); }

id rangeList(std::initializer_list<NSRange> ranges) {
    const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const NSRange& each : ranges) list->append(VELT_ID(each));
    return list;
}

/// Sets the editor up anew as soon as something else is selected.
class Resetter : public NSObject {
    VELT_OBJECT(Resetter, NSObject)

public:
    void selectionChanged(const id& notification) {
        ++count;
        velt::send(velt::send(notification, "object"), "_myinit");
    }
    static void describe(velt::ClassBuilder<Resetter>& c) {
        c.method("textViewDidChangeSelection:", &Resetter::selectionChanged);
    }
    int count = 0;
};

}  // namespace

TEST(EditorCommands, WorkOnLinesAndAreUndoneInOneStep) {
    EditorWindow shown("one\n  two\nthree\n");
    shown.select(1, 10);
    VELT_VLTEXTVIEW_SHIFTRIGHT(shown.view);
    EXPECT_EQ("  one\n    two\n  three\n", shown.text());
    EXPECT_EQ("{0, 16}", shown.selected());
    VELT_VLTEXTVIEW_COMMENT(shown.view);
    EXPECT_EQ("'  one\n'    two\n'  three\n", shown.text());
    VELT_VLTEXTVIEW_UNCOMMENT(shown.view);
    VELT_VLTEXTVIEW_SHIFTLEFT(shown.view);
    EXPECT_EQ("one\n  two\nthree\n", shown.text());
    undo(shown);
    EXPECT_EQ("  one\n    two\n  three\n", shown.text());
    undo(shown);
    EXPECT_EQ("'  one\n'    two\n'  three\n", shown.text());
    undo(shown);
    undo(shown);
    EXPECT_EQ("one\n  two\nthree\n", shown.text());
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(shown.view));
    redo(shown);
    EXPECT_EQ("  one\n    two\n  three\n", shown.text());
    EXPECT_VALUE("nil", VELT_VLTEXTVIEW_SHIFTLEFT(nil));
}

TEST(EditorCommands, KeepSeveralSelections) {
    EditorWindow shown("a\nb\nc\nd\n");
    velt::send(shown.view, "setSelectedRanges:", rangeList({{0, 1}, {4, 1}}));
    VELT_VLTEXTVIEW_SHIFTRIGHT(shown.view);
    EXPECT_EQ("  a\nb\n  c\nd\n", shown.text());
    EXPECT_EQ("({0, 3}, {6, 3})", velt::utf8(velt::description(velt::send(shown.view, "selectedRanges"))));
    EXPECT_VALUE("'  a'", VELT_NSTEXTVIEW_SELECTEDTEXT(shown.view));
    VELT_VLTEXTVIEW_UPPERCASE(shown.view);
    EXPECT_EQ("  A\nb\n  C\nd\n", shown.text());
    undo(shown);
    EXPECT_EQ("  a\nb\n  c\nd\n", shown.text());
    VELT_NSTEXTVIEW_VALUE(shown.view, str("AB"));
    shown.select(1, 1);
    VELT_VLTEXTVIEW_LOWERCASE(shown.view);
    EXPECT_EQ("Ab", shown.text());
}

TEST(EditorCommands, AskAndTellTheDelegateOfEveryLine) {
    EditorWindow shown("a\nb\n");
    const Ref<EditorHost> host = velt::make<EditorHost>();
    host->tells = false;
    VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
    shown.select(0, 4);
    VELT_VLTEXTVIEW_COMMENT(shown.view);
    EXPECT_EQ("'a\n'b\n", shown.text());
    EXPECT_EQ(2, host->asked);
    EXPECT_EQ(2, host->heard);
    host->allows = false;
    VELT_VLTEXTVIEW_UNCOMMENT(shown.view);
    EXPECT_EQ("'a\n'b\n", shown.text());
    shown.select(0, 2);
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_FINDREPLACE(shown.view, str("x")));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str("a"), str("x")));
    EXPECT_EQ("'a\n'b\n", shown.text());
}

TEST(EditorCommands, PutTwoSpacesForATab) {
    EditorWindow shown("  one\ntwo\n");
    shown.select(9);
    shown.key(Qt::Key_Tab);
    EXPECT_EQ("  one\ntwo  \n", shown.text());
    shown.select(1, 3);
    shown.key(Qt::Key_Tab);
    // The lines go right, and two spaces take the place of what is selected then.
    EXPECT_EQ("  ne\ntwo  \n", shown.text());
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ("  one\ntwo  \n", shown.text());
    shown.select(3, 2);
    shown.key(Qt::Key_Tab);
    EXPECT_EQ("  o  \ntwo  \n", shown.text());
}

TEST(EditorSearch, FindsAndReplaces) {
    EditorWindow shown("ab AB ab\n");
    shown.select(0);
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("ab")));
    EXPECT_EQ("{6, 2}", shown.selected());
    EXPECT_TRUE(shown.widget->viewport()->findChild<QWidget*>(QStringLiteral("findIndicator")));
    VELT_VLTEXTVIEW_FINDSETOPTIONIGNORECASE(shown.view, boolean(true));
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDPREVIOUS(shown.view, str("ab")));
    EXPECT_EQ("{3, 2}", shown.selected());
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDREPLACE(shown.view, str("xyz")));
    EXPECT_EQ("ab xyz ab\n", shown.text());
    EXPECT_EQ("{3, 3}", shown.selected());
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDREPLACEFIND(shown.view, str("ab"), str("-")));
    EXPECT_EQ("ab - ab\n", shown.text());
    EXPECT_EQ("{5, 2}", shown.selected());
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("none")));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("")));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDNEXT(nil, str("ab")));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDPREVIOUS(nil, str("ab")));
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_FINDREPLACE(nil, str("ab")));
    shown.select(2);
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_FINDREPLACE(shown.view, str("x")));
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_FINDREPLACEFIND(shown.view, str("ab"), str("x")));
    VELT_NSTEXTVIEW_VALUE(shown.view, str(""));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("ab")));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDPREVIOUS(shown.view, str("ab")));
}

TEST(EditorSearch, GoesOnInAViewThatIsSetUpAnewMeanwhile) {
    EditorWindow shown("one two\none two\n");
    shown.select(0);
    const Ref<Resetter> resetter = velt::make<Resetter>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, resetter);
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("two")));
    EXPECT_EQ("{4, 3}", shown.selected());
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDPREVIOUS(shown.view, str("one")));
    EXPECT_EQ("{0, 3}", shown.selected());
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(2));
    EXPECT_EQ("{8, 8}", shown.selected());
    EXPECT_EQ(3, resetter->count);
}

TEST(EditorSearch, ReplacesAllInOneStep) {
    EditorWindow shown("a b a b a\n");
    shown.select(3);
    // The search begins behind the text's first unit.
    EXPECT_VALUE("q 2", VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str("a"), str("aa")));
    EXPECT_EQ("a b aa b aa\n", shown.text());
    undo(shown);
    EXPECT_EQ("a b a b a\n", shown.text());
    VELT_VLTEXTVIEW_FINDSETOPTIONSELECTEDTEXTONLY(shown.view, boolean(true));
    shown.select(2, 4);
    EXPECT_VALUE("q 1", VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str("a"), str("xyz")));
    EXPECT_EQ("a b xyz b a\n", shown.text());
    EXPECT_EQ("{2, 6}", shown.selected());
}

TEST(EditorTyping, FormatsTheFinishedLineAndIsUndoneWithTheLineEnd) {
    EditorWindow shown("");
    const Ref<EditorHost> host = velt::make<EditorHost>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    EXPECT_VALUE("c 1", velt::send(shown.view, "bAutoIndent"));
    shown.type("\n  IF a=\"x+1\" THEN 'a+b");
    const std::string before = shown.text();
    shown.key(Qt::Key_Return);
    EXPECT_EQ("\n  if a = \"x+1\" then 'a+b\n    ", shown.text());
    EXPECT_EQ("{30, 0}", shown.selected());
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(before, shown.text());
    shown.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ("\n  if a = \"x+1\" then 'a+b\n    ", shown.text());
}

TEST(EditorTyping, LeavesTheTextAloneUntilFormattingIsOn) {
    EditorWindow shown("");
    const Ref<EditorHost> host = velt::make<EditorHost>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
    shown.type("a=b\n");
    EXPECT_EQ("a=b\n", shown.text());
    VELT_VLTEXTVIEW_AUTOFORMAT(shown.view);
    EXPECT_EQ("a=b\n", shown.text());
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    shown.select(0, 4);
    VELT_VLTEXTVIEW_AUTOFORMAT(shown.view);
    EXPECT_EQ(" a = b\n", shown.text());
    undo(shown);
    EXPECT_EQ("a=b\n", shown.text());
}

TEST(EditorTyping, TakesLinesOfAPassOneByOne) {
    EditorWindow shown("sub a\nx=1\n");
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    id first[] = {integer(5), str("\n"), integer(0)};
    velt::send(shown.view, "_ShouldChangeText:", id(velt::make<NSMutableArray>(velt::MovedValues{first})));
    EXPECT_VALUE("q 1", velt::send(shown.view, "nIndent"));
    EXPECT_RAISES("VLCastException: 'NSArray' expected", velt::send(shown.view, "_ShouldChangeText:", integer(1)));
}

TEST(EditorCommands, AreAllTakenBackByUndo) {
    constexpr unsigned kSeed = 20261121;
    std::mt19937 random(kSeed);
    SCOPED_TRACE(kSeed);
    EditorWindow shown("");
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    const auto below = [&](unsigned long limit) {
        return std::uniform_int_distribution<unsigned long>(0, limit)(random);
    };
    using Command = id (*)(const id&);
    constexpr Command kCommands[] = {VELT_VLTEXTVIEW_SHIFTLEFT, VELT_VLTEXTVIEW_SHIFTRIGHT, VELT_VLTEXTVIEW_COMMENT,
                                     VELT_VLTEXTVIEW_UNCOMMENT, VELT_VLTEXTVIEW_UPPERCASE,  VELT_VLTEXTVIEW_LOWERCASE,
                                     VELT_VLTEXTVIEW_AUTOFORMAT};
    for (int round = 0; round < 10; ++round) {
        VELT_NSTEXTVIEW_VALUE(shown.view, str("if a=b then\n\tprint \"x'y\"\r\n  else 'c\nend if"));
        std::vector<std::string> texts;
        for (int i = 0; i < 12; ++i) {
            const unsigned long length = shown.editor().textLength(), begin = below(length);
            shown.select(begin, below(length - begin));
            const std::string before = shown.text();
            if (i % 4 == 3)
                VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str(" "), str("  "));
            else
                kCommands[below(std::size(kCommands) - 1)](shown.view);
            if (shown.text() != before) texts.push_back(before);
        }
        const std::string end = shown.text();
        for (auto text = texts.rbegin(); text != texts.rend(); ++text) {
            // What puts the same text in its place is undone, too, and cannot be seen.
            for (const std::string now = shown.text(); shown.text() == now;) undo(shown);
            ASSERT_EQ(*text, shown.text());
        }
        while (VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(shown.view))) redo(shown);
        ASSERT_EQ(end, shown.text());
        ASSERT_EQ(end, velt::utf8(velt::string(shown.editor().buffer().text())));
    }
}
