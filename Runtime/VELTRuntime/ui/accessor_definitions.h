// The definitions of a table's wrappers: define VELT_WRAPPER_TABLE as the table's path, then include this.
#define VELT_GETTER(function, kind, getter)                                                                            \
    id VELT_##function(const id& receiver) {                                                                           \
        return velt::ui::get(receiver, VELT_WRAPPER(function, getter), velt::ui::ValueKind::kind);                     \
    }
#define VELT_SETTER(function, kind, setter)                                                                            \
    id VELT_##function(const id& receiver, const id& value) {                                                          \
        return velt::ui::set(receiver, VELT_WRAPPER(function, setter), velt::ui::ValueKind::kind, value);              \
    }
#define VELT_OBJECT_SETTER(function, cast, setter)                                                                     \
    id VELT_##function(const id& receiver, const id& value) {                                                          \
        return velt::ui::set(receiver, VELT_WRAPPER(function, setter), velt::ui::ValueKind::Object,                    \
                             VELT_C##cast(value));                                                                     \
    }
#define VELT_PROPERTY(function, kind, getter, setter)                                                                  \
    VELT_GETTER(function, kind, getter)                                                                                \
    VELT_SETTER(function, kind, setter)
#define VELT_OBJECT_PROPERTY(function, cast, getter, setter)                                                           \
    VELT_GETTER(function, Object, getter)                                                                              \
    VELT_OBJECT_SETTER(function, cast, setter)
#define VELT_ANY_PROPERTY(function, getter, setter) VELT_PROPERTY(function, Object, getter, setter)
#define VELT_COMMAND(function, selector)                                                                               \
    id VELT_##function(const id& receiver) { return velt::ui::command(receiver, VELT_WRAPPER(function, selector)); }
#define VELT_SELF_COMMAND(function, selector)                                                                          \
    id VELT_##function(const id& receiver) {                                                                           \
        velt::ui::pass(receiver, VELT_WRAPPER(function, selector), receiver);                                          \
        return nil;                                                                                                    \
    }
#define VELT_NIL_COMMAND(function, selector)                                                                           \
    id VELT_##function(const id& receiver) {                                                                           \
        velt::ui::pass(receiver, VELT_WRAPPER(function, selector), nil);                                               \
        return nil;                                                                                                    \
    }
#define VELT_QUERY(function, kind, selector)                                                                           \
    id VELT_##function(const id& receiver, const id& value) {                                                          \
        return velt::ui::pass(receiver, VELT_WRAPPER(function, selector),                                              \
                              velt::ui::converted(value, velt::ui::ValueKind::kind));                                  \
    }

#include VELT_WRAPPER_TABLE

#include "VELTRuntime/ui/accessor_rows_end.h"
