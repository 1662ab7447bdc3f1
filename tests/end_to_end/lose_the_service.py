"""The service fails and recovers under an open board; it ends the session, and a new one begins."""

import sys

from desk import SIGNED_IN, Desk, expect, run, wait_until

BANNER = "What's here stays. It tries again on its own."


def lose(build):
    with Desk(build) as desk:
        reader, service = desk.reader, desk.service
        reader.find(name="Only mine")
        wait_until("tickets to be listed", lambda: reader.rows("Tickets"))
        tickets = len(reader.rows("Tickets"))

        # The service's own words stand in the banner, the board stays, and it goes as it came.
        service.fail_with({"path": "/api/state", "times": 100000, "status": 503,
                           "body": '{"error": "Down for a minute."}'})
        reader.find(name="Down for a minute.")
        reader.find(name=BANNER)
        reader.find(name="Offline")
        expect(len(reader.rows("Tickets")) == tickets, "the board did not stay")
        service.fail_with()
        reader.gone(name="Down for a minute.")
        reader.gone(name=BANNER)

        # A connection that breaks off is told in the program's words.
        service.fail_with({"path": "/api/state", "times": 100000, "cut": True})
        reader.find(name="This Mac is offline. Vellix will catch up when it's back.")
        service.fail_with()
        reader.gone(name=BANNER)

        # A session that ended elsewhere leads to the sign-in screen, and says why.
        service.fail_with({"path": "/api/state", "status": 401})
        reader.find(contains="You're signed out. Sign in again.")
        reader.find(name="Supplier proofs, checked against what we sent.")
        expect(not reader.find_all(name="Only mine"), "the board is still there")
        expect(not service.requests("POST", "api/logout"), "the service was told to sign out")

        reader.gone(contains="You're signed out.")

        # Signed in again it is all there; going by the user's own wish, the service is told.
        desk.second_start(SIGNED_IN.format("renny"))
        reader.find(name="Only mine")
        reader.find(name="Up to date")
        reader.click(reader.find(name="Vellix", roles=("menu item",)))
        reader.click(reader.find(name="Sign out", roles=("menu item",)))
        reader.find(name="Supplier proofs, checked against what we sent.")
        service.wait_for_request("POST", "api/logout")
        expect(not reader.find_all(contains="You're signed out."), "it was told as a mishap")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(lose))
