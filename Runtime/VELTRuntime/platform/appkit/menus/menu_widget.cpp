#include "VELTRuntime/platform/appkit/menus/menu_widget.h"

#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/help_search.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"

#include <QApplication>
#include <QKeyEvent>

namespace velt {

namespace {

constexpr unsigned long kModifiers = NSEvent::kShift | NSEvent::kControl | NSEvent::kAlternate | NSEvent::kCommand;

/// The modifiers that are held after an event of one of their keys.
Qt::KeyboardModifiers heldAfter(const QKeyEvent& event) {
    Qt::KeyboardModifiers held = event.modifiers();
    Qt::KeyboardModifier own = Qt::NoModifier;
    switch (event.key()) {
    case Qt::Key_Shift: own = Qt::ShiftModifier; break;
    case Qt::Key_Control: own = Qt::ControlModifier; break;
    case Qt::Key_Alt: own = Qt::AltModifier; break;
    case Qt::Key_Meta: own = Qt::MetaModifier; break;
    default: break;
    }
    held.setFlag(own, own != Qt::NoModifier && event.type() == QEvent::KeyPress);
    return held;
}

}  // namespace

MenuWidget::MenuWidget(NSMenu& menu) : menu_(&menu) {
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, [this] {
        if (!menu_) return;
        const Ref<NSMenu> kept(menu_);
        runReported([&] {
            kept->willOpen();
            showHelpSearch(*this, *kept);
        });
        showAlternates(QApplication::keyboardModifiers());
    });
    connect(this, &QMenu::aboutToHide, this, [this] {
        if (!menu_) return;
        const Ref<NSMenu> kept(menu_);
        runReported([&] { kept->didClose(); });
    });
}

void MenuWidget::showAlternates(Qt::KeyboardModifiers held) {
    if (!menu_) return;
    const unsigned long mask = modifiersOf(held.toInt()) & kModifiers;
    const auto& items = menu_->items();
    for (std::size_t first = 0; first < items.size();) {
        std::size_t end = first + 1;
        while (end < items.size() && items[end]->isAlternate()) ++end;
        if (end > first + 1) {
            std::size_t chosen = first;
            for (std::size_t at = first + 1; at < end; ++at) {
                if ((items[at]->keyEquivalentModifierMask() & kModifiers) == mask) chosen = at;
            }
            for (std::size_t at = first; at < end; ++at) {
                items[at]->toolkitAction().setVisible(at == chosen && !items[at]->isHidden());
            }
        }
        first = end;
    }
}

void MenuWidget::keyPressEvent(QKeyEvent* event) {
    showAlternates(heldAfter(*event));
    QMenu::keyPressEvent(event);
}

void MenuWidget::keyReleaseEvent(QKeyEvent* event) {
    showAlternates(heldAfter(*event));
    QMenu::keyReleaseEvent(event);
}

}  // namespace velt
