// The open and the save panel, driven through the toolkit's dialog as a person does: by typing a path.
#include "file_dialog_support.h"

#include "support/patience.h"
#include "support/processes.h"

#include <filesystem>

using namespace velt::test;
using velt::Ref;

namespace {

/// A folder with some files in it, and the program's options of the panel as they are at its start.
struct FilePanels : testing::Test {
    FilePanels() {
        VELT_OPENPANEL_Init();
        for (id* option : {&VELT_idOPENPANEL_DIRECTORY, &VELT_idOPENPANEL_FILE, &VELT_idOPENPANEL_TYPES,
                           &VELT_idOPENPANEL_FILENAMES, &VELT_idOPENPANEL_URLS}) {
            *option = nil;
        }
        std::filesystem::create_directory(folder.file("inner"));
        VELT_NSOPENPANEL_DIRECTORY(nil, str(root));
    }
    const TemporaryFolder folder;
    const std::string text = folder.write("a b.txt", "text"), other = folder.write("other.txt", "text"),
                      picture = folder.write("picture.png", "");
    const std::string root = std::filesystem::path(text).parent_path();
};

}  // namespace

TEST_F(FilePanels, StartWithTheOptionsOfTheProgram) {
    EXPECT_VALUE("c 1", VELT_NSOPENPANEL_CANCHOOSEFILES(nil));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(nil));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RESOLVESALIASES(nil));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil));
    EXPECT_TRUE(VELT_NSOPENPANEL_FILE(nil).isNil());
    EXPECT_TRUE(VELT_NSOPENPANEL_TYPES(nil).isNil());
    EXPECT_VALUE("''", VELT_NSOPENPANEL_FILENAME(nil));
    EXPECT_VALUE("''", VELT_NSOPENPANEL_URL(nil));
    EXPECT_VALUE("NSMutableArray ()", VELT_NSOPENPANEL_FILENAMES(nil));
    EXPECT_VALUE("NSMutableArray ()", VELT_NSOPENPANEL_URLS(nil));
}

TEST_F(FilePanels, ConvertTheirOptions) {
    VELT_NSOPENPANEL_CANCHOOSEFILES("ignored"_v, integer(0));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_CANCHOOSEFILES(nil));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_NSOPENPANEL_RESOLVESALIASES(nil, array()));
    VELT_NSOPENPANEL_FILE(nil, integer(12));
    EXPECT_VALUE("'12'", VELT_NSOPENPANEL_FILE(nil));
    EXPECT_EQ(raised([] { VELT_CARRAY("no array"_v); }), raised([] { VELT_NSOPENPANEL_TYPES(nil, "no array"_v); }));
    // What is stored is given as it is.
    EXPECT_EQ(VELT_idOPENPANEL_FILE, VELT_NSOPENPANEL_FILE(nil));
}

TEST_F(FilePanels, OpenAPathThatIsTyped) {
    type(text);
    EXPECT_VALUE("c 1", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_VALUE("'" + text + "'", VELT_NSOPENPANEL_FILENAME(nil));
    const id list = VELT_NSOPENPANEL_FILENAMES(nil);
    EXPECT_VALUE("Q 1", VELT_NSMUTABLEARRAY_COUNT(list));
    VELT_NSMUTABLEARRAY_APPEND(list, "mine"_v);
    EXPECT_VALUE("Q 1", VELT_NSMUTABLEARRAY_COUNT(VELT_NSOPENPANEL_FILENAMES(nil)));
    EXPECT_VALUE("'file://" + root + "/a%20b.txt'", VELT_NSOPENPANEL_URL(nil));
    EXPECT_EQ("NSURL", velt::classOf(VELT_NSMUTABLEARRAY_OBJECT(VELT_NSOPENPANEL_URLS(nil), integer(0)))->name());
}

TEST_F(FilePanels, ForgetTheTruthValuesAfterARunAndKeepTheRest) {
    VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil, boolean(true));
    VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(nil, boolean(true));
    VELT_NSOPENPANEL_RESOLVESALIASES(nil, boolean(true));
    VELT_NSOPENPANEL_CANCHOOSEFILES(nil, boolean(false));
    cancel();
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_VALUE("c 1", VELT_NSOPENPANEL_CANCHOOSEFILES(nil));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(nil));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RESOLVESALIASES(nil));
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil));
    EXPECT_VALUE("'" + root + "'", VELT_NSOPENPANEL_DIRECTORY(nil));
}

TEST_F(FilePanels, HaveChosenNothingWhenCancelled) {
    type(text);
    VELT_NSOPENPANEL_RUN(nil);
    cancel();
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_VALUE("''", VELT_NSOPENPANEL_FILENAME(nil));
    EXPECT_VALUE("''", VELT_NSOPENPANEL_URL(nil));
    EXPECT_VALUE("NSMutableArray ()", VELT_NSOPENPANEL_FILENAMES(nil));
    EXPECT_FALSE(velt::asString(VELT_NSOPENPANEL_FILENAME(nil)).isFrozen());
}

TEST_F(FilePanels, ShowTheFolderAndTheFileTheyAreGiven) {
    VELT_NSOPENPANEL_FILE(nil, "other.txt"_v);
    std::string shown, title;
    onceShown([&](QFileDialog& dialog) {
        shown = dialog.directory().absolutePath().toStdString();
        title = dialog.windowTitle().toStdString();
        keepPicture(dialog, "open-panel");
        QTest::keyClick(&nameField(dialog), Qt::Key_Return);
    });
    EXPECT_VALUE("c 1", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_EQ(root, shown);
    EXPECT_EQ("Open", title);
    EXPECT_VALUE("'" + other + "'", VELT_NSOPENPANEL_FILENAME(nil));
}

TEST_F(FilePanels, ChooseSeveralFilesWhenTheyMay) {
    VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil, boolean(true));
    type("\"a b.txt\" \"other.txt\"");
    EXPECT_VALUE("c 1", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_VALUE("Q 2", VELT_NSMUTABLEARRAY_COUNT(VELT_NSOPENPANEL_FILENAMES(nil)));
    EXPECT_VALUE("Q 2", VELT_NSMUTABLEARRAY_COUNT(VELT_NSOPENPANEL_URLS(nil)));
    EXPECT_VALUE("'" + text + "'", VELT_NSOPENPANEL_FILENAME(nil));
}

TEST_F(FilePanels, EnterAFolderThatCannotBeChosen) {
    type(folder.file("inner"));
    std::string entered;
    onceThat([&] { return fileDialog() && fileDialog()->directory().dirName() == QLatin1String("inner"); },
             [&] {
                 entered = fileDialog()->directory().absolutePath().toStdString();
                 QTest::keyClick(fileDialog(), Qt::Key_Escape);
             });
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_EQ(folder.file("inner"), entered);
}

TEST_F(FilePanels, ChooseFoldersWhenTheyMay) {
    for (const bool files : {false, true}) {
        for (const bool several : {false, true}) {
            VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(nil, boolean(true));
            VELT_NSOPENPANEL_CANCHOOSEFILES(nil, boolean(files));
            VELT_NSOPENPANEL_ALLOWSMULTIPLESELECTION(nil, boolean(several));
            type(folder.file("inner"));
            EXPECT_VALUE("c 1", VELT_NSOPENPANEL_RUN(nil)) << files << several;
            EXPECT_VALUE("'" + folder.file("inner") + "'", VELT_NSOPENPANEL_FILENAME(nil));
        }
    }
    VELT_NSOPENPANEL_CANCHOOSEDIRECTORIES(nil, boolean(true));
    type(text);
    EXPECT_VALUE("c 1", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_VALUE("'" + text + "'", VELT_NSOPENPANEL_FILENAME(nil));
}

TEST_F(FilePanels, RefuseFilesOfOtherTypes) {
    VELT_NSOPENPANEL_TYPES(nil, array("txt"_v, ".bas"_v));
    type(picture);
    std::string said;
    bool stays = false;
    const auto box = [] {
        QWidget* shown = QApplication::activeModalWidget();
        return shown && shown->inherits("QMessageBox") ? shown : nullptr;
    };
    onceThat([box] { return box() != nullptr; },
             [&, box] {
                 said = box()->property("text").toString().toStdString();
                 QWidget* panel = box()->parentWidget();
                 QTimer::singleShot(50, panel, [&stays, panel] {
                     stays = panel->isVisible();
                     QTest::keyClick(panel, Qt::Key_Escape);
                 });
                 QTest::keyClick(box(), Qt::Key_Return);
             });
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_EQ("\"picture.png\" cannot be chosen here.", said);
    EXPECT_TRUE(stays);
}

TEST_F(FilePanels, ResolveAliasesWhenTheyShall) {
    const std::string link = folder.file("link.txt");
    std::filesystem::create_symlink(text, link);
    type(link);
    VELT_NSOPENPANEL_RUN(nil);
    EXPECT_VALUE("'" + link + "'", VELT_NSOPENPANEL_FILENAME(nil));
    VELT_NSOPENPANEL_RESOLVESALIASES(nil, boolean(true));
    type(link);
    VELT_NSOPENPANEL_RUN(nil);
    EXPECT_VALUE("'" + std::filesystem::canonical(text).string() + "'", VELT_NSOPENPANEL_FILENAME(nil));
}

TEST_F(FilePanels, AreEndedByTheProgramToo) {
    onceShown([](QFileDialog&) { velt::send(id(&NSOpenPanel::openPanel()), "cancel:", nil); });
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RUN(nil));
    onceShown([](QFileDialog&) { VELT_ENDMODAL(integer(5)); });
    EXPECT_VALUE("c 0", VELT_NSOPENPANEL_RUN(nil));
    EXPECT_EQ(nullptr, fileDialog());
}

TEST_F(FilePanels, NestWithSessionsAndAlerts) {
    const ControlWindow window;
    std::string order;
    onceAsked([&](NSWindow& shown) {
        onceShown([&](QFileDialog& dialog) {
            onceAsked([&](NSWindow& panel) {
                order += readAlert(panel) + " ";
                pressKey(panel, Qt::Key_Return);
            });
            VELT_MSGBOX("above the panel"_v, nil);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        order += show(VELT_NSOPENPANEL_RUN(nil)) + " ";
        EXPECT_EQ(&shown, modalWindow());
        VELT_ENDMODAL(integer(3));
    });
    order += show(VELT_BEGINMODAL(window.window));
    EXPECT_EQ("-|above the panel|[OK] c 0 q 3", order);
}

TEST_F(FilePanels, SaveUnderTheNameThatIsTyped) {
    NSSavePanel& panel = NSSavePanel::savePanel();
    const id value = velt::boxResult(&panel);
    EXPECT_VALUE("'Save'", VELT_NSSAVEPANEL_TITLE(value));
    VELT_NSSAVEPANEL_TITLE(value, integer(3));
    EXPECT_VALUE("'3'", VELT_NSSAVEPANEL_TITLE(value));
    EXPECT_TRUE(VELT_NSSAVEPANEL_TITLE(nil).isNil());
    velt::send(value, "setRequiredFileType:", "txt"_v);
    std::string title;
    onceShown([&](QFileDialog& dialog) {
        title = dialog.windowTitle().toStdString();
        type("new");
    });
    EXPECT_VALUE("q 1", velt::send(value, "runModalForDirectory:file:", str(root), "draft"_v));
    EXPECT_EQ("3", title);
    EXPECT_VALUE("'" + root + "/new.txt'", velt::send(value, "filename"));
    EXPECT_FALSE(std::filesystem::exists(folder.file("new.txt")));
    cancel();
    EXPECT_VALUE("q 0", velt::send(value, "runModal"));
    EXPECT_TRUE(velt::send(value, "filename").isNil());
    velt::send(value, "setRequiredFileType:", nil);
    VELT_NSSAVEPANEL_TITLE(value, "Save"_v);
}

TEST_F(FilePanels, MayBeSheets) {
    const ControlWindow window({{50, 60}, {480, 300}});
    window.show();
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    delegate->ordersOut = false;
    type(text);
    velt::send(id(&NSOpenPanel::openPanel()),
               "beginSheetForDirectory:file:types:modalForWindow:modalDelegate:didEndSelector:contextInfo:", str(root),
               id(), id(), window.window, delegate, "sheetDidEnd:returnCode:contextInfo:"_v, "c"_v);
    EXPECT_TRUE(comesTrue([&] { return !delegate->heard.empty(); }));
    EXPECT_EQ("NSOpenPanel q 1 'c' ", delegate->heard);
    EXPECT_VALUE("'" + text + "'", velt::send(id(&NSOpenPanel::openPanel()), "filename"));
}

namespace {

/// The panel as a sheet of a window, and who hears of its end.
struct PanelSheets : FilePanels {
    void SetUp() override {
        window.show();
        delegate->ordersOut = false;
    }
    void begin() const {
        velt::send(panel,
                   "beginSheetForDirectory:file:modalForWindow:modalDelegate:didEndSelector:contextInfo:", str(root),
                   str("new.txt"), window.window, delegate, "sheetDidEnd:returnCode:contextInfo:"_v, "c"_v);
    }
    id attached() const { return velt::send(window.window, "attachedSheet"); }
    static bool seen() {
        return comesTrue([] { return fileDialog() != nullptr; });
    }
    const ControlWindow window{{{50, 60}, {480, 300}}};
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    const id panel = id(&NSSavePanel::savePanel());
};

}  // namespace

TEST_F(PanelSheets, AreTheAttachedSheetsOfTheirWindows) {
    EXPECT_TRUE(attached().isNil());
    begin();
    EXPECT_EQ(panel, attached());
    EXPECT_VALUE("c 1", velt::send(panel, "isSheet"));
    EXPECT_VALUE("c 1", velt::send(panel, "isVisible"));
    ASSERT_TRUE(seen());
    cancel();
    EXPECT_TRUE(comesTrue([&] { return !delegate->heard.empty(); }));
    EXPECT_EQ("NSSavePanel q 0 'c' ", delegate->heard);
    EXPECT_TRUE(attached().isNil());
    EXPECT_VALUE("c 0", velt::send(panel, "isSheet"));
    EXPECT_VALUE("c 0", velt::send(panel, "isVisible"));
}

TEST_F(PanelSheets, AreEndedAsEveryOther) {
    begin();
    ASSERT_TRUE(seen());
    VELT_ENDSHEET(panel, integer(1));
    EXPECT_EQ("NSSavePanel q 1 'c' ", std::exchange(delegate->heard, ""));
    EXPECT_VALUE("'" + root + "/new.txt'", velt::send(panel, "filename"));
    EXPECT_TRUE(attached().isNil());
    EXPECT_FALSE(fileDialog());
    for (const char* ends : {"close", "cancel:", "orderOut:"}) {
        SCOPED_TRACE(ends);
        begin();
        ASSERT_TRUE(seen());
        if (std::string_view(ends).ends_with(':')) {
            velt::send(panel, ends, nil);
        } else {
            velt::send(panel, ends);
        }
        EXPECT_EQ("NSSavePanel q 0 'c' ", std::exchange(delegate->heard, ""));
        EXPECT_TRUE(attached().isNil());
        EXPECT_TRUE(velt::send(panel, "filename").isNil());
    }
}

TEST_F(PanelSheets, EndWithTheirWindow) {
    begin();
    ASSERT_TRUE(seen());
    VELT_NSWINDOW_CLOSE(window.window);
    EXPECT_EQ("NSSavePanel q 0 'c' ", delegate->heard);
    EXPECT_FALSE(fileDialog());
    EXPECT_VALUE("c 0", velt::send(panel, "isSheet"));
}

TEST_F(PanelSheets, WaitForTheSheetBeforeThem) {
    const id first = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(first, rect(0, 0, 200, 100));
    VELT_BEGINSHEET(delegate, first, "first"_v);
    ASSERT_TRUE(waitForSheet(window.window));
    begin();
    EXPECT_EQ(first, attached());
    EXPECT_VALUE("c 0", velt::send(panel, "isSheet"));
    EXPECT_FALSE(fileDialog());
    delegate->ordersOut = true;
    VELT_ENDSHEET(first, integer(7));
    EXPECT_EQ("NSWindow q 7 'first' ", std::exchange(delegate->heard, ""));
    EXPECT_EQ(panel, attached());
    ASSERT_TRUE(seen());
    delegate->ordersOut = false;
    velt::send(panel, "cancel:", nil);
    EXPECT_EQ("NSSavePanel q 0 'c' ", delegate->heard);
    EXPECT_TRUE(attached().isNil());
    VELT_NSWINDOW_CLOSE(first);
}
