#include "VELTRuntime/platform/appkit/panels/save_panel.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/file_url.h"
#include "VELTRuntime/platform/appkit/panels/file_dialog.h"
#include "VELTRuntime/platform/appkit/panels/modal_session.h"
#include "VELTRuntime/platform/appkit/panels/sheets.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMainWindow>

using velt::FileDialog;
using velt::FileQuestion;
using velt::Ref;

namespace {

id urlOf(const std::string& path) { return velt::fileUrl(QString::fromStdString(path)); }

/// The window that a dialog lies before.
QWidget* activeWindow() { return QApplication::activeWindow(); }

}  // namespace

NSSavePanel::NSSavePanel() : NSPanel({}, velt::kTitledWindow | velt::kClosableWindow | velt::kResizableWindow) {
    setTitle(velt::textValue(QApplication::translate("QFileDialog", "Save")));
    setReleasedWhenClosed(false);
}
NSSavePanel::~NSSavePanel() = default;

NSSavePanel& NSSavePanel::savePanel() {
    static NSSavePanel* panel = new NSSavePanel;  // for as long as the program runs
    return *panel;
}

void NSSavePanel::setPanelTitle(const id& title) {
    setTitle(title);
    if (dialog_) dialog_->setWindowTitle(velt::qtText(title));
}

id NSSavePanel::requiredFileType() const {
    const NSArray* types = velt::arrayOf(types_);
    return types && types->count() > 0 ? types->at(0) : id();
}
void NSSavePanel::setRequiredFileType(const id& type) {
    types_ = nil;
    if (type.isNil()) return;
    const Ref<NSMutableArray> types = velt::make<NSMutableArray>();
    types->append(type);
    types_ = types;
}

// What was chosen.

id NSSavePanel::filename() const { return chosen_.empty() ? id() : velt::string(chosen_.front()); }
id NSSavePanel::url() const { return chosen_.empty() ? id() : urlOf(chosen_.front()); }
id NSSavePanel::filenames() const {
    const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const std::string& path : chosen_) list->append(velt::string(path));
    return list;
}
id NSSavePanel::urls() const {
    const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
    for (const std::string& path : chosen_) list->append(urlOf(path));
    return list;
}

// Running.

void NSSavePanel::ask(FileQuestion& question) const { question.saves = true; }

FileQuestion NSSavePanel::question(const id& directory, const id& file) {
    if (!directory.isNil()) directory_ = directory;
    FileQuestion asked;
    asked.title = velt::qtText(title());
    asked.prompt = velt::qtText(prompt_);
    asked.nameLabel = velt::qtText(nameFieldLabel_);
    asked.directory = velt::qtText(directory_);
    asked.file = velt::qtText(file);
    asked.createsDirectories = canCreateDirectories_;
    asked.showsHidden = showsHiddenFiles_;
    if (const NSArray* types = velt::arrayOf(types_)) {
        for (const id& type : types->items()) {
            QString ending = velt::qtText(type);
            if (ending.startsWith(QLatin1Char('.'))) ending.remove(0, 1);
            if (!ending.isEmpty()) asked.types.append(ending);
        }
    }
    // A folder that is not there is none.
    if (asked.directory.isEmpty() || !QFileInfo(asked.directory).isDir()) asked.directory = QDir::currentPath();
    ask(asked);
    return asked;
}

void NSSavePanel::take(FileDialog& dialog, long code) {
    chosen_.clear();
    directory_ = velt::textValue(dialog.directory().absolutePath());
    if (code != velt::kPanelConfirmed) return;
    const QStringList paths = dialog.paths();
    for (const QString& path : paths) chosen_.push_back(path.toStdString());
}

long NSSavePanel::run(const id& directory, const id& file) {
    const Ref<NSSavePanel> kept(this);
    chosen_.clear();
    if (dialog_) return velt::kPanelCancelled;  // it is shown already, and can ask one thing at a time
    const QPointer<FileDialog> dialog = new FileDialog(question(directory, file), activeWindow());
    dialog_ = dialog;
    long code = velt::kPanelCancelled;
    {
        velt::ModalSession session(nullptr);
        QObject::connect(dialog, &QDialog::finished, dialog, [&session](int result) {
            session.stop(result == QDialog::Accepted ? velt::kPanelConfirmed : velt::kPanelCancelled);
        });
        // The window before it may go, and the dialog with it.
        QObject::connect(dialog, &QObject::destroyed, qApp, [&session] { session.stop(velt::kPanelCancelled); });
        dialog->setWindowModality(Qt::ApplicationModal);
        dialog->show();
        code = session.run();
        if (dialog) dialog->disconnect();
    }
    dialog_ = nullptr;
    if (!dialog) return velt::kPanelCancelled;
    take(*dialog, code);
    dialog->hide();
    delete dialog;
    return code;
}

long NSSavePanel::runModal() { return run(nil, nil); }
long NSSavePanel::runModalForDirectory(const id& directory, const id& file) { return run(directory, file); }

void NSSavePanel::beginSheet(const id& directory, const id& file, NSWindow* window, const id& delegate,
                             const id& didEnd, const id& context) {
    if (dialog_) return;
    chosen_.clear();
    auto* dialog = new FileDialog(question(directory, file), window ? &window->widget() : nullptr);
    dialog_ = dialog;
    const Ref<NSSavePanel> kept(this);
    QObject::connect(dialog, &QDialog::finished, dialog, [kept](int result) {
        const long code = result == QDialog::Accepted ? velt::kPanelConfirmed : velt::kPanelCancelled;
        velt::runReported([&] { velt::endSheet(*kept, code); });
    });
    // Its window may go, and the dialog with it.
    QObject::connect(dialog, &QObject::destroyed, qApp, [kept, dialog] {
        if (kept->dialog_ != dialog) return;
        kept->dialog_ = nullptr;
        velt::runReported([&] { velt::endSheet(*kept, velt::kPanelCancelled); });
    });
    dialog->setWindowModality(window ? Qt::WindowModal : Qt::ApplicationModal);
    velt::SheetEnd end{delegate, didEnd, kept, context};
    end.aborted = velt::kPanelCancelled;
    const auto letGo = [kept](long code) {
        FileDialog* shown = std::exchange(kept->dialog_, nullptr);
        if (!shown) return;
        shown->disconnect();
        kept->take(*shown, code);
        shown->hide();
        shown->deleteLater();  // it may be what ends
    };
    velt::beginSheet(*this, window, end, {[dialog](bool visible) { dialog->setVisible(visible); }, letGo});
}

bool NSSavePanel::isShown() const { return dialog_ ? dialog_->isVisible() : isVisible(); }
void NSSavePanel::closePanel() {
    if (dialog_) return dialog_->reject();
    close();
}

void NSSavePanel::ok(const id&) {
    if (dialog_) dialog_->accept();
}
void NSSavePanel::cancel(const id&) {
    if (dialog_) dialog_->reject();
}

void NSSavePanel::describe(velt::ClassBuilder<NSSavePanel>& c) {
    c.property("title", &NSSavePanel::title, &NSSavePanel::setPanelTitle)
        .property("prompt", &NSSavePanel::prompt, &NSSavePanel::setPrompt)
        .property("nameFieldLabel", &NSSavePanel::nameFieldLabel, &NSSavePanel::setNameFieldLabel)
        .property("directory", &NSSavePanel::directory, &NSSavePanel::setDirectory)
        .property("allowedFileTypes", &NSSavePanel::allowedFileTypes, &NSSavePanel::setAllowedFileTypes)
        .property("requiredFileType", &NSSavePanel::requiredFileType, &NSSavePanel::setRequiredFileType)
        .property("canCreateDirectories", &NSSavePanel::canCreateDirectories, &NSSavePanel::setCanCreateDirectories)
        .property("showsHiddenFiles", &NSSavePanel::showsHiddenFiles, &NSSavePanel::setShowsHiddenFiles)
        .property("filename", &NSSavePanel::filename)
        .property("filenames", &NSSavePanel::filenames)
        .property("URL", &NSSavePanel::url)
        .property("URLs", &NSSavePanel::urls)
        .method("runModal", &NSSavePanel::runModal)
        .method("runModalForDirectory:file:", &NSSavePanel::runModalForDirectory)
        .method("beginSheetForDirectory:file:modalForWindow:modalDelegate:didEndSelector:contextInfo:",
                &NSSavePanel::beginSheet)
        .method("isVisible", &NSSavePanel::isShown)
        .method("close", &NSSavePanel::closePanel)
        .method("orderOut:",
                [](const id& self, const id*) {
                    velt::as<NSSavePanel>(self)->closePanel();
                    return id();
                })
        .method("ok:", &NSSavePanel::ok)
        .method("cancel:", &NSSavePanel::cancel)
        .classMethod("savePanel", [](const id&, const id*) { return velt::boxResult(&NSSavePanel::savePanel()); })
        .owns(&NSSavePanel::prompt_)
        .owns(&NSSavePanel::nameFieldLabel_)
        .owns(&NSSavePanel::directory_)
        .owns(&NSSavePanel::types_);
}

// The open panel.

NSOpenPanel::NSOpenPanel() { setTitle(velt::textValue(QApplication::translate("QFileDialog", "Open"))); }

NSOpenPanel& NSOpenPanel::openPanel() {
    static NSOpenPanel* panel = new NSOpenPanel;  // for as long as the program runs
    return *panel;
}

void NSOpenPanel::ask(FileQuestion& question) const {
    question.files = files_;
    question.directories = directories_;
    question.multiple = multiple_;
    question.resolvesLinks = resolvesAliases_;
}

long NSOpenPanel::runModalForDirectory(const id& directory, const id& file, const id& types) {
    setAllowedFileTypes(types);
    return run(directory, file);
}

void NSOpenPanel::describe(velt::ClassBuilder<NSOpenPanel>& c) {
    c.property("canChooseFiles", &NSOpenPanel::canChooseFiles, &NSOpenPanel::setCanChooseFiles)
        .property("canChooseDirectories", &NSOpenPanel::canChooseDirectories, &NSOpenPanel::setCanChooseDirectories)
        .property("resolvesAliases", &NSOpenPanel::resolvesAliases, &NSOpenPanel::setResolvesAliases)
        .property("allowsMultipleSelection", &NSOpenPanel::allowsMultipleSelection,
                  &NSOpenPanel::setAllowsMultipleSelection)
        .method("runModalForDirectory:file:types:",
                [](const id& self, const id* a) {
                    return VELT_ID(velt::as<NSOpenPanel>(self)->runModalForDirectory(a[0], a[1], a[2]));
                })
        .method("runModalForTypes:", &NSOpenPanel::runModalForTypes)
        .method("beginSheetForDirectory:file:types:modalForWindow:modalDelegate:didEndSelector:contextInfo:",
                [](const id& self, const id* a) {
                    NSOpenPanel& panel = *velt::as<NSOpenPanel>(self);
                    NSWindow* window = velt::to<NSWindow>(a[3]);
                    panel.setAllowedFileTypes(a[2]);
                    panel.beginSheet(a[0], a[1], window, a[4], a[5], a[6]);
                    return id();
                })
        .classMethod("openPanel", [](const id&, const id*) { return velt::boxResult(&NSOpenPanel::openPanel()); });
}
