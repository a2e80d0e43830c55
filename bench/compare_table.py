"""Figures as a table for a README."""

import statistics


def figure(value, unit):
    if unit == "B":
        return f"{value / 2**20:.0f} MiB"
    if value < 0.01:
        return f"{value * 1000:.1f} ms"
    if value < 1:
        return f"{value * 1000:.0f} ms"
    return f"{value:.1f} s"


def _numbers(values):
    return [value for value in values if not isinstance(value, str)]


def cell(values, unit):
    """The median and the spread; why there is none, if there is none."""
    numbers = _numbers(values)
    reasons = [value for value in values if isinstance(value, str)]
    if not numbers:
        return reasons[0] if reasons else ""
    text = figure(statistics.median(numbers), unit)
    if len(numbers) > 1:
        text += f" ({figure(min(numbers), unit)} to {figure(max(numbers), unit)})"
    if reasons:
        text += f"; {len(reasons)} of {len(values)}: {reasons[0]}"
    return text


def ratio(values, others):
    ours, theirs = _numbers(values), _numbers(others)
    if not ours or not theirs:
        return ""
    value = statistics.median(ours) / statistics.median(theirs)
    return f"{value:.2g}" if value < 100 else f"{value:.0f}"


class Table:
    """A line for each work and peer, in the order of the rows."""

    def __init__(self, with_before):
        titles = ["Work", "ZOLT"] + ["Before", "ZOLT/before"] * with_before
        self._with_before = with_before
        self._lines = [titles + ["Beside", "Its figure", "ZOLT/its"]]

    def add(self, text, unit, ours, before, peers):
        """`peers` are pairs of a name and its values."""
        line = [text, cell(ours, unit)]
        if self._with_before:
            line += [cell(before, unit), ratio(ours, before)]
        for name, values in peers or [("none", [])]:
            self._lines.append(line + [name, cell(values, unit), ratio(ours, values)])
            line = [""] * len(line)

    def __str__(self):
        lines = [self._lines[0], ["---"] * len(self._lines[0])] + self._lines[1:]
        return "\n".join("| " + " | ".join(line) + " |" for line in lines)
