#include "VELTRuntime/platform/appkit/cursor.h"

#include "VELTRuntime/platform/appkit/application_object.h"

#include <QApplication>

NSCursor::NSCursor() : NSCursor(QCursor(Qt::ArrowCursor)) {}
NSCursor::NSCursor(const QCursor& cursor) : cursor_(std::make_unique<const QCursor>(cursor)) {}
NSCursor::~NSCursor() = default;

void NSCursor::set() const {
    velt::requireApplicationObject("a cursor");
    if (cursor().shape() == Qt::ArrowCursor) {
        // The views' own shapes count again.
        while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
    } else if (QApplication::overrideCursor()) {
        QApplication::changeOverrideCursor(cursor());
    } else {
        QApplication::setOverrideCursor(cursor());
    }
}

void NSCursor::describe(velt::ClassBuilder<NSCursor>& c) {
    c.method("set", &NSCursor::set);
#define VELT_NAMED_CURSOR(selector, shape)                                                                             \
    c.classMethod(selector, [](const id&, const id*) { return id(velt::make<NSCursor>(QCursor(shape))); });
    VELT_NAMED_CURSOR("arrowCursor", Qt::ArrowCursor)
    VELT_NAMED_CURSOR("IBeamCursor", Qt::IBeamCursor)
    VELT_NAMED_CURSOR("crosshairCursor", Qt::CrossCursor)
    VELT_NAMED_CURSOR("pointingHandCursor", Qt::PointingHandCursor)
    VELT_NAMED_CURSOR("openHandCursor", Qt::OpenHandCursor)
    VELT_NAMED_CURSOR("closedHandCursor", Qt::ClosedHandCursor)
    VELT_NAMED_CURSOR("resizeLeftRightCursor", Qt::SplitHCursor)
    VELT_NAMED_CURSOR("resizeUpDownCursor", Qt::SplitVCursor)
#undef VELT_NAMED_CURSOR
}
