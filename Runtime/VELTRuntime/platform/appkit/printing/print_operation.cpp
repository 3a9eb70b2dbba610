#include "VELTRuntime/platform/appkit/printing/print_operation.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/printing/printed_pages.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/object/callback_failure.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/conversions.h"

#include <QDesktopServices>
#include <QDir>
#include <QMainWindow>
#include <QPageLayout>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QUrl>
#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

using velt::Ref;

namespace {

constexpr double kPointsPerInch = 72;

/// The operation that runs now; the one around it comes back behind it.
NSPrintOperation* current = nullptr;

class Current {
public:
    explicit Current(NSPrintOperation& operation) : outer_(std::exchange(current, &operation)) {}
    ~Current() { current = outer_; }
    Current(const Current&) = delete;
    Current& operator=(const Current&) = delete;

private:
    NSPrintOperation* outer_;
};

/// The paper without margins, which the pages keep themselves.
QPageLayout pageLayout(const NSPrintInfo& info) {
    const bool turned = info.orientation() == NSPrintInfo::kLandscape;
    const NSSize paper = info.paperSize();
    const QSizeF upright = turned ? QSizeF(paper.height, paper.width) : QSizeF(paper.width, paper.height);
    QPageLayout layout(QPageSize(upright, QPageSize::Point, {}, QPageSize::FuzzyMatch),
                       turned ? QPageLayout::Landscape : QPageLayout::Portrait, {}, QPageLayout::Point);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

bool isDisposition(const NSPrintInfo& info, std::u16string_view name) {
    const id chosen = info.jobDisposition();
    return velt::isString(chosen) && velt::textOf(chosen) == name;
}

}  // namespace

/// What a person may want of the pages.
struct NSPrintOperation::Wishes {
    QPageRanges pages;  // all when empty
    int copies = 1;
    bool backwards = false, together = true;  // copy after copy
};

NSPrintOperation* NSPrintOperation::currentOperation() { return current; }

void NSPrintOperation::setPrintInfo(const id& info) { info_ = Ref<NSPrintInfo>(velt::to<NSPrintInfo>(info)); }

id NSPrintOperation::jobTitle() const {
    if (!jobTitle_.isNil()) return jobTitle_;
    const NSWindow* window = view_ ? view_->windowPointer() : nullptr;
    return window ? window->title() : id(velt::string(u""));
}

bool NSPrintOperation::runOperation() {
    velt::requireMainThread("NSPrintOperation runOperation");
    velt::requireApplicationObject("printing");
    const Ref<NSPrintOperation> kept(this);
    if (!view_ || current == this) return false;
    if (!info_) info_ = Ref<NSPrintInfo>(&NSPrintInfo::sharedPrintInfo());
    if (isDisposition(*info_, u"NSPrintCancelJob")) return false;
    const Current running(*this);
    const bool saves = isDisposition(*info_, u"NSPrintSaveJob");
    const bool previews = isDisposition(*info_, u"NSPrintPreviewJob");
    const QString path = QString::fromStdString(saves ? info_->savingPath() : std::string());
    Wishes wishes;
    if (showsPrintPanel_) {
        QPrinter printer(QPrinter::HighResolution);
        if (saves) printer.setOutputFormat(QPrinter::PdfFormat);
        if (!path.isEmpty()) printer.setOutputFileName(path);
        if (!ask(printer, wishes)) return false;
        if (previews) return preview(wishes);
        if (printer.outputFormat() == QPrinter::PdfFormat) return printToFile(printer.outputFileName(), wishes);
        return printTo(printer, wishes);
    }
    if (previews) return preview(wishes);
    if (saves) return printToFile(path, wishes);
    const QPrinterInfo usual = QPrinterInfo::defaultPrinter();
    if (usual.isNull()) return false;
    QPrinter printer(usual, QPrinter::HighResolution);
    return printTo(printer, wishes);
}

bool NSPrintOperation::ask(QPrinter& printer, Wishes& wishes) {
    // What a person says of the paper holds; the margins stay the program's.
    printer.setPageLayout(pageLayout(*info_));
    printer.setDocName(velt::qtText(jobTitle()));
    NSWindow* window = view_->windowPointer();
    const QPointer<QPrintDialog> dialog = new QPrintDialog(&printer, window ? &window->widget() : nullptr);
    int answer = QDialog::Rejected;
    {
        const velt::CallbackShelter shelter;
        answer = dialog->exec();
    }
    if (!dialog) return false;  // its window has gone
    delete dialog;
    if (answer != QDialog::Accepted) return false;
    const QPageLayout chosen = printer.pageLayout();
    const QSizeF paper = chosen.fullRect(QPageLayout::Point).size();
    info_->setOrientation(chosen.orientation() == QPageLayout::Landscape ? NSPrintInfo::kLandscape
                                                                         : NSPrintInfo::kPortrait);
    info_->setPaperSize({paper.width(), paper.height()});
    wishes.pages = printer.pageRanges();
    wishes.backwards = printer.pageOrder() == QPrinter::LastPageFirst;
    wishes.together = printer.collateCopies();
    if (!printer.supportsMultipleCopies()) wishes.copies = std::max(1, printer.copyCount());
    return true;
}

bool NSPrintOperation::printToFile(const QString& path, const Wishes& wishes) {
    QSaveFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly)) return false;
    bool drawn = false;
    {
        QPdfWriter writer(&file);
        writer.setTitle(velt::qtText(jobTitle()));
        drawn = printTo(writer, wishes);
    }
    return drawn && file.commit();
}

bool NSPrintOperation::preview(const Wishes& wishes) {
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/XXXXXX.pdf"));
    if (!file.open()) return false;
    file.close();
    if (!printToFile(file.fileName(), wishes) || !QDesktopServices::openUrl(QUrl::fromLocalFile(file.fileName()))) {
        return false;
    }
    file.setAutoRemove(false);  // the viewer opens it when this program may long have ended
    return true;
}

bool NSPrintOperation::printTo(QPagedPaintDevice& device, const Wishes& wishes) {
    const Ref<NSView> view = view_;
    const Ref<NSPrintInfo> info = info_;
    device.setPageLayout(pageLayout(*info));
    QPainter painter;
    if (!painter.begin(&device)) return false;
    const double scale = device.logicalDpiX() / kPointsPerInch;
    const NSRect content = info->contentRect();
    const velt::PrintedArea area{
        device,
        scale,
        {content.origin.x * scale, content.origin.y * scale, content.size.width * scale, content.size.height * scale}};
    const std::unique_ptr<velt::PrintedPages> pages = velt::pagesOf(*view, *info, area);

    std::vector<long> order;
    const auto count = static_cast<long>(pages->count());
    for (long page = 1; page <= count; ++page) {
        if (!wishes.pages.isEmpty() && !wishes.pages.contains(static_cast<int>(page))) continue;
        order.insert(order.end(), wishes.together ? 1 : static_cast<std::size_t>(wishes.copies), page);
    }
    if (wishes.backwards) std::reverse(order.begin(), order.end());
    if (order.empty()) return false;

    struct Numbered {
        ~Numbered() {
            page = 0;
            // A printer gets no half of what a program gave up drawing.
            if (std::uncaught_exceptions() > before && printer) printer->abort();
        }
        long& page;
        QPrinter* printer;
        int before = std::uncaught_exceptions();
    } const numbered{page_, dynamic_cast<QPrinter*>(&device)};
    bool isFirst = true;
    for (int copy = 0; copy < (wishes.together ? wishes.copies : 1); ++copy) {
        for (const long page : order) {
            if (!std::exchange(isFirst, false) && !device.newPage()) return false;
            page_ = page;
            {
                const NSSize paper = info->paperSize();
                painter.save();
                painter.scale(scale, scale);
                if (!view->isFlipped()) {
                    painter.translate(0, paper.height);
                    painter.scale(1, -1);
                }
                painter.setPen(Qt::black);
                struct Restored {
                    ~Restored() { painter.restore(); }
                    QPainter& painter;
                } const restored{painter};
                const velt::GraphicsContext context(painter);
                velt::send(view, VELT_SELECTOR("drawPageBorderWithSize:"), VELT_ID(paper));
            }
            pages->draw(static_cast<std::size_t>(page - 1), painter);
        }
    }
    return painter.end();
}

void NSPrintOperation::describe(velt::ClassBuilder<NSPrintOperation>& c) {
    static constexpr auto kMade = [](const id& view, const id& info) {
        auto* shown = velt::to<NSView>(view);
        auto* settings = velt::to<NSPrintInfo>(info);
        // The operation's settings are its own: a person's choices stay out of the program's.
        const id own = settings ? settings->copy() : NSPrintInfo::sharedPrintInfo().copy();
        return shown ? id(velt::make<NSPrintOperation>(*shown, *velt::as<NSPrintInfo>(own))) : id();
    };
    c.property("view", &NSPrintOperation::view)
        .property("printInfo", &NSPrintOperation::printInfo, &NSPrintOperation::setPrintInfo)
        .property("showsPrintPanel", &NSPrintOperation::showsPrintPanel, &NSPrintOperation::setShowsPrintPanel)
        .property("showsProgressPanel", &NSPrintOperation::showsProgressPanel, &NSPrintOperation::setShowsProgressPanel)
        .property("jobTitle", &NSPrintOperation::jobTitle, &NSPrintOperation::setJobTitle)
        .property("currentPage", &NSPrintOperation::currentPage)
        .method("runOperation", &NSPrintOperation::runOperation)
        .owns(&NSPrintOperation::view_)
        .owns(&NSPrintOperation::info_)
        .owns(&NSPrintOperation::jobTitle_)
        .classMethod("currentOperation", [](const id&, const id*) { return id(static_cast<NSObject*>(current)); })
        .classMethod("printOperationWithView:", [](const id&, const id* a) { return kMade(a[0], nil); })
        .classMethod("printOperationWithView:printInfo:", [](const id&, const id* a) { return kMade(a[0], a[1]); });
}
