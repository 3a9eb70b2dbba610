#include "VELTRuntime/platform/appkit/containers/spinner.h"

#include <QPainter>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {
constexpr int kSpokes = 12, kMillisecondsATurn = 1000, kMillisecondsAFrame = 33;
}

Spinner::Spinner(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    clock_.start();
}

void Spinner::setTurning(bool turning) {
    turning_ = turning;
    syncTimer();
    update();
}

void Spinner::setPart(double part) {
    part_ = part;
    update();
}

void Spinner::syncTimer() {
    if (turning_ && isVisible()) {
        if (!timer_.isActive()) timer_.start(kMillisecondsAFrame, this);
    } else {
        timer_.stop();
    }
}

void Spinner::timerEvent(QTimerEvent*) { update(); }
void Spinner::showEvent(QShowEvent*) { syncTimer(); }
void Spinner::hideEvent(QHideEvent*) { timer_.stop(); }

void Spinner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    const double radius = std::min(width(), height()) / 2.0 - 1;
    if (radius <= 1) return;
    const QColor ink = palette().color(QPalette::WindowText);
    if (part_ >= 0) {
        const QRectF disc(-radius, -radius, 2 * radius, 2 * radius);
        painter.setPen(QPen(palette().color(QPalette::Mid), 1));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawEllipse(disc);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        constexpr int kTop = 90 * 16, kTurn = 360 * 16;
        painter.drawPie(disc, kTop, -static_cast<int>(std::lround(std::min(part_, 1.0) * kTurn)));
        return;
    }
    // The brightest spoke leads, the others fade behind it; between two spokes the light moves over smoothly.
    const double turn = turning_ ? static_cast<double>(clock_.elapsed() % kMillisecondsATurn) / kMillisecondsATurn : 0;
    const double thickness = std::max(radius * 0.18, 1.0);
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        const double behind = std::fmod(turn - static_cast<double>(spoke) / kSpokes + 1, 1.0);
        QColor color = ink;
        color.setAlphaF(static_cast<float>(turning_ ? 0.12 + 0.8 * (1 - behind) * (1 - behind) : 0.2));
        painter.save();
        painter.rotate(360.0 * spoke / kSpokes);
        painter.setPen(QPen(color, thickness, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -radius * 0.5), QPointF(0, -radius + thickness / 2));
        painter.restore();
    }
}

}  // namespace velt
