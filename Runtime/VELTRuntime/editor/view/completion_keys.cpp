#include "VELTRuntime/editor/view/completion_keys.h"

#include "VELTRuntime/editor/view/completion_list.h"
#include "VELTRuntime/editor/view/source_view.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace velt {

namespace {

/// A key of the text's or the program's own, other than the one that pastes. The third level of a keyboard may come
/// with Control and Alt.
bool isCommand(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!held || held == (Qt::ControlModifier | Qt::AltModifier)) return false;
    return !isModifierKey(event.key()) && !(held == Qt::ControlModifier && event.key() == Qt::Key_V);
}

}  // namespace

CompletionKeys::CompletionKeys(QWidget& page, QWidget& list, Autocompletion& completion)
    : page_(page), list_(list), completion_(completion) {
    QApplication::instance()->installEventFilter(this);
}

CompletionKeys::~CompletionKeys() { QApplication::instance()->removeEventFilter(this); }

bool CompletionKeys::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    const bool isPage = watched == &page_;
    const auto cancel = [this] { runReported([this] { completion_.cancelOperation(nil); }); };
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!isPage || isCommand(static_cast<QKeyEvent&>(*event))) return false;
        event->accept();
        return true;
    case QEvent::KeyPress: return isPage && pressed(static_cast<QKeyEvent&>(*event));
    case QEvent::InputMethod: {
        const auto& input = static_cast<QInputMethodEvent&>(*event);
        if (!isPage || input.commitString().isEmpty()) return false;
        runReported([&] { completion_.insertText(textValue(input.commitString())); });
        return true;
    }
    case QEvent::MouseButtonPress: {
        const auto& widget = static_cast<QWidget&>(*watched);
        if (&widget != &list_ && !list_.isAncestorOf(&widget)) cancel();
        return false;
    }
    case QEvent::FocusOut:
    case QEvent::Hide:
        if (isPage) cancel();
        return false;
    default: return false;
    }
}

bool CompletionKeys::pressed(QKeyEvent& event) {
    if (isCommand(event)) {
        runReported([&] { completion_.cancelOperation(nil); });
        return false;
    }
    const Ref<Autocompletion> kept(&completion_);
    VLTextView* view = kept->view();
    const id list = kept->list();
    runReported([&] {
        const id pressedKey = NSEvent::ofKey(NSEvent::Type::KeyDown, event, view ? view->windowPointer() : nullptr);
        send(list, VELT_SELECTOR("keyDown:"), pressedKey);
    });
    event.accept();
    return true;
}

}  // namespace velt
