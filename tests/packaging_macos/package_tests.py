"""script/package_mac over stand-ins of the Mac's tools: what is asked of them, in which order."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

TOOL = """#!/bin/sh
echo "${0##*/}" "$@" >>"$TOOLS/told"
if [ "${0##*/} $1" = "$FAILS" ]; then exit 1; fi
case "${0##*/} $1" in
  "uname "*) echo "$SYSTEM" ;;
  "cmake --build") mkdir -p "$2/Vellix.app" ;;
  "codesign -dv") echo "$SIGNED" >&2 ;;
  "ditto "*) cp -R "$1" "$2" ;;
  "hdiutil create") shift $(($# - 1)); : >"$1" ;;
esac
"""
SIGNED = "Identifier=com.rennyvale.Sorel\nTeamIdentifier=QX9102846T"


class PackageForTheMac(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "a checkout"
        for part in ("script/package_mac", "script/lib/common.sh", "src/update/verification.hpp",
                     "src/update/verification.cpp"):
            (self.root / part).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / part, self.root / part)
        self.tools = self.root / "tools"
        self.tools.mkdir()
        for name in ("uname", "cmake", "macdeployqt", "codesign", "ditto", "hdiutil", "xcrun"):
            (self.tools / name).write_text(TOOL)
            (self.tools / name).chmod(0o755)

    def pack(self, *arguments, system="Darwin", signed=SIGNED, fails="", **more):
        told = {"SYSTEM": system, "SIGNED": signed, "FAILS": fails, "TOOLS": str(self.tools),
                "PATH": f"{self.tools}:{os.environ['PATH']}", **more}
        ended = subprocess.run([self.root / "script/package_mac", *arguments], env=told,
                               capture_output=True, text=True)
        self.asked = (self.tools / "told").read_text().splitlines()
        return ended

    def test_signs_then_verifies_then_packs(self):
        ended = self.pack("-DCMAKE_PREFIX_PATH=/qt")
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertEqual(self.asked, [
            "uname",
            "cmake --preset release -B build/mac -DVELLIX_TESTS=OFF -DCMAKE_PREFIX_PATH=/qt",
            "cmake --build build/mac --target vellix",
            "macdeployqt build/mac/Vellix.app -qmldir=src -sign-for-notarization=QX9102846T",
            "codesign --force --options runtime --timestamp --entitlements "
            "packaging/macos/Vellix.entitlements --sign QX9102846T build/mac/Vellix.app",
            "codesign --verify --deep --strict build/mac/Vellix.app",
            "codesign -dv build/mac/Vellix.app",
            "ditto build/mac/Vellix.app build/package/image/Vellix.app",
            "hdiutil create -volname Vellix -srcfolder build/package/image -format UDZO -ov "
            "build/package/Vellix.dmg",
            "codesign --timestamp --sign QX9102846T build/package/Vellix.dmg"])
        self.assertEqual([file.name for file in (self.root / "build/package").iterdir()],
                         ["Vellix.dmg"])

    def test_is_notarized_where_credentials_are_named(self):
        self.assertEqual(self.pack(NOTARY_PROFILE="the team's").returncode, 0)
        self.assertEqual(self.asked[-2:], [
            "xcrun notarytool submit --keychain-profile the team's --wait "
            "build/package/Vellix.dmg",
            "xcrun stapler staple build/package/Vellix.dmg"])

    def test_nothing_is_packed_that_no_copy_would_take(self):
        for signed in ("Identifier=com.rennyvale.Sorel\nTeamIdentifier=AB12345678",
                       "Identifier=com.rennyvale.Other\nTeamIdentifier=QX9102846T", ""):
            ended = self.pack(signed=signed)
            self.assertNotEqual(ended.returncode, 0)
            self.assertIn("is not signed as an update must be", ended.stderr)
            self.assertFalse((self.root / "build/package/Vellix.dmg").exists())

    def test_ends_with_the_tool_that_fails(self):
        for fails in ("cmake --preset", "cmake --build", "macdeployqt build/mac/Vellix.app",
                      "codesign --force", "codesign --verify", "ditto build/mac/Vellix.app",
                      "hdiutil create"):
            shutil.rmtree(self.root / "build", ignore_errors=True)
            (self.tools / "told").unlink(missing_ok=True)
            self.assertNotEqual(self.pack(fails=fails).returncode, 0, fails)
            self.assertTrue(self.asked[-1].startswith(fails), (fails, self.asked[-1]))

    def test_does_nothing_elsewhere(self):
        ended = self.pack(system="Linux")
        self.assertEqual(ended.stderr, "script/package_mac packs on a Mac, for a Mac.\n")
        self.assertEqual((ended.returncode, self.asked), (1, ["uname"]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
