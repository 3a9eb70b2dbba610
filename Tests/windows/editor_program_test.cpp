// The example editor, worked by keys as a person does who has no mouse.
#include "editor_support.h"
#include "file_dialog_support.h"
#include "preferences_support.h"

#include "editor/files.h"
#include "support/patience.h"
#include "support/processes.h"

using namespace velt::test;
using editor::SourceEditor;
using velt::Ref;

namespace {

constexpr Qt::KeyboardModifiers kCommand = Qt::ControlModifier, kShifted = Qt::ControlModifier | Qt::ShiftModifier;

constexpr const char* kShelf = "' a shelf\n"
                               "dim books As NSMutableArray\n"
                               "\n"
                               "Class Shelf\n"
                               "End Class\n"
                               "dim book As Shelf\n";
constexpr const char* kList = "one two\nTWO twofold\n";

void forgetSettings() {
    for (const char* key :
         {"EditorFontSize", "EditorFormats", "EditorCompletes", "EditorMargin", "EditorRecentFiles", "EditorFrame"}) {
        VELT_NSUSERDEFAULTS_REMOVE(nil, str(key));
    }
}

/// The words of the first view of a process serve all of them, so other tests' words come first here, too.
void useWordsOfOtherTests() {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    giveWords(view);
    VELT_NSTEXTVIEW_VALUE(view, "dim a\nif b\n"_v);
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(view);
    VELT_VLTEXTVIEW_AUTOFORMAT(view);
    VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(view);
}

/// The program as it is after its start with two files.
struct EditorProgram : testing::Test {
    EditorProgram() {
        forgetSettings();
        useWordsOfOtherTests();
    }
    ~EditorProgram() override {
        close();
        NSApplication::sharedApplication().setDelegate(nil);
        NSApplication::sharedApplication().setMainMenu(nil);
        NSApplication::sharedApplication().setHelpMenu(nil);
        // There is one of each panel in the whole process.
        NSSavePanel::savePanel().setPanelTitle("Save"_v);
        NSSavePanel::savePanel().setRequiredFileType(nil);
        VELT_idOPENPANEL_TYPES = VELT_idOPENPANEL_FILENAMES = VELT_idOPENPANEL_URLS = nil;
        forgetSettings();
    }
    void SetUp() override {
        SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
        start({shelf, list});
    }
    void start(const std::vector<std::string>& paths) {
        program = velt::make<SourceEditor>();
        NSApplication::sharedApplication().setDelegate(program);
        NSApplication::sharedApplication().setMainMenu(editor::mainMenu(program));
        const id files = velt::make<NSMutableArray>();
        for (const std::string& path : paths) VELT_NSMUTABLEARRAY_APPEND(files, str(path));
        program->open(str(VELT_SOURCE_FOLDER "/Examples/editor/Resources"), files);
        ASSERT_TRUE(windowStaysActive(window().widget()));
        program->applicationDidFinishLaunching(nil);
    }
    void close() {
        if (!program) return;
        const id sources = program->sources;
        for (const id& each : velt::arrayOf(sources)->items()) {
            const Ref<editor::Source> source = editor::toSource(each);
            velt::send(source->view, "stopCompletionTimer");
            source->edited = editor::boolean(false);
        }
        VELT_NSWINDOW_CLOSE(program->window);
    }

    NSWindow& window() const { return *velt::as<NSWindow>(program->window); }
    Ref<editor::Source> current() const { return program->current(); }
    const id& view() const { return current()->view; }
    QWidget& page() const { return velt::as<NSView>(view())->widget(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        EXPECT_TRUE(takesKeys(window()));
        pressKey(window(), key, modifiers);
    }
    void type(const char* text) const {
        for (; *text; ++text) {
            if (*text == '\n')
                press(Qt::Key_Return);
            else
                QTest::keyClick(window().widget().windowHandle(), *text);
        }
    }
    void toEnd() const { press(Qt::Key_End, kCommand); }
    std::string text() const { return velt::utf8(VELT_NSTEXTVIEW_VALUE(view())); }
    std::string selected() const { return velt::utf8(VELT_NSTEXTVIEW_SELECTEDTEXT(view())); }
    NSRange selection() const { return velt::as<NSTextView>(view())->selectedRange(); }
    std::string said() const { return velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->message)); }
    std::string place() const { return velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->position)); }
    bool isEdited() const { return window().isDocumentEdited(); }
    bool waitsForCompletion() const { return !velt::send(view(), "completionTimer").isNil(); }
    /// The labels of the tabs, with that of the one that is seen in brackets.
    std::string tabs() const {
        std::string all;
        const id sources = program->sources;
        for (const id& each : velt::arrayOf(sources)->items()) {
            const std::string label = velt::utf8(velt::send(editor::toSource(each)->item, "label"));
            all += each == id(current()) ? "[" + label + "] " : label + " ";
        }
        return all;
    }
    id menuItem(const char* menu, const char* title) const {
        const id main = NSApplication::sharedApplication().mainMenu();
        const id within = velt::send(velt::send(main, "itemWithTitle:", str(menu)), "submenu");
        velt::send(within, "update");
        return velt::send(within, "itemWithTitle:", str(title));
    }
    bool offered(const char* menu, const char* title) const {
        return VELT_CBOOL(VELT_NSMENUITEM_ENABLED(menuItem(menu, title))) != 0;
    }
    /// Presses a key that asks, reads the question and answers it with another key.
    std::string ask(const std::function<void()>& asks, Qt::Key answer) const {
        asks();
        const Ref<NSWindow> sheet = waitForSheet(program->window);
        if (!sheet) return "no question";
        const std::string asked = readAlert(*sheet);
        pressKey(*sheet, answer);
        EXPECT_TRUE(comesTrue([&] { return window().attachedSheet() != id(sheet); }));
        return asked;
    }
    /// Works a sheet of the program, which is gone in the end.
    void inSheet(Qt::Key key, const std::function<void(NSWindow&)>& work) const {
        press(key, kCommand);
        const Ref<NSWindow> sheet = waitForSheet(program->window);
        ASSERT_TRUE(sheet);
        work(*sheet);
        EXPECT_TRUE(comesTrue([this] { return window().attachedSheet().isNil(); }));
    }
    /// Opens the preferences, works a pane of them, and closes them.
    void inPreferences(const char* pane, const std::function<void(NSWindow&)>& work) const {
        press(Qt::Key_Comma, kCommand);
        const Ref<NSWindow> prefs(velt::as<NSWindow>(program->preferences->window()));
        ASSERT_TRUE(hasKeyboard(*prefs));
        ASSERT_NO_FATAL_FAILURE(clickPane(*prefs, pane));
        ASSERT_TRUE(comesTrue([&] { return velt::utf8(prefs->title()) == pane; }));
        work(*prefs);
        closePreferences(*prefs, window());
    }
    double fontSizeOf(const id& source) const {
        return VELT_CDOUBLE(velt::send(VELT_NSTEXTVIEW_FONT(editor::toSource(source)->view), "pointSize"));
    }
    static void typeInto(NSWindow& sheet, const char* text) {
        for (; *text; ++text) QTest::keyClick(sheet.widget().windowHandle(), *text);
    }

    const TemporaryFolder folder;
    const std::string shelf = folder.write("shelf.bas", kShelf), list = folder.write("list.bas", kList);
    Ref<SourceEditor> program;
};

std::string saveQuestion(const char* name) {
    return std::string("Save the changes to “")
        .append(name)
        .append("”?|They are lost if you do not save them.|[Save][Cancel][Don’t Save]");
}

}  // namespace

TEST_F(EditorProgram, ShowsItsFilesInTabs) {
    EXPECT_EQ("[shelf.bas] list.bas ", tabs());
    EXPECT_EQ(kShelf, text());
    EXPECT_EQ("shelf.bas", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    EXPECT_EQ("Line 1, column 1", place());
    EXPECT_FALSE(isEdited());
    EXPECT_EQ(view(), window().firstResponder());
    press(Qt::Key_PageDown, kCommand);
    EXPECT_EQ("shelf.bas [list.bas] ", tabs());
    EXPECT_EQ("list.bas", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ("Line 2, column 2", place());
    press(Qt::Key_PageDown, kCommand);
    EXPECT_EQ("[shelf.bas] list.bas ", tabs());
    EXPECT_EQ("Line 1, column 1", place());
    press(Qt::Key_PageUp, kCommand);
    EXPECT_EQ("shelf.bas [list.bas] ", tabs());
    type("x");
    EXPECT_EQ("shelf.bas [• list.bas] ", tabs());
    EXPECT_TRUE(isEdited());
    press(Qt::Key_PageUp, kCommand);
    EXPECT_FALSE(isEdited());
    keepPicture(window().widget(), "editor");
}

TEST_F(EditorProgram, CompletesWhatTheFileDeclaresAndSavesIt) {
    toEnd();
    type("books.");
    workCompletion(page(), [this] {
        type("ap");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(std::string(kShelf) + "books.Append(", text());
    workCompletion(page(), [this] { type("1)"); });
    EXPECT_EQ(std::string(kShelf) + "books.Append(1)", text());
    type("\n");
    EXPECT_TRUE(isEdited());
    EXPECT_EQ(kShelf, contentOf(shelf));
    press(Qt::Key_S, kCommand);
    EXPECT_FALSE(isEdited());
    EXPECT_EQ("Saved.", said());
    EXPECT_EQ("[shelf.bas] list.bas ", tabs());
    EXPECT_EQ(std::string(kShelf) + "books.Append(1)\n", contentOf(shelf));
    EXPECT_EQ(kList, contentOf(list));
}

TEST_F(EditorProgram, OffersTypesOfTheLanguageAndOfTheFile) {
    toEnd();
    type("dim more as ");
    workCompletion(page(), [this] {
        type("sh");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(std::string(kShelf) + "dim more as Shelf", text());
    // However often somebody goes on before the list is there, it comes the next time again.
    type("\nbooks.books.");
    EXPECT_TRUE(waitsForCompletion());
    workCompletion(page(), [this] { press(Qt::Key_Escape); });
    type("\ndim last as ");
    workCompletion(page(), [this] {
        type("i");
        press(Qt::Key_Return);
    });
    EXPECT_TRUE(text().ends_with("dim last as Integer")) << text();
}

TEST_F(EditorProgram, OffersEveryNameOnEscape) {
    toEnd();
    press(Qt::Key_Escape);
    workCompletion(page(), [this] {
        type("boo");
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(std::string(kShelf) + "book", text());
}

TEST_F(EditorProgram, KeepsQuietWhereNothingCanBeOffered) {
    toEnd();
    for (const char* keys : {"' books.", "' as ", "x = \"books.", "nothing.", "nothing(", "3.", "print as", "(", "."}) {
        type("\n");
        type(keys);
        EXPECT_FALSE(waitsForCompletion()) << keys;
    }
    type("\nbooks.");
    EXPECT_TRUE(waitsForCompletion());
}

TEST_F(EditorProgram, ClosesAListBehindANameThatNobodyKnows) {
    toEnd();
    type("books.");
    workCompletion(page(), [this] { type("what."); });
    type("more");
    EXPECT_EQ(std::string(kShelf) + "books.what.more", text());
}

TEST_F(EditorProgram, FormatsLinesWhileTheyAreTypedUnlessToldOtherwise) {
    toEnd();
    type("if a=b then\nprint  a\n");
    EXPECT_EQ(std::string(kShelf) + "if a = b then\n  print a\n  ", text());
    press(Qt::Key_Z, kCommand);
    press(Qt::Key_Z, kCommand);
    inPreferences("Editing", [](NSWindow& prefs) {
        keepPicture(prefs.widget(), "editor-preferences-editing");
        clickNamed(prefs, "Format lines while they are typed");
    });
    EXPECT_EQ("[• shelf.bas] list.bas ", tabs()) << "what was closed are the preferences";
    toEnd();
    type("\nif c=d then\nx");
    EXPECT_TRUE(text().ends_with("\nif c=d then\nx")) << text();
}

TEST_F(EditorProgram, OffersNamesWhileTheyAreTypedUnlessToldOtherwise) {
    inPreferences("Editing", [](NSWindow& prefs) { clickNamed(prefs, "Offer names while they are typed"); });
    toEnd();
    type("books.");
    EXPECT_FALSE(waitsForCompletion());
    type("\ndim x as ");
    EXPECT_FALSE(waitsForCompletion());
    inPreferences("Editing", [](NSWindow& prefs) { clickNamed(prefs, "Offer names while they are typed"); });
    type("\nbooks.");
    EXPECT_TRUE(waitsForCompletion());
}

TEST_F(EditorProgram, ChangesTheLooksOfAllSourcesFromThePreferences) {
    inPreferences("Text", [this](NSWindow& prefs) {
        // The size of the text has the keyboard.
        for (int i = 0; i < 3; ++i) pressKey(prefs, Qt::Key_Up);
        keepPicture(prefs.widget(), "editor-preferences-text");
        const id sources = program->sources;
        for (const id& source : velt::arrayOf(sources)->items()) EXPECT_EQ(15, fontSizeOf(source));
        EXPECT_EQ("15 pt", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->preferences->size)));
        EXPECT_TRUE(VELT_CBOOL(velt::send(view(), "showsLineNumbers")));
        clickNamed(prefs, "Show line numbers and breakpoints");
        EXPECT_FALSE(VELT_CBOOL(velt::send(view(), "showsLineNumbers")));
        // The window's keys and the preferences' go on together.
        pressKey(window(), Qt::Key_Plus, kCommand);
        EXPECT_EQ("16 pt", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->preferences->size)));
    });
    close();
    start({shelf});
    EXPECT_EQ(16, fontSizeOf(current()));
    EXPECT_FALSE(VELT_CBOOL(velt::send(view(), "showsLineNumbers")));
}

TEST_F(EditorProgram, FindsByTheSheetAndGoesOnWithoutIt) {
    press(Qt::Key_PageDown, kCommand);
    EXPECT_FALSE(offered("Search", "Find Next"));
    inSheet(Qt::Key_F, [this](NSWindow& sheet) {
        typeInto(sheet, "nowhere");
        pressKey(sheet, Qt::Key_Return);
        EXPECT_EQ("“nowhere” was not found.", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->findSheet->message)));
        // What was not found is selected, so that something else can be typed over it.
        typeInto(sheet, "two");
        keepPicture(sheet.widget(), "editor-find");
        pressKey(sheet, Qt::Key_Return);
    });
    EXPECT_EQ((NSRange{4, 3}), selection());
    EXPECT_EQ("two", selected());
    press(Qt::Key_G, kCommand);
    EXPECT_EQ((NSRange{8, 3}), selection());
    press(Qt::Key_G, kCommand);
    EXPECT_EQ((NSRange{12, 3}), selection());
    press(Qt::Key_G, kCommand);
    EXPECT_EQ((NSRange{4, 3}), selection());
    press(Qt::Key_G, kShifted);
    EXPECT_EQ((NSRange{12, 3}), selection());
    // What was sought is there when the sheet comes again.
    inSheet(Qt::Key_F, [this](NSWindow& sheet) {
        EXPECT_EQ("two", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->findSheet->needle)));
        pressKey(sheet, Qt::Key_Escape);
    });
    press(Qt::Key_Home, kCommand);
    program->search->needle = "gone"_v;
    press(Qt::Key_G, kCommand);
    EXPECT_EQ("“gone” was not found.", said());
}

TEST_F(EditorProgram, FindsWholeWordsOnly) {
    press(Qt::Key_PageDown, kCommand);
    program->search->needle = "two"_v;
    program->search->wholeWords = editor::boolean(true);
    press(Qt::Key_G, kCommand);
    EXPECT_EQ((NSRange{4, 3}), selection());
    press(Qt::Key_G, kCommand);
    EXPECT_EQ((NSRange{8, 3}), selection());
    press(Qt::Key_G, kCommand);
    EXPECT_EQ((NSRange{4, 3}), selection());
    press(Qt::Key_G, kShifted);
    EXPECT_EQ((NSRange{8, 3}), selection());
    // Within what is selected.
    program->search->selectedOnly = editor::boolean(true);
    velt::send(view(), "setSelectedRange:", range(9, 11));
    press(Qt::Key_G, kCommand);
    EXPECT_EQ("“two” was not found.", said());
    velt::send(view(), "setSelectedRange:", range(0, 8));
    press(Qt::Key_G, kShifted);
    EXPECT_EQ((NSRange{4, 3}), selection());
}

TEST_F(EditorProgram, ReplacesAndCountsWhatItReplaced) {
    press(Qt::Key_PageDown, kCommand);
    inSheet(Qt::Key_F, [](NSWindow& sheet) {
        typeInto(sheet, "two");
        pressKey(sheet, Qt::Key_Tab);
        typeInto(sheet, "2");
        clickButton(sheet, "Replace All");
    });
    EXPECT_EQ("one 2\n2 2fold\n", text());
    EXPECT_EQ("3 occurrences replaced.", said());
    press(Qt::Key_Z, kCommand);
    EXPECT_EQ(kList, text());
    program->search->wholeWords = editor::boolean(true);
    press(Qt::Key_R, kShifted);
    EXPECT_EQ("one 2\n2 twofold\n", text());
    EXPECT_EQ("2 occurrences replaced.", said());
    press(Qt::Key_Z, kCommand);
    EXPECT_EQ(kList, text());
    // In the selection alone.
    program->search->selectedOnly = editor::boolean(true);
    velt::send(view(), "setSelectedRange:", range(8, 11));
    press(Qt::Key_R, kShifted);
    EXPECT_EQ("one two\n2 twofold\n", text());
    EXPECT_EQ("1 occurrence replaced.", said());
    program->search->needle = "gone"_v;
    press(Qt::Key_R, kShifted);
    EXPECT_EQ("0 occurrences replaced.", said());
}

TEST_F(EditorProgram, ReplacesOneAfterTheOther) {
    press(Qt::Key_PageDown, kCommand);
    program->search->needle = "two"_v;
    program->search->replacement = "2"_v;
    // Nothing is replaced that was not found before.
    press(Qt::Key_A, kCommand);
    press(Qt::Key_R, kCommand);
    EXPECT_EQ(kList, text());
    EXPECT_EQ((NSRange{4, 3}), selection());
    press(Qt::Key_R, kCommand);
    EXPECT_EQ("one 2\nTWO twofold\n", text());
    EXPECT_EQ("TWO", selected());
    press(Qt::Key_R, kCommand);
    EXPECT_EQ("one 2\n2 twofold\n", text());
    EXPECT_EQ("two", selected());
}

TEST_F(EditorProgram, FindsWhatIsSelected) {
    press(Qt::Key_PageDown, kCommand);
    EXPECT_FALSE(offered("Search", "Find the Selection"));
    velt::send(view(), "setSelectedRange:", range(4, 3));
    EXPECT_TRUE(offered("Search", "Find the Selection"));
    press(Qt::Key_E, kCommand);
    EXPECT_TRUE(offered("Search", "Find Next"));
    press(Qt::Key_G, kCommand);
    EXPECT_EQ("TWO", selected());
}

TEST_F(EditorProgram, GoesToALine) {
    const auto answer = [this](const char* number) {
        onceAsked([number](NSWindow& panel) {
            auto* field = panel.widget().findChild<QLineEdit*>();
            ASSERT_NE(nullptr, field);
            field->selectAll();
            QTest::keyClicks(field, number);
            pressKey(panel, Qt::Key_Return);
        });
        press(Qt::Key_L, kCommand);
        // Not every display gives the keyboard back by itself.
        window().makeKeyAndOrderFront(nil);
        ASSERT_TRUE(windowStaysActive(window().widget()));
    };
    answer("4");
    EXPECT_EQ("Line 4, column 1", place());
    EXPECT_EQ("Class Shelf\n", selected());
    answer("8");
    EXPECT_EQ("There is no line “8”.", said());
    EXPECT_EQ("Line 4, column 1", place());
    answer("0");
    EXPECT_EQ("There is no line “0”.", said());
    answer("x");
    EXPECT_EQ("There is no line “x”.", said());
    answer("7");
    EXPECT_EQ("Line 7, column 1", place());
}

TEST_F(EditorProgram, WorksOnWholeLinesByKeys) {
    press(Qt::Key_PageDown, kCommand);
    press(Qt::Key_A, kCommand);
    press(Qt::Key_BracketRight, kCommand);
    EXPECT_EQ("  one two\n  TWO twofold\n", text());
    press(Qt::Key_BracketLeft, kCommand);
    EXPECT_EQ(kList, text());
    press(Qt::Key_K, kCommand);
    EXPECT_EQ("'one two\n'TWO twofold\n", text());
    press(Qt::Key_K, kShifted);
    EXPECT_EQ(kList, text());
    press(Qt::Key_U, kShifted);
    EXPECT_EQ("ONE TWO\nTWO TWOFOLD\n", text());
    press(Qt::Key_A, kCommand);
    press(Qt::Key_U, kCommand);
    EXPECT_EQ("one two\ntwo twofold\n", text());
    press(Qt::Key_A, kCommand);
    type("IF a=b THEN\nx\n");
    press(Qt::Key_I, kShifted);
    EXPECT_NE(std::string::npos, text().find("if a = b then\n")) << text();
}

TEST_F(EditorProgram, SetsBreakpoints) {
    press(Qt::Key_Down);
    press(Qt::Key_B, kCommand);
    EXPECT_EQ("1 breakpoint.", said());
    EXPECT_EQ("(10)", velt::utf8(velt::description(VELT_VLTEXTVIEW_BREAKPOINTS(view()))));
    press(Qt::Key_B, kCommand);
    EXPECT_EQ("0 breakpoints.", said());
    EXPECT_FALSE(isEdited());
}

TEST_F(EditorProgram, AsksAboutChangesBeforeItClosesATab) {
    type("x");
    const auto closes = [this] { press(Qt::Key_W, kCommand); };
    EXPECT_EQ(saveQuestion("shelf.bas"), ask(closes, Qt::Key_Escape));
    EXPECT_EQ("[• shelf.bas] list.bas ", tabs());
    EXPECT_EQ(saveQuestion("shelf.bas"), ask(closes, Qt::Key_Return));
    EXPECT_TRUE(comesTrue([this] { return tabs() == "[list.bas] "; })) << tabs();
    EXPECT_EQ(std::string("x") + kShelf, contentOf(shelf));
    EXPECT_TRUE(comesTrue([this] { return window().firstResponder() == view(); }));
    press(Qt::Key_W, kCommand);
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible(); }));
}

TEST_F(EditorProgram, AsksAboutEachFileAtItsEnd) {
    type("x");
    press(Qt::Key_PageDown, kCommand);
    type("y");
    // Whoever does not save the first one, and then thinks better of it, has lost nothing.
    press(Qt::Key_Q, kCommand);
    Ref<NSWindow> sheet = waitForSheet(program->window);
    ASSERT_TRUE(sheet);
    EXPECT_EQ(saveQuestion("shelf.bas"), readAlert(*sheet));
    clickButton(*sheet, "Don’t Save");
    const auto asksAgain = [&] {
        const id now = window().attachedSheet();
        return !now.isNil() && now != id(sheet) && velt::as<NSWindow>(now)->isKeyWindow();
    };
    ASSERT_TRUE(comesTrue(asksAgain));
    sheet = Ref<NSWindow>(velt::as<NSWindow>(window().attachedSheet()));
    EXPECT_EQ(saveQuestion("list.bas"), readAlert(*sheet));
    pressKey(*sheet, Qt::Key_Escape);
    EXPECT_TRUE(comesTrue([this] { return window().attachedSheet().isNil(); }));
    EXPECT_EQ("• shelf.bas [• list.bas] ", tabs());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(kShelf, contentOf(shelf));
    EXPECT_EQ(kList, contentOf(list));
}

TEST_F(EditorProgram, AsksOnceAboutChangesThatNobodyWants) {
    type("x");
    window().performClose(nil);
    const Ref<NSWindow> sheet = waitForSheet(program->window);
    ASSERT_TRUE(sheet);
    clickButton(*sheet, "Don’t Save");
    ASSERT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    // The last window that closes ends the program, which asks its delegate first.
    EXPECT_VALUE("q 1", program->applicationShouldTerminate(nil));
    EXPECT_EQ(kShelf, contentOf(shelf));
}

TEST_F(EditorProgram, KeepsTheTextOfAFileThatCannotBeWritten) {
    type("x");
    current()->path = str("/nowhere/at/all.bas");
    EXPECT_EQ("“all.bas” cannot be saved.|Choose a folder in which you may write, on a disk with room. Your text is "
              "still here.|[OK]",
              ask([this] { press(Qt::Key_S, kCommand); }, Qt::Key_Return));
    EXPECT_TRUE(isEdited());
    EXPECT_EQ(std::string("x") + kShelf, text());
    EXPECT_EQ(kShelf, contentOf(shelf));
}

TEST_F(EditorProgram, DoesNotSaveOverAFileOfAnotherTab) {
    type("x");
    EXPECT_EQ("“list.bas” cannot be saved.|The file is open in another tab. Close that tab first, or choose another "
              "name. Your text is still here.|[OK]",
              ask([this] { program->saveTo(current(), str(list)); }, Qt::Key_Return));
    EXPECT_EQ("[• shelf.bas] list.bas ", tabs());
    EXPECT_EQ(std::string("x") + kShelf, text());
    EXPECT_EQ(kList, contentOf(list));
    EXPECT_VALUE("c 1", program->saveTo(current(), str(shelf)));
    EXPECT_EQ(std::string("x") + kShelf, contentOf(shelf));
}

TEST_F(EditorProgram, SaysWhatIsWrongWithAFile) {
    const std::string damaged = folder.write("damaged.bas", "caf\xe9\n");
    const auto opens = [this](const std::string& path) {
        return ask([&] { NSApplication::sharedApplication().openFile(path); }, Qt::Key_Return);
    };
    EXPECT_EQ(
        "“damaged.bas” cannot be opened.|It is not text in UTF-8, which sources are written in. Nothing in it was "
        "changed.|[OK]",
        opens(damaged));
    EXPECT_EQ("“none.bas” cannot be opened.|There is no such file.|[OK]", opens(folder.file("none.bas")));
    EXPECT_EQ("“tmp” cannot be opened.|It is a folder. Choose a file that lies in it.|[OK]", opens("/tmp"));
    EXPECT_EQ("[shelf.bas] list.bas ", tabs());
    EXPECT_EQ(kShelf, text());
    EXPECT_EQ("caf\xe9\n", contentOf(damaged));
}

TEST_F(EditorProgram, OpensAFileOnlyOnce) {
    EXPECT_TRUE(NSApplication::sharedApplication().openFile(list));
    EXPECT_EQ("shelf.bas [list.bas] ", tabs());
    press(Qt::Key_N, kCommand);
    EXPECT_EQ("shelf.bas list.bas [Untitled 4] ", tabs());
    // An empty one that nobody used gives way.
    const std::string third = folder.write("third.bas", "' third\r\n");
    velt::test::type(third);
    press(Qt::Key_O, kCommand);
    EXPECT_TRUE(comesTrue([this] { return tabs() == "shelf.bas list.bas [third.bas] "; })) << tabs();
    EXPECT_EQ("' third\r\n", text());
}

TEST_F(EditorProgram, AsksForAFileWhenThereIsNone) {
    press(Qt::Key_N, kCommand);
    type("print 1");
    const std::string path = folder.file("new");
    velt::test::type(path);
    press(Qt::Key_S, kCommand);
    EXPECT_TRUE(comesTrue([this] { return !isEdited(); }));
    EXPECT_EQ("shelf.bas list.bas [new.bas] ", tabs());
    EXPECT_EQ("print 1", contentOf(path + ".bas"));
}

TEST_F(EditorProgram, RemembersTheFilesThatWereOpen) {
    const auto recent = [this] {
        std::string all;
        const id items = VELT_NSMENU_ARRAY(program->recentMenu);
        for (const id& item : velt::arrayOf(items)->items()) all += velt::utf8(VELT_NSMENUITEM_TITLE(item)) + ";";
        return all;
    };
    EXPECT_EQ("list.bas;shelf.bas;;Clear Menu;", recent());
    press(Qt::Key_W, kCommand);
    ASSERT_TRUE(comesTrue([this] { return tabs() == "[list.bas] "; }));
    velt::send(program->recentMenu, "performActionForItemAtIndex:", VELT_ID(1L));
    EXPECT_EQ("list.bas [shelf.bas] ", tabs());
    EXPECT_EQ("shelf.bas;list.bas;;Clear Menu;", recent());
    // One that is gone leaves the menu.
    std::filesystem::remove(list);
    press(Qt::Key_PageUp, kCommand);
    press(Qt::Key_W, kCommand);
    ASSERT_TRUE(comesTrue([this] { return tabs() == "[shelf.bas] "; }));
    EXPECT_EQ(
        "“list.bas” cannot be opened.|There is no such file.|[OK]",
        ask([this] { velt::send(program->recentMenu, "performActionForItemAtIndex:", VELT_ID(1L)); }, Qt::Key_Return));
    EXPECT_EQ("shelf.bas;;Clear Menu;", recent());
    velt::send(program->recentMenu, "performActionForItemAtIndex:", VELT_ID(2L));
    EXPECT_EQ(";Clear Menu;", recent());
}

TEST_F(EditorProgram, IsTheNextTimeAsItWasLeft) {
    press(Qt::Key_Plus, kCommand);
    press(Qt::Key_Plus, kCommand);
    press(Qt::Key_Minus, kCommand);
    window().setFrame({{90, 120}, {600, 400}});
    window().performClose(nil);
    ASSERT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    start({list});
    EXPECT_EQ("[list.bas] ", tabs());
    EXPECT_EQ(13.0, VELT_CDOUBLE(program->settings->fontSize));
    EXPECT_EQ(600.0, window().frame().size.width);
    EXPECT_EQ(400.0, window().frame().size.height);
}

TEST_F(EditorProgram, WaitsWithAnEmptySourceWhenNoFileIsNamed) {
    close();
    start({});
    EXPECT_EQ("[Untitled] ", tabs());
    EXPECT_EQ("Line 1, column 1", place());
    EXPECT_FALSE(offered("View", "Next Tab"));
    EXPECT_TRUE(offered("File", "Save"));
    for (const char* command :
         {"Shift Right", "Shift Left", "Comment", "Uncomment", "Upper Case", "Lower Case", "Format", "Breakpoint"}) {
        const id menu = velt::send(menuItem("Source", command), "menu");
        velt::send(menu, "performActionForItemAtIndex:", velt::send(menu, "indexOfItem:", menuItem("Source", command)));
    }
    EXPECT_EQ("", text());
    EXPECT_FALSE(isEdited());
}
