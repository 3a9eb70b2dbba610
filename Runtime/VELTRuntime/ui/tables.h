// Table views and their columns.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/tables.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// A table view of no size and without columns. Its owner is its delegate, its data source and its target in every
/// case; its action is the owner's method of that name, if the owner has it.
VELT_EXPORT id VELT_NSTABLEVIEW_INIT(const id& owner, const char* action);
/// A column of that identifier, read as ASCII.
VELT_EXPORT id VELT_NSTABLECOLUMN_INIT(const id& owner, const char* identifier);
/// A column of an identifier and a title of its header, both texts; the zero-terminated one counts for nothing.
VELT_EXPORT id VELT_NSTABLECOLUMN_INIT(const id& owner, const char* ignored, const id& identifier, const id& title);

/// Always a new empty string.
VELT_EXPORT id VELT_NSTABLEVIEW_DOUBLEACTIONNAME(const id& table);
/// Calls a method of the table's target for a double click: the one of that name with a colon behind it, or else the
/// one of that name; nothing changes when the target has neither. nil.
VELT_EXPORT id VELT_NSTABLEVIEW_DOUBLEACTIONNAME(const id& table, const id& name);
/// Selects one row in place of those that are selected; none when there is no such row. nil.
VELT_EXPORT id VELT_NSTABLEVIEW_SELECTROW(const id& table, const id& row);

/// Whether a column is not hidden, a Boolean.
VELT_EXPORT id VELT_NSTABLECOLUMN_VISIBLE(const id& column);
/// Shows or hides a column. nil.
VELT_EXPORT id VELT_NSTABLECOLUMN_VISIBLE(const id& column, const id& flag);
