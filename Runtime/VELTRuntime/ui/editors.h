// The source editor.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/editors.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A new editor view whose delegate is the target; its action is the target's method of that name, if it has it.
VELT_EXPORT id VELT_VLTEXTVIEW_INIT(const id& target, const char* action);

/// Shows the file at a path, keeps the path as the file's name and colours the lines that are seen. True as a Boolean,
/// False for nil; raises "VLException" with "TextView.Load failed" when the file cannot be read or is not UTF-8.
VELT_EXPORT id VELT_VLTEXTVIEW_LOAD(const id& view, const id& path);
/// Keeps the path as the file's name and writes the text there. Whether it could, as a Boolean.
VELT_EXPORT id VELT_VLTEXTVIEW_SAVE(const id& view, const id& path);
/// Colours the lines that are seen.
VELT_EXPORT id VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(const id& view);

/// Selects and shows the next or previous match of a text. Whether there is one, as a Boolean; 0 as an Integer for nil,
/// an empty text or nothing to look for.
VELT_EXPORT id VELT_VLTEXTVIEW_FINDNEXT(const id& view, const id& text);
VELT_EXPORT id VELT_VLTEXTVIEW_FINDPREVIOUS(const id& view, const id& text);
/// Replaces the selection and selects what came in; False as a Boolean when nothing is selected.
VELT_EXPORT id VELT_VLTEXTVIEW_FINDREPLACE(const id& view, const id& replacement);
/// The same, then finds the next match; False when nothing was replaced.
VELT_EXPORT id VELT_VLTEXTVIEW_FINDREPLACEFIND(const id& view, const id& text, const id& replacement);
/// Replaces every match, which is undone in one step. The number of replacements as an Integer.
VELT_EXPORT id VELT_VLTEXTVIEW_FINDREPLACEALL(const id& view, const id& text, const id& replacement);

/// Prints the text, after asking the person when the flag is set; the header of each page names the project and the
/// file.
VELT_EXPORT id VELT_VLTEXTVIEW_PRINTSHOWINGPRINTPANEL(const id& view, const id& projectName, const id& projectFile,
                                                      const id& showsPanel);
