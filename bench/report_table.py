"""Rows of the performance report with their targets and verdicts, and Markdown tables of them."""

SHORTEST = 1e-4  # seconds; steps from a shorter time are not judged, because CPU caches dominate them


def number(value):
    return f"{value:,}".replace(",", " ")


def seconds(value):
    if value is None:
        return ""
    if value >= 1:
        return f"{value:.2f} s"
    if value >= 1e-3:
        return f"{value * 1e3:.1f} ms" if value < 0.1 else f"{value * 1e3:.0f} ms"
    return f"{value * 1e6:.1f} µs"


def growth(steps):
    """The growth factor of each step, a pair of times."""
    return " ".join(f"{after / before:.1f}" for before, after in steps)


def memory(kibibytes):
    return f"{kibibytes / 1024:.0f} MiB"


class Row:
    def __init__(self, what, size, time=None, steps=(), baseline="", baseline_time=None, targets=(), shown=None,
                 baseline_steps=()):
        """steps: (seconds before, seconds after) for each step to ten times the number of songs."""
        self.what, self.size, self.time, self.steps = what, size, time, steps
        self.baseline, self.baseline_time, self.targets, self.shown = baseline, baseline_time, targets, shown
        self.baseline_steps = baseline_steps

    def ratio(self):
        return self.time / self.baseline_time if self.time is not None and self.baseline_time else None

    def verdict(self):
        """ok, over, or empty if there is no target."""
        growths = [after / before for before, after in self.steps if before >= SHORTEST]
        values = {"ratio": self.ratio(), "growth": max(growths, default=None), "memory": self.shown, "time": self.time}
        judged = [values[kind] <= limit for kind, limit in self.targets if values[kind] is not None]
        return "" if not judged else "ok" if all(judged) else "over"

    def cells(self):
        formats = {"ratio": "≤ {} ×", "growth": "≤ {} × a step", "memory": "≤ {:.0f} MiB", "time": "≤ {:.0f} ms"}
        scale = {"memory": 1 / 1024, "time": 1000}
        targets = ", ".join(formats[kind].format(limit * scale.get(kind, 1)) for kind, limit in self.targets)
        return [
            self.what,
            number(self.size),
            memory(self.shown) if self.shown is not None else seconds(self.time),
            growth(self.steps),
            f"{self.baseline} {seconds(self.baseline_time)}".strip(),
            growth(self.baseline_steps),
            f"{self.ratio():.2f} ×" if self.ratio() is not None else "",
            targets,
            self.verdict(),
        ]


def table(headings, rows):
    """A Markdown table. Columns whose heading ends in a colon are right-aligned."""
    right = [heading.endswith(":") for heading in headings]
    cells = [[heading.rstrip(":") for heading in headings]] + rows
    widths = [max(len(line[i]) for line in cells) for i in range(len(headings))]

    def line(words):
        aligned = [word.rjust(width) if to_right else word.ljust(width)
                   for word, width, to_right in zip(words, widths, right)]
        return "| " + " | ".join(aligned) + " |"

    rule = "|" + "|".join("-" * (w + 1) + (":" if to_right else "-") for w, to_right in zip(widths, right)) + "|"
    return "\n".join([line(cells[0]), rule] + [line(words) for words in rows])
