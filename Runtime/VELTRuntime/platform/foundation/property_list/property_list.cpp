#include "VELTRuntime/platform/foundation/property_list/property_list.h"

#include "VELTRuntime/platform/foundation/property_list/forms.h"
#include "VELTRuntime/values/string.h"

namespace velt {

PropertyListError::~PropertyListError() = default;

id PropertyListUid::description() const { return string("UID " + std::to_string(value_)); }

bool PropertyListUid::isEqual(const id& other) const {
    return is<PropertyListUid>(other) && as<PropertyListUid>(other)->value_ == value_;
}

std::size_t PropertyListUid::hash() const { return value_; }

id PropertyListUid::copy() const { return id(const_cast<PropertyListUid*>(this)); }

void PropertyListUid::describe(ClassBuilder<PropertyListUid>& c) {
    c.method("integerValue",
             [](const id& self, const id*) { return boxResult(long{as<PropertyListUid>(self)->value()}); });
}

namespace {

constexpr std::string_view kBlanks = " \t\r\n\f\v";

/// A "<" begins an element, a comment or a declaration unless only hexadecimal digits and blanks stand before the next
/// ">": that is data of the ASCII form.
bool isMarkup(std::string_view text) {
    const std::size_t other = text.find_first_not_of("0123456789abcdefABCDEF \t\r\n", 1);
    return other != text.npos && text[other] != '>';
}

}  // namespace

PropertyListForm propertyListForm(std::string_view bytes) {
    if (bytes.starts_with("bplist")) return PropertyListForm::Binary;
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    for (const std::string_view wide : {std::string_view("\xFF\xFE<\0", 4), std::string_view("\xFE\xFF\0<", 4),
                                        std::string_view("<\0", 2), std::string_view("\0<", 2)}) {
        if (bytes.starts_with(wide)) return PropertyListForm::Xml;
    }
    const std::size_t first = bytes.find_first_not_of(kBlanks);
    if (first != bytes.npos && bytes[first] == '<' && isMarkup(bytes.substr(first))) return PropertyListForm::Xml;
    return PropertyListForm::Ascii;
}

id readPropertyList(std::string_view bytes, Collections collections) {
    switch (propertyListForm(bytes)) {
    case PropertyListForm::Binary: return property_list::readBinary(bytes, collections);
    case PropertyListForm::Xml: return property_list::readXml(bytes, collections);
    case PropertyListForm::Ascii: break;
    }
    return property_list::readAscii(bytes, collections);
}

std::string writePropertyList(const id& root, PropertyListForm form) {
    switch (form) {
    case PropertyListForm::Binary: return property_list::writeBinary(root);
    case PropertyListForm::Xml: return property_list::writeXml(root);
    case PropertyListForm::Ascii: break;
    }
    throw PropertyListError("the ASCII form is only read");
}

}  // namespace velt
