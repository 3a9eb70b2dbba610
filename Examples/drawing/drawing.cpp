// drawing.bas as the translator writes it: a view of the program's own that draws, and hears the mouse and the keys.
#include "support/screenshot.h"
#include "support/window_values.h"

#include <cmath>
#include <vector>

using example::newPoint;
using example::newRect;
using example::number;

namespace {

const id kYes = VELT_ID(BOOL{1});
const id kColors = NSColor::entry().object();
const id kPaths = NSBezierPath::entry().object();
const id kFonts = NSFont::entry().object();

class Stroke : public NSObject {
    VELT_OBJECT(Stroke, NSObject)

public:
    id color, path;
    static void describe(velt::ClassBuilder<Stroke>& c) {
        c.property("color", &Stroke::color).property("path", &Stroke::path);
    }
};

id textAttributes() {
    VELTS("drawing.bas", "TextAttributes", "111", "");
    id attributes = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("drawing.bas", "TextAttributes", "112", "");
    velt::send(attributes,
               "setObject:forKey:", VELT_NSOBJECT_PERFORMSELECTOR1(kFonts, "systemFontOfSize:"_v, number(13)),
               "NSFont"_v);
    VELTS("drawing.bas", "TextAttributes", "113", "");
    velt::send(attributes, "setObject:forKey:", VELT_NSOBJECT_PERFORMSELECTOR0(kColors, "darkGrayColor"_v),
               "NSColor"_v);
    VELTS("drawing.bas", "TextAttributes", "114", "");
    return attributes;
}

class Sheet : public NSView {
    VELT_OBJECT(Sheet, NSView)

public:
    id strokes = velt::make<NSMutableArray>();
    id colors = velt::make<NSMutableArray>();
    id color = number(0);
    id width = number(4);
    velt::Ref<Stroke> drawn;

    static void describe(velt::ClassBuilder<Sheet>& c) {
        c.property("strokes", &Sheet::strokes)
            .property("colors", &Sheet::colors)
            .property("color", &Sheet::color)
            .property("width", &Sheet::width)
            .owns(&Sheet::drawn)
            .method("acceptsFirstResponder", &Sheet::acceptsKeys)
            .method("drawRect:", &Sheet::drawSheet)
            .method("mouseDown:", &Sheet::mouseDown)
            .method("mouseDragged:", &Sheet::mouseDragged)
            .method("keyDown:", &Sheet::keyDown)
            .method("windowWillClose:", &Sheet::windowWillClose);
    }

    id acceptsKeys() {
        VELTS("drawing.bas", "Sheet.AcceptsFirstResponder", "17", "");
        return VELT__BOOLEAN(kYes);
    }

    void prepare() {
        VELTS("drawing.bas", "Sheet.Prepare", "21", "");
        id names = VELT__NSMUTABLEARRAY(VELT_SPLIT("black red orange green blue purple"_v, " "_v));
        VELTS("drawing.bas", "Sheet.Prepare", "22", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(names), number(1));
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
            VELTS("drawing.bas", "Sheet.Prepare", "23", "");
            VELT_NSMUTABLEARRAY_APPEND(
                colors,
                VELT_NSOBJECT_PERFORMSELECTOR0(kColors, VELT_CONCAT(VELT_NSMUTABLEARRAY_OBJECT(names, i), "Color"_v)));
        }
    }

    void drawSheet(id dirty) {
        VELTS("drawing.bas", "Sheet.DrawRect", "28", "");
        VELT_NSOBJECT_PERFORMSELECTOR0(VELT_NSOBJECT_PERFORMSELECTOR0(kColors, "whiteColor"_v), "set"_v);
        VELTS("drawing.bas", "Sheet.DrawRect", "29", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(kPaths, "fillRect:"_v, dirty);
        VELTS("drawing.bas", "Sheet.DrawRect", "30", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(strokes), number(1));
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
            VELTS("drawing.bas", "Sheet.DrawRect", "31", "");
            VELT_NSOBJECT_PERFORMSELECTOR0(velt::valueForKey(VELT_NSMUTABLEARRAY_OBJECT(strokes, i), "color"),
                                           "setStroke"_v);
            VELTS("drawing.bas", "Sheet.DrawRect", "32", "");
            VELT_NSOBJECT_PERFORMSELECTOR0(velt::valueForKey(VELT_NSMUTABLEARRAY_OBJECT(strokes, i), "path"),
                                           "stroke"_v);
        }
        VELTS("drawing.bas", "Sheet.DrawRect", "34", "");
        drawPalette();
    }

    void drawPalette() {
        VELTS("drawing.bas", "Sheet.DrawPalette", "38", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(colors), number(1));
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
            VELTS("drawing.bas", "Sheet.DrawPalette", "39", "");
            VELT_NSOBJECT_PERFORMSELECTOR0(VELT_NSMUTABLEARRAY_OBJECT(colors, i), "set"_v);
            VELTS("drawing.bas", "Sheet.DrawPalette", "40", "");
            id dot = VELT_NSOBJECT_PERFORMSELECTOR1(
                kPaths, "bezierPathWithOvalInRect:"_v,
                newRect(VELT_ADD(number(12), VELT_MUL(number(28), i)), number(12), number(20), number(20)));
            VELTS("drawing.bas", "Sheet.DrawPalette", "41", "");
            VELT_NSOBJECT_PERFORMSELECTOR0(dot, "fill"_v);
            VELTS("drawing.bas", "Sheet.DrawPalette", "42", "");
            if (VELT_CBOOL(VELT_EQUAL(i, color))) {
                VELTS("drawing.bas", "Sheet.DrawPalette", "43", "");
                id ring = VELT_NSOBJECT_PERFORMSELECTOR1(
                    kPaths, "bezierPathWithOvalInRect:"_v,
                    newRect(VELT_ADD(number(9), VELT_MUL(number(28), i)), number(9), number(26), number(26)));
                VELTS("drawing.bas", "Sheet.DrawPalette", "44", "");
                VELT_NSOBJECT_PERFORMSELECTOR0(VELT_NSOBJECT_PERFORMSELECTOR0(kColors, "grayColor"_v), "set"_v);
                VELTS("drawing.bas", "Sheet.DrawPalette", "45", "");
                VELT_NSOBJECT_PERFORMSELECTOR0(ring, "stroke"_v);
            }
        }
        VELTS("drawing.bas", "Sheet.DrawPalette", "48", "");
        id text = VELT__STRING(VELT_CONCAT(
            VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("width "_v, width), ", "_v), VELT_NSMUTABLEARRAY_COUNT(strokes)),
            " strokes"_v));
        VELTS("drawing.bas", "Sheet.DrawPalette", "49", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(text, "drawAtPoint:withAttributes:"_v, newPoint(number(190), number(14)),
                                       textAttributes());
    }

    void mouseDown(id event) {
        VELTS("drawing.bas", "Sheet.MouseDown", "53", "");
        id place = VELT_NSOBJECT_PERFORMSELECTOR2(id(this), "convertPoint:fromView:"_v,
                                                  velt::valueForKey(event, "locationInWindow"), nil);
        VELTS("drawing.bas", "Sheet.MouseDown", "54", "");
        if (VELT_CBOOL(VELT_ANDALSO(
                VELT_SMALLER(VELT_POINT_Y(place), number(40)),
                VELT_SMALLER(VELT_POINT_X(place),
                             VELT_ADD(number(12), VELT_MUL(number(28), VELT_NSMUTABLEARRAY_COUNT(colors))))))) {
            VELTS("drawing.bas", "Sheet.MouseDown", "55", "");
            chooseColor(VELT__INTEGER(VELT_IDIV(VELT_SUB(VELT_POINT_X(place), number(12)), number(28))));
            VELTS("drawing.bas", "Sheet.MouseDown", "56", "");
            drawn = nullptr;
            VELTS("drawing.bas", "Sheet.MouseDown", "57", "");
            return;
        }
        VELTS("drawing.bas", "Sheet.MouseDown", "59", "");
        velt::Ref<Stroke> stroke = velt::make<Stroke>();
        VELTS("drawing.bas", "Sheet.MouseDown", "60", "");
        stroke->color = VELT_NSMUTABLEARRAY_OBJECT(colors, color);
        VELTS("drawing.bas", "Sheet.MouseDown", "61", "");
        stroke->path = VELT_NSOBJECT_PERFORMSELECTOR0(kPaths, "bezierPath"_v);
        VELTS("drawing.bas", "Sheet.MouseDown", "62", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(stroke->path, "setLineWidth:"_v, width);
        VELTS("drawing.bas", "Sheet.MouseDown", "63", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(stroke->path, "setLineCapStyle:"_v, number(1));
        VELTS("drawing.bas", "Sheet.MouseDown", "64", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(stroke->path, "setLineJoinStyle:"_v, number(1));
        VELTS("drawing.bas", "Sheet.MouseDown", "65", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(stroke->path, "moveToPoint:"_v, place);
        VELTS("drawing.bas", "Sheet.MouseDown", "66", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(stroke->path, "lineToPoint:"_v, place);
        VELTS("drawing.bas", "Sheet.MouseDown", "67", "");
        VELT_NSMUTABLEARRAY_APPEND(strokes, stroke);
        VELTS("drawing.bas", "Sheet.MouseDown", "68", "");
        drawn = stroke;
        VELTS("drawing.bas", "Sheet.MouseDown", "69", "");
        VELT_NSVIEW_REDRAW(id(this));
    }

    void mouseDragged(id event) {
        VELTS("drawing.bas", "Sheet.MouseDragged", "74", "");
        if (VELT_CBOOL(VELT_EQUAL(drawn, nil))) {
            VELTS("drawing.bas", "Sheet.MouseDragged", "75", "");
            return;
        }
        VELTS("drawing.bas", "Sheet.MouseDragged", "77", "");
        id place = VELT_NSOBJECT_PERFORMSELECTOR2(id(this), "convertPoint:fromView:"_v,
                                                  velt::valueForKey(event, "locationInWindow"), nil);
        VELTS("drawing.bas", "Sheet.MouseDragged", "78", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(drawn->path, "lineToPoint:"_v, place);
        VELTS("drawing.bas", "Sheet.MouseDragged", "79", "");
        VELT_NSVIEW_REDRAW(id(this));
    }

    void keyDown(id event) {
        VELTS("drawing.bas", "Sheet.KeyDown", "83", "");
        id key = VELT__STRING(VELT_LCASE(velt::valueForKey(event, "characters")));
        VELTS("drawing.bas", "Sheet.KeyDown", "84", "");
        if (VELT_CBOOL(VELT_EQUAL(key, "c"_v))) {
            VELTS("drawing.bas", "Sheet.KeyDown", "85", "");
            VELT_NSMUTABLEARRAY_REMOVEALL(strokes);
        } else if (VELTS("drawing.bas", "Sheet.KeyDown", "86", ""),
                   VELT_CBOOL(
                       VELT_ANDALSO(VELT_ORELSE(VELT_EQUAL(key, "z"_v), VELT_EQUAL(key, VELT_CHARACTER(number(127)))),
                                    VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(strokes), number(0))))) {
            VELTS("drawing.bas", "Sheet.KeyDown", "87", "");
            VELT_NSMUTABLEARRAY_REMOVE(strokes, VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(strokes), number(1)));
        } else if (VELTS("drawing.bas", "Sheet.KeyDown", "88", ""), VELT_CBOOL(VELT_EQUAL(key, "+"_v))) {
            VELTS("drawing.bas", "Sheet.KeyDown", "89", "");
            width = VELT__INTEGER(VELT_MIN(number(40), VELT_ADD(width, number(2))));
        } else if (VELTS("drawing.bas", "Sheet.KeyDown", "90", ""), VELT_CBOOL(VELT_EQUAL(key, "-"_v))) {
            VELTS("drawing.bas", "Sheet.KeyDown", "91", "");
            width = VELT__INTEGER(VELT_MAX(number(2), VELT_SUB(width, number(2))));
        } else {
            VELTS("drawing.bas", "Sheet.KeyDown", "93", "");
            chooseColor(VELT__INTEGER(VELT_INSTR("123456"_v, key, number(0), kYes)));
        }
        VELTS("drawing.bas", "Sheet.KeyDown", "95", "");
        VELT_NSVIEW_REDRAW(id(this));
    }

    void windowWillClose(id) {
        VELTS("drawing.bas", "Sheet.WindowWillClose", "99", "");
        VELT_FIRSTRESPONDER_SENDACTION(nil, "terminate"_v);
    }

    void chooseColor(id index) {
        VELTS("drawing.bas", "Sheet.ChooseColor", "103", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(index, number(0)),
                                    VELT_SMALLER(index, VELT_NSMUTABLEARRAY_COUNT(colors))))) {
            VELTS("drawing.bas", "Sheet.ChooseColor", "104", "");
            color = VELT__INTEGER(index);
        }
        VELTS("drawing.bas", "Sheet.ChooseColor", "106", "");
        VELT_NSVIEW_REDRAW(id(this));
    }
};

/// What the picture shows: a wave in each colour, the last one taken back.
void drawWaves(const velt::Ref<Sheet>& sheet) {
    for (long i = 0; i < 7; ++i) {
        sheet->chooseColor(number(i % 6));
        sheet->width = number(2 + 2 * i);
        std::vector<NSPoint> points;
        for (int step = 0; step <= 60; ++step) {
            const double x = 30 + 7.0 * step;
            points.push_back({x, 80 + 36.0 * static_cast<double>(i) + 18 * std::sin(x / 35 + static_cast<double>(i))});
        }
        example::dragThrough(sheet, points);
    }
    example::pressKey(sheet, 'z');
    // A press on the palette that slips off it.
    example::dragThrough(sheet, {{22, 22}, {240, 355}});
}

int program(int, char**) {
    VELTS("drawing.bas", "Main", "118", "");
    id window = VELT__NSWINDOW(VELT_NSWINDOW_INIT(nil, ""));
    VELTS("drawing.bas", "Main", "119", "");
    VELT_NSWINDOW_TITLE(window, "Drawing"_v);
    VELTS("drawing.bas", "Main", "120", "");
    VELT_NSWINDOW_FRAME(window, newRect(number(200), number(200), number(480), number(382)));
    VELTS("drawing.bas", "Main", "121", "");
    velt::Ref<Sheet> sheet = velt::make<Sheet>();
    VELTS("drawing.bas", "Main", "122", "");
    sheet->prepare();
    VELTS("drawing.bas", "Main", "123", "");
    VELT_NSVIEW_FRAME(sheet, newRect(number(0), number(0), number(480), number(360)));
    VELTS("drawing.bas", "Main", "124", "");
    VELT_NSVIEW_AUTORESIZINGMASK(sheet, number(18));
    VELTS("drawing.bas", "Main", "125", "");
    VELT_NSWINDOW_APPEND(window, sheet);
    VELTS("drawing.bas", "Main", "126", "");
    VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, sheet);
    VELTS("drawing.bas", "Main", "127", "");
    VELT_NSWINDOW_DELEGATE(window, sheet);
    VELTS("drawing.bas", "Main", "128", "");
    VELT_NSWINDOW_SHOW(window);
    VELTS("drawing.bas", "Main", "129", "");
    example::shotWhenAsked(window, [sheet] { drawWaves(sheet); });
    VELTS("drawing.bas", "Main", "130", "");
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("drawing", program, count, arguments); }
