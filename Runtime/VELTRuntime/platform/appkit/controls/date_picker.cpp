#include "VELTRuntime/platform/appkit/controls/date_picker.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/controls/date_picker_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/exception.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QFontMetricsF>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <cmath>

using velt::cellFlag;
using velt::cellProperty;
using velt::Ref;

NSDatePickerCell::NSDatePickerCell() {
    setBezeled(true);
    NSActionCell::setObjectValue(NSDate::now());
}

double NSDatePickerCell::limited(double seconds) const {
    if (!max_.isNil()) seconds = std::min(seconds, velt::as<NSDate>(max_)->timeIntervalSinceReferenceDate());
    if (!min_.isNil()) seconds = std::max(seconds, velt::as<NSDate>(min_)->timeIntervalSinceReferenceDate());
    return seconds;
}

void NSDatePickerCell::setObjectValue(const id& value) {
    const NSDate* date = velt::to<NSDate>(value);
    if (!date || std::isnan(date->timeIntervalSinceReferenceDate())) velt::raiseClassExpected(NSDate::entry());
    const double seconds = date->timeIntervalSinceReferenceDate(), within = limited(seconds);
    NSActionCell::setObjectValue(within == seconds ? value : id(velt::make<NSDate>(within)));
}

void NSDatePickerCell::setDateValue(NSDate* date) { setObjectValue(velt::boxResult(date)); }

id NSDatePickerCell::stringValue() const {
    velt::requireApplicationObject("a date picker");
    const QLocale locale;
    const double seconds = velt::as<NSDate>(objectValue())->timeIntervalSinceReferenceDate();
    return velt::textValue(locale.toString(velt::localMoment(seconds), velt::dateFormat(locale, elements_)));
}

void NSDatePickerCell::setMinDate(NSDate* date) {
    min_ = velt::boxResult(date);
    setObjectValue(objectValue());
}
void NSDatePickerCell::setMaxDate(NSDate* date) {
    max_ = velt::boxResult(date);
    setObjectValue(objectValue());
}

void NSDatePickerCell::setDatePickerStyle(unsigned long style) {
    if (style > kTextField) return;
    style_ = style;
    changed();
}

void NSDatePickerCell::setDatePickerElements(unsigned long elements) {
    elements_ = elements;
    changed();
}

void NSDatePickerCell::setTextColor(const id& color) {
    textColor_ = id(velt::boxResult(velt::to<NSColor>(color)));
    changed();
}
void NSDatePickerCell::setBackgroundColor(const id& color) {
    backgroundColor_ = id(velt::boxResult(velt::to<NSColor>(color)));
    changed();
}
void NSDatePickerCell::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    changed();
}

NSSize NSDatePickerCell::cellSize() const {
    velt::requireApplicationObject("a date picker");
    if (style_ == kClockAndCalendar) return velt::calendarSize(showsDate(), showsTime());
    const QFont shown = velt::as<NSFont>(font())->font();
    QStyleOptionSpinBox option;
    option.fontMetrics = QFontMetrics(shown);
    option.frame = isBezeled() || isBordered();
    option.buttonSymbols =
        style_ == kTextFieldAndStepper ? QAbstractSpinBox::UpDownArrows : QAbstractSpinBox::NoButtons;
    option.subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxEditField;
    if (style_ == kTextFieldAndStepper) option.subControls |= QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
    constexpr int kMargins = 8, kAboveAndBelow = 4;  // of the line within the frame
    const QSize text(velt::widestDate(QFontMetricsF(shown), elements_) + kMargins,
                     option.fontMetrics.height() + kAboveAndBelow);
    const QSize size = QApplication::style()->sizeFromContents(QStyle::CT_SpinBox, &option, text);
    return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

template <class T> void NSDatePickerCell::describePicker(velt::ClassBuilder<T>& c) {
    using Cell = NSDatePickerCell;
    cellProperty<&Cell::dateValue, &Cell::setDateValue>(c, "dateValue");
    cellProperty<&Cell::minDate, &Cell::setMinDate>(c, "minDate");
    cellProperty<&Cell::maxDate, &Cell::setMaxDate>(c, "maxDate");
    cellProperty<&Cell::datePickerStyle, &Cell::setDatePickerStyle>(c, "datePickerStyle");
    cellProperty<&Cell::datePickerElements, &Cell::setDatePickerElements>(c, "datePickerElements");
    cellProperty<&Cell::textColor, &Cell::setTextColor>(c, "textColor");
    cellProperty<&Cell::backgroundColor, &Cell::setBackgroundColor>(c, "backgroundColor");
    cellProperty<&Cell::drawsBackground, &Cell::setDrawsBackground>(c, "drawsBackground");
}

void NSDatePickerCell::describe(velt::ClassBuilder<NSDatePickerCell>& c) {
    describePicker(c);
    c.owns(&NSDatePickerCell::min_)
        .owns(&NSDatePickerCell::max_)
        .owns(&NSDatePickerCell::textColor_)
        .owns(&NSDatePickerCell::backgroundColor_);
}

std::unique_ptr<QWidget> NSDatePicker::makeWidget() {
    auto made = std::make_unique<velt::DatePickerWidget>();
    watchEvents(*made);
    return made;
}

void NSDatePicker::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::DatePickerWidget&>(widget).show(ownCell());
}

void NSDatePicker::chosen(double seconds) noexcept {
    const Ref<NSDatePicker> kept(this);
    const double before = velt::as<NSDate>(dateValue())->timeIntervalSinceReferenceDate();
    const double within = ownCell().limited(seconds);
    velt::runReported([&] {
        const id date = velt::make<NSDate>(within);
        // The widget shows what was chosen already, unless the limits changed it.
        if (within == seconds)
            ownCell().takeValue(date);
        else
            ownCell().setObjectValue(date);
    });
    if (velt::as<NSDate>(dateValue())->timeIntervalSinceReferenceDate() != before) worked();
}

void NSDatePicker::describe(velt::ClassBuilder<NSDatePicker>& c) {
    NSDatePickerCell::describePicker(c);
    using Cell = NSDatePickerCell;
    cellFlag<&Cell::isBezeled, &Cell::setBezeled>(c, "bezeled");
    cellFlag<&Cell::isBordered, &Cell::setBordered>(c, "bordered");
}
