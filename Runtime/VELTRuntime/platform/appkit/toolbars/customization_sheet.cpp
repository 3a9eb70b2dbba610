#include "VELTRuntime/platform/appkit/toolbars/customization_sheet.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QVBoxLayout>

namespace velt {

namespace {

constexpr int kTileWidth = 96, kPicture = 32;

/// What an item looks like in the palette.
QPixmap pictureOf(const NSToolbarItem& item, const QWidget& widget) {
    if (NSView* view = item.viewPointer()) {
        const QSize size(static_cast<int>(view->frame().size.width), static_cast<int>(view->frame().size.height));
        if (!size.isEmpty()) {
            view->widget().resize(size);
            return view->widget().grab();
        }
    }
    const QIcon icon = toolbarIcon(item);
    const double ratio = widget.devicePixelRatioF();
    if (!icon.isNull()) return icon.pixmap(QSize(kPicture, kPicture), ratio);
    QPixmap picture(QSize(kPicture, kPicture) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(QPen(widget.palette().color(QPalette::Mid), 1,
                        item.isIdentifiedBy(kSeparatorItem) ? Qt::SolidLine : Qt::DashLine));
    if (item.isIdentifiedBy(kSeparatorItem)) {
        painter.drawLine(kPicture / 2, 4, kPicture / 2, kPicture - 4);
    } else {
        painter.drawRect(QRectF(4.5, 4.5, kPicture - 9, kPicture - 9));
        if (item.isIdentifiedBy(kFlexibleSpaceItem)) {
            painter.drawText(QRect(0, 0, kPicture, kPicture), Qt::AlignCenter, QStringLiteral("↔"));
        }
    }
    return picture;
}

}  // namespace

// Tiles.

PaletteTile::PaletteTile(const id& identifier, const QPixmap& picture, const QString& name, ToolbarWidget& toolbar,
                         QWidget& parent)
    : QAbstractButton(&parent), identifier_(identifier), picture_(picture), toolbar_(toolbar) {
    setText(name);
    setAccessibleName(name);
    setCursor(Qt::OpenHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this,
            [this] { drop(static_cast<int>(toolbar_.strip().places().size())); });
}

QSize PaletteTile::sizeHint() const {
    const QSizeF picture = picture_.deviceIndependentSize();
    const int wide =
        std::max({kTileWidth, static_cast<int>(picture.width()) + 8, fontMetrics().horizontalAdvance(text()) + 8});
    const int high = std::max(kPicture, static_cast<int>(picture.height()));
    return {wide, high + fontMetrics().height() + 10};
}

void PaletteTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QSizeF size = picture_.deviceIndependentSize();
    const int words = fontMetrics().height() + 4;
    painter.drawPixmap(QPointF((width() - size.width()) / 2, (height() - words - size.height()) / 2), picture_);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, height() - words, width(), words), Qt::AlignCenter, text());
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.state |= QStyle::State_KeyboardFocusChange;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void PaletteTile::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    setFocus(Qt::MouseFocusReason);
    start_ = event->position().toPoint();
}

void PaletteTile::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const QPoint point = event->position().toPoint();
    if (!dragged_.isShown() && (point - start_).manhattanLength() < QApplication::startDragDistance()) return;
    dragged_.moveTo(picture_, *this, point);
    ToolbarStrip& strip = toolbar_.strip();
    const QPoint there = strip.mapFrom(window(), mapTo(window(), point));
    strip.markInsertion(strip.rect().contains(there) ? strip.insertionAt(there) : -1);
}

void PaletteTile::mouseReleaseEvent(QMouseEvent* event) {
    if (!dragged_.isShown()) return;  // a click without a drag adds nothing
    dragged_.hide();
    ToolbarStrip& strip = toolbar_.strip();
    strip.markInsertion(-1);
    const QPoint there = strip.mapFrom(window(), mapTo(window(), event->position().toPoint()));
    if (strip.rect().contains(there)) drop(strip.insertionAt(there));
}

void PaletteTile::drop(int place) {
    NSToolbar* shown = toolbar_.toolbar();
    if (!shown) return;
    const Ref<NSToolbar> kept(shown);
    const id identifier = identifier_;
    runReported([&] {
        if (identifier.isNil()) {
            kept->restoreDefaults();
            return;
        }
        // An item that is there already goes to the new place.
        const auto& items = kept->itemList();
        for (std::size_t at = 0; at < items.size(); ++at) {
            if (!isEqual(items[at]->itemIdentifier(), identifier) || items[at]->allowsDuplicatesInToolbar()) continue;
            const auto from = static_cast<long>(at);
            kept->moveItem(from, place > from ? place - 1 : place);
            kept->customized();
            return;
        }
        kept->insertItemWithItemIdentifier(identifier, std::min<long>(place, static_cast<long>(items.size())));
        kept->customized();
    });
}

// The sheet.

CustomizationSheet::CustomizationSheet(ToolbarWidget& toolbar, QMainWindow& window)
    : QWidget(&window), toolbar_(&toolbar), window_(window) {
    setAccessibleName(QStringLiteral("Customize Toolbar"));
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    auto* panel = new QFrame;
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    auto* inside = new QVBoxLayout(panel);
    inside->addWidget(new QLabel(QStringLiteral("Drag items into the toolbar, or out of it…")));
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(makePalette());
    inside->addWidget(scroll, 1);
    inside->addWidget(makeChoices());
    outer->addWidget(panel);
    // Modal to its window alone.
    window_.centralWidget()->setEnabled(false);
    window_.centralWidget()->installEventFilter(this);
    setGeometry(window_.centralWidget()->geometry());
    show();
    raise();
}

CustomizationSheet::~CustomizationSheet() = default;

void CustomizationSheet::forget() {
    if (!toolbar_) return;
    toolbar_ = nullptr;
    if (QWidget* content = window_.centralWidget()) {
        content->removeEventFilter(this);
        content->setEnabled(true);
    }
}

QWidget* CustomizationSheet::makePalette() {
    auto* palette = new QWidget;
    auto* grid = new QGridLayout(palette);
    const int columns = std::max(1, window_.centralWidget()->width() / (kTileWidth + 8));
    int place = 0;
    const Ref<NSToolbar> kept(toolbar_->toolbar());
    runReported([&] {
        for (const id& identifier : kept->allowedIdentifiers()) {
            const Ref<NSToolbarItem> item = kept->itemFor(identifier, false);
            if (!item) continue;
            auto* tile = new PaletteTile(identifier, pictureOf(*item, *this), toolbarName(*item), *toolbar_, *palette);
            grid->addWidget(tile, place / columns, place % columns, Qt::AlignCenter);
            ++place;
        }
        // The default set, as one piece.
        QPixmap all(QSize(1, 1));
        std::vector<QPixmap> pictures;
        double wide = 8;
        for (const id& identifier : kept->defaultIdentifiers()) {
            const Ref<NSToolbarItem> item = kept->itemFor(identifier, false);
            if (!item) continue;
            pictures.push_back(pictureOf(*item, *this));
            wide += std::min(pictures.back().deviceIndependentSize().width(), double(kTileWidth)) + 8;
        }
        if (pictures.empty()) return;
        const double ratio = devicePixelRatioF();
        all = QPixmap((QSizeF(wide, kPicture + 8) * ratio).toSize());
        all.setDevicePixelRatio(ratio);
        all.fill(Qt::transparent);
        QPainter painter(&all);
        painter.setPen(this->palette().color(QPalette::Mid));
        painter.drawRect(QRectF(0.5, 0.5, wide - 2, kPicture + 6));
        double x = 8;
        for (const QPixmap& picture : pictures) {
            const double size = std::min(picture.deviceIndependentSize().width(), double(kTileWidth));
            painter.drawPixmap(QRectF(x, 4, size, kPicture), picture, QRectF(picture.rect()));
            x += size + 8;
        }
        painter.end();
        auto* set = new PaletteTile(nil, all, QStringLiteral("Default Set"), *toolbar_, *palette);
        grid->addWidget(set, place / columns + 1, 0, 1, columns, Qt::AlignCenter);
    });
    return palette;
}

QWidget* CustomizationSheet::makeChoices() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* modes = new QComboBox;
    modes->addItems({QStringLiteral("Icon and Text"), QStringLiteral("Icon Only"), QStringLiteral("Text Only")});
    modes->setAccessibleName(QStringLiteral("Show"));
    auto* label = new QLabel(QStringLiteral("Show"));
    label->setBuddy(modes);
    auto* small = new QCheckBox(QStringLiteral("Use small size"));
    auto* button = new QPushButton(QStringLiteral("Done"));
    const NSToolbar& shown = *toolbar_->toolbar();
    const auto mode = static_cast<int>(shown.displayMode());
    modes->setCurrentIndex(mode == 0 ? 0 : mode - 1);
    small->setChecked(shown.sizeMode() == static_cast<unsigned long>(ToolbarSize::Small));
    connect(modes, &QComboBox::activated, this, [this](int index) {
        if (!toolbar_ || !toolbar_->toolbar()) return;
        const Ref<NSToolbar> kept(toolbar_->toolbar());
        runReported([&] { kept->setDisplayMode(static_cast<unsigned long>(index) + 1); });
    });
    connect(small, &QCheckBox::toggled, this, [this](bool on) {
        if (!toolbar_ || !toolbar_->toolbar()) return;
        const Ref<NSToolbar> kept(toolbar_->toolbar());
        runReported(
            [&] { kept->setSizeMode(static_cast<unsigned long>(on ? ToolbarSize::Small : ToolbarSize::Regular)); });
    });
    connect(button, &QPushButton::clicked, this, [this] { done(); });
    layout->addWidget(label);
    layout->addWidget(modes);
    layout->addWidget(small);
    layout->addStretch(1);
    layout->addWidget(button);
    button->setDefault(true);
    button->setFocus(Qt::OtherFocusReason);
    return row;
}

void CustomizationSheet::done() {
    if (toolbar_) toolbar_->endCustomizing();
}

bool CustomizationSheet::eventFilter(QObject* watched, QEvent* event) {
    const bool follows = event->type() == QEvent::Resize || event->type() == QEvent::Move;
    if (follows && watched == window_.centralWidget()) setGeometry(window_.centralWidget()->geometry());
    return QWidget::eventFilter(watched, event);
}

void CustomizationSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
}

void CustomizationSheet::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter: done(); break;
    default: event->accept(); break;  // the keys of the window below wait
    }
}

}  // namespace velt
