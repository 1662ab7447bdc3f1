"""Changes the text and the pictures of a book in places known, and finds where they stand then."""

import copy
import random
from dataclasses import dataclass
from pathlib import Path

import drawings
from book import Art, Book, Word, code
from overlap import Box, around
from places import Reading, Stood, boxes_by_line, canvases, letters, readings, sizes
from truths import Truth

OF_WORDS = ["word changed", "word missing", "word added", "line break moved", "font changed",
            "size changed"]
OF_PICTURES = ["picture changed", "picture moved", "picture missing"]
MARGIN = 6  # words between a change and the ends of its paragraph


@dataclass
class Spot:
    """A change in words: where it stands in its paragraph, in the book before and after."""
    kind: str
    sheet: int
    paragraph: int
    at: int
    count: int  # of words, after it
    gone: int = 0  # of words before it that are not there any more


def words_planted(book: Book, made: Path, rng: random.Random) -> tuple[Book, list[Spot]]:
    """Every second paragraph of the sheets of text is changed in one place."""
    changed = copy.deepcopy(book)
    bases = readings(made)
    spots: list[Spot] = []
    turns: list[str] = []
    vocabulary = [word.text for sheet in book.sheets for paragraph in sheet.paragraphs
                  for word in paragraph if word.text.isalpha() and len(word.text) > 3]
    for number, sheet in enumerate(changed.sheets):
        if sheet.kind not in ("text", "list", "table"):
            continue
        for index in range(rng.randrange(2), len(sheet.paragraphs), 2):
            if not turns:
                turns = rng.sample(OF_WORDS, len(OF_WORDS))
            words, base = sheet.paragraphs[index], bases[number]
            at = (break_in(base, words, rng) if turns[-1] == "line break moved" else
                  rng.randrange(MARGIN, len(words) - MARGIN - 4))
            if at is None or not located(base, words, at, 1):
                continue
            kind = turns.pop()
            spot = Spot(kind, number, index, at, 1)
            change(words, spot, vocabulary, rng)
            spots.append(spot)
    return changed, spots


def change(words: list[Word], spot: Spot, vocabulary: list[str], rng: random.Random) -> None:
    at = spot.at
    if spot.kind == "word changed":
        spot.gone = 1
        words[at].text = misspelt(words[at].text, vocabulary, rng)
    elif spot.kind == "word missing":
        spot.gone, spot.count = 1, 0
        if letters(words[at].text) in (letters(words[at - 1].text), letters(words[at + 1].text)):
            spot.at = at = at + 2
        del words[at]
    elif spot.kind == "word added":
        near = {words[at - 1].text, words[at].text}
        words.insert(at, Word(rng.choice([word for word in vocabulary if word not in near])))
    elif spot.kind == "line break moved":
        words[at].new_line = True
        spot.count = 2
    else:
        spot.count = rng.randrange(2, 5)
        for word in words[at:at + spot.count]:
            word.other_font = spot.kind == "font changed"
            word.larger = spot.kind == "size changed"


def misspelt(word: str, vocabulary: list[str], rng: random.Random) -> str:
    """As words go wrong: a letter, two letters' order, a digit, a stop, or another word."""
    places = [i for i, letter in enumerate(word) if letter.isalpha()]
    ways = ["other"] + ["letter", "order"] * (len(places) > 3) + ["stop"] * (word[-1] in ",.")
    way = rng.choice(ways)
    if any(letter.isdigit() for letter in word):
        return "".join(str((int(c) + 1) % 10) if c.isdigit() else c for c in word)
    if way == "stop":
        return word[:-1] + ("." if word[-1] == "," else ",")
    if way == "order":
        for i, j in zip(places[1:], places[2:]):
            if j == i + 1 and word[i] != word[j]:
                return word[:i] + word[j] + word[i] + word[j + 1:]
    if way == "letter":
        i = rng.choice(places[1:])
        others = [c for c in "aeinorst" if c != word[i]]
        if "\u0400" <= word[i] <= "\u04ff":
            others = [c for c in "аеинорст" if c != word[i]]
        return word[:i] + rng.choice(others) + word[i + 1:]
    return rng.choice([other for other in vocabulary if other != word])


def located(stood: Reading, words: list[Word], at: int, count: int) -> list[Stood] | None:
    texts = [word.text for word in words]
    return stood.span(" ".join(texts[:at]), " ".join(texts[at:at + count]),
                      " ".join(texts[at + count:]))


def break_in(base: Reading, words: list[Word], rng: random.Random) -> int | None:
    """A word in front of the last one of a line, in the middle of its paragraph."""
    found = []
    for at in range(MARGIN, len(words) - MARGIN - 4):
        around_it = located(base, words, at - 1, 4)
        if around_it and len(around_it) == 4:
            lines = [word.line for word in around_it]
            if lines[0] == lines[1] == lines[2] != lines[3]:
                found.append(at)
    return rng.choice(found) if found else None


def truth_of_words(spot: Spot, book: Book, changed: Book, before: Reading,
                   after: Reading) -> Truth:
    """Without boxes where poppler's tools cannot tell its place; it may be anywhere then."""
    words = changed.sheets[spot.sheet].paragraphs[spot.paragraph]
    old = book.sheets[spot.sheet].paragraphs[spot.paragraph]
    near = words[spot.at - 2:spot.at + 4]
    truth = Truth(spot.kind, spot.sheet, " ".join(word.text for word in near))
    if spot.count == 0:
        stood = located(after, words, spot.at - 1, 2)
        gone = located(before, old, spot.at, 1)
        truth.ref_boxes = boxes_by_line(gone, spot.sheet) if gone else []
        stood = stood if gone else None
    else:
        stood = located(after, words, spot.at, spot.count)
    if not stood:
        truth.told = [(truth.page, (0.0, 0.0, 1.0, 1.0))]
        return truth
    truth.boxes = [boxes_by_line(stood, truth.page)]
    if spot.count == 0 and stood[0].box[1] == stood[-1].box[1]:
        truth.boxes.append([around([word.box for word in stood])])  # with the gap between them
    if spot.kind == "line break moved":
        carried = carried_over(before, after, old, words)
        truth.boxes = [boxes_by_line(carried, truth.page), *truth.boxes,
                       *break_boxes(after, words, spot.at, truth.page),
                       [word.box for word in at_new_breaks(before, after, old, words)]]
    truth.told = [(word.page, word.box) for at in range(len(words))
                  for word in located(after, words, at, 1) or []]
    if book.sheets[spot.sheet].kind == "table":
        truth.rules = [(truth.page, (0.0, 0.0, 1.0, 1.0))]
    return truth


def break_boxes(after: Reading, words: list[Word], at: int, page: int) -> list[list[Box]]:
    """A break may be shown by the word behind it, with the one in front, or by their lines."""
    ways = [located(after, words, at, 1), located(after, words, at - 1, 2)]
    found = [boxes_by_line(way, page) for way in ways if way]
    across = located(after, words, at - 1, 2)
    if across:
        lines = {word.line for word in across}
        whole = [word for word in after.words if word.line in lines]
        found.append(boxes_by_line(whole, page))
        found.append(boxes_by_line([word for word in whole if word.line == across[-1].line], page))
    return found


def carried_over(before: Reading, after: Reading, old: list[Word],
                 words: list[Word]) -> list[Stood]:
    """The words that stand on another line of their paragraph than they did. TeX breaks all of a
    paragraph anew, so that lines in front of a change may differ too."""
    carried, lines, old_lines = [], [], []
    for i in range(len(words)):
        was, now = located(before, old, i, 1), located(after, words, i, 1)
        if not was or not now:
            continue
        if not lines or now[0].line != lines[-1]:
            lines.append(now[0].line)
        if not old_lines or was[0].line != old_lines[-1]:
            old_lines.append(was[0].line)
        if len(lines) != len(old_lines):
            carried += now
    return carried


def at_new_breaks(before: Reading, after: Reading, old: list[Word],
                  words: list[Word]) -> list[Stood]:
    """The words that begin a line of the paragraph and began none, and the one before the first."""
    at: list[Stood] = []
    was_before, now_before = [], []
    for i in range(len(words)):
        was, now = located(before, old, i, 1) or [], located(after, words, i, 1) or []
        if was and now and was_before and now_before:
            broke = was_before[-1].line != was[0].line
            if now_before[-1].line != now[0].line and not broke:
                at += now if at else now_before + now
        if len(now) > 1 and [one.text for one in was] != [one.text for one in now]:
            at += now
        was_before, now_before = was, now
    return list(dict.fromkeys(at))


def art_planted(book: Book, rng: random.Random) -> list[tuple[int, int, Art]]:
    """Changes two of three pictures and barcodes; tells their sheets, places and what was there."""
    planted = []
    turns: list[str] = []
    for number, sheet in enumerate(book.sheets):
        if not sheet.art:
            continue
        left = rng.randrange(len(sheet.art))
        for i, art in enumerate(sheet.art):
            if i == left and len(sheet.art) > 2:
                continue
            was = copy.copy(art)
            if art.digits:
                art.change = "digit"
                while art.digits == was.digits:
                    art.digits = code(rng)
            else:
                if not turns:
                    turns = rng.sample(OF_PICTURES, len(OF_PICTURES))
                art.change = turns.pop().split()[1]
                art.cell = rng.randrange(drawings.COLUMNS * drawings.ROWS)
                if art.change == "moved":
                    art.aside = (rng.choice([-1, 1]) * rng.uniform(5, 14), rng.uniform(-9, 9))
            planted.append((number, i, was))
    return planted


def truths_of_art(planted: list[tuple[int, int, Art]], changed: Book, marked: Path) -> list[Truth]:
    truths = []
    for page, i, _ in planted:
        art = changed.sheets[page].art[i]
        found = canvases(marked, page)
        if len(found) != len(changed.sheets[page].art):
            continue
        x, y, w, h = found[i]
        boxes = [[(x + w * left / drawings.WIDTH, y + h * top / drawings.HEIGHT,
                   w * wide / drawings.WIDTH, h * high / drawings.HEIGHT)]
                 for left, top, wide, high in drawings.places(art)]
        kind = "barcode digit changed" if art.digits else f"picture {art.change}"
        truths.append(Truth(kind, page, art.digits or art.change, boxes,
                            told=[(page, around([one[0] for one in boxes]))]))
    return truths


def truths_of(book: Book, changed: Book, spots: list[Spot], art: list[tuple[int, int, Art]],
              files: tuple[Path, Path, Path]) -> list[Truth]:
    """Files: the book as it was, with its pictures marked, and changed."""
    was, marked, now = files
    if len(sizes(was)) != len(book.sheets) or len(sizes(now)) != len(book.sheets):
        raise RuntimeError(f"{book.name}: a sheet does not fit on its page: {now}")
    before, after = readings(was), readings(now)
    truths = [truth_of_words(spot, book, changed, before[spot.sheet], after[spot.sheet])
              for spot in spots]
    return truths + truths_of_art(art, changed, marked)
