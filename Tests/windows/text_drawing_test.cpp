// How a text view draws its text, and how a person moves about in it.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"
#include "support/patience.h"
#include "support/shown_text.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

using namespace velt::test;
using velt::Ref;
using velt::TextWidget;

namespace {

/// Notes what of a widget is painted.
class PaintedRegion final : public QObject {
public:
    explicit PaintedRegion(QWidget& watched) { watched.installEventFilter(this); }
    QRect painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) painted |= static_cast<QPaintEvent*>(event)->rect();
        return false;
    }
};

class TextDrawing : public testing::Test {
protected:
    void show(std::string_view text, bool breaks = true) {
        view = velt::make<NSTextView>();
        view->setFrame({{0, 0}, {300, 200}});
        if (!breaks) velt::send(velt::send(view, "textContainer"), "setWidthTracksTextView:", boolean(false));
        if (!breaks) velt::send(velt::send(view, "textContainer"), "setContainerSize:", VELT_ID(NSSize{1e7, 1e7}));
        view->setFont(NSFont::userFixedPitch(12));
        VELT_NSTEXTVIEW_VALUE(view, str(text));
        VELT_NSWINDOW_APPEND(window.window, id(view));
        window.show();
        VELT_NSWINDOW_MAKEFIRSTRESPONDER(window.window, view);
        widget = view->existingTextWidget();
        ASSERT_TRUE(widget);
        view->setSelectedRange({0, 0});
        widget->verticalScrollBar()->setValue(0);
        QApplication::processEvents();
    }
    std::string selected() const { return velt::utf8(velt::description(velt::send(view, "selectedRange"))); }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) const { QTest::keyClick(widget, code, modifiers); }
    QPoint placeOf(std::size_t position) const { return widget->caretRect(position).center() + QPoint(2, 0); }
    static std::string lines(int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text.append("line ").append(std::to_string(i)).append("\n");
        return text;
    }

    ControlWindow window{{{50, 60}, {340, 260}}};
    Ref<NSTextView> view;
    TextWidget* widget = nullptr;
};

}  // namespace

TEST_F(TextDrawing, DrawsOnlyTheLineAnewThatIsTyped) {
    show(lines(40), false);
    const int row = widget->caretRect().height();
    view->setSelectedRange({10, 0});
    QApplication::processEvents();
    PaintedRegion region(*widget->viewport());
    EXPECT_TRUE(widget->hasFocus());
    QTest::keyClicks(widget, QStringLiteral("x"));
    EXPECT_EQ("{11, 0}", selected());
    EXPECT_TRUE(comesTrue([&] { return region.painted.isValid(); }));
    EXPECT_LE(region.painted.height(), 3 * row);
    EXPECT_TRUE(region.painted.contains(widget->caretRect()));
    region.painted = {};
    key(Qt::Key_Return);
    // All that moved down.
    EXPECT_TRUE(comesTrue([&] { return region.painted.height() > widget->viewport()->height() - 4 * row; }));
}

TEST_F(TextDrawing, DrawsOnlyTheLinesAnewWhoseTemporaryAttributesChange) {
    show(lines(40), false);
    const int row = widget->caretRect().height();
    const id layout = velt::send(view, "layoutManager");
    const auto green = velt::make<NSMutableDictionary>();
    green->setObject(velt::make<NSColor>(0.0, 1.0, 0.0, 1.0), str("NSBackgroundColor"));
    PaintedRegion region(*widget->viewport());
    velt::send(layout, "setTemporaryAttributes:forCharacterRange:", green, range(15, 3));
    EXPECT_TRUE(comesTrue([&] { return region.painted.isValid(); }));
    EXPECT_LE(region.painted.height(), 2 * row);
    // Lines out of sight have theirs when they come into it.
    velt::send(layout, "setTemporaryAttributes:forCharacterRange:", green, range(200, 3));
    velt::send(view, "scrollRangeToVisible:", range(200, 0));
    const std::size_t line = widget->lineOf(200);
    widget->grab();
    const int place = static_cast<int>(200 - (70 + 8 * (line - 10)));
    EXPECT_EQ(QColor(0, 255, 0), drawnFormat(*widget, line, place).background().color());
}

TEST_F(TextDrawing, MovesByRowsOfBrokenLines) {
    const std::string words = "one two three four five six seven eight nine ten eleven twelve thirteen fourteen";
    show(words + "\nshort\n" + words);
    const QTextLayout& first = widget->layoutOf(0);
    ASSERT_LT(1, first.lineCount());
    const int secondRow = first.lineAt(1).textStart();
    key(Qt::Key_End);
    EXPECT_EQ("{" + std::to_string(secondRow - 1) + ", 0}", selected());
    key(Qt::Key_Home);
    EXPECT_EQ("{0, 0}", selected());
    key(Qt::Key_Down);
    EXPECT_EQ("{" + std::to_string(secondRow) + ", 0}", selected());
    for (int i = 0; i < 10; ++i) key(Qt::Key_Right);
    const int across = widget->caretRect().left();
    while (widget->lineOf(widget->insertionPoint()) < 2) key(Qt::Key_Down);  // over the short line
    EXPECT_NEAR(across, widget->caretRect().left(), 5);
    velt::send(view, "doCommandBySelector:", str("moveToBeginningOfParagraph:"));
    EXPECT_EQ("{" + std::to_string(words.size() + 7) + ", 0}", selected());
    velt::send(view, "doCommandBySelector:", str("moveToEndOfParagraph:"));
    EXPECT_EQ("{" + std::to_string(2 * words.size() + 7) + ", 0}", selected());
}

TEST_F(TextDrawing, ShowsTheCaretBelowWhereRowsEnd) {
    const std::string words = "one two three four five six seven eight nine ten eleven twelve thirteen fourteen";
    show(words + "\nnext");
    const QTextLayout& first = widget->layoutOf(0);
    const auto rows = first.lineCount();
    EXPECT_EQ(rows,
              (widget->caretRect(words.size() + 1).top() - widget->caretRect(0).top()) / widget->caretRect(0).height());
    for (std::size_t position = 0; position <= words.size() + 5; ++position) {
        EXPECT_EQ(position, widget->positionAt(widget->caretRect(position).center())) << position;
    }
}

TEST_F(TextDrawing, LeavesASelectionAtTheEndThatAMovementGoesTo) {
    show("one two three\nfour");
    view->setSelectedRange({4, 3});
    key(Qt::Key_Left);
    EXPECT_EQ("{4, 0}", selected());
    view->setSelectedRange({4, 3});
    key(Qt::Key_Right);
    EXPECT_EQ("{7, 0}", selected());
    view->setSelectedRange({3, 0});
    key(Qt::Key_Home, Qt::ShiftModifier);  // with the insertion point at the begin of the text
    key(Qt::Key_Right);
    EXPECT_EQ("{3, 0}", selected());
    view->setSelectedRange({4, 3});
    key(Qt::Key_Down);
    EXPECT_EQ("{18, 0}", selected());
    view->setSelectedRange({4, 3});
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ("{4, 4}", selected());
    key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ("{4, 0}", selected());
}

TEST_F(TextDrawing, GoesOnByScreens) {
    show(lines(200), false);
    key(Qt::Key_PageDown);
    const std::size_t line = widget->lineOf(widget->insertionPoint());
    EXPECT_LT(5u, line);
    EXPECT_LT(0, widget->verticalScrollBar()->value());
    EXPECT_TRUE(widget->viewport()->rect().contains(widget->caretRect()));
    key(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(2 * line, widget->lineOf(widget->insertionPoint()));
    key(Qt::Key_PageUp);
    key(Qt::Key_PageUp);
    EXPECT_EQ("{0, 0}", selected());
    EXPECT_EQ(0, widget->verticalScrollBar()->value());
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(widget->verticalScrollBar()->maximum(), widget->verticalScrollBar()->value());
    EXPECT_TRUE(widget->viewport()->rect().contains(widget->caretRect()));
    EXPECT_LT(widget->viewport()->height() - 2 * widget->caretRect().height(), widget->caretRect().bottom());
}

TEST_F(TextDrawing, KeepsWhatIsSeenInPlaceWhileTheTextAboveGrows) {
    show(lines(200), false);
    velt::send(view, "scrollRangeToVisible:", range(1200, 0));
    const std::size_t position = widget->positionAt({20, 50});
    const int y = widget->caretRect(position).top();
    velt::send(velt::send(view, "textStorage"), "replaceCharactersInRange:withString:", range(0, 0), str("a\nb\nc\n"));
    EXPECT_EQ(y, widget->caretRect(position + 6).top());
}

TEST_F(TextDrawing, SelectsWordsAndLinesByMoreClicks) {
    show("one two.three_4 \xC3\xA4\xC3\xB6\nnext line\n");
    QWidget* page = widget->viewport();
    QTest::mouseClick(page, Qt::LeftButton, {}, placeOf(9));
    EXPECT_EQ("{9, 0}", selected());
    QTest::mouseDClick(page, Qt::LeftButton, {}, placeOf(9));
    EXPECT_EQ("{8, 7}", selected());
    QTest::mousePress(page, Qt::LeftButton, {}, placeOf(9));
    EXPECT_EQ("{0, 19}", selected());
    QTest::mouseRelease(page, Qt::LeftButton, {}, placeOf(9));
    QTest::qWait(QApplication::doubleClickInterval() + 20);
    QTest::mouseDClick(page, Qt::LeftButton, {}, placeOf(7));
    EXPECT_EQ("{7, 1}", selected());
    QTest::mouseDClick(page, Qt::LeftButton, {}, placeOf(16));
    EXPECT_EQ("{16, 2}", selected());
    QTest::mouseClick(page, Qt::LeftButton, Qt::ShiftModifier, placeOf(21));
    EXPECT_EQ("{16, 5}", selected());
}

TEST_F(TextDrawing, SelectsAsTheMouseIsDrawn) {
    show(lines(100), false);
    QWidget* page = widget->viewport();
    QTest::mousePress(page, Qt::LeftButton, {}, placeOf(2));
    QMouseEvent moved(QEvent::MouseMove, placeOf(16), page->mapToGlobal(placeOf(16)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(page, &moved);
    EXPECT_EQ("{2, 14}", selected());
    // Beyond the edge the text comes on by itself.
    const QPoint below(20, page->height() + 30);
    QMouseEvent out(QEvent::MouseMove, below, page->mapToGlobal(below), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(page, &out);
    EXPECT_TRUE(comesTrue([&] { return widget->verticalScrollBar()->value() > 3; }));
    QTest::mouseRelease(page, Qt::LeftButton, {}, below);
    const std::string all = selected();
    EXPECT_EQ(0u, all.find("{2, "));
    const int value = widget->verticalScrollBar()->value();
    QTest::qWait(150);
    EXPECT_EQ(value, widget->verticalScrollBar()->value());
}

TEST_F(TextDrawing, LetsNothingBeDraggedThatMayNotBeSelectedAnyMore) {
    show("one two three");
    view->setSelectedRange({0, 7});
    QWidget* page = widget->viewport();
    const QPoint away = placeOf(2) + QPoint(0, 4 * QApplication::startDragDistance());
    QTest::mousePress(page, Qt::LeftButton, {}, placeOf(2));
    view->setSelectable(false);
    QMouseEvent moved(QEvent::MouseMove, away, page->mapToGlobal(away), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(page, &moved);
    QTest::mouseRelease(page, Qt::LeftButton, {}, away);
    view->setSelectable(true);
    EXPECT_EQ("{0, 7}", selected());
}

TEST_F(TextDrawing, PutsTheCaretWhereASelectionIsClicked) {
    show("one two three");
    view->setSelectedRange({4, 3});
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, placeOf(5));
    EXPECT_EQ("{5, 0}", selected());
}

TEST_F(TextDrawing, AlignsLinesThatDoNotBreak) {
    show("ab\nabcdef", false);
    const int left = widget->caretRect(0).left();
    view->setAlignment(1);
    window.show();
    EXPECT_LT(left + 100, widget->caretRect(0).left());
    EXPECT_EQ(widget->caretRect(2).left(), widget->caretRect(9).left());
    view->setAlignment(2);
    window.show();
    const int middle = widget->viewport()->width() / 2;
    EXPECT_NEAR(middle, (widget->caretRect(0).left() + widget->caretRect(2).left()) / 2, 6);
    EXPECT_EQ(1u, widget->positionAt(widget->caretRect(1).center()));
}

TEST_F(TextDrawing, DrawsTextFromTheRightWhoseDirectionIsThat) {
    show("abc\n\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", false);
    EXPECT_LT(widget->caretRect(0).left(), 20);
    EXPECT_GT(widget->caretRect(4).left(), widget->viewport()->width() / 2);
    view->setSelectedRange({4, 0});
    key(Qt::Key_Left);
    EXPECT_EQ("{5, 0}", selected());
    key(Qt::Key_Right);
    EXPECT_EQ("{4, 0}", selected());
}

TEST_F(TextDrawing, BlinksWithTheKeyboardOnly) {
    show("abc");
    const auto dark = [&] {
        const QImage image = widget->viewport()->grab(widget->caretRect().adjusted(0, 0, 2, 0)).toImage();
        int found = 0;
        for (int x = 0; x < image.width(); ++x) found += image.pixelColor(x, image.height() / 2).lightness() < 128;
        return found > 0;
    };
    view->setSelectedRange({3, 0});
    EXPECT_TRUE(dark());
    widget->clearFocus();
    EXPECT_FALSE(dark());
}

TEST_F(TextDrawing, TellsInputMethodsWhatStandsAroundTheCaret) {
    show("one\ntwo three\nfour");
    view->setSelectedRange({8, 5});
    EXPECT_EQ(QStringLiteral("two three"), widget->inputMethodQuery(Qt::ImSurroundingText).toString());
    EXPECT_EQ(9, widget->inputMethodQuery(Qt::ImCursorPosition).toInt());
    EXPECT_EQ(4, widget->inputMethodQuery(Qt::ImAnchorPosition).toInt());
    EXPECT_EQ(13, widget->inputMethodQuery(Qt::ImAbsolutePosition).toInt());
    EXPECT_EQ(QStringLiteral("three"), widget->inputMethodQuery(Qt::ImCurrentSelection).toString());
    EXPECT_EQ(QStringLiteral("one\ntwo three"), widget->inputMethodQuery(Qt::ImTextBeforeCursor).toString());
    EXPECT_EQ(QStringLiteral("\nfour"), widget->inputMethodQuery(Qt::ImTextAfterCursor).toString());
    const QRect caret = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_EQ(widget->caretRect().translated(widget->viewport()->pos()), caret);
    EXPECT_TRUE(widget->inputMethodQuery(Qt::ImEnabled).toBool());
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    EXPECT_FALSE(widget->inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST_F(TextDrawing, IsReadAndEditedByThoseWhoCannotSee) {
    show("one two\nthree");
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(widget);
    ASSERT_TRUE(read);
    EXPECT_EQ(QAccessible::EditableText, read->role());
    EXPECT_TRUE(read->state().multiLine && read->state().editable);
    QAccessibleTextInterface* text = read->textInterface();
    ASSERT_TRUE(text);
    EXPECT_EQ(13, text->characterCount());
    EXPECT_EQ(QStringLiteral("two"), text->text(4, 7));
    text->setSelection(0, 4, 7);
    EXPECT_EQ("{4, 3}", selected());
    int begin = 0, end = 0;
    text->selection(0, &begin, &end);
    EXPECT_EQ(4, begin);
    EXPECT_EQ(7, end);
    EXPECT_EQ(1, text->selectionCount());
    text->setCursorPosition(9);
    EXPECT_EQ(9, text->cursorPosition());
    EXPECT_EQ(0, text->selectionCount());
    const QRect first = text->characterRect(8);
    EXPECT_EQ(8, text->offsetAtPoint(first.topLeft() + QPoint(1, 2)));
    int from = 0, to = 0;
    EXPECT_EQ(QStringLiteral("three"), text->textAtOffset(10, QAccessible::WordBoundary, &from, &to));
    QAccessibleEditableTextInterface* edits = read->editableTextInterface();
    ASSERT_TRUE(edits);
    edits->replaceText(4, 7, QStringLiteral("2"));
    EXPECT_VALUE("'one 2\nthree'", VELT_NSTEXTVIEW_VALUE(view));
    VELT_NSTEXTVIEW_UNDO(view);
    EXPECT_VALUE("'one two\nthree'", VELT_NSTEXTVIEW_VALUE(view));
    VELT_NSTEXT_EDITABLE(view, boolean(false));
    edits->insertText(0, QStringLiteral("x"));
    EXPECT_VALUE("'one two\nthree'", VELT_NSTEXTVIEW_VALUE(view));
    EXPECT_TRUE(read->state().readOnly);
}

TEST_F(TextDrawing, ScrollsToEveryRowOfALongText) {
    show(lines(3000), false);
    QScrollBar& bar = *widget->verticalScrollBar();
    for (const int value : {0, 1, 700, 2000, bar.maximum()}) {
        bar.setValue(value);
        const auto rows = widget->firstRowsInSight();
        EXPECT_EQ(static_cast<std::size_t>(value), rows.front().line);
    }
    EXPECT_EQ(3000u, widget->firstRowsInSight().back().line);  // the empty one behind the last line end
    bar.setValue(1500);
    EXPECT_EQ(1500u, widget->firstRowsInSight().front().line);
}

TEST_F(TextDrawing, FindsItsRowsWhenLinesBreakAnew) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "a line of several words that does not fit into the width of the window, so it breaks\n";
    show(text);
    QScrollBar& bar = *widget->verticalScrollBar();
    for (int i = 0; i < 200 && bar.value() < bar.maximum(); ++i) {
        bar.setValue(bar.maximum());
        widget->grab();
        QApplication::processEvents();
    }
    EXPECT_EQ(60u, widget->firstRowsInSight().back().line);
    bar.setValue(0);
    widget->grab();
    const int narrow = bar.maximum();
    view->setFrame({{0, 0}, {900, 200}});
    widget->grab();
    QApplication::processEvents();
    EXPECT_LT(bar.maximum(), narrow);
    EXPECT_EQ(0u, widget->firstRowsInSight().front().line);
}
