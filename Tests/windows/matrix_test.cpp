#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/control_window.h"

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/date_picker.h"
#include "VELTRuntime/platform/appkit/controls/slider.h"
#include "VELTRuntime/platform/appkit/controls/text_field_cell.h"
#include "VELTRuntime/platform/appkit/tables/matrix.h"
#include "VELTRuntime/ui/matrices.h"

#include <QLineEdit>

using namespace velt::test;
using velt::Ref;

namespace {

NSMatrix& matrixOf(const id& value) { return *velt::as<NSMatrix>(value); }

/// A matrix of radio buttons "A" to "F" in two rows, or of cells of another kind.
struct Grid {
    explicit Grid(ControlWindow& window, unsigned long mode = 0, long type = 4) : window_(window) {
        const Ref<NSButtonCell> prototype = velt::make<NSButtonCell>();
        prototype->setButtonType(type);
        make(prototype, mode);
    }
    Grid(ControlWindow& window, const id& prototype, unsigned long mode) : window_(window) { make(prototype, mode); }

    id cell(long row, long column) const { return matrixOf(matrix).cellAt(row, column); }
    QWidget& widget() const { return matrixOf(matrix).widget(); }
    QPoint centre(long row, long column) const {
        const NSRect frame = matrixOf(matrix).cellFrameAt(row, column);
        return QPointF(frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2).toPoint();
    }
    void click(long row, long column, Qt::KeyboardModifiers keys = {}) const {
        QTest::mouseClick(&widget(), Qt::LeftButton, keys, centre(row, column));
    }
    void drag(std::pair<long, long> from, std::pair<long, long> to) const {
        QTest::mousePress(&widget(), Qt::LeftButton, {}, centre(from.first, from.second));
        moveTo(centre(to.first, to.second));
        QTest::mouseRelease(&widget(), Qt::LeftButton, {}, centre(to.first, to.second));
    }
    void moveTo(QPoint point) const {
        QMouseEvent event(QEvent::MouseMove, point, widget().mapToGlobal(point), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&widget(), &event);
    }
    /// The titles of the cells that are selected, then of the one that was selected last.
    std::string selected() const {
        std::string all;
        const id cells = velt::send(matrix, "selectedCells");
        for (const id& each : velt::arrayOf(cells)->items()) all += velt::utf8(velt::send(each, "title"));
        const id last = VELT_NSMATRIX_SELECTEDCELL(matrix);
        return all + ":" + (last.isNil() ? "" : velt::utf8(velt::send(last, "title")));
    }
    std::string on() const {
        std::string all;
        for (long at = 0; at < 6; ++at) {
            const id each = cell(at / 3, at % 3);
            if (velt::as<NSCell>(each)->state() == 1) all += velt::utf8(velt::send(each, "title"));
        }
        return all;
    }

    ControlWindow& window_;
    id matrix = VELT_NSMATRIX_INIT(window_.listener, "click:");

private:
    void make(const id& prototype, unsigned long mode) {
        velt::send(matrix, "setPrototype:", prototype);
        VELT_NSMATRIX_MODE(matrix, VELT_ID(mode));
        velt::send(matrix, "setCellSize:", VELT_ID(NSSize{60, 24}));
        velt::send(matrix, "setIntercellSpacing:", VELT_ID(NSSize{4, 4}));
        velt::send(matrix, "renewRows:columns:", VELT_ID(2L), VELT_ID(3L));
        for (long at = 0; at < 6; ++at) {
            velt::send(cell(at / 3, at % 3), "setTitle:", str(std::string(1, static_cast<char>('A' + at)).c_str()));
            velt::send(cell(at / 3, at % 3), "setTag:", VELT_ID(at + 10));
        }
        velt::send(matrix, "sizeToCells");
        velt::send(matrix, "setFrameOrigin:", point(10, 40));
        VELT_NSWINDOW_APPEND(window_.window, matrix);
    }
};

id cellsTitled(std::initializer_list<const char*> titles) {
    Ref<NSMutableArray> cells = velt::make<NSMutableArray>();
    for (const char* title : titles) cells->append(velt::make<NSCell>(str(title)));
    return cells;
}

}  // namespace

TEST(Matrices, AreMadeEmptyWithTheirActionForTheOwner) {
    const ControlWindow window;
    const id matrix = VELT_NSMATRIX_INIT(window.listener, "click:");
    EXPECT_EQ(0, matrixOf(matrix).frame().size.width);
    EXPECT_VALUE("Q 0", VELT_NSMATRIX_MODE(matrix));
    EXPECT_VALUE("'click:'", velt::send(matrix, "action"));
    EXPECT_EQ(id(window.listener), VELT_NSCONTROL_TARGET(matrix));
    EXPECT_TRUE(VELT_NSMATRIX_SELECTEDCELL(matrix).isNil());
    EXPECT_VALUE("q -1", velt::send(matrix, "selectedRow"));
    EXPECT_TRUE(velt::send(VELT_NSMATRIX_INIT(window.listener, "unknown:"), "action").isNil());
    EXPECT_TRUE(VELT_NSCONTROL_TARGET(VELT_NSMATRIX_INIT(window.listener, "unknown:")).isNil());
}

TEST(Matrices, AreRenewedByEveryRowThatIsAdded) {
    const id matrix = VELT_NSMATRIX_INIT(nil, "");
    VELT_NSMATRIX_ADDROW(matrix, cellsTitled({"a", "b", "c"}));
    EXPECT_VALUE("q 2", velt::send(matrix, "numberOfRows"));
    EXPECT_VALUE("q 3", velt::send(matrix, "numberOfColumns"));
    EXPECT_VALUE("''", velt::send(matrixOf(matrix).cellAt(0, 0), "title"));
    EXPECT_VALUE("'c'", velt::send(matrixOf(matrix).cellAt(1, 2), "title"));
    EXPECT_EQ(3 * 100 + 2, matrixOf(matrix).frame().size.width);
    EXPECT_EQ(2 * 17 + 1, matrixOf(matrix).frame().size.height);
    const id kept = matrixOf(matrix).cellAt(0, 1);
    VELT_NSMATRIX_ADDROW(matrix, cellsTitled({"d", "e"}));
    EXPECT_VALUE("q 2", velt::send(matrix, "numberOfRows"));
    EXPECT_VALUE("q 2", velt::send(matrix, "numberOfColumns"));
    EXPECT_EQ(kept, matrixOf(matrix).cellAt(0, 1));
    EXPECT_VALUE("'d'", velt::send(matrixOf(matrix).cellAt(1, 0), "title"));
    EXPECT_EQ(2 * 100 + 1, matrixOf(matrix).frame().size.width);
    VELT_NSMATRIX_ADDROW(matrix, array());
    EXPECT_VALUE("q 0", velt::send(matrix, "numberOfColumns"));
    EXPECT_TRUE(VELT_NSMATRIX_SELECTEDCELL(matrix).isNil());
}

TEST(Matrices, RefuseRowsOfOtherThings) {
    const id matrix = VELT_NSMATRIX_INIT(nil, "");
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_NSMATRIX_ADDROW(matrix, str("x")));
    EXPECT_VALUE("q 0", velt::send(matrix, "numberOfRows"));
    EXPECT_CAST_FAILURE("'NSCell' expected", VELT_NSMATRIX_ADDROW(matrix, array(str("x"))));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSMATRIX_MODE(matrix, array()));
    const id cell = velt::make<NSActionCell>();
    EXPECT_CAST_FAILURE("'NSCell' expected", velt::send(matrix, "addRowWithCells:", array(cell, str("x"))));
    EXPECT_TRUE(velt::send(cell, "controlView").isNil());
    EXPECT_RAISES("NSRangeException: 'NSMatrix' removeRow:: index 7 is out of range; the count is 1",
                  velt::send(matrix, "removeRow:", VELT_ID(7L)));
    EXPECT_TRUE(VELT_NSMATRIX_ADDROW(nil, array()).isNil());
    VELT_NSMATRIX_MODE(matrix, VELT_ID(9L));
    EXPECT_VALUE("Q 0", VELT_NSMATRIX_MODE(matrix));
}

TEST(Matrices, CopyTheirPrototypeIntoEachPlace) {
    ControlWindow window;
    const Grid grid(window);
    EXPECT_NE(grid.cell(0, 0), grid.cell(0, 1));
    EXPECT_TRUE(velt::as<NSButtonCell>(grid.cell(1, 2))->isRadio());
    EXPECT_VALUE("'F'", velt::send(grid.cell(1, 2), "title"));
    velt::send(grid.matrix, "renewRows:columns:", VELT_ID(1L), VELT_ID(2L));
    EXPECT_VALUE("'B'", velt::send(grid.cell(0, 1), "title"));
    EXPECT_TRUE(velt::send(grid.cell(0, 1), "controlView") == grid.matrix);
    EXPECT_TRUE(grid.cell(1, 0).isNil());
}

TEST(Cells, AreCopiedWithWhatTheyWereTold) {
    const Ref<NSTextFieldCell> text = velt::make<NSTextFieldCell>();
    const Ref<ActionCounter> formatter = velt::make<ActionCounter>();
    text->setObjectValue(integer(5));
    text->setFormatter(formatter);
    text->setLineBreakMode(4);
    text->setSendsActionOnEndEditing(false);
    text->setBackgroundColor(velt::make<NSColor>(1.0, 0.0, 0.0, 1.0));
    const id textCopy = velt::copy(text);
    const auto& copied = *velt::as<NSTextFieldCell>(textCopy);
    EXPECT_VALUE("q 5", copied.objectValue());
    EXPECT_TRUE(copied.formatter() == id(formatter));
    EXPECT_EQ(4, copied.lineBreakMode());
    EXPECT_FALSE(copied.sendsActionOnEndEditing());
    EXPECT_TRUE(velt::isEqual(text->backgroundColor(), copied.backgroundColor()));
    EXPECT_FALSE(copied.hasOwnTextColor());  // the desktop's, also when that changes

    const Ref<NSSliderCell> slider = velt::make<NSSliderCell>();
    slider->setMaxValue(20);
    slider->setNumberOfTickMarks(3);
    slider->setSliderType(NSSliderCell::kCircular);
    slider->setDoubleValue(7);
    const id sliderCopy = velt::copy(slider);
    EXPECT_EQ(7, velt::as<NSSliderCell>(sliderCopy)->doubleValue());
    EXPECT_EQ(3, velt::as<NSSliderCell>(sliderCopy)->numberOfTickMarks());
    EXPECT_TRUE(velt::as<NSSliderCell>(sliderCopy)->isCircular());

    const Ref<NSDatePickerCell> date = velt::make<NSDatePickerCell>();
    date->setObjectValue(velt::make<NSDate>(1000.0));
    EXPECT_TRUE(velt::isEqual(date->dateValue(), velt::as<NSDatePickerCell>(velt::copy(date))->dateValue()));
}

TEST(Matrices, RefuseMoreCellsThanThereIsRoomFor) {
    const id matrix = VELT_NSMATRIX_INIT(nil, "");
    const auto renew = [&](long rows, long columns) {
        velt::send(matrix, "renewRows:columns:", VELT_ID(rows), VELT_ID(columns));
    };
    renew(2, 3);
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMatrix' cannot have 1001 rows and 1000 columns; the most is 1000000 "
                  "cells",
                  renew(1001, 1000));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMatrix' cannot have 4611686018427387904 rows and 4 columns; the most "
                  "is 1000000 cells",
                  renew(1L << 62, 4));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMatrix' cannot have 0 rows and 1000001 columns; the most is 1000000 "
                  "cells",
                  renew(0, 1'000'001));
    EXPECT_VALUE("q 2", velt::send(matrix, "numberOfRows"));
    EXPECT_VALUE("q 3", velt::send(matrix, "numberOfColumns"));
}

TEST(Matrices, InsertAndRemoveRowsAndColumns) {
    ControlWindow window;
    const Grid grid(window);
    velt::send(grid.matrix, "insertRow:", VELT_ID(1L));
    velt::send(grid.matrix, "addColumn");
    EXPECT_VALUE("q 3", velt::send(grid.matrix, "numberOfRows"));
    EXPECT_VALUE("q 4", velt::send(grid.matrix, "numberOfColumns"));
    EXPECT_VALUE("'D'", velt::send(grid.cell(2, 0), "title"));
    velt::send(grid.matrix, "removeColumn:", VELT_ID(0L));
    velt::send(grid.matrix, "removeRow:", VELT_ID(1L));
    EXPECT_VALUE("'E'", velt::send(grid.cell(1, 0), "title"));
    EXPECT_EQ("B:B", grid.selected());  // "A" was on and has gone
    const Ref<NSButtonCell> other = velt::make<NSButtonCell>();
    velt::send(grid.matrix, "putCell:atRow:column:", other, VELT_ID(0L), VELT_ID(1L));
    EXPECT_EQ(id(other), grid.cell(0, 1));
    EXPECT_TRUE(velt::send(grid.matrix, "cellWithTag:", VELT_ID(12L)).isNil());
    EXPECT_EQ(grid.cell(1, 1), velt::send(grid.matrix, "cellWithTag:", VELT_ID(15L)));
}

TEST(RadioMatrices, HaveOneCellOnAndSendTheirActionWhenClicked) {
    ControlWindow window;
    const Grid grid(window);
    window.show();
    EXPECT_EQ("A:A", grid.selected());
    grid.click(1, 1);
    EXPECT_EQ("NSMatrix ", window.heard());
    EXPECT_EQ("E:E", grid.selected());
    EXPECT_EQ("E", grid.on());
    grid.click(1, 1);
    EXPECT_EQ("E", grid.on());
    grid.drag({0, 0}, {0, 2});
    EXPECT_EQ("C", grid.on());
    window.heard();
    grid.drag({0, 0}, {5, 5});
    EXPECT_EQ("", window.heard());
    EXPECT_EQ("C", grid.on());
    velt::send(grid.matrix, "deselectAllCells");
    EXPECT_EQ("C", grid.on());
    velt::send(grid.matrix, "setAllowsEmptySelection:", VELT_ID(BOOL{1}));
    grid.click(0, 2);
    EXPECT_EQ(":", grid.selected());
    EXPECT_EQ("", grid.on());
    velt::send(grid.matrix, "selectCellWithTag:", VELT_ID(13L));
    EXPECT_EQ("D", grid.on());
    EXPECT_EQ("NSMatrix ", window.heard());
}

TEST(RadioMatrices, AreWorkedWithArrowsPastDisabledCells) {
    ControlWindow window;
    const Grid grid(window);
    window.show();
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window.window, grid.matrix);
    VELT_NSCELL_ENABLED(grid.cell(0, 1), VELT_ID(BOOL{0}));
    QTest::keyClick(&grid.widget(), QApplication::isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
    EXPECT_EQ("C", grid.on());
    EXPECT_EQ("NSMatrix ", window.heard());
    QTest::keyClick(&grid.widget(), Qt::Key_Down);
    EXPECT_EQ("F", grid.on());
    QTest::keyClick(&grid.widget(), Qt::Key_Down);
    EXPECT_EQ("F", grid.on());
    EXPECT_EQ("NSMatrix ", window.heard());
    grid.click(0, 1);
    EXPECT_EQ("F", grid.on());
    VELT_NSCONTROL_ENABLED(grid.matrix, VELT_ID(BOOL{0}));
    grid.click(0, 0);
    EXPECT_EQ("F", grid.on());
    EXPECT_EQ("", window.heard());
}

TEST(HighlightMatrices, PressTheCellUnderThePointer) {
    ControlWindow window;
    const Grid grid(window, 1, 1);
    window.show();
    QTest::mousePress(&grid.widget(), Qt::LeftButton, {}, grid.centre(0, 0));
    EXPECT_TRUE(velt::as<NSCell>(grid.cell(0, 0))->isHighlighted());
    grid.moveTo(grid.centre(0, 1));
    EXPECT_FALSE(velt::as<NSCell>(grid.cell(0, 0))->isHighlighted());
    EXPECT_TRUE(velt::as<NSCell>(grid.cell(0, 1))->isHighlighted());
    QTest::mouseRelease(&grid.widget(), Qt::LeftButton, {}, grid.centre(0, 1));
    EXPECT_FALSE(velt::as<NSCell>(grid.cell(0, 1))->isHighlighted());
    EXPECT_EQ("B", grid.on());
    grid.click(1, 0);
    EXPECT_EQ("BD", grid.on());
    grid.click(0, 1);
    EXPECT_EQ("D", grid.on());
    EXPECT_EQ(":", grid.selected().substr(1, 1));
    EXPECT_EQ("NSMatrix NSMatrix NSMatrix ", window.heard());
    QTest::keyClick(&grid.widget(), Qt::Key_Down);
    EXPECT_EQ("", window.heard());
    QTest::keyClick(&grid.widget(), Qt::Key_Space);
    EXPECT_EQ("DE", grid.on());
    EXPECT_EQ("NSMatrix ", window.heard());
}

TEST(TrackMatrices, LeaveEachCellToItself) {
    ControlWindow window;
    const Grid grid(window, 3, 3);
    window.show();
    grid.click(0, 0);
    grid.click(1, 2);
    EXPECT_EQ("AF", grid.on());
    grid.drag({0, 1}, {0, 2});
    EXPECT_EQ("AF", grid.on());
    EXPECT_EQ("NSMatrix NSMatrix ", window.heard());
}

TEST(ListMatrices, SelectRangesByDragsAndModifiers) {
    ControlWindow window;
    const Grid grid(window, velt::make<NSCell>(str("")), 2);
    window.show();
    EXPECT_EQ(":", grid.selected());
    grid.click(0, 1);
    EXPECT_EQ("B:B", grid.selected());
    grid.click(1, 2, Qt::ShiftModifier);
    EXPECT_EQ("BCEF:F", grid.selected());
    grid.click(0, 0, Qt::ControlModifier);
    EXPECT_EQ("ABCEF:A", grid.selected());
    grid.click(0, 0, Qt::ControlModifier);
    EXPECT_EQ("BCEF:", grid.selected());
    grid.drag({0, 0}, {1, 1});
    EXPECT_EQ("ABDE:E", grid.selected());
    velt::send(grid.matrix, "setSelectionByRect:", VELT_ID(BOOL{0}));
    grid.drag({0, 1}, {1, 0});
    EXPECT_EQ("BCD:D", grid.selected());
    window.heard();
    QTest::keyClick(&grid.widget(), Qt::Key_Up);
    EXPECT_EQ("A:A", grid.selected());
    QTest::keyClick(&grid.widget(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ("ABCD:D", grid.selected());
    EXPECT_EQ("NSMatrix NSMatrix ", window.heard());
    velt::send(grid.matrix, "selectAll:", nil);
    EXPECT_EQ("ABCDEF:D", grid.selected());
    velt::send(grid.matrix, "deselectAllCells");
    EXPECT_EQ(":", grid.selected());
}

TEST(Matrices, SendTheActionOfTheCellBeforeTheirOwnAndAnotherOnDoubleClicks) {
    ControlWindow window;
    const Grid grid(window);
    window.show();
    velt::send(grid.cell(0, 1), "setTarget:", window.listener);
    velt::send(grid.cell(0, 1), "setAction:", str("other:"));
    grid.click(0, 1);
    EXPECT_EQ("other ", window.heard());
    velt::send(grid.cell(0, 2), "performClick:", nil);
    EXPECT_EQ("NSMatrix ", window.heard());
    EXPECT_EQ("C", grid.on());
    velt::send(grid.matrix, "setDoubleAction:", str("other:"));
    grid.click(1, 0);
    QTest::mouseDClick(&grid.widget(), Qt::LeftButton, {}, grid.centre(1, 0));
    QTest::mouseRelease(&grid.widget(), Qt::LeftButton, {}, grid.centre(1, 0));
    EXPECT_EQ("NSMatrix other ", window.heard());
    velt::send(grid.cell(1, 1), "setKeyEquivalent:", str("j"));
    velt::send(grid.cell(1, 1), "setKeyEquivalentModifierMask:", VELT_ID(1L << 20));
    QTest::keyClick(&grid.widget(), Qt::Key_J, Qt::ControlModifier);
    EXPECT_EQ("E", grid.on());
    EXPECT_EQ("NSMatrix ", window.heard());
}

TEST(Matrices, EditTextsInTheirPlaces) {
    ControlWindow window;
    const Ref<NSTextFieldCell> prototype = velt::make<NSTextFieldCell>(str(""));
    velt::send(prototype, "setEditable:", VELT_ID(BOOL{1}));
    velt::send(prototype, "setBezeled:", VELT_ID(BOOL{1}));
    const Grid grid(window, prototype, 3);
    window.show();
    const auto editor = [&] { return grid.widget().findChild<QLineEdit*>(); };
    grid.click(0, 0);
    ASSERT_TRUE(editor());
    EXPECT_EQ(QStringLiteral("A"), editor()->text());
    QTest::keyClicks(editor(), "one");
    QTest::keyClick(editor(), Qt::Key_Return);
    EXPECT_VALUE("'one'", VELT_NSCELL_STRINGVALUE(grid.cell(0, 0)));
    EXPECT_VALUE("'one'", VELT_NSCONTROL_STRINGVALUE(grid.matrix));
    EXPECT_EQ("NSMatrix ", window.heard());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(editor());
    grid.click(0, 1);
    QTest::keyClicks(editor(), "two");
    QTest::keyClick(editor(), Qt::Key_Tab);
    EXPECT_VALUE("'two'", VELT_NSCELL_STRINGVALUE(grid.cell(0, 1)));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(editor());
    QTest::keyClicks(editor(), "lost");
    QTest::keyClick(editor(), Qt::Key_Escape);
    EXPECT_VALUE("'C'", VELT_NSCELL_STRINGVALUE(grid.cell(0, 2)));
    EXPECT_EQ("", window.heard());
    grid.click(1, 0);
    velt::send(grid.matrix, "renewRows:columns:", VELT_ID(0L), VELT_ID(0L));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(editor());
}

TEST(Matrices, GrowTheirCellsWithTheFrameOrTheFrameWithTheCells) {
    ControlWindow window;
    const Grid grid(window);
    velt::send(grid.matrix, "setAutosizesCells:", VELT_ID(BOOL{1}));
    velt::send(grid.matrix, "setFrameSize:", VELT_ID(NSSize{308, 104}));
    EXPECT_EQ(100, matrixOf(grid.matrix).cellSize().width);
    EXPECT_EQ(50, matrixOf(grid.matrix).cellSize().height);
    velt::send(grid.matrix, "setCellSize:", VELT_ID(NSSize{40, 20}));
    velt::send(grid.matrix, "sizeToCells");
    EXPECT_EQ(128, matrixOf(grid.matrix).frame().size.width);
    EXPECT_EQ(44, matrixOf(grid.matrix).frame().size.height);
    velt::send(grid.cell(1, 1), "setTitle:", str("A much longer title"));
    VELT_NSCONTROL_SIZETOFIT(grid.matrix);
    EXPECT_LT(300, matrixOf(grid.matrix).frame().size.width);
}

TEST(Matrices, DrawTheirBackgroundAndThatOfTheirCells) {
    ControlWindow window;
    const Grid grid(window, velt::make<NSCell>(str("")), 1);
    window.show();
    EXPECT_VALUE("c 0", VELT_NSMATRIX_DRAWSBACKGROUND(grid.matrix));
    VELT_NSMATRIX_DRAWSBACKGROUND(grid.matrix, VELT_ID(BOOL{1}));
    VELT_NSMATRIX_DRAWSCELLBACKGROUND(grid.matrix, VELT_ID(BOOL{1}));
    velt::send(grid.matrix, "setBackgroundColor:", velt::make<NSColor>(1.0, 0.0, 0.0, 1.0));
    velt::send(grid.matrix, "setCellBackgroundColor:", velt::make<NSColor>(0.0, 0.0, 1.0, 1.0));
    const QImage shown = grid.widget().grab().toImage();
    const double scale = shown.devicePixelRatio();
    const auto at = [&](int x, int y) { return shown.pixelColor(QPointF(x * scale, y * scale).toPoint()); };
    EXPECT_EQ(QColor(255, 0, 0), at(62, 2));
    EXPECT_EQ(QColor(0, 0, 255), at(70, 3));
    VELT_NSMATRIX_DRAWSCELLBACKGROUND(grid.matrix, VELT_ID(BOOL{0}));
    EXPECT_EQ(QColor(255, 0, 0),
              grid.widget().grab().toImage().pixelColor(static_cast<int>(70 * scale), static_cast<int>(3 * scale)));
}

TEST(Matrices, LookLikeTheDesktop) {
    ControlWindow window({{50, 60}, {520, 260}});
    const Grid radio(window);
    const Grid push(window, 1, 1);
    const Grid list(window, velt::make<NSCell>(str("")), 2);
    const Ref<NSTextFieldCell> text = velt::make<NSTextFieldCell>(str(""));
    velt::send(text, "setEditable:", VELT_ID(BOOL{1}));
    velt::send(text, "setBezeled:", VELT_ID(BOOL{1}));
    const Grid fields(window, text, 3);
    velt::send(push.matrix, "setFrameOrigin:", point(260, 40));
    velt::send(list.matrix, "setFrameOrigin:", point(10, 140));
    velt::send(fields.matrix, "setFrameOrigin:", point(260, 140));
    window.show();
    VELT_NSCELL_ENABLED(radio.cell(1, 2), VELT_ID(BOOL{0}));
    list.drag({0, 1}, {1, 2});
    push.click(0, 1);
    radio.click(0, 2);
    EXPECT_TRUE(radio.widget().hasFocus());
    keepPicture(window.widget(), "matrices");
    window.widget().setPalette(darkPalette());
    keepPicture(window.widget(), "matrices-dark");
}

TEST(Matrices, SurviveActionsThatRemoveThemOrTheirCells) {
    ControlWindow window;
    const Grid grid(window);
    window.show();
    velt::send(grid.matrix, "setAction:", str("removeSender:"));
    grid.click(0, 2);
    EXPECT_EQ("removed ", window.heard());
    EXPECT_TRUE(velt::send(grid.matrix, "superview").isNil());
}
