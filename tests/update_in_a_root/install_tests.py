"""From a press of the button to the program that opens again, and every way that this may fail."""

import shutil
from pathlib import Path

from copy_that_runs import (ATTACH, DETACH, HASTY, IMAGE, MOUNT, WithACopy, verification)
from feed import image
from ground import (APPLICATIONS, STAGE, STATE, build_of, calls, everything, main, make_bundle,
                    orders, sign, wait_until, write)
from swap_script_tests import FOLDERS

NO_PAGE = "The download page didn't answer. Try again in a minute."
NOT_OURS = "That download isn't signed by Tessarine, so it wasn't installed."
NOT_NEW = "The download isn't the new build yet. Try again in a few minutes."
NOT_HERE = ("Vellix can't replace itself where it is. Drag the new Vellix from the window that "
            "opened into Applications.")
NOT_DONE = "The update didn't finish. Try again, or download it from the Vellix page."
UNBEARABLE = ['a "quoted" one', "a $HOME of one", "a `tick`", "a back\\slash", "a\nbreak",
              '"; rm -rf /Applications; "', "$(rm -rf ${HOME})"]


def tool_failed(name):
    return f"The update check failed ({name}). Try again, or download it from the Vellix page."


class Installing(WithACopy):
    def test_ends_with_the_new_one_open(self):
        copy = self.run_copy()
        self.press_update(copy)
        self.reopens(copy, self.bundle)
        self.assertEqual([line for line in copy.lines if line not in ("checked", "latest 41")], [
            "working Downloading Vellix 1.2 (41)…", "working Checking it's signed by Tessarine…",
            "working Installing. Vellix reopens by itself.", "terminates"])
        self.assertEqual(calls()[:5], verification())
        old = f"{self.bundle}.old"
        self.assertEqual([call for call in calls()[5:] if call[0] != "sleep"], [
            ["rm", "-rf", old], ["mv", str(self.bundle), old],
            ["ditto", str(STAGE / "Vellix.app"), str(self.bundle)], ["rm", "-rf", old],
            ["xattr", "-dr", "com.apple.quarantine", str(self.bundle)],
            ["open", str(self.bundle)]])
        self.assertEqual(build_of(self.bundle), "41")
        self.assertEqual([each.name for each in APPLICATIONS.iterdir()], ["Vellix.app"])
        self.assertEqual(self.tried(), "41")
        self.assertFalse((STATE / "mounted").exists())

    def test_shows_its_token_to_the_service_alone(self):
        copy = self.run_copy()
        self.press_update(copy)
        self.reopens(copy, self.bundle)
        self.assertEqual(self.feed.requests, [("/version.json", "Bearer the-token"),
                                              ("/Vellix.dmg", None)])

    def test_gives_the_program_its_present_name(self):
        copy = self.run_copy(name="Sorel.app")
        self.press_update(copy)
        self.reopens(copy, APPLICATIONS / "Vellix.app")
        self.assertEqual(build_of(APPLICATIONS / "Vellix.app"), "41")
        self.assertEqual([each.name for each in APPLICATIONS.iterdir()], ["Vellix.app"])

    def test_takes_an_image_of_the_earlier_name(self):
        self.feed.image = image("Sorel.app")
        copy = self.run_copy()
        self.press_update(copy)
        self.reopens(copy, APPLICATIONS / "Sorel.app")
        self.assertEqual(calls()[:5], verification("Sorel.app"))
        self.assertEqual([each.name for each in APPLICATIONS.iterdir()], ["Sorel.app"])

    def test_takes_a_build_that_is_newer_still(self):
        self.feed.image = image(build="+43")
        copy = self.run_copy()
        self.press_update(copy)
        self.reopens(copy, self.bundle)
        self.assertEqual(build_of(self.bundle), "+43")

    def test_begins_with_an_empty_stage(self):
        for old in ("folder", "link"):
            with self.subTest(old):
                mine = Path("/home/mine")
                write(mine / "kept", "mine")
                STAGE.parent.mkdir(exist_ok=True)
                if old == "link":
                    STAGE.symlink_to(mine)
                else:
                    make_bundle(STAGE / "Sorel.app", "12")
                    write(STAGE / "swap.sh", "exit 1")
                    write(STAGE / "mnt/file", "x")
                copy = self.run_copy()
                self.press_update(copy)
                self.reopens(copy, self.bundle)
                self.assertEqual(sorted(each.name for each in STAGE.iterdir()),
                                 ["Vellix.app", "Vellix.dmg", "swap.sh"])
                self.assertEqual((mine / "kept").read_text(), "mine")
                shutil.rmtree(STAGE)

    def test_removes_what_an_aborted_swap_has_left(self):
        copy = self.run_copy()
        make_bundle(f"{self.bundle}.old", "39")
        self.press_update(copy)
        self.reopens(copy, self.bundle)
        self.assertEqual([each.name for each in APPLICATIONS.iterdir()], ["Vellix.app"])

    def test_knows_every_path_that_a_script_bears(self):
        for folder in FOLDERS[1:]:
            with self.subTest(folder):
                self.forget_calls()
                copy = self.run_copy(folder)
                self.press_update(copy)
                self.reopens(copy, self.bundle)
                self.assertEqual(build_of(self.bundle), "41")
                self.assertEqual([each.name for each in Path(folder).iterdir()], ["Vellix.app"])

    def test_lets_no_other_path_near_a_script(self):
        write("/home/mine", "mine")
        for name in UNBEARABLE:
            with self.subTest(name):
                copy = self.run_copy(f"/Applications/{name}")
                untouched = self.is_untouched(APPLICATIONS)
                self.press_update(copy)
                self.assertEqual(copy.comes_to_fail(), NOT_HERE)
                self.assertFalse((STAGE / "swap.sh").exists())
                copy.kill()
                untouched()
                self.assertEqual(Path("/home/mine").read_text(), "mine")

    def test_does_not_mind_an_image_that_stays_mounted(self):
        for what in ("fail", "hang", "work and hang"):
            with self.subTest(what):
                self.forget_calls()
                (STATE / "mounted").unlink(missing_ok=True)
                orders({"hdiutil detach": what})
                copy = self.run_copy(tool=HASTY)
                self.press_update(copy)
                self.reopens(copy, self.bundle)
                self.assertEqual(build_of(self.bundle), "41")

    def test_goes_on_when_tried_again(self):
        self.feed.status = 503
        copy = self.run_copy()
        self.press_update(copy)
        self.assertEqual(copy.comes_to_fail(), NO_PAGE)
        self.feed.status = 200
        orders({"codesign --verify": "fail"})
        copy.tell("install")
        self.assertEqual(copy.comes_to_fail(2), tool_failed("codesign"))
        orders()
        copy.tell("install")
        self.reopens(copy, self.bundle)
        self.assertEqual(build_of(self.bundle), "41")
        self.assertEqual(self.feed.asked("/Vellix.dmg"), 3, "each attempt is whole")


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
        self.assertIn(copy.comes_to_fail(), (NO_PAGE, NOT_DONE))
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
