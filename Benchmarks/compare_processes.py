#!/usr/bin/env python3
"""Compares child processes of the library with those of its peers: launches a second and bytes a second.

compare_processes.py BUILD_FOLDER [ROUNDS [LAUNCHES [BYTES [MEGABYTES]]]]
"""
import os
import shutil
import statistics
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    launches, size, megabytes = (sys.argv[3:] + ["300", str(1 << 30), "4096"][len(sys.argv[3:]):])[:3]
    programs = {"VELTRuntime": [f"{folder}/Benchmarks/programs/processes", launches, size, megabytes]}
    python, node = shutil.which("python3"), shutil.which("node")
    if python:
        programs["subprocess"] = [python, f"{HERE}/peers/processes.py", "subprocess", launches, size]
        programs["asyncio"] = [python, f"{HERE}/peers/processes.py", "asyncio", launches, size]
    if node:
        programs["node"] = [node, f"{HERE}/peers/processes.js", launches, size]
    if os.path.exists(f"{folder}/Benchmarks/qt/processes"):
        programs["QProcess"] = [f"{folder}/Benchmarks/qt/processes", launches, size]
    for peer in ("subprocess", "asyncio", "node", "QProcess"):
        if peer not in programs:
            print(f"{peer} is not there and is left out")

    times = {}
    for turn in range(rounds):
        for name, command in programs.items():
            print(f"round {turn + 1}: {name}", file=sys.stderr)
            output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
            for work, seconds, check in (line.split() for line in output.splitlines()):
                times.setdefault((work, name), []).append(float(seconds))
                if work == "output" and int(check) != int(size):
                    print(f"{name}: {check} bytes instead of {size}")
    medians = {key: statistics.median(values) for key, values in times.items()}

    print(f"Medians of {rounds} alternating rounds; in brackets, how many times as long as ours.\n")
    print("| with | launches a second | megabytes a second |\n| --- | ---: | ---: |")
    for name in programs:
        launch, output = medians[("launches", name)], medians[("output", name)]
        print(f"| {name} | {int(launches) / launch:.0f} ({launch / medians[('launches', 'VELTRuntime')]:.2f}) | "
              f"{int(size) / output / 1e6:.0f} ({output / medians[('output', 'VELTRuntime')]:.2f}) |")
    own = lambda work: medians.get((work, "VELTRuntime"))
    print(f"\nSynchronous: {int(launches) / own('synchronous_launches'):.0f} launches a second. "
          f"Twenty idle tasks use {own('idle_second') * 1000:.2f} ms of processor time a second.")
    if own("launches_of_a_large_parent"):
        print(f"A parent that holds {megabytes} MB takes {own('launches_of_a_large_parent') / own('launches'):.2f} times "
              "as long to launch as a small one.")
    for peer in list(programs)[1:]:
        for work in ("launches", "output"):
            ratio = medians[(work, peer)] / own(work)
            print(f"{'holds' if ratio >= 1 else 'FAILS'}  {work} against {peer}: {ratio:.2f}, at least 1.00")


main()
