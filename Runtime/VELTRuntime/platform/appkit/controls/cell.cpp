#include "VELTRuntime/platform/appkit/controls/cell.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/controls/control.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/matrix.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/platform/object/setting.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <limits>

using velt::Ref;

namespace {

/// The keys under which the value is read and observed.
constexpr std::string_view kValueKeys[] = {"objectValue", "stringValue",  "doubleValue",
                                           "floatValue",  "integerValue", "attributedStringValue"};

/// Tells observers of all forms of the value of one change.
class ValueChange {
public:
    explicit ValueChange(NSObject& object) : object_(object), told_(object.isAttached()) {
        if (!told_) return;
        for (const std::string_view key : kValueKeys) velt::willChangeValue(object_, key);
    }
    void finish() {
        if (!told_) return;
        for (const std::string_view key : kValueKeys) velt::didChangeValue(object_, key);
    }

private:
    NSObject& object_;
    bool told_;
};

}  // namespace

NSCell::NSCell() : value_(velt::string(std::u16string_view())) {}

NSCell::NSCell(const id& content) : NSCell() {
    if (velt::is<NSImage>(content)) {
        type_ = Type::Image;
        image_ = content;
        value_ = content;
    } else if (!content.isNil()) {
        value_ = content;
    }
}

void NSCell::dissolve() {
    control_ = nullptr;
    NSObject::dissolve();
}

// The value.

void NSCell::store(const id& value) {
    ValueChange own(*this);
    if (control_ && control_->isAttached()) {
        ValueChange shown(*control_);
        value_ = value;
        shown.finish();
    } else {
        value_ = value;
    }
    own.finish();
}

void NSCell::setObjectValue(const id& value) {
    // A string that the program goes on changing must not change what is shown.
    store(velt::isString(value) ? velt::copy(value) : value);
    changed();
}

void NSCell::takeValue(const id& value) {
    const velt::Setting taking(taking_, true);
    setObjectValue(value);
}

id NSCell::stringValue() const {
    id value = objectValue();
    if (value.isNil() || velt::is<NSImage>(value)) return velt::string(std::u16string_view());
    if (velt::isString(value)) return value;
    return velt::description(value);
}

double NSCell::leadingNumber(const id& value) {
    if (velt::isNumber(value)) return VELT_CDOUBLE(value);
    return velt::isString(value) ? VELT_CDOUBLE(velt::send(value, VELT_SELECTOR("doubleValue"))) : 0;
}

double NSCell::doubleValue() const {
    const id value = objectValue();
    return leadingNumber(value.isNil() || velt::isNumber(value) ? value : stringValue());
}
void NSCell::setDoubleValue(double value) { setObjectValue(VELT_ID(value)); }
void NSCell::setFloatValue(float value) { setObjectValue(VELT_ID(value)); }

long NSCell::integerValue() const {
    const id value = objectValue();
    if (velt::isNumber(value)) return VELT_CINTEGER(value);
    const double number = doubleValue();
    if (std::abs(number) < 0x1p53) return static_cast<long>(number);
    // The text may have more digits than a double.
    const long whole = VELT_CINTEGER(stringValue());
    if (static_cast<double>(whole) == number) return whole;
    if (number < 0x1p63 && number >= -0x1p63) return static_cast<long>(number);
    using Limits = std::numeric_limits<long>;
    return number < 0 ? Limits::min() : Limits::max();
}
void NSCell::setIntegerValue(long value) { setObjectValue(VELT_ID(value)); }

id NSCell::attributedStringValue() const {
    const id value = objectValue();
    if (velt::attributedStringOf(value)) return velt::copy(value);
    return velt::make<NSAttributedString>(velt::textOf(stringValue()));
}

void NSCell::setType(long type) {
    if (type < static_cast<long>(Type::Null) || type > static_cast<long>(Type::Image)) return;
    type_ = static_cast<Type>(type);
    if (type_ != Type::Image) image_ = nil;
    changed();
}

void NSCell::setImage(const id& image) {
    image_ = image;
    changed();
}

// Looks.

id NSCell::font() const { return font_.isNil() ? id(velt::make<NSFont>()) : font_; }

void NSCell::setFont(const id& font) {
    font_ = velt::boxResult(velt::to<NSFont>(font));
    changed();
}

void NSCell::setAlignment(long alignment) {
    alignment_ = alignment;
    changed();
}
void NSCell::setBordered(bool flag) {
    bordered_ = flag;
    if (flag) bezeled_ = false;
    changed();
}
void NSCell::setBezeled(bool flag) {
    bezeled_ = flag;
    if (flag) bordered_ = false;
    changed();
}
void NSCell::setHighlighted(bool flag) {
    highlighted_ = flag;
    changed();
}
void NSCell::setControlSize(unsigned long size) {
    controlSize_ = size;
    changed();
}
void NSCell::setWraps(bool flag) {
    wraps_ = flag;
    if (flag) scrollable_ = false;
    changed();
}
void NSCell::setScrollable(bool flag) {
    scrollable_ = flag;
    if (flag) wraps_ = false;
    changed();
}

// Behaviour.

void NSCell::setEnabled(bool flag) {
    enabled_ = flag;
    changed();
}
void NSCell::setEditable(bool flag) {
    editable_ = flag;
    if (flag) selectable_ = true;
    changed();
}
void NSCell::setSelectable(bool flag) {
    selectable_ = flag;
    if (!flag) editable_ = false;
    changed();
}
void NSCell::setContinuous(bool flag) {
    continuous_ = flag;
    changed();
}
void NSCell::setRefusesFirstResponder(bool flag) {
    refusesFirstResponder_ = flag;
    changed();
}

void NSCell::setState(long state) {
    const long most = allowsMixedState_ ? long{kMixed} : long{kOn};
    const long taken = state == 0 ? long{kOff} : state < 0 ? most : long{kOn};
    velt::changeValue(*this, "state", [&] { state_ = taken; });
    changed();
}

void NSCell::setAllowsMixedState(bool flag) {
    allowsMixedState_ = flag;
    if (!flag && state() == kMixed) setState(kOn);
    changed();
}

long NSCell::nextState() const {
    switch (state()) {
    case kOn: return kOff;
    case kOff: return allowsMixedState_ ? kMixed : kOn;
    default: return kOn;
    }
}

// The action.

id NSCell::actionName() const { return velt::actionName(action_); }

void NSCell::setActionName(const id& name) { action_ = velt::actionNamed(name); }

void NSCell::performClick(const id& sender) {
    if (!enabled_) return;
    if (control_) {
        if (auto* matrix = dynamic_cast<NSMatrix*>(control_)) {
            matrix->clickCell(*this);
        } else {
            control_->performClick(sender);
        }
        return;
    }
    NSApplication::sharedApplication().sendAction(action_, target_, id(static_cast<NSObject*>(this)));
}

id NSCell::controlView() const { return id(static_cast<NSObject*>(control_)); }

void NSCell::changed() {
    if (control_ && !taking_) control_->cellChanged(*this);
}

NSSize NSCell::cellSize() const {
    if (const id picture = image(); velt::is<NSImage>(picture)) return velt::as<NSImage>(picture)->size();
    const QFontMetricsF metrics(velt::as<NSFont>(font())->font());
    const QSizeF size = metrics.boundingRect(QRectF(0, 0, 1e6, 1e6), Qt::AlignLeft, velt::qtText(stringValue())).size();
    constexpr double kMargin = 4;
    const double edge = bordered_ || bezeled_ ? kMargin : 0;
    return {std::ceil(size.width()) + kMargin + 2 * edge,
            std::ceil(std::max(size.height(), metrics.height())) + 2 * edge};
}

void NSCell::describe(velt::ClassBuilder<NSCell>& c) {
    c.property("objectValue", &NSCell::objectValue, &NSCell::setObjectValue)
        .property("stringValue", &NSCell::stringValue, &NSCell::setStringValue)
        .property("doubleValue", &NSCell::doubleValue, &NSCell::setDoubleValue)
        .property("floatValue", &NSCell::floatValue, &NSCell::setFloatValue)
        .property("integerValue", &NSCell::integerValue, &NSCell::setIntegerValue)
        .property("attributedStringValue", &NSCell::attributedStringValue, &NSCell::setAttributedStringValue)
        .property("representedObject", &NSCell::representedObject, &NSCell::setRepresentedObject)
        .property("type", &NSCell::type, &NSCell::setType)
        .property("title", &NSCell::title, &NSCell::setTitle)
        .property("image", &NSCell::image, &NSCell::setImage)
        .property("font", &NSCell::font, &NSCell::setFont)
        .property("alignment", &NSCell::alignment, &NSCell::setAlignment)
        .flag("bordered", &NSCell::isBordered, &NSCell::setBordered)
        .flag("bezeled", &NSCell::isBezeled, &NSCell::setBezeled)
        .flag("highlighted", &NSCell::isHighlighted, &NSCell::setHighlighted)
        .property("controlSize", &NSCell::controlSize, &NSCell::setControlSize)
        .property("focusRingType", &NSCell::focusRingType, &NSCell::setFocusRingType)
        .property("wraps", &NSCell::wraps, &NSCell::setWraps)
        .flag("scrollable", &NSCell::isScrollable, &NSCell::setScrollable)
        .flag("enabled", &NSCell::isEnabled, &NSCell::setEnabled)
        .flag("editable", &NSCell::isEditable, &NSCell::setEditable)
        .flag("selectable", &NSCell::isSelectable, &NSCell::setSelectable)
        .flag("continuous", &NSCell::isContinuous, &NSCell::setContinuous)
        .property("refusesFirstResponder", &NSCell::refusesFirstResponder, &NSCell::setRefusesFirstResponder)
        .property("state", &NSCell::state, &NSCell::setState)
        .property("allowsMixedState", &NSCell::allowsMixedState, &NSCell::setAllowsMixedState)
        .property("nextState", &NSCell::nextState)
        .method("setNextState", &NSCell::setNextState)
        .property("tag", &NSCell::tag, &NSCell::setTag)
        .property("menu", &NSCell::menu, &NSCell::setMenu)
        .property("target", &NSCell::target, &NSCell::setTarget)
        .property("action", &NSCell::actionName, &NSCell::setActionName)
        .method("performClick:", &NSCell::performClick)
        .property("controlView", &NSCell::controlView)
        .property("cellSize", &NSCell::cellSize)
        .owns(&NSCell::value_)
        .owns(&NSCell::representedObject_)
        .owns(&NSCell::image_)
        .owns(&NSCell::font_)
        .owns(&NSCell::target_)
        .owns(&NSCell::menu_);
}
