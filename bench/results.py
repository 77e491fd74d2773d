#!/usr/bin/env python3
"""Writes the benchmark record (Markdown, on standard output) from the raw results that
bench/run.sh leaves in one folder: Google Benchmark's JSON files, the start-up rounds of
bench/startup.sh and the idle figures of bench/idle.sh. Every figure comes from those files;
a measurement that is missing shows as "not measured".

Usage: bench/results.py RESULTS_FOLDER > bench/results.md
"""
import datetime
import json
import os
import statistics
import subprocess
import sys

UNIT_MS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}
MISSING = "not measured"


def load(folder, name):
    try:
        with open(os.path.join(folder, name + ".json"), encoding="utf-8") as f:
            return json.load(f)
    except (OSError, ValueError):
        return None


def base(name):
    """A benchmark's name without what its options add ("/iterations:3", "/manual_time")."""
    return "/".join(part for part in name.split("/")
                    if ":" not in part and part not in ("manual_time", "process_time",
                                                         "real_time"))


def runs(doc, name):
    """The measured runs (no aggregates) of the benchmark `name`."""
    if not doc:
        return []
    return [b for b in doc.get("benchmarks", [])
            if b.get("run_type", "iteration") == "iteration"
            and base(b.get("run_name", b.get("name", ""))) == name
            and not b.get("error_occurred")]


def median_of(doc, name, key):
    """The median over the repetitions of a counter, or of a time in milliseconds."""
    values = []
    for run in runs(doc, name):
        if key in ("real_time", "cpu_time"):
            values.append(run[key] * UNIT_MS[run.get("time_unit", "ns")])
        elif key in run:
            values.append(run[key])
    return statistics.median(values) if values else None


def fmt(value, digits=2, unit=""):
    if value is None:
        return MISSING
    return f"{value:,.{digits}f}{unit}"


def ratio(a, b):
    if a is None or b is None:
        return MISSING
    if b == 0:
        return "n/a (reference 0)"
    return f"{a / b:.2f}x"


class Targets:
    """Every target judged, so that the missed ones can be listed at the end."""

    def __init__(self):
        self.missed = []

    def judge(self, what, value, limit, text, inclusive=True, unit=""):
        if value is None:
            return f"{text}: {MISSING}"
        met = value <= limit if inclusive else value < limit
        if not met:
            self.missed.append(f"{what}: {text}, measured {value:.2f}{unit}")
        return f"{text}: {'met' if met else '**missed**'}"


def table(header, rows):
    lines = ["| " + " | ".join(header) + " |", "|" + "---|" * len(header)]
    lines += ["| " + " | ".join(str(c) for c in row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def machine(docs):
    context = next((d["context"] for d in docs if d and "context" in d), {})
    cpu = MISSING
    try:
        with open("/proc/cpuinfo", encoding="utf-8") as f:
            cpu = next(line.split(":", 1)[1].strip() for line in f if line.startswith("model name"))
    except (OSError, StopIteration):
        pass
    try:
        qt = subprocess.run(["qtpaths6", "--qt-version"], capture_output=True, text=True,
                            check=True).stdout.strip()
    except (OSError, subprocess.CalledProcessError):
        qt = MISSING
    load_avg = context.get("load_avg")
    rows = [
        ["Date", context.get("date", datetime.datetime.now().isoformat(timespec="seconds"))],
        ["Cores", context.get("num_cpus", os.cpu_count())],
        ["CPU", cpu + (f", {context['mhz_per_cpu']} MHz" if "mhz_per_cpu" in context else "")],
        ["Qt", qt],
        ["Load average as the benchmarks began",
         ", ".join(f"{v:.2f}" for v in load_avg) if load_avg else MISSING],
    ]
    return table(["Machine", ""], rows)


def startup(folder, targets):
    def rounds(condition, program):
        """Medians of time, resident, proportional and private dirty memory, and the count."""
        try:
            with open(os.path.join(folder, f"startup-{condition}-{program}.txt"),
                      encoding="utf-8") as f:
                lines = [line.split() for line in f if line.strip()]
        except OSError:
            return [None] * 4 + [0]
        return [statistics.median(float(p[i]) for p in lines) if all(len(p) > i for p in lines)
                else None for i in range(4)] + [len(lines)]

    rows = []
    for condition, label in (("plain", "none"), ("compositor", "xcompmgr")):
        figures = {p: rounds(condition, p) for p in ("qlvcallt", "gsimplecal", "yad")}
        ref = figures["gsimplecal"]
        yad = figures["yad"]
        for program, (ms, kib, pss, dirty, count) in figures.items():
            target = ""
            if program == "qlvcallt":
                a = ms / ref[0] if ms and ref[0] else None
                b = kib / ref[1] if kib and ref[1] else None
                target = targets.judge(f"start-up time ({label})", a, 0.9,
                                       "time <= 0.90x gsimplecal", unit="x") + "; " + targets.judge(
                    f"start-up memory ({label})", b, 1.15, "memory <= 1.15x gsimplecal", unit="x")
            rows.append([label, program, count, fmt(ms, 1), fmt(kib, 0), fmt(pss, 0),
                         fmt(dirty, 0), ratio(ms, ref[0]), ratio(kib, ref[1]), ratio(pss, ref[2]),
                         ratio(ms, yad[0]), ratio(kib, yad[1]), target])
    return table(["Compositor", "Program", "Rounds", "Start-up ms", "Resident KiB",
                  "Proportional KiB", "Private dirty KiB", "Time / gsimplecal",
                  "Resident / gsimplecal", "Proportional / gsimplecal", "Time / yad",
                  "Resident / yad", "Target"], rows)


def idle(folder, targets):
    figures = {}
    try:
        with open(os.path.join(folder, "idle.tsv"), encoding="utf-8") as f:
            for line in f:
                program, pointer, cpu, wakeups = line.rstrip("\n").split("\t")
                figures[(program, pointer)] = (float(cpu), float(wakeups))
    except OSError:
        return f"Idle: {MISSING}.\n"
    rows = []
    for pointer, label in (("away", "away from both windows"),
                           ("over calendar", "resting on a day cell of the calendar")):
        ref_cpu, ref_wake = figures.get(("gsimplecal", pointer), (None, None))
        for program in ("qlvcallt", "gsimplecal"):
            cpu, wake = figures.get((program, pointer), (None, None))
            target = ""
            if program == "qlvcallt" and pointer == "away":
                target = targets.judge("idle CPU, pointer away", cpu, 0.25, "<= 0.25 % of one core",
                                       unit=" %")
            rows.append([label, program, fmt(cpu, 3), fmt(wake, 1), ratio(cpu, ref_cpu),
                         ratio(wake, ref_wake), target])
    return table(["Pointer", "Program", "CPU % of one core", "Wake-ups/s", "CPU / gsimplecal",
                  "Wake-ups / gsimplecal", "Target"], rows)


def month_step(doc, targets):
    name = "NextMonthClickWithRepaint"
    steps = median_of(doc, name, "steps")
    median = median_of(doc, name, "median_ms")
    rows = [
        ["Click and full repaint, median", fmt(median, 3, " ms"),
         targets.judge("month step median", median, 1.0, "< 1 ms", inclusive=False,
                       unit=" ms")],
        ["Click and full repaint, 99th percentile", fmt(median_of(doc, name, "p99_ms"), 3, " ms"), ""],
        ["Click and full repaint, slowest", fmt(median_of(doc, name, "max_ms"), 3, " ms"), ""],
        ["Click alone, median", fmt(median_of(doc, name, "click_median_ms"), 3, " ms"), ""],
    ]
    return (f"{fmt(steps, 0)} month steps (three passes from January 1900 to December 2099), "
            "each a click on the next-month button and a grab of the whole window (offscreen "
            "platform).\n\n"
            + table(["Month step", "Time", "Target"], rows))


def preview(doc, about, targets):
    name = "PreviewEverySchemeAndPicture"
    p99 = median_of(doc, name, "repainted_p99_ms")
    ref_median = median_of(doc, "RepaintBothUnchanged", "repainted_median_ms")
    ref_p99 = median_of(doc, "RepaintBothUnchanged", "repainted_p99_ms")
    median = median_of(doc, name, "repainted_median_ms")
    rows = [
        ["A choice to both windows repainted", fmt(median, 2), fmt(p99, 2),
         ratio(median, ref_median), ratio(p99, ref_p99),
         targets.judge("live preview p99", p99, 8.0, "p99 < 8 ms", inclusive=False,
                       unit=" ms")],
        ["The same, with the new picture in place",
         fmt(median_of(doc, name, "picture_in_place_median_ms"), 2),
         fmt(median_of(doc, name, "picture_in_place_p99_ms"), 2), "", "", ""],
        ["Reference: both windows repainted, nothing changed", fmt(ref_median, 2),
         fmt(ref_p99, 2), "1.00x", "1.00x", ""],
        ["F9 to the Settings window painted",
         fmt(median_of(doc, "F9ToSettingsPainted", "opened_median_ms"), 2),
         fmt(median_of(doc, "F9ToSettingsPainted", "opened_p99_ms"), 2), "", "", ""],
        ["F1 to the About window painted (X server)",
         fmt(median_of(about, "F1ToAboutPainted", "median_ms"), 2),
         "", "", "", ""],
    ]
    choices = median_of(doc, name, "choices")
    return (f"{fmt(choices, 0)} choices per round (every picture, and every scheme over it), "
            "median of three rounds interleaved with the reference (offscreen platform).\n\n"
            + table(["Live preview", "Median ms", "p99 ms", "Median / reference",
                     "p99 / reference", "Target"], rows))


def tip_layout(doc, targets):
    def us(name):
        ms = median_of(doc, name, "real_time")
        return None if ms is None else ms * 1000

    measure = us("TipLayout/LongestTip/Measure")
    rows = [
        ["Longest tip, measuring pass (the layout)", fmt(measure, 1, " µs"),
         targets.judge("tooltip layout", measure, 50.0, "< 50 µs", inclusive=False,
                       unit=" µs")],
        ["Longest tip, drawing and measuring (a whole load)",
         fmt(us("TipLayout/LongestTip/DrawAndMeasure"), 1, " µs"), ""],
        ["1 MB of mark-up, drawing and measuring",
         fmt(median_of(doc, "TipLayout/OneMegabyte/DrawAndMeasure", "real_time"), 1, " ms"), ""],
    ]
    return table(["Tooltip layout (system fonts)", "Time", "Target"], rows)


def pictures(doc, targets):
    rows = []
    names = []
    for run in doc.get("benchmarks", []) if doc else []:
        parts = base(run.get("name", "")).split("/")
        if len(parts) == 3 and parts[0] == "Picture" and parts[1] not in names:
            names.append(parts[1])
    for picture in names:
        cells = {(kind, scale): median_of(doc, f"{kind}/{picture}/{scale}", "real_time")
                 for kind in ("Picture", "Toned") for scale in ("1x", "2x")}
        verdicts = [targets.judge(f"{picture} {'painted' if kind == 'Picture' else 'toned'} at 1x",
                                  cells[(kind, "1x")], 3.0, f"{label} < 3 ms", inclusive=False,
                                  unit=" ms")
                    for kind, label in (("Picture", "painted"), ("Toned", "toned"))]
        rows.append([picture] + [fmt(cells[(k, s)], 2) for k in ("Picture", "Toned")
                                 for s in ("1x", "2x")] + ["; ".join(verdicts)])
    if not rows:
        return f"Pictures: {MISSING}.\n"
    return ("400 x 273 logical pixels; wall time (Qt's raster engine uses its thread pool).\n\n"
            + table(["Picture", "Painted 1x ms", "Painted 2x ms", "Toned 1x ms", "Toned 2x ms",
                     "Target (1x)"], rows))


def reader(doc):
    rows = []
    for name, label, digits, unit in (
            ("BM_ReadThirteenLines", "13 lines", 1, " µs"),
            ("BM_ReadRandomJunk100MB", "100 MB of random bytes", 1, " ms"),
            ("BM_ReadEmptyLines100MB", "100 MB of empty lines", 1, " ms"),
            ("BM_ReadRandomJunk1GB", "1 GB of random bytes", 1, " ms"),
            ("BM_ReadEmptyLines1GB", "1 GB of empty lines", 1, " ms")):
        if not runs(doc, name) and "1GB" in name:
            continue
        ms = median_of(doc, name, "real_time")
        value = ms * 1000 if ms is not None and unit == " µs" else ms
        rate = median_of(doc, name, "bytes_per_second")
        rows.append([label, fmt(value, digits, unit), fmt(rate and rate / 1e6, 1, " MB/s")])
    return table(["Settings reader", "Time", "Throughput"], rows)


def drag(doc):
    rows = []
    for case, label in (("WindowAndShadow", "window and shadow"), ("WindowOnly", "window alone")):
        name = f"dragMoves/{case}"
        us = [median_of(doc, name, key) for key in ("median_ms", "p99_ms")]
        rows.append([label] + [fmt(v and v * 1000, 1, " µs") for v in us])
    return ("One pointer move of a drag, 10 000 moves (offscreen platform).\n\n"
            + table(["Drag step", "Median", "p99"], rows))


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    docs = {name: load(folder, name) for name in (
        "settings_read", "drag", "tip_layout", "picture", "month_step", "settings_window",
        "about_open")}
    targets = Targets()
    sections = [
        ("Start-up to a visible window, and memory",
         "Time from exec to the first window mapped, and memory one second later: resident "
         "(the target's measure), proportional (shared library pages divided among the "
         "processes that map them) and private dirty; the three programs interleaved round by "
         "round under one Xvfb and a session bus (dbus-run-session), one warm-up round first "
         "(bench/startup.sh). Medians.\n\n"
         + startup(folder, targets)),
        ("Idle, 60 s", "Both programs side by side under one Xvfb and a session bus; CPU time "
         "and context switches of every thread over 60 s (bench/idle.sh).\n\n"
         + idle(folder, targets)),
        ("Month step", month_step(docs["month_step"], targets)),
        ("Live preview (Settings window)", preview(docs["settings_window"], docs["about_open"],
                                                   targets)),
        ("Tooltip layout", tip_layout(docs["tip_layout"], targets)),
        ("Picture painting", pictures(docs["picture"], targets)),
        ("Settings reader", reader(docs["settings_read"])),
        ("Drag step", drag(docs["drag"])),
    ]
    out = ["# Benchmark record", "",
           "Written by `make bench` (bench/run.sh measures, bench/results.py writes this file "
           "from the measured output). Medians unless a column says otherwise.", "",
           machine(docs.values())]
    for title, body in sections:
        out += [f"## {title}", "", body]
    out += ["## Targets missed", ""]
    out += [f"- {line}" for line in targets.missed] or ["None."]
    print("\n".join(out))


if __name__ == "__main__":
    main()
