// Registration of C++ members with a class entry: argument and result conversions come from the member's own type.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"

#include <tuple>

namespace velt {

template <class T> struct IsRef : std::false_type {};
template <class T> struct IsRef<Ref<T>> : std::true_type { using Pointee = T; };

/// The value for a native result, by the same rules as the language's boxing.
template <class T> id boxResult(T&& result) {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<Plain, id> || IsRef<Plain>::value)
        return id(std::forward<T>(result));
    else if constexpr (std::is_same_v<Plain, bool>)
        return VELT_ID(static_cast<BOOL>(result));
    else if constexpr (std::is_same_v<Plain, int>)
        return VELT_ID(static_cast<long>(result));
    else if constexpr (std::is_same_v<Plain, unsigned>)
        return VELT_ID(static_cast<unsigned long>(result));
    else if constexpr (std::is_pointer_v<Plain>)
        return id(static_cast<NSObject*>(result));
    else
        return VELT_ID(result);
}

/// A native parameter or field that has no nil: a number, a truth value or a structure.
template <class T>
inline constexpr bool kRejectsNil =
    !std::is_same_v<std::remove_cvref_t<T>, id> && !IsRef<std::remove_cvref_t<T>>::value && !std::is_pointer_v<T>;

/// A parameter while it waits for the call: a value passed by reference counts no owner.
template <class A> using Unboxed = std::conditional_t<std::is_same_v<A, const id&>, const id&, std::remove_cvref_t<A>>;

/// The native argument for a value, by the same conversions that the language uses; raises their cast failures.
template <class T> T unboxArgument(const id& value) {
    if constexpr (std::is_same_v<std::remove_cvref_t<T>, id>)
        return value;
    else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, signed char>)
        return static_cast<T>(VELT_CBOOL(value));
    else if constexpr (std::is_same_v<T, float>)
        return VELT_CSINGLE(value);
    else if constexpr (std::is_floating_point_v<T>)
        return VELT_CDOUBLE(value);
    else if constexpr (std::is_integral_v<T>)
        return static_cast<T>(VELT_CINTEGER(value));
    else if constexpr (std::is_same_v<T, NSPoint>)
        return VELT_CNSPOINT(value);
    else if constexpr (std::is_same_v<T, NSSize>)
        return VELT_CNSSIZE(value);
    else if constexpr (std::is_same_v<T, NSRect>)
        return VELT_CNSRECT(value);
    else if constexpr (std::is_same_v<T, NSRange>)
        return VELT_CNSRANGE(value);
    else if constexpr (IsRef<T>::value)
        return T(to<typename IsRef<T>::Pointee>(value));
    else if constexpr (std::is_pointer_v<T>)
        return to<std::remove_pointer_t<T>>(value);
    else
        static_assert(sizeof(T) == 0, "no conversion from a value to this type");
}

/// A class's own object behind a receiver that was found through the class's entry.
template <class C> C& receiverAs(const id& receiver) {
    assert(receiver.isObject());
    return *static_cast<C*>(asObjectWord(receiver.word()));
}

template <class Pointer> struct MemberCall;

template <class C, class R, class... A> struct MemberCall<R (C::*)(A...)> {
    static constexpr unsigned kArguments = sizeof...(A);
    static constexpr bool kAllRejectNil = (kRejectsNil<A> && ...);
    template <class Pointer> static id call(const Method& method, const id& receiver, const id* arguments) {
        return spread<Pointer>(method, receiver, arguments, std::index_sequence_for<A...>());
    }

private:
    template <class Pointer, std::size_t... I>
    static id spread(const Method& method, const id& receiver, [[maybe_unused]] const id* arguments,
                     std::index_sequence<I...>) {
        auto& object = receiverAs<C>(receiver);
        const auto member = method.target.as<Pointer>();
        // Braces: the conversions run from the first argument to the last.
        std::tuple<Unboxed<A>...> converted{unboxArgument<Unboxed<A>>(arguments[I])...};
        if constexpr (std::is_void_v<R>) {
            (object.*member)(std::get<I>(converted)...);
            return nil;
        } else if constexpr (std::is_same_v<R, id>) {
            return (object.*member)(std::get<I>(converted)...);
        } else {
            return boxResult((object.*member)(std::get<I>(converted)...));
        }
    }
};
template <class C, class R, class... A> struct MemberCall<R (C::*)(A...) const> : MemberCall<R (C::*)(A...)> {};
template <class C, class R, class... A> struct MemberCall<R (C::*)(A...) noexcept> : MemberCall<R (C::*)(A...)> {};
template <class C, class R, class... A>
struct MemberCall<R (C::*)(A...) const noexcept> : MemberCall<R (C::*)(A...)> {};

/// Fills the entry of class T. Every function returns the builder, so that a class is described in one statement.
template <class T> class ClassBuilder {
public:
    explicit ClassBuilder(Class& cls) : class_(cls) {}

    /// A method under a selector. Asserts that the selector has as many colons as the member has arguments.
    template <class Member>
    requires std::is_member_function_pointer_v<Member> ClassBuilder& method(std::string_view selector, Member member) {
        const Selector named = Selector::named(selector);
        assert(named.argumentCount() == MemberCall<Member>::kArguments);
        class_.add(Method{named, Target::of(member), &MemberCall<Member>::template call<Member>});
        return *this;
    }
    /// A method of values that may live in the word: a function of the receiver and the arguments.
    ClassBuilder& method(std::string_view selector, id (*function)(const id& receiver, const id* arguments)) {
        class_.add(Method{Selector::named(selector), Target::of(function), &callFunction});
        return *this;
    }

    /// A method that the class itself answers; its receiver is the class's own value.
    ClassBuilder& classMethod(std::string_view selector, id (*function)(const id& cls, const id* arguments)) {
        class_.addClassMethod(Method{Selector::named(selector), Target::of(function), &callFunction});
        return *this;
    }

    /// A field: read and set by key and by the messages "key" and "setKey:", and owned when it holds a value.
    template <class C, class Field>
    requires(!std::is_function_v<Field>) ClassBuilder& property(std::string_view key, Field C::*field) {
        class_.add(Property{std::string(key), Target::of(field), Target::of(field),
                            [](const Property& property, const id& object) {
                                return boxResult(receiverAs<C>(object).*property.getter.as<Field C::*>());
                            },
                            [](const Property& property, const id& object, const id& value) {
                                receiverAs<C>(object).*property.setter.as<Field C::*>() = unboxArgument<Field>(value);
                            },
                            kRejectsNil<Field>});
        class_.add(
            Method{Selector::named(key), Target::of(field), [](const Method& method, const id& object, const id*) {
                       return boxResult(receiverAs<C>(object).*method.target.as<Field C::*>());
                   }});
        class_.add(Method{Selector::named(setterName(key)), Target::of(field),
                          [](const Method& method, const id& object, const id* value) {
                              receiverAs<C>(object).*method.target.as<Field C::*>() = unboxArgument<Field>(value[0]);
                              return id();
                          }});
        return owns(field);
    }
    /// A property with a getter and a setter member. The setter is a method too: "key" and "setKey:".
    template <class Getter, class Setter>
    requires std::is_member_function_pointer_v<Getter> && std::is_member_function_pointer_v<Setter> ClassBuilder&
    property(std::string_view key, Getter getter, Setter setter) {
        addAccessors(key, getter, setter, callMember<Setter>, MemberCall<Setter>::kAllRejectNil);
        return method(key, getter).method(setterName(key), setter);
    }
    /// A read-only property, also a method of that name.
    template <class Getter>
    requires std::is_member_function_pointer_v<Getter> ClassBuilder& property(std::string_view key, Getter getter) {
        addAccessors(key, getter, getter, nullptr, false);
        return method(key, getter);
    }
    /// A truth value whose getter has a name of its own: the property "key", the messages "isKey" and "setKey:".
    template <class Getter, class Setter> ClassBuilder& flag(std::string_view key, Getter getter, Setter setter) {
        return property(key, getter, setter).method("is" + capitalized(key), getter);
    }
    /// A property whose value follows from others: who observes it hears of a change at any of those key paths.
    ClassBuilder& keyPathsForValuesAffecting(std::string_view key, std::vector<std::string> keyPaths) {
        class_.add(Dependency{std::string(key), std::move(keyPaths)});
        return *this;
    }
    /// Values by key come from these functions, for a class that holds values under keys of their own.
    ClassBuilder& keyAccess(const KeyAccess& access) {
        class_.setKeyAccess(access);
        return *this;
    }
    /// A field that holds an owned value which is not reached by key. Fields of other types own nothing.
    template <class C, class Field> ClassBuilder& owns(Field C::*field) {
        if constexpr (std::is_same_v<Field, id> || IsRef<Field>::value) {
            class_.add(OwnedField{Target::of(field), [](const OwnedField& owned, NSObject& object, OwnedVisitor& v) {
                                      v.visit(static_cast<C&>(object).*owned.field.as<Field C::*>());
                                  }});
        }
        return *this;
    }

private:
    static id callFunction(const Method& method, const id& receiver, const id* arguments) {
        return method.target.as<id (*)(const id&, const id*)>()(receiver, arguments);
    }
    template <class Setter> static void callMember(const Property& property, const id& object, const id& value) {
        MemberCall<Setter>::template call<Setter>(Method{Selector(), property.setter, nullptr}, object, &value);
    }
    template <class Getter, class Setter>
    void addAccessors(std::string_view key, Getter getter, Setter setter,
                      void (*set)(const Property&, const id&, const id&), bool rejectsNil) {
        class_.add(Property{std::string(key), Target::of(getter), Target::of(setter),
                            [](const Property& property, const id& object) {
                                return MemberCall<Getter>::template call<Getter>(
                                    Method{Selector(), property.getter, nullptr}, object, nullptr);
                            },
                            set, rejectsNil});
    }

    Class& class_;
};

/// Enters class T under a name; used by VELT_OBJECT.
template <class T> Class& declareClass(const char* name, Class* superclass) {
    Class::Describer describe = nullptr;
    if constexpr (requires(ClassBuilder<T> & builder) { T::describe(builder); }) {
        describe = [](Class& cls) {
            ClassBuilder<T> builder(cls);
            T::describe(builder);
        };
    }
    Class::Factory factory = nullptr;
    if constexpr (std::is_default_constructible_v<T>) factory = [] { return id(make<T>()); };
    return Class::declare(name, superclass, typeid(T), describe, factory);
}

}  // namespace velt
