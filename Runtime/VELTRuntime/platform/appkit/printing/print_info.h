// How something is printed: on what paper, with which margins, and where the pages go.
#pragma once

#include "VELTRuntime/platform/object/class.h"

/// The settings of one printing. Sizes are points of the paper. The shared ones are where each printing begins.
class VELT_EXPORT NSPrintInfo final : public NSObject {
    VELT_OBJECT(NSPrintInfo, NSObject)
public:
    /// What becomes of a view that is larger than a page: it goes on on further pages, is made smaller, or is cut off.
    enum Pagination : unsigned long { kAuto = 0, kFit = 1, kClip = 2 };
    enum Orientation : long { kPortrait = 0, kLandscape = 1 };

    /// The desktop's usual paper, upright, with an inch beside and a little more above and below.
    NSPrintInfo();
    /// The application's own settings, which live as long as it runs.
    static NSPrintInfo& sharedPrintInfo();
    static void setSharedPrintInfo(const id& info);

    id copy() const override;

    /// As it lies in the given orientation.
    NSSize paperSize() const { return paperSize_; }
    void setPaperSize(NSSize size) { paperSize_ = size; }
    long orientation() const { return orientation_; }
    /// Turns the paper too.
    void setOrientation(long orientation);
    double leftMargin() const { return left_; }
    void setLeftMargin(double points) { left_ = points; }
    double rightMargin() const { return right_; }
    void setRightMargin(double points) { right_ = points; }
    double topMargin() const { return top_; }
    void setTopMargin(double points) { top_ = points; }
    double bottomMargin() const { return bottom_; }
    void setBottomMargin(double points) { bottom_ = points; }
    /// The paper within the margins, from its upper left corner.
    NSRect contentRect() const;
    unsigned long horizontalPagination() const { return horizontal_; }
    void setHorizontalPagination(unsigned long mode) { horizontal_ = mode; }
    unsigned long verticalPagination() const { return vertical_; }
    void setVerticalPagination(unsigned long mode) { vertical_ = mode; }
    bool isHorizontallyCentered() const { return horizontallyCentered_; }
    void setHorizontallyCentered(bool flag) { horizontallyCentered_ = flag; }
    bool isVerticallyCentered() const { return verticallyCentered_; }
    void setVerticallyCentered(bool flag) { verticallyCentered_ = flag; }

    /// "NSPrintSpoolJob" for the printer, "NSPrintSaveJob" for a PDF file, "NSPrintPreviewJob" for the desktop's
    /// viewer, "NSPrintCancelJob" for nothing at all.
    id jobDisposition() const { return disposition_; }
    void setJobDisposition(const id& name) { disposition_ = name; }
    /// Further settings, a dictionary that may be changed: the file is under "NSJobSavingURL", a URL, or under
    /// "NSSavePath", a path.
    id dictionary() const { return dictionary_; }
    /// The path of the file; empty when none is set.
    std::string savingPath() const;

    static void describe(velt::ClassBuilder<NSPrintInfo>& c);

private:
    NSSize paperSize_;
    long orientation_ = kPortrait;
    double left_ = 72, right_ = 72, top_ = 90, bottom_ = 90;
    unsigned long horizontal_ = kClip, vertical_ = kAuto;
    bool horizontallyCentered_ = true, verticallyCentered_ = true;
    id disposition_, dictionary_;
};
