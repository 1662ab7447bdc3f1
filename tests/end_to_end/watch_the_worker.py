"""A reviewer watches the worker: a sync is stopped, the worker falls silent and comes back."""

import sys

from desk import Desk, expect, run

BUTTON = ("push button", "button")
LOG = "What Claude did on the Mac mini"
TECHNICAL = "Technical log (for Renny)"
HIDE = "Hide the technical log"
# Every step lasts long enough to be seen by the program's three-second polls.
PACE = "2"


def open_log(reader):
    reader.press_named(LOG, roles=BUTTON)
    reader.find(name="Claude's log", roles=("heading",))


def close_log(reader):
    reader.key("Escape")
    reader.gone(name="Claude's log", roles=("heading",))


def stopped_in_the_log(reader, service):
    reader.press_named("Sync", roles=BUTTON)
    open_log(reader)
    reader.find(contains="Claude is ")
    reader.find(contains="Started by You")
    # Behind the card's: of the reports below, one has been given up by the worker.
    card, log, *_ = reader.find_all(name="Stop", roles=BUTTON)
    expect(log.depth > card.depth, "the log offers no end to the sync")
    reader.press(log)
    service.wait_for_request("POST", "api/jobs/job-")
    reader.find(name="Last sync", roles=("heading",))
    reader.find(name="Stopped")
    close_log(reader)


def raw_log(reader, service):
    open_log(reader)
    service.clear_log()
    reader.press_named(TECHNICAL)
    reader.find(name=HIDE)
    asked = service.wait_for_request("GET", "api/jobs/")
    reader.find(contains="picked up " + asked[0]["path"].rsplit("/", 1)[1])
    reader.press_named(HIDE)
    reader.find(name=TECHNICAL)
    expect(len(service.requests("GET", "api/jobs/")) == 1, "it was fetched to be hidden")
    reader.press_named(TECHNICAL)
    reader.find(name=HIDE)
    # Closing the log forgets it.
    close_log(reader)
    open_log(reader)
    reader.find(name=TECHNICAL)
    expect(len(service.requests("GET", "api/jobs/")) == 2, "it was not fetched anew")
    close_log(reader)


def silence(reader, service):
    """The worker does not answer: the sync is stopped, and the report asked for again."""
    service.worker(silent=True)
    reader.press_named("Sync", roles=BUTTON)
    reader.find(contains="Mac mini not answering", limit=60)
    open_log(reader)
    reader.find(contains="The Mac mini stopped answering")
    reader.find(contains="Press Sync to try again, or Stop.")
    close_log(reader)
    reader.press_named("Stop", roles=BUTTON)
    reader.find(name="Sync", roles=BUTTON)

    reader.press_named("Make report", roles=BUTTON)
    reader.find(contains="Ready in about")
    reader.find(name="Make report", roles=BUTTON, limit=60)
    service.worker(silent=False)
    reader.press_named("Make report", roles=BUTTON)
    service.wait_for_request("POST", "api/jobs", 6)
    open_log(reader)
    reader.find(contains="Claude is ", limit=60)
    reader.find(name="Reports", roles=("heading",))
    close_log(reader)
    reader.find(contains="Report by You · ", limit=60)


def watch(build):
    with Desk(build, service_arguments=("--no-colleague", "--pace", PACE)) as desk:
        stopped_in_the_log(desk.reader, desk.service)
        silence(desk.reader, desk.service)
        raw_log(desk.reader, desk.service)
        desk.close_window()


if __name__ == "__main__":
    sys.exit(run(watch))
