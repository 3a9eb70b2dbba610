#include "VELTRuntime/platform/appkit/panels/alert.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/panels/alert_panel.h"
#include "VELTRuntime/platform/appkit/panels/modal_session.h"
#include "VELTRuntime/platform/appkit/panels/sheets.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QPointer>

using velt::AlertPanel;
using velt::Ref;

NSAlert::NSAlert() = default;
NSAlert::~NSAlert() { NSAlert::dissolve(); }

void NSAlert::dissolve() {
    if (panel_) panel_->releaseContents();
    NSObject::dissolve();
}

Ref<NSAlert> NSAlert::withTexts(const id& message, const id& defaultButton, const id& alternateButton,
                                const id& otherButton, const id& informative) {
    Ref<NSAlert> alert = velt::make<NSAlert>();
    alert->messageText_ = message;
    alert->informativeText_ = informative;
    const bool none = defaultButton.isNil() && alternateButton.isNil() && otherButton.isNil();
    if (!defaultButton.isNil() || none) {
        alert->add(none ? velt::textValue(QCoreApplication::translate("QPlatformTheme", "OK")) : defaultButton,
                   velt::kAlertDefault);
    }
    if (!alternateButton.isNil()) alert->add(alternateButton, velt::kAlertAlternate);
    if (!otherButton.isNil()) alert->add(otherButton, velt::kAlertOther);
    return alert;
}

void NSAlert::add(const id& title, long code) {
    velt::requireApplicationObject("an alert");
    const Ref<NSButton> button = velt::make<NSButton>();
    button->setButtonType(static_cast<long>(velt::ButtonType::MomentaryPushIn));
    button->setBezelStyle(static_cast<unsigned long>(velt::BezelStyle::Rounded));
    button->setTitle(VELT_CSTRING(title));
    button->setTag(code);
    // Return presses the first button, Escape the one that cancels.
    const QString text = velt::qtText(button->title());
    if (answers_.empty()) {
        button->setKeyEquivalent(velt::string(u"\r"));
    } else if (text == QLatin1String("Cancel") ||
               text == QCoreApplication::translate("QPlatformTheme", "Cancel").remove(QLatin1Char('&'))) {
        button->setKeyEquivalent(velt::string(u"\x1b"));
    }
    answers_.push_back({button, code});
    panel_ = nullptr;
}

id NSAlert::addButtonWithTitle(const id& title) {
    add(title, velt::kAlertFirstButton + static_cast<long>(answers_.size()));
    return answers_.back().button;
}

id NSAlert::buttons() const {
    const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const Answer& answer : answers_) list->append(answer.button);
    return list;
}

void NSAlert::textsChanged() {
    if (panel_ && !panel_->isVisible()) panel_ = nullptr;
}
void NSAlert::setMessageText(const id& text) {
    messageText_ = text;
    textsChanged();
}
void NSAlert::setInformativeText(const id& text) {
    informativeText_ = text;
    textsChanged();
}
void NSAlert::setAlertStyle(long style) {
    style_ = style;
    textsChanged();
}
void NSAlert::setIcon(const id& image) {
    icon_ = image;
    textsChanged();
}
void NSAlert::setAccessoryView(NSView* view) {
    accessory_ = velt::boxResult(view);
    textsChanged();
}

AlertPanel& NSAlert::panel() {
    if (panel_) return *panel_;
    if (answers_.empty()) {
        add(velt::textValue(QCoreApplication::translate("QPlatformTheme", "OK")), velt::kAlertFirstButton);
    }
    velt::AlertContents contents{messageText_, informativeText_, icon_, style_, {}, {}};
    if (!accessory_.isNil()) contents.accessory = Ref<NSView>(velt::as<NSView>(accessory_));
    for (const Answer& answer : answers_) contents.buttons.push_back(answer.button);
    panel_ = velt::make<AlertPanel>();
    panel_->setContents(contents);
    return *panel_;
}

id NSAlert::window() { return velt::boxResult(static_cast<NSWindow*>(&panel())); }

long NSAlert::runModal() {
    const Ref<NSAlert> kept(this);
    Ref<AlertPanel> shown(&panel());
    const QPointer<QObject> widget = &shown->widget();
    const long code = NSApplication::sharedApplication().runModalForWindow(shown.get());
    shown->orderOut(nil);
    // The next showing has a panel of its own. A program may show thousands within one callback, so this one's widget
    // goes now.
    shown->releaseContents();
    panel_ = nullptr;
    shown = nullptr;
    if (widget) QCoreApplication::sendPostedEvents(widget, QEvent::DeferredDelete);
    return code;
}

void NSAlert::beginSheet(NSWindow* window, const id& delegate, const id& didEnd, const id& context) {
    velt::beginSheet(panel(), window, {delegate, didEnd, velt::boxResult(this), context, true});
}

void NSAlert::visitOwned(velt::OwnedVisitor& visitor) {
    NSObject::visitOwned(visitor);
    for (Answer& answer : answers_) visitor.visit(answer.button);
    visitor.visit(panel_);
}

void NSAlert::describe(velt::ClassBuilder<NSAlert>& c) {
    c.property("messageText", &NSAlert::messageText, &NSAlert::setMessageText)
        .property("informativeText", &NSAlert::informativeText, &NSAlert::setInformativeText)
        .property("alertStyle", &NSAlert::alertStyle, &NSAlert::setAlertStyle)
        .property("icon", &NSAlert::icon, &NSAlert::setIcon)
        .property("accessoryView", &NSAlert::accessoryView, &NSAlert::setAccessoryView)
        .property("buttons", &NSAlert::buttons)
        .property("window", &NSAlert::window)
        .method("addButtonWithTitle:", &NSAlert::addButtonWithTitle)
        .method("runModal", &NSAlert::runModal)
        .method("beginSheetModalForWindow:modalDelegate:didEndSelector:contextInfo:", &NSAlert::beginSheet)
        .owns(&NSAlert::messageText_)
        .owns(&NSAlert::informativeText_)
        .owns(&NSAlert::icon_)
        .owns(&NSAlert::accessory_);
}

namespace {

long runPanel(NSAlert::Style style, const id& title, const id& message, const id& defaultButton,
              const id& alternateButton, const id& otherButton) {
    const Ref<NSAlert> alert = NSAlert::withTexts(title, defaultButton, alternateButton, otherButton, message);
    alert->setAlertStyle(style);
    return alert->runModal();
}

}  // namespace

long NSRunAlertPanel(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                     const id& otherButton) {
    return runPanel(NSAlert::Warning, title, message, defaultButton, alternateButton, otherButton);
}
long NSRunInformationalAlertPanel(const id& title, const id& message, const id& defaultButton,
                                  const id& alternateButton, const id& otherButton) {
    return runPanel(NSAlert::Informational, title, message, defaultButton, alternateButton, otherButton);
}
long NSRunCriticalAlertPanel(const id& title, const id& message, const id& defaultButton, const id& alternateButton,
                             const id& otherButton) {
    return runPanel(NSAlert::Critical, title, message, defaultButton, alternateButton, otherButton);
}
