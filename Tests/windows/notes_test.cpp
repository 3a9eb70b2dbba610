// The example notes, worked by keys as a person does who has no mouse.
#include "file_dialog_support.h"

#include "notes/document.h"
#include "support/patience.h"
#include "support/processes.h"

#include <QAction>
#include <QMenuBar>
#include <QToolButton>

using namespace velt::test;
using notes::Note;
using notes::Notebook;
using notes::NotesDocument;
using velt::Ref;

namespace {

constexpr Qt::KeyboardModifiers kCommand = Qt::ControlModifier, kShifted = Qt::ControlModifier | Qt::ShiftModifier;

void forgetSettings() {
    for (const char* key : {"FontSize", "SortKey", "SortAscending", "ListWidth", "WindowFrame", "File",
                            "NSToolbar Configuration notes"}) {
        VELT_NSUSERDEFAULTS_REMOVE(nil, str(key));
    }
}

/// The program as it is after its start with a file of three notes.
struct NotesProgram : testing::Test {
    NotesProgram() {
        forgetSettings();
        const Ref<Notebook> book = velt::make<Notebook>();
        long day = 0;
        for (const char* text : {"Bread\nflour and water", "Train\nplatform 3", "Garden\nwater the roses"}) {
            const Ref<Note> note = book->add();
            note->write(str(text));
            note->changed = VELT_ID(800'000'000.0 + 86'400.0 * static_cast<double>(++day));
        }
        EXPECT_TRUE(VELT_CBOOL(book->save(str(path))));
        VELT_NSUSERDEFAULTS_SET(nil, "File"_v, str(path));
    }
    ~NotesProgram() override {
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
        start();
    }
    void start() {
        program = velt::make<NotesDocument>();
        NSApplication::sharedApplication().setDelegate(program);
        NSApplication::sharedApplication().setMainMenu(notes::mainMenu(program));
        program->open();
        ASSERT_TRUE(windowStaysActive(window().widget()));
    }
    void close() {
        if (!program) return;
        program->book->edited = notes::boolean(false);
        VELT_NSWINDOW_CLOSE(program->window);
    }

    NSWindow& window() const { return *velt::as<NSWindow>(program->window); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        EXPECT_TRUE(takesKeys(window()));
        pressKey(window(), key, modifiers);
    }
    void type(const char* text) const {
        for (const char* unit = text; *unit; ++unit) QTest::keyClick(window().widget().windowHandle(), *unit);
    }
    /// The titles in the list, with the selected one in brackets.
    std::string list() const {
        std::string all;
        const long selected = VELT_CINTEGER(VELT_NSTABLEVIEW_SELECTEDROW(program->table));
        const long count = VELT_CINTEGER(VELT_NSTABLEVIEW_COUNT(program->table));
        for (long row = 0; row < count; ++row) {
            const std::string title =
                velt::utf8(program->rowValue(nil, VELT_NSTABLECOLUMN_INIT(nil, "title"), notes::number(row)));
            all += row == selected ? "[" + title + "] " : title + " ";
        }
        return all;
    }
    std::string text() const { return velt::utf8(VELT_NSTEXTVIEW_VALUE(program->text)); }
    bool hasKeyboard(const id& view) const {
        return comesTrue([&] { return window().firstResponder() == view; });
    }
    bool isEdited() const { return window().isDocumentEdited(); }
    /// Presses a key that asks, reads the question and answers it with another key.
    std::string ask(const std::function<void()>& asks, Qt::Key answer) const {
        asks();
        Ref<NSWindow> sheet = waitForSheet(program->window);
        if (!sheet) return "no question";
        const std::string asked = readAlert(*sheet);
        keepPicture(window().widget(), "notes-asks");
        pressKey(*sheet, answer);
        // Another one may follow.
        EXPECT_TRUE(comesTrue([&] { return window().attachedSheet() != id(sheet); }));
        return asked;
    }
    std::string contentsOf(const std::string& file) const {
        const Ref<Notebook> book = velt::make<Notebook>();
        book->read(str(file));
        std::string all;
        for (const id& note : velt::arrayOf(book->notes)->items()) all += velt::utf8(velt::as<Note>(note)->text) + ";";
        return all;
    }

    const TemporaryFolder folder;
    const std::string path = folder.file("my.notes");
    Ref<NotesDocument> program;
};

constexpr const char* kSaveQuestion =
    "Save the changes to “my.notes”?|They are lost if you do not save them.|[Save][Cancel][Don’t Save]";

}  // namespace

TEST_F(NotesProgram, ShowsTheLastFileWithTheNewestNoteFirst) {
    EXPECT_EQ("[Garden] Train Bread ", list());
    EXPECT_EQ("Garden\nwater the roses", text());
    EXPECT_EQ("my.notes", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    EXPECT_FALSE(isEdited());
    EXPECT_TRUE(hasKeyboard(program->table));
    keepPicture(window().widget(), "notes");
}

TEST_F(NotesProgram, GoesThroughItsPartsByKeys) {
    press(Qt::Key_Down);
    EXPECT_EQ("Garden [Train] Bread ", list());
    EXPECT_EQ("Train\nplatform 3", text());
    press(Qt::Key_Return);
    EXPECT_TRUE(hasKeyboard(program->text));
    press(Qt::Key_Escape);
    EXPECT_TRUE(hasKeyboard(program->table));
    press(Qt::Key_Tab);
    EXPECT_TRUE(hasKeyboard(program->text));
    press(Qt::Key_Tab);
    EXPECT_EQ("\tTrain\nplatform 3", text());
    press(Qt::Key_L, kCommand);
    EXPECT_TRUE(hasKeyboard(program->table));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(hasKeyboard(program->search));
    press(Qt::Key_Down);
    EXPECT_TRUE(hasKeyboard(program->table));
}

TEST_F(NotesProgram, WritesANewNote) {
    press(Qt::Key_N, kCommand);
    EXPECT_EQ("[New Note] Garden Train Bread ", list());
    EXPECT_TRUE(hasKeyboard(program->text));
    type("Shopping");
    press(Qt::Key_Return);
    type("milk");
    EXPECT_EQ("[Shopping] Garden Train Bread ", list());
    EXPECT_EQ("Shopping\nmilk", text());
    EXPECT_TRUE(isEdited());
    EXPECT_TRUE(window().widget().isWindowModified());
}

TEST_F(NotesProgram, UndoesWhatWasTyped) {
    press(Qt::Key_Return);
    press(Qt::Key_End, kCommand);
    type(" and ferns");
    EXPECT_EQ("Garden\nwater the roses and ferns", text());
    press(Qt::Key_Z, kCommand);
    EXPECT_EQ("Garden\nwater the roses", text());
    press(Qt::Key_Z, kShifted);
    EXPECT_EQ("Garden\nwater the roses and ferns", text());
    EXPECT_EQ("Garden\nwater the roses and ferns", velt::utf8(program->current->text));
}

TEST_F(NotesProgram, OffersTheCommandsThatAreOfUse) {
    const id main = NSApplication::sharedApplication().mainMenu();
    const auto offered = [&](const char* menu, const char* item) {
        const id within = velt::send(velt::send(main, "itemWithTitle:", str(menu)), "submenu");
        velt::send(within, "update");
        return VELT_CBOOL(VELT_NSMENUITEM_ENABLED(velt::send(within, "itemWithTitle:", str(item)))) != 0;
    };
    EXPECT_FALSE(offered("Edit", "Undo"));  // the list has the keyboard
    EXPECT_FALSE(offered("Edit", "Cut"));
    EXPECT_FALSE(offered("File", "Save"));
    press(Qt::Key_Return);
    EXPECT_TRUE(hasKeyboard(program->text));
    EXPECT_FALSE(offered("Edit", "Undo"));
    EXPECT_FALSE(offered("Edit", "Copy"));
    EXPECT_TRUE(offered("Edit", "Select All"));
    type("x");
    EXPECT_TRUE(offered("Edit", "Undo"));
    EXPECT_FALSE(offered("Edit", "Redo"));
    EXPECT_TRUE(offered("File", "Save"));
    press(Qt::Key_A, kCommand);
    EXPECT_TRUE(offered("Edit", "Cut"));
    EXPECT_TRUE(offered("Note", "Delete Note…"));
    program->showNote(nullptr);
    EXPECT_FALSE(offered("Edit", "Undo"));
    EXPECT_FALSE(offered("Edit", "Paste"));
    EXPECT_FALSE(offered("Note", "Delete Note…"));
}

TEST_F(NotesProgram, OffersThemInTheMenuBarThatIsWorkedByKeysToo) {
    press(Qt::Key_Return);
    type("x");
    QMenuBar* bar = window().widget().menuBar();
    bar->setFocus(Qt::MenuBarFocusReason);
    ASSERT_TRUE(bar->hasFocus());
    EXPECT_EQ(program->text, window().firstResponder());
    const id edit = velt::send(NSApplication::sharedApplication().mainMenu(), "itemWithTitle:", "Edit"_v);
    const id menu = velt::send(edit, "submenu");
    velt::send(menu, "update");
    EXPECT_TRUE(VELT_CBOOL(VELT_NSMENUITEM_ENABLED(velt::send(menu, "itemWithTitle:", "Undo"_v))));
    velt::send(menu, "performActionForItemAtIndex:", VELT_ID(0L));
    EXPECT_EQ("Garden\nwater the roses", text());
}

TEST_F(NotesProgram, FiltersTheListWhileSomebodyTypes) {
    press(Qt::Key_F, kShifted);
    ASSERT_TRUE(hasKeyboard(program->search));
    type("WATER");
    EXPECT_TRUE(comesTrue([this] { return list() == "[Garden] Bread "; })) << list();
    type("x");
    EXPECT_TRUE(comesTrue([this] { return list().empty(); })) << list();
    EXPECT_EQ("", text());
    press(Qt::Key_Backspace);
    EXPECT_TRUE(comesTrue([this] { return list() == "[Garden] Bread "; })) << list();
    press(Qt::Key_Escape);
    EXPECT_TRUE(comesTrue([this] { return list() == "[Garden] Train Bread "; })) << list();
    EXPECT_EQ("", velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->search)));
    EXPECT_FALSE(isEdited());
}

TEST_F(NotesProgram, KeepsInSightWhatIsTypedIntoAFoundNote) {
    press(Qt::Key_F, kShifted);
    type("roses");
    ASSERT_TRUE(comesTrue([this] { return list() == "[Garden] "; })) << list();
    press(Qt::Key_T, kCommand);
    press(Qt::Key_A, kCommand);
    type("Tulips");
    EXPECT_EQ("[Tulips] ", list());
    press(Qt::Key_N, kCommand);
    EXPECT_EQ("[New Note] Tulips Train Bread ", list());
}

TEST_F(NotesProgram, SortsByAClickOnTheHeader) {
    auto& table = *velt::as<NSTableView>(program->table);
    table.headerClicked(0);
    EXPECT_EQ("Bread [Garden] Train ", list());
    table.headerClicked(0);
    EXPECT_EQ("Train [Garden] Bread ", list());
    table.headerClicked(1);
    EXPECT_EQ("[Garden] Train Bread ", list());
}

TEST_F(NotesProgram, AsksBeforeItDeletesANote) {
    press(Qt::Key_Down);
    const auto deletes = [this] { press(Qt::Key_Backspace, kCommand); };
    constexpr const char* kQuestion =
        "Delete “Train”?|A note that was deleted cannot be brought back.|[Delete][Cancel]";
    EXPECT_EQ(kQuestion, ask(deletes, Qt::Key_Escape));
    EXPECT_EQ("Garden [Train] Bread ", list());
    EXPECT_FALSE(isEdited());
    EXPECT_EQ(kQuestion, ask(deletes, Qt::Key_Return));
    EXPECT_EQ("Garden [Bread] ", list());
    EXPECT_TRUE(isEdited());
    EXPECT_TRUE(hasKeyboard(program->table));
    ask(deletes, Qt::Key_Return);
    ask(deletes, Qt::Key_Return);
    EXPECT_EQ("", list());
    EXPECT_EQ("", text());
    // Nothing is left that could be deleted.
    deletes();
    QTest::qWait(50);
    EXPECT_TRUE(window().attachedSheet().isNil());
}

TEST_F(NotesProgram, SavesAndReadsAgain) {
    press(Qt::Key_N, kCommand);
    type("One more");
    press(Qt::Key_S, kCommand);
    EXPECT_FALSE(isEdited());
    EXPECT_EQ("Bread\nflour and water;Train\nplatform 3;Garden\nwater the roses;One more;", contentsOf(path));
    // Under another name.
    const std::string second = folder.file("second");
    velt::test::type(second);
    press(Qt::Key_S, kShifted);
    EXPECT_TRUE(comesTrue([&] { return velt::utf8(program->book->path) == second + ".notes"; }))
        << velt::utf8(program->book->path);
    EXPECT_EQ("second.notes", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    EXPECT_EQ(contentsOf(path), contentsOf(second + ".notes"));
    // And the first one again.
    velt::test::type(path);
    press(Qt::Key_O, kCommand);
    EXPECT_TRUE(comesTrue([&] { return velt::utf8(program->book->path) == path; }));
    EXPECT_EQ("[One more] Garden Train Bread ", list());
}

TEST_F(NotesProgram, KeepsTheChangesOfAFileThatCannotBeWritten) {
    press(Qt::Key_Return);
    type("x");
    program->book->path = str("/nowhere/at/all.notes");
    EXPECT_EQ(
        "“all.notes” cannot be saved.|Choose a folder in which you may write, on a disk with room. Your notes are "
        "still here.|[OK]",
        ask([this] { press(Qt::Key_S, kCommand); }, Qt::Key_Return));
    EXPECT_TRUE(isEdited());
    EXPECT_EQ("Bread\nflour and water;Train\nplatform 3;Garden\nwater the roses;", contentsOf(path));
}

TEST_F(NotesProgram, LeavesADamagedFileAlone) {
    const std::string broken[] = {
        "",
        "no property list",
        "<plist version=\"1.0\"><array/></plist>",
        "<plist version=\"1.0\"><dict/></plist>",
        "<plist version=\"1.0\"><dict><key>notes</key><array><string>x</string></array></dict></plist>",
        "<plist version=\"1.0\"><dict><key>notes</key><array><dict/></array></dict></plist>",
        "<plist version=\"1.0\"><dict><key>notes</key><array><dict><key>text</key><string>x</string></dict></array>"
        "</dict></plist>"};
    for (const std::string& content : broken) {
        const std::string damaged = folder.write("damaged.notes", content);
        EXPECT_EQ(
            "“damaged.notes” cannot be opened.|It is damaged, or no file of notes. Nothing in it was changed.|[OK]",
            ask([&] { NSApplication::sharedApplication().openFile(damaged); }, Qt::Key_Return))
            << content;
        EXPECT_EQ(content, contentOf(damaged));
        EXPECT_EQ("[Garden] Train Bread ", list());
        EXPECT_EQ("my.notes", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    }
}

TEST_F(NotesProgram, BeginsWithoutNotesWhenTheLastFileIsDamaged) {
    close();
    const std::string damaged = folder.write("damaged.notes", "no property list");
    VELT_NSUSERDEFAULTS_SET(nil, "File"_v, str(damaged));
    program = velt::make<NotesDocument>();
    NSApplication::sharedApplication().setDelegate(program);
    EXPECT_EQ("“damaged.notes” cannot be opened.|It is damaged, or no file of notes. Nothing in it was changed.|[OK]",
              ask([this] { program->open(); }, Qt::Key_Return));
    EXPECT_EQ("Untitled", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    // What is typed where there is no note would be lost.
    EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXT_EDITABLE(program->text)));
    EXPECT_EQ("no property list", contentOf(damaged));
}

TEST_F(NotesProgram, AsksAboutChangesBeforeItCloses) {
    press(Qt::Key_Return);
    type("x");
    const auto closes = [this] { press(Qt::Key_W, kCommand); };
    EXPECT_EQ(kSaveQuestion, ask(closes, Qt::Key_Escape));
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(isEdited());
    EXPECT_EQ(kSaveQuestion, ask(closes, Qt::Key_Return));
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    EXPECT_EQ("Bread\nflour and water;Train\nplatform 3;xGarden\nwater the roses;", contentsOf(path));
}

TEST_F(NotesProgram, DropsChangesThatNobodyWants) {
    press(Qt::Key_Return);
    type("x");
    window().performClose(nil);
    Ref<NSWindow> sheet = waitForSheet(program->window);
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(window().isVisible());
    clickButton(*sheet, "Don’t Save");
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    EXPECT_EQ("Bread\nflour and water;Train\nplatform 3;Garden\nwater the roses;", contentsOf(path));
}

TEST_F(NotesProgram, AsksForAFileBeforeItClosesWithoutOne) {
    press(Qt::Key_N, kShifted);
    ASSERT_TRUE(comesTrue([this] { return list().empty(); }));
    EXPECT_EQ("Untitled", velt::utf8(VELT_NSWINDOW_TITLE(program->window)));
    press(Qt::Key_N, kCommand);
    type("First");
    const std::string other = folder.file("other.notes");
    velt::test::type(other);
    ask([this] { press(Qt::Key_W, kCommand); }, Qt::Key_Return);
    EXPECT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    EXPECT_EQ("First;", contentsOf(other));
}

TEST_F(NotesProgram, StaysOpenWhenTheSavePanelIsCancelled) {
    press(Qt::Key_N, kShifted);
    ASSERT_TRUE(comesTrue([this] { return list().empty(); }));
    press(Qt::Key_N, kCommand);
    type("First");
    bool cancelled = false;
    onceShown([&](QFileDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        cancelled = true;
    });
    ask([this] { press(Qt::Key_W, kCommand); }, Qt::Key_Return);
    EXPECT_TRUE(comesTrue([&] { return cancelled; }));
    QTest::qWait(20);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(isEdited());
}

TEST_F(NotesProgram, AsksAboutChangesAtItsEnd) {
    press(Qt::Key_Return);
    type("x");
    EXPECT_EQ(kSaveQuestion, ask([this] { press(Qt::Key_Q, kCommand); }, Qt::Key_Escape));
    EXPECT_TRUE(isEdited());
    // It is asked again the next time, not twice at once.
    EXPECT_EQ(kSaveQuestion, ask(
                                 [this] {
                                     press(Qt::Key_Q, kCommand);
                                     NSApplication::sharedApplication().terminate(nil);
                                 },
                                 Qt::Key_Escape));
    // What cannot be saved keeps the program.
    program->book->path = str("/nowhere/my.notes");
    ask([this] { press(Qt::Key_Q, kCommand); }, Qt::Key_Return);
    Ref<NSWindow> sheet = waitForSheet(program->window);
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(readAlert(*sheet).starts_with("“my.notes” cannot be saved."));
    pressKey(*sheet, Qt::Key_Return);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(NotesProgram, IsTheNextTimeAsItWasLeft) {
    press(Qt::Key_Plus, kCommand);
    press(Qt::Key_Plus, kCommand);
    velt::as<NSTableView>(program->table)->headerClicked(0);
    window().setFrame({{90, 120}, {600, 400}});
    velt::send(program->split, "setPosition:ofDividerAtIndex:", VELT_ID(222.0), VELT_ID(0L));
    press(Qt::Key_W, kCommand);
    ASSERT_TRUE(comesTrue([this] { return !window().isVisible(); }));
    start();
    EXPECT_EQ("[Bread] Garden Train ", list());
    EXPECT_EQ(15.0, VELT_CDOUBLE(program->fontSize));
    EXPECT_EQ(222.0, VELT_CDOUBLE(VELT_NSVIEW_WIDTH(program->sidebar)));
    EXPECT_EQ(600.0, window().frame().size.width);
    EXPECT_EQ(400.0, window().frame().size.height);
    EXPECT_EQ(path, velt::utf8(program->book->path));
}

TEST_F(NotesProgram, KeepsTheSearchInItsToolbarWhenItIsNarrow) {
    window().setContentSize({460, 260});
    QTest::qWait(20);
    EXPECT_TRUE(velt::as<NSView>(program->search)->widget().isVisible());
    keepPicture(window().widget(), "notes-narrow");
    // The list keeps its width, the text gives way.
    const double list = VELT_CDOUBLE(VELT_NSVIEW_WIDTH(program->sidebar));
    window().setContentSize({700, 300});
    EXPECT_EQ(list, VELT_CDOUBLE(VELT_NSVIEW_WIDTH(program->sidebar)));
}

TEST_F(NotesProgram, SaysBelowTheListHowManyNotesThereAre) {
    const auto total = [this] { return velt::utf8(VELT_NSCONTROL_STRINGVALUE(program->total)); };
    EXPECT_EQ("3 notes", total());
    press(Qt::Key_F, kShifted);
    type("water");
    EXPECT_TRUE(comesTrue([&] { return total() == "2 of 3 notes"; })) << total();
    press(Qt::Key_N, kCommand);
    EXPECT_EQ("4 notes", total());
    for (const char* left : {"3 notes", "2 notes", "1 note", "0 notes"}) {
        program->deleteNote(nil);
        const Ref<NSWindow> sheet = waitForSheet(program->window);
        ASSERT_TRUE(sheet);
        pressKey(*sheet, Qt::Key_Return);
        EXPECT_TRUE(comesTrue([&] { return total() == left; })) << total();
        EXPECT_TRUE(comesTrue([this] { return window().attachedSheet().isNil(); }));
    }
}

TEST_F(NotesProgram, HasItsListOnAShadeThatFollowsTheDesktopsColours) {
    const auto shade = [this] {
        const QImage seen = velt::as<NSView>(program->sidebar)->widget().grab().toImage();
        return seen.pixelColor(seen.width() / 2, seen.height() - 2).lightness();
    };
    const QPalette before = QApplication::palette();
    EXPECT_LT(128, shade());
    QApplication::setPalette(darkPalette());
    EXPECT_TRUE(comesTrue([&] { return shade() < 100; })) << shade();
    keepPicture(window().widget(), "notes-dark");
    QApplication::setPalette(before);
    EXPECT_TRUE(comesTrue([&] { return shade() > 128; })) << shade();
}

TEST_F(NotesProgram, FindsAndReplacesWithinANote) {
    press(Qt::Key_Return);
    press(Qt::Key_F, kCommand);
    auto* bar = velt::as<NSView>(program->text)->widget().findChild<QLineEdit*>();
    ASSERT_NE(nullptr, bar);
    EXPECT_TRUE(comesTrue([&] { return bar->hasFocus(); }));
    QTest::keyClicks(bar, "roses");
    QTest::keyClick(bar, Qt::Key_Return);
    EXPECT_EQ((NSRange{17, 5}), velt::as<NSTextView>(program->text)->selectedRange());
    keepPicture(window().widget(), "notes-find");
    QTest::keyClick(bar, Qt::Key_Escape);
    EXPECT_TRUE(hasKeyboard(program->text));
}
