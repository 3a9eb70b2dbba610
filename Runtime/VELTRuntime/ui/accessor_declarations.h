// The declarations of a table's wrappers: define VELT_WRAPPER_TABLE as the table's path, then include this.
#define VELT_PROPERTY(function, kind, getter, setter)                                                                  \
    VELT_EXPORT id VELT_##function(const id& receiver);                                                                \
    VELT_EXPORT id VELT_##function(const id& receiver, const id& value);
#define VELT_OBJECT_PROPERTY(function, cast, getter, setter) VELT_PROPERTY(function, Object, getter, setter)
#define VELT_ANY_PROPERTY(function, getter, setter) VELT_PROPERTY(function, Object, getter, setter)
#define VELT_GETTER(function, kind, getter) VELT_EXPORT id VELT_##function(const id& receiver);
#define VELT_SETTER(function, kind, setter) VELT_EXPORT id VELT_##function(const id& receiver, const id& value);
#define VELT_OBJECT_SETTER(function, cast, setter) VELT_SETTER(function, Object, setter)
#define VELT_COMMAND(function, selector) VELT_EXPORT id VELT_##function(const id& receiver);
#define VELT_SELF_COMMAND(function, selector) VELT_COMMAND(function, selector)
#define VELT_NIL_COMMAND(function, selector) VELT_COMMAND(function, selector)
#define VELT_QUERY(function, kind, selector) VELT_SETTER(function, kind, selector)

#include VELT_WRAPPER_TABLE

#include "VELTRuntime/ui/accessor_rows_end.h"
