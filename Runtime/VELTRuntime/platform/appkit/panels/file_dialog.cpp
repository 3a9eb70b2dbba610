#include "VELTRuntime/platform/appkit/panels/file_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>

namespace velt {

namespace {

QStringList patterns(const QStringList& types) {
    QStringList all;
    for (const QString& type : types) all.append(QStringLiteral("*.") + type);
    return all;
}

}  // namespace

FileDialog::FileDialog(const FileQuestion& question, QWidget* parent)
    : QFileDialog(parent, question.title, question.directory), question_(question) {
    setObjectName(QStringLiteral("file dialog"));
    setAcceptMode(question.saves ? AcceptSave : AcceptOpen);
    // The desktops' own dialogs choose either files or folders, and one folder.
    const bool folderAlone = question.directories && !question.files && !question.multiple;
    if (!question.saves && !folderAlone && (question.directories || !question.files)) {
        setOption(DontUseNativeDialog);
    }
    if (question.saves) {
        setFileMode(AnyFile);
    } else if (folderAlone) {
        setFileMode(Directory);
        setOption(ShowDirsOnly);
    } else {
        setFileMode(question.multiple ? ExistingFiles : ExistingFile);
        if (!question.files) setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    }
    if (question.showsHidden) setFilter(filter() | QDir::Hidden);
    if (!question.createsDirectories) setOption(ReadOnly);
    if (!question.types.isEmpty()) {
        setNameFilter(patterns(question.types).join(QLatin1Char(' ')));
        if (question.saves) setDefaultSuffix(question.types.front());
    }
    if (!question.prompt.isEmpty()) setLabelText(Accept, question.prompt);
    if (!question.nameLabel.isEmpty()) setLabelText(FileName, question.nameLabel);
    if (!question.file.isEmpty()) selectFile(question.file);
}

bool FileDialog::usesWidgets() const { return findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) != nullptr; }

bool FileDialog::mayChoose(const QString& path) const {
    const QFileInfo info(path);
    if (info.isDir()) return question_.directories;
    if (!question_.files) return false;
    return question_.types.isEmpty() || QDir::match(patterns(question_.types), info.fileName());
}

void FileDialog::refuse(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    QMessageBox::information(this, windowTitle(), tr("\"%1\" cannot be chosen here.").arg(name));
}

void FileDialog::accept() {
    // Names, folders that are there and files that are written over are what the toolkit asks about itself.
    if (question_.saves || !usesWidgets()) return QFileDialog::accept();
    QStringList files = selectedFiles();
    const auto* name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name && name->text().isEmpty() && question_.directories) files = {directory().absolutePath()};
    if (files.isEmpty()) return;
    for (const QString& path : files) {
        // What is not there is answered by the toolkit; a folder that cannot be chosen is entered.
        const QFileInfo info(path);
        if (!info.exists() || (info.isDir() && !question_.directories)) return QFileDialog::accept();
        if (!mayChoose(path)) return refuse(path);
    }
    chosen_ = files;
    QDialog::accept();  // NOLINT(bugprone-parent-virtual-call): the file dialog itself would ask about them again
}

QStringList FileDialog::paths() const {
    QStringList found;
    for (const QString& path : chosen_.isEmpty() ? selectedFiles() : chosen_) {
        const QFileInfo info(path);
        const QString resolved = question_.resolvesLinks ? info.canonicalFilePath() : QString();
        found.append(resolved.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : resolved);
    }
    return found;
}

}  // namespace velt
