// Drawers at every edge, and windows that expand.
#include "panels_support.h"
#include "support/patience.h"

using namespace velt::test;
using velt::Ref;

namespace {

struct DrawerListener : public NSObject {
    VELT_OBJECT(DrawerListener, NSObject)

public:
    bool drawerShouldOpen(const id&) { return allowed; }
    bool drawerShouldClose(const id&) { return allowed; }
    void willOpen(const id&) { heard += "willOpen "; }
    void didOpen(const id&) { heard += "didOpen "; }
    void willClose(const id&) { heard += "willClose "; }
    void didClose(const id&) { heard += "didClose "; }
    static void describe(velt::ClassBuilder<DrawerListener>& c) {
        c.method("drawerShouldOpen:", &DrawerListener::drawerShouldOpen)
            .method("drawerShouldClose:", &DrawerListener::drawerShouldClose)
            .method("drawerWillOpen:", &DrawerListener::willOpen)
            .method("drawerDidOpen:", &DrawerListener::didOpen)
            .method("drawerWillClose:", &DrawerListener::willClose)
            .method("drawerDidClose:", &DrawerListener::didClose);
    }
    std::string heard;
    bool allowed = true;
};

/// A window with a drawer, in the middle of the screen.
struct DrawerWindow : ControlWindow {
    explicit DrawerWindow(NSRect frame = {{250, 250}, {240, 182}}) : ControlWindow(frame) {
        VELT_NSDRAWER_PARENTWINDOW(drawer, window);
        show();
    }
    ~DrawerWindow() { VELT_NSDRAWER_PARENTWINDOW(drawer, nil); }
    DrawerWindow(const DrawerWindow&) = delete;
    DrawerWindow& operator=(const DrawerWindow&) = delete;

    NSDrawer& object() const { return *velt::as<NSDrawer>(drawer); }
    bool reaches(long state) const {
        return comesTrue([&] { return object().state() == state; });
    }
    NSWindow& drawerWindow() const { return *velt::as<NSWindow>(velt::as<NSView>(object().contentView())->window()); }
    std::string drawerFrame() const { return velt::test::show(VELT_ID(drawerWindow().frame())); }

    id drawer = VELT_NSDRAWER_INIT(nil, "ignored");
};

/// Rectangles as a test shows them.
std::string box(double x, double y, double width, double height) { return show(rect(x, y, width, height)); }
std::string frameOf(const id& window) { return show(VELT_NSWINDOW_FRAME(window)); }

}  // namespace

TEST(Drawers, AreMadeAHundredByAHundredAtTheRightEdge) {
    const id drawer = VELT_NSDRAWER_INIT(nil, "ignored");
    EXPECT_VALUE("q 2", velt::send(drawer, "preferredEdge"));
    EXPECT_EQ(show(size(100, 100)), show(velt::send(drawer, "contentSize")));
    EXPECT_VALUE("q 0", velt::send(drawer, "state"));
    EXPECT_TRUE(VELT_NSDRAWER_PARENTWINDOW(drawer).isNil());
    EXPECT_EQ(drawer, VELT_CNSDRAWER(drawer));
}

TEST(Drawers, AreExpectedByTheirFunctions) {
    for (const id& other : {id(), "drawer"_v, VELT_NSWINDOW_INIT(nil, "")}) {
        EXPECT_CAST_FAILURE("'NSDrawer' expected", VELT_BEGINDRAWER(other));
        EXPECT_CAST_FAILURE("'NSDrawer' expected", VELT_ENDDRAWER(other));
    }
    EXPECT_CAST_FAILURE("'NSWindow' expected", VELT_NSDRAWER_PARENTWINDOW(VELT_NSDRAWER_INIT(nil, ""), "window"_v));
    EXPECT_TRUE(VELT_NSDRAWER_TOGGLE(nil).isNil());
    EXPECT_TRUE(VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW(nil).isNil());
}

TEST(Drawers, SlideOutAndBack) {
    const DrawerWindow window;
    const Ref<DrawerListener> delegate = velt::make<DrawerListener>();
    window.object().setDelegate(delegate);
    EXPECT_TRUE(VELT_BEGINDRAWER(window.drawer).isNil());
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    EXPECT_TRUE(window.drawerWindow().isVisible());
    EXPECT_EQ(box(490, 250, 100, 160), window.drawerFrame());
    keepPicture(window.drawerWindow().widget(), "drawer");
    EXPECT_TRUE(VELT_ENDDRAWER(window.drawer).isNil());
    ASSERT_TRUE(window.reaches(NSDrawer::Closed));
    EXPECT_FALSE(window.drawerWindow().isVisible());
    EXPECT_EQ("willOpen didOpen willClose didClose ", delegate->heard);
}

TEST(Drawers, OpenAndCloseByTurns) {
    const DrawerWindow window;
    VELT_NSDRAWER_TOGGLE(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    VELT_NSDRAWER_TOGGLE(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Closed));
    // In the middle of it they turn round.
    VELT_NSDRAWER_TOGGLE(window.drawer);
    VELT_NSDRAWER_TOGGLE(window.drawer);
    VELT_NSDRAWER_TOGGLE(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
}

TEST(Drawers, AskTheirDelegate) {
    const DrawerWindow window;
    const Ref<DrawerListener> delegate = velt::make<DrawerListener>();
    window.object().setDelegate(delegate);
    delegate->allowed = false;
    VELT_BEGINDRAWER(window.drawer);
    EXPECT_EQ(NSDrawer::Closed, window.object().state());
    delegate->allowed = true;
    VELT_BEGINDRAWER(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    delegate->allowed = false;
    VELT_ENDDRAWER(window.drawer);
    EXPECT_EQ(NSDrawer::Open, window.object().state());
    EXPECT_EQ("willOpen didOpen ", delegate->heard);
}

TEST(Drawers, LieAtTheEdgeTheyAreOpenedOn) {
    const DrawerWindow window;
    const std::pair<long, std::string> places[] = {{0, box(150, 250, 100, 160)},
                                                   {1, box(250, 150, 240, 100)},
                                                   {2, box(490, 250, 100, 160)},
                                                   {3, box(250, 432, 240, 100)}};
    for (const auto& [edge, place] : places) {
        velt::send(window.drawer, "openOnEdge:", integer(edge));
        ASSERT_TRUE(window.reaches(NSDrawer::Open));
        EXPECT_EQ(edge, window.object().edge());
        EXPECT_EQ(place, window.drawerFrame()) << edge;
        VELT_ENDDRAWER(window.drawer);
        ASSERT_TRUE(window.reaches(NSDrawer::Closed));
    }
    velt::send(window.drawer, "openOnEdge:", integer(4));
    EXPECT_EQ(NSDrawer::Closed, window.object().state());
}

TEST(Drawers, OpenAcrossWhereTheScreenEnds) {
    const DrawerWindow window;
    const NSRect screen = VELT_CNSRECT(VELT_SCREENRECT());
    const auto right = screen.origin.x + screen.size.width, top = screen.origin.y + screen.size.height;
    const std::tuple<long, NSPoint, long> cases[] = {{0, {screen.origin.x, 250}, 2},
                                                     {1, {250, screen.origin.y}, 3},
                                                     {2, {right - 240, 250}, 0},
                                                     {3, {250, top - 182}, 1}};
    for (const auto& [preferred, origin, expected] : cases) {
        VELT_NSWINDOW_MOVE(window.window, VELT_ID(origin));
        QApplication::processEvents();
        velt::send(window.drawer, "setPreferredEdge:", integer(preferred));
        VELT_BEGINDRAWER(window.drawer);
        ASSERT_TRUE(window.reaches(NSDrawer::Open));
        EXPECT_EQ(expected, window.object().edge()) << preferred;
        VELT_ENDDRAWER(window.drawer);
        ASSERT_TRUE(window.reaches(NSDrawer::Closed));
    }
}

TEST(Drawers, FollowTheirWindow) {
    const DrawerWindow window;
    VELT_BEGINDRAWER(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    VELT_NSWINDOW_MOVE(window.window, point(200, 220));
    EXPECT_EQ(box(440, 220, 100, 160), window.drawerFrame());
    VELT_NSWINDOW_FRAME(window.window, rect(200, 220, 300, 222));
    EXPECT_EQ(box(500, 220, 100, 200), window.drawerFrame());
    VELT_NSWINDOW_HIDE(window.window);
    EXPECT_FALSE(window.drawerWindow().isVisible());
    VELT_NSWINDOW_SHOW(window.window);
    EXPECT_TRUE(window.drawerWindow().isVisible());
    window.object().setContentSize({140, 50});
    EXPECT_EQ(box(500, 220, 140, 200), window.drawerFrame());
    window.object().setLeadingOffset(30);
    window.object().setTrailingOffset(20);
    EXPECT_EQ(box(500, 240, 140, 150), window.drawerFrame());
}

TEST(Drawers, ShowTheirViewInItsFullSize) {
    const DrawerWindow window;
    const Ref<NSView> view = velt::make<NSView>();
    velt::send(window.drawer, "setContentView:", view);
    EXPECT_EQ(id(view), window.object().contentView());
    VELT_BEGINDRAWER(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    EXPECT_EQ(box(0, 0, 100, 160), show(VELT_NSVIEW_FRAME(view)));
    EXPECT_EQ(&window.drawerWindow(), velt::as<NSWindow>(view->window()));
}

TEST(Drawers, AreWorkedWhileTheirWindowIs) {
    const DrawerWindow window;
    const id button = VELT_PUSHBUTTON_INIT(window.listener, "click:");
    VELT_NSBUTTON_TITLE(button, "Within"_v);
    VELT_NSVIEW_FRAME(button, rect(10, 10, 80, 30));
    velt::send(window.object().contentView(), "addSubview:", button);
    VELT_BEGINDRAWER(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    clickAt(velt::as<NSView>(button)->widget());
    EXPECT_EQ("Within ", window.heard());
}

TEST(Drawers, NeedAWindow) {
    const id drawer = VELT_NSDRAWER_INIT(nil, "");
    VELT_BEGINDRAWER(drawer);
    EXPECT_VALUE("q 0", velt::send(drawer, "state"));
}

TEST(Drawers, CloseWhenTheyAreGivenAnotherWindow) {
    const ControlWindow other;
    const DrawerWindow window;
    VELT_BEGINDRAWER(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    VELT_NSDRAWER_PARENTWINDOW(window.drawer, other.window);
    EXPECT_EQ(other.window, VELT_NSDRAWER_PARENTWINDOW(window.drawer));
    EXPECT_EQ(NSDrawer::Closed, window.object().state());
    EXPECT_FALSE(window.drawerWindow().isVisible());
}

TEST(DrawersThatResizeTheirWindow, OpenOnTheRightWhereThereIsRoom) {
    const DrawerWindow window;
    velt::send(window.drawer, "setPreferredEdge:", integer(0));
    EXPECT_TRUE(VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW(window.drawer).isNil());
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    EXPECT_EQ(2, window.object().edge());
    EXPECT_EQ(box(250, 250, 240, 182), frameOf(window.window));
    VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Closed));
}

TEST(DrawersThatResizeTheirWindow, TakeTheExcessFromItsWidth) {
    const DrawerWindow window;
    const NSRect screen = VELT_CNSRECT(VELT_SCREENRECT());
    const double x = screen.size.width - 300;
    VELT_NSWINDOW_FRAME(window.window, rect(x, 250, 240, 182));
    QApplication::processEvents();
    VELT_NSDRAWER_TOGGLERIGHTRESIZINGWINDOW(window.drawer);
    ASSERT_TRUE(window.reaches(NSDrawer::Open));
    EXPECT_EQ(box(x, 250, 200, 182), frameOf(window.window));
    EXPECT_EQ(box(x + 200, 250, 100, 160), window.drawerFrame());
}

TEST(ExpandingWindows, GrowDownwardByTheViewsHeight) {
    const ControlWindow window({{200, 300}, {240, 180}});
    window.show();
    const id view = VELT_PUSHBUTTON_INIT(nil, "");
    VELT_NSVIEW_FRAME(view, rect(30, 40, 200, 60));
    EXPECT_TRUE(VELT_BEGINEXPANDING(view, window.window).isNil());
    EXPECT_EQ(box(200, 240, 240, 240), frameOf(window.window));
    EXPECT_EQ(box(0, 0, 200, 60), show(VELT_NSVIEW_FRAME(view)));
    EXPECT_EQ(VELT_NSWINDOW_CONTENTVIEW(window.window), velt::send(view, "superview"));
    EXPECT_VALUE("c 0", velt::send(view, "isHidden"));
    EXPECT_TRUE(VELT_ENDEXPANDING(view, window.window).isNil());
    EXPECT_EQ(box(200, 300, 240, 180), frameOf(window.window));
    EXPECT_TRUE(velt::send(view, "superview").isNil());
}

TEST(ExpandingWindows, StayAsTheyAreWithoutAView) {
    const ControlWindow window({{200, 300}, {240, 180}});
    window.show();
    VELT_BEGINEXPANDING(nil, window.window);
    EXPECT_EQ(box(200, 300, 240, 180), frameOf(window.window));
    VELT_ENDEXPANDING(nil, window.window);
    EXPECT_EQ(box(200, 300, 240, 180), frameOf(window.window));
}

TEST(ExpandingWindows, MayBeNil) {
    const id view = VELT_PUSHBUTTON_INIT(nil, "");
    VELT_NSVIEW_FRAME(view, rect(30, 40, 200, 60));
    EXPECT_TRUE(VELT_BEGINEXPANDING(view, nil).isNil());
    EXPECT_EQ(box(0, 0, 200, 60), show(VELT_NSVIEW_FRAME(view)));
    EXPECT_TRUE(VELT_ENDEXPANDING(view, nil).isNil());
    EXPECT_TRUE(VELT_ENDEXPANDING(nil, nil).isNil());
}
