// Controls that hand their cell's properties on, and the rows that describe a property once for both.
#pragma once

#include "VELTRuntime/platform/appkit/controls/control.h"

namespace velt {

template <class Member> struct MemberArgument;
template <class C, class R, class A> struct MemberArgument<R (C::*)(A)> { using Type = A; };
template <class C, class R, class A> struct MemberArgument<R (C::*)(A) const> { using Type = A; };
template <auto kMember> using ArgumentOf = typename MemberArgument<decltype(kMember)>::Type;

/// A control that shows cells of one kind.
template <class Cell> class ControlOf : public NSControl {
public:
    /// The cell; a control refuses cells of other kinds.
    Cell& ownCell() const { return static_cast<Cell&>(cellObject()); }

    // What messages to the control call, for cellProperty and its like.
    template <auto kGetter> auto cellGet() const { return (ownCell().*kGetter)(); }
    template <auto kMember> auto cellCall(ArgumentOf<kMember> value) { return (ownCell().*kMember)(value); }

protected:
    Ref<NSCell> makeCell() const override { return make<Cell>(); }
};

/// A property that cell and control have: the class T of the two gets it.
template <auto kGetter, auto kSetter, class T> void cellProperty(ClassBuilder<T>& c, std::string_view key) {
    if constexpr (std::is_base_of_v<NSCell, T>)
        c.property(key, kGetter, kSetter);
    else
        c.property(key, &T::template cellGet<kGetter>, &T::template cellCall<kSetter>);
}

/// The same of a truth value that is asked for with "isKey".
template <auto kGetter, auto kSetter, class T> void cellFlag(ClassBuilder<T>& c, std::string_view key) {
    if constexpr (std::is_base_of_v<NSCell, T>)
        c.flag(key, kGetter, kSetter);
    else
        c.flag(key, &T::template cellGet<kGetter>, &T::template cellCall<kSetter>);
}

/// A question without an argument.
template <auto kGetter, class T> void cellAnswer(ClassBuilder<T>& c, std::string_view selector) {
    if constexpr (std::is_base_of_v<NSCell, T>)
        c.method(selector, kGetter);
    else
        c.method(selector, &T::template cellGet<kGetter>);
}

/// A message with one argument.
template <auto kMember, class T> void cellMethod(ClassBuilder<T>& c, std::string_view selector) {
    if constexpr (std::is_base_of_v<NSCell, T>)
        c.method(selector, kMember);
    else
        c.method(selector, &T::template cellCall<kMember>);
}

}  // namespace velt
