// Whatever is edited, seen and marked, the colours are those that clearing and colouring anew give.
#include "VELTRuntime/editor/highlighter.h"

#include "VELTRuntime/VELTRuntime.h"

#include "editor/plain_highlighter.h"

#include <cstdlib>

namespace {

class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t count) : at_(bytes), end_(bytes + count) {}
    bool isEmpty() const { return at_ == end_; }
    std::size_t below(std::size_t limit) { return isEmpty() ? 0 : *at_++ % limit; }
    NSRange rangeIn(std::size_t length) {
        const std::size_t begin = below(length + 1);
        return {begin, below(length - begin + 1)};
    }
    std::u16string text() {
        constexpr std::u16string_view kUnits = u"\"\"''\\\n\n\r\u2028 if1_x\u00E9";
        std::u16string result;
        for (std::size_t count = below(16); count-- > 0;) result += kUnits[below(kUnits.size())];
        return result;
    }

private:
    const std::uint8_t *at_, *end_;
};

velt::Vocabulary vocabulary() {
    velt::Ref<NSMutableArray> keywords = velt::make<NSMutableArray>();
    keywords->append(velt::string("if"));
    return velt::Vocabulary({keywords, nil, nil});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    static const velt::Vocabulary words = vocabulary();
    Input input(bytes, count);
    velt::SourceBuffer buffer;
    velt::DisplayAttributes attributes(buffer);
    velt::Highlighter highlighter(buffer, attributes);
    velt::test::PlainHighlighter plain(u"");
    std::vector<std::int64_t> breakpoints;
    while (!input.isEmpty()) {
        std::optional<NSRange> visible;
        switch (input.below(4)) {
        case 0: {
            const NSRange range = input.rangeIn(buffer.length());
            const std::u16string with = input.text();
            buffer.replace(range, with);
            plain.replace(range, with);
            continue;
        }
        case 1: breakpoints.assign(1, static_cast<std::int64_t>(input.below(256))); continue;
        case 2: visible = input.rangeIn(buffer.length());
        }
        highlighter.highlight(words, breakpoints, visible);
        plain.highlight(words, breakpoints, visible);
        for (std::size_t at = 0; at < buffer.length(); ++at) {
            if (plain.inks()[at] != attributes.at(at)) std::abort();
        }
    }
    return 0;
}
