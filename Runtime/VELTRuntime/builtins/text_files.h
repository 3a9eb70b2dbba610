// Whole texts in files and at URLs.
#pragma once

#include "VELTRuntime/values/value.h"

/// The whole text at a location (a file path or URL), which is UTF-8, as a new string. Raises "VLException" with
/// "ReadString failed" when it cannot be read or is not UTF-8.
VELT_EXPORT id VELT_READSTRING(const id& location);
/// Writes a text as UTF-8, atomically. Boolean: whether it was written.
VELT_EXPORT id VELT_WRITESTRING(const id& text, const id& location);
