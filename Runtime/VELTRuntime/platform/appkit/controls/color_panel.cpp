#include "VELTRuntime/platform/appkit/controls/color_panel.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/controls/color_well.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window_frame.h"
#include "VELTRuntime/platform/foundation/notification_center.h"

#include <QColorDialog>
#include <QKeyEvent>
#include <QSignalBlocker>

using velt::Ref;

namespace {

/// The toolkit's dialog as a part of the panel, without an end of its own.
class ColorDialog final : public QColorDialog {
public:
    ColorDialog() {
        setWindowFlags(Qt::Widget);
        setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog);
        setSizeGripEnabled(false);
    }

protected:
    void done(int) override {}
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    void hideEvent(QHideEvent* event) override {
        QColorDialog::hideEvent(event);
        // A closed panel picks no more colours for anybody.
        if (!event->spontaneous()) NSColorWell::deactivateAll();
    }
};

/// The panel's content.
class ColorDialogView final : public NSView {
public:
    static ColorDialog* dialogIn(const id& view) {
        QWidget* widget = velt::is<NSView>(view) ? velt::as<NSView>(view)->existingWidget() : nullptr;
        return dynamic_cast<ColorDialog*>(widget);
    }

protected:
    std::unique_ptr<QWidget> makeWidget() override {
        auto made = std::make_unique<ColorDialog>();
        ColorDialog* dialog = made.get();
        QObject::connect(dialog, &QColorDialog::currentColorChanged, dialog, [dialog](const QColor& color) {
            const NSView* view = velt::viewOf(dialog);
            const id panel = view ? view->window() : nil;
            if (velt::is<NSColorPanel>(panel)) velt::as<NSColorPanel>(panel)->picked(velt::colorValue(color));
        });
        return made;
    }
};

bool sharedMade = false;

}  // namespace

NSColorPanel::NSColorPanel()
    : NSPanel({}, velt::kTitledWindow | velt::kClosableWindow), color_(velt::make<NSColor>(0.0, 0.0, 0.0, 1.0)) {
    setTitle(velt::string(u"Colors"));
    setHidesOnDeactivate(false);
    setFloatingPanel(true);
    setReleasedWhenClosed(false);
    const Ref<ColorDialogView> view = velt::make<ColorDialogView>();
    const QSize size = view->widget().sizeHint();
    setContentView(view.get());
    setContentSize({static_cast<double>(size.width()), static_cast<double>(size.height())});
    center();
    syncDialog();
}

NSColorPanel& NSColorPanel::sharedColorPanel() {
    static NSColorPanel* panel = new NSColorPanel;  // for as long as the program runs
    sharedMade = true;
    return *panel;
}

bool NSColorPanel::sharedColorPanelExists() { return sharedMade; }

void NSColorPanel::syncDialog() {
    ColorDialog* dialog = ColorDialogView::dialogIn(contentView());
    if (!dialog) return;
    const QSignalBlocker quiet(dialog);
    dialog->setOption(QColorDialog::ShowAlphaChannel, showsAlpha_);
    dialog->setCurrentColor(velt::qtColor(*velt::as<NSColor>(color_)));
}

void NSColorPanel::setColor(NSColor* color) {
    if (!color) return;
    color_ = velt::boxResult(color);
    syncDialog();
}

void NSColorPanel::setShowsAlpha(bool flag) {
    showsAlpha_ = flag;
    syncDialog();
}

void NSColorPanel::picked(const id& color) noexcept {
    const Ref<NSColorPanel> kept(this);
    velt::runReported([&] {
        if (velt::isEqual(color, color_)) return;
        const id self = id(static_cast<NSObject*>(this));
        color_ = color;
        NSColorWell::takeColorForActive(color);
        NSNotificationCenter::defaultCenter().post(velt::string(u"NSColorPanelColorDidChangeNotification"), self);
        NSApplication& application = NSApplication::sharedApplication();
        application.sendAction(VELT_SELECTOR("changeColor:"), nil, self);
        if (velt::isString(actionName_) && !target_.isNil())
            application.sendAction(velt::Selector::named(velt::utf8(actionName_)), target_, self);
    });
}

void NSColorPanel::describe(velt::ClassBuilder<NSColorPanel>& c) {
    c.property("color", &NSColorPanel::color, &NSColorPanel::setColor)
        .property("showsAlpha", &NSColorPanel::showsAlpha, &NSColorPanel::setShowsAlpha)
        .method("setTarget:", &NSColorPanel::setTarget)
        .method("setAction:", &NSColorPanel::setAction)
        .classMethod("sharedColorPanel",
                     [](const id&, const id*) { return velt::boxResult(&NSColorPanel::sharedColorPanel()); })
        .classMethod("sharedColorPanelExists",
                     [](const id&, const id*) { return velt::boxResult(NSColorPanel::sharedColorPanelExists()); })
        .owns(&NSColorPanel::color_)
        .owns(&NSColorPanel::target_);
}
