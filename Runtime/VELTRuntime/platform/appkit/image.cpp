#include "VELTRuntime/platform/appkit/image.h"

#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <QImage>
#include <QImageReader>

velt::Ref<NSImage> NSImage::fromFile(const std::string& path) {
    QImageReader reader(QString::fromStdString(path));
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    return picture.isNull() ? velt::Ref<NSImage>() : velt::make<NSImage>(picture);
}

NSImage::NSImage(const QImage& picture) : picture_(std::make_unique<const QImage>(picture)) {}

NSImage::~NSImage() = default;

id NSImage::description() const {
    const id dimensions = velt::description(VELT_ID(size()));
    return velt::string("<NSImage " + velt::utf8(dimensions) + ">");
}

id NSImage::copy() const { return id(const_cast<NSImage*>(this)); }

NSSize NSImage::size() const {
    const QSizeF size = picture_->deviceIndependentSize();
    return {size.width(), size.height()};
}

bool NSImage::isValid() const { return !picture_->isNull(); }

void NSImage::describe(velt::ClassBuilder<NSImage>& c) {
    c.property("size", &NSImage::size).method("isValid", &NSImage::isValid);
}
