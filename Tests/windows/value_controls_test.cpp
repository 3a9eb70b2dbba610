#include "support/control_window.h"

#include "VELTRuntime/platform/appkit/controls/color_panel.h"
#include "VELTRuntime/platform/appkit/controls/color_well.h"
#include "VELTRuntime/platform/appkit/controls/date_picker.h"
#include "VELTRuntime/platform/appkit/controls/path_cell.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/platform/object/cycles.h"
#include "support/environment.h"
#include "support/patience.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QColorDialog>
#include <QDateTimeEdit>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>
#include <fstream>
#include <iterator>
#include <limits>
#include <sys/stat.h>
#include <thread>

using namespace velt::test;
using velt::Ref;

namespace {

id dateOf(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    const QDateTime moment(QDate(year, month, day), QTime(hour, minute, second));
    return velt::make<NSDate>(static_cast<double>(moment.toSecsSinceEpoch()) - 978307200);
}
QDateTime momentOf(const id& picker) {
    const double seconds = velt::as<NSDate>(VELT_NSCONTROL_OBJECTVALUE(picker))->timeIntervalSince1970();
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(seconds));
}
QDateTimeEdit& fieldOf(const ShownControl& shown) { return *shown.widget().findChild<QDateTimeEdit*>(); }

id colorOf(int red, int green, int blue) { return velt::make<NSColor>(red / 255.0, green / 255.0, blue / 255.0, 1.0); }

/// What a drop of some content does to a widget; whether it was taken.
bool drop(QWidget& widget, QMimeData& content) {
    const QPoint at = widget.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &content, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent dropped(at, Qt::CopyAction, &content, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &dropped);
    return dropped.isAccepted();
}

std::string clickedName(const id& control) {
    const id cell = ask(control, "clickedPathComponentCell");
    return cell.isNil() ? "none" : velt::utf8(VELT_NSCELL_STRINGVALUE(cell));
}

}  // namespace

TEST(DatePickers, KeepADateWithinTheirLimits) {
    const id picker = VELT_NSDATEPICKER_INIT(nil, "");
    EXPECT_VALUE("Q 0", ask(picker, "datePickerStyle"));
    const id day = dateOf(2024, 2, 29, 13, 5, 9);
    tell(picker, "setDateValue:", day);
    EXPECT_EQ(day, VELT_NSCONTROL_OBJECTVALUE(picker));
    tell(picker, "setMinDate:", dateOf(2025, 1, 1));
    EXPECT_EQ(QDate(2025, 1, 1), momentOf(picker).date());
    tell(picker, "setMinDate:", nil);
    tell(picker, "setMaxDate:", dateOf(2020, 1, 1));
    EXPECT_EQ(QDate(2020, 1, 1), momentOf(picker).date());
    EXPECT_CAST_FAILURE("'NSDate' expected", VELT_NSCONTROL_OBJECTVALUE(picker, nil));
    EXPECT_CAST_FAILURE("'NSDate' expected", VELT_NSCONTROL_STRINGVALUE(picker, str("today")));
    EXPECT_CAST_FAILURE("'NSDate' expected", VELT_NSCONTROL_DOUBLEVALUE(picker, real(1)));
    EXPECT_CAST_FAILURE("'NSDate' expected", VELT_NSCONTROL_OBJECTVALUE(
                                                 picker, velt::make<NSDate>(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_EQ(QDate(2020, 1, 1), momentOf(picker).date());
}

TEST(DatePickers, ShowDatesBeyondTheCalendarAsTheLastThatThereIs) {
    const id picker = VELT_NSDATEPICKER_INIT(nil, "");
    ShownControl shown(picker, 200, 24);
    const id beyond = velt::make<NSDate>(1e300);
    tell(picker, "setDateValue:", beyond);
    EXPECT_EQ(beyond, VELT_NSCONTROL_OBJECTVALUE(picker));
    EXPECT_EQ(9999, fieldOf(shown).date().year());
    tell(picker, "setDateValue:", velt::make<NSDate>(-1e300));
    EXPECT_GE(100, fieldOf(shown).date().year());
}

TEST(DatePickers, StepThePartUnderTheKeyboardAndSayIt) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id picker = VELT_NSDATEPICKER_INIT(owner, "act:");
    tell(picker, "setDatePickerElements:", natural(0xe0));
    tell(picker, "setDateValue:", dateOf(2024, 2, 28, 13, 5, 9));
    ShownControl shown(picker, 160, 24);
    EXPECT_EQ(0, owner->count);  // what a program sets is no action
    shown.focus();
    QDateTimeEdit& field = fieldOf(shown);
    EXPECT_EQ(&field, QApplication::focusWidget());
    field.setCurrentSection(QDateTimeEdit::DaySection);
    shown.key(Qt::Key_Up);
    EXPECT_EQ(QDateTime(QDate(2024, 2, 29), QTime(13, 5, 9)), momentOf(picker));  // the time is not shown and stays
    EXPECT_EQ(1, owner->taken());
    field.setCurrentSection(QDateTimeEdit::YearSection);
    shown.key(Qt::Key_Down);
    EXPECT_EQ(2023, momentOf(picker).date().year());
    tell(picker, "setMaxDate:", dateOf(2023, 6, 1));
    field.setCurrentSection(QDateTimeEdit::YearSection);
    shown.key(Qt::Key_Up);
    EXPECT_GE(QDate(2023, 6, 1), momentOf(picker).date());
    VELT_NSCONTROL_ENABLED(picker, boolean(false));
    EXPECT_FALSE(field.isEnabled());
}

TEST(DatePickers, ShowTheTimeAloneAndLeaveTheDay) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id picker = VELT_NSDATEPICKER_INIT(owner, "act:");
    ShownControl shown(picker, 160, 24);
    tell(picker, "setDatePickerElements:", natural(0x0c));
    tell(picker, "setDatePickerStyle:", natural(2));
    tell(picker, "setDateValue:", dateOf(2024, 2, 28, 13, 5, 9));
    QDateTimeEdit& field = fieldOf(shown);
    EXPECT_EQ(QTime(13, 5, 9), field.time());
    EXPECT_FALSE(field.displayedSections() & QDateTimeEdit::DateSections_Mask);
    EXPECT_FALSE(field.displayedSections() & QDateTimeEdit::SecondSection);
    EXPECT_EQ(QAbstractSpinBox::NoButtons, field.buttonSymbols());
    shown.focus();
    field.setCurrentSection(QDateTimeEdit::MinuteSection);
    shown.key(Qt::Key_Up);
    EXPECT_EQ(QDateTime(QDate(2024, 2, 28), QTime(13, 6, 9)), momentOf(picker));
    EXPECT_EQ(1, owner->taken());
    tell(picker, "setDateValue:", dateOf(1999, 12, 31, 23, 59, 58));
    EXPECT_EQ(QTime(23, 59, 58), field.time());
    EXPECT_EQ(0, owner->count);
}

TEST(DatePickers, ShowACalendarAndAClock) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id picker = VELT_NSDATEPICKER_INIT(owner, "act:");
    tell(picker, "setDatePickerStyle:", natural(1));
    tell(picker, "setDateValue:", dateOf(2024, 2, 28, 13, 5, 9));
    VELT_NSCONTROL_SIZETOFIT(picker);
    const NSSize size = velt::as<NSView>(picker)->frame().size;
    EXPECT_LT(200, size.width);
    ShownControl shown(picker, size.width, size.height);
    auto& calendar = *shown.widget().findChild<QCalendarWidget*>();
    EXPECT_EQ(QDate(2024, 2, 28), calendar.selectedDate());
    shown.focus();
    shown.key(Qt::Key_Right);
    EXPECT_EQ(QDateTime(QDate(2024, 2, 29), QTime(13, 5, 9)), momentOf(picker));
    EXPECT_EQ(1, owner->taken());
    QWidget* clock = nullptr;
    for (QWidget* part : shown.widget().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (part != &calendar) clock = part;
    }
    ASSERT_TRUE(clock);
    EXPECT_EQ("13:05:09", clock->accessibleDescription());
    const QPoint middle = clock->rect().center();
    QTest::mouseClick(clock, Qt::LeftButton, {}, middle + QPoint(0, clock->height() * 2 / 5));
    EXPECT_EQ(QTime(13, 30, 9), momentOf(picker).time());
    QTest::keyClick(clock, Qt::Key_PageUp);
    EXPECT_EQ(QTime(14, 30, 9), momentOf(picker).time());
    EXPECT_EQ(2, owner->taken());
    tell(picker, "setDatePickerElements:", natural(0xe0));
    EXPECT_TRUE(clock->isHidden());
}

TEST(DatePickers, GiveTheirDateAsItIsShown) {
    const id picker = VELT_NSDATEPICKER_INIT(nil, "");
    tell(picker, "setDateValue:", dateOf(2024, 2, 28, 13, 5, 9));
    tell(picker, "setDatePickerElements:", natural(0xe0));
    const std::string text = velt::utf8(VELT_NSCONTROL_STRINGVALUE(picker));
    EXPECT_NE(std::string::npos, text.find("2024"));
    EXPECT_EQ(std::string::npos, text.find(':'));
    ShownControl shown(picker, 160, 24);
    EXPECT_EQ(text, fieldOf(shown).text().toStdString());
}

TEST(ColorWells, TakeThePanelsColourWhileTheyAreActive) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id well = VELT_NSCOLORWELL_INIT(owner, "act:");
    ShownControl shown(well, 50, 30);
    NSApplication::sharedApplication().setDelegate(owner);
    VELT_NSCONTROL_OBJECTVALUE(well, colorOf(200, 10, 20));
    EXPECT_EQ(QColor(200, 10, 20), shown.picture().pixelColor(25, 15));
    shown.click({25, 15});
    EXPECT_VALUE("c 1", ask(well, "isActive"));
    NSColorPanel& panel = NSColorPanel::sharedColorPanel();
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(velt::isEqual(colorOf(200, 10, 20), panel.color()));
    auto& dialog = *panel.widget().findChild<QColorDialog*>();
    dialog.setCurrentColor(QColor(10, 20, 250));
    EXPECT_TRUE(velt::isEqual(colorOf(10, 20, 250), ask(well, "color")));
    EXPECT_EQ(1, owner->taken());
    EXPECT_EQ(1, owner->colors);
    panel.picked(colorOf(10, 20, 250));  // the colour that it shows
    EXPECT_EQ(0, owner->taken());
    EXPECT_EQ(1, owner->colors);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    tell(well, "setColor:", colorOf(1, 2, 3));  // a program's colour comes to the panel, without an action
    EXPECT_EQ(QColor(1, 2, 3), dialog.currentColor());
    EXPECT_EQ(0, owner->count);
    shown.click({25, 15});
    EXPECT_VALUE("c 0", ask(well, "isActive"));
    dialog.setCurrentColor(QColor(90, 90, 90));
    EXPECT_TRUE(velt::isEqual(colorOf(1, 2, 3), ask(well, "color")));
    tell(well, "activate:", boolean(true));
    panel.close();
    EXPECT_VALUE("c 0", ask(well, "isActive"));
    NSApplication::sharedApplication().setDelegate(nil);
}

TEST(ColorWells, ShareThePanelOrHaveItAlone) {
    const id first = VELT_NSCOLORWELL_INIT(nil, ""), second = VELT_NSCOLORWELL_INIT(nil, "");
    tell(first, "activate:", boolean(false));
    tell(second, "activate:", boolean(false));
    EXPECT_VALUE("c 1", ask(first, "isActive"));
    tell(second, "activate:", boolean(true));
    EXPECT_VALUE("c 0", ask(first, "isActive"));
    VELT_NSCONTROL_ENABLED(second, boolean(false));
    EXPECT_VALUE("c 0", ask(second, "isActive"));
    tell(second, "activate:", boolean(true));
    EXPECT_VALUE("c 0", ask(second, "isActive"));
    {
        const id gone = VELT_NSCOLORWELL_INIT(nil, "");
        tell(gone, "activate:", boolean(false));
    }
    NSColorPanel& panel = NSColorPanel::sharedColorPanel();
    panel.widget().findChild<QColorDialog*>()->setCurrentColor(QColor(7, 8, 9));
    panel.orderOut(nil);
}

TEST(ColorWells, KeepAColourWhateverTheyAreGiven) {
    const id well = VELT_NSCOLORWELL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(well, str("red"));
    VELT_NSCONTROL_OBJECTVALUE(well, nil);
    EXPECT_TRUE(velt::isEqual(colorOf(0, 0, 0), ask(well, "color")));
    EXPECT_CAST_FAILURE("'NSColor' expected", tell(well, "setColor:", str("red")));
    tell(well, "setColor:", nil);
    EXPECT_TRUE(velt::isEqual(colorOf(0, 0, 0), ask(well, "color")));
    const id other = VELT_NSCOLORWELL_INIT(nil, "");
    tell(other, "setColor:", colorOf(4, 5, 6));
    tell(well, "takeColorFrom:", other);
    EXPECT_TRUE(velt::isEqual(colorOf(4, 5, 6), ask(well, "color")));
}

TEST(ColorWells, TakeColoursThatAreDroppedOnThem) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id well = VELT_NSCOLORWELL_INIT(owner, "act:");
    ShownControl shown(well, 50, 30);
    QMimeData color, text;
    color.setColorData(QColor(0, 128, 255));
    text.setText(QStringLiteral("blue"));
    EXPECT_TRUE(drop(shown.widget(), color));
    EXPECT_TRUE(velt::isEqual(colorOf(0, 128, 255), ask(well, "color")));
    EXPECT_EQ(1, owner->taken());
    EXPECT_FALSE(drop(shown.widget(), text));
    VELT_NSCONTROL_ENABLED(well, boolean(false));
    EXPECT_FALSE(drop(shown.widget(), color));
    EXPECT_EQ(0, owner->count);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&shown.widget());
    EXPECT_EQ(QAccessible::ColorChooser, told->role());
    EXPECT_EQ("#0080ff", told->text(QAccessible::Value));
}

TEST(PathControls, ShowThePartsOfAPath) {
    const id control = VELT_NSPATHCONTROL_INIT(nil, "");
    EXPECT_TRUE(ask(control, "URL").isNil());
    EXPECT_VALUE("''", VELT_NSCONTROL_STRINGVALUE(control));
    VELT_NSCONTROL_STRINGVALUE(control, str("/usr/share/a file & more"));
    EXPECT_VALUE("'/usr/share/a file & more'", VELT_NSCONTROL_STRINGVALUE(control));
    EXPECT_VALUE("'file:///usr/share/a%20file%20&%20more'", ask(ask(control, "URL"), "absoluteString"));
    const id cells = ask(control, "pathComponentCells");
    std::string names;
    for (const id& cell : velt::as<NSArray>(cells)->items()) names += velt::utf8(VELT_NSCELL_STRINGVALUE(cell)) + "|";
    EXPECT_EQ("/|usr|share|a file & more|", names);
    EXPECT_VALUE("'/usr/share'", ask(ask(velt::as<NSArray>(cells)->at(2), "URL"), "path"));
    VELT_NSCONTROL_STRINGVALUE(control, str("https://example.org/a/b?c=d"));
    const id last = velt::as<NSArray>(ask(control, "pathComponentCells"))->at(2);
    EXPECT_VALUE("'b'", VELT_NSCELL_STRINGVALUE(last));
    EXPECT_VALUE("'https://example.org/a/b?c=d'", ask(ask(last, "URL"), "absoluteString"));
    EXPECT_CAST_FAILURE("'NSURL' expected", VELT_NSCONTROL_OBJECTVALUE(control, integer(4)));
    EXPECT_CAST_FAILURE("'NSURL' expected", VELT_NSCONTROL_STRINGVALUE(control, str("no url")));
    EXPECT_CAST_FAILURE("'NSPathComponentCell' expected", tell(control, "setPathComponentCells:", array(str("x"))));
    EXPECT_EQ(3u, velt::as<NSArray>(ask(control, "pathComponentCells"))->count());
    VELT_NSCONTROL_OBJECTVALUE(control, nil);
    EXPECT_EQ(0u, velt::as<NSArray>(ask(control, "pathComponentCells"))->count());
}

TEST(PathControls, SayWhichPartWasClicked) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id control = VELT_NSPATHCONTROL_INIT(owner, "act:");
    VELT_NSCONTROL_STRINGVALUE(control, str("/usr/share/icons"));
    ShownControl shown(control, 400, 22);
    EXPECT_EQ("none", clickedName(control));
    shown.click({60, 11});
    EXPECT_EQ(1, owner->taken());
    EXPECT_EQ("usr", clickedName(control));
    shown.click({395, 11});  // beside the path
    EXPECT_EQ(0, owner->taken());
    shown.focus();
    shown.key(Qt::Key_End);
    shown.key(Qt::Key_Left);
    shown.key(Qt::Key_Space);
    EXPECT_EQ("share", clickedName(control));
    EXPECT_EQ(1, owner->taken());
    tell(control, "setDoubleAction:", str("changeColor:"));
    QTest::mouseDClick(&shown.widget(), Qt::LeftButton, {}, {60, 11});
    EXPECT_EQ(1, owner->colors);
    EXPECT_EQ("usr", clickedName(control));
    VELT_NSCONTROL_ENABLED(control, boolean(false));
    owner->taken();
    shown.click({60, 11});
    EXPECT_EQ(0, owner->count);
}

TEST(PathControls, KeepTheLastNameInSight) {
    const id control = VELT_NSPATHCONTROL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(control, str("/usr/share/a rather long name/of a file"));
    VELT_NSCONTROL_SIZETOFIT(control);
    const double width = velt::as<NSView>(control)->frame().size.width;
    ShownControl shown(control, width, 22);
    shown.click({static_cast<int>(width) - 10, 11});
    EXPECT_EQ("of a file", clickedName(control));
    send(control, VELT_SELECTOR("setFrameSize:"), size(width / 2, 22));
    shown.click({static_cast<int>(width) / 2 - 20, 11});
    EXPECT_EQ("of a file", clickedName(control));
    send(control, VELT_SELECTOR("setFrameSize:"), size(70, 22));
    shown.click({50, 11});
    EXPECT_EQ("of a file", clickedName(control));
    send(control, VELT_SELECTOR("setFrameSize:"), size(1, 1));
    shown.picture();  // no room, nothing to break
}

TEST(PathControls, OfferTheWayUpInAMenu) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id control = VELT_NSPATHCONTROL_INIT(owner, "act:");
    tell(control, "setPathStyle:", natural(2));
    VELT_NSCONTROL_STRINGVALUE(control, str("/usr/share"));
    ShownControl shown(control, 150, 24);
    shown.click({75, 12});
    auto* menu = shown.widget().findChild<QMenu*>();
    ASSERT_TRUE(menu);
    std::string texts;
    for (const QAction* action : menu->actions()) texts += action->text().toStdString() + "|";
    EXPECT_EQ("Choose…||share|usr|/|", texts);
    menu->actions().at(3)->trigger();
    EXPECT_EQ("usr", clickedName(control));
    EXPECT_EQ(1, owner->taken());
    EXPECT_VALUE("'/usr/share'", VELT_NSCONTROL_STRINGVALUE(control));
    const QTemporaryDir folder;
    menu->actions().at(0)->trigger();
    auto* dialog = shown.widget().findChild<QFileDialog*>();
    ASSERT_TRUE(dialog);
    Q_EMIT dialog->fileSelected(folder.path());
    dialog->close();
    menu->close();
    EXPECT_EQ(folder.path().toStdString(), velt::utf8(VELT_NSCONTROL_STRINGVALUE(control)));
    EXPECT_EQ(1, owner->taken());
}

TEST(PathControls, TakeAFileThatIsDroppedOnThem) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    const id control = VELT_NSPATHCONTROL_INIT(owner, "act:");
    ShownControl shown(control, 150, 24);
    QMimeData file, address;
    file.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/notes.txt"))});
    address.setUrls({QUrl(QStringLiteral("https://example.org/"))});
    EXPECT_TRUE(drop(shown.widget(), file));
    EXPECT_VALUE("'/tmp/notes.txt'", VELT_NSCONTROL_STRINGVALUE(control));
    EXPECT_EQ(1, owner->taken());
    EXPECT_FALSE(drop(shown.widget(), address));
    tell(control, "setAllowedTypes:", array(str("png")));
    EXPECT_FALSE(drop(shown.widget(), file));
    tell(control, "setAllowedTypes:", nil);
    tell(control, "setEditable:", boolean(false));
    EXPECT_FALSE(drop(shown.widget(), file));
    EXPECT_EQ(0, owner->count);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&shown.widget());
    EXPECT_EQ("/tmp/notes.txt", told->text(QAccessible::Value));
}

TEST(PathControls, OpenADoubleClickedPartWithTheDesktop) {
    const QTemporaryDir folder;
    const std::string root = folder.path().toStdString();
    std::ofstream(root + "/open.sh") << "#!/bin/sh\nprintf %s \"$1\" >\"$0.new\"\nmv \"$0.new\" \"$0.said\"\n";
    ::chmod((root + "/open.sh").c_str(), 0700);
    QDir(folder.path()).mkpath(QStringLiteral("applications"));
    std::ofstream(root + "/applications/opener.desktop")
        << "[Desktop Entry]\nType=Application\nName=Opener\nExec=" << root
        << "/open.sh %f\nMimeType=inode/directory;\n";
    std::ofstream(root + "/applications/mimeapps.list") << "[Default Applications]\ninode/directory=opener.desktop\n";
    const id control = VELT_NSPATHCONTROL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(control, str(root));
    {
        const EnvironmentVariable data("XDG_DATA_HOME", root);
        ShownControl shown(control, 600, 22);
        QTest::mouseDClick(&shown.widget(), Qt::LeftButton, {}, {10, 11});  // the root
    }
    QFile said(folder.filePath(QStringLiteral("open.sh.said")));
    ASSERT_TRUE(comesTrue([&] { return said.exists(); }));
    ASSERT_TRUE(said.open(QIODevice::ReadOnly));
    EXPECT_EQ("/", said.readAll().toStdString());
}

using Constructor = id (*)(const id& owner, const char* action);
constexpr Constructor kConstructors[] = {VELT_NSSLIDER_INIT,     VELT_CIRCULARSLIDER_INIT, VELT_NSLEVELINDICATOR_INIT,
                                         VELT_NSSTEPPER_INIT,    VELT_NSDATEPICKER_INIT,   VELT_NSCOLORWELL_INIT,
                                         VELT_NSPATHCONTROL_INIT};

TEST(ValueControls, GoWhenNobodyKeepsThem) {
    velt::collectCycles();
    for (const Constructor init : kConstructors) {
        const Ref<ActionCounter> owner = velt::make<ActionCounter>();
        const id control = init(owner, "act:");
        owner->last = control;  // a circle
        { const ShownControl shown(control, 100, 40); }
        velt::as<NSView>(control)->removeFromSuperview();
    }
    EXPECT_LE(2 * std::size(kConstructors), velt::collectCycles());
}

TEST(ValueControls, AreMadeOnTheMainThreadAlone) {
    std::thread([] {
        const velt::ThreadScope scope;
        EXPECT_RAISES(
            "NSInternalInconsistencyException: VELT_NSDATEPICKER_INIT was called on another thread than the main one, "
            "to which windows and views belong",
            VELT_NSDATEPICKER_INIT(nil, ""));
    }).join();
}

TEST(ValueControls, ArePaintedAtEverySize) {
    for (const Constructor init : kConstructors) {
        const id control = init(nil, "");
        const ShownControl shown(control, 60, 24);
        for (const double side : {0.0, 1.0, 2.0, 5.0, 700.0}) {
            send(control, VELT_SELECTOR("setFrameSize:"), size(side, 2 * side));
            shown.picture();
        }
        VELT_NSCONTROL_SIZETOFIT(control);
        EXPECT_LT(8, velt::as<NSView>(control)->frame().size.height);
    }
}
