"""The demo service and its controls, for a test."""

import json
import subprocess
import urllib.parse
import urllib.request

from private_session import LIMIT, Trouble, wait_until


class Service:
    def __init__(self, session, binary, arguments=("--no-colleague",)):
        # It ends when its stdin closes, so it cannot outlive the test however the test ends.
        self.child = session.start("service",
                                   [str(binary), "--port", "0", "--until-stdin-closes", *arguments],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        line = session.read_line(self.child, "the service's address")
        start = "listening on http://127.0.0.1:"
        if not line.startswith(start):
            raise Trouble(f"the service said {line!r}")
        self.base = line.removeprefix("listening on ")

    def _ask(self, method, path, body=None):
        request = urllib.request.Request(
            f"{self.base}/{path}", method=method,
            data=None if body is None else json.dumps(body).encode(),
            headers={"Content-Type": "application/json"})
        # Not through a proxy that the machine may name.
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(request, timeout=LIMIT) as answer:
            text = answer.read()
        return json.loads(text) if text.strip() else None

    def log(self):
        return self._ask("GET", "demo/log")

    def clear_log(self):
        self._ask("DELETE", "demo/log")

    def state(self):
        return self._ask("GET", "demo/state")

    def fail_with(self, *faults):
        """From now on these faults and no others: dicts of path, times, status, cut and so on."""
        self._ask("POST", "demo/faults", list(faults))

    def take_time(self, milliseconds):
        """From now on answers about board, tickets and findings take so long; nothing fails."""
        self.fail_with(*[{"path": path, "delay_ms": milliseconds, "times": 100_000}
                         for path in ("/api/state", "/api/files/", "/api/findings/")])

    def colleague_acts(self, **deed):
        self._ask("POST", "demo/colleague", deed)

    def find_more(self, file_id, page, count):
        """The check finds so many more things on that page, all of them open."""
        self._ask("POST", "demo/findings", {"file_id": file_id, "page": page, "count": count})

    def keep_waiting(self, approvers=None, checks=None):
        """Approvers answer, and checks of revisions end, only when asked to; False ends that."""
        waits = {"approvers": approvers, "checks": checks}
        self._ask("POST", "demo/waits", {who: on for who, on in waits.items() if on is not None})

    def approvers_answer(self, file_id, kind="approved", note="", by=""):
        """Everyone who was asked and has not answered does so now, or one of them."""
        self._ask("POST", "demo/answers",
                  {"file_id": file_id, "kind": kind, "note": note, "by": by})

    def worker(self, **how):
        """How the worker goes on: hold="Comparing pages" (a step, "queued", or "" to go on),
        fail="what is to check" for the job at work or the next, silent=True until it is False."""
        self._ask("POST", "demo/worker", how)

    def someone_comes(self, email, name, counted=True):
        """One more person on the board; without figures, unless they are counted."""
        self._ask("POST", "demo/people", {"email": email, "name": name, "counted": counted})

    def someone_leaves(self, email):
        self._ask("POST", "demo/people", {"email": email, "gone": True})

    def newest(self):
        """What is said of the client's newest build."""
        return self._ask("GET", "version.json")

    def feed(self, **newest):
        """Says that of the client's newest build (version, build, url, notes, min_build); of what is
        left out the truth, which is this very build."""
        self._ask("POST", "demo/feed", newest)

    def proof(self, file_id, version=0, repaired=False):
        """A version's PDF, the newest by default; repaired, as it was sent to be printed."""
        query = urllib.parse.urlencode({"file_id": file_id, "v": version, "repaired": int(repaired)})
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(f"{self.base}/demo/proof?{query}", timeout=LIMIT) as answer:
            return answer.read()

    def requests(self, method, start):
        """The log's entries of one method whose path starts so, oldest first."""
        return [entry for entry in self.log()
                if entry["method"] == method and entry["path"].lstrip("/").startswith(start)]

    def wait_for_request(self, method, start, count=1):
        return wait_until(f"{count} × {method} {start}",
                          lambda: (found := self.requests(method, start))[count - 1:] and found)
