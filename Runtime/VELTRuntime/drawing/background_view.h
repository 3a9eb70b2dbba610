// Views with a decorated background: a plain colour, a pattern, a gradient and an image, one over the other within a
// rectangle whose corners may be round.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

#include <memory>

class NSBezierPath;
class NSColor;
class NSImage;
class PXGradient;

namespace velt {
class BackgroundCache;
struct BackgroundLayers;
}  // namespace velt

/// Every layer is optional; nil takes it away. What was drawn is kept until a layer, the size or the screen changes.
class VELT_EXPORT KRBackgroundView : public NSView {
    VELT_OBJECT(KRBackgroundView, NSView)
public:
    KRBackgroundView();
    ~KRBackgroundView() override;

    /// No layers, square corners, everything opaque, the next gradient upwards.
    void clearBackground();
    id backgroundColor() const;
    void setBackgroundColor(NSColor* color);
    /// The image that is repeated from the upper left corner.
    id backgroundPattern() const;
    void setBackgroundPattern(NSImage* image);
    id backgroundGradient() const;
    /// Leaves the angle as it is.
    void setBackgroundGradient(PXGradient* gradient);
    void setBackgroundGradient(PXGradient* gradient, float angle);
    /// In degrees, against the clock from the x axis.
    float gradientAngle() const { return gradientAngle_; }
    id backgroundImage() const;
    /// The image lies in the middle.
    void setBackgroundImage(NSImage* image);
    void setBackgroundImage(NSImage* image, float alpha);
    float backgroundImageAlpha() const { return imageAlpha_; }
    /// The opacity of all layers but the image, from 0 to 1. 0 counts as 0.01, here and for images: a layer that is
    /// there is seen.
    float backgroundAlpha() const { return alpha_; }
    void setBackgroundAlpha(float alpha);
    float backgroundCornerRadius() const { return cornerRadius_; }
    void setBackgroundCornerRadius(float radius);

    void drawRect(NSRect dirty) override;
    /// A rectangle with the view's round corners, an NSBezierPath.
    id createBezierPathForRect(NSRect rect) const;
    /// Draws an image through a path, in the middle of the view; at its origin when the image is as large as the path.
    void drawImage(NSImage* image, float alpha, NSBezierPath* path);

    /// What is drawn, kept from the last time.
    const velt::BackgroundCache& cache() const { return *cache_; }
    static void describe(velt::ClassBuilder<KRBackgroundView>& c);

private:
    velt::BackgroundLayers layers() const;

    velt::Ref<NSColor> color_;
    velt::Ref<NSImage> pattern_, image_;
    velt::Ref<PXGradient> gradient_;
    float gradientAngle_ = 90, alpha_ = 1, imageAlpha_ = 1, cornerRadius_ = 0;
    std::unique_ptr<velt::BackgroundCache> cache_;
};

/// The background view that programs of the language drive.
class VELT_EXPORT VLBackgroundView : public KRBackgroundView {
    VELT_OBJECT(VLBackgroundView, KRBackgroundView)
public:
    static void describe(velt::ClassBuilder<VLBackgroundView>& c);
};
