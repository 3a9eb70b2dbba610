#include "VELTRuntime/values/string_drawing.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/providers.h"

namespace velt {

namespace {

void draw(const id& text, NSRect rect, bool wraps, const id& attributes) {
    const Providers& given = providers();
    if (!given.drawText) raiseNotProvided("drawing of text");
    given.drawText(text, rect, wraps, attributes);
}

}  // namespace

void addDrawingMethods(ClassBuilder<NSString>& c) {
    c.method("drawAtPoint:withAttributes:",
             [](const id& s, const id* a) {
                 draw(s, {VELT_CNSPOINT(a[0]), {}}, false, a[1]);
                 return nil;
             })
        .method("drawInRect:withAttributes:",
                [](const id& s, const id* a) {
                    draw(s, VELT_CNSRECT(a[0]), true, a[1]);
                    return nil;
                })
        .method("sizeWithAttributes:", [](const id& s, const id* a) {
            const Providers& given = providers();
            if (!given.textSize) raiseNotProvided("the size of a text");
            return VELT_ID(given.textSize(s, a[0]));
        });
}

}  // namespace velt
