// An editor without a window that completes: time passes and keys are pressed as a test says.
#pragma once

#include "VELTRuntime/editor/completion.h"
#include "VELTRuntime/editor/source_document.h"
#include "VELTRuntime/values/text/utf.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>

namespace velt::test {

class CompletingEditor : public SourceDocument, public CompletionHost, public PopupWindow {
public:
    using Names = std::vector<std::u16string>;

    explicit CompletingEditor(std::u16string_view text = {}) : SourceDocument(text) { select({buffer().length(), 0}); }

    // The document: what is inserted by typing is told to the completions.
    void insertText(std::u16string_view text) override {
        const std::size_t position = selectedRange().location;
        SourceDocument::insertText(text);
        completion.textTyped(position, text);
    }
    void beep() override { ++beeps; }

    // The host.
    void startTimer(double seconds) override {
        isTimerRunning = true;
        delay = seconds;
        ++timersStarted;
    }
    void stopTimer() override { isTimerRunning = false; }
    Names types() override { return typeNames; }
    Names members(const std::u16string& expression) override {
        asked.push_back(text::toUtf8(expression));
        return memberNames;
    }
    std::u16string signature(const std::u16string& expression) override {
        asked.push_back(text::toUtf8(expression));
        return signatureText;
    }

    // The window: each popup is worked by the next script, and cancelled when that leaves it open.
    void run(CompletionPopup& popup) override {
        ++popupsShown;
        EXPECT_EQ(&popup, completion.popup());
        if (scripts.empty()) return popup.end(PopupResult::Cancelled);
        const auto script = scripts.front();
        scripts.pop_front();
        script(popup);
        if (!popup.result()) popup.end(PopupResult::Cancelled);
    }
    void paste() override { ++pastes; }

    /// Types a text, character by character.
    void type(std::u16string_view text) {
        for (const char16_t unit : text) insertText(std::u16string_view(&unit, 1));
    }
    /// Lets the time pass until nothing waits any more.
    void rest() {
        for (int timers = 0; isTimerRunning; ++timers) {
            ASSERT_LT(timers, 20);
            isTimerRunning = false;
            completion.timerFired();
        }
    }
    std::string text() const { return text::toUtf8(buffer().text()); }

    Names typeNames{u"Integer", u"String", u"Single"}, memberNames{u"name", u"items(index)", u"count()", u"Name"};
    std::u16string signatureText = u"Mid(s As String, start As Integer, length As Integer) As String";
    std::deque<std::function<void(CompletionPopup&)>> scripts;
    std::vector<std::string> asked;
    bool isTimerRunning = false;
    double delay = 0;
    int timersStarted = 0, popupsShown = 0, beeps = 0, pastes = 0;
    Completion completion{*this, *this, *this};
};

inline std::string rowsOf(const CompletionPopup& popup) {
    std::string rows;
    for (std::size_t i = 0; i < popup.rowCount(); ++i) {
        if (i > 0) rows += ' ';
        rows += text::toUtf8(popup.row(i));
        if (popup.selectedRow() == i) rows += '*';
    }
    return rows;
}

}  // namespace velt::test
