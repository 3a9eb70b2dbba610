// Arrays, dictionaries and data. Functions that come for two classes do the same under both names, so that a compiler
// can call the one named after a variable's class.
//
// Positions go through VELT_CBYTE and raise "NSRangeException" outside the collection; keys are strings, made by
// VELT_CSTRING. A receiver of another class raises "NSInvalidArgumentException" naming class and message; nil as
// receiver gives the zero of the result's kind. A nil element, key or value raises "NSInvalidArgumentException".
#pragma once

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

namespace velt {
/// The element of an array, for what the inline access leaves to the library; borrows the words.
VELT_EXPORT id slowArrayElement(Word array, Word position);
VELT_EXPORT id slowArrayReplace(Word array, Word value, Word position);
VELT_EXPORT id slowArrayAppend(Word array, Word value);
VELT_EXPORT id slowDictionaryObject(Word dictionary, Word keyOrPosition);
VELT_EXPORT id slowDictionarySet(Word dictionary, Word key, Word value);

inline NSMutableArray* mutableArrayWord(Word word) {
    return isKind(word, Kind::MutableArray) ? static_cast<NSMutableArray*>(asObjectWord(word)) : nullptr;
}

/// The value for a key, or for the key at a position.
inline id dictionaryObject(const id& dictionary, const id& keyOrPosition) {
    const Word word = dictionary.word(), key = keyOrPosition.word();
    if (isKind(word, Kind::MutableDictionary) && isString(key)) {
        const NSObject *entries = asObjectWord(word), *text = asObjectWord(key);
        return id::share(static_cast<const NSDictionary*>(entries)->wordForText(*static_cast<const NSString*>(text)));
    }
    return slowDictionaryObject(word, key);
}

inline id dictionarySet(const id& dictionary, const id& key, const id& value) {
    const Word word = dictionary.word(), text = key.word();
    if (isKind(word, Kind::MutableDictionary) && isString(text)) {
        auto* entries = static_cast<NSMutableDictionary*>(asObjectWord(word));
        entries->setWordForText(value.word(), *static_cast<const NSString*>(asObjectWord(text)));
        return nil;
    }
    return slowDictionarySet(word, text, value.word());
}
}  // namespace velt

/// Number of elements, an unsigned integer.
VELT_EXPORT id VELT_NSARRAY_COUNT(const id& array);
VELT_EXPORT id VELT_NSMUTABLEARRAY_COUNT(const id& array);
/// The element at a position.
VELT_INLINE_EXPORT id VELT_NSMUTABLEARRAY_OBJECT(const id& array, const id& position) {
    const velt::Word word = array.word(), at = position.word();
    if (NSMutableArray* elements = velt::mutableArrayWord(word); elements && velt::isIntegerWord(at)) {
        return elements->at(velt::asIntegerWord(at));
    }
    return velt::slowArrayElement(word, at);
}
VELT_INLINE_EXPORT id VELT_NSARRAY_OBJECT(const id& array, const id& position) {
    return VELT_NSMUTABLEARRAY_OBJECT(array, position);
}
/// Some element is equal to the value. Boolean.
VELT_EXPORT id VELT_NSARRAY_CONTAINS(const id& array, const id& value);
VELT_EXPORT id VELT_NSMUTABLEARRAY_CONTAINS(const id& array, const id& value);

/// Adds a value at the end. Changes return nil.
VELT_INLINE_EXPORT id VELT_NSMUTABLEARRAY_APPEND(const id& array, const id& value) {
    if (NSMutableArray* elements = velt::mutableArrayWord(array.word())) {
        elements->append(value);
        return nil;
    }
    return velt::slowArrayAppend(array.word(), value.word());
}
/// Inserts a value so that it stands at the position; the count appends.
VELT_EXPORT id VELT_NSMUTABLEARRAY_INSERT(const id& array, const id& value, const id& position);
/// Replaces the element at a position.
VELT_INLINE_EXPORT id VELT_NSMUTABLEARRAY_REPLACE(const id& array, const id& value, const id& position) {
    const velt::Word word = array.word(), at = position.word();
    if (NSMutableArray* elements = velt::mutableArrayWord(word); elements && velt::isIntegerWord(at)) {
        elements->replace(velt::asIntegerWord(at), value);
        return nil;
    }
    return velt::slowArrayReplace(word, value.word(), at);
}
/// Removes the element at a position.
VELT_EXPORT id VELT_NSMUTABLEARRAY_REMOVE(const id& array, const id& position);
/// Removes the first element equal to the value; raises "NSRangeException" when there is none. Programs rely on it.
VELT_EXPORT id VELT_NSMUTABLEARRAY_REMOVEOBJECT(const id& array, const id& value);
/// Removes all elements.
VELT_EXPORT id VELT_NSMUTABLEARRAY_REMOVEALL(const id& array);

// One function each under both class names.
#define VELT_DICTIONARY_FUNCTIONS(name, arguments)                                                                     \
    VELT_EXPORT id VELT_NSDICTIONARY_##name arguments;                                                                 \
    VELT_EXPORT id VELT_NSMUTABLEDICTIONARY_##name arguments;
/// Number of entries, an unsigned integer.
VELT_DICTIONARY_FUNCTIONS(COUNT, (const id& dictionary))
/// New arrays of all keys and all values, in the dictionary's order.
VELT_DICTIONARY_FUNCTIONS(KEYS, (const id& dictionary))
VELT_DICTIONARY_FUNCTIONS(VALUES, (const id& dictionary))
/// The value for a string key, or for the key at a position when the argument is no string; nil when there is none.
VELT_INLINE_EXPORT id VELT_NSDICTIONARY_OBJECT(const id& dictionary, const id& keyOrPosition) {
    return velt::dictionaryObject(dictionary, keyOrPosition);
}
VELT_INLINE_EXPORT id VELT_NSDICTIONARY_VALUE(const id& dictionary, const id& keyOrPosition) {
    return velt::dictionaryObject(dictionary, keyOrPosition);
}
VELT_INLINE_EXPORT id VELT_NSMUTABLEDICTIONARY_OBJECT(const id& dictionary, const id& keyOrPosition) {
    return velt::dictionaryObject(dictionary, keyOrPosition);
}
VELT_INLINE_EXPORT id VELT_NSMUTABLEDICTIONARY_VALUE(const id& dictionary, const id& keyOrPosition) {
    return velt::dictionaryObject(dictionary, keyOrPosition);
}
/// The key at a position, as a new string; raises "VLCastException" with "Number expected" for a string.
VELT_DICTIONARY_FUNCTIONS(KEY, (const id& dictionary, const id& position))
/// There is an entry for the key. Boolean.
VELT_DICTIONARY_FUNCTIONS(CONTAINS, (const id& dictionary, const id& key))
#undef VELT_DICTIONARY_FUNCTIONS

/// Sets the value for a key, whether or not there was one. The three do the same.
VELT_INLINE_EXPORT id VELT_NSMUTABLEDICTIONARY_APPEND(const id& dictionary, const id& key, const id& value) {
    return velt::dictionarySet(dictionary, key, value);
}
VELT_INLINE_EXPORT id VELT_NSMUTABLEDICTIONARY_INSERT(const id& dictionary, const id& key, const id& value) {
    return velt::dictionarySet(dictionary, key, value);
}
VELT_INLINE_EXPORT id VELT_NSMUTABLEDICTIONARY_REPLACE(const id& dictionary, const id& key, const id& value) {
    return velt::dictionarySet(dictionary, key, value);
}
/// Removes the entry of a key, if there is one; removes all entries.
VELT_EXPORT id VELT_NSMUTABLEDICTIONARY_REMOVE(const id& dictionary, const id& key);
VELT_EXPORT id VELT_NSMUTABLEDICTIONARY_REMOVEALL(const id& dictionary);

/// Number of bytes, an unsigned integer.
VELT_EXPORT id VELT_NSDATA_COUNT(const id& data);
VELT_EXPORT id VELT_NSMUTABLEDATA_COUNT(const id& data);
