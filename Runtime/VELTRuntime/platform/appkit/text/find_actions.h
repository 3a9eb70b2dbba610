// The numbers by which programs ask a text view to find; menu items carry them as their tags.
#pragma once

namespace velt {

enum FindAction : long {
    kShowFindBar = 1,
    kFindNext = 2,
    kFindPrevious = 3,
    kReplaceAll = 4,
    kReplace = 5,
    kReplaceAndFind = 6,
    kUseSelection = 7,
    kReplaceAllInSelection = 8,
    kSelectAllMatches = 9,
    kSelectAllMatchesInSelection = 10,
};

}  // namespace velt
