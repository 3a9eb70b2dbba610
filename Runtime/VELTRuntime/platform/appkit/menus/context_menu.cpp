#include "VELTRuntime/platform/appkit/menus/context_menu.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/platform/appkit/screen.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

/// Lines alone are nothing to choose from; a delegate may still fill the menu when it opens.
bool offersNothing(const NSMenu& menu) {
    const auto& items = menu.items();
    return !items.empty() && menu.delegate().isNil() &&
           std::all_of(items.begin(), items.end(), [](const Ref<NSMenuItem>& item) { return item->isSeparatorItem(); });
}

/// The menu for an event: views are asked by "menuForEvent:", so that a program can make it at that moment.
id menuFor(NSView& view, const id& event) {
    id menu;
    findResponder(id(static_cast<NSObject*>(&view)), [&](const id& responder) {
        if (is<NSView>(responder)) {
            menu = send(responder, VELT_SELECTOR("menuForEvent:"), event);
        } else if (is<NSResponder>(responder)) {
            menu = as<NSResponder>(responder)->menu();
        }
        return is<NSMenu>(menu);
    });
    return is<NSMenu>(menu) && !offersNothing(*as<NSMenu>(menu)) ? menu : nil;
}

}  // namespace

QPoint globalPoint(NSPoint point, NSView* view) {
    if (!view) {
        return {static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(mainScreenHeight() - point.y))};
    }
    const NSRect own = view->bounds();
    QWidget& widget = view->widget();
    const double sx = own.size.width > 0 ? widget.width() / own.size.width : 1;
    const double sy = own.size.height > 0 ? widget.height() / own.size.height : 1;
    const double x = (point.x - own.origin.x) * sx, up = (point.y - own.origin.y) * sy;
    const double y = view->isFlipped() ? up : widget.height() - up;
    return widget.mapToGlobal(QPoint(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))));
}

bool showContextMenu(NSView& view, const QContextMenuEvent& event) noexcept {
    const Ref<NSView> kept(&view);
    bool shown = false;
    runReported([&] {
        // A view that takes the right button itself shows a menu itself, when it wants to.
        const bool byMouse = event.reason() == QContextMenuEvent::Mouse;
        if (byMouse && answersItself(view, VELT_SELECTOR("rightMouseDown:"))) return;
        NSWindow* window = view.windowPointer();
        const QPoint place = event.globalPos();  // the other one is that of the widget which was asked first
        NSPoint location{};
        if (window) {
            const QPoint within = view.widget().mapFromGlobal(place);
            location = window->basePointOf(view.widget(), {double(within.x()), double(within.y())});
        }
        const Ref<NSEvent> made = NSEvent::ofMouse(NSEvent::Type::RightMouseDown, location,
                                                   modifiersOf(event.modifiers().toInt()), 1, 1, window);
        const CurrentEvent scope(made);
        const id menu = menuFor(view, made);
        if (menu.isNil()) return;
        shown = true;
        as<NSMenu>(menu)->widget().popup(place);
    });
    return shown;
}

}  // namespace velt
