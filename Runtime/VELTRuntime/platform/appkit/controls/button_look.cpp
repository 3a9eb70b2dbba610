#include "VELTRuntime/platform/appkit/controls/button_look.h"

#include "VELTRuntime/platform/appkit/controls/button_bezel.h"
#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/appkit/text/rich_text_drawing.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

constexpr int kGap = 4;  // between picture and title

QImage pictureOf(const id& image) { return is<NSImage>(image) ? as<NSImage>(image)->picture() : QImage(); }

bool isDefaultButton(const NSButtonCell& cell) {
    if (cell.isReturnButton()) return true;
    const NSControl* control = cell.control();
    const NSWindow* window = control ? control->windowPointer() : nullptr;
    return window && window->defaultButtonCell().object() == &cell;
}

/// The text with its lines: the size of the plain one, or of the one with attributes.
QSize titleSize(const ButtonLook& look) {
    if (look.title.isEmpty()) return {};
    if (!look.attributedTitle.isNil()) {
        const QSizeF size = richTextSize(*attributedStringOf(look.attributedTitle), {.font = look.font, .color = {}});
        return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
    }
    return QFontMetrics(look.font).size(0, look.title);
}

QSize pictureSize(const ButtonLook& look, const QStyle& style) {
    if (look.hasIndicator()) {
        const bool box = look.type == ButtonType::Switch;
        return {style.pixelMetric(box ? QStyle::PM_IndicatorWidth : QStyle::PM_ExclusiveIndicatorWidth),
                style.pixelMetric(box ? QStyle::PM_IndicatorHeight : QStyle::PM_ExclusiveIndicatorHeight)};
    }
    return look.picture.deviceIndependentSize().toSize();
}

/// What of the two is shown by the image position.
struct Parts {
    QSize picture, title;
};

Parts partsOf(const ButtonLook& look, const QStyle& style) {
    Parts parts;
    if (look.isSign()) return parts;
    if (look.position != ImagePosition::None) parts.picture = pictureSize(look, style);
    if (look.position != ImagePosition::Only || parts.picture.isEmpty()) parts.title = titleSize(look);
    return parts;
}

bool isBeside(ImagePosition position) { return position == ImagePosition::Left || position == ImagePosition::Right; }

QSize contentSize(const ButtonLook& look, const Parts& parts) {
    const bool both = !parts.picture.isEmpty() && !parts.title.isEmpty();
    const int gap = both ? kGap : 0;
    if (both && isBeside(look.position)) {
        return {parts.picture.width() + gap + parts.title.width(),
                std::max(parts.picture.height(), parts.title.height())};
    }
    const bool stacked = both && (look.position == ImagePosition::Above || look.position == ImagePosition::Below);
    const QSize larger = parts.picture.expandedTo(parts.title);
    return stacked ? QSize(larger.width(), parts.picture.height() + gap + parts.title.height())
                   : larger.expandedTo({0, 0});
}

/// A title is too short to be justified: it stands at the left then.
Qt::Alignment horizontal(long alignment) {
    constexpr long kLeft = 0, kJustified = 3;
    return qtAlignment(alignment == kJustified ? kLeft : alignment);
}

/// Where picture and title go within the room that the border leaves.
struct Placed {
    QRect picture, title;
};

Placed place(const ButtonLook& look, const QStyle& style, const QRect& room, Qt::LayoutDirection direction) {
    Parts parts = partsOf(look, style);
    // A picture that is too large is shown smaller.
    if (parts.picture.width() > room.width() || parts.picture.height() > room.height()) {
        parts.picture.scale(parts.picture.boundedTo(room.size()), Qt::KeepAspectRatio);
    }
    const bool both = !parts.picture.isEmpty() && !parts.title.isEmpty();
    const auto aligned = [&](Qt::Alignment alignment, const QSize& size, const QRect& within) {
        return QStyle::alignedRect(direction, alignment, size.boundedTo(within.size()).expandedTo({0, 0}), within);
    };
    const Qt::Alignment side = horizontal(look.alignment) | Qt::AlignVCenter;
    if (!both || look.position == ImagePosition::Overlaps) {
        return {aligned(look.hasIndicator() ? side : Qt::AlignCenter, parts.picture, room),
                aligned(side, parts.title, room)};
    }
    const QRect block = aligned(side, contentSize(look, parts), room);
    const auto at = [&](Qt::Alignment alignment, const QSize& size) { return aligned(alignment, size, block); };
    QSize titleRoom = parts.title;
    if (isBeside(look.position)) {
        titleRoom.setWidth(std::min(titleRoom.width(), block.width() - parts.picture.width() - kGap));
        const bool first = look.position == ImagePosition::Left;
        return {at((first ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, parts.picture),
                at((first ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, titleRoom)};
    }
    const bool above = look.position == ImagePosition::Above;
    return {at((above ? Qt::AlignTop : Qt::AlignBottom) | Qt::AlignHCenter, parts.picture),
            at((above ? Qt::AlignBottom : Qt::AlignTop) | Qt::AlignHCenter, parts.title)};
}

void drawIndicator(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QRect& rect,
                   const QStyle& style, const QWidget* widget) {
    QStyleOptionButton indicator;
    static_cast<QStyleOption&>(indicator) = option;
    indicator.type = QStyleOption::SO_Button;
    indicator.rect = rect;
    indicator.state &= ~(QStyle::State_On | QStyle::State_Off | QStyle::State_NoChange | QStyle::State_Sunken);
    indicator.state |= look.state == NSCell::kOn      ? QStyle::State_On
                       : look.state == NSCell::kMixed ? QStyle::State_NoChange
                                                      : QStyle::State_Off;
    if (look.isPressed) indicator.state |= QStyle::State_Sunken;
    const bool radio = look.type == ButtonType::Radio;
    style.drawPrimitive(radio ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox, &indicator, &painter,
                        widget);
    if (!radio || look.state != NSCell::kMixed) return;
    // Desktops know no ring that is partly on: a dash, as in a box.
    painter.save();
    painter.setPen(QPen(option.palette.color(QPalette::Text), 2));
    const int quarter = rect.width() / 4, y = rect.center().y() + 1;
    painter.drawLine(rect.left() + quarter + 1, y, rect.right() - quarter, y);
    painter.restore();
}

void drawPicture(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QRect& rect,
                 const QStyle& style) {
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (option.state & QStyle::State_Enabled) {
        constexpr double kDimmed = 0.6;  // a button without a border shows its press by its picture
        if (look.isPressed && !look.isBordered) painter.setOpacity(kDimmed);
        painter.drawImage(rect, look.picture);
    } else {
        const QPixmap faded = style.generatedIconPixmap(QIcon::Disabled, QPixmap::fromImage(look.picture), &option);
        painter.drawPixmap(rect, faded);
    }
    painter.restore();
}

void drawTitle(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QRect& rect,
               const QColor& ink) {
    painter.setFont(look.font);
    painter.setPen(ink);
    if (!look.attributedTitle.isNil()) {
        const RichTextStyle style{.font = look.font,
                                  .color = ink,
                                  .direction = option.direction,
                                  .alignment = horizontal(look.alignment) | Qt::AlignVCenter,
                                  .elided = Qt::ElideRight,
                                  .faded = !(option.state & QStyle::State_Enabled)};
        drawRichText(painter, rect, *attributedStringOf(look.attributedTitle), style);
        return;
    }
    const bool oneLine = !look.title.contains(u'\n');
    const QString shown = oneLine ? fittingLine(look.title, look.font, Qt::ElideRight, rect.width()) : look.title;
    const Qt::Alignment side = QStyle::visualAlignment(option.direction, horizontal(look.alignment));
    painter.drawText(rect, static_cast<int>((side & ~Qt::AlignAbsolute) | Qt::AlignVCenter), shown);
}

}  // namespace

ButtonLook lookOf(const NSButtonCell& cell, bool pressed) {
    ButtonLook look;
    look.type = cell.buttonType();
    look.bezel = static_cast<BezelStyle>(cell.bezelStyle());
    look.position = static_cast<ImagePosition>(cell.imagePosition());
    look.isBordered = cell.isBordered();
    look.isTransparent = cell.isTransparent();
    look.isDefault = isDefaultButton(cell);
    look.state = cell.state();
    look.alignment = cell.alignment();
    const bool isPressed = pressed || cell.isHighlighted(), isOn = look.state != NSCell::kOff;
    constexpr long kBezelChanges = kPushesIn | kChangesGray | kChangesBackground;
    const bool indicates = cell.isSwitch() || cell.isRadio();
    look.isPressed = isPressed && (indicates || cell.highlightsBy() & kBezelChanges);
    look.isOn = isOn && cell.showsStateBy() & kBezelChanges;
    // A press shows the contents that the next state would have.
    const bool pressSwaps = isPressed && cell.highlightsBy() & kChangesContents && !indicates;
    const bool alternate = pressSwaps != (isOn && cell.showsStateBy() & kChangesContents);
    const bool otherTitle = alternate && !qtText(cell.alternateTitle()).isEmpty();
    look.title = qtText(otherTitle ? cell.alternateTitle() : cell.title());
    if (otherTitle ? cell.hasAttributedAlternateTitle() : cell.hasAttributedTitle()) {
        look.attributedTitle = otherTitle ? cell.attributedAlternateTitle() : cell.attributedTitle();
    }
    look.picture = pictureOf(alternate && !cell.alternateImage().isNil() ? cell.alternateImage() : cell.image());
    look.font = as<NSFont>(cell.font())->font();
    if (look.bezel == BezelStyle::Recessed && look.isBordered && !cell.hasOwnFont()) look.font.setBold(true);
    if (!cell.hasOwnFont() && cell.controlSize() > 0) {
        constexpr double kSmall = 0.85, kMini = 0.7;
        look.font.setPointSizeF(QFontInfo(look.font).pointSizeF() * (cell.controlSize() == 1 ? kSmall : kMini));
    }
    return look;
}

void drawButton(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QStyle& style,
                const QWidget* widget) {
    if (look.isTransparent || option.rect.isEmpty()) return;
    QColor ink = option.palette.color(look.isBordered ? QPalette::ButtonText : QPalette::WindowText);
    QRect room = option.rect;
    if (look.isBordered) {
        ink = drawBezel(painter, option, look, style, widget);
        room = bezelRoom(room, look.bezel);
    } else if ((look.isPressed || look.isOn) && !look.hasIndicator()) {
        QColor tint = ink;
        tint.setAlphaF(look.isPressed ? 0.2F : 0.12F);
        painter.fillRect(option.rect, tint);
    }
    if (look.isSign()) return;
    const QRect title = drawButtonContents(painter, option, look, room, ink, style, widget);
    const bool focused = option.state & QStyle::State_HasFocus && option.state & QStyle::State_KeyboardFocusChange;
    if (!focused || look.isBordered) return;
    QStyleOptionFocusRect focus;
    static_cast<QStyleOption&>(focus) = option;
    focus.type = QStyleOption::SO_FocusRect;
    focus.rect = title.adjusted(-2, -1, 2, 1).intersected(option.rect);
    style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, widget);
}

QRect drawButtonContents(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QRect& room,
                         const QColor& ink, const QStyle& style, const QWidget* widget) {
    const Placed placed = place(look, style, room, option.direction);
    if (!placed.picture.isEmpty()) {
        if (look.hasIndicator()) {
            drawIndicator(painter, option, look, placed.picture, style, widget);
        } else {
            drawPicture(painter, option, look, placed.picture, style);
        }
    }
    if (!placed.title.isEmpty()) drawTitle(painter, option, look, placed.title, ink);
    return placed.title.isEmpty() ? placed.picture : placed.title;
}

QSize buttonContentsSize(const ButtonLook& look, const QStyle& style) {
    return contentSize(look, partsOf(look, style));
}

QSize buttonSize(const ButtonLook& look, const QStyle& style) {
    constexpr QSize kTriangle(15, 15), kHelp(25, 25), kChevron(26, 24);
    if (look.isSign()) {
        return look.bezel == BezelStyle::Disclosure ? kTriangle : look.bezel == BezelStyle::Help ? kHelp : kChevron;
    }
    const QSize content = buttonContentsSize(look, style);
    if (!look.isBordered) return content + QSize(4, 4);
    const QMargins margins = bezelMargins(look.bezel);
    const QSize whole = content.grownBy(margins);
    if (look.bezel == BezelStyle::Circular) {
        const int side = std::max(whole.width(), whole.height());
        return {side, side};
    }
    if (look.bezel != BezelStyle::Rounded) return whole;
    QStyleOptionButton option;
    option.text = look.title;
    option.fontMetrics = QFontMetrics(look.font);
    return style.sizeFromContents(QStyle::CT_PushButton, &option, content).expandedTo(whole);
}

}  // namespace velt
