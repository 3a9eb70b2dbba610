#include "VELTRuntime/platform/appkit/menus/pop_up_widget.h"

#include "VELTRuntime/platform/appkit/accessibility/said_text.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_button.h"
#include "VELTRuntime/platform/appkit/menus/pop_up_look.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

namespace velt {

namespace {

/// A pop-up button as those hear of it who cannot see it.
class PopUpAccessible final : public QAccessibleWidget, public SaidText {
public:
    explicit PopUpAccessible(PopUpWidget* widget) : QAccessibleWidget(widget, QAccessible::ComboBox) {}

    QAccessible::Role role() const override {
        const NSPopUpButton* button = own()->button();
        return button && button->pullsDown() ? QAccessible::ButtonMenu : QAccessible::ComboBox;
    }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Value ? said() : QAccessibleWidget::text(what);
    }
    using SaidText::text;
    QString said() const override {
        const NSPopUpButton* button = own()->button();
        return button ? qtText(button->popUpCell().title()) : QString();
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const NSPopUpButton* button = own()->button();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = button && button->popUpCell().menuObject().isOpen();
        state.collapsed = !state.expanded;
        return state;
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (own()->isEnabled()) names.prepend(QAccessibleActionInterface::showMenuAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (name == QAccessibleActionInterface::showMenuAction()) {
            own()->open();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    PopUpWidget* own() const { return static_cast<PopUpWidget*>(object()); }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* widget = dynamic_cast<PopUpWidget*>(object);
    return widget ? new PopUpAccessible(widget) : nullptr;
}

}  // namespace

PopUpWidget::PopUpWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
    setAttribute(Qt::WA_Hover);
}

NSPopUpButton* PopUpWidget::button() const { return static_cast<NSPopUpButton*>(viewOf(this)); }

QSize PopUpWidget::sizeHint() const {
    const NSPopUpButton* shown = button();
    return shown ? popUpSize(shown->popUpCell(), *style()) : QSize();
}

void PopUpWidget::titleShown(const QString& title) {
    if (std::exchange(shown_, title) == title) return;
    QAccessibleValueChangeEvent event(this, title);
    QAccessible::updateAccessibility(&event);
}

void PopUpWidget::paintEvent(QPaintEvent*) {
    const NSPopUpButton* shown = button();
    if (!shown) return;
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    if (isDown()) option.state |= QStyle::State_Sunken | QStyle::State_On;
    drawPopUp(painter, option, shown->popUpCell(), *style(), this);
}

void PopUpWidget::open() {
    NSPopUpButton* shown = button();
    if (!shown || !isEnabled()) return;
    const Ref<NSPopUpButton> kept(shown);
    QMenu& menu = kept->popUpCell().menuObject().widget();
    setDown(true);
    connect(
        &menu, &QMenu::aboutToHide, this, [this] { setDown(false); }, Qt::SingleShotConnection);
    runReported([&] { kept->popUpCell().popUp(*this, rect()); });
}

void PopUpWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    open();
}

void PopUpWidget::mouseReleaseEvent(QMouseEvent*) {}  // the menu that the press opened takes it from here

void PopUpWidget::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool opens = key == Qt::Key_Space || key == Qt::Key_F4 || key == Qt::Key_Select ||
                       (event->modifiers() == Qt::AltModifier && (key == Qt::Key_Down || key == Qt::Key_Up));
    if (opens) return open();
    if (moveSelection(key)) return;
    constexpr auto kShortcuts = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!event->text().isEmpty() && event->text()[0].isPrint() && !(event->modifiers() & kShortcuts)) {
        return search(event->text());
    }
    event->ignore();
}

bool PopUpWidget::moveSelection(int key) {
    const NSPopUpButton* shown = button();
    if (!shown) return false;
    const bool first = key == Qt::Key_Home || key == Qt::Key_PageUp,
               last = key == Qt::Key_End || key == Qt::Key_PageDown;
    const bool next = key == Qt::Key_Down, previous = key == Qt::Key_Up;
    if (!first && !last && !next && !previous) return false;
    NSPopUpButtonCell& cell = shown->popUpCell();
    if (cell.pullsDown()) {
        // Nothing is selected in a menu of commands.
        if (next || previous) open();
        return next || previous;
    }
    const Ref<NSPopUpButtonCell> kept(&cell);
    runReported([&] {
        kept->menuObject().update();
        const long step = first || next ? 1 : -1;
        long index = first ? 0 : last ? kept->numberOfItems() - 1 : kept->indexOfSelectedItem() + step;
        if (previous && kept->indexOfSelectedItem() < 0) index = kept->numberOfItems() - 1;
        while (index >= 0 && index < kept->numberOfItems() && !kept->canChoose(index)) index += step;
        if (index != kept->indexOfSelectedItem()) kept->chooseItemAtIndex(index);
    });
    return true;
}

void PopUpWidget::search(const QString& typed) {
    const NSPopUpButton* shown = button();
    if (!shown || shown->pullsDown()) return;
    const bool goesOn = sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    typed_ = goesOn ? typed_ + typed : typed;
    sinceTyped_.start();
    const Ref<NSPopUpButtonCell> cell(&shown->popUpCell());
    runReported([&] {
        cell->menuObject().update();
        const long count = cell->numberOfItems(), now = cell->indexOfSelectedItem();
        // One letter goes on to the next item; more letters may stay where they are.
        const long from = typed_.size() == 1 ? now + 1 : std::max(now, 0L);
        for (long i = 0; i < count; ++i) {
            const long index = (from + i) % count;
            const QString title = qtText(cell->itemTitleAtIndex(index));
            if (!cell->canChoose(index) || !title.startsWith(typed_, Qt::CaseInsensitive)) continue;
            if (index != now) cell->chooseItemAtIndex(index);
            return;
        }
    });
}

}  // namespace velt
