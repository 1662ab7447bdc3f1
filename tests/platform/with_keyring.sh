#!/bin/sh
# Runs the commands given, each one argument, in the session bus that it is started in. The first
# argument says what answers as the keyring: "unlocked", one whose password is given; "locked", one
# that would have to ask; or the path of a program that takes the name and never answers.
manner=$1
shift
case $manner in
  unlocked)
    printf password | gnome-keyring-daemon --unlock --components=secrets >/dev/null || exit 9 ;;
  locked) ;;
  *)
    ready=$(mktemp -u)
    mkfifo "$ready"
    "$manner" --silent >"$ready" &
    trap 'kill -KILL $!' EXIT
    read -r _ <"$ready"
    rm -f "$ready" ;;
esac
for command in "$@"; do
  sh -c "$command" || exit 8
done
