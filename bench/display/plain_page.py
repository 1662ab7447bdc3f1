"""What the program shows as a plain web page on loopback: the same words, boxes and pictures."""

import html
import threading
import urllib.request
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

HEAD = """<!DOCTYPE html><meta charset="utf-8"><title>Board</title><style>
body{margin:0;overflow:hidden} body *{position:absolute;box-sizing:border-box;
font-family:Inter,sans-serif} span{white-space:nowrap} p{margin:0}
</style>"""


def colour(name):
    """As the web writes it, with the opacity last."""
    return f"#{name[3:]}{name[1:3]}"


def style(one, **more):
    parts = {"left": f"{one['x']}px", "top": f"{one['y']}px", "width": f"{one['w']}px",
             "height": f"{one['h']}px", "opacity": one["opacity"], **more}
    return ";".join(f"{name.replace('_', '-')}:{value}" for name, value in parts.items())


def box(one):
    line = f"{one.get('line', 0)}px solid {colour(one.get('lineColor', '#00000000'))}"
    looks = style(one, background="none" if one["color"] == "transparent" else colour(one["color"]),
                  border=line, border_radius=f"{one['radius']}px")
    return f'<div style="{looks}"></div>'


def picture(one):
    fit = "cover" if one["fill"] else "contain"
    return f'<img src="/{html.escape(one["key"])}" style="{style(one, object_fit=fit)}">'


def words(one):
    tag = "p" if one["wrapMode"] else "span"
    size = one["points"] * 96 / 72
    looks = style(one, color=colour(one["color"]), font_size=f"{size:.2f}px",
                  font_weight=one["weight"], line_height=one["lineHeight"] * 1.21)
    return f'<{tag} style="{looks}">{html.escape(one["text"])}</{tag}>'


def drawing(one, symbols):
    svg = (symbols / f"{one['name']}.svg").read_text().replace("currentColor",
                                                              "#" + one["color"][3:])
    return svg.replace("<svg ", f'<svg style="{style(one)}" ', 1)


class PlainPage:
    """Serves the page that was written from a scene; its pictures are fetched ahead."""

    def __init__(self, scene, service, token, symbols):
        turns = [(one["z"], write(one)) for kind, write in (
            ("boxes", box), ("pictures", picture), ("words", words),
            ("drawings", lambda one: drawing(one, symbols))) for one in scene[kind]]
        page = HEAD + "\n".join(text for _, text in sorted(turns))
        self.files = {"/": ("text/html", page.encode())}
        for one in scene["pictures"]:
            self.files["/" + one["key"]] = ("image/jpeg", fetched(service, token, one["key"]))
        files = self.files

        class Answers(BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                kind, body = files.get(self.path, ("text/plain", b""))
                self.send_response(200 if body else 404)
                self.send_header("Content-Type", kind)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

        self.server = ThreadingHTTPServer(("127.0.0.1", 0), Answers)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.url = f"http://127.0.0.1:{self.server.server_port}/"


def fetched(service, token, key):
    request = urllib.request.Request(f"{service}/api/blob/{key}",
                                     headers={"Authorization": f"Bearer {token}"})
    opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
    with opener.open(request, timeout=30) as answer:
        return answer.read()
