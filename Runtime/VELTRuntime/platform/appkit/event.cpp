#include "VELTRuntime/platform/appkit/event.h"

#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <chrono>

namespace velt {

namespace {

struct FunctionKey {
    int key;
    char16_t unit;
};

/// Keys without a text have units of their own in the private area.
constexpr std::array kFunctionKeys{
    FunctionKey{Qt::Key_Up, 0xF700},       FunctionKey{Qt::Key_Down, 0xF701},   FunctionKey{Qt::Key_Left, 0xF702},
    FunctionKey{Qt::Key_Right, 0xF703},    FunctionKey{Qt::Key_Insert, 0xF727}, FunctionKey{Qt::Key_Delete, 0xF728},
    FunctionKey{Qt::Key_Home, 0xF729},     FunctionKey{Qt::Key_End, 0xF72B},    FunctionKey{Qt::Key_PageUp, 0xF72C},
    FunctionKey{Qt::Key_PageDown, 0xF72D}, FunctionKey{Qt::Key_Print, 0xF72E},  FunctionKey{Qt::Key_Pause, 0xF730},
    FunctionKey{Qt::Key_Menu, 0xF735},     FunctionKey{Qt::Key_Help, 0xF746},
};
constexpr char16_t kFirstFunctionUnit = 0xF704;  // of F1

double secondsNow() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

id textOfKey(const QKeyEvent& event) {
    if (const char16_t unit = functionUnit(event.key())) return string(std::u16string_view(&unit, 1));
    if (event.key() == Qt::Key_Backspace) return string(u"\x7F");
    if (event.key() == Qt::Key_Backtab) return string(u"\x19");
    return textValue(event.text());
}

/// The key's own text, whatever modifiers but Shift are held.
id plainTextOfKey(const QKeyEvent& event) {
    if (event.key() >= 0x20 && event.key() < 0x1000000) {
        const bool isShifted = event.modifiers() & Qt::ShiftModifier;
        const auto character = static_cast<char32_t>(event.key());
        const QString letter = QString::fromUcs4(&character, 1);
        return textValue(isShifted ? letter.toUpper() : letter.toLower());
    }
    return textOfKey(event);
}

}  // namespace

char16_t functionUnit(int qtKey) {
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F35) {
        return static_cast<char16_t>(kFirstFunctionUnit + (qtKey - Qt::Key_F1));
    }
    const auto found = std::find_if(kFunctionKeys.begin(), kFunctionKeys.end(),
                                    [qtKey](const FunctionKey& row) { return row.key == qtKey; });
    return found == kFunctionKeys.end() ? u'\0' : found->unit;
}

bool isModifierKey(int qtKey) { return qtKey >= Qt::Key_Shift && qtKey <= Qt::Key_ScrollLock; }

unsigned long modifiersOf(int qtModifiers) {
    unsigned long flags = 0;
    if (qtModifiers & Qt::ShiftModifier) flags |= NSEvent::kShift;
    if (qtModifiers & Qt::ControlModifier) flags |= NSEvent::kCommand;
    if (qtModifiers & Qt::AltModifier) flags |= NSEvent::kAlternate;
    if (qtModifiers & Qt::MetaModifier) flags |= NSEvent::kControl;
    if (qtModifiers & Qt::KeypadModifier) flags |= NSEvent::kNumericPad;
    return flags;
}

}  // namespace velt

velt::Ref<NSEvent> NSEvent::ofKey(Type type, const QKeyEvent& event, NSWindow* window) {
    velt::Ref<NSEvent> made = velt::make<NSEvent>();
    made->type_ = type;
    made->modifiers_ = velt::modifiersOf(event.modifiers().toInt());
    if (velt::functionUnit(event.key())) made->modifiers_ |= kFunction;
    made->keyCode_ = static_cast<long>(event.nativeScanCode());
    made->repeats_ = event.isAutoRepeat();
    made->timestamp_ = velt::secondsNow();
    made->window_ = window;
    const bool isModifier = velt::isModifierKey(event.key());
    made->characters_ = isModifier ? velt::string(u"") : velt::textOfKey(event);
    made->plainCharacters_ = isModifier ? velt::string(u"") : velt::plainTextOfKey(event);
    return made;
}

velt::Ref<NSEvent> NSEvent::ofMouse(Type type, NSPoint location, unsigned long modifiers, long button, long clicks,
                                    NSWindow* window) {
    velt::Ref<NSEvent> made = velt::make<NSEvent>();
    made->type_ = type;
    made->location_ = location;
    made->modifiers_ = modifiers;
    made->button_ = button;
    made->clicks_ = clicks;
    made->timestamp_ = velt::secondsNow();
    made->window_ = window;
    return made;
}

id NSEvent::window() const { return window_; }

void NSEvent::describe(velt::ClassBuilder<NSEvent>& c) {
    c.property("type", &NSEvent::type)
        .property("locationInWindow", &NSEvent::locationInWindow)
        .property("modifierFlags", &NSEvent::modifierFlags)
        .property("characters", &NSEvent::characters)
        .property("charactersIgnoringModifiers", &NSEvent::charactersIgnoringModifiers)
        .property("keyCode", &NSEvent::keyCode)
        .property("buttonNumber", &NSEvent::buttonNumber)
        .property("clickCount", &NSEvent::clickCount)
        .property("isARepeat", &NSEvent::isARepeat)
        .property("deltaX", &NSEvent::deltaX)
        .property("deltaY", &NSEvent::deltaY)
        .property("timestamp", &NSEvent::timestamp)
        .property("window", &NSEvent::window)
        .owns(&NSEvent::window_);
}
