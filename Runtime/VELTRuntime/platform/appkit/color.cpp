#include "VELTRuntime/platform/appkit/color.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <cstdio>

velt::Ref<NSColor> NSColor::deviceRgb(double red, double green, double blue, double alpha) {
    const auto part = [](double value) { return std::clamp(value, 0.0, 1.0); };
    return velt::make<NSColor>(part(red), part(green), part(blue), part(alpha));
}

id NSColor::description() const {
    char text[128];
    std::snprintf(text, sizeof text, "<NSColor %.4g %.4g %.4g %.4g>", redComponent(), greenComponent(), blueComponent(),
                  alphaComponent());
    return velt::string(text);
}

bool NSColor::isEqual(const id& other) const {
    if (!velt::is<NSColor>(other)) return false;
    const NSColor& color = *velt::as<NSColor>(other);
    return color.red_ == red_ && color.green_ == green_ && color.blue_ == blue_ && color.alpha_ == alpha_;
}
std::size_t NSColor::hash() const {
    const std::hash<double> part;
    return ((part(red_) * 31 + part(green_)) * 31 + part(blue_)) * 31 + part(alpha_);
}
id NSColor::copy() const { return id(const_cast<NSColor*>(this)); }

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
id NSColor::colorWithAlphaComponent(double alpha) const { return deviceRgb(red_, green_, blue_, alpha); }

namespace {

/// Components from 0 to 255.
template <int red, int green, int blue, int alpha = 255> id fixed() {
    return velt::make<NSColor>(red / 255.0, green / 255.0, blue / 255.0, alpha / 255.0);
}

template <QPalette::ColorRole role> id desktop() {
    velt::requireApplicationObject("a colour of the desktop");
    const QColor color = QApplication::palette().color(role);
    return NSColor::deviceRgb(color.redF(), color.greenF(), color.blueF(), color.alphaF());
}

}  // namespace

void NSColor::describe(velt::ClassBuilder<NSColor>& c) {
    c.property("redComponent", &NSColor::redComponent)
        .property("greenComponent", &NSColor::greenComponent)
        .property("blueComponent", &NSColor::blueComponent)
        .property("alphaComponent", &NSColor::alphaComponent)
        .method("set", &NSColor::set)
        .method("setFill", &NSColor::setFill)
        .method("setStroke", &NSColor::setStroke)
        .method("colorWithAlphaComponent:", &NSColor::colorWithAlphaComponent);
    for (const char* space : {"colorWithCalibratedRed:green:blue:alpha:", "colorWithDeviceRed:green:blue:alpha:"}) {
        c.classMethod(space, [](const id&, const id* a) {
            return id(deviceRgb(VELT_CDOUBLE(a[0]), VELT_CDOUBLE(a[1]), VELT_CDOUBLE(a[2]), VELT_CDOUBLE(a[3])));
        });
    }
    for (const char* space : {"colorWithCalibratedWhite:alpha:", "colorWithDeviceWhite:alpha:"}) {
        c.classMethod(space, [](const id&, const id* a) {
            const double white = VELT_CDOUBLE(a[0]);
            return id(deviceRgb(white, white, white, VELT_CDOUBLE(a[1])));
        });
    }
#define VELT_NAMED_COLOR(selector, ...) c.classMethod(selector, [](const id&, const id*) { return __VA_ARGS__(); });
    VELT_NAMED_COLOR("blackColor", fixed<0, 0, 0>)
    VELT_NAMED_COLOR("whiteColor", fixed<255, 255, 255>)
    VELT_NAMED_COLOR("grayColor", fixed<128, 128, 128>)
    VELT_NAMED_COLOR("lightGrayColor", fixed<170, 170, 170>)
    VELT_NAMED_COLOR("darkGrayColor", fixed<85, 85, 85>)
    VELT_NAMED_COLOR("redColor", fixed<255, 0, 0>)
    VELT_NAMED_COLOR("greenColor", fixed<0, 255, 0>)
    VELT_NAMED_COLOR("blueColor", fixed<0, 0, 255>)
    VELT_NAMED_COLOR("cyanColor", fixed<0, 255, 255>)
    VELT_NAMED_COLOR("magentaColor", fixed<255, 0, 255>)
    VELT_NAMED_COLOR("yellowColor", fixed<255, 255, 0>)
    VELT_NAMED_COLOR("orangeColor", fixed<255, 128, 0>)
    VELT_NAMED_COLOR("purpleColor", fixed<128, 0, 128>)
    VELT_NAMED_COLOR("brownColor", fixed<153, 102, 51>)
    VELT_NAMED_COLOR("clearColor", fixed<0, 0, 0, 0>)
#undef VELT_NAMED_COLOR
    // The desktop's colours, as they are when they are asked for.
#define VELT_DESKTOP_COLOR(selector, role) c.classMethod(selector, [](const id&, const id*) { return desktop<role>(); });
    VELT_DESKTOP_COLOR("windowBackgroundColor", QPalette::Window)
    VELT_DESKTOP_COLOR("controlColor", QPalette::Button)
    VELT_DESKTOP_COLOR("controlTextColor", QPalette::ButtonText)
    VELT_DESKTOP_COLOR("controlBackgroundColor", QPalette::Base)
    VELT_DESKTOP_COLOR("textColor", QPalette::Text)
    VELT_DESKTOP_COLOR("textBackgroundColor", QPalette::Base)
    VELT_DESKTOP_COLOR("selectedTextColor", QPalette::HighlightedText)
    VELT_DESKTOP_COLOR("selectedTextBackgroundColor", QPalette::Highlight)
    VELT_DESKTOP_COLOR("selectedControlColor", QPalette::Highlight)
    VELT_DESKTOP_COLOR("gridColor", QPalette::Mid)
#undef VELT_DESKTOP_COLOR
}
