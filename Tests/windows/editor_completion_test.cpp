// Completion in the source editor, by a person's keys.
#include "windows/editor_support.h"

#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTableView>

using namespace velt::test;
using velt::Ref;

namespace {

/// An environment that knows the members of everything.
class CompletingHost : public NSObject {
    VELT_OBJECT(CompletingHost, NSObject)

public:
    id members(const id& view, const id& expression) {
        EXPECT_TRUE(velt::is<VLTextView>(view));
        asked += "members(" + velt::utf8(expression) + ") ";
        if (meanwhile) std::exchange(meanwhile, {})();
        return names;
    }
    id signature(const id&, const id& expression) {
        asked += "signature(" + velt::utf8(expression) + ") ";
        return str("Left(Text, Count)");
    }
    bool shouldChange(const id&, const id& range, const id& text) {
        place = VELT_CNSRANGE(range).location;
        typed = text;
        return true;
    }
    void changed(const id& notification) {
        if (!velt::isString(typed) || velt::textOf(typed).size() != 1) return;
        id entries[] = {VELT_ID(static_cast<long>(place)), std::exchange(typed, nil)};
        velt::send(velt::send(notification, "object"),
                   "_ShouldChangeText:", id(velt::make<NSMutableArray>(velt::MovedValues{entries})));
    }
    static void describe(velt::ClassBuilder<CompletingHost>& c) {
        c.method("__TextView_GetCompletion::", &CompletingHost::members)
            .method("__TextView_GetCompletion2::", &CompletingHost::signature)
            .method("textView:shouldChangeTextInRange:replacementString:", &CompletingHost::shouldChange)
            .method("textDidChange:", &CompletingHost::changed)
            .owns(&CompletingHost::typed)
            .owns(&CompletingHost::names);
    }
    std::string asked;
    std::function<void()> meanwhile;  // before an answer comes
    id names = wordArray({"title", "count", "Count", "items(", "title"});
    unsigned long place = 0;
    id typed;
};

class EditorCompletion : public testing::Test {
protected:
    void SetUp() override { VELT_NSTEXTVIEW_DELEGATE(shown.view, host); }
    void TearDown() override { velt::send(shown.view, "stopCompletionTimer"); }

    void whenOpen(const std::function<void()>& work) { workCompletion(*shown.widget, work); }
    QTableView* list() const { return velt::as<NSWindow>(myFloatingKeyWindow)->widget().findChild<QTableView*>(); }
    std::string rows() const {
        std::string text;
        const auto* model = list()->model();
        for (int i = 0; i < model->rowCount(); ++i) text += rowText(i) + " ";
        return text;
    }
    std::string rowText(int row) const {
        const id controller = velt::send(velt::send(myFloatingKeyWindow, "contentView"), "documentView");
        const id source = velt::send(controller, "dataSource");
        const id value = velt::send(source, "tableView:objectValueForTableColumn:row:", controller, nil, integer(row));
        return velt::utf8(velt::description(value));
    }
    long running() const { return VELT_CINTEGER(velt::send(shown.view, "nCompletionRunning")); }

    EditorWindow shown;
    Ref<CompletingHost> host = velt::make<CompletingHost>();
};

}  // namespace

TEST_F(EditorCompletion, OffersMembersBehindADotAndInsertsTheChosenOne) {
    shown.type("x = obj");
    shown.type(".");
    EXPECT_VALUE("c 1", velt::send(shown.view, "bClass"));
    EXPECT_VALUE("'obj'", velt::send(shown.view, "sCompletion"));
    EXPECT_VALUE("Q 8", velt::send(shown.view, "nextInsertionIndex"));
    EXPECT_VALUE("Q 6", velt::send(shown.view, "nextInsertionIndex2"));
    EXPECT_EQ(1, running());
    whenOpen([&] {
        EXPECT_EQ("members(obj) ", host->asked);
        EXPECT_EQ("Count count items( title ", rows());
        EXPECT_VALUE("c 1", velt::send(myFloatingKeyWindow, "canBecomeKeyWindow"));
        shown.type("c");
        EXPECT_EQ("Count count ", rows());
        keepPicture(velt::as<NSWindow>(myFloatingKeyWindow)->widget(), "completion");
        shown.key(Qt::Key_Down);
        EXPECT_EQ(1, list()->currentIndex().row());
        shown.key(Qt::Key_Return);
    });
    EXPECT_EQ("x = obj.count", shown.text());
    EXPECT_EQ(0, running());
    EXPECT_EQ("()", velt::utf8(velt::description(velt::send(shown.view, "runningCompletions"))));
}

TEST_F(EditorCompletion, HasAPlainListOfOneColumn) {
    shown.type("o.");
    whenOpen([&] {
        const id around = velt::send(myFloatingKeyWindow, "contentView");
        EXPECT_VALUE("c 1", velt::send(around, "hasVerticalScroller"));
        EXPECT_VALUE("c 0", velt::send(around, "hasHorizontalScroller"));
        EXPECT_VALUE("c 1", velt::send(around, "autohidesScrollers"));
        const id table = velt::send(around, "documentView");
        EXPECT_VALUE("nil", velt::send(table, "headerView"));
        const id columns = velt::send(table, "tableColumns");
        EXPECT_VALUE("Q 1", velt::send(columns, "count"));
        const id column = velt::send(columns, "objectAtIndex:", integer(0));
        EXPECT_VALUE("'Column1'", velt::send(column, "identifier"));
        const id font = velt::send(velt::send(column, "dataCell"), "font");
        EXPECT_VALUE("d 10", velt::send(font, "pointSize"));
        shown.key(Qt::Key_Escape);
    });
}

TEST_F(EditorCompletion, ClosesOnEscapeAndLeavesWhatWasTyped) {
    shown.type("o.");
    whenOpen([&] {
        const id open = velt::send(shown.view, "runningCompletions");
        EXPECT_VALUE("Q 1", velt::send(open, "count"));
        const id top = velt::send(open, "objectAtIndex:", integer(0));
        EXPECT_VALUE("c 0", velt::send(top, "bAs"));
        EXPECT_VALUE("c 1", velt::send(top, "bClass"));
        EXPECT_VALUE("c 0", velt::send(top, "bBuiltin"));
        EXPECT_VALUE("{_NSRange=QQ} {2, 0}", velt::send(top, "triggerRange"));
        EXPECT_TRUE(velt::isEqual(velt::send(top, "completionList"), host->names));
        EXPECT_TRUE(velt::send(top, "textview") == shown.view);
        EXPECT_VALUE("c 0", velt::send(shown.view, "bClass")) << "the modes are the list's";
        shown.type("ti");
        shown.key(Qt::Key_Backspace);
        EXPECT_EQ("o.t", shown.text());
        EXPECT_EQ("title ", rows());
        shown.key(Qt::Key_Escape);
    });
    EXPECT_EQ("o.t", shown.text());
    EXPECT_EQ(0, running());
    shown.type("x");
    EXPECT_EQ("o.tx", shown.text());
}

TEST_F(EditorCompletion, OpensOncePerRestOfTyping) {
    shown.type("a.");
    shown.type("b.");
    int opened = 0;
    whenOpen([&] {
        ++opened;
        EXPECT_EQ("members(a.b) ", host->asked);
        shown.key(Qt::Key_Escape);
    });
    velt::RunLoop::current().runOnce(0.6);
    EXPECT_EQ(1, opened);
    EXPECT_EQ("members(a.b) ", host->asked);
}

TEST_F(EditorCompletion, IsNoLongerCountedOnceItsListIsClosedHoweverQuicklyItWasAskedFor) {
    for (const Qt::Key last : {Qt::Key_Escape, Qt::Key_Return}) {
        shown.type("left(a...");
        EXPECT_EQ(4, running());
        whenOpen([&] {
            EXPECT_EQ(1, running());
            if (last == Qt::Key_Return) shown.type("ti");
            shown.key(last);
        });
        EXPECT_EQ(0, running());
        EXPECT_EQ("()", velt::utf8(velt::description(velt::send(shown.view, "runningCompletions"))));
        shown.type(" dim x as ");
        EXPECT_EQ(1, running());
        whenOpen([&] {
            EXPECT_EQ("Date Integer String ", rows());
            shown.key(Qt::Key_Escape);
        });
        EXPECT_EQ(0, running());
    }
}

TEST_F(EditorCompletion, GoesOnWithTheLastOneAskedForWhileTheListIsOpen) {
    shown.type("a.");
    for (const char* keys : {"b.", "c.", "d."}) {
        whenOpen([&] { shown.type(keys); });
        EXPECT_EQ(1, running());
    }
    EXPECT_EQ("members(a) members(a.b) members(a.b.c) ", host->asked);
    EXPECT_EQ("a.b.c.d.", shown.text());
    // Each that gave way comes back when the one above it is closed.
    int opened = 0;
    id last;
    QTimer keys;
    QObject::connect(&keys, &QTimer::timeout, [&] {
        if (myFloatingKeyWindow.isNil() || myFloatingKeyWindow == last) return;
        last = myFloatingKeyWindow;
        ++opened;
        shown.key(Qt::Key_Escape);
    });
    keys.start(2);
    QElapsedTimer clock;
    clock.start();
    while (running() > 0 && clock.elapsed() < 8000) velt::RunLoop::current().runOnce(0.02);
    EXPECT_EQ(0, running());
    EXPECT_EQ(4, opened);
    EXPECT_EQ("a.b.c.d.", shown.text());
}

TEST_F(EditorCompletion, AsksASlowHostAgainForWhatWasTypedMeanwhile) {
    host->meanwhile = [&] { shown.type("b."); };
    shown.type("a.");
    whenOpen([&] {
        EXPECT_EQ("members(a) members(a.b) ", host->asked);
        EXPECT_EQ("Count count items( title ", rows());
        EXPECT_EQ(1, running());
        shown.type("ti");
        shown.key(Qt::Key_Return);
    });
    EXPECT_EQ("a.b.title", shown.text());
    EXPECT_EQ(0, running());
    // A host may also come back after the next one was answered.
    host->meanwhile = [&] {
        shown.type("c.");
        whenOpen([&] { shown.key(Qt::Key_Escape); });
    };
    shown.type(".");
    QElapsedTimer clock;
    clock.start();
    while (running() > 0 && clock.elapsed() < 8000) velt::RunLoop::current().runOnce(0.02);
    EXPECT_EQ(0, running());
    EXPECT_TRUE(myFloatingKeyWindow.isNil());
    EXPECT_EQ("members(a) members(a.b) members(a.b.title) members(a.b.title.c) ", host->asked);
}

TEST_F(EditorCompletion, IsAnsweredByAHostThatKnowsNothing) {
    VELT_NSTEXTVIEW_DELEGATE(shown.view, nil);
    shown.type("a");
    shown.key(Qt::Key_Escape);
    shown.key(Qt::Key_Escape);
    EXPECT_EQ(2, running());
    whenOpen([&] {
        EXPECT_EQ("", rows());
        shown.key(Qt::Key_Escape);
    });
    EXPECT_EQ(0, running());
}

TEST_F(EditorCompletion, IsAsHighAsItsNamesNeedOnItsSideOfTheLine) {
    const auto frame = [] { return velt::as<NSWindow>(myFloatingKeyWindow)->frame(); };
    const Ref<NSMutableArray> many = velt::make<NSMutableArray>();
    for (int i = 0; i < 30; ++i) many->append(str("name" + std::to_string(i)));
    host->names = many;
    for (const bool isAbove : {false, true}) {
        // The window's foot is at the screen's for a list that has no room below its line.
        VELT_NSWINDOW_FRAME(shown.window, VELT_ID(NSRect{{50, isAbove ? 0.0 : 300.0}, {500, 322}}));
        VELT_NSTEXTVIEW_VALUE(shown.view, str(isAbove ? std::string(12, '\n').append("x") : "x"));
        shown.select(isAbove ? 13 : 1);
        shown.type(".");
        whenOpen([&] {
            const NSRect ten = frame();
            shown.type("name1");
            shown.type("9");
            const NSRect one = frame();
            EXPECT_NEAR((ten.size.height - 4) / 10, one.size.height - 4, 0.01);
            EXPECT_EQ(ten.origin.x, one.origin.x);
            EXPECT_EQ(ten.size.width, one.size.width);
            if (isAbove)
                EXPECT_EQ(ten.origin.y, one.origin.y);
            else
                EXPECT_EQ(ten.origin.y + ten.size.height, one.origin.y + one.size.height);
            EXPECT_EQ(static_cast<int>(one.size.height), list()->window()->height());
            keepPicture(velt::as<NSWindow>(myFloatingKeyWindow)->widget(), "completion-one");
            shown.key(Qt::Key_Backspace);
            shown.key(Qt::Key_Backspace);
            EXPECT_EQ(ten.origin.y, frame().origin.y);
            EXPECT_EQ(ten.size.height, frame().size.height);
            EXPECT_EQ(static_cast<int>(ten.size.height), list()->window()->height());
            keepPicture(velt::as<NSWindow>(myFloatingKeyWindow)->widget(), "completion-ten");
            shown.key(Qt::Key_Escape);
        });
    }
}

TEST_F(EditorCompletion, OffersTypesBehindAs) {
    shown.type("dim x as ");
    EXPECT_VALUE("c 1", velt::send(shown.view, "bAs"));
    EXPECT_EQ(1, running());
    shown.type(" ");
    EXPECT_EQ(1, running());
    whenOpen([&] {
        EXPECT_EQ("Date Integer String ", rows());
        shown.type("s");
        EXPECT_EQ("String ", rows());
        shown.key(Qt::Key_Return);
    });
    EXPECT_EQ("dim x as  String", shown.text());
}

TEST_F(EditorCompletion, HelpsWithArguments) {
    shown.type("Left(");
    whenOpen([&] {
        EXPECT_EQ("signature(Left) ", host->asked);
        EXPECT_EQ("Left(Text, Count) ", rows());
        shown.type("s, 2");
        EXPECT_EQ("Left(s, 2", shown.text());
        keepPicture(velt::as<NSWindow>(myFloatingKeyWindow)->widget(), "arguments");
        shown.key(Qt::Key_Return);
    });
    EXPECT_EQ("Left(s, 2)", shown.text());
}

TEST_F(EditorCompletion, OffersEverythingOnEscape) {
    shown.type("t");
    shown.key(Qt::Key_Escape);
    EXPECT_VALUE("Q 3", velt::send(shown.view, "nextInsertionIndex"));
    whenOpen([&] {
        EXPECT_EQ("members(!§$%&/()=?) ", host->asked);
        EXPECT_EQ("Count count items( title ", rows());
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                          list()->visualRect(list()->model()->index(3, 0)).center());
        shown.key(Qt::Key_Return);
    });
    EXPECT_EQ("ttitle", shown.text());
}

TEST_F(EditorCompletion, EndsWithACommandOfTheProgram) {
    shown.type("o.");
    whenOpen([&] { shown.key(Qt::Key_A, Qt::ControlModifier); });
    EXPECT_EQ("{0, 2}", shown.selected());
}

TEST_F(EditorCompletion, TakesWhatIsPasted) {
    QGuiApplication::clipboard()->setText(QStringLiteral("pasted"));
    shown.type("o.");
    whenOpen([&] {
        shown.key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_FALSE(myFloatingKeyWindow.isNil());
        shown.key(Qt::Key_Escape);
    });
    EXPECT_EQ("o.pasted", shown.text());
}

TEST_F(EditorCompletion, EndsWithAClickBesideItsList) {
    shown.type("o.");
    whenOpen([&] { QTest::mouseClick(shown.widget->viewport(), Qt::LeftButton, {}, QPoint(200, 100)); });
    EXPECT_EQ("o.", shown.text());
    EXPECT_EQ(0, running());
}

TEST_F(EditorCompletion, EndsWithItsWindow) {
    shown.type("o.");
    whenOpen([&] { VELT_NSWINDOW_CLOSE(shown.window); });
    EXPECT_EQ("o.", shown.text());
}

TEST_F(EditorCompletion, WorksOutExpressions) {
    velt::send(shown.view, "getCompletion::", integer(14), str("if foo(bar.ba) then"));
    EXPECT_VALUE("'foo(bar.ba)'", velt::send(shown.view, "sCompletion"));
    velt::send(shown.view, "getCompletion::", integer(13), str("if foo(bar.ba"));
    EXPECT_VALUE("'bar.ba'", velt::send(shown.view, "sCompletion"));
    velt::send(shown.view, "setCompletionType:::", boolean(false), boolean(false), boolean(true));
    EXPECT_VALUE("c 1", velt::send(shown.view, "bBuiltin"));
}

TEST_F(EditorCompletion, OfAProgramWorksByItsMessages) {
    shown.type("ab");
    const id made = velt::make<Autocompletion>();
    EXPECT_TRUE(velt::send(made, "initWithCompletions::::::", wordArray({"abc", "abd", "x"}), shown.view, range(0, 2),
                           boolean(false), boolean(true), boolean(false)) == made);
    EXPECT_VALUE("q 2", velt::send(made, "numberOfRowsInTableView:", nil));
    velt::send(made, "insertText:", str("d"));
    EXPECT_VALUE("q 1", velt::send(made, "numberOfRowsInTableView:", nil));
    velt::send(made, "insertNewline:", nil);
    EXPECT_EQ("abd", shown.text());
    EXPECT_VALUE("q 999", velt::send(made, "popupAssistantAt:forView:", point(0, 0), shown.view));
}

TEST_F(EditorCompletion, HasAControllerOfItsWindowWhoCancelsItByClosing) {
    shown.type("some.");
    whenOpen([&] {
        const id controller = velt::as<NSWindow>(myFloatingKeyWindow)->nextResponder();
        ASSERT_TRUE(velt::is<Autocompletion>(controller));
        EXPECT_TRUE(velt::is<NSWindowController>(controller));
        EXPECT_EQ(myFloatingKeyWindow, velt::send(controller, "window"));
        velt::send(controller, "close");
    });
    EXPECT_EQ("some.", shown.text());
    const id program = velt::make<Autocompletion>();
    EXPECT_TRUE(velt::send(program, "window").isNil());
    velt::send(program, "close");
}

TEST(EditorCompletionNames, AreSortedAndDifferent) {
    const id names = wordArray({"b", "a", "B", "a"});
    EXPECT_EQ("(B, a, b)", velt::utf8(velt::description(velt::send(names, "sortedUniqueArray"))));
    EXPECT_VALUE("q -1", velt::send(str("B"), "caseSensitiveCompare:", str("a")));
    EXPECT_VALUE("q 0", velt::send(str("a"), "caseSensitiveCompare:", str("a")));
}
