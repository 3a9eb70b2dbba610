// The printing of a view: asks the person when wanted, then makes the pages one by one.
#pragma once

#include "VELTRuntime/platform/appkit/printing/print_info.h"
#include "VELTRuntime/platform/appkit/view.h"

class QPagedPaintDevice;
class QPrinter;
class QString;

/// Prints a view once. Each page is first given to the view's "drawPageBorderWithSize:", which draws in points of the
/// paper, in the view's own direction of y.
class VELT_EXPORT NSPrintOperation final : public NSObject {
    VELT_OBJECT(NSPrintOperation, NSObject)
public:
    NSPrintOperation() = default;
    NSPrintOperation(NSView& view, NSPrintInfo& info) : view_(&view), info_(&info) {}

    /// The operation that is running; null without one.
    static NSPrintOperation* currentOperation();

    id view() const { return view_; }
    id printInfo() const { return info_; }
    void setPrintInfo(const id& info);
    bool showsPrintPanel() const { return showsPrintPanel_; }
    void setShowsPrintPanel(bool flag) { showsPrintPanel_ = flag; }
    // Kept for programs: pages are made too quickly for a panel that tells of it.
    bool showsProgressPanel() const { return showsProgressPanel_; }
    void setShowsProgressPanel(bool flag) { showsProgressPanel_ = flag; }
    /// What the printer's queue and a PDF file call it; the window's title unless it was set.
    id jobTitle() const;
    void setJobTitle(const id& title) { jobTitle_ = title; }
    /// The number of the page that is being drawn, from 1 on; 0 before and after.
    long currentPage() const { return page_; }

    /// Prints. False when the person decided otherwise, there is no printer, or the file cannot be written; a file that
    /// was there stays as it was then.
    bool runOperation();

    static void describe(velt::ClassBuilder<NSPrintOperation>& c);

private:
    struct Wishes;

    bool ask(QPrinter& printer, Wishes& wishes);
    bool printTo(QPagedPaintDevice& device, const Wishes& wishes);
    bool printToFile(const QString& path, const Wishes& wishes);
    bool preview(const Wishes& wishes);

    velt::Ref<NSView> view_;
    velt::Ref<NSPrintInfo> info_;
    id jobTitle_;
    bool showsPrintPanel_ = true, showsProgressPanel_ = true;
    long page_ = 0;
};
