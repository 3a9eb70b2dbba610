// The exported globals that are set when the library is loaded, and those that start as nil or zero.
#pragma once

#include "VELTRuntime/values/value.h"

/// The shared service objects.
VELT_EXPORT extern id VELT_id_NSPROCESSINFO;
VELT_EXPORT extern id VELT_id_NSUSERDEFAULTS;
VELT_EXPORT extern id VELT_id_NSNOTIFICATIONCENTER;
VELT_EXPORT extern id VELT_id_NSBUNDLE;
VELT_EXPORT extern id VELT_id_FILE;

/// The open panel's options: files can be chosen, folders, aliases and several files cannot.
VELT_EXPORT extern id VELT_idOPENPANEL_CANCHOOSEFILES;
VELT_EXPORT extern id VELT_idOPENPANEL_CANCHOOSEDIRECTORIES;
VELT_EXPORT extern id VELT_idOPENPANEL_RESOLVESALIASES;
VELT_EXPORT extern id VELT_idOPENPANEL_ALLOWSMULTIPLESELECTION;
VELT_EXPORT extern id VELT_idOPENPANEL_DIRECTORY;
VELT_EXPORT extern id VELT_idOPENPANEL_FILE;
VELT_EXPORT extern id VELT_idOPENPANEL_TYPES;
VELT_EXPORT extern id VELT_idOPENPANEL_FILENAMES;
VELT_EXPORT extern id VELT_idOPENPANEL_URLS;

/// nil at the start; they belong to the program.
VELT_EXPORT extern id VELT_idAPPLICATION;
VELT_EXPORT extern id VELT_idFIRSTRESPONDER;
/// The empty menu that VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP makes; nil before.
VELT_EXPORT extern id VELT_mSuppressSpotlightForHelp;

/// The random generator's state, and the last value that it gave; 0.0 means that it was never seeded. Both belong to
/// the main thread.
VELT_EXPORT extern long VELT_lStartValue;
VELT_EXPORT extern double VELT_dLastRND;
