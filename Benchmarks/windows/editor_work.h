// What the programs of the editor comparison share: the source that they show, the keys that are typed, and how long a
// key takes until its frame is painted.
#pragma once

#include "form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <iterator>
#include <malloc.h>
#include <string>
#include <string_view>
#include <vector>

namespace editor {

inline constexpr int kWidth = 900, kHeight = 700;
inline constexpr int kKeys = 1200;

/// A source of so many lines of about fifty units. Of every ten lines five hold the word "counter" once.
inline std::string source(int lines) {
    constexpr std::string_view kLines[] = {
        "  if counter > 10 then ' more than \"enough\" of them\n",
        "    dim total as integer : amount = amount_of(x)\n",
        "    msgbox \"it's \" & counter & \" of these\", 3\n",
        "    total = total + first(amount, 1) * 2 - offset\n",
        "  end if : counter := another_name.with_members(3)\n",
        "  for index = 1 to 10 : say \"turn\" & index : next\n",
        "    dim counter as integer ' how many there are now\n",
        "    amount = left(name, 3) & mid(name, 5, 7) & \".\"\n",
        "    counter = counter_free(total) + offset * 2 - 17\n",
        "  next : result := another_name.with_members(more)\n",
    };
    std::string text;
    for (int i = 0; i < lines; ++i) text += kLines[i % 10];
    return text;
}

/// Lines as somebody types them, a line feed for Return; nothing in them asks for completions.
inline constexpr std::string_view kTyped = "total = amount + 27\nif total > 3 then say \"it is \" & total 'so\n";

inline void settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

/// What a peer puts off until nothing else happens, it does now.
inline void finishAll() {
    for (int i = 0; i < 500; ++i) QApplication::processEvents();
}

/// Notes when a widget has been painted.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }
    void wait() {
        while (!painted_) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    void begin() { painted_ = false; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool painted_ = false;
};

inline void press(QWidget& widget, char unit) {
    const int key = unit == '\n' ? static_cast<int>(Qt::Key_Return) : QChar::fromLatin1(unit).toUpper().unicode();
    const QString text = unit == '\n' ? QStringLiteral("\r") : QString(QLatin1Char(unit));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &event);
    }
}

/// Prints the median and the 99th percentile of the seconds from a key to its painted frame. The insertion point blinks
/// for nobody.
inline void typeKeys(QWidget& widget, QWidget& painted) {
    PaintWatch watch(painted);
    std::vector<double> times;
    for (int i = 0; i < kKeys; ++i) {
        const double begin = form::now();
        watch.begin();
        press(widget, kTyped[static_cast<std::size_t>(i) % kTyped.size()]);
        watch.wait();
        times.push_back(form::now() - begin);
        settle();
    }
    std::sort(times.begin(), times.end());
    std::printf("median %.6f\np99 %.6f\n", times[times.size() / 2], times[times.size() * 99 / 100]);
}

inline void beStill() { QApplication::setCursorFlashTime(0); }

/// What a peer does: keys in the middle of a source, a file opened, its whole text coloured. It has functions setText
/// (UTF-8), goToLine and colour.
template <class Peer, class Widget> int runPeer(int count, char** arguments) {
    QApplication application(count, arguments);
    beStill();
    const std::string work = count > 2 ? arguments[1] : "";
    Widget widget;
    Peer peer(widget);
    widget.resize(kWidth, kHeight);
    widget.show();
    widget.setFocus();
    settle();
    if (work == "keys") {
        const int lines = std::atoi(arguments[2]);
        peer.setText(source(lines));
        peer.goToLine(lines / 2);
        finishAll();
        typeKeys(widget, *widget.viewport());
    }
    if (work == "open") {
        const long before = form::residentKilobytes();
        PaintWatch watch(*widget.viewport());
        form::Steps steps;
        std::ifstream file(arguments[2]);
        std::string text(std::istreambuf_iterator<char>(file), {});
        peer.setText(text);
        watch.begin();
        widget.viewport()->update();
        watch.wait();
        steps.end("open");
        const auto units = static_cast<double>(text.size());
        text = {};
        finishAll();
        malloc_trim(0);
        std::printf("memory %.3f\n", static_cast<double>(form::residentKilobytes() - before) * 1024 / units);
        form::Steps more;
        peer.colour();
        more.end("coloured");
    }
    return 0;
}

}  // namespace editor
