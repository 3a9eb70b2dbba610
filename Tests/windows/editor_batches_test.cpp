// The changes of the editor's commands reach the view as one where nobody can tell: nothing else may differ, neither
// for who hears nothing of single changes nor for who hears of each.
#include "windows/editor_support.h"

#include "VELTRuntime/editor/source_formatter.h"
#include "VELTRuntime/platform/foundation/notification_center.h"

#include <QScrollBar>
#include <array>
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

/// Writes down all that it hears, and what it sees of the view then.
class ChangeListener : public NSObject {
    VELT_OBJECT(ChangeListener, NSObject)

public:
    bool shouldChange(const id& view, const id& range, const id& text) {
        note("?" + velt::utf8(velt::description(range)) + velt::utf8(text), view);
        return refuses == 0 || calls % refuses != 0;
    }
    void changed(const id& notification) { note("!", velt::send(notification, "object")); }
    void selected(const id& notification) { note("s", velt::send(notification, "object")); }
    static void describe(velt::ClassBuilder<ChangeListener>& c) {
        c.method("textView:shouldChangeTextInRange:replacementString:", &ChangeListener::shouldChange)
            .method("textDidChange:", &ChangeListener::changed)
            .method("textViewDidChangeSelection:", &ChangeListener::selected);
    }
    std::string log;
    unsigned long calls = 0, looks = 0, refuses = 0;

private:
    void note(const std::string& what, const id& view) {
        log.append(what).append(velt::utf8(velt::description(velt::send(view, "selectedRanges"))));
        if (looks > 0 && ++calls % looks == 0) {
            log.append(velt::utf8(velt::send(view, "string"))).append(velt::utf8(VELT_NSTEXTVIEW_SELECTEDTEXT(view)));
        }
        log += '\n';
    }
};

/// Says whether it was asked and told of every place that was expected, one after the other.
class Counter : public NSObject {
    VELT_OBJECT(Counter, NSObject)

public:
    bool shouldChange(const id&, const id& range, const id& text) {
        const NSRange asked = VELT_CNSRANGE(range);
        areInOrder = areInOrder && !isAsked && asked == expected && velt::textOf(text) == with;
        isAsked = true;
        return true;
    }
    void changed(const id&) {
        areInOrder = areInOrder && isAsked == asks;
        isAsked = false;
        ++count;
        expected.location += step;
    }
    static void describe(velt::ClassBuilder<Counter>& c) {
        c.method("textView:shouldChangeTextInRange:replacementString:", &Counter::shouldChange)
            .method("textDidChange:", &Counter::changed);
    }
    NSRange expected;
    std::u16string with;
    unsigned long step = 0, count = 0;
    bool asks = true, isAsked = false, areInOrder = true;
};

/// Does something whenever the text has changed.
class Looker : public NSObject {
    VELT_OBJECT(Looker, NSObject)

public:
    void changed(const id& notification) {
        ++count;
        if (look) look(velt::send(notification, "object"));
    }
    static void describe(velt::ClassBuilder<Looker>& c) { c.method("textDidChange:", &Looker::changed); }
    std::function<void(const id&)> look;
    int count = 0;
};

/// Counts the changes of an editor's text.
class TextChanges final : public velt::StorageWatcher {
public:
    // Who owns the storage is shown every change in it, so this one does not.
    TextChanges(const EditorWindow& shown, int& count)
        : storage_(*velt::as<NSTextStorage>(id(shown.editor().textStorage()))), count_(count) {
        storage_.addWatcher(*this);
    }
    ~TextChanges() { storage_.removeWatcher(*this); }
    TextChanges(const TextChanges&) = delete;
    TextChanges& operator=(const TextChanges&) = delete;
    void storageChanged(NSRange, std::size_t, bool) override { ++count_; }

private:
    NSTextStorage& storage_;
    int& count_;
};

class Pairs {
public:
    explicit Pairs(unsigned seed) : random_(seed) {
        VELT_NSTEXTVIEW_DELEGATE(bySteps.view, stepHost);
        VELT_NSTEXTVIEW_DELEGATE(told.view, toldHost);
        for (const EditorWindow* each : all) VELT_VLTEXTVIEW_TURNONAUTOINDENT(each->view);
    }
    /// How often the listeners look at the text and refuse a change; 0 for never.
    void listen(unsigned long looks, unsigned long refuses) {
        for (const Ref<ChangeListener>& each : {stepHost, toldHost}) {
            each->log.clear();
            each->calls = 0;
            each->looks = looks;
            each->refuses = refuses;
        }
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
        for (const EditorWindow* each : all) {
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
        each([&](const EditorWindow& shown) { velt::send(shown.view, "setSelectedRanges:", list); });
    }
    template <class Command> void each(Command&& command) {
        for (const EditorWindow* shown : all) {
            velt::FormatterState::ofProcess().isCaseOpen = false;
            command(*shown);
        }
    }

    EditorWindow atOnce, bySteps, told;
    const std::array<const EditorWindow*, 3> all{&atOnce, &bySteps, &told};
    Ref<ChangeListener> stepHost = velt::make<ChangeListener>(), toldHost = velt::make<ChangeListener>();
    // Who has the storage itself sees each change in it at once.
    const id storage = velt::send(bySteps.view, "textStorage");

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
        // One that refuses leaves another text than who is not asked.
        const bool refuses = round % 4 == 3;
        pair.listen(static_cast<unsigned long>(round % 3) * 2, refuses ? 5 : 0);
        pair.begin();
        const auto compare = [&] {
            const std::string state = stateOf(pair.bySteps);
            if (!refuses) {
                ASSERT_EQ(state, stateOf(pair.atOnce));
            }
            ASSERT_EQ(pair.stepHost->log, pair.toldHost->log);
            ASSERT_EQ(state, stateOf(pair.told));
        };
        compare();
        for (int i = 0; i < 8; ++i) {
            if (refuses && pair.atOnce.text() != pair.bySteps.text()) pair.begin();
            pair.selectSomething();
            const unsigned long which = pair.below(std::size(kCommands) + 2);
            const std::string before = stateOf(pair.bySteps);
            pair.each([&](const EditorWindow& shown) {
                if (which < std::size(kCommands))
                    kCommands[which](shown.view);
                else if (which == std::size(kCommands))
                    VELT_VLTEXTVIEW_FINDREPLACEALL(shown.view, str("a"), str("aa"));
                else if (which == std::size(kCommands) + 1)
                    VELT_VLTEXTVIEW_FINDREPLACE(shown.view, str("x"));
                else
                    velt::send(shown.view, "insertTab:", nil);
            });
            SCOPED_TRACE("command " + std::to_string(which) + " of\n" + before);
            compare();
            if (HasFatalFailure()) return;
        }
        EXPECT_FALSE(pair.stepHost->log.empty());
        if (refuses) continue;
        while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(pair.bySteps.view))) {
            pair.each([](const EditorWindow& shown) { VELT_NSTEXTVIEW_UNDO(shown.view); });
            compare();
            if (HasFatalFailure()) return;
        }
        EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(pair.atOnce.view)));
        EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(pair.told.view)));
        while (VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(pair.bySteps.view))) {
            pair.each([](const EditorWindow& shown) { VELT_NSTEXTVIEW_REDO(shown.view); });
            compare();
            if (HasFatalFailure()) return;
        }
        EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(pair.atOnce.view)));
        EXPECT_FALSE(VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(pair.told.view)));
    }
}

TEST(EditorBatches, TellOfEachOfAHundredThousandLinesInTheirOrder) {
    constexpr unsigned long kLines = 100000;
    std::string text;
    for (unsigned long i = 0; i < kLines; ++i) text += "dim x\n";
    EditorWindow shown(text, true);
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view);
    const Ref<Counter> counter = velt::make<Counter>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, counter);
    shown.select(0, text.size());
    counter->with = u"  ";
    counter->step = 8;
    VELT_VLTEXTVIEW_SHIFTRIGHT(shown.view);
    EXPECT_TRUE(counter->areInOrder);
    EXPECT_EQ(kLines, counter->count);
    EXPECT_EQ(kLines * 8, shown.editor().textLength());
    EXPECT_EQ("  dim x\n  dim x\n", shown.text().substr(0, 16));
    // It is told of, but not asked, when it is taken back.
    counter->asks = false;
    VELT_NSTEXTVIEW_UNDO(shown.view);
    EXPECT_TRUE(counter->areInOrder);
    EXPECT_EQ(2 * kLines, counter->count);
    EXPECT_TRUE(text == shown.text());
    VELT_NSTEXTVIEW_REDO(shown.view);
    EXPECT_EQ(3 * kLines, counter->count);
    EXPECT_EQ(kLines * 8, shown.editor().textLength());
}

TEST(EditorBatches, AreShownAsSoonAsSomebodyLooks) {
    EditorWindow shown("one\ntwo\nthree\n");
    const Ref<Looker> looker = velt::make<Looker>();
    VELT_NSTEXTVIEW_DELEGATE(shown.view, looker);
    std::vector<std::string> seen;
    const std::vector<std::function<void(const id&)>> looks = {
        [&](const id& view) { seen.push_back(velt::utf8(velt::send(view, "string"))); },
        [&](const id& view) { seen.push_back(velt::utf8(velt::description(velt::send(view, "textStorage")))); },
        [&](const id& view) {
            QApplication::processEvents();
            seen.push_back(velt::utf8(velt::send(view, "string")));
        },
        [&](const id& view) {
            velt::send(view, "setSelectedRange:", range(velt::as<VLTextView>(view)->textLength(), 0));
            seen.push_back(velt::utf8(velt::send(view, "string")));
        }};
    for (const auto& look : looks) {
        seen.clear();
        looker->look = look;
        shown.select(0, 14);
        VELT_VLTEXTVIEW_COMMENT(shown.view);
        EXPECT_EQ((std::vector<std::string>{"'one\ntwo\nthree\n", "'one\n'two\nthree\n", "'one\n'two\n'three\n"}),
                  seen);
        looker->look = nullptr;
        VELT_NSTEXTVIEW_UNDO(shown.view);
        EXPECT_EQ("one\ntwo\nthree\n", shown.text());
    }
    // Who changes the text meanwhile finds all of it.
    looker->look = [&](const id& view) {
        if (looker->count == 1) velt::send(view, "replaceCharactersInRange:withString:", range(0, 1), str("#"));
        if (looker->count == 2) VELT_NSTEXTVIEW_DELEGATE(view, nil);
    };
    looker->count = 0;
    shown.select(0, 14);
    VELT_VLTEXTVIEW_COMMENT(shown.view);
    EXPECT_EQ("#one\n'two\n'three\n", shown.text());
    EXPECT_EQ(2, looker->count);
    EXPECT_EQ(shown.text(), velt::utf8(velt::string(shown.editor().buffer().text())));
    while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(shown.view))) VELT_NSTEXTVIEW_UNDO(shown.view);
    EXPECT_EQ("one\ntwo\nthree\n", shown.text());
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
