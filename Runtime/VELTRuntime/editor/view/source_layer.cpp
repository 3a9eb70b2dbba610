#include "VELTRuntime/editor/view/source_layer.h"

#include "VELTRuntime/editor/view/editor_state.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"

#include <limits>

namespace velt {

namespace {

constexpr std::size_t kOwnInks = static_cast<std::size_t>(Ink::Breakpoint) + 1;

id orNil(const id& attributes) {
    const auto* dictionary = to<NSDictionary>(attributes);
    return dictionary && dictionary->count() > 0 ? attributes : id();
}

}  // namespace

const id& SourceLayer::attributesOf(Ink ink) const {
    const auto number = static_cast<std::size_t>(ink);
    return number < kOwnInks ? attributesOfInk(ink) : laid_[number - kOwnInks];
}

Ink SourceLayer::inkFor(const id& attributes) {
    if (attributes.isNil()) return Ink::None;
    for (std::size_t i = 1; i < kOwnInks + laid_.size(); ++i) {
        if (isEqual(attributesOf(static_cast<Ink>(i)), attributes)) return static_cast<Ink>(i);
    }
    if (kOwnInks + laid_.size() > std::numeric_limits<std::uint16_t>::max()) {
        raise(kInvalidArgumentException, "a text has too many different temporary attributes");
    }
    laid_.push_back(as<NSDictionary>(attributes)->copy());
    return static_cast<Ink>(kOwnInks + laid_.size() - 1);
}

id SourceLayer::at(std::size_t position, NSRange& range) const {
    const DisplayAttributes::Inks inks = inks_.at(position, &range);
    const id &front = attributesOf(inks.foreground), &back = attributesOf(inks.background);
    if (back.isNil()) return front;
    return front.isNil() ? back : mergedAttributes(front, back);
}

void SourceLayer::change(NSRange range, const std::function<id(const id&)>& changed) {
    struct Run {
        NSRange range;
        DisplayAttributes::Inks inks;
    };
    std::vector<Run> runs;
    const std::size_t end = endOf(range);
    NSRange run;
    for (std::size_t at = range.location; at < end; at = endOf(run)) {
        const id attributes = orNil(changed(this->at(at, run)));
        Run made{rangeBetween(at, std::min(end, endOf(run))), {}};
        if (!attributes.isNil()) {
            const id& name = attribute::backgroundColor();
            const id background = as<NSDictionary>(attributes)->objectForKey(name);
            made.inks.foreground = inkFor(orNil(attributesWithout(attributes, name)));
            if (!background.isNil()) {
                id entry[] = {name, background};
                made.inks.background = inkFor(make<NSDictionary>(MovedValues{entry}));
            }
        }
        runs.push_back(made);
    }
    for (const Run& each : runs) inks_.set(each.range, each.inks);
}

void SourceLayer::textChanged(NSRange range, std::size_t newLength) {
    if (storage_ && !isAhead_) buffer_.replace(range, storage_->view().substr(range.location, newLength));
}

void SourceLayer::visitOwned(OwnedVisitor& visitor) {
    visitor.visit(storage_);
    for (id& attributes : laid_) visitor.visit(attributes);
}

}  // namespace velt
