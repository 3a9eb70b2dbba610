// A program with windows that runs beside the test and is seen through the accessibility bus.
#pragma once

#include "support/accessibility_bus.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace velt::test {

/// Runs the program as long as this exists.
class ShownProgram {
public:
    /// Starts it and waits for its window of that title.
    ShownProgram(const QString& path, const std::string& title) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        process_.setProcessEnvironment(environment);
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(path, QStringList());
        if (process_.waitForStarted()) window_ = windowOnTheBus(title);
    }
    ~ShownProgram() {
        process_.terminate();
        if (!process_.waitForFinished(5000)) process_.kill();
        process_.waitForFinished();
    }
    ShownProgram(const ShownProgram&) = delete;
    ShownProgram& operator=(const ShownProgram&) = delete;

    const Accessible& window() const { return window_; }
    bool runs() const { return process_.state() == QProcess::Running; }

private:
    QProcess process_;
    Accessible window_;
};

}  // namespace velt::test
