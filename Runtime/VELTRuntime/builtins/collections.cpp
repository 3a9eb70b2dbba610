#include "VELTRuntime/builtins/collections.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/borrowed.h"
#include "VELTRuntime/values/string.h"

using namespace velt;

namespace {

id boolean(bool value) { return VELT_ID(static_cast<BOOL>(value)); }
id count(std::size_t value) { return VELT_ID(static_cast<unsigned long>(value)); }

/// The receiver as what it has to be, or null for nil; raises when it does not understand the message.
template <class T> T* receiver(T* found, const id& value, const char* message) {
    if (!found && !value.isNil()) raiseNotUnderstood(value, message);
    return found;
}
NSArray* arrayReceiver(const id& array, const char* message) { return receiver(arrayOf(array), array, message); }
NSMutableArray* changedArray(const id& array, const char* message) {
    return receiver(mutableArrayOf(array), array, message);
}
NSDictionary* dictionaryReceiver(const id& dictionary, const char* message) {
    return receiver(dictionaryOf(dictionary), dictionary, message);
}
NSMutableDictionary* changedDictionary(const id& dictionary, const char* message) {
    return receiver(mutableDictionaryOf(dictionary), dictionary, message);
}

id arrayCount(const id& array) {
    const NSArray* elements = arrayReceiver(array, "count");
    return count(elements ? elements->count() : 0);
}

id arrayContains(const id& array, const id& value) {
    const NSArray* elements = arrayReceiver(array, "containsObject:");
    return boolean(elements && elements->indexOf(value) >= 0);
}

id dictionaryCount(const id& dictionary) {
    const NSDictionary* entries = dictionaryReceiver(dictionary, "count");
    return count(entries ? entries->count() : 0);
}

id dictionaryKeys(const id& dictionary) {
    const NSDictionary* entries = dictionaryReceiver(dictionary, "allKeys");
    return entries ? entries->allKeys() : id();
}

id dictionaryValues(const id& dictionary) {
    const NSDictionary* entries = dictionaryReceiver(dictionary, "allValues");
    return entries ? entries->allValues() : id();
}

id dictionaryKey(const id& dictionary, const id& position) {
    if (isString(position)) raiseCast("Number expected");
    const NSDictionary* entries = dictionaryReceiver(dictionary, "allKeys");
    return entries ? VELT_CSTRING(entries->keyAt(VELT_CBYTE(position))) : id();
}

id dictionaryContains(const id& dictionary, const id& key) {
    const NSDictionary* entries = dictionaryReceiver(dictionary, "objectForKey:");
    return boolean(entries && !entries->objectForKey(isString(key) ? key : VELT_CSTRING(key)).isNil());
}

id dataCount(const id& data) {
    const NSData* bytes = receiver(dataOf(data), data, "length");
    return count(bytes ? bytes->length() : 0);
}

}  // namespace

namespace velt {

id slowArrayElement(Word array, Word position) {
    const Borrowed value(array), at(position);
    const NSArray* elements = arrayReceiver(value, "objectAtIndex:");
    return elements ? elements->at(VELT_CBYTE(at)) : id();
}

id slowArrayReplace(Word array, Word element, Word position) {
    const Borrowed value(array), replacement(element), at(position);
    NSMutableArray* elements = changedArray(value, "replaceObjectAtIndex:withObject:");
    if (elements) elements->replace(VELT_CBYTE(at), replacement);
    return nil;
}

id slowArrayAppend(Word array, Word element) {
    const Borrowed value(array), added(element);
    if (NSMutableArray* elements = changedArray(value, "addObject:")) elements->append(added);
    return nil;
}

id slowDictionaryObject(Word dictionary, Word keyOrPosition) {
    const Borrowed value(dictionary), key(keyOrPosition);
    const NSDictionary* entries = dictionaryReceiver(value, "objectForKey:");
    if (!entries) return nil;
    if (isString(key)) return entries->objectForKey(key);
    return entries->objectForKey(VELT_CSTRING(entries->keyAt(VELT_CBYTE(key))));
}

id slowDictionarySet(Word dictionary, Word key, Word value) {
    const Borrowed receiver(dictionary), name(key), entry(value);
    NSMutableDictionary* entries = changedDictionary(receiver, "setObject:forKey:");
    if (entries) entries->setObject(entry, isString(name) ? id(static_cast<const id&>(name)) : VELT_CSTRING(name));
    return nil;
}

}  // namespace velt

id VELT_NSARRAY_COUNT(const id& array) { return arrayCount(array); }
id VELT_NSMUTABLEARRAY_COUNT(const id& array) { return arrayCount(array); }
id VELT_NSARRAY_CONTAINS(const id& array, const id& value) { return arrayContains(array, value); }
id VELT_NSMUTABLEARRAY_CONTAINS(const id& array, const id& value) { return arrayContains(array, value); }

id VELT_NSMUTABLEARRAY_INSERT(const id& array, const id& value, const id& position) {
    const long at = VELT_CBYTE(position);
    if (NSMutableArray* elements = changedArray(array, "insertObject:atIndex:")) elements->insert(value, at);
    return nil;
}

id VELT_NSMUTABLEARRAY_REMOVE(const id& array, const id& position) {
    const long at = VELT_CBYTE(position);
    if (NSMutableArray* elements = changedArray(array, "removeObjectAtIndex:")) elements->remove(at);
    return nil;
}

id VELT_NSMUTABLEARRAY_REMOVEOBJECT(const id& array, const id& value) {
    NSMutableArray* elements = changedArray(array, "removeObjectAtIndex:");
    if (elements)
        elements->remove(elements->indexOf(value));  // -1 when there is none: programs rely on the range error
    return nil;
}

id VELT_NSMUTABLEARRAY_REMOVEALL(const id& array) {
    if (NSMutableArray* elements = changedArray(array, "removeAllObjects")) elements->removeAll();
    return nil;
}

#define VELT_BOTH_DICTIONARIES(name, function, parameters, arguments)                                                  \
    id VELT_NSDICTIONARY_##name parameters { return function arguments; }                                              \
    id VELT_NSMUTABLEDICTIONARY_##name parameters { return function arguments; }
VELT_BOTH_DICTIONARIES(COUNT, dictionaryCount, (const id& dictionary), (dictionary))
VELT_BOTH_DICTIONARIES(KEYS, dictionaryKeys, (const id& dictionary), (dictionary))
VELT_BOTH_DICTIONARIES(VALUES, dictionaryValues, (const id& dictionary), (dictionary))
VELT_BOTH_DICTIONARIES(KEY, dictionaryKey, (const id& dictionary, const id& position), (dictionary, position))
VELT_BOTH_DICTIONARIES(CONTAINS, dictionaryContains, (const id& dictionary, const id& key), (dictionary, key))

id VELT_NSMUTABLEDICTIONARY_REMOVE(const id& dictionary, const id& key) {
    NSMutableDictionary* entries = changedDictionary(dictionary, "removeObjectForKey:");
    if (entries) entries->removeObject(isString(key) ? key : VELT_CSTRING(key));
    return nil;
}

id VELT_NSMUTABLEDICTIONARY_REMOVEALL(const id& dictionary) {
    if (NSMutableDictionary* entries = changedDictionary(dictionary, "removeAllObjects")) entries->removeAll();
    return nil;
}

id VELT_NSDATA_COUNT(const id& data) { return dataCount(data); }
id VELT_NSMUTABLEDATA_COUNT(const id& data) { return dataCount(data); }
