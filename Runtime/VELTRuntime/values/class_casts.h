// Casts and assignment checks of classes, one table row each.
#pragma once

#include "VELTRuntime/platform/object/object.h"

// VELT_C<CLASS>: the value itself when it is an instance of the class or of a subclass; raises "VLCastException" with
// "'Class' expected" for anything else. nil passes, but for the responder, task, editor view and toolbar item.
#define VELT_CLASS_CAST(suffix, cls, nilRule) VELT_EXPORT id VELT_C##suffix(const id& value);
// VELT__<CLASS>: the same for a value that is stored in a variable of that class; nil always passes.
#define VELT_CLASS_CHECK(suffix, cls) VELT_EXPORT id VELT__##suffix(const id& value);
#include "VELTRuntime/values/class_casts.def"

/// Accepts the editor view and any text view, whatever the reason says. Programs rely on it.
VELT_EXPORT id VELT__VLTEXTVIEW(const id& value);
/// Accept any array, any dictionary and any data, those that cannot be changed too; raise "'NSMutableArray' expected"
/// and so on. Programs rely on it.
VELT_EXPORT id VELT__ARRAY(const id& value);
VELT_EXPORT id VELT__NSMUTABLEARRAY(const id& value);
VELT_EXPORT id VELT__DICTIONARY(const id& value);
VELT_EXPORT id VELT__NSMUTABLEDICTIONARY(const id& value);
VELT_EXPORT id VELT__NSMUTABLEDATA(const id& value);
