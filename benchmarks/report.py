"""Makes a table of what the program `ratios` measured: report.py RATIOS.json [--keep FOLDER]

With --keep, the figures also go to FOLDER/results.json and, as a plot of the time of one element
against their number, to FOLDER/results.svg."""

import argparse
import json
import math
import re
from pathlib import Path
from statistics import median

# The largest ratio that is wanted, by the name of the figure; for those after "at least" the
# smallest.
GOALS = [
    (r"floor/.*/(1|10)$", 1.5),
    (r"floor/", 1.10),
    (r"JSON instead/", ("at least", 20)),
    (r"memcpy/", 2.0),
    (r"holder/", 1.0),
    (r"access/", 1.5),
    (r"growth/", 1.25),
]

SIZES = (1, 10, 100, 1_000, 10_000, 100_000)


def figures_of(raw):
    """The figures in the order in which they were measured, each from all of its repetitions."""
    repetitions = {}
    for run in raw["benchmarks"]:
        if run["run_type"] == "iteration":
            name = re.sub(r"/min_time:.*", "", run["name"])
            repetitions.setdefault(name, []).append(run)
    return [figure_of(name, runs) for name, runs in repetitions.items()]


def figure_of(name, runs):
    ratios = sorted(run["ratio"] for run in runs)
    goal = next((goal for pattern, goal in GOALS if re.match(pattern, name)), None)
    return {
        "name": name,
        "ratio": median(ratios),
        "least": ratios[0],
        "most": ratios[-1],
        "pairs": len(ratios),
        "ns": median(run["ns"] for run in runs),
        "referenceNs": median(run["referenceNs"] for run in runs),
        "goal": goal,
        "met": is_met(median(ratios), goal),
    }


def is_met(ratio, goal):
    if goal is None:
        return None
    if isinstance(goal, tuple):
        return ratio >= goal[1]
    return ratio <= goal


def goal_text(figure):
    goal = figure["goal"]
    if goal is None:
        return ""
    wanted = f">= {goal[1]}" if isinstance(goal, tuple) else f"<= {goal:.2f}"
    return wanted if figure["met"] else f"{wanted}  not met"


def print_table(figures):
    width = max(len(figure["name"]) for figure in figures)
    print(f"{'':{width}}  {'ns':>10} {'against':>10}   ratio  least   most  goal")
    for figure in figures:
        print(
            f"{figure['name']:{width}}  {figure['ns']:10.1f} {figure['referenceNs']:10.1f} "
            f"{figure['ratio']:7.2f} {figure['least']:6.2f} {figure['most']:6.2f}  "
            f"{goal_text(figure)}".rstrip()
        )
    wanted = [figure for figure in figures if figure["met"] is not None]
    print(f"\n{sum(figure['met'] for figure in wanted)} of {len(wanted)} goals met; "
          "a ratio is the median of its pairs, ns are those of one element.")


class Plot:
    """Small plots side by side and one below another, both axes logarithmic."""

    WIDTH, HEIGHT, GAP_X, GAP_Y, TOP = 230, 150, 66, 62, 74
    COLOURS = {"ns": "#c2410c", "referenceNs": "#64748b"}

    def __init__(self, columns, rows):
        self.columns, self.rows = columns, rows
        self.width = self.GAP_X + columns * (self.WIDTH + self.GAP_X)
        self.height = self.TOP + rows * (self.HEIGHT + self.GAP_Y)
        self.parts = []

    def text(self, x, y, content, size=11, anchor="middle", colour="#334155"):
        self.parts.append(f'<text x="{x:.1f}" y="{y:.1f}" font-size="{size}" '
                          f'text-anchor="{anchor}" fill="{colour}">{content}</text>')

    def line(self, points, colour, width=1.0, dash=""):
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.parts.append(f'<polyline points="{path}" fill="none" stroke="{colour}" '
                          f'stroke-width="{width}"{dash and f" stroke-dasharray={dash!r}"}/>')

    def draw(self, column, row, title, series):
        left = self.GAP_X + column * (self.WIDTH + self.GAP_X)
        top = self.TOP + row * (self.HEIGHT + self.GAP_Y)
        times = [time for points in series.values() for _, time in points]
        low = math.floor(math.log10(min(times)))
        high = max(low + 1, math.ceil(math.log10(max(times))))
        span = math.log10(SIZES[-1])

        def at(size, time):
            return (left + self.WIDTH * math.log10(size) / span,
                    top + self.HEIGHT * (high - math.log10(time)) / (high - low))

        self.text(left + self.WIDTH / 2, top - 8, title, 12, colour="#0f172a")
        for size in SIZES:
            self.line([at(size, 10.0**low), at(size, 10.0**high)], "#e2e8f0")
            self.text(at(size, 10.0**low)[0], top + self.HEIGHT + 15, f"{size:,}", 9)
        for power in range(low, high + 1):
            self.line([at(1, 10.0**power), at(SIZES[-1], 10.0**power)], "#e2e8f0")
            self.text(left - 6, at(1, 10.0**power)[1] + 4, time_text(10.0**power), 9, "end")
        for key, points in series.items():
            dash = "5,4" if key == "referenceNs" else ""
            self.line([at(size, time) for size, time in points], self.COLOURS[key], 2, dash)

    def svg(self):
        self.text(self.GAP_X, 26, "Time of one element against their number", 15, "start", "#0f172a")
        self.text(self.GAP_X, 46, "plugin", 12, "start", self.COLOURS["ns"])
        self.text(self.GAP_X + 52, 46, "the host's calls and plain containers alone (dashed)", 12,
                  "start", self.COLOURS["referenceNs"])
        return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {self.width} {self.height}" '
                'font-family="system-ui, sans-serif">\n'
                f'<rect width="{self.width}" height="{self.height}" fill="#ffffff"/>\n'
                + "\n".join(self.parts) + "\n</svg>\n")


def time_text(ns):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if ns >= size:
            return f"{ns / size:.0f} {unit}"
    return f"{ns:.0f} ns"


def plot(figures):
    operations = ["read", "in place", "growing", "shrinking"]
    curves = {}
    for figure in figures:
        if found := re.match(r"floor/(.*)/([a-z ]+)/(\d+)$", figure["name"]):
            held, operation, size = found[1], found[2], int(found[3])
            series = curves.setdefault(held, {}).setdefault(operation, {"referenceNs": [], "ns": []})
            for key, points in series.items():
                points.append((size, figure[key]))
    many = {held: by for held, by in curves.items() if len(by["read"]["ns"]) > 1}
    picture = Plot(len(operations), len(many))
    for row, (held, by_operation) in enumerate(many.items()):
        for column, operation in enumerate(operations):
            title = f"{held.replace('Rigging::Module::', '').replace('Core::Transform::', '')}, "
            title = title.replace("<", "&lt;").replace(">", "&gt;") + operation
            if operation in by_operation:
                picture.draw(column, row, title, by_operation[operation])
    return picture.svg()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("ratios", type=Path)
    parser.add_argument("--keep", type=Path)
    arguments = parser.parse_args()
    figures = figures_of(json.loads(arguments.ratios.read_text()))
    print_table(figures)
    if arguments.keep:
        kept = json.dumps({"figures": figures}, indent=1) + "\n"
        (arguments.keep / "results.json").write_text(kept)
        (arguments.keep / "results.svg").write_text(plot(figures))


if __name__ == "__main__":
    main()
