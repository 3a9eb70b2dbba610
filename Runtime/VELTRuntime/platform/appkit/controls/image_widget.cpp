#include "VELTRuntime/platform/appkit/controls/image_widget.h"

#include "VELTRuntime/platform/appkit/controls/image_view.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"

#include <QAccessibleWidget>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>

namespace velt {

namespace {

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    auto* widget = dynamic_cast<ImageWidget*>(object);
    return widget ? new QAccessibleWidget(widget, QAccessible::Graphic) : nullptr;
}

}  // namespace

ImageWidget::ImageWidget() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
}

NSImageView* ImageWidget::view() const { return static_cast<NSImageView*>(viewOf(this)); }

void ImageWidget::paintEvent(QPaintEvent*) {
    const NSImageView* shown = view();
    if (!shown) return;
    QPainter painter(this);
    drawImageCell(painter, rect(), shown->imageCell(), isEnabled());
    if (!dropping_ && !hasFocus()) return;
    constexpr int kRing = 2;
    painter.setPen(QPen(palette().color(QPalette::Highlight), kRing));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ImageWidget::keyPressEvent(QKeyEvent* event) {
    if (!view()) return;
    const Ref<NSImageView> shown(view());
    runReported([&] {
        if (event->matches(QKeySequence::Paste)) {
            shown->paste(nil);
        } else if (event->matches(QKeySequence::Copy)) {
            shown->copyImage(nil);
        } else if (event->matches(QKeySequence::Cut)) {
            shown->cut(nil);
        } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
            shown->deleteImage(nil);
        } else {
            QWidget::keyPressEvent(event);
        }
    });
}

void ImageWidget::dragEnterEvent(QDragEnterEvent* event) {
    dropping_ = NSImageView::holdsImage(*event->mimeData());
    if (dropping_) event->acceptProposedAction();
    update();
}

void ImageWidget::dragLeaveEvent(QDragLeaveEvent*) {
    dropping_ = false;
    update();
}

void ImageWidget::dropEvent(QDropEvent* event) {
    dropping_ = false;
    update();
    if (!view()) return;
    const Ref<NSImageView> shown(view());
    runReported([&] {
        if (shown->takeImage(*event->mimeData())) event->acceptProposedAction();
    });
}

}  // namespace velt
