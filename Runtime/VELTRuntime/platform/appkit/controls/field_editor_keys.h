// What the editors in fields do alike with keys and the keyboard: the field is asked first, and told when the keyboard
// has gone elsewhere.
#pragma once

#include "VELTRuntime/platform/appkit/controls/field_editor.h"

class QEvent;
class QFocusEvent;
class QKeyEvent;

namespace velt {

/// The field around an editor's widget; null when it has gone.
NSTextField* fieldOf(const QWidget& editor);
/// Offers a key to the field. True when it was taken.
bool offerKey(const QWidget& editor, QKeyEvent& event);
/// Keys that no editor has a use for when the field left them: they go on to the window.
bool isForWindow(const QKeyEvent& event);
bool isTab(const QEvent& event);
/// The keyboard was taken from an editor: the field is told, and may call it back.
void tellKeyboardLeft(QWidget& editor, const QFocusEvent& event);
/// A text with a space for every line end.
QString oneLine(QString text);

/// From when an editor gets the keyboard to when it goes to another one, also while a menu or another window borrows
/// it.
class KeyboardStay {
public:
    /// The editor got the keyboard. True when all of its text is to be selected, ready to be typed over.
    bool begins(Qt::FocusReason reason);
    /// The editor lost the keyboard. True when it went to another one.
    bool ends(Qt::FocusReason reason);

private:
    bool going_ = false;
};

}  // namespace velt
