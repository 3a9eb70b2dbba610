// Printing of source files: the text on paper, and the header of each page.
#include "windows/editor_support.h"
#include "windows/printing_support.h"

#include <QFontMetricsF>
#include <regex>

using namespace velt::test;

namespace {

std::string numbered(int lines) {
    std::string text;
    for (int i = 1; i <= lines; ++i) text.append("print ").append(std::to_string(i)).append("\n");
    return text;
}

/// A view of a source text in the desktop's monospaced font.
id sourceView(std::string_view text, NSRect frame = {{0, 0}, {500, 300}}) {
    const id view = VELT_VLTEXTVIEW_INIT(nil, "");
    velt::send(view, "setFrame:", VELT_ID(frame));
    velt::send(view, "setFont:", NSFont::userFixedPitch(13));
    VELT_NSTEXTVIEW_VALUE(view, str(text));
    return view;
}

void printQuietly(const id& view) {
    EXPECT_VALUE("nil",
                 VELT_VLTEXTVIEW_PRINTSHOWINGPRINTPANEL(view, str("Calculator"), str("main.source"), boolean(false)));
}

/// All lines of all pages without their headers.
QStringList body(const std::vector<QStringList>& pages) {
    QStringList lines;
    for (const QStringList& page : pages) lines += page.mid(1);
    return lines;
}

}  // namespace

TEST(PrintedSources, HaveAllTheirLinesAndAHeaderOnEachPage) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    printQuietly(sourceView(numbered(200)));
    const std::vector<QStringList> pages = pagesIn(file.path);
    ASSERT_EQ(5U, pages.size());
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string header = pages[i][0].trimmed().toStdString();
        const std::regex expected(
            "Calculator / main\\.source +\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000 +Page " +
            std::to_string(i + 1));
        EXPECT_TRUE(std::regex_match(header, expected)) << header;
        if (i < 4) {
            EXPECT_EQ(pages[0].size(), pages[i].size()) << "pages are filled";
        }
    }
    QStringList expected;
    for (int i = 1; i <= 200; ++i) expected.append(QStringLiteral("print %1").arg(i));
    EXPECT_EQ(expected, body(pages));
}

TEST(PrintedSources, LieWithinTheirMarginsAndBelowTheirHeader) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    const id view = sourceView(numbered(200));
    printQuietly(view);
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(10);
    const QFontMetricsF metrics(font);
    int headers = 0;
    double lowest = 0;
    const double line = velt::as<NSFont>(velt::send(view, "font"))->lineHeight();
    for (const PrintedWord& word : wordsIn(file.path)) {
        if (word.text == "Calculator") {
            ++headers;
            const QString shown = QStringLiteral("Calculator / main.source      2026-11-21 07:31:51 +0000      Page 1");
            // Half the page, less both margins and half the text.
            EXPECT_NEAR(297.5 - 82 - metrics.horizontalAdvance(shown) / 2, word.left, 4);
            EXPECT_NEAR(2 * metrics.height(), word.top, 4);
        } else if (word.text == "print") {
            EXPECT_NEAR(10, word.left, 1);
            EXPECT_LE(80 - 3, word.top);
            EXPECT_GE(842 - 80 + 3, word.bottom) << "no line is cut in two";
            lowest = std::max(lowest, word.bottom);
        }
    }
    EXPECT_EQ(5, headers);
    EXPECT_GE(lowest, 842 - 80 - 1.5 * line) << "pages are filled";
}

TEST(PrintedSources, AreInTheViewsFont) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    const id view = sourceView("iiii|\nWWWW|\n");
    printQuietly(view);
    const QString fonts = toldBy("pdffonts", {QString::fromStdString(file.path)});
    const id family = velt::as<NSFont>(velt::send(view, "font"))->familyName();
    const QFont font(QString::fromStdString(velt::utf8(family)));
    EXPECT_TRUE(fonts.contains(QFontInfo(font).family().remove(' '))) << fonts.toStdString();
    std::vector<double> ends;
    for (const PrintedWord& word : wordsIn(file.path)) {
        if (word.text.endsWith('|')) ends.push_back(word.right);
    }
    ASSERT_EQ(2U, ends.size());
    EXPECT_NEAR(ends[0], ends[1], 0.1) << "all characters are of one width";
}

TEST(PrintedSources, ShowNothingThatBelongsToTheScreen) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    EditorWindow shown("if a then\n  print \"text\" ' comment\nend if\n");
    VELT_VLTEXTVIEW_TOGGLEBREAKPOINT(shown.view);
    shown.select(0, 12);
    velt::send(shown.view, "setShowsLineNumbers:", boolean(true));
    velt::send(shown.view, "setZoomFactor:", real(3));
    printQuietly(shown.view);
    const QImage page = pageImage(file.path);
    bool isGrey = !page.isNull();
    int inked = 0;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QColor dot = page.pixelColor(x, y);
            isGrey = isGrey && dot.red() == dot.green() && dot.green() == dot.blue();
            if (y > 80 && dot.red() < 128) ++inked;
        }
    }
    EXPECT_TRUE(isGrey);
    EXPECT_LT(50, inked);
    EXPECT_LT(inked, 3000) << "no ground is printed";
    for (const PrintedWord& word : wordsIn(file.path)) EXPECT_GT(30, word.bottom - word.top) << "no zoom";
}

TEST(PrintedSources, AreCutOffAtTheRightWhereLinesDoNotBreak) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    const std::string wide = "begin" + std::string(300, ' ') + "beyond\nnext\n";
    EditorWindow shown(wide, true);
    EXPECT_VALUE("nil", VELT_VLTEXTVIEW_TURNOFFWRAPPING(shown.view));
    printQuietly(shown.view);
    double next = 0, begin = 0;
    for (const PrintedWord& word : wordsIn(file.path)) {
        if (word.text == "begin") begin = word.top;
        if (word.text == "next") next = word.top;
        if (word.text == "beyond") {
            EXPECT_LT(595 - 72, word.left);
        }
    }
    EXPECT_GT(begin, 0);
    EXPECT_LT(next - begin, 30) << "in the next row";
}

TEST(PrintedSources, BreakTheirLinesWhereTheViewDoes) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    std::string words;
    for (int i = 0; i < 100; ++i) words.append("word").append(std::to_string(i)).append(" ");
    for (const double width : {200.0, 4000.0}) {
        printQuietly(sourceView(words, {{0, 0}, {width, 300}}));
        std::size_t found = 0;
        for (const PrintedWord& word : wordsIn(file.path)) {
            if (!word.text.startsWith("word")) continue;
            ++found;
            EXPECT_GE(10 + std::min(width, 513.0) + 1, word.right);
        }
        EXPECT_EQ(100U, found) << width;
    }
}

TEST(PrintedSources, HaveOnePageWithoutAnyText) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    printQuietly(sourceView(""));
    const std::vector<QStringList> pages = pagesIn(file.path);
    ASSERT_EQ(1U, pages.size());
    EXPECT_EQ(1, pages[0].size());
}

TEST(PrintedSources, KeepTheirSettings) {
    const PrintingIntoAFile file;
    const id view = sourceView("print 1");
    EXPECT_VALUE("nil", velt::send(view, "pi"));
    EXPECT_VALUE("nil", velt::send(view, "sProjectName"));
    printQuietly(view);
    const id info = velt::send(view, "pi");
    EXPECT_VALUE("Q 2", velt::send(info, "horizontalPagination"));
    EXPECT_VALUE("Q 0", velt::send(info, "verticalPagination"));
    EXPECT_VALUE("c 0", velt::send(info, "isVerticallyCentered"));
    EXPECT_VALUE("d 80", velt::send(info, "topMargin"));
    EXPECT_VALUE("d 80", velt::send(info, "bottomMargin"));
    EXPECT_VALUE("d 10", velt::send(info, "leftMargin"));
    EXPECT_VALUE("d 72", velt::send(info, "rightMargin"));
    EXPECT_VALUE("'Calculator'", velt::send(view, "sProjectName"));
    EXPECT_VALUE("'main.source'", velt::send(view, "sProjectFile"));
    EXPECT_EQ(90, NSPrintInfo::sharedPrintInfo().topMargin()) << "the application's own are left alone";
    EXPECT_EQ((NSRect{{0, 0}, {500, 300}}), VELT_CNSRECT(velt::send(view, "frame")));
    // Without a page there is nothing to draw on.
    EXPECT_VALUE("nil", velt::send(view, "drawPageBorderWithSize:", size(595, 842)));
}

TEST(PrintedSources, ConvertWhatTheyAreGiven) {
    const id view = sourceView("print 1");
    EXPECT_VALUE("nil", VELT_VLTEXTVIEW_PRINTSHOWINGPRINTPANEL(nil, str("a"), str("b"), boolean(true)));
    EXPECT_CAST_FAILURE("'Boolean' expected",
                        VELT_VLTEXTVIEW_PRINTSHOWINGPRINTPANEL(view, str("a"), str("b"), emptyDictionary()));
    EXPECT_VALUE("nil", velt::send(view, "pi"));
}

TEST(PrintedSources, StaySafeAfterTheirWindowHasGone) {
    const PrintingIntoAFile file;
    id view;
    {
        const EditorWindow shown("print 1\n");
        view = shown.view;
    }
    printQuietly(view);
    EXPECT_TRUE(file.isPrinted());
}
