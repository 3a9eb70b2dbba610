// What all wrappers have in common, tried on every row of every table.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/values.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <map>
#include <thread>

using namespace velt::test;
using velt::Ref;

namespace {

/// What a getter of each kind gives for nil.
const std::map<std::string, std::string> kZeros{
    {"Boolean", "c 0"},
    {"Integer", "q 0"},
    {"Unsigned", "Q 0"},
    {"Double", "d 0"},
    {"Single", "f 0"},
    {"Text", "nil"},
    {"MutableText", "nil"},
    {"RichText", "nil"},
    {"Object", "nil"},
    {"Point", "{CGPoint=dd} {0, 0}"},
    {"Size", "{CGSize=dd} {0, 0}"},
    {"Rect", "{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}"},
};

/// A value that every kind takes for which there is one.
const std::map<std::string, id> kSamples{
    {"Boolean", VELT_ID(BOOL{1})},
    {"Integer", VELT_ID(1L)},
    {"Unsigned", VELT_ID(1L)},
    {"Double", VELT_ID(0.5)},
    {"Single", VELT_ID(0.5F)},
    {"Text", str("text")},
    {"MutableText", str("text")},
    {"RichText", velt::make<NSAttributedString>(u"text")},
    {"Object", nil},
    {"Point", VELT_ID(NSPoint{1, 2})},
    {"Size", VELT_ID(NSSize{1, 2})},
    {"Rect", VELT_ID(NSRect{{1, 2}, {3, 4}})},
};

/// The kinds that refuse an object of no kind, and what they say.
const std::map<std::string, std::string> kRefusals{
    {"Boolean", "'Boolean' expected"},
    {"Integer", "'Integer' expected"},
    {"Unsigned", "'Integer' expected"},
    {"Double", "'Double' expected"},
    {"Single", "'Single' expected"},
    {"Point", "'Point' expected"},
    {"RichText", "'AttributedString' expected"},
    {"Size", "'Size' expected"},
    {"Rect", "'Rect' expected"},
};

using Getter = id (*)(const id&);
using Setter = id (*)(const id&, const id&);

id stranger() { return velt::make<NSObject>(); }

std::string unknown(const std::string& selector) {
    return "NSInvalidArgumentException: 'NSObject' does not understand '" + selector + "'";
}

template <class Call> void expectMainThreadOnly(const std::string& name, Call&& call) {
    EXPECT_EQ("NSInternalInconsistencyException: " + name +
                  " was called on another thread than the main one, to which windows and views belong",
              raised(call));
}

struct Row {
    std::string name, kind, getterSelector, setterSelector;
    Getter getter;
    Setter setter;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> all{
#define VELT_PROPERTY(function, kind, getter, setter)                                                                  \
    {"VELT_" #function, #kind, getter, setter, VELT_##function, VELT_##function},
#define VELT_OBJECT_PROPERTY(function, cast, getter, setter)                                                           \
    {"VELT_" #function, "", getter, setter, VELT_##function, VELT_##function},
#define VELT_ANY_PROPERTY(function, getter, setter)                                                                    \
    {"VELT_" #function, "Object", getter, setter, VELT_##function, VELT_##function},
#define VELT_GETTER(function, kind, getter) {"VELT_" #function, #kind, getter, "", VELT_##function, nullptr},
#define VELT_SETTER(function, kind, setter) {"VELT_" #function, #kind, "", setter, nullptr, VELT_##function},
#define VELT_OBJECT_SETTER(function, cast, setter) {"VELT_" #function, "", "", setter, nullptr, VELT_##function},
#define VELT_COMMAND(function, selector) {"VELT_" #function, "command", selector, "", VELT_##function, nullptr},
#define VELT_SELF_COMMAND(function, selector) VELT_COMMAND(function, selector)
#define VELT_NIL_COMMAND(function, selector) VELT_COMMAND(function, selector)
#define VELT_QUERY(function, kind, selector) VELT_SETTER(function, kind, selector)
#include "VELTRuntime/ui/buttons.def"
#include "VELTRuntime/ui/controls.def"
#include "VELTRuntime/ui/windows.def"
#define VELT_WRAPPER_TABLE
#include "VELTRuntime/ui/accessor_rows_end.h"
    };
    return all;
}

}  // namespace

TEST(Wrappers, GiveTheZeroOfTheirKindForNil) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.name);
        if (!row.getter) continue;
        const auto zero = kZeros.find(row.kind);
        EXPECT_VALUE(zero == kZeros.end() ? "nil" : zero->second, row.getter(nil));
    }
}

TEST(Wrappers, NameTheMessageThatAReceiverDoesNotUnderstand) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.name);
        if (row.getter) {
            EXPECT_EQ(unknown(row.getterSelector), raised([&] { row.getter(stranger()); }));
        }
        const auto sample = kSamples.find(row.kind);
        if (!row.setter || sample == kSamples.end()) continue;
        EXPECT_EQ(unknown(row.setterSelector), raised([&] { row.setter(stranger(), sample->second); }));
        EXPECT_EQ("nothing", raised([&] { row.setter(nil, sample->second); }));
    }
}

TEST(Wrappers, RefuseAValueOfAWrongKindBeforeTheReceiverHearsOfIt) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.name);
        if (!row.setter) continue;
        const auto refusal = kRefusals.find(row.kind);
        const bool isText = row.kind == "Text" || row.kind == "MutableText";  // everything has a text
        if (row.kind == "Object" || isText) continue;
        const std::string said = raised([&] { row.setter(stranger(), stranger()); });
        if (refusal != kRefusals.end()) {
            EXPECT_EQ(castFailure(refusal->second), said);
        } else {
            EXPECT_TRUE(said.starts_with("VLCastException: 'NS") && said.ends_with("' expected")) << said;
        }
    }
}

TEST(Wrappers, BelongToTheMainThread) {
    std::thread([] {
        const velt::ThreadScope scope;
        for (const Row& row : rows()) {
            SCOPED_TRACE(row.name);
            if (row.getter) expectMainThreadOnly(row.name, [&] { row.getter(nil); });
            const auto sample = kSamples.find(row.kind);
            if (row.setter && sample != kSamples.end()) {
                expectMainThreadOnly(row.name, [&] { row.setter(nil, sample->second); });
            }
        }
    }).join();
}
