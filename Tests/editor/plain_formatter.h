// The formatter as its rules read, one after the other over the whole text, without any care for time: what the real
// one is compared with.
#pragma once

#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/values/text/casing.h"
#include "VELTRuntime/values/text/reading.h"
#include "VELTRuntime/values/text/utf.h"

#include "formatting.h"

#include <map>
#include <string>
#include <vector>

namespace velt::test {

class PlainFormatter {
public:
    using Text = std::u16string;

    PlainFormatter(Text source, const LanguageWords& words) : text(std::move(source)) {
        for (const auto* list : {&words.types, &words.builtins, &words.keywords}) {
            std::map<Text, Text> spellings;
            for (const Text& word : *list) spellings[text::lowered(word)] = word;
            for (const auto& [key, spelling] : spellings) spellings_[key] = spelling;
        }
        for (const Text& word : words.keywords) keywords_.push_back(text::lowered(word));
    }

    Text text;
    std::size_t caret = 0;
    int level = 0;
    bool isCaseOpen = false;

    void formatText(std::size_t begin, bool isSelection) {
        long counter = isSelection ? 0 : 1;
        for (std::size_t from = begin;;) {
            const std::size_t end = text.find(u'\n', from);
            if (end == Text::npos) return;
            finishLine(end, counter++);
            from = text.find(u'\n', from) + 1;
        }
    }

    /// The line that ends at a position; typed when there is no counter.
    void finishLine(std::size_t position, std::optional<long> counter) {
        if (counter == 0) level = 1;
        std::size_t lineBegin = 0, firstInk = position, lastBlank = 0;
        bool inBlanks = false;
        for (std::size_t at = position; at-- > 0;) {
            if (text[at] == u'\n') {
                lineBegin = at + 1;
                break;
            }
            if (isBlank(text[at])) {
                if (!inBlanks) lastBlank = at;
                inBlanks = true;
            } else {
                firstInk = at;
                inBlanks = false;
            }
        }
        const std::size_t width = lineBegin < position && isBlank(text[lineBegin]) ? lastBlank - lineBegin + 1 : 0;
        Text role;
        if (firstInk != position && firstInk != 0) {
            role = trimmed(text::lowered(std::u16string_view(text).substr(firstInk, position - firstInk)));
        }
        const bool opens = opensBlock(role), closes = !opens && closesBlock(role);
        std::size_t indented = 0;
        if (!counter) {
            std::size_t units = width >= 1 ? width / 2 : 0;
            if (opens) ++units;
            indented = 2 * units;
            text.insert(caret, Text(indented, u' '));
            caret += indented;
        }
        const std::size_t end = text.find(u'\n', lineBegin);
        if (end == Text::npos || end + 1 - lineBegin < 2) return;
        const Text line = text.substr(lineBegin, end + 1 - lineBegin);
        const Text formatted = format(line, role, closes, counter.has_value());
        text.replace(lineBegin, line.size(), formatted);
        caret = lineBegin + formatted.size() + indented;
    }

private:
    static bool isBlank(char16_t unit) { return unit == u' ' || unit == u'\t'; }
    static bool startsWith(const Text& text, std::initializer_list<const char16_t*> beginnings) {
        for (const char16_t* beginning : beginnings) {
            if (text.rfind(beginning, 0) == 0) return true;
        }
        return false;
    }
    static Text trimmed(Text text) {
        while (!text.empty() && text::isWhiteSpace(text.back())) text.pop_back();
        while (!text.empty() && text::isWhiteSpace(text.front())) text.erase(0, 1);
        return text;
    }
    static std::size_t blanksOf(const Text& line) {
        std::size_t count = 0;
        while (count < line.size() && isBlank(line[count])) ++count;
        return count;
    }

    static bool opensBlock(const Text& t) {
        if (startsWith(t, {u"if ", u"for ", u"select ", u"do "})) return true;
        if (startsWith(t, {u"public "}) && !startsWith(t, {u"public dim", u"public const"})) return true;
        if (startsWith(t, {u"private "}) && !startsWith(t, {u"private dim", u"private const"})) return true;
        return startsWith(
            t, {u"sub ", u"function ", u"action ", u"ibaction ", u"iboutlet ", u"property ", u"event ", u"case "});
    }
    static bool closesBlock(const Text& t) {
        return startsWith(t, {u"end if", u"end sub", u"end function", u"end action", u"end ibaction", u"end iboutlet",
                              u"end delegate", u"end event", u"end select", u"loop", u"else", u"case"});
    }

    bool updateLevel(const Text& t2, const Text& t) {
        if (startsWith(t2, {u"if ", u"for ", u"do "})) return true;
        if ((startsWith(t2, {u"public "}) && !startsWith(t, {u"public dim", u"public const"})) ||
            (startsWith(t2, {u"private "}) && !startsWith(t, {u"private dim", u"private const"})) ||
            startsWith(t2, {u"sub ", u"function ", u"action ", u"ibaction ", u"iboutlet ", u"property ", u"delegate ",
                            u"event "})) {
            level = 0;
            return true;
        }
        if (startsWith(t2, {u"case "})) {
            if (isCaseOpen) level -= 1;
            isCaseOpen = true;
            return true;
        }
        if (startsWith(t2, {u"select "})) {
            isCaseOpen = false;
            return true;
        }
        if (startsWith(t2, {u"end sub", u"end function", u"end action", u"end ibaction", u"end iboutlet",
                            u"end property", u"end delegate", u"end event"})) {
            level = 0;
            return false;
        }
        if (startsWith(t2, {u"end if", u"loop ", u"loop'", u"loop\n", u"next ", u"next'", u"next\n"})) {
            level -= 1;
            return false;
        }
        if (startsWith(t2, {u"else ", u"else'", u"else\n"})) {
            level -= 1;
            return true;
        }
        if (startsWith(t2, {u"end select"})) level -= 2;
        return false;
    }

    static void replaceOnce(Text& line, const Text& from, const Text& to) {
        for (std::size_t at = line.find(from); at != Text::npos; at = line.find(from, at + to.size())) {
            line.replace(at, from.size(), to);
        }
    }
    static void replaceAll(Text& line, const Text& from, const Text& to) {
        while (line.find(from) != Text::npos) replaceOnce(line, from, to);
    }

    /// The blanks between a called word and the parenthesis that has blanks on both sides.
    void joinCalls(Text& line) const {
        for (std::size_t at = line.find(u" ( "); at != Text::npos; at = line.find(u" ( ", at + 1)) {
            std::size_t end = at;
            while (end > 0 && line[end - 1] == u' ') --end;
            std::size_t begin = end;
            while (begin > 0 && !endsWord(line[begin - 1])) --begin;
            const Text word = line.substr(begin, end - begin);
            if (word.empty() || !startsWord(text::codePointAt(word, 0).value)) continue;
            bool isKeyword = false;
            for (const Text& keyword : keywords_) isKeyword = isKeyword || keyword == text::lowered(word);
            if (isKeyword) continue;
            line.erase(end, at + 1 - end);
            at = end;
        }
    }

    void space(Text& line) const {
        replaceOnce(line, u"\r", u"");
        replaceOnce(line, u"\t", u" ");
        joinCalls(line);
        for (const char16_t* sign :
             {u"+", u"-", u"/", u"\\", u"*", u"&", u",", u":=", u"<>", u">=", u"<=", u"=", u">", u"<"}) {
            replaceOnce(line, sign, Text(u" ").append(sign).append(u" "));
        }
        replaceAll(line, u"  ", u" ");
        const char16_t* pairs[][2] = {
            {u" .", u"."},       {u". ", u"."},       {u" !", u"."},       {u"! ", u"."},       {u" ,", u","},
            {u"( ", u"("},       {u" )", u")"},       {u" - - ", u" - -"}, {u" + + ", u" + +"}, {u" + - ", u" + -"},
            {u" - + ", u" - +"}, {u" < > ", u" <> "}, {u" < = ", u" <= "}, {u" > = ", u" >= "}, {u" : = ", u" := "}};
        for (const auto& [from, to] : pairs) replaceAll(line, from, to);
        replaceOnce(line, u" < objc > ", u"<objc>");
        replaceOnce(line, u" < / objc > ", u"</objc>");
        replaceOnce(line, u" < string > ", u"<string>");
        replaceOnce(line, u" < / string > ", u"</string>");
    }

    void recase(Text& line) const {
        if (keywords_.empty()) return;
        for (std::size_t at = 0; at < line.size();) {
            const text::CodePoint c = text::codePointAt(line, at);
            if (!startsWord(c.value)) {
                at += c.length;
                continue;
            }
            std::size_t end = at + c.length;
            while (end < line.size() && !endsWord(text::codePointAt(line, end).value)) {
                end += text::codePointAt(line, end).length;
            }
            const auto known = spellings_.find(text::lowered(std::u16string_view(line).substr(at, end - at)));
            if (known != spellings_.end()) {
                line.replace(at, end - at, known->second);
                end = at + known->second.size();
            }
            at = end;
        }
    }

    Text format(const Text& source, const Text& role, bool closes, bool isPass) {
        Text line = source;
        const bool raises = isPass && updateLevel(trimmed(text::lowered(line)), role);

        const std::size_t marker = line.find(u'\'');
        const Text comment = marker == Text::npos ? Text() : line.substr(marker);
        std::vector<Text> literals;
        for (std::size_t open = line.find(u'"'); open != Text::npos;) {
            const std::size_t close = line.find(u'"', open + 1), next = line.find(u'\'', open + 1);
            if (close == Text::npos || next < close) break;
            literals.push_back(line.substr(open + 1, close - open - 1));
            open = line.find(u'"', close + 1);
        }

        std::size_t lead = blanksOf(line);
        space(line);
        if (lead > 0 && isColumnZero(trimmed(text::lowered(line)))) {
            line.erase(0, blanksOf(line));
            lead = 0;
        }
        const long own = static_cast<long>(blanksOf(line));
        const long blanks = isPass ? 2L * level - 1 : static_cast<long>(lead) - (closes ? 2 : 0) - own;
        line.insert(0, Text(static_cast<std::size_t>(std::max(0L, blanks)), u' '));
        if (raises) ++level;
        recase(line);

        if (marker != Text::npos) line.replace(line.find(u'\''), Text::npos, comment);
        std::size_t from = 0;
        for (const Text& literal : literals) {
            const std::size_t open = line.find(u'"', from), close = line.find(u'"', open + 1);
            line.replace(open + 1, close - open - 1, literal);
            from = open + literal.size() + 2;
        }
        return line;
    }

    static bool isColumnZero(const Text& t) {
        for (const char16_t* scope : {u"", u"public ", u"private "}) {
            for (const char16_t* kind : {u"sub ", u"function ", u"property ", u"delegate ", u"action ", u"ibaction ",
                                         u"iboutlet ", u"event "}) {
                if (t.rfind(Text(scope).append(kind), 0) == 0) return true;
            }
        }
        return false;
    }

    std::map<Text, Text> spellings_;
    std::vector<Text> keywords_;
};

}  // namespace velt::test
