#include "VELTRuntime/platform/appkit/graphics_context_object.h"

#include "VELTRuntime/platform/appkit/graphics_context.h"

using velt::GraphicsContext;

void NSGraphicsContext::saveGraphicsState() {
    if (GraphicsContext* context = GraphicsContext::current()) context->save();
}
void NSGraphicsContext::restoreGraphicsState() {
    if (GraphicsContext* context = GraphicsContext::current()) context->restore();
}
bool NSGraphicsContext::shouldAntialias() const {
    const GraphicsContext* context = GraphicsContext::current();
    return context && context->antialiases;
}
void NSGraphicsContext::setShouldAntialias(bool flag) {
    if (GraphicsContext* context = GraphicsContext::current()) context->antialiases = flag;
}
bool NSGraphicsContext::isFlipped() const {
    const GraphicsContext* context = GraphicsContext::current();
    return context && !context->isTurned();
}

void NSGraphicsContext::describe(velt::ClassBuilder<NSGraphicsContext>& c) {
    c.property("shouldAntialias", &NSGraphicsContext::shouldAntialias, &NSGraphicsContext::setShouldAntialias)
        .method("isFlipped", &NSGraphicsContext::isFlipped)
        .method("saveGraphicsState", &NSGraphicsContext::saveGraphicsState)
        .method("restoreGraphicsState", &NSGraphicsContext::restoreGraphicsState)
        .classMethod(
            "currentContext",
            [](const id&, const id*) { return GraphicsContext::current() ? id(velt::make<NSGraphicsContext>()) : nil; })
        .classMethod("saveGraphicsState",
                     [](const id&, const id*) {
                         if (GraphicsContext* context = GraphicsContext::current()) context->save();
                         return nil;
                     })
        .classMethod("restoreGraphicsState", [](const id&, const id*) {
            if (GraphicsContext* context = GraphicsContext::current()) context->restore();
            return nil;
        });
}
