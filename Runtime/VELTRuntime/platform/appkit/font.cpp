#include "VELTRuntime/platform/appkit/font.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/keyed_archive/coder.h"
#include "VELTRuntime/values/conversions.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

using velt::Ref;

namespace {

constexpr double kUsualSize = 13;
constexpr double kUsualNamedSize = 12;
constexpr double kMostPixels = 4096;  // beyond it the toolkit only loses time

/// One point of a program is one unit of its coordinates, so sizes are in the toolkit's pixels.
QFont sized(QFont font, double size) {
    font.setPixelSize(std::max(1, qRound(std::min(size, kMostPixels))));
    return font;
}

double sizeOr(double size, double usual) { return size > 0 ? size : usual; }

QFont usual(QFontDatabase::SystemFont kind, double size) {
    velt::requireApplicationObject("a font");
    return sized(QFontDatabase::systemFont(kind), size);
}

QString withoutSpaces(QString name) { return name.remove(QLatin1Char(' ')); }

bool isSameName(const QString& a, const QString& b) {
    return withoutSpaces(a).compare(withoutSpaces(b), Qt::CaseInsensitive) == 0;
}

/// The system's own spelling of a family; empty when it has none of that name.
QString familyNamed(const QString& name) {
    if (name.isEmpty()) return {};
    for (const QString& family : QFontDatabase::families()) {
        if (isSameName(family, name)) return family;
    }
    return {};
}

bool isPlainStyle(const QString& style) {
    return style.isEmpty() || style == QLatin1String("Regular") || style == QLatin1String("Book") ||
           style == QLatin1String("Normal");
}

Ref<NSFont> made(const QFont& font, double size) { return velt::make<NSFont>(font, size); }

}  // namespace

NSFont::NSFont() : NSFont(usual(QFontDatabase::GeneralFont, kUsualSize), kUsualSize) {}
NSFont::NSFont(const QFont& font)
    : NSFont(font, font.pixelSize() > 0 ? font.pixelSize() : QFontInfo(font).pixelSize()) {}
NSFont::NSFont(const QFont& font, double size) : font_(std::make_unique<const QFont>(font)), size_(size) {}
NSFont::~NSFont() = default;

Ref<NSFont> NSFont::named(const id& name, double givenSize) {
    velt::requireApplicationObject("a font");
    const double size = sizeOr(givenSize, kUsualNamedSize);
    const QString wanted = velt::qtText(name);
    if (const QString family = familyNamed(wanted); !family.isEmpty()) return made(sized(QFont(family), size), size);
    const qsizetype dash = wanted.lastIndexOf(QLatin1Char('-'));
    if (dash <= 0) return nullptr;
    const QString family = familyNamed(wanted.left(dash)), style = wanted.mid(dash + 1);
    if (family.isEmpty() || style.isEmpty()) return nullptr;
    if (isPlainStyle(style)) return made(sized(QFont(family), size), size);
    for (const QString& known : QFontDatabase::styles(family)) {
        if (isSameName(known, style)) {
            return made(sized(QFontDatabase::font(family, known, static_cast<int>(kUsualSize)), size), size);
        }
    }
    return nullptr;
}

Ref<NSFont> NSFont::system(double givenSize, bool bold) {
    const double size = sizeOr(givenSize, kUsualSize);
    QFont font = usual(QFontDatabase::GeneralFont, size);
    font.setBold(bold);
    return made(font, size);
}

Ref<NSFont> NSFont::userFixedPitch(double givenSize) {
    const double size = sizeOr(givenSize, kUsualSize);
    return made(usual(QFontDatabase::FixedFont, size), size);
}

id NSFont::description() const {
    return velt::textValue(QStringLiteral("<NSFont %1 %2>").arg(velt::qtText(fontName())).arg(pointSize()));
}
bool NSFont::isEqual(const id& other) const {
    if (!velt::is<NSFont>(other)) return false;
    const NSFont& another = *velt::as<NSFont>(other);
    return another.size_ == size_ && another.font() == font();
}
std::size_t NSFont::hash() const { return qHash(font()); }
id NSFont::copy() const { return id(const_cast<NSFont*>(this)); }

id NSFont::fontName() const {
    QString style = font().styleName();
    if (style.isEmpty() && (font().bold() || font().italic())) style = QFontDatabase::styleString(font());
    QString name = font().family();
    if (!isPlainStyle(style)) name += QLatin1Char('-') + withoutSpaces(style);
    return velt::textValue(name);
}
id NSFont::familyName() const { return velt::textValue(font().family()); }
double NSFont::ascender() const { return QFontMetricsF(font()).ascent(); }
double NSFont::descender() const { return -QFontMetricsF(font()).descent(); }
double NSFont::lineHeight() const { return QFontMetricsF(font()).height(); }

unsigned long NSFont::traits() const {
    const QFontInfo shown(font());
    unsigned long traits = 0;
    if (font().italic() || shown.italic()) traits |= kItalic;
    if (font().bold() || shown.bold()) traits |= kBold;
    if (shown.fixedPitch()) traits |= kFixedPitch;
    return traits;
}

namespace {

const id& nameKey() { return "NSName"_v; }
const id& sizeKey() { return "NSSize"_v; }
const id& flagsKey() { return "NSfFlags"_v; }
constexpr long kByName = 16;

}  // namespace

void NSFont::encodeWithCoder(const id& archiver) const {
    NSCoder& coder = velt::toCoder(archiver);
    coder.encodeObject(fontName(), nameKey());
    coder.encodeDouble(size_, sizeKey());
    coder.encodeInteger(kByName, flagsKey());
}

id NSFont::initWithCoder(const id& unarchiver) {
    NSCoder& coder = velt::toCoder(unarchiver);
    const id name = coder.decodeObject(nameKey());
    const double size = coder.decodeDouble(sizeKey());
    // Another system's archive may name a font that is not here: the usual one stands in for it.
    Ref<NSFont> found = named(velt::isString(name) ? name : id(), size);
    if (!found) found = system(size, velt::qtText(name).contains(QLatin1String("Bold"), Qt::CaseInsensitive));
    font_ = std::make_unique<const QFont>(found->font());
    size_ = found->size_;
    return id(this);
}

void NSFont::describe(velt::ClassBuilder<NSFont>& c) {
    c.property("fontName", &NSFont::fontName)
        .property("displayName", &NSFont::fontName)
        .property("familyName", &NSFont::familyName)
        .property("pointSize", &NSFont::pointSize)
        .property("ascender", &NSFont::ascender)
        .property("descender", &NSFont::descender)
        .property("lineHeight", &NSFont::lineHeight)
        .property("traits", &NSFont::traits)
        .property("isBold", &NSFont::isBold)
        .property("isItalic", &NSFont::isItalic)
        .property("isFixedPitch", &NSFont::isFixedPitch)
        .method("encodeWithCoder:", &NSFont::encodeWithCoder)
        .method("initWithCoder:", &NSFont::initWithCoder)
        .classMethod("fontWithName:size:",
                     [](const id&, const id* a) {
                         const id name = VELT_CSTRING(a[0]);
                         return id(named(name, VELT_CDOUBLE(a[1])));
                     })
        .classMethod("systemFontOfSize:", [](const id&, const id* a) { return id(system(VELT_CDOUBLE(a[0]))); })
        .classMethod("boldSystemFontOfSize:",
                     [](const id&, const id* a) { return id(system(VELT_CDOUBLE(a[0]), true)); })
        .classMethod("userFontOfSize:", [](const id&, const id* a) { return id(system(VELT_CDOUBLE(a[0]))); })
        .classMethod("userFixedPitchFontOfSize:",
                     [](const id&, const id* a) { return id(userFixedPitch(VELT_CDOUBLE(a[0]))); })
        .classMethod("systemFontSize", [](const id&, const id*) { return VELT_ID(kUsualSize); });
}
