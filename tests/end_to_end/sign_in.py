"""A reviewer signs in by the button and the browser, after a change of mind."""

import json
import sys
import urllib.parse
from pathlib import Path

from desk import Desk, expect, run

BUTTON = "Sign in with Google"
WAITING = "Waiting for your browser"


def sign_in(build):
    with Desk(build, reviewer=None) as desk:
        reader, browser = desk.reader, desk.browser

        reader.press_named(BUTTON)
        browser.wait_for_page(1)
        reader.find(name=WAITING)
        reader.find(name="Opening Google…")
        reader.press_named("Cancel")
        reader.find(name=BUTTON)
        reader.gone(name=WAITING)
        expect(not desk.service.requests("POST", ""), "something went out to the service")

        reader.press_named(BUTTON)
        page = browser.wait_for_page(2)
        nonce = urllib.parse.parse_qs(urllib.parse.urlsplit(page).query)["state"][0]
        expect(len(nonce) == 32, f"the nonce is {nonce}")
        reader.find(name=WAITING)
        # The link is a process of its own, which hands it to the program that waits, and ends.
        desk.second_start(browser.link_for(page, "jorvas"))
        desk.service.wait_for_request("GET", "api/state")
        reader.gone(name=WAITING)
        reader.find(contains="Reprints")
        desk.alive()
        exchanges = desk.service.requests("POST", "api/login/exchange")
        expect(len(exchanges) == 1, f"the code went out {len(exchanges)} times")
        expect(json.loads(exchanges[0]["body"])["state"] == nonce, "another nonce went out")

        desk.close_window()
        folder = Path(desk.session.environment["XDG_CONFIG_HOME"])
        kept = (folder / "vellix" / "defaults.ini").read_text(encoding="utf-8")
        expect("LastEmail=jorvas@" in kept, f"the address was not kept: {kept}")


if __name__ == "__main__":
    sys.exit(run(sign_in))
