#include "VELTRuntime/platform/appkit/text/layout_manager.h"

#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/exception.h"

namespace {

/// The attributes of every unit, in runs.
class RunLayer final : public velt::TemporaryLayer {
public:
    std::size_t length() const override { return runs_.length(); }
    id at(std::size_t position, NSRange& range) const override { return runs_.at(position, &range).attributes; }
    void change(NSRange range, const std::function<id(const id&)>& changed) override { runs_.change(range, changed); }
    void textChanged(NSRange range, std::size_t newLength) override { runs_.replace(range, newLength, nil); }
    void visitOwned(velt::OwnedVisitor& visitor) override {
        for (velt::RunList::Run& run : runs_.runs()) {
            if (run.attributes.isObject()) visitor.visit(run.attributes);
        }
    }

private:
    velt::RunList runs_;
};

}  // namespace

id NSTextContainer::textView() const { return id(static_cast<NSObject*>(view_)); }

void NSTextContainer::setContainerSize(NSSize size) {
    size_ = size;
    if (view_) view_->layoutChanged();
}

void NSTextContainer::setWidthTracksTextView(bool flag) {
    tracksWidth_ = flag;
    if (view_) view_->layoutChanged();
}

void NSTextContainer::describe(velt::ClassBuilder<NSTextContainer>& c) {
    c.property("containerSize", &NSTextContainer::containerSize, &NSTextContainer::setContainerSize)
        .property("widthTracksTextView", &NSTextContainer::widthTracksTextView,
                  &NSTextContainer::setWidthTracksTextView)
        .property("heightTracksTextView", &NSTextContainer::heightTracksTextView,
                  &NSTextContainer::setHeightTracksTextView)
        .property("textView", &NSTextContainer::textView);
}

NSLayoutManager::NSLayoutManager(NSTextView* view) : view_(view), layer_(std::make_unique<RunLayer>()) {}

void NSLayoutManager::change(const char* operation, NSRange range, const std::function<id(const id&)>& changed) {
    velt::requireRange(*this, operation, range, layer_->length());
    layer_->change(range, changed);
    if (view_) view_->temporaryAttributesChanged();
}

void NSLayoutManager::setTemporaryAttributes(const id& attributes, NSRange range) {
    const NSDictionary* given = velt::to<NSDictionary>(attributes);
    id kept = given && given->count() > 0 ? given->copy() : id();
    change("setTemporaryAttributes:forCharacterRange:", range, [&](const id&) { return kept; });
}

void NSLayoutManager::addTemporaryAttributes(const id& attributes, NSRange range) {
    velt::to<NSDictionary>(attributes);
    change("addTemporaryAttributes:forCharacterRange:", range,
           [&](const id& old) { return velt::mergedAttributes(old, attributes); });
}

void NSLayoutManager::removeTemporaryAttribute(const id& name, NSRange range) {
    change("removeTemporaryAttribute:forCharacterRange:", range,
           [&](const id& old) { return velt::attributesWithout(old, name); });
}

id NSLayoutManager::temporaryAttributesAt(long position, NSRange* range) const {
    if (static_cast<std::size_t>(position) >= layer_->length()) {
        velt::raiseRange("'NSLayoutManager' temporaryAttributesAtCharacterIndex:effectiveRange:", position,
                         layer_->length());
    }
    NSRange same;
    id attributes = layer_->at(static_cast<std::size_t>(position), same);
    if (range) *range = same;
    return attributes;
}

NSRange NSLayoutManager::glyphRangeForBoundingRect(NSRect rect, const id&) const {
    return view_ ? view_->charactersIn(rect) : NSRange{0, layer_->length()};
}

void NSLayoutManager::textChanged(NSRange range, std::size_t newLength) { layer_->textChanged(range, newLength); }

void NSLayoutManager::visitOwned(velt::OwnedVisitor& visitor) {
    layer_->visitOwned(visitor);
    NSObject::visitOwned(visitor);
}

void NSLayoutManager::describe(velt::ClassBuilder<NSLayoutManager>& c) {
    c.method("setTemporaryAttributes:forCharacterRange:", &NSLayoutManager::setTemporaryAttributes)
        .method("addTemporaryAttributes:forCharacterRange:", &NSLayoutManager::addTemporaryAttributes)
        .method("removeTemporaryAttribute:forCharacterRange:", &NSLayoutManager::removeTemporaryAttribute)
        .method("temporaryAttributesAtCharacterIndex:effectiveRange:",
                [](const id& self, const id* a) {
                    NSRange range;
                    id attributes = velt::as<NSLayoutManager>(self)->temporaryAttributesAt(VELT_CINTEGER(a[0]), &range);
                    velt::storeRange(a[1], range);
                    return attributes;
                })
        .method("glyphRangeForBoundingRect:inTextContainer:", &NSLayoutManager::glyphRangeForBoundingRect);
}
