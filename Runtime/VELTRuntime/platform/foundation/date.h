// Dates: moments in time, and their texts in the Gregorian calendar.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <optional>
#include <string>
#include <string_view>

/// A moment, counted in seconds from the first of January 2001, 00:00 UTC; it does not change.
class VELT_EXPORT NSDate final : public NSObject {
public:
    explicit NSDate(double secondsSinceReference) : seconds_(secondsSinceReference) {}
    /// The present moment.
    static velt::Ref<NSDate> now();

    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    /// "2026-11-21 07:31:51 +0000".
    id description() const override;
    /// The moment in the user's time zone as a format says: "%Y" stands for the year, "%m", "%d", "%H", "%M", "%S"
    /// for two digits each, "%B" and "%A" for the names of month and weekday, and so on as in the C library. nil gives
    /// the usual description.
    id descriptionWithCalendarFormat(const id& format) const;
    /// The other is a date of the same moment.
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    /// Seconds from the first of January 2001, 00:00 UTC; negative before it.
    double timeIntervalSinceReferenceDate() const { return seconds_; }
    /// Seconds from the first of January 1970, 00:00 UTC.
    double timeIntervalSince1970() const;
    /// Seconds from another date to this one; 0 for nil.
    double timeIntervalSinceDate(const NSDate* other) const;
    /// -1, 0 or 1 as this date is earlier than, the same as or later than the other one. Raises "VLCastException" for
    /// what is no date.
    int compare(const id& other) const;
    static void describe(velt::ClassBuilder<NSDate>& c);

private:
    double seconds_;
};

namespace velt {

/// Seconds from the first of January 1970, 00:00 UTC, to the reference date.
inline constexpr double kReferenceSince1970 = 978307200;

/// A moment of the Gregorian calendar in UTC.
struct CalendarMoment {
    long year;  // 0 is the year before the first
    int month, day, hour, minute, second;
};

/// The moment, without its fraction of a second, in the calendar; nothing for what is no number and beyond some hundred
/// million years.
VELT_EXPORT std::optional<CalendarMoment> calendarMoment(double secondsSinceReference);
/// "2026-11-21T07:31:51Z", without the fraction of a second; nothing as above.
VELT_EXPORT std::optional<std::string> isoText(double secondsSinceReference);
/// Seconds since the reference date of such a text; nothing when it is none or names a day or time that there is not.
VELT_EXPORT std::optional<double> secondsOfIsoText(std::string_view text);

}  // namespace velt
