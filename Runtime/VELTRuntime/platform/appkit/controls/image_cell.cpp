#include "VELTRuntime/platform/appkit/controls/image_cell.h"

#include "VELTRuntime/platform/appkit/image.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

namespace velt {

namespace {

constexpr unsigned long kNoFrame = 0, kPhoto = 1, kSunken = 2, kGroove = 3, kRaised = 4;
constexpr int kFrameWidth = 3;

Qt::Alignment qtAlignment(ImageAlignment alignment) {
    switch (alignment) {
    case ImageAlignment::Top: return Qt::AlignTop | Qt::AlignHCenter;
    case ImageAlignment::TopLeft: return Qt::AlignTop | Qt::AlignLeft;
    case ImageAlignment::TopRight: return Qt::AlignTop | Qt::AlignRight;
    case ImageAlignment::Left: return Qt::AlignVCenter | Qt::AlignLeft;
    case ImageAlignment::Bottom: return Qt::AlignBottom | Qt::AlignHCenter;
    case ImageAlignment::BottomLeft: return Qt::AlignBottom | Qt::AlignLeft;
    case ImageAlignment::BottomRight: return Qt::AlignBottom | Qt::AlignRight;
    case ImageAlignment::Right: return Qt::AlignVCenter | Qt::AlignRight;
    case ImageAlignment::Centre: break;
    }
    return Qt::AlignCenter;
}

QSize scaled(const QSize& image, const QSize& room, ImageScaling scaling) {
    switch (scaling) {
    case ImageScaling::AxesIndependently: return room;
    case ImageScaling::ProportionallyUpOrDown: return image.scaled(room, Qt::KeepAspectRatio);
    case ImageScaling::ProportionallyDown:
        if (image.width() > room.width() || image.height() > room.height()) {
            return image.scaled(room, Qt::KeepAspectRatio);
        }
        return image;
    case ImageScaling::None: break;
    }
    return image;
}

/// Draws the frame; returns what it leaves.
QRect drawFrame(QPainter& painter, const QRect& rect, unsigned long style) {
    if (style == kNoFrame) return rect;
    QStyleOptionFrame option;
    option.rect = rect;
    option.lineWidth = option.midLineWidth = 1;
    const QPalette& palette = option.palette;
    QRect inner = rect.adjusted(kFrameWidth, kFrameWidth, -kFrameWidth, -kFrameWidth);
    if (style == kPhoto) {
        QColor shadow = palette.color(QPalette::Shadow);
        shadow.setAlphaF(0.35F);
        painter.fillRect(rect.adjusted(2, 2, 0, 0), shadow);
        painter.setPen(palette.color(QPalette::WindowText));
        painter.setBrush(palette.color(QPalette::Base));
        painter.drawRect(rect.adjusted(0, 0, -kFrameWidth, -kFrameWidth));
        return inner;
    }
    option.frameShape = style == kGroove ? QFrame::Box : QFrame::Panel;
    option.state |= style == kRaised ? QStyle::State_Raised : QStyle::State_Sunken;
    if (style == kSunken) painter.fillRect(rect, palette.color(QPalette::Base));
    if (style == kRaised) painter.fillRect(rect, palette.color(QPalette::Button));
    QApplication::style()->drawControl(QStyle::CE_ShapedFrame, &option, &painter);
    return inner;
}

}  // namespace

QRect imageRect(const QRect& place, const QSize& image, ImageScaling scaling, ImageAlignment alignment) {
    return QStyle::alignedRect(Qt::LeftToRight, qtAlignment(alignment), scaled(image, place.size(), scaling), place);
}

void drawImageCell(QPainter& painter, const QRect& rect, const NSImageCell& cell, bool enabled) {
    painter.save();
    const QRect room = drawFrame(painter, rect, cell.imageFrameStyle());
    const id image = cell.image();
    if (is<NSImage>(image) && as<NSImage>(image)->isValid() && !room.isEmpty()) {
        const QImage& picture = as<NSImage>(image)->picture();
        painter.setClipRect(room);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        constexpr double kFaded = 0.4;
        if (!enabled) painter.setOpacity(kFaded);
        painter.drawImage(imageRect(room, picture.deviceIndependentSize().toSize(),
                                    static_cast<ImageScaling>(cell.imageScaling()),
                                    static_cast<ImageAlignment>(cell.imageAlignment())),
                          picture);
    }
    painter.restore();
}

}  // namespace velt

NSImageCell::NSImageCell() { store(nil); }

NSImageCell::NSImageCell(const id& image) : NSImageCell() { NSImageCell::setImage(image); }

void NSImageCell::setImage(const id& value) {
    const id shown = velt::is<NSImage>(value) ? value : nil;
    store(shown);
    NSCell::setImage(shown);
}

void NSImageCell::setImageScaling(unsigned long scaling) {
    if (scaling > static_cast<unsigned long>(velt::ImageScaling::ProportionallyUpOrDown)) return;
    scaling_ = static_cast<velt::ImageScaling>(scaling);
    changed();
}
void NSImageCell::setImageAlignment(unsigned long alignment) {
    if (alignment > static_cast<unsigned long>(velt::ImageAlignment::Right)) return;
    imageAlignment_ = static_cast<velt::ImageAlignment>(alignment);
    changed();
}
void NSImageCell::setImageFrameStyle(unsigned long style) {
    if (style > velt::kRaised) return;
    frameStyle_ = style;
    changed();
}

NSSize NSImageCell::cellSize() const {
    const id shown = image();
    NSSize size = velt::is<NSImage>(shown) ? velt::as<NSImage>(shown)->size() : NSSize{};
    if (frameStyle_ == velt::kNoFrame) return size;
    return {size.width + 2.0 * velt::kFrameWidth, size.height + 2.0 * velt::kFrameWidth};
}

void NSImageCell::describe(velt::ClassBuilder<NSImageCell>& c) {
    c.property("imageScaling", &NSImageCell::imageScaling, &NSImageCell::setImageScaling)
        .property("imageAlignment", &NSImageCell::imageAlignment, &NSImageCell::setImageAlignment)
        .property("imageFrameStyle", &NSImageCell::imageFrameStyle, &NSImageCell::setImageFrameStyle);
}
