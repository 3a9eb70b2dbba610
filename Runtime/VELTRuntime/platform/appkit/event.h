// What a person did with the mouse or the keyboard, as programs are told of it.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

#include <string>

class NSWindow;
class QKeyEvent;

/// One event. Its numbers are the codes that programs compare with.
class VELT_EXPORT NSEvent final : public NSObject {
    VELT_OBJECT(NSEvent, NSObject)
public:
    enum class Type : long {
        None = 0,
        LeftMouseDown = 1,
        LeftMouseUp = 2,
        RightMouseDown = 3,
        RightMouseUp = 4,
        MouseMoved = 5,
        LeftMouseDragged = 6,
        RightMouseDragged = 7,
        MouseEntered = 8,
        MouseExited = 9,
        KeyDown = 10,
        KeyUp = 11,
        FlagsChanged = 12,
        ScrollWheel = 22,
        OtherMouseDown = 25,
        OtherMouseUp = 26,
        OtherMouseDragged = 27,
    };
    enum Modifiers : unsigned long {
        kCapsLock = 1UL << 16,
        kShift = 1UL << 17,
        kControl = 1UL << 18,
        kAlternate = 1UL << 19,
        kCommand = 1UL << 20,
        kNumericPad = 1UL << 21,
        kFunction = 1UL << 23,
    };

    /// An event of no type at the origin, without characters.
    NSEvent() = default;
    /// Of the keyboard. The desktop's Control key is the program's Command: that is where its users look for shortcuts;
    /// its Meta key is the program's Control.
    static velt::Ref<NSEvent> ofKey(Type type, const QKeyEvent& event, NSWindow* window);
    /// Of the mouse, at a place in the window's coordinates.
    static velt::Ref<NSEvent> ofMouse(Type type, NSPoint location, unsigned long modifiers, long button, long clicks,
                                      NSWindow* window);

    Type eventType() const { return type_; }
    long type() const { return static_cast<long>(type_); }
    /// In the window's coordinates, from its lower left corner.
    NSPoint locationInWindow() const { return location_; }
    unsigned long modifierFlags() const { return modifiers_; }
    /// The text that the keys make; nil for other events than those of keys.
    id characters() const { return characters_; }
    id charactersIgnoringModifiers() const { return plainCharacters_; }
    long keyCode() const { return keyCode_; }
    long buttonNumber() const { return button_; }
    long clickCount() const { return clicks_; }
    bool isARepeat() const { return repeats_; }
    double deltaX() const { return delta_.width; }
    double deltaY() const { return delta_.height; }
    double timestamp() const { return timestamp_; }
    id window() const;
    void setDelta(NSSize delta) { delta_ = delta; }
    static void describe(velt::ClassBuilder<NSEvent>& c);

private:
    Type type_ = Type::None;
    NSPoint location_{};
    unsigned long modifiers_ = 0;
    long keyCode_ = 0, button_ = 0, clicks_ = 0;
    bool repeats_ = false;
    NSSize delta_{};
    double timestamp_ = 0;
    id characters_, plainCharacters_, window_;
};

namespace velt {

/// The modifiers of the program for the toolkit's.
unsigned long modifiersOf(int qtModifiers);

/// The key is one that is held while others are pressed, or that locks.
bool isModifierKey(int qtKey);

/// The unit that programs compare with for a key without a text of its own, such as an arrow; 0 for other keys.
char16_t functionUnit(int qtKey);

}  // namespace velt
