#include "support/direction.h"
#include "support/fields.h"
#include "support/streams.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/object/callback_failure.h"

#include <QAccessible>
#include <QClipboard>
#include <QLineEdit>
#include <QTextEdit>

using namespace velt::test;
using velt::Ref;

namespace {

/// Reads and writes lengths such as "3 m".
class LengthFormatter : public NSObject {
    VELT_OBJECT(LengthFormatter, NSObject)

public:
    id text(const id& value) const {
        return velt::isNumber(value) ? VELT_CONCAT(velt::description(value), str(" m")) : id();
    }
    id value(const id& text) const {
        const std::string given = velt::utf8(text);
        if (given.empty() || given.find_first_not_of("0123456789 m") != std::string::npos) return nil;
        return integer(std::stol(given));
    }
    static void describe(velt::ClassBuilder<LengthFormatter>& c) {
        c.method("stringForObjectValue:", &LengthFormatter::text)
            .method("objectValueForString:", &LengthFormatter::value);
    }
};

/// Reads every text as one in angle brackets.
class Quoting : public NSObject {
    VELT_OBJECT(Quoting, NSObject)

public:
    id value(const id& text) const { return VELT_CONCAT(VELT_CONCAT(str("<"), text), str(">")); }
    static void describe(velt::ClassBuilder<Quoting>& c) { c.method("objectValueForString:", &Quoting::value); }
};

/// Shows every value as it is, and raises when it is told to.
class RaisingFormatter : public NSObject {
    VELT_OBJECT(RaisingFormatter, NSObject)

public:
    id text(const id& value) const {
        if (raises) velt::raise("FormatException", "broken");
        return value;
    }
    static void describe(velt::ClassBuilder<RaisingFormatter>& c) {
        c.method("stringForObjectValue:", &RaisingFormatter::text);
    }
    bool raises = false;
};

/// Counts the clicks that the window gives its default button.
class DefaultButton : public NSActionCell {
    VELT_OBJECT(DefaultButton, NSActionCell)

public:
    void performClick(const id&) override { ++clicks; }
    int clicks = 0;
};

class TextFields : public testing::Test {
protected:
    id addField(const char* text = "", double height = 26) {
        const id field = VELT_NSTEXTFIELD_INIT(listener, "pressed:");
        VELT_NSCONTROL_STRINGVALUE(field, str(text));
        shown.add(field, height);
        return field;
    }
    Ref<FieldListener> listener = velt::make<FieldListener>();
    FieldWindow shown;
};

QLineEdit* lineOf(const id& field) { return velt::as<NSTextField>(field)->widget().findChild<QLineEdit*>(); }

}  // namespace

TEST_F(TextFields, AreMadeAsTheTableOfConstructorsSays) {
    const id field = VELT_NSTEXTFIELD_INIT(listener, "pressed:");
    EXPECT_EQ(id(listener), VELT_NSTEXTFIELD_DELEGATE(field));
    EXPECT_EQ(id(listener), VELT_NSCONTROL_TARGET(field));
    EXPECT_VALUE("c 1", VELT_NSTEXTFIELD_EDITABLE(field));
    EXPECT_VALUE("c 1", VELT_NSTEXTFIELD_SELECTABLE(field));
    EXPECT_VALUE("c 1", VELT_NSTEXTFIELD_BEZELED(field));
    EXPECT_VALUE("c 0", VELT_NSTEXTFIELD_BORDERED(field));
    EXPECT_VALUE("c 1", VELT_NSTEXTFIELD_DRAWSBACKGROUND(field));
    EXPECT_VALUE("Q 0", VELT_NSTEXTFIELD_BEZELSTYLE(field));
    EXPECT_VALUE("''", VELT_NSCONTROL_STRINGVALUE(field));
    const id label = VELT_LABEL_INIT(listener, "lacking:");
    EXPECT_EQ(id(listener), VELT_NSTEXTFIELD_DELEGATE(label));
    EXPECT_TRUE(VELT_NSCONTROL_TARGET(label).isNil());
    using Getter = id (*)(const id&);
    for (const Getter getter : {Getter{&VELT_NSTEXTFIELD_EDITABLE}, Getter{&VELT_NSTEXTFIELD_SELECTABLE},
                                Getter{&VELT_NSTEXTFIELD_BEZELED}, Getter{&VELT_NSTEXTFIELD_BORDERED}}) {
        EXPECT_VALUE("c 0", getter(label));
    }
    const id secret = VELT_NSSECURETEXTFIELD_INIT(listener, "pressed:");
    EXPECT_EQ("NSSecureTextField", velt::classOf(secret)->name());
    EXPECT_EQ(id(listener), VELT_NSTEXTFIELD_DELEGATE(secret));
}

TEST_F(TextFields, TellAnEditInOrder) {
    const id field = addField();
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("ab");
    EXPECT_EQ("begin? began() changed(a) changed(ab) ", listener->take());
    EXPECT_VALUE("'ab'", VELT_NSCONTROL_STRINGVALUE(field));
    EXPECT_VALUE("c 1", velt::send(field, "isEditing"));
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ended16(ab) action(ab) ", listener->take());
    EXPECT_EQ("0+2", selectionOf(field));
    EXPECT_VALUE("c 0", velt::send(field, "isEditing"));
}

TEST_F(TextFields, SendTheActionOnReturnThoughNothingWasTyped) {
    const id field = addField("same");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    press(Qt::Key_Enter);
    EXPECT_EQ("insertNewline: action(same) ", listener->take());
}

TEST_F(TextFields, GoOnWithTabAndSendTheActionOfAnEdit) {
    const id first = addField("one"), second = addField("two");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(first));
    EXPECT_EQ("0+3", selectionOf(first));
    press(Qt::Key_Tab);
    EXPECT_EQ("insertTab: ", listener->take());
    EXPECT_EQ("0+3", selectionOf(second));
    EXPECT_EQ("none", selectionOf(first));
    type("x");
    listener->take();
    press(Qt::Key_Backtab);
    EXPECT_EQ("insertBacktab: end? ended18(x) action(x) ", listener->take());
    EXPECT_EQ("0+3", selectionOf(first));
    type("y");
    listener->take();
    velt::send(velt::send(first, "cell"), "setSendsActionOnEndEditing:", boolean(false));
    press(Qt::Key_Tab);
    EXPECT_EQ("insertTab: end? ended17(y) ", listener->take());
}

TEST_F(TextFields, EndAnEditWhenTheMouseGoesElsewhere) {
    const id first = addField("one"), second = addField("two");
    ASSERT_TRUE(shown.show());
    QTest::mouseClick(lineOf(first), Qt::LeftButton, {}, QPoint(200, 8));
    EXPECT_EQ("3+0", selectionOf(first));
    type("s");
    listener->take();
    QTest::mouseClick(lineOf(second), Qt::LeftButton, {}, QPoint(200, 8));
    EXPECT_EQ("end? ended0(ones) action(ones) ", listener->take());
    EXPECT_EQ("3+0", selectionOf(second));
}

TEST_F(TextFields, PutTheOldTextBackOnEscape) {
    const id field = addField("old");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("new");
    listener->take();
    press(Qt::Key_Escape);
    EXPECT_EQ("cancelOperation: changed(old) ended23(old) ", listener->take());
    EXPECT_EQ("old", textOfField(field));
    EXPECT_EQ("old", lineOf(field)->text().toStdString());
    EXPECT_EQ("0+3", selectionOf(field));
    press(Qt::Key_Escape);  // nothing to put back
    EXPECT_EQ("cancelOperation: ", listener->take());
}

TEST_F(TextFields, AskWhetherAnEditMayBegin) {
    const id field = addField("fixed");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    listener->allowsBegin = false;
    type("x");
    EXPECT_EQ("begin? ", listener->take());
    EXPECT_EQ("fixed", textOfField(field));
    EXPECT_EQ("fixed", lineOf(field)->text().toStdString());
}

TEST_F(TextFields, StayWhereTheEditMayNotEnd) {
    const id first = addField(), second = addField();
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(first));
    type("bad");
    listener->take();
    listener->allowsEnd = false;
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ", listener->take());
    press(Qt::Key_Tab);
    EXPECT_EQ("insertTab: end? ", listener->take());
    EXPECT_EQ("3+0", selectionOf(first));
    EXPECT_FALSE(shown.focus(second));
    EXPECT_EQ("end? ", listener->take());
    QTest::mouseClick(lineOf(second), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(lineOf(first), QApplication::focusWidget());
    listener->allowsEnd = true;
    listener->take();
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ended16(bad) action(bad) ", listener->take());
}

TEST_F(TextFields, LetTheDelegateTakeKeys) {
    const id field = addField("abc");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    press(Qt::Key_Home);
    press(Qt::Key_Right);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ("1+1", selectionOf(field));
    EXPECT_EQ("moveUp: moveDown: moveToBeginningOfLine: moveRight: moveRightAndModifySelection: ", listener->take());
    listener->takes = "deleteBackward:";
    press(Qt::Key_Backspace);
    EXPECT_EQ("deleteBackward: ", listener->take());
    EXPECT_EQ("abc", textOfField(field));
    listener->takes = "insertTab:";
    press(Qt::Key_Tab);
    EXPECT_EQ("1+1", selectionOf(field));
}

TEST_F(TextFields, TakeWhatTheProgramSetsWhileSomebodyTypes) {
    const id field = addField("first");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("typed");
    VELT_NSCONTROL_STRINGVALUE(field, str("program"));
    EXPECT_EQ("program", lineOf(field)->text().toStdString());
    press(Qt::Key_Escape);
    EXPECT_EQ("program", textOfField(field));
    listener->take();
    listener->onChange = [](const id& changed) {
        VELT_NSCONTROL_STRINGVALUE(changed, VELT_UCASE(VELT_NSCONTROL_STRINGVALUE(changed)));
    };
    type("abc");
    EXPECT_EQ("ABC", lineOf(field)->text().toStdString());
    press(Qt::Key_Escape);
    EXPECT_EQ("PROGRAM", textOfField(field));  // the delegate hears of that change too
}

TEST_F(TextFields, PostWhatTheyTellAsNotifications) {
    const id field = addField();
    VELT_NSTEXTFIELD_DELEGATE(field, nil);
    auto& center = NSNotificationCenter::defaultCenter();
    for (const char* part : {"DidBeginEditing", "DidChange", "DidEndEditing"}) {
        const std::string name = std::string("NSControlText") + part + "Notification";
        const char* selector = part[3] == 'B'   ? "controlTextDidBeginEditing:"
                               : part[3] == 'C' ? "controlTextDidChange:"
                                                : "controlTextDidEndEditing:";
        center.addObserver(listener, velt::Selector::named(selector), str(name), field);
    }
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("q");
    press(Qt::Key_Return);
    EXPECT_EQ("began() changed(q) ended16(q) action(q) ", listener->take());
    center.removeObserver(listener);
}

TEST_F(TextFields, AnswerTheEditCommandsOfMenus) {
    const id field = addField("hello");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("selectAll"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("cut"));
    EXPECT_EQ("", textOfField(field));
    EXPECT_EQ("hello", QApplication::clipboard()->text().toStdString());
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("undo"));
    EXPECT_EQ("hello", textOfField(field));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("redo"));
    EXPECT_EQ("", textOfField(field));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("paste"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("paste"));
    EXPECT_EQ("hellohello", textOfField(field));
    velt::send(velt::send(field, "currentEditor"), "setSelectedRange:", range(0, 4));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("copy"));
    EXPECT_EQ("hell", QApplication::clipboard()->text().toStdString());
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("delete"));
    EXPECT_EQ("ohello", textOfField(field));
}

TEST_F(TextFields, JoinPastedLines) {
    const id field = addField("");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    QApplication::clipboard()->setText(QStringLiteral("one\r\ntwo\nthree\n"));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ("one two three", textOfField(field));
    EXPECT_EQ("one two three", lineOf(field)->text().toStdString());
    EXPECT_EQ("13+0", selectionOf(field));
}

TEST_F(TextFields, ReadAndWriteThroughTheirFormatter) {
    const id field = addField();
    velt::send(field, "setFormatter:", id(velt::make<LengthFormatter>()));
    VELT_NSCONTROL_OBJECTVALUE(field, integer(3));
    EXPECT_VALUE("'3 m'", VELT_NSCONTROL_STRINGVALUE(field));
    VELT_NSCONTROL_STRINGVALUE(field, str("12"));
    EXPECT_VALUE("q 12", VELT_NSCONTROL_OBJECTVALUE(field));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    EXPECT_EQ("0+4", selectionOf(field));
    type("45");
    EXPECT_VALUE("'45'", VELT_NSCONTROL_STRINGVALUE(field));
    EXPECT_VALUE("q 45", VELT_NSCONTROL_OBJECTVALUE(field));
    press(Qt::Key_Return);
    EXPECT_EQ("45 m", lineOf(field)->text().toStdString());
    type("far");
    listener->take();
    press(Qt::Key_Return);  // means nothing: the edit goes on
    EXPECT_EQ("insertNewline: end? ", listener->take());
    EXPECT_VALUE("c 1", velt::send(field, "isEditing"));
    press(Qt::Key_Escape);
    EXPECT_EQ("45 m", textOfField(field));
    EXPECT_EQ("45 m", lineOf(field)->text().toStdString());
}

TEST_F(TextFields, LetTheirFormatterReadOnceWhatIsTyped) {
    const id field = addField();
    velt::send(field, "setFormatter:", id(velt::make<Quoting>()));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("a");
    EXPECT_VALUE("'<a>'", VELT_NSCONTROL_OBJECTVALUE(field));
    VELT_NSCONTROL_STRINGVALUE(field, str("b"));
    EXPECT_VALUE("'<b>'", VELT_NSCONTROL_OBJECTVALUE(field));
}

TEST_F(TextFields, ReportAFormatterThatRaisesWhileTheyAreDrawn) {
    const id label = VELT_LABEL_INIT(nil, "");
    const Ref<RaisingFormatter> formatter = velt::make<RaisingFormatter>();
    velt::send(label, "setFormatter:", formatter);
    shown.add(label);
    ASSERT_TRUE(shown.show());
    const std::string said = written([&] {
        const velt::CallbackShelter shelter;
        formatter->raises = true;
        velt::as<NSView>(label)->widget().grab();
        formatter->raises = false;
    });
    EXPECT_NE(std::string::npos, said.find("FormatException: broken\n")) << said;
}

TEST_F(TextFields, RefuseSelectionsBeyondTheirText) {
    const id field = addField("text");
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    const id editor = velt::send(field, "currentEditor");
    velt::send(editor, "setSelectedRange:", range(1, 3));
    EXPECT_RAISES("NSRangeException: 'VLFieldEditor' setSelectedRange:: index 5 is out of range; the count is 4",
                  velt::send(editor, "setSelectedRange:", range(2, 3)));
    EXPECT_RAISES("NSRangeException: 'VLFieldEditor' setSelectedRange:: index 9223372036854775807 is out of range; the "
                  "count is 4",
                  velt::send(editor, "setSelectedRange:", range(LONG_MAX, 1)));
    EXPECT_EQ("1+3", selectionOf(field));
}

TEST_F(TextFields, ReadTheirTextAsAnIntegerToTheLastDigit) {
    const id field = addField();
    const auto integerOf = [&](const char* text) {
        VELT_NSCONTROL_STRINGVALUE(field, str(text));
        return VELT_NSCONTROL_INTEGERVALUE(field);
    };
    EXPECT_VALUE("q 12", integerOf("12.9 m"));
    EXPECT_VALUE("q 2500", integerOf("2.5e3"));
    EXPECT_VALUE("q 9007199254740993", integerOf("9007199254740993"));
    EXPECT_VALUE("q 4700000000000000000", integerOf("4.7e18"));
    EXPECT_VALUE("q 9223372036854775807", integerOf("9223372036854775807"));
    EXPECT_VALUE("q -9223372036854775808", integerOf("-9223372036854775808"));
    EXPECT_VALUE("q 9223372036854775807", integerOf("1e300"));
    EXPECT_VALUE("q -9223372036854775808", integerOf("-1e300"));
}

TEST_F(TextFields, WrapWhereThereIsRoomForTwoLines) {
    const id field = addField("a", 60);
    ASSERT_TRUE(shown.show());
    auto* page = velt::as<NSTextField>(field)->widget().findChild<QTextEdit*>();
    ASSERT_TRUE(page);
    ASSERT_TRUE(shown.focus(field));
    type("one");
    press(Qt::Key_Return, Qt::AltModifier);
    type("two");
    EXPECT_VALUE("'one\ntwo'", VELT_NSCONTROL_STRINGVALUE(field));
    EXPECT_EQ("begin? began(a) changed(o) changed(on) changed(one) insertNewlineIgnoringFieldEditor: changed(one\n) "
              "changed(one\nt) changed(one\ntw) changed(one\ntwo) ",
              listener->take());
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ended16(one\ntwo) action(one\ntwo) ", listener->take());
    EXPECT_EQ("0+7", selectionOf(field));
    velt::send(field, "setFrameSize:", VELT_ID(NSSize{300, 26}));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(lineOf(field));
    EXPECT_EQ("0+7", selectionOf(field)) << "the keyboard stays";
}

TEST_F(TextFields, RefuseTheKeyboardUnlessTheirTextCanBeSelected) {
    const id label = VELT_LABEL_INIT(listener, "");
    VELT_NSCONTROL_STRINGVALUE(label, str("Name"));
    shown.add(label, 18);
    const id field = addField("text");
    ASSERT_TRUE(shown.show());
    EXPECT_FALSE(shown.focus(label));
    VELT_NSTEXTFIELD_SELECTTEXT(label);
    EXPECT_EQ("none", selectionOf(label));
    VELT_NSTEXTFIELD_SELECTABLE(label, boolean(true));
    VELT_NSTEXTFIELD_SELECTTEXT(label);
    EXPECT_EQ("0+4", selectionOf(label));
    type("x");
    EXPECT_EQ("Name", textOfField(label));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("copy"));
    EXPECT_EQ("Name", QApplication::clipboard()->text().toStdString());
    VELT_NSCONTROL_ENABLED(field, boolean(false));
    EXPECT_FALSE(shown.focus(field));
    EXPECT_VALUE("c 0", VELT_NSCONTROL_ENABLED(field));
}

TEST_F(TextFields, SayNothingWhenTheyAreTakenAwayDuringAnEdit) {
    const id field = addField();
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("kept");
    listener->take();
    velt::send(field, "removeFromSuperview");
    QApplication::processEvents();
    EXPECT_EQ("", listener->take());
    EXPECT_EQ("kept", textOfField(field));
    EXPECT_VALUE("c 0", velt::send(field, "isEditing"));
}

TEST_F(TextFields, LiveUntilTheirActionIsOverThoughTheProgramDropsThem) {
    id field = addField();
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    listener->onChange = [&](const id& changed) {
        velt::send(changed, "removeFromSuperview");
        field = nil;
    };
    type("x");
    EXPECT_TRUE(field.isNil());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(TextFields, ReturnOfAFieldWithoutActionPressesTheDefaultButton) {
    const id field = addField("x");
    const Ref<DefaultButton> button = velt::make<DefaultButton>();
    velt::as<NSWindow>(shown.window())->setDefaultButtonCell(button);
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    press(Qt::Key_Return);
    EXPECT_EQ(0, button->clicks);
    VELT_NSCONTROL_TARGET(field, nil);
    velt::send(field, "setAction:", nil);
    press(Qt::Key_Return);
    EXPECT_EQ(1, button->clicks);
}

TEST_F(TextFields, AreAsLargeAsTheirText) {
    const id label = VELT_LABEL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(label, str("A rather long label"));
    VELT_NSCONTROL_SIZETOFIT(label);
    const NSRect fitted = VELT_CNSRECT(velt::send(label, "frame"));
    EXPECT_LT(60, fitted.size.width);
    EXPECT_LT(10, fitted.size.height);
    const id field = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(field, str("A rather long label"));
    VELT_NSCONTROL_SIZETOFIT(field);
    const NSRect framed = VELT_CNSRECT(velt::send(field, "frame"));
    EXPECT_LT(fitted.size.width, framed.size.width);
    EXPECT_LT(fitted.size.height, framed.size.height);
}

TEST_F(TextFields, HaveANameForThoseWhoCannotSeeThem) {
    const id label = VELT_LABEL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(label, str("Street"));
    shown.add(label, 18);
    const id field = addField("Long Lane");
    velt::send(field, "setPlaceholderString:", str("Street and number"));
    ASSERT_TRUE(shown.show());
    QAccessibleInterface* said = QAccessible::queryAccessibleInterface(&velt::as<NSView>(label)->widget());
    EXPECT_EQ(QAccessible::StaticText, said->role());
    EXPECT_EQ("Street", said->text(QAccessible::Name).toStdString());
    QAccessibleInterface* edits = QAccessible::queryAccessibleInterface(lineOf(field));
    EXPECT_EQ(QAccessible::EditableText, edits->role());
    EXPECT_EQ("Street and number", edits->text(QAccessible::Name).toStdString());
    EXPECT_EQ("Long Lane", edits->text(QAccessible::Value).toStdString());
}

TEST_F(TextFields, StandAtTheRightInRightToLeftLayouts) {
    const id field = addField("text");
    const Direction asBefore(Qt::RightToLeft);
    ASSERT_TRUE(shown.show());
    EXPECT_TRUE(lineOf(field)->alignment() & Qt::AlignRight);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    EXPECT_TRUE(lineOf(field)->alignment() & Qt::AlignLeft);
    VELT_NSCONTROL_ALIGNMENT(field, integer(2));
    EXPECT_TRUE(lineOf(field)->alignment() & Qt::AlignHCenter);
}

TEST_F(TextFields, ShowTheirColours) {
    const id field = addField("");
    VELT_NSTEXTFIELD_BEZELED(field, boolean(false));
    VELT_NSTEXTFIELD_BACKGROUNDCOLOR(field, id(velt::make<NSColor>(1.0, 0.0, 0.0, 1.0)));
    ASSERT_TRUE(shown.show());
    QWidget& widget = velt::as<NSView>(field)->widget();
    EXPECT_EQ(QColor(Qt::red), widget.grab().toImage().pixelColor(150, 13));
    VELT_NSTEXTFIELD_DRAWSBACKGROUND(field, boolean(false));
    EXPECT_NE(QColor(Qt::red), widget.grab().toImage().pixelColor(150, 13));
    EXPECT_CAST_FAILURE("'NSColor' expected", VELT_NSTEXTFIELD_TEXTCOLOR(field, str("red")));
    EXPECT_CAST_FAILURE("'NSColor' expected", velt::send(field, "setTextColor:", str("red")));
    EXPECT_CAST_FAILURE("'NSColor' expected", velt::send(field, "setBackgroundColor:", str("red")));
    EXPECT_CAST_FAILURE("'NSFont' expected", velt::send(field, "setFont:", str("Sans")));
}

TEST_F(TextFields, ThatAreSecretGiveNothingAway) {
    const id field = VELT_NSSECURETEXTFIELD_INIT(listener, "pressed:");
    shown.add(field);
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    QApplication::clipboard()->setText(QStringLiteral("before"));
    type("pass");
    EXPECT_EQ("pass", textOfField(field));
    EXPECT_EQ(QLineEdit::Password, lineOf(field)->echoMode());
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("selectAll"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("copy"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("cut"));
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    velt::send(velt::send(field, "currentEditor"), "copy:", nil);
    EXPECT_EQ("before", QApplication::clipboard()->text().toStdString());
    press(Qt::Key_Z, Qt::ControlModifier);
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("undo"));
    EXPECT_EQ("pass", textOfField(field));
    for (QWidget* widget : {&velt::as<NSView>(field)->widget(), static_cast<QWidget*>(lineOf(field))}) {
        QAccessibleInterface* said = QAccessible::queryAccessibleInterface(widget);
        for (const auto kind : {QAccessible::Name, QAccessible::Value, QAccessible::Description})
            EXPECT_FALSE(said->text(kind).contains(QLatin1String("pass")));
    }
    press(Qt::Key_Return);
    EXPECT_EQ("pass", textOfField(field));
}

TEST_F(TextFields, AreAsSecretAsTheirCell) {
    const id field = VELT_NSTEXTFIELD_INIT(listener, "pressed:");
    VELT_NSCONTROL_STRINGVALUE(field, str("letters"));
    const id plain = velt::send(field, "cell");
    shown.add(field);
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    const id secret = VELT_NSSECURETEXTFIELD_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(secret, str("hidden"));
    velt::send(field, "setCell:", velt::send(secret, "cell"));
    QTest::qWait(1);  // the editor before it goes with the next events
    ASSERT_TRUE(lineOf(field));
    EXPECT_EQ(QLineEdit::Password, lineOf(field)->echoMode());
    EXPECT_EQ("hidden", lineOf(field)->text().toStdString());
    QApplication::clipboard()->setText(QStringLiteral("before"));
    velt::send(field, "selectText:", nil);
    velt::send(field, "copy:", nil);
    velt::send(field, "cut:", nil);
    EXPECT_EQ("before", QApplication::clipboard()->text().toStdString());
    EXPECT_EQ("hidden", textOfField(field));
    velt::send(field, "setCell:", plain);
    QTest::qWait(1);
    EXPECT_EQ(QLineEdit::Normal, lineOf(field)->echoMode());
    EXPECT_EQ("letters", lineOf(field)->text().toStdString());
    velt::send(field, "selectText:", nil);
    velt::send(field, "copy:", nil);
    EXPECT_EQ("letters", QApplication::clipboard()->text().toStdString());
}

TEST_F(TextFields, ThatAreSecretShowNoTextWithAttributes) {
    const id field = VELT_NSSECURETEXTFIELD_INIT(listener, "pressed:");
    VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(field, id(velt::make<NSAttributedString>(u"pass")));
    shown.add(field);
    ASSERT_TRUE(shown.show());
    EXPECT_FALSE(velt::as<NSView>(field)->widget().findChild<QTextEdit*>());
    ASSERT_TRUE(lineOf(field));
    EXPECT_EQ(QLineEdit::Password, lineOf(field)->echoMode());
    EXPECT_EQ("pass", textOfField(field));
}
