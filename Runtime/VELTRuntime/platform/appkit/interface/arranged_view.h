// Views whose subviews are arranged by a layout instead of standing where the program puts them.
#pragma once

#include "VELTRuntime/platform/appkit/view.h"

#include <memory>

class QLayout;

/// Gives its subviews their frames by a layout, at every change of its size.
class VELT_EXPORT VLArrangedView final : public NSView {
    VELT_OBJECT(VLArrangedView, NSView)
public:
    VLArrangedView();
    ~VLArrangedView() override;

    /// Takes over a layout whose items place the subviews, and arranges them.
    void setLayout(std::unique_ptr<QLayout> layout);
    /// The size below which the layout cannot keep its items apart.
    NSSize minimumSize() const;
    /// The size at which everything has the size that it asks for.
    NSSize preferredSize() const;

    void dissolve() override;

protected:
    void sizeChanged(NSSize before) override;

private:
    void arrange();
    std::unique_ptr<QLayout> layout_;
};
