// Boxes, tab views, split views and progress indicators, worked with the mouse and the keyboard.
#include "support/direction.h"
#include "support/values.h"
#include "windows/containers_support.h"

#include "VELTRuntime/platform/object/cycles.h"

#include <QProgressBar>
#include <QTabBar>

using namespace velt::test;
using velt::Ref;

namespace {

/// Answers a tab view's questions and remembers what it was told.
class TabListener : public NSObject {
    VELT_OBJECT(TabListener, NSObject)

public:
    bool shouldSelect(const id&, NSTabViewItem* item) { return velt::utf8(item->label()) != refused; }
    void willSelect(const id&, NSTabViewItem* item) { heard += "will " + velt::utf8(item->label()) + " "; }
    void didSelect(const id&, NSTabViewItem* item) { heard += "did " + velt::utf8(item->label()) + " "; }
    void countChanged(const id&) { heard += "count "; }
    static void describe(velt::ClassBuilder<TabListener>& c) {
        c.method("tabView:shouldSelectTabViewItem:", &TabListener::shouldSelect)
            .method("tabView:willSelectTabViewItem:", &TabListener::willSelect)
            .method("tabView:didSelectTabViewItem:", &TabListener::didSelect)
            .method("tabViewDidChangeNumberOfTabViewItems:", &TabListener::countChanged);
    }
    std::string heard, refused;
};

/// Limits the dividers of a split view.
class SplitListener : public NSObject {
    VELT_OBJECT(SplitListener, NSObject)

public:
    double least(const id&, double, long) { return 50; }
    double most(const id&, double proposed, long) { return proposed - 60; }
    bool canCollapse(const id&, const id&) { return collapses; }
    void didResize(const id&) { ++resized; }
    static void describe(velt::ClassBuilder<SplitListener>& c) {
        c.method("splitView:constrainMinCoordinate:ofSubviewAt:", &SplitListener::least)
            .method("splitView:constrainMaxCoordinate:ofSubviewAt:", &SplitListener::most)
            .method("splitView:canCollapseSubview:", &SplitListener::canCollapse)
            .method("splitViewDidResizeSubviews:", &SplitListener::didResize);
    }
    bool collapses = false;
    int resized = 0;
};

/// Takes a view out of where it is as soon as the panes of a split view have changed.
class PaneTaker : public NSObject {
    VELT_OBJECT(PaneTaker, NSObject)

public:
    void didResize(const id&) {
        const id taken = std::exchange(pane, nil);
        if (!taken.isNil()) velt::as<NSView>(taken)->removeFromSuperview();
    }
    static void describe(velt::ClassBuilder<PaneTaker>& c) {
        c.method("splitViewDidResizeSubviews:", &PaneTaker::didResize);
    }
    id pane;
};

/// Raises as soon as the panes of a split view have changed.
class PaneCritic : public NSObject {
    VELT_OBJECT(PaneCritic, NSObject)

public:
    void didResize(const id&) { velt::raise("PaneException", "too narrow"); }
    static void describe(velt::ClassBuilder<PaneCritic>& c) {
        c.method("splitViewDidResizeSubviews:", &PaneCritic::didResize);
    }
};

Ref<NSTabView> tabs(const std::vector<std::string>& labels) {
    const Ref<NSTabView> view(velt::as<NSTabView>(VELT_NSTABVIEW_INIT(nil, "")));
    for (const std::string& label : labels) {
        const Ref<NSTabViewItem> item = velt::make<NSTabViewItem>(str(label));
        item->setLabel(str(label));
        view->addTabViewItem(item.get());
    }
    return view;
}

QTabBar& barOf(NSTabView& view) { return *view.widget().findChild<QTabBar*>(); }

std::string selected(NSTabView& view) {
    return velt::utf8(velt::as<NSTabViewItem>(view.selectedTabViewItem())->label());
}

Ref<NSSplitView> panes(std::size_t count, NSSize size, bool vertical) {
    const Ref<NSSplitView> view(velt::as<NSSplitView>(vertical ? VELT_VERTICALSPLITVIEW_INIT(nil, "")
                                                               : VELT_HORIZONTALSPLITVIEW_INIT(nil, "")));
    for (std::size_t i = 0; i < count; ++i) view->addSubview(velt::make<NSView>().get());
    view->setFrame({{0, 0}, size});
    return view;
}

std::string frames(NSView& view) {
    std::string text;
    for (const Ref<NSView>& subview : view.subviewList())
        text += velt::utf8(VELT_CSTRING(VELT_ID(subview->frame()))) + " ";
    return text;
}

}  // namespace

// Boxes.

TEST(Boxes, AreMadeAlikeByAllTheirConstructors) {
    for (const auto make : {VELT_NSBOX_INIT, VELT_VERTICALLINE_INIT, VELT_HORIZONTALLINE_INIT}) {
        const id box = make(nil, "clicked:");
        EXPECT_VALUE("Q 0", VELT_NSBOX_BOXTYPE(box));
        EXPECT_VALUE("Q 3", VELT_NSBOX_BORDERTYPE(box));
        EXPECT_VALUE("'Title'", VELT_NSBOX_TITLE(box));
        EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", VELT_NSVIEW_FRAME(box));
    }
}

TEST(Boxes, PutWhatTheyAreGivenIntoTheirContentView) {
    const id box = VELT_NSBOX_INIT(nil, "");
    VELT_NSVIEW_FRAME(box, rect(0, 0, 200, 100));
    const Ref<NSView> view = velt::make<NSView>(NSRect{{0, 0}, {20, 20}});
    VELT_NSVIEW_APPEND(box, view);
    EXPECT_EQ(velt::send(box, "contentView"), view->superview());
    const NSRect content = VELT_CNSRECT(VELT_NSVIEW_FRAME(velt::send(box, "contentView")));
    EXPECT_GT(200, content.size.width);
    EXPECT_LT(180, content.size.width);
    EXPECT_GT(100 - content.size.height, 200 - content.size.width);  // the title takes room too
    velt::send(box, "setTitlePosition:", integer(0));
    velt::send(box, "setBorderType:", integer(0));
    velt::send(box, "setContentViewMargins:", size(0, 0));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {200, 100}}",
                 VELT_NSVIEW_FRAME(velt::send(box, "contentView")));
}

TEST(Boxes, TakeAnotherContentView) {
    const id box = VELT_NSBOX_INIT(nil, "");
    VELT_NSVIEW_FRAME(box, rect(0, 0, 200, 100));
    const id before = velt::send(box, "contentView");
    const NSRect place = velt::as<NSView>(before)->frame();
    const Ref<NSView> other = velt::make<NSView>(), view = velt::make<NSView>();
    velt::send(box, "setContentView:", other);
    EXPECT_EQ(id(other), velt::send(box, "contentView"));
    EXPECT_EQ(box, other->superview());
    EXPECT_EQ(place, other->frame());
    EXPECT_TRUE(velt::as<NSView>(before)->superview().isNil());
    VELT_NSVIEW_APPEND(box, view);
    EXPECT_EQ(id(other), view->superview());
    other->removeFromSuperview();
    EXPECT_VALUE("nil", velt::send(box, "contentView"));
}

TEST(Boxes, AreSizedByTheirContent) {
    const id box = VELT_NSBOX_INIT(nil, "");
    VELT_NSVIEW_APPEND(box, velt::make<NSView>(NSRect{{10, 10}, {120, 60}}));
    velt::send(box, "sizeToFit");
    const NSRect content = VELT_CNSRECT(VELT_NSVIEW_FRAME(velt::send(box, "contentView")));
    EXPECT_EQ((NSSize{130, 70}), content.size);
}

TEST(Boxes, AreDrawnAsTheirTypeSays) {
    const id box = VELT_NSBOX_INIT(nil, "");
    VELT_NSVIEW_FRAME(box, rect(0, 0, 60, 40));
    VELT_NSBOX_BOXTYPE(box, integer(4));
    velt::send(box, "setTitlePosition:", integer(0));
    velt::send(box, "setBorderWidth:", integer(4));
    velt::send(box, "setBorderColor:", id(NSColor::deviceRgb(0, 0, 1, 1)));
    VELT_NSBOX_FILLCOLOR(box, NSColor::deviceRgb(1, 0, 0, 1));
    QImage seen = picture(box);
    EXPECT_EQ(QColor(Qt::blue), seen.pixelColor(1, 1));
    EXPECT_EQ(QColor(Qt::blue), seen.pixelColor(58, 38));
    EXPECT_EQ(QColor(Qt::red), seen.pixelColor(30, 20));
    velt::send(box, "setTransparent:", boolean(true));
    seen = picture(box);
    EXPECT_NE(QColor(Qt::red), seen.pixelColor(30, 20));
}

TEST(Boxes, AreLinesUprightWhenHigherThanWide) {
    const id box = VELT_VERTICALLINE_INIT(nil, "");
    VELT_NSBOX_BOXTYPE(box, integer(2));
    VELT_NSVIEW_FRAME(box, rect(0, 0, 11, 60));
    const auto dark = [&](int x, int y) { return picture(box).pixel(x, y) != picture(box).pixel(0, 0); };
    EXPECT_TRUE(dark(5, 1));
    EXPECT_TRUE(dark(5, 58));
    EXPECT_FALSE(dark(0, 30));
    VELT_NSVIEW_FRAME(box, rect(0, 0, 60, 11));
    EXPECT_TRUE(dark(1, 5));
    EXPECT_TRUE(dark(58, 5));
    EXPECT_FALSE(dark(30, 0));
}

// Tab views.

TEST(TabViews, ShowTheItemThatIsChosen) {
    const Direction leftToRight(Qt::LeftToRight);
    const Ref<NSTabView> view = tabs({"One", "Two", "Three"});
    EXPECT_EQ("One", selected(*view));
    const Shown window(view, {300, 200});
    const auto firstPage = view->subviewList().front();
    VELT_NSTABVIEW_SELECT(view, integer(2));
    EXPECT_EQ("Three", selected(*view));
    ASSERT_EQ(1u, view->subviewList().size());
    EXPECT_NE(firstPage.get(), view->subviewList().front().get());
    EXPECT_EQ(VELT_CNSRECT(VELT_ID(view->contentRect())), view->subviewList().front()->frame());
    EXPECT_TRUE(firstPage->superview().isNil());
    QTabBar& bar = barOf(*view);
    EXPECT_EQ(2, bar.currentIndex());
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
    EXPECT_EQ("Two", selected(*view));
    QTest::keyClick(&bar, Qt::Key_Right);
    EXPECT_EQ("Three", selected(*view));
    QTest::keyClick(&bar, Qt::Key_Home);
    EXPECT_EQ("One", selected(*view));
    QTest::keyClick(&bar, Qt::Key_End);
    EXPECT_EQ("Three", selected(*view));
}

TEST(TabViews, AskAndTellTheirDelegate) {
    const Ref<NSTabView> view = tabs({"One", "Two", "Three"});
    const Ref<TabListener> listener = velt::make<TabListener>();
    view->setDelegate(listener);
    const Shown window(view, {300, 200});
    QTabBar& bar = barOf(*view);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(1).center());
    EXPECT_EQ("will Two did Two ", std::exchange(listener->heard, ""));
    listener->refused = "Three";
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(2).center());
    EXPECT_EQ("", std::exchange(listener->heard, ""));
    EXPECT_EQ(1, bar.currentIndex());
    EXPECT_EQ("Two", selected(*view));
    const Ref<NSTabViewItem> item = velt::make<NSTabViewItem>(nil);
    velt::send(view, "addTabViewItem:", id(item));
    EXPECT_EQ("count ", std::exchange(listener->heard, ""));
    EXPECT_EQ(4, bar.count());
    velt::send(view, "selectTabViewItemAtIndex:", integer(1));  // it is already
    EXPECT_EQ("", listener->heard);
}

TEST(TabViews, FindTheirItemsByIdentifier) {
    const Ref<NSTabView> view = tabs({"One", "Two"});
    velt::send(view, "selectTabViewItemWithIdentifier:", str("Two"));
    EXPECT_EQ("Two", selected(*view));
    EXPECT_VALUE("q 1", velt::send(view, "indexOfTabViewItemWithIdentifier:", str("Two")));
    EXPECT_VALUE("q -1", velt::send(view, "indexOfTabViewItemWithIdentifier:", str("Four")));
    EXPECT_RAISES(
        "NSRangeException: 'NSTabView' selectTabViewItemWithIdentifier:: index -1 is out of range; the count is 2",
        velt::send(view, "selectTabViewItemWithIdentifier:", str("Four")));
    for (const int index : {2, -1}) {
        EXPECT_RAISES("NSRangeException: 'NSTabView' selectTabViewItemAtIndex:: index " + std::to_string(index) +
                          " is out of range; the count is 2",
                      VELT_NSTABVIEW_SELECT(view, integer(index)));
    }
    EXPECT_EQ("Two", selected(*view));
}

TEST(TabViews, LoseTheirItems) {
    const Ref<NSTabView> view = tabs({"One", "Two", "Three"});
    const Shown window(view, {300, 200});
    velt::send(view, "selectTabViewItemAtIndex:", integer(1));
    velt::send(view, "removeTabViewItem:", view->selectedTabViewItem());
    EXPECT_EQ("Three", selected(*view));
    velt::send(view, "removeTabViewItem:", view->selectedTabViewItem());
    EXPECT_EQ("One", selected(*view));
    velt::send(view, "removeTabViewItem:", view->selectedTabViewItem());
    EXPECT_TRUE(view->selectedTabViewItem().isNil());
    EXPECT_TRUE(view->subviewList().empty());
    EXPECT_EQ(0, barOf(*view).count());
    velt::send(view, "selectLastTabViewItem:", nil);
}

TEST(TabViews, HaveTheirTabsWhereTheirTypeSays) {
    const Ref<NSTabView> view = tabs({"One", "Two"});
    const Shown window(view, {300, 200});
    const auto bar = [&] { return barOf(*view).geometry(); };
    EXPECT_EQ(0, bar().top());
    EXPECT_GT(10, view->contentRect().origin.y);
    view->setTabViewType(2);
    EXPECT_EQ(199, bar().bottom());
    EXPECT_LT(10, view->contentRect().origin.y);
    view->setTabViewType(1);
    EXPECT_EQ(0, bar().left());
    EXPECT_LT(10, view->contentRect().origin.x);
    view->setTabViewType(3);
    EXPECT_EQ(299, bar().right());
    view->setTabViewType(6);
    EXPECT_FALSE(barOf(*view).isVisible());
    EXPECT_EQ((NSRect{{0, 0}, {300, 200}}), view->contentRect());
    EXPECT_FALSE(view->acceptsFirstResponder());
}

TEST(TabViews, TurnPagesWithControlAndTab) {
    const Ref<NSTabView> view = tabs({"One", "Two", "Three"});
    const Shown window(view, {300, 200});
    window.window().makeFirstResponder(view);
    EXPECT_EQ(id(view), window.window().firstResponder());
    QTest::keyClick(&barOf(*view), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ("Two", selected(*view));
    QTest::keyClick(&barOf(*view), Qt::Key_PageUp, Qt::ControlModifier);
    QTest::keyClick(&barOf(*view), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ("Three", selected(*view));
}

// Split views.

TEST(SplitViews, ShareTheirRoomAmongTheirPanes) {
    EXPECT_EQ("{{0, 0}, {97, 100}} {{106, 0}, {97, 100}} {{212, 0}, {97, 100}} ", frames(*panes(3, {309, 100}, true)));
    EXPECT_EQ("{{0, 0}, {100, 50}} {{0, 59}, {100, 50}} ", frames(*panes(2, {100, 109}, false)));
    const Ref<NSSplitView> view = panes(2, {109, 100}, true);
    velt::send(view, "setPosition:ofDividerAtIndex:", integer(25), integer(0));
    EXPECT_EQ("{{0, 0}, {25, 100}} {{34, 0}, {75, 100}} ", frames(*view));
    view->setFrameSize({209, 80});  // in proportion
    EXPECT_EQ("{{0, 0}, {50, 80}} {{59, 0}, {150, 80}} ", frames(*view));
    view->setDividerStyle(2);
    EXPECT_EQ("{{0, 0}, {52, 80}} {{53, 0}, {156, 80}} ", frames(*view));
    view->setFrameSize({0, 0});
    EXPECT_EQ("{{0, 0}, {0, 0}} {{1, 0}, {0, 0}} ", frames(*view));
    EXPECT_RAISES(
        "NSRangeException: 'NSSplitView' setPosition:ofDividerAtIndex:: index 1 is out of range; the count is 1",
        velt::send(view, "setPosition:ofDividerAtIndex:", integer(25), integer(1)));
}

TEST(SplitViews, GiveTheRoomOfAHiddenPaneToTheOthers) {
    const Ref<NSSplitView> view = panes(3, {318, 100}, true);
    const id middle = view->subviewList()[1];
    VELT_NSVIEW_HIDE(middle);
    EXPECT_VALUE("c 1", velt::send(view, "isSubviewCollapsed:", middle));
    EXPECT_EQ((NSRect{{0, 0}, {155, 100}}), view->subviewList()[0]->frame());
    EXPECT_EQ((NSRect{{164, 0}, {154, 100}}), view->subviewList()[2]->frame());
    VELT_NSVIEW_SHOW(middle);
    VELT_NSVIEW_REMOVE(nil, middle);
    EXPECT_EQ(2u, view->subviewList().size());
    EXPECT_EQ(318, view->subviewList()[1]->frame().origin.x + view->subviewList()[1]->frame().size.width);
}

TEST(SplitViews, MayLoseAPaneWhileTheyAreResized) {
    const Ref<NSSplitView> outer = panes(0, {309, 100}, true), inner = panes(2, {100, 100}, false);
    const Ref<PaneTaker> taker = velt::make<PaneTaker>();
    outer->addSubview(inner.get());
    outer->addSubview(velt::make<NSView>().get());
    taker->pane = outer->subviewList()[1];
    inner->setDelegate(taker);
    outer->setFrameSize({209, 80});
    EXPECT_EQ(1u, outer->subviewList().size());
    outer->adjustSubviews();
    EXPECT_EQ("{{0, 0}, {209, 80}} ", frames(*outer));
    inner->setDelegate(nil);
}

TEST(SplitViews, GoOnSharingTheirRoomAfterAPaneHasRaised) {
    const Ref<NSSplitView> outer = panes(0, {309, 100}, true), inner = panes(2, {100, 100}, false);
    outer->addSubview(inner.get());
    outer->addSubview(velt::make<NSView>().get());
    inner->setDelegate(velt::make<PaneCritic>());
    EXPECT_RAISES("PaneException: too narrow", outer->setFrameSize({209, 80}));
    inner->setDelegate(nil);
    outer->adjustSubviews();
    EXPECT_EQ("{{0, 0}, {200, 80}} {{209, 0}, {0, 80}} ", frames(*outer));
}

TEST(SplitViews, LetTheirDividersBeDragged) {
    const Ref<NSSplitView> view = panes(2, {209, 100}, true);
    const Ref<SplitListener> listener = velt::make<SplitListener>();
    const Shown window(view, {209, 100});
    QWidget* divider = dividerOf(*view, 0);
    ASSERT_TRUE(divider);
    EXPECT_EQ(Qt::SplitHCursor, divider->cursor().shape());
    drag(divider, {4, 50}, {34, 60});
    EXPECT_EQ(130, view->positionOfDivider(0));
    EXPECT_EQ("{{0, 0}, {130, 100}} {{139, 0}, {70, 100}} ", frames(*view));
    drag(divider, {4, 50}, {900, 50});
    EXPECT_EQ(200, view->positionOfDivider(0));
    view->setDelegate(listener);
    drag(divider, {4, 50}, {-60, 50});
    EXPECT_EQ(136, view->positionOfDivider(0));
    drag(divider, {4, 50}, {-900, 50});
    EXPECT_EQ(50, view->positionOfDivider(0));
    listener->collapses = true;
    drag(divider, {4, 50}, {-900, 50});
    EXPECT_EQ(0, view->positionOfDivider(0));
    EXPECT_LT(0, listener->resized);
    view->setDelegate(nil);
    divider->setFocus();
    QTest::keyClick(divider, Qt::Key_Right);
    QTest::keyClick(divider, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(11, view->positionOfDivider(0));
    QTest::keyClick(divider, Qt::Key_End);
    EXPECT_EQ(200, view->positionOfDivider(0));
}

// Progress indicators.

TEST(ProgressIndicators, AreMadeAsTheirConstructorsSay) {
    const auto state = [](const id& view) {
        return show(velt::send(view, "isIndeterminate")) + " " + show(velt::send(view, "style")) + " " +
               (velt::as<NSProgressIndicator>(view)->isAnimating() ? "moving" : "still");
    };
    EXPECT_EQ("c 0 Q 0 still", state(VELT_NSPROGRESSINDICATOR_INIT(nil, "")));
    EXPECT_EQ("c 1 Q 0 moving", state(VELT_INDETERMINATEPROGRESSINDICATOR_INIT(nil, "")));
    EXPECT_EQ("c 1 Q 1 moving", state(VELT_CIRCULARPROGRESSINDICATOR_INIT(nil, "")));
    const id view = VELT_NSPROGRESSINDICATOR_INIT(nil, "");
    EXPECT_VALUE("d 0", VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(view));
    EXPECT_VALUE("d 0", VELT_NSPROGRESSINDICATOR_MINVALUE(view));
    EXPECT_VALUE("d 100", VELT_NSPROGRESSINDICATOR_MAXVALUE(view));
    EXPECT_TRUE(VELT_NSPROGRESSINDICATOR_STARTANIMATION(view, str("anybody")).isNil());
    EXPECT_TRUE(velt::as<NSProgressIndicator>(view)->isAnimating());
}

TEST(ProgressIndicators, ShowHowFarItHasCome) {
    const id view = VELT_NSPROGRESSINDICATOR_INIT(nil, "");
    VELT_NSVIEW_FRAME(view, rect(0, 0, 200, 20));
    const Shown window(view, {200, 20});
    const QProgressBar& bar = *velt::as<NSView>(view)->widget().findChild<QProgressBar*>();
    VELT_NSPROGRESSINDICATOR_MINVALUE(view, real(-1));
    VELT_NSPROGRESSINDICATOR_MAXVALUE(view, real(1));
    velt::send(view, "incrementBy:", real(0.5));
    EXPECT_VALUE("d 0.5", VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(view));
    EXPECT_EQ(7500, bar.value());
    VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(view, real(7));
    EXPECT_EQ(10000, bar.value());
    EXPECT_VALUE("d 7", VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(view));
    VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(view, real(std::nan("")));
    EXPECT_EQ(0, bar.value());
    VELT_NSPROGRESSINDICATOR_MAXVALUE(view, real(-5));  // no room between the limits
    EXPECT_EQ(0, bar.value());
    velt::send(view, "setIndeterminate:", boolean(true));
    velt::send(view, "startAnimation:", nil);
    EXPECT_EQ(0, bar.maximum());
    velt::send(view, "setDisplayedWhenStopped:", boolean(false));
    EXPECT_TRUE(bar.isVisible());
    velt::send(view, "stopAnimation:", nil);
    EXPECT_FALSE(bar.isVisible());
}

TEST(ProgressIndicators, TurnWhileTheyAreStarted) {
    const id view = VELT_CIRCULARPROGRESSINDICATOR_INIT(nil, "");
    VELT_NSVIEW_FRAME(view, rect(0, 0, 32, 32));
    const Shown window(view, {32, 32});
    const auto changes = [&] {
        const QImage before = picture(view);
        return QTest::qWaitFor([&] { return picture(view) != before; }, 500);
    };
    EXPECT_TRUE(changes());
    velt::send(view, "stopAnimation:", nil);
    EXPECT_FALSE(changes());
}

namespace {

/// Counts how many of it there are.
class Counted : public NSView {
    VELT_OBJECT(Counted, NSView)

public:
    Counted() { ++alive; }
    ~Counted() override { --alive; }
    inline static int alive = 0;
};

}  // namespace

TEST(DroppedContainers, LeaveNothingBehind) {
    for (int i = 0; i < 10; ++i) {
        const Ref<NSTabView> view = tabs({"One", "Two"});
        for (long at = 0; at < 2; ++at) {
            velt::as<NSTabViewItem>(view->tabViewItemAtIndex(at))->setView(velt::make<Counted>().get());
        }
        view->setDelegate(view);  // a circle
        const Ref<NSSplitView> split = panes(2, {100, 100}, true);
        split->addSubview(velt::make<Counted>().get());
        split->addSubview(view.get());
        split->setDelegate(split);
        const id scroll = VELT_NSSCROLLVIEW_INIT(nil, "");
        VELT_NSSCROLLVIEW_DOCUMENTVIEW(scroll, split);
        velt::as<NSScroller>(velt::send(scroll, "verticalScroller"))->setTarget(scroll);
        const id box = VELT_NSBOX_INIT(nil, "");
        VELT_NSVIEW_APPEND(box, velt::make<Counted>());
        velt::send(box, "setNextResponder:", box);
        const Shown window(scroll, {200, 200});
        VELT_NSVIEW_APPEND(scroll, box);
        EXPECT_LE(4, Counted::alive);
    }
    velt::collectCycles();
    EXPECT_EQ(0, Counted::alive);
    velt::RunLoop::current().runOnce(0.01);
    velt::collectCycles();
}
