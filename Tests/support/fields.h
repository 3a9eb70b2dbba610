// A window with fields, a delegate that writes down what it hears, and a person's keys.
#pragma once

#include "support/displays.h"
#include "support/values.h"

#include "VELTRuntime/platform/foundation/notification_center.h"

#include <VELTRuntime/VELTRuntimeUI.h>

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <functional>
#include <string>

namespace velt::test {

/// Hears all that fields tell and ask; answers as the test says.
class FieldListener : public NSObject {
    VELT_OBJECT(FieldListener, NSObject)

public:
    void began(NSNotification* told) { note("began", told->object()); }
    void changed(NSNotification* told) {
        note("changed", told->object());
        if (onChange) onChange(told->object());
    }
    void ended(NSNotification* told) {
        const id movement = send(told->userInfo(), "objectForKey:", str("NSTextMovement"));
        note("ended" + utf8(velt::description(movement)), told->object());
    }
    bool mayBegin(id, id) {
        heard += "begin? ";
        return allowsBegin;
    }
    bool mayEnd(id, id) {
        heard += "end? ";
        return allowsEnd;
    }
    bool command(id, id, id selector) {
        heard += utf8(selector) + " ";
        return utf8(selector) == takes;
    }
    void pressed(id sender) { note("action", sender); }

    static void describe(ClassBuilder<FieldListener>& c) {
        c.method("controlTextDidBeginEditing:", &FieldListener::began)
            .method("controlTextDidChange:", &FieldListener::changed)
            .method("controlTextDidEndEditing:", &FieldListener::ended)
            .method("control:textShouldBeginEditing:", &FieldListener::mayBegin)
            .method("control:textShouldEndEditing:", &FieldListener::mayEnd)
            .method("control:textView:doCommandBySelector:", &FieldListener::command)
            .method("pressed:", &FieldListener::pressed);
    }

    std::string take() { return std::exchange(heard, ""); }
    std::string heard, takes;
    bool allowsBegin = true, allowsEnd = true;
    std::function<void(const id&)> onChange;

private:
    void note(const std::string& what, const id& field) {
        heard += what + "(" + utf8(VELT_NSCONTROL_STRINGVALUE(field)) + ") ";
    }
};

/// A shown window that fields are put into, one under the other.
class FieldWindow {
public:
    FieldWindow() {
        VELT_NSWINDOW_FRAME(window_, rect(40, 40, 320, 322));
        VELT_NSWINDOW_TITLE(window_, str("Fields"));
    }
    ~FieldWindow() { VELT_NSWINDOW_CLOSE(window_); }
    void add(const id& view, double height = 26) {
        top_ -= height + 8;
        send(view, "setFrame:", rect(10, top_, 300, height));
        VELT_NSWINDOW_APPEND(window_, view);
    }
    bool show() {
        VELT_NSWINDOW_SHOW(window_);
        as<NSWindow>(window_)->recalculateKeyViewLoop();
        QMainWindow& shown = as<NSWindow>(window_)->widget();
        QApplication::setActiveWindow(&shown);
        return windowBecomesActive(shown);
    }
    id window() const { return window_; }
    QWidget& widget() const { return as<NSWindow>(window_)->widget(); }
    bool focus(const id& field) const { return as<NSWindow>(window_)->makeFirstResponder(field); }

private:
    id window_ = VELT_NSWINDOW_INIT(nil, "");
    double top_ = 300;
};

inline void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), text); }
inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}
inline std::string textOfField(const id& field) { return utf8(VELT_NSCONTROL_STRINGVALUE(field)); }
/// What is selected in the field that has the keyboard, as "start+length".
inline std::string selectionOf(const id& field) {
    const id editor = send(field, "currentEditor");
    if (editor.isNil()) return "none";
    const NSRange range = VELT_CNSRANGE(send(editor, "selectedRange"));
    return std::to_string(range.location) + "+" + std::to_string(range.length);
}

}  // namespace velt::test
