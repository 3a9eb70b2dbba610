#include "VELTRuntime/platform/appkit/image.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QMainWindow>
#include <QPainter>
#include <algorithm>

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

velt::Ref<NSImage> NSImage::ofWindow(NSWindow& window) {
    velt::requireMainThread("NSImage::ofWindow");
    return velt::make<NSImage>(window.widget().grab().toImage());
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

namespace {
/// How a picture is put over what is there; the numbers are those that programs use.
constexpr long kClear = 0, kCopy = 1, kSourceOver = 2;
}  // namespace

void NSImage::drawInRect(NSRect rect, NSRect from, long operation, double fraction) const {
    velt::GraphicsContext* context = velt::GraphicsContext::current();
    if (!context || !isValid()) return;
    QPainter& painter = context->painter();
    const double ratio = picture_->devicePixelRatio();
    const bool isPart = from.size.width > 0 && from.size.height > 0;
    // The picture's rows are counted from its top, the program's part from its bottom.
    const QRectF source =
        isPart ? QRectF(from.origin.x * ratio, (size().height - from.origin.y - from.size.height) * ratio,
                        from.size.width * ratio, from.size.height * ratio)
               : QRectF(picture_->rect());
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(painter.opacity() * std::clamp(fraction, 0.0, 1.0));
    if (operation == kClear) painter.setCompositionMode(QPainter::CompositionMode_Clear);
    if (operation == kCopy) painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.translate(rect.origin.x, rect.origin.y);
    if (context->isTurned()) {
        painter.translate(0, rect.size.height);
        painter.scale(1, -1);
    }
    painter.drawImage(QRectF(0, 0, rect.size.width, rect.size.height), *picture_, source);
    painter.restore();
}

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
        .method("drawInRect:fromRect:operation:fraction:", &NSImage::drawInRect)
        .method("drawInRect:",
                [](const id& self, const id* a) {
                    velt::as<NSImage>(self)->drawInRect(VELT_CNSRECT(a[0]), {}, kSourceOver, 1);
                    return nil;
                })
        .method("drawAtPoint:fromRect:operation:fraction:",
                [](const id& self, const id* a) {
                    const NSImage& image = *velt::as<NSImage>(self);
                    const NSRect from = VELT_CNSRECT(a[1]);
                    const NSSize size = from.size.width > 0 && from.size.height > 0 ? from.size : image.size();
                    image.drawInRect({VELT_CNSPOINT(a[0]), size}, from, VELT_CINTEGER(a[2]), VELT_CDOUBLE(a[3]));
                    return nil;
                })
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
