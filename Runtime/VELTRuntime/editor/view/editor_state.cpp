#include "VELTRuntime/editor/view/editor_state.h"

#include "VELTRuntime/editor/view/word_sets.h"
#include "VELTRuntime/editor/word_characters.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"

constinit id dicKeywordsColour;
constinit id dicBuiltinsColour;
constinit id dicTypesColour;
constinit id dicStringsColour;
constinit id dicCommentsColour;
constinit id dicBreakpointColour;
constinit id keywords;
constinit id builtins;
constinit id types;
constinit id keywordStartCharacterSet;
constinit id keywordEndCharacterSet;
constinit id firstString;
constinit id firstSingleLineComment;

namespace velt {

namespace {

struct ColourRow {
    id& attributes;
    const id& (*name)();
    double red, green, blue;
};
const ColourRow kColours[] = {
    {dicKeywordsColour, attribute::foregroundColor, 0.0, 0.0, 1.0},
    {dicBuiltinsColour, attribute::foregroundColor, 0.5, 0.0, 0.5},
    {dicTypesColour, attribute::foregroundColor, 0.5, 0.0, 0.5},
    {dicStringsColour, attribute::foregroundColor, 0.0, 0.4, 1.0},
    {dicCommentsColour, attribute::foregroundColor, 0.0, 0.5, 0.0},
    {dicBreakpointColour, attribute::backgroundColor, 1.0, 0.4, 0.4},
};

}  // namespace

void makeEditorState(const WordLists& lists) {
    static bool isMade = false;
    if (std::exchange(isMade, true)) return;
    for (const ColourRow& row : kColours) {
        id entry[] = {row.name(), NSColor::deviceRgb(row.red, row.green, row.blue, 1.0)};
        row.attributes = make<NSDictionary>(MovedValues{entry});
    }
    keywords = make<NSSet>(lists.keywords);
    builtins = make<NSSet>(lists.builtins);
    types = make<NSSet>(lists.types);
    keywordStartCharacterSet = make<NSCharacterSet>(startsWord);
    keywordEndCharacterSet = make<NSCharacterSet>(endsWord);
    firstString = "\""_v;
    firstSingleLineComment = "'"_v;
}

const id& attributesOfInk(Ink ink) {
    switch (ink) {
    case Ink::None: break;
    case Ink::Keyword: return dicKeywordsColour;
    case Ink::Builtin: return dicBuiltinsColour;
    case Ink::Type: return dicTypesColour;
    case Ink::String: return dicStringsColour;
    case Ink::Comment: return dicCommentsColour;
    case Ink::Breakpoint: return dicBreakpointColour;
    }
    return nil;
}

}  // namespace velt
