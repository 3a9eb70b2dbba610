// Texts, colours, alignments, points and rectangles between the values of programs and those of the toolkit.
#pragma once

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/structures.h"

#include <QColor>
#include <QRectF>
#include <QString>

namespace velt {

inline QString qtText(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}
/// A string value's text; empty for nil and for what is no string.
inline QString qtText(const id& value) { return isString(value) ? qtText(textOf(value)) : QString(); }

/// A text's units; valid as long as the text is there and does not change.
inline std::u16string_view unitsOf(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}
/// A new string value of a text.
inline id textValue(const QString& text) { return string(unitsOf(text)); }

inline QColor qtColor(const NSColor& color) {
    return QColor::fromRgbF(static_cast<float>(color.redComponent()), static_cast<float>(color.greenComponent()),
                            static_cast<float>(color.blueComponent()), static_cast<float>(color.alphaComponent()));
}

inline QPointF qtPoint(NSPoint point) { return {point.x, point.y}; }
inline QRectF qtRect(NSRect rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }

/// The toolkit's alignment for a program's code: left (0), right (1), centred (2), justified (3). Any other code is
/// where people begin to read.
inline Qt::Alignment qtAlignment(long alignment) {
    switch (alignment) {
    case 0: return Qt::AlignLeft | Qt::AlignAbsolute;
    case 1: return Qt::AlignRight | Qt::AlignAbsolute;
    case 2: return Qt::AlignHCenter;
    case 3: return Qt::AlignJustify;
    default: return Qt::AlignLeading;
    }
}

/// A new colour value, in the steps of the screen.
inline id colorValue(const QColor& color) {
    constexpr double kSteps = 255;
    return make<NSColor>(color.red() / kSteps, color.green() / kSteps, color.blue() / kSteps, color.alpha() / kSteps);
}

}  // namespace velt
