#include "VELTRuntime/platform/appkit/printing/printed_pages.h"

#include "VELTRuntime/platform/appkit/printing/print_info.h"
#include "VELTRuntime/platform/appkit/printing/printed_text.h"

#include <QPainter>
#include <QWidget>
#include <cmath>

namespace velt {

namespace {

constexpr double kLeastRoom = 1;    // points: nobody can read what stands on less
constexpr double kMostTiles = 1e5;  // more than anybody prints

/// A view as it looks, cut into the tiles that fit a page: those below each other first.
class PrintedTiles final : public PrintedPages {
public:
    PrintedTiles(NSView& view, const NSPrintInfo& info, const PrintedArea& area)
        : view_(&view), room_(area.room), scale_(area.dotsPerPoint) {
        const NSSize size = view.frame().size;
        const double leastRoom = kLeastRoom * area.dotsPerPoint;
        if (size.width <= 0 || size.height <= 0) return;
        if (!(room_.width() >= leastRoom && room_.height() >= leastRoom)) return;
        const double width = size.width * area.dotsPerPoint, height = size.height * area.dotsPerPoint;
        double fit = 1;
        if (info.horizontalPagination() == NSPrintInfo::kFit) fit = std::min(fit, room_.width() / width);
        if (info.verticalPagination() == NSPrintInfo::kFit) fit = std::min(fit, room_.height() / height);
        scale_ *= fit;
        const double columns = tiles(info.horizontalPagination(), width * fit, room_.width());
        const double rows = tiles(info.verticalPagination(), height * fit, room_.height());
        if (!(columns * rows <= kMostTiles)) return;
        columns_ = static_cast<std::size_t>(columns);
        rows_ = static_cast<std::size_t>(rows);
        if (info.isHorizontallyCentered()) spare_.setX(std::max(0.0, room_.width() - width * fit) / 2);
        if (info.isVerticallyCentered()) spare_.setY(std::max(0.0, room_.height() - height * fit) / 2);
    }

    std::size_t count() const override { return columns_ * rows_; }

    void draw(std::size_t page, QPainter& painter) override {
        painter.save();
        painter.setClipRect(room_);
        painter.translate(room_.topLeft() + spare_);
        const std::size_t column = page / rows_, row = page % rows_;
        painter.translate(-room_.width() * static_cast<double>(column), -room_.height() * static_cast<double>(row));
        painter.scale(scale_, scale_);
        view_->widget().render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
        painter.restore();
    }

private:
    static double tiles(unsigned long mode, double length, double room) {
        if (mode != NSPrintInfo::kAuto) return 1;
        return std::max(1.0, std::ceil(length / room - 1e-9));
    }

    const Ref<NSView> view_;
    const QRectF room_;
    double scale_;
    QPointF spare_;
    std::size_t columns_ = 0, rows_ = 0;
};

}  // namespace

std::unique_ptr<PrintedPages> pagesOf(NSView& view, const NSPrintInfo& info, const PrintedArea& area) {
    const id shown(static_cast<NSObject*>(&view));
    if (is<NSTextView>(shown)) return std::make_unique<PrintedText>(*as<NSTextView>(shown), info, area);
    return std::make_unique<PrintedTiles>(view, info, area);
}

}  // namespace velt
