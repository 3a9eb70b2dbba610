#include "VELTRuntime/values/text/search.h"

#include "VELTRuntime/values/text/folded_window.h"
#include "VELTRuntime/values/text/literal_search.h"
#include "VELTRuntime/values/text/plain_text.h"

#include <algorithm>
#include <array>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

namespace velt::text {

namespace {

/// No combining character stands at the position.
bool isCharacterEnd(std::u16string_view text, std::size_t at) {
    return at >= text.size() || text[at] < kFirstCombining || beginsCharacter(codePointAt(text, at).value);
}

std::optional<Match> literalFirst(LiteralFinder& finder, std::u16string_view haystack, std::size_t needleLength,
                                  std::size_t from) {
    for (;;) {
        const std::size_t at = finder.find(haystack, from);
        if (at == kNotFound) return std::nullopt;
        if (isCharacterEnd(haystack, at + needleLength)) return Match{at, needleLength};
        from = at + 1;
    }
}

std::optional<Match> literalLast(LiteralFinder& finder, std::u16string_view haystack, std::size_t needleLength) {
    std::size_t end = haystack.size();
    for (;;) {
        const std::size_t at = finder.findLast(haystack, end);
        if (at == kNotFound) return std::nullopt;
        if (isCharacterEnd(haystack, at + needleLength)) return Match{at, needleLength};
        end = at + needleLength - 1;
    }
}

/// Case folding of the units below kFirstCombining that fold to one.
const std::array<char16_t, kFirstCombining>& latinFolding() {
    static const auto table = [] {
        std::array<char16_t, kFirstCombining> folding;
        for (char16_t unit = 0; unit < kFirstCombining; ++unit) {
            folding[unit] = static_cast<char16_t>(u_foldCase(unit, U_FOLD_CASE_DEFAULT));
        }
        return folding;
    }();
    return table;
}

void foldAscii(const char16_t* from, char16_t* to, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const char16_t unit = from[i];
        to[i] = static_cast<char16_t>(unit + ((unit >= u'A' && unit <= u'Z') ? 32 : 0));
    }
}

/// The text can be case-folded unit by unit.
bool foldsByUnit(std::u16string_view text) {
    if (allBelow(text, 0x80)) return true;
    return allBelow(text, kFirstCombining) && std::none_of(text.begin(), text.end(), foldsToSeveral);
}

/// Unit by unit search serves: the needle can only match its own units, or the text and it are both below the
/// combining limit.
bool searchesLiterally(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (respect == Case::Ignored) return false;
    return isLiteralNeedle(needle) || (allBelow(needle, kFirstCombining) && allBelow(haystack, kFirstCombining));
}

}  // namespace

class Finder::Strategy {
public:
    virtual ~Strategy() = default;
    virtual std::optional<Match> next(std::size_t from) = 0;
    virtual std::optional<Match> last() = 0;
};

/// The needle's own units.
class Finder::Literal final : public Strategy {
public:
    Literal(std::u16string_view haystack, std::u16string_view needle)
        : haystack_(haystack), length_(needle.size()), finder_(needle) {}
    std::optional<Match> next(std::size_t from) override { return literalFirst(finder_, haystack_, length_, from); }
    std::optional<Match> last() override { return literalLast(finder_, haystack_, length_); }

private:
    std::u16string_view haystack_;
    std::size_t length_;
    LiteralFinder finder_;
};

/// Texts that fold unit by unit: piece after piece is folded and searched.
class Finder::Folded final : public Strategy {
public:
    Folded(std::u16string_view haystack, std::u16string_view needle)
        : haystack_(haystack), ascii_(allBelow(haystack, 0x80)), needle_(needle.size(), u'\0'), finder_(needle_) {
        fold(needle, needle_.data(), allBelow(needle, 0x80));
        finder_ = LiteralFinder(needle_);
    }

    std::optional<Match> next(std::size_t from) override {
        while (from + needle_.size() <= haystack_.size()) {
            if (from < begin_ || from >= begin_ + base_) load(from);
            const std::size_t at = finder_.find(piece_, from - begin_);
            if (at != kNotFound && at < base_) return Match{begin_ + at, needle_.size()};
            from = begin_ + base_;
        }
        return std::nullopt;
    }

    std::optional<Match> last() override {
        std::size_t end = haystack_.size();
        while (end > 0) {
            const std::size_t begin = end > kPiece ? end - kPiece : 0;
            load(begin);
            const std::size_t at = finder_.findLast(piece_, piece_.size());
            if (at != kNotFound) return Match{begin + at, needle_.size()};
            end = begin;
        }
        return std::nullopt;
    }

private:
    static constexpr std::size_t kPiece = 16384;

    static void fold(std::u16string_view text, char16_t* to, bool ascii) {
        if (ascii) return foldAscii(text.data(), to, text.size());
        const auto& folding = latinFolding();
        for (std::size_t i = 0; i < text.size(); ++i) to[i] = folding[text[i]];
    }
    /// Folds the piece whose matches begin in [begin, begin + kPiece).
    void load(std::size_t begin) {
        const std::size_t length = std::min(haystack_.size() - begin, kPiece + needle_.size() - 1);
        piece_.resize(length);
        fold(haystack_.substr(begin, length), piece_.data(), ascii_);
        begin_ = begin;
        base_ = kPiece;
    }

    std::u16string_view haystack_;
    bool ascii_;
    std::u16string needle_;
    LiteralFinder finder_;
    std::u16string piece_;
    std::size_t begin_ = 0, base_ = 0;
};

/// Any texts: windows of comparison form with a map to the text's own positions.
class Finder::General final : public Strategy {
public:
    General(std::u16string_view haystack, std::u16string_view needle, Case respect)
        : haystack_(haystack), respect_(respect), needle_(comparisonForm(needle, respect)), finder_(needle_),
          beginsWithin_(!beginsCharacter(codePointAt(needle_, 0).value) ||
                        (respect == Case::Ignored && needle_[0] == kIota)) {}

    std::optional<Match> next(std::size_t from) override {
        while (from < haystack_.size()) {
            if (!window_.covers(from)) window_.build(haystack_, from, needle_.size(), respect_);
            if (const auto match = nextInWindow(from)) return match;
            from = window_.baseEnd();
        }
        return std::nullopt;
    }

    std::optional<Match> last() override {
        std::size_t end = haystack_.size();
        while (end > 0) {
            std::size_t begin = end > FoldedWindow::kBase ? end - FoldedWindow::kBase : 0;
            while (begin > 0 && !isCharacterStart(begin)) --begin;
            window_.build(haystack_, begin, needle_.size(), respect_, end);
            std::optional<Match> found;
            for (auto match = nextInWindow(begin); match; match = nextInWindow(begin)) {
                found = match;
                begin = match->position + codePointAt(haystack_, match->position).length;
                if (!window_.covers(begin)) break;
            }
            if (found) return found;
            end = window_.begin();
        }
        return std::nullopt;
    }

private:
    static constexpr char16_t kIota = 0x3B9;  // what the combining iota subscript folds to

    bool isCharacterStart(std::size_t at) const {
        const bool splitsPair = haystack_[at] >= 0xDC00 && haystack_[at] < 0xE000 && haystack_[at - 1] >= 0xD800 &&
                                haystack_[at - 1] < 0xDC00;
        return !splitsPair && beginsCharacter(codePointAt(haystack_, at).value);
    }

    /// The first match at or after `from` that begins in the window's base.
    std::optional<Match> nextInWindow(std::size_t from) {
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
    std::optional<Match> matchOfClusters(std::size_t cluster) {
        if (cluster >= window_.baseClusters()) return std::nullopt;
        std::size_t from = window_.formBegin(cluster);
        for (;;) {
            const std::size_t at = finder_.find(window_.form(), from);
            if (at == kNotFound) return std::nullopt;
            const auto begin = window_.clusterOfForm(at);
            if (begin && *begin >= window_.baseClusters()) return std::nullopt;
            const auto end = window_.clusterOfForm(at + needle_.size());
            if (begin && end) {
                const std::size_t position = window_.clusterBegin(*begin);
                return Match{position, window_.clusterBegin(*end) - position};
            }
            from = at + 1;
        }
    }

    /// A match that begins at a code point within a cluster, behind its begin.
    std::optional<Match> matchWithin(std::size_t cluster, std::size_t behind) {
        const std::size_t end = window_.clusterBegin(cluster + 1);
        std::size_t at = behind + codePointAt(haystack_.substr(0, end), behind).length;
        for (; at < end; at += codePointAt(haystack_.substr(0, end), at).length) {
            if (const auto match = matchFrom(at, cluster)) return match;
        }
        return std::nullopt;
    }

    /// A match that begins exactly there, within a cluster.
    std::optional<Match> matchFrom(std::size_t position, std::size_t cluster) {
        const std::size_t clusterEnd = window_.clusterBegin(cluster + 1);
        const std::u16string form = comparisonForm(haystack_.substr(position, clusterEnd - position), respect_);
        if (!std::u16string_view(needle_).starts_with(form)) return std::nullopt;
        const std::u16string_view rest = std::u16string_view(needle_).substr(form.size());
        const std::size_t from = window_.formBegin(cluster + 1);
        if (!std::u16string_view(window_.form()).substr(from).starts_with(rest)) return std::nullopt;
        const auto end = window_.clusterOfForm(from + rest.size());
        if (!end) return std::nullopt;
        return Match{position, window_.clusterBegin(*end) - position};
    }

    std::u16string_view haystack_;
    Case respect_;
    std::u16string needle_;
    LiteralFinder finder_;
    bool beginsWithin_;  // the needle may match from the middle of a character on
    FoldedWindow window_;
};

Finder::Finder(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (needle.empty()) return;
    if (searchesLiterally(haystack, needle, respect)) {
        strategy_ = std::make_unique<Literal>(haystack, needle);
    } else if (respect == Case::Ignored && foldsByUnit(needle) && foldsByUnit(haystack)) {
        strategy_ = std::make_unique<Folded>(haystack, needle);
    } else {
        strategy_ = std::make_unique<General>(haystack, needle, respect);
    }
}

Finder::~Finder() = default;

std::optional<Match> Finder::next(std::size_t from) { return strategy_ ? strategy_->next(from) : std::nullopt; }

std::optional<Match> Finder::last() { return strategy_ ? strategy_->last() : std::nullopt; }

std::optional<Match> findFirst(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (needle.empty()) return std::nullopt;
    if (searchesLiterally(haystack, needle, respect)) {
        LiteralFinder finder(needle);
        return literalFirst(finder, haystack, needle.size(), 0);
    }
    return Finder(haystack, needle, respect).next(0);
}

std::optional<Match> findLast(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (needle.empty()) return std::nullopt;
    if (searchesLiterally(haystack, needle, respect)) {
        LiteralFinder finder(needle);
        return literalLast(finder, haystack, needle.size());
    }
    return Finder(haystack, needle, respect).last();
}

namespace {

int order(char16_t a, char16_t b) { return a < b ? -1 : a > b; }

/// The form of what follows a common beginning, from the last position that begins a character in both texts.
int compareForms(std::u16string_view a, std::u16string_view b, std::size_t common, Case respect) {
    const auto begins = [&](std::u16string_view text) {
        if (common >= text.size()) return true;
        const char16_t unit = text[common];
        return (unit < 0xDC00 || unit >= 0xE000) && beginsCharacter(codePointAt(text, common).value);
    };
    while (common > 0 && !(begins(a) && begins(b))) --common;
    const std::u16string formA = comparisonForm(a.substr(common), respect);
    const std::u16string formB = comparisonForm(b.substr(common), respect);
    const std::int32_t result = u_strCompare(formA.data(), static_cast<std::int32_t>(formA.size()), formB.data(),
                                             static_cast<std::int32_t>(formB.size()), true);
    return result < 0 ? -1 : result > 0;
}

/// Length of the common beginning, by units that may be mapped first.
template <class Map> std::size_t commonLength(std::u16string_view a, std::u16string_view b, Map map) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t common = 0;
    while (common < shorter && map(a[common]) == map(b[common])) ++common;
    return common;
}

/// Below kFirstDecomposed a unit decides by itself, and ends what stands before it.
bool decides(std::u16string_view text, std::size_t at) { return at == text.size() || text[at] < kFirstDecomposed; }

int orderAt(std::u16string_view a, std::u16string_view b, std::size_t at) {
    if (at == a.size() || at == b.size()) return (at == b.size()) - (at == a.size());
    return order(a[at], b[at]);
}

}  // namespace

bool equalCanonically(std::u16string_view a, std::u16string_view b) {
    if (a == b) return true;
    const std::size_t common = commonLength(a, b, [](char16_t unit) { return unit; });
    if (decides(a, common) && decides(b, common)) return false;
    return compareForms(a, b, common, Case::Respected) == 0;
}

int compare(std::u16string_view a, std::u16string_view b, Case respect) {
    if (respect == Case::Respected) {
        const std::size_t common = commonLength(a, b, [](char16_t unit) { return unit; });
        return decides(a, common) && decides(b, common) ? orderAt(a, b, common) : compareForms(a, b, common, respect);
    }
    const auto lower = [](char16_t unit) {
        return static_cast<char16_t>(unit >= u'A' && unit <= u'Z' ? unit + 32 : unit);
    };
    const std::size_t common = commonLength(a, b, lower);
    const auto plain = [&](std::u16string_view text) { return common == text.size() || text[common] < 0x80; };
    if (!plain(a) || !plain(b)) return compareForms(a, b, common, respect);
    if (common == a.size() || common == b.size()) return orderAt(a, b, common);
    return order(lower(a[common]), lower(b[common]));
}

}  // namespace velt::text
