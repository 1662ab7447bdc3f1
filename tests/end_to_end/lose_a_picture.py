"""A page's picture does not come: its place says so, and it comes after the next poll or by Refresh."""

import sys

from desk import Desk, expect, run, wait_until

MISSING = "This picture didn't load. It is tried again."
PICTURES = ("image", "graphic", "icon")
ROW = ("list item",)
STATE = "api/state"


class Ticket:
    """One that has not been looked at, and the page that it opens on."""

    def __init__(self, detail):
        self.file = detail["file"]
        self.heading = f"{self.file['title']} {self.file['component']}"
        grave = next(each for each in detail["findings"]
                     if each["severity"] == "high" and each.get("box"))
        self.page = self.file["pages"][grave["page"]]
        name = self.page.get("label") or grave["page"] + 1
        self.caption = f"{self.file['supplier']} file · p{name}"
        self.box = f"{grave['title']}, Fix, "
        self.picture = "api/blob/" + self.page["img"]


def tickets_to_open(service):
    """All but the first due, which is on show from the start."""
    details = [detail for detail in service.state()["files"].values()
               if detail["file"]["track"] == "new_title" and detail["file"]["status"] != "reviewed"
               and any(each["severity"] == "high" and each.get("box")
                       for each in detail["findings"])]
    details.sort(key=lambda detail: detail["file"]["due"])
    return [Ticket(detail) for detail in details[1:]]


def lasting(path):
    return {"path": f"/{path}", "times": 100000, "status": 503}


def lose(build):
    with Desk(build) as desk:
        reader, service = desk.reader, desk.service
        reader.find(name="Up to date")
        tickets = tickets_to_open(service)
        expect(len(tickets) >= 2, "the demo has too few tickets")

        def asked(ticket):
            return len(service.requests("GET", ticket.picture))

        def polls(more):
            service.wait_for_request("GET", STATE, len(service.requests("GET", STATE)) + more)

        # What is missing is said in its place, without marks over nothing, under a board that is up
        # to date. Every good poll asks for it once.
        first = tickets[0]
        service.fail_with(lasting(first.picture))
        reader.press_named(first.heading, roles=ROW)
        reader.find(name=MISSING)
        reader.find(name="Up to date")
        expect(not reader.find_all(name=first.caption, roles=PICTURES), "a page is told that is not")
        marks = len(reader.find_all(contains=first.box))
        before = asked(first)
        polls(more=3)
        expect(1 <= asked(first) - before <= 4, f"it was asked for {asked(first) - before} times")
        service.fail_with()
        reader.gone(name=MISSING)
        reader.find(name=first.caption, roles=PICTURES)
        wait_until("the mark on it",
                   lambda: len(reader.find_all(contains=first.box)) == marks + 1)
        came = asked(first)
        polls(more=2)
        expect(asked(first) == came, "it was asked for although it is here")

        # While polls fail nothing is asked for, until somebody wants it all anew.
        second = tickets[1]
        service.fail_with(lasting(second.picture))
        reader.press_named(second.heading, roles=ROW)
        reader.find(name=MISSING)
        service.fail_with(lasting(STATE), lasting(second.picture))
        reader.find(name="Offline")
        service.fail_with(lasting(STATE))
        before = asked(second)
        polls(more=2)
        expect(asked(second) == before, "it was asked for without a good poll")
        reader.key("ctrl+r")
        reader.gone(name=MISSING)
        reader.find(name=second.caption, roles=PICTURES)
        service.fail_with()
        reader.gone(name="Offline")
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(lose))
