// The convention that all wrappers of windows, views, controls, menus and panels share.
//
// A getter VELT_<CLASS>_<MEMBER>(receiver) sends the receiver its getter's message and returns what comes back as a
// value. The setter of the same name takes the new value too: it converts it by the language's conversions before the
// receiver hears anything, so that a wrong kind changes nothing, and returns nil. A command takes the receiver alone. A
// nil receiver is never reported: it gives the zero of the getter's kind. A receiver that has no such property raises
// "NSInvalidArgumentException" naming its class and the message; any call on another thread than the main one raises
// "NSInternalInconsistencyException" naming the function.
//
// Families are tables (*.def) of the rows below. Declarations, definitions and the tests of the convention come from
// the same rows; what behaves unlike it is written out by hand beside its table.
//
//   VELT_PROPERTY(function, Kind, getter, setter)      getter and setter, of a kind of ValueKind
//   VELT_OBJECT_PROPERTY(function, CAST, getter, setter)   of objects, set through VELT_C<CAST>
//   VELT_ANY_PROPERTY(function, getter, setter)        of objects, set unchecked
//   VELT_GETTER(function, Kind, getter)                only read
//   VELT_SETTER(function, Kind, setter)                only set
//   VELT_OBJECT_SETTER(function, CAST, setter)         only set, through VELT_C<CAST>
//   VELT_COMMAND(function, selector)                   a message without an argument
//   VELT_SELF_COMMAND(function, selector)              a message with the receiver as its argument
//   VELT_NIL_COMMAND(function, selector)               a message with nil as its argument
//   VELT_QUERY(function, Kind, selector)               a message with a value of a kind, whose result is returned
#pragma once

#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/conversions.h"

namespace velt::ui {

/// How a property's values are converted when it is set, what it gives for a nil receiver.
enum class ValueKind {
    Boolean,
    Integer,
    Unsigned,
    Double,
    Single,
    Text,         // comes back as a new string that cannot be changed
    MutableText,  // comes back as a new string that may be changed
    RichText,
    Point,
    Size,
    Rect,
    Object,
};

/// One wrapper, for messages and errors: its name, and the place from which it sends its message.
struct Wrapper {
    const char* name;
    const MessageSite& site;
};

/// Sends a getter's message; the zero of the kind for nil. Raises as the convention says.
VELT_EXPORT id get(const id& receiver, const Wrapper& wrapper, ValueKind kind);
/// A value as a setter of that kind passes it on; raises the conversion's failure.
VELT_EXPORT id converted(const id& value, ValueKind kind);
/// Converts and sends a setter's message. nil.
VELT_EXPORT id set(const id& receiver, const Wrapper& wrapper, ValueKind kind, const id& value);
/// Sends a message with one argument as it is, and returns what comes back.
VELT_EXPORT id pass(const id& receiver, const Wrapper& wrapper, const id& argument);
/// Sends a message without an argument. nil.
VELT_EXPORT id command(const id& receiver, const Wrapper& wrapper);

/// Sets action and target of a new object: the method of that name, if the owner has it.
VELT_EXPORT void connectAction(const id& object, const id& owner, const char* action);
/// Lets an object call a method of its target: the one of that name with a colon behind it, or else the one of that
/// name; nothing when the target has neither. The setter is the selector of the message that takes the name. nil.
VELT_EXPORT id bindAction(const char* function, const id& object, const id& name,
                          std::string_view setter = "setAction:");

}  // namespace velt::ui

/// A wrapper of that name, without VELT_, and the message that it sends.
#define VELT_WRAPPER(function, selector) (velt::ui::Wrapper{"VELT_" #function, VELT_SELECTOR(selector)})
