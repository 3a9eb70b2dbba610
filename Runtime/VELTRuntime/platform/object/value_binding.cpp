#include "VELTRuntime/platform/object/value_binding.h"

#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/departures.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/value_transformer.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

/// The bindings that carry a value on this thread at the moment, each as often as it does.
thread_local std::vector<const ValueBinding*> carrying;

class Carrying {
public:
    explicit Carrying(const ValueBinding& binding) { carrying.push_back(&binding); }
    ~Carrying() { carrying.pop_back(); }
    Carrying(const Carrying&) = delete;
    Carrying& operator=(const Carrying&) = delete;
};

/// With the table's lock held; the caller keeps the binding meanwhile.
void endBinding(const ValueBinding& binding) {
    for (const ObservationRef& observation : binding.observations()) endObservation(observation);
}

long depth(const ValueBinding& binding) { return std::count(carrying.begin(), carrying.end(), &binding); }

}  // namespace

ValueBinding::ValueBinding(std::string_view name, std::string_view keyPath, const id& options)
    : name_(name), keyPath_(keyPath), options_(options) {
    transformer_ = option("NSValueTransformer"_v);
    const id transformerName = option("NSValueTransformerName"_v);
    if (transformer_.isNil() && !transformerName.isNil()) {
        const std::string wanted = utf8(VELT_CSTRING(transformerName));
        transformer_ = NSValueTransformer::forName(wanted);
        if (transformer_.isNil()) raise(kInvalidArgumentException, "no value transformer is named '" + wanted + "'");
    }
    const id raises = option("NSRaisesForNotApplicableKeys"_v);
    raises_ = raises.isNil() || VELT_CBOOL(raises);
}

id ValueBinding::option(const id& name) const {
    const NSDictionary* options = dictionaryOf(options_);
    return options ? options->objectForKey(name) : id();
}

void ValueBinding::visitOwned(OwnedVisitor& visitor) {
    visitor.visit(options_);
    visitor.visit(transformer_);
}

std::vector<ObservationRef> ValueBinding::observations() const {
    std::vector<ObservationRef> both;
    for (const ObservationRef& side : {forward_, backward_}) {
        if (side) both.push_back(side);
    }
    return both;
}

bool ValueBinding::carriesBack() const {
    return transformer_.isNil() || VELT_CBOOL(send(transformer_, VELT_SELECTOR("allowsReverseTransformation")));
}

id ValueBinding::observedObject() const {
    const std::lock_guard lock(AttachedTable::shared().mutex());
    return shareIfAlive(forward_->root);
}

id ValueBinding::shownValue(const id& observed) const {
    id value;
    try {
        value = valueForKeyPath(observed, keyPath_);
    } catch (const NSException& exception) {
        if (raises_ || exception.name() != kUnknownKeyException) throw;
    }
    if (!transformer_.isNil()) value = send(transformer_, VELT_SELECTOR("transformedValue:"), value);
    return value.isNil() ? option("NSNullPlaceholder"_v) : value;
}

void ValueBinding::show(const id& bound, const id& observed) const {
    const Carrying scope(*this);
    setValueForKey(bound, name_, shownValue(observed));
}

void ValueBinding::followObserved(const id& bound, const id& observed) const {
    // The value came from the property itself: it is set again only when the object made something else of it, and
    // only once, or two bindings that contradict each other would never rest.
    const long carried = depth(*this);
    if (carried > 1 || (carried == 1 && isEqual(shownValue(observed), valueForKey(bound, name_)))) return;
    show(bound, observed);
}

void ValueBinding::followBound(const id& bound) const {
    if (depth(*this) > 0) return;
    const id observed = observedObject();
    id value = valueForKey(bound, name_);
    if (!transformer_.isNil()) value = send(transformer_, VELT_SELECTOR("reverseTransformedValue:"), value);
    const Carrying scope(*this);
    try {
        setValueForKeyPath(observed, keyPath_, value);
    } catch (const NSException& exception) {
        if (raises_ || exception.name() != kUnknownKeyException) throw;
    }
}

void ValueBinding::begin(const id& bound, const id& observed) {
    show(bound, observed);
    const std::weak_ptr<ValueBinding> weak = weak_from_this();
    forward_ = std::make_shared<Observation>(observed.object(), bound.object(), keyPath_, 0);
    forward_->binding = weak;
    forward_->endsAtUnknownKey = !raises_;
    forward_->reaction = [weak](const id& follower, const id& root) {
        if (const auto binding = weak.lock()) binding->followObserved(follower, root);
    };
    if (carriesBack()) {
        backward_ = std::make_shared<Observation>(bound.object(), bound.object(), name_, 0);
        backward_->reaction = [weak](const id& changed, const id&) {
            if (const auto binding = weak.lock()) binding->followBound(changed);
        };
    }
    beginObservation(forward_, observed);
    if (!backward_) return;
    try {
        beginObservation(backward_, bound);
    } catch (...) {
        const std::lock_guard lock(AttachedTable::shared().mutex());
        endObservation(forward_);
        throw;
    }
}

id ValueBinding::info() const {
    Ref<NSMutableDictionary> info = make<NSMutableDictionary>();
    if (const id observed = observedObject()) info->setObject(observed, "NSObservedObject"_v);
    info->setObject(string(keyPath_), "NSObservedKeyPath"_v);
    if (!options_.isNil()) info->setObject(options_, "NSOptions"_v);
    return info;
}

void bindValue(const id& bound, std::string_view name, const id& observed, std::string_view keyPath,
               const id& options) {
    requireObservable(bound, "be bound");
    requireObservable(observed, "be observed");
    const auto binding = std::make_shared<ValueBinding>(name, keyPath, options);
    unbindValue(bound, name);
    binding->begin(bound, observed);
    std::shared_ptr<ValueBinding> meanwhile;  // made of the same name while the property was set
    AttachedTable& table = AttachedTable::shared();
    const std::lock_guard lock(table.mutex());
    meanwhile = std::exchange(table.row(bound.object()).bindings[std::string(name)], binding);
    if (meanwhile) endBinding(*meanwhile);
}

void unbindValue(const id& bound, std::string_view name) {
    if (!isObservable(bound)) return;
    std::shared_ptr<ValueBinding> binding;
    AttachedTable& table = AttachedTable::shared();
    {
        const std::lock_guard lock(table.mutex());
        Attached* row = table.find(bound.object());
        if (!row) return;
        const auto found = row->bindings.find(name);
        if (found == row->bindings.end()) return;
        binding = std::move(found->second);
        row->bindings.erase(found);
        endBinding(*binding);
        table.tidy(bound.object());
    }
}

id bindingInfo(const id& bound, std::string_view name) {
    if (!isObservable(bound)) return nil;
    std::shared_ptr<ValueBinding> binding;
    {
        AttachedTable& table = AttachedTable::shared();
        const std::lock_guard lock(table.mutex());
        const Attached* row = table.find(bound.object());
        if (!row) return nil;
        const auto found = row->bindings.find(name);
        if (found == row->bindings.end()) return nil;
        binding = found->second;
    }
    return binding->info();
}

void describeValueBindings(ClassBuilder<NSObject>& c) {
    c.method("bind:toObject:withKeyPath:options:",
             [](const id& self, const id* a) {
                 bindValue(self, keyText(a[0]), a[1], keyText(a[2]), a[3]);
                 return id();
             })
        .method("unbind:",
                [](const id& self, const id* a) {
                    unbindValue(self, keyText(a[0]));
                    return id();
                })
        .method("infoForBinding:", [](const id& self, const id* a) { return bindingInfo(self, keyText(a[0])); });
}

}  // namespace velt
