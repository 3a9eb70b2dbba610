// What programs do with text views.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"
#include "support/shown_text.h"
#include "windows/text_support.h"

#include "VELTRuntime/platform/appkit/text/paragraph_style.h"
#include "VELTRuntime/platform/appkit/text/text_finder.h"
#include "VELTRuntime/platform/object/cycles.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <climits>
#include <random>

using namespace velt::test;
using velt::Ref;

namespace {

/// Hears what a text view tells its delegate.
class TextViewListener : public NSObject {
    VELT_OBJECT(TextViewListener, NSObject)

public:
    bool shouldChange(const id&, const id& changed, const id& text) {
        asked += velt::utf8(velt::description(changed)) + "'" + velt::utf8(text) + "' ";
        return allowed;
    }
    void textDidChange(const id& notification) {
        heard += "change ";
        EXPECT_VALUE("'NSTextDidChangeNotification'", velt::send(notification, "name"));
    }
    void selectionChanged(const id&) { ++selections; }
    bool doCommand(const id&, const id& command) {
        if (velt::utf8(command) != takes) return false;
        commands += velt::utf8(command) + " ";
        return true;
    }
    static void describe(velt::ClassBuilder<TextViewListener>& c) {
        c.method("textView:shouldChangeTextInRange:replacementString:", &TextViewListener::shouldChange)
            .method("textDidChange:", &TextViewListener::textDidChange)
            .method("textViewDidChangeSelection:", &TextViewListener::selectionChanged)
            .method("textView:doCommandBySelector:", &TextViewListener::doCommand);
    }
    std::string asked, heard, takes, commands;
    int selections = 0;
    bool allowed = true;
};

/// Says where it was coloured, as the editor does.
class SelectionTellingView : public NSTextView {
    VELT_OBJECT(SelectionTellingView, NSTextView)

public:
    id selectedText() const { return str("selected"); }
    static void describe(velt::ClassBuilder<SelectionTellingView>& c) {
        c.method("_selectedText", &SelectionTellingView::selectedText);
    }
};

/// A sender with a tag, as a menu item is.
class FindMenuItem : public NSObject {
    VELT_OBJECT(FindMenuItem, NSObject)

public:
    long tag = 0;
    static void describe(velt::ClassBuilder<FindMenuItem>& c) {
        c.method("tag", [](const id& self, const id*) { return VELT_ID(velt::as<FindMenuItem>(self)->tag); });
    }
};

void findAction(const Ref<NSTextView>& view, long action) {
    const Ref<FindMenuItem> sender = velt::make<FindMenuItem>();
    sender->tag = action;
    view->commandBegins();
    VELT_NSTEXTVIEW_PERFORMFINDPANELACTION(view, sender);
}

}  // namespace

TEST(TextViews, AreMadeEmptyWithTheirOwnerAsDelegate) {
    const id owner = velt::make<TextViewListener>();
    const id view = VELT_NSTEXTVIEW_INIT(owner, "ignored:");
    EXPECT_VALUE("'NSTextView'", VELT_CLASSNAME(view));
    EXPECT_EQ(owner, VELT_NSTEXTVIEW_DELEGATE(view));
    EXPECT_VALUE("''", VELT_NSTEXTVIEW_VALUE(view));
    EXPECT_VALUE("c 1", VELT_NSTEXT_EDITABLE(view));
    EXPECT_VALUE("c 1", VELT_NSTEXTVIEW_RICHTEXT(view));
    EXPECT_VALUE("c 1", VELT_NSTEXTVIEW_ALLOWSUNDO(view));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", velt::send(view, "frame"));
    EXPECT_VALUE("NSFont <NSFont " + velt::utf8(velt::send(VELT_NSTEXT_FONT(view), "fontName")) + " 13>",
                 VELT_NSTEXTVIEW_FONT(view));
    VELT_NSTEXTVIEW_DELEGATE(view, nil);
    EXPECT_TRUE(VELT_NSTEXTVIEW_DELEGATE(view).isNil());
}

TEST(TextViews, GiveTheTextBackAsItWasSet) {
    const Ref<NSTextView> view = viewOf("");
    for (const bool shown : {false, true}) {
        if (shown) view->widget();
        for (const char16_t* text : {u"a\r\nb\r\n", u"a\rb\r", u"\r\n", u"\n\r\n\r", u"a\u2028b\u2029c",
                                     u"\uFDD0\uFFFC\u00A0", u"\U0001F600e\u0301\r", u"", u"\xD800 alone"}) {
            VELT_NSTEXTVIEW_VALUE(view, str(std::u16string_view(text)));
            EXPECT_TRUE(view->text() == text);
            EXPECT_TRUE(velt::textOf(VELT_NSTEXTVIEW_VALUE(view)) == text);
        }
    }
    VELT_NSTEXTVIEW_VALUE(view, integer(42));
    EXPECT_EQ("42", value(view));
    const id text = VELT_NSTEXTVIEW_VALUE(view);
    velt::asMutableString(text).append(u"!");  // the program's own
    EXPECT_EQ("42", value(view));
    EXPECT_RAISES("VLException: nil has no text: a string cannot be made from it", VELT_NSTEXTVIEW_VALUE(view, nil));
    EXPECT_EQ("42", value(view));
}

TEST(TextViews, AppendAtTheEndAndInsertAtTheInsertionPoint) {
    const Ref<NSTextView> view = viewOf("one");
    VELT_NSTEXTVIEW_APPEND(view, str(" two"));
    VELT_NSTEXTVIEW_APPEND(view, integer(3));
    EXPECT_EQ("one two3", value(view));
    EXPECT_VALUE("{_NSRange=QQ} {8, 0}", velt::send(view, "selectedRange"));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    VELT_NSTEXTVIEW_INSERT(view, str(">"));
    EXPECT_EQ(">one two3", value(view));
    EXPECT_VALUE("{_NSRange=QQ} {1, 0}", velt::send(view, "selectedRange"));
    velt::send(view, "setSelectedRange:", range(1, 3));
    VELT_NSTEXTVIEW_INSERT(view, str("1"));
    EXPECT_EQ(">1 two3", value(view));
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    VELT_NSTEXTVIEW_INSERT(view, str("no"));
    EXPECT_EQ(">1 two3", value(view));
    VELT_NSTEXTVIEW_APPEND(view, str("!"));  // the program's own, not a person's
    EXPECT_EQ(">1 two3!", value(view));
}

TEST(TextViews, HaveASelectionWhereverThereIsAnInsertionPoint) {
    const Ref<NSTextView> view = viewOf("abc");
    EXPECT_VALUE("q 1", VELT_NSTEXTVIEW_HASSELECTION(view));
    velt::send(view, "setSelectedRange:", range(0, 2));
    EXPECT_VALUE("q 1", VELT_NSTEXTVIEW_HASSELECTION(view));
    velt::send(view, "setSelectable:", boolean(false));
    EXPECT_VALUE("q 0", VELT_NSTEXTVIEW_HASSELECTION(view));
    EXPECT_VALUE("c 0", VELT_NSTEXT_EDITABLE(view));
    VELT_NSTEXT_EDITABLE(view, boolean(true));
    EXPECT_VALUE("q 1", VELT_NSTEXTVIEW_HASSELECTION(view));
    EXPECT_RAISES("NSRangeException: 'NSTextView' setSelectedRange:: index 4 is out of range; the count is 3",
                  velt::send(view, "setSelectedRange:", range(2, 2)));
    EXPECT_RAISES("NSRangeException: 'NSTextView' replaceCharactersInRange:withString:: index 9 is out of range; the "
                  "count is 3",
                  velt::send(view, "replaceCharactersInRange:withString:", range(9, 0), str("x")));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSTextView' setSelectedRanges:: there are no ranges",
                  velt::send(view, "setSelectedRanges:", array()));
    EXPECT_CAST_FAILURE("'NSArray' expected", velt::send(view, "setSelectedRanges:", str("x")));
}

TEST(TextViews, SelectEachUnitOnceAndInOrder) {
    const Ref<NSTextView> view = viewOf("abcdefgh");
    const auto selected = [&](const id& ranges) {
        velt::send(view, "setSelectedRanges:", ranges);
        return velt::utf8(velt::description(velt::send(view, "selectedRanges")));
    };
    EXPECT_EQ("({0, 2}, {4, 1})", selected(array(range(4, 1), range(0, 2))));
    EXPECT_EQ("({0, 3})", selected(array(range(0, 1), range(1, 2)))) << "they touch";
    EXPECT_EQ("({0, 2})", selected(array(range(2, 0), range(0, 2)))) << "an insertion point at the edge";
    EXPECT_EQ("({1, 0})", selected(array(range(1, 0), range(1, 0))));
    EXPECT_EQ("({1, 6})", selected(array(range(1, 6), range(2, 1), range(4, 2)))) << "within the first";
    EXPECT_EQ("({0, 6}, {7, 1})", selected(array(range(7, 1), range(3, 3), range(0, 4))));
    VELT_NSTEXTVIEW_DELETE(view);
    EXPECT_EQ("g", value(view));
    EXPECT_VALUE("{_NSRange=QQ} {0, 0}", velt::send(view, "selectedRange"));
}

TEST(TextViews, RaiseForRangesBeyondTheEnd) {
    const Ref<NSTextView> view = viewOf("abc");
    const id layout = velt::send(view, "layoutManager"), none = emptyDictionary();
    const auto fails = [](const char* who, const char* operation, const char* index) {
        return std::string("NSRangeException: '") + who + "' " + operation + ": index " + index +
               " is out of range; the count is 3";
    };
    const id text = velt::make<NSAttributedString>(u"x");
    EXPECT_RAISES(fails("NSTextView", "setSelectedRanges:", "5"),
                  velt::send(view, "setSelectedRanges:", array(range(0, 1), range(3, 2))));
    EXPECT_RAISES(fails("NSTextView", "scrollRangeToVisible:", "4"),
                  velt::send(view, "scrollRangeToVisible:", range(4, 0)));
    EXPECT_RAISES(fails("NSTextView", "insertText:replacementRange:", "4"),
                  velt::send(view, "insertText:replacementRange:", str("x"), range(1, 3)));
    EXPECT_RAISES(fails("NSTextView", "replaceCharactersInRange:withAttributedString:", "9223372036854775807"),
                  velt::send(view, "replaceCharactersInRange:withAttributedString:", range(2, ULONG_MAX), text));
    EXPECT_RAISES(fails("NSLayoutManager", "setTemporaryAttributes:forCharacterRange:", "4"),
                  velt::send(layout, "setTemporaryAttributes:forCharacterRange:", none, range(0, 4)));
    EXPECT_RAISES(fails("NSLayoutManager", "temporaryAttributesAtCharacterIndex:effectiveRange:", "3"),
                  velt::send(layout, "temporaryAttributesAtCharacterIndex:effectiveRange:", integer(3), nil));
    EXPECT_EQ("abc", value(view));
    EXPECT_VALUE("NSMutableArray ({3, 0})", velt::send(view, "selectedRanges"));
}

TEST(TextViews, TakeOnlyFontsAndColours) {
    const Ref<NSTextView> view = viewOf("abc");
    view->widget();
    const id red = velt::make<NSColor>(1.0, 0.0, 0.0, 1.0), font = velt::make<NSFont>();
    for (const char* key : {"textColor", "backgroundColor"}) {
        VELT_PROPERTY(view, str(key), red);
        EXPECT_CAST_FAILURE("'NSColor' expected", VELT_PROPERTY(view, str(key), str("red")));
        EXPECT_CAST_FAILURE("'NSColor' expected", VELT_PROPERTY(view, str(key), font));
        EXPECT_EQ(red, VELT_PROPERTY(view, str(key)));
        VELT_PROPERTY(view, str(key), nil);
        EXPECT_TRUE(VELT_PROPERTY(view, str(key)).isNil());
    }
    EXPECT_CAST_FAILURE("'NSColor' expected", velt::send(view, "setTextColor:", font));
    EXPECT_CAST_FAILURE("'NSColor' expected", velt::send(view, "setBackgroundColor:", font));
    velt::send(view, "setFont:", font);
    EXPECT_CAST_FAILURE("'NSFont' expected", velt::send(view, "setFont:", red));
    EXPECT_CAST_FAILURE("'NSFont' expected", VELT_PROPERTY(view, str("font"), str("Serif")));
    EXPECT_EQ(font, VELT_NSTEXTVIEW_FONT(view));
}

TEST(TextViews, SelectedTextIsTheEditorsToGive) {
    EXPECT_RAISES("NSInvalidArgumentException: 'NSTextView' does not understand '_selectedText'",
                  VELT_NSTEXTVIEW_SELECTEDTEXT(viewOf("abc")));
    EXPECT_VALUE("'selected'", VELT_NSTEXTVIEW_SELECTEDTEXT(velt::make<SelectionTellingView>()));
    EXPECT_TRUE(VELT_NSTEXTVIEW_SELECTEDTEXT(nil).isNil());
}

TEST(TextViews, AnswerZeroForNilAndRaiseForOthers) {
    EXPECT_TRUE(VELT_NSTEXTVIEW_VALUE(nil).isNil());
    EXPECT_TRUE(VELT_NSTEXTVIEW_VALUE(nil, str("x")).isNil());
    EXPECT_TRUE(VELT_NSTEXTVIEW_APPEND(nil, str("x")).isNil());
    EXPECT_VALUE("q 0", VELT_NSTEXTVIEW_HASSELECTION(nil));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(nil));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANREDO(nil));
    EXPECT_TRUE(VELT_NSTEXTVIEW_UNDO(nil).isNil());
    EXPECT_TRUE(VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(nil).isNil());
    EXPECT_TRUE(VELT_NSTEXTVIEW_PERFORMFINDPANELACTION(nil, nil).isNil());
    EXPECT_TRUE(VELT_NSTEXT_FONT(nil).isNil());
    EXPECT_VALUE("c 0", VELT_NSTEXT_EDITABLE(nil));
    const auto fails = [](const char* selector) {
        return "NSInvalidArgumentException: 'NSMutableString' does not understand '" + std::string(selector) + "'";
    };
    EXPECT_RAISES(fails("isRichText"), VELT_NSTEXTVIEW_RICHTEXT(str("x")));
    EXPECT_RAISES(fails("insertText:"), VELT_NSTEXTVIEW_INSERT(str("x"), str("y")));
    EXPECT_RAISES(fails("textStorage"), VELT_NSTEXTVIEW_APPEND(str("x"), str("y")));
    EXPECT_RAISES(fails("undoManager"), VELT_NSTEXTVIEW_UNDO(str("x")));
    EXPECT_RAISES(fails("undoManager"), VELT_NSTEXTVIEW_CANREDO(str("x")));
    EXPECT_RAISES(fails("selectedRange"), VELT_NSTEXTVIEW_HASSELECTION(str("x")));
    EXPECT_RAISES(fails("performFindPanelAction:"), VELT_NSTEXTVIEW_PERFORMFINDPANELACTION(str("x"), nil));
    const Ref<NSTextView> view = viewOf("kept");
    EXPECT_RAISES(fails("tag"), VELT_NSTEXTVIEW_PERFORMFINDPANELACTION(view, str("x")));
    EXPECT_CAST_FAILURE("'NSFont' expected", VELT_NSTEXTVIEW_FONT(view, str("x")));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_NSTEXTVIEW_RICHTEXT(view, view));
    EXPECT_EQ("kept", value(view));
}

TEST(TextViews, ShowWhatIsDoneToTheirStorageAtOnce) {
    const Ref<NSTextView> view = viewOf("abc");
    view->widget();
    const id storage = velt::send(view, "textStorage");
    EXPECT_VALUE("'NSTextStorage'", VELT_CLASSNAME(storage));
    velt::send(view, "setSelectedRange:", range(3, 0));
    velt::send(storage, "replaceCharactersInRange:withString:", range(0, 1), str("A\r\n"));
    EXPECT_EQ("A\r\nbc", value(view));
    EXPECT_VALUE("{_NSRange=QQ} {5, 0}", velt::send(view, "selectedRange"));
    auto& shown = static_cast<velt::TextWidget&>(view->widget());
    EXPECT_EQ(2u, shown.lineCount());
    velt::send(storage, "deleteCharactersInRange:", range(2, 1));  // the carriage return ends the line by itself
    EXPECT_EQ(2u, shown.lineCount());
    velt::send(storage, "insertAttributedString:atIndex:", velt::make<NSAttributedString>(u"\n"), integer(2));
    EXPECT_EQ(2u, shown.lineCount());
    const id red = velt::make<NSColor>(1.0, 0.0, 0.0, 1.0);
    velt::send(storage, "addAttribute:value:range:", str("NSColor"), red, range(0, 1));
    EXPECT_EQ(QColor(Qt::red), drawnFormat(shown, 0, 0).foreground().color());
}

TEST(TextViews, DrawTheTextWhateverIsDoneToIt) {
    constexpr unsigned kSeed = 517;
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::mt19937 random(kSeed);
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    constexpr std::u16string_view kUnits = u"ab\r\n\u2028\u2029 \U0001F600";
    const Ref<NSTextView> view = viewOf("");
    auto& shown = static_cast<velt::TextWidget&>(view->widget());
    std::u16string model;
    for (int step = 0; step < 1500; ++step) {
        const std::size_t begin = below(model.size() + 1),
                          length = below(std::min<std::size_t>(model.size() - begin, 9) + 1);
        std::u16string piece;
        for (std::size_t count = below(5); count > 0; --count) piece += kUnits[below(kUnits.size())];
        if (model.size() > 400) piece.clear();
        velt::send(view, "replaceCharactersInRange:withString:", range(begin, length), str(std::u16string_view(piece)));
        model.replace(begin, length, piece);
        ASSERT_TRUE(view->text() == model) << step;
        std::u16string lines;
        for (std::size_t i = 0; i < model.size(); ++i) {
            const bool pairs = model[i] == u'\r' && i + 1 < model.size() && model[i + 1] == u'\n';
            if (pairs) continue;
            const bool ends = model[i] == u'\r' || model[i] == u'\u2028' || model[i] == u'\u2029';
            lines += ends ? u'\n' : model[i];
        }
        ASSERT_EQ(velt::utf8(velt::string(std::u16string_view(lines))), drawnText(shown)) << step;
    }
    while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(view))) VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("", value(view));
    EXPECT_EQ("", drawnText(shown));
    while (VELT_CBOOL(VELT_NSTEXTVIEW_CANREDO(view))) VELT_NSTEXTVIEW_REDO(view);
    EXPECT_TRUE(view->text() == model);
}

TEST(TextViews, AskTheirDelegateAndTellIt) {
    const Ref<NSTextView> view = viewOf("abc");
    const Ref<TextViewListener> listener = velt::make<TextViewListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    velt::send(view, "setSelectedRange:", range(1, 1));
    EXPECT_EQ(1, listener->selections);
    VELT_NSTEXTVIEW_INSERT(view, str("X"));
    EXPECT_EQ("{1, 1}'X' ", std::exchange(listener->asked, ""));
    EXPECT_EQ("change ", std::exchange(listener->heard, ""));
    listener->allowed = false;
    VELT_NSTEXTVIEW_INSERT(view, str("Y"));
    velt::send(view, "deleteBackward:", nil);
    VELT_NSTEXTVIEW_CUT(view);
    EXPECT_EQ("aXc", value(view));
    EXPECT_EQ("", listener->heard);
}

TEST(TextViews, LeaveEscapeToTheirDelegateAndThenToTheWindow) {
    const Ref<NSTextView> view = viewOf("abc");
    const Ref<TextViewListener> listener = velt::make<TextViewListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    ShownControl shown(view, 200, 100);
    const Ref<ActionListener> hears = velt::make<ActionListener>();
    const id cancel = VELT_PUSHBUTTON_INIT(hears, "click:");
    VELT_NSBUTTON_TITLE(cancel, "Cancel"_v);
    velt::send(cancel, "setKeyEquivalent:", "\x1b"_v);
    VELT_NSWINDOW_APPEND(shown.window(), cancel);
    shown.focus();
    shown.key(Qt::Key_Escape);
    EXPECT_EQ("Cancel ", std::exchange(hears->heard, ""));
    listener->takes = "cancelOperation:";
    shown.key(Qt::Key_Escape);
    EXPECT_EQ("cancelOperation: ", listener->commands);
    EXPECT_EQ("", hears->heard);
}

TEST(TextViews, SayWhichCommandsOfAMenuAreOfUse) {
    const Ref<NSTextView> view = viewOf("abc");
    const auto answers = [&] {
        std::string all;
        for (const char* name : {"undo:", "redo:", "cut:", "copy:", "paste:", "delete:", "selectAll:", "other:"}) {
            const id item = VELT_NSMENUITEM_INIT(nil, "", "Item"_v);
            velt::send(item, "setAction:", str(name));
            all += VELT_CBOOL(velt::send(view, "validateMenuItem:", item)) ? "1" : "0";
        }
        return all;
    };
    QApplication::clipboard()->clear();
    EXPECT_EQ("00000011", answers());
    velt::send(view, "setSelectedRange:", range(1, 1));
    EXPECT_EQ("00110111", answers());
    VELT_NSTEXTVIEW_COPY(view);
    EXPECT_EQ("00111111", answers());
    VELT_NSTEXTVIEW_CUT(view);
    EXPECT_EQ("10001011", answers());
    VELT_NSTEXTVIEW_UNDO(view);
    velt::send(view, "setSelectedRange:", range(0, 0));
    EXPECT_EQ("01001011", answers());
    VELT_NSTEXT_EDITABLE(view, VELT_ID(BOOL{0}));
    velt::send(view, "setSelectedRange:", range(0, 2));
    EXPECT_EQ("00010011", answers());
    VELT_NSTEXTVIEW_VALUE(view, ""_v);
    EXPECT_EQ("00000001", answers());
    EXPECT_VALUE("c 1", velt::send(view, "validateMenuItem:", nil));
}

TEST(TextViews, CutCopyAndPaste) {
    const Ref<NSTextView> view = viewOf("one\r\ntwo");
    velt::send(view, "setSelectedRange:", range(0, 5));
    VELT_NSTEXTVIEW_COPY(view);
    EXPECT_EQ(QStringLiteral("one\r\n"), QApplication::clipboard()->text());
    VELT_NSTEXTVIEW_CUT(view);
    EXPECT_EQ("two", value(view));
    velt::send(view, "setSelectedRange:", range(3, 0));
    VELT_NSTEXTVIEW_PASTE(view);
    EXPECT_EQ("twoone\r\n", value(view));
    VELT_NSTEXTVIEW_UNDO(view);
    VELT_NSTEXTVIEW_COPY(view);  // nothing is selected: what was there stays
    EXPECT_EQ(QStringLiteral("one\r\n"), QApplication::clipboard()->text());
    velt::send(view, "selectAll:", nil);
    VELT_NSTEXTVIEW_DELETE(view);
    EXPECT_EQ("", value(view));
}

TEST(TextViews, CopyEachParagraphWithItsOwnAlignment) {
    const Ref<NSTextView> view = viewOf("one\ntwo\r\nthree\r\nfour");
    const Ref<NSMutableParagraphStyle> style = velt::make<NSMutableParagraphStyle>();
    style->alignment = 1;
    velt::send(velt::send(view, "textStorage"), "addAttribute:value:range:", str("NSParagraphStyle"), style,
               range(4, 16));
    velt::send(view, "selectAll:", nil);
    VELT_NSTEXTVIEW_COPY(view);
    QTextDocument copied;
    copied.setHtml(QApplication::clipboard()->mimeData()->html());
    std::string alignments;
    for (QTextBlock block = copied.begin(); block.isValid(); block = block.next()) {
        alignments += block.text().toStdString() + (block.blockFormat().alignment() & Qt::AlignRight ? "> " : " ");
    }
    EXPECT_EQ("one two> three> four> ", alignments);
}

TEST(TextViews, PasteLooksOnlyIntoRichText) {
    const Ref<NSTextView> view = viewOf("");
    const auto copied = [] {
        auto* data = new QMimeData;
        data->setText(QStringLiteral("bold"));
        data->setHtml(QStringLiteral("<b>bold</b><img src='file:///etc/passwd'>"));
        QApplication::clipboard()->setMimeData(data);
    };
    copied();
    VELT_NSTEXTVIEW_PASTE(view);
    EXPECT_EQ("bold", value(view));
    const id attributes = velt::send(velt::send(view, "textStorage"), "attributesAtIndex:", integer(0));
    EXPECT_FALSE(velt::send(attributes, "objectForKey:", str("NSFont")).isNil());
    VELT_NSTEXTVIEW_RICHTEXT(view, boolean(false));
    EXPECT_TRUE(velt::send(velt::send(view, "textStorage"), "attributesAtIndex:", integer(0)).isNil());
    velt::send(view, "selectAll:", nil);
    VELT_NSTEXTVIEW_PASTE(view);
    EXPECT_EQ("bold", value(view));
    EXPECT_TRUE(velt::send(velt::send(view, "textStorage"), "attributesAtIndex:", integer(0)).isNil());
}

TEST(TextViews, DeleteWholeCharactersAndLineEnds) {
    const Ref<NSTextView> view = viewOf("a\r\n\U0001F600");
    velt::send(view, "setSelectedRange:", range(5, 0));
    velt::send(view, "deleteBackward:", nil);
    EXPECT_EQ("a\r\n", value(view));
    velt::send(view, "deleteBackward:", nil);
    EXPECT_EQ("a", value(view));
    VELT_NSTEXTVIEW_VALUE(view, str("e\u0301\r\nz"));
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    velt::send(view, "deleteForward:", nil);
    EXPECT_EQ("\r\nz", value(view));
    velt::send(view, "deleteForward:", nil);
    EXPECT_EQ("z", value(view));
    velt::send(view, "deleteForward:", nil);
    velt::send(view, "deleteForward:", nil);
    EXPECT_EQ("", value(view));
}

TEST(TextViews, FindAndReplaceByTheSendersTag) {
    const Ref<NSTextView> view = viewOf("cat Cat concat cat.");
    view->findRequest() = {};
    velt::send(view, "setSelectedRange:", range(0, 3));
    findAction(view, 7);
    const auto selected = [&] { return velt::utf8(velt::description(velt::send(view, "selectedRange"))); };
    findAction(view, 2);
    EXPECT_EQ("{4, 3}", selected());  // whatever its case
    view->findRequest().ignoresCase = false;
    findAction(view, 2);
    EXPECT_EQ("{11, 3}", selected());
    view->findRequest().wholeWords = true;
    findAction(view, 2);
    EXPECT_EQ("{15, 3}", selected());
    findAction(view, 2);
    EXPECT_EQ("{0, 3}", selected());  // from the beginning again
    findAction(view, 3);
    EXPECT_EQ("{15, 3}", selected());
    view->findRequest().wraps = false;
    findAction(view, 2);
    EXPECT_EQ("{15, 3}", selected());
    view->findRequest().replacement = u"dog";
    findAction(view, 5);
    EXPECT_EQ("cat Cat concat dog.", value(view));
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    view->findRequest().wholeWords = false;
    findAction(view, 6);  // nothing selected to replace: finds
    EXPECT_EQ("{0, 3}", selected());
    findAction(view, 6);
    EXPECT_EQ("dog Cat concat dog.", value(view));
    EXPECT_EQ("{11, 3}", selected());
    view->findRequest() = {u"C", u"--"};
    velt::send(view, "setSelectedRange:", range(4, 6));
    findAction(view, 8);
    EXPECT_EQ("dog --at --oncat dog.", value(view));
    EXPECT_EQ("{4, 8}", selected());
    VELT_NSTEXTVIEW_UNDO(view);
    view->findRequest() = {u"dog", u""};
    findAction(view, 9);
    EXPECT_VALUE("NSMutableArray ({0, 3}, {15, 3})", velt::send(view, "selectedRanges"));
    findAction(view, 4);
    EXPECT_EQ(" Cat concat .", value(view));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("dog Cat concat dog.", value(view));
    view->findRequest() = {};
    findAction(view, 2);  // nothing is looked for
    VELT_NSTEXTVIEW_PERFORMFINDPANELACTION(view, integer(99));
    VELT_NSTEXTVIEW_PERFORMFINDPANELACTION(view, nil);
    EXPECT_EQ("dog Cat concat dog.", value(view));
}

TEST(TextViews, FindWholeWordsOfAnyScript) {
    const Ref<NSTextView> view = viewOf("a\U0001D400 \U0001D400a a\u0301a _a a");
    view->findRequest() = {u"a", u"-"};
    view->findRequest().wholeWords = true;
    findAction(view, 4);
    EXPECT_EQ("a\U0001D400 \U0001D400a a\u0301a _a -", value(view));
    view->findRequest() = {u"\U0001D400", u"-"};
    view->findRequest().wholeWords = true;
    VELT_NSTEXTVIEW_VALUE(view, str("\U0001D400\U0001D400 b\U0001D400 \U0001D400."));
    findAction(view, 4);
    EXPECT_EQ("\U0001D400\U0001D400 b\U0001D400 -.", value(view));
    view->findRequest() = {};
}

TEST(TextViews, ReplaceAllKeepsTheLooksAround) {
    const Ref<NSTextView> view = viewOf("a-b-c");
    const id storage = velt::send(view, "textStorage");
    velt::send(storage, "addAttribute:value:range:", str("NSUnderline"), integer(1), range(1, 2));
    view->findRequest() = {u"-", u"++"};
    findAction(view, 4);
    EXPECT_EQ("a++b++c", value(view));
    EXPECT_TRUE(velt::send(storage, "attributesAtIndex:", integer(0)).isNil());
    const id told = array();
    velt::send(storage, "attributesAtIndex:effectiveRange:", integer(1), told);
    EXPECT_VALUE("NSMutableArray ({1, 3})", told);
    view->findRequest() = {};
}

TEST(TextViews, LayTemporaryAttributesOverTheText) {
    const Ref<NSTextView> view = viewOf("abcdef");
    const id layout = velt::send(view, "layoutManager");
    const auto colours = velt::make<NSMutableDictionary>();
    colours->setObject(velt::make<NSColor>(1.0, 0.0, 0.0, 1.0), str("NSColor"));
    velt::send(layout, "setTemporaryAttributes:forCharacterRange:", colours, range(2, 2));
    const auto back = velt::make<NSMutableDictionary>();
    back->setObject(velt::make<NSColor>(0.0, 1.0, 0.0, 1.0), str("NSBackgroundColor"));
    velt::send(layout, "addTemporaryAttributes:forCharacterRange:", back, range(3, 3));
    const auto keysAt = [&](long position, const id& told = nil) {
        const id found =
            velt::send(layout, "temporaryAttributesAtCharacterIndex:effectiveRange:", integer(position), told);
        return found.isNil() ? std::string() : velt::utf8(velt::description(velt::send(found, "allKeys")));
    };
    const id told = array();
    EXPECT_EQ("(NSColor, NSBackgroundColor)", keysAt(3, told));
    EXPECT_VALUE("NSMutableArray ({3, 1})", told);
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    VELT_NSTEXTVIEW_INSERT(view, str("12"));
    EXPECT_EQ("(NSColor)", keysAt(4));  // it moved with its text
    EXPECT_EQ("", keysAt(3));
    EXPECT_TRUE(velt::send(velt::send(view, "textStorage"), "attributesAtIndex:", integer(4)).isNil());
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("(NSColor)", keysAt(2));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
    velt::send(layout, "removeTemporaryAttribute:forCharacterRange:", str("NSColor"), range(0, 6));
    EXPECT_EQ("", keysAt(2));
    EXPECT_RAISES("NSRangeException: 'NSLayoutManager' removeTemporaryAttribute:forCharacterRange:: index 7 is out of "
                  "range; the count is 6",
                  velt::send(layout, "removeTemporaryAttribute:forCharacterRange:", str("NSColor"), range(0, 7)));
    EXPECT_CAST_FAILURE("'NSDictionary' expected",
                        velt::send(layout, "setTemporaryAttributes:forCharacterRange:", str("x"), range(0, 1)));
}

TEST(TextViews, CopeWithTenMillionUnits) {
    std::u16string line = u"a line of a long text, numbered nowhere, with one word: needle\n";
    std::u16string text;
    while (text.size() < 10'000'000) text += line;
    text += u"last";
    const Ref<NSTextView> view = viewOf("");
    view->widget();
    VELT_NSTEXTVIEW_VALUE(view, str(std::u16string_view(text)));
    EXPECT_EQ(text.size(), view->textLength());
    for (int i = 0; i < 2000; ++i) VELT_NSTEXTVIEW_APPEND(view, str("\nmore"));
    EXPECT_EQ(text.size() + 10000, view->textLength());
    view->findRequest() = {u"LAST", u"first"};
    VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
    findAction(view, 2);
    EXPECT_VALUE("{_NSRange=QQ} {" + std::to_string(text.size() - 4) + ", 4}", velt::send(view, "selectedRange"));
    view->findRequest() = {u"needle", u"pin"};
    findAction(view, 4);
    EXPECT_EQ(text.size() + 10000 - 3 * (text.size() / line.size()), view->textLength());
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ(text.size() + 10000, view->textLength());
    view->findRequest() = {};
}

TEST(DroppedTextViews, LeaveNothingBehind) {
    velt::collectCycles();
    for (int i = 0; i < 5; ++i) {
        const Ref<NSTextView> view = viewOf("text");
        view->widget();
        view->setDelegate(view);
        VELT_NSTEXTVIEW_INSERT(view, str("typed"));  // the undo manager owns the view
        const id kept = velt::send(view, "textStorage");
        const id layout = velt::send(view, "layoutManager");
    }
    QApplication::processEvents();
    EXPECT_LE(25u, velt::collectCycles());
    Ref<NSTextView> view = viewOf("text");
    const id storage = velt::send(view, "textStorage"), layout = velt::send(view, "layoutManager");
    view = nullptr;
    velt::send(storage, "appendAttributedString:", velt::make<NSAttributedString>(u"!"));
    EXPECT_VALUE("NSTextStorage text!", storage);
    EXPECT_VALUE("{_NSRange=QQ} {0, 4}",
                 velt::send(layout, "glyphRangeForBoundingRect:inTextContainer:", VELT_ID(NSRect{}), nil));
}
