#include "VELTRuntime/platform/appkit/graphics_context.h"

#include <QPainter>

namespace velt {

namespace {
constinit thread_local GraphicsContext* innermost = nullptr;
}

GraphicsContext::GraphicsContext(QPainter& painter) : painter_(painter), outer_(innermost) {
    painter.save();
    innermost = this;
}

GraphicsContext::~GraphicsContext() {
    innermost = outer_;
    painter_.restore();
}

GraphicsContext* GraphicsContext::current() { return innermost; }

}  // namespace velt
