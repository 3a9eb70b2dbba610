// Scroll views: what of a document is seen, and everything that moves it.
#include "support/values.h"
#include "windows/containers_support.h"

#include <QScrollBar>
#include <QtTest/qtestspontaneevent.h>

using namespace velt::test;
using velt::Ref;

namespace {

/// A document whose y points down.
class FlippedDocument : public NSView {
    VELT_OBJECT(FlippedDocument, NSView)

public:
    bool isFlipped() const override { return true; }
};

/// A document that is red in its lower left quarter, blue elsewhere, and hears clicks.
class Map : public NSView {
    VELT_OBJECT(Map, NSView)

public:
    void drawRect(NSRect) override {
        const NSSize size = bounds().size;
        velt::as<NSColor>(velt::send(NSColor::entry().object(), "blueColor"))->set();
        fill({{0, 0}, size});
        velt::as<NSColor>(velt::send(NSColor::entry().object(), "redColor"))->set();
        fill({{0, 0}, {size.width / 2, size.height / 2}});
    }
    void mouseDown(NSEvent* event) { clicked = convertPointFromView(event->locationInWindow(), nullptr); }
    static void describe(velt::ClassBuilder<Map>& c) { c.method("mouseDown:", &Map::mouseDown); }
    NSPoint clicked{-1, -1};

private:
    static void fill(NSRect rect) { velt::send(NSBezierPath::entry().object(), "fillRect:", VELT_ID(rect)); }
};

/// Takes the keyboard.
class KeyField : public NSView {
    VELT_OBJECT(KeyField, NSView)

public:
    bool acceptsFirstResponder() const override { return true; }
};

/// A document as wide as what shows it, which raises when it is to.
class RefusingDocument : public NSView {
    VELT_OBJECT(RefusingDocument, NSView)

public:
    RefusingDocument() { setAutoresizingMask(velt::kWidthSizable); }
    bool refuses = false;

protected:
    void sizeChanged(NSSize before) override {
        if (refuses) velt::raise("DocumentException", "wide enough");
        NSView::sizeChanged(before);
    }
};

/// Hears of a moved scroller.
class ScrollerListener : public NSObject {
    VELT_OBJECT(ScrollerListener, NSObject)

public:
    void moved(NSScroller* scroller) { value = scroller->doubleValue(); }
    static void describe(velt::ClassBuilder<ScrollerListener>& c) { c.method("moved:", &ScrollerListener::moved); }
    double value = -1;
};

Ref<NSScrollView> scrollView(const id& document, NSSize documentSize, NSSize size) {
    const Ref<NSScrollView> view(velt::as<NSScrollView>(VELT_NSSCROLLVIEW_INIT(nil, "")));
    view->setFrame({{0, 0}, size});
    velt::as<NSView>(document)->setFrame({{0, 0}, documentSize});
    VELT_NSSCROLLVIEW_DOCUMENTVIEW(view, document);
    return view;
}

std::string seen(const Ref<NSScrollView>& view) {
    return velt::utf8(VELT_CSTRING(velt::send(view, "documentVisibleRect")));
}

QScrollBar& bar(const Ref<NSScrollView>& view, const char* which) {
    return static_cast<QScrollBar&>(velt::as<NSView>(velt::send(view, which))->widget());
}

void wheel(QWidget& widget, QPoint delta) {
    const QPointF at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), {}, delta, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);  // as one of the desktop: only those go on to the views around
    qApp->notify(&widget, &event);
}

}  // namespace

TEST(ScrollViews, AreMadeWithoutScrollersAndDocument) {
    const id view = VELT_NSSCROLLVIEW_INIT(nil, "");
    EXPECT_VALUE("c 0", VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(view));
    EXPECT_VALUE("c 0", VELT_NSSCROLLVIEW_HASHORIZONTALSCROLLER(view));
    EXPECT_VALUE("c 0", VELT_NSSCROLLVIEW_AUTOHIDESSCROLLERS(view));
    EXPECT_VALUE("c 1", VELT_NSSCROLLVIEW_DRAWSBACKGROUND(view));
    EXPECT_TRUE(VELT_NSSCROLLVIEW_DOCUMENTVIEW(view).isNil());
    EXPECT_TRUE(velt::is<NSClipView>(VELT_NSSCROLLVIEW_CONTENTVIEW(view)));
}

TEST(ScrollViews, BeginAtTheLowerLeftCornerOrTheUpperOneOfAFlippedDocument) {
    EXPECT_EQ("{{0, 0}, {100, 80}}", seen(scrollView(velt::make<NSView>(), {300, 400}, {100, 80})));
    const Ref<FlippedDocument> flipped = velt::make<FlippedDocument>();
    const Ref<NSScrollView> view = scrollView(flipped, {300, 400}, {100, 80});
    const Shown window(view, {100, 80});
    EXPECT_EQ("{{0, 0}, {100, 80}}", seen(view));
    EXPECT_EQ(QPoint(0, 0), flipped->widget().pos());
    const Ref<NSView> plain = velt::make<NSView>();
    VELT_NSVIEW_FRAME(plain, rect(0, 0, 300, 400));
    VELT_NSSCROLLVIEW_DOCUMENTVIEW(view, plain);
    EXPECT_EQ(QPoint(0, 80 - 400), plain->widget().pos());
    EXPECT_TRUE(flipped->superview().isNil());
}

TEST(ScrollViews, KeepADocumentThatIsSmallerAtItsCorner) {
    const Ref<NSView> document = velt::make<NSView>();
    const Ref<NSScrollView> view = scrollView(document, {30, 40}, {100, 80});
    const Shown window(view, {100, 80});
    EXPECT_EQ(QRect(0, 40, 30, 40), document->widget().geometry());
    velt::send(document, "scrollPoint:", point(10, 10));
    EXPECT_EQ(QRect(0, 40, 30, 40), document->widget().geometry());
}

TEST(ScrollViews, ScrollToWhatTheyAreAsked) {
    const Ref<NSView> document = velt::make<NSView>();
    const Ref<NSScrollView> view = scrollView(document, {300, 400}, {100, 80});
    velt::send(document, "scrollPoint:", point(50, 60));
    EXPECT_EQ("{{50, 60}, {100, 80}}", seen(view));
    velt::send(document, "scrollPoint:", point(1000, -5));
    EXPECT_EQ("{{200, 0}, {100, 80}}", seen(view));
    EXPECT_VALUE("c 1", velt::send(document, "scrollRectToVisible:", rect(100, 100, 20, 20)));
    EXPECT_EQ("{{100, 40}, {100, 80}}", seen(view));
    EXPECT_VALUE("c 0", velt::send(document, "scrollRectToVisible:", rect(150, 50, 20, 20)));
    EXPECT_VALUE("c 0", velt::send(document, "scrollRectToVisible:", rect(0, 0, 300, 400)));  // nothing else is seen
    const Ref<NSView> inner = velt::make<NSView>(NSRect{{250, 300}, {20, 20}});
    document->addSubview(inner.get());
    velt::send(inner, "scrollRectToVisible:", VELT_ID(inner->bounds()));
    EXPECT_EQ("{{170, 240}, {100, 80}}", seen(view));
    EXPECT_EQ(id(view), velt::send(inner, "enclosingScrollView"));
    EXPECT_TRUE(velt::send(view, "enclosingScrollView").isNil());
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{170, 240}, {100, 80}}", velt::send(document, "visibleRect"));
    velt::send(velt::make<NSView>(), "scrollPoint:", point(1, 1));  // in no scroll view
}

TEST(ScrollViews, StayWithinADocumentThatShrinks) {
    const Ref<NSView> document = velt::make<NSView>();
    const Ref<NSScrollView> view = scrollView(document, {300, 400}, {100, 80});
    velt::send(document, "scrollPoint:", point(200, 320));
    document->setFrameSize({150, 90});
    EXPECT_EQ("{{50, 10}, {100, 80}}", seen(view));
    view->setFrameSize({400, 400});
    EXPECT_EQ("{{0, 0}, {400, 400}}", seen(view));
}

TEST(ScrollViews, GoOnShowingTheirDocumentAfterItHasRaised) {
    const Ref<RefusingDocument> document = velt::make<RefusingDocument>();
    const Ref<NSScrollView> view = scrollView(document, {100, 80}, {100, 80});
    document->refuses = true;
    EXPECT_RAISES("DocumentException: wide enough", view->setFrameSize({200, 80}));
    document->refuses = false;
    view->setFrameSize({300, 80});
    EXPECT_EQ("{{0, 0}, {300, 80}}", seen(view));
    EXPECT_EQ(300, document->frame().size.width);
}

TEST(ScrollViews, ShowScrollersAsTheyAreAsked) {
    const Ref<NSView> document = velt::make<NSView>();
    const Ref<NSScrollView> view = scrollView(document, {300, 60}, {100, 80});
    const double width = NSScroller::scrollerWidth();
    VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(view, boolean(true));
    VELT_NSSCROLLVIEW_HASHORIZONTALSCROLLER(view, boolean(true));
    const Shown window(view, {100, 80});
    EXPECT_EQ((NSSize{100 - width, 80 - width}), view->contentSize());
    EXPECT_TRUE(bar(view, "verticalScroller").isVisible());
    VELT_NSSCROLLVIEW_AUTOHIDESSCROLLERS(view, boolean(true));
    EXPECT_EQ((NSSize{100, 80 - width}), view->contentSize());
    EXPECT_FALSE(bar(view, "verticalScroller").isVisible());
    EXPECT_TRUE(bar(view, "horizontalScroller").isVisible());
    document->setFrameSize({95, 75});  // fits as long as there is no scroller
    EXPECT_EQ((NSSize{100, 80}), view->contentSize());
    document->setFrameSize({95, 85});  // the one takes the room that makes the other one needed
    EXPECT_EQ((NSSize{100 - width, 80 - width}), view->contentSize());
    VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(view, boolean(false));
    EXPECT_EQ((NSSize{100, 80}), view->contentSize());
    velt::send(view, "setBorderType:", integer(1));
    EXPECT_EQ((NSSize{98, 78}), view->contentSize());
}

TEST(ScrollViews, FollowTheirScrollersTheWheelAndTheKeys) {
    const Ref<NSView> document = velt::make<NSView>();
    const Ref<NSScrollView> view = scrollView(document, {300, 400}, {100, 80});
    view->setHasVerticalScroller(true);
    view->setHasHorizontalScroller(true);
    const Shown window(view, {100, 80});
    const NSSize room = view->contentSize();
    QScrollBar& vertical = bar(view, "verticalScroller");
    EXPECT_EQ(vertical.maximum(), vertical.value());  // at the bottom
    EXPECT_EQ(static_cast<int>(400 - room.height), vertical.maximum());
    vertical.setValue(0);
    EXPECT_EQ(400 - room.height, view->documentVisibleRect().origin.y);
    bar(view, "horizontalScroller").setValue(17);
    EXPECT_EQ(17, view->documentVisibleRect().origin.x);
    wheel(document->widget(), {0, -120});
    EXPECT_GT(400 - room.height, view->documentVisibleRect().origin.y);
    EXPECT_LT(0, vertical.value());
    wheel(document->widget(), {0, 1200});
    EXPECT_EQ(0, vertical.value());
    wheel(document->widget(), {-120, 0});
    EXPECT_LT(17, view->documentVisibleRect().origin.x);
    EXPECT_VALUE("c 1", VELT_NSWINDOW_MAKEFIRSTRESPONDER(id(static_cast<NSObject*>(&window.window())), view));
    QTest::keyClick(&view->widget(), Qt::Key_End);
    EXPECT_EQ(0, view->documentVisibleRect().origin.y);
    QTest::keyClick(&view->widget(), Qt::Key_Up);
    EXPECT_EQ(10, view->documentVisibleRect().origin.y);
    QTest::keyClick(&view->widget(), Qt::Key_PageUp);
    EXPECT_EQ(room.height, view->documentVisibleRect().origin.y);
    QTest::keyClick(&view->widget(), Qt::Key_Home);
    EXPECT_EQ(400 - room.height, view->documentVisibleRect().origin.y);
    const double before = view->documentVisibleRect().origin.x;
    QTest::keyClick(&view->widget(), Qt::Key_Left);
    EXPECT_EQ(before - 10, view->documentVisibleRect().origin.x);
}

TEST(ScrollViews, HandTheWheelOnWhenNothingIsLeftToScroll) {
    const Ref<NSView> document = velt::make<NSView>(), inner = velt::make<NSView>();
    const Ref<NSScrollView> within = scrollView(inner, {50, 50}, {60, 60});
    const Ref<NSScrollView> view = scrollView(document, {300, 400}, {100, 80});
    document->addSubview(within.get());
    const Shown window(view, {100, 80});
    wheel(inner->widget(), {0, 120});
    EXPECT_LT(0, view->documentVisibleRect().origin.y);
}

TEST(ScrollViews, DrawTheirDocumentWhereItIsSeenAndHearClicksThere) {
    const Ref<Map> document = velt::make<Map>();
    const Ref<NSScrollView> view = scrollView(document, {200, 200}, {100, 100});
    const Shown window(view, {100, 100});
    EXPECT_EQ(QColor(Qt::red), picture(view).pixelColor(50, 50));
    velt::send(document, "scrollPoint:", point(50, 50));
    const QImage now = picture(view);
    EXPECT_EQ(QColor(Qt::red), now.pixelColor(10, 90));
    EXPECT_EQ(QColor(Qt::blue), now.pixelColor(90, 90));
    EXPECT_EQ(QColor(Qt::blue), now.pixelColor(10, 10));
    QTest::mouseClick(&document->widget(), Qt::LeftButton, {},
                      document->widget().mapFrom(&view->widget(), QPoint(20, 70)));
    EXPECT_EQ((NSPoint{70, 80}), document->clicked);
}

TEST(ScrollViews, BringTheViewThatGetsTheKeyboardIntoSight) {
    const Ref<NSView> document = velt::make<NSView>();
    const Ref<KeyField> field = velt::make<KeyField>();
    field->setFrame({{10, 350}, {50, 20}});
    document->addSubview(field.get());
    const Ref<NSScrollView> view = scrollView(document, {300, 400}, {100, 80});
    const Shown window(view, {100, 80});
    window.window().makeFirstResponder(nil);
    velt::send(document, "scrollPoint:", point(0, 0));
    window.window().makeFirstResponder(field);
    EXPECT_EQ("{{0, 290}, {100, 80}}", seen(view));
}

TEST(ScrollViews, TakeAnotherViewAsTheirContent) {
    const Ref<NSScrollView> view = scrollView(velt::make<NSView>(), {300, 400}, {100, 80});
    const Ref<NSView> plain = velt::make<NSView>();
    VELT_NSSCROLLVIEW_CONTENTVIEW(view, plain);
    EXPECT_EQ((NSRect{{0, 0}, {100, 80}}), plain->frame());
    EXPECT_TRUE(VELT_NSSCROLLVIEW_DOCUMENTVIEW(view).isNil());
    VELT_NSSCROLLVIEW_DOCUMENTVIEW(view, velt::make<NSView>());
    EXPECT_TRUE(velt::is<NSClipView>(VELT_NSSCROLLVIEW_CONTENTVIEW(view)));
    VELT_NSSCROLLVIEW_DOCUMENTVIEW(view, nil);
    VELT_NSSCROLLVIEW_CONTENTVIEW(view, nil);
    EXPECT_TRUE(VELT_NSSCROLLVIEW_CONTENTVIEW(view).isNil());
    view->setFrameSize({50, 50});
}

TEST(Scrollers, SendTheirActionWhenTheyAreMoved) {
    const Ref<ScrollerListener> listener = velt::make<ScrollerListener>();
    const Ref<NSScroller> scroller = velt::make<NSScroller>();
    scroller->setTarget(listener);
    scroller->setAction(str("moved:"));
    velt::send(scroller, "setFloatValue:knobProportion:", real(0.25), real(0.5));
    EXPECT_EQ(0.5, scroller->knobProportion());
    const Shown window(scroller, {20, 200});
    auto& shown = static_cast<QScrollBar&>(scroller->widget());
    EXPECT_EQ(Qt::Vertical, shown.orientation());
    EXPECT_EQ(125, shown.value());
    EXPECT_EQ(-1, listener->value);  // a program's own setting is no action
    QTest::keyClick(&shown, Qt::Key_PageDown);
    EXPECT_EQ(1, listener->value);
}
