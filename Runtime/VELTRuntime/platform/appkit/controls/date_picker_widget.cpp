#include "VELTRuntime/platform/appkit/controls/date_picker_widget.h"

#include "VELTRuntime/platform/appkit/controls/clock_face.h"
#include "VELTRuntime/platform/appkit/controls/date_picker.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/view_events.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QDateTimeEdit>
#include <QFocusEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

QDate firstDay() { return {1, 1, 1}; }
QDate lastDay() { return {9999, 12, 31}; }

double secondsOf(const QDateTime& moment) {
    return static_cast<double>(moment.toMSecsSinceEpoch()) / 1000 - kReferenceSince1970;
}

/// A limit of the cell's as the toolkit's, or what stands for none.
QDateTime limit(const id& date, const QDateTime& otherwise) {
    return date.isNil() ? otherwise : localMoment(as<NSDate>(date)->timeIntervalSinceReferenceDate());
}

/// A locale's pattern without one letter and the signs that then stand for nothing.
QString without(QString pattern, QChar letter) {
    const qsizetype from = pattern.indexOf(letter);
    if (from < 0) return pattern;
    qsizetype to = from;
    while (to < pattern.size() && pattern[to] == letter) ++to;
    while (to < pattern.size() && !pattern[to].isLetter() && pattern[to] != u'\'') ++to;
    pattern.remove(from, to - from);
    while (!pattern.isEmpty() && !pattern.back().isLetter() && pattern.back() != u'\'') pattern.chop(1);
    return pattern;
}

}  // namespace

QDateTime localMoment(double seconds) {
    const double earliest = secondsOf(firstDay().startOfDay()), latest = secondsOf(lastDay().endOfDay());
    const double within = std::clamp(seconds, earliest, latest);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor((within + kReferenceSince1970) * 1000)));
}

QString dateFormat(const QLocale& locale, unsigned long elements) {
    QString date = locale.dateFormat(QLocale::ShortFormat), time = locale.timeFormat(QLocale::ShortFormat);
    if (!date.contains(u"yyyy")) date.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    if ((elements & NSDatePickerCell::kYearMonthDay) != NSDatePickerCell::kYearMonthDay) date = without(date, u'd');
    const bool showsSeconds = (elements & NSDatePickerCell::kHourMinuteSecond) == NSDatePickerCell::kHourMinuteSecond;
    if (!showsSeconds)
        time.remove(QRegularExpression(QStringLiteral("[^A-Za-z]s+")));
    else if (!time.contains(u's'))
        time.replace(QStringLiteral("mm"), QStringLiteral("mm:ss"));
    const bool showsDate = elements & NSDatePickerCell::kYearMonth,
               showsTime = elements & NSDatePickerCell::kHourMinute;
    if (showsDate && showsTime) return date + u' ' + time;
    return showsTime ? time : date;
}

int widestDate(const QFontMetricsF& metrics, unsigned long elements) {
    const QLocale locale;
    const QString format = dateFormat(locale, elements);
    double widest = 0;
    for (int month = 1; month <= 12; ++month) {
        // A moment with figures of two signs, in the morning and in the evening where that makes a difference.
        for (const int hour : {11, 23}) {
            QString text = locale.toString(QDateTime(QDate(2028, month, 28), QTime(hour, 58, 58)), format);
            for (QChar& unit : text) {
                if (unit.isDigit()) unit = u'0';
            }
            widest = std::max(widest, metrics.horizontalAdvance(text));
        }
    }
    return static_cast<int>(std::ceil(widest));
}

NSSize calendarSize(bool calendar, bool clock) {
    NSSize size{};
    if (calendar) {
        const QSize hint = QCalendarWidget().sizeHint();
        size = {static_cast<double>(hint.width()), static_cast<double>(hint.height())};
    }
    constexpr double kClock = 122, kGap = 8;
    if (!clock) return size;
    if (!calendar) return {kClock, kClock};
    return {size.width + kGap + kClock, std::max(size.height, kClock)};
}

NSDatePicker* DatePickerWidget::picker() const { return static_cast<NSDatePicker*>(viewOf(this)); }

void DatePickerWidget::rebuild(bool asCalendar) {
    if (asCalendar ? calendar_ != nullptr : field_ != nullptr) return;
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    setFocusProxy(nullptr);
    // They may be reporting the change that led here.
    for (QWidget* part :
         {static_cast<QWidget*>(field_), static_cast<QWidget*>(calendar_), static_cast<QWidget*>(clock_)}) {
        if (!part) continue;
        part->hide();
        part->disconnect(this);
        part->deleteLater();
    }
    field_ = nullptr;
    calendar_ = nullptr;
    clock_ = nullptr;
    if (asCalendar) {
        calendar_ = new QCalendarWidget(this);
        calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        watchEvents(*calendar_);
        calendar_->setAccessibleName(QStringLiteral("Date"));
        clock_ = new ClockFace(*this);
        connect(calendar_, &QCalendarWidget::selectionChanged, this, [this] { chosen(calendar_->selectedDate(), {}); });
        clock_->onChange = [this](QTime time) { chosen({}, time); };
    } else {
        field_ = new QDateTimeEdit(this);
        field_->setWrapping(false);
        watchEvents(*field_);
        if (auto* line = field_->findChild<QLineEdit*>()) watchEvents(*line);
        // Where people read from the right the toolkit would turn the order of the parts round, hours behind minutes.
        field_->setLayoutDirection(Qt::LeftToRight);
        connect(field_, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime& moment) {
            if (!picker()) return;
            const NSDatePickerCell& cell = picker()->ownCell();
            chosen(cell.showsDate() || !cell.showsTime() ? moment.date() : QDate(),
                   cell.showsTime() ? moment.time() : QTime());
        });
    }
    placeParts();
    if (hadFocus && focusProxy()) focusProxy()->setFocus();
}

void DatePickerWidget::show(const NSDatePickerCell& cell) {
    const QScopedValueRollback<bool> quiet(showing_, true);
    rebuild(cell.datePickerStyle() == NSDatePickerCell::kClockAndCalendar);
    const QDateTime moment = localMoment(as<NSDate>(cell.objectValue())->timeIntervalSinceReferenceDate());
    if (field_)
        showField(cell, moment);
    else
        showCalendar(cell, moment);
    // The parts take the colours and the name that a program gave.
    QPalette colors = QApplication::palette(this);
    const auto set = [&colors](const id& color, std::initializer_list<QPalette::ColorRole> roles) {
        if (!is<NSColor>(color)) return;
        for (const QPalette::ColorRole role : roles) colors.setColor(role, qtColor(*as<NSColor>(color)));
    };
    set(cell.textColor(), {QPalette::Text, QPalette::WindowText});
    set(cell.backgroundColor(), {QPalette::Base});
    if (!cell.drawsBackground()) colors.setColor(QPalette::Base, Qt::transparent);
    QWidget* shown = field_ ? static_cast<QWidget*>(field_) : calendar_;
    if (shown->palette() != colors) shown->setPalette(colors);
    QWidget* takesKeys = calendar_ && !cell.showsDate() ? static_cast<QWidget*>(clock_) : shown;
    const Qt::FocusPolicy policy = focusPolicy();
    takesKeys->setFocusPolicy(policy);
    if (takesKeys != clock_ && clock_) clock_->setFocusPolicy(policy);
    if (focusProxy() != takesKeys) setFocusProxy(takesKeys);
}

void DatePickerWidget::showField(const NSDatePickerCell& cell, const QDateTime& moment) {
    const QString format = dateFormat(locale(), cell.datePickerElements());
    if (field_->displayFormat() != format) {
        field_->clearMinimumDateTime();
        field_->clearMaximumDateTime();
        field_->setDateTime(moment);
        field_->setDisplayFormat(format);
    }
    // A field for times alone keeps to the day that it was given.
    if (cell.showsDate() || !cell.showsTime()) {
        field_->setDateTimeRange(limit(cell.minDate(), firstDay().startOfDay()),
                                 limit(cell.maxDate(), lastDay().endOfDay()));
        field_->setDateTime(moment);
    } else {
        field_->setTime(moment.time());
    }
    field_->setButtonSymbols(cell.datePickerStyle() == NSDatePickerCell::kTextField ? QAbstractSpinBox::NoButtons
                                                                                    : QAbstractSpinBox::UpDownArrows);
    field_->setFrame(cell.isBezeled() || cell.isBordered());
    const bool fromRight = cell.alignment() == 1 || (cell.alignment() > 2 && isRightToLeft());
    field_->setAlignment(fromRight ? Qt::AlignRight : cell.alignment() == 2 ? Qt::AlignHCenter : Qt::AlignLeft);
    field_->setAccessibleName(toolTip().isEmpty() ? QStringLiteral("Date") : toolTip());
}

void DatePickerWidget::showCalendar(const NSDatePickerCell& cell, const QDateTime& moment) {
    calendar_->setVisible(cell.showsDate());
    clock_->setVisible(cell.showsTime());
    calendar_->setDateRange(limit(cell.minDate(), firstDay().startOfDay()).date(),
                            limit(cell.maxDate(), lastDay().endOfDay()).date());
    calendar_->setSelectedDate(moment.date());
    clock_->setTime(moment.time(), (cell.datePickerElements() & NSDatePickerCell::kHourMinuteSecond) ==
                                       NSDatePickerCell::kHourMinuteSecond);
    placeParts();
}

void DatePickerWidget::placeParts() {
    if (field_) {
        field_->setGeometry(rect());
        field_->show();
        return;
    }
    if (!calendar_) return;
    constexpr int kGap = 8;
    const bool both = !calendar_->isHidden() && !clock_->isHidden();
    const int side = both ? std::min(height(), width() * 2 / 5) : std::min(width(), height());
    QRect days = rect(), hours((width() - side) / 2, (height() - side) / 2, side, side);
    if (both) {
        const bool fromRight = isRightToLeft();
        days.setWidth(std::max(width() - side - kGap, 0));
        if (fromRight) days.moveRight(rect().right());
        hours.moveLeft(fromRight ? 0 : width() - side);
    }
    calendar_->setGeometry(days);
    clock_->setGeometry(hours);
}

void DatePickerWidget::resizeEvent(QResizeEvent*) { placeParts(); }

void DatePickerWidget::focusInEvent(QFocusEvent* event) {
    if (focusProxy()) focusProxy()->setFocus(event->reason());
}

void DatePickerWidget::chosen(const QDate& date, const QTime& time) {
    NSDatePicker* shown = picker();
    if (showing_ || !shown || !shown->isEnabled()) return;
    // What is not shown stays as it was, to the fraction of a second.
    const double before = as<NSDate>(shown->dateValue())->timeIntervalSinceReferenceDate();
    const QDateTime old = localMoment(before);
    const QDateTime moment(date.isValid() ? date : old.date(), time.isValid() ? time : old.time());
    if (moment == old) return;
    shown->chosen(secondsOf(moment));
}

}  // namespace velt
