#include "support/fields.h"
#include "support/patience.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>

using namespace velt::test;
using velt::Ref;

namespace {

/// A delegate with completions of its own, that refuses "no" and shows numbers as "#n".
class TokenListener : public FieldListener {
    VELT_OBJECT(TokenListener, FieldListener)

public:
    id completions(const id&, const id& text, long token, const id&) {
        heard += "complete(" + velt::utf8(text) + "," + std::to_string(token) + ") ";
        return velt::utf8(text) == "gr" ? array(str("green"), str("grey")) : id();
    }
    id mayAdd(const id&, const id& tokens, long index) {
        heard += "add" + velt::utf8(velt::description(tokens)) + std::to_string(index) + " ";
        const Ref<NSMutableArray> taken = velt::make<NSMutableArray>();
        for (const id& token : velt::arrayOf(tokens)->items()) {
            if (!velt::isEqual(token, str("no"))) taken->append(token);
        }
        return taken;
    }
    id shown(const id&, const id& token) {
        if (onShown) std::exchange(onShown, nullptr)();
        return velt::isNumber(token) ? VELT_CONCAT(str("#"), velt::description(token)) : id();
    }
    static void describe(velt::ClassBuilder<TokenListener>& c) {
        c.method("tokenField:completionsForSubstring:indexOfToken:indexOfSelectedItem:", &TokenListener::completions)
            .method("tokenField:shouldAddObjects:atIndex:", &TokenListener::mayAdd)
            .method("tokenField:displayStringForRepresentedObject:", &TokenListener::shown);
    }
    std::function<void()> onShown;  // called once
};

class TokenFields : public testing::Test {
protected:
    TokenFields() { shown.add(field); }
    std::string value() { return velt::utf8(velt::description(VELT_NSCONTROL_OBJECTVALUE(field))); }
    long selected() { return velt::as<NSTokenField>(field)->selectedToken(); }
    Ref<TokenListener> listener = velt::make<TokenListener>();
    id field = VELT_NSTOKENFIELD_INIT(listener, "pressed:");
    FieldWindow shown;
};

}  // namespace

TEST_F(TokenFields, HoldAnArray) {
    EXPECT_EQ(id(listener), VELT_NSTEXTFIELD_DELEGATE(field));
    EXPECT_EQ("()", value());
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("ink"), integer(5)));
    EXPECT_EQ("(ink, 5)", value());
    EXPECT_EQ("ink, #5", textOfField(field));
    VELT_NSCONTROL_STRINGVALUE(field, str(" a , b,,c "));
    EXPECT_EQ("(a, b, c)", value());
    VELT_NSCONTROL_OBJECTVALUE(field, nil);
    EXPECT_EQ("()", value());
}

TEST_F(TokenFields, MakeATokenOfWhatIsTypedBeforeAComma) {
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("in");
    EXPECT_EQ("(in)", value());
    EXPECT_EQ("begin? began() changed(i) changed(in) ", listener->take());
    type("k,");
    EXPECT_EQ("changed(ink) add(ink)0 changed(ink) ", listener->take());
    type("no,pen");
    press(Qt::Key_Return);
    EXPECT_EQ("(ink, pen)", value());
    listener->take();
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ended16(ink, pen) action(ink, pen) ", listener->take());
}

TEST_F(TokenFields, MakeATokenWhenTheEditEnds) {
    const id other = VELT_NSTEXTFIELD_INIT(nil, "");
    shown.add(other);
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("last");
    listener->take();
    press(Qt::Key_Tab);
    EXPECT_EQ("insertTab: end? add(last)0 ended17(last) action(last) ", listener->take());
    EXPECT_EQ("0+0", selectionOf(other));
}

TEST_F(TokenFields, SelectThenDeleteWithBackspace) {
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("a"), str("b"), str("c")));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    press(Qt::Key_Backspace);
    EXPECT_EQ(2, selected());
    EXPECT_EQ("(a, b, c)", value());
    press(Qt::Key_Backspace);
    EXPECT_EQ("(a, b)", value());
    EXPECT_EQ(-1, selected());
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    press(Qt::Key_Left);  // there is nothing before the first
    EXPECT_EQ(0, selected());
    press(Qt::Key_Right);
    EXPECT_EQ(1, selected());
    press(Qt::Key_Right);
    EXPECT_EQ(-1, selected());
    press(Qt::Key_Left);
    listener->take();
    type("x");
    EXPECT_EQ("(a, x)", value());
    press(Qt::Key_Escape);
    EXPECT_EQ("(a, b, c)", value());
}

TEST_F(TokenFields, SelectNoTokenThatTheProgramTookAway) {
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("a"), str("b"), str("c")));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    press(Qt::Key_Backspace);
    EXPECT_EQ(2, selected());
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("d")));
    EXPECT_EQ(0, selected());
    type("x");
    EXPECT_EQ("(x)", value());
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("e")));
    velt::as<NSTokenField>(field)->selectToken(0);
    VELT_NSCONTROL_OBJECTVALUE(field, array());
    EXPECT_EQ(-1, selected());
    type("y");
    EXPECT_EQ("(y)", value());
}

TEST_F(TokenFields, MayChangeWhileTheirTextsAreAskedFor) {
    ASSERT_TRUE(shown.show());
    const auto* line = velt::as<NSView>(field)->widget().findChild<QLineEdit*>();
    const QRect alone = line->geometry();
    const id many = array(str("a"), str("b"), str("c"));
    VELT_NSCONTROL_OBJECTVALUE(field, many);
    listener->onShown = [&] { VELT_NSCONTROL_OBJECTVALUE(field, array(str("d"))); };
    EXPECT_EQ("a, b, c", textOfField(field));
    EXPECT_EQ("d", textOfField(field));
    listener->onShown = [&] { VELT_NSCONTROL_OBJECTVALUE(field, array()); };
    VELT_NSCONTROL_OBJECTVALUE(field, many);
    EXPECT_EQ("()", value());
    EXPECT_EQ(alone, line->geometry());
}

TEST_F(TokenFields, CopyAndPasteAsText) {
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("a"), integer(7)));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("copy"));
    EXPECT_EQ("a, #7", QApplication::clipboard()->text().toStdString());
    press(Qt::Key_Left);
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("cut"));
    EXPECT_EQ("#7", QApplication::clipboard()->text().toStdString());
    EXPECT_EQ("(a)", value());
    QApplication::clipboard()->setText(QStringLiteral("one, two\nthree"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("paste"));
    EXPECT_EQ("(a, one, two, three)", value());
}

TEST_F(TokenFields, TakeOtherSeparators) {
    EXPECT_VALUE("','", velt::send(field, "tokenizingCharacterSet"));
    velt::send(field, "setTokenizingCharacterSet:", str(";|"));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("a,b;c|");
    EXPECT_EQ("(a,b, c)", value());
}

TEST_F(TokenFields, OfferCompletions) {
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("gr");
    ASSERT_TRUE(comesTrue([] { return QApplication::activePopupWidget() != nullptr; }));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    EXPECT_EQ(2, menu->actions().size());
    listener->take();
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ("add(grey)0 changed(grey) ", listener->take());
    EXPECT_EQ("(grey)", value());
}

TEST_F(TokenFields, CloseTheirCompletionsWithAKeyThoughTheEditorIsGone) {
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("gr");
    ASSERT_TRUE(comesTrue([] { return QApplication::activePopupWidget() != nullptr; }));
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    VELT_NSTEXTFIELD_SELECTABLE(field, boolean(false));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (menu) QTest::keyClick(menu, Qt::Key_X);
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST_F(TokenFields, AreSelectedByTheMouse) {
    VELT_NSCONTROL_OBJECTVALUE(field, array(str("first"), str("second")));
    ASSERT_TRUE(shown.show());
    QTest::mouseClick(&velt::as<NSView>(field)->widget(), Qt::LeftButton, {}, QPoint(16, 13));
    EXPECT_EQ(0, selected());
    press(Qt::Key_Delete);
    EXPECT_EQ("(second)", value());
}
