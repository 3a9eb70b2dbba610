// The widget of a matrix: draws its cells, hands on what a person does, edits their texts.
#pragma once

#include "VELTRuntime/platform/appkit/controls/pressed_widget.h"
#include "VELTRuntime/platform/appkit/tables/matrix.h"

class QLineEdit;

namespace velt {

class MatrixWidget final : public PressedWidget {
public:
    MatrixWidget() = default;

    NSMatrix* matrix() const { return static_cast<NSMatrix*>(control()); }
    void matrixChanged();
    /// Opens the editor over a cell with all of its text selected.
    void edit(MatrixPlace place);

    QAccessible::Role role() const override;
    QString valueText() const override;
    void press() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintCell(QPainter& painter, NSMatrix& matrix, MatrixPlace place);
    QRect rectOf(const NSMatrix& matrix, MatrixPlace place) const;
    MatrixPlace placeOf(const QMouseEvent& event) const;
    void endEdit(bool keep, bool sends);
    bool editNext(bool forward);

    QLineEdit* editor_ = nullptr;
    MatrixPlace edited_;
    bool twice_ = false;
};

}  // namespace velt
