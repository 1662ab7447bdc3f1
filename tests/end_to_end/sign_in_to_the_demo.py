"""Signing in where the desktop does not know the program's links: the demo service tells them."""

import sys

from desk import Desk, expect, run


def sign_in(build):
    with Desk(build, reviewer=None,
              service_arguments=("--no-colleague", "--hand-back")) as desk:
        desk.reader.press_named("Sign in with Google")
        page = desk.browser.wait_for_page()
        server = page.partition("/signin")[0]
        desk.browser.load(server + desk.browser.link_for(page, "renny"))
        line = desk.session.read_line(desk.service.child, "the callback")
        word, _, url = line.partition(" ")
        expect(word == "callback", f"the service said {line!r}")
        desk.second_start(url)
        desk.service.wait_for_request("GET", "api/state")
        desk.reader.gone(name="Waiting for your browser")
        desk.alive()
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(sign_in))
