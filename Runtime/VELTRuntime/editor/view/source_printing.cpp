// Printing of a source file: the text as the platform prints it, and a header above.
#include "VELTRuntime/editor/view/source_view.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/printing/print_operation.h"
#include "VELTRuntime/platform/appkit/single_precision.h"
#include "VELTRuntime/platform/appkit/text_drawing.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"

#include <QFont>

using velt::Ref;

namespace {

constexpr double kAboveAndBelow = 80, kLeft = 10;
constexpr int kHeaderSize = 10;

std::u16string inHeader(const id& value) {
    if (value.isNil()) return u"(null)";
    const id text = velt::description(value);
    return std::u16string(velt::textOf(text));
}

/// The desktop's own choice where it has no font of that name.
Ref<NSFont> headerFont() {
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(kHeaderSize);
    return velt::make<NSFont>(font, kHeaderSize);
}

}  // namespace

void VLTextView::print(const id& projectName, const id& projectFile, bool showsPanel) {
    const Ref<VLTextView> kept(this);
    projectName_ = projectName;
    projectFile_ = projectFile;
    printInfo_ = NSPrintInfo::sharedPrintInfo().copy();
    NSPrintInfo& info = *velt::as<NSPrintInfo>(printInfo_);
    info.setHorizontalPagination(NSPrintInfo::kClip);
    info.setVerticalPagination(NSPrintInfo::kAuto);
    info.setVerticallyCentered(false);
    info.setTopMargin(kAboveAndBelow);
    info.setBottomMargin(kAboveAndBelow);
    info.setLeftMargin(kLeft);
    const Ref<NSPrintOperation> operation = velt::make<NSPrintOperation>(*this, info);
    operation->setShowsPrintPanel(showsPanel);
    operation->runOperation();
}

// On paper the drawing's coordinates are the page's already, so the view's frame can stay as it is.
void VLTextView::drawPageBorder(NSSize page) {
    const NSPrintOperation* operation = NSPrintOperation::currentOperation();
    const NSPrintInfo* info = velt::to<NSPrintInfo>(printInfo_);
    std::u16string header = inHeader(projectName_);
    header.append(u" / ").append(inHeader(projectFile_)).append(u"      ").append(inHeader(NSDate::now()));
    header.append(u"      Page ").append(inHeader(VELT_ID(operation ? operation->currentPage() : 0L)));
    const Ref<NSMutableDictionary> attributes = velt::make<NSMutableDictionary>();
    attributes->setObject(headerFont(), velt::attribute::font());
    const id text = velt::string(std::u16string_view(header));
    const NSSize size = velt::textSize(text, attributes);
    const double margins = info ? info->leftMargin() + info->rightMargin() : 0;
    // Both margins are taken off, and places are kept in single precision: programs rely on it.
    const double x = velt::toSingle(page.width * 0.5 - margins - size.width * 0.5);
    const double y = velt::toSingle(2 * size.height);
    velt::drawText(text, {{x, y}, size}, false, attributes);
}

void VLTextView::describePrinting(velt::ClassBuilder<VLTextView>& c) {
    c.method("PrintShowingPrintPanel:::", &VLTextView::print)
        .method("drawPageBorderWithSize:", &VLTextView::drawPageBorder)
        .property("pi", &VLTextView::printInfo)
        .owns(&VLTextView::printInfo_)
        .property("sProjectName", &VLTextView::projectName_)
        .property("sProjectFile", &VLTextView::projectFile_);
}
