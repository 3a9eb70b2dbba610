// Cursors: the shape of the mouse's pointer.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <memory>

class QCursor;

class VELT_EXPORT NSCursor final : public NSObject {
    VELT_OBJECT(NSCursor, NSObject)
public:
    /// An arrow.
    NSCursor();
    explicit NSCursor(const QCursor& cursor);
    ~NSCursor() override;
    /// Shows it over all of the program's windows until another one is set.
    void set() const;
    const QCursor& cursor() const { return *cursor_; }
    static void describe(velt::ClassBuilder<NSCursor>& c);

private:
    std::unique_ptr<const QCursor> cursor_;
};
