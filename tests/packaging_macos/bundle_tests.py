"""What the Mac is told of the program, and how its bundle reads that back.

bundle_tests.py ICONSET_PROGRAM
"""

import plistlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from foundation import compiled

ROOT = Path(__file__).resolve().parents[2]
MACOS = ROOT / "packaging/macos"
ICONSET = sys.argv.pop(1)


class InFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def info_plist(self, version="2.5", build="41", oldest="13.3"):
        to = self.folder / "Info.plist"
        subprocess.run(["cmake", f"-DPROJECT_VERSION={version}", f"-DVELLIX_BUILD_NUMBER={build}",
                        f"-DCMAKE_OSX_DEPLOYMENT_TARGET={oldest}", f"-DTO={to}",
                        "-P", ROOT / "tests/packaging_macos/info_plist.cmake"], check=True)
        return to


class InfoPlist(InFolder):
    def setUp(self):
        super().setUp()
        self.told = plistlib.loads(self.info_plist().read_bytes())

    def test_the_numbers_are_the_builds_and_are_text(self):
        self.assertEqual(self.told["CFBundleShortVersionString"], "2.5")
        self.assertEqual(self.told["CFBundleVersion"], "41")
        self.assertEqual(self.told["LSMinimumSystemVersion"], "13.3")

    def test_the_identifier_is_the_one_that_an_update_asks_for(self):
        header = (ROOT / "src/update/verification.hpp").read_text(encoding="utf-8")
        asked = re.search(r'kBundleIdentifier = "([^"]+)"', header).group(1)
        self.assertEqual(self.told["CFBundleIdentifier"], asked)
        seam = (ROOT / "src/platform/macos/LaunchedApplication.hpp").read_text(encoding="utf-8")
        self.assertIn(f'kDesktopName = "{asked}"', seam)

    def test_it_opens_its_links_and_no_documents(self):
        self.assertEqual([kind["CFBundleURLSchemes"] for kind in self.told["CFBundleURLTypes"]],
                         [["sorel"]])
        for key in self.told:
            self.assertNotRegex(key, "Document|TypeDeclarations")

    def test_it_is_an_application_of_that_name(self):
        self.assertEqual(self.told["CFBundlePackageType"], "APPL")
        self.assertEqual(self.told["NSPrincipalClass"], "NSApplication")
        self.assertIs(self.told["NSHighResolutionCapable"], True)
        self.assertRegex(self.told["LSApplicationCategoryType"], r"^public\.app-category\.[a-z-]+$")
        for key in ("CFBundleName", "CFBundleDisplayName", "CFBundleExecutable",
                    "CFBundleIconFile"):
            self.assertEqual(self.told[key], "Vellix", key)

    def test_nothing_is_left_to_fill_in(self):
        text = self.info_plist().read_text(encoding="utf-8")
        self.assertNotRegex(text, r"@|\$\{|<string></string>")


class Entitlements(unittest.TestCase):
    def test_are_those_of_byte_code_and_the_network_and_no_more(self):
        told = plistlib.loads((MACOS / "Vellix.entitlements").read_bytes())
        self.assertEqual(told, {"com.apple.security.cs.allow-jit": True,
                                "com.apple.security.network.client": True})


class Iconset(InFolder):
    def size_of(self, file):
        head = file.read_bytes()[:24]
        self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
        return struct.unpack(">II", head[16:24])

    def pixel(self, file, x, y):
        out = subprocess.run(["convert", file, "-format", f"%[pixel:p{{{x},{y}}}]", "info:"],
                             check=True, capture_output=True, text=True).stdout
        return [round(float(part)) for part in re.findall(r"[\d.]+", out)]

    def test_has_every_size_that_is_asked_for(self):
        to = self.folder / "a name with blanks" / "Vellix.iconset"
        subprocess.run([ICONSET, ROOT / "packaging/vellix.svg", to], check=True)
        wanted = {f"icon_{points}x{points}{scale}.png": (points * times, points * times)
                  for points in (16, 32, 128, 256, 512) for scale, times in (("", 1), ("@2x", 2))}
        self.assertEqual({file.name: self.size_of(file) for file in to.iterdir()}, wanted)
        largest = to / "icon_512x512@2x.png"
        self.assertEqual(self.pixel(largest, 400, 512)[:3], [0xE4, 0x57, 0x2E])
        self.assertEqual(self.pixel(largest, 0, 0)[-1], 0, "the corner is empty")

    def test_says_what_it_could_not_draw(self):
        ended = subprocess.run([ICONSET, self.folder / "none.svg", self.folder / "to"],
                               capture_output=True, text=True)
        self.assertNotEqual(ended.returncode, 0)
        self.assertIn("none.svg", ended.stderr)


class RunningBundle(InFolder):
    """src/platform/macos/mac_bundle.mm over another system's Foundation."""

    MAIN = """
#include <cstdio>
#include "platform/macos/mac_bundle.hpp"
int main(int argc, char** argv) {
  if (argc == 3) {
    const auto text = vellix::textInPropertyList(argv[1], argv[2]);
    std::printf("%s", text ? ("text " + *text).c_str() : "none");
    return 0;
  }
  const auto copy = vellix::runningCopy(7);
  std::printf("%s\\n%s\\n%lld\\n%lld", copy.identifier.value_or("none").c_str(),
              copy.bundle.c_str(), static_cast<long long>(copy.process),
              static_cast<long long>(copy.build));
}
"""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.program = compiled(Path(folder.name), cls.MAIN, "mac_bundle.mm")

    def ask(self, program, *arguments):
        return subprocess.run([program, *arguments], check=True, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=30).stdout.decode()

    def test_a_text_is_read_by_its_key(self):
        plist = self.info_plist(build="12a")
        self.assertEqual(self.ask(self.program, plist, "CFBundleVersion"), "text 12a")
        self.assertEqual(self.ask(self.program, plist, "CFBundleIdentifier"),
                         "text com.rennyvale.Sorel")

    def test_a_name_may_have_any_letters(self):
        plist = self.folder / "Größe $1 'x' \"y\" ✓.plist"
        plist.write_bytes(plistlib.dumps({"größe": "☃ & <b>"}))
        self.assertEqual(self.ask(self.program, plist, "größe"), "text ☃ & <b>")

    def test_what_is_no_text_or_no_list_is_none(self):
        plist = self.info_plist()
        broken = self.folder / "broken.plist"
        broken.write_bytes(plist.read_bytes()[:300])
        number = self.folder / "number.plist"
        number.write_bytes(plistlib.dumps({"CFBundleVersion": 41}))
        listing = self.folder / "list.plist"
        listing.write_bytes(plistlib.dumps(["CFBundleVersion"]))
        for file, key in ((plist, "NoSuchKey"), (plist, "NSHighResolutionCapable"),
                          (plist, "CFBundleURLTypes"), (number, "CFBundleVersion"),
                          (broken, "CFBundleVersion"), (listing, "CFBundleVersion"),
                          (self.folder / "none", "CFBundleVersion"), (self.folder, "CFBundleVersion")):
            self.assertEqual(self.ask(self.program, file, key), "none", (file.name, key))

    def running(self, build):
        """What a bundle says of itself whose version is this; none for no version."""
        bundle = self.folder / "Vellix.app"
        told = plistlib.loads(self.info_plist().read_bytes()) | {"CFBundleVersion": build}
        if build is None:
            del told["CFBundleVersion"]
        (bundle / "Resources").mkdir(parents=True, exist_ok=True)
        (bundle / "Resources/Info-gnustep.plist").write_bytes(plistlib.dumps(told))
        program = bundle / "Vellix"
        program.write_bytes(self.program.read_bytes())
        program.chmod(0o755)
        return self.ask(program).split("\n")

    def test_the_running_copy_is_its_bundle(self):
        identifier, bundle, process, build = self.running("41")
        self.assertEqual((identifier, Path(bundle)),
                         ("com.rennyvale.Sorel", self.folder / "Vellix.app"))
        self.assertGreater(int(process), 1)
        self.assertEqual(build, "41")

    def test_a_build_that_is_no_whole_number_is_one(self):
        for said, build in (("0040", "40"), ("+5", "5"), ("-3", "-3"), ("+-5", "1"), ("12a", "1"),
                            ("", "1"), (" 7", "1"), ("1.2", "1"),
                            ("99999999999999999999", "1"), (None, "1"), (41, "1")):
            self.assertEqual(self.running(said)[3], build, said)


if __name__ == "__main__":
    unittest.main(verbosity=2)
