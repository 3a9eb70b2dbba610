// The rows of every table of wrappers as data: what the tests of the convention walk over. A new table is one line at
// the end of this file.
#pragma once

#include <VELTRuntime/VELTRuntimeUI.h>

#include <ostream>
#include <string>
#include <vector>

namespace velt::test {

/// One wrapper of a table. Members that it lacks are null.
struct WrapperRow {
    const char* name;  // without VELT_
    ui::ValueKind kind;
    id (*get)(const id&);             // getters and commands
    id (*set)(const id&, const id&);  // setters and queries
    const char* getter;               // the messages that they send
    const char* setter;
    id (*cast)(const id&);  // of the class that a setter takes; null when it takes anything
    const char* castName;
};

/// How a failed test names a row.
inline void PrintTo(const WrapperRow& row, std::ostream* out) { *out << "VELT_" << row.name; }

using OneArgument = id (*)(const id&);
using TwoArguments = id (*)(const id&, const id&);

inline std::vector<WrapperRow> wrapperRows() {
    std::vector<WrapperRow> rows;
#define VELT_PROPERTY(function, kind, getter, setter)                                                                  \
    rows.push_back({#function, ui::ValueKind::kind, OneArgument(VELT_##function), TwoArguments(VELT_##function),       \
                    getter, setter, nullptr, nullptr});
#define VELT_OBJECT_PROPERTY(function, CAST, getter, setter)                                                           \
    rows.push_back({#function, ui::ValueKind::Object, OneArgument(VELT_##function), TwoArguments(VELT_##function),     \
                    getter, setter, OneArgument(VELT_C##CAST), #CAST});
#define VELT_ANY_PROPERTY(function, getter, setter) VELT_PROPERTY(function, Object, getter, setter)
#define VELT_GETTER(function, kind, getter)                                                                            \
    rows.push_back(                                                                                                    \
        {#function, ui::ValueKind::kind, OneArgument(VELT_##function), nullptr, getter, nullptr, nullptr, nullptr});
#define VELT_SETTER(function, kind, setter)                                                                            \
    rows.push_back(                                                                                                    \
        {#function, ui::ValueKind::kind, nullptr, TwoArguments(VELT_##function), nullptr, setter, nullptr, nullptr});
#define VELT_OBJECT_SETTER(function, CAST, setter)                                                                     \
    rows.push_back({#function, ui::ValueKind::Object, nullptr, TwoArguments(VELT_##function), nullptr, setter,         \
                    OneArgument(VELT_C##CAST), #CAST});
#define VELT_COMMAND(function, selector) VELT_GETTER(function, Object, selector)
#define VELT_SELF_COMMAND(function, selector) VELT_COMMAND(function, selector)
#define VELT_NIL_COMMAND(function, selector) VELT_COMMAND(function, selector)
#define VELT_QUERY(function, kind, selector) VELT_SETTER(function, kind, selector)
// clang-format off
#include "VELTRuntime/ui/windows.def"
#include "VELTRuntime/ui/views.def"
#include "VELTRuntime/ui/containers.def"
#include "VELTRuntime/ui/controls.def"
#include "VELTRuntime/ui/buttons.def"
#include "VELTRuntime/ui/text_fields.def"
#include "VELTRuntime/ui/text_views.def"
#include "VELTRuntime/ui/matrices.def"
#include "VELTRuntime/ui/toolbars.def"
#include "VELTRuntime/ui/menus.def"
#include "VELTRuntime/ui/panels.def"
#include "VELTRuntime/ui/pop_up_buttons.def"
#include "VELTRuntime/ui/tables.def"
#include "VELTRuntime/ui/combo_boxes.def"
#include "VELTRuntime/ui/applications.def"
#include "VELTRuntime/ui/editors.def"
#include "VELTRuntime/ui/background_views.def"
// clang-format on
#include "VELTRuntime/ui/accessor_rows_end.h"
    return rows;
}

}  // namespace velt::test
