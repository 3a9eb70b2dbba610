// The sources that come with the editor's example.
#include "VELTRuntime/values/text/casing.h"
#include "formatting.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace velt::test {

namespace {

const std::filesystem::path kExample = VELT_SOURCE_FOLDER "/Examples/editor";

std::u16string contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return text::fromUtf8(bytes.str()).value_or(std::u16string());
}

std::vector<std::u16string> wordsIn(const char* name) {
    std::vector<std::u16string> words;
    const std::u16string text = contents(kExample / "Resources" / name);
    for (std::size_t from = 0, end; (end = text.find(u'\n', from)) != text.npos; from = end + 1) {
        words.push_back(text.substr(from, end - from));
    }
    return words;
}

LanguageWords language() {
    return {.keywords = wordsIn("keywords.txt"), .builtins = wordsIn("builtins.txt"), .types = wordsIn("types.txt")};
}

std::vector<std::filesystem::path> programs() {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(kExample / "programs")) paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    return paths;
}

}  // namespace

TEST(EditorPrograms, AreThereWithALongOneAmongThem) {
    ASSERT_LE(2U, programs().size());
    std::size_t longest = 0;
    for (const auto& path : programs()) {
        const std::u16string text = contents(path);
        longest = std::max(longest, static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n')));
    }
    EXPECT_LE(1000U, longest);
}

TEST(EditorPrograms, HaveALanguageOfDifferentWords) {
    const LanguageWords words = language();
    for (const auto& list : {words.keywords, words.builtins, words.types}) {
        EXPECT_LE(20U, list.size());
        EXPECT_EQ(list.end(), std::adjacent_find(list.begin(), list.end()));
    }
}

TEST(EditorPrograms, AreNotChangedByFormatting) {
    for (const auto& path : programs()) {
        const std::u16string source = contents(path);
        FormattedDocument editor(source, language());
        editor.formatter.formatText();
        const std::u16string formatted = editor.document.buffer().text();
        const auto first = std::mismatch(source.begin(), source.end(), formatted.begin(), formatted.end()).first;
        EXPECT_TRUE(source == formatted) << path << ":" << 1 + std::count(source.begin(), first, u'\n');
        EXPECT_EQ(0, editor.formatter.level()) << path;
    }
}

TEST(EditorPrograms, AreRestoredFromAnUntidyForm) {
    // Every word of the language in capitals, and one blank for each indentation.
    LanguageWords capitals = language();
    for (auto* list : {&capitals.keywords, &capitals.builtins, &capitals.types}) {
        for (std::u16string& word : *list) word = text::uppered(word);
    }
    const Recasing shouting = capitals.recasing();
    for (const auto& path : programs()) {
        const std::u16string source = contents(path);
        std::u16string untidy;
        for (std::size_t from = 0, end; (end = source.find(u'\n', from)) != source.npos; from = end + 1) {
            const std::u16string line = source.substr(from, end + 1 - from);
            const std::size_t blanks = leadingBlanks(line);
            Indentation left;
            untidy.append(blanks > 0 && line.size() > 1 ? u" " : u"");
            untidy += formatPassLine(std::u16string_view(line).substr(blanks), u"", left, shouting);
        }
        EXPECT_FALSE(source == untidy);
        FormattedDocument editor(untidy, language());
        editor.formatter.formatText();
        EXPECT_TRUE(source == editor.document.buffer().text()) << path;
    }
}

TEST(EditorPrograms, AreTheSameWhenTypedLineByLine) {
    for (const auto& path : programs()) {
        // What is typed stands at column 0 or at its own indentation, which Return has made already.
        const std::u16string source = contents(path);
        FormattedDocument editor(u"", language());
        std::size_t from = 0;
        for (std::size_t end; (end = source.find(u'\n', from)) != source.npos; from = end + 1) {
            const std::size_t caret = editor.caret();
            const std::size_t begin = editor.document.buffer().lineRangeAt(caret).location;
            editor.document.select(rangeBetween(begin, caret));
            editor.document.insertText(source.substr(from, end - from));
            const std::size_t position = editor.caret();
            editor.document.insertText(u"\n");
            const LineRole role = lineRole(lineStart(source.substr(from, end - from)));
            if (role == LineRole::Closer) continue;  // it moves left of where it stands already
            editor.formatter.textTyped(position, u"\n");
        }
        const std::size_t caret = editor.caret();
        editor.document.change(rangeBetween(editor.document.buffer().lineRangeAt(caret).location, caret), {});
        EXPECT_TRUE(source == editor.document.buffer().text()) << path;
    }
}

}  // namespace velt::test
