#include "VELTRuntime/platform/foundation/attributed_string.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/text/hashing.h"

#include <algorithm>

using velt::Ref;
using velt::RunList;

namespace {

/// A dictionary that nobody changes any more; nil stays nil.
id frozenAttributes(const id& attributes) {
    return velt::mutableDictionaryOf(attributes) ? attributes.object()->copy() : attributes;
}

id attributeOf(const id& attributes, const id& name) {
    const NSDictionary* dictionary = velt::dictionaryOf(attributes);
    return dictionary ? dictionary->objectForKey(name) : id();
}

}  // namespace

namespace velt {

id attributesWith(const id& attributes, const id& name, const id& value) {
    const NSDictionary* old = dictionaryOf(attributes);
    const auto extended = old ? make<NSMutableDictionary>(*old) : make<NSMutableDictionary>();
    extended->setObject(value, name);
    return extended->copy();
}

id attributesWithout(const id& attributes, const id& name) {
    const NSDictionary* old = dictionaryOf(attributes);
    if (!old || old->objectForKey(name).isNil()) return attributes;
    const auto reduced = make<NSMutableDictionary>(*old);
    reduced->removeObject(name);
    return reduced->count() == 0 ? id() : reduced->copy();
}

id mergedAttributes(const id& attributes, const id& added) {
    const NSDictionary* more = dictionaryOf(added);
    if (!more || more->count() == 0) return attributes;
    const NSDictionary* old = dictionaryOf(attributes);
    if (!old) return frozenAttributes(added);
    const auto merged = make<NSMutableDictionary>(*old);
    more->forEach([&](const id& key, const id& value) { merged->setObject(value, key); });
    return merged->copy();
}

void storeRange(const id& array, NSRange range) {
    if (array.isNil()) return;
    auto* list = to<NSMutableArray>(array);
    list->removeAll();
    list->append(VELT_ID(range));
}

}  // namespace velt

velt::Class& NSAttributedString::entry() {
    static velt::Class& cls = velt::declareClass<NSAttributedString>("NSAttributedString", &NSObject::entry());
    return cls;
}
velt::Class& NSMutableAttributedString::entry() {
    static velt::Class& cls =
        velt::declareClass<NSMutableAttributedString>("NSMutableAttributedString", &NSAttributedString::entry());
    return cls;
}

NSAttributedString::NSAttributedString(std::u16string_view text) : NSAttributedString(text, nil) {}

NSAttributedString::NSAttributedString(std::u16string_view text, const id& attributes)
    : NSObject(velt::Kind::AttributedString), text_(velt::make<NSMutableString>(text)) {
    runs_.append(text.size(), frozenAttributes(attributes));
}

NSAttributedString::NSAttributedString(std::u16string_view text, RunList runs)
    : NSObject(velt::Kind::AttributedString), text_(velt::make<NSMutableString>(text)), runs_(std::move(runs)) {
    assert(runs_.length() == text.size());
}

NSAttributedString::NSAttributedString(const NSAttributedString& other)
    : NSObject(velt::Kind::AttributedString),
      text_(velt::make<NSMutableString>(static_cast<const NSString&>(*other.text_))), runs_(other.runs_) {}

void NSAttributedString::appendText(std::u16string_view text, const id& attributes) {
    text_->append(text);
    runs_.append(text.size(), attributes);
}

id NSAttributedString::description() const { return string(); }

bool NSAttributedString::isEqual(const id& other) const {
    const NSAttributedString* attributed = velt::attributedStringOf(other);
    if (!attributed || attributed->view() != view()) return false;
    return std::equal(runs_.runs().begin(), runs_.runs().end(), attributed->runs_.runs().begin(),
                      attributed->runs_.runs().end(), [](const RunList::Run& a, const RunList::Run& b) {
                          return a.end == b.end && velt::isSameAttribute(a.attributes, b.attributes);
                      });
}

std::size_t NSAttributedString::hash() const { return velt::text::hashOf(view()); }

id NSAttributedString::copy() const { return velt::make<NSAttributedString>(*this); }

void NSAttributedString::visitOwned(velt::OwnedVisitor& visitor) {
    for (RunList::Run& run : runs_.runs()) {
        if (run.attributes.isObject()) visitor.visit(run.attributes);
    }
    NSObject::visitOwned(visitor);
}

void velt::requireRange(const NSObject& asked, const char* operation, NSRange range, std::size_t length) {
    if (range.location <= length && range.length <= length - range.location) return;
    raiseRange("'" + asked.isa().name() + "' " + operation, range.location, range.length, length);
}

void NSAttributedString::requireRange(const char* operation, NSRange range) const {
    velt::requireRange(*this, operation, range, length());
}

id NSAttributedString::attributesAt(long position, NSRange* range) const {
    if (static_cast<std::size_t>(position) >= length()) {
        velt::raiseRange("'" + isa().name() + "' attributesAtIndex:", position, length());
    }
    return runs_.at(static_cast<std::size_t>(position), range).attributes;
}

id NSAttributedString::attributeAt(const id& name, long position, NSRange* range) const {
    NSRange found;
    id value = attributeOf(attributesAt(position, &found), name);
    if (!range) return value;
    // Neighbouring runs may differ in other attributes only.
    NSRange next;
    while (found.location > 0 &&
           velt::isSameAttribute(value, attributeOf(runs_.at(found.location - 1, &next).attributes, name))) {
        found = {next.location, found.length + next.length};
    }
    for (std::size_t end = found.location + found.length;
         end < length() && velt::isSameAttribute(value, attributeOf(runs_.at(end, &next).attributes, name));
         end = found.location + found.length) {
        found.length += next.length;
    }
    *range = found;
    return value;
}

id NSAttributedString::attributedSubstring(NSRange range) const {
    requireRange("attributedSubstringFromRange:", range);
    Ref<NSAttributedString> part = velt::make<NSAttributedString>();
    part->text_ = velt::make<NSMutableString>(*text_, range.location, range.length);
    part->runs_ = runs_.part(range);
    return part;
}

void NSMutableAttributedString::append(const NSAttributedString& other) { replaceCharacters({length(), 0}, other); }

id NSMutableAttributedString::attributesForReplacing(NSRange range) const {
    if (length() == 0) return nil;
    if (range.length == 0 && range.location > 0) return runs_.at(range.location - 1).attributes;
    return runs_.at(std::min<std::size_t>(range.location, length() - 1)).attributes;
}

/// Appending claims room behind the text instead of copying it, however long it has become.
void NSMutableAttributedString::putText(NSRange range, std::u16string_view text) {
    if (range.length == 0 && range.location == length()) {
        text_->append(text);
    } else {
        text_->replace(range.location, range.length, text);
    }
}

void NSMutableAttributedString::replaceCharacters(NSRange range, std::u16string_view text) {
    requireRange("replaceCharactersInRange:withString:", range);
    const id attributes = attributesForReplacing(range);
    putText(range, text);
    runs_.replace(range, text.size(), attributes);
    edited(range, text.size(), true);
}

void NSMutableAttributedString::replaceCharacters(NSRange range, const NSAttributedString& text) {
    requireRange("replaceCharactersInRange:withAttributedString:", range);
    const auto source = velt::make<NSMutableAttributedString>(text);  // it may be this one
    if (range.length == length()) {
        text_ = source->text_;  // which shares the other's units
    } else {
        putText(range, source->view());
    }
    runs_.replace(range, source->runs());
    edited(range, source->length(), true);
}

void NSMutableAttributedString::setAttributes(const id& attributes, NSRange range) {
    requireRange("setAttributes:range:", range);
    id kept = frozenAttributes(attributes);
    runs_.change(range, [&](const id&) { return kept; });
    edited(range, range.length, false);
}

void NSMutableAttributedString::addAttribute(const id& name, const id& value, NSRange range) {
    requireRange("addAttribute:value:range:", range);
    runs_.change(range, [&](const id& attributes) { return velt::attributesWith(attributes, name, value); });
    edited(range, range.length, false);
}

void NSMutableAttributedString::addAttributes(const id& added, NSRange range) {
    requireRange("addAttributes:range:", range);
    runs_.change(range, [&](const id& attributes) { return velt::mergedAttributes(attributes, added); });
    edited(range, range.length, false);
}

void NSMutableAttributedString::removeAttribute(const id& name, NSRange range) {
    requireRange("removeAttribute:range:", range);
    runs_.change(range, [&](const id& attributes) { return velt::attributesWithout(attributes, name); });
    edited(range, range.length, false);
}

void NSMutableAttributedString::setAttributedString(const NSAttributedString& other) {
    replaceCharacters({0, length()}, other);
}

void NSAttributedString::describe(velt::ClassBuilder<NSAttributedString>& c) {
    c.property("length", &NSAttributedString::length)
        .property("string", &NSAttributedString::string)
        .method("attributesAtIndex:",
                static_cast<id (NSAttributedString::*)(long) const>(&NSAttributedString::attributesAt))
        .method("attributesAtIndex:effectiveRange:",
                [](const id& self, const id* a) {
                    NSRange range;
                    id attributes = velt::attributedStringOf(self)->attributesAt(VELT_CINTEGER(a[0]), &range);
                    velt::storeRange(a[1], range);
                    return attributes;
                })
        .method("attribute:atIndex:effectiveRange:",
                [](const id& self, const id* a) {
                    NSRange range;
                    id value = velt::attributedStringOf(self)->attributeAt(a[0], VELT_CINTEGER(a[1]), &range);
                    velt::storeRange(a[2], range);
                    return value;
                })
        .method("attributedSubstringFromRange:", &NSAttributedString::attributedSubstring)
        .method("isEqualToAttributedString:", &NSAttributedString::isEqual)
        .method("mutableCopy", [](const id& self, const id*) {
            return id(velt::make<NSMutableAttributedString>(*velt::attributedStringOf(self)));
        });
}

namespace {

NSMutableAttributedString& changeable(const id& self) { return *velt::as<NSMutableAttributedString>(self); }

const NSAttributedString& given(const id& value, const char* operation, const char* failure) {
    const auto* other = velt::to<NSAttributedString>(value);
    if (!other) {
        velt::raise(velt::kInvalidArgumentException,
                    std::string("'NSMutableAttributedString' ") + operation + ": nil " + failure);
    }
    return *other;
}

}  // namespace

void NSMutableAttributedString::describe(velt::ClassBuilder<NSMutableAttributedString>& c) {
    c.method("setAttributes:range:",
             [](const id& self, const id* a) {
                 const id attributes = velt::to<NSDictionary>(a[0]) ? a[0] : id();
                 changeable(self).setAttributes(attributes, VELT_CNSRANGE(a[1]));
                 return id();
             })
        .method("addAttribute:value:range:", &NSMutableAttributedString::addAttribute)
        .method("addAttributes:range:",
                [](const id& self, const id* a) {
                    velt::to<NSDictionary>(a[0]);
                    changeable(self).addAttributes(a[0], VELT_CNSRANGE(a[1]));
                    return id();
                })
        .method("removeAttribute:range:", &NSMutableAttributedString::removeAttribute)
        .method("replaceCharactersInRange:withString:",
                [](const id& self, const id* a) {
                    const id text = VELT_CSTRING(a[1]);
                    changeable(self).replaceCharacters(VELT_CNSRANGE(a[0]), velt::textOf(text));
                    return id();
                })
        .method("replaceCharactersInRange:withAttributedString:",
                [](const id& self, const id* a) {
                    const auto& text = given(a[1], "replaceCharactersInRange:withAttributedString:", "is no text");
                    changeable(self).replaceCharacters(VELT_CNSRANGE(a[0]), text);
                    return id();
                })
        .method("insertAttributedString:atIndex:",
                [](const id& self, const id* a) {
                    const auto& text = given(a[0], "insertAttributedString:atIndex:", "cannot be inserted");
                    const auto position = static_cast<unsigned long>(VELT_CINTEGER(a[1]));
                    changeable(self).replaceCharacters({position, 0}, text);
                    return id();
                })
        .method("deleteCharactersInRange:",
                [](const id& self, const id* a) {
                    changeable(self).replaceCharacters(VELT_CNSRANGE(a[0]), std::u16string_view());
                    return id();
                })
        .method("setAttributedString:",
                [](const id& self, const id* a) {
                    changeable(self).setAttributedString(given(a[0], "setAttributedString:", "is no text"));
                    return id();
                })
        .method("beginEditing", &NSMutableAttributedString::beginEditing)
        .method("endEditing", &NSMutableAttributedString::endEditing)
        .method("appendAttributedString:", [](const id& self, const id* a) {
            changeable(self).append(given(a[0], "appendAttributedString:", "cannot be appended"));
            return id();
        });
}
