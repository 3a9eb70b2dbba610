#!/usr/bin/env python3
"""Compares the source editor's view with other editors of long texts.

compare_editor.py BUILD_FOLDER [ROUNDS]
"""
import os
import statistics
import subprocess
import sys
import tempfile

PEERS = {"VELTRuntime": "velt", "QPlainTextEdit": "qt", "QScintilla": "qscintilla", "KSyntaxHighlighting": "ksyntax"}
SHORT, LONG = "100", "100000"


def output(command):
    environment = dict(os.environ)
    environment.setdefault("QT_QPA_PLATFORM", "offscreen")
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          env=environment).stdout


def printed_figures(command):
    return {line.split()[0]: float(line.split()[1]) for line in output(command).splitlines()}


def report(what, value, most, unit=""):
    print(f"{'holds' if value <= most else 'FAILS'}  {what}: {value:.2f}{unit}, at most {most}{unit}")


class Figures:
    """What each program printed in all rounds, by program and name."""

    def __init__(self):
        self.found = {}

    def run(self, program, command, prefix):
        for name, value in printed_figures(command).items():
            self.found.setdefault((program, f"{prefix} {name}"), []).append(value)

    def median(self, program, name):
        return statistics.median(self.found[program, name])

    def milliseconds(self, name, program="VELTRuntime"):
        return self.median(program, name) * 1000


def main():
    if len(sys.argv) < 2 or not os.path.isdir(f"{sys.argv[1]}/Benchmarks/windows"):
        sys.exit(__doc__)
    folder = f"{sys.argv[1]}/Benchmarks/windows"
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    program = lambda name: f"{folder}/editor_{PEERS[name]}"
    there = [name for name in PEERS if os.path.exists(program(name))]
    for name in PEERS:
        if name not in there:
            print(f"{name} is not there and is left out")
    own = program("VELTRuntime")
    figures = Figures()
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
        file.write(output([own, "source", "200000"]))
        file.flush()
        for turn in range(rounds):
            print(f"round {turn + 1}", file=sys.stderr)
            for name in there:
                figures.run(name, [program(name), "keys", LONG], "long")
                figures.run(name, [program(name), "open", file.name], "file")
            figures.run("VELTRuntime", [own, "keys", SHORT], "short")
            for work, lines in (("replace", "200000"), ("shift", LONG), ("format", LONG), ("format", "50000")):
                figures.run("VELTRuntime", [own, work, lines], f"{work} {lines}")
            for work, lines in (("replace", "200000"), ("shift", LONG)):
                figures.run("VELTRuntime", [own, work, lines, "delegate"], f"told {work}")

    print("A source of 100,000 lines (5 MB), a file of 10 MB; in brackets how many times ours.\n")
    print("| with | a key | 99th percentile | 10 MB opened | all coloured | bytes a unit |")
    print("| --- | ---: | ---: | ---: | ---: | ---: |")
    for name in there:
        cells = []
        for what in ("long median", "long p99", "file open", "file coloured"):
            value = figures.milliseconds(what, name)
            cells.append(f"{value:.1f} ms ({value / figures.milliseconds(what):.2f})")
        print(f"| {name} | {' | '.join(cells)} | {figures.median(name, 'file memory'):.1f} |")

    print()
    report("a key in 100,000 lines", figures.milliseconds("long median"), 5, " ms")
    report("its 99th percentile", figures.milliseconds("long p99"), 16, " ms")
    report("against a source of 100 lines",
           figures.median("VELTRuntime", "long median") / figures.median("VELTRuntime", "short median"), 2)
    report("10 MB opened", figures.milliseconds("file open"), 300, " ms")
    report("10 MB coloured", figures.milliseconds("file coloured"), 150, " ms")
    report("100,000 lines formatted", figures.milliseconds(f"format {LONG} done"), 1000, " ms")
    report("against 50,000 lines",
           figures.median("VELTRuntime", f"format {LONG} done") / figures.median("VELTRuntime", "format 50000 done"), 2.2)
    report("100,000 matches replaced in 10 MB", figures.milliseconds("replace 200000 done"), 500, " ms")
    report("100,000 lines shifted", figures.milliseconds(f"shift {LONG} done"), 200, " ms")
    report("bytes a unit of a coloured text", figures.median("VELTRuntime", "file coloured_memory"), 6)
    print(f"While a delegate hears of each: {figures.milliseconds('told replace done'):.0f} ms to replace, "
          f"{figures.milliseconds('told shift done'):.0f} ms to shift")
    for what in ("replace 200000", f"shift {LONG}", f"format {LONG}", "told replace", "told shift"):
        for failure in ("undone_in_several_steps", "not_undone"):
            if ("VELTRuntime", f"{what} {failure}") in figures.found:
                print(f"FAILS  {what}: {failure}")


main()
