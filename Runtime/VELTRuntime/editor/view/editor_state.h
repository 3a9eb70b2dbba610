// What all editor views share: the colours, and the words and characters by which they are laid. All of it is made in
// the first colouring of any view, from that view's lists, and stays for the life of the process.
//
// Some of the names are words that programs like for their own; so who wants them includes this header by itself.
#pragma once

#include "VELTRuntime/editor/vocabulary.h"
#include "VELTRuntime/values/value.h"

/// Each an attribute dictionary with one colour.
VELT_EXPORT extern id dicKeywordsColour;
VELT_EXPORT extern id dicBuiltinsColour;
VELT_EXPORT extern id dicTypesColour;
VELT_EXPORT extern id dicStringsColour;
VELT_EXPORT extern id dicCommentsColour;
VELT_EXPORT extern id dicBreakpointColour;

/// Sets of words.
VELT_EXPORT extern id keywords;
VELT_EXPORT extern id builtins;
VELT_EXPORT extern id types;

/// Sets of the characters with which words begin and at which they end.
VELT_EXPORT extern id keywordStartCharacterSet;
VELT_EXPORT extern id keywordEndCharacterSet;

/// What opens and closes a string.
VELT_EXPORT extern id firstString;
/// What begins a comment.
VELT_EXPORT extern id firstSingleLineComment;

namespace velt {

/// Makes all of the above, once.
void makeEditorState(const WordLists& lists);

/// The attributes of an ink that the editor itself lays; nil for Ink::None.
const id& attributesOfInk(Ink ink);

}  // namespace velt
