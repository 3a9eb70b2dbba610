#include "support/fields.h"
#include "support/patience.h"
#include "support/streams.h"

#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/platform/object/callback_failure.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

using namespace velt::test;
using velt::Ref;

namespace {

class SearchFields : public testing::Test {
protected:
    SearchFields() { shown.add(field); }
    QAbstractButton* button(const char* name) const {
        for (auto* found : velt::as<NSView>(field)->widget().findChildren<QAbstractButton*>()) {
            if (found->accessibleName() == QLatin1String(name)) return found;
        }
        return nullptr;
    }
    QMenu* recents() const { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    std::string shownRecents() { return velt::utf8(velt::description(VELT_NSSEARCHFIELD_RECENTSEARCHES(field))); }
    Ref<FieldListener> listener = velt::make<FieldListener>();
    id field = VELT_NSSEARCHFIELD_INIT(listener, "pressed:");
    FieldWindow shown;
};

/// A list of squares, made when asked for.
class Squares : public NSObject {
    VELT_OBJECT(Squares, NSObject)

public:
    long count(const id&) const { return 4; }
    id item(const id&, long index) const { return integer(index * index); }
    static void describe(velt::ClassBuilder<Squares>& c) {
        c.method("numberOfItemsInComboBox:", &Squares::count)
            .method("comboBox:objectValueForItemAtIndex:", &Squares::item);
    }
};

/// A list that cannot be counted.
class RaisingSource : public NSObject {
    VELT_OBJECT(RaisingSource, NSObject)

public:
    long count(const id&) const { velt::raise("SourceException", "broken"); }
    static void describe(velt::ClassBuilder<RaisingSource>& c) {
        c.method("numberOfItemsInComboBox:", &RaisingSource::count);
    }
};

/// Hears what a combo box tells besides.
class ComboListener : public FieldListener {
    VELT_OBJECT(ComboListener, FieldListener)

public:
    void selected(const id&) { heard += "selected "; }
    void opens(const id&) { heard += "opens "; }
    void closes(const id&) { heard += "closes "; }
    static void describe(velt::ClassBuilder<ComboListener>& c) {
        c.method("comboBoxSelectionDidChange:", &ComboListener::selected)
            .method("comboBoxWillPopUp:", &ComboListener::opens)
            .method("comboBoxWillDismiss:", &ComboListener::closes);
    }
};

class ComboBoxes : public testing::Test {
protected:
    ComboBoxes() {
        VELT_NSCONTROL_DELEGATE(box, listener);
        velt::send(box,
                   "addItemsWithObjectValues:", array(str("Apple"), str("Banana"), str("Blueberry"), str("Cherry")));
        shown.add(box);
    }
    QListWidget* list() const { return qobject_cast<QListWidget*>(QApplication::activePopupWidget()); }
    Ref<ComboListener> listener = velt::make<ComboListener>();
    id box = VELT_NSCOMBOBOX_INIT(listener, "pressed:");
    FieldWindow shown;
};

}  // namespace

TEST_F(SearchFields, SendTheirActionAfterAShortPause) {
    EXPECT_EQ(id(listener), VELT_NSTEXTFIELD_DELEGATE(field));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    type("ca");
    EXPECT_EQ("begin? began() changed(c) changed(ca) ", listener->take());
    ASSERT_TRUE(comesTrue([this] { return !listener->heard.empty(); }));
    EXPECT_EQ("action(ca) ", listener->take());
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ended16(ca) action(ca) ", listener->take());
    EXPECT_EQ("(ca)", shownRecents());
}

TEST_F(SearchFields, MaySendAtOnceOrOnReturnAlone) {
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    velt::send(velt::send(field, "cell"), "setSendsSearchStringImmediately:", boolean(true));
    type("a");
    EXPECT_EQ("begin? began() changed(a) action(a) ", listener->take());
    EXPECT_VALUE("c 0", VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(field));
    VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(field, boolean(true));
    EXPECT_VALUE("c 1", VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(field));
    type("b");
    EXPECT_EQ("changed(ab) ", listener->take());
    press(Qt::Key_Return);
    EXPECT_EQ("insertNewline: end? ended16(ab) action(ab) ", listener->take());
    EXPECT_VALUE("c 0", VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(nil));
    EXPECT_RAISES("NSInvalidArgumentException: 'NSMutableString' does not understand 'cell'",
                  VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(str("no field")));
}

TEST_F(SearchFields, AreClearedByTheCrossAndByEscape) {
    ASSERT_TRUE(shown.show());
    EXPECT_FALSE(button("Clear")->isVisible());
    ASSERT_TRUE(shown.focus(field));
    type("x");
    listener->take();
    ASSERT_TRUE(button("Clear")->isVisible());
    QTest::mouseClick(button("Clear"), Qt::LeftButton);
    EXPECT_EQ("changed() action() ", listener->take());
    EXPECT_FALSE(button("Clear")->isVisible());
    type("y");
    listener->take();
    press(Qt::Key_Escape);
    EXPECT_EQ("cancelOperation: changed() action() ", listener->take());
    press(Qt::Key_Escape);
    EXPECT_EQ("cancelOperation: ", listener->take());
    VELT_NSCONTROL_STRINGVALUE(field, str("from the program"));
    EXPECT_TRUE(button("Clear")->isVisible());
}

TEST_F(SearchFields, OfferEarlierSearches) {
    VELT_NSSEARCHFIELD_RECENTSEARCHES(field, array(str("red"), str("R&B"), integer(5)));
    EXPECT_EQ("(red, R&B)", shownRecents());
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(field));
    press(Qt::Key_Down);
    ASSERT_TRUE(recents());
    EXPECT_EQ(4, recents()->actions().size());
    EXPECT_EQ("R&&B", recents()->actions()[1]->text().toStdString());
    listener->take();
    QTest::keyClick(recents(), Qt::Key_Down);
    QTest::keyClick(recents(), Qt::Key_Down);
    QTest::keyClick(recents(), Qt::Key_Return);
    EXPECT_EQ("begin? began() changed(R&B) action(R&B) ", listener->take());
    EXPECT_EQ("(R&B, red)", shownRecents());
    QTest::mousePress(button("Earlier searches"), Qt::LeftButton);
    ASSERT_TRUE(recents());
    recents()->actions().back()->trigger();
    recents()->close();
    EXPECT_EQ("()", shownRecents());
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_NSSEARCHFIELD_RECENTSEARCHES(field, str("red")));
}

TEST_F(SearchFields, KeepAsManySearchesAsTheyMay) {
    velt::send(field, "setMaximumRecents:", integer(2));
    VELT_NSSEARCHFIELD_RECENTSEARCHES(field, array(str("a"), str("b"), str("c")));
    EXPECT_EQ("(a, b)", shownRecents());
    velt::send(field, "setMaximumRecents:", integer(-1));
    EXPECT_VALUE("q 10", velt::send(field, "maximumRecents"));
    velt::send(field, "setMaximumRecents:", integer(1000));
    EXPECT_VALUE("q 254", velt::send(field, "maximumRecents"));
}

TEST_F(SearchFields, KeepTheirSearchesInTheSettings) {
    NSUserDefaults& settings = NSUserDefaults::standardUserDefaults();
    const id name = str("SearchFieldTestRecents");
    settings.removeObject(name);
    VELT_NSSEARCHFIELD_RECENTSAUTOSAVENAME(field, name);
    EXPECT_VALUE("'SearchFieldTestRecents'", VELT_NSSEARCHFIELD_RECENTSAUTOSAVENAME(field));
    VELT_NSSEARCHFIELD_RECENTSEARCHES(field, array(str("kept")));
    const id other = VELT_NSSEARCHFIELD_INIT(nil, "");
    VELT_NSSEARCHFIELD_RECENTSAUTOSAVENAME(other, name);
    EXPECT_EQ("(kept)", velt::utf8(velt::description(VELT_NSSEARCHFIELD_RECENTSEARCHES(other))));
    settings.removeObject(name);
}

TEST_F(ComboBoxes, KeepAList) {
    EXPECT_VALUE("q 4", velt::send(box, "numberOfItems"));
    velt::send(box, "insertItemWithObjectValue:atIndex:", integer(7), integer(1));
    EXPECT_VALUE("q 7", velt::send(box, "itemObjectValueAtIndex:", integer(1)));
    EXPECT_VALUE("q 2", velt::send(box, "indexOfItemWithObjectValue:", str("Banana")));
    EXPECT_VALUE("q 9223372036854775807", velt::send(box, "indexOfItemWithObjectValue:", str("Pear")));
    velt::send(box, "removeItemWithObjectValue:", str("Banana"));
    velt::send(box, "removeItemWithObjectValue:", str("Pear"));
    velt::send(box, "removeItemAtIndex:", integer(0));
    EXPECT_EQ("(7, Blueberry, Cherry)", velt::utf8(velt::description(velt::send(box, "objectValues"))));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' objectAtIndex:: index 3 is out of range; the count is 3",
                  velt::send(box, "itemObjectValueAtIndex:", integer(3)));
    velt::send(box, "removeAllItems");
    EXPECT_VALUE("q 0", velt::send(box, "numberOfItems"));
}

TEST_F(ComboBoxes, SelectItems) {
    EXPECT_VALUE("q -1", velt::send(box, "indexOfSelectedItem"));
    EXPECT_TRUE(velt::send(box, "objectValueOfSelectedItem").isNil());
    velt::send(box, "selectItemAtIndex:", integer(2));
    EXPECT_EQ("selected ", listener->take());
    EXPECT_EQ("Blueberry", textOfField(box));
    EXPECT_VALUE("'Blueberry'", velt::send(box, "objectValueOfSelectedItem"));
    velt::send(box, "insertItemWithObjectValue:atIndex:", str("first"), integer(0));
    EXPECT_VALUE("q 3", velt::send(box, "indexOfSelectedItem"));
    velt::send(box, "removeItemAtIndex:", integer(0));
    velt::send(box, "deselectItemAtIndex:", integer(0));
    EXPECT_VALUE("q 2", velt::send(box, "indexOfSelectedItem"));
    velt::send(box, "deselectItemAtIndex:", integer(2));
    EXPECT_VALUE("q -1", velt::send(box, "indexOfSelectedItem"));
    EXPECT_EQ("selected ", listener->take());
    velt::send(box, "selectItemWithObjectValue:", str("Cherry"));
    EXPECT_VALUE("q 3", velt::send(box, "indexOfSelectedItem"));
}

TEST_F(ComboBoxes, OpenTheirListByKeyAndChoose) {
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(box));
    press(Qt::Key_Down);
    ASSERT_TRUE(list());
    EXPECT_EQ("moveDown: opens ", listener->take());
    EXPECT_EQ(4, list()->count());
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_FALSE(list());
    EXPECT_EQ("closes selected action(Banana) ", listener->take());
    EXPECT_EQ("0+6", selectionOf(box));
    press(Qt::Key_Down);
    EXPECT_EQ(1, list()->currentRow());
    QTest::keyClick(list(), Qt::Key_Escape);
    EXPECT_FALSE(list());
    EXPECT_EQ("moveDown: opens closes ", listener->take());
    EXPECT_EQ("Banana", textOfField(box));
}

TEST_F(ComboBoxes, OpenTheirListByMouseAndChoose) {
    ASSERT_TRUE(shown.show());
    auto* arrow = velt::as<NSView>(box)->widget().findChild<QAbstractButton*>();
    QTest::mousePress(arrow, Qt::LeftButton);
    ASSERT_TRUE(list());
    QListWidget* open = list();
    QTest::mouseClick(open->viewport(), Qt::LeftButton, {}, open->visualItemRect(open->item(3)).center());
    EXPECT_EQ("opens closes selected action(Cherry) ", listener->take());
    EXPECT_EQ("Cherry", textOfField(box));
}

TEST_F(ComboBoxes, CompleteWhatIsTyped) {
    velt::send(box, "setCompletes:", boolean(true));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(box));
    type("b");
    EXPECT_EQ("begin? began() changed(Banana) ", listener->take());
    EXPECT_EQ("1+5", selectionOf(box));
    type("l");
    EXPECT_EQ("Blueberry", textOfField(box));
    EXPECT_VALUE("q 2", velt::send(box, "indexOfSelectedItem"));
    press(Qt::Key_Backspace);
    EXPECT_EQ("Bl", textOfField(box));
    press(Qt::Key_Backspace);
    EXPECT_EQ("B", textOfField(box));
    type("x");
    EXPECT_EQ("Bx", textOfField(box));
    EXPECT_VALUE("q -1", velt::send(box, "indexOfSelectedItem"));
}

TEST_F(ComboBoxes, DoNotCompleteWhatWasErased) {
    velt::send(box, "setCompletes:", boolean(true));
    VELT_NSCONTROL_STRINGVALUE(box, str("Banana"));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(box));
    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    EXPECT_EQ("Banan", textOfField(box));
    VELT_NSCONTROL_STRINGVALUE(box, str(""));
    type("c");  // shorter than what stood there, but typed
    EXPECT_EQ("Cherry", textOfField(box));
}

TEST_F(ComboBoxes, OpenALongListWithinTheScreen) {
    for (long i = 0; i < 300; ++i) velt::send(box, "addItemWithObjectValue:", integer(i));
    velt::send(box, "setNumberOfVisibleItems:", integer(300));
    ASSERT_TRUE(shown.show());
    ASSERT_TRUE(shown.focus(box));
    press(Qt::Key_Down);
    ASSERT_TRUE(list());
    EXPECT_LE(list()->height(), list()->screen()->availableGeometry().height());
}

TEST_F(ComboBoxes, ReportADataSourceThatRaises) {
    velt::send(box, "setUsesDataSource:", boolean(true));
    velt::send(box, "setDataSource:", id(velt::make<RaisingSource>()));
    ASSERT_TRUE(shown.show());
    auto* arrow = velt::as<NSView>(box)->widget().findChild<QAbstractButton*>();
    const std::string said = written([&] {
        const velt::CallbackShelter shelter;
        QTest::mousePress(arrow, Qt::LeftButton);
    });
    EXPECT_NE(std::string::npos, said.find("SourceException: broken\n")) << said;
    EXPECT_FALSE(list());
}

TEST_F(ComboBoxes, AskTheirDataSource) {
    velt::send(box, "setUsesDataSource:", boolean(true));
    EXPECT_VALUE("q 0", velt::send(box, "numberOfItems"));
    velt::send(box, "setDataSource:", id(velt::make<Squares>()));
    EXPECT_VALUE("q 4", velt::send(box, "numberOfItems"));
    velt::send(box, "selectItemAtIndex:", integer(3));
    EXPECT_EQ("9", textOfField(box));
    EXPECT_VALUE("q 9", VELT_NSCONTROL_OBJECTVALUE(box));
    EXPECT_RAISES(
        "NSInternalInconsistencyException: 'NSComboBox' addItemWithObjectValue:: the list is the data source's",
        velt::send(box, "addItemWithObjectValue:", str("x")));
    EXPECT_RAISES("NSRangeException: 'NSComboBox' itemObjectValueAtIndex:: index 4 is out of range; the count is 4",
                  velt::send(box, "itemObjectValueAtIndex:", integer(4)));
}
