#!/usr/bin/env python3
"""Compares windows of the library with the toolkit's own and with its Python bindings.

compare_windows.py BUILD_FOLDER [ROUNDS]
"""
import importlib.util
import os
import statistics
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))


def output(command):
    environment = dict(os.environ)
    environment.setdefault("QT_QPA_PLATFORM", "offscreen")
    result = subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                            env=environment)
    return {line.split()[0]: [float(x) for x in line.split()[1:]] for line in result.stdout.splitlines()}


def main():
    folder = f"{sys.argv[1]}/Benchmarks/windows"
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 7
    programs = {"VELTRuntime": [f"{folder}/form_velt"], "Qt": [f"{folder}/form_qt"]}
    if importlib.util.find_spec("PyQt6"):
        programs["PyQt"] = [sys.executable, f"{HERE}/windows/form_pyqt.py"]
    else:
        print("PyQt is not there and is left out")
    steps = ("made", "shown", "resized", "closed", "memory")
    found = {}
    for turn in range(rounds):
        for name, command in programs.items():
            print(f"round {turn + 1}: {name}", file=sys.stderr)
            values = output(command + ["form"] if name != "PyQt" else command)
            for step in steps:
                found.setdefault((name, step), []).append(values[step][0])
            if name == "PyQt":
                continue
            found.setdefault((name, "first window"), []).append(output(command + ["small"])["painted"][0])
            found.setdefault((name, "getter"), []).append(output(command + ["getter"])["getter"][0])
    medians = {key: statistics.median(values) for key, values in found.items()}

    print(f"A form of 1,000 controls; medians of {rounds} alternating rounds, in brackets how many times ours.\n")
    print("| with | made | shown | 20 resizes | closed | memory |\n| --- | ---: | ---: | ---: | ---: | ---: |")
    for name in programs:
        cells = []
        for step in steps:
            value, own = medians[(name, step)], medians[("VELTRuntime", step)]
            shown = f"{value / 1024:.1f} MB" if step == "memory" else f"{value * 1000:.1f} ms"
            cells.append(f"{shown} ({value / own:.2f})")
        print(f"| {name} | {' | '.join(cells)} |")
    total = lambda name: sum(medians[(name, step)] for step in steps[:-1])
    report = lambda what, value, most: print(f"{'holds' if value <= most else 'FAILS'}  {what}: {value:.2f}, at most {most}")
    print()
    report("time of the form against Qt", total("VELTRuntime") / total("Qt"), 1.5)
    report("memory of the form against Qt", medians[("VELTRuntime", "memory")] / medians[("Qt", "memory")], 1.5)
    report("first painted window against Qt", medians[("VELTRuntime", "first window")] / medians[("Qt", "first window")], 1.3)
    report("a getter over Qt's, in ns", medians[("VELTRuntime", "getter")] - medians[("Qt", "getter")], 20)
    early, late = output([f"{folder}/form_velt", "forms"])["forms"]
    report("memory after 10,000 forms against 1,000", late / early, 1.02)


main()
