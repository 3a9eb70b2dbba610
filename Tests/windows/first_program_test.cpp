// The programs that Documentation/first-program.md builds, compiled and worked. The last test holds the two together.
#include "panels_support.h"
#include "support/documents.h"
#include "support/processes.h"

#include <QAction>
#include <QTableView>

using namespace velt::test;
using velt::Ref;

namespace {

namespace first_window {

int program(int, char**) {
    id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_TITLE(window, "Shopping"_v);
    VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(320L), VELT_ID(360L)));
    VELT_NSWINDOW_CENTERANDSHOW(window);
    return 0;
}

int main(int count, char** arguments) { return velt::runApplication(program, count, arguments); }

}  // namespace first_window

namespace greeting {

id newRect(long x, long y, long width, long height) {
    return VELT_RECT_INIT(nil, "", VELT_ID(x), VELT_ID(y), VELT_ID(width), VELT_ID(height));
}

class Greeter : public NSObject {
    VELT_OBJECT(Greeter, NSObject)

public:
    id window, field, answer;

    static void describe(velt::ClassBuilder<Greeter>& c) {
        c.property("window", &Greeter::window)
            .property("field", &Greeter::field)
            .property("answer", &Greeter::answer)
            .method("greet:", &Greeter::greet);
    }

    void open() {
        window = VELT_NSWINDOW_INIT(nil, "");
        VELT_NSWINDOW_TITLE(window, "Greetings"_v);
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(320L), VELT_ID(100L)));

        field = VELT_NSTEXTFIELD_INIT(this, "greet:");
        VELT_NSVIEW_FRAME(field, newRect(16, 60, 200, 24));
        VELT_NSWINDOW_APPEND(window, field);

        id button = VELT_PUSHBUTTON_INIT(this, "greet:");
        VELT_NSBUTTON_TITLE(button, "Greet"_v);
        VELT_NSVIEW_FRAME(button, newRect(224, 58, 80, 28));
        VELT_NSWINDOW_APPEND(window, button);

        answer = VELT_LABEL_INIT(nil, "");
        VELT_NSVIEW_FRAME(answer, newRect(16, 20, 288, 20));
        VELT_NSWINDOW_APPEND(window, answer);

        VELT_NSWINDOW_CENTERANDSHOW(window);
    }

    void greet(const id&) {
        VELT_NSCONTROL_STRINGVALUE(answer, VELT_CONCAT("Hello, "_v, VELT_NSCONTROL_STRINGVALUE(field)));
    }
};

int program(int, char**) {
    velt::Ref<Greeter> greeter = velt::make<Greeter>();
    greeter->open();
    return 0;
}

}  // namespace greeting

namespace shopping {

using greeting::newRect;

id application() { return &NSApplication::sharedApplication(); }

class ShoppingList : public NSObject {
    VELT_OBJECT(ShoppingList, NSObject)

public:
    id window, field, table;
    id items = velt::make<NSMutableArray>();
    id path = VELT_CONCAT(VELT_USER_HOMEDIRECTORY(nil), "/shopping.plist"_v);

    static void describe(velt::ClassBuilder<ShoppingList>& c) {
        c.property("window", &ShoppingList::window)
            .property("field", &ShoppingList::field)
            .property("table", &ShoppingList::table)
            .property("items", &ShoppingList::items)
            .property("path", &ShoppingList::path)
            .method("add:", &ShoppingList::add)
            .method("remove:", &ShoppingList::remove)
            .method("save:", &ShoppingList::save)
            .method("quit:", &ShoppingList::quit)
            .method("windowWillClose:", &ShoppingList::save)
            .method("numberOfRowsInTableView:", &ShoppingList::rowCount)
            .method("tableView:objectValueForTableColumn:row:", &ShoppingList::value)
            .method("tableView:setObjectValue:forTableColumn:row:", &ShoppingList::setValue);
    }

    void open() {
        window = VELT_NSWINDOW_INIT(nil, "");
        VELT_NSWINDOW_TITLE(window, "Shopping"_v);
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(320L), VELT_ID(360L)));
        VELT_NSWINDOW_DELEGATE(window, this);

        field = VELT_NSTEXTFIELD_INIT(this, "add:");
        VELT_NSVIEW_FRAME(field, newRect(16, 320, 200, 24));
        VELT_NSVIEW_AUTORESIZINGMASK(field, VELT_ID(2L + 8L));
        VELT_NSWINDOW_APPEND(window, field);

        id button = VELT_PUSHBUTTON_INIT(this, "add:");
        VELT_NSBUTTON_TITLE(button, "Add"_v);
        VELT_NSVIEW_FRAME(button, newRect(224, 318, 80, 28));
        VELT_NSVIEW_AUTORESIZINGMASK(button, VELT_ID(1L + 8L));
        VELT_NSWINDOW_APPEND(window, button);

        addTable();
        addMenus();
        readFile();
        VELT_NSWINDOW_CENTERANDSHOW(window);
    }

    void add(const id&) {
        id text = VELT_TRIM(VELT_NSCONTROL_STRINGVALUE(field));
        if (!VELT_CBOOL(VELT_EQUAL(text, ""_v))) {
            VELT_NSMUTABLEARRAY_APPEND(items, text);
            VELT_NSCONTROL_STRINGVALUE(field, ""_v);
            VELT_NSTABLEVIEW_RELOADDATA(table);
        }
    }

    void addTable() {
        table = VELT_NSTABLEVIEW_INIT(this, "");
        VELT_NSVIEW_FRAME(table, newRect(16, 16, 288, 290));
        VELT_NSVIEW_AUTORESIZINGMASK(table, VELT_ID(2L + 16L));
        id column = VELT_NSTABLECOLUMN_INIT(this, "", "what"_v, "To buy"_v);
        VELT_NSTABLECOLUMN_WIDTH(column, VELT_ID(260L));
        VELT_NSTABLEVIEW_APPEND(table, column);
        VELT_NSWINDOW_APPEND(window, table);
    }

    id rowCount(const id&) { return VELT_NSMUTABLEARRAY_COUNT(items); }

    id value(const id&, const id&, const id& row) { return VELT_NSMUTABLEARRAY_OBJECT(items, row); }

    void setValue(const id&, const id& value, const id&, const id& row) {
        VELT_NSMUTABLEARRAY_REPLACE(items, value, row);
    }

    void remove(const id&) {
        id row = VELT_NSTABLEVIEW_SELECTEDROW(table);
        if (VELT_CBOOL(VELT_GREATEREQUAL(row, VELT_ID(0L)))) {
            VELT_NSMUTABLEARRAY_REMOVE(items, row);
            VELT_NSTABLEVIEW_RELOADDATA(table);
        }
    }

    void addItem(const id& menu, const id& title, const char* action, const id& key) {
        id item = VELT_NSMENUITEM_INIT(this, action, title);
        VELT_NSMENUITEM_KEYEQUIVALENT(item, key);
        VELT_NSMENU_APPENDMENUITEM(menu, item);
    }

    void addMenus() {
        id bar = VELT_NSMENU_INIT(nil, "", "Shopping"_v);
        id file = VELT_NSMENU_INIT(nil, "", "File"_v);
        addItem(file, "Save"_v, "save:", "s"_v);
        VELT_NSMENU_APPENDSEPARATOR(file);
        addItem(file, "Quit"_v, "quit:", "q"_v);
        VELT_NSMENU_APPENDMENU(bar, file);
        id list = VELT_NSMENU_INIT(nil, "", "List"_v);
        addItem(list, "Remove"_v, "remove:", "r"_v);
        VELT_NSMENU_APPENDMENU(bar, list);
        VELT_PROPERTY(application(), "mainMenu"_v, bar);
    }

    void quit(const id&) { VELT_NSAPPLICATION_TERMINATE(application(), this); }

    void readFile() {
        if (VELT_CBOOL(VELT_NSFILEMANAGER_EXISTSFILE(VELT_id_FILE, path))) {
            items = VELT_NSOBJECT_PERFORMSELECTOR0(VELT_READARRAY(path), "mutableCopy"_v);
            VELT_NSTABLEVIEW_RELOADDATA(table);
        }
    }

    void save(const id&) {
        if (!VELT_CBOOL(VELT_WRITEARRAY(items, path))) {
            VELT_MSGBOX("The list cannot be saved"_v, path);
        }
    }
};

int program(int count, char** arguments) {
    velt::Ref<ShoppingList> list = velt::make<ShoppingList>();
    if (count > 1) list->path = velt::string(arguments[1]);
    list->open();
    return 0;
}

}  // namespace shopping

NSWindow* shownWindow(std::string_view title) {
    const id windows = velt::send(shopping::application(), "windows");
    for (const id& window : velt::arrayOf(windows)->items()) {
        NSWindow* found = velt::as<NSWindow>(window);
        if (found->isVisible() && velt::utf8(found->title()) == title) return found;
    }
    return nullptr;
}

void type(NSWindow& window, const char* text) {
    for (const char* unit = text; *unit; ++unit) QTest::keyClick(window.widget().windowHandle(), *unit);
}

struct ShoppingProgram : testing::Test {
    void SetUp() override {
        SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
        start();
    }
    ~ShoppingProgram() override {
        close();
        NSApplication::sharedApplication().setMainMenu(nil);
    }
    void start() {
        list = velt::make<shopping::ShoppingList>();
        list->path = str(folder.file("list.plist"));
        list->open();
        ASSERT_TRUE(windowStaysActive(window().widget()));
    }
    void close() {
        if (list && !list->window.isNil()) VELT_NSWINDOW_CLOSE(list->window);
        list = nullptr;
    }
    NSWindow& window() const { return *velt::as<NSWindow>(list->window); }
    void write(const char* text) {
        window().makeFirstResponder(list->field);
        type(window(), text);
    }
    std::string shown() const { return velt::utf8(VELT_JOIN(list->items, ","_v)); }

    TemporaryFolder folder;
    Ref<shopping::ShoppingList> list;
};

}  // namespace

TEST(FirstWindow, StaysWhenItsMainFunctionHasEnded) {
    EXPECT_EQ(0, first_window::program(0, nullptr));
    Ref<NSWindow> window(shownWindow("Shopping"));
    ASSERT_TRUE(window);
    EXPECT_EQ(320, VELT_CDOUBLE(VELT_NSVIEW_WIDTH(window->contentView())));
    EXPECT_EQ(360, VELT_CDOUBLE(VELT_NSVIEW_HEIGHT(window->contentView())));
    VELT_NSWINDOW_CLOSE(window);
    EXPECT_NE(nullptr, &first_window::main);
}

TEST(GreetingProgram, GreetsByTheButtonAndByReturn) {
    SKIP_UNLESS_WINDOWS_BECOME_ACTIVE();
    EXPECT_EQ(0, greeting::program(0, nullptr));
    Ref<NSWindow> window(shownWindow("Greetings"));
    ASSERT_TRUE(window);
    ASSERT_TRUE(windowStaysActive(window->widget()));
    Ref<greeting::Greeter> greeter(velt::as<greeting::Greeter>(
        VELT_NSCONTROL_TARGET(velt::as<NSView>(window->contentView())->subviewList().front())));
    window->makeFirstResponder(greeter->field);
    type(*window, "Ann");
    clickButton(*window, "Greet");
    EXPECT_VALUE("'Hello, Ann'", VELT_NSCONTROL_STRINGVALUE(greeter->answer));
    window->makeFirstResponder(greeter->field);
    QTest::keyClick(window->widget().windowHandle(), Qt::Key_End);
    type(*window, "a");
    QTest::keyClick(window->widget().windowHandle(), Qt::Key_Return);
    EXPECT_VALUE("'Hello, Anna'", VELT_NSCONTROL_STRINGVALUE(greeter->answer));
    VELT_NSWINDOW_CLOSE(window);
}

TEST_F(ShoppingProgram, AddsWhatIsWrittenAndRemovesWhatIsSelected) {
    write("bread");
    clickButton(window(), "Add");
    write("  butter ");
    pressKey(window(), Qt::Key_Return);
    EXPECT_VALUE("''", VELT_NSCONTROL_STRINGVALUE(list->field));
    write(" ");
    clickButton(window(), "Add");
    EXPECT_EQ("bread,butter", shown());
    EXPECT_VALUE("q 2", VELT_NSTABLEVIEW_COUNT(list->table));
    pressKey(window(), Qt::Key_R, Qt::ControlModifier);  // nothing is selected
    EXPECT_EQ("bread,butter", shown());
    VELT_NSTABLEVIEW_SELECTROW(list->table, integer(0));
    pressKey(window(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ("butter", shown());
}

TEST_F(ShoppingProgram, FindsItsListAgain) {
    write("bread");
    pressKey(window(), Qt::Key_Return);
    pressKey(window(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_VALUE("NSArray (bread)", VELT_READARRAY(list->path));
    write("milk");
    pressKey(window(), Qt::Key_Return);
    close();  // saves too
    start();
    EXPECT_EQ("bread,milk", shown());
    auto& rows = dynamic_cast<QTableView&>(velt::as<NSView>(list->table)->widget());
    ASSERT_EQ(2, rows.model()->rowCount());
    EXPECT_EQ("milk", rows.model()->index(1, 0).data().toString().toStdString());
}

TEST_F(ShoppingProgram, SaysThatItsListCannotBeRead) {
    close();
    const std::string damaged = folder.write("damaged.plist", "<plist");
    list = velt::make<shopping::ShoppingList>();
    list->path = str(damaged);
    onceAsked([](NSWindow& asked) {
        EXPECT_EQ("The list cannot be read|ReadArray failed|[OK]", readAlert(asked));
        pressKey(asked, Qt::Key_Return);
    });
    try {
        list->readFile();
    } catch (const NSException& failure) {
        VELT_MSGBOX("The list cannot be read"_v, velt::string(failure.reason()));
    }
    EXPECT_EQ("", shown());
    list = nullptr;
}

TEST_F(ShoppingProgram, TakesTheFileFromTheCommandLine) {
    close();
    const id path = str(folder.file("other.plist"));
    VELT_WRITEARRAY(array(str("tea"), str("sugar")), path);
    std::string name = "shopping", argument = velt::utf8(path);
    char* arguments[] = {name.data(), argument.data()};
    EXPECT_EQ(0, shopping::program(2, arguments));
    Ref<NSWindow> opened(shownWindow("Shopping"));
    ASSERT_TRUE(opened);
    const id delegate = opened->delegate();
    list = Ref<shopping::ShoppingList>(velt::as<shopping::ShoppingList>(delegate));
    EXPECT_EQ("tea,sugar", shown());
}

TEST(FirstProgramDocument, ShowsOnlyCodeThatIsCompiledHere) {
    EXPECT_GE(blocksFoundIn("Documentation/first-program.md", "Tests/windows/first_program_test.cpp"), 9u);
}
