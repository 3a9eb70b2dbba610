// How pop-up buttons look: the picture of a cell, on any painter.
#pragma once

#include <QSize>

class NSPopUpButtonCell;
class QPainter;
class QStyle;
class QStyleOption;
class QWidget;

namespace velt {

/// Draws the cell into the option's rectangle, by its palette, state and direction. The widget may be null.
void drawPopUp(QPainter& painter, const QStyleOption& option, const NSPopUpButtonCell& cell, const QStyle& style,
               const QWidget* widget);

/// The size in which every item's title can be seen.
QSize popUpSize(const NSPopUpButtonCell& cell, const QStyle& style);

}  // namespace velt
