#include "VELTRuntime/values/text/character_finder.h"

#include "VELTRuntime/values/text/utf.h"

#include <algorithm>

namespace velt::text {

namespace {

constexpr std::size_t kFirstPiece = 128, kLargestPiece = 16384;
constexpr std::size_t kFirstWindow = 64, kLargestWindow = 32768;
constexpr char16_t kIota = 0x3B9;  // what the combining iota subscript folds to

}  // namespace

CharacterFinder::CharacterFinder(std::u16string_view haystack, std::u16string_view needle, Case respect)
    : haystack_(haystack), needle_(needle), respect_(respect), forms_(unitForms(respect)),
      represented_(needle.size(), u'\0'), isRepresented_(forms_.mapUnits(needle, represented_.data()) == needle.size()),
      pieceFinder_(represented_), pieceSize_(kFirstPiece), windowSize_(kFirstWindow), formFinder_(form_),
      window_(haystack, respect) {}

std::optional<Match> CharacterFinder::next(std::size_t from) {
    while (from < haystack_.size()) {
        if (isRepresented_ && !window_.covers(from)) {
            if (!pieceCovers(from)) {
                loadPiece(from, pieceSize_);
                pieceSize_ = std::min(2 * pieceSize_, kLargestPiece);
            }
            if (base_ > 0) {
                const std::size_t at = pieceFinder_.find(piece_, from - pieceBegin_);
                if (at < base_) return Match{pieceBegin_ + at, needle_.size()};
                from = pieceBegin_ + base_;
                continue;
            }
        }
        // A text with many characters that have no representative is not worth the tries.
        if (!window_.covers(from)) {
            loadWindow(from, from + piece_.size() + windowSize_);
            windowSize_ = piece_.size() > windowSize_ ? kFirstWindow : std::min(2 * windowSize_, kLargestWindow);
        }
        if (const auto match = nextInWindow(from)) return match;
        from = window_.baseEnd();
    }
    return std::nullopt;
}

std::optional<Match> CharacterFinder::last() {
    std::size_t end = haystack_.size();
    std::size_t size = kFirstPiece;
    while (end > 0) {
        std::size_t begin = end > size ? end - size : 0;
        while (begin > 0 && !isCharacterStart(begin)) --begin;
        if (isRepresented_) loadPiece(begin, end - begin);
        const bool decided = isRepresented_ && base_ >= end - begin;
        if (const auto match = decided ? lastInPiece(begin, end) : lastInWindow(begin, end)) return match;
        end = begin;
        size = std::min(2 * size, kLargestPiece);
    }
    return std::nullopt;
}

std::optional<Match> CharacterFinder::lastInPiece(std::size_t begin, std::size_t end) {
    const std::size_t ends = std::min(piece_.size(), end - begin + needle_.size() - 1);
    const std::size_t at = pieceFinder_.findLast(piece_, ends);
    if (at == kNotFound) return std::nullopt;
    return Match{begin + at, needle_.size()};
}

std::optional<Match> CharacterFinder::lastInWindow(std::size_t begin, std::size_t end) {
    loadWindow(begin, end);
    std::optional<Match> found;
    while (window_.covers(begin)) {
        const auto match = nextInWindow(begin);
        if (!match) break;
        found = match;
        begin = match->position + codePointAt(haystack_, match->position).length;
    }
    return found;
}

/// Represents the text from a position on, as far as that goes, and says which places it decides: those from where a
/// match would end before something that has no representative, and so might combine with it.
void CharacterFinder::loadPiece(std::size_t begin, std::size_t size) {
    const std::size_t length = std::min(haystack_.size() - begin, size + needle_.size());
    piece_.resize(length);
    const std::size_t mapped = forms_.mapUnits(haystack_.substr(begin, length), piece_.data());
    piece_.resize(mapped);
    pieceBegin_ = begin;
    if (mapped == length && begin + length == haystack_.size()) {
        base_ = length;
    } else {
        base_ = mapped > needle_.size() ? mapped - needle_.size() : 0;
        if (base_ > 0 && isLowSurrogate(haystack_[begin + base_])) --base_;
    }
    pieceFinder_.changeText();
}

void CharacterFinder::loadWindow(std::size_t begin, std::size_t wantedEnd) {
    if (form_.empty()) prepareForm();
    window_.build(begin, wantedEnd, form_.size());
    formFinder_.changeText();
}

void CharacterFinder::prepareForm() {
    form_ = comparisonForm(needle_, respect_);
    formFinder_ = LiteralFinder(form_);
    beginsWithin_ = !beginsCharacter(codePointAt(form_, 0).value) || (respect_ == Case::Ignored && form_[0] == kIota);
}

bool CharacterFinder::isCharacterStart(std::size_t at) const {
    const bool splitsPair = isLowSurrogate(haystack_[at]) && isHighSurrogate(haystack_[at - 1]);
    return !splitsPair && beginsCharacter(codePointAt(haystack_, at).value);
}

/// The first match at or after `from` that begins in the window's base.
std::optional<Match> CharacterFinder::nextInWindow(std::size_t from) {
    std::size_t cluster = window_.clusterAt(from);
    std::optional<Match> within;
    if (window_.clusterBegin(cluster) != from) {
        // Within a character: what is left of it is a text of its own.
        if (const auto match = matchFrom(from, cluster)) return match;
        if (beginsWithin_) within = matchWithin(cluster, from);
        if (within) return within;
        ++cluster;
    }
    if (beginsWithin_) {
        for (std::size_t c = cluster; !within && c < window_.baseClusters(); ++c) {
            within = matchWithin(c, window_.clusterBegin(c));
        }
    }
    const auto whole = matchOfClusters(cluster);
    if (!whole || (within && within->position < whole->position)) return within;
    return whole;
}

/// The first match of whole clusters, from a cluster on.
std::optional<Match> CharacterFinder::matchOfClusters(std::size_t cluster) {
    if (cluster >= window_.baseClusters()) return std::nullopt;
    std::size_t from = window_.formBegin(cluster);
    for (;;) {
        const std::size_t at = formFinder_.find(window_.form(), from);
        if (at == kNotFound) return std::nullopt;
        const auto begin = window_.clusterOfForm(at);
        if (begin && *begin >= window_.baseClusters()) return std::nullopt;
        const auto end = window_.clusterOfForm(at + form_.size());
        if (begin && end) {
            const std::size_t position = window_.clusterBegin(*begin);
            return Match{position, window_.clusterBegin(*end) - position};
        }
        from = at + 1;
    }
}

/// A match that begins at a code point within a cluster, behind its begin.
std::optional<Match> CharacterFinder::matchWithin(std::size_t cluster, std::size_t behind) const {
    const std::size_t end = window_.clusterBegin(cluster + 1);
    std::size_t at = behind + codePointAt(haystack_.substr(0, end), behind).length;
    for (; at < end; at += codePointAt(haystack_.substr(0, end), at).length) {
        if (const auto match = matchFrom(at, cluster)) return match;
    }
    return std::nullopt;
}

/// A match that begins exactly there, within a cluster.
std::optional<Match> CharacterFinder::matchFrom(std::size_t position, std::size_t cluster) const {
    const std::size_t clusterEnd = window_.clusterBegin(cluster + 1);
    const std::u16string form = comparisonForm(haystack_.substr(position, clusterEnd - position), respect_);
    if (!std::u16string_view(form_).starts_with(form)) return std::nullopt;
    const std::u16string_view rest = std::u16string_view(form_).substr(form.size());
    const std::size_t from = window_.formBegin(cluster + 1);
    if (!std::u16string_view(window_.form()).substr(from).starts_with(rest)) return std::nullopt;
    const auto end = window_.clusterOfForm(from + rest.size());
    if (!end) return std::nullopt;
    return Match{position, window_.clusterBegin(*end) - position};
}

}  // namespace velt::text
