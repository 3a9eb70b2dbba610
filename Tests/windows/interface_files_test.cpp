// Files of a graphical designer, opened as windows.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/patience.h"
#include "support/processes.h"
#include "support/values.h"

#include "VELTRuntime/platform/appkit/interface/arranged_view.h"
#include "VELTRuntime/platform/foundation/interface_loader.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>

using namespace velt::test;
using velt::Ref;

namespace {

/// What a compiled form with an interface file looks like: a property for each object it wants, methods for actions.
class DesignedForm : public NSObject {
    VELT_OBJECT(DesignedForm, NSObject)

public:
    void save(const id& sender) { heard += "save " + velt::utf8(VELT_NSBUTTON_TITLE(sender)) + " "; }
    void choose(const id& sender) { heard += "choose " + velt::utf8(VELT_NSCONTROL_STRINGVALUE(sender)) + " "; }
    static void describe(velt::ClassBuilder<DesignedForm>& c) {
        c.property("Form", &DesignedForm::window)
            .property("nameField", &DesignedForm::nameField)
            .property("saveButton", &DesignedForm::saveButton)
            .property("wrapBox", &DesignedForm::wrapBox)
            .property("caption", &DesignedForm::caption)
            .property("volume", &DesignedForm::volume)
            .method("save:", &DesignedForm::save)
            .method("choose:", &DesignedForm::choose);
    }
    id window, nameField, saveButton, wrapBox, caption, volume;
    std::string heard;
};

std::string text(const char* property, const char* value) {
    return std::string("<property name=\"") + property + "\"><string>" + value + "</string></property>";
}

std::string widget(const char* cls, const char* name, const std::string& content) {
    return std::string("<widget class=\"") + cls + "\" name=\"" + name + "\">" + content + "</widget>";
}

std::string rect(int x, int y, int width, int height) {
    return "<property name=\"geometry\"><rect><x>" + std::to_string(x) + "</x><y>" + std::to_string(y) + "</y><width>" +
           std::to_string(width) + "</width><height>" + std::to_string(height) + "</height></rect></property>";
}

std::string document(const std::string& content, const std::string& connections = "") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\"><class>Form</class>" +
           widget("QWidget", "Form", rect(0, 0, 400, 300) + text("windowTitle", "Settings") + content) +
           "<connections>" + connections + "</connections></ui>";
}

std::string connection(const char* sender, const char* slot) {
    return std::string("<connection><sender>") + sender +
           "</sender><signal>clicked()</signal><receiver>Form</receiver><slot>" + slot + "</slot></connection>";
}

class DesignedWindows : public ::testing::Test {
protected:
    std::string load(const std::string& content) { return velt::loadInterface(folder.write("form.ui", content), form); }
    NSWindow& window() { return *velt::as<NSWindow>(form->window); }
    void show() {
        VELT_NSWINDOW_SHOW(form->window);
        ASSERT_TRUE(comesIntoView(&window().widget()));
    }
    void TearDown() override {
        if (velt::is<NSWindow>(form->window)) VELT_NSWINDOW_CLOSE(form->window);
    }
    TemporaryFolder folder;
    Ref<DesignedForm> form = velt::make<DesignedForm>();
};

}  // namespace

TEST_F(DesignedWindows, OpenWithTheirControlsByKeyAndTheirActionsSent) {
    const std::string content =
        widget("QLabel", "caption", rect(10, 10, 80, 20) + text("text", "Name:")) +
        widget("QLineEdit", "nameField",
               rect(100, 10, 150, 24) + text("text", "Ada") + text("placeholderText", "name")) +
        widget("QCheckBox", "wrapBox",
               rect(10, 50, 200, 20) + text("text", "&amp;Wrap lines") +
                   "<property name=\"checked\"><bool>true</bool></property>") +
        widget("QSlider", "volume",
               rect(10, 80, 150, 22) + "<property name=\"maximum\"><number>10</number></property>"
                                       "<property name=\"value\"><number>4</number></property>") +
        widget("QPushButton", "saveButton",
               rect(300, 260, 80, 24) + text("text", "&amp;Save") + text("toolTip", "Keeps it"));
    ASSERT_EQ("", load(document(content, connection("saveButton", "save()") + connection("volume", "choose()"))));
    EXPECT_VALUE("'Settings'", VELT_NSWINDOW_TITLE(form->window));
    EXPECT_VALUE("'Ada'", VELT_NSCONTROL_STRINGVALUE(form->nameField));
    EXPECT_VALUE("'Name:'", VELT_NSCONTROL_STRINGVALUE(form->caption));
    EXPECT_VALUE("c 0", VELT_NSTEXTFIELD_EDITABLE(form->caption));
    EXPECT_VALUE("'Wrap lines'", VELT_NSBUTTON_TITLE(form->wrapBox));
    EXPECT_VALUE("q 1", VELT_NSBUTTON_STATE(form->wrapBox));
    EXPECT_VALUE("d 4", VELT_NSCONTROL_DOUBLEVALUE(form->volume));
    EXPECT_VALUE("'Keeps it'", VELT_NSVIEW_TOOLTIP(form->saveButton));
    // A designer counts from the upper left corner, programs from the lower left one.
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{300, 16}, {80, 24}}", VELT_NSVIEW_FRAME(form->saveButton));
    show();
    QTest::mouseClick(&velt::as<NSView>(form->saveButton)->widget(), Qt::LeftButton);
    EXPECT_EQ("save Save ", form->heard);
}

TEST_F(DesignedWindows, AreArrangedByTheirLayouts) {
    const std::string content =
        "<layout class=\"QVBoxLayout\" name=\"rows\"><item>"
        "<layout class=\"QFormLayout\" name=\"fields\">"
        "<item row=\"0\" column=\"0\">" +
        widget("QLabel", "caption", text("text", "Name:")) +
        "</item>"
        "<item row=\"0\" column=\"1\">" +
        widget("QLineEdit", "nameField", "") +
        "</item></layout></item>"
        "<item><spacer name=\"s\"><property name=\"orientation\"><enum>Qt::Vertical</enum></property></spacer></item>"
        "<item>" +
        widget("QPushButton", "saveButton", text("text", "Save")) + "</item></layout>";
    ASSERT_EQ("", load(document(content)));
    const auto frameOf = [](const id& view) { return velt::as<NSView>(view)->frame(); };
    const NSRect field = frameOf(form->nameField), caption = frameOf(form->caption), save = frameOf(form->saveButton);
    EXPECT_GT(field.origin.x, caption.origin.x + caption.size.width);
    EXPECT_NEAR(400 - 9, field.origin.x + field.size.width, 1);
    EXPECT_NEAR(300 - 9, field.origin.y + field.size.height, 1);
    EXPECT_NEAR(9, save.origin.y, 1);
    VELT_NSWINDOW_CONTENTSIZE(form->window, VELT_ID(NSSize{500, 350}));
    EXPECT_NEAR(500 - 9, frameOf(form->nameField).origin.x + frameOf(form->nameField).size.width, 1);
    EXPECT_NEAR(350 - 9, frameOf(form->nameField).origin.y + frameOf(form->nameField).size.height, 1);
    EXPECT_NEAR(9, frameOf(form->saveButton).origin.y, 1);
    // A view that the program takes out leaves its place to the rest.
    VELT_NSVIEW_REMOVE(nil, form->caption);
    VELT_NSWINDOW_CONTENTSIZE(form->window, VELT_ID(NSSize{450, 350}));
    EXPECT_NEAR(450 - 9, frameOf(form->nameField).origin.x + frameOf(form->nameField).size.width, 1);
}

TEST_F(DesignedWindows, LimitDistancesToWhatLayoutsCanReckonWith) {
    const std::string content =
        "<layout class=\"QVBoxLayout\" name=\"rows\"><item>" +
        widget(
            "QLineEdit", "nameField",
            "<property name=\"minimumSize\"><size><width>1000000000000</width><height>20</height></size></property>") +
        "</item><item><spacer name=\"s\"><property name=\"orientation\"><enum>Qt::Vertical</enum></property>"
        "<property name=\"sizeType\"><enum>QSizePolicy::Fixed</enum></property><property name=\"sizeHint\">"
        "<size><width>20</width><height>1000000000000</height></size></property></spacer></item></layout>";
    ASSERT_EQ("", load(document(content)));
    const NSSize least = window().contentMinSize();
    for (const double extent : {least.width, least.height}) {
        EXPECT_LE(QWIDGETSIZE_MAX, extent);
        EXPECT_GT(2.0 * QWIDGETSIZE_MAX, extent);
    }
}

TEST_F(DesignedWindows, NameWhatTheyCannotBeMadeOf) {
    const std::string failure = load(document(widget("QRocket", "saveButton", "")));
    EXPECT_NE(failure.npos, failure.find("there is no class 'QRocket' to make an object of")) << failure;
    EXPECT_TRUE(form->window.isNil());
}

TEST_F(DesignedWindows, ArrangeWhatTheirGroupBoxesHold) {
    const std::string content =
        widget("QGroupBox", "group",
               rect(10, 10, 200, 120) + text("title", "File") + "<layout class=\"QVBoxLayout\" name=\"rows\"><item>" +
                   widget("QLineEdit", "nameField", "") + "</item></layout>");
    ASSERT_EQ("", load(document(content)));
    const NSView& field = *velt::as<NSView>(form->nameField);
    ASSERT_TRUE(field.superviewPointer());
    EXPECT_TRUE(velt::is<VLArrangedView>(field.superview()));
    EXPECT_TRUE(velt::is<NSBox>(field.superviewPointer()->superview()));
    EXPECT_LT(150, field.frame().size.width);
}

TEST_F(DesignedWindows, GiveTheirActionsTheirShortcuts) {
    struct Shortcut {
        const char *written, *key;
        unsigned long mask;
    };
    const Shortcut shortcuts[] = {{"Ctrl+S", "s", NSEvent::kCommand},
                                  {"Ctrl++", "+", NSEvent::kCommand},
                                  {"Ctrl+Alt+-", "-", NSEvent::kCommand | NSEvent::kAlternate},
                                  {"Meta+Shift+F5", "F5", NSEvent::kControl | NSEvent::kShift}};
    for (const Shortcut& shortcut : shortcuts) {
        ASSERT_EQ("", load(document("<action name=\"saveButton\">" + text("text", "Save") +
                                    text("shortcut", shortcut.written) + "</action>")));
        EXPECT_EQ(shortcut.key, velt::utf8(velt::send(form->saveButton, "keyEquivalent"))) << shortcut.written;
        EXPECT_EQ(shortcut.mask,
                  static_cast<unsigned long>(VELT_CINTEGER(velt::send(form->saveButton, "keyEquivalentModifierMask"))))
            << shortcut.written;
    }
}
