#!/usr/bin/env bash
# Sourced. What can be told of the Mac's side without a Mac: nothing of it is linked or run.

# The Objective-C++ files, read by clang over GNUstep's headers, and over tests/mac_syntax for what
# these do not declare. A misspelt class, message, property or argument is an error.
# objc_syntax FILES...
objc_syntax() {
  local qt ahead=build/lint/mac/appkit.pch
  qt=$(qmake6 -query QT_INSTALL_HEADERS)
  local flags=(-std=c++23 -fblocks -fobjc-exceptions -fobjc-runtime=gcc
    -fconstant-string-class=NSConstantString -Wall -Wextra -Wpedantic -Werror
    -I src -isystem tests/mac_syntax
    -isystem /usr/include/GNUstep -idirafter "$(gcc -print-file-name=include)"
    -isystem "$qt" -isystem "$qt/QtCore" -isystem "$qt/QtGui")
  mkdir -p build/lint/mac
  clang++-19 -x objective-c++-header "${flags[@]}" tests/mac_syntax/newer_appkit.h -o "$ahead" &&
    printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" \
      clang++-19 -x objective-c++ -fsyntax-only "${flags[@]}" -include-pch "$ahead"
}

# What names the system's adapters, read as for the Mac: all at once by the build's own compiler, with
# the other half of platform/System.hpp.
# mac_half BUILD FILES...
mac_half() {
  local build=$1 here=$PWD/build/lint/mac
  shift
  mkdir -p "$here/platform"
  sed 's/^#ifdef __APPLE__$/#if 1/' src/platform/System.hpp >"$here/platform/System.hpp"
  printf '#include "%s"\n' "${@/#/$PWD/}" >"$here/half.cpp"
  /usr/bin/python3 - "$build" "$here" "$1" <<'PY'
import json, os, shlex, subprocess, sys

build, here, example = sys.argv[1:]
entry = next(entry for entry in json.load(open(os.path.join(build, "compile_commands.json")))
             if os.path.realpath(os.path.join(entry["directory"], entry["file"]))
             == os.path.realpath(example))
words = shlex.split(entry["command"])
start = next(at for at, word in enumerate(words) if word.endswith("++"))
command = [words[start], "-I" + here, *words[start + 1:words.index("-o")]]
sys.exit(subprocess.run([*command, "-fsyntax-only", os.path.join(here, "half.cpp")],
                        cwd=entry["directory"]).returncode)
PY
}

# mac_syntax BUILD
mac_syntax() {
  local status=0
  objc_syntax src/platform/macos/*.mm || status=1
  mac_half "$1" src/shell/main.cpp src/shell/Program.cpp src/shell/Capture.cpp || status=1
  return $status
}
