#include "VELTRuntime/platform/appkit/interface/arranged_view.h"

#include <QLayout>
#include <cmath>

VLArrangedView::VLArrangedView() = default;
VLArrangedView::~VLArrangedView() = default;

void VLArrangedView::setLayout(std::unique_ptr<QLayout> layout) {
    layout_ = std::move(layout);
    arrange();
}

NSSize VLArrangedView::minimumSize() const {
    if (!layout_) return {};
    const QSize size = layout_->totalMinimumSize();
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

NSSize VLArrangedView::preferredSize() const {
    if (!layout_) return {};
    const QSize size = layout_->totalSizeHint();
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

void VLArrangedView::dissolve() {
    layout_.reset();  // its items name subviews
    NSView::dissolve();
}

void VLArrangedView::sizeChanged(NSSize before) {
    NSView::sizeChanged(before);
    arrange();
}

void VLArrangedView::arrange() {
    const NSSize size = bounds().size;
    if (!layout_ || size.width <= 0 || size.height <= 0) return;
    layout_->setGeometry(
        QRect(0, 0, static_cast<int>(std::lround(size.width)), static_cast<int>(std::lround(size.height))));
}
