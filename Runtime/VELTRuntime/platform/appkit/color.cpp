#include "VELTRuntime/platform/appkit/color.h"

#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/system_colors.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

using velt::ColorComponents;
using velt::Ref;

namespace {

Ref<NSColor> colorOf(const ColorComponents& parts) {
    return velt::make<NSColor>(parts.red, parts.green, parts.blue, parts.alpha);
}

double part(double value) { return std::clamp(value, 0.0, 1.0); }

}  // namespace

Ref<NSColor> NSColor::deviceRgb(double red, double green, double blue, double alpha) {
    if (std::isnan(red) || std::isnan(green) || std::isnan(blue) || std::isnan(alpha)) return nullptr;
    return velt::make<NSColor>(part(red), part(green), part(blue), part(alpha));
}

Ref<NSColor> NSColor::deviceHsb(double hue, double saturation, double brightness, double alpha) {
    if (std::isnan(hue) || std::isnan(saturation) || std::isnan(brightness) || std::isnan(alpha)) return nullptr;
    // Six sextants of the circle; within each, one component goes up or down between the other two.
    const double angle = part(hue) * 6, most = part(brightness), chroma = most * part(saturation);
    const double between = chroma * (1 - std::fabs(std::fmod(angle, 2.0) - 1)), least = most - chroma;
    ColorComponents parts{least, least, least, part(alpha)};
    const auto add = [&](double ColorComponents::*full, double ColorComponents::*some) {
        parts.*full += chroma;
        parts.*some += between;
    };
    switch (static_cast<int>(angle) % 6) {
    case 0: add(&ColorComponents::red, &ColorComponents::green); break;
    case 1: add(&ColorComponents::green, &ColorComponents::red); break;
    case 2: add(&ColorComponents::green, &ColorComponents::blue); break;
    case 3: add(&ColorComponents::blue, &ColorComponents::green); break;
    case 4: add(&ColorComponents::blue, &ColorComponents::red); break;
    default: add(&ColorComponents::red, &ColorComponents::blue);
    }
    return colorOf(parts);
}

Ref<NSColor> NSColor::ofSystem(const std::string& name) {
    const velt::SystemColor* system = velt::systemColor(name);
    return system ? velt::make<NSColor>(*system) : Ref<NSColor>();
}

id NSColor::description() const {
    char text[128];
    const ColorComponents parts = components();
    std::snprintf(text, sizeof text, "<NSColor %.4g %.4g %.4g %.4g>", parts.red, parts.green, parts.blue, parts.alpha);
    return velt::string(text);
}

bool NSColor::isEqual(const id& other) const {
    if (!velt::is<NSColor>(other)) return false;
    const NSColor& color = *velt::as<NSColor>(other);
    if (system_ || color.system_) return system_ == color.system_;
    return color.fixed_ == fixed_;
}
std::size_t NSColor::hash() const {
    if (system_) return std::hash<const void*>()(system_);
    const std::hash<double> of;
    return ((of(fixed_.red) * 31 + of(fixed_.green)) * 31 + of(fixed_.blue)) * 31 + of(fixed_.alpha);
}
id NSColor::copy() const { return id(const_cast<NSColor*>(this)); }

ColorComponents NSColor::components() const { return system_ ? velt::presentComponents(*system_) : fixed_; }

double NSColor::brightnessComponent() const {
    const ColorComponents parts = components();
    return std::max({parts.red, parts.green, parts.blue});
}
double NSColor::saturationComponent() const {
    const ColorComponents parts = components();
    const double most = brightnessComponent(), least = std::min({parts.red, parts.green, parts.blue});
    return most > 0 ? (most - least) / most : 0;
}
double NSColor::hueComponent() const {
    const ColorComponents parts = components();
    const double most = brightnessComponent(), chroma = most - std::min({parts.red, parts.green, parts.blue});
    if (chroma <= 0) return 0;
    double angle = 0;
    if (most == parts.red) {
        angle = (parts.green - parts.blue) / chroma;
    } else if (most == parts.green) {
        angle = (parts.blue - parts.red) / chroma + 2;
    } else {
        angle = (parts.red - parts.green) / chroma + 4;
    }
    return angle < 0 ? angle / 6 + 1 : angle / 6;
}
double NSColor::whiteComponent() const {
    const ColorComponents parts = components();
    return 0.299 * parts.red + 0.587 * parts.green + 0.114 * parts.blue;
}

id NSColor::colorNameComponent() const { return system_ ? velt::string(system_->name) : id(); }

id NSColor::colorWithAlphaComponent(double alpha) const {
    const ColorComponents parts = components();
    return deviceRgb(parts.red, parts.green, parts.blue, alpha);
}

id NSColor::blendedColor(double fraction, const id& other) const {
    if (!velt::is<NSColor>(other) || std::isnan(fraction)) return nil;
    const ColorComponents from = components(), to = velt::as<NSColor>(other)->components();
    const double share = part(fraction);
    const auto between = [share](double a, double b) { return a + (b - a) * share; };
    return deviceRgb(between(from.red, to.red), between(from.green, to.green), between(from.blue, to.blue),
                     between(from.alpha, to.alpha));
}

void NSColor::setFill() const {
    if (velt::GraphicsContext* context = velt::GraphicsContext::current()) context->fillColor = velt::qtColor(*this);
}
void NSColor::setStroke() const {
    if (velt::GraphicsContext* context = velt::GraphicsContext::current()) context->strokeColor = velt::qtColor(*this);
}
void NSColor::set() const {
    setFill();
    setStroke();
}

namespace {

/// Components from 0 to 255.
template <int red, int green, int blue, int alpha = 255> id fixed(const id&, const id*) {
    return velt::make<NSColor>(red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0);
}

id ofRgb(const id&, const id* a) {
    return NSColor::deviceRgb(VELT_CDOUBLE(a[0]), VELT_CDOUBLE(a[1]), VELT_CDOUBLE(a[2]), VELT_CDOUBLE(a[3]));
}
id ofHsb(const id&, const id* a) {
    return NSColor::deviceHsb(VELT_CDOUBLE(a[0]), VELT_CDOUBLE(a[1]), VELT_CDOUBLE(a[2]), VELT_CDOUBLE(a[3]));
}
id ofWhite(const id&, const id* a) {
    const double white = VELT_CDOUBLE(a[0]);
    return NSColor::deviceRgb(white, white, white, VELT_CDOUBLE(a[1]));
}

/// The class answers every row's name with the colour. One function a row: a class method knows its receiver alone.
template <std::size_t... row> void addSystemColors(velt::ClassBuilder<NSColor>& c, std::index_sequence<row...>) {
    (c.classMethod(velt::systemColors()[row].name,
                   [](const id&, const id*) { return id(velt::make<NSColor>(velt::systemColors()[row])); }),
     ...);
}

}  // namespace

void NSColor::describe(velt::ClassBuilder<NSColor>& c) {
    c.property("redComponent", &NSColor::redComponent)
        .property("greenComponent", &NSColor::greenComponent)
        .property("blueComponent", &NSColor::blueComponent)
        .property("alphaComponent", &NSColor::alphaComponent)
        .property("hueComponent", &NSColor::hueComponent)
        .property("saturationComponent", &NSColor::saturationComponent)
        .property("brightnessComponent", &NSColor::brightnessComponent)
        .property("whiteComponent", &NSColor::whiteComponent)
        .property("colorNameComponent", &NSColor::colorNameComponent)
        .method("colorWithAlphaComponent:", &NSColor::colorWithAlphaComponent)
        .method("blendedColorWithFraction:ofColor:", &NSColor::blendedColor)
        .method("set", &NSColor::set)
        .method("setFill", &NSColor::setFill)
        .method("setStroke", &NSColor::setStroke)
        .method("encodeWithCoder:", &NSColor::encodeWithCoder)
        .method("initWithCoder:", &NSColor::initWithCoder)
        .classMethod("colorWithDeviceRed:green:blue:alpha:", ofRgb)
        .classMethod("colorWithCalibratedRed:green:blue:alpha:", ofRgb)
        .classMethod("colorWithDeviceHue:saturation:brightness:alpha:", ofHsb)
        .classMethod("colorWithCalibratedHue:saturation:brightness:alpha:", ofHsb)
        .classMethod("colorWithDeviceWhite:alpha:", ofWhite)
        .classMethod("colorWithCalibratedWhite:alpha:", ofWhite)
        .classMethod("blackColor", fixed<0, 0, 0>)
        .classMethod("whiteColor", fixed<255, 255, 255>)
        .classMethod("grayColor", fixed<128, 128, 128>)
        .classMethod("lightGrayColor", fixed<170, 170, 170>)
        .classMethod("darkGrayColor", fixed<85, 85, 85>)
        .classMethod("redColor", fixed<255, 0, 0>)
        .classMethod("greenColor", fixed<0, 255, 0>)
        .classMethod("blueColor", fixed<0, 0, 255>)
        .classMethod("cyanColor", fixed<0, 255, 255>)
        .classMethod("magentaColor", fixed<255, 0, 255>)
        .classMethod("yellowColor", fixed<255, 255, 0>)
        .classMethod("orangeColor", fixed<255, 128, 0>)
        .classMethod("purpleColor", fixed<128, 0, 128>)
        .classMethod("brownColor", fixed<153, 102, 51>)
        .classMethod("clearColor", fixed<0, 0, 0, 0>);
    addSystemColors(c, std::make_index_sequence<velt::kSystemColorCount>());
}
