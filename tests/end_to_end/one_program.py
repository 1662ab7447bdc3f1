"""There is one program on a desktop: a second start raises it, and a link starts it when need be."""

import sys

from desk import SIGNED_IN, Desk, expect, run, wait_until
from desktop import Desktop


def active_window(session):
    return session.run("xdotool", "getactivewindow", "getwindowname").strip()


def one_program(build):
    with Desk(build, reviewer=None) as desk:
        desktop = Desktop(desk.session)
        session, reader = desk.session, desk.reader
        reader.find(name="Sign in with Google")
        wait_until("the window to be active", lambda: active_window(session) == "Vellix")
        window = session.run("xdotool", "getactivewindow").strip()

        # A click on the icon, and the desktop's own call, bring the window back.
        for bring_back in (desk.second_start, desktop.activate):
            session.run("xdotool", "windowminimize", "--sync", window)
            bring_back()
            session.run("xdotool", "search", "--sync", "--onlyvisible", "--name", "^Vellix$")
            wait_until("the window to be active", lambda: active_window(session) == "Vellix")
        desk.alive()
        expect(len(session.run("xdotool", "search", "--onlyvisible", "--name",
                               "^Vellix$").split()) == 1,
               "there is a second window")

        # A link with nobody waiting for it is a sign-in; another is none of the program's business.
        desktop.open(["sorel://other?code=demo-renny", "https://signed-in?code=demo-renny"])
        desktop.open([SIGNED_IN.format("renny")])
        desk.service.wait_for_request("GET", "api/state")
        expect(len(desk.service.requests("POST", "api/login/exchange")) == 1,
               "a foreign link was followed")
        desk.close_window()

        # The program has ended, and the link starts it.
        desk.service.clear_log()
        desktop.install(desk.program_binary)
        desktop.open([SIGNED_IN.format("jorvas")])
        desk.service.wait_for_request("POST", "api/login/exchange")
        desk.service.wait_for_request("GET", "api/state")
        reader.attach()
        reader.find(contains="Reprints")
        reader.key("alt+F4")
        wait_until("the program to end", lambda: not desktop.runs())


if __name__ == "__main__":
    sys.exit(run(one_program))
