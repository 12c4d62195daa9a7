"""The rows of the table: what was measured, our figure, the peer's, their ratio, the aim, and whether it held."""
from collections import namedtuple

Row = namedtuple("Row", "measured ours peer ratio aim held")
HEAD = Row("measured", "ours", "peer", "ratio", "aim", "")
WIDTHS = (74, 9, 9, 9, 11, 8)
SCALES = {"ns": [(1e9, "s"), (1e6, "ms"), (1e3, "µs"), (0, "ns")], "kB": [(10240, "MB"), (0, "kB")], "": [(0, "")]}
MULTIPLES = {"s": 1e9, "ms": 1e6, "µs": 1e3, "MB": 1024}


def figure(value, unit):
    """Three digits of it, in the unit that suits it; times are nanoseconds."""
    scaled = next(name for least, name in SCALES[unit] if abs(value) >= least)
    value /= MULTIPLES.get(scaled, 1)
    digits = 0 if not value or abs(value) >= 99.5 or value == int(value) and unit else 1 if abs(value) >= 9.95 else 2
    return f"{value:.{digits}f} {scaled}".rstrip()


def verdict(value, most, least=None):
    if most is None and least is None:
        return ""
    return "held" if (least is None or value >= least) and (most is None or value <= most) else "MISSED"


def ratio(measured, ours, peer, most=None, unit="ns"):
    """Ours beside a peer's, which it may exceed so many times."""
    aim = "" if most is None else f"≤ {most:.3g}"
    value = ours / peer
    return Row(measured, figure(ours, unit), figure(peer, unit), f"{value:.3f}" if value < 10 else f"{value:.0f}", aim,
               verdict(value, most))


def added(measured, ours, peer, difference, most=None, unit="ns"):
    """What ours has more than a peer."""
    def signed(value):
        return ("+" if value >= 0 else "") + figure(value, unit)

    aim = "" if most is None else f"≤ {signed(most)}"
    return Row(measured, figure(ours, unit), figure(peer, unit), signed(difference), aim, verdict(difference, most))


def single(measured, ours, most=None, unit="ns", least=None, peer=None):
    """A figure of ours with a limit of its own; a peer's is for comparison."""
    aim = f"≤ {figure(most, unit)}" if most is not None else f"≥ {figure(least, unit)}" if least is not None else ""
    return Row(measured, figure(ours, unit), "" if peer is None else figure(peer, unit), "", aim,
               verdict(ours, most, least))


def ratios(times, table):
    """A row for each of the table's: measured, ours, peer, the most that the ratio may be."""
    return [ratio(measured, times[ours], times[peer], most) for measured, ours, peer, most in table]


def line(row):
    return "| " + " | ".join(cell.ljust(width) for cell, width in zip(row, WIDTHS)) + " |"


def head():
    return line(HEAD) + "\n" + "|".join(["", *("-" * (width + 2) for width in WIDTHS), ""])


def summary(rows):
    verdicts = [row.held for row in rows if row.held]
    missed = verdicts.count("MISSED")
    return f"{len(verdicts)} aims: {len(verdicts) - missed} held, {missed} missed"
