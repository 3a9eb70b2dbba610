#include "VELTRuntime/editor/completion_popup.h"

#include "completing.h"

namespace velt::test {

namespace {

constexpr CompletionModes kTypes{.types = true}, kMembers{.members = true}, kArguments{.arguments = true};
constexpr char16_t kUp = 63232, kDown = 63233;

/// A popup over a document that ends with "x." and what was typed behind it.
struct OpenPopup : CompletionPopup::Owner {
    explicit OpenPopup(CompletionModes modes, std::u16string_view typed = {},
                       CompletingEditor::Names names = {u"name", u"items(index)", u"count()", u"Name"})
        : editor(std::u16string(u"x.").append(typed)),
          popup(editor, editor, *this, std::move(names), 2, static_cast<std::ptrdiff_t>(typed.size()), modes) {}

    void popupChose() override { ++choices; }
    void press(std::u16string_view keys, bool withCommand = false) { popup.keyTyped(keys, withCommand); }
    void press(char16_t key) { press(std::u16string_view(&key, 1)); }
    std::string rows() const { return rowsOf(popup); }
    std::string typed() const { return text::toUtf8(popup.typed()); }

    CompletingEditor editor;
    CompletionPopup popup;
    int choices = 0;
};

CompletingEditor::Names signature() { return {u"f(a, b)", u""}; }
constexpr const char* kFirst =
    "<font face=\"Monaco\" size=\"-1\">f(<font face=\"Monaco\" size=\"-1\" color=\"red\">a</font>, b)</font>";
constexpr const char* kSecond =
    "<font face=\"Monaco\" size=\"-1\">f(a,<font face=\"Monaco\" size=\"-1\" color=\"red\"> b</font>)</font>";

}  // namespace

TEST(CompletionPopups, BeginWithAllCandidatesInTheirOrder) {
    const OpenPopup open(kMembers);
    EXPECT_EQ("Name count() items(index) name", open.rows());
    EXPECT_EQ(std::nullopt, open.popup.selectedRow());
    EXPECT_EQ(u"", open.popup.selectedName());
}

TEST(CompletionPopups, BeginWithWhatWasTypedBefore) {
    const OpenPopup open(kMembers, u"na");
    EXPECT_EQ("na", open.typed());
    EXPECT_EQ("Name* name", open.rows());
    EXPECT_EQ(u"Name", open.popup.selectedName());
}

TEST(CompletionPopups, ForgetWhatLeadsToNothingWhenTheyOpen) {
    const OpenPopup open(kMembers, u"zz");
    EXPECT_EQ("", open.typed());
    EXPECT_EQ("Name count() items(index) name", open.rows());
}

TEST(CompletionPopups, BeginEmptyForARangeBeyondTheText) {
    for (const std::ptrdiff_t length : {std::ptrdiff_t{-1}, std::ptrdiff_t{0}, std::ptrdiff_t{3}}) {
        OpenPopup open(kMembers, u"na");
        const CompletionPopup popup(open.editor, open.editor, open, {u"name"}, 2, length, kMembers);
        EXPECT_EQ(u"", popup.typed());
    }
    OpenPopup open(kMembers, u"na");
    const CompletionPopup popup(open.editor, open.editor, open, {u"name"}, 9, 1, kMembers);
    EXPECT_EQ(u"", popup.typed());
}

TEST(CompletionPopups, FollowWhatIsTyped) {
    OpenPopup open(kMembers);
    open.press(u"c");
    EXPECT_EQ("count()*", open.rows());
    EXPECT_EQ("x.c", open.editor.text());
    open.press(u"_");
    EXPECT_EQ("", open.rows());
    EXPECT_EQ("x.c_", open.editor.text());
    open.press(8);
    EXPECT_EQ("count()*", open.rows());
    open.press(127);
    EXPECT_EQ("Name count() items(index) name", open.rows());
    EXPECT_EQ("x.", open.editor.text());
    EXPECT_EQ(std::nullopt, open.popup.result());
}

TEST(CompletionPopups, SelectNothingForTypedCapitals) {
    OpenPopup open(kMembers);
    open.press(u"N");
    EXPECT_EQ("Name name", open.rows());
    EXPECT_EQ(u"", open.popup.selectedName());
}

TEST(CompletionPopups, AreCancelledByBackspaceWithNothingTyped) {
    for (const char16_t key : {char16_t{8}, char16_t{127}}) {
        OpenPopup open(kMembers);
        open.press(key);
        EXPECT_EQ(PopupResult::Cancelled, open.popup.result());
        EXPECT_EQ("x.", open.editor.text());
    }
}

TEST(CompletionPopups, AreCancelledByEscape) {
    for (const CompletionModes modes : {kTypes, kMembers, kArguments}) {
        OpenPopup open(modes, u"", signature());
        open.press(27);
        EXPECT_EQ(PopupResult::Cancelled, open.popup.result());
        EXPECT_EQ("x.", open.editor.text());
        EXPECT_EQ(0, open.choices);
    }
}

TEST(CompletionPopups, InsertTheChoiceAtReturn) {
    for (const char16_t key : {char16_t{3}, u'\n', u'\r'}) {
        OpenPopup open(kMembers, u"na");
        open.press(key);
        EXPECT_EQ("x.Name", open.editor.text());
        EXPECT_EQ(PopupResult::Chosen, open.popup.result());
        EXPECT_EQ(1, open.choices);
    }
}

TEST(CompletionPopups, OpenTheParenthesisOfAChosenMember) {
    OpenPopup items(kMembers, u"it");
    items.press(u"\r");
    EXPECT_EQ("x.items(", items.editor.text());
    OpenPopup count(kMembers, u"co");
    count.press(u"\r");
    EXPECT_EQ("x.count()", count.editor.text());
}

TEST(CompletionPopups, InsertTypesWhole) {
    OpenPopup plain(kTypes, u"st", {u"String", u"Integer"});
    plain.press(u"\r");
    EXPECT_EQ("x.String", plain.editor.text());
    OpenPopup list(kTypes, u"li", {u"List(of)", u"Integer"});
    list.press(u"\r");
    EXPECT_EQ("x.List(of)(", list.editor.text());
}

TEST(CompletionPopups, InsertNothingWithoutASelectionButEnd) {
    OpenPopup open(kMembers);
    open.press(u"\r");
    EXPECT_EQ("x.", open.editor.text());
    EXPECT_EQ(PopupResult::Chosen, open.popup.result());
    EXPECT_EQ(1, open.choices);
}

TEST(CompletionPopups, ChooseMembersByAParenthesis) {
    OpenPopup open(kMembers, u"it");
    open.press(u"(");
    EXPECT_EQ("x.items(", open.editor.text());
    EXPECT_EQ(PopupResult::Chosen, open.popup.result());
}

TEST(CompletionPopups, TypeAParenthesisInAnotherOne) {
    OpenPopup open(kMembers, u"f(", {u"f(g(h", u"a"});
    open.press(u"(");
    EXPECT_EQ("x.f((", open.editor.text());
    EXPECT_EQ(std::nullopt, open.popup.result());
    OpenPopup types(kTypes, u"a", {u"a"});
    types.press(u"(");
    EXPECT_EQ("x.a(", types.editor.text());
    EXPECT_EQ(std::nullopt, types.popup.result());
}

TEST(CompletionPopups, TypeAClosingParenthesisOutsideOfArguments) {
    OpenPopup open(kMembers, u"na");
    open.press(u")");
    EXPECT_EQ("x.na)", open.editor.text());
    EXPECT_EQ(std::nullopt, open.popup.result());
}

TEST(CompletionPopups, MoveTheSelectionByArrows) {
    OpenPopup open(kMembers);
    open.press(kDown);
    EXPECT_EQ("Name* count() items(index) name", open.rows());
    open.press(kDown);
    EXPECT_EQ("Name count()* items(index) name", open.rows());
    open.press(kUp);
    open.press(kUp);
    EXPECT_EQ("Name* count() items(index) name", open.rows());
    open.press(std::u16string(9, kDown));
    EXPECT_EQ("Name count() items(index) name*", open.rows());
    OpenPopup fromBelow(kMembers);
    fromBelow.press(kUp);
    EXPECT_EQ("Name count() items(index) name*", fromBelow.rows());
    OpenPopup empty(kMembers, u"", {});
    empty.press(kUp);
    empty.press(kDown);
    EXPECT_EQ("", empty.rows());
}

TEST(CompletionPopups, InsertWhatAnArrowOrAClickSelected) {
    OpenPopup open(kMembers);
    open.popup.selectRow(3);
    open.popup.doubleClicked();
    EXPECT_EQ("x.name", open.editor.text());
    EXPECT_EQ(PopupResult::Chosen, open.popup.result());
    OpenPopup beside(kMembers, u"na");
    beside.popup.selectRow(17);
    EXPECT_EQ("Name name", beside.rows());
}

TEST(CompletionPopups, TypeLettersDigitsPunctuationAndSymbols) {
    OpenPopup open(kMembers);
    open.press(u"aÄ7_;+€)\u0301\U0001D400");
    EXPECT_EQ("x.aÄ7_;+€)\u0301\U0001D400", open.editor.text());
    EXPECT_EQ("aÄ7_;+€)\u0301\U0001D400", open.typed());
    open.press(8);
    EXPECT_EQ("x.aÄ7_;+€)\u0301", open.editor.text());
    EXPECT_EQ(0, open.editor.beeps);
}

TEST(CompletionPopups, BeepAtOtherKeys) {
    OpenPopup open(kMembers);
    for (const char16_t key : {char16_t{9}, char16_t{1}, char16_t{63234}, char16_t{0}}) open.press(key);
    EXPECT_EQ(4, open.editor.beeps);
    EXPECT_EQ("x.", open.editor.text());
    OpenPopup help(kArguments, u"", signature());
    help.press(kUp);
    help.press(kDown);
    EXPECT_EQ(2, help.editor.beeps);
}

TEST(CompletionPopups, PasteWithTheCommandKey) {
    OpenPopup open(kMembers);
    open.press(u"v", true);
    EXPECT_EQ(1, open.editor.pastes);
    EXPECT_EQ("x.", open.editor.text());
    open.press(u"v");
    EXPECT_EQ(1, open.editor.pastes);
    EXPECT_EQ("x.v", open.editor.text());
}

TEST(CompletionPopups, EndAtASpaceThatIsTyped) {
    OpenPopup open(kMembers, u"na");
    open.press(u" ");
    EXPECT_EQ("x.na ", open.editor.text());
    EXPECT_EQ(PopupResult::Cancelled, open.popup.result());
}

TEST(CompletionPopups, TakeNoKeysWhenTheyHaveEnded) {
    OpenPopup open(kMembers, u"na");
    open.press(u"\u001Bab");
    EXPECT_EQ("x.na", open.editor.text());
}

TEST(ArgumentPopups, ShowTheSignatureAlone) {
    const OpenPopup open(kArguments, u"", signature());
    EXPECT_EQ(kFirst, open.rows());
}

TEST(ArgumentPopups, MarkTheArgumentThatIsTyped) {
    OpenPopup open(kArguments, u"", signature());
    open.press(u"1");
    EXPECT_EQ(kFirst, open.rows());
    open.press(u",");
    EXPECT_EQ(kSecond, open.rows());
    open.press(u" ");
    EXPECT_EQ(kSecond, open.rows());
    EXPECT_EQ("x.1, ", open.editor.text());
    open.press(8);
    open.press(8);
    EXPECT_EQ(kFirst, open.rows());
    EXPECT_EQ("x.1", open.editor.text());
}

TEST(ArgumentPopups, BeginAtTheArgumentThatIsTypedAlready) {
    const OpenPopup open(kArguments, u"1,", signature());
    EXPECT_EQ(kSecond, open.rows());
    EXPECT_EQ("1,", open.typed());
}

TEST(ArgumentPopups, CloseTheParenthesisAtReturn) {
    for (const char16_t key : {char16_t{3}, u'\n', u'\r'}) {
        OpenPopup open(kArguments, u"1", signature());
        open.press(key);
        EXPECT_EQ("x.1)", open.editor.text());
        EXPECT_EQ(PopupResult::Cancelled, open.popup.result());
        EXPECT_EQ(0, open.choices);
        OpenPopup inner(kArguments, u"g(1", signature());
        inner.press(key);
        EXPECT_EQ("x.g(1", inner.editor.text());
        EXPECT_EQ(PopupResult::Cancelled, inner.popup.result());
    }
    OpenPopup clicked(kArguments, u"1", signature());
    clicked.popup.doubleClicked();
    EXPECT_EQ("x.1)", clicked.editor.text());
}

TEST(ArgumentPopups, EndAtTheirOwnParenthesis) {
    OpenPopup open(kArguments, u"", signature());
    open.press(u"g(1)");
    EXPECT_EQ("x.g(1)", open.editor.text());
    EXPECT_EQ(std::nullopt, open.popup.result());
    open.press(u")");
    EXPECT_EQ("x.g(1))", open.editor.text());
    EXPECT_EQ(PopupResult::Cancelled, open.popup.result());
}

}  // namespace velt::test
