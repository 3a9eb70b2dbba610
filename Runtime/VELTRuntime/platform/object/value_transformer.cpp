#include "VELTRuntime/platform/object/value_transformer.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <map>

namespace {

bool isTrue(const id& value) { return !value.isNil() && VELT_CBOOL(value); }

/// The transformers that every program has; a negation is its own way back.
class StandardTransformer final : public NSValueTransformer {
public:
    enum class Way { OneWay, BothWays };
    StandardTransformer(id (*transform)(const id&), Way way) : transform_(transform), way_(way) {}
    id transformedValue(const id& value) override { return transform_(value); }
    id reverseTransformedValue(const id& value) override {
        return way_ == Way::BothWays ? transform_(value) : NSValueTransformer::reverseTransformedValue(value);
    }
    bool allowsReverseTransformation() const override { return way_ == Way::BothWays; }

private:
    id (*transform_)(const id&);
    Way way_;
};

struct Registry {
    std::mutex mutex;
    std::map<std::string, id, std::less<>> byName;

    Registry() {
        using Way = StandardTransformer::Way;
        enter(
            "NSNegateBoolean", [](const id& value) { return velt::boxResult(!isTrue(value)); }, Way::BothWays);
        enter(
            "NSIsNil", [](const id& value) { return velt::boxResult(value.isNil()); }, Way::OneWay);
        enter(
            "NSIsNotNil", [](const id& value) { return velt::boxResult(!value.isNil()); }, Way::OneWay);
    }
    void enter(const char* name, id (*transform)(const id&), StandardTransformer::Way way) {
        byName.emplace(name, velt::make<StandardTransformer>(transform, way));
    }
};

Registry& registry() {
    static Registry& instance = *new Registry;  // outlives every other static object
    return instance;
}

}  // namespace

velt::Class& NSValueTransformer::entry() {
    static velt::Class& cls = velt::declareClass<NSValueTransformer>("NSValueTransformer", &NSObject::entry());
    return cls;
}

namespace {
// The class answers by name before any object of it was made.
[[maybe_unused]] const velt::Class& entered = NSValueTransformer::entry();
}  // namespace

id NSValueTransformer::reverseTransformedValue(const id&) {
    velt::raise(velt::kInvalidArgumentException, "'" + isa().name() + "' has no reverse transformation");
}

void NSValueTransformer::setForName(const id& transformer, std::string_view name) {
    NSValueTransformer* entering = velt::to<NSValueTransformer>(transformer);
    id replaced;  // dropped when the lock is free again
    const std::lock_guard lock(registry().mutex);
    if (entering) {
        replaced = std::exchange(registry().byName[std::string(name)], transformer);
    } else if (const auto found = registry().byName.find(name); found != registry().byName.end()) {
        replaced = std::move(found->second);
        registry().byName.erase(found);
    }
}

id NSValueTransformer::forName(std::string_view name) {
    {
        const std::lock_guard lock(registry().mutex);
        if (const auto found = registry().byName.find(name); found != registry().byName.end()) return found->second;
    }
    const velt::Class* cls = velt::Class::named(name);
    if (!cls || !cls->isKindOf(entry())) return nil;
    const id made = cls->newObject();
    const std::lock_guard lock(registry().mutex);
    return registry().byName.try_emplace(std::string(name), made).first->second;
}

void NSValueTransformer::describe(velt::ClassBuilder<NSValueTransformer>& c) {
    using namespace velt;
    c.method("transformedValue:", &NSValueTransformer::transformedValue)
        .method("reverseTransformedValue:", &NSValueTransformer::reverseTransformedValue)
        .method("allowsReverseTransformation", &NSValueTransformer::allowsReverseTransformation)
        .classMethod("setValueTransformer:forName:",
                     [](const id&, const id* a) {
                         setForName(a[0], utf8(VELT_CSTRING(a[1])));
                         return id();
                     })
        .classMethod("valueTransformerForName:",
                     [](const id&, const id* a) { return forName(utf8(VELT_CSTRING(a[0]))); })
        .classMethod("valueTransformerNames", [](const id&, const id*) {
            Ref<NSMutableArray> names = make<NSMutableArray>();
            const std::lock_guard lock(registry().mutex);
            for (const auto& [name, transformer] : registry().byName) names->append(string(name));
            return id(names);
        });
}
