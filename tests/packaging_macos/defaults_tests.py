"""src/platform/macos/MacDefaults.mm and MacMachine.mm over another system's Foundation."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from foundation import compiled

# Carries out its arguments: "text KEY", "flag KEY", "setText KEY VALUE", "setFlag KEY 0 or 1",
# "setNumber KEY VALUE" past the adapter, "writeDown", "name", and "list KEY" for what is no text.
MAIN = """
#import <Foundation/Foundation.h>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include "platform/macos/MacDefaults.hpp"
#include "platform/macos/MacMachine.hpp"
int main(int argc, char** argv) {
  @autoreleasepool {
    vellix::MacDefaults defaults;
    for (int at = 1; at < argc; ++at) {
      const std::string step = argv[at];
      if (step == "name") std::printf("%s\\n", vellix::MacMachine{}.name().c_str());
      if (step == "writeDown") defaults.writeDown();
      if (step == "name" || step == "writeDown") continue;
      const std::string key = argv[++at];
      NSString* name = [NSString stringWithUTF8String:key.c_str()];
      NSUserDefaults* own = [NSUserDefaults standardUserDefaults];
      if (step == "text") std::printf("%s\\n", defaults.text(key).value_or("none").c_str());
      if (step == "flag") {
        const auto flag = defaults.flag(key);
        std::printf("%s\\n", !flag ? "none" : *flag ? "true" : "false");
      }
      if (step == "setText") defaults.setText(key, argv[++at]);
      if (step == "setFlag") defaults.setFlag(key, *argv[++at] == '1');
      if (step == "setNumber") [own setInteger:std::atoi(argv[++at]) forKey:name];
      if (step == "list") [own setObject:[NSArray array] forKey:name];
    }
  }
  std::fflush(stdout);
  _exit(0);
}
"""


class OverFoundation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.program = compiled(Path(folder.name), MAIN, "MacDefaults.mm", "MacMachine.mm")

    def setUp(self):
        home = tempfile.TemporaryDirectory()
        self.addCleanup(home.cleanup)
        # It asks for no HOME.
        self.config = Path(home.name) / "config"
        self.config.write_text(f"GNUSTEP_USER_DEFAULTS_DIR={home.name}/Defaults\n")

    def carry_out(self, *steps):
        """What is told, by line."""
        told = subprocess.run([self.program, *steps], check=True, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=30,
                              env={**os.environ, "GNUSTEP_CONFIG_FILE": str(self.config)})
        return told.stdout.decode().splitlines()


class Defaults(OverFoundation):
    def test_what_was_written_down_outlives_the_process_at_once(self):
        words = "größe 'x' \"y\" $1"
        self.assertEqual(self.carry_out("setText", "t", words, "setFlag", "yes", "1", "setFlag",
                                        "no", "0", "text", "t", "writeDown"), [words])
        self.assertEqual(self.carry_out("text", "t", "flag", "yes", "flag", "no"),
                         [words, "true", "false"])

    def test_an_absent_key_is_neither_text_nor_flag(self):
        self.assertEqual(self.carry_out("text", "t", "flag", "t"), ["none", "none"])

    def test_numbers_of_earlier_copies_are_read(self):
        self.assertEqual(self.carry_out("setNumber", "n", "41", "text", "n", "flag", "n",
                                        "setNumber", "n", "0", "flag", "n"),
                         ["41", "true", "false"])

    def test_what_is_no_text_is_none_and_not_true(self):
        self.assertEqual(self.carry_out("list", "l", "text", "l", "flag", "l"), ["none", "false"])

    def test_words_read_as_flags(self):
        for words, flag in ((("true", "TRUE", "Yes", "yes", "1", "-2", "0.5", "1e3"), "true"),
                            (("false", "no", "0", "0.0", "", "2x", "truely", "nan", "t"), "false")):
            told = self.carry_out(*(step for word in words
                                    for step in ("setText", "w", word, "flag", "w")))
            self.assertEqual(list(zip(words, told)), [(word, flag) for word in words])


class Machine(OverFoundation):
    def test_has_a_name(self):
        self.assertEqual([bool(name) for name in self.carry_out("name")], [True])


if __name__ == "__main__":
    unittest.main(verbosity=2)
