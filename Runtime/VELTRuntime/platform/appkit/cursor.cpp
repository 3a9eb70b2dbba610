#include "VELTRuntime/platform/appkit/cursor.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/image.h"

#include <QApplication>
#include <QImage>
#include <vector>

using velt::Ref;

namespace {

/// What the main thread shows: the innermost of those that were pushed, or nothing while hidden.
struct Shown {
    std::vector<Ref<NSCursor>> stack;  // the first is what was set before any push
    int hidden = 0;

    Ref<NSCursor> current() const { return stack.empty() ? velt::make<NSCursor>() : stack.back(); }
    void show() const {
        if (hidden > 0) {
            override(QCursor(Qt::BlankCursor));
        } else if (const QCursor shape = current()->cursor(); shape.shape() == Qt::ArrowCursor) {
            // The views' own shapes count again.
            while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
        } else {
            override(shape);
        }
    }

private:
    static void override(const QCursor& shape) {
        if (QApplication::overrideCursor()) {
            QApplication::changeOverrideCursor(shape);
        } else {
            QApplication::setOverrideCursor(shape);
        }
    }
};

Shown& shown() {
    velt::requireApplicationObject("a cursor");
    static Shown& state = *new Shown;
    return state;
}

QCursor pictured(const NSImage& image, NSPoint hotSpot) {
    if (!image.isValid()) return QCursor(Qt::ArrowCursor);
    const QPixmap pixmap = QPixmap::fromImage(image.picture());
    return QCursor(pixmap, qRound(hotSpot.x), qRound(hotSpot.y));
}

}  // namespace

NSCursor::NSCursor() : NSCursor(QCursor(Qt::ArrowCursor)) {}
NSCursor::NSCursor(const QCursor& cursor) : cursor_(std::make_unique<const QCursor>(cursor)) {}
NSCursor::NSCursor(const NSImage& image, NSPoint hotSpot) : NSCursor(pictured(image, hotSpot)) {
    image_ = id(const_cast<NSImage*>(&image));
}
NSCursor::~NSCursor() = default;

NSPoint NSCursor::hotSpot() const {
    const QPoint spot = cursor().hotSpot();
    return {static_cast<double>(spot.x()), static_cast<double>(spot.y())};
}

void NSCursor::set() const {
    Shown& state = shown();
    if (!state.stack.empty()) state.stack.pop_back();
    push();
}
void NSCursor::push() const {
    Shown& state = shown();
    if (state.stack.empty()) state.stack.push_back(velt::make<NSCursor>());
    state.stack.emplace_back(const_cast<NSCursor*>(this));
    state.show();
}
void NSCursor::pop() {
    Shown& state = shown();
    if (state.stack.size() > 1) state.stack.pop_back();
    state.show();
}
void NSCursor::hide() {
    Shown& state = shown();
    ++state.hidden;
    state.show();
}
void NSCursor::unhide() {
    Shown& state = shown();
    if (state.hidden > 0) --state.hidden;
    state.show();
}
Ref<NSCursor> NSCursor::currentCursor() { return shown().current(); }

namespace {

template <Qt::CursorShape shape> id standard(const id&, const id*) {
    velt::requireApplicationObject("a cursor");
    return velt::make<NSCursor>(QCursor(shape));
}

template <void (*function)()> id callOf(const id&, const id*) {
    function();
    return nil;
}

}  // namespace

void NSCursor::describe(velt::ClassBuilder<NSCursor>& c) {
    c.method("set", &NSCursor::set)
        .method("push", &NSCursor::push)
        .method("pop", callOf<&NSCursor::pop>)
        .property("image", &NSCursor::image)
        .property("hotSpot", &NSCursor::hotSpot)
        .method("initWithImage:hotSpot:",
                [](const id&, const id* a) {
                    velt::requireApplicationObject("a cursor");
                    if (!velt::is<NSImage>(a[0])) velt::raiseClassExpected(NSImage::entry());
                    return id(velt::make<NSCursor>(*velt::as<NSImage>(a[0]), VELT_CNSPOINT(a[1])));
                })
        .classMethod("currentCursor", [](const id&, const id*) { return id(currentCursor()); })
        .classMethod("pop", callOf<&NSCursor::pop>)
        .classMethod("hide", callOf<&NSCursor::hide>)
        .classMethod("unhide", callOf<&NSCursor::unhide>)
        .classMethod("arrowCursor", standard<Qt::ArrowCursor>)
        .classMethod("IBeamCursor", standard<Qt::IBeamCursor>)
        .classMethod("crosshairCursor", standard<Qt::CrossCursor>)
        .classMethod("pointingHandCursor", standard<Qt::PointingHandCursor>)
        .classMethod("openHandCursor", standard<Qt::OpenHandCursor>)
        .classMethod("closedHandCursor", standard<Qt::ClosedHandCursor>)
        .classMethod("resizeLeftRightCursor", standard<Qt::SplitHCursor>)
        .classMethod("resizeLeftCursor", standard<Qt::SizeHorCursor>)
        .classMethod("resizeRightCursor", standard<Qt::SizeHorCursor>)
        .classMethod("resizeUpDownCursor", standard<Qt::SplitVCursor>)
        .classMethod("resizeUpCursor", standard<Qt::SizeVerCursor>)
        .classMethod("resizeDownCursor", standard<Qt::SizeVerCursor>)
        .classMethod("operationNotAllowedCursor", standard<Qt::ForbiddenCursor>)
        .classMethod("dragCopyCursor", standard<Qt::DragCopyCursor>)
        .classMethod("dragLinkCursor", standard<Qt::DragLinkCursor>)
        .classMethod("contextualMenuCursor", standard<Qt::ArrowCursor>)
        .owns(&NSCursor::image_);
}
