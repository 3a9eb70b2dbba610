// The clipboard, drags and input methods in the source editor, and the mark of what was found, by real events.
#include "support/patience.h"
#include "windows/editor_support.h"

#include <QAbstractScrollArea>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScreen>

using namespace velt::test;
using velt::Ref;

namespace {

class EditorInput : public testing::Test {
protected:
    void show(std::string_view text) {
        VELT_NSTEXTVIEW_VALUE(shown.view, str(text));
        VELT_NSTEXTVIEW_DELEGATE(shown.view, host);
        VELT_VLTEXTVIEW_TURNONAUTOINDENT(shown.view);
        QGuiApplication::clipboard()->clear();
    }
    void TearDown() override { velt::send(shown.view, "stopCompletionTimer"); }

    QWidget& page() const { return *static_cast<QAbstractScrollArea*>(shown.widget)->viewport(); }
    static void setClipboard(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
    void cut() const { shown.key(Qt::Key_X, Qt::ControlModifier); }
    void copy() const { shown.key(Qt::Key_C, Qt::ControlModifier); }
    void paste() const { shown.key(Qt::Key_V, Qt::ControlModifier); }
    void undo() const { shown.key(Qt::Key_Z, Qt::ControlModifier); }
    void redo() const { shown.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    long running() const { return VELT_CINTEGER(velt::send(shown.view, "nCompletionRunning")); }
    void colour() const { velt::send(shown.view, "performSyntaxHighlighting::", shown.view, boolean(true)); }

    /// Where in the page the unit at a position begins; the selection stays.
    QPoint placeOf(unsigned long position) const {
        const id selected = velt::send(shown.view, "selectedRanges");
        shown.select(position);
        const NSPoint foot = VELT_CNSPOINT(velt::send(shown.view, "insertionPointGlobalCoordinate"));
        velt::send(shown.view, "setSelectedRanges:", selected);
        constexpr int kIntoLine = 3;
        const int top = QGuiApplication::primaryScreen()->geometry().height();
        return page().mapFromGlobal(QPoint(static_cast<int>(foot.x), top - static_cast<int>(foot.y) - kIntoLine));
    }
    /// A drag comes over the page and ends there.
    bool drop(const QMimeData& data, QPoint place, Qt::DropAction action) const {
        QDragEnterEvent enters(place, action, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&page(), &enters);
        QDragMoveEvent moves(place, action, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&page(), &moves);
        QDropEvent drops(place, action, &data, Qt::LeftButton, {});
        drops.setDropAction(action);
        drops.setAccepted(false);
        QApplication::sendEvent(&page(), &drops);
        return drops.isAccepted();
    }
    bool dropText(const char* text, unsigned long position) const {
        QMimeData data;
        data.setText(QString::fromUtf8(text));
        return drop(data, placeOf(position), Qt::CopyAction);
    }
    /// Drags what is selected to another place of the same page. False where the desktop knows no drags.
    bool dragSelection(unsigned long to, Qt::DropAction action) const {
        const QPoint place = placeOf(to);
        auto* data = new QMimeData;
        data->setText(QString::fromStdString(velt::utf8(VELT_NSTEXTVIEW_SELECTEDTEXT(shown.view))));
        auto* drag = new QDrag(&page());
        drag->setMimeData(data);
        bool isDragged = false;
        QObject here;
        QTimer::singleShot(0, &here, [&] {
            isDragged = drag->source() != nullptr;
            drop(*data, place, action);
            QDrag::cancel();
        });
        drag->exec(Qt::CopyAction | Qt::MoveAction, action);
        return isDragged;
    }
    void compose(const char* preedit) const {
        QInputMethodEvent composing(QString::fromUtf8(preedit), {});
        QApplication::sendEvent(shown.widget, &composing);
    }
    void commit(const char* text) const {
        QInputMethodEvent committing;
        committing.setCommitString(QString::fromUtf8(text));
        QApplication::sendEvent(shown.widget, &committing);
    }
    /// The mark of what was found, where the page shows it; empty without one.
    QRect mark() const {
        const auto* widget = page().findChild<QWidget*>(QStringLiteral("findIndicator"));
        return widget && widget->isVisible() ? widget->geometry() : QRect();
    }

    EditorWindow shown;
    Ref<EditorHost> host = velt::make<EditorHost>();
};

}  // namespace

// The clipboard.

TEST_F(EditorInput, CutsCopiesAndPastesWithTheKeysForIt) {
    show("dim x\nprint x\n");
    shown.select(4, 4);
    copy();
    EXPECT_EQ("x\npr", clipboard());
    EXPECT_EQ("dim x\nprint x\n", shown.text());
    cut();
    EXPECT_EQ("dim int x\n", shown.text());
    EXPECT_EQ("{4, 0}", shown.selected());
    EXPECT_EQ("x\npr", clipboard());
    paste();
    EXPECT_EQ("dim x\nprint x\n", shown.text());
    EXPECT_EQ("{8, 0}", shown.selected());
    shown.select(0, 3);
    paste();
    EXPECT_EQ("x\npr x\nprint x\n", shown.text());
    // Each is undone by itself.
    undo();
    EXPECT_EQ("dim x\nprint x\n", shown.text());
    undo();
    EXPECT_EQ("dim int x\n", shown.text());
    undo();
    EXPECT_EQ("dim x\nprint x\n", shown.text());
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(shown.view));
    redo();
    redo();
    redo();
    EXPECT_EQ("x\npr x\nprint x\n", shown.text());
    // There is nothing to cut without a selection, and nothing to paste.
    shown.select(0);
    cut();
    EXPECT_EQ("x\npr", clipboard());
    QGuiApplication::clipboard()->clear();
    paste();
    EXPECT_EQ("x\npr x\nprint x\n", shown.text());
}

TEST_F(EditorInput, IsTypedApartFromWhatIsPasted) {
    show("");
    setClipboard("two ");
    shown.type("one ");
    paste();
    shown.type("three");
    EXPECT_EQ("one two three", shown.text());
    undo();
    EXPECT_EQ("one two ", shown.text());
    undo();
    EXPECT_EQ("one ", shown.text());
    undo();
    EXPECT_EQ("", shown.text());
}

TEST_F(EditorInput, TakesPastedLinesAsTheyAreUntilTheyAreFormatted) {
    show("sub a\nend sub\n");
    colour();
    setClipboard("if  a=\"x+1\" then\nPRINT a\nend if\n");
    shown.select(6);
    paste();
    const std::string pasted = "sub a\nif  a=\"x+1\" then\nPRINT a\nend if\nend sub\n";
    EXPECT_EQ(pasted, shown.text());
    EXPECT_EQ("{38, 0}", shown.selected());
    // What came in has no colours yet, and what was there keeps its own.
    const std::string none(32, '.');
    EXPECT_EQ("kkk..." + none + "....kkk.", shown.colours());
    colour();
    EXPECT_EQ("kkk..."
              "kk....sssss.kkkk."
              "........"
              "....kk."
              "....kkk.",
              shown.colours());
    shown.select(6, 32);
    VELT_VLTEXTVIEW_AUTOFORMAT(shown.view);
    const std::string formatted = shown.text();
    EXPECT_NE(pasted, formatted);
    EXPECT_NE(std::string::npos, formatted.find("if a = \"x+1\" then\n"));
    EXPECT_NE(std::string::npos, formatted.find("print a\n"));
    undo();
    EXPECT_EQ(pasted, shown.text());
    undo();
    EXPECT_EQ("sub a\nend sub\n", shown.text());
    redo();
    redo();
    EXPECT_EQ(formatted, shown.text());
}

// Entries move with typed line ends and released Backspaces alone; programs rely on it.
TEST_F(EditorInput, LeavesBreakpointsWhereTheyAreWhenLinesArePastedOrDropped) {
    show("one\ntwo\nthree\n");
    id entries[] = {integer(4), integer(8)};
    VELT_VLTEXTVIEW_BREAKPOINTS(shown.view, id(velt::make<NSMutableArray>(velt::MovedValues{entries})));
    colour();
    EXPECT_EQ("....!!!!!!!!!!", shown.colours());
    setClipboard("new\n");
    shown.select(0);
    paste();
    EXPECT_EQ("(4, 8)", shown.breakpoints());
    // The grounds go with their lines until the text is coloured anew.
    EXPECT_EQ("........!!!!!!!!!!", shown.colours());
    colour();
    EXPECT_EQ("....!!!!!!!!......", shown.colours());
    EXPECT_TRUE(dropText("far\n", 0));
    EXPECT_EQ("far\nnew\none\ntwo\nthree\n", shown.text());
    EXPECT_EQ("(4, 8)", shown.breakpoints());
    undo();
    undo();
    EXPECT_EQ("one\ntwo\nthree\n", shown.text());
    EXPECT_EQ("(4, 8)", shown.breakpoints());
}

TEST_F(EditorInput, PastesEverySelectionThatWasCopied) {
    show("a\nb\nc\n");
    const Ref<NSMutableArray> ranges = velt::make<NSMutableArray>();
    for (const NSRange& each : {NSRange{0, 1}, NSRange{4, 1}}) ranges->append(VELT_ID(each));
    velt::send(shown.view, "setSelectedRanges:", ranges);
    copy();
    EXPECT_EQ("a\nc", clipboard());
    cut();
    EXPECT_EQ("\nb\n\n", shown.text());
    undo();
    EXPECT_EQ("a\nb\nc\n", shown.text());
}

TEST_F(EditorInput, PastesWhatWasSelectedLastWithTheMiddleButton) {
    QClipboard& selection = *QGuiApplication::clipboard();
    if (!selection.supportsSelection()) GTEST_SKIP() << "this desktop keeps no selection";
    show("one two\n");
    selection.setText(QStringLiteral("x "), QClipboard::Selection);
    shown.select(0);
    QTest::mouseClick(&page(), Qt::MiddleButton, {}, placeOf(4));
    EXPECT_EQ("one x two\n", shown.text());
    EXPECT_EQ("{6, 0}", shown.selected());
    undo();
    EXPECT_EQ("one two\n", shown.text());
}

// Drags.

TEST_F(EditorInput, TakesTextThatIsDroppedFromOutside) {
    show("dim x\nprint x\n");
    colour();
    EXPECT_TRUE(dropText("if\n", 6));
    EXPECT_EQ("dim x\nif\nprint x\n", shown.text());
    EXPECT_EQ("{6, 3}", shown.selected());
    EXPECT_EQ("kkk......kkkkk...", shown.colours());
    undo();
    EXPECT_EQ("dim x\nprint x\n", shown.text());
    EXPECT_EQ("kkk...kkkkk...", shown.colours());
    redo();
    EXPECT_EQ("dim x\nif\nprint x\n", shown.text());
    // Neither where it is refused nor where nothing may be edited.
    host->allows = false;
    dropText("q", 0);
    EXPECT_EQ("dim x\nif\nprint x\n", shown.text());
    host->allows = true;
    shown.editor().setEditable(false);
    EXPECT_FALSE(dropText("q", 0));
    EXPECT_EQ("dim x\nif\nprint x\n", shown.text());
}

TEST_F(EditorInput, MovesAndCopiesWhatIsDraggedWithin) {
    show("one two three\n");
    shown.select(0, 4);
    if (!dragSelection(8, Qt::MoveAction)) GTEST_SKIP() << "this desktop knows no drags";
    EXPECT_EQ("two one three\n", shown.text());
    EXPECT_EQ("{4, 4}", shown.selected());
    undo();
    EXPECT_EQ("one two three\n", shown.text());
    redo();
    EXPECT_EQ("two one three\n", shown.text());
    shown.select(8, 5);
    dragSelection(0, Qt::MoveAction);
    EXPECT_EQ("threetwo one \n", shown.text());
    EXPECT_EQ("{0, 5}", shown.selected());
    dragSelection(9, Qt::CopyAction);
    EXPECT_EQ("threetwo threeone \n", shown.text());
    undo();
    EXPECT_EQ("threetwo one \n", shown.text());
    // Into itself it does not move.
    shown.select(0, 8);
    dragSelection(3, Qt::MoveAction);
    EXPECT_EQ("threetwo one \n", shown.text());
    undo();
    undo();
    EXPECT_EQ("one two three\n", shown.text());
}

// Input methods.

TEST_F(EditorInput, KeepsWhatIsComposedOutOfTheTextUntilItIsCommitted) {
    show("dim x\n");
    colour();
    shown.select(3);
    compose("に");
    compose("にほ");
    EXPECT_EQ("dim x\n", shown.text());
    EXPECT_EQ("kkk...", shown.colours());
    EXPECT_EQ(0, host->heard);
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(shown.view));
    commit("日本");
    EXPECT_EQ("dim日本 x\n", shown.text());
    EXPECT_EQ("{5, 0}", shown.selected());
    EXPECT_EQ("kkk.....", shown.colours());
    undo();
    EXPECT_EQ("dim x\n", shown.text());
    EXPECT_EQ("kkk...", shown.colours());
    redo();
    EXPECT_EQ("dim日本 x\n", shown.text());
    // What is given up leaves nothing behind.
    compose("か");
    compose("");
    EXPECT_EQ("dim日本 x\n", shown.text());
    undo();
    EXPECT_EQ("dim x\n", shown.text());
    EXPECT_VALUE("c 0", VELT_NSTEXTVIEW_CANUNDO(shown.view));
}

TEST_F(EditorInput, AsksForNoCompletionWhileSomethingIsComposed) {
    show("a\n");
    shown.select(1);
    compose(".");
    compose("..");
    EXPECT_EQ(0, running());
    EXPECT_TRUE(velt::send(shown.view, "completionTimer").isNil());
    commit(".");
    EXPECT_EQ("a.\n", shown.text());
    EXPECT_EQ(1, running());
    EXPECT_VALUE("c 1", velt::send(shown.view, "bClass"));
    EXPECT_VALUE("'a'", velt::send(shown.view, "sCompletion"));
}

TEST_F(EditorInput, FormatsALineWhoseEndWasCommitted) {
    show("x\na=b");
    shown.select(5);
    commit("\n");
    EXPECT_EQ("x\na = b\n", shown.text());
}

// The mark of what was found.

TEST_F(EditorInput, MarksWhatWasFoundForAWhile) {
    show("one two\nthree two\n");
    shown.select(0);
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("two")));
    const QRect first = mark();
    EXPECT_FALSE(first.isEmpty());
    EXPECT_TRUE(first.contains((placeOf(4) + placeOf(7)) / 2));
    keepPicture(*shown.widget, "find-indicator");
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("two")));
    EXPECT_EQ("{14, 3}", shown.selected());
    EXPECT_TRUE(mark().contains((placeOf(14) + placeOf(17)) / 2));
    EXPECT_EQ(1, page().findChildren<QWidget*>(QStringLiteral("findIndicator")).size());
    EXPECT_TRUE(comesTrue([&] { return mark().isEmpty(); }));
    EXPECT_VALUE("c 0", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("four")));
    EXPECT_TRUE(mark().isEmpty());
}

TEST(EditorFindIndicator, IsShownWhereAMatchOutOfSightHasCome) {
    std::string text;
    for (int i = 0; i < 2000; ++i) text += "line\n";
    text += std::string(600, ' ').append("needle\nlast\n");
    EditorWindow shown(text, true);
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view);
    QWidget& page = *static_cast<QAbstractScrollArea*>(shown.widget)->viewport();
    shown.select(0);
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDNEXT(shown.view, str("needle")));
    const auto marks = [&] { return page.findChildren<QWidget*>(QStringLiteral("findIndicator")); };
    ASSERT_EQ(1, marks().size());
    const QRect mark = marks()[0]->geometry();
    EXPECT_TRUE(page.rect().adjusted(-4, -4, 4, 4).contains(mark));
    EXPECT_GT(mark.width(), 20);
    EXPECT_GT(mark.height(), 8);
    keepPicture(*shown.widget, "find-indicator-far");
    EXPECT_TRUE(comesTrue([&] { return marks().isEmpty(); }));
    EXPECT_VALUE("c 1", VELT_VLTEXTVIEW_FINDPREVIOUS(shown.view, str("line")));
    ASSERT_EQ(1, marks().size());
    EXPECT_TRUE(page.rect().adjusted(-4, -4, 4, 4).contains(marks()[0]->geometry()));
}
