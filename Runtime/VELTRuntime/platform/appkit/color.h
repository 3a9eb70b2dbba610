// Colours.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <string>

namespace velt {

struct ColorComponents {
    double red = 0, green = 0, blue = 0, alpha = 1;
    bool operator==(const ColorComponents&) const = default;
};

struct SystemColor;

}  // namespace velt

/// A colour with its opacity; it does not change. A colour of the desktop ("controlColor") has at every moment the
/// components that the desktop's palette gives it.
class VELT_EXPORT NSColor final : public NSObject {
    VELT_OBJECT(NSColor, NSObject)
public:
    NSColor() = default;
    NSColor(double red, double green, double blue, double alpha) : fixed_{red, green, blue, alpha} {}
    explicit NSColor(const velt::SystemColor& system) : system_(&system) {}
    /// Components from 0 to 1; beyond them the nearest. Null when one of them is no number.
    static velt::Ref<NSColor> deviceRgb(double red, double green, double blue, double alpha);
    /// Hue, saturation and brightness from 0 to 1, as above.
    static velt::Ref<NSColor> deviceHsb(double hue, double saturation, double brightness, double alpha);
    /// The colour that the desktop uses for something ("controlTextColor"); null when there is none of that name.
    static velt::Ref<NSColor> ofSystem(const std::string& name);

    id description() const override;
    /// The same components, or the same colour of the desktop.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    velt::ColorComponents components() const;
    double redComponent() const { return components().red; }
    double greenComponent() const { return components().green; }
    double blueComponent() const { return components().blue; }
    double alphaComponent() const { return components().alpha; }
    double hueComponent() const;
    double saturationComponent() const;
    double brightnessComponent() const;
    /// How light it is to the eye, from 0 to 1.
    double whiteComponent() const;
    /// The name of a colour of the desktop, nil for others.
    id colorNameComponent() const;
    /// The same colour with another opacity.
    id colorWithAlphaComponent(double alpha) const;
    /// Between this colour (fraction 0) and another one (1); nil when the other is no colour.
    id blendedColor(double fraction, const id& other) const;
    /// What is drawn from now on is filled and stroked with it.
    void set() const;
    void setFill() const;
    void setStroke() const;

    // As archives hold it: its components as text, or the name of a colour of the desktop with its present components.
    void encodeWithCoder(const id& coder) const;
    id initWithCoder(const id& coder);
    static void describe(velt::ClassBuilder<NSColor>& c);

private:
    velt::ColorComponents fixed_;
    const velt::SystemColor* system_ = nullptr;
};
