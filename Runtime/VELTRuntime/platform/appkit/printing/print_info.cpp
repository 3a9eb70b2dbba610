#include "VELTRuntime/platform/appkit/printing/print_info.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/values/conversions.h"

#include <QLocale>
#include <QPageSize>
#include <QSizeF>
#include <QUrl>
#include <algorithm>

using velt::Ref;

namespace {

/// The paper of the user's country.
NSSize usualPaper() {
    const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    const QSizeF size = QPageSize(letter ? QPageSize::Letter : QPageSize::A4).size(QPageSize::Point);
    return {size.width(), size.height()};
}

Ref<NSPrintInfo>& shared() {
    static auto& info = *new Ref<NSPrintInfo>;  // programs may print until the very end
    return info;
}

}  // namespace

NSPrintInfo::NSPrintInfo()
    : paperSize_(usualPaper()), disposition_(velt::string(u"NSPrintSpoolJob")),
      dictionary_(velt::make<NSMutableDictionary>()) {}

NSPrintInfo& NSPrintInfo::sharedPrintInfo() {
    velt::requireMainThread("NSPrintInfo sharedPrintInfo");
    if (!shared()) shared() = velt::make<NSPrintInfo>();
    return *shared();
}

void NSPrintInfo::setSharedPrintInfo(const id& info) {
    velt::requireMainThread("NSPrintInfo setSharedPrintInfo:");
    shared() = Ref<NSPrintInfo>(velt::to<NSPrintInfo>(info));
}

id NSPrintInfo::copy() const {
    Ref<NSPrintInfo> made = velt::make<NSPrintInfo>();
    made->paperSize_ = paperSize_;
    made->orientation_ = orientation_;
    made->left_ = left_, made->right_ = right_, made->top_ = top_, made->bottom_ = bottom_;
    made->horizontal_ = horizontal_, made->vertical_ = vertical_;
    made->horizontallyCentered_ = horizontallyCentered_, made->verticallyCentered_ = verticallyCentered_;
    made->disposition_ = disposition_;
    made->dictionary_ = velt::make<NSMutableDictionary>(*velt::dictionaryOf(dictionary_));
    return made;
}

void NSPrintInfo::setOrientation(long orientation) {
    if ((orientation == kLandscape) != (orientation_ == kLandscape)) std::swap(paperSize_.width, paperSize_.height);
    orientation_ = orientation;
}

NSRect NSPrintInfo::contentRect() const {
    return {{left_, top_},
            {std::max(0.0, paperSize_.width - left_ - right_), std::max(0.0, paperSize_.height - top_ - bottom_)}};
}

std::string NSPrintInfo::savingPath() const {
    const NSDictionary& settings = *velt::dictionaryOf(dictionary_);
    const id url = settings.objectForKey(velt::string(u"NSJobSavingURL"));
    if (velt::is<NSURL>(url)) {
        const id text = velt::as<NSURL>(url)->description();
        return QUrl(velt::qtText(text)).toLocalFile().toStdString();
    }
    const id path = velt::isString(url) ? url : settings.objectForKey(velt::string(u"NSSavePath"));
    return velt::isString(path) ? velt::utf8(path) : std::string();
}

void NSPrintInfo::describe(velt::ClassBuilder<NSPrintInfo>& c) {
    c.property("paperSize", &NSPrintInfo::paperSize, &NSPrintInfo::setPaperSize)
        .property("orientation", &NSPrintInfo::orientation, &NSPrintInfo::setOrientation)
        .property("leftMargin", &NSPrintInfo::leftMargin, &NSPrintInfo::setLeftMargin)
        .property("rightMargin", &NSPrintInfo::rightMargin, &NSPrintInfo::setRightMargin)
        .property("topMargin", &NSPrintInfo::topMargin, &NSPrintInfo::setTopMargin)
        .property("bottomMargin", &NSPrintInfo::bottomMargin, &NSPrintInfo::setBottomMargin)
        .property("horizontalPagination", &NSPrintInfo::horizontalPagination, &NSPrintInfo::setHorizontalPagination)
        .property("verticalPagination", &NSPrintInfo::verticalPagination, &NSPrintInfo::setVerticalPagination)
        .flag("horizontallyCentered", &NSPrintInfo::isHorizontallyCentered, &NSPrintInfo::setHorizontallyCentered)
        .flag("verticallyCentered", &NSPrintInfo::isVerticallyCentered, &NSPrintInfo::setVerticallyCentered)
        .property("jobDisposition", &NSPrintInfo::jobDisposition, &NSPrintInfo::setJobDisposition)
        .property("dictionary", &NSPrintInfo::dictionary)
        .owns(&NSPrintInfo::disposition_)
        .owns(&NSPrintInfo::dictionary_)
        .classMethod("sharedPrintInfo",
                     [](const id&, const id*) { return id(static_cast<NSObject*>(&NSPrintInfo::sharedPrintInfo())); })
        .classMethod("setSharedPrintInfo:", [](const id&, const id* a) {
            NSPrintInfo::setSharedPrintInfo(a[0]);
            return nil;
        });
}
