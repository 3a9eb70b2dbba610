#include "VELTRuntime/platform/appkit/font.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/values/conversions.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

namespace {

/// One point of a program is one unit of its coordinates, so sizes are in the toolkit's pixels.
QFont sized(QFont font, double size) {
    font.setPixelSize(std::max(1, qRound(size)));
    return font;
}

constexpr double kUsualSize = 13;

QFont usual(QFontDatabase::SystemFont kind, double size) {
    velt::requireApplicationObject("a font");
    return sized(QFontDatabase::systemFont(kind), size > 0 ? size : kUsualSize);
}

id fontValue(const QFont& font) { return velt::make<NSFont>(font); }

}  // namespace

NSFont::NSFont() : NSFont(usual(QFontDatabase::GeneralFont, kUsualSize)) {}
NSFont::NSFont(const QFont& font) : font_(std::make_unique<const QFont>(font)) {}
NSFont::~NSFont() = default;

velt::Ref<NSFont> NSFont::named(const id& name, double size) {
    velt::requireApplicationObject("a font");
    const QString wanted = velt::qtText(name);
    const QStringList families = QFontDatabase::families();
    if (families.contains(wanted, Qt::CaseInsensitive)) return velt::make<NSFont>(sized(QFont(wanted), size));
    const qsizetype dash = wanted.lastIndexOf(QLatin1Char('-'));
    if (dash <= 0) return nullptr;
    const QString family = wanted.left(dash), style = wanted.mid(dash + 1);
    if (!families.contains(family, Qt::CaseInsensitive)) return nullptr;
    for (const QString& known : QFontDatabase::styles(family)) {
        if (QString(known).remove(QLatin1Char(' ')).compare(style, Qt::CaseInsensitive) != 0) continue;
        return velt::make<NSFont>(sized(QFontDatabase::font(family, known, 12), size));
    }
    return nullptr;
}

id NSFont::description() const {
    return velt::textValue(QStringLiteral("<NSFont %1 %2>").arg(velt::qtText(fontName())).arg(pointSize()));
}
bool NSFont::isEqual(const id& other) const {
    return velt::is<NSFont>(other) && velt::as<NSFont>(other)->font() == font();
}
std::size_t NSFont::hash() const { return qHash(font()); }
id NSFont::copy() const { return id(const_cast<NSFont*>(this)); }

id NSFont::fontName() const {
    const QString style = font().styleName();
    const bool isPlain = style.isEmpty() || style == QLatin1String("Regular") || style == QLatin1String("Book");
    QString name = font().family();
    if (!isPlain) name += QLatin1Char('-') + QString(style).remove(QLatin1Char(' '));
    return velt::textValue(name);
}
id NSFont::familyName() const { return velt::textValue(font().family()); }
double NSFont::pointSize() const { return font().pixelSize() > 0 ? font().pixelSize() : QFontInfo(font()).pixelSize(); }
double NSFont::ascender() const { return QFontMetricsF(font()).ascent(); }
double NSFont::descender() const { return -QFontMetricsF(font()).descent(); }

void NSFont::describe(velt::ClassBuilder<NSFont>& c) {
    c.property("fontName", &NSFont::fontName)
        .property("familyName", &NSFont::familyName)
        .property("pointSize", &NSFont::pointSize)
        .property("ascender", &NSFont::ascender)
        .property("descender", &NSFont::descender)
        .classMethod("fontWithName:size:",
                     [](const id&, const id* a) { return id(NSFont::named(VELT_CSTRING(a[0]), VELT_CDOUBLE(a[1]))); })
        .classMethod(
            "systemFontOfSize:",
            [](const id&, const id* a) { return fontValue(usual(QFontDatabase::GeneralFont, VELT_CDOUBLE(a[0]))); })
        .classMethod("boldSystemFontOfSize:",
                     [](const id&, const id* a) {
                         QFont font = usual(QFontDatabase::GeneralFont, VELT_CDOUBLE(a[0]));
                         font.setBold(true);
                         return fontValue(font);
                     })
        .classMethod("userFixedPitchFontOfSize:", [](const id&, const id* a) {
            return fontValue(usual(QFontDatabase::FixedFont, VELT_CDOUBLE(a[0])));
        });
}
