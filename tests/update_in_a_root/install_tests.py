"""From a press of the button to the program that opens again."""

import shutil
from pathlib import Path

from copy_that_runs import (HASTY, NO_PAGE, NOT_HERE, WithACopy, tool_failed, verification)
from feed import image
from ground import (APPLICATIONS, FOLDERS, STAGE, STATE, UNBEARABLE, build_of, calls, main,
                    make_bundle, orders, write)


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


if __name__ == "__main__":
    main()
