// Where things are in a picture, whatever letters look like: the smallest box around all that differs from the
// background, for each named place of it.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace velt::test {

/// A part of a picture that something is expected in, in points.
struct Place {
    std::string name;
    QRect part;
};

/// One place and the box of what is seen there; an empty box where nothing is.
struct Seen {
    std::string name;
    QRect box;
};

/// The box around what differs from the colour of the background, in points.
inline QRect inkIn(const QImage& picture, QRect part, QRgb background) {
    const double scale = picture.devicePixelRatio();
    const QRect dots = QRect(qRound(part.x() * scale), qRound(part.y() * scale), qRound(part.width() * scale),
                             qRound(part.height() * scale))
                           .intersected(picture.rect());
    const auto differs = [&](QRgb dot) {
        constexpr int kVisible = 6;
        return std::abs(qRed(dot) - qRed(background)) > kVisible ||
               std::abs(qGreen(dot) - qGreen(background)) > kVisible ||
               std::abs(qBlue(dot) - qBlue(background)) > kVisible;
    };
    QRect box;
    for (int y = dots.top(); y <= dots.bottom(); ++y) {
        for (int x = dots.left(); x <= dots.right(); ++x) {
            if (differs(picture.pixel(x, y))) box |= QRect(x, y, 1, 1);
        }
    }
    if (box.isEmpty()) return {};
    return {qRound(box.x() / scale), qRound(box.y() / scale), qRound(box.width() / scale),
            qRound(box.height() / scale)};
}

inline std::vector<Seen> layoutOf(const QImage& picture, const std::vector<Place>& places) {
    const QRgb background = picture.pixel(1, 1);
    std::vector<Seen> all;
    for (const Place& place : places) all.push_back({place.name, inkIn(picture, place.part, background)});
    return all;
}

/// A layout as it is stored: a line a place, its name last.
inline std::string written(const std::vector<Seen>& layout) {
    std::ostringstream out;
    for (const Seen& one : layout) {
        out << one.box.x() << ' ' << one.box.y() << ' ' << one.box.width() << ' ' << one.box.height() << ' ' << one.name
            << '\n';
    }
    return out.str();
}

inline std::vector<Seen> readLayout(const std::string& path) {
    std::ifstream in(path);
    std::vector<Seen> all;
    int x = 0, y = 0, width = 0, height = 0;
    for (std::string name; in >> x >> y >> width >> height && std::getline(in >> std::ws, name);) {
        all.push_back({name, {x, y, width, height}});
    }
    return all;
}

/// What is no longer where it was, in words, a line each; nothing when all edges are within some points.
inline std::string changes(const std::vector<Seen>& before, const std::vector<Seen>& now, int tolerance) {
    if (before.size() != now.size()) {
        return std::to_string(before.size()) + " things were seen, now there are " + std::to_string(now.size()) + "\n";
    }
    std::ostringstream out;
    for (std::size_t i = 0; i < now.size(); ++i) {
        const QRect &was = before[i].box, &is = now[i].box;
        if (before[i].name != now[i].name) {
            out << before[i].name << " is called " << now[i].name << '\n';
        } else if (is.isEmpty() != was.isEmpty()) {
            out << now[i].name << (is.isEmpty() ? " is gone\n" : " has come\n");
        } else if (std::abs(is.left() - was.left()) > tolerance || std::abs(is.right() - was.right()) > tolerance ||
                   std::abs(is.top() - was.top()) > tolerance || std::abs(is.bottom() - was.bottom()) > tolerance) {
            out << now[i].name << " moved from " << was.x() << ',' << was.y() << ' ' << was.width() << 'x'
                << was.height() << " to " << is.x() << ',' << is.y() << ' ' << is.width() << 'x' << is.height() << '\n';
        }
    }
    return out.str();
}

}  // namespace velt::test
