// What is drawn into at the moment: set while a view's "drawRect:" runs, or an image or a page is drawn.
#pragma once

#include "VELTRuntime/export.h"

#include <QColor>

class QPainter;

namespace velt {

/// While it exists, drawing goes into a painter whose coordinates are the program's. Scopes may be nested.
class VELT_EXPORT GraphicsContext {
public:
    explicit GraphicsContext(QPainter& painter);
    ~GraphicsContext();
    GraphicsContext(const GraphicsContext&) = delete;
    GraphicsContext& operator=(const GraphicsContext&) = delete;

    /// The innermost scope, or null when nothing is being drawn.
    static GraphicsContext* current();

    QPainter& painter() { return painter_; }
    QColor fillColor = Qt::black;
    QColor strokeColor = Qt::black;

private:
    QPainter& painter_;
    GraphicsContext* outer_;
};

}  // namespace velt
