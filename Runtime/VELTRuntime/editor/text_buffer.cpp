#include "VELTRuntime/editor/text_buffer.h"

#include "VELTRuntime/platform/object/exception.h"

#include <limits>

namespace velt {

namespace {

constexpr std::size_t kLongest = std::numeric_limits<std::uint32_t>::max();

}  // namespace

SourceBuffer::SourceBuffer(std::u16string_view text) {
    if (!text.empty()) replace({}, text);
    version_ = 0;
}

std::u16string SourceBuffer::substring(NSRange range) const {
    assert(endOf(range) <= length());
    const std::size_t before = std::min(std::max(range.location, gap_), endOf(range)) - range.location;
    std::u16string result;
    result.reserve(range.length);
    result.append(units_.get() + range.location, before);
    result.append(units_.get() + range.location + before + gapLength_, range.length - before);
    return result;
}

std::u16string_view SourceBuffer::view(NSRange range) const {
    assert(endOf(range) <= length());
    if (range.location < gap_ && gap_ < endOf(range)) {
        moveGap(gap_ - range.location < endOf(range) - gap_ ? range.location : endOf(range));
    }
    return {units_.get() + (range.location < gap_ ? range.location : range.location + gapLength_), range.length};
}

std::array<std::u16string_view, 2> SourceBuffer::pieces() const {
    return {std::u16string_view{units_.get(), gap_},
            std::u16string_view{units_.get() + gap_ + gapLength_, length() - gap_}};
}

void SourceBuffer::moveGap(std::size_t to) const {
    char16_t* units = units_.get();
    if (to < gap_) {
        std::char_traits<char16_t>::move(units + to + gapLength_, units + to, gap_ - to);
    } else {
        std::char_traits<char16_t>::move(units + gap_, units + gap_ + gapLength_, to - gap_);
    }
    gap_ = to;
}

void SourceBuffer::reserveGap(std::size_t wanted) {
    if (wanted <= gapLength_) return;
    constexpr std::size_t kSmallest = 256;
    const std::size_t newLength = length() + wanted;
    const std::size_t newCapacity = newLength + newLength / 8 + kSmallest;
    auto grown = std::make_unique_for_overwrite<char16_t[]>(newCapacity);
    const auto [before, behind] = pieces();
    before.copy(grown.get(), before.size());
    behind.copy(grown.get() + newCapacity - behind.size(), behind.size());
    gapLength_ += newCapacity - capacity_;
    capacity_ = newCapacity;
    units_ = std::move(grown);
}

void SourceBuffer::replace(NSRange range, std::u16string_view with) {
    assert(endOf(range) <= length());
    const std::size_t newLength = length() - range.length + with.size();
    if (newLength > kLongest) {
        raiseRange("the editor's text: replace", static_cast<long long>(newLength), kLongest + 1);
    }
    moveGap(range.location);
    if (with.size() > range.length) reserveGap(with.size() - range.length);
    gapLength_ += range.length;
    with.copy(units_.get() + gap_, with.size());
    gap_ += with.size();
    gapLength_ -= with.size();

    const std::size_t behind = range.location + with.size();
    lines_.replace(range.location, range.length, with, range.location > 0 ? at(range.location - 1) : u'\0',
                   behind < newLength ? at(behind) : u'\0');
    ++version_;
    const std::vector<SourceListener*> listeners = listeners_;
    for (SourceListener* listener : listeners) listener->textChanged(range, with.size());
}

NSRange SourceBuffer::line(std::size_t index) const {
    assert(index < lineCount());
    return rangeBetween(lines_.start(index), lines_.end(index));
}

NSRange SourceBuffer::lineRange(NSRange range) const {
    assert(endOf(range) <= length());
    const std::size_t last = range.length > 0 ? endOf(range) - 1 : range.location;
    return rangeBetween(lineStart(lineAt(range.location)), endOf(lineRangeAt(last)));
}

std::optional<std::size_t> SourceBuffer::find(char16_t unit, NSRange within) const {
    assert(endOf(within) <= length());
    std::size_t begin = 0;
    for (const std::u16string_view piece : pieces()) {
        const std::size_t from = std::clamp(within.location, begin, begin + piece.size()) - begin;
        const std::size_t to = std::clamp(endOf(within), begin, begin + piece.size()) - begin;
        if (const auto at = piece.substr(0, to).find(unit, from); at != piece.npos) return begin + at;
        begin += piece.size();
    }
    return std::nullopt;
}

std::optional<std::size_t> SourceBuffer::findLast(char16_t unit, NSRange within) const {
    assert(endOf(within) <= length());
    for (std::size_t at = endOf(within); at-- > within.location;) {
        if (this->at(at) == unit) return at;
    }
    return std::nullopt;
}

}  // namespace velt
