// One line of source brought into the house style.
#include "VELTRuntime/editor/line_formatter.h"

#include "VELTRuntime/editor/operator_spacing.h"
#include "VELTRuntime/editor/source_syntax.h"

#include <algorithm>
#include <vector>

namespace velt {

namespace {

using std::u16string_view;

/// The code of a line, with what formatting must not touch taken out: the text between quotes, and all from the comment
/// marker on. No rule of formatting knows the two delimiters, so that what stands between them changes nothing around.
class LineParts {
public:
    explicit LineParts(u16string_view line) {
        const std::size_t marker = line.find(kCommentMarker);
        const u16string_view beforeComment = line.substr(0, marker);
        if (marker != line.npos) comment_ = line.substr(marker);
        std::size_t from = 0;
        for (std::size_t open = beforeComment.find(kQuote); open != line.npos;
             open = beforeComment.find(kQuote, from)) {
            const std::size_t close = beforeComment.find(kQuote, open + 1);
            if (close == line.npos) break;
            literals_.push_back(beforeComment.substr(open + 1, close - open - 1));
            code.append(beforeComment, from, open + 1 - from).push_back(kQuote);
            from = close + 1;
        }
        code.append(beforeComment, from).append(comment_.substr(0, 1));
    }

    /// The code with what was taken out.
    std::u16string whole() const {
        std::u16string result;
        std::size_t from = 0;
        for (const u16string_view literal : literals_) {
            const std::size_t after = code.find(kQuote, from) + 1;
            result.append(code, from, after - from).append(literal).push_back(kQuote);
            from = after + 1;
        }
        return result.append(code, from).append(comment_.substr(std::min<std::size_t>(1, comment_.size())));
    }

    std::u16string code;

private:
    std::vector<u16string_view> literals_;
    u16string_view comment_;
};

/// The line spaced, recased and prefixed with the blanks that `blanksFor` gives for the number of the line's own and of
/// those that the spaced line still has.
template <class BlanksFor>
std::u16string formatted(u16string_view line, const Recasing& words, const BlanksFor& blanksFor) {
    LineParts parts(line);
    std::size_t lead = leadingBlanks(line);
    spaceOperators(parts.code, words);
    if (lead > 0 && isDeclaration(lineStart(parts.code))) {
        parts.code.erase(0, leadingBlanks(parts.code));
        lead = 0;
    }
    const auto own = static_cast<std::ptrdiff_t>(leadingBlanks(parts.code));
    const std::ptrdiff_t blanks = blanksFor(static_cast<std::ptrdiff_t>(lead), own);
    parts.code.insert(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, blanks)), u' ');
    words.recase(parts.code);
    return parts.whole();
}

}  // namespace

std::size_t leadingBlanks(u16string_view line) {
    const std::size_t ink = line.find_first_not_of(kBlanks);
    return ink == line.npos ? line.size() : ink;
}

std::size_t unitsAfter(u16string_view finishedLine, LineRole role) {
    return leadingBlanks(finishedLine) / kIndentationUnit.size() + (role == LineRole::Opener);
}

std::u16string formatTypedLine(u16string_view line, LineRole role, const Recasing& words) {
    if (line.size() < kShortestLine) return std::u16string(line);
    const auto outdent = static_cast<std::ptrdiff_t>(role == LineRole::Closer ? kIndentationUnit.size() : 0);
    return formatted(line, words, [&](std::ptrdiff_t lead, std::ptrdiff_t own) { return lead - outdent - own; });
}

std::u16string formatPassLine(u16string_view line, u16string_view classified, Indentation& indentation,
                              const Recasing& words) {
    if (line.size() < kShortestLine) return std::u16string(line);
    const bool raises = applyIndentation(indentation, lineStart(line), classified);
    std::u16string result = formatted(line, words, [&](std::ptrdiff_t, std::ptrdiff_t) {
        return static_cast<std::ptrdiff_t>(kIndentationUnit.size()) * indentation.level - 1;
    });
    if (raises) ++indentation.level;
    return result;
}

}  // namespace velt
