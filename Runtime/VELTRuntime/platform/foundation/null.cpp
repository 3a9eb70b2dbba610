#include "VELTRuntime/platform/foundation/null.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/string.h"

velt::Class& NSNull::entry() {
    static velt::Class& cls = velt::declareClass<NSNull>("NSNull", &NSObject::entry());
    return cls;
}

const id& NSNull::null() {
    static const id& one = *new id(velt::make<NSNull>());  // outlives every other static object
    return one;
}

id NSNull::description() const { return velt::string("<null>"); }
bool NSNull::isEqual(const id& other) const { return velt::is<NSNull>(other); }
std::size_t NSNull::hash() const { return 1; }
id NSNull::copy() const { return id(const_cast<NSNull*>(this)); }
