// How an edit of a field goes: who may refuse it, who is told, when the action is sent.
#include "VELTRuntime/platform/appkit/controls/field_text.h"
#include "VELTRuntime/platform/appkit/controls/field_widget.h"
#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/notification_center.h"
#include "VELTRuntime/platform/object/id_of.h"

using velt::Ref;
using velt::Selector;

namespace {

/// A flag is set for as long as this lives.
class Sets {
public:
    explicit Sets(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Sets() { flag_ = before_; }
    Sets(const Sets&) = delete;
    Sets& operator=(const Sets&) = delete;

private:
    bool& flag_;
    bool before_;
};

}  // namespace

bool NSTextField::delegateAllows(std::string_view selector) {
    const Selector asks = Selector::named(selector);
    const id delegate = this->delegate();
    if (!velt::respondsTo(delegate, asks)) return true;
    return VELT_CBOOL(velt::send(delegate, asks, velt::idOf(this), currentEditor()));
}

void NSTextField::tell(std::string_view delegateSelector, std::string_view notification, const id& userInfo) {
    velt::tellDelegateAndObservers(delegate(), delegateSelector, notification, velt::idOf(this), userInfo);
}

void NSTextField::beginEditing() {
    editing_ = true;
    before_ = objectValue();
    tell("controlTextDidBeginEditing:", "NSControlTextDidBeginEditingNotification");
}

void NSTextField::takeTyped() {
    const velt::FieldEditor* shown = editor();
    if (!shown) return;
    if (!fieldWidget()->showsAttributes() || !allowsEditingTextAttributes()) {
        textCell().takeTyped(velt::textValue(shown->text()));
        return;
    }
    textCell().takeTyped(shown->richText());
    fieldWidget()->typedRich(objectValue());
}

void NSTextField::typed() noexcept {
    const Ref<NSTextField> kept(this);
    velt::runReported([this] {
        if (!editing_) {
            if (!delegateAllows("control:textShouldBeginEditing:")) {
                changed();  // shows the value again
                return;
            }
            beginEditing();
        }
        takeTyped();
        const Sets flag(telling_);
        tell("controlTextDidChange:", "NSControlTextDidChangeNotification");
        textChanged();
        // Who observed the value may have set another one.
        if (const velt::FieldEditor* shown = editor(); shown && !shown->shows(velt::qtText(editedText()))) changed();
    });
}

void NSTextField::editingEnded(Movement movement) {
    editing_ = false;
    before_ = nil;
    const Ref<NSMutableDictionary> info = velt::make<NSMutableDictionary>();
    info->setObject(VELT_ID(static_cast<long>(movement)), velt::string(std::string_view("NSTextMovement")));
    tell("controlTextDidEndEditing:", "NSControlTextDidEndEditingNotification", info);
}

bool NSTextField::endEditing(Movement movement) {
    if (!editing_) return true;
    if (asking_) return false;
    {
        const Sets flag(asking_);
        if (!delegateAllows("control:textShouldEndEditing:") || !endingEdit(movement)) return false;
        if (!textCell().finishTyping()) {
            const Selector asks = VELT_SELECTOR("control:didFailToFormatString:errorDescription:");
            const bool taken = velt::respondsTo(delegate(), asks) &&
                               VELT_CBOOL(velt::send(delegate(), asks, velt::idOf(this), stringValue(), nil));
            if (!taken) return false;
            const id text = stringValue();
            textCell().dropTyping();
            setObjectValue(text);
        }
    }
    editingEnded(movement);
    changed();
    return true;
}

bool NSTextField::abortEditing() {
    if (!editing_) return false;
    editing_ = false;
    textCell().dropTyping();
    setObjectValue(std::exchange(before_, nil));
    return true;
}

bool NSTextField::sendOwnAction() { return sendAction(textCell().action(), target()); }

bool NSTextField::leave(Movement movement) {
    if (!editing_) return true;
    if (!endEditing(movement)) return false;
    if (textCell().sendsActionOnEndEditing()) sendOwnAction();
    return true;
}

bool NSTextField::finishWithReturn() {
    const bool wasEditing = editing_;
    if (!endEditing(Movement::Return)) return true;
    const bool sent = sendOwnAction();
    if (velt::FieldEditor* shown = editor(); shown && shown->widget().hasFocus()) shown->selectAll();
    // What nobody answers is for the window's default button.
    return sent || (wasEditing && !windowPointer());
}

bool NSTextField::cancel() {
    if (!editing_) return false;
    const Ref<NSTextField> kept(this);
    textCell().dropTyping();
    const id old = before_;
    {
        const Sets flag(telling_);
        setObjectValue(old);
        tell("controlTextDidChange:", "NSControlTextDidChangeNotification");
    }
    textChanged();
    editingEnded(Movement::Cancel);
    if (velt::FieldEditor* shown = editor()) shown->selectAll();
    return true;
}

bool NSTextField::perform(std::string_view selector) {
    if (selector == "insertNewline:") return finishWithReturn();
    if (selector == "cancelOperation:") return cancel();
    if (selector == "insertNewlineIgnoringFieldEditor:" && showsSeveralLines()) {
        if (velt::FieldEditor* shown = editor()) shown->insert(QStringLiteral("\n"));
        return true;
    }
    const bool next = selector == "insertTab:";
    if (!next && selector != "insertBacktab:") return false;
    if (!leave(next ? Movement::Tab : Movement::BackTab)) return true;
    if (!fieldWidget()) return true;
    // The widgets hand the question outward, to the loop of key views or the order on the screen.
    struct Moves : QWidget {
        using QWidget::focusNextPrevChild;
    };
    static_cast<void>((widget().*&Moves::focusNextPrevChild)(next));
    // Where the keyboard goes nowhere else, the text is selected as in a next field.
    if (velt::FieldEditor* shown = editor(); shown && shown->widget().hasFocus()) shown->selectAll();
    return true;
}

bool NSTextField::command(std::string_view selector) noexcept {
    const Ref<NSTextField> kept(this);
    bool taken = false;
    velt::runReported([&] {
        const Selector asks = VELT_SELECTOR("control:textView:doCommandBySelector:");
        const id delegate = this->delegate();
        if (velt::respondsTo(delegate, asks)) {
            taken = VELT_CBOOL(velt::send(delegate, asks, velt::idOf(this), currentEditor(), velt::string(selector)));
        }
        taken = taken || perform(selector);
    });
    return taken;
}

bool NSTextField::keyboardLeft() noexcept {
    if (!windowPointer()) return true;
    const Ref<NSTextField> kept(this);
    bool left = true;
    velt::runReported([&] { left = leave(Movement::Other); });
    return left;
}
