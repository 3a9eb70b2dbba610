// The source position record and the debugger's variables, which compiled programs share with the library.
#pragma once

#include "VELTRuntime/values/value.h"

/// File, scope and line (as text) of the statement that runs now; empty before the first one. The pointers are
/// the caller's: the texts live as long as the program. They belong to the main thread and are not synchronised.
VELT_EXPORT extern const char* META_acCurrentFile;
VELT_EXPORT extern const char* META_acCurrentScope;
VELT_EXPORT extern const char* META_acCurrentLine;

/// The debugger's variables; no function of the library reads or writes them.
VELT_EXPORT extern BOOL bDEBUG;
VELT_EXPORT extern BOOL bDEBUG_STEPINTO;
VELT_EXPORT extern int nBreakpoints;
VELT_EXPORT extern int nStepOneLine;

/// Records the position of the statement that follows and returns True; the fourth text is ignored. Never fails.
VELT_INLINE_EXPORT id VELTS(const char* file, const char* scope, const char* line, const char*) {
    META_acCurrentFile = file;
    META_acCurrentScope = scope;
    META_acCurrentLine = line;
    return id::adopt(velt::booleanWord(true));
}

/// The current file, scope and line text, each as a new string decoded as ASCII.
VELT_EXPORT id VeltF();
VELT_EXPORT id VeltS();
VELT_EXPORT id VeltL();
/// Does nothing; a target for calls that a debugger can stop at.
VELT_EXPORT void VeltB();
