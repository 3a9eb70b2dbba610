#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"
#include "support/patience.h"

#include <QAbstractButton>
#include <QAccessible>

using namespace velt::test;
using velt::Ref;

namespace {

struct Row {
    explicit Row(const ControlWindow& window, const char* action = "click:")
        : control(VELT_NSSEGMENTEDCONTROL_INIT(window.listener, action)) {
        velt::as<NSView>(control)->setFrame({{10, 40}, {210, 26}});
        const char* labels[] = {"Left", "Middle", "Right"};
        for (long place = 0; place < 3; ++place) {
            velt::send(control, "setLabel:forSegment:", str(labels[place]), VELT_ID(place));
            velt::send(control, "setTag:forSegment:", VELT_ID(place * 10), VELT_ID(place));
        }
        VELT_NSWINDOW_APPEND(window.window, control);
    }
    QWidget& widget() const { return velt::as<NSView>(control)->widget(); }
    QAbstractButton& segment(int place) const {
        return *widget().findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly).at(place);
    }
    void click(int place) const { QTest::mouseClick(&segment(place), Qt::LeftButton); }
    std::string selected() const {
        std::string text = velt::utf8(velt::description(VELT_NSSEGMENTEDCONTROL_SELECTED(control))) + ":";
        for (long place = 0; place < 3; ++place) {
            text += VELT_CBOOL(velt::send(control, "isSelectedForSegment:", VELT_ID(place))) ? "x" : ".";
        }
        return text;
    }
    void setTracking(long mode) const { velt::send(control, "setTrackingMode:", VELT_ID(mode)); }

    id control;
};

}  // namespace

TEST(SegmentedControls, HaveThreeSegmentsAndNoneSelected) {
    const id control = VELT_NSSEGMENTEDCONTROL_INIT(nil, "");
    EXPECT_VALUE("q 3", velt::send(control, "segmentCount"));
    EXPECT_VALUE("q -1", VELT_NSSEGMENTEDCONTROL_SELECTED(control));
    EXPECT_VALUE("q -1", VELT_NSCONTROL_INTEGERVALUE(control));
    EXPECT_VALUE("''", velt::send(control, "labelForSegment:", VELT_ID(2L)));
    EXPECT_VALUE("c 1", velt::send(control, "isEnabledForSegment:", VELT_ID(2L)));
    EXPECT_VALUE("q 0", VELT_NSSEGMENTEDCONTROL_SELECTED(nil));
    EXPECT_RAISES("NSRangeException: 'NSSegmentedCell' segment: index 3 is out of range; the count is 3",
                  velt::send(control, "labelForSegment:", VELT_ID(3L)));
    EXPECT_RAISES("NSRangeException: 'NSSegmentedCell' segment: index -1 is out of range; the count is 3",
                  velt::send(control, "setLabel:forSegment:", str("x"), VELT_ID(-1L)));
}

TEST(SegmentedControls, SelectOneSegmentWhenClicked) {
    ControlWindow window;
    const Row row(window);
    window.show();
    row.click(1);
    EXPECT_EQ("NSSegmentedControl ", window.heard());
    EXPECT_EQ("1:.x.", row.selected());
    row.click(2);
    EXPECT_EQ("2:..x", row.selected());
    row.click(2);
    EXPECT_EQ("2:..x", row.selected());
    EXPECT_VALUE("q 2", VELT_NSCONTROL_INTEGERVALUE(row.control));
    VELT_NSCONTROL_INTEGERVALUE(row.control, VELT_ID(0L));
    EXPECT_EQ("0:x..", row.selected());
    VELT_NSCONTROL_INTEGERVALUE(row.control, VELT_ID(7L));
    EXPECT_EQ("-1:...", row.selected());
    EXPECT_VALUE("c 1", velt::send(row.control, "selectSegmentWithTag:", VELT_ID(10L)));
    EXPECT_VALUE("c 0", velt::send(row.control, "selectSegmentWithTag:", VELT_ID(11L)));
    EXPECT_EQ("1:.x.", row.selected());
    velt::send(row.control, "setSegmentCount:", VELT_ID(1L));
    EXPECT_VALUE("q -1", VELT_NSSEGMENTEDCONTROL_SELECTED(row.control));
    velt::send(row.control, "setSegmentCount:", VELT_ID(-5L));
    EXPECT_VALUE("q 0", velt::send(row.control, "segmentCount"));
}

TEST(SegmentedControls, SelectSeveralOrNoneByTheirMode) {
    ControlWindow window;
    const Row row(window);
    window.show();
    row.setTracking(1);
    row.click(0);
    row.click(2);
    EXPECT_EQ("2:x.x", row.selected());
    row.click(2);
    EXPECT_EQ("0:x..", row.selected());
    row.click(0);
    EXPECT_EQ("-1:...", row.selected());
    row.click(0);
    row.click(1);
    row.setTracking(0);  // one is left
    EXPECT_EQ("1:.x.", row.selected());
    window.heard();
    row.setTracking(2);
    row.click(2);
    EXPECT_EQ("NSSegmentedControl ", window.heard());
    EXPECT_EQ("2:...", row.selected());  // which it was, but it is not seen
    row.setTracking(3);                  // there is none of that number
    EXPECT_VALUE("Q 2", velt::send(row.control, "trackingMode"));
}

TEST(SegmentedControls, LeaveDisabledSegmentsAlone) {
    ControlWindow window;
    const Row row(window);
    window.show();
    velt::send(row.control, "setEnabled:forSegment:", VELT_ID(BOOL{0}), VELT_ID(1L));
    row.click(1);
    EXPECT_EQ("", window.heard());
    EXPECT_EQ("-1:...", row.selected());
    VELT_NSCONTROL_ENABLED(row.control, VELT_ID(BOOL{0}));
    row.click(0);
    EXPECT_EQ("", window.heard());
}

TEST(SegmentedControls, AreWorkedWithTheKeyboard) {
    ControlWindow window;
    const Row row(window);
    window.show();
    EXPECT_VALUE("c 1", VELT_NSWINDOW_MAKEFIRSTRESPONDER(window.window, row.control));
    EXPECT_EQ(row.control, VELT_NSWINDOW_FIRSTRESPONDER(window.window));
    const auto key = [&](int code) { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(code)); };
    key(Qt::Key_Space);
    EXPECT_EQ("0:x..", row.selected());
    key(Qt::Key_Right);
    EXPECT_EQ("1:.x.", row.selected());
    EXPECT_EQ("NSSegmentedControl NSSegmentedControl ", window.heard());
    key(Qt::Key_End);
    EXPECT_EQ("2:..x", row.selected());
    key(Qt::Key_Right);
    EXPECT_EQ("2:..x", row.selected());
    velt::send(row.control, "setEnabled:forSegment:", VELT_ID(BOOL{0}), VELT_ID(1L));
    key(Qt::Key_Left);
    EXPECT_EQ("0:x..", row.selected());
    row.setTracking(1);
    key(Qt::Key_End);
    EXPECT_EQ("0:x..", row.selected());  // moving is not choosing where several may be chosen
    key(Qt::Key_Space);
    EXPECT_EQ("2:x.x", row.selected());
    row.widget().setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(row.segment(0).x(), row.segment(2).x());
    key(Qt::Key_Right);
    key(Qt::Key_Space);
    EXPECT_EQ("2:..x", row.selected());
}

TEST(SegmentedControls, ShowEachSegmentInItsWidth) {
    ControlWindow window;
    const Row row(window);
    window.show();
    EXPECT_EQ(210, row.segment(0).width() + row.segment(1).width() + row.segment(2).width());
    velt::send(row.control, "setWidth:forSegment:", VELT_ID(100.0), VELT_ID(0L));
    EXPECT_EQ(100, row.segment(0).width());
    EXPECT_EQ(110, row.segment(1).width() + row.segment(2).width());
    const QImage plain = row.widget().grab().toImage();
    row.click(1);
    EXPECT_NE(plain, row.widget().grab().toImage());
    QImage dots(10, 10, QImage::Format_ARGB32);
    dots.fill(Qt::red);
    const QImage before = row.segment(2).grab().toImage();
    velt::send(row.control, "setImage:forSegment:", velt::make<NSImage>(dots), VELT_ID(2L));
    EXPECT_NE(before, row.segment(2).grab().toImage());
    velt::send(row.control, "setToolTip:forSegment:", str("to the right"), VELT_ID(2L));
    EXPECT_EQ("to the right", row.segment(2).toolTip().toStdString());
    VELT_NSCONTROL_SIZETOFIT(row.control);
    EXPECT_LE(100 + 60, velt::as<NSView>(row.control)->frame().size.width);
    velt::send(row.control, "setSegmentCount:", VELT_ID(5L));
    EXPECT_VALUE("''", velt::send(row.control, "labelForSegment:", VELT_ID(4L)));
}

TEST(SegmentedControls, LimitWidthsToWhatARowCanReckonWith) {
    const ControlWindow window;
    const Row row(window);
    for (const long place : {0L, 1L}) velt::send(row.control, "setWidth:forSegment:", VELT_ID(3e9), VELT_ID(place));
    const double width = velt::as<NSControl>(row.control)->cellObject().cellSize().width;
    EXPECT_LT(1e6, width);
    EXPECT_GT(1.1e6, width);
}

TEST(SegmentedControls, SayWhatTheyAreToThoseWhoCannotSee) {
    ControlWindow window;
    const Row row(window);
    window.show();
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&row.widget());
    ASSERT_NE(nullptr, told);
    EXPECT_EQ(QAccessible::Grouping, told->role());
    ASSERT_EQ(3, told->childCount());
    EXPECT_EQ("Middle", told->child(1)->text(QAccessible::Name).toStdString());
    EXPECT_EQ(QAccessible::RadioButton, told->child(1)->role());
    told->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(told->child(1)->state().checked);
    EXPECT_EQ("1:.x.", row.selected());
    row.setTracking(2);
    EXPECT_EQ(QAccessible::Button, told->child(1)->role());
}

TEST(SegmentedControls, SurviveLosingTheirSegmentsToTheirOwnAction) {
    class Shrinker : public NSObject {
    public:
        static velt::Class& entry() {
            static velt::Class& cls = velt::declareClass<Shrinker>("Shrinker", &NSObject::entry());
            return cls;
        }
        velt::Class& isa() const override { return entry(); }
        void shrink(const id& sender) { velt::send(sender, "setSegmentCount:", VELT_ID(0L)); }
        static void describe(velt::ClassBuilder<Shrinker>& c) { c.method("shrink:", &Shrinker::shrink); }
    };
    ControlWindow window;
    const Row row(window);
    velt::send(row.control, "setTarget:", velt::make<Shrinker>());
    velt::send(row.control, "setAction:", str("shrink:"));
    window.show();
    row.click(1);
    EXPECT_VALUE("q 0", velt::send(row.control, "segmentCount"));
    EXPECT_TRUE(comesTrue([&] { return row.widget().findChildren<QAbstractButton*>().isEmpty(); }));
}

TEST(SegmentedControls, ShowWhatIsSelected) {
    const QPalette own = QApplication::palette();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? darkPalette() : own);
        ControlWindow window;
        const Row row(window);
        const Row several(window);
        velt::as<NSView>(several.control)->setFrameOrigin({10, 80});
        several.setTracking(1);
        window.show();
        const QImage none = several.widget().grab().toImage();
        row.click(1);
        several.click(0);
        const QImage one = several.widget().grab().toImage();
        several.click(1);
        EXPECT_NE(none, one);
        EXPECT_NE(one, several.widget().grab().toImage());
        velt::send(several.control, "setEnabled:forSegment:", VELT_ID(BOOL{0}), VELT_ID(2L));
        keepPicture(window.widget(), dark ? "segments-dark" : "segments-light");
    }
    QApplication::setPalette(own);
}
