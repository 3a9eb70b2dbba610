// Classes as values, so that a program can keep one, ask it and let it make objects.
#pragma once

#include "VELTRuntime/platform/object/class.h"

namespace velt {

/// A class seen as a value. One a class, made by Class::object and kept as long as the process.
class ClassObject final : public NSObject {
public:
    explicit ClassObject(const Class& represented) : represented_(represented) {}

    static Class& entry();
    Class& isa() const override { return entry(); }
    /// The name of the class.
    id description() const override;
    id copy() const override { return id(const_cast<ClassObject*>(this)); }
    const Class& represented() const { return represented_; }
    static void describe(ClassBuilder<ClassObject>& c);

private:
    const Class& represented_;
};

/// The class that a value names: a class as it is, anything else by its text; null for an unknown name. nil has no
/// text and raises "VLException".
VELT_EXPORT const Class* toClass(const id& value);

/// The selector that a value names, by its text; nil raises "VLException".
VELT_EXPORT Selector toSelector(const id& value);

/// What NSObject answers about its class and what it can be asked.
void describeReflection(ClassBuilder<NSObject>& c);

}  // namespace velt
