// The borders of buttons.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button_look.h"

#include <QColor>
#include <QMargins>

namespace velt {

/// What the border leaves on each side of title and picture.
QMargins bezelMargins(BezelStyle bezel);
/// The room for title and picture.
QRect bezelRoom(const QRect& rect, BezelStyle bezel);

/// Draws the border and, for a disclosure triangle and the like, the sign in it. Returns the colour for the contents.
QColor drawBezel(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QStyle& style,
                 const QWidget* widget);

}  // namespace velt
