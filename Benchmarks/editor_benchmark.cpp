// What a person waits for in the editor: a key in a long file, its colours, opening it, replacing a word in all of it.
#include "VELTRuntime/editor/block_commands.h"
#include "VELTRuntime/editor/highlighter.h"
#include "VELTRuntime/editor/search_commands.h"
#include "VELTRuntime/editor/source_document.h"
#include "VELTRuntime/values/text/utf.h"

#include <VELTRuntime/VELTRuntime.h>

#include <benchmark/benchmark.h>

namespace {

/// A source of so many lines of about fifty units; every line holds the word "counter" once.
std::u16string source(std::int64_t lines) {
    constexpr std::u16string_view kLines[] = {
        u"  if counter > 10 then ' more than \"enough\" of them\n",
        u"    dim total as integer : counter = counter_of(x)\n",
        u"    msgbox \"it's \" & counter & \" of these\", 3\n",
        u"    total = total + first(counter, 1) * 2 - offset\n",
        u"  end if : counter := another_name.with_members(3)\n",
    };
    std::u16string text;
    for (std::int64_t i = 0; i < lines; ++i) text += kLines[i % 5];
    return text;
}

velt::Vocabulary vocabulary() {
    const auto list = [](std::initializer_list<std::string_view> words) {
        velt::Ref<NSMutableArray> array = velt::make<NSMutableArray>();
        for (const std::string_view word : words) array->append(velt::string(word));
        return id(array);
    };
    return velt::Vocabulary({list({"if", "then", "dim", "as", "end", "for", "next", "sub"}),
                             list({"msgbox", "first", "left", "mid"}), list({"integer", "string"})});
}

/// A document with its colours, all laid once.
struct Page {
    explicit Page(std::int64_t lines) : document(source(lines)) { highlighter.highlight(words, {}); }
    NSRange screenAround(std::size_t line) {
        const velt::SourceBuffer& buffer = document.buffer();
        return velt::rangeBetween(buffer.lineStart(line - 30), buffer.lineStart(line + 30));
    }

    velt::SourceDocument document;
    velt::DisplayAttributes attributes{document.buffer()};
    velt::Highlighter highlighter{document.buffer(), attributes};
    velt::Vocabulary words = vocabulary();
};

/// A key in the middle of a file, and the colours of the sixty lines around it; by the file's lines and the key.
void typeAKey(benchmark::State& state, std::u16string_view key) {
    const std::int64_t lines = state.range(0);
    Page page(lines);
    const std::size_t middle = static_cast<std::size_t>(lines) / 2;
    page.document.select({page.document.buffer().lineStart(middle) + 4, 0});
    for (auto _ : state) {
        page.document.insertText(key);
        page.highlighter.highlight(page.words, {}, page.screenAround(middle));
    }
}
BENCHMARK_CAPTURE(typeAKey, letter, u"x")->Arg(100)->Arg(100000)->Unit(benchmark::kMicrosecond);
// All strings behind it change.
BENCHMARK_CAPTURE(typeAKey, quote, u"\"")->Arg(100)->Arg(100000)->Unit(benchmark::kMicrosecond);

/// A key at the one end of a file and then one at the other, with their colours.
void typeAtBothEnds(benchmark::State& state) {
    Page page(state.range(0));
    std::size_t line = 40;
    for (auto _ : state) {
        line = page.document.buffer().lineCount() - line;
        page.document.select({page.document.buffer().lineStart(line), 0});
        page.document.insertText(u"x");
        page.highlighter.highlight(page.words, {}, page.screenAround(line));
    }
}
BENCHMARK(typeAtBothEnds)->Arg(100000)->Unit(benchmark::kMicrosecond);

void highlightTheWholeText(benchmark::State& state) {
    Page page(state.range(0));
    for (auto _ : state) page.highlighter.highlight(page.words, {});
    const auto units = static_cast<std::int64_t>(page.document.buffer().length());
    state.SetBytesProcessed(state.iterations() * units);
}
BENCHMARK(highlightTheWholeText)->Arg(100000)->Arg(200000)->Unit(benchmark::kMillisecond);

void openTenMegabytes(benchmark::State& state) {
    const std::string file = velt::text::toUtf8(source(200000));
    for (auto _ : state) {
        const velt::SourceBuffer buffer(*velt::text::fromUtf8(file));
        benchmark::DoNotOptimize(buffer.lineCount());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(openTenMegabytes)->Unit(benchmark::kMillisecond);

/// A hundred thousand matches in ten million units, ready to be undone, with all colours.
void replaceAWordEverywhere(benchmark::State& state, std::u16string_view needle, bool ignoresCase) {
    std::u16string text = source(100000);
    text += std::u16string(10000000 - std::min<std::size_t>(text.size(), 10000000), u'y');
    for (auto _ : state) {
        state.PauseTiming();
        auto document = std::make_unique<velt::SourceDocument>(text);
        auto attributes = std::make_unique<velt::DisplayAttributes>(document->buffer());
        auto highlighter = std::make_unique<velt::Highlighter>(document->buffer(), *attributes);
        const velt::Vocabulary words = vocabulary();
        highlighter->highlight(words, {});
        state.ResumeTiming();
        const std::size_t count = velt::replaceAll(*document, needle, u"quantity", {ignoresCase, false, false});
        highlighter->highlight(words, {});
        state.PauseTiming();
        if (count < 99999) state.SkipWithError("not all were replaced");
        highlighter.reset();
        attributes.reset();
        document.reset();
        state.ResumeTiming();
    }
}
BENCHMARK_CAPTURE(replaceAWordEverywhere, asWritten, u"counter", false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(replaceAWordEverywhere, inAnyCase, u"COUNTER", true)->Unit(benchmark::kMillisecond);

/// The lines of a whole file, with its colours moving along, and back.
void shiftAllLines(benchmark::State& state) {
    Page page(state.range(0));
    for (auto _ : state) {
        page.document.select(page.document.buffer().whole());
        velt::shiftRight(page.document);
        state.PauseTiming();
        page.document.undo();
        state.ResumeTiming();
    }
}
BENCHMARK(shiftAllLines)->Arg(100000)->Unit(benchmark::kMillisecond);

/// A search that reaches from the middle to a match behind the last line, and backwards.
void findFarAway(benchmark::State& state) {
    velt::SourceDocument document(source(100000) + u"the only needle is here");
    for (auto _ : state) {
        document.select({document.buffer().length() / 2, 0});
        benchmark::DoNotOptimize(velt::findNext(document, u"needle", {state.range(0) != 0, false, false}));
        document.select({document.buffer().length() / 2, 0});
        benchmark::DoNotOptimize(velt::findPrevious(document, u"needle", {state.range(0) != 0, false, false}));
    }
}
BENCHMARK(findFarAway)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
