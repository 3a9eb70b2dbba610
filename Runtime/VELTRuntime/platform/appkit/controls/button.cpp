#include "VELTRuntime/platform/appkit/controls/button.h"

#include "VELTRuntime/platform/appkit/accessibility/names.h"
#include "VELTRuntime/platform/appkit/controls/button_widget.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QTimer>

using velt::Ref;

Ref<NSCell> NSButton::makeCell() const { return velt::make<NSButtonCell>(); }

std::unique_ptr<QWidget> NSButton::makeWidget() {
    auto made = std::make_unique<velt::ButtonWidget>();
    velt::ButtonWidget* widget = made.get();
    watchEvents(*widget);
    QObject::connect(widget, &QAbstractButton::clicked, widget, [widget] {
        if (NSButton* button = widget->button()) button->pressed();
    });
    return made;
}

void NSButton::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    QString name = velt::qtText(buttonCell().title());
    const auto bezel = static_cast<velt::BezelStyle>(buttonCell().bezelStyle());
    if (buttonCell().isBordered() && bezel == velt::BezelStyle::Help) name = QStringLiteral("Help");
    if (name.isEmpty()) name = velt::qtText(toolTip());
    velt::setOwnName(widget, name);
    if (auto* shown = dynamic_cast<velt::ButtonWidget*>(&widget)) shown->stateShown(cellObject().state());
}

// Pressing.

void NSButton::pressed() noexcept {
    const Ref<NSButton> kept(this);
    velt::runReported([this] { buttonCell().pressed(); });
    worked();
}

void NSButton::performClick(const id&) {
    if (!isEnabled()) return;
    auto* widget = qobject_cast<QAbstractButton*>(existingWidget());
    if (widget && widget->isVisible()) {
        constexpr int kSeenPressedFor = 100;  // milliseconds
        widget->setDown(true);
        widget->repaint();
        QTimer::singleShot(kSeenPressedFor, widget, [widget] { widget->setDown(false); });
    }
    pressed();
}

std::vector<Ref<NSButton>> NSButton::radioGroup() const {
    std::vector<Ref<NSButton>> group;
    if (!superviewPointer()) return group;
    for (const Ref<NSView>& view : superviewPointer()->subviewList()) {
        if (!velt::is<NSButton>(view)) continue;
        auto* button = velt::as<NSButton>(view);
        const NSButtonCell& cell = button->buttonCell();
        if (cell.isRadio() && cell.action() == buttonCell().action()) group.emplace_back(button);
    }
    return group;
}

// Keys.

bool NSButton::performKeyEquivalent(NSEvent* event) {
    if (!event || !isEnabled() || !buttonCell().answersKey(*event)) return false;
    // The window presses its default button itself, when it may.
    NSWindow* window = windowPointer();
    if (window && buttonCell().isReturnButton() && window->defaultButtonCell() == cell()) return false;
    performClick(nil);
    return true;
}

void NSButton::followKeyEquivalent() {
    NSWindow* window = windowPointer();
    if (!window) return;
    if (buttonCell().isReturnButton()) {
        if (!window->defaultButtonCell().isNil()) return;
        madeDefault_ = true;
        window->setDefaultButtonCell(cell());
    } else if (std::exchange(madeDefault_, false) && window->defaultButtonCell() == cell()) {
        window->setDefaultButtonCell(nil);
    }
}

void NSButton::moveToWindow(NSWindow* window) {
    NSWindow* before = windowPointer();
    if (before && before != window && std::exchange(madeDefault_, false) && before->defaultButtonCell() == cell()) {
        before->setDefaultButtonCell(nil);
    }
    NSControl::moveToWindow(window);
    followKeyEquivalent();
}

void NSButton::cellChanged(NSCell& changedCell) {
    NSControl::cellChanged(changedCell);
    followKeyEquivalent();
    if (!buttonCell().isRadio() || changedCell.state() != NSCell::kOn) return;
    for (const Ref<NSButton>& other : radioGroup()) {
        if (other.get() != this && other->buttonCell().state() != NSCell::kOff) {
            other->buttonCell().setState(NSCell::kOff);
        }
    }
}

void NSButton::describe(velt::ClassBuilder<NSButton>& c) {
    c.property("title", &NSButton::title, &NSButton::setTitle)
        .property("alternateTitle", &NSButton::alternateTitle, &NSButton::setAlternateTitle)
        .property("attributedTitle", &NSButton::attributedTitle, &NSButton::setAttributedTitle)
        .property("attributedAlternateTitle", &NSButton::attributedAlternateTitle,
                  &NSButton::setAttributedAlternateTitle)
        .property("image", &NSButton::image, &NSButton::setImage)
        .property("alternateImage", &NSButton::alternateImage, &NSButton::setAlternateImage)
        .property("imagePosition", &NSButton::imagePosition, &NSButton::setImagePosition)
        .property("bezelStyle", &NSButton::bezelStyle, &NSButton::setBezelStyle)
        .property("keyEquivalent", &NSButton::keyEquivalent, &NSButton::setKeyEquivalent)
        .property("keyEquivalentModifierMask", &NSButton::keyEquivalentModifierMask,
                  &NSButton::setKeyEquivalentModifierMask)
        .property("state", &NSButton::state, &NSButton::setState)
        .property("sound", &NSButton::sound, &NSButton::setSound)
        .property("allowsMixedState", &NSButton::allowsMixedState, &NSButton::setAllowsMixedState)
        .flag("transparent", &NSButton::isTransparent, &NSButton::setTransparent)
        .flag("bordered", &NSButton::isBordered, &NSButton::setBordered)
        .method("setButtonType:", &NSButton::setButtonType)
        .method("setNextState", &NSButton::setNextState)
        .method("highlight:", &NSButton::highlight)
        .method("performKeyEquivalent:", &NSButton::performKeyEquivalent);
}
