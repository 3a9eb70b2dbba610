#include "VELTRuntime/editor/string_pairs.h"

#include "VELTRuntime/editor/source_syntax.h"

namespace velt {

StringPairs::StringPairs(SourceBuffer& buffer) : buffer_(buffer) {
    textChanged({}, buffer.length());
    buffer.addListener(*this);
}

void StringPairs::textChanged(NSRange replaced, std::size_t inserted) {
    const std::size_t first = quotes_.firstFrom(replaced.location), last = quotes_.firstFrom(endOf(replaced));
    std::vector<Quote> added;
    const std::u16string_view text = buffer_.view({replaced.location, inserted});
    for (std::size_t at = text.find(kQuote); at != text.npos; at = text.find(kQuote, at + 1)) {
        added.push_back({static_cast<std::uint32_t>(replaced.location + at), Role::Opens});
    }
    if (last > first) quotes_.replace(first, last - first, {});
    quotes_.resize(first, static_cast<std::uint32_t>(buffer_.length()));
    if (!added.empty()) quotes_.replace(first, 0, added);
    stale_.textChanged(replaced, inserted);
}

bool StringPairs::isEscaped(std::size_t position) const {
    return position >= 3 && buffer_.at(position - 1) == u'\\' && buffer_.at(position - 2) != u'\\';
}

std::optional<NSRange> StringPairs::update() {
    if (!stale_.range()) return std::nullopt;
    NSRange changed = *stale_.range();
    stale_.clear();
    // Whether a quote is escaped depends on the two units before it.
    const std::size_t decided = endOf(changed) + 2;
    std::size_t i = quotes_.firstFrom(changed.location);
    bool inside = i > 0 && quotes_[i - 1].role != Role::Closes;
    for (; i < quotes_.size(); ++i) {
        const auto [position, was] = quotes_[i];
        const Role role = !inside ? Role::Opens : isEscaped(position) ? Role::Escaped : Role::Closes;
        if (role == was) {
            if (position >= decided) break;
        } else {
            quotes_.change(i, [role](Quote& quote) { quote.role = role; });
            changed = rangeBetween(changed.location, std::max<std::size_t>(endOf(changed), position + 1));
        }
        inside = role != Role::Closes;
    }
    return changed;
}

}  // namespace velt
