// gradients.bas as the translator writes it: a list of gradients, a background and a spot that show the chosen one, and
// controls that change how.
#include "support/screenshot.h"
#include "support/window_values.h"

using example::newColor;
using example::newRect;
using example::number;

namespace {

const id kColors = NSColor::entry().object();
const id kPaths = NSBezierPath::entry().object();
const id kGradients = PXGradient::entry().object();

id real(double value) { return VELT_ID(value); }

id newGradient(id index) {
    VELTS("gradients.bas", "NewGradient", "4", "");
    id names = VELT__NSARRAY(VELT_SPLIT("aquaSelected aquaNormal aquaPressed unifiedSelected unifiedNormal "
                                        "unifiedPressed unifiedDark sourceListSelected sourceListUnselected rainbow "
                                        "hydrogenSpectrum"_v,
                                        " "_v));
    VELTS("gradients.bas", "NewGradient", "5", "");
    return VELT_NSOBJECT_PERFORMSELECTOR0(kGradients, VELT_CONCAT(VELT_NSARRAY_OBJECT(names, index), "Gradient"_v));
}

class Swatches : public NSView {
    VELT_OBJECT(Swatches, NSView)

public:
    id chosen = number(9);
    id owner;

    static void describe(velt::ClassBuilder<Swatches>& c) {
        c.property("chosen", &Swatches::chosen)
            .property("owner", &Swatches::owner)
            .method("acceptsFirstResponder", &Swatches::acceptsKeys)
            .method("drawRect:", &Swatches::drawList)
            .method("mouseDown:", &Swatches::mouseDown)
            .method("keyDown:", &Swatches::keyDown);
    }

    id acceptsKeys() {
        VELTS("gradients.bas", "Swatches.AcceptsFirstResponder", "14", "");
        return VELT__BOOLEAN(VELT_ID(BOOL{1}));
    }

    void drawList(id) {
        VELTS("gradients.bas", "Swatches.DrawRect", "18", "");
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, number(10))); i = VELT_ADD(i, number(1))) {
            VELTS("gradients.bas", "Swatches.DrawRect", "19", "");
            if (VELT_CBOOL(VELT_EQUAL(i, chosen))) {
                VELTS("gradients.bas", "Swatches.DrawRect", "20", "");
                VELT_NSOBJECT_PERFORMSELECTOR0(VELT_NSOBJECT_PERFORMSELECTOR0(kColors, "selectedControlColor"_v),
                                               "set"_v);
                VELTS("gradients.bas", "Swatches.DrawRect", "21", "");
                VELT_NSOBJECT_PERFORMSELECTOR1(kPaths, "fillRect:"_v,
                                               newRect(number(8), placeOf(i, 44), number(164), number(34)));
            }
            VELTS("gradients.bas", "Swatches.DrawRect", "23", "");
            VELT_NSOBJECT_PERFORMSELECTOR1(newGradient(VELT__INTEGER(i)), "drawSwatchInRect:"_v,
                                           newRect(number(12), placeOf(i, 40), number(156), number(26)));
        }
    }
    /// Me.Height - offset - 36 * i
    id placeOf(const id& i, long offset) {
        return VELT_SUB(VELT_SUB(VELT_NSVIEW_HEIGHT(id(this)), number(offset)), VELT_MUL(number(36), i));
    }

    void mouseDown(id event) {
        VELTS("gradients.bas", "Swatches.MouseDown", "28", "");
        id place = VELT_NSOBJECT_PERFORMSELECTOR2(id(this), "convertPoint:fromView:"_v,
                                                  velt::valueForKey(event, "locationInWindow"), nil);
        VELTS("gradients.bas", "Swatches.MouseDown", "29", "");
        choose(VELT__INTEGER(
            VELT_IDIV(VELT_SUB(VELT_SUB(VELT_NSVIEW_HEIGHT(id(this)), number(9)), VELT_POINT_Y(place)), number(36))));
    }

    void keyDown(id event) {
        VELTS("gradients.bas", "Swatches.KeyDown", "33", "");
        if (VELT_CBOOL(VELT_EQUAL(velt::valueForKey(event, "characters"), VELT_CHARACTER(number(63232))))) {
            VELTS("gradients.bas", "Swatches.KeyDown", "34", "");
            choose(VELT__INTEGER(VELT_SUB(chosen, number(1))));
        } else if (VELTS("gradients.bas", "Swatches.KeyDown", "35", ""),
                   VELT_CBOOL(VELT_EQUAL(velt::valueForKey(event, "characters"), VELT_CHARACTER(number(63233))))) {
            VELTS("gradients.bas", "Swatches.KeyDown", "36", "");
            choose(VELT__INTEGER(VELT_ADD(chosen, number(1))));
        }
    }

    void choose(id index) {
        VELTS("gradients.bas", "Swatches.Choose", "41", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_GREATEREQUAL(index, number(0)), VELT_SMALLEREQUAL(index, number(10))))) {
            VELTS("gradients.bas", "Swatches.Choose", "42", "");
            chosen = VELT__INTEGER(index);
            VELTS("gradients.bas", "Swatches.Choose", "43", "");
            VELT_NSVIEW_REDRAW(id(this));
            VELTS("gradients.bas", "Swatches.Choose", "44", "");
            VELT_NSOBJECT_PERFORMSELECTOR1(owner, "show:"_v, nil);
        }
    }
};

class Spot : public NSView {
    VELT_OBJECT(Spot, NSView)

public:
    id gradient;

    static void describe(velt::ClassBuilder<Spot>& c) {
        c.property("gradient", &Spot::gradient).method("drawRect:", &Spot::drawSpot);
    }

    void drawSpot(id) {
        VELTS("gradients.bas", "Spot.DrawRect", "54", "");
        VELT_NSOBJECT_PERFORMSELECTOR0(
            VELT_NSOBJECT_PERFORMSELECTOR1(kPaths, "bezierPathWithOvalInRect:"_v, VELT_PROPERTY(id(this), "bounds"_v)),
            "addClip"_v);
        VELTS("gradients.bas", "Spot.DrawRect", "55", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(gradient, "radialFillRect:"_v, VELT_PROPERTY(id(this), "bounds"_v));
    }
};

class Gradients : public NSObject {
    VELT_OBJECT(Gradients, NSObject)

public:
    id window;
    velt::Ref<Swatches> swatches;
    id sheet;
    velt::Ref<Spot> spot;
    id mode, angle, opacity, radius;

    static void describe(velt::ClassBuilder<Gradients>& c) {
        c.property("window", &Gradients::window)
            .owns(&Gradients::swatches)
            .property("sheet", &Gradients::sheet)
            .owns(&Gradients::spot)
            .property("mode", &Gradients::mode)
            .property("angle", &Gradients::angle)
            .property("opacity", &Gradients::opacity)
            .property("radius", &Gradients::radius)
            .method("show:", &Gradients::show)
            .method("windowWillClose:", &Gradients::windowWillClose);
    }

    void build() {
        VELTS("gradients.bas", "Gradients.Build", "70", "");
        window = VELT_NSWINDOW_INIT(id(this), "");
        VELTS("gradients.bas", "Gradients.Build", "71", "");
        VELT_NSWINDOW_TITLE(window, "Gradients"_v);
        VELTS("gradients.bas", "Gradients.Build", "72", "");
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", number(720), number(424)));
        VELTS("gradients.bas", "Gradients.Build", "73", "");
        swatches = velt::make<Swatches>();
        VELTS("gradients.bas", "Gradients.Build", "74", "");
        swatches->owner = id(this);
        VELTS("gradients.bas", "Gradients.Build", "75", "");
        VELT_NSVIEW_FRAME(swatches, newRect(8, 8, 180, 408));
        VELTS("gradients.bas", "Gradients.Build", "76", "");
        VELT_NSVIEW_TOOLTIP(swatches, "Gradients"_v);
        VELTS("gradients.bas", "Gradients.Build", "77", "");
        id side = velt::make<VLBackgroundView>();
        VELTS("gradients.bas", "Gradients.Build", "78", "");
        VELT_NSVIEW_FRAME(side, newRect(8, 8, 180, 408));
        VELTS("gradients.bas", "Gradients.Build", "79", "");
        VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(side, newColor(0.5, 0.5, 0.55, 0.25),
                                                    newColor(0.5, 0.5, 0.55, 0.1));
        VELTS("gradients.bas", "Gradients.Build", "80", "");
        VELT_VLBACKGROUNDVIEW_SETBACKGROUNDCORNERRADIUS(side, number(10));
        VELTS("gradients.bas", "Gradients.Build", "81", "");
        VELT_NSWINDOW_APPEND(window, side);
        VELTS("gradients.bas", "Gradients.Build", "82", "");
        VELT_NSWINDOW_APPEND(window, swatches);
        VELTS("gradients.bas", "Gradients.Build", "83", "");
        sheet = velt::make<VLBackgroundView>();
        VELTS("gradients.bas", "Gradients.Build", "84", "");
        VELT_NSVIEW_FRAME(sheet, newRect(204, 172, 276, 236));
        VELTS("gradients.bas", "Gradients.Build", "85", "");
        VELT_NSWINDOW_APPEND(window, sheet);
        VELTS("gradients.bas", "Gradients.Build", "86", "");
        spot = velt::make<Spot>();
        VELTS("gradients.bas", "Gradients.Build", "87", "");
        VELT_NSVIEW_FRAME(spot, newRect(496, 184, 212, 212));
        VELTS("gradients.bas", "Gradients.Build", "88", "");
        VELT_NSWINDOW_APPEND(window, spot);
        VELTS("gradients.bas", "Gradients.Build", "89", "");
        mode = VELT_NSPOPUPBUTTON_INIT(id(this), "show:");
        VELTS("gradients.bas", "Gradients.Build", "90", "");
        VELT_NSPOPUPBUTTON_APPEND(mode, "As it is made"_v);
        VELTS("gradients.bas", "Gradients.Build", "91", "");
        VELT_NSPOPUPBUTTON_APPEND(mode, "Linear"_v);
        VELTS("gradients.bas", "Gradients.Build", "92", "");
        VELT_NSPOPUPBUTTON_APPEND(mode, "Chromatic"_v);
        VELTS("gradients.bas", "Gradients.Build", "93", "");
        VELT_NSPOPUPBUTTON_APPEND(mode, "Inverse chromatic"_v);
        VELTS("gradients.bas", "Gradients.Build", "94", "");
        addRow("Mixed"_v, mode, number(128));
        VELTS("gradients.bas", "Gradients.Build", "95", "");
        angle = newSlider(real(0), real(360), real(90));
        VELTS("gradients.bas", "Gradients.Build", "96", "");
        addRow("Angle"_v, angle, number(92));
        VELTS("gradients.bas", "Gradients.Build", "97", "");
        opacity = newSlider(real(0), real(1), real(1));
        VELTS("gradients.bas", "Gradients.Build", "98", "");
        addRow("Opacity"_v, opacity, number(56));
        VELTS("gradients.bas", "Gradients.Build", "99", "");
        radius = newSlider(real(0), real(118), real(24));
        VELTS("gradients.bas", "Gradients.Build", "100", "");
        addRow("Corners"_v, radius, number(20));
        VELTS("gradients.bas", "Gradients.Build", "101", "");
        VELT_NSWINDOW_DELEGATE(window, id(this));
        VELTS("gradients.bas", "Gradients.Build", "102", "");
        VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, swatches);
        VELTS("gradients.bas", "Gradients.Build", "103", "");
        show(nil);
        VELTS("gradients.bas", "Gradients.Build", "104", "");
        VELT_NSWINDOW_SHOW(window);
    }

    id newSlider(id least, id most, id value) {
        VELTS("gradients.bas", "Gradients.NewSlider", "108", "");
        id slider = VELT_NSSLIDER_INIT(id(this), "show:");
        VELTS("gradients.bas", "Gradients.NewSlider", "109", "");
        VELT_PROPERTY(slider, "minValue"_v, least);
        VELTS("gradients.bas", "Gradients.NewSlider", "110", "");
        VELT_PROPERTY(slider, "maxValue"_v, most);
        VELTS("gradients.bas", "Gradients.NewSlider", "111", "");
        VELT_PROPERTY(slider, "continuous"_v, VELT_ID(BOOL{1}));
        VELTS("gradients.bas", "Gradients.NewSlider", "112", "");
        VELT_NSCONTROL_DOUBLEVALUE(slider, value);
        VELTS("gradients.bas", "Gradients.NewSlider", "113", "");
        return VELT__NSSLIDER(slider);
    }

    void addRow(id name, id control, id y) {
        VELTS("gradients.bas", "Gradients.AddRow", "117", "");
        id caption = VELT_LABEL_INIT(id(this), "");
        VELTS("gradients.bas", "Gradients.AddRow", "118", "");
        VELT_NSCONTROL_STRINGVALUE(caption, name);
        VELTS("gradients.bas", "Gradients.AddRow", "119", "");
        VELT_NSCONTROL_ALIGNMENT(caption, number(1));
        VELTS("gradients.bas", "Gradients.AddRow", "120", "");
        VELT_NSVIEW_FRAME(caption, newRect(number(204), VELT_ADD(y, number(3)), number(80), number(20)));
        VELTS("gradients.bas", "Gradients.AddRow", "121", "");
        VELT_NSWINDOW_APPEND(window, caption);
        VELTS("gradients.bas", "Gradients.AddRow", "122", "");
        VELT_NSVIEW_FRAME(control, newRect(number(296), y, number(412), number(26)));
        VELTS("gradients.bas", "Gradients.AddRow", "123", "");
        VELT_NSVIEW_TOOLTIP(control, name);
        VELTS("gradients.bas", "Gradients.AddRow", "124", "");
        VELT_NSWINDOW_APPEND(window, control);
    }

    void show(id) {
        VELTS("gradients.bas", "Gradients.Show", "129", "");
        id gradient = newGradient(swatches->chosen);
        VELTS("gradients.bas", "Gradients.Show", "130", "");
        if (VELT_CBOOL(VELT_GREATER(VELT_NSPOPUPBUTTON_SELECTED(mode), number(0)))) {
            VELTS("gradients.bas", "Gradients.Show", "131", "");
            gradient = VELT_NSOBJECT_PERFORMSELECTOR1(gradient, "gradientWithBlendingMode:"_v,
                                                      VELT_SUB(VELT_NSPOPUPBUTTON_SELECTED(mode), number(1)));
        }
        VELTS("gradients.bas", "Gradients.Show", "133", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(sheet, "setBackgroundGradient:withAngle:"_v, gradient,
                                       VELT_NSCONTROL_DOUBLEVALUE(angle));
        VELTS("gradients.bas", "Gradients.Show", "134", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(sheet, "setBackgroundAlpha:"_v, VELT_NSCONTROL_DOUBLEVALUE(opacity));
        VELTS("gradients.bas", "Gradients.Show", "135", "");
        VELT_VLBACKGROUNDVIEW_SETBACKGROUNDCORNERRADIUS(sheet, VELT_NSCONTROL_DOUBLEVALUE(radius));
        VELTS("gradients.bas", "Gradients.Show", "136", "");
        spot->gradient = VELT_NSOBJECT_PERFORMSELECTOR1(gradient, "gradientWithAlphaComponent:"_v,
                                                        VELT_NSCONTROL_DOUBLEVALUE(opacity));
        VELTS("gradients.bas", "Gradients.Show", "137", "");
        VELT_NSVIEW_REDRAW(spot);
    }

    void windowWillClose(id) {
        VELTS("gradients.bas", "Gradients.WindowWillClose", "141", "");
        VELT_FIRSTRESPONDER_SENDACTION(nil, "terminate"_v);
    }
};

int program(int count, char** arguments) {
    example::dressAsAsked(count, arguments);
    VELTS("gradients.bas", "Main", "146", "");
    velt::Ref<Gradients> gradients = velt::make<Gradients>();
    VELTS("gradients.bas", "Main", "147", "");
    gradients->build();
    example::shotWhenAsked(gradients->window, [gradients] {
        VELT_NSCONTROL_DOUBLEVALUE(gradients->angle, real(30));
        gradients->show(nil);
    });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("gradients", program, count, arguments); }
