// Sets as programs see those of the editor: of words, and of characters.
#pragma once

#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/class.h"

/// Different values without an order. It does not change.
class VELT_EXPORT NSSet final : public NSObject {
    VELT_OBJECT(NSSet, NSObject)
public:
    NSSet() = default;
    /// The different elements of an array; none for what is no array.
    explicit NSSet(const id& array);

    std::size_t count() const { return elements_->count(); }
    bool containsObject(const id& value) const { return !elements_->objectForKey(value).isNil(); }
    /// A new array of the elements.
    id allObjects() const { return elements_->allKeys(); }
    id description() const override;
    /// The other is a set of equal elements.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override { return count(); }
    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<NSSet>& c);

private:
    velt::Ref<NSMutableDictionary> elements_ = velt::make<NSMutableDictionary>();
};

/// Characters of a kind.
class VELT_EXPORT NSCharacterSet final : public NSObject {
    VELT_OBJECT(NSCharacterSet, NSObject)
public:
    using Rule = bool (*)(char32_t codePoint);

    NSCharacterSet() = default;
    explicit NSCharacterSet(Rule rule) : rule_(rule) {}

    /// The code point of that number is of the kind.
    bool characterIsMember(long codePoint) const {
        return rule_ && codePoint >= 0 && codePoint <= 0x10FFFF && rule_(static_cast<char32_t>(codePoint));
    }
    static void describe(velt::ClassBuilder<NSCharacterSet>& c);

private:
    Rule rule_ = nullptr;
};
