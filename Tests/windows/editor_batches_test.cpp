// Commands of the editor that nobody hears of step by step reach the view as one change: nothing else may differ.
#include "windows/editor_support.h"

#include "VELTRuntime/editor/source_formatter.h"
#include "VELTRuntime/platform/foundation/notification_center.h"

#include <QScrollBar>
#include <random>

using namespace velt::test;
using velt::Ref;

namespace {

std::string rangesOf(const EditorWindow& shown) {
    return velt::utf8(velt::description(velt::send(shown.view, "selectedRanges")));
}

/// All that a program or a person can see of an editor.
std::string stateOf(const EditorWindow& shown) {
    std::string state = shown.text();
    for (const std::string& part : {rangesOf(shown), shown.breakpoints(), shown.separators(), shown.colours(),
                                    velt::utf8(velt::description(velt::send(shown.view, "nIndent"))),
                                    velt::utf8(velt::string(shown.editor().buffer().text())), drawnText(*shown.widget),
                                    std::to_string(shown.widget->insertionPoint())}) {
        state.append("\n--\n").append(part);
    }
    return state;
}

/// Counts the changes of an editor's text.
class TextChanges final : public velt::StorageWatcher {
public:
    TextChanges(const EditorWindow& shown, int& count) : storage_(shown.editor().textStorage()), count_(count) {
        velt::as<NSTextStorage>(storage_)->addWatcher(*this);
    }
    ~TextChanges() { velt::as<NSTextStorage>(storage_)->removeWatcher(*this); }
    TextChanges(const TextChanges&) = delete;
    TextChanges& operator=(const TextChanges&) = delete;
    void storageChanged(NSRange, std::size_t, bool) override { ++count_; }

private:
    id storage_;
    int& count_;
};

class Pairs {
public:
    explicit Pairs(unsigned seed) : random_(seed) {
        VELT_NSTEXTVIEW_DELEGATE(bySteps.view, host);
        host->tells = false;
        for (const EditorWindow* each : {&atOnce, &bySteps}) VELT_VLTEXTVIEW_TURNONAUTOINDENT(each->view);
    }
    unsigned long below(unsigned long limit) { return std::uniform_int_distribution<unsigned long>(0, limit)(random_); }
    void begin() {
        constexpr const char* kPieces[] = {"if a=b then\n",
                                           "  ",
                                           "\t",
                                           "print \"x'y\"\r\n",
                                           "else 'c\n",
                                           "end if",
                                           "Dim q\n",
                                           "a a a",
                                           "\n",
                                           "\r",
                                           "sub Main\n",
                                           "select case a\ncase 1\n"};
        std::string text;
        for (unsigned long i = below(12); i-- > 0;) text += kPieces[below(std::size(kPieces) - 1)];
        for (const EditorWindow* each : {&atOnce, &bySteps}) {
            VELT_NSTEXTVIEW_VALUE(each->view, str(text));
            id entries[] = {integer(2), integer(5)};
            VELT_VLTEXTVIEW_BREAKPOINTS(each->view, id(velt::make<NSMutableArray>(velt::MovedValues{entries})));
            VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(each->view);
        }
    }
    void selectSomething() {
        const unsigned long length = atOnce.editor().textLength();
        const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
        unsigned long begin = below(length);
        for (unsigned long i = below(2) + 1; i-- > 0 && begin <= length;) {
            const unsigned long end = begin + below(length - begin);
            list->append(VELT_ID(NSRange{begin, end - begin}));
            begin = end + 1;
        }
        both([&](const EditorWindow& shown) { velt::send(shown.view, "setSelectedRanges:", list); });
    }
    template <class Command> void both(Command&& command) {
        for (const EditorWindow* each : {&atOnce, &bySteps}) {
            velt::FormatterState::ofProcess().isCaseOpen = false;
            command(*each);
        }
    }

    EditorWindow atOnce, bySteps;
    Ref<EditorHost> host = velt::make<EditorHost>();

private:
    std::mt19937 random_;
};

using Command = id (*)(const id&);
constexpr Command kCommands[] = {VELT_VLTEXTVIEW_SHIFTLEFT, VELT_VLTEXTVIEW_SHIFTRIGHT, VELT_VLTEXTVIEW_COMMENT,
                                 VELT_VLTEXTVIEW_UNCOMMENT, VELT_VLTEXTVIEW_UPPERCASE,  VELT_VLTEXTVIEW_LOWERCASE,
                                 VELT_VLTEXTVIEW_AUTOFORMAT};

}  // namespace

TEST(EditorBatches, LeaveEverythingAsSingleChangesDo) {
    constexpr unsigned kSeed = 20261122;
    SCOPED_TRACE(kSeed);
    Pairs pair(kSeed);
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        pair.begin();
        ASSERT_EQ(stateOf(pair.bySteps), stateOf(pair.atOnce));
        for (int i = 0; i < 8; ++i) {
            pair.selectSomething();
            const unsigned long which = pair.below(std::size(kCommands) + 2);
            const std::string before = stateOf(pair.atOnce);
            pair.both([&](const EditorWindow& shown) {
                if (which < std::size(kCommands))
                    kCommands[which](shown.view);
                else if (which == std::size(kCommands))
                    VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str("a"), str("aa"));
                else if (which == std::size(kCommands) + 1)
                    VELT_VLTEXTVIEW_FINDREPLACE(shown.view, str("x"));
                else
                    velt::send(shown.view, "insertTab:", nil);
            });
            ASSERT_EQ(stateOf(pair.bySteps), stateOf(pair.atOnce)) << "command " << which << " of\n" << before;
        }
        EXPECT_GT(pair.host->asked, 0);
        while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(pair.bySteps.view))) {
            pair.both([](const EditorWindow& shown) { VELT_NSTEXTVIEW_UNDO(shown.view); });
            ASSERT_EQ(stateOf(pair.bySteps), stateOf(pair.atOnce));
        }
        EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(pair.atOnce.view)));
        while (VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(pair.bySteps.view))) {
            pair.both([](const EditorWindow& shown) { VELT_NSTEXTVIEW_REDO(shown.view); });
            ASSERT_EQ(stateOf(pair.bySteps), stateOf(pair.atOnce));
        }
        EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(pair.atOnce.view)));
    }
}

TEST(EditorBatches, ShowTheTextOnce) {
    EditorWindow shown("one\ntwo\nthree\n");
    int changes = 0;
    const TextChanges watch(shown, changes);
    shown.select(0, 12);
    VELT_VLTEXTVIEW_COMMENT(shown.view);
    EXPECT_EQ("'one\n'two\n'three\n", shown.text());
    EXPECT_EQ(1, changes);
    VELT_NSTEXTVIEW_UNDO(shown.view);
    EXPECT_EQ("one\ntwo\nthree\n", shown.text());
    EXPECT_EQ("{0, 0}", shown.selected());
    EXPECT_EQ(2, changes);
}

TEST(EditorBatches, AreUndoneStepByStepForWhoListensMeanwhile) {
    EditorWindow shown("one\ntwo\nthree\n");
    shown.select(0, 12);
    VELT_VLTEXTVIEW_SHIFTRIGHT(shown.view);
    const Ref<EditorHost> host = velt::make<EditorHost>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
    VELT_NSTEXTVIEW_UNDO(shown.view);
    EXPECT_EQ("one\ntwo\nthree\n", shown.text());
    EXPECT_EQ(3, host->heard);
    VELT_NSTEXTVIEW_DELEGATE(shown.view, nil);
    VELT_NSTEXTVIEW_REDO(shown.view);
    EXPECT_EQ("  one\n  two\n  three\n", shown.text());
}

TEST(EditorBatches, AreMadeBySingleChangesForObservers) {
    EditorWindow shown("one\ntwo\n");
    const Ref<EditorHost> host = velt::make<EditorHost>();
    auto& center = NSNotificationCenter::defaultCenter();
    center.addObserver(host, velt::Selector::named("textDidChange:"), str("NSTextDidChangeNotification"), shown.view);
    shown.select(0, 8);
    VELT_VLTEXTVIEW_COMMENT(shown.view);
    EXPECT_EQ("'one\n'two\n", shown.text());
    EXPECT_EQ(2, host->heard);
    center.removeObserver(host);
}

TEST(EditorBatches, KeepWhatCannotBeEdited) {
    EditorWindow shown("one\ntwo\n");
    shown.editor().setEditable(false);
    shown.select(0, 8);
    VELT_VLTEXTVIEW_COMMENT(shown.view);
    EXPECT_VALUE("q 0", VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str("o"), str("x")));
    EXPECT_EQ("one\ntwo\n", shown.text());
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(shown.view));
}

TEST(EditorBatches, StayWhereTheTextWasScrolled) {
    std::string text;
    for (int i = 0; i < 20000; ++i) text += "line " + std::to_string(i) + "\n";
    EditorWindow shown(text, true);
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view);
    VELT_VLTEXTVIEW_GOTOLINE(shown.view, integer(9000));
    const int place = shown.widget->verticalScrollBar()->value();
    EXPECT_GT(place, 8000);
    shown.select(0, shown.editor().textLength());
    shown.widget->verticalScrollBar()->setValue(place);
    VELT_VLTEXTVIEW_SHIFTRIGHT(shown.view);
    EXPECT_EQ(place, shown.widget->verticalScrollBar()->value());
    EXPECT_EQ("  line 9000", shown.widget->layoutOf(9000).text().toStdString());
}
