#include "VELTRuntime/platform/appkit/controls/inner_editor.h"

#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/menus/menu_bar.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>

namespace velt {

namespace {

/// The line with the keyboard, wherever it stands; null when nothing of the kind has it.
QLineEdit* focusedLine() {
    QWidget* focus = behindMenuBar(QApplication::focusWidget());
    // A field with arrows keeps the keyboard for the line within.
    if (auto* arrows = qobject_cast<QAbstractSpinBox*>(focus)) return arrows->findChild<QLineEdit*>();
    return qobject_cast<QLineEdit*>(focus);
}

/// A message that works on the line; one that changes it leaves a line alone that is only for reading.
template <class Work> id work(Work works, bool changes) {
    QLineEdit* line = focusedLine();
    if (line && !(changes && line->isReadOnly())) works(*line);
    return nil;
}

}  // namespace

Class& InnerEditor::entry() {
    static Class& cls = declareClass<InnerEditor>("VLInnerEditor", &NSResponder::entry());
    return cls;
}

void InnerEditor::describe(ClassBuilder<InnerEditor>& c) {
    c.method("cut:", [](const id&, const id*) { return work([](QLineEdit& line) { line.cut(); }, true); })
        .method("copy:", [](const id&, const id*) { return work([](QLineEdit& line) { line.copy(); }, false); })
        .method("paste:", [](const id&, const id*) { return work([](QLineEdit& line) { line.paste(); }, true); })
        .method("delete:",
                [](const id&, const id*) {
                    return work(
                        [](QLineEdit& line) {
                            if (line.hasSelectedText()) line.del();
                        },
                        true);
                })
        .method("selectAll:",
                [](const id&, const id*) { return work([](QLineEdit& line) { line.selectAll(); }, false); })
        .method("undo:", [](const id&, const id*) { return work([](QLineEdit& line) { line.undo(); }, true); })
        .method("redo:", [](const id&, const id*) { return work([](QLineEdit& line) { line.redo(); }, true); });
}

id innerEditorIn(const NSWindow& window) {
    const QLineEdit* line = focusedLine();
    const NSView* view = line ? viewAround(line) : nullptr;
    if (!view || view->windowPointer() != &window || dynamic_cast<const NSTextField*>(view)) return nil;
    const Ref<InnerEditor> responder = make<InnerEditor>();
    responder->setNextResponder(id(const_cast<NSView*>(view)));
    return responder;
}

}  // namespace velt
