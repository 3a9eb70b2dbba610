#include "VELTRuntime/editor/view/source_view.h"

#include "VELTRuntime/editor/block_commands.h"
#include "VELTRuntime/editor/breakpoints.h"
#include "VELTRuntime/editor/view/editor_state.h"
#include "VELTRuntime/editor/view/source_layer.h"
#include "VELTRuntime/editor/view/source_margin.h"
#include "VELTRuntime/editor/view/source_view_parts.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/containers/scrolling.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/text/utf.h"

using velt::Ref;

namespace {

constexpr double kUnlimited = 1e7;
constexpr char16_t kBackspace = 8, kDelete = 127, kEscape = 27;
constexpr long kBackspaceKeyCode = 51;

NSMutableArray* mutableArrayOf(const id& value) {
    return velt::is<NSMutableArray>(value) ? velt::as<NSMutableArray>(value) : nullptr;
}

/// The keyboards of this desktop number their keys in another way, so that the key is known by what it types.
bool releasesBackspace(const id& event) {
    if (!velt::is<NSEvent>(event)) return false;
    const NSEvent& key = *velt::as<NSEvent>(event);
    const id characters = key.charactersIgnoringModifiers();
    const std::u16string_view typed = velt::isString(characters) ? velt::textOf(characters) : std::u16string_view();
    if (typed.empty()) return key.keyCode() == kBackspaceKeyCode;
    return typed[0] == kBackspace || typed[0] == kDelete;
}

id boxed(std::optional<bool> found) { return found ? VELT_ID(static_cast<BOOL>(*found)) : VELT_ID(0L); }

}  // namespace

VLTextView::VLTextView(NSRect frame) : NSTextView(frame), layer_(nullptr) {
    const id storage = textStorage(), manager = layoutManager();
    auto layer = std::make_unique<velt::SourceLayer>(Ref<NSTextStorage>(velt::as<NSTextStorage>(storage)));
    layer_ = layer.get();
    velt::as<NSLayoutManager>(manager)->keepIn(std::move(layer));
    resetFields();
}

VLTextView::~VLTextView() = default;

void VLTextView::resetFields() {
    lineSeparators_ = velt::make<NSMutableArray>();
    breakpoints_ = velt::make<NSMutableArray>();
    keywords_ = velt::make<NSMutableArray>();
    builtins_ = velt::make<NSMutableArray>();
    types_ = velt::make<NSMutableArray>();
    filename_ = velt::string(u"");
    find_ = {};
    if (parts_) parts_->completion.stopTimer();
    parts_ = std::make_shared<Parts>(*this);
}

id VLTextView::initialized() {
    resetFields();
    return id(static_cast<NSObject*>(this));
}

void VLTextView::visitOwned(velt::OwnedVisitor& visitor) {
    for (id* field : {&lineSeparators_, &breakpoints_, &keywords_, &builtins_, &types_, &filename_, &action_, &target_,
                      &completionTimer_}) {
        visitor.visit(*field);
    }
    NSTextView::visitOwned(visitor);
}

void VLTextView::dissolve() {
    if (parts_) {
        parts_->completion.stopTimer();
        parts_->target.leave();
    }
    layer_ = nullptr;  // it ends with the layout manager
    NSTextView::dissolve();
}

const velt::SourceBuffer& VLTextView::buffer() const { return layer_->buffer(); }

void VLTextView::textNeeded() const {
    if (velt::ViewTarget* ahead = layer_ ? layer_->ahead() : nullptr) ahead->giveToView();
}

id VLTextView::undoManager() {
    textNeeded();
    return NSTextView::undoManager();
}

// Files.

bool VLTextView::load(const id& path) {
    const std::optional<std::string> bytes = velt::readFile(velt::utf8(VELT_CSTRING(path)));
    id content;
    if (bytes && velt::text::isAscii(*bytes)) {
        content = velt::string(std::string_view(*bytes));
    } else if (const auto text = bytes ? velt::text::fromUtf8(*bytes) : std::nullopt) {
        content = velt::string(*text);
    }
    if (content.isNil()) velt::raise(velt::kRuntimeException, "TextView.Load failed");
    velt::send(id(static_cast<NSObject*>(this)), VELT_SELECTOR("setString:"), content);
    setSelectedRange({0, 0});
    return true;
}

bool VLTextView::save(const id& path) const {
    return velt::writeFileAtomically(velt::utf8(VELT_CSTRING(path)), velt::text::toUtf8(text()));
}

// Places.

long VLTextView::line() const {
    return static_cast<long>(velt::currentLine(buffer(), parts_->target.selectedRange().location));
}

long VLTextView::position() const {
    return buffer().isEmpty() ? 0 : static_cast<long>(parts_->target.selectedRange().location);
}

/// What only selects and shows: whoever is told of it may set the view up anew.
template <class Command> auto VLTextView::look(Command&& command) {
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    return command(parts->target);
}

void VLTextView::goToLine(long line) {
    look([line](velt::EditTarget& target) { velt::goToLine(target, line); });
}

void VLTextView::toggleBreakpoint() {
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    const id list = breakpoints_;
    NSMutableArray* entries = mutableArrayOf(list);
    if (!entries || !velt::toggleBreakpoint(buffer(), parts->target.selectedRange().location, *entries)) return;
    parts->target.highlightAll();
    velt::SourceMargin::listsChanged(*this);
}

void VLTextView::moveEntriesFrom(std::size_t position, int by) {
    bool moved = false;
    for (const id& list : {lineSeparators_, breakpoints_}) {
        NSMutableArray* entries = mutableArrayOf(list);
        if (entries && velt::moveEntries(*entries, position, by)) moved = true;
    }
    if (moved) velt::SourceMargin::listsChanged(*this);
}

// Colours.

void VLTextView::performSyntaxHighlighting(const id& view, bool whole) {
    if (VLTextView* editor = velt::to<VLTextView>(view)) editor->highlight(whole);
}

void VLTextView::highlight(bool whole) {
    const velt::WordLists lists = wordLists();
    const NSArray* words = velt::arrayOf(lists.keywords);
    if (!words || words->count() == 0) return;
    velt::makeEditorState(lists);
    const id list = breakpoints_;
    const NSArray* entries = velt::arrayOf(list);
    const std::vector<std::int64_t> positions = entries ? velt::positionsIn(*entries) : std::vector<std::int64_t>();
    std::optional<NSRange> seen;
    if (!whole && velt::enclosingScrollView(*this)) seen = charactersIn(bounds());
    layer_->highlighter().highlight(lists, positions, seen);
    temporaryAttributesChanged();
}

// Formatting.

void VLTextView::turnOnAutoIndent() { parts_->formatter.turnOn(); }

bool VLTextView::formatsWhileTyping() const { return parts_->formatter.isOn(); }

long VLTextView::indentationLevel() const { return parts_->formatter.level(); }

void VLTextView::shouldChangeText(const id& change) {
    const Ref<VLTextView> self(this);
    const std::shared_ptr<Parts> parts = parts_;
    const NSArray* values = velt::to<NSArray>(change);
    if (!values || values->count() == 0) return;
    const auto position = static_cast<std::size_t>(std::max(0L, static_cast<long>(VELT_CBYTE(values->at(0)))));
    const id typed = values->count() > 1 ? values->at(1) : id();
    const std::u16string text(velt::isString(typed) ? velt::textOf(typed) : std::u16string_view());
    if (values->count() > 2) {
        parts->formatter.passedLine(position, text, VELT_CBYTE(values->at(2)));
    } else {
        parts->formatter.textTyped(position, text);
    }
}

void VLTextView::turnOffWrapping() {
    NSScrollView* around = velt::enclosingScrollView(*this);
    if (!around) return;
    around->setHasHorizontalScroller(true);
    const id space = textContainer();
    auto& container = *velt::as<NSTextContainer>(space);
    container.setContainerSize({kUnlimited, kUnlimited});
    container.setWidthTracksTextView(false);
    container.setHeightTracksTextView(false);
    setMaxSize({kUnlimited, kUnlimited});
    setHorizontallyResizable(true);
    setVerticallyResizable(true);
    wraps_ = false;
    changed();
}

// Commands.

/// One command is undone apart from what was done before and behind it.
template <class Command> auto VLTextView::run(Command&& command) {
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    struct Apart {
        explicit Apart(VLTextView& v) : view(v) { view.commandBegins(); }
        ~Apart() { view.typingBegins(); }
        VLTextView& view;
    } apart(*this);
    if constexpr (std::is_void_v<decltype(command(parts->target))>) {
        command(parts->target);
        commandBegins();
    } else {
        auto result = command(parts->target);
        commandBegins();
        return result;
    }
}

void VLTextView::autoFormat() {
    run([this](velt::EditTarget&) { parts_->formatter.formatText(); });
}
void VLTextView::shiftRight() { run(velt::shiftRight); }
void VLTextView::shiftLeft() { run(velt::shiftLeft); }
void VLTextView::comment() { run(velt::comment); }
void VLTextView::uncomment() { run(velt::uncomment); }
void VLTextView::lowercase() { run(velt::lowercase); }
void VLTextView::uppercase() { run(velt::uppercase); }

id VLTextView::selectedText() const { return velt::string(velt::selectedText(parts_->target)); }

id VLTextView::findNext(const id& needle) {
    const id sought = VELT_CSTRING(needle);
    return look([&](velt::EditTarget& target) { return boxed(velt::findNext(target, velt::textOf(sought), find_)); });
}

id VLTextView::findPrevious(const id& needle) {
    const id sought = VELT_CSTRING(needle);
    return look(
        [&](velt::EditTarget& target) { return boxed(velt::findPrevious(target, velt::textOf(sought), find_)); });
}

bool VLTextView::replaceSelection(const id& with) {
    const id content = VELT_CSTRING(with);
    return run([&](velt::EditTarget& target) { return velt::replaceSelection(target, velt::textOf(content)); });
}

id VLTextView::replaceAndFind(const id& needle, const id& with) {
    const id sought = VELT_CSTRING(needle), content = VELT_CSTRING(with);
    return run([&](velt::EditTarget& target) {
        return boxed(velt::replaceAndFind(target, velt::textOf(sought), velt::textOf(content), find_));
    });
}

long VLTextView::replaceAll(const id& needle, const id& with) {
    const id sought = VELT_CSTRING(needle), content = VELT_CSTRING(with);
    return run([&](velt::EditTarget& target) {
        return static_cast<long>(velt::replaceAll(target, velt::textOf(sought), velt::textOf(content), find_));
    });
}

// Keys.

void VLTextView::insertTab(const id&) {
    if (!isEditable()) return;
    const Ref<VLTextView> kept(this);
    const std::shared_ptr<Parts> parts = parts_;
    velt::insertTab(parts->target);
}

void VLTextView::insertNewline(const id& sender) {
    // What a line end does to its line is undone with it.
    if (formatsWhileTyping()) typingBegins();
    NSTextView::insertNewline(sender);
}

void VLTextView::keyDown(const id& event) {
    const Ref<VLTextView> kept(this);
    const id characters = velt::is<NSEvent>(event) ? velt::as<NSEvent>(event)->characters() : id();
    if (velt::isString(characters)) {
        for (const char16_t unit : velt::textOf(characters)) {
            if (unit == kEscape) parts_->completion.requestAll();
        }
    }
    NSTextView::keyDown(event);
}

void VLTextView::keyUp(const id& event) {
    const Ref<VLTextView> kept(this);
    if (releasesBackspace(event)) {
        bool moved = false;
        const std::size_t caret = parts_->target.selectedRange().location;
        for (const id& list : {lineSeparators_, breakpoints_}) {
            NSMutableArray* entries = mutableArrayOf(list);
            if (entries && velt::backspaceReleased(buffer(), caret, *entries)) moved = true;
        }
        if (moved) velt::SourceMargin::listsChanged(*this);
    }
    NSTextView::keyUp(event);
}

void VLTextView::describe(velt::ClassBuilder<VLTextView>& c) {
    describeCompletion(c);
    describeMargin(c);
    describePrinting(c);
    c.method("init", &VLTextView::initialized)
        .method("initWithFrame:",
                [](const id& self, const id* a) {
                    velt::as<VLTextView>(self)->setFrame(VELT_CNSRECT(a[0]));
                    return velt::as<VLTextView>(self)->initialized();
                })
        .method("_myinit", &VLTextView::resetFields)
        .method("_load:", &VLTextView::load)
        .method("_save:", &VLTextView::save)
        .property("filename", &VLTextView::filename, &VLTextView::setFilename)
        .property("lineSeparators", &VLTextView::lineSeparators, &VLTextView::setLineSeparators)
        .property("breakpoints", &VLTextView::breakpoints, &VLTextView::setBreakpoints)
        .property("keywords", &VLTextView::keywordList, &VLTextView::setKeywordList)
        .property("builtins", &VLTextView::builtinList, &VLTextView::setBuiltinList)
        .property("types", &VLTextView::typeList, &VLTextView::setTypeList)
        .property("findOptionIgnoreCase", &VLTextView::findOptionIgnoreCase, &VLTextView::setFindOptionIgnoreCase)
        .property("findOptionSelectedTextOnly", &VLTextView::findOptionSelectedTextOnly,
                  &VLTextView::setFindOptionSelectedTextOnly)
        .property("findOptionWholeWordsOnly", &VLTextView::findOptionWholeWordsOnly,
                  &VLTextView::setFindOptionWholeWordsOnly)
        .property("action", &VLTextView::action, &VLTextView::setAction)
        .property("target", &VLTextView::target, &VLTextView::setTarget)
        .property("bAutoIndent", &VLTextView::formatsWhileTyping)
        .property("nIndent", &VLTextView::indentationLevel)
        .method("autoresizingMask", &VLTextView::shownAutoresizingMask)
        .method("turnOnAutoIndent", &VLTextView::turnOnAutoIndent)
        .method("turnOffWrapping", &VLTextView::turnOffWrapping)
        .method("toggleBreakpoint", &VLTextView::toggleBreakpoint)
        .method("performSyntaxHighlighting::", &VLTextView::performSyntaxHighlighting)
        .method("_ShouldChangeText:", static_cast<void (VLTextView::*)(const id&)>(&VLTextView::shouldChangeText))
        .method("_autoFormat", &VLTextView::autoFormat)
        .method("_shiftRight", &VLTextView::shiftRight)
        .method("_shiftLeft", &VLTextView::shiftLeft)
        .method("_comment", &VLTextView::comment)
        .method("_uncomment", &VLTextView::uncomment)
        .method("_lowercase", &VLTextView::lowercase)
        .method("_uppercase", &VLTextView::uppercase)
        .method("_selectedText", &VLTextView::selectedText)
        .method("_line", &VLTextView::line)
        .method("_position", &VLTextView::position)
        .method("_goToLine:", &VLTextView::goToLine)
        .method("_findNext:", &VLTextView::findNext)
        .method("_findPrevious:", &VLTextView::findPrevious)
        .method("_replaceSelection:", &VLTextView::replaceSelection)
        .method("_replace:andFind:", &VLTextView::replaceAndFind)
        .method("_replaceAll:with:", &VLTextView::replaceAll)
        .method("restoreEdits:", [](const id& self, const id* a) {
            const Ref<VLTextView> kept(velt::as<VLTextView>(self));
            const std::shared_ptr<Parts> parts = kept->parts_;
            if (velt::is<velt::SourceEdits>(a[0])) parts->target.takeBack(velt::as<velt::SourceEdits>(a[0])->edits);
            return id();
        });
}
