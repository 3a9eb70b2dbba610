// Bindings: a property of one object that follows a value of another, and carries its own changes back.
#pragma once

#include "VELTRuntime/platform/object/observation.h"

namespace velt {

/// Binds the property `name` of an object to the value at a key path of another; a binding of that name is replaced.
/// The property takes the value at once and after every change; a change of the property sets the value, unless a
/// transformer without a way back stands between. Neither object is kept alive; the binding ends when either goes.
///
/// Options, a dictionary or nil:
///   NSNullPlaceholder               what the property is set to for nil
///   NSValueTransformerName          the transformer's name; NSValueTransformer: the transformer itself
///   NSRaisesForNotApplicableKeys    false: a value that has no such key counts as nil and is not set back
///
/// Raises "NSInvalidArgumentException" when either side is nil, a number, a string or data, or for an unknown
/// transformer; and what setting the property for the first time raises.
VELT_EXPORT void bindValue(const id& bound, std::string_view name, const id& observed, std::string_view keyPath,
                           const id& options);
/// Ends a binding; nothing happens when there is none.
VELT_EXPORT void unbindValue(const id& bound, std::string_view name);
/// What a property is bound to: a dictionary of NSObservedObject, NSObservedKeyPath and, if given, NSOptions; nil when
/// it is not bound.
VELT_EXPORT id bindingInfo(const id& bound, std::string_view name);

/// One binding, kept by the row of its bound object.
class ValueBinding : public std::enable_shared_from_this<ValueBinding> {
public:
    ValueBinding(std::string_view name, std::string_view keyPath, const id& options);

    const std::string& name() const { return name_; }
    /// Sets the property for the first time, then watches both sides.
    void begin(const id& bound, const id& observed);
    id info() const;
    /// The observations of its sides: of the observed object, and of the bound one when changes are carried back.
    std::vector<ObservationRef> observations() const;
    void visitOwned(OwnedVisitor& visitor);

private:
    id option(const id& name) const;
    id shownValue(const id& observed) const;
    void show(const id& bound, const id& observed) const;
    void followObserved(const id& bound, const id& observed) const;
    void followBound(const id& bound) const;
    bool carriesBack() const;
    id observedObject() const;

    const std::string name_, keyPath_;
    id options_, transformer_;
    bool raises_ = true;
    ObservationRef forward_, backward_;
};

/// What NSObject answers about bindings.
void describeValueBindings(ClassBuilder<NSObject>& c);

}  // namespace velt
