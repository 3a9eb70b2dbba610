#include "VELTRuntime/drawing/background_view.h"

#include "VELTRuntime/drawing/background_layers.h"
#include "VELTRuntime/platform/appkit/bezier_path.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/single_precision.h"

#include <QPainter>
#include <cmath>

using velt::Ref;

namespace {

/// A layer that is there never vanishes.
float seen(float alpha) {
    constexpr float kBarely = 0.01F;
    return alpha == 0 ? kBarely : alpha;
}

/// What the toolkit takes for an opacity; no number lets nothing be seen.
float opacity(float alpha) { return alpha > 0 ? std::min(alpha, 1.0F) : 0; }

/// Coordinates are of the precision of a Single; programs rely on it.
double rounded(double value) { return velt::toSingle(value); }

template <class T> id valueOf(const Ref<T>& object) { return id(object); }

}  // namespace

KRBackgroundView::KRBackgroundView() : cache_(std::make_unique<velt::BackgroundCache>()) {}
KRBackgroundView::~KRBackgroundView() = default;

void KRBackgroundView::clearBackground() {
    color_ = nullptr;
    pattern_ = image_ = nullptr;
    gradient_ = nullptr;
    gradientAngle_ = 90;
    alpha_ = imageAlpha_ = 1;
    cornerRadius_ = 0;
    cache_->clear();
    setNeedsDisplay(true);
}

id KRBackgroundView::backgroundColor() const { return valueOf(color_); }
void KRBackgroundView::setBackgroundColor(NSColor* color) {
    color_ = Ref<NSColor>(color);
    setNeedsDisplay(true);
}
id KRBackgroundView::backgroundPattern() const { return valueOf(pattern_); }
void KRBackgroundView::setBackgroundPattern(NSImage* image) {
    pattern_ = Ref<NSImage>(image);
    setNeedsDisplay(true);
}
id KRBackgroundView::backgroundGradient() const { return valueOf(gradient_); }
void KRBackgroundView::setBackgroundGradient(PXGradient* gradient) { setBackgroundGradient(gradient, gradientAngle_); }
void KRBackgroundView::setBackgroundGradient(PXGradient* gradient, float angle) {
    gradient_ = Ref<PXGradient>(gradient);
    gradientAngle_ = angle;
    setNeedsDisplay(true);
}
id KRBackgroundView::backgroundImage() const { return valueOf(image_); }
void KRBackgroundView::setBackgroundImage(NSImage* image) { setBackgroundImage(image, imageAlpha_); }
void KRBackgroundView::setBackgroundImage(NSImage* image, float alpha) {
    image_ = Ref<NSImage>(image);
    imageAlpha_ = seen(alpha);
    setNeedsDisplay(true);
}
void KRBackgroundView::setBackgroundAlpha(float alpha) {
    alpha_ = seen(alpha);
    setNeedsDisplay(true);
}
void KRBackgroundView::setBackgroundCornerRadius(float radius) {
    cornerRadius_ = radius;
    setNeedsDisplay(true);
}

id KRBackgroundView::createBezierPathForRect(NSRect rect) const {
    const double left = rounded(rect.origin.x), bottom = rounded(rect.origin.y);
    const double right = rounded(rect.origin.x + rect.size.width), top = rounded(rect.origin.y + rect.size.height);
    const double across = rounded(rect.origin.x + rect.size.width / 2),
                 up = rounded(rect.origin.y + rect.size.height / 2);
    const auto radius = static_cast<double>(cornerRadius_);
    Ref<NSBezierPath> path = velt::make<NSBezierPath>();
    path->moveTo({across, bottom});
    path->appendArcIn({right, bottom}, {right, up}, radius);
    path->appendArcIn({right, top}, {across, top}, radius);
    path->appendArcIn({left, top}, {left, up}, radius);
    path->appendArcIn({left, bottom}, {across, bottom}, radius);
    path->closePath();
    return path;
}

velt::BackgroundLayers KRBackgroundView::layers() const {
    velt::BackgroundLayers layers;
    if (color_) layers.color = velt::qtColor(*color_);
    layers.pattern = pattern_;
    layers.image = image_;
    layers.gradient = gradient_;
    layers.gradientAngle = std::isfinite(gradientAngle_) ? gradientAngle_ : 0;
    layers.alpha = opacity(alpha_);
    layers.imageAlpha = opacity(imageAlpha_);
    const NSSize size = bounds().size;
    layers.size = QSizeF(size.width, size.height);
    const id path = createBezierPathForRect({{0, 0}, size});
    layers.path = velt::as<NSBezierPath>(path)->filled();
    return layers;
}

namespace {

/// While it exists, a painter's coordinates begin at a view's lower left corner and y points up, in views whose y
/// points down too.
class Upwards {
public:
    Upwards(velt::GraphicsContext& context, NSRect bounds) : painter_(context.painter()) {
        painter_.save();
        painter_.translate(bounds.origin.x, bounds.origin.y);
        if (context.isTurned()) return;
        painter_.translate(0, bounds.size.height);
        painter_.scale(1, -1);
    }
    ~Upwards() { painter_.restore(); }
    Upwards(const Upwards&) = delete;
    Upwards& operator=(const Upwards&) = delete;

private:
    QPainter& painter_;
};

}  // namespace

void KRBackgroundView::drawRect(NSRect) {
    velt::GraphicsContext* context = velt::GraphicsContext::current();
    if (!context) return;
    const Upwards scope(*context, bounds());
    cache_->draw(context->painter(), layers());
}

void KRBackgroundView::drawImage(NSImage* image, float alpha, NSBezierPath* path) {
    velt::GraphicsContext* context = velt::GraphicsContext::current();
    if (!context || !image || !path || !image->isValid()) return;
    const NSSize size = bounds().size;
    velt::drawThrough(context->painter(), *image, static_cast<double>(opacity(alpha)), path->filled(),
                      QSizeF(size.width, size.height), context->isTurned());
}

void KRBackgroundView::describe(velt::ClassBuilder<KRBackgroundView>& c) {
    using View = KRBackgroundView;
    c.property("backgroundColor", &View::backgroundColor, &View::setBackgroundColor)
        .property("backgroundPattern", &View::backgroundPattern, &View::setBackgroundPattern)
        .property("backgroundGradient", &View::backgroundGradient,
                  static_cast<void (View::*)(PXGradient*)>(&View::setBackgroundGradient))
        .property("gradientAngle", &View::gradientAngle)
        .property("backgroundImage", &View::backgroundImage,
                  static_cast<void (View::*)(NSImage*)>(&View::setBackgroundImage))
        .property("backgroundImageAlpha", &View::backgroundImageAlpha)
        .property("backgroundAlpha", &View::backgroundAlpha, &View::setBackgroundAlpha)
        .property("backgroundCornerRadius", &View::backgroundCornerRadius, &View::setBackgroundCornerRadius)
        .method("clearBackground", &View::clearBackground)
        .method("setBackgroundGradient:withAngle:",
                static_cast<void (View::*)(PXGradient*, float)>(&View::setBackgroundGradient))
        .method("setBackgroundImage:withAlpha:",
                static_cast<void (View::*)(NSImage*, float)>(&View::setBackgroundImage))
        .method("createBezierPathForRect:", &View::createBezierPathForRect)
        .method("drawImage:alpha:clippingPath:", &View::drawImage)
        .owns(&View::color_)
        .owns(&View::pattern_)
        .owns(&View::gradient_)
        .owns(&View::image_);
}

void VLBackgroundView::describe(velt::ClassBuilder<VLBackgroundView>& c) {
    // Each shows at once what it changed: the program's own class may draw more.
    static const auto redraw = [](const id& self) {
        velt::send(self, VELT_SELECTOR("setNeedsDisplay:"), VELT_ID(BOOL{1}));
        return nil;
    };
    c.method("SetBackgroundGradient::",
             [](const id& self, const id* a) {
                 const Ref<PXGradient> made = PXGradient::between(velt::to<NSColor>(a[0]), velt::to<NSColor>(a[1]));
                 velt::as<KRBackgroundView>(self)->setBackgroundGradient(made.get());
                 return redraw(self);
             })
        .method("SetBackgroundImage::",
                [](const id& self, const id* a) {
                    velt::as<KRBackgroundView>(self)->setBackgroundImage(velt::to<NSImage>(a[0]), VELT_CSINGLE(a[1]));
                    return redraw(self);
                })
        .method("SetBackgroundCornerRadius:", [](const id& self, const id* a) {
            velt::as<KRBackgroundView>(self)->setBackgroundCornerRadius(VELT_CSINGLE(a[0]));
            return redraw(self);
        });
}
