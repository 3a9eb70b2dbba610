// PXGradient: colours that pass into each other, across a rectangle or out from its middle.
#pragma once

#include "VELTRuntime/drawing/gradient_stops.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/structures.h"

class NSColor;

/// A gradient; it does not change. What changes one gives a new one.
class VELT_EXPORT PXGradient final : public NSObject {
    VELT_OBJECT(PXGradient, NSObject)
public:
    /// Without stops, which is opaque white everywhere; mixes red, green and blue.
    PXGradient() = default;
    explicit PXGradient(velt::GradientStops stops) : stops_(std::move(stops)) {}
    /// From one colour at position 0 to another one at 1. A colour that is nil lets everything through.
    static velt::Ref<PXGradient> between(const NSColor* beginning, const NSColor* ending);

    // Gradients that are ready made. Null for a name that is none of theirs ("aquaNormalGradient").
    static velt::Ref<PXGradient> preset(std::string_view name);

    /// Itself: a gradient cannot be changed.
    id copy() const override;
    /// The same stops, mixed in the same way.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;

    /// The same gradient with that opacity in every stop, from 0 to 1.
    id withAlphaComponent(double alpha) const;
    /// The same stops mixed in another way: 0 linear, 1 chromatic, 2 inverse chromatic.
    id withBlendingMode(long mode) const;
    /// With one more stop. Raises "NSInvalidArgumentException" for a position that is not a finite number.
    id addColorStop(const NSColor* color, double position) const;
    /// Without a stop, counted from 0. Raises "NSRangeException" when there is none.
    id removeColorStopAtIndex(long index) const;
    id removeColorStopAtPosition(double position) const;
    /// The colour of a stop. Raises "NSRangeException" when there is none.
    id colorStopAtIndex(long index) const;
    int blendingMode() const { return static_cast<int>(stops_.mode()); }
    /// The colour at a position; beyond the stops that of the nearest.
    id colorAtPosition(double position) const;
    const velt::GradientStops& stops() const { return stops_; }

    // Drawing, as far as something is being drawn.
    /// Fills a rectangle along an axis at an angle in degrees, against the clock from the x axis.
    void fillRect(NSRect rect, float angle) const;
    /// Fills a rectangle from its middle to half of its longer side.
    void radialFillRect(NSRect rect) const;
    /// Shows the gradient as one of several to choose from: framed, from left to right, over squares where it lets
    /// something through.
    void drawSwatchInRect(NSRect rect) const;

    // As keyed archives hold it: each stop as five Doubles of eight bytes, then number and mode. Raises
    // "NSInvalidArgumentException" for a coder without keys.
    void encodeWithCoder(const id& coder) const;
    id initWithCoder(const id& coder);
    static void describe(velt::ClassBuilder<PXGradient>& c);

private:
    id colorStopRemoved(std::size_t index) const;
    velt::GradientStops stops_;
};
