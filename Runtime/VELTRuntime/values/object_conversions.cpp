// Conversions to attributed strings and images.
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/providers.h"
#include "VELTRuntime/values/conversions.h"

id VELT_CATTRIBUTEDSTRING(const id& value) {
    if (const NSAttributedString* attributed = velt::attributedStringOf(value)) {
        return velt::make<NSAttributedString>(*attributed);
    }
    if (!velt::isString(value)) velt::raiseCast("'AttributedString' expected");
    const auto parse = velt::providers().attributedStringFromHtml;
    if (!parse) velt::raiseNotProvided("reading HTML");
    return parse(velt::utf8(value));
}

id VELT_CNSIMAGE(const id& value) {
    static const velt::Class& image = velt::Class::known("NSImage");
    if (velt::isKindOf(value, image)) return value;
    if (!velt::isString(value)) velt::raiseCast("'NSImage' expected");
    std::string path = velt::utf8(value);
    if (path.find('/') == path.npos) path = NSBundle::mainBundle().resourcePath() + "/" + path;
    const auto load = velt::providers().imageFromFile;
    if (!load) velt::raiseNotProvided("loading an image");
    return load(path);
}
