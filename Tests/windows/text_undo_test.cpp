// What can be undone in a text view, and what is left whole when its delegate interferes.
#include "windows/text_support.h"

#include "VELTRuntime/platform/object/exception.h"

using namespace velt::test;
using velt::Ref;

namespace {

/// A delegate that fails, or puts another text in the place of the view's, when it hears of a change.
class HastyListener : public NSObject {
    VELT_OBJECT(HastyListener, NSObject)

public:
    void textDidChange(const id& notification) {
        if (--changesBefore > 0) return;
        if (failsAtChange) velt::raise(velt::kRuntimeException, "no");
        if (!text.isNil()) velt::send(velt::send(notification, "object"), "setString:", text);
    }
    void selectionChanged(const id&) {
        if (failsAtSelection) velt::raise(velt::kRuntimeException, "no");
    }
    static void describe(velt::ClassBuilder<HastyListener>& c) {
        c.method("textDidChange:", &HastyListener::textDidChange)
            .method("textViewDidChangeSelection:", &HastyListener::selectionChanged)
            .owns(&HastyListener::text);
    }
    bool failsAtChange = false, failsAtSelection = false;
    int changesBefore = 1;
    id text;
};

/// A program's own view, which hears of changes by the message.
class CountingView : public NSTextView {
    VELT_OBJECT(CountingView, NSTextView)

public:
    void changed() {
        ++changes;
        NSTextView::didChangeText();
    }
    static void describe(velt::ClassBuilder<CountingView>& c) { c.method("didChangeText", &CountingView::changed); }
    int changes = 0;
};

/// A delegate that keeps what is undone itself.
class ManagerGiver : public NSObject {
    VELT_OBJECT(ManagerGiver, NSObject)

public:
    id given(const id&) const { return manager; }
    static void describe(velt::ClassBuilder<ManagerGiver>& c) {
        c.method("undoManagerForTextView:", &ManagerGiver::given).owns(&ManagerGiver::manager);
    }
    id manager = velt::make<NSUndoManager>();
};

}  // namespace

TEST(TextViews, UndoStepByStepAndJoinWhatIsTyped) {
    const Ref<NSTextView> view = viewOf("");
    const auto done = [&] { view->commandBegins(); };
    for (const char* unit : {"w", "o", "r", "d"}) {
        VELT_NSTEXTVIEW_INSERT(view, str(unit));
        done();
    }
    velt::send(view, "insertNewline:", nil);
    done();
    VELT_NSTEXTVIEW_INSERT(view, str("x"));
    done();
    velt::send(view, "deleteBackward:", nil);
    done();
    velt::send(view, "deleteBackward:", nil);
    done();
    EXPECT_EQ("word", value(view));
    VELT_NSTEXTVIEW_UNDO(view);  // both deletions
    EXPECT_EQ("word\nx", value(view));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("word\n", value(view));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("", value(view));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
    VELT_NSTEXTVIEW_REDO(view);
    EXPECT_EQ("word\n", value(view));
    VELT_NSTEXTVIEW_REDO(view);
    VELT_NSTEXTVIEW_REDO(view);
    EXPECT_EQ("word", value(view));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANREDO(view));
    VELT_NSTEXTVIEW_VALUE(view, str("new"));  // nothing of before can be undone
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
    VELT_NSTEXTVIEW_ALLOWSUNDO(view, boolean(false));
    VELT_NSTEXTVIEW_INSERT(view, str("x"));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
}

TEST(TextViews, UndoByTheManagerThatTheirDelegateGives) {
    const Ref<NSTextView> view = viewOf("abc");
    const Ref<ManagerGiver> giver = velt::make<ManagerGiver>();
    VELT_NSTEXTVIEW_DELEGATE(view, giver);
    EXPECT_EQ(giver->manager, velt::send(view, "undoManager"));
    velt::send(view, "setSelectedRange:", range(0, 3));
    VELT_NSTEXTVIEW_INSERT(view, str("x"));
    EXPECT_VALUE("c 1", velt::send(giver->manager, "canUndo"));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("abc", value(view));
    VELT_NSTEXTVIEW_INSERT(view, str("y"));
    VELT_NSTEXTVIEW_VALUE(view, str("new"));  // nothing of before can be undone, by whomever
    EXPECT_VALUE("c 0", velt::send(giver->manager, "canUndo"));
    VELT_NSTEXTVIEW_INSERT(view, str("z"));
    velt::send(velt::send(view, "textStorage"), "replaceCharactersInRange:withString:", range(0, 1), str(""));
    EXPECT_VALUE("c 0", velt::send(giver->manager, "canUndo"));
}

TEST(TextViews, ForgetWhatWasDoneBeforeAChangeThatCannotBeUndone) {
    for (const bool isEditor : {false, true}) {
        const id view = isEditor ? VELT_VLTEXTVIEW_INIT(nil, "") : VELT_NSTEXTVIEW_INIT(nil, "");
        VELT_NSTEXTVIEW_INSERT(view, str("abc"));
        EXPECT_VALUE("c 1", VELT_NSTEXTVIEW_CANUNDO(view));
        VELT_NSTEXTVIEW_ALLOWSUNDO(view, boolean(false));
        EXPECT_VALUE("c 1", VELT_NSTEXTVIEW_CANUNDO(view));
        if (isEditor) {
            VELT_VLTEXTVIEW_COMMENT(view);
        } else {
            VELT_NSTEXTVIEW_GOTOFIRSTCHARACTER(view);
            VELT_NSTEXTVIEW_INSERT(view, str("'"));
        }
        EXPECT_VALUE("''abc'", VELT_NSTEXTVIEW_VALUE(view));
        EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
    }
}

TEST(TextViews, TellSubclassesOfWhatIsUndone) {
    const Ref<CountingView> view = velt::make<CountingView>();
    VELT_NSTEXTVIEW_INSERT(view, str("x"));
    EXPECT_EQ(1, view->changes);
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ(2, view->changes);
    VELT_NSTEXTVIEW_REDO(view);
    EXPECT_EQ(3, view->changes);
}

TEST(TextViews, UndoWithTheAttributesThatWereThere) {
    const Ref<NSTextView> view = viewOf("abc");
    const id storage = velt::send(view, "textStorage");
    velt::send(storage, "addAttribute:value:range:", str("NSUnderline"), integer(1), range(1, 1));
    velt::send(view, "setSelectedRange:", range(0, 3));
    VELT_NSTEXTVIEW_DELETE(view);
    EXPECT_EQ("", value(view));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("abc", value(view));
    EXPECT_TRUE(velt::send(storage, "attributesAtIndex:", integer(0)).isNil());
    EXPECT_VALUE("NSDictionary {NSUnderline = 1}", velt::send(storage, "attributesAtIndex:", integer(1)));
}

TEST(TextViews, UndoWhatIsChangedAfterTheirDelegateFailed) {
    const Ref<NSTextView> view = viewOf("abc");
    const Ref<HastyListener> listener = velt::make<HastyListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    velt::send(view, "setSelectedRange:", range(3, 0));
    listener->failsAtChange = true;
    EXPECT_RAISES("VLException: no", velt::send(view, "deleteBackward:", nil));
    listener->failsAtChange = false;
    // These are no deletions of a person's, which would be undone as one.
    velt::send(view, "replaceCharactersInRange:withString:", range(0, 1), str("zz"));
    velt::send(view, "replaceCharactersInRange:withString:", range(0, 2), str("y"));
    EXPECT_EQ("yb", value(view));
    while (VELT_CBOOL(VELT_NSTEXTVIEW_CANUNDO(view))) VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_EQ("abc", value(view));
}

TEST(TextViews, KnowWhatIsTheProgramsOwnAfterTheirDelegateFailed) {
    const Ref<NSTextView> view = viewOf("abc");
    const Ref<HastyListener> listener = velt::make<HastyListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    velt::send(view, "setSelectedRange:", range(1, 0));
    listener->failsAtSelection = true;
    EXPECT_RAISES("VLException: no", VELT_NSTEXTVIEW_INSERT(view, str("X")));
    listener->failsAtSelection = false;
    EXPECT_EQ("aXbc", value(view));
    EXPECT_VALUE("c 1", VELT_NSTEXTVIEW_CANUNDO(view));
    velt::send(velt::send(view, "textStorage"), "replaceCharactersInRange:withString:", range(0, 1), str("A"));
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(view));
}

TEST(TextViews, KeepTheSelectionInATextThatGotShorterMeanwhile) {
    const Ref<NSTextView> view = viewOf("abcde");
    const Ref<HastyListener> listener = velt::make<HastyListener>();
    VELT_NSTEXTVIEW_DELEGATE(view, listener);
    velt::send(view, "setSelectedRanges:", array(range(1, 1), range(3, 1)));
    listener->text = str("");
    listener->changesBefore = 2;
    VELT_NSTEXTVIEW_DELETE(view);
    EXPECT_EQ("", value(view));
    EXPECT_VALUE("{_NSRange=QQ} {0, 0}", velt::send(view, "selectedRange"));
    VELT_NSTEXTVIEW_INSERT(view, str("x"));
    EXPECT_EQ("", value(view)) << "the delegate's text";
}
