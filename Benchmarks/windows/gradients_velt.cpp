// How long gradients and decorated backgrounds take, beside the toolkit's own gradients on the same picture.
#include "VELTRuntime/VELTRuntimeUI.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "form.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

namespace {

constexpr int kWidth = 2560, kHeight = 1440;

id color(double red, double green, double blue, double alpha = 1) {
    return velt::make<NSColor>(red, green, blue, alpha);
}

/// Milliseconds of processor time of the quickest of some rounds.
double millisecondsOf(const std::function<void()>& work) {
    double least = 1e9;
    for (int round = 0; round < 25; ++round) {
        const double begin = form::now();
        work();
        least = std::min(least, (form::now() - begin) * 1000);
    }
    return least;
}

void fills(QImage& screen) {
    QPainter painter(&screen);
    const velt::GraphicsContext context(painter);
    const NSRect whole{{0, 0}, {kWidth, kHeight}};
    const id two = velt::send(PXGradient::entry().object(), "gradientWithBeginningColor:endingColor:", color(1, 0.5, 0),
                              color(0, 0.2, 0.6));
    const id hues = velt::send(two, "gradientWithBlendingMode:", VELT_ID(1L));
    for (const int angle : {0, 90, 30}) {
        const auto axis = velt::as<PXGradient>(two);
        const double own = millisecondsOf([&] {
            const double a = angle * 3.14159265358979 / 180;
            const QPointF middle(kWidth / 2.0, kHeight / 2.0);
            const double length = kWidth * std::abs(std::cos(a)) + kHeight * std::abs(std::sin(a));
            const QPointF half(length / 2 * std::cos(a), length / 2 * std::sin(a));
            QLinearGradient gradient(middle - half, middle + half);
            gradient.setColorAt(0, QColor::fromRgbF(1, 0.5F, 0));
            gradient.setColorAt(1, QColor::fromRgbF(0, 0.2F, 0.6F));
            painter.fillRect(0, 0, kWidth, kHeight, gradient);
        });
        const double plain = millisecondsOf([&] { axis->fillRect(whole, static_cast<float>(angle)); });
        const double chromatic =
            millisecondsOf([&] { velt::as<PXGradient>(hues)->fillRect(whole, static_cast<float>(angle)); });
        std::printf("toolkit%d %.3f\nlinear%d %.3f\nchromatic%d %.3f\n", angle, own, angle, plain, angle, chromatic);
    }
    std::printf("radial %.3f\n", millisecondsOf([&] { velt::as<PXGradient>(hues)->radialFillRect(whole); }));
}

void colors() {
    for (const long mode : {0L, 1L}) {
        id made = velt::make<PXGradient>();
        for (int i = 0; i < 16; ++i) {
            made = velt::send(made, "addColorStop:atPosition:", color(i % 3 / 2.0, i % 5 / 4.0, i % 7 / 6.0),
                              VELT_ID(i / 15.0));
        }
        made = velt::send(made, "gradientWithBlendingMode:", VELT_ID(mode));
        const auto* gradient = velt::as<PXGradient>(made);
        // Positions that come in no order: the next is not where the last one was.
        double position = 0;
        const double time = form::nanosecondsOf([&] {
            position += 0.6180339887;
            if (position > 1) position -= 1;
            const id seen = gradient->colorAtPosition(position);
        });
        std::printf("colour%ld %.1f\n", mode, time);
    }
}

void background(QImage& screen, float radius, const char* name) {
    QImage tile(32, 32, QImage::Format_ARGB32_Premultiplied), logo(256, 256, QImage::Format_ARGB32_Premultiplied);
    tile.fill(QColor(0, 0, 0, 40));
    logo.fill(QColor(255, 255, 255, 120));
    const velt::Ref<VLBackgroundView> view = velt::make<VLBackgroundView>();
    view->setFrame({{0, 0}, {kWidth, kHeight}});
    view->setBackgroundColor(velt::as<NSColor>(color(0.2, 0.3, 0.4)));
    view->setBackgroundPattern(velt::make<NSImage>(tile).get());
    view->setBackgroundGradient(PXGradient::preset("rainbowGradient").get(), 30);
    view->setBackgroundImage(velt::make<NSImage>(logo).get(), 0.5F);
    view->setBackgroundCornerRadius(radius);
    const auto draw = [&] {
        QPainter painter(&screen);
        view->draw(painter, {{0, 0}, {kWidth, kHeight}});
    };
    std::printf("%s_first %.3f\n", name, millisecondsOf([&] {
                    view->setBackgroundCornerRadius(radius);
                    view->setFrameSize({kWidth, view->frame().size.height == kHeight ? kHeight - 1.0 : kHeight});
                    draw();
                }));
    view->setFrameSize({kWidth, kHeight});
    std::printf("%s_kept %.3f\n", name, millisecondsOf(draw));
}

int program(int, char**) {
    QImage screen(kWidth, kHeight, QImage::Format_RGB32);
    screen.fill(Qt::white);
    fills(screen);
    colors();
    background(screen, 0, "square");
    background(screen, 24, "round");
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return velt::runProgram(program, count, arguments);
}
