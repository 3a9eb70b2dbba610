// Outlines of many items, which ask for what is seen of them.
#include "support/control_window.h"
#include "support/patience.h"

#include <QScrollBar>
#include <QTreeView>
#include <functional>
#include <set>

using namespace velt::test;
using velt::Ref;

namespace {

/// Two items, of which the first has very many children; each of those is a leaf, but for every tenth.
class LargeSource : public NSObject {
    VELT_OBJECT(LargeSource, NSObject)
public:
    static constexpr long kChildren = 100000;
    long count(const id&, const id& item) {
        counted += 1;
        if (item.isNil()) return 2;
        return velt::isEqual(item, integer(-1)) ? kChildren : 1;
    }
    id child(const id& outline, long index, const id& item) {
        if (onAsked) std::exchange(onAsked, nullptr)(outline);
        if (item.isNil()) return integer(-1 - index);
        asked.insert(index);
        return integer(index);
    }
    bool expandable(const id&, const id& item) {
        const long number = VELT_CINTEGER(item);
        return number == -1 || number % 10 == 0;
    }
    id value(const id&, const id&, const id& item) { return str("row " + show(item)); }
    static void describe(velt::ClassBuilder<LargeSource>& c) {
        c.method("outlineView:numberOfChildrenOfItem:", &LargeSource::count)
            .method("outlineView:child:ofItem:", &LargeSource::child)
            .method("outlineView:isItemExpandable:", &LargeSource::expandable)
            .method("outlineView:objectValueForTableColumn:byItem:", &LargeSource::value);
    }
    int counted = 0;
    std::set<long> asked;
    std::function<void(const id&)> onAsked;
};

class LargeOutlines : public testing::Test {
protected:
    void SetUp() override {
        outline->setFrame({{10, 10}, {300, 200}});
        column->setWidth(200);
        outline->addTableColumn(column.get());
        outline->setDataSource(source);
        VELT_NSWINDOW_APPEND(window.window, outline);
        window.show();
        source->counted = 0;
        outline->expandItem(integer(-1));
        draw();
    }
    void draw() const { tree().viewport()->grab(); }
    QTreeView& tree() const { return dynamic_cast<QTreeView&>(outline->widget()); }
    /// More rows than can be seen at once.
    static constexpr std::size_t kSeen = 40;

    const ControlWindow window{{{50, 60}, {340, 260}}};
    const Ref<LargeSource> source = velt::make<LargeSource>();
    const Ref<NSOutlineView> outline = velt::make<NSOutlineView>();
    const Ref<NSTableColumn> column = velt::make<NSTableColumn>(str("place"));
};

}  // namespace

TEST_F(LargeOutlines, AskForTheChildrenThatAreSeen) {
    EXPECT_EQ(LargeSource::kChildren + 2, outline->numberOfRows());
    EXPECT_EQ(1, source->counted);
    EXPECT_GT(source->asked.size(), 3U);
    EXPECT_LT(source->asked.size(), kSeen);
    source->asked.clear();
    tree().verticalScrollBar()->setValue(tree().verticalScrollBar()->maximum());
    draw();
    EXPECT_TRUE(source->asked.contains(LargeSource::kChildren - 1));
    EXPECT_LT(source->asked.size(), kSeen);
    EXPECT_EQ(1, source->counted);
}

TEST_F(LargeOutlines, AskForTheChildThatIsMeant) {
    source->asked.clear();
    EXPECT_VALUE("q 70000", outline->itemAtRow(70001));
    EXPECT_EQ(std::set<long>{70000}, source->asked);
    EXPECT_EQ(1, outline->levelForRow(70001));
    EXPECT_VALUE("q -1", outline->parentForItem(integer(70000)));
    EXPECT_EQ(1U, source->asked.size());
    // One that nobody has seen is looked for.
    EXPECT_EQ(1001, outline->rowForItem(integer(1000)));
    EXPECT_LE(source->asked.size(), 1002U);
    EXPECT_EQ(-1, outline->rowForItem(str("elsewhere")));
}

TEST_F(LargeOutlines, AskForNoMoreWhenTheyAreLoadedAnew) {
    outline->expandItem(integer(50000));
    outline->selectRow(50002, false);
    EXPECT_EQ(LargeSource::kChildren + 3, outline->numberOfRows());
    source->asked.clear();
    outline->reloadData();
    EXPECT_EQ(LargeSource::kChildren + 3, outline->numberOfRows());
    EXPECT_TRUE(outline->isItemExpanded(integer(50000)));
    EXPECT_EQ(50002, outline->selectedRow());
    draw();
    EXPECT_LT(source->asked.size(), 2 * kSeen);
}

TEST_F(LargeOutlines, ShowAnArrowWhereThereAreChildrenAndOpenThereAlone) {
    const auto arrow = [&](int row) {
        const QModelIndex index = tree().model()->index(row, 0, tree().model()->index(0, 0));
        const QRect cell = tree().visualRect(index);
        const QRect place(cell.left() - tree().indentation(), cell.top(), tree().indentation(), cell.height());
        return QStyle::visualRect(tree().layoutDirection(), cell, place);
    };
    const QImage seen = tree().viewport()->grab().toImage();
    const double scale = seen.devicePixelRatio();
    const auto picture = [&](int row) {
        const QRect at = arrow(row);
        return seen.copy(qRound(at.x() * scale), qRound(at.y() * scale), qRound(at.width() * scale),
                         qRound(at.height() * scale));
    };
    EXPECT_NE(picture(0), picture(1));
    EXPECT_EQ(picture(1), picture(2));
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, arrow(1).center());
    EXPECT_FALSE(outline->isItemExpanded(integer(1)));
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, arrow(0).center());
    EXPECT_TRUE(outline->isItemExpanded(integer(0)));
    keepPicture(tree(), "large-outline");
}

TEST_F(LargeOutlines, OpenNoLeafByAKey) {
    tree().setFocus();
    outline->selectRow(95000, false);  // the item 94999, which nobody has seen
    const Qt::Key opens = tree().isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    for (const Qt::Key key : {opens, Qt::Key_Plus, Qt::Key_Asterisk}) {
        QTest::keyClick(&tree(), key);
        EXPECT_FALSE(outline->isItemExpanded(integer(94999)));
    }
    EXPECT_EQ(1, source->counted);
    EXPECT_EQ(LargeSource::kChildren + 2, outline->numberOfRows());
}

TEST_F(LargeOutlines, BearAProgramThatLoadsThemWhileItIsAsked) {
    source->onAsked = [](const id& asking) { velt::as<NSOutlineView>(asking)->reloadData(); };
    EXPECT_EQ(-1, outline->rowForItem(integer(60000)));
    EXPECT_FALSE(source->onAsked);
    EXPECT_EQ(60001, outline->rowForItem(integer(60000)));
    draw();
}

TEST_F(LargeOutlines, FindTheRowThatBeginsAsTyped) {
    tree().setFocus();
    source->asked.clear();
    QTest::keyClicks(&tree(), QStringLiteral("row q 4711"));
    EXPECT_LT(source->asked.size(), 20000U);
    EXPECT_TRUE(comesTrue([&] { return outline->selectedRow() == 4712; }));
}
