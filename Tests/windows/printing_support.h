// Printing into files, and PDF files read back by the tools that the desktop has for it.
#pragma once

#include "support/control_window.h"
#include "support/processes.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <vector>

namespace velt::test {

/// Gives the application's own print settings a file to print into, and forgets them in the end. The paper is A4.
class PrintingIntoAFile {
public:
    PrintingIntoAFile() {
        NSPrintInfo::setSharedPrintInfo(make<NSPrintInfo>());
        const id info = id(static_cast<NSObject*>(&NSPrintInfo::sharedPrintInfo()));
        send(info, "setPaperSize:", size(595, 842));
        send(info, "setJobDisposition:", str("NSPrintSaveJob"));
        send(send(info, "dictionary"), "setObject:forKey:", str(path), str("NSSavePath"));
    }
    ~PrintingIntoAFile() { NSPrintInfo::setSharedPrintInfo(nil); }
    PrintingIntoAFile(const PrintingIntoAFile&) = delete;
    PrintingIntoAFile& operator=(const PrintingIntoAFile&) = delete;

    bool isPrinted() const { return std::filesystem::exists(path); }

    const TemporaryFolder folder;
    const std::string path = folder.file("pages.pdf");
};

/// What a tool says of a file; nothing when it is not installed.
inline QString toldBy(const char* tool, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QString::fromLatin1(tool), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}
inline bool pdfToolsAreThere() { return toldBy("pdftotext", {"-v"}).contains("pdftotext"); }

/// The lines of each page that are not empty.
inline std::vector<QStringList> pagesIn(const std::string& path) {
    QStringList pages = toldBy("pdftotext", {"-layout", QString::fromStdString(path), "-"}).split(QChar(12));
    pages.removeLast();  // each page ends with it
    std::vector<QStringList> lines;
    for (const QString& page : pages) lines.push_back(page.split('\n', Qt::SkipEmptyParts));
    return lines;
}

/// A word and its place in points from the paper's upper left corner.
struct PrintedWord {
    int page;
    double left, top, right, bottom;
    QString text;
};

inline std::vector<PrintedWord> wordsIn(const std::string& path) {
    std::vector<PrintedWord> words;
    int page = 0;
    static const QRegularExpression word(
        R"re(<word xMin="([\d.-]+)" yMin="([\d.-]+)" xMax="([\d.-]+)" yMax="([\d.-]+)">(.*)</word>)re");
    const QString all = toldBy("pdftotext", {"-bbox", QString::fromStdString(path), "-"});
    for (const QString& line : all.split('\n')) {
        if (line.contains("<page")) ++page;
        const QRegularExpressionMatch found = word.match(line);
        if (!found.hasMatch()) continue;
        words.push_back({page, found.captured(1).toDouble(), found.captured(2).toDouble(), found.captured(3).toDouble(),
                         found.captured(4).toDouble(), found.captured(5)});
    }
    return words;
}

/// A page as it looks, a dot a point.
inline QImage pageImage(const std::string& path, int page = 1) {
    const TemporaryFolder folder;
    const QString to = QString::fromStdString(folder.file("page")), number = QString::number(page);
    toldBy("pdftoppm",
           {"-r", "72", "-png", "-singlefile", "-f", number, "-l", number, QString::fromStdString(path), to});
    return QImage(to + ".png");
}

}  // namespace velt::test

#define SKIP_WITHOUT_PDF_TOOLS()                                                                                       \
    if (!velt::test::pdfToolsAreThere()) GTEST_SKIP() << "nothing here reads PDF files"
