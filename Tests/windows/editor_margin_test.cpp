// The margin beside a source text, and the size at which it is shown.
#include "support/direction.h"
#include "windows/editor_support.h"

#include <QScrollBar>
#include <QWheelEvent>
#include <numeric>

using namespace velt::test;
using velt::Ref;

namespace {

/// An editor whose margin is shown, and its margin.
class MarginWindow : public EditorWindow {
public:
    explicit MarginWindow(std::string_view text, bool scrolls = false) : EditorWindow(text, scrolls) {
        velt::send(view, "setShowsLineNumbers:", boolean(true));
        select(0);
        widget->verticalScrollBar()->setValue(0);
        QApplication::processEvents();
    }
    QWidget* margin() const {
        for (QWidget* child : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (child->accessibleName() == "Line numbers and breakpoints" && child->isVisible()) return child;
        }
        return nullptr;
    }
    /// The height at which a line, counted from 1, is shown.
    int middleOf(int line) const {
        return widget->caretRect(editor().buffer().lineStart(static_cast<std::size_t>(line - 1))).center().y();
    }
    void click(int line) const {
        QTest::mouseClick(margin(), Qt::LeftButton, {}, {margin()->width() / 2, middleOf(line)});
    }
    /// A line's row as it is drawn.
    QImage row(int line) const {
        const int height = widget->fontMetrics().height();
        return margin()->grab({0, middleOf(line) - height / 2, margin()->width(), height}).toImage();
    }
    bool hasMark(int line) const { return dotsLike(row(line), QColor(0xD3, 0x3C, 0x35)) > 20; }
    bool hasSeparator(int line) const {
        const int top = middleOf(line) - widget->caretRect().height() / 2;
        const QImage shown = margin()->grab({0, top - 2, margin()->width(), 5}).toImage();
        return dotsLike(shown, widget->palette().color(QPalette::Highlight)) > 20;
    }

private:
    static int dotsLike(const QImage& image, const QColor& color) {
        int dots = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) dots += image.pixelColor(x, y).rgb() == color.rgb() ? 1 : 0;
        }
        return dots;
    }
};

/// Counts how often a widget is drawn because something in it has changed.
class Repaints final : public QObject {
public:
    explicit Repaints(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

std::string lines(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text.append("print ").append(std::to_string(i)).append("\n");
    return text;
}

/// An editor that hears of the clicks in its margin itself.
class OwnEditor : public VLTextView {
    VELT_OBJECT(OwnEditor, VLTextView)

public:
    void clicked(long line) { heard.push_back(line); }
    static void describe(velt::ClassBuilder<OwnEditor>& c) { c.method("toggleBreakpointAtLine:", &OwnEditor::clicked); }
    std::vector<long> heard;
};

}  // namespace

TEST(EditorMargins, AreShownWhenAskedFor) {
    const EditorWindow plain("print 1\n");
    EXPECT_VALUE("c 0", velt::send(plain.view, "showsLineNumbers"));
    EXPECT_EQ(plain.widget->width(), plain.widget->viewport()->width());
    const MarginWindow shown("print 1\n");
    EXPECT_VALUE("c 1", velt::send(shown.view, "showsLineNumbers"));
    ASSERT_TRUE(shown.margin());
    EXPECT_EQ(shown.margin()->width() + shown.widget->viewport()->width(), shown.widget->width());
    EXPECT_EQ(shown.widget->viewport()->height(), shown.margin()->height());
    EXPECT_FALSE(shown.margin()->geometry().intersects(shown.widget->viewport()->geometry()));
    velt::send(shown.view, "setShowsLineNumbers:", boolean(true));
    EXPECT_TRUE(shown.margin());
    velt::send(shown.view, "setShowsLineNumbers:", boolean(false));
    QApplication::processEvents();
    EXPECT_FALSE(shown.margin());
    EXPECT_EQ(shown.widget->width(), shown.widget->viewport()->width());
    velt::send(shown.view, "setShowsLineNumbers:", boolean(true));
    QApplication::processEvents();
    EXPECT_TRUE(shown.margin());
}

TEST(EditorMargins, CanBeAskedForBeforeTheViewIsShown) {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    velt::send(view, "setShowsLineNumbers:", boolean(true));
    VELT_NSTEXTVIEW_VALUE(view, str(lines(20)));
    ControlWindow window;
    velt::send(view, "setFrame:", rect(0, 0, 200, 150));
    VELT_NSWINDOW_APPEND(window.window, view);
    window.show();
    const auto& widget = *velt::as<VLTextView>(view)->existingTextWidget();
    EXPECT_LT(20, widget.width() - widget.viewport()->width() - widget.verticalScrollBar()->width());
}

TEST(EditorMargins, LieWhereReadingBegins) {
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        const Direction scope(direction);
        const MarginWindow shown("print 1\nprint 2\n");
        ASSERT_TRUE(shown.margin());
        const QRect margin = shown.margin()->geometry(), text = shown.widget->viewport()->geometry();
        EXPECT_TRUE(shown.widget->rect().contains(margin));
        if (direction == Qt::LeftToRight) {
            EXPECT_EQ(text.left(), margin.right() + 1);
        } else {
            EXPECT_EQ(margin.left(), text.right() + 1);
        }
        shown.click(2);
        EXPECT_EQ("(8)", shown.breakpoints());
        EXPECT_TRUE(shown.hasMark(2));
    }
}

TEST(EditorMargins, GrowWithTheNumbers) {
    const MarginWindow shown(lines(900));
    const int before = shown.margin()->width();
    VELT_NSTEXTVIEW_VALUE(shown.view, str(lines(1200)));
    QApplication::processEvents();
    EXPECT_LT(before, shown.margin()->width());
    EXPECT_FALSE(shown.margin()->geometry().intersects(shown.widget->viewport()->geometry()));
    VELT_NSTEXTVIEW_VALUE(shown.view, str(lines(3)));
    QApplication::processEvents();
    EXPECT_EQ(before, shown.margin()->width());
}

TEST(EditorMargins, ToggleBreakpointsByClicks) {
    const MarginWindow shown("print 1\nprint 2\nprint 3\n");
    shown.select(2, 9);
    const std::string selected = shown.selected();
    EXPECT_FALSE(shown.hasMark(2));
    shown.click(2);
    EXPECT_EQ("(8)", shown.breakpoints());
    EXPECT_TRUE(shown.hasMark(2));
    EXPECT_FALSE(shown.hasMark(1));
    EXPECT_FALSE(shown.hasMark(3));
    EXPECT_EQ('K', shown.colours()[8]) << "the text shows it too";
    shown.click(1);
    EXPECT_EQ("(8, 1)", shown.breakpoints());
    EXPECT_TRUE(shown.hasMark(1));
    shown.click(2);
    shown.click(1);
    EXPECT_EQ("()", shown.breakpoints());
    EXPECT_FALSE(shown.hasMark(1));
    EXPECT_EQ(selected, shown.selected());
}

TEST(EditorMargins, LeaveAloneWhatIsNoLine) {
    const MarginWindow shown("print 1\nprint 2\n");
    shown.click(3);
    QTest::mouseClick(shown.margin(), Qt::LeftButton, {}, {5, shown.margin()->height() - 3});
    QTest::mouseClick(shown.margin(), Qt::RightButton, {}, {5, shown.middleOf(1)});
    EXPECT_EQ("()", shown.breakpoints());
    for (const long line : {0L, -1L, 3L, 99L}) velt::send(shown.view, "toggleBreakpointAtLine:", integer(line));
    EXPECT_EQ("()", shown.breakpoints());
    const MarginWindow empty("");
    empty.click(1);
    EXPECT_EQ("()", empty.breakpoints());
}

TEST(EditorMargins, ShowWhatTheListsSay) {
    const MarginWindow shown("print 1\nprint 2\nprint 3\nprint 4\n");
    VELT_VLTEXTVIEW_BREAKPOINTS(shown.view, array(shortNumber(1), shortNumber(17), shortNumber(-4), integer(9000)));
    VELT_VLTEXTVIEW_LINESEPARATORS(shown.view, array(shortNumber(8)));
    for (const int line : {1, 2, 3, 4}) {
        EXPECT_EQ(line == 1 || line == 3, shown.hasMark(line)) << line;
        EXPECT_EQ(line == 2, shown.hasSeparator(line)) << line;
    }
    // A program may put anything into them.
    VELT_VLTEXTVIEW_BREAKPOINTS(shown.view, array(str("text"), emptyDictionary(), integer(24), str("8")));
    EXPECT_TRUE(shown.hasMark(4));
    EXPECT_TRUE(shown.hasMark(2)) << "numbers may be strings";
    EXPECT_FALSE(shown.hasMark(1));
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(EditorWindow("print 1\n").view);
}

TEST(EditorMargins, ShowABreakpointOfTheLastLineThatTheTextDoesNotColour) {
    const MarginWindow shown("print 1\nprint 2");
    shown.select(10);
    VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(shown.view);
    QApplication::processEvents();
    const Repaints repaints(*shown.margin());
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    EXPECT_EQ("(8)", shown.breakpoints());
    QApplication::processEvents();
    EXPECT_LT(0, repaints.count);
    EXPECT_TRUE(shown.hasMark(2));
}

TEST(EditorMargins, FollowTheirTextAsItIsTypedAndScrolled) {
    const MarginWindow shown(lines(300), true);
    VELT_VLTEXTVIEW_BREAKPOINTS(shown.view, array(integer(8 * 9 + 9)));  // of line 11
    EXPECT_TRUE(shown.hasMark(11));
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(200));
    QApplication::processEvents();
    EXPECT_LT(100, shown.widget->verticalScrollBar()->value());
    shown.click(200);
    const id entries = VELT_VLTEXTVIEW_BREAKPOINTS(shown.view);
    ASSERT_EQ(2U, velt::as<NSArray>(entries)->count());
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(200));
    EXPECT_EQ(velt::as<NSArray>(entries)->at(1).isNil(), false);
    const auto place = static_cast<unsigned long>(VELT_CINTEGER(velt::as<NSArray>(entries)->at(1)));
    EXPECT_EQ(place, VELT_CNSRANGE(velt::send(shown.view, "selectedRange")).location);
    EXPECT_TRUE(shown.hasMark(200));
}

TEST(EditorMargins, HandTheWheelToTheText) {
    const MarginWindow shown(lines(300), true);
    const QPointF middle(shown.margin()->rect().center());
    QWheelEvent turn(middle, shown.margin()->mapToGlobal(middle), {}, {0, -240}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(shown.margin(), &turn);
    EXPECT_LT(0, shown.widget->verticalScrollBar()->value());
}

TEST(EditorMargins, LeaveClicksToASubclassThatWantsThem) {
    const Ref<OwnEditor> view = velt::make<OwnEditor>();
    ControlWindow window;
    velt::send(view, "setFrame:", rect(0, 0, 200, 150));
    velt::send(view, "setString:", str("one\ntwo\n"));
    velt::send(view, "setShowsLineNumbers:", boolean(true));
    VELT_NSWINDOW_APPEND(window.window, id(view));
    window.show();
    auto& widget = *view->existingTextWidget();
    QWidget* margin = nullptr;
    for (QWidget* child : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->accessibleName() == "Line numbers and breakpoints") margin = child;
    }
    ASSERT_TRUE(margin);
    QTest::mouseClick(margin, Qt::LeftButton, {}, {5, widget.caretRect(4).center().y()});
    EXPECT_EQ(std::vector<long>{2}, view->heard);
    EXPECT_EQ("()", velt::utf8(velt::description(VELT_VLTEXTVIEW_BREAKPOINTS(id(view)))));
}

TEST(EditorMargins, StayBesideAFindBar) {
    const MarginWindow shown(lines(20));
    const int width = shown.margin()->width();
    shown.editor().find(1);
    QApplication::processEvents();
    EXPECT_EQ(width, shown.margin()->width());
    EXPECT_EQ(shown.widget->viewport()->height(), shown.margin()->height());
    EXPECT_LT(shown.margin()->height(), shown.widget->height());
    velt::send(shown.view, "cancelOperation:", nil);
    QApplication::processEvents();
    EXPECT_EQ(width, shown.margin()->width());
    EXPECT_EQ(shown.widget->height(), shown.margin()->height());
}

// The zoom.

namespace {

int shownSize(const EditorWindow& window) { return window.widget->font().pixelSize(); }

void turnWheel(const EditorWindow& window, int by, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QWidget* viewport = window.widget->viewport();
    const QPointF middle(viewport->rect().center());
    QWheelEvent turn(middle, viewport->mapToGlobal(middle), {}, {0, by}, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(viewport, &turn);
}

}  // namespace

TEST(EditorZoom, ChangesWithKeys) {
    const EditorWindow shown("print 1\n");
    velt::send(shown.view, "setFont:", NSFont::userFixedPitch(20));
    ASSERT_EQ(20, shownSize(shown));
    shown.key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(22, shownSize(shown));
    shown.key(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
    shown.key(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(26, shownSize(shown));
    EXPECT_VALUE("d 1.3", velt::send(shown.view, "zoomFactor"));
    shown.key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(20, shownSize(shown));
    shown.key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(18, shownSize(shown));
    EXPECT_EQ("print 1\n", shown.text()) << "nothing was typed";
    EXPECT_EQ(20, velt::as<NSFont>(velt::send(shown.view, "font"))->pointSize());
    // Without the key they are characters.
    shown.select(0);
    shown.type("0-=+");
    EXPECT_EQ("0-=+print 1\n", shown.text());
}

TEST(EditorZoom, ChangesWithTheWheel) {
    const EditorWindow shown(lines(300));
    velt::send(shown.view, "setFont:", NSFont::userFixedPitch(20));
    shown.widget->verticalScrollBar()->setValue(0);
    turnWheel(shown, 120);
    EXPECT_EQ(22, shownSize(shown));
    turnWheel(shown, 60);
    EXPECT_EQ(22, shownSize(shown));
    turnWheel(shown, 60);
    EXPECT_EQ(24, shownSize(shown));
    turnWheel(shown, -360);
    EXPECT_EQ(18, shownSize(shown));
    EXPECT_EQ(0, shown.widget->verticalScrollBar()->value());
    turnWheel(shown, -120, Qt::NoModifier);
    EXPECT_EQ(18, shownSize(shown));
    EXPECT_LT(0, shown.widget->verticalScrollBar()->value());
}

TEST(EditorZoom, HasLimits) {
    const EditorWindow shown("print 1\n");
    for (const auto& [given, kept] : {std::pair{0.001, "d 0.2"}, {100.0, "d 5"}, {-1.0, "d 0.2"}, {1.25, "d 1.25"}}) {
        velt::send(shown.view, "setZoomFactor:", real(given));
        EXPECT_VALUE(kept, velt::send(shown.view, "zoomFactor"));
    }
    velt::send(shown.view, "setZoomFactor:", real(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_VALUE("d 1.25", velt::send(shown.view, "zoomFactor"));
    velt::send(shown.view, "zoomIn:", nil);
    EXPECT_VALUE("d 1.4", velt::send(shown.view, "zoomFactor"));
    for (int i = 0; i < 60; ++i) shown.key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_VALUE("d 0.2", velt::send(shown.view, "zoomFactor"));
    EXPECT_LE(2, shownSize(shown));
}

TEST(EditorZoom, ShowsTheTextsOwnFontsLargerAndKeepsThem) {
    const EditorWindow shown("small LARGE\n");
    velt::send(shown.view, "setFont:", NSFont::userFixedPitch(10));
    const id storage = velt::send(shown.view, "textStorage");
    velt::send(storage, "addAttribute:value:range:", str("NSFont"), NSFont::userFixedPitch(30), range(6, 5));
    const auto sizeAt = [&](int position) { return drawnFormat(*shown.widget, 0, position).font().pixelSize(); };
    EXPECT_EQ(30, sizeAt(7));
    velt::send(shown.view, "setZoomFactor:", real(2));
    EXPECT_EQ(60, sizeAt(7));
    EXPECT_EQ(20, shownSize(shown));
    const id kept = velt::send(storage, "attribute:atIndex:effectiveRange:", str("NSFont"), integer(7), nil);
    EXPECT_EQ(30, velt::as<NSFont>(kept)->pointSize());
    // What comes in meanwhile is shown at that size too.
    velt::send(storage, "addAttribute:value:range:", str("NSFont"), NSFont::userFixedPitch(15), range(0, 5));
    EXPECT_EQ(30, sizeAt(2));
    velt::send(shown.view, "setZoomFactor:", real(1));
    EXPECT_EQ(15, sizeAt(2));
    EXPECT_EQ(30, sizeAt(7));
}

TEST(EditorZoom, TakesMarginAndInsertionPointAlong) {
    const MarginWindow shown(lines(30));
    const int width = shown.margin()->width(), height = shown.widget->caretRect().height();
    velt::send(shown.view, "setZoomFactor:", real(2));
    QApplication::processEvents();
    EXPECT_NEAR(2 * height, shown.widget->caretRect().height(), 3);
    EXPECT_LT(width * 3 / 2, shown.margin()->width());
    EXPECT_FALSE(shown.margin()->geometry().intersects(shown.widget->viewport()->geometry()));
    shown.click(3);
    EXPECT_EQ("(16)", shown.breakpoints());
    EXPECT_TRUE(shown.hasMark(3));
}

// Lines that do not break.

TEST(EditorLines, ThatDoNotBreakScrollSideways) {
    const EditorWindow shown("begin" + std::string(400, '-') + "end\nnext\n", true);
    EXPECT_TRUE(shown.widget->breaksLines());
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view);
    QApplication::processEvents();
    EXPECT_FALSE(shown.widget->breaksLines());
    EXPECT_EQ(1, shown.widget->layoutOf(0).lineCount());
    EXPECT_LT(0, shown.widget->horizontalScrollBar()->maximum());
    EXPECT_TRUE(shown.widget->horizontalScrollBar()->isVisible());
    const id container = velt::send(shown.view, "textContainer");
    EXPECT_EQ((NSSize{1e7, 1e7}), VELT_CNSSIZE(velt::send(container, "containerSize")));
    EXPECT_VALUE("c 0", velt::send(container, "widthTracksTextView"));
    EXPECT_VALUE("c 0", velt::send(container, "heightTracksTextView"));
    EXPECT_EQ((NSSize{1e7, 1e7}), VELT_CNSSIZE(velt::send(shown.view, "maxSize")));
    EXPECT_VALUE("c 1", velt::send(shown.view, "isHorizontallyResizable"));
    EXPECT_VALUE("c 1", velt::send(shown.view, "isVerticallyResizable"));
    EXPECT_VALUE("Q 0", velt::send(shown.view, "autoresizingMask"));
    // The insertion point stays in sight.
    shown.select(408);
    velt::send(shown.view, "scrollRangeToVisible:", range(408, 0));
    EXPECT_LT(0, shown.widget->horizontalScrollBar()->value());
}
