// Matrices.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/matrices.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A radio matrix of no size and without cells; its action as for controls.
VELT_EXPORT id VELT_NSMATRIX_INIT(const id& owner, const char* action);
/// Renews the matrix to one row of as many columns as the array has cells, adds the cells as a further row, and sizes
/// the matrix to its cells. Raises "'NSMutableArray' expected" for what is no array, "'NSCell' expected" for an
/// array of something else. nil.
VELT_EXPORT id VELT_NSMATRIX_ADDROW(const id& matrix, const id& cells);
