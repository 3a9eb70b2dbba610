// What is being drawn into, as programs see it.
#pragma once

#include "VELTRuntime/platform/object/class.h"

/// The current one, while something is being drawn. Its messages do nothing when nothing is any more.
class VELT_EXPORT NSGraphicsContext final : public NSObject {
    VELT_OBJECT(NSGraphicsContext, NSObject)
public:
    void saveGraphicsState();
    void restoreGraphicsState();
    bool shouldAntialias() const;
    void setShouldAntialias(bool flag);
    bool isFlipped() const;
    static void describe(velt::ClassBuilder<NSGraphicsContext>& c);
};
