// The small buttons within fields: a magnifier, a cross that clears, an arrow that opens a list.
#pragma once

#include <QAbstractButton>

namespace velt {

/// Draws its sign in the field's own colours, at any size. It never takes the keyboard from the text.
class FieldButton final : public QAbstractButton {
public:
    enum class Sign { Magnifier, Recents, Cross, Arrow };
    /// The name is for those who cannot see the sign.
    FieldButton(Sign sign, const QString& name, QWidget& field);

    void setSign(Sign sign);
    Sign sign() const { return sign_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Sign sign_;
};

}  // namespace velt
