#include "VELTRuntime/editor/argument_help.h"

#include <optional>

namespace velt {

namespace {

using std::u16string_view;

constexpr u16string_view kCurrent = u"<font face=\"Monaco\" size=\"-1\" color=\"red\">";
constexpr u16string_view kOther = u"<font face=\"Monaco\" size=\"-1\">";
constexpr u16string_view kEnd = u"</font>";
constexpr u16string_view kMarkup[] = {kCurrent, u"<font face='Monaco' size=\"-1\">", kOther, kEnd};

std::u16string withoutMarkup(u16string_view signature) {
    std::u16string plain(signature);
    for (const u16string_view fragment : kMarkup) {
        for (std::size_t at = plain.find(fragment); at != plain.npos; at = plain.find(fragment, at)) {
            plain.erase(at, fragment.size());
        }
    }
    return plain;
}

struct Piece {
    std::size_t begin, end;
};

/// Where a parameter is: commas and parentheses of its own, as in "items() as string", divide nothing.
std::optional<Piece> findParameter(u16string_view signature, std::size_t parameter) {
    const std::size_t open = signature.find(u'(');
    if (open == signature.npos) return std::nullopt;
    std::size_t begin = open + 1, passed = 0, depth = 0;
    for (std::size_t at = begin; at < signature.size(); ++at) {
        const char16_t unit = signature[at];
        if (unit == u'(') ++depth;
        const bool isLast = unit == u')' && depth == 0;
        if (unit == u')' && depth > 0) --depth;
        if (!isLast && (unit != u',' || depth > 0)) continue;
        if (passed++ == parameter) return Piece{begin, at};
        if (isLast) return std::nullopt;
        begin = at + 1;
    }
    return std::nullopt;
}

}  // namespace

std::u16string argumentHelp(u16string_view signature, std::size_t parameter) {
    const std::u16string plain = withoutMarkup(signature);
    std::u16string result(kOther);
    if (const auto current = findParameter(plain, parameter)) {
        result.append(plain, 0, current->begin).append(kCurrent);
        result.append(plain, current->begin, current->end - current->begin).append(kEnd);
        result.append(plain, current->end);
    } else {
        result += plain;
    }
    return result.append(kEnd);
}

}  // namespace velt
