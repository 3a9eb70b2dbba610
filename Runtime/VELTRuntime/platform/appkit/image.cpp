#include "VELTRuntime/platform/appkit/image.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace {

velt::Ref<NSImage> readFrom(QImageReader& reader) {
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    return picture.isNull() ? velt::Ref<NSImage>() : velt::make<NSImage>(picture);
}

}  // namespace

velt::Ref<NSImage> NSImage::fromFile(const std::string& path) {
    QImageReader reader(QString::fromStdString(path));
    return readFrom(reader);
}

velt::Ref<NSImage> NSImage::fromBytes(std::string_view bytes) {
    QByteArray shared = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer device(&shared);
    QImageReader reader(&device);
    return readFrom(reader);
}

NSImage::NSImage() : NSImage(QImage()) {}

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

id NSImage::pngRepresentation() const {
    if (!isValid()) return nil;
    QByteArray bytes;
    QBuffer device(&bytes);
    device.open(QIODevice::WriteOnly);
    if (!picture_->save(&device, "PNG")) return nil;
    return velt::make<NSData>(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void NSImage::describe(velt::ClassBuilder<NSImage>& c) {
    c.property("size", &NSImage::size)
        .method("isValid", &NSImage::isValid)
        .property("PNGRepresentation", &NSImage::pngRepresentation)
        // Images are had as files, of data, and by name; nil when there is no picture.
        .method("initWithContentsOfFile:",
                [](const id&, const id* a) { return id(fromFile(velt::utf8(VELT_CSTRING(a[0])))); })
        .method("initByReferencingFile:",
                [](const id&, const id* a) { return id(fromFile(velt::utf8(VELT_CSTRING(a[0])))); })
        .method("initWithData:",
                [](const id&, const id* a) {
                    const NSData* data = velt::dataOf(a[0]);
                    return data ? id(fromBytes(data->characters())) : id();
                })
        .classMethod("imageNamed:", [](const id&, const id* a) { return id(named(velt::utf8(VELT_CSTRING(a[0])))); });
}
