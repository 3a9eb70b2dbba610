// Objects by name: values by key path, class tests, messages, bindings. nil as an object gives nil and False.
#pragma once

#include "VELTRuntime/values/value.h"

/// The value at a key path, and setting it; the path goes through VELT_CSTRING. What is set gives nil. nil along the
/// way gives nil; raises "NSUnknownKeyException" naming class and key.
VELT_EXPORT id VELT_PROPERTY(const id& object, const id& keyPath);
VELT_EXPORT id VELT_PROPERTY(const id& object, const id& keyPath, const id& value);
/// The value at a key path, which has to be a string.
VELT_EXPORT id VELT_NSOBJECT_VALUEFORKEYPATH(const id& object, const id& keyPath);
/// Sets the value under one key, which has to be a string. The value comes before the key. Gives nil.
VELT_EXPORT id VELT_NSOBJECT_SETVALUEFORKEY(const id& object, const id& value, const id& key);

/// The result of the message "init".
VELT_EXPORT id VELT_NSOBJECT_INIT(const id& object);
/// The object is of the class of that name or of a subclass, or of exactly that class. A class may be given by its
/// value too; an unknown name gives False. Booleans.
VELT_EXPORT id VELT_NSOBJECT_ISKINDOFCLASS(const id& object, const id& className);
VELT_EXPORT id VELT_NSOBJECT_ISMEMBEROFCLASS(const id& object, const id& className);
/// The object, or the objects of a class, understand the message. Booleans.
VELT_EXPORT id VELT_NSOBJECT_RESPONDSTOSELECTOR(const id& object, const id& selector);
VELT_EXPORT id VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(const id& cls, const id& selector);

/// The result of a message with no, one or two arguments, passed as they are; the name goes through VELT_CSTRING.
/// Raises "NSInvalidArgumentException" when the object does not understand it.
VELT_EXPORT id VELT_NSOBJECT_PERFORMSELECTOR0(const id& object, const id& selector);
VELT_EXPORT id VELT_NSOBJECT_PERFORMSELECTOR1(const id& object, const id& selector, const id& argument);
VELT_EXPORT id VELT_NSOBJECT_PERFORMSELECTOR2(const id& object, const id& selector, const id& argument1,
                                              const id& argument2);

/// Binds a property of the object to the value at a key path of another: it takes that value now and after every
/// change, and hands its own changes back. The options go through VELT_CDICTIONARY. Gives nil.
VELT_EXPORT id VELT_NSOBJECT_BIND(const id& object, const id& binding, const id& observed, const id& keyPath,
                                  const id& options);
/// Ends a binding, if there is one of that name. Gives nil.
VELT_EXPORT id VELT_NSOBJECT_UNBIND(const id& object, const id& binding);
