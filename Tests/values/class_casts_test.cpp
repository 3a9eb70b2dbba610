#include "VELTRuntime/values/class_casts.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "support/values.h"

#include <algorithm>
#include <cctype>
#include <map>

using namespace velt::test;

namespace {

/// An object of a class that is known by name, as the library that fills the class would make it.
class Stand : public NSObject {
public:
    explicit Stand(std::string_view className) : Stand(velt::Class::known(className)) {}
    explicit Stand(velt::Class& cls) : class_(cls) {}
    velt::Class& isa() const override { return class_; }

private:
    velt::Class& class_;
};

id instance(std::string_view className) { return velt::make<Stand>(className); }

/// An object of a class that a program derives from a known one.
id derivedInstance(const std::string& className) {
    velt::Class& parent = velt::Class::known(className);
    velt::Class& derived = velt::Class::declare(("Own" + className).c_str(), &parent, typeid(Stand), nullptr, nullptr);
    return velt::make<Stand>(derived);
}

struct Row {
    const char* suffix;
    id (*call)(const id&);
    const char* className;
    bool nilPasses;
};

constexpr bool NilPasses = true, NilRejected = false;
const Row kCasts[] = {
#define VELT_CLASS_CAST(suffix, cls, nilRule) {#suffix, VELT_C##suffix, #cls, nilRule},
#include "VELTRuntime/values/class_casts.def"
};
const Row kChecks[] = {
#define VELT_CLASS_CHECK(suffix, cls) {#suffix, VELT__##suffix, #cls, true},
#include "VELTRuntime/values/class_casts.def"
};

std::vector<id> valuesOfEveryKind() {
    return {integer(1),
            integer(LONG_MAX),
            natural(1),
            real(1.5),
            real(1e100),
            single(1.5f),
            shortNumber(1),
            byte(1),
            boolean(true),
            charCode(65),
            str("a"),
            "a"_v,
            point(1, 2),
            size(1, 2),
            rect(1, 2, 3, 4),
            range(1, 2),
            data("x"),
            mutableData("x"),
            array(),
            frozenArray(integer(1)),
            emptyDictionary(),
            velt::make<NSDictionary>(),
            velt::make<NSAttributedString>(u"a"),
            velt::make<NSObject>(),
            instance("NSWindow"),
            instance("NSPanel"),
            instance("NSButton"),
            instance("NSPopUpButton"),
            instance("VLTextView"),
            instance("NSMenuItem")};
}

void expectRowTellsClassesApart(const Row& row) {
    const velt::Class& cls = velt::Class::known(row.className);
    const std::string reason = "'" + std::string(row.className) + "' expected";
    std::vector<id> values = valuesOfEveryKind();
    values.push_back(instance(row.className));
    values.push_back(derivedInstance(row.className));
    for (const id& value : values) {
        if (velt::isKindOf(value, cls)) {
            EXPECT_TRUE(row.call(value) == value) << row.suffix << " " << show(value);
        } else {
            EXPECT_CAST_FAILURE(reason, row.call(value)) << row.suffix << " " << show(value);
        }
    }
    if (row.nilPasses)
        EXPECT_TRUE(row.call(nil).isNil()) << row.suffix;
    else
        EXPECT_CAST_FAILURE(reason, row.call(nil)) << row.suffix;
}

}  // namespace

TEST(ClassCasts, PassInstancesAndRejectOthersByName) {
    for (const Row& row : kCasts) expectRowTellsClassesApart(row);
}

TEST(ClassChecks, PassInstancesAndNilAndRejectOthersByName) {
    for (const Row& row : kChecks) expectRowTellsClassesApart(row);
}

TEST(ClassCasts, RejectNilForResponderTaskEditorAndToolbarItemOnly) {
    EXPECT_CAST_FAILURE("'VLTask' expected", VELT_CVLTASK(nil));
    EXPECT_CAST_FAILURE("'NSResponder' expected", VELT_CNSRESPONDER(nil));
    EXPECT_CAST_FAILURE("'VLTextView' expected", VELT_CVLTEXTVIEW(nil));
    EXPECT_CAST_FAILURE("'NSToolbarItem' expected", VELT_CNSTOOLBARITEM(nil));
    EXPECT_TRUE(VELT_CNSWINDOW(nil).isNil());
    EXPECT_EQ(4, std::count_if(std::begin(kCasts), std::end(kCasts), [](const Row& row) { return !row.nilPasses; }));
}

TEST(ClassCasts, TestTheClassThatTheirNameSays) {
    std::map<std::string, std::string> kinds = {{"ARRAY", "NSMutableArray"},
                                                {"CIRCULARPROGRESSINDICATOR", "NSProgressIndicator"},
                                                {"CIRCULARSLIDER", "NSSlider"},
                                                {"DICTIONARY", "NSMutableDictionary"},
                                                {"HORIZONTALLINE", "NSBox"},
                                                {"HORIZONTALSPLITVIEW", "NSSplitView"},
                                                {"INDETERMINATEPROGRESSINDICATOR", "NSProgressIndicator"},
                                                {"LABEL", "NSTextField"},
                                                {"VERTICALLINE", "NSBox"},
                                                {"VERTICALSPLITVIEW", "NSSplitView"}};
    for (const char* button : {"BEVELBUTTON", "CHECKBOX", "DISCLOSUREBUTTON", "DISCLOSURETRIANGLE", "GRADIENTBUTTON",
                               "HELPBUTTON", "PUSHBUTTON", "RADIOBUTTON", "RECESSEDBUTTON", "ROUNDBUTTON",
                               "ROUNDEDRECTBUTTON", "ROUNDEDTEXTUREDBUTTON", "SQUAREBUTTON", "TEXTUREDBUTTON"}) {
        kinds[button] = "NSButton";
    }
    std::vector<Row> rows(std::begin(kCasts), std::end(kCasts));
    rows.insert(rows.end(), std::begin(kChecks), std::end(kChecks));
    for (const Row& row : rows) {
        if (const auto kind = kinds.find(row.suffix); kind != kinds.end()) {
            EXPECT_EQ(kind->second, row.className) << row.suffix;
        } else {
            std::string capitals = row.className;
            std::transform(capitals.begin(), capitals.end(), capitals.begin(), ::toupper);
            EXPECT_EQ(row.suffix, capitals);
        }
    }
}

TEST(ArrayCast, RejectsWhatTheAssignmentCheckTakes) {
    const id frozen = frozenArray(integer(1));
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT_CARRAY(frozen));
    EXPECT_TRUE(VELT__ARRAY(frozen) == frozen);
    EXPECT_TRUE(VELT__NSMUTABLEARRAY(frozen) == frozen);
    EXPECT_CAST_FAILURE("'NSMutableArray' expected", VELT__ARRAY(str("x")));
    const id dictionary = velt::make<NSDictionary>();
    EXPECT_TRUE(VELT__DICTIONARY(dictionary) == dictionary);
    EXPECT_TRUE(VELT__NSMUTABLEDICTIONARY(dictionary) == dictionary);
    EXPECT_CAST_FAILURE("'NSMutableDictionary' expected", VELT__DICTIONARY(array()));
    const id bytes = data("x");
    EXPECT_TRUE(VELT__NSMUTABLEDATA(bytes) == bytes);
    EXPECT_CAST_FAILURE("'NSMutableData' expected", VELT__NSMUTABLEDATA(str("x")));
}

TEST(EditorViewCheck, TakesAnyTextView) {
    const id textView = instance("NSTextView");
    EXPECT_TRUE(VELT__VLTEXTVIEW(textView) == textView);
    EXPECT_TRUE(VELT__VLTEXTVIEW(nil).isNil());
    EXPECT_CAST_FAILURE("'VLTextView' expected", VELT__VLTEXTVIEW(instance("NSView")));
    EXPECT_CAST_FAILURE("'VLTextView' expected", VELT_CVLTEXTVIEW(textView));
}
