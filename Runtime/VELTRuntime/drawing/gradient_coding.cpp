// Gradients in keyed archives.
#include "VELTRuntime/drawing/gradient.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/coder.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/string.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>

using velt::ColorStop;

namespace {

const id& countKey() { return "PXGradientElementCount"_v; }
const id& modeKey() { return "PXGradientBlendingMode"_v; }
id elementKey(std::size_t index) {
    return velt::string(std::string("PXGradientElement").append(std::to_string(index)));
}

NSCoder& keyedCoder(const id& coder) {
    if (!velt::is<NSCoder>(coder) || !velt::as<NSCoder>(coder)->allowsKeyedCoding()) {
        velt::raise(velt::kInvalidArgumentException, "Only supports NSKeyedArchiver coders");
    }
    return *velt::as<NSCoder>(coder);
}

// A stop is written as five Doubles: red, green, blue, alpha, position; each from its lowest byte to its highest.
constexpr std::size_t kDoubles = 5, kBytes = kDoubles * sizeof(double);

std::string recordOf(const ColorStop& stop) {
    std::string record;
    for (const double part : {stop.color.red, stop.color.green, stop.color.blue, stop.color.alpha, stop.position}) {
        const auto bits = std::bit_cast<std::uint64_t>(part);
        for (unsigned shift = 0; shift < 64; shift += 8) record.push_back(static_cast<char>(bits >> shift & 0xFF));
    }
    return record;
}

ColorStop stopOf(const id& record) {
    const NSData* data = velt::dataOf(record);
    if (!data || data->length() != kBytes) throw velt::ArchiveDamage("a gradient lacks a stop");
    const std::string_view bytes = data->characters();
    double parts[kDoubles];
    for (std::size_t i = 0; i < kDoubles; ++i) {
        std::uint64_t bits = 0;
        for (std::size_t byte = 0; byte < 8; ++byte) {
            bits |= std::uint64_t{static_cast<unsigned char>(bytes[i * 8 + byte])} << (8 * byte);
        }
        parts[i] = std::bit_cast<double>(bits);
        if (!std::isfinite(parts[i])) throw velt::ArchiveDamage("a gradient's stop is not of numbers");
        if (i + 1 < kDoubles) parts[i] = std::min(std::max(parts[i], 0.0), 1.0);
    }
    return {{parts[0], parts[1], parts[2], parts[3]}, parts[4]};
}

}  // namespace

void PXGradient::encodeWithCoder(const id& archiver) const {
    NSCoder& coder = keyedCoder(archiver);
    const std::vector<ColorStop>& list = stops_.stops();
    for (std::size_t i = 0; i < list.size(); ++i) {
        coder.encodeBytes(velt::make<NSData>(recordOf(list[i])).get(), kBytes, elementKey(i));
    }
    coder.encodeInteger(static_cast<int>(list.size()), countKey());
    coder.encodeInteger(blendingMode(), modeKey());
}

id PXGradient::initWithCoder(const id& unarchiver) {
    NSCoder& coder = keyedCoder(unarchiver);
    const auto mode = static_cast<velt::BlendingMode>(coder.decodeInt(modeKey()));
    const int count = coder.decodeInt(countKey());
    if (count < 0) throw velt::ArchiveDamage("a gradient has no number of stops");
    std::vector<ColorStop> read;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        read.push_back(stopOf(coder.decodeBytes(elementKey(i))));
    }
    stops_ = velt::GradientStops(std::move(read), mode);
    return id(this);
}
