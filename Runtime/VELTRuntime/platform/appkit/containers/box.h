// Boxes: a frame with a title around what belongs together, a plain coloured rectangle, or a line between two groups.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

class QColor;
class QRectF;

namespace velt {

/// What a box looks like; the numbers are those that programs use.
enum BoxType : unsigned long {
    kPrimaryBox = 0,    // the desktop's group box
    kSecondaryBox = 1,  // the same, drawn lighter
    kSeparatorBox = 2,  // a line, upright when the box is higher than wide
    kOldStyleBox = 3,   // drawn by its border type
    kCustomBox = 4,     // drawn with its fill and border colours
};

/// Where a box has its title.
enum BoxTitlePosition : unsigned long {
    kNoTitle = 0,
    kAboveTop = 1,
    kAtTop = 2,
    kBelowTop = 3,
    kAboveBottom = 4,
    kAtBottom = 5,
    kBelowBottom = 6,
};

}  // namespace velt

/// What is put into a box lies in its content view, which fills the box within frame, title and margins.
class VELT_EXPORT NSBox : public NSView {
    VELT_OBJECT(NSBox, NSView)
public:
    NSBox();

    unsigned long boxType() const { return boxType_; }
    void setBoxType(unsigned long type);
    unsigned long borderType() const { return borderType_; }
    void setBorderType(unsigned long type);
    id title() const { return title_; }
    void setTitle(const id& title);
    unsigned long titlePosition() const { return titlePosition_; }
    void setTitlePosition(unsigned long position);
    /// nil stands for the desktop's own font of titles.
    id titleFont() const { return titleFont_; }
    void setTitleFont(const id& font);
    /// What a custom box is filled with; others only when it was set.
    id fillColor() const { return fillColor_; }
    void setFillColor(const id& color);
    id borderColor() const { return borderColor_; }
    void setBorderColor(const id& color);
    double borderWidth() const { return borderWidth_; }
    void setBorderWidth(double width);
    double cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(double radius);
    bool isTransparent() const { return transparent_; }
    void setTransparent(bool flag);
    NSSize contentViewMargins() const { return margins_; }
    void setContentViewMargins(NSSize margins);

    id contentView() const { return content_; }
    void setContentView(NSView* view);
    void addSubview(NSView* view) override;
    /// Where frame and title are, in the box's coordinates.
    NSRect borderRect() const;
    NSRect titleRect() const;
    /// Makes the box as large as its contents need.
    void sizeToFit();
    void setFrameFromContentFrame(NSRect frame);

    void drawRect(NSRect rect) override;
    static void describe(velt::ClassBuilder<NSBox>& c);

protected:
    void syncWidget(QWidget& widget) override;
    void sizeChanged(NSSize before) override;
    void subviewsChanged() override;

private:
    bool hasTitle() const;
    NSSize titleSize() const;
    NSRect contentRect() const;
    void layOut();
    QRectF inWidget(NSRect rect) const;
    void drawBox(QPainter& painter);
    void drawCustom(QPainter& painter, QColor fill);

    unsigned long boxType_ = velt::kPrimaryBox, borderType_ = 3, titlePosition_ = velt::kAtTop;
    double borderWidth_ = 1, cornerRadius_ = 0;
    bool transparent_ = false;
    NSSize margins_{5, 5};
    id title_, titleFont_, fillColor_, borderColor_;
    velt::Ref<NSView> content_;
};
