#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/environment.h"
#include "support/patience.h"
#include "support/processes.h"
#include "support/values.h"

#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <thread>

using namespace velt::test;
using velt::Ref;

namespace {

/// Hears what a window tells its delegate.
class WindowListener : public NSObject {
    VELT_OBJECT(WindowListener, NSObject)

public:
    bool windowShouldClose(const id&) {
        heard += "should ";
        return allowed;
    }
    void windowWillClose(const id&) { heard += "will "; }
    void windowDidResize(const id&) { heard += "resize "; }
    void windowDidMove(const id&) { heard += "move "; }
    void clearMore(const id&, const id&) { heard += "more "; }
    void clear(const id& sender) { heard += sender.isNil() ? "clear " : "clear-from "; }
    static void describe(velt::ClassBuilder<WindowListener>& c) {
        c.method("windowShouldClose:", &WindowListener::windowShouldClose)
            .method("windowWillClose:", &WindowListener::windowWillClose)
            .method("windowDidResize:", &WindowListener::windowDidResize)
            .method("windowDidMove:", &WindowListener::windowDidMove)
            .method("clear:more:", &WindowListener::clearMore)
            .method("clear:", &WindowListener::clear);
    }
    std::string heard;
    bool allowed = true;
};

/// Takes keys and the mouse, and draws itself red.
class Board : public NSView {
    VELT_OBJECT(Board, NSView)

public:
    bool acceptsFirstResponder() const override { return true; }
    void mouseDown(NSEvent* event) {
        const NSPoint at = convertPointFromView(event->locationInWindow(), nullptr);
        heard += "down " + std::to_string(static_cast<int>(at.x)) + "," + std::to_string(static_cast<int>(at.y)) + " ";
    }
    void keyDown(NSEvent* event) { heard += "key " + velt::utf8(event->characters()) + " "; }
    void drawRect(NSRect) override { ++drawn; }
    static void describe(velt::ClassBuilder<Board>& c) {
        c.method("mouseDown:", &Board::mouseDown).method("keyDown:", &Board::keyDown);
    }
    std::string heard;
    int drawn = 0;
};

id frame(double x, double y, double width, double height) { return VELT_ID(NSRect{{x, y}, {width, height}}); }

}  // namespace

TEST(Windows, AreMadeTitledAndTheirOwnDelegate) {
    const id window = VELT_NSWINDOW_INIT(nil, "ignored");
    EXPECT_VALUE("Q 15", VELT_NSWINDOW_STYLEMASK(window));
    EXPECT_EQ(window, VELT_NSWINDOW_DELEGATE(window));
    const id panel = VELT_NSPANEL_INIT(nil, "ignored");
    EXPECT_VALUE("Q 11", VELT_NSWINDOW_STYLEMASK(panel));
    EXPECT_TRUE(VELT_NSWINDOW_DELEGATE(panel).isNil());
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(window));
}

TEST(Windows, KeepTheirFrameAndItsPartsAsWholeNumbers) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, frame(10, 20, 300, 222));
    VELT_NSWINDOW_WIDTH(window, VELT_ID(120.75));
    EXPECT_VALUE("d 120", VELT_NSWINDOW_WIDTH(window));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{10, 20}, {120, 222}}", VELT_NSWINDOW_FRAME(window));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {120, 200}}",
                 velt::send(VELT_NSWINDOW_CONTENTVIEW(window), "frame"));
    EXPECT_VALUE("q 0", VELT_NSWINDOW_CONTENTSIZE(window));
    VELT_NSWINDOW_CONTENTSIZE(window, VELT_ID(NSSize{200, 100}));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{10, 120}, {200, 122}}", VELT_NSWINDOW_FRAME(window));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {50, 28}}",
                 VELT_NSWINDOW_CONTENTRECTFORFRAMERECT(window, frame(0, 0, 50, 50)));
}

TEST(Windows, GiveTheirTitleAsACopyThatMayBeChanged) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_TITLE(window, str("Notes"));
    const id title = VELT_NSWINDOW_TITLE(window);
    velt::asMutableString(title).append(u"!");
    EXPECT_VALUE("'Notes'", VELT_NSWINDOW_TITLE(window));
}

TEST(Windows, ShowThatTheirDocumentIsEdited) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_TITLE(window, "a[*]b"_v);
    EXPECT_VALUE("c 0", VELT_PROPERTY(window, "documentEdited"_v));
    QMainWindow& widget = velt::as<NSWindow>(window)->widget();
    EXPECT_EQ("a[*][*]b", widget.windowTitle());  // the toolkit shows one of them
    EXPECT_FALSE(widget.isWindowModified());
    velt::send(window, "setDocumentEdited:", VELT_ID(BOOL{1}));
    EXPECT_VALUE("c 1", velt::send(window, "isDocumentEdited"));
    EXPECT_EQ("a[*][*]b[*]", widget.windowTitle());
    EXPECT_TRUE(widget.isWindowModified());
    EXPECT_VALUE("'a[*]b'", VELT_NSWINDOW_TITLE(window));
    VELT_NSWINDOW_TITLE(window, "c"_v);
    EXPECT_EQ("c[*]", widget.windowTitle());
    velt::send(window, "setDocumentEdited:", VELT_ID(BOOL{0}));
    EXPECT_EQ("c", widget.windowTitle());
    EXPECT_FALSE(widget.isWindowModified());
    // Before there is a widget.
    const id other = VELT_NSWINDOW_INIT(nil, "");
    velt::send(other, "setDocumentEdited:", VELT_ID(BOOL{1}));
    EXPECT_TRUE(velt::as<NSWindow>(other)->widget().isWindowModified());
    VELT_NSWINDOW_DELEGATE(window, nil);
    VELT_NSWINDOW_DELEGATE(other, nil);
}

TEST(Windows, TakeViewsAndNothingElse) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    EXPECT_CAST_FAILURE("'NSView' expected", VELT_NSWINDOW_APPEND(window, str("no view")));
    EXPECT_CAST_FAILURE("'NSView' expected", VELT_NSWINDOW_APPEND(window, nil));
    const Ref<NSView> view = velt::make<NSView>();
    VELT_NSWINDOW_APPEND(window, view);
    EXPECT_EQ(window, view->window());
    EXPECT_EQ(VELT_NSWINDOW_CONTENTVIEW(window), view->superview());
}

TEST(Windows, AnswerZeroForNilAndRaiseForOthers) {
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", VELT_NSWINDOW_FRAME(nil));
    EXPECT_VALUE("d 0", VELT_NSWINDOW_X(nil));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_HASSHADOW(nil));
    EXPECT_VALUE("Q 0", VELT_NSWINDOW_STYLEMASK(nil));
    EXPECT_TRUE(VELT_NSWINDOW_TITLE(nil).isNil());
    EXPECT_TRUE(VELT_NSWINDOW_TITLE(nil, str("x")).isNil());
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'hasShadow'",
                  VELT_NSWINDOW_HASSHADOW(str("no window")));
}

TEST(Windows, BelongToTheMainThread) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    std::thread([&] {
        const velt::ThreadScope scope;
        EXPECT_RAISES(
            "NSInternalInconsistencyException: VELT_NSWINDOW_TITLE was called on another thread than the main "
            "one, to which windows and views belong",
            VELT_NSWINDOW_TITLE(window, str("x")));
    }).join();
    EXPECT_VALUE("'Window'", VELT_NSWINDOW_TITLE(window));
}

TEST(Windows, ComeAndGoAndTellTheirDelegate) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    const Ref<WindowListener> listener = velt::make<WindowListener>();
    VELT_NSWINDOW_DELEGATE(window, listener);
    VELT_NSWINDOW_FRAME(window, frame(50, 60, 200, 122));
    EXPECT_EQ("resize move ", std::exchange(listener->heard, ""));
    VELT_NSWINDOW_SHOW(window);
    ASSERT_TRUE(comesIntoView(&velt::as<NSWindow>(window)->widget()));
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window));
    listener->heard.clear();
    listener->allowed = false;
    velt::as<NSWindow>(window)->widget().close();
    EXPECT_EQ("should ", std::exchange(listener->heard, ""));
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window));
    listener->allowed = true;
    velt::as<NSWindow>(window)->widget().close();
    EXPECT_EQ("should will ", std::exchange(listener->heard, ""));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(window));
    VELT_NSWINDOW_CLOSE(window);  // a closed window is a safe object
    VELT_NSWINDOW_SHOW(window);
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(window));
    VELT_NSWINDOW_VISIBLE(window, VELT_ID(BOOL{0}));
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(window));
}

TEST(Windows, FollowTheScreenAfterAChangeOfABarHasRaised) {
    const Ref<NSWindow> window(velt::as<NSWindow>(VELT_NSWINDOW_INIT(nil, "")));
    VELT_NSWINDOW_FRAME(window, rect(50, 60, 200, 150));
    VELT_NSWINDOW_SHOW(window);
    ASSERT_TRUE(comesIntoView(&window->widget()));
    EXPECT_RAISES("BarException: no room",
                  window->changeBar([](QMainWindow&) { velt::raise("BarException", "no room"); }));
    window->widget().resize(260, 190);
    QApplication::processEvents();
    EXPECT_EQ(260, window->frame().size.width);
    VELT_NSWINDOW_CLOSE(window);
}

TEST(Views, GetTheMouseAndTheKeysInTheirOwnCoordinates) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, frame(50, 60, 200, 122));
    const Ref<Board> board = velt::make<Board>();
    board->setFrame({{20, 10}, {100, 50}});
    VELT_NSWINDOW_APPEND(window, board);
    VELT_NSWINDOW_SHOW(window);
    ASSERT_TRUE(comesIntoView(&velt::as<NSWindow>(window)->widget()));
    EXPECT_LT(0, board->drawn);
    EXPECT_EQ(QRect(20, 40, 100, 50), board->widget().geometry());  // from the content's upper left corner
    QTest::mouseClick(&board->widget(), Qt::LeftButton, {}, QPoint(5, 8));
    EXPECT_EQ("down 5,42 ", std::exchange(board->heard, ""));
    EXPECT_VALUE("c 1", VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, board));
    QTest::keyClick(&board->widget(), Qt::Key_A);
    EXPECT_EQ("key a ", board->heard);
}

TEST(Views, ConvertTheirOwnBoundsToTheWindowsCoordinatesAndBack) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, frame(50, 60, 200, 122));
    const id content = velt::as<NSWindow>(window)->contentView();
    NSView& view = *velt::as<NSView>(content);
    view.setBounds({{10, 20}, {100, 50}});
    EXPECT_EQ((NSPoint{0, 0}), view.convertPointToView({10, 20}, nullptr));
    EXPECT_EQ((NSPoint{200, 100}), view.convertPointToView({110, 70}, nullptr));
    EXPECT_EQ((NSPoint{60, 45}), view.convertPointFromView({100, 50}, nullptr));
    const Ref<NSView> inner = velt::make<NSView>(NSRect{{10, 20}, {30, 30}});
    view.addSubview(inner.get());
    EXPECT_EQ((NSPoint{2, 4}), inner->convertPointToView({1, 2}, nullptr));
    EXPECT_EQ((NSPoint{1, 2}), inner->convertPointFromView({2, 4}, nullptr));
}

TEST(Views, PassOverHiddenGroupsOnTheKeyboardsWay) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, frame(50, 60, 200, 122));
    const Ref<NSView> group = velt::make<NSView>(NSRect{{0, 0}, {200, 50}});
    const Ref<Board> first = velt::make<Board>(), hidden = velt::make<Board>(), last = velt::make<Board>();
    for (Board* board : {first.get(), hidden.get(), last.get()}) board->setFrame({{0, 0}, {50, 20}});
    group->addSubview(hidden.get());
    for (const id& view : {id(first), id(group), id(last)}) VELT_NSWINDOW_APPEND(window, view);
    VELT_NSWINDOW_SHOW(window);
    ASSERT_TRUE(comesIntoView(&velt::as<NSWindow>(window)->widget()));
    first->setNextKeyView(hidden.get());
    hidden->setNextKeyView(last.get());
    group->setHidden(true);
    EXPECT_FALSE(hidden->isHidden());
    EXPECT_TRUE(hidden->isHiddenOrHasHiddenAncestor());
    NSWindow& shown = *velt::as<NSWindow>(window);
    EXPECT_TRUE(shown.makeFirstResponder(first));
    EXPECT_FALSE(shown.makeFirstResponder(hidden));
    shown.selectNextKeyView(nil);
    EXPECT_EQ(id(last), shown.firstResponder());
    VELT_NSWINDOW_CLOSE(window);
}

TEST(Views, ComeBehindTheLastViewThatWasGivenThemAsItsNext) {
    const Ref<NSView> first = velt::make<NSView>(), second = velt::make<NSView>(), next = velt::make<NSView>();
    first->setNextKeyView(next.get());
    second->setNextKeyView(next.get());
    EXPECT_EQ(id(second), next->previousKeyView());
    first->setNextKeyView(nullptr);
    EXPECT_EQ(id(second), next->previousKeyView());
    second->setNextKeyView(nullptr);
    EXPECT_VALUE("nil", next->previousKeyView());
}

TEST(Windows, LoseTheirColourAndTheirIcon) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    const QWidget& widget = velt::as<NSWindow>(window)->widget();
    const QColor usual = widget.palette().color(QPalette::Window);
    velt::send(window, "setBackgroundColor:", id(NSColor::deviceRgb(1, 0, 0, 1)));
    EXPECT_EQ(QColor(Qt::red), widget.palette().color(QPalette::Window));
    velt::send(window, "setBackgroundColor:", nil);
    EXPECT_EQ(usual, widget.palette().color(QPalette::Window));
    QImage icon(16, 16, QImage::Format_RGB32);
    icon.fill(Qt::red);
    velt::send(window, "setDocumentIcon:", velt::make<NSImage>(icon));
    EXPECT_TRUE(widget.testAttribute(Qt::WA_SetWindowIcon));
    velt::send(window, "setDocumentIcon:", nil);
    EXPECT_FALSE(widget.testAttribute(Qt::WA_SetWindowIcon));
}

TEST(Views, FollowTheirSuperviewsSize) {
    const Ref<NSView> outer = velt::make<NSView>(NSRect{{0, 0}, {100, 100}});
    const Ref<NSView> inner = velt::make<NSView>(NSRect{{10, 20}, {50, 30}});
    outer->addSubview(inner.get());
    inner->setAutoresizingMask(velt::kWidthSizable | velt::kMinYMargin);
    outer->setFrameSize({140, 150});
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{10, 70}, {90, 30}}", VELT_ID(inner->frame()));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSView' addSubview:: the view lies within the other one",
                  inner->addSubview(outer.get()));
}

TEST(FirstResponderActions, GoToWhoeverAnswersThem) {
    EXPECT_CAST_FAILURE("'String' expected", VELT_FIRSTRESPONDER_SENDACTION(nil, VELT_ID(5L)));
    EXPECT_VALUE("c 0", VELT_FIRSTRESPONDER_SENDACTION(nil, str("clear")));
    const Ref<WindowListener> listener = velt::make<WindowListener>();
    NSApplication::sharedApplication().setDelegate(listener);
    EXPECT_VALUE("c 1", VELT_FIRSTRESPONDER_SENDACTION(nil, str("clear")));
    EXPECT_VALUE("c 1", VELT_FIRSTRESPONDER_SENDACTION2(nil, str("clear:"), str("me")));
    EXPECT_EQ("clear clear-from ", std::exchange(listener->heard, ""));
    // A colon anywhere makes it a whole name.
    EXPECT_VALUE("c 0", VELT_FIRSTRESPONDER_SENDACTION(nil, str("clear:more")));
    EXPECT_EQ("", listener->heard);
    NSApplication::sharedApplication().setDelegate(nil);
}

TEST(ProgramsWithWindows, SayInOneSentenceThatThereIsNoDisplay) {
    const EnvironmentVariable display("DISPLAY", std::nullopt), wayland("WAYLAND_DISPLAY", std::nullopt),
        platform("QT_QPA_PLATFORM", std::nullopt);
    ProgramResult result = runProgram("window");
    EXPECT_EQ("before\n", result.output);
    EXPECT_EQ(
        "window: this program shows windows, and there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.\n",
        result.errors);
    EXPECT_EQ(1, result.status);
    const EnvironmentVariable offscreen("QT_QPA_PLATFORM", "offscreen");
    result = runProgram("window");
    EXPECT_EQ("before\nshown\n", result.output);
    EXPECT_EQ(0, result.status);
}

TEST(DroppedWindows, LeaveNothingBehind) {
    velt::collectCycles();
    velt::RunLoop::current().runOnce(0.01);
    const qsizetype before = QApplication::topLevelWidgets().size();
    for (int i = 0; i < 50; ++i) {
        const Ref<NSWindow> window = velt::make<NSWindow>();
        const Ref<Board> board = velt::make<Board>();
        window->contentView();
        VELT_NSWINDOW_APPEND(window, board);
        window->setDelegate(window);      // a circle
        board->setNextResponder(window);  // and another one
        board->setNextKeyView(board.get());
        VELT_NSWINDOW_SHOW(window);
        VELT_NSWINDOW_CLOSE(window);
    }
    EXPECT_EQ(150u, velt::collectCycles());  // window, content view and board of each
    velt::RunLoop::current().runOnce(0.01);
    EXPECT_EQ(before, QApplication::topLevelWidgets().size());
}
