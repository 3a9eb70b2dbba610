#include "VELTRuntime/platform/foundation/date.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>

velt::Class& NSDate::entry() {
    static velt::Class& cls = velt::declareClass<NSDate>("NSDate", &NSObject::entry());
    return cls;
}

namespace {
// The class makes dates by name before a program has one.
[[maybe_unused]] const velt::Class& entered = NSDate::entry();
}  // namespace

namespace velt {

namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kReferenceDay = 11323;  // days from 1970 to 2001
constexpr double kMostSeconds = 1e16;
// The calendar repeats every 400 years; they are counted from the first of March, so that a leap day is the last one.
constexpr std::int64_t kDaysOfCycle = 146097;
constexpr std::int64_t kMarchOfYear0 = 719468;  // days from the first of March of the year 0 to 1970

std::int64_t floored(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

std::int64_t daysSince1970(std::int64_t year, int month, int day) {
    const std::int64_t marchYear = month > 2 ? year : year - 1;
    const std::int64_t cycle = floored(marchYear, 400), yearOfCycle = marchYear - cycle * 400;
    const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const std::int64_t dayOfCycle = yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;
    return cycle * kDaysOfCycle + dayOfCycle - kMarchOfYear0;
}

CalendarMoment momentOfDay(std::int64_t days) {
    days += kMarchOfYear0;
    const std::int64_t cycle = floored(days, kDaysOfCycle), dayOfCycle = days - cycle * kDaysOfCycle;
    const std::int64_t yearOfCycle =
        (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / (kDaysOfCycle - 1)) / 365;
    const std::int64_t dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    const int month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    const int day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
    return {cycle * 400 + yearOfCycle + (month <= 2 ? 1 : 0), month, day, 0, 0, 0};
}

std::string formatted(const CalendarMoment& moment, const char* format) {
    char text[64];
    const int length = std::snprintf(text, sizeof text, format, moment.year, moment.month, moment.day, moment.hour,
                                     moment.minute, moment.second);
    return {text, static_cast<std::size_t>(length)};
}

/// Takes a number of exactly that many digits, or of at least as many, and the character after it off the front.
bool takeNumber(std::string_view& text, std::size_t least, std::size_t most, char after, long& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto digits = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || digits < least || digits > most || text.front() == '-' || digits >= text.size() ||
        *end != after) {
        return false;
    }
    text.remove_prefix(digits + 1);
    return true;
}

}  // namespace

std::optional<CalendarMoment> calendarMoment(double secondsSinceReference) {
    if (!(std::fabs(secondsSinceReference) <= kMostSeconds)) return std::nullopt;
    const auto seconds = static_cast<std::int64_t>(std::floor(secondsSinceReference));
    const std::int64_t day = floored(seconds, kDay);
    CalendarMoment moment = momentOfDay(day + kReferenceDay);
    const int ofDay = static_cast<int>(seconds - day * kDay);
    moment.hour = ofDay / 3600;
    moment.minute = ofDay / 60 % 60;
    moment.second = ofDay % 60;
    return moment;
}

std::optional<std::string> isoText(double secondsSinceReference) {
    const auto moment = calendarMoment(secondsSinceReference);
    if (!moment) return std::nullopt;
    return formatted(*moment, "%04ld-%02d-%02dT%02d:%02d:%02dZ");
}

std::optional<double> secondsOfIsoText(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    long year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (text.empty() || !takeNumber(text, isNegative ? 3 : 4, 9, '-', year) || text.empty() ||
        !takeNumber(text, 2, 2, '-', month) || text.empty() || !takeNumber(text, 2, 2, 'T', day) || text.empty() ||
        !takeNumber(text, 2, 2, ':', hour) || text.empty() || !takeNumber(text, 2, 2, ':', minute) || text.empty() ||
        !takeNumber(text, 2, 2, 'Z', second) || !text.empty()) {
        return std::nullopt;
    }
    if (isNegative) year = -year;
    if (month < 1 || month > 12 || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    const std::int64_t days = daysSince1970(year, static_cast<int>(month), static_cast<int>(day));
    const CalendarMoment same = momentOfDay(days);
    if (same.month != month || same.day != day) return std::nullopt;
    return static_cast<double>((days - kReferenceDay) * kDay + hour * 3600 + minute * 60 + second);
}

}  // namespace velt

velt::Ref<NSDate> NSDate::now() {
    const std::chrono::duration<double> since1970 = std::chrono::system_clock::now().time_since_epoch();
    return velt::make<NSDate>(since1970.count() - velt::kReferenceSince1970);
}

id NSDate::description() const {
    const auto moment = velt::calendarMoment(seconds_);
    if (!moment) return velt::string("date " + velt::realText(seconds_));
    return velt::string(velt::formatted(*moment, "%04ld-%02d-%02d %02d:%02d:%02d +0000"));
}

bool NSDate::isEqual(const id& other) const {
    return velt::is<NSDate>(other) && velt::as<NSDate>(other)->seconds_ == seconds_;
}

std::size_t NSDate::hash() const { return std::hash<double>()(seconds_); }

id NSDate::copy() const { return id(const_cast<NSDate*>(this)); }

double NSDate::timeIntervalSince1970() const { return seconds_ + velt::kReferenceSince1970; }

double NSDate::timeIntervalSinceDate(const NSDate* other) const { return other ? seconds_ - other->seconds_ : 0; }

int NSDate::compare(const id& other) const {
    if (!velt::is<NSDate>(other)) velt::raiseClassExpected(entry());
    const double seconds = velt::as<NSDate>(other)->seconds_;
    return seconds_ < seconds ? -1 : seconds_ > seconds ? 1 : 0;
}

id NSDate::descriptionWithCalendarFormat(const id& format) const {
    if (format.isNil() || !velt::calendarMoment(seconds_)) return description();
    const auto moment = static_cast<std::time_t>(std::floor(timeIntervalSince1970()));
    std::tm parts{};
    if (!localtime_r(&moment, &parts)) return description();
    const std::string wanted = velt::utf8(VELT_CSTRING(format));
    constexpr std::size_t kMostOfOne = 64;  // a name of a month, a whole date in some language
    std::string text((wanted.size() + 1) * kMostOfOne, '\0');
    text.resize(std::strftime(text.data(), text.size(), wanted.c_str(), &parts));
    return velt::string(text);
}

void NSDate::describe(velt::ClassBuilder<NSDate>& c) {
    static constexpr auto dateAt = [](double seconds) { return id(velt::make<NSDate>(seconds)); };
    static constexpr auto dateOfText = [](std::string_view text) { return dateAt(*velt::secondsOfIsoText(text)); };
    c.property("timeIntervalSinceReferenceDate", &NSDate::timeIntervalSinceReferenceDate)
        .property("timeIntervalSince1970", &NSDate::timeIntervalSince1970)
        .method("timeIntervalSinceDate:",
                [](const id& self, const id* a) {
                    return velt::boxResult(velt::as<NSDate>(self)->timeIntervalSinceDate(velt::to<NSDate>(a[0])));
                })
        .method("compare:", &NSDate::compare)
        .method("descriptionWithCalendarFormat:timeZone:locale:",
                // The user's own time zone and language are the only ones.
                [](const id& self, const id* a) { return velt::as<NSDate>(self)->descriptionWithCalendarFormat(a[0]); })
        .classMethod("date", [](const id&, const id*) { return id(now()); })
        .classMethod("dateWithTimeIntervalSinceNow:",
                     [](const id&, const id* a) { return dateAt(now()->seconds_ + VELT_CDOUBLE(a[0])); })
        .classMethod("dateWithTimeIntervalSince1970:",
                     [](const id&, const id* a) { return dateAt(VELT_CDOUBLE(a[0]) - velt::kReferenceSince1970); })
        .classMethod("dateWithTimeIntervalSinceReferenceDate:",
                     [](const id&, const id* a) { return dateAt(VELT_CDOUBLE(a[0])); })
        .classMethod("distantPast", [](const id&, const id*) { return dateOfText("0001-01-01T00:00:00Z"); })
        .classMethod("distantFuture", [](const id&, const id*) { return dateOfText("4001-01-01T00:00:00Z"); });
}
