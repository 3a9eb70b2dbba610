#include "VELTRuntime/platform/appkit/view_widget.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/context_menu.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <unordered_map>
#include <unordered_set>

namespace velt {

namespace {

/// Which view each widget shows. Every event of the toolkit asks it, which a property of the widget is too slow for.
using Views = std::unordered_map<const QWidget*, NSView*>;

Views& views() {
    static Views& shared = *new Views;  // widgets may go after static objects
    return shared;
}

}  // namespace

NSView* viewOf(const QWidget* widget) {
    const auto found = views().find(widget);
    return found == views().end() ? nullptr : found->second;
}

void setViewOf(QWidget& widget, NSView* view) {
    if (view) {
        views()[&widget] = view;
    } else if (isMainThread()) {
        views().erase(&widget);
    } else {
        RunLoop::main().perform([&widget] { setViewOf(widget, nullptr); });
    }
}

namespace {

/// Takes the outermost widgets that show views out of one that ends.
void rescueViews(const QWidget& ending) {
    const QObjectList& children = ending.children();
    // From the end: what is taken out shortens the list.
    for (qsizetype i = children.size() - 1; i >= 0; --i) {
        QObject* child = children[i];
        if (!child->isWidgetType()) continue;
        auto& widget = *static_cast<QWidget*>(child);
        if (!viewOf(&widget)) {
            rescueViews(widget);
            continue;
        }
        widget.hide();
        widget.setParent(nullptr);
    }
}

/// Widgets whose views have gone or are about to. A window of a thousand controls is closed by ending one widget.
class Ending final : public QObject {
public:
    static Ending& shared() {
        static Ending& ending = *new Ending;  // widgets may go after static objects
        return ending;
    }
    void add(QWidget& widget) {
        if (!widgets_.insert(&widget).second) return;
        widget.installEventFilter(this);
    }
    bool isWithin(const QWidget& widget) const {
        for (const QWidget* at = widget.parentWidget(); at; at = at->parentWidget()) {
            if (widgets_.contains(at)) return true;
            if (viewOf(at)) return false;  // that one stays, and would keep what is left in it
        }
        return false;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::DeferredDelete) return false;
        const auto* widget = static_cast<QWidget*>(watched);
        rescueViews(*widget);
        forget(*widget);
        return false;
    }

private:
    /// The widget ends now, with all that is left in it.
    void forget(const QWidget& widget) {
        widgets_.erase(&widget);
        for (const QObject* child : widget.children()) {
            if (child->isWidgetType()) forget(*static_cast<const QWidget*>(child));
        }
    }

    std::unordered_set<const QWidget*> widgets_;
};

}  // namespace

void willGo(QWidget& widget) {
    if (isMainThread()) Ending::shared().add(widget);
}

void letGo(QWidget& widget) {
    setViewOf(widget, nullptr);
    Ending& ending = Ending::shared();
    if (ending.isWithin(widget)) return;
    ending.add(widget);
    widget.hide();
    widget.setParent(nullptr);
    widget.deleteLater();  // one of its events may be on its way back through the toolkit
}

void ViewWidget::paintEvent(QPaintEvent* event) {
    NSView* view = viewOf(this);
    if (!view) return;
    const Ref<NSView> kept(view);
    QPainter painter(this);
    const QRectF dirty = event->rect();
    runReported([&] { view->draw(painter, {{dirty.x(), dirty.y()}, {dirty.width(), dirty.height()}}); });
}

void ViewWidget::mousePressEvent(QMouseEvent* event) {
    clicks_ = 1;
    if (NSView* view = viewOf(this); view && view->canBecomeKeyView()) setFocus(Qt::MouseFocusReason);
    tell(*event);
}

void ViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    clicks_ = 2;
    tell(*event);
}

void ViewWidget::mouseReleaseEvent(QMouseEvent* event) { tell(*event); }
void ViewWidget::mouseMoveEvent(QMouseEvent* event) { tell(*event); }
void ViewWidget::enterEvent(QEnterEvent* event) { tell(*event); }
void ViewWidget::leaveEvent(QEvent* event) { tell(*event); }

void ViewWidget::wheelEvent(QWheelEvent* event) {
    NSView* view = viewOf(this);
    // What the view leaves is for an enclosing scroll view, a widget of the toolkit.
    if (!view || !offerToProgram(*view, *this, *event)) event->ignore();
}

void ViewWidget::keyPressEvent(QKeyEvent* event) {
    NSView* view = viewOf(this);
    if (!view) return;
    // A shortcut goes before what the view makes of its letter.
    const bool shortcut = event->modifiers() & Qt::ControlModifier;
    if (shortcut && view->windowPointer() && offerKeyEquivalent(*view->windowPointer(), *event)) return;
    // What nobody answers is the window's, for its buttons.
    const bool answered = somebodyAnswers(*view, VELT_SELECTOR("keyDown:"));
    if (answered) tell(*event);
    event->setAccepted(answered);
}

void ViewWidget::keyReleaseEvent(QKeyEvent* event) {
    tell(*event);
    event->accept();
}

void ViewWidget::contextMenuEvent(QContextMenuEvent* event) {
    NSView* view = viewOf(this);
    event->setAccepted(view && showContextMenu(*view, *event));
}

bool ViewWidget::focusNextPrevChild(bool next) {
    // The widgets of controls hand the question outward: it is about the one that has the keyboard.
    NSView* view = viewAround(window()->focusWidget());
    NSWindow* shown = view ? view->windowPointer() : nullptr;
    return (shown && shown->moveKeyView(*view, next)) || QWidget::focusNextPrevChild(next);
}

void ViewWidget::tell(const QEvent& event) {
    if (NSView* view = viewOf(this)) sendEventMessage(*view, *this, event, clicks_);
}

}  // namespace velt
