#include "VELTRuntime/editor/completion.h"

#include "completing.h"

namespace velt::test {

namespace {

constexpr CompletionModes kNone{}, kTypes{.types = true}, kMembers{.members = true}, kArguments{.arguments = true};

using Script = std::function<void(CompletionPopup&)>;
Script press(std::u16string keys) {
    return [keys = std::move(keys)](CompletionPopup& popup) { popup.keyTyped(keys, false); };
}

}  // namespace

TEST(Completions, WaitForMembersBehindADot) {
    CompletingEditor editor(u"y = obj.items(3)");
    editor.type(u".");
    EXPECT_EQ(kMembers, editor.completion.modes());
    EXPECT_EQ(u"obj.items(3)", editor.completion.expression());
    EXPECT_EQ(17U, editor.completion.nextInsertion());
    EXPECT_EQ(15U, editor.completion.beforeNextInsertion());
    EXPECT_EQ(17U, editor.completion.lastInsertion());
    EXPECT_EQ(1, editor.completion.runningCount());
    EXPECT_TRUE(editor.isTimerRunning);
    EXPECT_EQ(0.5, editor.delay);
    EXPECT_EQ(0, editor.popupsShown);
}

TEST(Completions, AskForTheMembersOfTheExpression) {
    CompletingEditor editor(u"f(a.b");
    std::string rows;
    editor.scripts.push_back([&](CompletionPopup& popup) { rows = rowsOf(popup); });
    editor.type(u".");
    editor.rest();
    EXPECT_EQ((std::vector<std::string>{"a.b"}), editor.asked);
    EXPECT_EQ("Name count() items(index) name", rows);
    EXPECT_EQ(kNone, editor.completion.modes());
    EXPECT_EQ(0, editor.completion.runningCount());
    EXPECT_TRUE(editor.completion.running().empty());
    EXPECT_EQ(nullptr, editor.completion.popup());
}

TEST(Completions, OpenWithWhatWasTypedWhileTheyWaited) {
    CompletingEditor editor(u"a");
    editor.scripts.push_back(press(u"\r"));
    editor.type(u".ite");
    editor.rest();
    EXPECT_EQ("a.items(", editor.text());
}

TEST(Completions, OpenOnePopupForTwoDotsInQuickSuccession) {
    CompletingEditor editor(u"a");
    editor.type(u"..");
    EXPECT_EQ(2, editor.timersStarted);
    EXPECT_EQ(2, editor.completion.runningCount());
    editor.rest();
    EXPECT_EQ(1, editor.popupsShown);
    EXPECT_EQ(0, editor.completion.runningCount());
}

TEST(Completions, CountTimersThatWereGivenUpAsAnsweredWithTheLastOne) {
    for (const char16_t* last : {u"\u001B", u"na\r"}) {
        CompletingEditor editor(u"a");
        editor.scripts.push_back([&](CompletionPopup& popup) {
            EXPECT_EQ(1, editor.completion.runningCount());
            popup.keyTyped(last, false);
        });
        editor.type(u"(b..");
        editor.completion.requestAll();
        EXPECT_EQ(4, editor.completion.runningCount());
        editor.rest();
        EXPECT_EQ(0, editor.completion.runningCount());
        EXPECT_TRUE(editor.completion.running().empty());
        // Types are offered again.
        editor.type(u" as ");
        EXPECT_TRUE(editor.isTimerRunning);
    }
}

TEST(Completions, CountATimerThatWasStoppedAsAnsweredWithTheNextOne) {
    CompletingEditor editor(u"a");
    editor.type(u".");
    editor.completion.stopTimer();
    EXPECT_EQ(1, editor.completion.runningCount());
    editor.type(u".");
    EXPECT_EQ(2, editor.completion.runningCount());
    editor.rest();
    EXPECT_EQ(0, editor.completion.runningCount());
}

TEST(Completions, GoOnAskingWhenTheHostLetsThePersonTypeMeanwhile) {
    class SlowHost final : public CompletingEditor {
    public:
        using CompletingEditor::CompletingEditor;
        Names members(const std::u16string& expression) override {
            const Names answer = CompletingEditor::members(expression);
            if (!meanwhile.empty()) type(std::exchange(meanwhile, {}));
            if (std::exchange(waitsForTimer, false)) rest();
            return answer;
        }
        std::u16string meanwhile;
        bool waitsForTimer = false;
    };
    for (const bool waitsForTimer : {false, true}) {
        SlowHost editor(u"a");
        editor.meanwhile = u"b.";
        editor.waitsForTimer = waitsForTimer;
        editor.scripts.push_back([&](CompletionPopup& popup) {
            EXPECT_EQ(kMembers, popup.modes());
            EXPECT_EQ(4U, editor.completion.running()[0].location);
        });
        editor.type(u".");
        editor.rest();
        EXPECT_EQ((std::vector<std::string>{"a", "a.b"}), editor.asked);
        EXPECT_EQ(1, editor.popupsShown);
        EXPECT_EQ(0, editor.completion.runningCount());
        EXPECT_TRUE(editor.completion.running().empty());
    }
    SlowHost editor(u"a");
    editor.meanwhile = u"x as ";
    editor.scripts.push_back([](CompletionPopup& popup) { EXPECT_EQ(kTypes, popup.modes()); });
    editor.type(u".");
    editor.rest();
    EXPECT_EQ(1, editor.popupsShown);
    EXPECT_EQ(0, editor.completion.runningCount());
}

TEST(Completions, ShowTheSignatureBehindAParenthesis) {
    CompletingEditor editor(u"x = Mid");
    std::string rows;
    editor.scripts.push_back([&](CompletionPopup& popup) { rows = rowsOf(popup); });
    editor.type(u"(");
    EXPECT_EQ(kArguments, editor.completion.modes());
    editor.rest();
    EXPECT_EQ((std::vector<std::string>{"Mid"}), editor.asked);
    EXPECT_EQ(
        "<font face=\"Monaco\" size=\"-1\">Mid(<font face=\"Monaco\" size=\"-1\" color=\"red\">s As String</font>, "
        "start As Integer, length As Integer) As String</font>",
        rows);
}

TEST(Completions, OfferTypesBehindAsAndASpace) {
    CompletingEditor editor(u"dim x");
    std::string rows;
    editor.scripts.push_back([&](CompletionPopup& popup) { rows = rowsOf(popup); });
    editor.type(u" As");
    EXPECT_FALSE(editor.isTimerRunning);
    editor.type(u" ");
    EXPECT_TRUE(editor.isTimerRunning);
    EXPECT_EQ(kTypes, editor.completion.modes());
    editor.rest();
    EXPECT_EQ("Integer Single String", rows);
}

TEST(Completions, StartNoSecondTimerForAFurtherSpace) {
    CompletingEditor editor(u"dim x as");
    editor.type(u" ");
    editor.type(u" ");
    EXPECT_EQ(1, editor.timersStarted);
    EXPECT_EQ(1, editor.completion.runningCount());
    EXPECT_EQ(10U, editor.completion.nextInsertion());
}

TEST(Completions, KeepOfferingTypesUntilAnotherTrigger) {
    CompletingEditor editor(u"dim x as");
    editor.type(u"\n");
    EXPECT_EQ(kTypes, editor.completion.modes());
    editor.type(u"abc");
    EXPECT_FALSE(editor.isTimerRunning);
    editor.type(u" ");
    EXPECT_TRUE(editor.isTimerRunning);
    CompletingEditor other(u"dim x as");
    other.type(u"\na.");
    EXPECT_EQ(kMembers, other.completion.modes());
}

TEST(Completions, NeedSomethingBeforeAs) {
    CompletingEditor editor(u" as");
    editor.type(u" ");
    EXPECT_EQ(kNone, editor.completion.modes());
    CompletingEditor word(u"alias");
    word.type(u" ");
    EXPECT_EQ(kNone, word.completion.modes());
    CompletingEditor shortest(u"x as");
    shortest.type(u" ");
    EXPECT_EQ(kTypes, shortest.completion.modes());
}

TEST(Completions, LookOnlyIntoTheTextThereIs) {
    CompletingEditor editor(u"ab");
    editor.completion.textTyped(90, u" ");
    EXPECT_EQ(kNone, editor.completion.modes());
    editor.completion.textTyped(90, u".");
    EXPECT_EQ(u"ab", editor.completion.expression());
    EXPECT_EQ(91U, editor.completion.lastInsertion());
}

TEST(Completions, TakeTheExpressionFromTheCaretsLineOnly) {
    CompletingEditor editor(u"a.\nb");
    editor.type(u".");
    EXPECT_EQ(u"b", editor.completion.expression());
}

TEST(Completions, OfferEverythingAtEscape) {
    CompletingEditor editor(u"ab");
    std::u16string typed = u"?";
    editor.scripts.push_back([&](CompletionPopup& popup) { typed = popup.typed(); });
    editor.completion.setModes(kArguments);
    editor.completion.requestAll();
    EXPECT_EQ(kMembers, editor.completion.modes());
    EXPECT_EQ(4U, editor.completion.lastInsertion());
    EXPECT_EQ(4U, editor.completion.nextInsertion());
    EXPECT_EQ(2U, editor.completion.beforeNextInsertion());
    editor.rest();
    EXPECT_EQ((std::vector<std::string>{"!§$%&/()=?"}), editor.asked);
    EXPECT_EQ(u"", typed);
}

TEST(Completions, OpenNothingWithoutAMode) {
    CompletingEditor editor(u"ab");
    editor.completion.startTimer();
    editor.rest();
    EXPECT_EQ(0, editor.popupsShown);
    EXPECT_EQ(1, editor.completion.runningCount());
    EXPECT_FALSE(editor.isTimerRunning);
}

TEST(Completions, ClearTheModesWhileAPopupIsOpen) {
    CompletingEditor editor(u"a");
    CompletionModes within = kTypes;
    editor.scripts.push_back([&](CompletionPopup& popup) {
        within = editor.completion.modes();
        EXPECT_EQ(kMembers, popup.modes());
        EXPECT_EQ(1U, editor.completion.running().size());
        EXPECT_EQ(kMembers, editor.completion.running()[0].modes);
        EXPECT_EQ(2U, editor.completion.running()[0].location);
        EXPECT_EQ(1, editor.completion.running()[0].length);
    });
    editor.type(u".n");
    editor.rest();
    EXPECT_EQ(kNone, within);
}

TEST(Completions, CountAChoiceAsAnswered) {
    CompletingEditor editor(u"a");
    editor.scripts.push_back(press(u"na\r"));
    editor.type(u".");
    editor.rest();
    EXPECT_EQ("a.Name", editor.text());
    EXPECT_EQ(0, editor.completion.runningCount());
    EXPECT_TRUE(editor.completion.running().empty());
}

TEST(Completions, GoOnWithTheArgumentsOfAChosenMember) {
    CompletingEditor editor(u"a");
    editor.scripts.push_back(press(u"it\r"));
    editor.scripts.push_back(press(u"1)"));
    editor.type(u".");
    editor.rest();
    EXPECT_EQ(2, editor.popupsShown);
    EXPECT_EQ("a.items(1)", editor.text());
    EXPECT_EQ((std::vector<std::string>{"a", "a.items"}), editor.asked);
    EXPECT_EQ(0, editor.completion.runningCount());
    EXPECT_TRUE(editor.completion.running().empty());
}

TEST(Completions, GiveWayToANewerOneAndComeBack) {
    CompletingEditor editor(u"Mid");
    std::vector<std::string> rows;
    // The argument is an expression with members of its own.
    editor.scripts.push_back([&](CompletionPopup& popup) {
        popup.keyTyped(u"b.", false);
        EXPECT_EQ(PopupResult::Chosen, popup.result());
    });
    editor.scripts.push_back([&](CompletionPopup& popup) {
        rows.push_back(rowsOf(popup));
        EXPECT_EQ(2U, editor.completion.running().size());
        popup.keyTyped(u"\u001B", false);
    });
    editor.scripts.push_back([&](CompletionPopup& popup) {
        EXPECT_EQ(kArguments, popup.modes());
        EXPECT_EQ(1U, editor.completion.running().size());
        EXPECT_EQ(4U, editor.completion.running()[0].location);
        EXPECT_EQ(3, editor.completion.running()[0].length);
        popup.keyTyped(u"\u001B", false);
    });
    editor.type(u"(");
    editor.rest();
    EXPECT_EQ((std::vector<std::string>{"Name count() items(index) name"}), rows);
    EXPECT_EQ(3, editor.popupsShown);
    EXPECT_EQ("Mid(b.", editor.text());
    EXPECT_EQ(0, editor.completion.runningCount());
    EXPECT_TRUE(editor.completion.running().empty());
}

TEST(Completions, LeaveNoPopupBehindWhenTheirWindowFails) {
    CompletingEditor editor(u"a");
    editor.scripts.push_back([](CompletionPopup&) { throw std::runtime_error("no window"); });
    editor.type(u".");
    EXPECT_THROW(editor.rest(), std::runtime_error);
    EXPECT_EQ(nullptr, editor.completion.popup());
}

TEST(Completions, DropAnOldEntryWhenMoreTimersWereCounted) {
    CompletingEditor editor(u"a");
    editor.completion.setRunningCount(3);
    editor.scripts.push_back([&](CompletionPopup& popup) { popup.end(PopupResult::Chosen); });
    editor.completion.setModes(kMembers);
    editor.completion.timerFired();
    EXPECT_EQ(1, editor.completion.runningCount());
    EXPECT_TRUE(editor.completion.running().empty());
}

TEST(Completions, KeepTheEntryOfAPopupThatGaveWay) {
    CompletingEditor editor(u"a");
    editor.completion.setRunningCount(2);
    editor.scripts.push_back([&](CompletionPopup& popup) { popup.end(PopupResult::Chosen); });
    editor.completion.setModes(kMembers);
    editor.completion.timerFired();
    EXPECT_EQ(1, editor.completion.runningCount());
    EXPECT_EQ(1U, editor.completion.running().size());
}

}  // namespace velt::test
