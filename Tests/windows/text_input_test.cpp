// What a person does in a text view.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/displays.h"
#include "support/shown_text.h"
#include "support/values.h"

#include "VELTRuntime/platform/appkit/text/text_finder.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

using namespace velt::test;
using velt::Ref;

namespace {

/// Hears of editing, and may forbid it or take a command over.
class EditingListener : public NSObject {
    VELT_OBJECT(EditingListener, NSObject)

public:
    void began(const id&) { heard += "begin "; }
    void changed(const id&) { heard += "change "; }
    void ended(const id&) { heard += "end "; }
    bool shouldChange(const id&, const id&, const id&) { return allowed; }
    bool command(const id&, const id& name) {
        heard += velt::utf8(name) + " ";
        return velt::utf8(name) == taken;
    }
    bool link(const id&, const id& target, const id& place) {
        heard += velt::utf8(velt::description(target)) + "@" + std::to_string(VELT_CINTEGER(place)) + " ";
        return true;
    }
    static void describe(velt::ClassBuilder<EditingListener>& c) {
        c.method("textDidBeginEditing:", &EditingListener::began)
            .method("textDidChange:", &EditingListener::changed)
            .method("textDidEndEditing:", &EditingListener::ended)
            .method("textView:shouldChangeTextInRange:replacementString:", &EditingListener::shouldChange)
            .method("textView:doCommandBySelector:", &EditingListener::command)
            .method("textView:clickedOnLink:atIndex:", &EditingListener::link);
    }
    std::string heard, taken;
    bool allowed = true;
};

/// A delegate that makes another undo manager whenever it is asked for one.
class ForgetfulGiver : public NSObject {
    VELT_OBJECT(ForgetfulGiver, NSObject)

public:
    id given(const id&) {
        ++asked;
        return velt::make<NSUndoManager>();
    }
    static void describe(velt::ClassBuilder<ForgetfulGiver>& c) {
        c.method("undoManagerForTextView:", &ForgetfulGiver::given);
    }
    int asked = 0;
};

/// Puts two spaces for a Tab, as the editor does.
class SpacingView : public NSTextView {
    VELT_OBJECT(SpacingView, NSTextView)

public:
    void insertTab(const id&) override { velt::send(id(this), "insertText:", str("  ")); }
    void keyDown(const id& event) override {
        keys += velt::utf8(velt::send(event, "characters"));
        NSTextView::keyDown(event);
    }
    void drawRect(NSRect) override { ++drawn; }
    static void describe(velt::ClassBuilder<SpacingView>& c) { c.method("drawRect:", &SpacingView::drawRect); }
    std::string keys;
    int drawn = 0;
};

/// A text view that has the keyboard in a window of its own.
class TextInput : public testing::Test {
protected:
    template <class View = NSTextView> Ref<View> show(std::string_view text) {
        window = VELT_NSWINDOW_INIT(nil, "");
        VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{50, 60}, {400, 322}}));
        Ref<View> view = velt::make<View>();
        view->setFrame({{0, 0}, {400, 300}});
        VELT_NSTEXTVIEW_VALUE(view, str(text));
        VELT_NSWINDOW_APPEND(window, view);
        VELT_NSWINDOW_SHOW(window);
        EXPECT_TRUE(velt::test::windowBecomesActive(velt::as<NSWindow>(window)->widget()));
        EXPECT_VALUE("c 1", VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, view));
        widget = view->existingTextWidget();
        return view;
    }
    void TearDown() override {
        if (!window.isNil()) VELT_NSWINDOW_CLOSE(window);
    }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(widget, Qt::Key(code), modifiers); }
    id window;
    velt::TextWidget* widget = nullptr;
};

std::string value(const Ref<NSTextView>& view) { return velt::utf8(VELT_NSTEXTVIEW_VALUE(view)); }
std::string selected(const Ref<NSTextView>& view) {
    return velt::utf8(velt::description(velt::send(view, "selectedRange")));
}

}  // namespace

TEST_F(TextInput, TypesDeletesAndUndoes) {
    const Ref<NSTextView> view = show("");
    QTest::keyClicks(widget, QStringLiteral("Hallo Welt"));
    EXPECT_EQ("Hallo Welt", value(view));
    key(Qt::Key_Backspace);
    key(Qt::Key_Backspace);
    EXPECT_EQ("Hallo We", value(view));
    key(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ("Hallo ", value(view));
    key(Qt::Key_Return);
    key(Qt::Key_Tab);
    QTest::keyClicks(widget, QStringLiteral("x"));
    EXPECT_EQ("Hallo \n\tx", value(view));
    for (const char* step : {"Hallo \n", "Hallo ", "Hallo We", "Hallo Welt", ""}) {
        key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(step, value(view));
    }
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ("", value(view));
    for (int i = 0; i < 9; ++i) key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ("Hallo \n\tx", value(view));
    EXPECT_EQ(drawnText(*widget), value(view));
}

TEST_F(TextInput, MovesOverLineEndsOfTwoUnitsAtOnce) {
    const Ref<NSTextView> view = show("a\r\nb");
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    key(Qt::Key_End);
    EXPECT_EQ("{1, 0}", selected(view));
    key(Qt::Key_Right);
    EXPECT_EQ("{3, 0}", selected(view));
    key(Qt::Key_Left);
    EXPECT_EQ("{1, 0}", selected(view));
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ("{1, 2}", selected(view));
    key(Qt::Key_Delete);
    EXPECT_EQ("ab", value(view));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ("{0, 2}", selected(view));
    velt::send(view, "doCommandBySelector:", str("moveToBeginningOfDocument:"));
    EXPECT_EQ("{0, 0}", selected(view));
    velt::send(view, "doCommandBySelector:", str("moveRightAndModifySelection:"));
    EXPECT_EQ("{0, 1}", selected(view));
    EXPECT_VALUE("c 0", velt::send(view, "doCommandBySelector:", str("moveHouse:")));
}

TEST_F(TextInput, UsesTheDesktopsClipboardKeys) {
    const Ref<NSTextView> view = show("one two");
    velt::send(view, "setSelectedRange:", range(0, 4));
    key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ("two", value(view));
    key(Qt::Key_End);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ("twoone ", value(view));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QStringLiteral("twoone "), QApplication::clipboard()->text());
}

TEST_F(TextInput, ReachesTheTextByTheFirstRespondersActions) {
    const Ref<NSTextView> view = show("abc");
    EXPECT_VALUE("c 1", VELT_FIRSTRESPONDER_SENDACTION(nil, str("selectAll")));
    EXPECT_EQ("{0, 3}", selected(view));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("copy"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("cut:"));
    EXPECT_EQ("", value(view));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("paste"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("paste"));
    EXPECT_EQ("abcabc", value(view));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("undo"));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("redo"));
    EXPECT_EQ("abcabc", value(view));
}

TEST_F(TextInput, TellsTheDelegateOfTheBeginningAndTheEnd) {
    const Ref<NSTextView> view = show("");
    const Ref<EditingListener> listener = velt::make<EditingListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    QTest::keyClicks(widget, QStringLiteral("ab"));
    EXPECT_EQ("begin change change ", std::exchange(listener->heard, ""));
    widget->clearFocus();
    EXPECT_EQ("end ", std::exchange(listener->heard, ""));
    widget->setFocus();
    listener->taken = "insertNewline:";
    key(Qt::Key_Return);
    EXPECT_EQ("insertNewline: ", std::exchange(listener->heard, ""));
    EXPECT_EQ("ab", value(view));
    listener->allowed = false;
    QTest::keyClicks(widget, QStringLiteral("c"));
    key(Qt::Key_Backspace);
    EXPECT_EQ("ab", value(view));
    EXPECT_EQ("ab", drawnText(*widget));
}

TEST_F(TextInput, LeavesKeysToSubclassesFirst) {
    const Ref<SpacingView> view = show<SpacingView>("");
    QTest::keyClicks(widget, QStringLiteral("a"));
    key(Qt::Key_Tab);
    EXPECT_EQ("a  ", value(view));
    EXPECT_EQ("a\t", view->keys);
    widget->grab();
    EXPECT_LT(0, view->drawn);
}

TEST_F(TextInput, ReadsOnlyWhatMayNotBeEdited) {
    const Ref<NSTextView> view = show("abc");
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    QTest::keyClicks(widget, QStringLiteral("x"));
    key(Qt::Key_Delete);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ("abc", value(view));
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ("{0, 3}", selected(view));
    EXPECT_TRUE(widget->isReadOnly());
    velt::send(view, "setSelectable:", boolean(false));
    EXPECT_FALSE(widget->isSelectable());
}

TEST_F(TextInput, ComposesWithAnInputMethod) {
    const Ref<NSTextView> view = show("ab");
    velt::send(view, "setSelectedRange:", range(1, 0));
    QInputMethodEvent composing(QStringLiteral("にほ"), {});
    QApplication::sendEvent(widget, &composing);
    EXPECT_EQ("ab", value(view));  // not yet part of the text
    EXPECT_EQ(QStringLiteral("にほ"), widget->layoutOf(0).preeditAreaText());
    widget->grab();
    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("日本"));
    QApplication::sendEvent(widget, &committing);
    EXPECT_EQ("a日本b", value(view));
    EXPECT_EQ("", widget->layoutOf(0).preeditAreaText().toStdString());
    EXPECT_EQ("{3, 0}", selected(view));
    QInputMethodEvent replacing;
    replacing.setCommitString(QStringLiteral("x"), -2, 2);
    QApplication::sendEvent(widget, &replacing);
    EXPECT_EQ("axb", value(view));
    velt::send(view, "selectAll:", nil);
    QInputMethodEvent over(QStringLiteral("か"), {});
    QApplication::sendEvent(widget, &over);
    EXPECT_EQ("", value(view));
    while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(view))) VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("ab", value(view));
}

TEST_F(TextInput, TakesTextThatIsDropped) {
    const Ref<NSTextView> view = show("abc");
    QMimeData data;
    data.setText(QStringLiteral("XY"));
    const QPoint end = widget->caretRect().center() + QPoint(200, 0);
    const auto drop = [&] {
        QDragEnterEvent enter(end, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(widget->viewport(), &enter);
        QDropEvent drops(end, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(widget->viewport(), &drops);
    };
    drop();
    EXPECT_EQ("abcXY", value(view));
    EXPECT_EQ("{3, 2}", selected(view));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("abc", value(view));
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    drop();
    EXPECT_EQ("abc", value(view));
}

TEST_F(TextInput, FindsInABarWithinTheView) {
    const Ref<NSTextView> view = show("one two one two");
    view->findRequest() = {};
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    const int whole = widget->viewport()->height();
    key(Qt::Key_F, Qt::ControlModifier);
    auto* find = widget->findChild<QLineEdit*>(QStringLiteral("find"));
    ASSERT_TRUE(find && find->isVisible());
    EXPECT_LT(widget->viewport()->height(), whole);
    EXPECT_EQ(find, QApplication::focusWidget());
    QTest::keyClicks(find, QStringLiteral("two"));
    QTest::keyClick(find, Qt::Key_Return);
    EXPECT_EQ("{4, 3}", selected(view));
    QTest::keyClick(find, Qt::Key_Return);
    EXPECT_EQ("{12, 3}", selected(view));
    QTest::keyClick(find, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ("{4, 3}", selected(view));
    auto* replace = widget->findChild<QLineEdit*>(QStringLiteral("replace"));
    replace->setFocus();
    QTest::keyClicks(replace, QStringLiteral("2"));
    QTest::mouseClick(widget->findChild<QToolButton*>(QStringLiteral("replaceOne")), Qt::LeftButton);
    EXPECT_EQ("one 2 one two", value(view));
    EXPECT_EQ("{10, 3}", selected(view));
    const auto* result = widget->findChild<QLabel*>(QStringLiteral("result"));
    auto* all = widget->findChild<QToolButton*>(QStringLiteral("replaceAll"));
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    QTest::mouseClick(all, Qt::LeftButton);
    EXPECT_EQ("", result->text().toStdString()) << "nothing was replaced";
    VELT_NSTEXT_EDITABLE(view, boolean(true));
    QTest::mouseClick(all, Qt::LeftButton);
    EXPECT_EQ("one 2 one 2", value(view));
    EXPECT_EQ("Replaced: 1", result->text().toStdString());
    QTest::keyClick(find, Qt::Key_Return);
    EXPECT_EQ("Not found", result->text().toStdString());
    find->setFocus();
    find->selectAll();
    QTest::keyClicks(find, QStringLiteral("one"));
    QTest::keyClick(find, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(find, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(find, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ("{6, 3}", selected(view));
    EXPECT_EQ("Wrapped", result->text().toStdString());
    QTest::keyClick(find, Qt::Key_Escape);
    EXPECT_FALSE(find->isVisible());
    EXPECT_EQ(whole, widget->viewport()->height());
    EXPECT_EQ(widget, QApplication::focusWidget());
    view->findRequest() = {};
}

TEST_F(TextInput, DrawsTemporaryAttributesAndAttributes) {
    const Ref<NSTextView> view = show("plain WWWW\nMMMM");
    const id red = velt::make<NSColor>(1.0, 0.0, 0.0, 1.0), green = velt::make<NSColor>(0.0, 1.0, 0.0, 1.0);
    const auto pixels = [&](QColor wanted) {
        const QImage image = widget->grab().toImage();
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) found += image.pixelColor(x, y) == wanted;
        }
        return found;
    };
    EXPECT_EQ(0, pixels(Qt::green));
    const auto back = velt::make<NSMutableDictionary>();
    back->setObject(green, str("NSBackgroundColor"));
    const id layout = velt::send(view, "layoutManager");
    velt::send(layout, "setTemporaryAttributes:forCharacterRange:", back, range(6, 4));
    const int marked = pixels(Qt::green);
    EXPECT_LT(50, marked);
    velt::send(velt::send(view, "textStorage"), "addAttribute:value:range:", str("NSBackgroundColor"), red,
               range(11, 4));
    EXPECT_LT(50, pixels(Qt::red));
    EXPECT_EQ(marked, pixels(Qt::green));
    velt::send(layout, "removeTemporaryAttribute:forCharacterRange:", str("NSBackgroundColor"), range(0, 15));
    EXPECT_EQ(0, pixels(Qt::green));
    EXPECT_LT(50, pixels(Qt::red));
}

TEST_F(TextInput, ScrollsToWhatIsAsked) {
    std::string text;
    for (int i = 0; i < 500; ++i) text += "line\n";
    const Ref<NSTextView> view = show(text);
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    EXPECT_EQ(0, widget->verticalScrollBar()->value());
    VELT_NSTEXTVIEW_APPEND(view, str("last"));
    EXPECT_EQ(widget->verticalScrollBar()->maximum(), widget->verticalScrollBar()->value());
    const id layout = velt::send(view, "layoutManager");
    const NSRange shown = VELT_CNSRANGE(
        velt::send(layout, "glyphRangeForBoundingRect:inTextContainer:", VELT_ID(NSRect{{0, 0}, {400, 300}}), nil));
    EXPECT_EQ(2504u, shown.location + shown.length);
    EXPECT_LT(2000u, shown.location);
    velt::send(view, "scrollRangeToVisible:", range(5, 2));
    EXPECT_GE(1, widget->verticalScrollBar()->value());
    EXPECT_EQ("{2504, 0}", selected(view));
    velt::send(velt::send(view, "textContainer"), "setWidthTracksTextView:", boolean(false));
    EXPECT_FALSE(widget->breaksLines());
}

TEST_F(TextInput, FollowsLinksOfTextThatIsRead) {
    const Ref<NSTextView> view = show("");
    const Ref<EditingListener> listener = velt::make<EditingListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    velt::send(velt::send(view, "textStorage"),
               "setAttributedString:", VELT_CATTRIBUTEDSTRING(str("<a href='https://example.org'>linked words</a>")));
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, widget->caretRect(3).center() + QPoint(2, 0));
    EXPECT_EQ("https://example.org@3 ", listener->heard);
}

TEST_F(TextInput, OffersAMenuOfWhatCanBeDone) {
    const Ref<NSTextView> view = show("abc");
    const Ref<ForgetfulGiver> giver = velt::make<ForgetfulGiver>();
    VELT_NSTEXTVIEW_DELEGATE(view, giver);
    velt::send(view, "selectAll:", nil);
    QApplication::clipboard()->clear();
    giver->asked = 0;
    QContextMenuEvent asks(QContextMenuEvent::Mouse, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(widget->viewport(), &asks);
    auto* menu = widget->findChild<QMenu*>();
    ASSERT_TRUE(menu);
    EXPECT_LE(2, giver->asked);
    std::string offered;
    for (const QAction* action : menu->actions()) {
        offered += action->isSeparator() ? "-" : action->text().toStdString() + (action->isEnabled() ? "" : "?");
        offered += " ";
    }
    EXPECT_EQ("Undo? Redo? - Cut Copy Paste? Delete - Select All ", offered);
    for (QAction* action : menu->actions()) {
        if (action->text() != QStringLiteral("Delete")) continue;
        EXPECT_TRUE(action->isEnabled());
        action->trigger();
        break;
    }
    EXPECT_EQ("", value(view));
    menu->close();
}

TEST_F(TextInput, IsKnownToThoseWhoCannotSee) {
    const Ref<NSTextView> view = show("read me");
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
    ASSERT_TRUE(interface);
    EXPECT_EQ(QAccessible::EditableText, interface->role());
    EXPECT_EQ(QStringLiteral("read me"), interface->text(QAccessible::Value));
}
