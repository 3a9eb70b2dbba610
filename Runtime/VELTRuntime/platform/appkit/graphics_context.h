// What is drawn into at the moment: set while a view's "drawRect:" runs, or an image or a page is drawn.
#pragma once

#include "VELTRuntime/export.h"

#include <QColor>
#include <vector>

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
    /// Keeps colours, clipping and coordinates for the restore that belongs to it. A restore without one does nothing;
    /// what was not restored is when the scope ends.
    void save();
    void restore();
    /// y points up, so that what is drawn upright has to be turned.
    bool isTurned() const;

    QColor fillColor = Qt::black;
    QColor strokeColor = Qt::black;
    /// Of text that names none: the desktop's.
    QColor textColor;
    bool antialiases = true;

private:
    struct Saved {
        QColor fill, stroke;
        bool antialiases;
    };
    std::vector<Saved> saved_;
    QPainter& painter_;
    GraphicsContext* outer_;
};

}  // namespace velt
