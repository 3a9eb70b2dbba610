#include "VELTRuntime/platform/appkit/text_drawing.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/values/conversions.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace velt {

namespace {

id attribute(const id& attributes, std::u16string_view name) {
    const NSDictionary* dictionary = dictionaryOf(attributes);
    return dictionary ? dictionary->objectForKey(string(name)) : nil;
}

bool isOn(const id& flag) { return isNumber(flag) && VELT_CINTEGER(flag) != 0; }

QFont fontOf(const id& attributes) {
    const id font = attribute(attributes, u"NSFont");
    QFont result = is<NSFont>(font) ? as<NSFont>(font)->font() : make<NSFont>()->font();
    result.setUnderline(isOn(attribute(attributes, u"NSUnderline")));
    result.setStrikeOut(isOn(attribute(attributes, u"NSStrikethrough")));
    return result;
}

constexpr int kLines = Qt::AlignLeft | Qt::AlignTop | Qt::TextExpandTabs;

}  // namespace

NSSize textSize(const id& text, const id& attributes) {
    requireApplicationObject("the size of a text");
    const QFontMetricsF metrics(fontOf(attributes));
    const QString shown = qtText(text);
    if (shown.isEmpty()) return {0, metrics.height()};
    const QSizeF size = metrics.size(Qt::TextExpandTabs, shown);
    return {size.width(), size.height()};
}

void drawText(const id& text, NSRect rect, bool wraps, const id& attributes) {
    GraphicsContext* context = GraphicsContext::current();
    if (!context) return;
    QPainter& painter = context->painter();
    // A little room beside: the metrics of a line and the lines that the painter makes may differ in their last bits.
    const NSSize size = wraps ? rect.size : textSize(text, attributes);
    const QRectF place(0, 0, wraps ? size.width : std::ceil(size.width) + 1, wraps ? size.height : size.height + 1);
    painter.save();
    painter.translate(rect.origin.x, rect.origin.y);
    if (context->isTurned()) {
        painter.translate(0, size.height);
        painter.scale(1, -1);
    }
    painter.setFont(fontOf(attributes));
    const int flags = wraps ? kLines | Qt::TextWordWrap : kLines;
    const QString shown = qtText(text);
    if (const id ground = attribute(attributes, u"NSBackgroundColor"); is<NSColor>(ground)) {
        const QRectF covered =
            wraps ? painter.boundingRect(place, flags, shown) : QRectF(0, 0, size.width, size.height);
        painter.fillRect(covered & place, qtColor(*as<NSColor>(ground)));
    }
    const id color = attribute(attributes, u"NSColor");
    painter.setPen(is<NSColor>(color) ? qtColor(*as<NSColor>(color)) : context->textColor);
    if (wraps) painter.setClipRect(place, Qt::IntersectClip);
    painter.drawText(place, flags, shown);
    painter.restore();
}

}  // namespace velt
