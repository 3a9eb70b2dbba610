// What reaches a program's subclass of a field before the field works on it, and what menus ask of every line of text.
#include "support/fields.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QTableView>

using namespace velt::test;
using velt::Ref;

namespace {

/// A field that hears its keys and clicks, takes some and hands the others on.
class WatchedField : public NSTextField {
    VELT_OBJECT(WatchedField, NSTextField)

public:
    void keyDown(NSEvent* event) {
        const std::string text = velt::utf8(event->characters());
        heard += "key " + text + " ";
        if (text != taken) passOn(VELT_SELECTOR("keyDown:"), id(static_cast<NSObject*>(event)));
    }
    void mouseDown(NSEvent* event) {
        heard += "click ";
        passOn(VELT_SELECTOR("mouseDown:"), id(static_cast<NSObject*>(event)));
    }
    static void describe(velt::ClassBuilder<WatchedField>& c) {
        c.method("keyDown:", &WatchedField::keyDown).method("mouseDown:", &WatchedField::mouseDown);
    }
    std::string heard, taken;
};

void act(const char* action) { VELT_FIRSTRESPONDER_SENDACTION(nil, str(action)); }
QString clipboard() { return QApplication::clipboard()->text(); }

class Words : public NSObject {
    VELT_OBJECT(Words, NSObject)
public:
    long count(const id&) { return 2; }
    id value(const id&, const id&, const id&) { return str("word"); }
    void setValue(const id&, const id&, const id&, const id&) {}
    static void describe(velt::ClassBuilder<Words>& c) {
        c.method("numberOfRowsInTableView:", &Words::count)
            .method("tableView:objectValueForTableColumn:row:", &Words::value)
            .method("tableView:setObjectValue:forTableColumn:row:", &Words::setValue);
    }
};

}  // namespace

TEST(FieldEvents, ReachASubclassWhichMayTakeThem) {
    FieldWindow window;
    const Ref<WatchedField> field = velt::make<WatchedField>();
    field->taken = "x";
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    type("axb");
    EXPECT_EQ("key a key x key b ", field->heard);
    EXPECT_EQ("ab", textOfField(field));
}

TEST(FieldEvents, ReachASubclassOnceOnlyAlsoWhenTheFieldHasNoUseForThem) {
    FieldWindow window;
    const Ref<WatchedField> field = velt::make<WatchedField>();
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    press(Qt::Key_Escape);
    press(Qt::Key_Return);
    EXPECT_EQ("key \x1b key \r ", field->heard);
}

TEST(FieldEvents, GiveASubclassTheClicksInItsText) {
    FieldWindow window;
    const Ref<WatchedField> field = velt::make<WatchedField>();
    VELT_NSCONTROL_STRINGVALUE(field, str("some text"));
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(nil);
    auto* line = field->widget().findChild<QLineEdit*>();
    ASSERT_NE(nullptr, line);
    QTest::mouseClick(line, Qt::LeftButton, {}, {6, line->height() / 2});
    EXPECT_EQ("click ", field->heard);
    EXPECT_TRUE(line->hasFocus()) << "what the subclass hands on is left to the field";
}

TEST(FieldEvents, GoOnFromTheFieldEditorToTheField) {
    FieldWindow window;
    const id field = VELT_NSTEXTFIELD_INIT(nil, "");
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    EXPECT_EQ(field, velt::send(velt::send(field, "currentEditor"), "nextResponder"));
}

TEST(FieldActions, WorkInEveryKindOfField) {
    for (const auto make : {VELT_NSTEXTFIELD_INIT, VELT_NSSEARCHFIELD_INIT, VELT_NSCOMBOBOX_INIT}) {
        FieldWindow window;
        const id field = make(nil, "");
        window.add(field);
        ASSERT_TRUE(window.show());
        window.focus(field);
        type("word");
        act("selectAll");
        act("copy:");
        EXPECT_EQ("word", clipboard());
        act("cut");
        EXPECT_EQ("", textOfField(field));
        act("undo");
        EXPECT_EQ("word", textOfField(field));
        act("redo");
        EXPECT_EQ("", textOfField(field));
        act("paste");
        act("paste");
        EXPECT_EQ("wordword", textOfField(field));
    }
}

TEST(FieldActions, GiveNothingAwayOfASecret) {
    FieldWindow window;
    const id field = VELT_NSSECURETEXTFIELD_INIT(nil, "");
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    QApplication::clipboard()->setText(QStringLiteral("before"));
    type("word");
    act("selectAll");
    act("copy");
    act("cut");
    EXPECT_EQ("before", clipboard());
    EXPECT_EQ("word", textOfField(field));
    act("paste");
    EXPECT_EQ("before", textOfField(field));
}

TEST(FieldActions, ReachTheLineOfADatePicker) {
    FieldWindow window;
    const id picker = VELT_NSDATEPICKER_INIT(nil, "");
    window.add(picker);
    ASSERT_TRUE(window.show());
    window.focus(picker);
    const auto* field = velt::as<NSView>(picker)->widget().findChild<QDateTimeEdit*>();
    ASSERT_NE(nullptr, field);
    act("selectAll");
    act("copy");
    EXPECT_EQ(field->text(), clipboard());
}

TEST(FieldActions, ReachTheCellThatIsEditedInATable) {
    FieldWindow window;
    const Ref<NSTableView> table = velt::make<NSTableView>();
    const Ref<NSTableColumn> column = velt::make<NSTableColumn>();
    table->addTableColumn(column.get());
    table->setDataSource(velt::make<Words>());
    window.add(table, 120);
    ASSERT_TRUE(window.show());
    window.focus(table);
    table->editColumn(0, 1, nil, true);
    auto* line = table->widget().findChild<QLineEdit*>();
    ASSERT_NE(nullptr, line);
    ASSERT_TRUE(line->hasFocus());
    QApplication::clipboard()->setText(QStringLiteral("s"));
    act("selectAll");
    EXPECT_EQ("word", line->selectedText());
    act("cut");
    EXPECT_EQ("", line->text());
    EXPECT_EQ("word", clipboard());
    act("undo");
    EXPECT_EQ("word", line->text());
    act("redo");
    act("paste");
    EXPECT_EQ("word", line->text());
    press(Qt::Key_Escape);
    EXPECT_VALUE("c 0", VELT_FIRSTRESPONDER_SENDACTION(nil, str("cut"))) << "the table itself has nothing to cut";
}
