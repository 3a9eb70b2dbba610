// How buttons look: the picture of a button cell in one of its states, on any painter.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button_cell.h"

#include <QFont>
#include <QImage>
#include <QString>

class QPainter;
class QStyle;
class QStyleOption;
class QWidget;

namespace velt {

/// What of a button can be seen at one moment.
struct ButtonLook {
    ButtonType type = ButtonType::MomentaryPushIn;
    BezelStyle bezel = BezelStyle::RegularSquare;
    ImagePosition position = ImagePosition::Left;
    bool isBordered = true, isTransparent = false, isDefault = false;
    /// The border is drawn as pressed, as on.
    bool isPressed = false, isOn = false;
    long state = 0;
    long alignment = 2;
    QString title;
    id attributedTitle;  // nil when the title is plain
    QImage picture;
    QFont font;

    /// A box or ring stands in the place of the picture.
    bool hasIndicator() const { return (type == ButtonType::Switch || type == ButtonType::Radio) && picture.isNull(); }
    /// The bezel is a sign of its own that leaves no room for a title.
    bool isSign() const {
        return isBordered &&
               (bezel == BezelStyle::Disclosure || bezel == BezelStyle::Help || bezel == BezelStyle::RoundedDisclosure);
    }
};

ButtonLook lookOf(const NSButtonCell& cell, bool pressed);

/// Draws a button into the option's rectangle, by its palette, state and direction. The widget may be null.
void drawButton(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QStyle& style,
                const QWidget* widget);

/// Draws picture and title alone, within the room that a border leaves. Returns where the title is, or else the
/// picture.
QRect drawButtonContents(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QRect& room,
                         const QColor& ink, const QStyle& style, const QWidget* widget);
QSize buttonContentsSize(const ButtonLook& look, const QStyle& style);

/// The size in which all of it can be seen.
QSize buttonSize(const ButtonLook& look, const QStyle& style);

}  // namespace velt
