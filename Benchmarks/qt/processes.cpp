// Child processes with the toolkit's own class.
#include "work_timer.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <cstdlib>

namespace {

long long run(const QString& path, const QStringList& arguments) {
    QProcess child;
    QEventLoop loop;
    long long count = 0;
    QObject::connect(&child, &QProcess::readyReadStandardOutput, &loop,
                     [&] { count += child.readAllStandardOutput().size(); });
    QObject::connect(&child, &QProcess::finished, &loop, &QEventLoop::quit);
    child.start(path, arguments, QIODevice::ReadOnly);
    loop.exec();
    return count + child.readAllStandardOutput().size();
}

}  // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const long runs = count > 1 ? std::atol(arguments[1]) : 300;
    const QString bytes = count > 2 ? arguments[2] : "1073741824";
    timeWork("launches", [&] {
        for (long i = 0; i < runs; ++i) run("/bin/true", {});
        return runs;
    });
    timeWork("output", [&] { return run("/usr/bin/head", {"-c", bytes, "/dev/zero"}); });
    return 0;
}
