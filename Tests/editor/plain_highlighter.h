// Colouring a text the slow and obvious way: one ink a unit, every string of the whole text in each pass.
#pragma once

#include "VELTRuntime/editor/display_attributes.h"
#include "VELTRuntime/editor/vocabulary.h"

#include <unicode/uchar.h>

namespace velt::test {

class PlainHighlighter {
public:
    using Inks = DisplayAttributes::Inks;

    explicit PlainHighlighter(std::u16string text) : text_(std::move(text)), inks_(text_.size()) {}

    const std::u16string& text() const { return text_; }
    const std::vector<Inks>& inks() const { return inks_; }

    void replace(NSRange range, const std::u16string& with) {
        text_.replace(range.location, range.length, with);
        const auto at = inks_.begin() + static_cast<std::ptrdiff_t>(range.location);
        inks_.insert(inks_.erase(at, at + static_cast<std::ptrdiff_t>(range.length)), with.size(), Inks{});
    }
    void set(std::size_t begin, std::size_t end, Inks inks) {
        for (std::size_t i = begin; i < end; ++i) inks_[i] = inks;
    }
    void setBackground(std::size_t begin, std::size_t end, Ink ink) {
        for (std::size_t i = begin; i < end; ++i) inks_[i].background = ink;
    }

    void highlight(const Vocabulary& vocabulary, const std::vector<std::int64_t>& breakpoints,
                   std::optional<NSRange> visible) {
        std::size_t begin = 0, end = text_.size();
        if (visible) {
            begin = lineBegin(visible->location);
            end = lineEnd(endOf(*visible));
        }
        const std::u16string part = text_.substr(begin, end - begin);
        if (part.empty()) return;
        set(begin, end, {});
        colourWords(vocabulary, part, begin);
        colourStrings();
        colourComments(part, begin);
        for (const std::int64_t breakpoint : breakpoints) {
            if (breakpoint <= 0) continue;
            const auto position = static_cast<std::size_t>(breakpoint);
            if (position + 1 > text_.size()) continue;
            const std::size_t lineFeed = text_.find(u'\n', position + 1);
            if (lineFeed != text_.npos) setBackground(position, lineFeed + 1, Ink::Breakpoint);
        }
    }

private:
    static bool isStart(char32_t c) {
        return c == U'_' || (U_GET_GC_MASK(static_cast<UChar32>(c)) & (U_GC_L_MASK | U_GC_M_MASK)) != 0;
    }
    static bool isEnd(char32_t c) {
        if (c == U'_') return false;
        if ((c >= 9 && c <= 13) || c == 0x85) return true;
        return (U_GET_GC_MASK(static_cast<UChar32>(c)) & (U_GC_Z_MASK | U_GC_S_MASK | U_GC_P_MASK)) != 0;
    }
    bool endsLineAt(std::size_t at) const {
        if (text_[at] == u'\r') return at + 1 >= text_.size() || text_[at + 1] != u'\n';
        return text_[at] == u'\n' || text_[at] == 0x85 || text_[at] == 0x2028 || text_[at] == 0x2029;
    }
    std::size_t lineBegin(std::size_t at) const {
        while (at > 0 && !endsLineAt(at - 1)) --at;
        return at;
    }
    std::size_t lineEnd(std::size_t at) const {
        while (at < text_.size() && !endsLineAt(at)) ++at;
        return std::min(at + 1, text_.size());
    }

    /// No test text has units outside the basic plane that are not letters.
    void colourWords(const Vocabulary& vocabulary, const std::u16string& part, std::size_t offset) {
        std::size_t at = 0;
        while (at < part.size()) {
            while (at < part.size() && !isStart(part[at])) ++at;
            const std::size_t a = at;
            if (a + 1 < part.size()) ++at;
            while (at < part.size() && !isEnd(part[at])) ++at;
            const std::size_t b = at;
            if (b > part.size() || b == a) break;
            const Ink ink = vocabulary.inkOf(std::u16string_view(part).substr(a, b - a));
            if (ink != Ink::None) set(offset + a, offset + b, {ink});
        }
    }
    void colourStrings() {
        std::size_t at = 0;
        for (;;) {
            const std::size_t opening = text_.find(u'"', at);
            if (opening == text_.npos) return;
            std::size_t closing = text_.find(u'"', opening + 1);
            while (closing != text_.npos && closing >= 3 && text_[closing - 1] == u'\\' &&
                   text_[closing - 2] != u'\\') {
                closing = text_.find(u'"', closing + 1);
            }
            if (closing == text_.npos) return;
            set(opening, closing + 1, {Ink::String});
            at = closing + 1;
        }
    }
    void colourComments(const std::u16string& part, std::size_t offset) {
        std::size_t at = 0;
        for (;;) {
            const std::size_t c = part.find(u'\'', at);
            if (c == part.npos) return;
            if (c + offset + 1 < part.size() && inks_[c + offset] == Inks{Ink::String}) {
                at = c + 1;
                continue;
            }
            const std::size_t end = std::min(lineEnd(c + offset), offset + part.size());
            set(c + offset, end, {Ink::Comment});
            at = end - offset;
        }
    }

    std::u16string text_;
    std::vector<Inks> inks_;
};

}  // namespace velt::test
