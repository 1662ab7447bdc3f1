"""The browser on a reviewer's desk, and the desktop that sends its links back to the program."""

import html
import re
import urllib.request

from private_session import LIMIT, Trouble, wait_until

# What `xdg-open` is here: it writes down what it was asked to open.
STUB = """#!/bin/sh
printf '%s\\n' "$1" >>'{log}'
"""

LINK = re.compile(r'<a href="([^"]*)".*?<small>([^<]*)</small>', re.DOTALL)


class Browser:
    """Installs itself in a session, ahead of the program. The test walks the pages."""

    def __init__(self, session):
        self.log = session.folder / "browser.log"
        self.log.touch()
        folder = session.folder / "bin"
        folder.mkdir()
        stub = folder / "xdg-open"
        stub.write_text(STUB.format(log=self.log))
        stub.chmod(0o755)
        session.environment["PATH"] = f"{folder}:{session.environment['PATH']}"

    def pages(self):
        """The URLs of the pages that the program has opened, in order."""
        return self.log.read_text().split()

    def wait_for_page(self, count=1):
        """The URL of the count-th page that the program has opened."""
        return wait_until(f"page {count} in the browser", lambda: self.pages()[count - 1:])[0]

    @staticmethod
    def load(url):
        # Not through a proxy that the machine may name.
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(url, timeout=LIMIT) as answer:
            return answer.read().decode()

    def link_for(self, page, person):
        """Where a person's choice on the sign-in page leads."""
        links = {email: html.unescape(link) for link, email in LINK.findall(self.load(page))}
        for email, link in links.items():
            if email.startswith(person + "@"):
                return link
        raise Trouble(f"the sign-in page has no link for {person}: {links}")
