#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"
#include "support/direction.h"
#include "support/patience.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <QAbstractButton>
#include <QAccessible>

using namespace velt::test;
using velt::Ref;

namespace {

using Constructor = id (*)(const id&, const char*);

struct Kind {
    const char* name;
    Constructor make;
    long type;
    unsigned long bezel;
};

/// Every constructor of a button, with the codes that programs know it by.
constexpr Kind kKinds[] = {
    {"push", VELT_PUSHBUTTON_INIT, 7, 1},
    {"bevel", VELT_BEVELBUTTON_INIT, 7, 2},
    {"triangle", VELT_DISCLOSURETRIANGLE_INIT, 0, 5},
    {"square", VELT_SQUAREBUTTON_INIT, 7, 6},
    {"textured", VELT_TEXTUREDBUTTON_INIT, 7, 8},
    {"help", VELT_HELPBUTTON_INIT, 7, 9},
    {"gradient", VELT_GRADIENTBUTTON_INIT, 0, 10},
    {"rounded textured", VELT_ROUNDEDTEXTUREDBUTTON_INIT, 7, 11},
    {"round rect", VELT_ROUNDEDRECTBUTTON_INIT, 7, 12},
    {"recessed", VELT_RECESSEDBUTTON_INIT, 6, 13},
    {"disclosure", VELT_DISCLOSUREBUTTON_INIT, 6, 14},
    {"round", VELT_ROUNDBUTTON_INIT, 7, 7},
    {"check box", VELT_CHECKBOX_INIT, 3, 2},
    {"radio", VELT_RADIOBUTTON_INIT, 4, 2},
};

id newButton(const ControlWindow& window, Constructor make, NSRect frame, const char* action = "click:") {
    const id button = make(window.listener, action);
    VELT_NSBUTTON_FRAME(button, VELT_ID(frame));
    VELT_NSWINDOW_APPEND(window.window, button);
    return button;
}

QAbstractButton& widgetOf(const id& button) {
    return dynamic_cast<QAbstractButton&>(velt::as<NSButton>(button)->widget());
}

id picture(QColor color) {
    QImage image(12, 12, QImage::Format_ARGB32);
    image.fill(color);
    return velt::make<NSImage>(image);
}

QImage shot(const id& button) { return widgetOf(button).grab().toImage(); }

}  // namespace

TEST(Buttons, AreMadeByKind) {
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const id button = kind.make(nil, "");
        EXPECT_EQ(kind.type, static_cast<long>(velt::as<NSButton>(button)->buttonCell().buttonType()));
        EXPECT_EQ(kind.bezel, velt::as<NSButton>(button)->bezelStyle());
        EXPECT_VALUE("q -1", VELT_NSBUTTON_BUTTONTYPE(button));
        EXPECT_VALUE("c 1", VELT_NSCONTROL_ENABLED(button));
        EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", velt::send(button, "frame"));
        EXPECT_TRUE(VELT_NSCONTROL_TARGET(button).isNil());
        EXPECT_VALUE("'Button'", VELT_NSBUTTON_TITLE(button));
    }
    EXPECT_VALUE("Q 2", VELT_NSBUTTON_BEZELSTYLE(VELT_NSBUTTON_INIT(nil, "")));
    EXPECT_TRUE(velt::as<NSButtonCell>(VELT_NSBUTTONCELL_INIT(nil, ""))->isSwitch());
    EXPECT_VALUE("c 0", VELT_NSBUTTON_BORDERED(VELT_CHECKBOX_INIT(nil, "")));
}

TEST(Buttons, TakeAnActionOnlyWhenTheOwnerHasIt) {
    const Ref<ActionListener> owner = velt::make<ActionListener>();
    const id works = VELT_PUSHBUTTON_INIT(owner, "click:");
    EXPECT_EQ(id(owner), VELT_NSCONTROL_TARGET(works));
    EXPECT_VALUE("'click:'", velt::send(works, "action"));
    const id idle = VELT_PUSHBUTTON_INIT(owner, "unknown:");
    EXPECT_TRUE(VELT_NSCONTROL_TARGET(idle).isNil());
    EXPECT_TRUE(velt::send(idle, "action").isNil());
    VELT_NSCONTROL_ACTIONNAME(idle, str("click"));
    EXPECT_TRUE(velt::send(idle, "action").isNil());
    VELT_NSCONTROL_TARGET(idle, owner);
    VELT_NSCONTROL_ACTIONNAME(idle, str("click"));
    EXPECT_VALUE("'click:'", velt::send(idle, "action"));
    EXPECT_VALUE("''", VELT_NSCONTROL_ACTIONNAME(idle));
    const id cell = VELT_NSBUTTONCELL_INIT(owner, "click:");
    EXPECT_EQ(id(owner), velt::send(cell, "target"));
}

TEST(Buttons, GiveTheirTextsAsCopiesThatMayBeChanged) {
    const id button = VELT_PUSHBUTTON_INIT(nil, "");
    VELT_NSBUTTON_TITLE(button, str("Save"));
    velt::asMutableString(VELT_NSBUTTON_TITLE(button)).append(u"!");
    EXPECT_VALUE("'Save'", VELT_NSBUTTON_TITLE(button));
    VELT_NSBUTTON_ALTERNATETITLE(button, str("Saved"));
    velt::asMutableString(VELT_NSBUTTON_ALTERNATETITLE(button)).append(u"!");
    EXPECT_VALUE("'Saved'", VELT_NSBUTTON_ALTERNATETITLE(button));
    VELT_NSBUTTON_KEYEQUIVLANET(button, str("s"));
    velt::asMutableString(VELT_NSBUTTON_KEYEQUIVLANET(button)).append(u"!");
    EXPECT_VALUE("'s'", VELT_NSBUTTON_KEYEQUIVLANET(button));
    const id text = str("Title");
    VELT_NSBUTTON_TITLE(button, text);
    velt::asMutableString(text).append(u" changed by the program later");
    EXPECT_VALUE("'Title'", VELT_NSBUTTON_TITLE(button));
}

TEST(Buttons, RefuseWhatIsOfAnotherKindAndStayAsTheyAre) {
    const id button = VELT_CHECKBOX_INIT(nil, "");
    VELT_NSBUTTON_STATE(button, VELT_ID(1L));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSBUTTON_IMAGE(button, VELT_ID(3L)));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSBUTTON_STATE(button, array()));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT_NSBUTTON_FRAME(button, str("x")));
    EXPECT_VALUE("'Button'", VELT_NSBUTTON_TITLE(button));
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(button));
    EXPECT_VALUE("q 0", VELT_NSBUTTON_STATE(nil));
    EXPECT_VALUE("q -1", VELT_NSBUTTON_BUTTONTYPE(nil));
    EXPECT_TRUE(VELT_NSBUTTON_TITLE(nil).isNil());
    EXPECT_RAISES("NSInvalidArgumentException: 'NSButton' setCell:: 'NSButtonCell' expected",
                  VELT_NSCONTROL_CELL(button, VELT_NSCELL_INIT(nil, "")));
}

TEST(Buttons, AreTheirStateAsAValue) {
    const id box = VELT_CHECKBOX_INIT(nil, "");
    EXPECT_VALUE("q 0", VELT_NSCONTROL_OBJECTVALUE(box));
    EXPECT_VALUE("'0'", VELT_NSCONTROL_STRINGVALUE(box));
    VELT_NSBUTTON_STATE(box, VELT_ID(1L));
    EXPECT_VALUE("q 1", VELT_NSCONTROL_INTEGERVALUE(box));
    EXPECT_VALUE("d 1", VELT_NSCONTROL_DOUBLEVALUE(box));
    EXPECT_VALUE("'1'", VELT_NSCONTROL_STRINGVALUE(box));
    VELT_NSCONTROL_STRINGVALUE(box, str("0"));
    EXPECT_VALUE("q 0", VELT_NSBUTTON_STATE(box));
    VELT_NSCONTROL_OBJECTVALUE(box, VELT_ID(BOOL{1}));
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(box));
    VELT_NSCONTROL_OBJECTVALUE(box, nil);
    EXPECT_VALUE("q 0", VELT_NSBUTTON_STATE(box));
    VELT_NSCONTROL_INTEGERVALUE(box, VELT_ID(-1L));
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(box));  // no mixed state unless it is allowed
    VELT_NSBUTTON_ALLOWSMIXEDSTATE(box, VELT_ID(BOOL{1}));
    VELT_NSCONTROL_INTEGERVALUE(box, VELT_ID(-1L));
    EXPECT_VALUE("q -1", VELT_NSBUTTON_STATE(box));
    VELT_NSBUTTON_ALLOWSMIXEDSTATE(box, VELT_ID(BOOL{0}));
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(box));
    VELT_NSBUTTON_STATE(box, VELT_ID(1000L));
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(box));
}

TEST(Buttons, SendTheirActionWhenAPersonClicksThem) {
    ControlWindow window;
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const id button = newButton(window, kind.make, {{20, 20}, {90, 28}});
        VELT_NSBUTTON_TITLE(button, str(kind.name));
        window.show();
        QTest::mouseClick(&widgetOf(button), Qt::LeftButton);
        EXPECT_EQ(std::string(kind.name) + " ", window.heard());
        QTest::keyClick(&widgetOf(button), Qt::Key_Space);
        EXPECT_EQ(std::string(kind.name) + " ", window.heard());
        VELT_NSCONTROL_ENABLED(button, VELT_ID(BOOL{0}));
        QTest::mouseClick(&widgetOf(button), Qt::LeftButton);
        velt::send(button, "performClick:", nil);
        EXPECT_EQ("", window.heard());
        velt::send(button, "removeFromSuperview");
    }
}

TEST(Buttons, SendNothingWhenTheMouseIsLetGoElsewhere) {
    ControlWindow window;
    const id button = newButton(window, VELT_CHECKBOX_INIT, {{20, 20}, {90, 28}});
    window.show();
    QTest::mousePress(&widgetOf(button), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseMove(&widgetOf(button), QPoint(5, 200));
    QTest::mouseRelease(&widgetOf(button), Qt::LeftButton, {}, QPoint(5, 200));
    EXPECT_EQ("", window.heard());
    EXPECT_VALUE("q 0", VELT_NSBUTTON_STATE(button));
}

TEST(Buttons, ChangeTheirStateByTheirType) {
    ControlWindow window;
    const id button = newButton(window, VELT_NSBUTTON_INIT, {{20, 20}, {90, 28}});
    window.show();
    const auto clicked = [&](long type) {
        VELT_NSBUTTON_BUTTONTYPE(button, VELT_ID(type));
        VELT_NSBUTTON_STATE(button, VELT_ID(0L));
        std::string states;
        for (int i = 0; i < 3; ++i) {
            QTest::mouseClick(&widgetOf(button), Qt::LeftButton);
            states += velt::utf8(VELT_NSCONTROL_STRINGVALUE(button)) + " ";
        }
        return states;
    };
    for (const long type : {0, 5, 7}) EXPECT_EQ("0 0 0 ", clicked(type)) << type;
    for (const long type : {1, 2, 3, 6}) EXPECT_EQ("1 0 1 ", clicked(type)) << type;
    EXPECT_EQ("1 1 1 ", clicked(4));
    VELT_NSBUTTON_ALLOWSMIXEDSTATE(button, VELT_ID(BOOL{1}));
    EXPECT_EQ("-1 1 0 ", clicked(3));
    VELT_NSBUTTON_BUTTONTYPE(button, VELT_ID(99L));  // there is none: it stays a switch
    EXPECT_TRUE(velt::as<NSButton>(button)->buttonCell().isSwitch());
    VELT_NSBUTTON_SETNEXTSTATE(button);
    EXPECT_VALUE("q -1", VELT_NSBUTTON_STATE(button));
}

TEST(DisclosureTriangles, TurnWithEveryClick) {
    const Direction leftToRight(Qt::LeftToRight);
    ControlWindow window;
    const id triangle = newButton(window, VELT_DISCLOSURETRIANGLE_INIT, {{20, 20}, {20, 20}});
    window.show();
    const QImage closed = shot(triangle);
    QTest::mouseClick(&widgetOf(triangle), Qt::LeftButton);
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(triangle));
    EXPECT_NE(closed, shot(triangle));
    widgetOf(triangle).setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(&widgetOf(triangle), Qt::Key_Space);
    EXPECT_VALUE("q 0", VELT_NSBUTTON_STATE(triangle));
    EXPECT_NE(closed, shot(triangle));  // it points to the left
}

TEST(RadioButtons, ExcludeThoseOfTheSameSuperviewAndAction) {
    ControlWindow window;
    const id a = newButton(window, VELT_RADIOBUTTON_INIT, {{20, 80}, {90, 20}});
    const id b = newButton(window, VELT_RADIOBUTTON_INIT, {{20, 50}, {90, 20}});
    const id c = newButton(window, VELT_RADIOBUTTON_INIT, {{20, 20}, {90, 20}}, "other:");
    const id box = newButton(window, VELT_CHECKBOX_INIT, {{120, 20}, {70, 20}});
    window.show();
    const auto states = [&] {
        std::string text;
        for (const id& each : {a, b, c, box}) text += velt::utf8(VELT_NSCONTROL_STRINGVALUE(each));
        return text;
    };
    for (const id& each : {a, c, box}) QTest::mouseClick(&widgetOf(each), Qt::LeftButton);
    EXPECT_EQ("1011", states());
    QTest::mouseClick(&widgetOf(b), Qt::LeftButton);
    EXPECT_EQ("0111", states());
    QTest::mouseClick(&widgetOf(b), Qt::LeftButton);
    EXPECT_EQ("0111", states());
    VELT_NSBUTTON_STATE(a, VELT_ID(1L));  // the program's choice counts as a person's
    EXPECT_EQ("1011", states());
    VELT_NSBUTTON_SETNEXTSTATE(a);
    EXPECT_EQ("1011", states());
    VELT_NSBUTTON_STATE(a, VELT_ID(0L));
    EXPECT_EQ("0011", states());
}

TEST(RadioButtons, AreChosenWithTheArrowKeys) {
    ControlWindow window;
    std::vector<id> radios;
    for (const char* title : {"one", "two", "three"}) {
        radios.push_back(
            newButton(window, VELT_RADIOBUTTON_INIT, {{20, 90.0 - 30 * static_cast<double>(radios.size())}, {90, 20}}));
        VELT_NSBUTTON_TITLE(radios.back(), str(title));
    }
    window.show();
    widgetOf(radios[0]).setFocus();
    QTest::keyClick(&widgetOf(radios[0]), Qt::Key_Down);
    EXPECT_EQ("two ", window.heard());
    EXPECT_TRUE(widgetOf(radios[1]).hasFocus());
    VELT_NSCONTROL_ENABLED(radios[2], VELT_ID(BOOL{0}));
    QTest::keyClick(&widgetOf(radios[1]), Qt::Key_Right);  // past the one that cannot be chosen, and around
    EXPECT_EQ("one ", window.heard());
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(radios[0]));
    EXPECT_VALUE("q 0", VELT_NSBUTTON_STATE(radios[1]));
    widgetOf(radios[0]).setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(&widgetOf(radios[0]), Qt::Key_Left);
    EXPECT_EQ("two ", window.heard());
}

TEST(KeyEquivalents, PressTheirButton) {
    ControlWindow window;
    const id plain = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 80}, {90, 28}});
    VELT_NSBUTTON_TITLE(plain, str("cancel"));
    VELT_NSBUTTON_KEYEQUIVLANET(plain, str("\x1b"));
    const id command = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 40}, {90, 28}});
    VELT_NSBUTTON_TITLE(command, str("save"));
    VELT_NSBUTTON_KEYEQUIVLANET(command, str("s"));
    VELT_NSBUTTON_KEYEQUIVLANETMODIFIERMASK(command, VELT_ID(static_cast<long>(NSEvent::kCommand)));
    EXPECT_VALUE("Q 1048576", VELT_NSBUTTON_KEYEQUIVLANETMODIFIERMASK(command));
    window.show();
    QWidget& target = window.widget();
    QTest::keyClick(&target, Qt::Key_Escape);
    EXPECT_EQ("cancel ", window.heard());
    QTest::keyClick(&target, Qt::Key_S);
    EXPECT_EQ("", window.heard());
    QTest::keyClick(&target, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ("save ", window.heard());
    QTest::keyClick(&target, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ("", window.heard());
    VELT_NSBUTTON_KEYEQUIVLANET(command, str("S"));  // a capital asks for Shift
    QTest::keyClick(&target, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ("save ", window.heard());
    QTest::keyClick(&target, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ("", window.heard());
    velt::as<NSButton>(command)->setHidden(true);
    QTest::keyClick(&target, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ("", window.heard());
    VELT_NSBUTTON_KEYEQUIVLANET(plain, str(""));
    QTest::keyClick(&target, Qt::Key_Escape);
    EXPECT_EQ("", window.heard());
}

TEST(DefaultButtons, ArePressedByReturnAndLookTheirPart) {
    ControlWindow window;
    const id ok = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 80}, {90, 28}});
    const id other = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 40}, {90, 28}});
    VELT_NSBUTTON_TITLE(ok, str("ok"));
    VELT_NSBUTTON_TITLE(other, str("ok"));
    window.show();
    const QImage before = shot(ok);
    VELT_NSWINDOW_DEFAULTBUTTONCELL(window.window, VELT_NSCONTROL_CELL(ok));
    EXPECT_NE(before, shot(ok));
    widgetOf(other).setFocus();
    QTest::keyClick(&widgetOf(other), Qt::Key_Return);
    EXPECT_EQ("ok ", window.heard());
    VELT_NSWINDOW_DISABLEKEYEQUIVALENTFORDEFAULTBUTTONCELL(window.window);
    QTest::keyClick(&widgetOf(other), Qt::Key_Return);
    EXPECT_EQ("", window.heard());
    VELT_NSWINDOW_ENABLEKEYEQUIVALENTFORDEFAULTBUTTONCELL(window.window);
    velt::as<NSButton>(ok)->setHidden(true);
    QTest::keyClick(&widgetOf(other), Qt::Key_Return);
    EXPECT_EQ("", window.heard());
    EXPECT_CAST_FAILURE("'NSButtonCell' expected", VELT_NSWINDOW_DEFAULTBUTTONCELL(window.window, ok));
}

TEST(DefaultButtons, AreMadeByTheKeyEquivalentReturn) {
    ControlWindow window;
    const id early = VELT_PUSHBUTTON_INIT(window.listener, "click:");
    VELT_NSBUTTON_TITLE(early, str("early"));
    VELT_NSBUTTON_KEYEQUIVLANET(early, str("\r"));
    EXPECT_TRUE(VELT_NSWINDOW_DEFAULTBUTTONCELL(window.window).isNil());
    VELT_NSWINDOW_APPEND(window.window, early);
    EXPECT_EQ(VELT_NSCONTROL_CELL(early), VELT_NSWINDOW_DEFAULTBUTTONCELL(window.window));
    window.show();
    QTest::keyClick(&window.widget(), Qt::Key_Return);
    EXPECT_EQ("early ", window.heard());
    QTest::keyClick(&window.widget(), Qt::Key_Enter);
    EXPECT_EQ("early ", window.heard());
    VELT_NSWINDOW_DISABLEKEYEQUIVALENTFORDEFAULTBUTTONCELL(window.window);
    QTest::keyClick(&window.widget(), Qt::Key_Return);
    EXPECT_EQ("", window.heard());
    velt::send(early, "removeFromSuperview");
    EXPECT_TRUE(VELT_NSWINDOW_DEFAULTBUTTONCELL(window.window).isNil());
    VELT_NSWINDOW_APPEND(window.window, early);
    VELT_NSBUTTON_KEYEQUIVLANET(early, str("x"));
    EXPECT_TRUE(VELT_NSWINDOW_DEFAULTBUTTONCELL(window.window).isNil());
}

TEST(Buttons, AreSeenPressedWhileTheirActionRuns) {
    ControlWindow window;
    const id button = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 20}, {90, 28}});
    window.show();
    const QImage idle = shot(button);
    velt::send(button, "performClick:", nil);
    EXPECT_EQ("Button ", window.heard());
    EXPECT_TRUE(widgetOf(button).isDown());
    EXPECT_NE(idle, shot(button));
    EXPECT_TRUE(comesTrue([&] { return !widgetOf(button).isDown(); }));
    VELT_NSBUTTON_HIGHLIGHT(button, VELT_ID(BOOL{1}));
    EXPECT_NE(idle, shot(button));
    VELT_NSBUTTON_HIGHLIGHT(button, VELT_ID(BOOL{0}));
    EXPECT_EQ(idle, shot(button));
}

TEST(Buttons, ShowTheirOtherContentsWhenOn) {
    ControlWindow window;
    const id button = newButton(window, VELT_NSBUTTON_INIT, {{20, 20}, {120, 28}});
    VELT_NSBUTTON_BUTTONTYPE(button, VELT_ID(2L));
    VELT_NSBUTTON_TITLE(button, str("Play"));
    VELT_NSBUTTON_ALTERNATETITLE(button, str("Stop"));
    window.show();
    const QImage off = shot(button);
    VELT_NSBUTTON_STATE(button, VELT_ID(1L));
    const QImage on = shot(button);
    EXPECT_NE(off, on);
    VELT_NSBUTTON_ALTERNATETITLE(button, str(""));
    EXPECT_EQ(off, shot(button));  // without another title it keeps its own
    VELT_NSBUTTON_STATE(button, VELT_ID(0L));
    EXPECT_VALUE("Q 0", VELT_NSBUTTON_IMAGEPOSITION(button));
    VELT_NSBUTTON_IMAGE(button, picture(Qt::red));
    EXPECT_VALUE("Q 2", VELT_NSBUTTON_IMAGEPOSITION(button));
    EXPECT_NE(off, shot(button));
    std::vector<QImage> seen;
    for (long position = 0; position <= 6; ++position) {
        VELT_NSBUTTON_IMAGEPOSITION(button, VELT_ID(position));
        seen.push_back(shot(button));
        EXPECT_EQ(1, std::count(seen.begin(), seen.end(), seen.back())) << position;
    }
    EXPECT_EQ(off, seen[0]);
    VELT_NSBUTTON_TRANSPARENT(button, VELT_ID(BOOL{1}));
    QTest::mouseClick(&widgetOf(button), Qt::LeftButton);
    EXPECT_EQ("Play ", window.heard());
}

TEST(Buttons, MirrorTheirPartsFromRightToLeft) {
    const Direction leftToRight(Qt::LeftToRight);
    ControlWindow window;
    const id box = newButton(window, VELT_CHECKBOX_INIT, {{20, 20}, {120, 28}});
    window.show();
    const QImage fromLeft = shot(box);
    widgetOf(box).setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(fromLeft, shot(box));
    widgetOf(box).setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(fromLeft, shot(box));
}

TEST(Buttons, TakeRichTitles) {
    ControlWindow window;
    const id button = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 20}, {120, 28}});
    VELT_NSBUTTON_TITLE(button, str("Red"));
    window.show();
    const QImage plain = shot(button);
    const Ref<NSMutableAttributedString> red = velt::make<NSMutableAttributedString>(u"Red");
    red->addAttribute(str("NSColor"), NSColor::deviceRgb(1, 0, 0, 1), {0, 3});
    VELT_NSBUTTON_ATTRIBUTEDTITLE(button, red);
    EXPECT_EQ("Red", velt::utf8(velt::attributedStringOf(VELT_NSBUTTON_ATTRIBUTEDTITLE(button))->string()));
    EXPECT_NE(plain, shot(button));
    VELT_NSBUTTON_TITLE(button, str("Red"));
    EXPECT_EQ(plain, shot(button));
    EXPECT_CAST_FAILURE("'AttributedString' expected", VELT_NSBUTTON_ATTRIBUTEDTITLE(button, VELT_ID(3L)));
}

TEST(Buttons, FitTheirTitle) {
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const id button = kind.make(nil, "");
        VELT_NSBUTTON_FRAME(button, rect(10, 10, 1, 1));
        VELT_NSCONTROL_SIZETOFIT(button);
        const NSRect fitted = velt::as<NSButton>(button)->frame();
        EXPECT_LE(13, fitted.size.width);
        EXPECT_LE(13, fitted.size.height);
        EXPECT_EQ(11, fitted.origin.y + fitted.size.height);  // the upper left corner stays
        if (kind.bezel == 5 || kind.bezel == 9 || kind.bezel == 14) continue;
        VELT_NSBUTTON_TITLE(button, str("A much longer title than before"));
        VELT_NSCONTROL_SIZETOFIT(button);
        EXPECT_LT(fitted.size.width + 50, velt::as<NSButton>(button)->frame().size.width);
    }
}

TEST(ButtonKinds, AreToldApartAtAGlance) {
    const QPalette own = QApplication::palette();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? darkPalette() : own);
        ControlWindow window;
        std::vector<QImage> seen;
        for (const Kind& kind : kKinds) {
            SCOPED_TRACE(kind.name);
            const id button = newButton(window, kind.make, {{20, 20}, {90, 30}});
            VELT_NSBUTTON_TITLE(button, str("Title"));
            window.show();
            seen.push_back(shot(button));
            EXPECT_EQ(1, std::count(seen.begin(), seen.end(), seen.back()));
            VELT_NSCONTROL_ENABLED(button, VELT_ID(BOOL{0}));
            EXPECT_NE(seen.back(), shot(button)) << "disabled";
            VELT_NSCONTROL_ENABLED(button, VELT_ID(BOOL{1}));
            widgetOf(button).setDown(true);
            EXPECT_NE(seen.back(), shot(button)) << "pressed";
            widgetOf(button).setDown(false);
            if (velt::as<NSButton>(button)->buttonCell().showsStateBy() != 0 || kind.bezel == 5) {
                VELT_NSBUTTON_STATE(button, VELT_ID(1L));
                EXPECT_NE(seen.back(), shot(button)) << "on";
            }
            velt::send(button, "removeFromSuperview");
        }
    }
    QApplication::setPalette(own);
}

TEST(ButtonKinds, SayWhatTheyAreToThoseWhoCannotSee) {
    ControlWindow window;
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const id button = newButton(window, kind.make, {{20, 20}, {90, 28}});
        VELT_NSBUTTON_TITLE(button, str("Name"));
        window.show();
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&widgetOf(button));
        ASSERT_NE(nullptr, told);
        EXPECT_EQ(kind.bezel == 9 ? "Help" : "Name", told->text(QAccessible::Name).toStdString());
        EXPECT_EQ(kind.type == 3   ? QAccessible::CheckBox
                  : kind.type == 4 ? QAccessible::RadioButton
                                   : QAccessible::Button,
                  told->role());
        told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ("Name ", window.heard());
        EXPECT_EQ(kind.type == 3 || kind.type == 4 || kind.bezel == 13, bool(told->state().checked));
        EXPECT_EQ(kind.bezel == 5 || kind.bezel == 14, bool(told->state().expanded));
        velt::send(button, "removeFromSuperview");
    }
}

TEST(Buttons, PlayTheirSound) {
    ControlWindow window;
    const id button = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 20}, {90, 28}});
    EXPECT_TRUE(VELT_NSBUTTON_SOUND(button).isNil());
    velt::send(button, "setSound:", window.listener);
    EXPECT_EQ(id(window.listener), VELT_NSBUTTON_SOUND(button));
    velt::send(button, "performClick:", nil);
    EXPECT_EQ("play Button ", window.heard());
}

TEST(Buttons, SurviveBeingRemovedByTheirOwnAction) {
    ControlWindow window;
    newButton(window, VELT_PUSHBUTTON_INIT, {{20, 20}, {90, 28}}, "removeSender:");
    window.show();
    QWidget* widget = window.widget().findChild<QAbstractButton*>();
    ASSERT_NE(nullptr, widget);
    QTest::mouseClick(widget, Qt::LeftButton);
    EXPECT_EQ("removed ", window.heard());
    EXPECT_TRUE(comesTrue([&] { return !window.widget().findChild<QAbstractButton*>(); }));
}

TEST(ButtonKinds, ShowThatTheyAreFocused) {
    ControlWindow window;
    for (const Kind& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const id other = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 80}, {90, 30}});
        const id button = newButton(window, kind.make, {{20, 20}, {90, 30}});
        window.show();
        widgetOf(other).setFocus();
        const QImage before = shot(button);
        VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window.window);
        VELT_NSWINDOW_SELECTNEXTKEYVIEW(window.window);
        EXPECT_EQ(button, VELT_NSWINDOW_FIRSTRESPONDER(window.window));
        EXPECT_NE(before, shot(button));
        velt::send(other, "removeFromSuperview");
        velt::send(button, "removeFromSuperview");
    }
}

TEST(ButtonKinds, ShowEveryState) {
    const QPalette own = QApplication::palette();
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? darkPalette() : own);
        ControlWindow window({{100, 100}, {640, 560}});
        double y = 490;
        for (const Kind& kind : kKinds) {
            double x = 16;
            for (int look = 0; look < 6; ++look) {
                const id button = newButton(window, kind.make, {{x, y}, {96, 28}}, "");
                VELT_NSBUTTON_TITLE(button, str(look == 1 ? "default" : kind.name));
                VELT_NSBUTTON_ALLOWSMIXEDSTATE(button, VELT_ID(BOOL{1}));
                if (look == 1) velt::as<NSButton>(button)->setKeyEquivalent(str("\r"));
                if (look == 2) VELT_NSBUTTON_HIGHLIGHT(button, VELT_ID(BOOL{1}));
                if (look == 3) VELT_NSBUTTON_STATE(button, VELT_ID(1L));
                if (look == 4) VELT_NSBUTTON_STATE(button, VELT_ID(-1L));
                if (look == 5) VELT_NSCONTROL_ENABLED(button, VELT_ID(BOOL{0}));
                x += 102;
            }
            y -= 35;
        }
        window.show();
        keepPicture(window.widget(), dark ? "buttons-dark" : "buttons-light");
        std::vector<QImage> boxes;
        for (const Ref<NSView>& view : velt::as<NSView>(VELT_NSWINDOW_CONTENTVIEW(window.window))->subviewList()) {
            if (!velt::as<NSButton>(view)->buttonCell().isSwitch()) continue;
            boxes.push_back(shot(view));
            EXPECT_EQ(1, std::count(boxes.begin(), boxes.end(), boxes.back())) << boxes.size();
        }
        EXPECT_EQ(6u, boxes.size());
    }
    QApplication::setPalette(own);
}

TEST(DroppedForms, LeaveNoButtonsBehind) {
    velt::collectCycles();
    for (int i = 0; i < 20; ++i) {
        ControlWindow window;
        const id button = newButton(window, VELT_PUSHBUTTON_INIT, {{20, 20}, {90, 30}});
        VELT_NSCONTROL_TARGET(button, window.window);    // a circle
        VELT_NSBUTTON_KEYEQUIVLANET(button, str("\r"));  // and another one
        window.show();
    }
    EXPECT_EQ(80u, velt::collectCycles());  // window, content view, button and cell of each
}
