#!/usr/bin/env python3
"""Compares windows of the library with the toolkit's own and with its Python bindings.

compare_windows.py BUILD_FOLDER [ROUNDS]
"""
import os
import statistics
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
PYTHON = "/usr/bin/python3"  # the one that the system's packages belong to
STEPS = ("made", "shown", "resized", "closed", "memory")


def output(command):
    environment = dict(os.environ)
    environment.setdefault("QT_QPA_PLATFORM", "offscreen")
    result = subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                            env=environment)
    return {line.split()[0]: [float(x) for x in line.split()[1:]] for line in result.stdout.splitlines()}


def has_pyqt():
    asked = subprocess.run([PYTHON, "-c", "import PyQt6.QtWidgets"], stderr=subprocess.DEVNULL, check=False)
    return asked.returncode == 0


def report(what, value, most, unit=""):
    print(f"{'holds' if value <= most else 'FAILS'}  {what}: {value:.2f}{unit}, at most {most}{unit}")


class Figures:
    """What each program printed in all rounds, by program and name."""

    def __init__(self):
        self.found = {}

    def run(self, program, command, prefix=""):
        for name, values in output(command).items():
            self.found.setdefault((program, prefix + name), []).append(values[0])

    def median(self, program, name):
        return statistics.median(self.found[program, name])

    def ratio(self, name):
        return self.median("VELTRuntime", name) / self.median("Qt", name)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    folder = f"{sys.argv[1]}/Benchmarks/windows"
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    programs = {"VELTRuntime": "velt", "Qt": "qt"}
    with_python = has_pyqt()
    if not with_python:
        print("PyQt is not there and is left out")
    figures = Figures()
    for turn in range(rounds):
        print(f"round {turn + 1}", file=sys.stderr)
        for program, suffix in programs.items():
            for work in ("form", "small", "getter"):
                figures.run(program, [f"{folder}/form_{suffix}", work])
            for work in ("many", "few", "sort", "menu"):
                figures.run(program, [f"{folder}/tables_{suffix}", work], f"{work} ")
        figures.run("VELTRuntime", [f"{folder}/gradients_velt"], "gradient ")
        if with_python:
            figures.run("PyQt", [PYTHON, f"{HERE}/windows/form_pyqt.py"])

    print(f"A form of 1,000 controls; medians of {rounds} alternating rounds, in brackets how many times ours.\n")
    print("| with | made | shown | 20 resizes | closed | memory |\n| --- | ---: | ---: | ---: | ---: | ---: |")
    for program in [*programs, *(["PyQt"] if with_python else [])]:
        cells = []
        for step in STEPS:
            value, own = figures.median(program, step), figures.median("VELTRuntime", step)
            shown = f"{value / 1024:.1f} MB" if step == "memory" else f"{value * 1000:.1f} ms"
            cells.append(f"{shown} ({value / own:.2f})")
        print(f"| {program} | {' | '.join(cells)} |")

    print("\n| with | first window | getter | million rows shown | a frame | memory | sorted | 10,000 items built | measured |")
    print("| --- | ---: | ---: | ---: | ---: | ---: | ---: | ---: | ---: |")
    frames = figures.median("Qt", "many frames")
    for program in programs:
        value = lambda name: figures.median(program, name)
        print(f"| {program} | {value('painted') * 1000:.1f} ms | {value('getter'):.1f} ns "
              f"| {value('many shown') * 1000:.1f} ms | {value('many scrolled') / frames * 1000:.2f} ms "
              f"| {value('many memory') / 1024:.1f} MB | {value('sort sorted') * 1000:.0f} ms "
              f"| {value('menu built') * 1000:.1f} ms | {value('menu measured') * 1000:.1f} ms |")

    print("\n| gradient at | toolkit | linear | chromatic |\n| --- | ---: | ---: | ---: |")
    drawn = lambda name: figures.median("VELTRuntime", f"gradient {name}")
    for angle in (0, 90, 30):
        own = drawn(f"toolkit{angle}")
        cells = [f"{drawn(kind + str(angle)):.2f} ms ({drawn(kind + str(angle)) / own:.2f})"
                 for kind in ("toolkit", "linear", "chromatic")]
        print(f"| {angle} degrees | {' | '.join(cells)} |")

    print()
    total = lambda program: sum(figures.median(program, step) for step in STEPS[:-1])
    own = lambda name: figures.median("VELTRuntime", name)
    report("time of the form against Qt", total("VELTRuntime") / total("Qt"), 1.5)
    report("memory of the form against Qt", figures.ratio("memory"), 1.5)
    report("first painted window against Qt", figures.ratio("painted"), 1.3)
    report("a getter over Qt's", own("getter") - figures.median("Qt", "getter"), 20, " ns")
    half, whole = output([f"{folder}/form_velt", "forms"])["forms"]
    report("memory after 10,000 forms against 5,000", whole / half, 1.01)
    report("a million rows shown", own("many shown") * 1000, 50, " ms")
    report("a frame of scrolling them", own("many scrolled") / frames * 1000, 1000 / 60, " ms")
    report("memory of a million rows over that of a thousand", (own("many memory") - own("few memory")) / 1024, 1,
           " MB")
    report("a million rows sorted by a column", own("sort sorted"), 2, " s")
    report("a menu of 10,000 items built", own("menu built") * 1000, 200, " ms")
    for angle in (0, 90, 30):
        report(f"a linear gradient at {angle} degrees against Qt's", drawn(f"linear{angle}") / drawn(f"toolkit{angle}"), 1.5)
        report(f"a chromatic one at {angle} degrees", drawn(f"chromatic{angle}") / drawn(f"toolkit{angle}"), 3)
    report("a colour of 16 stops", max(drawn("colour0"), drawn("colour1")), 50, " ns")
    report("a background drawn again", max(drawn("square_kept"), drawn("round_kept")), 2, " ms")
    half, whole = output([f"{folder}/alerts_velt"])["resident"]
    report("memory after 1,000 alerts against 500", whole / half, 1.01)


main()
