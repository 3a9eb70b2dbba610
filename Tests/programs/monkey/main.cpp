// A monkey at the gallery of controls: mouse, keys, wheel, drags, new sizes and other windows, at random, as long as it
// is told to. It prints its seed; the same seed does the same again. It must not bring the program down, and when the
// gallery has gone no window of it may be left.
//   monkey SECONDS [SEED]
// The headers first, so that only the gallery's own main gets another name.
#include "support/screenshot.h"

#define main galleryProgram
#include "controls/controls.cpp"
#undef main

#include "VELTRuntime/platform/object/cycles.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <random>

namespace {

class Monkey : public QObject {
public:
    Monkey(const id& window, double seconds, unsigned seed) : window_(window), seconds_(seconds), random_(seed) {
        since_.start();
        next();
    }
    std::function<void()> onEnd;
    long steps() const { return steps_; }

private:
    int upTo(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    bool oneIn(int times) { return upTo(times) == 0; }
    template <class T, std::size_t n> T oneOf(const T (&all)[n]) { return all[upTo(static_cast<int>(n))]; }

    /// Where the next event goes: an open menu or list before a dialog, a dialog before the others.
    QWidget* target() {
        if (QWidget* popup = QApplication::activePopupWidget()) return popup;
        if (QWidget* modal = QApplication::activeModalWidget()) return modal;
        std::vector<QWidget*> shown;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->windowHandle()) shown.push_back(widget);
        }
        return shown.empty() ? nullptr : shown[static_cast<std::size_t>(upTo(static_cast<int>(shown.size())))];
    }

    QPoint somewhere(const QWidget& widget) {
        // Mostly at a control: the window is wide, and its controls are small.
        const QList<QWidget*> parts = widget.findChildren<QWidget*>();
        if (!parts.isEmpty() && !oneIn(4)) {
            const QWidget* part = parts[upTo(static_cast<int>(parts.size()))];
            if (part->isVisible() && part->window() == &widget && part->width() > 0 && part->height() > 0) {
                const QPoint at = part->mapTo(&widget, QPoint(upTo(part->width()), upTo(part->height())));
                if (widget.rect().contains(at)) return at;
            }
        }
        return {upTo(std::max(1, widget.width())), upTo(std::max(1, widget.height()))};
    }

    void mouse(QWidget& widget, QPoint at, Qt::MouseButtons held, Qt::MouseButton button, QEvent::Type type) {
        QWindow* window = widget.windowHandle();
        if (!window) return;
        time_ += 7;
        qt_handleMouseEvent(window, at, window->mapToGlobal(QPointF(at)), held, button, type, modifiers_, time_);
    }

    /// The next step is awaited before this one is done: it may open a menu, and come back only when that is closed.
    void next() {
        QTimer::singleShot(0, this, [this] { step(); });
    }
    void step() {
        if (since_.elapsed() > seconds_ * 1000) return end();
        next();
        ++steps_;
        // A window that was closed is opened again.
        if (steps_ % 50 == 0 && !VELT_CBOOL(VELT_NSWINDOW_VISIBLE(window_))) VELT_NSWINDOW_SHOW(window_);
        QWidget* found = target();
        if (!found) return static_cast<void>(VELT_NSWINDOW_SHOW(window_));
        const QPointer<QWidget> widget(found);
        if (held_) return drag(*widget);
        switch (upTo(14)) {
        case 0:
        case 1:
        case 2:
        case 3: return press(*widget);
        case 4: return doubleClick(*widget);
        case 5:
        case 6:
        case 7:
        case 8: return key(*widget);
        case 9: return wheel(*widget);
        case 10: return mouse(*widget, somewhere(*widget), Qt::NoButton, Qt::NoButton, QEvent::MouseMove);
        case 11: return other(*widget);
        case 12: return key(*widget);
        default:
            // Nobody stays in a menu or a dialog for ever.
            if (widget != &velt::as<NSWindow>(window_)->widget() && oneIn(3)) widget->close();
        }
    }

    void press(QWidget& widget) {
        constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,  Qt::LeftButton,
                                                Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                                       Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
        button_ = oneOf(kButtons);
        modifiers_ = oneOf(kModifiers);
        moves_ = oneIn(2) ? 0 : 1 + upTo(8);
        held_ = true;
        at_ = somewhere(widget);
        mouse(widget, at_, button_, button_, QEvent::MouseButtonPress);
    }
    /// The button is held: it moves on, or is let go.
    void drag(QWidget& widget) {
        if (moves_-- > 0) {
            at_ += QPoint(upTo(61) - 30, upTo(31) - 15);
            return mouse(widget, at_, button_, Qt::NoButton, QEvent::MouseMove);
        }
        held_ = false;
        mouse(widget, at_, Qt::NoButton, button_, QEvent::MouseButtonRelease);
        modifiers_ = Qt::NoModifier;
    }
    void doubleClick(QWidget& widget) {
        const QPoint at = somewhere(widget);
        const QPointer<QWidget> kept(&widget);
        for (int i = 0; i < 2 && kept; ++i) {
            mouse(widget, at, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress);
            if (kept) mouse(widget, at, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease);
        }
    }
    void key(QWidget& widget) {
        constexpr Qt::Key kKeys[] = {Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down, Qt::Key_Left,
                                     Qt::Key_Right,     Qt::Key_Space,   Qt::Key_Return, Qt::Key_Home, Qt::Key_End,
                                     Qt::Key_PageDown,  Qt::Key_PageUp,  Qt::Key_Delete, Qt::Key_F4,   Qt::Key_Escape,
                                     Qt::Key_Backspace, Qt::Key_Menu};
        constexpr Qt::Key kCommands[] = {Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Y, Qt::Key_F};
        constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier,    Qt::NoModifier,  Qt::NoModifier,
                                                       Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier};
        QWindow* window = widget.windowHandle();
        if (!window) return;
        const QPointer<QWindow> kept(window);
        const auto stroke = [&](int code, Qt::KeyboardModifiers with, const QString& text) {
            if (kept) qt_handleKeyEvent(kept, QEvent::KeyPress, code, with, text, false, 1);
            if (kept) qt_handleKeyEvent(kept, QEvent::KeyRelease, code, with, text, false, 1);
        };
        switch (upTo(4)) {
        case 0: return stroke(oneOf(kCommands), Qt::ControlModifier, QString());
        case 1: {
            const QChar typed(oneIn(10) ? 0x5D0 + upTo(26) : 0x21 + upTo(90));
            return stroke(typed.toUpper().unicode(), Qt::NoModifier, QString(typed));
        }
        default: {
            const Qt::Key code = oneOf(kKeys);
            return stroke(code, oneOf(kModifiers), code == Qt::Key_Space ? QStringLiteral(" ") : QString());
        }
        }
    }
    void wheel(QWidget& widget) {
        const QPoint at = somewhere(widget);
        QWidget* under = widget.childAt(at);
        if (!under) under = &widget;
        const QPoint turned = oneIn(4) ? QPoint(120 * (upTo(5) - 2), 0) : QPoint(0, 120 * (upTo(5) - 2));
        QWheelEvent event(under->mapFrom(&widget, at), widget.mapToGlobal(at), {}, turned, Qt::NoButton, modifiers_,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(under, &event);
    }
    /// What the desktop does with a window and its looks.
    void other(QWidget& widget) {
        switch (upTo(8)) {
        case 0:
        case 1:
            VELT_NSWINDOW_CONTENTSIZE(window_, VELT_ID(NSSize{double(1 + upTo(1300)), double(1 + upTo(1000))}));
            break;
        case 2: VELT_NSWINDOW_CONTENTSIZE(window_, VELT_ID(NSSize{1104, 732})); break;
        case 3: QApplication::setActiveWindow(oneIn(2) ? nullptr : &widget); break;
        case 4: QApplication::setLayoutDirection(oneIn(2) ? Qt::RightToLeft : Qt::LeftToRight); break;
        case 5:
            QApplication::setPalette(oneIn(2) ? QPalette(QColor(53, 53, 53)) : QPalette(QColor(239, 239, 239)));
            break;
        case 6: VELT_NSWINDOW_HIDE(window_); break;
        default: VELT_NSWINDOW_SHOW(window_);
        }
    }
    void end() {
        if (held_) mouse(velt::as<NSWindow>(window_)->widget(), at_, Qt::NoButton, button_, QEvent::MouseButtonRelease);
        // What is open closes, the innermost first.
        QTimer::singleShot(0, this, [this] { closeAll(100); });
    }
    void closeAll(int tries) {
        QWidget* open = QApplication::activePopupWidget();
        if (!open) open = QApplication::activeModalWidget();
        if (!open || tries == 0) return onEnd();
        open->close();
        QTimer::singleShot(0, this, [this, tries] { closeAll(tries - 1); });
    }

    id window_;
    double seconds_;
    std::mt19937 random_;
    QElapsedTimer since_;
    long steps_ = 0;
    int time_ = 0;
    Qt::MouseButton button_ = Qt::LeftButton;
    Qt::KeyboardModifiers modifiers_;
    QPoint at_;
    int moves_ = 0;
    bool held_ = false;
};

/// Keeps the program when the monkey closes its only window.
class Keeper : public NSObject {
    VELT_OBJECT(Keeper, NSObject)

public:
    bool endsAfterWindow(const id&) { return false; }
    static void describe(velt::ClassBuilder<Keeper>& c) {
        c.method("applicationShouldTerminateAfterLastWindowClosed:", &Keeper::endsAfterWindow);
    }
};

double seconds = 10;
bool cameToTheEnd = false;
unsigned seed = std::random_device{}();
std::unique_ptr<Monkey> monkey;

/// Every window is closed and dropped; what is then still there has leaked.
int leftWindows() {
    for (int i = 0; i < 5; ++i) {
        velt::collectCycles();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    int left = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        // The colour panel is one for all, and stays.
        if (!dynamic_cast<const QMainWindow*>(widget) || widget->windowTitle() == QLatin1String("Colors")) continue;
        std::fprintf(stderr, "A window is left: %s\n", qPrintable(widget->windowTitle()));
        ++left;
    }
    return left;
}

int play(int, char**) {
    std::printf("Seed %u, %g seconds\n", seed, seconds);
    std::fflush(stdout);
    std::atexit([] {
        if (!cameToTheEnd) std::_Exit(2);  // something the monkey did ended the program
    });
    NSApplication::sharedApplication().setDelegate(velt::make<Keeper>());
    velt::Ref<Gallery> gallery = velt::make<Gallery>();
    gallery->open();
    monkey = std::make_unique<Monkey>(gallery->window, seconds, seed);
    monkey->onEnd = [window = std::make_shared<id>(gallery->window)] {
        std::printf("%ld steps\n", monkey->steps());
        VELT_NSWINDOW_CLOSE(*window);
        *window = nil;
        QTimer::singleShot(0, qApp, [] {
            monkey.reset();
            const int left = leftWindows();
            std::printf("%s\n", left == 0 ? "No window is left" : "Windows are left");
            std::fflush(stdout);
            if (left > 0) std::_Exit(1);
            cameToTheEnd = true;
            NSApplication::sharedApplication().terminate(nil);
        });
    };
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count > 1) seconds = std::atof(arguments[1]);
    if (count > 2) seed = static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10));
    setenv("PATH", "/nowhere", 1);  // nothing opens in the desktop's own programs
    return velt::runApplication(play, 1, arguments);
}
