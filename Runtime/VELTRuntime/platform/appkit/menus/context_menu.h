// Context menus: the menu of the view under the pointer, or of the next responder that has one.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

#include <QPoint>

class QContextMenuEvent;

namespace velt {

/// Shows the context menu that a view or a responder behind it has; false when there is none.
bool showContextMenu(NSView& view, const QContextMenuEvent& event) noexcept;

/// A point of a view (null: of the screen) in the toolkit's coordinates of the desktop.
QPoint globalPoint(NSPoint point, NSView* view);

}  // namespace velt
