// The source editor as programs and persons work with it: files, places, breakpoints, colours.
#include "windows/editor_support.h"

#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <filesystem>
#include <fstream>

using namespace velt::test;
using velt::Ref;

namespace {

/// A file that goes away with the test.
struct SourceFile {
    explicit SourceFile(std::string_view bytes) { velt::writeFileAtomically(path, bytes); }
    ~SourceFile() { std::filesystem::remove(path); }
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;
    std::string bytes() const { return velt::readFile(path).value_or("none"); }
    std::string path =
        (std::filesystem::temp_directory_path() / ("velt-source-" + std::to_string(::getpid()))).string();
};

id positions(std::initializer_list<int> list) {
    const Ref<NSMutableArray> made = velt::make<NSMutableArray>();
    for (const int each : list) made->append(shortNumber(each));
    return made;
}

}  // namespace

TEST(EditorViews, AreMadeWithTheirTargetAsDelegate) {
    const Ref<EditorHost> host = velt::make<EditorHost>();
    const id view = VELT_VLTEXTVIEW_INIT(host, "work:");
    EXPECT_VALUE("'VLTextView'", VELT_CLASSNAME(view));
    EXPECT_TRUE(VELT_NSTEXTVIEW_DELEGATE(view) == id(host));
    EXPECT_VALUE("'work:'", velt::send(view, "action"));
    EXPECT_TRUE(velt::send(view, "target") == id(host));
    const id other = VELT_VLTEXTVIEW_INIT(host, "unknown:");
    EXPECT_VALUE("nil", velt::send(other, "action"));
    EXPECT_VALUE("nil", velt::send(other, "target"));
    EXPECT_TRUE(VELT_NSTEXTVIEW_DELEGATE(other) == id(host));
    EXPECT_TRUE(VELT_CVLTEXTVIEW(view) == view);
    for (const char* name : {"lineSeparators", "breakpoints", "keywords", "builtins", "types"}) {
        EXPECT_EQ("()", velt::utf8(velt::description(velt::send(view, velt::Selector::named(name))))) << name;
    }
    EXPECT_VALUE("''", VELT_VLTEXTVIEW_FILENAME(view));
    for (const char* name : {"bAutoIndent", "findOptionIgnoreCase", "findOptionSelectedTextOnly"}) {
        EXPECT_VALUE("c 0", velt::send(view, velt::Selector::named(name)));
    }
    EXPECT_VALUE("q 0", velt::send(view, "nIndent"));
}

TEST(EditorViews, KeepTheListsThatTheyAreGiven) {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    const id list = positions({1, 2});
    VELT_VLTEXTVIEW_BREAKPOINTS(view, list);
    EXPECT_TRUE(VELT_VLTEXTVIEW_BREAKPOINTS(view) == list);
    VELT_VLTEXTVIEW_COMMANDS(view, list);
    EXPECT_TRUE(velt::send(view, "builtins") == list);
    velt::send(view, "_myinit");
    EXPECT_EQ("()", velt::utf8(velt::description(VELT_VLTEXTVIEW_BREAKPOINTS(view))));
}

TEST(EditorFiles, ComeBackByteForByte) {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    for (const char* bytes :
         {"print 1\r\nprint 2\r\n", "\xEF\xBB\xBFprint \xC3\xA4\n", "a\rb\n\nc", "", "\xF0\x9F\x98\x80"}) {
        const SourceFile file(bytes);
        EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_LOAD(view, str(file.path)));
        EXPECT_VALUE("'" + file.path + "'", VELT_VLTEXTVIEW_FILENAME(view));
        const std::string copy = file.path + ".copy";
        EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_SAVE(view, str(copy)));
        EXPECT_EQ(bytes, velt::readFile(copy));
        EXPECT_VALUE("'" + copy + "'", VELT_VLTEXTVIEW_FILENAME(view));
        std::filesystem::remove(copy);
    }
}

TEST(EditorFiles, ThatCannotBeReadLeaveTheViewAlone) {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    VELT_NSTEXTVIEW_VALUE(view, str("kept"));
    VELT_VLTEXTVIEW_FILENAME(view, str("name"));
    EXPECT_RAISES("VLException: TextView.Load failed", VELT_VLTEXTVIEW_LOAD(view, str("/nowhere/at/all")));
    const SourceFile latin("print \"\xE4\"\n");
    EXPECT_RAISES("VLException: TextView.Load failed", VELT_VLTEXTVIEW_LOAD(view, str(latin.path)));
    EXPECT_RAISES("VLException: TextView.Load failed", velt::send(view, "_load:", str("/")));
    EXPECT_VALUE("'kept'", VELT_NSTEXTVIEW_VALUE(view));
    EXPECT_VALUE("'name'", VELT_VLTEXTVIEW_FILENAME(view));
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_SAVE(view, str("/nowhere/at/all")));
    EXPECT_VALUE("'/nowhere/at/all'", VELT_VLTEXTVIEW_FILENAME(view));
}

TEST(EditorViews, CountLinesAndPositions) {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_LINE(view));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_POSITION(view));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_LINE(nil));
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_POSITION(nil));
    VELT_NSTEXTVIEW_VALUE(view, str("a\nb\r\nc\n"));
    const auto lineAt = [&](unsigned long place) {
        velt::send(view, "setSelectedRange:", range(place, 0));
        return VELT_CINTEGER(VELT_VLTEXTVIEW_LINE(view));
    };
    EXPECT_EQ(1, lineAt(0));
    EXPECT_EQ(1, lineAt(1));
    EXPECT_EQ(2, lineAt(2));
    EXPECT_EQ(3, lineAt(5));
    EXPECT_EQ(3, lineAt(7));
    EXPECT_VALUE("q 7", VELT_VLTEXTVIEW_POSITION(view));
}

TEST(EditorViews, GoToLines) {
    EditorWindow shown("one\ntwo\nthree");
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(2));
    EXPECT_EQ("{4, 4}", shown.selected());
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, str("3"));
    EXPECT_EQ("{8, 5}", shown.selected());
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(4));
    EXPECT_EQ("{13, 0}", shown.selected());
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(5));
    EXPECT_EQ("{13, 0}", shown.selected());
}

TEST(EditorBreakpoints, AreToggledByLine) {
    EditorWindow shown("one\ntwo\nthree\n");
    shown.select(9);
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    EXPECT_EQ("(8)", shown.breakpoints());
    EXPECT_EQ("........!!!!!!", shown.colours());
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    EXPECT_EQ("()", shown.breakpoints());
    EXPECT_EQ("..............", shown.colours());
}

TEST(EditorBreakpoints, OfTheFirstLineAreAddedAgainAndAgain) {
    EditorWindow shown("one\ntwo\n");
    shown.select(0);
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    EXPECT_EQ("(1, 1)", shown.breakpoints());
}

TEST(EditorBreakpoints, MoveWithTypedLineEndsAndReleasedBackspaces) {
    EditorWindow shown("one\n\ntwo\n");
    const Ref<EditorHost> host = velt::make<EditorHost>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
    VELT_VLTEXTVIEW_BREAKPOINTS(shown.view, positions({1, 5}));
    VELT_VLTEXTVIEW_LINESEPARATORS(shown.view, positions({0, 8}));
    shown.select(4);
    shown.key(Qt::Key_Return);
    EXPECT_EQ("one\n\n\ntwo\n", shown.text());
    EXPECT_EQ("(1, 6)", shown.breakpoints());
    EXPECT_EQ("(0, 9)", shown.separators());
    shown.select(4);
    shown.key(Qt::Key_Backspace);
    // The unit behind the one at the caret is a line feed, so that all from the caret on go back.
    EXPECT_EQ("one\n\ntwo\n", shown.text());
    EXPECT_EQ("{3, 0}", shown.selected());
    EXPECT_EQ("(1, 5)", shown.breakpoints());
    EXPECT_EQ("(0, 8)", shown.separators());
    shown.key(Qt::Key_Left);
    EXPECT_EQ("(1, 5)", shown.breakpoints());
}

TEST(EditorBreakpoints, FarDownInATextAreNotShown) {
    EditorWindow shown(std::string(32766, 'a').append("\nb\nc\n"));
    shown.select(32768);
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    EXPECT_EQ("(32767)", shown.breakpoints());
    shown.select(32770);
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    EXPECT_EQ("(32767, -32767)", shown.breakpoints());
    EXPECT_EQ("!!..", shown.colours().substr(32767));
}

TEST(EditorColours, FollowTheLanguage) {
    EditorWindow shown;
    VELT_NSTEXTVIEW_VALUE(shown.view, str("if Left(\"a'b\") 'if\nend 1dim x as String\n"));
    EXPECT_EQ("kk.bbbb.sssss..cccc"
              "...."
              ".kkk...kk.bbbbbb.",
              shown.colours());
    EXPECT_EQ("if Left(\"a'b\") 'if\nend 1dim x as String\n", shown.text());
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(shown.view));
    EXPECT_VALUE("'\"'", firstString);
    EXPECT_VALUE("'''", firstSingleLineComment);
    EXPECT_VALUE("c 1", velt::send(keywords, "containsObject:", str("dim")));
    EXPECT_VALUE("c 0", velt::send(keywords, "containsObject:", str("Dim")));
    EXPECT_VALUE("c 1", velt::send(builtins, "containsObject:", str("Mid")));
    EXPECT_VALUE("c 1", velt::send(types, "containsObject:", str("Date")));
    EXPECT_VALUE("c 1", velt::send(keywordStartCharacterSet, "characterIsMember:", integer('_')));
    EXPECT_VALUE("c 0", velt::send(keywordStartCharacterSet, "characterIsMember:", integer('1')));
    EXPECT_VALUE("c 0", velt::send(keywordEndCharacterSet, "characterIsMember:", integer('_')));
    EXPECT_VALUE("c 1", velt::send(keywordEndCharacterSet, "characterIsMember:", integer('+')));
}

TEST(EditorColours, NeedKeywordsAndStayAsTheyWereWhenTheListsChange) {
    EditorWindow shown("dim x\n");
    EXPECT_EQ("kkk...", shown.colours());
    VELT_VLTEXTVIEW_KEYWORDS(shown.view, wordArray({"x"}));
    VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(shown.view);
    EXPECT_EQ("kkk...", shown.colours());
    VELT_VLTEXTVIEW_KEYWORDS(shown.view, wordArray({}));
    VELT_NSTEXTVIEW_VALUE(shown.view, str("dim y\n"));
    EXPECT_EQ("......", shown.colours());
}

TEST(EditorColours, AreDrawn) {
    EditorWindow shown("dim x 'y\n");
    VELT_VLTEXTVIEW_BREAKPOINTS(shown.view, positions({1}));
    velt::send(shown.view, "performSyntaxHighlighting::", shown.view, boolean(true));
    keepPicture(*shown.widget, "editor");
    const QImage picture = shown.widget->grab().toImage();
    const auto formats = shown.widget->layoutOf(0).formats();
    ASSERT_FALSE(formats.isEmpty());
    EXPECT_EQ(QColor(0, 0, 255), formats[0].format.foreground().color());
    int lit = 0;
    for (int x = 0; x < picture.width(); ++x) lit += picture.pixelColor(x, 8) == QColor(255, 102, 102);
    EXPECT_LT(5, lit);
}

TEST(EditorColours, GoWithWhatProgramsLay) {
    EditorWindow shown("dim x\n");
    const id layout = velt::send(shown.view, "layoutManager");
    id mark[] = {str("NSUnderline"), integer(1)};
    const id underlined = velt::make<NSDictionary>(velt::MovedValues{mark});
    velt::send(layout, "addTemporaryAttributes:forCharacterRange:", underlined, range(1, 3));
    const auto at = [&](long place) {
        return velt::send(layout, "temporaryAttributesAtCharacterIndex:effectiveRange:", integer(place), nil);
    };
    EXPECT_EQ(2U, velt::as<NSDictionary>(at(1))->count());
    EXPECT_EQ(1U, velt::as<NSDictionary>(at(3))->count());
    EXPECT_EQ(1U, velt::as<NSDictionary>(at(0))->count());
    EXPECT_VALUE("nil", at(4));
    velt::send(layout, "removeTemporaryAttribute:forCharacterRange:", str("NSUnderline"), range(0, 6));
    EXPECT_EQ("kkk...", shown.colours());
    velt::send(layout, "addTemporaryAttributes:forCharacterRange:", dicBreakpointColour, range(2, 2));
    EXPECT_EQ("kkK!..", shown.colours());
    EXPECT_RAISES("NSRangeException: 'NSLayoutManager' addTemporaryAttributes:forCharacterRange:: index 7 is out of "
                  "range; the count is 6",
                  velt::send(layout, "addTemporaryAttributes:forCharacterRange:", underlined, range(6, 1)));
    shown.select(0);
    shown.type("a");
    EXPECT_EQ(".kkK!..", shown.colours());
}

TEST(EditorColours, InAScrollViewAreLaidWhereTheyAreSeen) {
    std::string source;
    for (int i = 0; i < 500; ++i) source += "dim x\n";
    EditorWindow shown("", true);
    const SourceFile file(source);
    VELT_VLTEXTVIEW_LOAD(shown.view, str(file.path));
    EXPECT_EQ("{0, 0}", shown.selected());
    const std::string colours = shown.colours();
    EXPECT_EQ("kkk...", colours.substr(0, 6));
    EXPECT_EQ("......", colours.substr(colours.size() - 6));
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(500));
    VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(shown.view);
    EXPECT_EQ("kkk...", shown.colours().substr(colours.size() - 6));
}

TEST(EditorViews, StopWrappingInAScrollView) {
    EditorWindow alone("text");
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(alone.view);
    EXPECT_TRUE(alone.widget->breaksLines());

    EditorWindow shown("text", true);
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view);
    EXPECT_FALSE(shown.widget->breaksLines());
    const id around = velt::send(shown.view, "enclosingScrollView");
    EXPECT_VALUE("c 1", velt::send(around, "hasHorizontalScroller"));
    const id container = velt::send(shown.view, "textContainer");
    EXPECT_VALUE("{CGSize=dd} {10000000, 10000000}", velt::send(container, "containerSize"));
    EXPECT_VALUE("c 0", velt::send(container, "widthTracksTextView"));
    EXPECT_VALUE("c 0", velt::send(container, "heightTracksTextView"));
    EXPECT_VALUE("{CGSize=dd} {10000000, 10000000}", velt::send(shown.view, "maxSize"));
    EXPECT_VALUE("c 1", velt::send(shown.view, "isHorizontallyResizable"));
    EXPECT_VALUE("c 1", velt::send(shown.view, "isVerticallyResizable"));
    EXPECT_VALUE("Q 0", velt::send(shown.view, "autoresizingMask"));
}

TEST(DroppedEditors, LeaveNothingBehind) {
    velt::collectCycles();
    for (const char* name : {"setAction:", "setTarget:", "setDelegate:", "setFilename:", "setBreakpoints:"}) {
        {
            const id view = VELT_VLTEXTVIEW_INIT(nil, "");
            velt::send(view, velt::Selector::named(name), array(view));
        }
        EXPECT_LE(2u, velt::collectCycles()) << name;
    }
}
