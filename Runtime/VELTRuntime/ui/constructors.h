// How the constructors of controls and cells make their objects.
#pragma once

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/ui/accessors.h"
#include "VELTRuntime/values/string.h"

#include <utility>

namespace velt::ui {

/// A constructor's zero-terminated text as a string; the empty string for null.
inline id stringOfLiteral(const char* text) { return string(std::string_view(text ? text : "")); }

/// A new object of class T, whose action is the owner's method of that name, if the owner has it. Raises
/// "NSInternalInconsistencyException" naming the constructor on another thread than the main one.
template <class T, class... A>
Ref<T> newObject(const char* constructor, const id& owner, const char* action, A&&... a) {
    requireMainThread(constructor);
    Ref<T> made = make<T>(std::forward<A>(a)...);
    connectAction(made, owner, action);
    return made;
}

}  // namespace velt::ui
