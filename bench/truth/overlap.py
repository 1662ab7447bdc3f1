"""Boxes in fractions of a page, as x, y, width and height."""

Box = tuple[float, float, float, float]


def area(boxes: list[Box]) -> float:
    """Of the union of all."""
    xs = sorted({edge for x, _, w, _ in boxes for edge in (x, x + w)})
    total = 0.0
    for left, right in zip(xs, xs[1:]):
        middle = (left + right) / 2
        reach = 0.0
        for y, end in sorted((y, y + h) for x, y, w, h in boxes if x < middle < x + w):
            total += (right - left) * max(0.0, end - max(y, reach))
            reach = max(reach, end)
    return total


def common(one: list[Box], other: list[Box]) -> list[Box]:
    """What any of the one shares with any of the other."""
    shared = []
    for x, y, w, h in one:
        for x2, y2, w2, h2 in other:
            left, top = max(x, x2), max(y, y2)
            wide, high = min(x + w, x2 + w2) - left, min(y + h, y2 + h2) - top
            if wide > 0 and high > 0:
                shared.append((left, top, wide, high))
    return shared


def likeness(one: list[Box], other: list[Box]) -> float:
    """What both cover, of what either covers."""
    shared = area(common(one, other))
    either = area(one) + area(other) - shared
    return shared / either if either > 0 else 0.0


def touch(one: list[Box], other: list[Box]) -> bool:
    return bool(common(one, other))


def around(boxes: list[Box]) -> Box:
    left, top = min(x for x, _, _, _ in boxes), min(y for _, y, _, _ in boxes)
    return (left, top, max(x + w for x, _, w, _ in boxes) - left,
            max(y + h for _, y, _, h in boxes) - top)
