// Text fields, labels, and the fields for secrets, searches, tokens and choices.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/text_fields.def"
#include "VELTRuntime/ui/accessor_declarations.h"

// New fields, whose delegate is their owner. Their action is the owner's method of that name, if the owner has it.

/// A text field that only shows its text: not editable, not selectable, without a frame.
VELT_EXPORT id VELT_LABEL_INIT(const id& owner, const char* action);
/// A field with a line of text, which a person may edit.
VELT_EXPORT id VELT_NSTEXTFIELD_INIT(const id& owner, const char* action);
/// A field for a secret: it shows a dot for each character.
VELT_EXPORT id VELT_NSSECURETEXTFIELD_INIT(const id& owner, const char* action);
/// A field for what a person looks for.
VELT_EXPORT id VELT_NSSEARCHFIELD_INIT(const id& owner, const char* action);
/// A field whose text falls into tokens at its commas.
VELT_EXPORT id VELT_NSTOKENFIELD_INIT(const id& owner, const char* action);

/// Whether the action of a search field goes out on Return alone; the field's cell knows. A Boolean.
VELT_EXPORT id VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(const id& field);
VELT_EXPORT id VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(const id& field, const id& flag);
/// A combo box with an empty list; it has no delegate.
VELT_EXPORT id VELT_NSCOMBOBOX_INIT(const id& owner, const char* action);
