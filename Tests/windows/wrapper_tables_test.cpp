// The convention of all wrappers, walked over every row of every table: what holds for one holds for all of them.
#include "support/values.h"
#include "windows/wrapper_rows.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/run_loop.h"

#include <QImage>
#include <map>
#include <set>
#include <thread>

using namespace velt::test;
using velt::Ref;
using velt::ui::ValueKind;

namespace {

// What the rows are tried on. A family that is not here fails the tests with its name.

id tabViewWithItems() {
    const id view = VELT_NSTABVIEW_INIT(nil, "");
    for (int i = 0; i < 3; ++i) velt::send(view, "addTabViewItem:", id(velt::make<NSTabViewItem>()));
    return view;
}

id menuWithItems() {
    const id menu = VELT_NSMENU_INIT(nil, "menu");
    for (const char* title : {"One", "Two", "Three"}) VELT_NSMENU_APPEND(menu, str(title));
    return menu;
}

id popUpWithItems() {
    const id button = VELT_NSPOPUPBUTTON_INIT(nil, "");
    VELT_NSPOPUPBUTTON_MENU(button, menuWithItems());
    return button;
}

id comboBoxWithItems() {
    const id box = VELT_NSCOMBOBOX_INIT(nil, "");
    for (const char* item : {"One", "Two", "Three"}) VELT_NSCOMBOBOX_APPEND(box, str(item));
    return box;
}

const std::map<std::string, id (*)()> kMakers{
    {"NSWINDOW", [] { return VELT_NSWINDOW_INIT(nil, ""); }},
    {"NSPANEL", [] { return VELT_NSPANEL_INIT(nil, ""); }},
    {"NSRESPONDER", [] { return VELT_NSVIEW_INIT(nil, ""); }},
    {"NSVIEW", [] { return VELT_NSVIEW_INIT(nil, ""); }},
    {"NSCONTROL", [] { return id(velt::make<NSControl>()); }},
    {"NSCELL", [] { return id(velt::make<NSCell>()); }},
    {"NSBUTTON", [] { return VELT_NSBUTTON_INIT(nil, ""); }},
    {"NSBUTTONCELL", [] { return VELT_NSBUTTONCELL_INIT(nil, ""); }},
    {"NSIMAGEVIEW", [] { return VELT_NSIMAGEVIEW_INIT(nil, ""); }},
    {"NSSEGMENTEDCONTROL", [] { return VELT_NSSEGMENTEDCONTROL_INIT(nil, ""); }},
    {"NSTEXTFIELD", [] { return VELT_NSTEXTFIELD_INIT(nil, ""); }},
    {"NSSEARCHFIELD", [] { return VELT_NSSEARCHFIELD_INIT(nil, ""); }},
    {"NSTEXT", [] { return VELT_NSTEXTVIEW_INIT(nil, ""); }},
    {"NSTEXTVIEW", [] { return VELT_NSTEXTVIEW_INIT(nil, ""); }},
    {"NSPOPUPBUTTON", popUpWithItems},
    {"NSPOPUPBUTTONCELL", [] { return velt::send(popUpWithItems(), "cell"); }},
    {"NSMENU", menuWithItems},
    {"NSMENUITEM", [] { return VELT_NSMENUITEM_INIT(nil, ""); }},
    {"NSAPPLICATION", [] { return id(static_cast<NSObject*>(&NSApplication::sharedApplication())); }},
    {"NSEVENT", [] { return VELT_NSEVENT_INIT(nil, ""); }},
    {"NSFONT", [] { return VELT_NSTEXTFIELD_INIT(nil, ""); }},
    {"NSCURSOR", [] { return id(velt::make<NSCursor>()); }},
    {"NSBOX", [] { return VELT_NSBOX_INIT(nil, ""); }},
    {"NSTABVIEW", tabViewWithItems},
    {"NSTABLEVIEW", [] { return VELT_NSTABLEVIEW_INIT(nil, ""); }},
    {"NSTABLECOLUMN", [] { return VELT_NSTABLECOLUMN_INIT(nil, "column"); }},
    {"NSCOMBOBOX", comboBoxWithItems},
    {"NSSCROLLVIEW", [] { return VELT_NSSCROLLVIEW_INIT(nil, ""); }},
    {"NSMATRIX", [] { return VELT_NSMATRIX_INIT(nil, ""); }},
    {"NSTOOLBAR", [] { return VELT_NSTOOLBAR_INIT(nil, "bar"); }},
    {"NSTOOLBARITEM", [] { return VELT_NSTOOLBARITEM_INIT(nil, "item"); }},
    {"NSDRAWER", [] { return VELT_NSDRAWER_INIT(nil, ""); }},
    {"NSSAVEPANEL", [] { return id(static_cast<NSObject*>(&NSSavePanel::savePanel())); }},
    {"VLTEXTVIEW", [] { return VELT_VLTEXTVIEW_INIT(nil, ""); }},
    {"NSPROGRESSINDICATOR", [] { return VELT_NSPROGRESSINDICATOR_INIT(nil, ""); }},
    {"VLBACKGROUNDVIEW", [] { return id(velt::make<VLBackgroundView>()); }},
};

id receiverFor(const WrapperRow& row) {
    const std::string name = row.name;
    const auto found = kMakers.find(name.substr(0, name.find('_')));
    if (found == kMakers.end()) throw std::runtime_error("no receiver is known for " + name);
    return found->second();
}

// The objects that setters take, by the cast in their row.

id someImage() {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return velt::make<NSImage>(picture);
}

const std::map<std::string, id (*)()> kObjects{
    {"NSVIEW", [] { return id(velt::make<NSView>()); }},
    {"NSWINDOW", [] { return VELT_NSWINDOW_INIT(nil, ""); }},
    {"NSCOLOR", [] { return id(NSColor::deviceRgb(1, 0.5, 0, 1)); }},
    {"NSIMAGE", someImage},
    {"NSFONT", [] { return id(velt::make<NSFont>()); }},
    {"NSBUTTONCELL", [] { return VELT_NSBUTTONCELL_INIT(nil, ""); }},
    {"NSMENU", menuWithItems},
    {"NSMENUITEM", [] { return VELT_NSMENUITEM_INIT(nil, ""); }},
    {"NSCELL", [] { return id(velt::make<NSActionCell>()); }},
    {"NSTABLECOLUMN", [] { return VELT_NSTABLECOLUMN_INIT(nil, "other"); }},
    {"NSTOOLBAR", [] { return VELT_NSTOOLBAR_INIT(nil, "bar"); }},
    {"ARRAY", [] { return array(str("one"), str("two")); }},
};

/// A value of the row's kind.
id sampleFor(const WrapperRow& row) {
    switch (row.kind) {
    case ValueKind::Boolean: return boolean(true);
    case ValueKind::Integer:
    case ValueKind::Unsigned: return integer(1);
    case ValueKind::Double: return real(0.5);
    case ValueKind::Single: return single(0.5F);
    case ValueKind::Text:
    case ValueKind::MutableText: return str("Grüße");
    case ValueKind::RichText: return velt::make<NSMutableAttributedString>(u"rich");
    case ValueKind::Point: return point(30, 40);
    case ValueKind::Size: return size(70, 80);
    case ValueKind::Rect: return rect(10, 20, 110, 120);
    case ValueKind::Object: break;
    }
    if (!row.cast) return velt::make<NSObject>();
    const auto found = kObjects.find(row.castName);
    if (found == kObjects.end()) throw std::runtime_error("no object is known for " + std::string(row.castName));
    return found->second();
}

/// Wrappers whose value comes back as another one, and why.
const std::map<std::string, const char*> kLimited{
    {"NSBUTTON_STATE", "a state is on, off or mixed"},
    {"NSMENUITEM_STATE", "a state is on, off or mixed"},
    {"NSTABLEVIEW_ROWHEIGHT", "a row has a dot at least"},
    {"NSTABLECOLUMN_WIDTH", "a width stays within the column's limits"},
    {"NSSEARCHFIELD_RECENTSEARCHES", "the field keeps the texts among them, in an array of its own"}};

/// Wrappers that end the process, whose message only a subclass answers, or that ask their argument for a tag.
const std::set<std::string> kNeverSent{"NSAPPLICATION_TERMINATE", "NSTEXTVIEW_SELECTEDTEXT",
                                       "NSTEXTVIEW_PERFORMFINDPANELACTION"};

/// What a wrong kind raises, whole; empty where every value will do.
std::string refusalOf(const WrapperRow& row) {
    switch (row.kind) {
    case ValueKind::Boolean: return castFailure("'Boolean' expected");
    case ValueKind::Integer:
    case ValueKind::Unsigned: return castFailure("'Integer' expected");
    case ValueKind::Double: return castFailure("'Double' expected");
    case ValueKind::Single: return castFailure("'Single' expected");
    case ValueKind::RichText: return castFailure("'AttributedString' expected");
    case ValueKind::Point: return castFailure("'Point' expected");
    case ValueKind::Size: return castFailure("'Size' expected");
    case ValueKind::Rect: return castFailure("'Rect' expected");
    case ValueKind::Text:
    case ValueKind::MutableText: return {};  // everything but nil has a text
    case ValueKind::Object: break;
    }
    if (!row.cast) return {};
    static const std::map<std::string, std::string> classes{
#define VELT_CLASS_CAST(suffix, cls, nilRule) {#suffix, #cls},
#include "VELTRuntime/values/class_casts.def"
        {"NSIMAGE", "NSImage"},
    };
    const auto found = classes.find(row.castName);
    return castFailure("'" + (found == classes.end() ? std::string(row.castName) : found->second) + "' expected");
}

std::string zeroOf(ValueKind kind) {
    switch (kind) {
    case ValueKind::Boolean: return "c 0";
    case ValueKind::Integer: return "q 0";
    case ValueKind::Unsigned: return "Q 0";
    case ValueKind::Double: return "d 0";
    case ValueKind::Single: return "f 0";
    case ValueKind::Point: return "{CGPoint=dd} {0, 0}";
    case ValueKind::Size: return "{CGSize=dd} {0, 0}";
    case ValueKind::Rect: return "{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}";
    default: return "nil";
    }
}

/// The type code that a kind's values come back with.
std::string codeOf(ValueKind kind) {
    const std::string zero = zeroOf(kind);
    return zero.substr(0, zero.find(' '));
}

class WrapperTables : public testing::TestWithParam<WrapperRow> {};

std::string rowName(const testing::TestParamInfo<WrapperRow>& info) {
    return std::string(info.param.name) + (info.param.set && !info.param.get ? "_Set" : "");
}

}  // namespace

TEST_P(WrapperTables, GiveBackWhatWasSet) {
    const WrapperRow& row = GetParam();
    if (!row.get || !row.set) return;
    const id receiver = receiverFor(row), value = sampleFor(row);
    if (const auto limited = kLimited.find(row.name); limited != kLimited.end()) GTEST_SKIP() << limited->second;
    EXPECT_TRUE(row.set(receiver, value).isNil());
    const id back = row.get(receiver);
    switch (row.kind) {
    case ValueKind::Object: EXPECT_EQ(value, back); break;
    case ValueKind::Text:
    case ValueKind::MutableText:
        EXPECT_VALUE("'Grüße'", back);
        EXPECT_NE(back, row.get(receiver)) << "a fresh copy each time";
        EXPECT_EQ(row.kind == ValueKind::Text, velt::asString(back).isFrozen());
        break;
    case ValueKind::RichText: EXPECT_TRUE(velt::isEqual(value, back)); break;
    default:
        EXPECT_EQ(codeOf(row.kind), velt::typeCodeOrNull(back));
        EXPECT_EQ(velt::utf8(velt::description(value)), velt::utf8(velt::description(back)));
    }
    if (row.kind == ValueKind::Boolean) {
        row.set(receiver, boolean(false));
        EXPECT_VALUE("c 0", row.get(receiver));
        row.set(receiver, str("true"));  // texts are read, as everywhere in the language
        EXPECT_VALUE("c 1", row.get(receiver));
    }
    if (row.kind == ValueKind::Integer || row.kind == ValueKind::Unsigned) {
        row.set(receiver, real(2.9));
        EXPECT_EQ(codeOf(row.kind) + " 2", show(row.get(receiver)));
    }
}

TEST_P(WrapperTables, RefuseAWrongKindAndChangeNothing) {
    const WrapperRow& row = GetParam();
    if (!row.set) return;
    const std::string refusal = refusalOf(row);
    const id receiver = receiverFor(row);
    const std::string before = row.get ? show(row.get(receiver)) : "";
    if (!refusal.empty()) {
        EXPECT_RAISES(refusal, row.set(receiver, velt::make<NSObject>()));
        EXPECT_RAISES(refusal, row.set(nil, velt::make<NSObject>()));  // the kind is looked at first
    }
    if (row.kind == ValueKind::Text || row.kind == ValueKind::MutableText) {
        EXPECT_RAISES("VLException: nil has no text: a string cannot be made from it", row.set(receiver, nil));
    }
    if (row.get && row.kind != ValueKind::Object) {
        EXPECT_EQ(before, show(row.get(receiver)));
    }
}

TEST_P(WrapperTables, AnswerTheZeroOfTheirKindForNil) {
    const WrapperRow& row = GetParam();
    if (row.get) {
        EXPECT_EQ(zeroOf(row.kind), show(row.get(nil)));
    }
    const id value = sampleFor(row);
    if (row.set) {
        EXPECT_TRUE(row.set(nil, value).isNil());
    }
}

TEST_P(WrapperTables, NameClassAndMessageForAReceiverOfAnotherClass) {
    const WrapperRow& row = GetParam();
    const id other = velt::make<NSObject>();
    const auto refusal = [](const char* message) {
        return std::string("NSInvalidArgumentException: 'NSObject' does not understand '") + message + "'";
    };
    if (row.get) {
        EXPECT_RAISES(refusal(row.getter), row.get(other));
    }
    const id value = sampleFor(row);
    if (row.set) {
        EXPECT_RAISES(refusal(row.setter), row.set(other, value));
    }
}

TEST_P(WrapperTables, BelongToTheMainThread) {
    const WrapperRow& row = GetParam();
    const id receiver = receiverFor(row), value = sampleFor(row);
    const std::string refusal = "NSInternalInconsistencyException: VELT_" + std::string(row.name) +
                                " was called on another thread than the main one, to which windows and views belong";
    std::thread([&] {
        const velt::ThreadScope scope;
        if (row.get) {
            EXPECT_RAISES(refusal, row.get(receiver));
            EXPECT_RAISES(refusal, row.get(nil));
        }
        if (row.set) {
            EXPECT_RAISES(refusal, row.set(receiver, value));
        }
    }).join();
}

TEST_P(WrapperTables, StaySafeAfterTheWindowWasClosed) {
    const WrapperRow& row = GetParam();
    const id receiver = receiverFor(row);
    const bool isWindow = velt::is<NSWindow>(receiver);
    const id window = isWindow ? receiver : VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, rect(20, 20, 300, 200));
    if (velt::is<NSView>(receiver)) {
        VELT_NSVIEW_FRAME(receiver, rect(5, 5, 200, 100));
        VELT_NSWINDOW_APPEND(window, receiver);
    }
    VELT_NSWINDOW_SHOW(window);
    velt::RunLoop::current().runOnce(0);
    if (velt::is<NSView>(receiver)) VELT_NSVIEW_REMOVE(nil, receiver);
    VELT_NSWINDOW_CLOSE(window);
    velt::RunLoop::current().runOnce(0);
    const id value = sampleFor(row);
    if (row.set && !kNeverSent.contains(row.name)) {
        EXPECT_EQ("nothing", raised([&] { row.set(receiver, value); }));
    }
    if (row.get && !kNeverSent.contains(row.name)) {
        EXPECT_EQ("nothing", raised([&] { row.get(receiver); }));
    }
    VELT_NSWINDOW_CLOSE(window);
    velt::RunLoop::current().runOnce(0);
}

INSTANTIATE_TEST_SUITE_P(AllTables, WrapperTables, testing::ValuesIn(wrapperRows()), rowName);

TEST(WrapperTables, NameEachWrapperOnce) {
    std::set<std::pair<std::string, bool>> seen;
    for (const WrapperRow& row : wrapperRows()) {
        if (row.get) {
            EXPECT_TRUE(seen.insert({row.name, false}).second) << row.name;
        }
        if (row.set) {
            EXPECT_TRUE(seen.insert({row.name, true}).second) << row.name;
        }
    }
}
