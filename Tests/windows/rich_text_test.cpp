// HTML into attributed strings.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/values.h"

#include "VELTRuntime/platform/foundation/attributed_string.h"

#include <QFile>
#include <QTemporaryDir>

using namespace velt::test;

namespace {

id read(std::string_view html) { return VELT_CATTRIBUTEDSTRING(str(html)); }

id attribute(const id& text, long position, const char* name) {
    return velt::send(text, "attribute:atIndex:effectiveRange:", str(name), integer(position), nil);
}

bool isBold(const id& text, long position) {
    const id font = attribute(text, position, "NSFont");
    return velt::is<NSFont>(font) && velt::as<NSFont>(font)->font().bold();
}

double sizeAt(const id& text, long position) {
    return VELT_CDOUBLE(velt::send(attribute(text, position, "NSFont"), "pointSize"));
}

}  // namespace

TEST(Html, OfPlainTextHasNoAttributes) {
    const id text = read("Hello &amp; welcome");
    EXPECT_VALUE("NSAttributedString Hello & welcome", text);
    EXPECT_TRUE(velt::send(text, "attributesAtIndex:", integer(0)).isNil());
    EXPECT_VALUE("NSAttributedString ", read(""));
    EXPECT_VALUE("NSAttributedString a < b <1", read("a < b <1"));
}

TEST(Html, GivesFontsTheirWeightAndSlant) {
    const id text = read("a <b>b</b> <i>c</i>");
    EXPECT_VALUE("NSAttributedString a b c", text);
    EXPECT_FALSE(isBold(text, 0));
    EXPECT_TRUE(isBold(text, 2));
    EXPECT_FALSE(isBold(text, 4));
    EXPECT_TRUE(velt::as<NSFont>(attribute(text, 4, "NSFont"))->font().italic());
    EXPECT_EQ(13, sizeAt(text, 0));
}

TEST(Html, GivesFontsTheirSize) {
    EXPECT_EQ(20, sizeAt(read("<span style='font-size:20px'>a</span>"), 0));
    EXPECT_EQ(18, sizeAt(read("<span style='font-size:18pt'>a</span>"), 0));  // a point is one unit
    EXPECT_EQ(26, sizeAt(read("<font size=6>a</font>"), 0));
    const id heading = read("<h1>a</h1>b");
    EXPECT_VALUE("NSAttributedString a\nb", heading);
    EXPECT_LT(13, sizeAt(heading, 0));
    EXPECT_TRUE(isBold(heading, 0));
    EXPECT_EQ(13, sizeAt(heading, 2));
}

TEST(Html, GivesColoursLinesAndLinks) {
    const id text = read("<font color=red>r</font><u>u</u><s>s</s><a href='https://example.org/x'>l</a>"
                         "<span style='background-color:#00ff00'>g</span>m<sup>2</sup>");
    EXPECT_VALUE("NSAttributedString ruslgm2", text);
    EXPECT_VALUE("d 1", velt::send(attribute(text, 0, "NSColor"), "redComponent"));
    EXPECT_VALUE("d 0", velt::send(attribute(text, 0, "NSColor"), "greenComponent"));
    EXPECT_VALUE("q 1", attribute(text, 1, "NSUnderline"));
    EXPECT_TRUE(attribute(text, 0, "NSUnderline").isNil());
    EXPECT_VALUE("q 1", attribute(text, 2, "NSStrikethrough"));
    EXPECT_VALUE("NSURL https://example.org/x", attribute(text, 3, "NSLink"));
    EXPECT_VALUE("d 1", velt::send(attribute(text, 4, "NSBackgroundColor"), "greenComponent"));
    EXPECT_VALUE("q 1", attribute(text, 6, "NSSuperScript"));
}

TEST(Html, GivesColoursAsProgramsMakeThem) {
    const id text = read("<font color='#80330A'>a</font>");
    const id made = velt::make<NSColor>(0x80 / 255.0, 0x33 / 255.0, 0x0A / 255.0, 1.0);
    EXPECT_TRUE(velt::isEqual(attribute(text, 0, "NSColor"), made));
}

TEST(Html, GivesListsTheirMarksAndParagraphsTheirLines) {
    EXPECT_VALUE("NSAttributedString \t\u2022\tone\n\t\u2022\ttwo", read("<ul><li>one</li><li>two</li></ul>"));
    EXPECT_VALUE("NSAttributedString \t1.\tone\n\t2.\ttwo", read("<ol><li>one<li>two</ol>"));
    EXPECT_VALUE("NSAttributedString \t\u2022\ta\n\t\t\u2022\tb", read("<ul><li>a<ul><li>b</li></ul></li></ul>"));
    EXPECT_VALUE("NSAttributedString a\nb\nc", read("<p>a<br>b</p><p>c</p>"));
    EXPECT_VALUE("q 2", velt::send(attribute(read("<p align=center>a</p>"), 0, "NSParagraphStyle"), "alignment"));
    EXPECT_VALUE("NSAttributedString 1\n2\n", velt::send(read("<table><tr><td>1</td><td>2</td></tr></table>x"),
                                                         "attributedSubstringFromRange:", range(0, 4)));
}

TEST(Html, FetchesNothing) {
    const QTemporaryDir folder;
    QFile sheet(folder.filePath(QStringLiteral("a.css")));
    ASSERT_TRUE(sheet.open(QIODevice::WriteOnly));
    sheet.write("body { color: #ff0000 }");
    sheet.close();
    const std::string path = sheet.fileName().toStdString();
    const id text = read("<html><head><link rel='stylesheet' type='text/css' href='" + path +
                         "'></head><body>a<img src='" + path + "'>b</body></html>");
    EXPECT_VALUE("NSAttributedString ab", text);
    EXPECT_TRUE(attribute(text, 0, "NSColor").isNil());
}

TEST(Html, IsReadAnewFromADamagedText) {
    for (const char* html :
         {"<b", "<b><i></b>x</i>", "<table><tr>", "&#xFFFFFFFF;", "<ul><ul><ul>", "<!--", "<a href=>x"}) {
        EXPECT_TRUE(velt::is<NSAttributedString>(read(html))) << html;
    }
    EXPECT_CAST_FAILURE("'AttributedString' expected", VELT_CATTRIBUTEDSTRING(integer(1)));
    EXPECT_CAST_FAILURE("'AttributedString' expected", VELT_CATTRIBUTEDSTRING(nil));
    const id text = read("<b>a</b>");
    const id copied = VELT_CATTRIBUTEDSTRING(text);
    EXPECT_FALSE(copied == text);
    EXPECT_TRUE(velt::isEqual(copied, text));
}
