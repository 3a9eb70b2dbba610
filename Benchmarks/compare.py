#!/usr/bin/env python3
"""Runs the works of the library and of its peers in turn and prints medians, ratios and whether the goals hold.

compare.py BUILD_FOLDER [ROUNDS]
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))

# work, peer, least ratio of the peer's time to ours
GOALS = [("integer_loop", "lua5.4", 5.0), ("integer_loop", "luajit", 1 / 3.0), ("integer_loop", "plain C++", 1 / 6.0),
         ("mandelbrot", "lua5.4", 2.0), ("fibonacci", "lua5.4", 2.0), ("sieve", "lua5.4", 2.0),
         ("concatenation", "lua5.4", 1.0), ("start", "plain C++", 1 / 5.0)]
STRING_WORKS = ["left", "mid", "instr", "count", "count_ignoring_case", "replace", "replace_ignoring_case", "split", "word_count", "join"]
GOALS += [(work, peer, 1.0) for work in STRING_WORKS for peer in ("lua5.4", "python3", "node")]
PLIST_WORKS = ["plist_write_xml", "plist_write_binary", "plist_read_xml", "plist_read_binary"]
GOALS += [(work, "python3", 5.0) for work in PLIST_WORKS]
ARCHIVE_WORKS = ["archive_write", "archive_read"]
GOALS += [(work, "python3", 5.0) for work in ARCHIVE_WORKS]
GOALS += [(work + "_memory", "python3", 1.0) for work in PLIST_WORKS + ARCHIVE_WORKS]
SCALES = {("python3", "integer_loop"): 10}  # its program makes a tenth of the turns


def lines_of(command):
    output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return [line.split() for line in output.splitlines()]


def note(rows, name, times, checks):
    (work, seconds, check), (_, kilobytes) = rows
    times.setdefault((work, name), []).append(float(seconds))
    times.setdefault((work + "_memory", name), []).append(float(kilobytes) / 1e6)
    checks.setdefault(work, {})[name] = float(check)


def property_lists(name, command, times, checks):
    """Each form and direction in a run of its own, for the sake of its peak memory; reading takes what was written."""
    with tempfile.TemporaryDirectory() as folder:
        for direction in ("write", "read"):
            for form in ("xml", "binary"):
                note(lines_of(command + [direction, form, f"{folder}/{form}"]), name, times, checks)


def keyed_archives(name, command, times, checks):
    with tempfile.TemporaryDirectory() as folder:
        for direction in ("write", "read"):
            note(lines_of(command + [direction, f"{folder}/archive"]), name, times, checks)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    programs = {"VELTRuntime": [f"{folder}/Benchmarks/programs/works"], "plain C++": [f"{folder}/Benchmarks/plain/works"]}
    starts = {"VELTRuntime": [f"{folder}/Benchmarks/programs/empty"], "plain C++": [f"{folder}/Benchmarks/plain/empty"]}
    for peer, extension, nothing in (("lua5.4", "lua", "-e "), ("luajit", "lua", "-e "), ("python3", "py", "-c "), ("node", "js", "-e ")):
        if shutil.which(peer):
            programs[peer] = [peer, f"{HERE}/peers/works.{extension}"]
            starts[peer] = [peer, nothing.strip(), ""]
        else:
            print(f"{peer} is not installed and is left out")
    lists = {"VELTRuntime": [f"{folder}/Benchmarks/programs/property_lists"]}
    if "python3" in programs:
        lists["python3"] = ["python3", f"{HERE}/peers/property_lists.py"]
    archives = {"VELTRuntime": [f"{folder}/Benchmarks/programs/keyed_archives"]}
    if "python3" in programs:
        archives["python3"] = ["python3", f"{HERE}/peers/keyed_archives.py"]
    times, checks = {}, {}
    for turn in range(rounds):
        for name, command in programs.items():
            print(f"round {turn + 1}: {name}", file=sys.stderr)
            for work, seconds, check in lines_of(command):
                scale = SCALES.get((name, work), 1)
                times.setdefault((work, name), []).append(float(seconds) * scale)
                if scale == 1:
                    checks.setdefault(work, {})[name] = float(check)
        for name, command in lists.items():
            property_lists(name, command, times, checks)
        for name, command in archives.items():
            keyed_archives(name, command, times, checks)
        for name, command in starts.items():
            seconds = lines_of([f"{folder}/Benchmarks/plain/start_timer", "40"] + command)[0][0]
            times.setdefault(("start", name), []).append(float(seconds))
    medians = {key: statistics.median(values) for key, values in times.items()}
    for work, results in checks.items():
        if len({round(value / 1e6) if work == "integer_loop" else value for value in results.values()}) > 1:
            print(f"{work}: the results differ: {results}")

    names = list(programs)
    works = list(dict.fromkeys(work for work, _ in medians))
    rows = ["| work | " + " | ".join(names) + " |", "| --- |" + " ---: |" * len(names)]
    for work in works:
        own = medians[(work, "VELTRuntime")]
        cells = [f"{own * 1000:.2f} {'MB' if work.endswith('_memory') else 'ms'}"]
        cells += [f"{medians[(work, n)] / own:.2f}" if (work, n) in medians else "" for n in names[1:]]
        rows.append(f"| {work} | " + " | ".join(cells) + " |")
    print("Ours in milliseconds; of the others how many times as long they take (medians of "
          f"{rounds} alternating rounds).\n")
    print("\n".join(rows) + "\n")
    for work, peer, least in GOALS:
        if (work, peer) in medians:
            ratio = medians[(work, peer)] / medians[(work, "VELTRuntime")]
            print(f"{'holds' if ratio >= least else 'FAILS'}  {work} against {peer}: {ratio:.2f}, at least {least:.2f}")
    missing = medians[("search_missing", "VELTRuntime")]
    print(f"Searching plain text: {20e6 / missing / 1e9:.1f} GB/s of UTF-16")


main()
