// Arrays, dictionaries and data as files and at URLs.
#pragma once

#include "VELTRuntime/values/value.h"

/// The array in the property list at a location (a file path or URL); it cannot be changed. Raises "VLException" with
/// "ReadArray failed" when it cannot be read, is no property list or holds something else.
VELT_EXPORT id VELT_READARRAY(const id& location);
/// The same for a dictionary, with "ReadDictionary failed"; two names of one function.
VELT_EXPORT id VELT_READDICTIONARY(const id& location);
VELT_EXPORT id VELT_PLIST(const id& location);
/// The bytes at a location as data. Raises "VLException" with "ReadData failed" when they cannot be read.
VELT_EXPORT id VELT_READDATA(const id& location);

/// Writes an array as an XML property list, atomically. Boolean: whether it was written; False, and nothing written,
/// for an array that holds what a property list cannot. Raises "VLCastException" with "'Array' expected", then
/// "'String' expected" for arguments of other kinds.
VELT_EXPORT id VELT_WRITEARRAY(const id& array, const id& location);
/// The same for a dictionary: "'Dictionary' expected".
VELT_EXPORT id VELT_WRITEDICTIONARY(const id& dictionary, const id& location);
/// Writes the bytes of data, atomically. Boolean: whether they were written. Raises "'Data' expected", then "'String'
/// expected".
VELT_EXPORT id VELT_WRITEDATA(const id& data, const id& location);
