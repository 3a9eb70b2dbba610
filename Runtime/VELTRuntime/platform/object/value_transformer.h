// Value transformers: how a binding turns an observed value into the one that is shown, and back.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <string_view>

/// A conversion of values. A program's own class overrides the members, or answers the messages of their names.
class VELT_EXPORT NSValueTransformer : public NSObject {
public:
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// The value as it is shown; the value itself unless the class says otherwise.
    virtual id transformedValue(const id& value) { return value; }
    /// The value that is shown as this one. Raises "NSInvalidArgumentException" in classes without a way back.
    virtual id reverseTransformedValue(const id& value);
    /// There is a way back; no unless the class says otherwise.
    virtual bool allowsReverseTransformation() const { return false; }

    /// Enters a transformer under a name; nil takes the name out.
    static void setForName(const id& transformer, std::string_view name);
    /// The transformer of a name: one that was entered, "NSNegateBoolean", "NSIsNil" or "NSIsNotNil", or a new one of
    /// the transformer class of that name, which is then kept; nil when there is none.
    static id forName(std::string_view name);
    static void describe(velt::ClassBuilder<NSValueTransformer>& c);
};
