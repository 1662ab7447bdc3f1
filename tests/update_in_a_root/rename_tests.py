"""A copy under the earlier name that moves itself, from its start to the one that opens."""

import shutil
from pathlib import Path

from copy_that_runs import WithACopy
from ground import (APPLICATIONS, FOLDERS, UNBEARABLE, build_of, calls, everything, main,
                    make_bundle, write)

SCRIPT = Path("/tmp/vellix-rename.sh")


class Renaming(WithACopy):
    def renames(self, build, other=None, folder="/Applications"):
        """The build that stands under the present name in the end."""
        new = Path(folder) / "Vellix.app"
        if other:
            make_bundle(new, other)
        self.forget_calls()
        copy = self.run_copy(folder, "Sorel.app", build=build)
        copy.tell("rename")
        self.reopens(copy, new)
        self.assertIn("renaming", copy.lines)
        self.assertFalse(self.bundle.exists())
        return build_of(new)

    def test_keeps_the_higher_build(self):
        for ours, theirs, kept in (("40", "41", "41"), ("41", "40", "41"), ("41", "41", "41"),
                                   ("40", None, "40")):
            with self.subTest(ours=ours, theirs=theirs):
                self.assertEqual(self.renames(ours, theirs), kept)
                shutil.rmtree(APPLICATIONS / "Vellix.app")

    def test_knows_every_path_that_a_script_bears(self):
        for folder in FOLDERS:
            with self.subTest(folder):
                self.assertEqual(self.renames("41", "40", folder), "41")

    def test_replaces_a_script_that_somebody_has_planted(self):
        write("/home/mine", "mine")
        SCRIPT.symlink_to("/home/mine")
        self.assertEqual(self.renames("40"), "40")
        self.assertEqual(Path("/home/mine").read_text(), "mine")

    def stays(self, name="Sorel.app", **options):
        copy = self.run_copy(name=name, **options)
        before = everything(self.bundle.parent)
        copy.tell("rename")
        copy.hears("stays")
        copy.tell("quit")
        self.assertEqual(copy.process.wait(60), 0)
        self.assertEqual(everything(self.bundle.parent), before)
        self.assertFalse(SCRIPT.exists())
        self.assertEqual(calls(), [])

    def test_leaves_every_other_copy_as_it_is(self):
        for name in ("Vellix.app", "sorel.app", "Sorel.app.old", "Sorel", "My Sorel.app"):
            with self.subTest(name):
                self.stays(name)
        for identifier in ("-", "", "com.rennyvale.Vellix", "com.rennyvale.Sorel2"):
            with self.subTest(identifier):
                self.stays(identifier=identifier)

    def test_stays_where_nothing_can_be_written(self):
        make_bundle("/scratch/read-only/Sorel.app", "40")
        self.stays(folder="/Volumes/Image", make=False)
        shutil.rmtree("/scratch/read-only/Sorel.app")

    def test_stays_where_no_script_can_be_written(self):
        SCRIPT.mkdir()
        copy = self.run_copy(name="Sorel.app")
        copy.tell("rename")
        copy.hears("stays")
        self.assertTrue(build_of(self.bundle))

    def test_lets_no_other_path_near_a_script(self):
        for name in UNBEARABLE:
            with self.subTest(name):
                self.stays(folder=f"/Applications/{name}")


if __name__ == "__main__":
    main()
