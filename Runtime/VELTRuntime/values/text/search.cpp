#include "VELTRuntime/values/text/search.h"

#include "VELTRuntime/values/text/character_finder.h"
#include "VELTRuntime/values/text/plain_text.h"
#include "VELTRuntime/values/text/utf.h"

namespace velt::text {

namespace {

/// No combining character stands at the position.
bool isCharacterEnd(std::u16string_view text, std::size_t at) {
    return at >= text.size() || text[at] < kFirstCombining || beginsCharacter(codePointAt(text, at).value);
}

/// Finds a needle that can only match its own units.
class OwnUnitsFinder {
public:
    OwnUnitsFinder(std::u16string_view haystack, std::u16string_view needle)
        : haystack_(haystack), length_(needle.size()), finder_(needle) {}

    std::optional<Match> next(std::size_t from) {
        for (;;) {
            const std::size_t at = finder_.find(haystack_, from);
            if (at == kNotFound) return std::nullopt;
            if (isCharacterEnd(haystack_, at + length_)) return Match{at, length_};
            from = at + 1;
        }
    }
    std::optional<Match> last() {
        std::size_t end = haystack_.size();
        for (;;) {
            const std::size_t at = finder_.findLast(haystack_, end);
            if (at == kNotFound) return std::nullopt;
            if (isCharacterEnd(haystack_, at + length_)) return Match{at, length_};
            end = at + length_ - 1;
        }
    }

private:
    std::u16string_view haystack_;
    std::size_t length_;
    LiteralFinder finder_;
};

bool matchesOnlyItself(std::u16string_view needle, Case respect) {
    return respect == Case::Respected && isLiteralNeedle(needle);
}

}  // namespace

class Finder::Strategy {
public:
    virtual ~Strategy() = default;
    virtual std::optional<Match> next(std::size_t from) = 0;
    virtual std::optional<Match> last() = 0;
};

template <class Implementation> class Finder::By final : public Strategy {
public:
    template <class... Arguments> explicit By(const Arguments&... arguments) : finder_(arguments...) {}
    std::optional<Match> next(std::size_t from) override { return finder_.next(from); }
    std::optional<Match> last() override { return finder_.last(); }

private:
    Implementation finder_;
};

Finder::Finder(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (needle.empty()) return;
    if (matchesOnlyItself(needle, respect)) {
        strategy_ = std::make_unique<By<OwnUnitsFinder>>(haystack, needle);
    } else {
        strategy_ = std::make_unique<By<CharacterFinder>>(haystack, needle, respect);
    }
}

Finder::~Finder() = default;

std::optional<Match> Finder::next(std::size_t from) { return strategy_ ? strategy_->next(from) : std::nullopt; }

std::optional<Match> Finder::last() { return strategy_ ? strategy_->last() : std::nullopt; }

std::optional<Match> findFirst(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (needle.empty()) return std::nullopt;
    if (matchesOnlyItself(needle, respect)) return OwnUnitsFinder(haystack, needle).next(0);
    return CharacterFinder(haystack, needle, respect).next(0);
}

std::optional<Match> findLast(std::u16string_view haystack, std::u16string_view needle, Case respect) {
    if (needle.empty()) return std::nullopt;
    if (matchesOnlyItself(needle, respect)) return OwnUnitsFinder(haystack, needle).last();
    return CharacterFinder(haystack, needle, respect).last();
}

}  // namespace velt::text
