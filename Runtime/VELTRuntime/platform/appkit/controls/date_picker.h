// Date pickers: a moment that a person types, steps or picks from a calendar and a clock.
#pragma once

#include "VELTRuntime/platform/appkit/controls/cell_properties.h"
#include "VELTRuntime/platform/foundation/date.h"

/// Shows the local date and time, that of the cell's making until a program sets one, in a field with a stepper.
class VELT_EXPORT NSDatePickerCell : public NSActionCell {
    VELT_OBJECT(NSDatePickerCell, NSActionCell)
public:
    enum Style : unsigned long { kTextFieldAndStepper = 0, kClockAndCalendar = 1, kTextField = 2 };
    /// What is shown, joined with |. The day and the second each include the larger parts beside them.
    enum Elements : unsigned long {
        kHourMinute = 0x0c,
        kHourMinuteSecond = 0x0e,
        kYearMonth = 0xc0,
        kYearMonthDay = 0xe0,
    };
    NSDatePickerCell();

    id dateValue() const { return objectValue(); }
    /// The date, or the nearest one within the limits.
    void setDateValue(NSDate* date);
    /// A date. Raises "VLCastException" with "'NSDate' expected" for anything else.
    void setObjectValue(const id& value) override;
    /// The date as the control shows it.
    id stringValue() const override;
    /// The limits; nil when there is none.
    id minDate() const { return min_; }
    void setMinDate(NSDate* date);
    id maxDate() const { return max_; }
    void setMaxDate(NSDate* date);
    double limited(double seconds) const;

    unsigned long datePickerStyle() const { return style_; }
    void setDatePickerStyle(unsigned long style);
    unsigned long datePickerElements() const { return elements_; }
    void setDatePickerElements(unsigned long elements);
    bool showsDate() const { return (elements_ & kYearMonth) != 0; }
    bool showsTime() const { return (elements_ & kHourMinute) != 0; }
    /// Colours of the text and behind it; the desktop's until they are set, and again for nil.
    id textColor() const { return textColor_; }
    void setTextColor(const id& color);
    id backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const id& color);
    bool drawsBackground() const { return drawsBackground_; }
    void setDrawsBackground(bool flag);

    NSSize cellSize() const override;
    template <class T> static void describePicker(velt::ClassBuilder<T>& c);
    static void describe(velt::ClassBuilder<NSDatePickerCell>& c);

private:
    unsigned long style_ = kTextFieldAndStepper;
    unsigned long elements_ = kYearMonthDay | kHourMinuteSecond;
    bool drawsBackground_ = true;
    id min_, max_, textColor_, backgroundColor_;
};

class VELT_EXPORT NSDatePicker : public velt::ControlOf<NSDatePickerCell> {
    VELT_OBJECT(NSDatePicker, NSControl)
public:
    id dateValue() const { return ownCell().dateValue(); }
    void setDateValue(NSDate* date) { ownCell().setDateValue(date); }
    /// A person chose a moment, in seconds since the reference date.
    void chosen(double seconds) noexcept;
    static void describe(velt::ClassBuilder<NSDatePicker>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
};
