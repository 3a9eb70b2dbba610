// Who may answer what a person does: views, windows and the application, each handing on to the next what it leaves.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/message.h"

/// One link of the responder chain. Events come as messages by name ("mouseDown:", "keyDown:", …), so a program's class
/// answers them with methods of its own; what it does not answer goes to the next responder.
class VELT_EXPORT NSResponder : public NSObject {
    VELT_OBJECT(NSResponder, NSObject)
public:
    /// Who is asked next: what the program set, or else the responder's own (a view's superview, then its window).
    id nextResponder() const;
    void setNextResponder(const id& responder) { nextResponder_ = responder; }
    /// The context menu.
    id menu() const { return menu_; }
    virtual void setMenu(const id& menu) { menu_ = menu; }

    virtual bool acceptsFirstResponder() const { return false; }
    /// Asked before it gets or loses the keyboard; false keeps things as they are.
    virtual bool becomeFirstResponder() { return true; }
    virtual bool resignFirstResponder() { return true; }

    /// Hands a message with one argument to the next responder that answers it; what nobody answers is dropped. An
    /// event that a control's subclass was offered is left to the control instead.
    id passOn(velt::Selector selector, const id& argument) const;
    static void describe(velt::ClassBuilder<NSResponder>& c);

protected:
    /// The next responder when the program set none.
    virtual id ownNextResponder() const { return nil; }

private:
    id nextResponder_, menu_;
};

namespace velt {

/// The first of a responder and those that follow it in its chain for which a function says true; nil when it is none.
/// What is no responder ends the chain.
template <class Accepts> id findResponder(id responder, Accepts&& accepts) {
    constexpr int kMostLinks = 1000;  // a program may tie the chain into a ring
    for (int i = 0; i < kMostLinks && !responder.isNil(); ++i) {
        if (accepts(responder)) return responder;
        if (!is<NSResponder>(responder)) break;
        responder = as<NSResponder>(responder)->nextResponder();
    }
    return nil;
}

}  // namespace velt
