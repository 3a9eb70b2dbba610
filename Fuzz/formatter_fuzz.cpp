// Formatting keeps a line's literals and comment, is finished after one time, and is undone in one step.
#include "VELTRuntime/editor/source_document.h"
#include "VELTRuntime/editor/source_formatter.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace velt;

struct Host : FormatterHost {
    WordLists wordLists() override { return {}; }
    void lineEndTyped(std::size_t) override {}
    void changeHandled(std::size_t, std::u16string_view) override {}
};

void require(bool holds) {
    if (!holds) std::abort();
}

void formatLine(std::u16string_view line) {
    const Recasing words;
    const std::u16string once = formatTypedLine(line, LineRole::Plain, words);
    // A dot that an exclamation mark became is closed up only the next time.
    if (line.find(u'!') == line.npos) require(formatTypedLine(once, LineRole::Plain, words) == once);
    require(std::count(line.begin(), line.end(), u'"') == std::count(once.begin(), once.end(), u'"'));
    const std::size_t comment = line.find(u'\'');
    if (comment != line.npos && line.size() >= kShortestLine) {
        require(once.substr(std::min(once.find(u'\''), once.size())) == line.substr(comment));
    }
}

void formatDocument(const std::u16string& text, bool isTyped) {
    Host host;
    FormatterState shared;
    SourceDocument document(text);
    SourceFormatter formatter(document, host, shared);
    formatter.turnOn();
    if (isTyped) {
        document.select({text.size() / 2, 0});
        document.insertText(u"\n");
        formatter.textTyped(text.size() / 2, u"\n");
        // Nothing may be left to undo when the line's new form is the old one.
        for (int steps = 0; document.canUndo(); ++steps) {
            require(steps < 2);
            document.undo();
        }
    } else {
        formatter.formatText();
        document.undo();
    }
    require(document.buffer().text() == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    if (count == 0) return 0;
    const std::u16string text = text::fromUtf8Lenient({reinterpret_cast<const char*>(bytes) + 1, count - 1});
    formatDocument(text, bytes[0] & 1);
    std::u16string line = text.substr(0, text.find(u'\n'));
    std::erase(line, u'\r');  // it is taken out of the code, but left in comments
    formatLine(line + u'\n');
    return 0;
}
