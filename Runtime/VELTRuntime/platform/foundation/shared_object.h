// The one object of a service class.
#pragma once

#include "VELTRuntime/platform/object/class.h"

/// Defines the class entry of a service and the accessor of its one object, which is never freed: threads may use it
/// until the very end.
#define VELT_SERVICE(Type, accessor)                                                                                   \
    velt::Class& Type::entry() {                                                                                       \
        static velt::Class& cls = velt::declareClass<Type>(#Type, &NSObject::entry());                                 \
        return cls;                                                                                                    \
    }                                                                                                                  \
    Type& Type::accessor() {                                                                                           \
        static Type& instance = *velt::make<Type>().release();                                                         \
        return instance;                                                                                               \
    }
