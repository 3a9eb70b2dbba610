#include "VELTRuntime/platform/foundation/date.h"
#include "support/environment.h"
#include "support/generated.h"
#include "support/values.h"

#include <cmath>
#include <ctime>

using namespace velt::test;

namespace {
/// The user's time zone while this object lives.
class TimeZone {
public:
    explicit TimeZone(const char* name) : variable_(std::in_place, "TZ", name) { tzset(); }
    ~TimeZone() {
        variable_.reset();
        tzset();
    }

private:
    std::optional<EnvironmentVariable> variable_;
};

id date(double seconds) { return velt::make<NSDate>(seconds); }
std::string iso(double seconds) { return velt::isoText(seconds).value_or("none"); }
}  // namespace

TEST(Dates, ShowThemselvesInUtc) {
    EXPECT_VALUE("NSDate 2001-01-01 00:00:00 +0000", date(0));
    EXPECT_VALUE("NSDate 2026-11-21 07:31:51 +0000", date(816939111));
    EXPECT_VALUE("NSDate 2000-12-31 23:59:59 +0000", date(-0.5));
    EXPECT_VALUE("NSDate 1970-01-01 00:00:00 +0000", date(-978307200));
    EXPECT_VALUE("NSDate date nan", date(std::nan("")));
}

TEST(Dates, ShowThemselvesByAFormatInTheUsersTimeZone) {
    const auto shown = [](double seconds, const id& format) {
        return velt::send(date(seconds), "descriptionWithCalendarFormat:timeZone:locale:", format, nil, nil);
    };
    const TimeZone utc("UTC");
    EXPECT_VALUE("'2026-11-21 07:31'", shown(816939111, "%Y-%m-%d %H:%M"_v));
    EXPECT_VALUE("'100%, 51 s'", shown(816939111, "100%%, %S s"_v));
    EXPECT_VALUE("'2000-12-31 23:59:59'", shown(-0.5, "%Y-%m-%d %H:%M:%S"_v));
    EXPECT_VALUE("''", shown(0, ""_v));
    EXPECT_VALUE("'2001-01-01 00:00:00 +0000'", shown(0, nil));
    EXPECT_VALUE("'date nan'", shown(std::nan(""), "%Y"_v));
    const TimeZone east("UTC-2");
    EXPECT_VALUE("'21. 09:31'", shown(816939111, "%d. %H:%M"_v));
}

TEST(Dates, AreEqualAndOrderedByTheirMoment) {
    EXPECT_TRUE(velt::isEqual(date(1.5), date(1.5)));
    EXPECT_FALSE(velt::isEqual(date(1.5), date(2)));
    EXPECT_FALSE(velt::isEqual(date(1), integer(1)));
    EXPECT_EQ(velt::hash(date(0.0)), velt::hash(date(-0.0)));
    EXPECT_VALUE("q -1", velt::send(date(1), "compare:", date(2)));
    EXPECT_VALUE("q 0", velt::send(date(2), "compare:", date(2)));
    EXPECT_VALUE("q 1", velt::send(date(3), "compare:", date(2)));
    EXPECT_CAST_FAILURE("'NSDate' expected", velt::send(date(3), "compare:", integer(2)));
    EXPECT_VALUE("d 3.5", velt::send(date(3.5), "timeIntervalSinceReferenceDate"));
    EXPECT_VALUE("d 978307203.5", velt::send(date(3.5), "timeIntervalSince1970"));
    EXPECT_VALUE("d -1.5", velt::send(date(1), "timeIntervalSinceDate:", date(2.5)));
    const id moment = date(1);
    EXPECT_TRUE(velt::copy(moment) == moment);
}

TEST(Dates, AreMadeByTheirClass) {
    const id cls = velt::Class::named("NSDate")->object();
    EXPECT_VALUE("NSDate 1970-01-02 00:00:00 +0000", velt::send(cls, "dateWithTimeIntervalSince1970:", integer(86400)));
    EXPECT_VALUE("NSDate 2001-01-01 00:00:01 +0000",
                 velt::send(cls, "dateWithTimeIntervalSinceReferenceDate:", VELT_ID(1.5)));
    EXPECT_VALUE("NSDate 0001-01-01 00:00:00 +0000", velt::send(cls, "distantPast"));
    EXPECT_VALUE("NSDate 4001-01-01 00:00:00 +0000", velt::send(cls, "distantFuture"));
    const id before = NSDate::now(), date = velt::send(cls, "date"), after = NSDate::now();
    EXPECT_VALUE("q 1", VELT_ID(static_cast<long>(velt::as<NSDate>(date)->compare(before) >= 0)));
    EXPECT_VALUE("q 1", VELT_ID(static_cast<long>(velt::as<NSDate>(after)->compare(date) >= 0)));
    const id later = velt::send(cls, "dateWithTimeIntervalSinceNow:", integer(3600));
    const double ahead = velt::as<NSDate>(later)->timeIntervalSinceDate(velt::as<NSDate>(after));
    EXPECT_NEAR(3600, ahead, 60);
    EXPECT_CAST_FAILURE("'Double' expected", velt::send(cls, "dateWithTimeIntervalSince1970:", date));
}

TEST(Dates, GoByTheGregorianCalendar) {
    EXPECT_EQ("2000-02-29T00:00:00Z", iso(-26524800));
    EXPECT_EQ("1900-03-01T00:00:00Z", iso(*velt::secondsOfIsoText("1900-02-28T00:00:00Z") + 86400));
    EXPECT_EQ("0001-01-01T00:00:00Z", iso(-63113904000));
    EXPECT_EQ("0000-12-31T23:59:59Z", iso(-63113904001));
    EXPECT_EQ("-001-12-31T00:00:00Z", iso(*velt::secondsOfIsoText("0000-01-01T00:00:00Z") - 86400));
    EXPECT_EQ("12000-01-01T00:00:00Z", iso(*velt::secondsOfIsoText("12000-01-01T00:00:00Z")));
    EXPECT_EQ("none", iso(1e17));
    EXPECT_EQ("none", iso(-std::numeric_limits<double>::infinity()));
}

TEST(Dates, AreReadOnlyFromDaysAndTimesThatThereAre) {
    EXPECT_EQ(816939111, velt::secondsOfIsoText("2026-11-21T07:31:51Z"));
    EXPECT_EQ(*velt::secondsOfIsoText("-001-12-31T00:00:00Z"), *velt::secondsOfIsoText("0000-01-01T00:00:00Z") - 86400);
    for (const char* text :
         {"", "2026", "2026-11-21", "2026-11-21T07:31:51", "2026-11-21 07:31:51Z", "2026-11-21T07:31:51Zx",
          "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z", "2026-02-29T00:00:00Z", "1900-02-29T00:00:00Z",
          "2026-04-31T00:00:00Z", "2026-04-00T00:00:00Z", "2026-04-01T24:00:00Z", "2026-04-01T00:60:00Z",
          "2026-04-01T00:00:60Z", "226-04-01T00:00:00Z", "2026-4-01T00:00:00Z", "--26-04-01T00:00:00Z",
          "99999999999-01-01T00:00:00Z"}) {
        EXPECT_EQ(std::nullopt, velt::secondsOfIsoText(text)) << text;
    }
}

using GeneratedDates = Generated;

TEST_F(GeneratedDates, ReadBackAsTheSameSecond) {
    for (int i = 0; i < iterations(100000); ++i) {
        const double seconds = static_cast<double>(static_cast<std::int64_t>(bits()) >> 14);
        const auto text = velt::isoText(seconds);
        ASSERT_TRUE(text);
        ASSERT_EQ(seconds, velt::secondsOfIsoText(*text)) << *text;
    }
}
