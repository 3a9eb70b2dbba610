// Where a drawer lies beside its window. Plain arithmetic, in screen coordinates with y pointing up.
#pragma once

#include "VELTRuntime/values/structures.h"

#include <algorithm>

namespace velt {

/// The edge of a window that a drawer slides from; the numbers are the codes that programs use.
enum class Edge : long { Left = 0, Bottom = 1, Right = 2, Top = 3 };

constexpr bool isUpright(Edge edge) { return edge == Edge::Left || edge == Edge::Right; }
constexpr Edge opposite(Edge edge) { return static_cast<Edge>((static_cast<long>(edge) + 2) % 4); }

/// The size of a drawer that is all out. A drawer at the side is as high as its window's content, one above or below as
/// wide, less the offsets at both ends.
constexpr NSSize drawerSize(Edge edge, NSRect content, NSSize own, double leading, double trailing) {
    if (isUpright(edge)) return {own.width, std::max(0.0, content.size.height - leading - trailing)};
    return {std::max(0.0, content.size.width - leading - trailing), own.height};
}

/// The rectangle of the part that is out: a part of 0 is a line along the edge, 1 all of the drawer. The leading offset
/// is that from the window's top or left end.
constexpr NSRect drawerRect(Edge edge, NSRect frame, NSRect content, NSSize size, double leading, double trailing,
                            double part) {
    const double width = isUpright(edge) ? size.width * part : size.width;
    const double height = isUpright(edge) ? size.height : size.height * part;
    switch (edge) {
    case Edge::Left: return {{frame.origin.x - width, content.origin.y + trailing}, {width, height}};
    case Edge::Right: return {{frame.origin.x + frame.size.width, content.origin.y + trailing}, {width, height}};
    case Edge::Bottom: return {{frame.origin.x + leading, frame.origin.y - height}, {width, height}};
    case Edge::Top: return {{frame.origin.x + leading, frame.origin.y + frame.size.height}, {width, height}};
    }
    return {};
}

/// The edge of that axis which has room on the screen; the preferred one when both or none has.
constexpr Edge roomyEdge(Edge preferred, NSRect frame, NSRect content, NSSize size, double leading, double trailing,
                         NSRect screen) {
    const auto fits = [&](Edge edge) {
        // Only the way out of the window counts: a window may itself lie partly off the screen.
        const NSRect rect = drawerRect(edge, frame, content, size, leading, trailing, 1);
        switch (edge) {
        case Edge::Left: return rect.origin.x >= screen.origin.x;
        case Edge::Right: return rect.origin.x + rect.size.width <= screen.origin.x + screen.size.width;
        case Edge::Bottom: return rect.origin.y >= screen.origin.y;
        case Edge::Top: return rect.origin.y + rect.size.height <= screen.origin.y + screen.size.height;
        }
        return true;
    };
    return !fits(preferred) && fits(opposite(preferred)) ? opposite(preferred) : preferred;
}

}  // namespace velt
