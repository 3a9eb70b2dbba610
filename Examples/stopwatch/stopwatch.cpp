// stopwatch.bas as the translator writes it: timers, buttons and keys.
#include "support/screenshot.h"
#include "support/window_clock.h"
#include "support/window_values.h"

using example::newRect;
using example::pause;
using example::seconds;

namespace {

class Stopwatch : public NSObject {
    VELT_OBJECT(Stopwatch, NSObject)

public:
    id window, display, startButton, lapButton, resetButton, lapLabels, laps, ticker;
    id before = VELT_ID(0.0), startedAt = VELT_ID(0.0), isRunning = VELT_ID(BOOL{0});

    static void describe(velt::ClassBuilder<Stopwatch>& c) {
        c.method("tick", &Stopwatch::tick)
            .method("startStop", &Stopwatch::startStop)
            .method("lap", &Stopwatch::lap)
            .method("reset", &Stopwatch::reset)
            .method("workItself", &Stopwatch::workItself)
            .owns(&Stopwatch::window)
            .owns(&Stopwatch::display)
            .owns(&Stopwatch::startButton)
            .owns(&Stopwatch::lapButton)
            .owns(&Stopwatch::resetButton)
            .owns(&Stopwatch::lapLabels)
            .owns(&Stopwatch::laps)
            .owns(&Stopwatch::ticker);
    }

    id elapsed() {
        VELTS("stopwatch.bas", "Stopwatch.Elapsed", "17", "");
        if (VELT_CBOOL(isRunning)) {
            VELTS("stopwatch.bas", "Stopwatch.Elapsed", "18", "");
            return VELT__DOUBLE(VELT_SUB(VELT_ADD(before, seconds()), startedAt));
        }
        VELTS("stopwatch.bas", "Stopwatch.Elapsed", "20", "");
        return VELT__DOUBLE(before);
    }

    id timeText(id time) {
        VELTS("stopwatch.bas", "Stopwatch.TimeText", "25", "");
        id hundredths = VELT__INTEGER(VELT_CMATH_FLOOR(nil, VELT_MUL(time, VELT_ID(100L))));
        VELTS("stopwatch.bas", "Stopwatch.TimeText", "26", "");
        id minutes = VELT__STRING(VELT_CONCAT(""_v, VELT_IDIV(hundredths, VELT_ID(6000L))));
        VELTS("stopwatch.bas", "Stopwatch.TimeText", "27", "");
        id rest = VELT__STRING(VELT_FORMATDECIMAL(VELT_DIV(VELT_MOD(hundredths, VELT_ID(6000L)), VELT_ID(100.0)),
                                                  VELT_ID(BOOL{0}), VELT_ID(2L)));
        VELTS("stopwatch.bas", "Stopwatch.TimeText", "28", "");
        if (VELT_CBOOL(VELT_SMALLER(VELT_LEN(minutes), VELT_ID(2L)))) {
            VELTS("stopwatch.bas", "Stopwatch.TimeText", "29", "");
            minutes = VELT__STRING(VELT_CONCAT("0"_v, minutes));
        }
        VELTS("stopwatch.bas", "Stopwatch.TimeText", "31", "");
        return VELT__STRING(
            VELT_CONCAT(VELT_CONCAT(minutes, ":"_v), VELT_RIGHT(VELT_CONCAT("00"_v, rest), VELT_ID(5L))));
    }

    void refresh() {
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "35", "");
        VELT_NSCONTROL_STRINGVALUE(display, timeText(elapsed()));
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "36", "");
        VELT_NSBUTTON_TITLE(startButton, "Start"_v);
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "37", "");
        if (VELT_CBOOL(isRunning)) {
            VELTS("stopwatch.bas", "Stopwatch.Refresh", "38", "");
            VELT_NSBUTTON_TITLE(startButton, "Stop"_v);
        }
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "40", "");
        VELT_NSCONTROL_ENABLED(lapButton, isRunning);
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "41", "");
        VELT_NSCONTROL_ENABLED(resetButton, VELT_AND(VELT_NOT(isRunning), VELT_GREATER(before, VELT_ID(0L))));
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "42", "");
        id shown = VELT__INTEGER(VELT_MIN(VELT_NSMUTABLEARRAY_COUNT(laps), VELT_NSMUTABLEARRAY_COUNT(lapLabels)));
        VELTS("stopwatch.bas", "Stopwatch.Refresh", "43", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lapLabels), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("stopwatch.bas", "Stopwatch.Refresh", "44", "");
            VELT_NSCONTROL_STRINGVALUE(VELT_NSMUTABLEARRAY_OBJECT(lapLabels, i), ""_v);
            VELTS("stopwatch.bas", "Stopwatch.Refresh", "45", "");
            if (VELT_CBOOL(VELT_SMALLER(i, shown))) {
                VELTS("stopwatch.bas", "Stopwatch.Refresh", "46", "");
                id number = VELT__INTEGER(VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(laps), i));
                VELTS("stopwatch.bas", "Stopwatch.Refresh", "47", "");
                id time = timeText(VELT_NSMUTABLEARRAY_OBJECT(laps, VELT_SUB(number, VELT_ID(1L))));
                VELT_NSCONTROL_STRINGVALUE(VELT_NSMUTABLEARRAY_OBJECT(lapLabels, i),
                                           VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("Lap "_v, number), "   "_v), time));
            }
        }
    }

    void tick() {
        VELTS("stopwatch.bas", "Stopwatch.Tick", "54", "");
        refresh();
        VELTS("stopwatch.bas", "Stopwatch.Tick", "55", "");
        if (VELT_CBOOL(isRunning)) {
            VELTS("stopwatch.bas", "Stopwatch.Tick", "56", "");
            ticker = VELT__NSTIMER(VELT_NSTIMER_INIT(id(this), "tick", VELT_ID(0.03)));
        }
    }

    void startStop() {
        VELTS("stopwatch.bas", "Stopwatch.StartStop", "61", "");
        VELT_NSTIMER_STOP(ticker);
        VELTS("stopwatch.bas", "Stopwatch.StartStop", "62", "");
        if (VELT_CBOOL(isRunning)) {
            VELTS("stopwatch.bas", "Stopwatch.StartStop", "63", "");
            before = VELT__DOUBLE(elapsed());
            VELTS("stopwatch.bas", "Stopwatch.StartStop", "64", "");
            isRunning = VELT__BOOLEAN(VELT_ID(BOOL{0}));
        } else {
            VELTS("stopwatch.bas", "Stopwatch.StartStop", "66", "");
            startedAt = VELT__DOUBLE(seconds());
            VELTS("stopwatch.bas", "Stopwatch.StartStop", "67", "");
            isRunning = VELT__BOOLEAN(VELT_ID(BOOL{1}));
        }
        VELTS("stopwatch.bas", "Stopwatch.StartStop", "69", "");
        tick();
    }

    void lap() {
        VELTS("stopwatch.bas", "Stopwatch.Lap", "73", "");
        if (VELT_CBOOL(isRunning)) {
            VELTS("stopwatch.bas", "Stopwatch.Lap", "74", "");
            VELT_NSMUTABLEARRAY_APPEND(laps, elapsed());
        }
        VELTS("stopwatch.bas", "Stopwatch.Lap", "76", "");
        refresh();
    }

    void reset() {
        VELTS("stopwatch.bas", "Stopwatch.Reset", "80", "");
        if (VELT_CBOOL(VELT_NOT(isRunning))) {
            VELTS("stopwatch.bas", "Stopwatch.Reset", "81", "");
            before = VELT__DOUBLE(VELT_ID(0.0));
            VELTS("stopwatch.bas", "Stopwatch.Reset", "82", "");
            laps = velt::make<NSMutableArray>();
        }
        VELTS("stopwatch.bas", "Stopwatch.Reset", "84", "");
        refresh();
    }

    id button(id title, id key, const char* action, id x) {
        VELTS("stopwatch.bas", "Stopwatch.Button", "88", "");
        id made = VELT__NSBUTTON(VELT_PUSHBUTTON_INIT(id(this), action));
        VELTS("stopwatch.bas", "Stopwatch.Button", "89", "");
        VELT_NSBUTTON_TITLE(made, title);
        VELTS("stopwatch.bas", "Stopwatch.Button", "90", "");
        VELT_NSBUTTON_KEYEQUIVLANET(made, key);
        VELTS("stopwatch.bas", "Stopwatch.Button", "91", "");
        VELT_NSBUTTON_FRAME(made, VELT_RECT_INIT(nil, "", x, VELT_ID(150L), VELT_ID(96L), VELT_ID(32L)));
        VELTS("stopwatch.bas", "Stopwatch.Button", "92", "");
        VELT_NSWINDOW_APPEND(window, made);
        VELTS("stopwatch.bas", "Stopwatch.Button", "93", "");
        return VELT__NSBUTTON(made);
    }

    id label(id frame, id size) {
        VELTS("stopwatch.bas", "Stopwatch.Label", "97", "");
        id made = VELT__NSTEXTFIELD(VELT_LABEL_INIT(nil, ""));
        VELTS("stopwatch.bas", "Stopwatch.Label", "98", "");
        VELT_NSCONTROL_FONT(made, velt::send(NSFont::entry().object(), "userFixedPitchFontOfSize:", size));
        VELTS("stopwatch.bas", "Stopwatch.Label", "99", "");
        VELT_NSCONTROL_ALIGNMENT(made, VELT_ID(2L));
        VELTS("stopwatch.bas", "Stopwatch.Label", "100", "");
        velt::send(made, "setFrame:", frame);
        VELTS("stopwatch.bas", "Stopwatch.Label", "101", "");
        VELT_NSWINDOW_APPEND(window, made);
        VELTS("stopwatch.bas", "Stopwatch.Label", "102", "");
        return VELT__NSTEXTFIELD(made);
    }

    void open() {
        VELTS("stopwatch.bas", "Stopwatch.Open", "106", "");
        window = VELT__NSWINDOW(VELT_NSWINDOW_INIT(nil, ""));
        VELTS("stopwatch.bas", "Stopwatch.Open", "107", "");
        VELT_NSWINDOW_TITLE(window, "Stopwatch"_v);
        VELTS("stopwatch.bas", "Stopwatch.Open", "108", "");
        VELT_NSWINDOW_STYLEMASK(window, VELT_ID(7L));
        VELTS("stopwatch.bas", "Stopwatch.Open", "109", "");
        VELT_NSWINDOW_FRAME(window, newRect(0, 0, 340, 282));
        VELTS("stopwatch.bas", "Stopwatch.Open", "110", "");
        laps = velt::make<NSMutableArray>();
        VELTS("stopwatch.bas", "Stopwatch.Open", "111", "");
        lapLabels = velt::make<NSMutableArray>();
        VELTS("stopwatch.bas", "Stopwatch.Open", "112", "");
        display = VELT__NSTEXTFIELD(label(newRect(10, 195, 320, 56), VELT_ID(44L)));
        VELTS("stopwatch.bas", "Stopwatch.Open", "113", "");
        startButton = VELT__NSBUTTON(button("Start"_v, " "_v, "startStop", VELT_ID(18L)));
        VELTS("stopwatch.bas", "Stopwatch.Open", "114", "");
        lapButton = VELT__NSBUTTON(button("Lap"_v, "l"_v, "lap", VELT_ID(122L)));
        VELTS("stopwatch.bas", "Stopwatch.Open", "115", "");
        resetButton = VELT__NSBUTTON(button("Reset"_v, "r"_v, "reset", VELT_ID(226L)));
        VELTS("stopwatch.bas", "Stopwatch.Open", "116", "");
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, VELT_ID(4L))); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("stopwatch.bas", "Stopwatch.Open", "117", "");
            id y = VELT_SUB(VELT_ID(112L), VELT_MUL(i, VELT_ID(25L)));
            VELT_NSMUTABLEARRAY_APPEND(
                lapLabels, label(VELT_RECT_INIT(nil, "", VELT_ID(10L), y, VELT_ID(320L), VELT_ID(20L)), VELT_ID(15L)));
        }
        VELTS("stopwatch.bas", "Stopwatch.Open", "119", "");
        refresh();
        VELTS("stopwatch.bas", "Stopwatch.Open", "120", "");
        VELT_NSWINDOW_CENTERANDSHOW(window);
    }

    void workItself() {
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "125", "");
        startStop();
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "126", "");
        pause(VELT_ID(0.4));
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "127", "");
        lap();
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "128", "");
        pause(VELT_ID(0.3));
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "129", "");
        lap();
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "130", "");
        pause(VELT_ID(0.2));
        VELTS("stopwatch.bas", "Stopwatch.WorkItself", "131", "");
        startStop();
    }
};

int program(int, char**) {
    VELTS("stopwatch.bas", "Main", "136", "");
    velt::Ref<Stopwatch> watch = velt::make<Stopwatch>();
    VELTS("stopwatch.bas", "Main", "137", "");
    watch->open();
    VELTS("stopwatch.bas", "Main", "138", "");
    example::shotWhenAsked(watch->window, [watch] { velt::send(watch, "workItself"); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("stopwatch", program, count, arguments); }
