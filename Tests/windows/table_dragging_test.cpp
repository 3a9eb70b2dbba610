// Rows dragged out of tables and dropped on them, by the data source's answers.
#include "windows/tables_support.h"

#include "VELTRuntime/platform/appkit/tables/rows_view.h"

#include <QDragEnterEvent>
#include <QMimeData>

using namespace velt::test;
using velt::Ref;

namespace {

/// Lets its rows be moved by dragging, and takes texts from elsewhere.
class DragSource : public RowSource {
    VELT_OBJECT(DragSource, RowSource)
public:
    bool write(const id&, const id& indexes, const id& board) {
        heard += "write " + show(indexes) + " ";
        velt::send(board, "declareTypes:owner:", array(str("rows"), str("NSStringPboardType")), nil);
        velt::send(board, "setString:forType:", str("dragged"), str("NSStringPboardType"));
        return writes;
    }
    unsigned long validate(const id& table, const id& info, long row, long operation) {
        heard += "validate " + std::to_string(row) + (operation == 0 ? " on " : " above ");
        lastInfo = info;
        if (turned >= -1) velt::send(table, "setDropRow:dropOperation:", VELT_ID(turned), VELT_ID(0L));
        return operations;
    }
    bool accept(const id&, const id& info, long row, long operation) {
        const id text = velt::send(velt::send(info, "draggingPasteboard"), "stringForType:", str("NSStringPboardType"));
        heard += "accept " + show(text) + " " + std::to_string(row) + (operation == 0 ? " on " : " above ");
        return true;
    }
    static void describe(velt::ClassBuilder<DragSource>& c) {
        c.method("tableView:writeRowsWithIndexes:toPasteboard:", &DragSource::write)
            .method("tableView:validateDrop:proposedRow:proposedDropOperation:", &DragSource::validate)
            .method("tableView:acceptDrop:row:dropOperation:", &DragSource::accept)
            .owns(&DragSource::lastInfo);
    }
    bool writes = true;
    unsigned long operations = 16;
    long turned = -2;
    id lastInfo;
};

struct DragTable : Table {
    DragTable() : Table(6, velt::make<DragSource>()) {
        table->registerForDraggedTypes(array(str("NSStringPboardType")));
        mime.setText(QStringLiteral("from elsewhere"));
    }
    DragSource& rows() const { return static_cast<DragSource&>(*source); }
    /// Drags the text over a height of a row, in quarters of it. Whether it may be dropped there.
    template <class Event> bool drag(int row, int quarter) {
        const QPoint middle = at(row, 0);
        const QPointF place(middle.x(), view().visualRect(view().model()->index(row, 0)).top() + quarter * 19 / 4 + 2);
        return dragTo<Event>(place);
    }
    /// Drops it there, after it has come over the table.
    bool drop(int row, int quarter) {
        drag<QDragEnterEvent>(row, quarter);
        source->told();
        return drag<QDropEvent>(row, quarter);
    }
    template <class Event> bool dragTo(QPointF place) {
        Event event(place.toPoint(), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &event);
        action = event.dropAction();
        return event.isAccepted();
    }
    QMimeData mime;
    Qt::DropAction action = Qt::IgnoreAction;
};

}  // namespace

TEST(TableDragging, ProposesAPlaceOnOrBetweenRows) {
    DragTable shown;
    EXPECT_TRUE(shown.drag<QDragEnterEvent>(1, 0));
    EXPECT_EQ("validate 1 above ", shown.source->told());
    EXPECT_TRUE(shown.drag<QDragMoveEvent>(1, 1));
    EXPECT_EQ("validate 1 on ", shown.source->told());
    EXPECT_TRUE(shown.drag<QDragMoveEvent>(1, 3));
    EXPECT_EQ("validate 2 above ", shown.source->told());
    EXPECT_TRUE(shown.dragTo<QDragMoveEvent>(QPointF(20, shown.view().viewport()->height() - 2)));
    EXPECT_EQ("validate 6 above ", shown.source->told());
    EXPECT_EQ(Qt::MoveAction, shown.action);
    const id info = shown.rows().lastInfo;
    EXPECT_TRUE(velt::send(info, "draggingSource").isNil());
    EXPECT_VALUE("Q 21", velt::send(info, "draggingSourceOperationMask"));
    EXPECT_VALUE("NSMutableArray (NSStringPboardType, public.utf8-plain-text)",
                 velt::send(velt::send(info, "draggingPasteboard"), "types"));
}

TEST(TableDragging, TakesWhatTheDataSourceAccepts) {
    DragTable shown;
    EXPECT_TRUE(shown.drop(3, 0));
    EXPECT_EQ("validate 3 above accept 'from elsewhere' 3 above ", shown.source->told());
    shown.rows().turned = -1;  // the whole table
    EXPECT_TRUE(shown.drop(3, 0));
    EXPECT_EQ("validate 3 above accept 'from elsewhere' -1 on ", shown.source->told());
    shown.rows().turned = 99;
    EXPECT_TRUE(shown.drop(3, 0));
    EXPECT_EQ("validate 3 above accept 'from elsewhere' 6 on ", shown.source->told());
}

TEST(TableDragging, RefusesWhatTheDataSourceOrTheTypesRefuse) {
    DragTable shown;
    EXPECT_TRUE(shown.drag<QDragEnterEvent>(3, 0));
    shown.source->told();
    shown.rows().operations = 0;
    EXPECT_FALSE(shown.drag<QDropEvent>(3, 0));
    EXPECT_EQ("validate 3 above ", shown.source->told());
    EXPECT_FALSE(shown.drag<QDragEnterEvent>(3, 0));
    shown.rows().operations = 2;  // a link, which nobody offers
    EXPECT_FALSE(shown.drag<QDragEnterEvent>(3, 0));
    shown.rows().operations = 1;
    EXPECT_TRUE(shown.drag<QDragEnterEvent>(3, 0));
    EXPECT_EQ(Qt::CopyAction, shown.action);
    shown.source->told();
    shown.table->registerForDraggedTypes(array(str("colours")));
    EXPECT_FALSE(shown.drag<QDragMoveEvent>(3, 0));
    shown.table->unregisterDraggedTypes();
    EXPECT_FALSE(shown.drag<QDragEnterEvent>(3, 0));
    EXPECT_FALSE(shown.view().acceptDrops());
    EXPECT_EQ("", shown.source->told());
}

TEST(TableDragging, MarksThePlaceAndForgetsItAgain) {
    DragTable shown;
    const auto picture = [&] { return shown.view().viewport()->grab().toImage(); };
    const QImage before = picture();
    shown.drag<QDragEnterEvent>(3, 0);
    const QImage between = picture();
    EXPECT_NE(before, between);
    shown.drag<QDragMoveEvent>(3, 1);
    EXPECT_NE(between, picture());
    EXPECT_NE(before, picture());
    QDragLeaveEvent left;
    QApplication::sendEvent(shown.view().viewport(), &left);
    EXPECT_EQ(before, picture());
}

TEST(TableDragging, AsksTheDataSourceForTheRowsThatAPersonDrags) {
    DragTable shown;
    EXPECT_TRUE(shown.view().dragEnabled());
    shown.rows().writes = false;  // nothing is dragged then, and nothing waits for the mouse
    shown.table->setAllowsMultipleSelection(true);
    shown.click(1);
    shown.click(3, 0, Qt::ControlModifier);
    shown.source->told();
    QWidget* rows = shown.view().viewport();
    QTest::mousePress(rows, Qt::LeftButton, {}, shown.at(3, 0));
    for (const int across : {10, 30}) {
        const QPointF place = shown.at(3, 0) + QPoint(across, 0);
        QMouseEvent moved(QEvent::MouseMove, place, rows->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(rows, &moved);
    }
    EXPECT_EQ("write NSIndexSet <NSIndexSet 1 3> ", shown.source->told());
    shown.table->setDataSource(velt::make<RowSource>());
    EXPECT_FALSE(shown.view().dragEnabled());
}

TEST(Pasteboards, KeepValuesByTheirTypes) {
    const id board = velt::make<NSPasteboard>();
    EXPECT_VALUE("q 1", velt::send(board, "declareTypes:owner:", array(str("a"), str("b")), nil));
    EXPECT_TRUE(velt::send(board, "stringForType:", str("a")).isNil());
    EXPECT_VALUE("c 1", velt::send(board, "setString:forType:", str("text"), str("b")));
    EXPECT_VALUE("'text'", velt::send(board, "stringForType:", str("b")));
    EXPECT_VALUE("NSData <74657874>", velt::send(board, "dataForType:", str("b")));
    EXPECT_VALUE("'b'", velt::send(board, "availableTypeFromArray:", array(str("c"), str("b"), str("a"))));
    EXPECT_TRUE(velt::send(board, "availableTypeFromArray:", array(str("c"))).isNil());
    velt::send(board, "setPropertyList:forType:", array(integer(1)), str("c"));
    EXPECT_VALUE("NSMutableArray (1)", velt::send(board, "propertyListForType:", str("c")));
    EXPECT_TRUE(velt::send(board, "stringForType:", str("c")).isNil());
    EXPECT_VALUE("NSMutableArray (a, b, c)", velt::send(board, "types"));
    EXPECT_VALUE("q 2", velt::send(board, "clearContents"));
    EXPECT_VALUE("NSMutableArray ()", velt::send(board, "types"));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", velt::send(board, "declareTypes:owner:", str("a"), nil));
}
