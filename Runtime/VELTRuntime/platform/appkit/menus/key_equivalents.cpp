#include "VELTRuntime/platform/appkit/menus/key_equivalents.h"

#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <array>

namespace velt {

namespace {

/// The toolkit's code of a key that has no character to show; 0 for the others.
int codeOf(char16_t unit) {
    switch (unit) {
    case u'\r':
    case u'\n': return Qt::Key_Return;
    case u'\x3': return Qt::Key_Enter;
    case u'\t': return Qt::Key_Tab;
    case u'\x19': return Qt::Key_Backtab;
    case u'\x1B': return Qt::Key_Escape;
    case u'\b':
    case u'\x7F': return Qt::Key_Backspace;
    default: break;
    }
    constexpr std::array kKeys{Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Left, Qt::Key_Right,  Qt::Key_Insert,
                               Qt::Key_Delete, Qt::Key_Home,  Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown,
                               Qt::Key_Print,  Qt::Key_Pause, Qt::Key_Menu, Qt::Key_Help};
    for (const int key : kKeys) {
        if (functionUnit(key) == unit) return key;
    }
    for (int key = Qt::Key_F1; key <= Qt::Key_F35; ++key) {
        if (functionUnit(key) == unit) return key;
    }
    return 0;
}

}  // namespace

QKeySequence shortcutOf(const id& value, unsigned long modifiers) {
    const QString key = qtText(value);
    if (key.isEmpty()) return {};
    Qt::KeyboardModifiers held;
    if (modifiers & NSEvent::kShift) held |= Qt::ShiftModifier;
    // The desktop's Control key is the program's Command.
    if (modifiers & NSEvent::kCommand) held |= Qt::ControlModifier;
    if (modifiers & NSEvent::kAlternate) held |= Qt::AltModifier;
    if (modifiers & NSEvent::kControl) held |= Qt::MetaModifier;
    const auto with = [&](int code) { return QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(code))); };
    if (key.size() > 1) {
        const QKeySequence named = QKeySequence::fromString(key, QKeySequence::PortableText);
        if (named.isEmpty() || named[0].key() == Qt::Key_unknown) return {};
        held |= named[0].keyboardModifiers();
        return with(named[0].key());
    }
    const QChar unit = key[0];
    if (const int code = codeOf(unit.unicode())) return with(code);
    if (unit.toLower() != unit.toUpper() && unit.isUpper()) held |= Qt::ShiftModifier;
    return with(unit.toUpper().unicode());
}

}  // namespace velt
