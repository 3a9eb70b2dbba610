#include "VELTRuntime/platform/foundation/data.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/string.h"

velt::Class& NSData::entry() {
    static velt::Class& cls = velt::declareClass<NSData>("NSData", &NSObject::entry());
    return cls;
}
velt::Class& NSMutableData::entry() {
    static velt::Class& cls = velt::declareClass<NSMutableData>("NSMutableData", &NSData::entry());
    return cls;
}

id NSData::description() const {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "<";
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (i > 0 && i % 4 == 0) text += ' ';
        const auto byte = static_cast<unsigned char>(bytes_[i]);
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return velt::string(text + ">");
}

bool NSData::isEqual(const id& other) const {
    const NSData* data = velt::dataOf(other);
    return data && data->characters() == characters();
}

std::size_t NSData::hash() const { return std::hash<std::string_view>()(characters()); }

id NSData::copy() const {
    if (kind() == velt::Kind::Data) return id(const_cast<NSData*>(this));
    return velt::make<NSData>(characters());
}

void NSData::describe(velt::ClassBuilder<NSData>& c) {
    c.property("length", &NSData::length).method("mutableCopy", [](const id& self, const id*) {
        return id(velt::make<NSMutableData>(velt::dataOf(self)->characters()));
    });
}
