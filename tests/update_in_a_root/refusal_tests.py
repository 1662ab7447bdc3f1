"""Every way in which an update does not come about, what is said of it, and what it leaves."""

import shutil
from pathlib import Path

from copy_that_runs import (ATTACH, DETACH, HASTY, IMAGE, MOUNT, NO_PAGE, NOT_DONE, NOT_HERE,
                            NOT_NEW, NOT_OURS, WithACopy, tool_failed, verification)
from feed import image
from ground import STAGE, STATE, build_of, calls, main, make_bundle, orders, sign, write


class NotInstalling(WithACopy):
    def fails(self, said, expected, **options):
        """Nothing but the stage is touched, and no image stays mounted."""
        copy = self.run_copy(**options)
        untouched = self.is_untouched(self.bundle.parent)
        self.press_update(copy)
        self.assertEqual(copy.comes_to_fail(), said)
        self.assertEqual(calls(), expected)
        untouched()
        self.assertFalse((STATE / "mounted").exists())
        self.assertFalse((STAGE / "swap.sh").exists())
        self.assertEqual(self.tried(), "41")
        self.assertIsNone(copy.process.poll(), "the program goes on")
        return copy

    def fails_at(self, step, said, **options):
        """It came as far as that call, and then let the image go."""
        self.fails(said, verification()[:step] + [DETACH], **options)

    def test_when_a_tool_fails(self):
        for step, (order, tool) in enumerate({
                "hdiutil attach": "hdiutil", "codesign --verify": "codesign",
                "codesign -dv": "codesign", "ditto": "ditto"}.items(), 1):
            with self.subTest(order):
                self.forget_calls()
                orders({order: "fail"})
                self.fails_at(step, tool_failed(tool))

    def test_when_a_tool_hangs(self):
        for step, (order, tool) in enumerate({
                "hdiutil attach": "hdiutil", "codesign --verify": "codesign",
                "codesign -dv": "codesign", "ditto": "ditto"}.items(), 1):
            for what in ("hang", "work and hang"):
                with self.subTest(order=order, what=what):
                    self.forget_calls()
                    orders({order: what})
                    self.fails_at(step, tool_failed(tool), tool=HASTY)

    def test_when_there_is_no_tool(self):
        copy = self.run_copy()
        self.feed.image = b"no image"
        self.press_update(copy)
        self.assertEqual(copy.comes_to_fail(), tool_failed("hdiutil"))
        self.assertEqual(calls(), [ATTACH, DETACH])

    def test_when_somebody_else_has_signed(self):
        for name, signed in {"another team": {"team": "AB1234567C"},
                             "another program": {"identifier": "com.rennyvale.Other"},
                             "neither": {"team": "AB1234567C", "identifier": "com.other"},
                             "a longer team": {"team": "XQX9102846T"}}.items():
            with self.subTest(name):
                self.forget_calls()
                self.feed.image = image(**signed)
                self.fails_at(3, NOT_OURS)

    def test_when_it_was_changed_after_it_was_signed(self):
        self.feed.image = image(
            spoil=lambda bundle: write(bundle / "Contents/MacOS/Vellix", "something else"))
        self.fails_at(2, tool_failed("codesign"))

    def test_when_nobody_has_signed(self):
        self.feed.image = image(spoil=lambda bundle: (bundle / "Contents/CodeSignature").unlink())
        self.fails_at(2, tool_failed("codesign"))

    def test_when_the_build_is_not_new(self):
        for build in ("40", "12a", "", "-41", "41.0", " 41", "+-41", "9" * 20, None, 41):
            with self.subTest(build):
                self.forget_calls()
                self.feed.image = image(build=build)
                self.fails_at(3, NOT_NEW)

    def test_when_nothing_tells_its_build(self):
        def unreadable(bundle):
            (bundle / "Contents/Info.plist").write_bytes(b"no list")
            sign(bundle)

        def missing(bundle):
            (bundle / "Contents/Info.plist").unlink()
            sign(bundle)

        for spoil in (unreadable, missing):
            with self.subTest(spoil.__name__):
                self.forget_calls()
                self.feed.image = image(spoil=spoil)
                self.fails_at(3, NOT_NEW)

    def test_when_another_program_is_in_the_image(self):
        self.feed.image = image("Other.app")
        sorel = f"{MOUNT}/Sorel.app"
        self.fails(tool_failed("codesign"),
                   [ATTACH, ["codesign", "--verify", "--deep", "--strict", sorel], DETACH])

    def test_when_the_page_does_not_answer(self):
        for status in (201, 204, 206, 301, 304, 403, 404, 500, 503):
            with self.subTest(status):
                self.feed.status = status
                self.feed.image = b"" if status in (204, 304) else b"no image"
                self.fails(NO_PAGE, [])

    def test_when_what_answers_is_no_page(self):
        self.feed.mode = "no HTTP"
        copy = self.run_copy()
        self.press_update(copy)
        # A server that speaks something else is not always told from one that hangs up.
        self.assertIn(copy.comes_to_fail(), (NO_PAGE, NOT_DONE))
        self.assertEqual(calls(), [])

    def test_when_the_download_is_cut_off(self):
        self.feed.mode = "cut off"
        self.fails(NOT_DONE, [])

    def test_when_the_download_is_too_large(self):
        self.feed.image = bytes(9 << 20)
        self.fails(NOT_DONE, [])

    def test_when_the_download_leads_elsewhere(self):
        self.feed.mode = "elsewhere"
        copy = self.run_copy()
        self.press_update(copy)
        self.assertEqual(copy.comes_to_fail(), NOT_DONE)
        self.assertEqual(self.feed.asked("/x"), 0)
        self.assertEqual(calls(), [])

    def test_keeps_the_stage_until_there_is_a_download(self):
        write(STAGE / "kept", "x")
        self.feed.status = 404
        self.fails(NO_PAGE, [])
        self.assertTrue((STAGE / "kept").exists())

    def test_where_nothing_can_be_written(self):
        closed = Path("/Volumes/Closed/Vellix.app")
        for volume, source in (("/Volumes/Image", "/scratch/read-only"),
                               ("/Volumes/Closed", "/scratch/closed")):
            with self.subTest(volume):
                self.forget_calls()
                make_bundle(Path(source) / "Vellix.app", "40")
                self.assertTrue(build_of(closed.parent.parent / volume / "Vellix.app"))
                copy = self.fails(NOT_HERE, verification(), folder=volume, make=False)
                copy.hears(f"opened file://{IMAGE}")
                self.assertTrue(Path(IMAGE).exists())
                shutil.rmtree(f"{source}/Vellix.app/Contents")

    def test_what_is_no_such_bundle(self):
        for identifier in ("-", "com.rennyvale.Vellix", "com.rennyvale.Sorel2", "",
                           "COM.RENNYVALE.SOREL"):
            with self.subTest(identifier):
                copy = self.run_copy(identifier=identifier)
                self.press_update(copy)
                copy.hears(f"opened {self.feed.base}/Vellix.dmg")
                self.assertEqual(calls(), [])
                self.assertIsNone(self.tried())
                self.assertFalse(STAGE.exists())


if __name__ == "__main__":
    main()
