"""A program that is killed at any step of an update: what it remembers, and how it goes on."""

from copy_that_runs import DEFAULTS, DETACH, WithACopy
from ground import STATE, build_of, calls, main, orders, wait_until

# The tools hang here in turn, before their work and after it.
STEPS = {"hdiutil attach": ["hdiutil", "attach"], "codesign --verify": ["codesign", "--verify"],
         "codesign -dv": ["codesign", "-dv"], "ditto": ["ditto"],
         "hdiutil detach": ["hdiutil", "detach"]}


class Killed(WithACopy):
    def is_tried_once_by_itself(self):
        """The next start leaves that build alone, and a press of the button installs it."""
        orders()
        self.forget_calls()
        asked = self.feed.asked("/Vellix.dmg")
        copy = self.run_copy()
        copy.tell("start")
        copy.hears("latest 41")
        copy.tell("check")
        copy.hears("checked")
        self.assertEqual(self.feed.asked("/Vellix.dmg"), asked)
        self.assertEqual(calls(), [])
        copy.tell("install")
        self.reopens(copy, self.bundle)
        self.assertEqual(build_of(self.bundle), "41")
        self.assertFalse((STATE / "mounted").exists())

    def test_while_it_asks(self):
        self.feed.mode = "silent"
        copy = self.run_copy()
        copy.tell("start")
        wait_until(lambda: "the question", lambda: self.feed.asked("/version.json"))
        copy.kill()
        self.assertIsNone(self.tried())
        self.feed.mode = "whole"
        self.feed.going_on.set()
        copy = self.run_copy()
        copy.tell("start")
        self.reopens(copy, self.bundle)
        self.assertEqual(build_of(self.bundle), "41")

    def test_while_it_downloads(self):
        self.feed.mode = "hang"
        copy = self.run_copy()
        copy.tell("start")
        wait_until(lambda: "the download", lambda: self.feed.asked("/Vellix.dmg"))
        copy.kill()
        self.assertEqual(self.tried(), "41")
        self.assertEqual(build_of(self.bundle), "40")
        self.feed.mode = "whole"
        self.feed.going_on.set()
        self.is_tried_once_by_itself()

    def test_while_a_tool_works(self):
        for order, call in STEPS.items():
            for what in ("hang", "work and hang"):
                with self.subTest(order=order, what=what):
                    DEFAULTS.write_text(f"[General]\nServerURL={self.feed.base}\n")
                    self.forget_calls()
                    orders({order: what})
                    copy = self.run_copy()
                    copy.tell("start")
                    wait_until(lambda: f"{call} after {calls()}",
                               lambda: calls() and calls()[-1][:len(call)] == call)
                    copy.kill()
                    self.assertEqual(self.tried(), "41")
                    self.assertEqual(build_of(self.bundle), "40")
                    self.is_tried_once_by_itself()

    def test_after_it_failed(self):
        orders({"codesign --verify": "fail"})
        copy = self.run_copy()
        copy.tell("start")
        self.assertIn("codesign", copy.comes_to_fail())
        copy.kill()
        self.assertEqual(self.tried(), "41")
        self.is_tried_once_by_itself()

    def test_after_a_newer_build_is_out(self):
        orders({"ditto": "fail"})
        copy = self.run_copy()
        copy.tell("start")
        copy.comes_to_fail()
        copy.kill()
        orders()
        self.feed.version["build"] = 42
        copy = self.run_copy()
        copy.tell("start")
        self.assertIn("isn't the new build yet", copy.comes_to_fail())
        self.assertEqual(self.tried(), "42")
        self.assertEqual(calls()[-1], DETACH)

    def test_not_but_ended_lets_the_image_go(self):
        orders({"codesign --verify": "hang"})
        copy = self.run_copy()
        copy.tell("start")
        wait_until(lambda: "the signature", lambda: calls() and calls()[-1][0] == "codesign")
        copy.tell("quit")
        self.assertEqual(copy.process.wait(60), 0)
        wait_until(lambda: "the image to be let go", lambda: not (STATE / "mounted").exists())
        self.assertEqual(calls()[-1], DETACH)
        self.assertEqual(build_of(self.bundle), "40")


if __name__ == "__main__":
    main()
