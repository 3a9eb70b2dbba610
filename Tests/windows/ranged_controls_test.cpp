#include "support/control_window.h"
#include "support/direction.h"
#include "support/patience.h"

#include "VELTRuntime/platform/appkit/controls/level_indicator.h"
#include "VELTRuntime/platform/appkit/controls/slider.h"
#include "VELTRuntime/platform/appkit/controls/stepper.h"

#include <QAccessible>
#include <limits>

using namespace velt::test;
using velt::Ref;

namespace {

double valueOf(const id& control) { return VELT_CDOUBLE(VELT_NSCONTROL_DOUBLEVALUE(control)); }
void setRange(const id& control, double min, double max) {
    tell(control, "setMaxValue:", real(max));
    tell(control, "setMinValue:", real(min));
}

/// How many dots of a picture a test accepts.
template <class Test> int countDots(const QImage& picture, Test test) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) count += test(picture.pixelColor(x, y)) ? 1 : 0;
    }
    return count;
}
bool isGreen(const QColor& c) { return c.green() > c.red() + 60 && c.green() > c.blue() + 40; }
bool isRed(const QColor& c) { return c.red() > c.green() + 100 && c.red() > c.blue() + 100; }
bool isYellow(const QColor& c) { return c.red() > c.blue() + 120 && c.green() > c.blue() + 120; }

struct RightToLeft : Direction {
    RightToLeft() : Direction(Qt::RightToLeft) {}
};

}  // namespace

TEST(RangedControls, KeepTheirValueWithinTheLimits) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    EXPECT_VALUE("d 0", VELT_NSCONTROL_DOUBLEVALUE(slider));
    VELT_NSCONTROL_DOUBLEVALUE(slider, real(7));
    EXPECT_VALUE("d 1", VELT_NSCONTROL_DOUBLEVALUE(slider));
    setRange(slider, -10, 10);
    VELT_NSCONTROL_STRINGVALUE(slider, str("4.5 of them"));
    EXPECT_VALUE("d 4.5", VELT_NSCONTROL_DOUBLEVALUE(slider));
    EXPECT_VALUE("q 4", VELT_NSCONTROL_INTEGERVALUE(slider));
    VELT_NSCONTROL_OBJECTVALUE(slider, nil);
    EXPECT_VALUE("d 0", VELT_NSCONTROL_OBJECTVALUE(slider));
    tell(slider, "setMinValue:", real(2));
    EXPECT_VALUE("d 2", VELT_NSCONTROL_DOUBLEVALUE(slider));
    VELT_NSCONTROL_DOUBLEVALUE(slider, real(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_VALUE("d 2", VELT_NSCONTROL_DOUBLEVALUE(slider));
    tell(slider, "setMaxValue:", real(std::numeric_limits<double>::infinity()));
    EXPECT_VALUE("d 10", ask(slider, "maxValue"));
    tell(slider, "setMaxValue:", real(-5));  // the limits cross
    EXPECT_VALUE("d 2", VELT_NSCONTROL_DOUBLEVALUE(slider));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_NSCONTROL_DOUBLEVALUE(slider, array()));
}

TEST(RangedControls, WorkOverTheWholeOfTheNumbers) {
    const Ref<NSSliderCell> cell = velt::make<NSSliderCell>();
    const double huge = std::numeric_limits<double>::max();
    cell->setMaxValue(huge);
    cell->setMinValue(-huge);
    EXPECT_EQ(0, cell->valueAt(0.5));
    EXPECT_EQ(huge, cell->valueAt(1));
    EXPECT_EQ(0.5, cell->fractionOf(0));
}

TEST(RangedControls, HaveActionAndTargetOnlyWhenTheOwnerAnswers) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    for (auto* init :
         {&VELT_NSSLIDER_INIT, &VELT_CIRCULARSLIDER_INIT, &VELT_NSLEVELINDICATOR_INIT, &VELT_NSSTEPPER_INIT,
          &VELT_NSDATEPICKER_INIT, &VELT_NSCOLORWELL_INIT, &VELT_NSPATHCONTROL_INIT}) {
        EXPECT_EQ(id(owner), VELT_NSCONTROL_TARGET(init(owner, "act:")));
        EXPECT_TRUE(VELT_NSCONTROL_TARGET(init(owner, "other:")).isNil());
        EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", ask(init(nil, ""), "frame"));
    }
}

TEST(Sliders, FollowTheMouseAndSayEveryMovement) {
    const Direction leftToRight(Qt::LeftToRight);
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id slider = VELT_NSSLIDER_INIT(owner, "act:");
    setRange(slider, 0, 100);
    ShownControl shown(slider, 220, 24);
    shown.click({110, 12});
    EXPECT_NEAR(50, valueOf(slider), 2);
    EXPECT_EQ(1, owner->taken());
    EXPECT_EQ(slider, owner->last);
    shown.press({110, 12});  // on the knob
    EXPECT_EQ(0, owner->taken());
    shown.moveTo({160, 12});
    shown.moveTo({210, 12});
    EXPECT_NEAR(98, valueOf(slider), 3);
    shown.moveTo({500, 200});
    EXPECT_EQ(100, valueOf(slider));
    shown.release({500, 200});
    EXPECT_EQ(3, owner->taken());
    shown.moveTo({10, 12});
    EXPECT_EQ(100, valueOf(slider));
}

TEST(Sliders, AreLetGoThoughADialogTookTheRelease) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    setRange(slider, 0, 100);
    ShownControl shown(slider, 220, 24);
    const auto moveWithoutButton = [&](QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, shown.widget().mapToGlobal(QPointF(at)), Qt::NoButton, Qt::NoButton,
                          {});
        QApplication::sendEvent(&shown.widget(), &event);
    };
    shown.press({110, 12});
    const double pressed = valueOf(slider);
    moveWithoutButton({160, 12});
    EXPECT_EQ(pressed, valueOf(slider));
    shown.press({110, 12});
    shown.press({210, 12});  // the second press takes it too
    EXPECT_NE(pressed, valueOf(slider));
}

TEST(Sliders, SayTheirValueOnceAtTheEndWhenTheyAreNotContinuous) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id slider = VELT_NSSLIDER_INIT(owner, "act:");
    EXPECT_VALUE("c 1", ask(slider, "isContinuous"));
    tell(slider, "setContinuous:", boolean(false));
    ShownControl shown(slider, 200, 24);
    shown.press({100, 12});
    shown.moveTo({150, 12});
    EXPECT_EQ(0, owner->taken());
    shown.release({150, 12});
    EXPECT_EQ(1, owner->taken());
}

TEST(Sliders, TakeKeysAndTheWheel) {
    const Direction leftToRight(Qt::LeftToRight);
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id slider = VELT_NSSLIDER_INIT(owner, "act:");
    setRange(slider, 0, 100);
    ShownControl shown(slider, 200, 24);
    shown.focus();
    shown.key(Qt::Key_Right);
    shown.key(Qt::Key_Up);
    EXPECT_DOUBLE_EQ(10, valueOf(slider));
    shown.key(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(60, valueOf(slider));
    shown.key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(55, valueOf(slider));
    shown.key(Qt::Key_Home);
    EXPECT_EQ(0, valueOf(slider));
    EXPECT_EQ(5, owner->taken());
    shown.key(Qt::Key_Home);
    EXPECT_EQ(0, owner->taken());  // nothing changed
    EXPECT_TRUE(shown.wheel(60));
    EXPECT_EQ(0, valueOf(slider));  // half a notch
    EXPECT_TRUE(shown.wheel(60));
    EXPECT_DOUBLE_EQ(5, valueOf(slider));
    tell(slider, "setAltIncrementValue:", real(0.5));
    shown.key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_DOUBLE_EQ(5.5, valueOf(slider));
}

TEST(Sliders, CannotBeWorkedWhileTheyAreDisabled) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id slider = VELT_NSSLIDER_INIT(owner, "act:");
    ShownControl shown(slider, 200, 24);
    const QImage before = shown.picture();
    VELT_NSCONTROL_ENABLED(slider, boolean(false));
    EXPECT_NE(before, shown.picture());
    shown.drag({100, 12}, {150, 12});
    shown.key(Qt::Key_Right);
    shown.wheel(120);
    EXPECT_EQ(0, valueOf(slider));
    EXPECT_EQ(0, owner->count);
}

TEST(Sliders, StandUprightWhenHigherThanWideAndGrowUpward) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    ShownControl shown(slider, 24, 200);
    EXPECT_VALUE("c 1", ask(slider, "isVertical"));
    shown.click({12, 190});
    EXPECT_NEAR(0, valueOf(slider), 0.1);
    shown.click({12, 10});
    EXPECT_NEAR(1, valueOf(slider), 0.1);
    send(slider, VELT_SELECTOR("setFrameSize:"), size(200, 24));
    EXPECT_VALUE("c 0", ask(slider, "isVertical"));
}

TEST(Sliders, GrowFromTheRightWherePeopleReadFromTheRight) {
    const RightToLeft direction;
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    ShownControl shown(slider, 200, 24);
    shown.click({20, 12});
    EXPECT_NEAR(0.9, valueOf(slider), 0.1);
    VELT_NSCONTROL_DOUBLEVALUE(slider, real(0.5));
    shown.focus();
    shown.key(Qt::Key_Left);
    EXPECT_DOUBLE_EQ(0.55, valueOf(slider));
    VELT_NSCONTROL_DOUBLEVALUE(slider, real(0.8));
    const int knob = 5 + 190 / 5;
    shown.press({knob, 12});
    EXPECT_EQ(0.8, valueOf(slider));  // it was taken where it is
    shown.moveTo({knob + 30, 12});
    EXPECT_GT(0.7, valueOf(slider));
    shown.release({knob + 30, 12});
}

TEST(Sliders, StopAtTheirMarksAlone) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    setRange(slider, 0, 10);
    EXPECT_RAISES("NSRangeException: 'NSSliderCell' tickMarkValueAtIndex:: index 0 is out of range; the count is 0",
                  tell(slider, "tickMarkValueAtIndex:", integer(0)));
    tell(slider, "setNumberOfTickMarks:", integer(5));
    EXPECT_VALUE("d 7.5", tell(slider, "tickMarkValueAtIndex:", integer(3)));
    EXPECT_VALUE("d 2.5", tell(slider, "closestTickMarkValueToValue:", real(3)));
    tell(slider, "setAllowsTickMarkValuesOnly:", boolean(true));
    ShownControl shown(slider, 200, 30);
    shown.click({62, 12});
    EXPECT_EQ(2.5, valueOf(slider));
    shown.focus();
    shown.key(Qt::Key_Right);
    EXPECT_EQ(5, valueOf(slider));
    tell(slider, "setNumberOfTickMarks:", integer(1));
    EXPECT_VALUE("d 5", tell(slider, "tickMarkValueAtIndex:", integer(0)));
    tell(slider, "setNumberOfTickMarks:", integer(-3));
    EXPECT_VALUE("q 0", ask(slider, "numberOfTickMarks"));
}

TEST(CircularSliders, TurnWithTheMouse) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id slider = VELT_CIRCULARSLIDER_INIT(owner, "act:");
    EXPECT_VALUE("Q 1", ask(ask(slider, "cell"), "sliderType"));
    setRange(slider, 0, 100);
    ShownControl shown(slider, 60, 60);
    const QImage before = shown.picture();
    shown.press({55, 30});
    EXPECT_NEAR(25, valueOf(slider), 1);
    EXPECT_NE(before, shown.picture());
    shown.moveTo({30, 55});
    EXPECT_NEAR(50, valueOf(slider), 1);
    shown.moveTo({5, 30});
    EXPECT_NEAR(75, valueOf(slider), 1);
    shown.release({5, 30});
    EXPECT_EQ(3, owner->taken());
    shown.focus();
    shown.key(Qt::Key_End);
    EXPECT_EQ(100, valueOf(slider));
    tell(slider, "setNumberOfTickMarks:", integer(4));
    EXPECT_VALUE("d 75", tell(slider, "tickMarkValueAtIndex:", integer(3)));
}

TEST(Sliders, TellTheBlindWhatTheyAre) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    setRange(slider, -1, 3);
    VELT_NSCONTROL_DOUBLEVALUE(slider, real(2));
    tell(slider, "setToolTip:", str("Volume"));
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&velt::as<NSView>(slider)->widget());
    EXPECT_EQ(QAccessible::Slider, told->role());
    EXPECT_EQ("Volume", told->text(QAccessible::Name));
    ASSERT_TRUE(told->valueInterface());
    EXPECT_EQ(2, told->valueInterface()->currentValue().toDouble());
    EXPECT_EQ(-1, told->valueInterface()->minimumValue().toDouble());
    EXPECT_EQ(3, told->valueInterface()->maximumValue().toDouble());
    told->valueInterface()->setCurrentValue(0.5);
    EXPECT_EQ(0.5, valueOf(slider));
    const id circular = VELT_CIRCULARSLIDER_INIT(nil, ""), stepper = VELT_NSSTEPPER_INIT(nil, "");
    const auto roleOf = [](const id& control) {
        return QAccessible::queryAccessibleInterface(&velt::as<NSView>(control)->widget())->role();
    };
    EXPECT_EQ(QAccessible::Dial, roleOf(circular));
    EXPECT_EQ(QAccessible::SpinBox, roleOf(stepper));
}

TEST(Sliders, FitTheirThicknessAndKeepTheirLength) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    send(slider, VELT_SELECTOR("setFrame:"), rect(0, 0, 150, 90));
    VELT_NSCONTROL_SIZETOFIT(slider);
    const NSSize size = velt::as<NSView>(slider)->frame().size;
    EXPECT_EQ(150, size.width);
    EXPECT_GT(30, size.height);
    EXPECT_LT(10, size.height);
}

TEST(Sliders, RefuseCellsOfOtherKinds) {
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    EXPECT_RAISES("NSInvalidArgumentException: 'NSSlider' setCell:: 'NSSliderCell' expected",
                  VELT_NSCONTROL_CELL(slider, velt::make<NSStepperCell>()));
}

TEST(Steppers, GoUpAndDownByTheirHalves) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id stepper = VELT_NSSTEPPER_INIT(owner, "act:");
    EXPECT_VALUE("d 59", ask(stepper, "maxValue"));
    tell(stepper, "setIncrement:", real(2.5));
    ShownControl shown(stepper, 19, 27);
    shown.click({9, 5});
    shown.click({9, 5});
    EXPECT_EQ(5, valueOf(stepper));
    shown.click({9, 22});
    EXPECT_EQ(2.5, valueOf(stepper));
    EXPECT_EQ(3, owner->taken());
    shown.focus();
    shown.key(Qt::Key_Up);
    EXPECT_EQ(5, valueOf(stepper));
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_End);
    EXPECT_EQ(59, valueOf(stepper));
    shown.wheel(-120);
    EXPECT_EQ(56.5, valueOf(stepper));
}

TEST(Steppers, GoRoundUnlessToldOtherwise) {
    const Ref<NSStepper> stepper = velt::make<NSStepper>();
    setRange(stepper, 1, 3);
    ShownControl shown(stepper, 19, 27);
    shown.click({9, 22});
    EXPECT_EQ(3, valueOf(stepper));
    shown.click({9, 5});
    EXPECT_EQ(1, valueOf(stepper));
    tell(stepper, "setValueWraps:", boolean(false));
    shown.click({9, 22});
    EXPECT_EQ(1, valueOf(stepper));
    tell(stepper, "setIncrement:", real(5));
    shown.click({9, 5});
    EXPECT_EQ(3, valueOf(stepper));
}

TEST(Steppers, StepOnWhileTheyAreHeld) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id stepper = VELT_NSSTEPPER_INIT(owner, "act:");
    ShownControl shown(stepper, 19, 27);
    const QImage before = shown.picture();
    shown.press({9, 5});
    EXPECT_NE(before, shown.picture());
    EXPECT_TRUE(comesTrue([&] { return valueOf(stepper) >= 3; }));
    shown.moveTo({9, 22});  // left the half: it rests
    const double rested = valueOf(stepper);
    QTest::qWait(200);
    EXPECT_EQ(rested, valueOf(stepper));
    shown.release({9, 22});
    EXPECT_EQ(rested, valueOf(stepper));
    EXPECT_EQ(static_cast<int>(rested), owner->taken());
    tell(stepper, "setAutorepeat:", boolean(false));
    shown.press({9, 5});
    EXPECT_EQ(0, owner->count);
    shown.release({9, 5});
    EXPECT_EQ(1, owner->taken());
}

TEST(Steppers, RestOnceTheyAreHiddenOrBehindADialog) {
    const id stepper = VELT_NSSTEPPER_INIT(nil, "");
    ShownControl shown(stepper, 19, 27);
    const auto holdUntil = [&](double value) {
        shown.press({9, 5});
        return comesTrue([&] { return valueOf(stepper) >= value; });
    };
    const auto rests = [&] {
        const double rested = valueOf(stepper);
        QTest::qWait(300);
        return valueOf(stepper) == rested;
    };
    ASSERT_TRUE(holdUntil(2));
    VELT_NSVIEW_HIDE(stepper);
    EXPECT_TRUE(rests());
    VELT_NSVIEW_SHOW(stepper);
    EXPECT_TRUE(rests());
    shown.release({9, 5});
    ASSERT_TRUE(holdUntil(valueOf(stepper) + 2));
    QWidget dialog;
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    EXPECT_TRUE(rests());
}

TEST(LevelIndicators, ShowTheLevelInTheColourOfItsLimits) {
    const Ref<NSLevelIndicator> level = velt::make<NSLevelIndicator>();
    ShownControl shown(level, 120, 16);
    EXPECT_EQ(0, countDots(shown.picture(), isGreen));
    VELT_NSCONTROL_DOUBLEVALUE(level, real(2));
    const int twoFifths = countDots(shown.picture(), isGreen);
    EXPECT_NEAR(0.4 * 120 * 16, twoFifths, 200);
    tell(level, "setWarningValue:", real(3));
    tell(level, "setCriticalValue:", real(4));
    VELT_NSCONTROL_DOUBLEVALUE(level, real(3));
    EXPECT_LT(twoFifths, countDots(shown.picture(), isYellow));
    VELT_NSCONTROL_DOUBLEVALUE(level, real(5));
    EXPECT_LT(1500, countDots(shown.picture(), isRed));
    tell(level, "setCriticalValue:", real(1));  // little is bad now
    EXPECT_LT(1500, countDots(shown.picture(), isGreen));
    VELT_NSCONTROL_DOUBLEVALUE(level, real(1));
    EXPECT_LT(200, countDots(shown.picture(), isRed));
    tell(level, "setCriticalFillColor:", velt::make<NSColor>(0.0, 0.9, 0.0, 1.0));
    EXPECT_LT(200, countDots(shown.picture(), isGreen));
    tell(level, "setLevelIndicatorStyle:", natural(1));
    VELT_NSCONTROL_DOUBLEVALUE(level, real(4.5));
    EXPECT_NEAR(0.9 * 120 * 16, countDots(shown.picture(), isGreen), 250);
    tell(level, "setLevelIndicatorStyle:", natural(99));
    EXPECT_VALUE("Q 1", ask(level, "levelIndicatorStyle"));
}

TEST(LevelIndicators, TakeClicksAndDragsInTheirSegments) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id level = VELT_NSLEVELINDICATOR_INIT(owner, "act:");
    ShownControl shown(level, 100, 16);
    shown.click({50, 8});
    EXPECT_EQ(3, valueOf(level));
    shown.drag({50, 8}, {95, 8});
    EXPECT_EQ(5, valueOf(level));
    shown.drag({95, 8}, {-10, 8});
    EXPECT_EQ(0, valueOf(level));
    EXPECT_EQ(3, owner->taken());
    tell(level, "setEditable:", boolean(false));
    shown.click({50, 8});
    EXPECT_EQ(0, valueOf(level));
    EXPECT_FALSE(shown.wheel(120));
}

TEST(LevelIndicators, RateWithStars) {
    const id level = VELT_NSLEVELINDICATOR_INIT(nil, "");
    tell(level, "setLevelIndicatorStyle:", natural(3));
    ShownControl shown(level, 80, 16);
    const QImage none = shown.picture();
    shown.click({40, 8});  // the third star
    EXPECT_EQ(3, valueOf(level));
    EXPECT_NE(none, shown.picture());
    shown.focus();
    shown.key(Qt::Key_Right);
    EXPECT_EQ(4, valueOf(level));
    const RightToLeft direction;
    shown.widget().setLayoutDirection(Qt::RightToLeft);
    shown.click({75, 8});
    EXPECT_EQ(1, valueOf(level));
}

TEST(LevelIndicators, OnlyShowHowRelevantSomethingIs) {
    const id level = VELT_NSLEVELINDICATOR_INIT(nil, "");
    tell(level, "setLevelIndicatorStyle:", natural(0));
    setRange(level, 0, 10);
    ShownControl shown(level, 100, 16);
    const QImage none = shown.picture();
    shown.click({50, 8});
    EXPECT_EQ(0, valueOf(level));
    VELT_NSCONTROL_DOUBLEVALUE(level, real(5));
    const QImage half = shown.picture();
    EXPECT_NE(none.copy(0, 0, 45, 16), half.copy(0, 0, 45, 16));
    EXPECT_EQ(none.copy(55, 0, 45, 16), half.copy(55, 0, 45, 16));
    setRange(level, 5, 5);  // nothing to show, nothing to break
    shown.picture();
    setRange(level, 0, 1e12);
    tell(level, "setLevelIndicatorStyle:", natural(2));
    shown.picture();
}
