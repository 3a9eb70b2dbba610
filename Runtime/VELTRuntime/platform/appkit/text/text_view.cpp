#include "VELTRuntime/platform/appkit/text/text_view.h"

#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/merged_ranges.h"
#include "VELTRuntime/platform/appkit/text/moved_range.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QPalette>
#include <climits>

using velt::Ref;
using velt::TextWidget;

namespace {

constexpr NSRange kNoRange{LONG_MAX, 0};
constexpr double kUnlimitedWidth = 1e6;  // lines of containers wider than this do not break

}  // namespace

NSTextView::NSTextView(NSRect frame)
    : NSText(frame), storage_(velt::make<NSTextStorage>()), layoutManager_(velt::make<NSLayoutManager>(this)),
      container_(velt::make<NSTextContainer>(this)) {
    storage_->addWatcher(*this);
}

NSTextView::~NSTextView() { NSTextView::dissolve(); }

void NSTextView::dissolve() {
    if (storage_) storage_->removeWatcher(*this);
    if (layoutManager_) layoutManager_->forgetView();
    if (container_) container_->forgetView();
    NSText::dissolve();
}

void NSTextView::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(storage_);
    visitor.visit(layoutManager_);
    visitor.visit(container_);
    visitor.visit(undoManager_);
    NSText::visitOwned(visitor);
}

// The text.

id NSTextView::string() const { return storage()->string(); }

void NSTextView::setString(const id& text) {
    const id content = VELT_CSTRING(text);
    forgetUndo();
    storage()->setAttributedString(*velt::make<NSAttributedString>(velt::textOf(content)));
}

void NSTextView::requireRange(const char* operation, NSRange range) const {
    velt::requireRange(*this, operation, range, textLength());
}

void NSTextView::replaceCharacters(NSRange range, const id& text) {
    requireRange("replaceCharactersInRange:withString:", range);
    const id content = VELT_CSTRING(text);
    const std::u16string_view units = velt::textOf(content);
    replaceCharactersWithAttributed(range,
                                    *velt::make<NSAttributedString>(units, storage()->attributesForReplacing(range)));
}

void NSTextView::replaceCharactersWithAttributed(NSRange range, const NSAttributedString& text) {
    requireRange("replaceCharactersInRange:withAttributedString:", range);
    const Ref<NSTextView> kept(this);
    registerUndo(range, text.length());
    const velt::Setting editing(editing_, true);
    storage()->replaceCharacters(range, text);
}

void NSTextView::storageChanged(NSRange range, std::size_t newLength, bool textChanged) {
    const Ref<NSTextView> kept(this);
    TextWidget* widget = existingTextWidget();
    if (!textChanged) {
        if (widget) widget->attributesChanged(range);
        return;
    }
    // What a program changes in the storage cannot be undone; what was done before it neither, unless it was appended.
    const bool appended = range.length == 0 && range.location + newLength == storage_->length();
    if (!editing_ && !appended) forgetUndo();
    if (!editing_) last_ = {};
    layoutManager_->textChanged(range, newLength);
    if (widget) widget->textChanged(range, newLength);
    if (isSelectionAhead_) return;
    std::vector<NSRange> moved;
    for (const NSRange& selected : ranges_) moved.push_back(velt::movedBy(selected, range, newLength));
    // A selection that only goes along with what the program does to the text scrolls nothing.
    const velt::PlaceKeeper keeper(editing_ ? nullptr : widget);
    select(std::move(moved), forward_);
}

// The selection.

NSRange NSTextView::selectedRange() const { return isSelectable() ? ranges_.front() : kNoRange; }

void NSTextView::setSelectedRange(NSRange range) {
    requireRange("setSelectedRange:", range);
    last_ = {};
    select({range}, true);
}

id NSTextView::selectedRanges() const {
    Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const NSRange& range : ranges_) list->append(VELT_ID(range));
    return list;
}

void NSTextView::setSelectedRanges(const id& list) {
    const auto* values = velt::to<NSArray>(list);
    if (!values || values->count() == 0) {
        velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' setSelectedRanges:: there are no ranges");
    }
    std::vector<NSRange> ranges;
    for (const id& value : values->items()) {
        ranges.push_back(VELT_CNSRANGE(value));
        requireRange("setSelectedRanges:", ranges.back());
    }
    last_ = {};
    select(std::move(ranges), true);
}

void NSTextView::select(std::vector<NSRange> ranges, bool forward) {
    forward_ = forward;
    ranges = velt::mergedRanges(std::move(ranges));
    const bool same = ranges == ranges_;
    ranges_ = std::move(ranges);
    showSelection();
    if (!same) tell("textViewDidChangeSelection:", "NSTextViewDidChangeSelectionNotification");
}

void NSTextView::selectAhead(std::vector<NSRange> ranges) {
    last_ = {};
    ranges = velt::mergedRanges(std::move(ranges));
    if (ranges == ranges_) return;
    ranges_ = std::move(ranges);
    tell("textViewDidChangeSelection:", "NSTextViewDidChangeSelectionNotification");
}

void NSTextView::moveSelectionAhead(NSRange range, std::size_t newLength) {
    std::vector<NSRange> moved;
    for (const NSRange& selected : ranges_) moved.push_back(velt::movedBy(selected, range, newLength));
    selectAhead(std::move(moved));
}

void NSTextView::catchUp(NSRange range, const NSAttributedString& text) {
    {
        const velt::Setting ahead(isSelectionAhead_, true), editing(editing_, true);
        storage_->replaceCharacters(range, text);
    }
    showSelection();
}

void NSTextView::showSelection() {
    TextWidget* widget = existingTextWidget();
    if (!widget) return;
    const NSRange main = ranges_.front();
    const std::size_t begin = main.location, end = main.location + main.length;
    widget->select(forward_ ? begin : end, forward_ ? end : begin, {ranges_.begin() + 1, ranges_.end()});
}

void NSTextView::selectedByWidget(std::size_t anchor, std::size_t position) {
    const NSRange range{std::min(anchor, position), anchor < position ? position - anchor : anchor - position};
    const bool same = ranges_.size() == 1 && ranges_.front() == range;
    forward_ = position >= anchor;
    if (same) return;
    const bool hadMore = ranges_.size() > 1;
    ranges_ = {range};
    last_ = {};
    if (hadMore) showSelection();
    tell("textViewDidChangeSelection:", "NSTextViewDidChangeSelectionNotification");
}

void NSTextView::scrollRangeToVisible(NSRange range) {
    requireRange("scrollRangeToVisible:", range);
    TextWidget* widget = existingTextWidget();
    if (!widget) return;
    widget->reveal(range.location);
    if (range.length > 0) widget->reveal(range.location + range.length);
}

NSRange NSTextView::charactersIn(NSRect rect) const {
    TextWidget* widget = existingTextWidget();
    if (!widget || !widget->isVisible()) return {0, textLength()};
    return widget->charactersIn({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

// Looks.

id NSTextView::font() const { return velt::is<NSFont>(font_) ? font_ : id(velt::make<NSFont>()); }

void NSTextView::setFont(const id& font) {
    font_ = velt::boxResult(velt::to<NSFont>(font));
    if (textLength() > 0) storage()->removeAttribute(velt::attribute::font(), {0, storage()->length()});
    changed();
}

void NSTextView::setTextColor(const id& color) {
    textColor_ = velt::boxResult(velt::to<NSColor>(color));
    if (textLength() > 0) storage()->removeAttribute(velt::attribute::foregroundColor(), {0, storage()->length()});
    changed();
}

void NSTextView::setRichText(bool flag) {
    if (!flag && textLength() > 0) storage()->setAttributes(nil, {0, storage()->length()});
    NSText::setRichText(flag);
}

void NSTextView::temporaryAttributesChanged() {
    if (TextWidget* widget = existingTextWidget()) widget->temporaryAttributesChanged();
}

// The widget.

TextWidget* NSTextView::existingTextWidget() const {
    textNeeded();
    return static_cast<TextWidget*>(existingWidget());
}

std::unique_ptr<QWidget> NSTextView::makeWidget() { return std::make_unique<TextWidget>(); }

void NSTextView::syncWidget(QWidget& shown) {
    NSText::syncWidget(shown);
    auto& widget = static_cast<TextWidget&>(shown);
    widget.fill();
    widget.setReadOnly(!isEditable());
    widget.setSelectable(isSelectable());
    const id usual = font();
    widget.setScale(shownScale());
    widget.setFont(widget.scaled(velt::as<NSFont>(usual)->font()));
    QPalette palette;
    if (velt::is<NSColor>(textColor_)) {
        palette.setColor(QPalette::Text, velt::qtColor(*velt::as<NSColor>(textColor_)));
    }
    if (velt::is<NSColor>(backgroundColor())) {
        palette.setColor(QPalette::Base, velt::qtColor(*velt::as<NSColor>(backgroundColor())));
    }
    if (!drawsBackground()) palette.setColor(QPalette::Base, Qt::transparent);
    widget.setPalette(palette);
    widget.viewport()->setAutoFillBackground(drawsBackground());

    widget.setAlignment(velt::qtAlignment(alignment()));
    widget.setBreaksLines(container_->widthTracksTextView() || container_->containerSize().width < kUnlimitedWidth);

    // Within a scroll view this view scrolls in its place, with the bars that the scroll view wants.
    const id outer = velt::is<NSView>(superview()) ? velt::as<NSView>(superview())->superview() : id();
    const auto wants = [&](velt::Selector selector) {
        if (!velt::respondsTo(outer, selector)) return true;
        return static_cast<bool>(VELT_CBOOL(velt::send(outer, selector)));
    };
    const auto policy = [](bool wanted) { return wanted ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff; };
    widget.setVerticalScrollBarPolicy(policy(wants(velt::Selector::named("hasVerticalScroller"))));
    widget.setHorizontalScrollBarPolicy(policy(wants(velt::Selector::named("hasHorizontalScroller"))));
    showSelection();
}

void NSTextView::moveToWindow(NSWindow* window) {
    NSText::moveToWindow(window);
    fillScrollView();
}

void NSTextView::fillScrollView() {
    NSView* outer = superviewPointer();
    const velt::Class* clip = velt::Class::named("NSClipView");
    if (!outer || !clip || !outer->isa().isKindOf(*clip)) return;
    setAutoresizingMask(velt::kWidthSizable | velt::kHeightSizable);
    setFrame(outer->bounds());
}

void NSTextView::keyboardComes() { begun_ = false; }

void NSTextView::keyboardGoes() {
    last_ = {};
    if (std::exchange(begun_, false)) tell("textDidEndEditing:", "NSTextDidEndEditingNotification");
}
