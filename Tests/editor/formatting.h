// What the formatter's tests share: the lists of a language, and a document that is typed into.
#pragma once

#include "VELTRuntime/editor/source_document.h"
#include "VELTRuntime/editor/source_formatter.h"
#include "VELTRuntime/values/text/utf.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velt::test {

inline std::string shown(std::u16string_view text) { return text::toUtf8(text); }

/// The lists of a language, as tests write them.
struct LanguageWords {
    std::vector<std::u16string> keywords, builtins, types;

    WordLists lists() const { return {arrayOfTexts(keywords), arrayOfTexts(builtins), arrayOfTexts(types)}; }
    Recasing recasing() const { return Recasing(lists()); }

private:
    static id arrayOfTexts(const std::vector<std::u16string>& texts) {
        Ref<NSMutableArray> result = make<NSMutableArray>();
        for (const std::u16string& text : texts) result->append(velt::string(text));
        return result;
    }
};

inline LanguageWords smallLanguage() {
    return {.keywords = {u"If",     u"Then",     u"Else",     u"End",  u"For", u"To",  u"Next",
                         u"Do",     u"Loop",     u"While",    u"Dim",  u"As",  u"Sub", u"Function",
                         u"Public", u"Private",  u"Select",   u"Case", u"And", u"Or",  u"Not",
                         u"Return", u"Property", u"Delegate", u"Event"},
            .builtins = {u"Len", u"Mid", u"MsgBox"},
            .types = {u"Integer", u"String", u"NSWindow"}};
}

/// An editor without a window: what is typed goes into a document and is formatted.
struct FormattedDocument : FormatterHost {
    explicit FormattedDocument(std::u16string_view text = {}, LanguageWords language = smallLanguage())
        : document(text), words(std::move(language)) {
        formatter.turnOn();
    }

    WordLists wordLists() override {
        ++timesAsked;
        return words.lists();
    }
    void lineEndTyped(std::size_t selectionLocation) override { lineEnds.push_back(selectionLocation); }
    void changeHandled(std::size_t position, std::u16string_view typed) override {
        handled.emplace_back(position, std::u16string(typed));
    }

    void moveTo(std::size_t position) { document.select({position, 0}); }
    /// Types a text, character by character.
    void type(std::u16string_view text) {
        for (const char16_t unit : text) {
            const std::u16string typed(1, unit);
            const std::size_t position = document.selectedRange().location;
            document.insertText(typed);
            formatter.textTyped(position, typed);
        }
    }
    std::string text() const { return shown(document.buffer().text()); }
    std::size_t caret() const { return document.selectedRange().location; }

    SourceDocument document;
    LanguageWords words;
    FormatterState shared;
    SourceFormatter formatter{document, *this, shared};
    std::vector<std::size_t> lineEnds;
    std::vector<std::pair<std::size_t, std::u16string>> handled;
    int timesAsked = 0;
};

}  // namespace velt::test
