#include "VELTRuntime/platform/appkit/interface/widget_makers.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/interface/arranged_view.h"
#include "VELTRuntime/platform/appkit/interface/designer_properties.h"
#include "VELTRuntime/platform/appkit/interface/layouts.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/resizing.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/foundation/interface_loader.h"
#include "VELTRuntime/values/boxing.h"

#include <QFont>
#include <algorithm>

namespace velt {

namespace {

id number(long value) { return VELT_ID(value); }

/// Sends a message with one argument if the object answers it.
void tell(const id& object, std::string_view selector, const id& argument) {
    const Selector named = Selector::named(selector);
    if (respondsTo(object, named)) send(object, named, argument);
}
void tellText(const id& object, std::string_view selector, const XmlElement& element, std::string_view property) {
    if (const auto text = designerText(element, property)) tell(object, selector, string(*text));
}
void tellNumber(const id& object, std::string_view selector, const XmlElement& element, std::string_view property) {
    if (const auto value = designerNumber(element, property)) tell(object, selector, VELT_ID(*value));
}

// What each kind of widget says beside what all say.

void setTitle(const id& object, const XmlElement& element) {
    auto title = designerText(element, "text");
    if (!title) title = designerText(element, "title");
    if (!title) return;
    // "&Save": the mark of the key that is used with Alt; "&&" is the sign itself.
    std::string plain;
    for (std::size_t i = 0; i < title->size(); ++i) {
        if ((*title)[i] == '&' && i + 1 < title->size()) ++i;
        plain += (*title)[i];
    }
    tell(object, "setTitle:", string(plain));
}

void setButton(const id& object, const XmlElement& element, long type, long bezel) {
    tell(object, "setButtonType:", number(type));
    if (bezel) tell(object, "setBezelStyle:", number(bezel));
    setTitle(object, element);
    if (designerFlag(element, "checked").value_or(false)) tell(object, "setState:", number(1));
    if (designerFlag(element, "default").value_or(false)) tell(object, "setKeyEquivalent:", string("\r"));
}
void pushButton(const id& object, const XmlElement& element) {
    setButton(object, element, designerFlag(element, "checkable").value_or(false) ? 6 : 7, 1);
}
void toolButton(const id& object, const XmlElement& element) { setButton(object, element, 0, 10); }
void checkBox(const id& object, const XmlElement& element) {
    if (designerFlag(element, "tristate").value_or(false)) tell(object, "setAllowsMixedState:", boxResult(true));
    setButton(object, element, 3, 0);
}
void radioButton(const id& object, const XmlElement& element) { setButton(object, element, 4, 0); }

void setAlignment(const id& object, const XmlElement& element) {
    if (designerHas(element, "alignment", "AlignRight")) tell(object, "setAlignment:", number(1));
    if (designerHas(element, "alignment", "AlignHCenter") || designerHas(element, "alignment", "AlignCenter"))
        tell(object, "setAlignment:", number(2));
}
void label(const id& object, const XmlElement& element) {
    for (const char* selector :
         {"setEditable:", "setSelectable:", "setBezeled:", "setBordered:", "setDrawsBackground:"})
        tell(object, selector, boxResult(false));
    tellText(object, "setStringValue:", element, "text");
    setAlignment(object, element);
}
void lineEdit(const id& object, const XmlElement& element) {
    tellText(object, "setStringValue:", element, "text");
    tellText(object, "setPlaceholderString:", element, "placeholderText");
    if (designerFlag(element, "readOnly").value_or(false)) tell(object, "setEditable:", boxResult(false));
    setAlignment(object, element);
}
void textEdit(const id& object, const XmlElement& element) {
    tellText(object, "setString:", element, "plainText");
    if (designerFlag(element, "readOnly").value_or(false)) tell(object, "setEditable:", boxResult(false));
}

void range(const id& object, const XmlElement& element) {
    tellNumber(object, "setMinValue:", element, "minimum");
    tellNumber(object, "setMaxValue:", element, "maximum");
    tellNumber(object, "setIncrement:", element, "singleStep");
    tellNumber(object, "setDoubleValue:", element, "value");
}
void slider(const id& object, const XmlElement& element) {
    // A designer's slider goes from 0 to 99 unless it says otherwise.
    tell(object, "setMaxValue:", VELT_ID(99.0));
    range(object, element);
}
void dial(const id& object, const XmlElement& element) {
    slider(object, element);
    tell(send(object, VELT_SELECTOR("cell")), "setSliderType:", number(1));
}
void progressBar(const id& object, const XmlElement& element) {
    tell(object, "setIndeterminate:", boxResult(false));
    tell(object, "setMaxValue:", VELT_ID(100.0));
    range(object, element);
}
void stepper(const id& object, const XmlElement& element) {
    tell(object, "setMaxValue:", VELT_ID(99.0));
    range(object, element);
}
void calendar(const id& object, const XmlElement&) { tell(object, "setDatePickerStyle:", number(1)); }

void comboItems(const id& object, const XmlElement& element, std::string_view selector) {
    for (const XmlElement& item : element.children) {
        if (item.name != "item") continue;
        if (const auto text = designerText(item, "text")) tell(object, selector, string(*text));
    }
}
void comboBox(const id& object, const XmlElement& element) {
    comboItems(object, element, "addItemWithObjectValue:");
    tellText(object, "setStringValue:", element, "currentText");
}
void popUpButton(const id& object, const XmlElement& element) {
    comboItems(object, element, "addItemWithTitle:");
    if (const auto index = designerNumber(element, "currentIndex"))
        tell(object, "selectItemAtIndex:", number(truncated(*index)));
}

void box(const id& object, const XmlElement& element) { setTitle(object, element); }
void line(const id& object, const XmlElement&) { tell(object, "setBoxType:", number(2)); }
void splitter(const id& object, const XmlElement& element) {
    // A splitter of the toolkit that lies horizontally has a vertical divider.
    tell(object, "setVertical:", boxResult(!designerHas(element, "orientation", "Vertical")));
}
void plain(const id&, const XmlElement&) {}

struct WidgetKind {
    const char* widget;
    const char* cls;
    void (*prepare)(const id& object, const XmlElement& element);
    Qt::Orientations grows;
    NSSize usual;
};

const WidgetKind kKinds[] = {
    {"QPushButton", "NSButton", pushButton, {}, {75, 23}},
    {"QToolButton", "NSButton", toolButton, {}, {24, 22}},
    {"QCommandLinkButton", "NSButton", pushButton, {}, {75, 23}},
    {"QCheckBox", "NSButton", checkBox, {}, {20, 18}},
    {"QRadioButton", "NSButton", radioButton, {}, {20, 18}},
    {"QLabel", "NSTextField", label, {}, {10, 16}},
    {"QLineEdit", "NSTextField", lineEdit, Qt::Horizontal, {100, 23}},
    {"QTextEdit", "NSTextView", textEdit, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QPlainTextEdit", "NSTextView", textEdit, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QTextBrowser", "NSTextView", textEdit, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QComboBox", "NSPopUpButton", popUpButton, {}, {80, 23}},
    {"QSpinBox", "NSStepper", stepper, {}, {20, 23}},
    {"QDoubleSpinBox", "NSStepper", stepper, {}, {20, 23}},
    {"QSlider", "NSSlider", slider, Qt::Horizontal, {80, 22}},
    {"QScrollBar", "NSSlider", slider, Qt::Horizontal, {80, 22}},
    {"QDial", "NSSlider", dial, {}, {48, 48}},
    {"QProgressBar", "NSProgressIndicator", progressBar, Qt::Horizontal, {100, 22}},
    {"QDateEdit", "NSDatePicker", plain, {}, {110, 23}},
    {"QTimeEdit", "NSDatePicker", plain, {}, {110, 23}},
    {"QDateTimeEdit", "NSDatePicker", plain, {}, {180, 23}},
    {"QCalendarWidget", "NSDatePicker", calendar, {}, {260, 180}},
    {"QGroupBox", "NSBox", box, Qt::Horizontal | Qt::Vertical, {80, 50}},
    {"Line", "NSBox", line, Qt::Horizontal, {5, 5}},
    {"QFrame", "NSView", plain, Qt::Horizontal | Qt::Vertical, {}},
    {"QTabWidget", "NSTabView", plain, Qt::Horizontal | Qt::Vertical, {120, 80}},
    {"QScrollArea", "NSScrollView", plain, Qt::Horizontal | Qt::Vertical, {100, 80}},
    {"QSplitter", "NSSplitView", splitter, Qt::Horizontal | Qt::Vertical, {100, 80}},
    {"QListWidget", "NSTableView", plain, Qt::Horizontal | Qt::Vertical, {120, 80}},
    {"QListView", "NSTableView", plain, Qt::Horizontal | Qt::Vertical, {120, 80}},
    {"QTableWidget", "NSTableView", plain, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QTableView", "NSTableView", plain, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QTreeWidget", "NSOutlineView", plain, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QTreeView", "NSOutlineView", plain, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QColumnView", "NSBrowser", plain, Qt::Horizontal | Qt::Vertical, {160, 80}},
    {"QWidget", "NSView", plain, Qt::Horizontal | Qt::Vertical, {}},
    {"QMainWindow", "NSWindow", plain, {}, {}},
    {"QDialog", "NSPanel", plain, {}, {}},
    {"QMenuBar", "NSMenu", plain, {}, {}},
    {"QMenu", "NSMenu", setTitle, {}, {}},
    {"QAction", "NSMenuItem", plain, {}, {}},
    {"QStatusBar", "NSView", plain, Qt::Horizontal, {0, 22}},
};

const WidgetKind* kindOf(const XmlElement& element) {
    const std::string& name = element.name == "action" ? std::string("QAction") : element.attribute("class");
    const auto* found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                     [&name](const WidgetKind& kind) { return name == kind.widget; });
    return found == std::end(kKinds) ? nullptr : found;
}

/// The class for an element, where a property decides it.
std::string classOfElement(const WidgetKind& kind, const XmlElement& element) {
    if (designerHas(element, "echoMode", "Password")) return "NSSecureTextField";
    if (kind.prepare == popUpButton && designerFlag(element, "editable").value_or(false)) return "NSComboBox";
    return kind.cls;
}

void setFont(const id& object, const XmlElement& element) {
    const XmlElement* font = designerProperty(element, "font");
    if (!font) return;
    const auto part = [font](std::string_view name) {
        const XmlElement* found = font->child(name);
        return found ? found->text : std::string();
    };
    QFont made;
    if (const std::string family = part("family"); !family.empty()) made.setFamily(QString::fromStdString(family));
    if (const int size = QString::fromStdString(part("pointsize")).toInt(); size > 0) made.setPixelSize(size);
    made.setBold(part("bold") == "true");
    made.setItalic(part("italic") == "true");
    tell(object, "setFont:", id(make<NSFont>(made)));
}

/// The frame from the upper left corner of the container, in the container's coordinates.
NSRect frameIn(const NSView* container, NSRect rect) {
    if (container && !container->isFlipped())
        rect.origin.y = container->bounds().size.height - rect.origin.y - rect.size.height;
    return rect;
}

void fill(NSView& container, NSView& view) {
    view.setFrame(container.bounds());
    view.setAutoresizingMask(kWidthSizable | kHeightSizable);
    container.addSubview(&view);
}

/// A page of tabs, with its label.
void addPage(const id& tabs, NSView& view, const XmlElement& element) {
    const id item = Class::known("NSTabViewItem").newObject();
    tell(item, "setLabel:", string(designerText(element, "title", "attribute").value_or("")));
    tell(item, "setIdentifier:", string(element.attribute("name")));
    tell(item, "setView:", id(static_cast<NSObject*>(&view)));
    tell(tabs, "addTabViewItem:", item);
}

void addTo(const id& parent, NSView& view, const XmlElement& element) {
    if (respondsTo(parent, VELT_SELECTOR("addTabViewItem:"))) {
        addPage(parent, view, element);
    } else if (respondsTo(parent, VELT_SELECTOR("setDocumentView:"))) {
        send(parent, VELT_SELECTOR("setDocumentView:"), id(static_cast<NSObject*>(&view)));
    } else if (NSView* container = parent.isObject() ? containerView(parent.object()) : nullptr) {
        const auto rect = designerRect(element, "geometry");
        const bool central = element.attribute("class") == "QWidget" && is<NSWindow>(parent) && !rect;
        if (central) {
            fill(*container, view);
        } else {
            if (rect) view.setFrame(frameIn(container, *rect));
            container->addSubview(&view);
        }
    }
}

id makeWindow(const XmlElement& element, const std::string& cls) {
    id window = Class::known(cls).newObject();
    const NSRect rect = designerRect(element, "geometry").value_or(NSRect{{0, 0}, {400, 300}});
    const Ref<VLArrangedView> content = make<VLArrangedView>();
    as<NSWindow>(window)->setContentView(content.get());
    as<NSWindow>(window)->setContentSize(rect.size);
    tellText(window, "setTitle:", element, "windowTitle");
    as<NSWindow>(window)->center();
    return window;
}

id makeAction(const XmlElement& element) {
    id item = Class::known("NSMenuItem").newObject();
    setTitle(item, element);
    if (designerFlag(element, "checked").value_or(false)) tell(item, "setState:", number(1));
    if (const auto enabled = designerFlag(element, "enabled")) tell(item, "setEnabled:", boxResult(*enabled));
    // "Ctrl+Shift+S": the desktop's Control key is the program's Command, its Meta key the program's Control.
    if (const auto shortcut = designerText(element, "shortcut"); shortcut && !shortcut->empty()) {
        // The last plus parts the key from what is held, unless it is the key itself: "Ctrl++".
        std::string key = shortcut->ends_with('+') ? "+" : shortcut->substr(shortcut->rfind('+') + 1);
        if (key.size() == 1)
            std::transform(key.begin(), key.end(), key.begin(),
                           [](char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c); });
        unsigned long mask = 0;
        if (shortcut->find("Ctrl+") != shortcut->npos) mask |= NSEvent::kCommand;
        if (shortcut->find("Shift+") != shortcut->npos) mask |= NSEvent::kShift;
        if (shortcut->find("Alt+") != shortcut->npos) mask |= NSEvent::kAlternate;
        if (shortcut->find("Meta+") != shortcut->npos) mask |= NSEvent::kControl;
        tell(item, "setKeyEquivalent:", string(key));
        tell(item, "setKeyEquivalentModifierMask:", number(static_cast<long>(mask)));
    }
    return item;
}

id makeWidget(const XmlElement& element, const id& parent) {
    const WidgetKind& kind = *kindOf(element);
    const std::string cls = classOfElement(kind, element);
    if (cls == "NSMenuItem") return makeAction(element);
    const bool isOutermost = parent.isNil() && (cls == "NSView" || cls == "NSWindow" || cls == "NSPanel");
    if (isOutermost) return makeWindow(element, cls == "NSView" ? "NSWindow" : cls);
    id object = cls == "NSView" && element.child("layout") ? id(make<VLArrangedView>()) : Class::known(cls).newObject();
    if (is<NSView>(object)) addTo(parent, *as<NSView>(object), element);
    if (kind.prepare == box && element.child("layout")) {
        const Ref<VLArrangedView> content = make<VLArrangedView>();
        tell(object, "setContentView:", content);
    }
    (cls == "NSComboBox" ? comboBox : kind.prepare)(object, element);
    tellText(object, "setToolTip:", element, "toolTip");
    if (const auto enabled = designerFlag(element, "enabled")) tell(object, "setEnabled:", boxResult(*enabled));
    if (const auto visible = designerFlag(element, "visible")) tell(object, "setHidden:", boxResult(!*visible));
    setFont(object, element);
    if (element.attribute("class") == "QMenuBar") NSApplication::sharedApplication().setMainMenu(object);
    return object;
}

[[maybe_unused]] const bool registered = [] {
    for (const WidgetKind& kind : kKinds) registerInterfaceMaker(kind.widget, makeWidget);
    registerInterfaceArranger(arrangeInterface);
    return true;
}();

}  // namespace

NSView* containerView(NSObject* object) {
    const id value(object);
    if (respondsTo(value, VELT_SELECTOR("contentView"))) {
        const id content = send(value, VELT_SELECTOR("contentView"));
        return is<NSView>(content) ? as<NSView>(content) : nullptr;
    }
    return is<NSView>(value) ? as<NSView>(value) : nullptr;
}

Qt::Orientations growthOf(const XmlElement& widget) {
    const WidgetKind* kind = kindOf(widget);
    if (!kind) return Qt::Horizontal | Qt::Vertical;
    if (kind->grows == Qt::Horizontal && designerHas(widget, "orientation", "Vertical")) return Qt::Vertical;
    return kind->grows;
}

NSSize usualSize(const XmlElement& widget, NSSize asked) {
    const WidgetKind* kind = kindOf(widget);
    if (!kind) return asked;
    NSSize usual = kind->usual;
    if (designerHas(widget, "orientation", "Vertical")) std::swap(usual.width, usual.height);
    return {std::max(usual.width, asked.width), std::max(usual.height, asked.height)};
}

id menuItemNamed(const std::string& name, const std::function<id(const std::string&)>& objectNamed) {
    const Class& items = Class::known("NSMenuItem");
    if (name == "separator") {
        const Selector separator = Selector::named("separatorItem");
        const Method* method = items.classMethod(separator);
        return method ? method->call(*method, items.object(), nullptr) : nil;
    }
    id object = objectNamed(name);
    if (object.isNil() || isKindOf(object, items)) return object;
    id item = items.newObject();
    tell(item, "setTitle:", send(object, VELT_SELECTOR("title")));
    tell(item, "setSubmenu:", object);
    return item;
}

}  // namespace velt
