// The toolkit's dialog for files, worked as a person does: by typing a path.
#pragma once

#include "panels_support.h"

#include <QFileDialog>

namespace velt::test {

inline QFileDialog* fileDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QFileDialog*>(widget);
        if (dialog && dialog->isVisible() && dialog->isActiveWindow()) return dialog;
    }
    return nullptr;
}

inline QLineEdit& nameField(QFileDialog& dialog) {
    return *dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// Runs a function once a file dialog is seen.
inline void onceShown(std::function<void(QFileDialog&)> then) {
    onceThat([] { return fileDialog() != nullptr; }, [then = std::move(then)] { then(*fileDialog()); });
}

/// Types a path into the next file dialog, over what stands there, and presses Return.
inline void type(const std::string& path) {
    onceShown([path](QFileDialog& dialog) {
        QLineEdit& field = nameField(dialog);
        field.selectAll();
        QTest::keyClicks(&field, QString::fromStdString(path));
        QTest::keyClick(&field, Qt::Key_Return);
    });
}

inline void cancel() {
    onceShown([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

}  // namespace velt::test
