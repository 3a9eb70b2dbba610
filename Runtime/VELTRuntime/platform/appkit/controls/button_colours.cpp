#include "VELTRuntime/platform/appkit/controls/button_colours.h"

#include <QStyle>
#include <QStyleOption>

namespace velt {

QColor mix(const QColor& a, const QColor& b, double part) {
    const auto between = [part](double x, double y) { return static_cast<float>(x + (y - x) * part); };
    return QColor::fromRgbF(between(a.redF(), b.redF()), between(a.greenF(), b.greenF()),
                            between(a.blueF(), b.blueF()));
}

namespace {

/// Towards white, or for a negative part towards black.
QColor shade(const QColor& color, double part) {
    return part > 0 ? mix(color, Qt::white, part) : mix(color, Qt::black, -part);
}

}  // namespace

bool isDark(const QColor& color) { return color.lightnessF() < 0.5F; }

ButtonColours buttonColours(const QStyleOption& option, const ButtonFace& shown) {
    const QPalette& palette = option.palette;
    ButtonColours c;
    c.face = palette.color(QPalette::Button);
    c.accent = palette.color(QPalette::Highlight);
    c.ink = palette.color(QPalette::ButtonText);
    const bool dark = isDark(c.face);
    c.edge = mix(c.face, c.ink, option.state & QStyle::State_Enabled ? 0.5 : 0.25);
    if (shown.isDefault) c.edge = c.accent;
    if (shown.isOn) c.face = mix(c.face, c.accent, 0.6);
    if (option.state & QStyle::State_MouseOver && !shown.isPressed) c.face = shade(c.face, dark ? 0.06 : 0.25);
    if (shown.isPressed) c.face = shade(c.face, dark ? -0.3 : -0.2);
    c.light = shade(c.face, dark ? 0.16 : 0.7);
    c.low = shade(c.face, dark ? -0.45 : -0.22);
    if (shown.isOn) c.ink = isDark(c.face) ? Qt::white : Qt::black;
    return c;
}

}  // namespace velt
