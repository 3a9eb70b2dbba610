#include "VELTRuntime/platform/appkit/graphics_context.h"

#include <QPainter>

namespace velt {

namespace {
constinit thread_local GraphicsContext* innermost = nullptr;
}

GraphicsContext::GraphicsContext(QPainter& painter)
    : textColor(painter.pen().color()), painter_(painter), outer_(innermost) {
    painter.save();
    innermost = this;
}

GraphicsContext::~GraphicsContext() {
    innermost = outer_;
    while (!saved_.empty()) restore();
    painter_.restore();
}

void GraphicsContext::save() {
    painter_.save();
    saved_.push_back({fillColor, strokeColor, antialiases});
}

void GraphicsContext::restore() {
    if (saved_.empty()) return;
    painter_.restore();
    const Saved& state = saved_.back();
    fillColor = state.fill;
    strokeColor = state.stroke;
    antialiases = state.antialiases;
    saved_.pop_back();
}

bool GraphicsContext::isTurned() const { return painter_.worldTransform().m22() < 0; }

GraphicsContext* GraphicsContext::current() { return innermost; }

}  // namespace velt
