// converter.bas as the translator writes it: text fields that tell of every key, and show what others' numbers become.
#include "support/screenshot.h"
#include "support/window_values.h"

using example::newRect;
using example::number;

namespace {

const id kNo = VELT_ID(BOOL{0});

class Converter : public NSObject {
    VELT_OBJECT(Converter, NSObject)

public:
    id window, fields, groups, factors, offsets;

    static void describe(velt::ClassBuilder<Converter>& c) {
        c.property("window", &Converter::window)
            .property("fields", &Converter::fields)
            .property("groups", &Converter::groups)
            .property("factors", &Converter::factors)
            .property("offsets", &Converter::offsets)
            .method("controlTextDidChange:", &Converter::controlTextDidChange)
            .method("windowWillClose:", &Converter::windowWillClose);
    }

    id shortText(id amount) {
        VELTS("converter.bas", "Converter.ShortText", "12", "");
        id text = VELT__STRING(VELT_FORMATDECIMAL(amount, kNo, number(4)));
        while (VELTS("converter.bas", "Converter.ShortText", "13", ""),
               VELT_CBOOL(VELT_EQUAL(VELT_RIGHT(text, number(1)), "0"_v))) {
            VELTS("converter.bas", "Converter.ShortText", "14", "");
            text = VELT__STRING(VELT_LEFT(text, VELT_SUB(VELT_LEN(text), number(1))));
        }
        VELTS("converter.bas", "Converter.ShortText", "16", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_RIGHT(text, number(1)), "."_v))) {
            VELTS("converter.bas", "Converter.ShortText", "17", "");
            text = VELT__STRING(VELT_LEFT(text, VELT_SUB(VELT_LEN(text), number(1))));
        }
        VELTS("converter.bas", "Converter.ShortText", "19", "");
        return VELT__STRING(text);
    }

    void convert(id source) {
        VELTS("converter.bas", "Converter.Convert", "24", "");
        id amount =
            VELT__DOUBLE(VELT_MUL(VELT_ADD(VELT_NSCONTROL_DOUBLEVALUE(VELT_NSMUTABLEARRAY_OBJECT(fields, source)),
                                           VELT_NSMUTABLEARRAY_OBJECT(offsets, source)),
                                  VELT_NSMUTABLEARRAY_OBJECT(factors, source)));
        VELTS("converter.bas", "Converter.Convert", "25", "");
        const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(fields), number(1));
        for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
            VELTS("converter.bas", "Converter.Convert", "26", "");
            if (VELT_CBOOL(
                    VELT_ANDALSO(VELT_UNEQUAL(i, source), VELT_EQUAL(VELT_NSMUTABLEARRAY_OBJECT(groups, i),
                                                                     VELT_NSMUTABLEARRAY_OBJECT(groups, source))))) {
                VELTS("converter.bas", "Converter.Convert", "27", "");
                VELT_NSCONTROL_STRINGVALUE(
                    VELT_NSMUTABLEARRAY_OBJECT(fields, i),
                    shortText(VELT__DOUBLE(VELT_SUB(VELT_DIV(amount, VELT_NSMUTABLEARRAY_OBJECT(factors, i)),
                                                    VELT_NSMUTABLEARRAY_OBJECT(offsets, i)))));
            }
        }
    }

    void controlTextDidChange(id notification) {
        VELTS("converter.bas", "Converter.ControlTextDidChange", "34", "");
        convert(VELT__INTEGER(VELT_NSCONTROL_TAG(VELT_NSOBJECT_PERFORMSELECTOR0(notification, "object"_v))));
    }

    void addUnit(id name, id group, id factor, id offset) {
        VELTS("converter.bas", "Converter.AddUnit", "39", "");
        id y = VELT__INTEGER(VELT_SUB(VELT_SUB(number(346), VELT_MUL(VELT_NSMUTABLEARRAY_COUNT(fields), number(30))),
                                      VELT_MUL(group, number(14))));
        VELTS("converter.bas", "Converter.AddUnit", "40", "");
        id caption = VELT_LABEL_INIT(nil, "");
        VELTS("converter.bas", "Converter.AddUnit", "41", "");
        VELT_NSCONTROL_STRINGVALUE(caption, name);
        VELTS("converter.bas", "Converter.AddUnit", "42", "");
        VELT_NSCONTROL_ALIGNMENT(caption, number(1));
        VELTS("converter.bas", "Converter.AddUnit", "43", "");
        VELT_NSVIEW_FRAME(caption, newRect(number(16), VELT_ADD(y, number(3)), number(100), number(18)));
        VELTS("converter.bas", "Converter.AddUnit", "44", "");
        VELT_NSWINDOW_APPEND(window, caption);
        VELTS("converter.bas", "Converter.AddUnit", "45", "");
        id field = VELT_NSTEXTFIELD_INIT(this, "");
        VELTS("converter.bas", "Converter.AddUnit", "46", "");
        VELT_NSCONTROL_TAG(field, VELT_NSMUTABLEARRAY_COUNT(fields));
        VELTS("converter.bas", "Converter.AddUnit", "47", "");
        VELT_NSVIEW_TOOLTIP(field, name);
        VELTS("converter.bas", "Converter.AddUnit", "48", "");
        VELT_NSVIEW_FRAME(field, newRect(number(124), y, number(180), number(24)));
        VELTS("converter.bas", "Converter.AddUnit", "49", "");
        VELT_NSVIEW_AUTORESIZINGMASK(field, number(2));
        VELTS("converter.bas", "Converter.AddUnit", "50", "");
        VELT_NSWINDOW_APPEND(window, field);
        VELTS("converter.bas", "Converter.AddUnit", "51", "");
        VELT_NSMUTABLEARRAY_APPEND(fields, field);
        VELTS("converter.bas", "Converter.AddUnit", "52", "");
        VELT_NSMUTABLEARRAY_APPEND(groups, group);
        VELTS("converter.bas", "Converter.AddUnit", "53", "");
        VELT_NSMUTABLEARRAY_APPEND(factors, factor);
        VELTS("converter.bas", "Converter.AddUnit", "54", "");
        VELT_NSMUTABLEARRAY_APPEND(offsets, offset);
    }

    void fill(id index, id text) {
        VELTS("converter.bas", "Converter.Fill", "59", "");
        VELT_NSCONTROL_STRINGVALUE(VELT_NSMUTABLEARRAY_OBJECT(fields, index), text);
        VELTS("converter.bas", "Converter.Fill", "60", "");
        convert(VELT__INTEGER(index));
    }

    void open() {
        VELTS("converter.bas", "Converter.Open", "64", "");
        fields = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
        VELTS("converter.bas", "Converter.Open", "65", "");
        groups = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
        VELTS("converter.bas", "Converter.Open", "66", "");
        factors = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
        VELTS("converter.bas", "Converter.Open", "67", "");
        offsets = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
        VELTS("converter.bas", "Converter.Open", "68", "");
        window = VELT__NSWINDOW(VELT_NSWINDOW_INIT(nil, ""));
        VELTS("converter.bas", "Converter.Open", "69", "");
        VELT_NSWINDOW_TITLE(window, "Converter"_v);
        VELTS("converter.bas", "Converter.Open", "70", "");
        VELT_NSWINDOW_FRAME(window, newRect(number(200), number(200), number(320), number(408)));
        VELTS("converter.bas", "Converter.Open", "71", "");
        addUnit("Metres"_v, number(0), VELT_ID(1.0), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "72", "");
        addUnit("Kilometres"_v, number(0), VELT_ID(1000.0), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "73", "");
        addUnit("Feet"_v, number(0), VELT_ID(0.3048), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "74", "");
        addUnit("Miles"_v, number(0), VELT_ID(1609.344), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "75", "");
        addUnit("Kilograms"_v, number(1), VELT_ID(1.0), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "76", "");
        addUnit("Pounds"_v, number(1), VELT_ID(0.45359237), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "77", "");
        addUnit("Ounces"_v, number(1), VELT_ID(0.028349523125), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "78", "");
        addUnit("Celsius"_v, number(2), VELT_ID(1.0), VELT_ID(0.0));
        VELTS("converter.bas", "Converter.Open", "79", "");
        addUnit("Fahrenheit"_v, number(2), VELT_DIV(VELT_ID(5.0), VELT_ID(9.0)), VELT_MINUS(VELT_ID(32.0)));
        VELTS("converter.bas", "Converter.Open", "80", "");
        addUnit("Kelvin"_v, number(2), VELT_ID(1.0), VELT_MINUS(VELT_ID(273.15)));
        VELTS("converter.bas", "Converter.Open", "81", "");
        fill(number(0), "1"_v);
        VELTS("converter.bas", "Converter.Open", "82", "");
        fill(number(4), "1"_v);
        VELTS("converter.bas", "Converter.Open", "83", "");
        fill(number(7), "20"_v);
        VELTS("converter.bas", "Converter.Open", "84", "");
        VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
        VELTS("converter.bas", "Converter.Open", "85", "");
        VELT_NSWINDOW_CENTERANDSHOW(window);
        VELTS("converter.bas", "Converter.Open", "86", "");
        VELT_NSTEXTFIELD_SELECTTEXT(VELT_NSMUTABLEARRAY_OBJECT(fields, number(0)));
    }

    void windowWillClose(id) {
        VELTS("converter.bas", "Converter.WindowWillClose", "91", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(&NSApplication::sharedApplication(), "terminate:"_v, this);
    }
};

/// For a picture: a person types a number of miles.
void typeMiles(const id& fields) {
    const id miles = VELT_NSMUTABLEARRAY_OBJECT(fields, number(3));
    VELT_NSTEXTFIELD_SELECTTEXT(miles);
    velt::send(velt::send(miles, "currentEditor"), "insertText:", "26.2"_v);
}

int program(int, char**) {
    VELTS("converter.bas", "Main", "96", "");
    velt::Ref<Converter> converter = velt::make<Converter>();
    VELTS("converter.bas", "Main", "97", "");
    converter->open();
    VELTS("converter.bas", "Main", "98", "");
    VELT_NSWINDOW_DELEGATE(converter->window, converter);
    VELTS("converter.bas", "Main", "99", "");
    example::shotWhenAsked(converter->window, [fields = converter->fields] { typeMiles(fields); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("converter", program, count, arguments); }
