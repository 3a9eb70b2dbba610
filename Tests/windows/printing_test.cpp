// Printing of views: settings, pages, files, and the panel that asks.
#include "windows/printing_support.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "support/environment.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QSpinBox>
#include <QTextBrowser>
#include <QTimer>
#include <functional>

using namespace velt::test;
using velt::Ref;

namespace {

/// A view in two colours, the upper hundred points in red, that notes which pages it was asked to draw around.
class PrintedView : public NSView {
    VELT_OBJECT(PrintedView, NSView)

public:
    void drawRect(NSRect) override {
        const NSSize whole = bounds().size;
        fill(0, 0, 1, {{0, 0}, whole});
        fill(1, 0, 0, {{0, whole.height - 100}, {whole.width, 100}});
    }
    void border(NSSize page) {
        const id operation = velt::send(NSPrintOperation::entry().object(), "currentOperation");
        heard += std::to_string(velt::as<NSPrintOperation>(operation)->currentPage()) + " ";
        pageSize = page;
        if (raises) velt::raise("NSGenericException", "no more ink");
    }
    static void describe(velt::ClassBuilder<PrintedView>& c) {
        c.method("drawPageBorderWithSize:", &PrintedView::border);
    }
    std::string heard;
    NSSize pageSize{};
    bool raises = false;

private:
    static void fill(double red, double green, double blue, NSRect rect) {
        const Ref<NSBezierPath> path = velt::make<NSBezierPath>();
        velt::send(velt::make<NSColor>(red, green, blue, 1.0), "set");
        path->appendRect(rect);
        path->fill();
    }
};

/// Prints a view by an operation of its own; whether it was done.
bool print(NSView& view, const id& info = nil, bool asks = false) {
    const id operation = velt::send(NSPrintOperation::entry().object(),
                                    "printOperationWithView:printInfo:", id(static_cast<NSObject*>(&view)), info);
    velt::send(operation, "setShowsPrintPanel:", boolean(asks));
    const bool done = VELT_CBOOL(velt::send(operation, "runOperation"));
    EXPECT_VALUE("q 0", velt::send(operation, "currentPage"));
    EXPECT_VALUE("nil", velt::send(NSPrintOperation::entry().object(), "currentOperation"));
    return done;
}

id settings() { return NSPrintInfo::sharedPrintInfo().copy(); }

id dictionaryOf(const id& info) { return velt::send(info, "dictionary"); }

/// Answers the print panel as soon as it is there.
class Answer {
public:
    explicit Answer(std::function<void(QPrintDialog&)> answer) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, answer = std::move(answer)] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible()) return;
            timer_.stop();
            asked = true;
            answer(*dialog);
        });
        timer_.start(10);
    }
    bool asked = false;

private:
    QTimer timer_;
};

/// The desktop's viewer of files. While it lives, temporary files are in a folder of their own.
class Viewer : public QTextBrowser {
public:
    Viewer() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "setSource"); }
    ~Viewer() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    static int temporaryFiles() { return static_cast<int>(QDir::temp().entryList(QDir::Files).size()); }

    std::vector<std::string> opened;

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType) override {
        opened.push_back(url.toLocalFile().toStdString());
    }

private:
    const TemporaryFolder folder_;
    const EnvironmentVariable temporary_{"TMPDIR", folder_.file("")};
};

id previewSettings() {
    const id info = settings();
    velt::send(info, "setJobDisposition:", str("NSPrintPreviewJob"));
    return info;
}

}  // namespace

TEST(PrintSettings, BeginWithTheUsualOnes) {
    const Ref<NSPrintInfo> info = velt::make<NSPrintInfo>();
    EXPECT_VALUE("d 72", velt::send(info, "leftMargin"));
    EXPECT_VALUE("d 72", velt::send(info, "rightMargin"));
    EXPECT_VALUE("d 90", velt::send(info, "topMargin"));
    EXPECT_VALUE("d 90", velt::send(info, "bottomMargin"));
    EXPECT_VALUE("Q 2", velt::send(info, "horizontalPagination"));
    EXPECT_VALUE("Q 0", velt::send(info, "verticalPagination"));
    EXPECT_VALUE("c 1", velt::send(info, "isVerticallyCentered"));
    EXPECT_VALUE("'NSPrintSpoolJob'", velt::send(info, "jobDisposition"));
    EXPECT_LT(500, info->paperSize().width);
    EXPECT_LT(info->paperSize().width, info->paperSize().height);
}

TEST(PrintSettings, TurnThePaper) {
    const Ref<NSPrintInfo> info = velt::make<NSPrintInfo>();
    info->setPaperSize({300, 400});
    for (const int times : {1, 2}) {
        velt::send(info, "setOrientation:", integer(1));
        EXPECT_EQ((NSSize{400, 300}), info->paperSize()) << times;
    }
    velt::send(info, "setOrientation:", integer(0));
    EXPECT_EQ((NSSize{300, 400}), info->paperSize());
    EXPECT_EQ((NSRect{{72, 90}, {156, 220}}), info->contentRect());
    info->setLeftMargin(900);
    EXPECT_EQ(0, info->contentRect().size.width);
}

TEST(PrintSettings, AreCopiedAsTheyAre) {
    const PrintingIntoAFile file;
    const id copy = settings();
    velt::send(copy, "setTopMargin:", real(1));
    velt::send(dictionaryOf(copy), "removeObjectForKey:", str("NSSavePath"));
    EXPECT_EQ("", velt::as<NSPrintInfo>(copy)->savingPath());
    EXPECT_EQ(file.path, NSPrintInfo::sharedPrintInfo().savingPath());
    EXPECT_EQ(90, NSPrintInfo::sharedPrintInfo().topMargin());
    EXPECT_VALUE("'NSPrintSaveJob'", velt::send(copy, "jobDisposition"));
    velt::send(dictionaryOf(copy), "setObject:forKey:", NSURL::withString("file:///tmp/a%20b.pdf"),
               str("NSJobSavingURL"));
    EXPECT_EQ("/tmp/a b.pdf", velt::as<NSPrintInfo>(copy)->savingPath());
}

TEST(PrintedViews, GoOnOnFurtherPages) {
    const PrintingIntoAFile file;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {500, 1000}});
    struct Case {
        unsigned long across, down;
        const char* pages;
    };
    // There is room for 451 by 662 points; what is made to fit is made smaller both ways.
    for (const Case& each : {Case{0, 0, "1 2 3 4 "}, Case{2, 0, "1 2 "}, Case{0, 2, "1 2 "}, Case{2, 2, "1 "},
                             Case{1, 1, "1 "}, Case{1, 0, "1 2 "}, Case{0, 1, "1 "}}) {
        const id info = settings();
        velt::send(info, "setHorizontalPagination:", natural(each.across));
        velt::send(info, "setVerticalPagination:", natural(each.down));
        view->heard.clear();
        EXPECT_TRUE(print(*view, info));
        EXPECT_EQ(each.pages, view->heard) << each.across << " " << each.down;
    }
    EXPECT_EQ((NSSize{595, 842}), view->pageSize);
}

TEST(PrintedViews, LookAsOnTheScreen) {
    SKIP_WITHOUT_PDF_TOOLS();
    const PrintingIntoAFile file;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {200, 1000}});
    const id info = settings();
    velt::send(info, "setHorizontallyCentered:", boolean(false));
    ASSERT_TRUE(print(*view, info));
    const QImage first = pageImage(file.path), second = pageImage(file.path, 2);
    ASSERT_EQ(QSize(595, 842), first.size());
    EXPECT_EQ(QColor(Qt::red), first.pixelColor(100, 95));
    EXPECT_EQ(QColor(Qt::red), first.pixelColor(268, 185));
    EXPECT_EQ(QColor(Qt::blue), first.pixelColor(100, 195));
    EXPECT_EQ(QColor(Qt::blue), first.pixelColor(100, 745));
    for (const QPoint& outside : {QPoint(68, 100), QPoint(276, 100), QPoint(100, 86), QPoint(100, 757)}) {
        EXPECT_EQ(QColor(Qt::white), first.pixelColor(outside)) << outside.x() << " " << outside.y();
    }
    EXPECT_EQ(QColor(Qt::blue), second.pixelColor(100, 95));
    EXPECT_EQ(QColor(Qt::white), second.pixelColor(100, 90 + 338 + 4)) << "the view ends there";
}

TEST(PrintedViews, WithoutRoomAreNotPrinted) {
    const PrintingIntoAFile file;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    EXPECT_FALSE(print(*view));
    view->setFrame({{0, 0}, {100, 100}});
    const id info = settings();
    velt::send(info, "setLeftMargin:", real(2000));
    EXPECT_FALSE(print(*view, info));
    velt::send(info, "setHorizontalPagination:", natural(NSPrintInfo::kAuto));
    for (const double left : {0.5, 1.5}) {
        // Half a point is no room, and a million points do not go onto pages of little more than one.
        velt::send(info, "setLeftMargin:", real(595 - 72 - left));
        view->setFrame({{0, 0}, {left < 1 ? 100.0 : 1'000'000.0, 100}});
        EXPECT_FALSE(print(*view, info)) << left;
    }
    EXPECT_EQ("", view->heard);
    EXPECT_FALSE(file.isPrinted());
    EXPECT_VALUE("nil", velt::send(NSPrintOperation::entry().object(), "printOperationWithView:", nil));
}

TEST(PrintedViews, LeaveTheOldFileWhenSomethingRaises) {
    const PrintingIntoAFile file;
    file.folder.write("pages.pdf", "old");
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 100}});
    view->raises = true;
    EXPECT_RAISES("NSGenericException: no more ink", print(*view));
    EXPECT_EQ("old", contentOf(file.path));
    EXPECT_VALUE("nil", velt::send(NSPrintOperation::entry().object(), "currentOperation"));
    view->raises = false;
    EXPECT_TRUE(print(*view));
    EXPECT_EQ("%PDF", contentOf(file.path).substr(0, 4));
}

TEST(PrintedViews, SayWhenTheFileCannotBeWritten) {
    const PrintingIntoAFile file;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 100}});
    const id info = settings();
    velt::send(dictionaryOf(info), "setObject:forKey:", str("/nowhere/pages.pdf"), str("NSSavePath"));
    EXPECT_FALSE(print(*view, info));
    velt::send(dictionaryOf(info), "removeObjectForKey:", str("NSSavePath"));
    EXPECT_FALSE(print(*view, info));
    velt::send(info, "setJobDisposition:", str("NSPrintCancelJob"));
    EXPECT_FALSE(print(*view, info));
    EXPECT_EQ("", view->heard);
}

TEST(PrintedViews, NeedAPrinterUnlessAFileIsNamed) {
    velt::requireApplicationObject("a test");
    if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "there is a printer, which would print";
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 100}});
    EXPECT_FALSE(print(*view));
    EXPECT_EQ("", view->heard);
}

TEST(PrintPreviews, AreShownByTheDesktopsViewer) {
    const PrintingIntoAFile file;
    Viewer viewer;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {400, 1000}});
    EXPECT_TRUE(print(*view, previewSettings()));
    EXPECT_EQ("1 2 ", view->heard);
    ASSERT_EQ(1U, viewer.opened.size());
    EXPECT_EQ("pdf", QFileInfo(QString::fromStdString(viewer.opened[0])).suffix().toStdString());
    EXPECT_EQ("%PDF", contentOf(viewer.opened[0]).substr(0, 4));
    EXPECT_FALSE(file.isPrinted());
    if (pdfToolsAreThere()) {
        const QImage page = pageImage(viewer.opened[0]);
        EXPECT_EQ(QSize(595, 842), page.size());
        EXPECT_EQ(QColor(Qt::red), page.pixelColor(297, 120));
    }
    // Each has a file of its own.
    EXPECT_TRUE(print(*view, previewSettings()));
    ASSERT_EQ(2U, viewer.opened.size());
    EXPECT_NE(viewer.opened[0], viewer.opened[1]);
}

TEST(PrintPreviews, ShowThePagesThatThePersonChose) {
    const PrintingIntoAFile file;
    Viewer viewer;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 2000}});
    const Answer answer([](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>("printRange")->click();
        dialog.findChild<QSpinBox*>("to")->setValue(3);
        dialog.findChild<QSpinBox*>("from")->setValue(3);
        dialog.accept();
    });
    EXPECT_TRUE(print(*view, previewSettings(), true));
    EXPECT_TRUE(answer.asked);
    EXPECT_EQ("3 ", view->heard);
    EXPECT_EQ(1U, viewer.opened.size());
    EXPECT_FALSE(file.isPrinted());
}

TEST(PrintPreviews, LeaveNoFileBehindWhenSomethingFails) {
    const PrintingIntoAFile file;
    Viewer viewer;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 100}});
    view->raises = true;
    EXPECT_RAISES("NSGenericException: no more ink", print(*view, previewSettings()));
    view->raises = false;
    const id narrow = previewSettings();
    velt::send(narrow, "setLeftMargin:", real(2000));
    EXPECT_FALSE(print(*view, narrow));
    EXPECT_TRUE(viewer.opened.empty());
    EXPECT_EQ(0, Viewer::temporaryFiles());
}

TEST(PrintPanels, CanBeCancelled) {
    const PrintingIntoAFile file;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 100}});
    const Answer answer([](QPrintDialog& dialog) { dialog.reject(); });
    EXPECT_FALSE(print(*view, nil, true));
    EXPECT_TRUE(answer.asked);
    EXPECT_EQ("", view->heard);
    EXPECT_FALSE(file.isPrinted());
}

TEST(PrintPanels, PrintWhatThePersonChose) {
    const PrintingIntoAFile file;
    const Ref<PrintedView> view = velt::make<PrintedView>();
    view->setFrame({{0, 0}, {100, 2000}});
    const Answer answer([](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>("printRange")->click();
        dialog.findChild<QSpinBox*>("to")->setValue(3);
        dialog.findChild<QSpinBox*>("from")->setValue(2);
        dialog.accept();
    });
    velt::send(id(view), "print:", nil);
    EXPECT_TRUE(answer.asked);
    EXPECT_EQ("2 3 ", view->heard);
    EXPECT_TRUE(file.isPrinted());
}
