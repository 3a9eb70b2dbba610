// Cells: what a control shows and lets a person change, apart from the place where it is shown.
//
// A cell is the model of its control, and of every row of a table's column. It keeps the value, its looks and its
// action; whoever shows it is told of every change and draws it anew.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/structures.h"

class NSControl;

class VELT_EXPORT NSCell : public NSObject {
    VELT_OBJECT(NSCell, NSObject)
public:
    /// What the cell mainly shows.
    enum class Type : long { Null = 0, Text = 1, Image = 2 };
    /// The state of a switch; mixed is partly on.
    enum State : long { kMixed = -1, kOff = 0, kOn = 1 };

    /// A text cell with the empty string.
    NSCell();
    /// A cell that shows that text (a string) or that image.
    explicit NSCell(const id& content);
    /// A new cell of the same class and properties, in no control.
    id copy() const override;

    // The value. Every form of it is a view of the one object.
    virtual id objectValue() const { return value_; }
    /// Takes a value of any kind; a subclass brings it into the form that it can show.
    virtual void setObjectValue(const id& value);
    /// The value as text: a string's own, a number's as the language writes it, empty for nil.
    virtual id stringValue() const;
    void setStringValue(const id& text) { setObjectValue(text); }
    /// The value as a number: a number's own, a text's leading number, otherwise 0.
    double doubleValue() const;
    void setDoubleValue(double value);
    float floatValue() const { return static_cast<float>(doubleValue()); }
    void setFloatValue(float value);
    long integerValue() const;
    void setIntegerValue(long value);
    virtual id attributedStringValue() const;
    virtual void setAttributedStringValue(const id& text) { setObjectValue(text); }
    /// Any object that the program wants to find here again.
    id representedObject() const { return representedObject_; }
    void setRepresentedObject(const id& object) { representedObject_ = object; }

    long type() const { return static_cast<long>(image_.isNil() ? type_ : Type::Image); }
    void setType(long type);
    virtual id title() const { return stringValue(); }
    virtual void setTitle(const id& title) { setStringValue(title); }
    id image() const { return image_; }
    virtual void setImage(const id& image);

    // Looks.
    /// The font; the desktop's own when the program set none.
    id font() const;
    /// nil brings the desktop's own back; what is no font raises "VLCastException" with "'NSFont' expected".
    void setFont(const id& font);
    bool hasOwnFont() const { return !font_.isNil(); }
    /// 0 left, 1 right, 2 centred, 3 justified, 4 by the text's direction.
    long alignment() const { return alignment_; }
    void setAlignment(long alignment);
    bool isBordered() const { return bordered_; }
    void setBordered(bool flag);
    bool isBezeled() const { return bezeled_; }
    void setBezeled(bool flag);
    bool isHighlighted() const { return highlighted_; }
    void setHighlighted(bool flag);
    /// 0 regular, 1 small, 2 mini.
    unsigned long controlSize() const { return controlSize_; }
    void setControlSize(unsigned long size);
    unsigned long focusRingType() const { return focusRingType_; }
    void setFocusRingType(unsigned long type) { focusRingType_ = type; }
    bool wraps() const { return wraps_; }
    void setWraps(bool flag);
    bool isScrollable() const { return scrollable_; }
    void setScrollable(bool flag);

    // Behaviour.
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool flag);
    bool isEditable() const { return editable_; }
    void setEditable(bool flag);
    bool isSelectable() const { return selectable_ || editable_; }
    void setSelectable(bool flag);
    bool isContinuous() const { return continuous_; }
    void setContinuous(bool flag);
    bool refusesFirstResponder() const { return refusesFirstResponder_; }
    void setRefusesFirstResponder(bool flag);
    virtual long state() const { return state_; }
    virtual void setState(long state);
    bool allowsMixedState() const { return allowsMixedState_; }
    void setAllowsMixedState(bool flag);
    /// The state that a click leads to.
    virtual long nextState() const;
    void setNextState() { setState(nextState()); }
    long tag() const { return tag_; }
    void setTag(long tag) { tag_ = tag; }
    id menu() const { return menu_; }
    void setMenu(const id& menu) { menu_ = menu; }

    // The action: a message to the target, or to the responder chain without one.
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }
    velt::Selector action() const { return action_; }
    id actionName() const;
    void setActionName(const id& name);
    /// A person's click: the control's when it has one, the action alone otherwise. Nothing when not enabled.
    virtual void performClick(const id& sender);

    /// The control that shows it; null in a table's column.
    NSControl* control() const { return control_; }
    id controlView() const;
    /// The smallest size in which all of it can be seen, in the program's units.
    virtual NSSize cellSize() const;

    /// A person changed the value through the widget that shows it: the widget need not be told.
    void takeValue(const id& value);

    void dissolve() override;
    static void describe(velt::ClassBuilder<NSCell>& c);

protected:
    /// Something that can be seen has changed.
    void changed();
    /// The value that is being set comes from a person.
    bool isTaking() const { return taking_; }
    /// A number's own value, or the number that a text begins with; 0 for anything else.
    static double leadingNumber(const id& value);
    /// Stores the value; observers of every form of it hear of the change.
    void store(const id& value);

private:
    friend class NSControl;
    friend class NSMatrix;
    Type type_ = Type::Text;
    long state_ = kOff, alignment_ = 4, tag_ = 0;
    unsigned long controlSize_ = 0, focusRingType_ = 0;
    bool bordered_ = false, bezeled_ = false, highlighted_ = false, wraps_ = true, scrollable_ = false;
    bool enabled_ = true, editable_ = false, selectable_ = false, continuous_ = false;
    bool refusesFirstResponder_ = false, allowsMixedState_ = false, taking_ = false;
    velt::Selector action_;
    id value_, representedObject_, image_, font_, target_, menu_;
    NSControl* control_ = nullptr;  // owns the cell, and clears this when it lets it go
};

/// A cell of a control that sends an action.
class VELT_EXPORT NSActionCell : public NSCell {
    VELT_OBJECT(NSActionCell, NSCell)
public:
    using NSCell::NSCell;
};
