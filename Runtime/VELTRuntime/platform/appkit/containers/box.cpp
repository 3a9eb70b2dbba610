#include "VELTRuntime/platform/appkit/containers/box.h"

#include "VELTRuntime/platform/appkit/accessibility/names.h"
#include "VELTRuntime/platform/appkit/containers/frame_drawing.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

NSBox::NSBox() : title_(velt::string(u"Title")), content_(velt::make<NSView>()) { NSView::addSubview(content_.get()); }

// What it is.

void NSBox::setBoxType(unsigned long type) {
    boxType_ = type;
    layOut();
}
void NSBox::setBorderType(unsigned long type) {
    borderType_ = type;
    layOut();
}
void NSBox::setTitle(const id& title) {
    title_ = title;
    layOut();
}
void NSBox::setTitlePosition(unsigned long position) {
    titlePosition_ = position;
    layOut();
}
void NSBox::setTitleFont(const id& font) {
    titleFont_ = font;
    layOut();
}
void NSBox::setFillColor(const id& color) {
    fillColor_ = color;
    changed();
}
void NSBox::setBorderColor(const id& color) {
    borderColor_ = color;
    changed();
}
void NSBox::setBorderWidth(double width) {
    borderWidth_ = std::max(width, 0.0);
    layOut();
}
void NSBox::setCornerRadius(double radius) {
    cornerRadius_ = std::max(radius, 0.0);
    changed();
}
void NSBox::setTransparent(bool flag) {
    transparent_ = flag;
    changed();
}
void NSBox::setContentViewMargins(NSSize margins) {
    margins_ = margins;
    layOut();
}

// What lies in it.

void NSBox::setContentView(NSView* view) {
    if (view == content_.get()) return;
    const velt::Ref<NSView> before = std::exchange(content_, nullptr), next(view);
    if (before) before->removeFromSuperview();
    if (view) NSView::addSubview(view);
    // Only now: a content view that does not lie in the box is taken for one that the program took away.
    content_ = next;
    layOut();
}

void NSBox::addSubview(NSView* view) {
    if (!content_) setContentView(velt::make<NSView>().get());
    if (view != content_.get()) content_->addSubview(view);
}

void NSBox::subviewsChanged() {
    if (content_ && content_->superviewPointer() != this) content_ = nullptr;  // the program took it elsewhere
}

// Where its parts are.

namespace {
constexpr double kTitleIndent = 10, kTitleGap = 2;

QFont fontOfTitle(const id& font) {
    return velt::is<NSFont>(font) ? velt::as<NSFont>(font)->font() : QApplication::font("QGroupBox");
}
}  // namespace

bool NSBox::hasTitle() const {
    return boxType_ != velt::kSeparatorBox && titlePosition_ != velt::kNoTitle && !velt::qtText(title_).isEmpty();
}

NSSize NSBox::titleSize() const {
    if (!hasTitle()) return {};
    const QFontMetricsF metrics(fontOfTitle(titleFont_));
    return {std::ceil(metrics.horizontalAdvance(velt::qtText(title_))) + 2 * kTitleGap, std::ceil(metrics.height())};
}

NSRect NSBox::titleRect() const {
    const NSSize size = titleSize();
    const bool atTop = titlePosition_ <= velt::kBelowTop;
    const NSRect border = borderRect();
    const double top = border.origin.y + border.size.height;
    double y = 0;
    switch (titlePosition_) {
    case velt::kAtTop: y = top - size.height / 2; break;
    case velt::kBelowTop: y = top - size.height - kTitleGap; break;
    case velt::kAboveBottom: y = border.origin.y + kTitleGap; break;
    case velt::kAtBottom: y = border.origin.y - size.height / 2; break;
    default: y = atTop ? frame().size.height - size.height : 0; break;
    }
    const double width = std::min(size.width, std::max(frame().size.width - 2 * kTitleIndent, 0.0));
    const double x = QApplication::isRightToLeft() ? frame().size.width - kTitleIndent - width : kTitleIndent;
    return {{x, y}, {width, size.height}};
}

NSRect NSBox::borderRect() const {
    NSRect rect{{0, 0}, frame().size};
    const double title = titleSize().height;
    const bool above = titlePosition_ == velt::kAboveTop, below = titlePosition_ == velt::kBelowBottom;
    const double taken = above || below                                                        ? title
                         : titlePosition_ == velt::kAtTop || titlePosition_ == velt::kAtBottom ? std::floor(title / 2)
                                                                                               : 0;
    rect.size.height = std::max(rect.size.height - taken, 0.0);
    if (below || titlePosition_ == velt::kAtBottom) rect.origin.y = taken;
    return rect;
}

NSRect NSBox::contentRect() const {
    if (boxType_ == velt::kSeparatorBox) return {};
    NSRect rect = borderRect();
    const double border = borderType_ == velt::kNoBorder ? 0
                          : boxType_ == velt::kCustomBox ? borderWidth_
                                                         : velt::frameWidth(borderType_);
    const double x = border + margins_.width, y = border + margins_.height;
    rect = {{rect.origin.x + x, rect.origin.y + y}, {rect.size.width - 2 * x, rect.size.height - 2 * y}};
    const double title = titleSize().height;
    const bool straddles = titlePosition_ == velt::kAtTop || titlePosition_ == velt::kAtBottom;
    const bool within = titlePosition_ == velt::kBelowTop || titlePosition_ == velt::kAboveBottom;
    const double taken = straddles ? std::ceil(title / 2) : within ? title : 0;
    if (titlePosition_ == velt::kAboveBottom || titlePosition_ == velt::kAtBottom) rect.origin.y += taken;
    rect.size = {std::max(rect.size.width, 0.0), std::max(rect.size.height - taken, 0.0)};
    return rect;
}

void NSBox::layOut() {
    if (content_) content_->setFrame(contentRect());
    changed();
}

void NSBox::sizeChanged(NSSize before) {
    NSView::sizeChanged(before);
    layOut();
}

void NSBox::setFrameFromContentFrame(NSRect wanted) {
    const NSRect inner = contentRect();
    const double right = frame().size.width - inner.size.width, above = frame().size.height - inner.size.height;
    setFrame({{wanted.origin.x - inner.origin.x, wanted.origin.y - inner.origin.y},
              {wanted.size.width + right, wanted.size.height + above}});
}

void NSBox::sizeToFit() {
    if (!content_ || content_->subviewList().empty()) return;
    NSSize needed{};
    for (const velt::Ref<NSView>& view : content_->subviewList()) {
        needed.width = std::max(needed.width, view->frame().origin.x + view->frame().size.width);
        needed.height = std::max(needed.height, view->frame().origin.y + view->frame().size.height);
    }
    // Enough room first, so that what is left beside the content is known.
    const NSPoint origin = frame().origin;
    setFrameSize({std::max(frame().size.width, 200.0), std::max(frame().size.height, 200.0)});
    setFrameFromContentFrame({{0, 0}, needed});
    setFrameOrigin(origin);
}

// Looks.

void NSBox::syncWidget(QWidget& widget) {
    NSView::syncWidget(widget);
    velt::setOwnName(widget, hasTitle() ? velt::qtText(title_) : QString());
}

QRectF NSBox::inWidget(NSRect rect) const {
    return {rect.origin.x, frame().size.height - rect.origin.y - rect.size.height, rect.size.width, rect.size.height};
}

void NSBox::drawCustom(QPainter& painter, QColor fill) {
    const bool framed = borderType_ != velt::kNoBorder && borderWidth_ > 0;
    const QColor line = velt::is<NSColor>(borderColor_) ? velt::qtColor(*velt::as<NSColor>(borderColor_))
                                                        : velt::lineColor(widget().palette());
    const double half = framed ? borderWidth_ / 2 : 0;
    painter.setRenderHint(QPainter::Antialiasing, cornerRadius_ > 0);
    painter.setPen(framed ? QPen(line, borderWidth_, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin) : QPen(Qt::NoPen));
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    const QRectF outline = inWidget(borderRect()).adjusted(half, half, -half, -half);
    if (cornerRadius_ > 0) {
        painter.drawRoundedRect(outline, cornerRadius_, cornerRadius_);
    } else {
        painter.drawRect(outline);
    }
}

void NSBox::drawBox(QPainter& painter) {
    const QColor fill = velt::is<NSColor>(fillColor_) ? velt::qtColor(*velt::as<NSColor>(fillColor_)) : QColor();
    if (boxType_ == velt::kCustomBox) return drawCustom(painter, fill);
    const QRectF border = inWidget(borderRect());
    if (fill.isValid() && fill.alpha() > 0) painter.fillRect(border, fill);
    if (boxType_ == velt::kOldStyleBox || borderType_ == velt::kLineBorder) {
        velt::drawFrame(painter, *this, borderType_, border);
    } else if (borderType_ != velt::kNoBorder) {
        velt::drawGroupFrame(painter, *this, border, boxType_ == velt::kSecondaryBox);
    }
}

void NSBox::drawRect(NSRect) {
    velt::GraphicsContext* context = velt::GraphicsContext::current();
    if (!context) return;
    QPainter& painter = context->painter();
    const velt::WidgetCoordinates scope(painter, *this);
    if (boxType_ == velt::kSeparatorBox) return velt::drawSeparator(painter, *this, inWidget({{0, 0}, frame().size}));
    const QRectF title = inWidget(titleRect());
    const bool titled = hasTitle();
    painter.save();
    if (titled && (titlePosition_ == velt::kAtTop || titlePosition_ == velt::kAtBottom)) {
        // The frame leaves room for a title that stands on it.
        painter.setClipRegion(QRegion(widget().rect()) - QRegion(title.toAlignedRect()), Qt::IntersectClip);
    }
    if (!transparent_) drawBox(painter);
    painter.restore();
    if (!titled) return;
    painter.setFont(fontOfTitle(titleFont_));
    painter.setPen(widget().palette().color(QPalette::WindowText));
    const QString text = velt::fittingLine(velt::qtText(title_), painter.font(), Qt::ElideRight, title.width());
    painter.drawText(title, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void NSBox::describe(velt::ClassBuilder<NSBox>& c) {
    c.property("boxType", &NSBox::boxType, &NSBox::setBoxType)
        .property("borderType", &NSBox::borderType, &NSBox::setBorderType)
        .property("title", &NSBox::title, &NSBox::setTitle)
        .property("titlePosition", &NSBox::titlePosition, &NSBox::setTitlePosition)
        .property("titleFont", &NSBox::titleFont, &NSBox::setTitleFont)
        .property("fillColor", &NSBox::fillColor, &NSBox::setFillColor)
        .property("borderColor", &NSBox::borderColor, &NSBox::setBorderColor)
        .property("borderWidth", &NSBox::borderWidth, &NSBox::setBorderWidth)
        .property("cornerRadius", &NSBox::cornerRadius, &NSBox::setCornerRadius)
        .flag("transparent", &NSBox::isTransparent, &NSBox::setTransparent)
        .property("contentViewMargins", &NSBox::contentViewMargins, &NSBox::setContentViewMargins)
        .property("contentView", &NSBox::contentView, &NSBox::setContentView)
        .property("borderRect", &NSBox::borderRect)
        .property("titleRect", &NSBox::titleRect)
        .method("sizeToFit", &NSBox::sizeToFit)
        .method("setFrameFromContentFrame:", &NSBox::setFrameFromContentFrame)
        .owns(&NSBox::title_)
        .owns(&NSBox::titleFont_)
        .owns(&NSBox::fillColor_)
        .owns(&NSBox::borderColor_)
        .owns(&NSBox::content_);
}
