#!/usr/bin/env python3
"""Measures this library beside others and prints a table in Markdown.

Starts every compare_<library> of a build folder for each mode and scenario in turn, round after round, so that whatever
slows the machine down for a while hits all alike, and takes medians over the rounds.
"""
import argparse
import fnmatch
import os
import pathlib
import platform
import statistics
import subprocess
import sys

OURS = "ZrQtPlotWidgets"
BEGIN = "<!-- begin of what compare.py writes -->"
END = "<!-- end of what compare.py writes -->"
TIMEOUT = 120  # seconds for a process
SLOW = 1000.0  # milliseconds a frame: not measured again
SIZES = ("1e3", "1e4", "1e5", "1e6", "1e7")


def numbered(name, *sizes):
    return [f"{name}-{size}" for size in sizes]


def of_data(*sizes):
    names = ("redraw-noise", "redraw-walk", "redraw-sine", "pan", "zoom-out")
    return [scenario for name in names for scenario in numbered(name, *sizes)]


def streams(*sizes):
    return numbered("stream-points", *sizes) + numbered("stream-xy", *sizes)


# What is aimed at: scenarios, our mode, the modes of the others that count, and the largest ratio to the best of them.
# The plain modes of all others draw every point; but for QCustomPlot, which leaves out those beyond the view.
RATIOS = [
    (of_data("1e6", "1e7"), "reduced", "any", 0.5),
    (streams("1e6"), "reduced", "any", 0.8),
    (["100-series-1e4", "antialiased-1e6", "width2-walk-1e5", "width2-noise-1e5", "markers-1e5"], "reduced", "any", 0.8),
    (of_data("1e3", "1e4", "1e5") + streams("1e4", "1e5"), "reduced", "any", 1.0),
    ([name for name in of_data(*SIZES) if not name.startswith("pan")] + streams(*SIZES), "plain", "plain", 1.1),
    (numbered("pan", *SIZES), "plain", "plain, all points", 1.1),
    (["axes-numeric", "axes-date", "start-up"], "plain", "any", 1.0),
]
MEMORY = "memory-1e7"
BYTES = {"plain": 16 * 1.01, "reduced": 16 * 1.10}
GROWTH = ("pan-1e5", "pan-1e7", 2.0)


def read_options():
    here = pathlib.Path(__file__).resolve().parent
    build = here.parents[1] / "build" / "release" / "benchmarks" / "comparison"
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=pathlib.Path, default=build, metavar="FOLDER", help="where the programs are")
    parser.add_argument("--rounds", type=int, default=5, metavar="N", help="5 by default")
    parser.add_argument("--scenario", default="*", metavar="PATTERN", help="only these; * and ? are wildcards")
    parser.add_argument("--quick", action="store_true", help="one round, few frames, up to 100 000 points")
    parser.add_argument("--cpu", action="store_true",
                        help="measure what each process computes, not the time on the wall: for a machine with other work")
    parser.add_argument("--output", type=pathlib.Path, metavar="FILE",
                        help="write into this page, between two marks, instead of printing")
    return parser.parse_args()


def run(program, *arguments):
    """The lines that the program prints, as lists of words; none if it fails or takes too long."""
    try:
        done = subprocess.run([program, *arguments], stdout=subprocess.PIPE, text=True, timeout=TIMEOUT, check=False)
    except subprocess.TimeoutExpired:
        return []
    if done.returncode != 0:
        print(f"{program} {' '.join(arguments)} failed", file=sys.stderr)
        return []
    return [line.split() for line in done.stdout.splitlines()]


def find_cases(folder):
    """Pairs (program, mode), ours first, the scenarios, and the names of the libraries with their versions."""
    programs = sorted(folder.glob("compare_*"), key=lambda path: (not path.name.endswith(OURS.lower()), path.name))
    programs = [path for path in programs if os.access(path, os.X_OK) and path.is_file()]
    if not programs:
        sys.exit(f"no programs in {folder}: build the preset release first")
    cases = []
    scenarios = []
    libraries = []
    for program in programs:
        words = run(program, "--list")
        libraries.append(" ".join(name for kind, name in words if kind in ("library", "version")))
        cases += [(program, name) for kind, name in words if kind == "mode"]
        scenarios = [name for kind, name in words if kind == "scenario"]
    return cases, scenarios, libraries


def is_hopeless(given_up, case, scenario):
    """Whether the case has given up on this scenario, or on the same one with fewer points."""
    stem, mark, _ = scenario.rpartition("-1e")
    return any(
        case == other and (name == scenario or (mark and name.startswith(stem + mark) and name < scenario))
        for other, name in given_up
    )


def measure(cases, scenarios, rounds, arguments):
    """The medians over the rounds as {(library, mode): {scenario: value}}."""
    values = {}
    given_up = set()
    slow = set()
    for turn in range(rounds):
        for scenario in scenarios:
            # Nobody always comes first.
            for index in range(len(cases)):
                program, mode = case = cases[(index + turn) % len(cases)]
                if (case, scenario) in slow or is_hopeless(given_up, case, scenario):
                    continue
                lines = run(program, "--mode", mode, "--scenario", scenario, *arguments)
                if not lines or lines[0][-1] == "skipped":
                    given_up.add((case, scenario))
                    continue
                library, _, _, value = lines[0]
                values.setdefault((library, mode), {}).setdefault(scenario, []).append(float(value))
                if float(value) > SLOW:
                    slow.add((case, scenario))
            print(f"round {turn + 1} of {rounds}: {scenario}", file=sys.stderr)
    return {
        column: {scenario: statistics.median(series) for scenario, series in rows.items()}
        for column, rows in values.items()
    }


def best_other(medians, scenario, kind):
    """The smallest value that another library reaches, and its name; None if there is none."""
    found = [
        (rows[scenario], f"{library} {mode}")
        for (library, mode), rows in medians.items()
        if library != OURS and scenario in rows and (kind == "any" or mode == "plain")
        and not (kind == "plain, all points" and library == "QCustomPlot")
    ]
    return min(found) if found else None


def number(value):
    if value is None:
        return "–"
    return f"{value:.2f}" if value < 10 else f"{value:.1f}" if value < 100 else f"{value:.0f}"


def print_medians(medians, scenarios, out):
    columns = sorted(medians, key=lambda column: column[0] != OURS)
    out.append("| Scenario | " + " | ".join(f"{library} {mode}" for library, mode in columns) + " | plain / best plain"
               " | reduced / best |")
    out.append("|---|" + "---:|" * (len(columns) + 2))
    for scenario in scenarios:
        cells = [number(medians[column].get(scenario)) for column in columns]
        for mode, kind in (("plain", "plain"), ("reduced", "any")):
            own = medians.get((OURS, mode), {}).get(scenario)
            other = best_other(medians, scenario, kind)
            cells.append(f"{own / other[0]:.2f}" if own is not None and other else "–")
        out.append(f"| {scenario} | " + " | ".join(cells) + " |")


def check(name, value, limit, remark=""):
    verdict = "yes" if value <= limit else "**no**"
    return f"| {name} | {value:.2f} | {limit:.2f} | {verdict} | {remark} |"


def print_checks(medians, scenarios, out):
    out += ["| Aim | Measured | At most | Reached | Best of the others |", "|---|---:|---:|---|---|"]
    for names, mode, kind, limit in RATIOS:
        for scenario in names:
            own = medians.get((OURS, mode), {}).get(scenario)
            other = best_other(medians, scenario, kind)
            if scenario in scenarios and own is not None and other:
                out.append(check(f"{scenario}, {mode}", own / other[0], limit, f"{other[1]}, {number(other[0])}"))
    for mode, limit in BYTES.items():
        own = medians.get((OURS, mode), {}).get(MEMORY)
        if own is not None:
            out.append(check(f"bytes a point, {mode}", own, limit))
    few, many, limit = GROWTH
    rows = medians.get((OURS, "reduced"), {})
    if few in rows and many in rows:
        out.append(check(f"{many} to {few}, reduced", rows[many] / rows[few], limit))


def processor():
    try:
        with open("/proc/cpuinfo", encoding="utf-8") as info:
            return next(line.split(":", 1)[1].strip() for line in info if line.startswith("model name"))
    except (OSError, StopIteration):
        return platform.machine()


def report(medians, scenarios, libraries, rounds, clock):
    out = [f"{', '.join(libraries)}. {processor()}, {os.cpu_count()} cores, {platform.system()}; medians of {rounds} "
           f"round{'s' if rounds > 1 else ''}, in milliseconds {clock}a frame (`{MEMORY}`: bytes a point). "
           "–: a frame takes more than ten seconds, or did so with fewer points.", ""]
    print_medians(medians, scenarios, out)
    out.append("")
    print_checks(medians, scenarios, out)
    return "\n".join(out)


def write_between_marks(page, text):
    before, begin, rest = page.read_text(encoding="utf-8").partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        sys.exit(f"{page} has no marks {BEGIN} and {END}")
    page.write_text(f"{before}{BEGIN}\n\n{text}\n\n{END}{after}", encoding="utf-8")


def main():
    options = read_options()
    rounds = 1 if options.quick else options.rounds
    cases, scenarios, libraries = find_cases(options.build)
    scenarios = [name for name in scenarios if fnmatch.fnmatchcase(name, options.scenario)]
    if options.quick:
        scenarios = [name for name in scenarios if not name.endswith(("1e6", "1e7"))]
    arguments = ["--budget", "50" if options.quick else "500"] + (["--cpu"] if options.cpu else [])
    medians = measure(cases, scenarios, rounds, arguments)
    if not medians:
        sys.exit("nothing was measured")
    text = report(medians, scenarios, libraries, rounds, "of processor time " if options.cpu else "")
    if options.output:
        write_between_marks(options.output, text)
    else:
        print(text)


if __name__ == "__main__":
    main()
