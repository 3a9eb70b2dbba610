#include "VELTRuntime/platform/appkit/controls/button_bezel.h"

#include "VELTRuntime/platform/appkit/controls/button_colours.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionButton>
#include <algorithm>
#include <climits>

namespace velt {

namespace {

/// A rectangle whose border of one dot lies on the screen's dots.
QRectF sharp(const QRect& rect) { return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5); }

QRect middleSquare(const QRect& rect, int most) {
    const int side = std::min({rect.width(), rect.height(), most});
    return {rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2, side, side};
}

QLinearGradient downward(const QRectF& rect, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

/// Fills and frames a shape.
void drawShape(QPainter& painter, const QPainterPath& shape, const QBrush& fill, const QPen& edge) {
    painter.setPen(edge);
    painter.setBrush(fill);
    painter.drawPath(shape);
}

QPainterPath rounded(const QRectF& rect, double radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void drawFocus(QPainter& painter, const QStyleOption& option, const QPainterPath& shape, const ButtonColours& c) {
    if (!(option.state & QStyle::State_HasFocus) || !(option.state & QStyle::State_KeyboardFocusChange)) return;
    painter.save();
    painter.setClipPath(shape);
    painter.setBrush(Qt::NoBrush);
    constexpr double kWidth = 4;  // half of it lies within the shape
    painter.setPen(QPen(c.accent, kWidth));
    painter.drawPath(shape);
    painter.restore();
}

/// A fine weave over a shape.
void drawTexture(QPainter& painter, const QPainterPath& shape, const ButtonColours& c) {
    QColor thread = isDark(c.face) ? Qt::white : Qt::black;
    thread.setAlphaF(0.16F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(thread, Qt::BDiagPattern));
    painter.drawPath(shape);
}

/// A triangle that points to the trailing side when closed and down when open.
void drawTriangle(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QColor& ink) {
    constexpr int kSide = 11;
    const QRectF box = middleSquare(option.rect, kSide);
    const double half = box.width() / 2;
    painter.translate(box.center());
    const bool leftward = option.direction == Qt::RightToLeft;
    double turn = look.state == NSCell::kOn ? 90 : look.state == NSCell::kMixed || look.isPressed ? 45 : 0;
    if (leftward) turn = 180 - turn;
    painter.rotate(turn);
    const QPointF corners[] = {{-half * 0.7, -half}, {half * 0.9, 0}, {-half * 0.7, half}};
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.isPressed ? mix(ink, option.palette.color(QPalette::Highlight), 0.5) : ink);
    painter.drawConvexPolygon(corners, 3);
}

/// An angle that points down to what would be shown, or up to what would be hidden.
void drawChevron(QPainter& painter, const QRect& rect, bool up, const QColor& ink) {
    const QPointF middle = QRectF(rect).center();
    constexpr double kWide = 5, kHigh = 2.5;
    const double high = up ? -kHigh : kHigh;
    const QPointF points[] = {middle + QPointF(-kWide, -high), middle + QPointF(0, high),
                              middle + QPointF(kWide, -high)};
    painter.setBrush(Qt::NoBrush);
    constexpr double kPen = 2;
    painter.setPen(QPen(ink, kPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(points, 3);
}

/// The desktop's own push button.
void drawStyled(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QStyle& style,
                const QWidget* widget) {
    QStyleOptionButton button;
    static_cast<QStyleOption&>(button) = option;
    button.type = QStyleOption::SO_Button;
    button.features = look.isDefault ? QStyleOptionButton::DefaultButton : QStyleOptionButton::None;
    button.state &= ~(QStyle::State_On | QStyle::State_Sunken | QStyle::State_Raised);
    button.state |= look.isPressed ? QStyle::State_Sunken : QStyle::State_Raised;
    if (look.isOn) button.state |= QStyle::State_On;
    style.drawControl(QStyle::CE_PushButtonBevel, &button, &painter, widget);
}

void drawRaisedSquare(QPainter& painter, const QStyleOption& option, const ButtonColours& c, bool pressed) {
    const QRect r = option.rect;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(c.edge);
    painter.setBrush(c.face);
    painter.drawRect(r.adjusted(0, 0, -1, -1));
    constexpr int kDeep = 2;
    for (int i = 1; i <= kDeep; ++i) {
        const QRect in = r.adjusted(i, i, -i - 1, -i - 1);
        painter.setPen(pressed ? c.low : c.light);
        painter.drawLine(in.bottomLeft(), in.topLeft());
        painter.drawLine(in.topLeft(), in.topRight());
        painter.setPen(pressed ? c.light : c.low);
        painter.drawLine(in.topRight(), in.bottomRight());
        painter.drawLine(in.bottomRight(), in.bottomLeft());
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
}

constexpr int kHelpSide = 25;

}  // namespace

QMargins bezelMargins(BezelStyle bezel) {
    switch (bezel) {
    case BezelStyle::Rounded: return {8, 4, 8, 4};
    case BezelStyle::Disclosure: return {1, 1, 1, 1};
    case BezelStyle::ShadowlessSquare:
    case BezelStyle::SmallSquare: return {5, 3, 5, 3};
    case BezelStyle::Circular: return {7, 7, 7, 7};
    case BezelStyle::RoundRect:
    case BezelStyle::Recessed: return {10, 2, 10, 2};
    case BezelStyle::TexturedRounded: return {8, 3, 8, 3};
    default: return {7, 4, 7, 4};
    }
}

QRect bezelRoom(const QRect& rect, BezelStyle bezel) {
    const QRect within = bezel == BezelStyle::Circular ? middleSquare(rect, INT_MAX) : rect;
    return within.marginsRemoved(bezelMargins(bezel));
}

QColor drawBezel(QPainter& painter, const QStyleOption& option, const ButtonLook& look, const QStyle& style,
                 const QWidget* widget) {
    ButtonColours c = buttonColours(option, {look.isPressed, look.isOn, look.isDefault});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = sharp(option.rect);
    const QPen edge(c.edge, 1);
    switch (look.bezel) {
    case BezelStyle::Rounded:
        drawStyled(painter, option, look, style, widget);
        if (look.isOn) c.ink = option.palette.color(QPalette::ButtonText);
        drawFocus(painter, option, rounded(frame, 3), c);
        break;
    case BezelStyle::Disclosure: {
        const QColor ink = option.palette.color(QPalette::WindowText);
        painter.save();
        drawTriangle(painter, option, look, ink);
        painter.restore();
        drawFocus(painter, option, rounded(frame, 3), c);
        break;
    }
    case BezelStyle::ShadowlessSquare: {
        QPainterPath shape;
        shape.addRect(frame);
        drawShape(painter, shape, c.face, edge);
        drawFocus(painter, option, shape, c);
        break;
    }
    case BezelStyle::Circular:
    case BezelStyle::Help: {
        const bool help = look.bezel == BezelStyle::Help;
        QPainterPath shape;
        shape.addEllipse(sharp(middleSquare(option.rect, help ? kHelpSide : INT_MAX)));
        drawShape(painter, shape, downward(shape.boundingRect(), c.light, c.face), edge);
        drawFocus(painter, option, shape, c);
        if (help) {
            QFont font = look.font;
            font.setBold(true);
            font.setPixelSize(std::max(6, static_cast<int>(shape.boundingRect().height() * 0.64)));
            painter.setFont(font);
            painter.setPen(c.ink);
            painter.drawText(shape.boundingRect(), Qt::AlignCenter, QStringLiteral("?"));
        }
        break;
    }
    case BezelStyle::TexturedSquare: {
        const QPainterPath shape = rounded(frame, 2);
        drawShape(painter, shape, c.face, edge);
        drawTexture(painter, shape, c);
        drawFocus(painter, option, shape, c);
        break;
    }
    case BezelStyle::SmallSquare: {
        QPainterPath shape;
        shape.addRect(frame);
        drawShape(painter, shape, look.isPressed ? downward(frame, c.low, c.face) : downward(frame, c.light, c.low),
                  edge);
        drawFocus(painter, option, shape, c);
        break;
    }
    case BezelStyle::TexturedRounded: {
        const QPainterPath shape = rounded(frame, 6);
        drawShape(painter, shape, downward(frame, c.light, c.face), edge);
        drawTexture(painter, shape, c);
        drawFocus(painter, option, shape, c);
        break;
    }
    case BezelStyle::RoundRect: {
        const QPainterPath shape = rounded(frame, std::min(frame.width(), frame.height()) / 2);
        const bool filled = look.isPressed || look.isOn || option.state & QStyle::State_MouseOver;
        drawShape(painter, shape, filled ? QBrush(c.face) : QBrush(Qt::NoBrush), edge);
        drawFocus(painter, option, shape, c);
        break;
    }
    case BezelStyle::Recessed: {
        const QPainterPath shape = rounded(frame, std::min(5.0, frame.height() / 2));
        const QColor base = option.palette.color(QPalette::WindowText);
        QColor fill = base;
        fill.setAlphaF(look.isPressed                           ? 0.42F
                       : look.isOn                              ? 0.55F
                       : option.state & QStyle::State_MouseOver ? 0.2F
                                                                : 0.1F);
        drawShape(painter, shape, fill, Qt::NoPen);
        if (look.isOn || look.isPressed) {
            // The shadow that falls into it from above.
            fill.setAlphaF(0.6F);
            painter.setClipPath(shape);
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(fill, 1.5));
            painter.drawPath(shape.translated(0, 1));
            painter.setClipping(false);
        }
        const QColor ground = mix(option.palette.color(QPalette::Window), base, look.isOn ? 0.6 : 0.1);
        c.ink = look.isOn ? (isDark(ground) ? Qt::white : Qt::black) : base;
        drawFocus(painter, option, shape, c);
        break;
    }
    case BezelStyle::RoundedDisclosure:
        drawStyled(painter, option, look, style, widget);
        drawChevron(painter, option.rect, look.state == NSCell::kOn, option.palette.color(QPalette::ButtonText));
        drawFocus(painter, option, rounded(frame, 3), c);
        break;
    default: {
        drawRaisedSquare(painter, option, c, look.isPressed);
        QPainterPath shape;
        shape.addRect(frame);
        drawFocus(painter, option, shape, c);
        break;
    }
    }
    painter.restore();
    return c.ink;
}

}  // namespace velt
