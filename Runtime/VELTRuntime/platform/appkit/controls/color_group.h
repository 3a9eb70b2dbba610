// The group of the palette's colours that a widget is drawn in.
#pragma once

#include <QPalette>
#include <QWidget>

namespace velt {

/// For a part of the widget that may be disabled by itself.
inline QPalette::ColorGroup colorGroupOf(const QWidget& widget, bool isEnabled) {
    if (!isEnabled) return QPalette::Disabled;
    return widget.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}
inline QPalette::ColorGroup colorGroupOf(const QWidget& widget) { return colorGroupOf(widget, widget.isEnabled()); }

}  // namespace velt
