// The toolkit's file dialog, or the desktop's own behind it, asked in the terms of the panels.
#pragma once

#include <QFileDialog>
#include <QPointer>
#include <QStringList>

namespace velt {

struct FileQuestion {
    QString title, prompt, nameLabel, directory, file;
    QStringList types;  // endings without their dot; none for all files
    bool saves = false, files = true, directories = false, multiple = false, resolvesLinks = false;
    bool createsDirectories = true, showsHidden = false;
};

class FileDialog final : public QFileDialog {
public:
    FileDialog(const FileQuestion& question, QWidget* parent);
    /// The paths that were chosen, absolute.
    QStringList paths() const;

    void accept() override;

private:
    bool usesWidgets() const;
    bool mayChoose(const QString& path) const;
    void refuse(const QString& path);

    const FileQuestion question_;
    QStringList chosen_;
};

}  // namespace velt
