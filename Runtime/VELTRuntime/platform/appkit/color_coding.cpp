// Colours in archives: a number says which kind of components follow, as text that ends with a zero byte.
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/system_colors.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/coder.h"
#include "VELTRuntime/values/string.h"

#include <charconv>
#include <cmath>
#include <vector>

using velt::ColorComponents;

namespace {

enum ColorSpace : long {
    kCalibratedRgb = 1,
    kDeviceRgb = 2,
    kCalibratedWhite = 3,
    kDeviceWhite = 4,
    kDeviceCmyk = 5,
    kNamed = 6,
};

const id& spaceKey() { return "NSColorSpace"_v; }
const id& rgbKey() { return "NSRGB"_v; }
const id& whiteKey() { return "NSWhite"_v; }
const id& cmykKey() { return "NSCMYK"_v; }
const id& catalogKey() { return "NSCatalogName"_v; }
const id& nameKey() { return "NSColorName"_v; }
const id& presentKey() { return "NSColor"_v; }

void append(std::string& text, double number) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    if (!text.empty()) text += ' ';
    text.append(digits, end);
}

std::string componentText(const ColorComponents& color) {
    std::string text;
    for (const double part : {color.red, color.green, color.blue}) append(text, part);
    if (color.alpha != 1) append(text, color.alpha);
    return text + '\0';
}

[[noreturn]] void raiseDamaged() { throw velt::ArchiveDamage("a colour has no components"); }

/// The numbers under a key: so many, and one more when the colour is not opaque.
std::vector<double> numbersUnder(NSCoder& coder, const id& key, std::size_t count) {
    const id bytes = coder.decodeBytes(key);
    const NSData* data = velt::dataOf(bytes);
    if (!data) raiseDamaged();
    std::string_view rest = data->characters();
    rest = rest.substr(0, rest.find('\0'));
    std::vector<double> numbers;
    while (!rest.empty()) {
        const std::size_t space = std::min(rest.find(' '), rest.size());
        const std::string_view word = rest.substr(0, space);
        rest.remove_prefix(std::min(space + 1, rest.size()));
        if (word.empty()) continue;
        double number = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(number)) raiseDamaged();
        numbers.push_back(std::clamp(number, 0.0, 1.0));
    }
    if (numbers.size() == count) numbers.push_back(1);
    if (numbers.size() != count + 1) raiseDamaged();
    return numbers;
}

}  // namespace

void NSColor::encodeWithCoder(const id& archiver) const {
    NSCoder& coder = velt::toCoder(archiver);
    if (system_) {
        const ColorComponents now = components();
        coder.encodeInteger(kNamed, spaceKey());
        coder.encodeObject("System"_v, catalogKey());
        coder.encodeObject(colorNameComponent(), nameKey());
        coder.encodeObject(velt::make<NSColor>(now.red, now.green, now.blue, now.alpha), presentKey());
        return;
    }
    const std::string text = componentText(fixed_);
    coder.encodeInteger(kDeviceRgb, spaceKey());
    coder.encodeBytes(velt::make<NSData>(text).get(), static_cast<long>(text.size()), rgbKey());
}

id NSColor::initWithCoder(const id& unarchiver) {
    NSCoder& coder = velt::toCoder(unarchiver);
    switch (coder.decodeInteger(spaceKey())) {
    case kCalibratedRgb:
    case kDeviceRgb: {
        const auto parts = numbersUnder(coder, rgbKey(), 3);
        fixed_ = {parts[0], parts[1], parts[2], parts[3]};
        break;
    }
    case kCalibratedWhite:
    case kDeviceWhite: {
        const auto parts = numbersUnder(coder, whiteKey(), 1);
        fixed_ = {parts[0], parts[0], parts[0], parts[1]};
        break;
    }
    case kDeviceCmyk: {
        const auto parts = numbersUnder(coder, cmykKey(), 4);
        const auto light = [black = parts[3]](double ink) { return (1 - ink) * (1 - black); };
        fixed_ = {light(parts[0]), light(parts[1]), light(parts[2]), parts[4]};
        break;
    }
    case kNamed: {
        const id name = coder.decodeObject(nameKey());
        const id present = coder.decodeObject(presentKey());
        system_ = velt::isString(name) ? velt::systemColor(velt::utf8(name)) : nullptr;
        if (velt::is<NSColor>(present)) {
            fixed_ = velt::as<NSColor>(present)->components();
        } else if (!system_) {
            raiseDamaged();
        }
        break;
    }
    default: throw velt::ArchiveDamage("a colour is of no known colour space");
    }
    return id(this);
}
