// Context menus of fields: the program's own in place of the editor's, by the mouse and by the key.
#include "support/fields.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QWindow>

using namespace velt::test;
using velt::Ref;

namespace {

/// A combo box, whose menu a person asks for the way the window system does.
class FieldMenus : public testing::Test {
protected:
    void SetUp() override {
        shown.add(box);
        ASSERT_TRUE(shown.show());
        ASSERT_TRUE(shown.focus(box));
    }
    ~FieldMenus() override {
        if (QWidget* menu = opened()) menu->close();
    }
    QLineEdit& editor() const { return *velt::as<NSView>(box)->widget().findChild<QLineEdit*>(); }
    static QMenu* opened() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    QMenu* clickRight() const {
        QWidget& window = *editor().window();
        QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, editor().mapTo(&window, QPoint(5, 5)));
        return opened();
    }
    QMenu* pressMenuKey() const {
        // The window system names no place: the caret's is taken.
        QContextMenuEvent asks(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(editor().window()->windowHandle(), &asks);
        return opened();
    }
    /// What a menu shows, "-" for a line.
    static std::string titles(const QMenu* menu) {
        std::string all;
        if (!menu) return "none";
        for (const QAction* action : menu->actions()) {
            if (!action->isVisible()) continue;
            all += action->isSeparator() ? "-" : action->text().toStdString();
            all += " ";
        }
        return all;
    }
    void setMenu(std::initializer_list<const char*> items) const {
        const id menu = VELT_NSMENU_INIT(nil, "");
        for (const char* title : items) VELT_NSMENU_APPEND(menu, str(title));
        VELT_NSRESPONDER_MENU(box, menu);
    }
    id box = VELT_NSCOMBOBOX_INIT(nil, "");
    FieldWindow shown;
};

}  // namespace

TEST_F(FieldMenus, OfAComboBoxHaveItsSeparators) {
    setMenu({"First"});
    VELT_NSCOMBOBOX_APPENDSEPARATOR(box);
    VELT_NSMENU_APPEND(VELT_NSRESPONDER_MENU(box), str("Second"));
    EXPECT_EQ("First - Second ", titles(clickRight()));
}

TEST_F(FieldMenus, ComeByTheMenuKeyToo) {
    setMenu({"First"});
    const QMenu* menu = pressMenuKey();
    EXPECT_EQ("First ", titles(menu));
    ASSERT_TRUE(menu);
    const QRect field(editor().mapToGlobal(QPoint(0, 0)), editor().size());
    EXPECT_TRUE(field.contains(menu->pos())) << "away from the caret";
}

TEST_F(FieldMenus, AreTheEditorsWhereTheProgramsHaveNothingToChoose) {
    const std::string own = titles(clickRight());
    EXPECT_NE(std::string::npos, own.find("Paste")) << own;
    opened()->close();
    VELT_NSCOMBOBOX_APPENDSEPARATOR(box);
    EXPECT_EQ(own, titles(clickRight()));
}
