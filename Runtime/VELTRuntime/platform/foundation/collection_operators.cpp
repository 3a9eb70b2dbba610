#include "VELTRuntime/platform/foundation/collection_operators.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <unordered_set>

namespace velt {

namespace {

using Values = std::vector<id>;

/// What the elements have at a key path, in order, nil included.
Values valuesAt(const NSArray& array, std::string_view keyPath) {
    Values values;
    values.reserve(array.count());
    for (std::size_t i = 0; i < array.count(); ++i) {
        const id element = array.items()[i];
        values.push_back(valueForKeyPath(element, keyPath));
    }
    return values;
}

/// The same over the elements of the elements.
Values innerValuesAt(const NSArray& array, std::string_view keyPath) {
    Values all;
    for (std::size_t i = 0; i < array.count(); ++i) {
        const id element = array.items()[i];
        const NSArray* inner = arrayOf(element);
        if (!inner) {
            raise(kInvalidArgumentException, "an element of '" + classOf(element)->name() + "' is no array");
        }
        for (id& value : valuesAt(*inner, keyPath)) all.push_back(std::move(value));
    }
    return all;
}

bool isWhole(const id& value) {
    if (!isNumber(value)) return false;
    const NumberCode code = numberCode(value.word());
    return !isFloatingCode(code) && code != NumberCode::UnsignedLong;
}

double realSum(const Values& values) {
    double sum = 0;
    for (const id& value : values) sum += value.isNil() ? 0 : VELT_CDOUBLE(value);
    return sum;
}

id sum(const Values& values) {
    long whole = 0;
    for (const id& value : values) {
        if (value.isNil()) continue;
        if (!isWhole(value) || __builtin_add_overflow(whole, VELT_CINTEGER(value), &whole)) {
            return VELT_ID(realSum(values));
        }
    }
    return VELT_ID(whole);
}

id average(const Values& values) {
    return VELT_ID(values.empty() ? 0.0 : realSum(values) / static_cast<double>(values.size()));
}

long order(const id& a, const id& b) {
    if (isNumber(a) && isNumber(b)) return compareNumbers(a.word(), b.word());
    if (isString(a) && isString(b)) return textOf(a).compare(textOf(b));
    return VELT_CINTEGER(send(a, VELT_SELECTOR("compare:"), b));
}

/// The first of the values that none comes before, in ascending or, with sign -1, descending order.
id extreme(const Values& values, int sign) {
    id best;
    for (const id& value : values) {
        if (!value.isNil() && (best.isNil() || order(value, best) * sign < 0)) best = value;
    }
    return best;
}
id smallest(const Values& values) { return extreme(values, 1); }
id largest(const Values& values) { return extreme(values, -1); }

id all(const Values& values) {
    Ref<NSMutableArray> result = make<NSMutableArray>();
    for (const id& value : values) {
        if (!value.isNil()) result->append(value);
    }
    return result;
}

id distinct(const Values& values) {
    struct Hash {
        std::size_t operator()(const id& value) const { return hash(value); }
    };
    struct Equal {
        bool operator()(const id& a, const id& b) const { return isEqual(a, b); }
    };
    std::unordered_set<id, Hash, Equal> seen;
    Ref<NSMutableArray> result = make<NSMutableArray>();
    for (const id& value : values) {
        if (!value.isNil() && seen.insert(value).second) result->append(value);
    }
    return result;
}

struct Operator {
    std::string_view name;
    Values (*gather)(const NSArray&, std::string_view keyPath);
    id (*reduce)(const Values&);
};

constexpr Operator kOperators[] = {
    {"@sum", valuesAt, sum},
    {"@avg", valuesAt, average},
    {"@min", valuesAt, smallest},
    {"@max", valuesAt, largest},
    {"@unionOfObjects", valuesAt, all},
    {"@distinctUnionOfObjects", valuesAt, distinct},
    {"@unionOfArrays", innerValuesAt, all},
    {"@distinctUnionOfArrays", innerValuesAt, distinct},
};

}  // namespace

id collectionValue(const id& array, std::string_view name, std::string_view keyPath) {
    const NSArray* elements = arrayOf(array);
    if (name == "@count") return VELT_ID(static_cast<unsigned long>(elements->count()));
    for (const Operator& candidate : kOperators) {
        if (candidate.name != name) continue;
        if (keyPath.empty()) {
            raise(kInvalidArgumentException, "collection operator '" + std::string(name) + "' needs a key path");
        }
        return candidate.reduce(candidate.gather(*elements, keyPath));
    }
    raise(kUnknownKeyException,
          "'" + elements->isa().name() + "' has no collection operator '" + std::string(name) + "'");
}

}  // namespace velt
