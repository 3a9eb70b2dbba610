// What fields, labels and tokens look like: lines that are too long, attributes, the room for a date.
#include "support/control_window.h"
#include "support/fields.h"

#include <QDateTimeEdit>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QTextEdit>

using namespace velt::test;
using velt::Ref;

namespace {

QImage pictureOf(const id& view) {
    return velt::as<NSView>(view)->widget().grab().toImage().convertToFormat(QImage::Format_RGB32);
}

id label(const char* text, double width, long alignment, long lineBreak) {
    const id made = VELT_LABEL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(made, str(text));
    VELT_NSCONTROL_ALIGNMENT(made, integer(alignment));
    ask(made, "lineBreakMode");
    tell(made, "setLineBreakMode:", integer(lineBreak));
    VELT_NSVIEW_FRAME(made, rect(0, 0, width, 20));
    velt::as<NSView>(made)->widget().resize(static_cast<int>(width), 20);
    return made;
}

/// Dots of about one of the three colours.
long dots(const QImage& picture, Qt::GlobalColor colour) {
    long count = 0;
    const QColor wanted(colour);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor seen(picture.pixel(x, y));
            const bool near = std::abs(seen.red() - wanted.red()) < 90 &&
                              std::abs(seen.green() - wanted.green()) < 90 &&
                              std::abs(seen.blue() - wanted.blue()) < 90;
            count += near ? 1 : 0;
        }
    }
    return count;
}

constexpr const char* kLong = "The quick brown fox jumps over it";
constexpr const char* kRed = "a <span style='color:#ff0000; font-size:15px'>WWWWW</span>";

class Rows : public NSObject {
    VELT_OBJECT(Rows, NSObject)
public:
    long count(const id&) { return 100; }
    id value(const id&, const id&, const id& row) { return row; }
    static void describe(velt::ClassBuilder<Rows>& c) {
        c.method("numberOfRowsInTableView:", &Rows::count)
            .method("tableView:objectValueForTableColumn:row:", &Rows::value);
    }
};

}  // namespace

TEST(LabelLook, KeepsTheStartOfALineThatIsTooLongWhateverItsAlignment) {
    for (const long alignment : {0L, 1L, 2L}) {
        EXPECT_EQ(pictureOf(label(kLong, 100, 0, 2)), pictureOf(label(kLong, 100, alignment, 2))) << alignment;
    }
}

TEST(LabelLook, ShortensALineByTheLineBreakMode) {
    const QFont font = velt::as<NSFont>(VELT_NSCONTROL_FONT(VELT_LABEL_INIT(nil, "")))->font();
    const auto shortened = [&](Qt::TextElideMode mode) {
        const QString shown = QFontMetricsF(font).elidedText(QString::fromUtf8(kLong), mode, 96.99);
        return pictureOf(label(shown.toUtf8().constData(), 100, 1, 2));
    };
    EXPECT_EQ(shortened(Qt::ElideRight), pictureOf(label(kLong, 100, 1, 4)));
    EXPECT_EQ(shortened(Qt::ElideLeft), pictureOf(label(kLong, 100, 1, 3)));
    EXPECT_EQ(shortened(Qt::ElideMiddle), pictureOf(label(kLong, 100, 1, 5)));
    // One that would wrap has no second line to go on to.
    EXPECT_EQ(shortened(Qt::ElideRight), pictureOf(label(kLong, 100, 1, 0)));
}

TEST(LabelLook, ShowsAllOfATextInItsOwnSize) {
    for (const double size : {9.0, 11.0, 12.5, 13.0, 17.0, 24.0}) {
        const id made = label("Waiting", 10, 1, 4);
        VELT_NSCONTROL_FONT(made, velt::send(NSFont::entry().object(), "systemFontOfSize:", real(size)));
        VELT_NSCONTROL_SIZETOFIT(made);
        const NSRect frame = velt::as<NSView>(made)->frame();
        velt::as<NSView>(made)->widget().resize(static_cast<int>(frame.size.width),
                                                static_cast<int>(frame.size.height));
        const QImage whole = pictureOf(made);
        tell(made, "setLineBreakMode:", integer(2));
        EXPECT_EQ(pictureOf(made), whole) << size;
    }
}

TEST(TokenFieldLook, ShowsTheWholeWordOfEveryToken) {
    FieldWindow window;
    const id field = VELT_NSTOKENFIELD_INIT(nil, "");
    VELT_NSCONTROL_OBJECTVALUE(field, VELT_SPLIT(str("mmmm"), str(",")));
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(nil);
    const QWidget& shown = velt::as<NSView>(field)->widget();
    const QImage picture = pictureOf(field);
    const double ratio = picture.width() / static_cast<double>(shown.width());
    // The word's figures all reach above the foot of the line, where a sign for what is left out has its dots.
    const QFontMetricsF metrics(shown.font());
    const double top = shown.height() / 2.0 - metrics.xHeight() / 2 - 1;
    int inked = 0;
    for (int x = 0; x < picture.width(); ++x) {
        bool ink = false;
        for (int y = static_cast<int>(top * ratio); y < static_cast<int>((top + metrics.xHeight() / 2) * ratio); ++y) {
            ink = ink || qGray(picture.pixel(x, y)) < 110;
        }
        inked += ink ? 1 : 0;
    }
    EXPECT_LT(metrics.horizontalAdvance(QStringLiteral("mmmm")) * ratio * 0.35, inked);
}

TEST(TokenFieldLook, BeginsWithTheFirstTokenWhileNobodyTypes) {
    FieldWindow window;
    const id field = VELT_NSTOKENFIELD_INIT(nil, ""), other = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSCONTROL_OBJECTVALUE(field, VELT_SPLIT(str("one,two,three,four,five,six,seven,eight,nine"), str(",")));
    window.add(field);
    window.add(other);
    ASSERT_TRUE(window.show());
    window.focus(other);
    const QImage atRest = pictureOf(field);
    window.focus(field);
    const QImage typing = pictureOf(field);
    EXPECT_NE(atRest, typing);
    window.focus(other);
    EXPECT_EQ(atRest, pictureOf(field));
}

TEST(RichFields, DrawTheAttributesOfTheirText) {
    for (const auto make : {VELT_LABEL_INIT, VELT_NSTEXTFIELD_INIT}) {
        FieldWindow window;
        const id field = make(nil, "");
        VELT_NSCONTROL_STRINGVALUE(field, str("a WWWWW"));
        window.add(field);
        ASSERT_TRUE(window.show());
        window.focus(nil);
        EXPECT_EQ(0, dots(pictureOf(field), Qt::red));
        VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(field, str(kRed));
        EXPECT_VALUE("'a WWWWW'", VELT_NSCONTROL_STRINGVALUE(field));
        EXPECT_LT(20, dots(pictureOf(field), Qt::red));
        VELT_NSCONTROL_ENABLED(field, VELT_ID(BOOL{0}));
        EXPECT_EQ(0, dots(pictureOf(field), Qt::red)) << "what cannot be worked is pale";
        VELT_NSCONTROL_ENABLED(field, VELT_ID(BOOL{1}));
        EXPECT_LT(20, dots(pictureOf(field), Qt::red));
        VELT_NSCONTROL_STRINGVALUE(field, str("a WWWWW"));
        EXPECT_EQ(0, dots(pictureOf(field), Qt::red)) << "a plain text has the field's own looks";
    }
}

TEST(RichFields, AreAsLargeAsTheirTextWithItsFonts) {
    const id field = VELT_LABEL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(field, str("Title"));
    VELT_NSCONTROL_SIZETOFIT(field);
    const NSSize plain = velt::as<NSView>(field)->frame().size;
    VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(field, str("<span style='font-size:40px'>Title</span>"));
    VELT_NSCONTROL_SIZETOFIT(field);
    const NSSize large = velt::as<NSView>(field)->frame().size;
    EXPECT_LT(plain.width * 2, large.width);
    EXPECT_LT(plain.height * 2, large.height);
}

TEST(RichFields, BecomePlainWhenTypedInto) {
    FieldWindow window;
    const id field = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(field, str(kRed));
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    press(Qt::Key_End);
    type("b");
    EXPECT_VALUE("'a WWWWWb'", VELT_NSCONTROL_OBJECTVALUE(field));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("undo"));
    EXPECT_VALUE("'a WWWWW'", VELT_NSCONTROL_OBJECTVALUE(field));
    VELT_FIRSTRESPONDER_SENDACTION(nil, str("redo"));
    press(Qt::Key_Return);
    EXPECT_VALUE("'a WWWWWb'", VELT_NSCONTROL_OBJECTVALUE(field));
    window.focus(nil);
    EXPECT_EQ(0, dots(pictureOf(field), Qt::red));
}

TEST(RichFields, KeepTheAttributesThatTheyAllowToBeEdited) {
    FieldWindow window;
    const id field = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSTEXTFIELD_ALLOWSEDITINGTEXTATTRIBUTES(field, VELT_ID(BOOL{1}));
    VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(field, str(kRed));
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    press(Qt::Key_End);
    type("MM");
    press(Qt::Key_Return);
    EXPECT_VALUE("NSAttributedString a WWWWWMM", VELT_NSCONTROL_OBJECTVALUE(field));
    const id color = velt::send(VELT_NSCONTROL_OBJECTVALUE(field), "attribute:atIndex:effectiveRange:", str("NSColor"),
                                integer(8), nil);
    ASSERT_TRUE(velt::is<NSColor>(color));
    EXPECT_VALUE("d 1", ask(color, "redComponent"));
    window.focus(nil);
    EXPECT_LT(20, dots(pictureOf(field), Qt::red));
}

TEST(RichFields, TakeOneLineOnly) {
    FieldWindow window;
    const id field = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(field, str("<b>a</b>"));
    window.add(field);
    ASSERT_TRUE(window.show());
    window.focus(field);
    press(Qt::Key_End);
    velt::send(ask(field, "currentEditor"), "insertText:", str("\nb\r\nc"));
    EXPECT_VALUE("'a b c'", VELT_NSCONTROL_STRINGVALUE(field));
}

TEST(DatePickerLook, HasRoomForTheWholeDateInItsOwnSize) {
    for (const long style : {0L, 2L}) {
        for (const long elements : {0xe0L, 0xecL, 0xeeL, 0x0eL}) {
            ControlWindow window({{50, 60}, {400, 180}});
            const id picker = VELT_NSDATEPICKER_INIT(nil, "");
            tell(picker, "setDatePickerStyle:", integer(style));
            tell(picker, "setDatePickerElements:", integer(elements));
            VELT_NSCONTROL_SIZETOFIT(picker);
            VELT_NSWINDOW_APPEND(window.window, picker);
            window.show();
            const auto* field = velt::as<NSView>(picker)->widget().findChild<QDateTimeEdit*>();
            ASSERT_NE(nullptr, field);
            const auto* line = field->findChild<QLineEdit*>();
            const double text = QFontMetricsF(line->font()).horizontalAdvance(line->text());
            constexpr int kCaretAndMargins = 5;
            EXPECT_LE(text + kCaretAndMargins, line->width()) << style << " " << elements;
            EXPECT_GT(text + 60, line->width()) << "it is no larger than it must be";
        }
    }
}

TEST(TableLook, KeepsItsHeaderOnTopWhileAScrollViewScrollsItsRows) {
    ControlWindow window({{50, 60}, {300, 222}});
    const id scroll = VELT_NSSCROLLVIEW_INIT(nil, "");
    const Ref<NSTableView> table = velt::make<NSTableView>();
    const Ref<NSTableColumn> column = velt::make<NSTableColumn>();
    tell(column, "setTitle:", str("Number"));
    table->addTableColumn(column.get());
    table->setDataSource(velt::make<Rows>());
    VELT_NSVIEW_FRAME(table, rect(0, 0, 10, 10));  // of no account: it fills the room and scrolls its rows there
    VELT_NSSCROLLVIEW_DOCUMENTVIEW(scroll, table);
    VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(scroll, VELT_ID(BOOL{1}));
    VELT_NSVIEW_FRAME(scroll, rect(10, 10, 200, 150));
    VELT_NSWINDOW_APPEND(window.window, scroll);
    window.show();
    // Beside the scroller, on the side where the numbers stand.
    const int left = QApplication::isRightToLeft() ? 110 : 10;
    const auto pixel = [&](int y) {
        const QImage shown = pictureOf(scroll);
        const int dots = shown.width() / 200;
        return shown.copy(left * dots, y * dots, 80 * dots, 12 * dots);
    };
    const QImage header = pixel(4), rows = pixel(60);
    table->scrollRowToVisible(99);
    EXPECT_EQ(header, pixel(4));
    EXPECT_NE(rows, pixel(60));
    EXPECT_EQ(99, table->rowAtPoint({20, 140}));
    VELT_NSVIEW_FRAME(scroll, rect(10, 10, 260, 90));
    EXPECT_EQ((NSSize{260, 90}), table->frame().size);
}
