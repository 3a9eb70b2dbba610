#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/toolbars/customization_sheet.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QActionGroup>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QTimer>

namespace velt {

QIcon toolbarIcon(const NSToolbarItem& item) {
    const id image = item.image();
    return is<NSImage>(image) ? QIcon(QPixmap::fromImage(as<NSImage>(image)->picture())) : QIcon();
}

QString toolbarName(const NSToolbarItem& item) {
    for (const id& text : {item.paletteLabel(), item.label(), item.toolTip(), item.itemIdentifier()}) {
        if (QString name = qtText(text); !name.isEmpty()) return name;
    }
    return {};
}

ToolbarWidget::ToolbarWidget(NSToolbar& toolbar) : toolbar_(&toolbar), strip_(new ToolbarStrip(toolbar)) {
    setMovable(false);
    setFloatable(false);
    toggleViewAction()->setEnabled(false);  // showing and hiding is the toolbar's matter
    setAccessibleName(QStringLiteral("Toolbar"));
    addWidget(strip_);
    qApp->installEventFilter(this);
}

ToolbarWidget::~ToolbarWidget() = default;

void ToolbarWidget::forget() {
    toolbar_ = nullptr;
    strip_->forget();
    if (sheet_) sheet()->forget();
}

void ToolbarWidget::toolbarChanged() {
    const QPointer<ToolbarWidget> shown(this);  // the delegate is asked
    strip_->rebuild();
    if (!shown) return;
    // The window is asked for room at once.
    layout()->invalidate();
    layout()->activate();
    updateGeometry();
    validateSoon();
}

bool ToolbarWidget::shows(const NSToolbarItem& item) const {
    for (const ToolbarSlot& slot : strip_->places()) {
        if (slot.item.get() == &item) return slot.isShown;
    }
    return false;
}

void ToolbarWidget::paintEvent(QPaintEvent* event) {
    QToolBar::paintEvent(event);
    if (!toolbar_ || !toolbar_->showsBaselineSeparator()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() - 1, width() - 1, height() - 1);
}

// Validation.

bool ToolbarWidget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
    case QEvent::KeyRelease:
    case QEvent::WindowActivate: validateSoon(); break;
    default: break;
    }
    return QToolBar::eventFilter(watched, event);
}

/// What a person does may change what can be done next. Asked once for all that happens before the program rests.
void ToolbarWidget::validateSoon() {
    if (!toolbar_ || !isVisible() || std::exchange(validating_, true)) return;
    QTimer::singleShot(0, this, [this, shown = QPointer<ToolbarWidget>(this)] {
        if (toolbar_ && !toolbar_->customizationPaletteIsRunning()) {
            const Ref<NSToolbar> kept(toolbar_);
            runReported([&] { kept->validateVisibleItems(); });
        }
        // Who was asked may have changed items: that is no reason to ask again, or there would be no end.
        if (shown) validating_ = false;
    });
}

// Customization.

void ToolbarWidget::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (!toolbar_ || !toolbar_->allowsUserCustomization() || toolbar_->customizationPaletteIsRunning()) return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* modes = new QActionGroup(menu);
    const std::pair<const char*, ToolbarDisplay> kModes[] = {{"Icon and Text", ToolbarDisplay::IconAndLabel},
                                                             {"Icon Only", ToolbarDisplay::IconOnly},
                                                             {"Text Only", ToolbarDisplay::LabelOnly}};
    const auto now = static_cast<ToolbarDisplay>(toolbar_->displayMode());
    for (const auto& [title, mode] : kModes) {
        QAction* action = modes->addAction(menu->addAction(QString::fromUtf8(title)));
        action->setCheckable(true);
        action->setChecked(mode == now || (now == ToolbarDisplay::Default && mode == ToolbarDisplay::IconAndLabel));
        connect(action, &QAction::triggered, this, [this, chosen = mode] {
            if (!toolbar_) return;
            const Ref<NSToolbar> kept(toolbar_);
            runReported([&] {
                kept->setDisplayMode(static_cast<unsigned long>(chosen));
                kept->customized();
            });
        });
    }
    menu->addSeparator();
    QAction* small = menu->addAction(QStringLiteral("Use Small Size"));
    small->setCheckable(true);
    small->setChecked(toolbar_->sizeMode() == static_cast<unsigned long>(ToolbarSize::Small));
    connect(small, &QAction::toggled, this, [this](bool on) {
        if (!toolbar_) return;
        const Ref<NSToolbar> kept(toolbar_);
        runReported([&] {
            kept->setSizeMode(static_cast<unsigned long>(on ? ToolbarSize::Small : ToolbarSize::Regular));
            kept->customized();
        });
    });
    menu->addSeparator();
    connect(menu->addAction(QStringLiteral("Customize Toolbar…")), &QAction::triggered, this, [this] {
        if (!toolbar_) return;
        const Ref<NSToolbar> kept(toolbar_);
        runReported([&] { kept->runCustomizationPalette(nil); });
    });
    menu->popup(event->globalPos());
}

CustomizationSheet* ToolbarWidget::sheet() const { return static_cast<CustomizationSheet*>(sheet_.data()); }

void ToolbarWidget::startCustomizing() {
    auto* window = qobject_cast<QMainWindow*>(parentWidget());
    if (!window || !toolbar_) return;
    strip_->setCustomizing(true);
    sheet_ = new CustomizationSheet(*this, *window);
}

void ToolbarWidget::endCustomizing() {
    if (sheet_) {
        sheet()->forget();
        sheet_->hide();
        sheet_->deleteLater();
        sheet_.clear();
    }
    strip_->setCustomizing(false);
    if (!toolbar_) return;
    const Ref<NSToolbar> kept(toolbar_);
    runReported([&] { kept->customizationEnded(); });
    validateSoon();
}

}  // namespace velt
