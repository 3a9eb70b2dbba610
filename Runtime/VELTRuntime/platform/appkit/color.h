// Colours: what views and texts are shown in.
#pragma once

#include "VELTRuntime/platform/object/class.h"

/// A colour with its opacity; it does not change.
class VELT_EXPORT NSColor final : public NSObject {
    VELT_OBJECT(NSColor, NSObject)
public:
    NSColor() = default;
    NSColor(double red, double green, double blue, double alpha)
        : red_(red), green_(green), blue_(blue), alpha_(alpha) {}
    /// Components from 0 to 1; beyond them the nearest.
    static velt::Ref<NSColor> deviceRgb(double red, double green, double blue, double alpha);

    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    double redComponent() const { return red_; }
    double greenComponent() const { return green_; }
    double blueComponent() const { return blue_; }
    double alphaComponent() const { return alpha_; }
    /// What is drawn from now on is filled and stroked with it.
    void set() const;
    void setFill() const;
    void setStroke() const;
    /// The same colour with another opacity.
    id colorWithAlphaComponent(double alpha) const;
    static void describe(velt::ClassBuilder<NSColor>& c);

private:
    double red_ = 0, green_ = 0, blue_ = 0, alpha_ = 1;
};
