"""The bench of the demo's check counts what was found, missed and made up.

counting_tests.py BENCH
"""

import random
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(sys.argv.pop(1) if len(sys.argv) > 1 else "bench/truth").resolve()))

import drawings  # noqa: E402
from book import Art, Book, Sheet, Word, check_digit, paragraphs_of  # noqa: E402
from counting import Score, pages_named  # noqa: E402
from overlap import area, around, likeness, touch  # noqa: E402
from places import Reading, Stood, boxes_by_line, letters  # noqa: E402
from planting import Spot, change, misspelt, truth_of_words  # noqa: E402
from truths import Truth  # noqa: E402

HERE = (0.2, 0.2, 0.2, 0.1)
NEAR = (0.25, 0.2, 0.2, 0.1)
AWAY = (0.7, 0.7, 0.1, 0.1)


def finding(kind="words", page=0, **more):
    return {"kind": kind, "page": page, "title": "One word changed", "state": "open", **more}


def told(*findings, partners=()):
    return {"pages": 10, "partners": list(partners), "findings": list(findings)}


def word(kind="word changed", page=0, boxes=((HERE,),), **more):
    return Truth(kind, page, boxes=[list(one) for one in boxes], **more)


def scored(truths, *findings, partners=()):
    return Score().add(truths, told(*findings, partners=partners))


class Overlap(unittest.TestCase):
    def test_of_the_same_and_of_none(self):
        self.assertAlmostEqual(likeness([HERE], [HERE]), 1)
        self.assertEqual(likeness([HERE], [AWAY]), 0)
        self.assertEqual(likeness([], [HERE]), 0)
        self.assertEqual(likeness([], []), 0)

    def test_of_a_part(self):
        self.assertAlmostEqual(likeness([HERE], [NEAR]), 0.15 / 0.25)

    def test_counts_what_boxes_share_once(self):
        self.assertAlmostEqual(area([HERE, HERE]), 0.02)
        self.assertAlmostEqual(area([HERE, NEAR]), 0.025)
        self.assertAlmostEqual(area([HERE, AWAY]), 0.03)
        self.assertAlmostEqual(likeness([HERE, HERE], [HERE]), 1)

    def test_edges_do_not_touch(self):
        self.assertFalse(touch([HERE], [(0.4, 0.2, 0.1, 0.1)]))
        self.assertTrue(touch([HERE, AWAY], [(0.75, 0.75, 0.5, 0.5)]))

    def test_around_all(self):
        for got, wanted in zip(around([HERE, AWAY]), (0.2, 0.2, 0.6, 0.6)):
            self.assertAlmostEqual(got, wanted)


class Counting(unittest.TestCase):
    def holds(self, score, found, false):
        self.assertEqual((sum(score.found.values()), score.false), (found, false))

    def test_found_where_kind_page_and_place_are_right(self):
        self.holds(scored([word()], finding(box=NEAR)), 1, 0)

    def test_another_kind_page_or_place_is_missed_and_false(self):
        for made in (finding("fonts", box=HERE), finding(page=1, box=HERE), finding(box=AWAY),
                     finding()):
            self.holds(scored([word()], made), 0, 1)

    def test_all_boxes_of_a_finding_count(self):
        score = scored([word(boxes=((HERE, AWAY),))], finding(box=HERE, boxes=[HERE, AWAY]))
        self.assertAlmostEqual(score.overlaps["word changed"][0], 1)

    def test_the_best_of_places_that_all_are_right(self):
        score = scored([word(boxes=((AWAY,), (HERE,)))], finding(box=HERE))
        self.assertAlmostEqual(score.overlaps["word changed"][0], 1)

    def test_loose_boxes_are_kept_for_the_report(self):
        score = scored([word()], finding(box=NEAR))
        self.assertEqual(len(score.loose), 1)
        self.assertEqual(score.rows()[0][4], 0)

    def test_a_missing_word_is_measured_where_it_stood(self):
        truth = word("word missing", ref_boxes=[AWAY])
        score = scored([truth], finding(box=HERE, ref_box=AWAY))
        self.assertAlmostEqual(score.overlaps["word missing"][0], 1)

    def test_what_passed_or_was_expected_is_not_false(self):
        self.holds(scored([], finding("pass"), finding("expected", box=HERE)), 0, 0)
        self.holds(scored([], finding("words", box=HERE)), 0, 1)

    def test_what_follows_from_a_change_is_not_false(self):
        truth = word(told=[(0, AWAY)])
        self.holds(scored([truth], finding(box=HERE), finding("breaks", box=AWAY)), 1, 0)
        self.holds(scored([truth], finding(box=HERE), finding("breaks", page=1, box=AWAY)), 1, 1)
        self.holds(scored([truth], finding(box=HERE), finding("picture", box=AWAY)), 1, 1)

    def test_a_change_whose_place_is_not_known_is_neither_found_nor_missed(self):
        score = scored([word(boxes=(), told=[(0, (0, 0, 1, 1))])], finding(box=HERE))
        self.holds(score, 0, 0)
        self.assertEqual((score.unplaced, score.missed), (1, []))

    def test_false_ones_for_fifty_pages(self):
        score = scored([], finding(box=HERE))
        score.join(scored([]))
        self.assertAlmostEqual(score.false_for_pages(), 2.5)

    def test_recall_over_all_kinds(self):
        score = scored([word(), word("font changed")], finding(box=HERE))
        self.assertAlmostEqual(score.recall(), 0.5)
        self.assertEqual([truth.kind for truth in score.missed], ["font changed"])


class Pages(unittest.TestCase):
    def test_named_one_and_as_a_run(self):
        self.assertEqual(pages_named(finding(detail="Page 5 of our file is not there.")), {4})
        self.assertEqual(pages_named(finding(detail="Pages 5 and 6 of it.")), {4, 5})
        self.assertEqual(pages_named(finding(detail="Pages 5 to 7. 2 mm.")), {4, 5, 6})
        self.assertEqual(pages_named(finding(page=3, detail="It reads Page 9.")), {3})

    def test_a_moved_page_is_found_with_its_partner_alone(self):
        truth = Truth("page moved", 4, partner=8)
        made = finding("extra_page", 4, title="The page stands elsewhere",
                       detail="Page 5 of the proof is page 9 of our file.")
        right = {"page": 4, "partner": 8, "moved": True}
        for partners, found in (([right], 1), ([dict(right, partner=7)], 0),
                                ([dict(right, moved=False)], 0), ([], 0)):
            self.assertEqual(scored([truth], made, partners=partners).found["page moved"], found)

    def test_an_inserted_page_is_none_that_moved(self):
        truth = Truth("page inserted", 4)
        more = finding("missing_page", 4, title="One page more", detail="Page 5 of the proof is not")
        gone = dict(more, title="A page is missing")
        self.assertEqual(scored([truth], more).found["page inserted"], 1)
        self.assertEqual(scored([truth], gone).found["page inserted"], 0)


class Places(unittest.TestCase):
    def stood(self, *texts):
        return Reading([Stood(text, 0, line, (0.1 * i, 0.1 * line, 0.1, 0.05))
                        for i, (text, line) in enumerate(texts)])

    def test_finds_a_word_that_a_line_broke(self):
        words = self.stood(("the", 0), ("com-", 0), ("mon", 1), ("good", 1))
        found = words.span("the", "common", "good")
        self.assertEqual([one.text for one in found], ["com-", "mon"])
        self.assertEqual(len(boxes_by_line(found, 0)), 2)

    def test_finds_nothing_that_stands_twice(self):
        self.assertIsNone(self.stood(("a", 0), ("b", 0), ("a", 0), ("b", 0)).span("a", "b", ""))

    def test_undoes_ligatures(self):
        self.assertEqual(letters("\ufb01nd-ing "), "finding")

    def test_typeset_apostrophes_are_those_of_the_text(self):
        self.assertIsNotNone(self.stood(("don\u2019t", 0), ("go", 0)).span("", "don't", "go"))

    def test_a_gap_between_two_words_is_where_one_is_missing(self):
        book = Book("b", "en", [Sheet("text", "", [self.words("a missing word stood")])])
        changed = Book("b", "en", [Sheet("text", "", [self.words("a word stood")])])
        before = self.stood(*((text, 0) for text in "a missing word stood".split()))
        after = Reading([Stood(text, 0, i, (0.3 * i, 0, 0.1, 0.05))
                         for i, text in enumerate("a word stood".split())])
        spot = Spot("word missing", 0, 0, 1, 0, 1)
        truth = truth_of_words(spot, book, changed, before, after)
        gap = (0.15, 0, 0.1, 0.05)
        self.assertTrue(any(touch([gap], boxes) for boxes in truth.boxes))

    def words(self, text):
        return [Word(one) for one in text.split()]


class Planting(unittest.TestCase):
    def words(self):
        return [Word(text) for text in "one two three four five six seven eight nine ten".split()]

    def test_every_kind_changes_what_it_says(self):
        wanted = {"word missing": 9, "word added": 11}
        for kind in ("word changed", "word missing", "word added"):
            words = self.words()
            change(words, Spot(kind, 0, 0, 4, 1), ["other"], random.Random(1))
            self.assertEqual(len(words), wanted.get(kind, 10))
            self.assertNotEqual([word.text for word in words],
                                [word.text for word in self.words()])

    def test_looks_change_and_words_do_not(self):
        for kind, looks in (("font changed", "other_font"), ("size changed", "larger"),
                            ("line break moved", "new_line")):
            words = self.words()
            change(words, Spot(kind, 0, 0, 4, 1), [], random.Random(1))
            self.assertEqual([word.text for word in words], [word.text for word in self.words()])
            self.assertTrue(getattr(words[4], looks))

    def test_a_misspelt_word_is_never_the_same(self):
        rng = random.Random(1)
        for text in ("letter", "aaaa", "end.", "1996", "книга", "to"):
            for _ in range(50):
                self.assertNotEqual(misspelt(text, ["other", "words"], rng), text)


class Drawings(unittest.TestCase):
    def test_a_barcode_has_its_guards_and_width(self):
        dark = drawings.modules("9780306406157")
        self.assertEqual((len(dark), dark[:3], dark[45:50], dark[-3:]), (95, "101", "01010", "101"))
        self.assertEqual(check_digit("978030640615"), "7")

    def test_every_change_is_drawn(self):
        plain = drawings.svg(Art(7))
        for art in (Art(7, change="missing"), Art(7, change="moved", aside=(9, 0)),
                    Art(7, change="changed", cell=2), Art(8, change="changed", cell=2)):
            was = plain if art.seed == 7 else drawings.svg(Art(art.seed))
            self.assertNotEqual(drawings.svg(art), was)

    def test_the_text_is_of_plain_paragraphs(self):
        plain = " ".join(["word"] * 40)
        text = f"short\n\n{plain}\n\n{plain} http://a.b\n\n{plain}\n"
        self.assertEqual(paragraphs_of(text, False), [["word"] * 40])
        self.assertEqual(paragraphs_of(text, True), [])


if __name__ == "__main__":
    unittest.main()
