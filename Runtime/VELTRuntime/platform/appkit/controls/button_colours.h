// The colours in which buttons and their like are drawn, from the desktop's palette.
#pragma once

#include <QColor>

class QStyleOption;

namespace velt {

struct ButtonColours {
    QColor face, light, low, edge, ink, accent;
};

/// How a button is shown at the moment.
struct ButtonFace {
    bool isPressed = false, isOn = false, isDefault = false;
};

/// Some of one colour in another one, from 0 to 1.
QColor mix(const QColor& a, const QColor& b, double part);
bool isDark(const QColor& color);
ButtonColours buttonColours(const QStyleOption& option, const ButtonFace& shown);

}  // namespace velt
