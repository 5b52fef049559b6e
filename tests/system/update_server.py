"""A web server on loopback whose folders behave as they are called; prints its port. Serves only who asks properly."""
import http.server
import time

RELEASE = b"[~UP]\r\nVersion=2.2.0\r\nRelease=24.12.2026\r\nSize=3 MB\r\nInfo=\"Much better\"\r\n"
BODIES = {
    "newer": RELEASE,
    "equal": RELEASE.replace(b"2.2.0", b"2.1.0"),
    "novalue": RELEASE.replace(b"2.2.0", b""),
    "html": b"<html><body>Version=2.2.0</body></html>",
    "missing": RELEASE,
    "cut": RELEASE,
}
TARGETS = {"moved": "/newer/Version.inf", "tofile": "file:///etc/hostname", "circle": "/circle/Version.inf"}


class Folders(http.server.BaseHTTPRequestHandler):
    def log_message(self, *_):
        pass

    def do_GET(self):
        folder, _, name = self.path[1:].partition("/")
        proper = (name == "Version.inf" and self.headers["User-Agent"] == "Test agent"
                  and self.headers["Cache-Control"] == "no-cache" and "Cookie" not in self.headers)
        if not proper:
            self.send_error(400)
        elif folder in TARGETS:
            self.answer(302, b"", Location=TARGETS[folder])
        elif folder == "endless":
            self.answer(200, RELEASE, length=1 << 40)
            while True:
                self.wfile.write(b"; and so on\n" * 1000)
        elif folder == "silent":
            time.sleep(60)
        else:
            body = BODIES[folder]
            self.answer(404 if folder == "missing" else 200, body, length=len(body) + (folder == "cut"))

    def answer(self, status, body, length=None, **headers):
        self.send_response(status)
        for header in headers.items():
            self.send_header(*header)
        self.send_header("Content-Length", str(len(body) if length is None else length))
        self.send_header("Set-Cookie", "known=1")
        self.end_headers()
        self.wfile.write(body)


with http.server.ThreadingHTTPServer(("127.0.0.1", 0), Folders) as server:
    print(server.server_address[1], flush=True)
    server.handle_error = lambda *_: None  # who was told too much hangs up
    server.serve_forever()
