// The group of the palette's colours that a widget is drawn in.
#pragma once

#include <QPalette>
#include <QWidget>

namespace velt {

inline QPalette::ColorGroup colorGroupOf(const QWidget& widget) {
    if (!widget.isEnabled()) return QPalette::Disabled;
    return widget.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

}  // namespace velt
