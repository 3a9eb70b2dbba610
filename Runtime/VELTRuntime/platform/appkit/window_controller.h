// Window controllers: who owns a window and brings it up, often from an interface file that is read at first need.
#pragma once

#include "VELTRuntime/platform/appkit/window.h"

class VELT_EXPORT NSWindowController : public NSResponder {
    VELT_OBJECT(NSWindowController, NSResponder)
public:
    /// Without a window.
    NSWindowController() = default;
    ~NSWindowController() override;

    /// A controller of that window, which may be nil; for "initWithWindow:".
    id initWithWindow(const id& window);
    /// A controller whose window is made from the interface file of that name when somebody wants it. The controller
    /// is the file's owner; its property "window" is set to the file's object of that name.
    id initWithWindowNibName(const id& name);
    id windowNibName() const { return nibName_; }

    /// The window, read from its file first if need be; nil when there is none. A file that cannot be read raises
    /// "NSInternalInconsistencyException" saying why.
    id window();
    void setWindow(const id& window);
    bool isWindowLoaded() const { return loaded_ || !window_.isNil(); }
    /// Reads the interface file: NAME.ui in the program's resources, or else the library's own of that name.
    void loadWindow();
    /// Told before and after the window was read from its file.
    void windowWillLoad() {}
    void windowDidLoad() {}

    /// Brings the window up; the sender does not matter.
    void showWindow(const id& sender);
    void close();

    static void describe(velt::ClassBuilder<NSWindowController>& c);

protected:
    NSWindow* windowPointer() const { return velt::to<NSWindow>(window_); }
    id self() { return id(static_cast<NSObject*>(this)); }

private:
    id window_, nibName_;
    bool loaded_ = false;
};
