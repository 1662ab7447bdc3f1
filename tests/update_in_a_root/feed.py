"""The service as far as updates go: what the newest build is, and its disk image."""

import http.server
import io
import json
import tarfile
import threading
from pathlib import Path

from ground import make_bundle


def image(name="Vellix.app", build="41", spoil=None, **signed):
    """The bytes of a disk image with a bundle in it, which `spoil` may touch once it is signed."""
    bundle = make_bundle(Path("/tmp/image") / name, build, **signed)
    if spoil:
        spoil(bundle)
    packed = io.BytesIO()
    with tarfile.open(fileobj=packed, mode="w") as tree:
        tree.add(bundle, name)
    return packed.getvalue()


class Feed:
    def __init__(self):
        self.version = {"version": "1.2", "build": 41, "notes": "New", "url": None}
        self.image = image()
        self.status = 200
        self.mode = "whole"  # or "cut off", "hang", "silent", "no HTTP", "elsewhere"
        self.requests = []   # (path, token)
        self.going_on = threading.Event()
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self.base = f"http://127.0.0.1:{self.server.server_port}"
        self.version["url"] = f"{self.base}/Vellix.dmg"
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def close(self):
        self.going_on.set()
        self.server.shutdown()
        self.server.server_close()

    def asked(self, path):
        return sum(1 for asked, _ in self.requests if asked == path)

    def _handler(feed):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                feed.requests.append((self.path, self.headers.get("Authorization")))
                if self.path == "/version.json":
                    self.answer(200, json.dumps(feed.version).encode(), feed.mode == "silent")
                elif feed.mode == "no HTTP":
                    self.wfile.write(b"SSH-2.0-nothing\r\n\r\n")
                    self.close_connection = True
                elif feed.mode == "elsewhere":
                    self.send_response(302)
                    self.send_header("Location", feed.base.replace("127.0.0.1", "localhost") + "/x")
                    self.end_headers()
                else:
                    self.answer(feed.status, feed.image, feed.mode == "hang")

            def answer(self, status, body, hangs):
                self.send_response(status)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                half = hangs or feed.mode == "cut off" and self.path != "/version.json"
                self.wfile.write(body[:len(body) // 2 if half else None])
                self.wfile.flush()
                if hangs:
                    feed.going_on.wait(120)
                if half:
                    self.close_connection = True

            def log_message(self, *_):
                pass

        return Handler
