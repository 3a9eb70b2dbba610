// Image cells: an image that is shown within a rectangle.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell.h"

class QImage;
class QPainter;
class QRect;
class QSize;

namespace velt {

/// How an image that is not as large as its place is shown; the numbers are the codes that programs use.
enum class ImageScaling : unsigned long {
    ProportionallyDown = 0,
    AxesIndependently = 1,
    None = 2,
    ProportionallyUpOrDown = 3,
};

/// Where an image stands that does not fill its place.
enum class ImageAlignment : unsigned long {
    Centre = 0,
    Top = 1,
    TopLeft = 2,
    TopRight = 3,
    Left = 4,
    Bottom = 5,
    BottomLeft = 6,
    BottomRight = 7,
    Right = 8,
};

/// The rectangle that an image takes within its place.
VELT_EXPORT QRect imageRect(const QRect& place, const QSize& image, ImageScaling scaling, ImageAlignment alignment);

}  // namespace velt

class VELT_EXPORT NSImageCell : public NSCell {
    VELT_OBJECT(NSImageCell, NSCell)
public:
    /// Without an image.
    NSImageCell();
    explicit NSImageCell(const id& image);

    /// The value is the image; what is none counts as nil.
    void setObjectValue(const id& value) override { setImage(value); }
    void setImage(const id& image) override;

    unsigned long imageScaling() const { return static_cast<unsigned long>(scaling_); }
    /// Codes that there are not are ignored.
    void setImageScaling(unsigned long scaling);
    unsigned long imageAlignment() const { return static_cast<unsigned long>(imageAlignment_); }
    void setImageAlignment(unsigned long alignment);
    /// 0 none, 1 photo with a shadow, 2 sunken, 3 groove, 4 raised.
    unsigned long imageFrameStyle() const { return frameStyle_; }
    void setImageFrameStyle(unsigned long style);
    NSSize cellSize() const override;
    static void describe(velt::ClassBuilder<NSImageCell>& c);

private:
    velt::ImageScaling scaling_ = velt::ImageScaling::ProportionallyDown;
    velt::ImageAlignment imageAlignment_ = velt::ImageAlignment::Centre;
    unsigned long frameStyle_ = 0;
};

namespace velt {

/// Draws the cell's frame and image into a rectangle.
void drawImageCell(QPainter& painter, const QRect& rect, const NSImageCell& cell, bool enabled);

}  // namespace velt
