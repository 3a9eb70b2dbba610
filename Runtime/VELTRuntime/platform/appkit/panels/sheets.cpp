#include "VELTRuntime/platform/appkit/panels/sheets.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/panels/modal_session.h"
#include "VELTRuntime/values/string.h"

#include <QDialog>
#include <QMainWindow>
#include <QPainter>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <vector>

namespace velt {

namespace {

/// A line around a sheet, which has no title bar that would set it off from its window.
class SheetEdge final : public QWidget {
public:
    explicit SheetEdge(QWidget& sheet) : QWidget(&sheet) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        sheet.installEventFilter(this);
        setGeometry(sheet.rect());
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) setGeometry(static_cast<QWidget*>(watched)->rect());
        return false;
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

class Sheet;
std::vector<std::unique_ptr<Sheet>>& sheets() {
    static auto& all = *new std::vector<std::unique_ptr<Sheet>>;  // windows may go after static objects
    return all;
}

/// One sheet, from its beginning to its end.
class Sheet final : private WindowFollower {
public:
    Sheet(NSWindow& sheet, NSWindow* window, SheetEnd end, SheetDialog dialog)
        : window_(window), sheet_(&sheet), end_(std::move(end)), dialog_(std::move(dialog)) {}
    ~Sheet() override = default;

    NSWindow& sheet() const { return *sheet_; }
    NSWindow* window() const { return window_.get(); }
    bool isShown() const { return shown_; }
    void show();
    void finish(long code);

private:
    void leaderChanged(LeaderChange change) override;
    void leaderChangedDialog(LeaderChange change);
    void place();
    void release();

    const Ref<NSWindow> window_, sheet_;
    SheetEnd end_;
    const SheetDialog dialog_;
    bool shown_ = false;
    QPointer<SheetEdge> edge_;
};

/// Sheets whose delegates are being told of their end, the last one told last.
std::vector<Sheet*>& ending() {
    static auto& all = *new std::vector<Sheet*>;
    return all;
}

Sheet* recordOf(const NSWindow& sheet) {
    const auto found = std::find_if(sheets().begin(), sheets().end(),
                                    [&](const std::unique_ptr<Sheet>& one) { return &one->sheet() == &sheet; });
    return found == sheets().end() ? nullptr : found->get();
}

Sheet* shownOn(const NSWindow& window) {
    const auto found = std::find_if(sheets().begin(), sheets().end(), [&](const std::unique_ptr<Sheet>& one) {
        return one->window() == &window && one->isShown();
    });
    return found == sheets().end() ? nullptr : found->get();
}

bool isAwaited(const NSWindow& window) {
    return std::any_of(sheets().begin(), sheets().end(),
                       [&](const std::unique_ptr<Sheet>& one) { return one->window() == &window; });
}

void Sheet::show() {
    shown_ = true;
    if (dialog_.show) {
        if (window_) follow(window_.get());
        return dialog_.show(true);
    }
    QMainWindow& widget = sheet_->widget();
    widget.hide();
    widget.setWindowModality(window_ ? Qt::WindowModal : Qt::ApplicationModal);
    if (window_) {
        follow(window_.get());
        sheet_->syncFlags();
        edge_ = new SheetEdge(widget);
        edge_->raise();
        widget.winId();
        window_->widget().winId();
        widget.windowHandle()->setTransientParent(window_->widget().windowHandle());
        place();
    } else {
        sheet_->center();
    }
    if (!window_ || window_->isVisible()) sheet_->makeKeyAndOrderFront(nil);
}

/// At the top of the window's content, in its middle.
void Sheet::place() {
    const NSRect content = contentRectForFrame(window_->frame(), window_->styleMask());
    const NSRect own = sheet_->frame();
    const double height = contentRectForFrame(own, sheet_->styleMask()).size.height;
    sheet_->setFrameOrigin({std::round(content.origin.x + (content.size.width - own.size.width) / 2),
                            content.origin.y + content.size.height - height});
}

/// Where a dialog lies is the toolkit's or the desktop's to say.
void Sheet::leaderChangedDialog(LeaderChange change) {
    if (change == LeaderChange::Closed) return endSheet(*sheet_, end_.aborted);
    if (change == LeaderChange::Shown || change == LeaderChange::Hidden) dialog_.show(change == LeaderChange::Shown);
}

void Sheet::leaderChanged(LeaderChange change) {
    if (dialog_.show) return leaderChangedDialog(change);
    QWidget* widget = sheet_->existingWidget();
    switch (change) {
    case LeaderChange::Moved: return place();
    case LeaderChange::Shown:
        if (widget && !widget->isVisible()) sheet_->makeKeyAndOrderFront(nil);
        return;
    case LeaderChange::Hidden:
        if (widget) widget->hide();
        return;
    case LeaderChange::Closed: end_.ordersOut = true; return endSheet(*sheet_, end_.aborted);
    case LeaderChange::Gone: return;
    }
}

/// The window is an ordinary one again.
void Sheet::release() {
    if (edge_) delete edge_.data();
    QWidget* widget = sheet_->existingWidget();
    if (!widget || recordOf(*sheet_)) return;  // the delegate has begun it anew
    const bool wasVisible = widget->isVisible();
    widget->hide();
    widget->setWindowModality(Qt::NonModal);
    if (widget->windowHandle()) widget->windowHandle()->setTransientParent(nullptr);
    sheet_->syncFlags();
    if (wasVisible) widget->show();
}

void Sheet::finish(long code) {
    follow(nullptr);
    const auto tell = [&] {
        if (!isString(end_.selector)) return;
        const Selector selector = Selector::named(utf8(end_.selector));
        if (respondsTo(end_.delegate, selector)) {
            send(end_.delegate, selector, end_.subject, VELT_ID(code), end_.context);
        }
    };
    const auto leave = [&] {
        if (!dialog_.show) {
            if (end_.ordersOut && !recordOf(*sheet_)) sheet_->orderOut(nil);
            release();
        }
        if (window_ && (!sheet_->isVisible() || isAwaited(*window_))) sheetHasLeft(*window_);
    };
    ending().push_back(this);
    try {
        if (dialog_.end) dialog_.end(code);
        tell();
    } catch (...) {
        std::erase(ending(), this);
        leave();
        throw;
    }
    std::erase(ending(), this);
    leave();
}

}  // namespace

void beginSheet(NSWindow& sheet, NSWindow* window, const SheetEnd& end, SheetDialog dialog) {
    if (recordOf(sheet) || window == &sheet) return;
    const bool waits = window && shownOn(*window);
    sheets().push_back(std::make_unique<Sheet>(sheet, window, end, std::move(dialog)));
    if (!waits) sheets().back()->show();
}

NSWindow& windowBehindEnded(NSWindow& window) {
    for (const Sheet* told : ending()) {
        if (&told->sheet() == &window && told->window()) return *told->window();
    }
    return window;
}

void sheetHasLeft(NSWindow& window) {
    if (shownOn(window)) return;
    const auto next = std::find_if(sheets().begin(), sheets().end(),
                                   [&](const std::unique_ptr<Sheet>& one) { return one->window() == &window; });
    if (next != sheets().end()) return (*next)->show();
    // A dialog of the toolkit's own may have come in the meantime.
    const QMainWindow* shown = window.existingWidget();
    if (!shown) return;
    for (QDialog* dialog : shown->findChildren<QDialog*>(Qt::FindDirectChildrenOnly)) {
        if (dialog->isVisible() && dialog->isModal()) return dialog->activateWindow();
    }
    window.makeKeyWindow();
}

void endSheet(NSWindow& sheet, long code) {
    const auto found = std::find_if(sheets().begin(), sheets().end(),
                                    [&](const std::unique_ptr<Sheet>& one) { return &one->sheet() == &sheet; });
    if (found == sheets().end()) return;
    // It is no sheet any more while the delegate hears of it, so that the delegate may begin another.
    const std::unique_ptr<Sheet> ended = std::move(*found);
    sheets().erase(found);
    ended->finish(code);
}

}  // namespace velt

bool NSWindow::isSheet() const {
    const velt::Sheet* record = velt::recordOf(*this);
    return record && record->isShown() && record->window();
}

id NSWindow::attachedSheet() const {
    const velt::Sheet* record = velt::shownOn(*this);
    return record ? velt::boxResult(&record->sheet()) : nil;
}

void NSApplication::beginSheet(NSWindow* sheet, NSWindow* window, const id& delegate, const id& didEnd,
                               const id& context) {
    if (sheet) velt::beginSheet(*sheet, window, {delegate, didEnd, velt::boxResult(sheet), context});
}
void NSApplication::endSheet(NSWindow* sheet) { endSheetReturningCode(sheet, velt::kModalStopped); }
void NSApplication::endSheetReturningCode(NSWindow* sheet, long code) {
    if (sheet) velt::endSheet(*sheet, code);
}
