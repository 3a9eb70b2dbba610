#include "VELTRuntime/editor/view/completion_list.h"

#include "VELTRuntime/editor/view/completion_keys.h"
#include "VELTRuntime/editor/view/source_view.h"
#include "VELTRuntime/editor/view/view_target.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/screen.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/index_set.h"
#include "VELTRuntime/platform/object/providers.h"
#include "VELTRuntime/platform/object/setting.h"
#include "VELTRuntime/values/text/utf.h"

#include <QEventLoop>
#include <QMainWindow>
#include <QWindow>

using velt::CompletionPopup;
using velt::Ref;

constinit id myFloatingKeyWindow;

namespace {

constexpr double kColumnWidth = 200, kFontSize = 10, kRowHeight = 17, kBorder = 2;
constexpr long kMostRows = 10;

}  // namespace

void FloatingKeyWindow::describe(velt::ClassBuilder<FloatingKeyWindow>& c) {
    c.method("canBecomeKeyWindow", &FloatingKeyWindow::canBecomeKeyWindow);
}

void AutoCompleteList::keyDown(const id& event) {
    const id controller = target();
    if (velt::is<Autocompletion>(controller)) velt::as<Autocompletion>(controller)->keyDown(event);
}

void AutoCompleteList::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(typed);
    NSTableView::visitOwned(visitor);
}

void AutoCompleteList::describe(velt::ClassBuilder<AutoCompleteList>& c) {
    c.property("as", &AutoCompleteList::as)
        .property("dot", &AutoCompleteList::dot)
        .property("bracket", &AutoCompleteList::bracket)
        .property("myCurrentTypeAhead", &AutoCompleteList::typed)
        .method("setmyCurrentTypeAhead:",
                [](const id& self, const id* a) {
                    velt::as<AutoCompleteList>(self)->typed = a[0];
                    return id();
                })
        .method("keyDown:", &AutoCompleteList::keyDown);
}

/// The window of a program's own completion, whose popup nobody else leads.
struct Autocompletion::OwnWindow final : velt::PopupWindow, CompletionPopup::Owner {
    OwnWindow(Autocompletion& owner, VLTextView& view) : controller(owner), target(view) {}
    void run(CompletionPopup&) override {}
    void popupChose() override {}
    void popupChanged(const CompletionPopup&) override { controller.popupChanged(); }
    void popupEnded(const CompletionPopup&) override { controller.popupEnded(); }
    void paste() override {
        if (VLTextView* view = controller.view()) view->paste(nil);
    }

    Autocompletion& controller;
    velt::ViewTarget target;
};

Autocompletion::Autocompletion() = default;

Autocompletion::Autocompletion(VLTextView& view, CompletionPopup& popup)
    : view_(static_cast<NSObject*>(&view)), popup_(&popup) {
    makeList();
}

Autocompletion::~Autocompletion() = default;

id Autocompletion::initWithCompletions(const id& candidates, const id& view, NSRange typed, bool as, bool dot,
                                       bool bracket) {
    id self(static_cast<NSObject*>(this));
    auto* editor = velt::to<VLTextView>(view);
    if (!editor) return nil;
    view_ = view;
    std::vector<std::u16string> names;
    if (const NSArray* list = velt::arrayOf(candidates)) {
        for (const id& name : list->items()) {
            if (velt::isString(name)) names.emplace_back(velt::textOf(name));
        }
    }
    if (bracket && names.empty()) names.emplace_back();
    ownPopup_.reset();
    popup_ = nullptr;
    ownWindow_ = std::make_unique<OwnWindow>(*this, *editor);
    ownPopup_ = std::make_unique<CompletionPopup>(ownWindow_->target, *ownWindow_, *ownWindow_, std::move(names),
                                                  typed.location, static_cast<std::ptrdiff_t>(typed.length),
                                                  velt::CompletionModes{as, dot, bracket});
    popup_ = ownPopup_.get();
    makeList();
    return self;
}

VLTextView* Autocompletion::view() const { return velt::is<VLTextView>(view_) ? velt::as<VLTextView>(view_) : nullptr; }

// The list.

void Autocompletion::makeList() {
    const id self(static_cast<NSObject*>(this));
    const Ref<AutoCompleteList> list = velt::make<AutoCompleteList>();
    const Ref<NSTableColumn> column = velt::make<NSTableColumn>("Column1"_v);
    const id cell = column->dataCell();
    const Ref<NSFont> wanted = NSFont::named("Monaco"_v, kFontSize);
    if (velt::is<NSCell>(cell)) {
        velt::as<NSCell>(cell)->setFont(wanted ? wanted : NSFont::userFixedPitch(kFontSize));
    }
    column->setWidth(kColumnWidth);
    column->setEditable(false);
    list->addTableColumn(column.get());
    list->setHeaderView(nil);
    list->setRowHeight(kRowHeight);
    list->as = popup_->modes().types;
    list->dot = popup_->modes().members;
    list->bracket = popup_->modes().arguments;
    list->setDataSource(self);
    list->setDelegate(self);
    list->setTarget(self);
    list->setDoubleActionName("doubleClicked:"_v);
    list_ = list;
    popupChanged();
}

long Autocompletion::numberOfRows(const id&) const { return popup_ ? static_cast<long>(popup_->rowCount()) : 0; }

id Autocompletion::objectValue(const id&, const id&, long row) const {
    if (!popup_ || row < 0 || static_cast<std::size_t>(row) >= popup_->rowCount()) return nil;
    const std::u16string& text = popup_->row(static_cast<std::size_t>(row));
    if (!popup_->modes().arguments) return velt::string(text);
    return velt::providers().attributedStringFromHtml(velt::text::toUtf8(text));
}

void Autocompletion::popupChanged() {
    if (!popup_ || !velt::is<AutoCompleteList>(list_)) return;
    auto& list = *velt::as<AutoCompleteList>(list_);
    const velt::Setting syncing(syncing_, true);
    list.typed = velt::string(popup_->typed());
    fit();
    list.reloadData();
    if (const auto row = popup_->selectedRow()) {
        list.selectRow(static_cast<long>(*row), false);
        list.scrollRowToVisible(static_cast<long>(*row));
    } else {
        list.deselectAll(nil);
    }
}

void Autocompletion::popupEnded() {
    if (loop_) loop_->quit();
}

void Autocompletion::selectionChanged(const id&) {
    if (syncing_ || !popup_ || popup_->modes().arguments) return;
    const long row = velt::as<AutoCompleteList>(list_)->selectedRow();
    popup_->selectRow(row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row)));
}

void Autocompletion::doubleClicked(const id&) {
    if (popup_) popup_->doubleClicked();
}

// Showing it.

/// The window's frame with so many names in its list.
NSRect Autocompletion::frameFor(long rows) const {
    const bool isHelp = popup_->modes().arguments;
    double width = kColumnWidth;
    if (isHelp && popup_->rowCount() > 0) {
        const id help = objectValue(nil, nil, 0);
        width = std::max(width, velt::providers().textSize(help, nil).width + 4 * kBorder + kRowHeight);
    }
    const double row = kRowHeight + velt::as<AutoCompleteList>(list_)->intercellSpacing().height;
    const double height = static_cast<double>(isHelp ? 1 : std::clamp(rows, 1L, kMostRows)) * row + 2 * kBorder;
    const NSRect screen = velt::visibleScreenFrame();
    return {{std::max(screen.origin.x, std::min(foot_.x, screen.origin.x + screen.size.width - width)),
             isAbove_ ? foot_.y + kRowHeight : foot_.y - height},
            {width + 2 * kBorder, height}};
}

/// Below the line, or above it where there is no room for all names below it.
void Autocompletion::place(NSPoint point) {
    foot_ = point;
    isAbove_ = false;
    isAbove_ = frameFor(static_cast<long>(popup_->candidateCount())).origin.y < velt::visibleScreenFrame().origin.y;
    windowPointer()->setFrame(frameFor(numberOfRows(nil)));
}

/// As high as its names need, on the side of the line on which it is.
void Autocompletion::fit() {
    NSWindow* window = windowPointer();
    if (!window) return;
    const NSRect frame = frameFor(numberOfRows(nil)), now = window->frame();
    if (frame.size.height != now.size.height) window->setFrame({frame.origin, {now.size.width, frame.size.height}});
}

long Autocompletion::popupAssistantAt(NSPoint point, const id&) {
    const Ref<Autocompletion> kept(this);
    VLTextView* editor = view();
    QWidget* page = editor ? editor->existingWidget() : nullptr;
    const auto code = [this] {
        const auto result = popup_ ? popup_->result() : std::nullopt;
        return static_cast<long>(result.value_or(velt::PopupResult::Cancelled));
    };
    if (!popup_ || popup_->result()) return code();
    if (!page || !page->isVisible()) {
        popup_->end(velt::PopupResult::Cancelled);
        return code();
    }
    const Ref<VLTextView> keptView(editor);
    const Ref<FloatingKeyWindow> window = velt::make<FloatingKeyWindow>();
    setWindow(window);
    const id outer = std::exchange(myFloatingKeyWindow, window);
    const Ref<NSScrollView> around = velt::make<NSScrollView>();
    around->setBorderType(velt::kLineBorder);
    around->setHasVerticalScroller(true);
    around->setAutohidesScrollers(true);
    place(point);
    auto& list = *velt::as<AutoCompleteList>(list_);
    const NSSize size = window->frame().size;
    around->setFrame({{0, 0}, size});
    list.setFrame({{0, 0}, size});
    around->setDocumentView(&list);
    window->setContentView(around.get());

    QMainWindow& shown = window->widget();
    shown.setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    shown.setAttribute(Qt::WA_ShowWithoutActivating);
    // Some desktops place such windows only beside another one.
    shown.winId();
    if (shown.windowHandle()) shown.windowHandle()->setTransientParent(page->window()->windowHandle());
    shown.setAccessibleName(QStringLiteral("Completions"));
    list.widget().setFocusPolicy(Qt::NoFocus);
    for (QWidget* part : list.widget().findChildren<QWidget*>()) part->setFocusPolicy(Qt::NoFocus);
    popupChanged();
    shown.show();
    {
        const velt::CompletionKeys keys(*page, shown, *this);
        QEventLoop loop;
        QEventLoop* const outerLoop = std::exchange(loop_, &loop);
        if (!popup_->result()) loop.exec();
        loop_ = outerLoop;
    }
    shown.hide();
    list.setDataSource(nil);
    list.setDelegate(nil);
    list.setTarget(nil);
    window->close();
    setWindow(nil);
    myFloatingKeyWindow = outer;
    const long result = code();
    if (!ownPopup_) popup_ = nullptr;
    return result;
}

// What a person or a program does with it.

void Autocompletion::type(std::u16string_view keys) {
    const Ref<Autocompletion> kept(this);
    if (popup_ && !popup_->result()) popup_->keyTyped(keys, false);
}

void Autocompletion::keyDown(const id& event) {
    const Ref<Autocompletion> kept(this);
    if (!popup_ || !velt::is<NSEvent>(event)) return;
    const NSEvent& key = *velt::as<NSEvent>(event);
    const bool withCommand = key.modifierFlags() & NSEvent::kCommand;
    const id characters = withCommand ? key.charactersIgnoringModifiers() : key.characters();
    if (velt::isString(characters)) popup_->keyTyped(std::u16string(velt::textOf(characters)), withCommand);
}

void Autocompletion::close() {
    const Ref<Autocompletion> kept(this);
    if (loop_ && popup_ && !popup_->result()) {
        popup_->end(velt::PopupResult::Cancelled);
    } else {
        NSWindowController::close();
    }
}

void Autocompletion::myInsert(const id&, const id& terminator) {
    const id text = VELT_CSTRING(terminator);
    if (popup_) popup_->insertChoice(velt::textOf(text));
}

void Autocompletion::insertText(const id& text) {
    const id typed = VELT_CSTRING(text);
    type(velt::textOf(typed));
}

void Autocompletion::deleteBackward(const id&) { type(u"\b"); }
void Autocompletion::insertNewline(const id&) { type(u"\r"); }
void Autocompletion::cancelOperation(const id&) { type(u"\x1B"); }

void Autocompletion::showContextHelp(const id&) {
    type(u")");
    if (popup_ && !popup_->result()) popup_->end(velt::PopupResult::Cancelled);
}

void Autocompletion::updateTypeSelection() {
    if (popup_) popup_->follow();
}

void Autocompletion::updateBracket() {
    if (!popup_ || !popup_->modes().arguments) return;
    popup_->showArgument();
    popupChanged();
}

void Autocompletion::visitOwned(velt::OwnedVisitor& visitor) {
    for (id* field : {&view_, &list_}) visitor.visit(*field);
    NSWindowController::visitOwned(visitor);
}

void Autocompletion::dissolve() {
    popup_ = nullptr;
    ownPopup_.reset();
    ownWindow_.reset();
    NSWindowController::dissolve();
}

void Autocompletion::describe(velt::ClassBuilder<Autocompletion>& c) {
    c.method("initWithCompletions::::::", &Autocompletion::initWithCompletions)
        .method("popupAssistantAt:forView:", &Autocompletion::popupAssistantAt)
        .method("close", &Autocompletion::close)
        .method("myInsert::", &Autocompletion::myInsert)
        .method("insertText:", &Autocompletion::insertText)
        .method("deleteBackward:", &Autocompletion::deleteBackward)
        .method("insertNewline:", &Autocompletion::insertNewline)
        .method("cancelOperation:", &Autocompletion::cancelOperation)
        .method("showContextHelp:", &Autocompletion::showContextHelp)
        .method("updateTypeSelection", &Autocompletion::updateTypeSelection)
        .method("updateBracket", &Autocompletion::updateBracket)
        .method("numberOfRowsInTableView:", &Autocompletion::numberOfRows)
        .method("tableView:objectValueForTableColumn:row:", &Autocompletion::objectValue)
        .method("tableViewSelectionDidChange:", &Autocompletion::selectionChanged)
        .method("doubleClicked:", &Autocompletion::doubleClicked);
}
