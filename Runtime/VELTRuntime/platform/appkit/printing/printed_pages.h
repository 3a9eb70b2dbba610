// A view cut into pages.
#pragma once

#include <QRectF>
#include <memory>

class NSPrintInfo;
class NSView;
class QPaintDevice;
class QPainter;

namespace velt {

/// Where pages are laid out: a device, how many of its dots are a point, and the room that a page has, in dots from the
/// paper's upper left corner.
struct PrintedArea {
    QPaintDevice& device;
    double dotsPerPoint;
    QRectF room;
};

class PrintedPages {
public:
    PrintedPages() = default;
    virtual ~PrintedPages() = default;
    PrintedPages(const PrintedPages&) = delete;
    PrintedPages& operator=(const PrintedPages&) = delete;

    virtual std::size_t count() const = 0;
    /// Draws a page, from 0 on, in dots.
    virtual void draw(std::size_t page, QPainter& painter) = 0;
};

/// A text view's whole lines, page by page; any other view as it looks, in tiles. No pages for a view in tiles where a
/// page has less room than a point, or that needs more than 100000 of them.
std::unique_ptr<PrintedPages> pagesOf(NSView& view, const NSPrintInfo& info, const PrintedArea& area);

}  // namespace velt
