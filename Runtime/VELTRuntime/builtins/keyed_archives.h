// Whole object graphs in files and at URLs, as keyed archives.
#pragma once

#include "VELTRuntime/values/value.h"

/// The root object of the keyed archive at a location (a file path or URL). Raises "VLException" with "ReadKeyArchived
/// failed" when there is none that can be read, and "VLCastException" with "'String' expected" for what is no location.
/// A data value is read as an archive itself, with the same failure; but then a good one fails too, with
/// "NSInvalidArgumentException", since it is taken for a location after all.
VELT_EXPORT id VELT_READKEYEDARCHIVE(const id& source);
/// Writes an object and all that it refers to as a keyed archive, atomically. Boolean: whether it was written. With a
/// data value as its destination it only tells whether the object can be archived. Raises
/// "NSInvalidArgumentException" naming the class of an object that cannot be archived, and "VLCastException" with
/// "'String' expected" for another destination.
VELT_EXPORT id VELT_WRITEKEYEDARCHIVE(const id& object, const id& destination);
