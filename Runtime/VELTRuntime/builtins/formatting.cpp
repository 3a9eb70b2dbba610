// Numbers as text, by templates.
#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/builtins/strings.h"

#include <cstdio>
#include <locale.h>

using namespace velt;

namespace {

constexpr long long kMostDigits = 1000;

/// A locale object: numbers as the user writes them, or as the language does.
locale_t numberLocale(bool localized) {
    static const locale_t language = newlocale(LC_ALL_MASK, "C", nullptr);
    static const locale_t users = [] {
        const locale_t own = newlocale(LC_ALL_MASK, "", nullptr);
        return own ? own : language;
    }();
    return localized ? users : language;
}

/// Sets the locale of the calling thread within a scope.
class LocaleScope {
public:
    explicit LocaleScope(locale_t locale) : before_(uselocale(locale)) {}
    ~LocaleScope() { uselocale(before_); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

private:
    locale_t before_;
};

/// The template is "%1.<digits><notation>".
id formatted(const id& value, const id& localized, const id& digits, char notation) {
    const bool forUser = VELT_CBOOL(localized);
    const long long decimals = VELT_CLONG(digits);
    const double number = VELT_CDOUBLE(value);
    const std::string text = "%1." + std::to_string(decimals) + notation;
    // A template with a negative count is no template: the formatter leaves it as it stands.
    if (decimals < 0) return velt::string(text);
    if (decimals > kMostDigits) {
        raise(kRuntimeException,
              "'Format': " + std::to_string(decimals) + " decimals are more than " + std::to_string(kMostDigits));
    }
    const LocaleScope scope(numberLocale(forUser));
    char bytes[kMostDigits + 400];
    const int length = notation == 'E'
                           ? std::snprintf(bytes, sizeof bytes, "%1.*E", static_cast<int>(decimals), number)
                           : std::snprintf(bytes, sizeof bytes, "%1.*F", static_cast<int>(decimals), number);
    return velt::string(std::string_view(bytes, static_cast<std::size_t>(length)));
}

}  // namespace

id VELT_FORMAT(const id& value, const id& localized) {
    id text = VELT_CSTRING(value);
    VELT_CBOOL(localized);
    return text;
}

id VELT_FORMATFLOAT(const id& value, const id& localized, const id& digits) {
    return formatted(value, localized, digits, 'E');
}

id VELT_FORMATDECIMAL(const id& value, const id& localized, const id& digits) {
    return formatted(value, localized, digits, 'F');
}

id VELT_HEX(const id& value) {
    char digits[24];
    const int length = std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(VELT_CLONG(value)));
    return velt::string(std::string_view(digits, static_cast<std::size_t>(length)));
}
