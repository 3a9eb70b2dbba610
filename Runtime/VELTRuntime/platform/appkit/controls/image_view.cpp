#include "VELTRuntime/platform/appkit/controls/image_view.h"

#include "VELTRuntime/platform/appkit/accessibility/names.h"
#include "VELTRuntime/platform/appkit/controls/image_widget.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QUrl>

using velt::Ref;

std::unique_ptr<QWidget> NSImageView::makeWidget() {
    auto widget = std::make_unique<velt::ImageWidget>();
    watchEvents(*widget);
    return widget;
}

void NSImageView::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    widget.setAcceptDrops(isEditable() && isEnabled());
    const QString name = velt::qtText(toolTip());
    velt::setOwnName(widget, name);
}

void NSImageView::replace(const id& image) {
    const Ref<NSImageView> kept(this);
    setImage(image);
    worked();
}

bool NSImageView::holdsImage(const QMimeData& data) { return data.hasImage() || data.hasUrls(); }

bool NSImageView::takeImage(const QMimeData& data) {
    if (!isEditable() || !isEnabled()) return false;
    for (const QUrl& url : data.urls()) {
        const Ref<NSImage> read = NSImage::fromFile(url.toLocalFile().toStdString());
        if (!read) continue;
        replace(read);
        return true;
    }
    const QImage picture = qvariant_cast<QImage>(data.imageData());
    if (picture.isNull()) return false;
    replace(velt::make<NSImage>(picture));
    return true;
}

void NSImageView::copyImage(const id&) {
    if (allowsCutCopyPaste_ && velt::is<NSImage>(image())) {
        QApplication::clipboard()->setImage(velt::as<NSImage>(image())->picture());
    }
}

void NSImageView::cut(const id& sender) {
    if (!allowsCutCopyPaste_ || !isEditable() || image().isNil()) return;
    copyImage(sender);
    deleteImage(sender);
}

void NSImageView::paste(const id&) {
    const QMimeData* data = QApplication::clipboard()->mimeData();
    if (allowsCutCopyPaste_ && data) takeImage(*data);
}

void NSImageView::deleteImage(const id&) {
    if (isEditable() && isEnabled() && !image().isNil()) replace(nil);
}

void NSImageView::describe(velt::ClassBuilder<NSImageView>& c) {
    c.property("image", &NSImageView::image, &NSImageView::setImage)
        .property("imageScaling", &NSImageView::imageScaling, &NSImageView::setImageScaling)
        .property("imageAlignment", &NSImageView::imageAlignment, &NSImageView::setImageAlignment)
        .property("imageFrameStyle", &NSImageView::imageFrameStyle, &NSImageView::setImageFrameStyle)
        .flag("editable", &NSImageView::isEditable, &NSImageView::setEditable)
        .property("allowsCutCopyPaste", &NSImageView::allowsCutCopyPaste, &NSImageView::setAllowsCutCopyPaste)
        .method("cut:", &NSImageView::cut)
        .method("copy:", &NSImageView::copyImage)
        .method("paste:", &NSImageView::paste)
        .method("delete:", &NSImageView::deleteImage);
}
