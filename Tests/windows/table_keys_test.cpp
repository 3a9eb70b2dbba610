// Tables worked with the keyboard: cells edited one after the other, rows found by typing.
#include "support/patience.h"
#include "windows/tables_support.h"

#include <QLineEdit>
#include <QScrollBar>

using namespace velt::test;
using velt::Ref;

namespace {

/// Says which rows begin with a text, in its own way.
class Finder : public RowSource {
    VELT_OBJECT(Finder, RowSource)
public:
    long next(const id&, long from, long to, const id& text) {
        heard += "find " + velt::utf8(text) + " " + std::to_string(from) + "-" + std::to_string(to) + " ";
        return 5;
    }
    static void describe(velt::ClassBuilder<Finder>& c) {
        c.method("tableView:nextTypeSelectMatchFromRow:toRow:forString:", &Finder::next);
    }
};

struct EditedTable : Table {
    explicit EditedTable(long rows = 8) : Table(rows) {
        note->setTitle(str("Note"));
        table->addTableColumn(note.get());
        name->setWidth(80);
        done->setWidth(50);
    }
    QLineEdit* editor() const {
        for (auto* field : view().viewport()->findChildren<QLineEdit*>()) {
            if (field->isVisible()) return field;
        }
        return nullptr;
    }
    std::string edited() const { return editor() ? editor()->text().toStdString() : "nothing"; }
    void key(Qt::Key key, Qt::KeyboardModifiers held = {}) const {
        QTest::keyClick(editor() ? static_cast<QWidget*>(editor()) : &view(), key, held);
        QApplication::processEvents();
    }
    void type(const char* text) const {
        editor()->selectAll();
        QTest::keyClicks(editor(), QString::fromUtf8(text));
    }
    Ref<NSTableColumn> note = velt::make<NSTableColumn>(str("note"));
};

}  // namespace

TEST(TableKeys, TabGoesToTheNextCellThatMayBeEdited) {
    const EditedTable shown;
    shown.source->texts[1] = "one";
    shown.doubleClick(1);
    ASSERT_EQ("one", shown.edited());
    shown.source->told();
    shown.type("first");
    shown.key(Qt::Key_Tab);  // over the check box
    EXPECT_EQ("set 1='first' ", shown.source->told());
    EXPECT_EQ("first", shown.edited());
    EXPECT_EQ(2, shown.view().currentIndex().column());
    EXPECT_EQ("first", shown.editor()->selectedText().toStdString());
    shown.key(Qt::Key_Tab);
    EXPECT_EQ("row 2", shown.edited());
    EXPECT_EQ(0, shown.view().currentIndex().column());
    shown.key(Qt::Key_Tab);
    shown.key(Qt::Key_Tab);  // over row 3, which may not be edited
    EXPECT_EQ("row 4", shown.edited());
    shown.key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ("row 2", shown.edited());
    EXPECT_EQ(2, shown.view().currentIndex().column());
}

TEST(TableKeys, TabEndsTheEditingAfterTheLastCell) {
    const EditedTable shown(2);
    shown.doubleClick(1, 2);
    ASSERT_EQ("row 1", shown.edited());
    shown.key(Qt::Key_Tab);
    EXPECT_EQ("nothing", shown.edited());
    shown.note->setEditable(false);
    shown.name->setHidden(true);
    shown.table->editColumn(0, 0, nil, true);
    shown.key(Qt::Key_Tab);
    EXPECT_EQ("nothing", shown.edited());
}

TEST(TableKeys, EscapeLeavesTheValueAsItWas) {
    const EditedTable shown;
    shown.doubleClick(1);
    shown.type("other");
    shown.source->told();
    shown.key(Qt::Key_Escape);
    EXPECT_EQ("nothing", shown.edited());
    EXPECT_EQ("", shown.source->told());
    EXPECT_FALSE(shown.source->texts.contains(1));
}

TEST(TableKeys, AClickElsewhereEndsTheEditingAndKeepsIt) {
    const EditedTable shown;
    shown.doubleClick(1);
    shown.type("kept");
    shown.source->told();
    shown.click(4);
    QApplication::processEvents();
    EXPECT_EQ("nothing", shown.edited());
    EXPECT_EQ("kept", shown.source->texts[1]);
    EXPECT_EQ(4, shown.table->selectedRow());
}

TEST(TableKeys, AReloadEndsTheEditingWithoutAsking) {
    const EditedTable shown;
    shown.doubleClick(1);
    shown.type("lost");
    shown.source->rows = 1;
    shown.table->reloadData();
    QApplication::processEvents();
    EXPECT_EQ("nothing", shown.edited());
    EXPECT_EQ(1, shown.table->numberOfRows());
}

TEST(TableKeys, TypingFindsTheRowThatBeginsSo) {
    const EditedTable shown;
    for (const auto& [row, text] :
         std::map<long, const char*>{{1, "Apple"}, {4, "Apricot"}, {5, "Banana"}, {6, "éclair"}})
        shown.source->texts[row] = text;
    shown.view().setFocus();
    QTest::keyClicks(&shown.view(), QStringLiteral("apr"));
    EXPECT_EQ(4, shown.table->selectedRow());
    QTest::keyClicks(&shown.view(), QStringLiteral("x"));  // nothing begins so
    EXPECT_EQ(4, shown.table->selectedRow());
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(&shown.view(), QStringLiteral("a"));
    EXPECT_EQ(1, shown.table->selectedRow());
    QTest::keyClicks(&shown.view(), QStringLiteral("a"));  // the next one, then around the end
    EXPECT_EQ(4, shown.table->selectedRow());
    QTest::keyClicks(&shown.view(), QStringLiteral("a"));
    EXPECT_EQ(1, shown.table->selectedRow());
}

TEST(TableKeys, TypingAsksTheDelegateThatFindsRowsItself) {
    const Table shown(8, velt::make<Finder>());
    shown.view().setFocus();
    shown.table->selectRow(1, false);
    shown.source->told();
    QTest::keyClicks(&shown.view(), QStringLiteral("q"));
    EXPECT_EQ("find q 2-1 selected q 5 ", shown.source->told());
}

TEST(TableKeys, TypingKeepsNobodyWaitingInAMillionRows) {
    const Table shown(1000000);
    shown.view().setFocus();
    QApplication::processEvents();
    shown.source->asked.clear();
    QTest::keyClick(&shown.view(), Qt::Key_Z);
    EXPECT_LE(shown.source->asked.size(), 1000U);
    // It goes on when nothing else is to be done, and stops when the person chooses a row.
    EXPECT_TRUE(comesTrue([&] { return shown.source->asked.size() > 3000; }));
    shown.click(1);
    shown.source->asked.clear();
    for (int i = 0; i < 20; ++i) QApplication::processEvents();
    // What is seen is drawn, and nothing else is asked for.
    if (!shown.source->asked.empty()) {
        EXPECT_LT(*shown.source->asked.rbegin(), 20);
    }
    EXPECT_EQ(1, shown.table->selectedRow());
}

TEST(TableKeys, TypingFindsARowFarAway) {
    const Table shown(20000);
    shown.source->texts[19000] = "Zebra";
    shown.source->texts[19500] = "Zoo";
    shown.view().setFocus();
    QTest::keyClicks(&shown.view(), QStringLiteral("zo"));
    EXPECT_EQ(-1, shown.table->selectedRow());
    EXPECT_TRUE(comesTrue([&] { return shown.table->selectedRow() == 19500; }));
}

TEST(TableKeys, TypingOnAsksNoRowAgainThatBeginsOtherwise) {
    const Table shown(1500);
    shown.view().setFocus();
    QApplication::processEvents();
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(60000);
    long times = 0;
    shown.source->onAsked = [&](long row) { times += row == 700; };
    QTest::keyClick(&shown.view(), Qt::Key_X);
    EXPECT_TRUE(comesTrue([&] { return shown.source->asked.size() == 1500; }));
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
    EXPECT_EQ(1, times);
    QTest::keyClick(&shown.view(), Qt::Key_Y);
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
    EXPECT_EQ(1, times);
    QApplication::setKeyboardInputInterval(interval);
}

TEST(TableKeys, AReloadEndsTheSearch) {
    const Table shown(20000);
    shown.source->texts[19000] = "Zebra";
    shown.view().setFocus();
    QTest::keyClick(&shown.view(), Qt::Key_Z);
    shown.source->rows = 3;
    shown.table->reloadData();
    shown.source->asked.clear();
    for (int i = 0; i < 20; ++i) QApplication::processEvents();
    EXPECT_LE(shown.source->asked.size(), 3U);
    EXPECT_EQ(-1, shown.table->selectedRow());
}

TEST(TableKeys, MoveOverRowsAndPages) {
    const Table shown(100);
    shown.view().setFocus();
    shown.table->selectRow(5, false);
    const auto after = [&](Qt::Key key) {
        QTest::keyClick(&shown.view(), key);
        return shown.table->selectedRow();
    };
    EXPECT_EQ(6, after(Qt::Key_Down));
    EXPECT_EQ(5, after(Qt::Key_Up));
    EXPECT_EQ(99, after(Qt::Key_End));
    EXPECT_EQ(99, after(Qt::Key_Down));
    EXPECT_EQ(shown.view().viewport()->height(),
              shown.view().visualRect(shown.view().model()->index(99, 0)).bottom() + 1);
    const long page = shown.view().viewport()->height() / (17 + 2) - 1;
    EXPECT_EQ(99 - page, after(Qt::Key_PageUp));
    EXPECT_EQ(99, after(Qt::Key_PageDown));
    EXPECT_EQ(0, after(Qt::Key_Home));
    EXPECT_EQ(0, shown.view().verticalScrollBar()->value());
    EXPECT_EQ(0, after(Qt::Key_Up));
}
