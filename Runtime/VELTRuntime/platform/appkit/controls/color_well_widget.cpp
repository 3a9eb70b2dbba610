#include "VELTRuntime/platform/appkit/controls/color_well_widget.h"

#include "VELTRuntime/platform/appkit/controls/color_well.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace velt {

namespace {

/// A colour as it looks; what lies behind shows through as a board of squares.
void fillWithColor(QPainter& painter, const QRect& area, const QColor& color) {
    if (color.alpha() < 255) {
        constexpr int kSquare = 4;
        painter.fillRect(area, Qt::white);
        for (int y = area.top(); y <= area.bottom(); y += kSquare) {
            const int first = ((y - area.top()) / kSquare) % 2 * kSquare;
            for (int x = area.left() + first; x <= area.right(); x += 2 * kSquare)
                painter.fillRect(QRect(x, y, kSquare, kSquare) & area, QColor(190, 190, 190));
        }
    }
    painter.fillRect(area, color);
}

}  // namespace

ColorWellWidget::ColorWellWidget() { setAcceptDrops(true); }

NSColorWell* ColorWellWidget::well() const { return static_cast<NSColorWell*>(control()); }

QString ColorWellWidget::valueText() const {
    if (!well()) return {};
    const QColor color = qtColor(*as<NSColor>(well()->color()));
    return color.name(color.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb);
}

void ColorWellWidget::press() {
    if (!well()) return;
    const Ref<NSColorWell> kept(well());
    runReported([&] { kept->performClick(nil); });
}

void ColorWellWidget::paintEvent(QPaintEvent*) {
    if (!well()) return;
    QPainter painter(this);
    QRect area = rect();
    if (well()->isBordered()) {
        QStyleOptionButton frame;
        frame.initFrom(this);
        const bool down = pressed_ || well()->isActive();
        frame.state |= down ? QStyle::State_Sunken | QStyle::State_On : QStyle::State_Raised;
        style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &frame, &painter, this);
        if (well()->isActive()) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
            painter.setRenderHint(QPainter::Antialiasing, false);
        }
        const int edge = std::clamp(std::min(width(), height()) / 5, 2, 5);
        area.adjust(edge, edge, -edge, -edge);
    }
    if (area.isEmpty()) return;
    if (!isEnabled()) painter.setOpacity(0.35);
    fillWithColor(painter, area, qtColor(*as<NSColor>(well()->color())));
    painter.setOpacity(1);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(isEnabled() ? 0.45F : 0.2F);
    painter.setPen(line);
    painter.drawRect(area.adjusted(0, 0, -1, -1));
}

void ColorWellWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressed_ = true;
    pressedAt_ = event->position().toPoint();
    update();
}

void ColorWellWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPoint way = event->position().toPoint() - pressedAt_;
    if (pressed_ && way.manhattanLength() >= QApplication::startDragDistance()) startDrag();
}

void ColorWellWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_) return;
    pressed_ = false;
    update();
    if (rect().contains(event->position().toPoint())) press();
}

void ColorWellWidget::startDrag() {
    pressed_ = false;
    update();
    if (!well()) return;
    const QColor color = qtColor(*as<NSColor>(well()->color()));
    auto* drag = new QDrag(this);
    auto* content = new QMimeData;
    content->setColorData(color);
    drag->setMimeData(content);
    QPixmap swatch(16, 16);
    swatch.fill(color);
    drag->setPixmap(swatch);
    drag->exec(Qt::CopyAction);
}

void ColorWellWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (isEnabled() && event->mimeData()->hasColor() && event->source() != this) event->acceptProposedAction();
}

void ColorWellWidget::dropEvent(QDropEvent* event) {
    const auto color = event->mimeData()->colorData().value<QColor>();
    if (!color.isValid() || !well() || !isEnabled()) return;
    event->acceptProposedAction();
    const Ref<NSColorWell> kept(well());
    runReported([&] { kept->take(colorValue(color)); });
}

}  // namespace velt
