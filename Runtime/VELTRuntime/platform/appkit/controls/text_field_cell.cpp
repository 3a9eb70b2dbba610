#include "VELTRuntime/platform/appkit/controls/text_field_cell.h"

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/rich_text_drawing.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace {

id desktopColor(QPalette::ColorRole role) {
    const QColor color = QApplication::palette().color(role);
    return velt::make<NSColor>(color.redF(), color.greenF(), color.blueF(), color.alphaF());
}

}  // namespace

// The value.

id NSTextFieldCell::read(const id& text) const {
    if (!velt::respondsTo(formatter_, VELT_SELECTOR("objectValueForString:"))) return text;
    return velt::send(formatter_, VELT_SELECTOR("objectValueForString:"), text);
}

void NSTextFieldCell::setObjectValue(const id& value) {
    typed_ = nil;
    // What a person typed was read by the formatter already.
    if (velt::isString(value) && !formatter_.isNil() && !isTaking()) {
        // What the formatter finds no value in is shown as it is.
        const id meant = read(value);
        NSActionCell::setObjectValue(meant.isNil() ? value : meant);
        return;
    }
    NSActionCell::setObjectValue(value);
}

id NSTextFieldCell::stringValue() const {
    if (!typed_.isNil()) return typed_;
    if (!formatter_.isNil() && velt::respondsTo(formatter_, VELT_SELECTOR("stringForObjectValue:"))) {
        id shown = velt::send(formatter_, VELT_SELECTOR("stringForObjectValue:"), objectValue());
        if (velt::isString(shown)) return shown;
    }
    return NSActionCell::stringValue();
}

void NSTextFieldCell::setFormatter(const id& formatter) {
    formatter_ = formatter;
    changed();
}

void NSTextFieldCell::takeTyped(const id& text) {
    if (formatter_.isNil()) {
        takeValue(text);
        return;
    }
    const id meant = read(text);
    if (!meant.isNil()) takeValue(meant);
    typed_ = text;
}

bool NSTextFieldCell::finishTyping() {
    if (typed_.isNil()) return true;
    if (read(typed_).isNil()) return false;
    typed_ = nil;
    return true;
}

// Looks.

void NSTextFieldCell::setPlaceholderString(const id& text) {
    placeholder_ = velt::isString(text) ? velt::copy(text) : text;
    changed();
}

id NSTextFieldCell::textColor() const {
    return textColor_.isNil() ? desktopColor(isLabel() ? QPalette::WindowText : QPalette::Text) : textColor_;
}
void NSTextFieldCell::setTextColor(const id& color) {
    textColor_ = velt::boxResult(velt::to<NSColor>(color));
    changed();
}
id NSTextFieldCell::backgroundColor() const {
    return backgroundColor_.isNil() ? desktopColor(isLabel() ? QPalette::Window : QPalette::Base) : backgroundColor_;
}
void NSTextFieldCell::setBackgroundColor(const id& color) {
    backgroundColor_ = velt::boxResult(velt::to<NSColor>(color));
    changed();
}
void NSTextFieldCell::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    changed();
}
void NSTextFieldCell::setBezelStyle(unsigned long style) {
    bezelStyle_ = style;
    changed();
}
void NSTextFieldCell::setLineBreakMode(long mode) {
    lineBreakMode_ = mode;
    changed();
}
void NSTextFieldCell::setUsesSingleLineMode(bool flag) {
    singleLine_ = flag;
    changed();
}
void NSTextFieldCell::setAllowsEditingTextAttributes(bool flag) {
    allowsEditingTextAttributes_ = flag;
    changed();
}

const NSAttributedString* NSTextFieldCell::richText() const {
    return formatter_.isNil() ? velt::attributedStringOf(objectValue()) : nullptr;
}

NSSize NSTextFieldCell::cellSize() const {
    const QFontMetricsF metrics(velt::as<NSFont>(font())->font());
    const QString text = velt::qtText(stringValue()), hint = velt::qtText(placeholder_);
    const QRectF room(0, 0, 1e6, 1e6);
    QSizeF size = metrics.boundingRect(room, Qt::AlignLeft, text).size();
    if (const NSAttributedString* rich = richText()) {
        size = velt::richTextSize(*rich, {.font = velt::as<NSFont>(font())->font(), .color = {}});
    }
    size.rwidth() = std::max(size.width(), text.isEmpty() ? metrics.horizontalAdvance(hint) : 0.0);
    constexpr double kMargin = 2, kCaret = 1;
    QSize content(static_cast<int>(std::ceil(size.width() + 2 * kMargin + kCaret + roomBeside())),
                  static_cast<int>(std::ceil(std::max(size.height(), metrics.height()))));
    if (isBezeled()) {
        QStyleOptionFrame option;
        option.fontMetrics = QFontMetrics(velt::as<NSFont>(font())->font());
        option.lineWidth = QApplication::style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
        content = QApplication::style()->sizeFromContents(QStyle::CT_LineEdit, &option,
                                                          content + QSize(0, static_cast<int>(kMargin)));
    } else if (isBordered()) {
        content += QSize(2, 2);
    }
    return {static_cast<double>(content.width()), static_cast<double>(content.height())};
}

void NSTextFieldCell::describe(velt::ClassBuilder<NSTextFieldCell>& c) {
    c.property("formatter", &NSTextFieldCell::formatter, &NSTextFieldCell::setFormatter)
        .property("placeholderString", &NSTextFieldCell::placeholderString, &NSTextFieldCell::setPlaceholderString)
        .property("textColor", &NSTextFieldCell::textColor, &NSTextFieldCell::setTextColor)
        .property("backgroundColor", &NSTextFieldCell::backgroundColor, &NSTextFieldCell::setBackgroundColor)
        .property("drawsBackground", &NSTextFieldCell::drawsBackground, &NSTextFieldCell::setDrawsBackground)
        .property("bezelStyle", &NSTextFieldCell::bezelStyle, &NSTextFieldCell::setBezelStyle)
        .property("lineBreakMode", &NSTextFieldCell::lineBreakMode, &NSTextFieldCell::setLineBreakMode)
        .property("usesSingleLineMode", &NSTextFieldCell::usesSingleLineMode, &NSTextFieldCell::setUsesSingleLineMode)
        .property("allowsEditingTextAttributes", &NSTextFieldCell::allowsEditingTextAttributes,
                  &NSTextFieldCell::setAllowsEditingTextAttributes)
        .property("sendsActionOnEndEditing", &NSTextFieldCell::sendsActionOnEndEditing,
                  &NSTextFieldCell::setSendsActionOnEndEditing)
        .owns(&NSTextFieldCell::formatter_)
        .owns(&NSTextFieldCell::placeholder_)
        .owns(&NSTextFieldCell::textColor_)
        .owns(&NSTextFieldCell::backgroundColor_)
        .owns(&NSTextFieldCell::typed_);
}
