#include "VELTRuntime/platform/appkit/text/text_finder.h"

#include "VELTRuntime/platform/appkit/text/text_positions.h"
#include "VELTRuntime/values/text/search.h"
#include "VELTRuntime/values/text/utf.h"

namespace velt {

namespace {

text::Case caseOf(const FindRequest& request) {
    return request.ignoresCase ? text::Case::Ignored : text::Case::Respected;
}

/// A word goes on over a position.
bool joinsWord(std::u16string_view whole, std::size_t position) {
    const auto isWord = [&](std::size_t at) { return isWordCharacter(text::codePointAt(whole, at).value); };
    return position > 0 && position < whole.size() && isWord(positionBefore(whole, position)) && isWord(position);
}

bool standsAlone(std::u16string_view whole, std::size_t begin, std::size_t end) {
    return !joinsWord(whole, begin) && !joinsWord(whole, end);
}

/// Calls a function with every match within a range, in order, until it says that it has enough.
template <class Function>
void eachMatch(std::u16string_view whole, const FindRequest& request, NSRange within, Function&& enough) {
    if (request.text.empty()) return;
    const std::u16string_view part = whole.substr(0, within.location + within.length);
    text::Finder finder(part, request.text, caseOf(request));
    for (std::size_t from = within.location; const auto match = finder.next(from);) {
        const bool counts = !request.wholeWords || standsAlone(whole, match->position, match->end());
        if (counts && enough(NSRange{match->position, match->length})) return;
        from = counts ? match->end() : match->position + 1;
    }
}

}  // namespace

std::optional<NSRange> findMatch(std::u16string_view text, const FindRequest& request, std::size_t from, bool backward,
                                 NSRange within) {
    const std::size_t end = within.location + within.length;
    from = std::clamp<std::size_t>(from, within.location, end);
    std::optional<NSRange> found;
    if (!backward) {
        eachMatch(text, request, {from, end - from}, [&](NSRange match) {
            found = match;
            return true;
        });
        return found;
    }
    // The last one that ends before the place: by halves, so that a near one does not cost the whole text.
    for (std::size_t window = 4096; !found; window *= 4) {
        const std::size_t reach = std::max(window, request.text.size() * 4);
        const std::size_t begin = from - within.location > reach ? from - reach : within.location;
        eachMatch(text, request, {begin, from - begin}, [&](NSRange match) {
            found = match;
            return false;
        });
        if (begin == within.location) break;
    }
    return found;
}

bool isMatch(std::u16string_view text, const FindRequest& request, NSRange range) {
    if (range.length == 0 || request.text.empty()) return false;
    const auto found = text::findFirst(text.substr(range.location, range.length), request.text, caseOf(request));
    return found && found->position == 0 && found->length == range.length &&
           (!request.wholeWords || standsAlone(text, range.location, range.location + range.length));
}

std::vector<NSRange> findAll(std::u16string_view text, const FindRequest& request, NSRange within) {
    std::vector<NSRange> matches;
    eachMatch(text, request, within, [&](NSRange match) {
        matches.push_back(match);
        return false;
    });
    return matches;
}

Ref<NSAttributedString> replacedMatches(const NSAttributedString& text, const std::vector<NSRange>& matches,
                                        std::u16string_view replacement) {
    if (matches.empty()) return make<NSAttributedString>();
    std::u16string units;
    RunList runs;
    std::size_t kept = matches.front().location;
    for (const NSRange& match : matches) {
        units += text.view().substr(kept, match.location - kept);
        runs.replace({runs.length(), 0}, text.runs().part({kept, match.location - kept}));
        units += replacement;
        runs.append(replacement.size(), text.runs().at(match.location).attributes);
        kept = match.location + match.length;
    }
    return make<NSAttributedString>(units, std::move(runs));
}

}  // namespace velt
