// The widget of a date picker: the toolkit's field for dates, or its calendar beside a clock.
#pragma once

#include "VELTRuntime/values/structures.h"

#include <QDateTime>
#include <QFontMetricsF>
#include <QWidget>

class NSDatePicker;
class NSDatePickerCell;
class QCalendarWidget;
class QDateTimeEdit;
class QLocale;

namespace velt {

class ClockFace;

/// The local moment of some seconds since the reference date, within the years that the toolkit shows.
QDateTime localMoment(double secondsSinceReference);
/// The locale's order and signs for the elements of a date picker, with the year in full.
QString dateFormat(const QLocale& locale, unsigned long elements);
/// The width of the widest date that a field for those parts may show.
int widestDate(const QFontMetricsF& metrics, unsigned long elements);
/// The smallest size of the calendar, the clock or both.
NSSize calendarSize(bool calendar, bool clock);

class DatePickerWidget final : public QWidget {
public:
    DatePickerWidget() = default;

    /// Shows what the cell says.
    void show(const NSDatePickerCell& cell);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    NSDatePicker* picker() const;
    void rebuild(bool asCalendar);
    void showField(const NSDatePickerCell& cell, const QDateTime& moment);
    void showCalendar(const NSDatePickerCell& cell, const QDateTime& moment);
    void placeParts();
    void chosen(const QDate& date, const QTime& time);

    bool showing_ = false;  // what the parts report is not a person's doing
    QDateTimeEdit* field_ = nullptr;
    QCalendarWidget* calendar_ = nullptr;
    ClockFace* clock_ = nullptr;
};

}  // namespace velt
