#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/interface_loader.h"
#include "support/processes.h"
#include "support/values.h"

using namespace velt::test;

namespace {

/// What an interface file makes here: it has the properties of a control.
class TestControl : public NSObject {
    VELT_OBJECT(TestControl, NSObject)
public:
    void click() { velt::send(target, velt::utf8(action), id(this)); }
    void add(const id& child) { VELT_NSMUTABLEARRAY_APPEND(children, child); }
    void close(const id&) { closed = true; }
    static void describe(velt::ClassBuilder<TestControl>& c) {
        c.property("title", &TestControl::title)
            .property("count", &TestControl::count)
            .property("factor", &TestControl::factor)
            .property("flag", &TestControl::flag)
            .property("frame", &TestControl::frame)
            .property("position", &TestControl::position)
            .property("items", &TestControl::items)
            .property("target", &TestControl::target)
            .property("action", &TestControl::action)
            .property("children", &TestControl::children)
            .property("closed", &TestControl::closed)
            .method("addSubview:", &TestControl::add)
            .method("close:", &TestControl::close);
    }

    id title, items, target, action, frame, position, children = array();
    long count = 0;
    double factor = 0;
    bool flag = false, closed = false;
};

class FormOwner : public NSObject {
    VELT_OBJECT(FormOwner, NSObject)
public:
    void pressed(const id& sender) { from = sender; }
    static void describe(velt::ClassBuilder<FormOwner>& c) {
        c.property("okButton", &FormOwner::okButton)
            .property("form", &FormOwner::form)
            .property("from", &FormOwner::from)
            .method("pressed:", &FormOwner::pressed);
    }
    id okButton, form, from;
};

std::string document(const std::string& inForm, const std::string& connections = "") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\">\n<class>Form</class>\n"
           "<widget class=\"TestControl\" name=\"form\">\n" +
           inForm + "</widget>\n<connections>" + connections + "</connections>\n</ui>\n";
}

std::string connection(const std::string& from, const std::string& to, const std::string& slot) {
    return "<connection><sender>" + from + "</sender><signal>clicked()</signal><receiver>" + to + "</receiver><slot>" +
           slot + "</slot></connection>";
}

const std::string button = "<widget class=\"TestControl\" name=\"okButton\"/>\n";

class InterfaceFiles : public ::testing::Test {
protected:
    /// Why it could not be loaded, without the path.
    std::string load(const std::string& content, const id& forOwner) {
        const std::string path = folder.write("test.ui", content);
        std::string failure = velt::loadInterface(path, forOwner);
        return failure.starts_with(path + ": ") ? failure.substr(path.size() + 2) : failure;
    }
    TestControl& okButton() { return *velt::as<TestControl>(owner->okButton); }

    TemporaryFolder folder;
    velt::Ref<FormOwner> owner = velt::make<FormOwner>();
};

}  // namespace

TEST_F(InterfaceFiles, MakeObjectsAndSetTheOwnersOutlets) {
    EXPECT_EQ("", load(document(button + "<widget class=\"TestControl\" name=\"unnamedByTheOwner\"/>"), owner));
    ASSERT_TRUE(velt::is<TestControl>(owner->okButton));
    ASSERT_TRUE(velt::is<TestControl>(owner->form));
    EXPECT_VALUE("q 2", VELT_ID(VELT_CINTEGER(VELT_NSARRAY_COUNT(velt::valueForKey(owner->form, "children")))));
}

TEST_F(InterfaceFiles, SetProperties) {
    const std::string properties =
        "<property name=\"title\"><string>&lt;Caf\xC3\xA9&gt;</string></property>"
        "<property name=\"count\"><number>-12</number></property>"
        "<property name=\"factor\"><double>2.5</double></property>"
        "<property name=\"flag\"><bool>true</bool></property>"
        "<property name=\"frame\"><rect><x>1</x><y>2</y><width>30</width><height>40</height></rect></property>"
        "<property name=\"position\"><point><x>5</x><y>6</y></point></property>"
        "<property name=\"items\"><stringlist><string>a</string><string>b</string></stringlist></property>"
        "<property name=\"unknown\"><string>left out</string></property>"
        "<property name=\"title\"><palette/></property><property name=\"title\"/>";
    EXPECT_EQ("", load(document("<layout class=\"QVBoxLayout\" name=\"layout\"><item><spacer name=\"s\"/></item><item>"
                                "<widget class=\"TestControl\" name=\"okButton\">" +
                                properties + "</widget></item></layout>"),
                       owner));
    EXPECT_VALUE("'<Caf\xC3\xA9>'", okButton().title);
    EXPECT_EQ(-12, okButton().count);
    EXPECT_EQ(2.5, okButton().factor);
    EXPECT_TRUE(okButton().flag);
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{1, 2}, {30, 40}}", okButton().frame);
    EXPECT_VALUE("{CGPoint=dd} {5, 6}", okButton().position);
    EXPECT_VALUE("NSMutableArray (a, b)", okButton().items);
}

TEST_F(InterfaceFiles, ConnectActions) {
    EXPECT_EQ("", load(document(button, connection("okButton", "form", "pressed()")), owner));
    okButton().click();
    EXPECT_EQ(owner->okButton, owner->from);
    EXPECT_EQ("", load(document(button, connection("okButton", "form", "close()")), owner));
    okButton().click();
    EXPECT_TRUE(velt::as<TestControl>(owner->form)->closed);
    EXPECT_EQ("", load(document(button, connection("form", "okButton", "close:")), owner));
    velt::as<TestControl>(owner->form)->click();
    EXPECT_TRUE(okButton().closed);
    owner->from = nil;
}

TEST_F(InterfaceFiles, FailAndLeaveTheOwnerAsItWas) {
    struct Row {
        std::string content, failure;
    };
    const std::string unknown = "<widget class=\"NoSuchClass\" name=\"x\"/>";
    for (const Row& row :
         {Row{"", "line 1, column 1: no element found"}, Row{"<ui>", "line 1, column 5: no element found"},
          Row{"<ui></widget>", "line 1, column 7: mismatched tag"},
          Row{"<html/>", "line 1: the document is 'html', not 'ui'"},
          Row{"<ui>\n</ui>", "line 1: there is no widget in it"},
          Row{document(button + unknown), "line 6: there is no class 'NoSuchClass' to make an object of"},
          Row{document("<widget name=\"x\"/>"), "line 5: there is no class '' to make an object of"},
          Row{document(button, connection("missing", "form", "close()")),
              "line 7: there is no object 'missing' to connect"},
          Row{document(button, connection("okButton", "missing", "close()")),
              "line 7: there is no object 'missing' to connect"},
          Row{document(button, connection("okButton", "form", "fly()")), "line 7: 'TestControl' has no method 'fly:'"},
          Row{document("<widget class=\"FormOwner\" name=\"x\"/>", connection("x", "form", "close()")),
              "line 6: 'FormOwner' sends no actions"},
          Row{"<!DOCTYPE ui [<!ENTITY a \"b\">]><ui/>", "line 1, column 15: entities may not be declared"}}) {
        std::string failure = load(row.content, owner);
        if (row.failure.find("entities") != row.failure.npos)
            failure.replace(0, failure.find(": "), "line 1, column 15");
        EXPECT_EQ(row.failure, failure);
        EXPECT_VALUE("nil", owner->okButton);
        EXPECT_VALUE("nil", owner->form);
    }
    std::string deep;
    for (int i = 0; i < 300; ++i) deep += "<widget class=\"TestControl\">";
    EXPECT_TRUE(load(document(deep), owner).ends_with(": elements lie too deep within each other"));
}

TEST_F(InterfaceFiles, AskTheMakerOfAClass) {
    static std::string asked;
    velt::registerInterfaceMaker("QTestButton", [](const velt::XmlElement& element, const id& parent) {
        asked = element.attribute("name") + " in " + velt::classOf(parent)->name();
        return id(velt::make<TestControl>());
    });
    EXPECT_EQ("", load(document("<widget class=\"QTestButton\" name=\"okButton\"/>"), owner));
    EXPECT_EQ("okButton in TestControl", asked);
    EXPECT_TRUE(velt::is<TestControl>(owner->okButton));
}

TEST_F(InterfaceFiles, LoadWithoutAnOwner) { EXPECT_EQ("", load(document(button), nil)); }

TEST_F(InterfaceFiles, AreFoundInTheResourceFolder) {
    const std::string resources = NSBundle::mainBundle().resourcePath(), path = resources + "/velt_test_form.ui";
    const bool isNew = std::filesystem::create_directories(resources);
    std::ofstream(path) << document(button);
    EXPECT_VALUE("c 1", VELT_NSOBJECT_LOADNIB(owner, str("velt_test_form")));
    EXPECT_TRUE(velt::is<TestControl>(owner->okButton));
    EXPECT_VALUE("c 1", VELT_NSOBJECT_LOADNIB(owner, str("velt_test_form.ui")));
    std::filesystem::remove(path);
    ::testing::internal::CaptureStderr();
    EXPECT_VALUE("c 0", VELT_NSOBJECT_LOADNIB(owner, str("velt_test_form")));
    EXPECT_EQ("The interface file cannot be loaded: " + path + ": No such file or directory\n",
              ::testing::internal::GetCapturedStderr());
    if (isNew) std::filesystem::remove(resources);
}
