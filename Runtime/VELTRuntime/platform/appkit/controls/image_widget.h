// The widget of an image view.
#pragma once

#include <QWidget>

class NSImageView;

namespace velt {

class ImageWidget final : public QWidget {
public:
    ImageWidget();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    NSImageView* view() const;
    bool dropping_ = false;
};

}  // namespace velt
