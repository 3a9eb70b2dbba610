// The same form with the toolkit's own widgets.
#include "form.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <memory>
#include <vector>

namespace {

void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

/// Four controls a row; the field grows, what is right of it moves.
class Content final : public QWidget {
public:
    explicit Content(int rows) {
        for (int row = 0; row < rows; ++row) {
            const int y = row * form::kRowHeight;
            auto* label = new QLabel(QStringLiteral("Label %1").arg(row), this);
            label->setGeometry(4, y, 120, 22);
            auto* field = new QLineEdit(QStringLiteral("Text %1").arg(row), this);
            field->setGeometry(130, y, 200, 22);
            auto* check = new QCheckBox(QStringLiteral("Option %1").arg(row), this);
            check->setGeometry(340, y, 120, 22);
            auto* button = new QPushButton(QStringLiteral("Button %1").arg(row), this);
            button->setGeometry(470, y, 120, 22);
            QObject::connect(field, &QLineEdit::returnPressed, this, [this] { ++pressed_; });
            QObject::connect(check, &QCheckBox::clicked, this, [this] { ++pressed_; });
            QObject::connect(button, &QPushButton::clicked, this, [this] { ++pressed_; });
            rows_.push_back({field, check, button});
        }
    }

protected:
    void resizeEvent(QResizeEvent*) override {
        const int more = width() - 600;
        int y = 0;
        for (const Row& row : rows_) {
            row.field->setGeometry(130, y, 200 + more, 22);
            row.check->setGeometry(340 + more, y, 120, 22);
            row.button->setGeometry(470 + more, y, 120, 22);
            y += form::kRowHeight;
        }
    }

private:
    struct Row {
        QLineEdit* field;
        QCheckBox* check;
        QPushButton* button;
    };
    std::vector<Row> rows_;
    long pressed_ = 0;
};

std::unique_ptr<QMainWindow> makeForm(int rows) {
    auto window = std::make_unique<QMainWindow>();
    window->setCentralWidget(new Content(rows));
    window->resize(600, rows * form::kRowHeight);
    return window;
}

void bigForm(int resizes) {
    const long before = form::residentKilobytes();
    form::Steps steps;
    std::unique_ptr<QMainWindow> window = makeForm(form::kRows);
    steps.end("made");
    window->show();
    settle();
    steps.end("shown");
    for (int i = 0; i < resizes; ++i) {
        window->resize(600 + 10 * i, form::kRows * form::kRowHeight);
        settle();
    }
    steps.end("resized");
    std::printf("memory %ld\n", form::residentKilobytes() - before);
    window.reset();
    settle();
    steps.end("closed");
}

void getter() {
    const QPushButton button;
    long sum = 0;
    const double time = form::nanosecondsOf([&] {
        sum += button.isEnabled();
        asm volatile("" : : "r"(&button) : "memory");
    });
    std::printf("getter %.3f %ld\n", time, sum);
}

void smallWindow() {
    const std::unique_ptr<QMainWindow> window = makeForm(3);
    window->show();
    settle();
    std::printf("painted %.6f\n", form::now());
}

}  // namespace

int main(int count, char** arguments) {
    const std::string work = count > 1 ? arguments[1] : "form";
    const QApplication application(count, arguments);
    if (work == "form") bigForm(count > 2 ? std::atoi(arguments[2]) : form::kResizes);
    if (work == "getter") getter();
    if (work == "small") smallWindow();
    return 0;
}
