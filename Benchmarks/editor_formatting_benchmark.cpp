// What a person waits for when the editor formats and completes: a line at Return, a whole text, a key in a popup.
#include "VELTRuntime/editor/completion_candidates.h"
#include "VELTRuntime/editor/completion_popup.h"
#include "VELTRuntime/editor/source_document.h"
#include "VELTRuntime/editor/source_formatter.h"

#include <VELTRuntime/VELTRuntime.h>

#include <benchmark/benchmark.h>

namespace {

using namespace velt;

id arrayOfWords(std::initializer_list<std::string_view> words) {
    Ref<NSMutableArray> result = make<NSMutableArray>();
    for (const std::string_view word : words) result->append(velt::string(word));
    return result;
}

/// A host with a language of some size.
struct Host : FormatterHost {
    WordLists wordLists() override {
        return {arrayOfWords({"Sub",  "Function", "If",     "Then", "Else",   "End",     "For",    "To",
                              "Next", "Do",       "While",  "Loop", "Dim",    "As",      "Return", "And",
                              "Or",   "Not",      "Select", "Case", "Public", "Private", "New"}),
                arrayOfWords({"Len", "Mid", "Left", "Right", "InStr", "Replace", "Split", "MsgBox", "Str", "Val"}),
                arrayOfWords({"Integer", "String", "Double", "Boolean", "NSWindow", "NSButton", "NSTextField"})};
    }
    void lineEndTyped(std::size_t) override {}
    void changeHandled(std::size_t, std::u16string_view) override {}
};

/// Untidy source of so many lines.
std::u16string untidySource(std::int64_t lines) {
    static const std::u16string_view kLines[] = {
        u"function Total ( entries as Ledger,kind as string ) as double\n",
        u" dim sum as double=0 ' the sum so far\n",
        u" for i=0 to entries.Count-1\n",
        u"   if entries(i).Kind=kind AND entries(i).Amount<>0 then\n",
        u"  sum=sum+entries(i).Amount*rate/100 'in the ledger's own currency\n",
        u" print \"sum: a+b=c\"&str(sum)&\", \"&kind\n",
        u" end if\n",
        u" next i\n",
        u" return sum\n",
        u"end function\n",
    };
    std::u16string text;
    for (std::int64_t i = 0; i < lines; ++i) text += kLines[static_cast<std::size_t>(i) % std::size(kLines)];
    return text;
}

void formatAText(benchmark::State& state) {
    const std::u16string text = untidySource(state.range(0));
    Host host;
    for (auto _ : state) {
        state.PauseTiming();
        SourceDocument document(text);
        FormatterState shared;
        SourceFormatter formatter(document, host, shared);
        formatter.turnOn();
        state.ResumeTiming();
        formatter.formatText();
        benchmark::DoNotOptimize(document.buffer().length());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(formatAText)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Complexity();

/// Return at the end of a line in the middle of a text: the line end, the line's new form, the new line's indentation.
void finishALine(benchmark::State& state) {
    SourceDocument document(untidySource(state.range(0)));
    Host host;
    FormatterState shared;
    SourceFormatter formatter(document, host, shared);
    formatter.turnOn();
    const std::size_t begin = document.buffer().lineStart(document.buffer().lineCount() / 2);
    constexpr std::u16string_view kLine = u"    if entries(i).Kind=kind AND entries(i).Amount<>0 then";
    for (auto _ : state) {
        document.select({begin, 0});
        document.insertText(kLine);
        const std::size_t position = begin + kLine.size();
        document.insertText(u"\n");
        formatter.textTyped(position, u"\n");
        state.PauseTiming();
        document.change({begin, document.selectedRange().location - begin}, {});
        state.ResumeTiming();
    }
}
BENCHMARK(finishALine)->Arg(100)->Arg(100'000);

std::vector<std::u16string> names(std::size_t count) {
    std::vector<std::u16string> result;
    result.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i * 7919 % count);
        result.emplace_back(u"memberOfTheWindow").append(number.begin(), number.end());
    }
    return result;
}

struct Nothing : PopupWindow, CompletionPopup::Owner {
    void run(CompletionPopup&) override {}
    void paste() override {}
    void popupChose() override {}
};

/// A letter and Backspace in a popup of so many names.
void filterCandidates(benchmark::State& state) {
    SourceDocument document(u"window.memberOfTheWindo");
    Nothing around;
    document.select({document.buffer().length(), 0});
    CompletionPopup popup(document, around, around, names(static_cast<std::size_t>(state.range(0))), 7, 16,
                          {.members = true});
    constexpr char16_t kBackspace = 8;
    for (auto _ : state) {
        popup.keyTyped(u"w", false);
        popup.keyTyped(std::u16string_view(&kBackspace, 1), false);
    }
}
BENCHMARK(filterCandidates)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void openAPopup(benchmark::State& state) {
    SourceDocument document(u"window.");
    Nothing around;
    const std::vector<std::u16string> candidates = names(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        const CompletionPopup popup(document, around, around, candidates, 7, 0, {.members = true});
        benchmark::DoNotOptimize(popup.rowCount());
    }
}
BENCHMARK(openAPopup)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
