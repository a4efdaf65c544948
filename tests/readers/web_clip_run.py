# SPDX-License-Identifier: MIT
"""What the tests of web clips share: a site on the loopback interface, ENEX files of clips, and an import."""

import base64
import contextlib
import gzip
import hashlib
import html
import http.server
import importlib.util
import json
import os
import plistlib
import struct
import subprocess
import threading
import time
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
ALLOWED_SECONDS = 300


def load(name):
    spec = importlib.util.spec_from_file_location(name.replace("-", "_"), os.path.join(HERE, name + ".py"))
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


class Answer:
    def __init__(self, body, kind="text/html", status=200, headers=(), packed=False, slow=False):
        self.body = body if isinstance(body, bytes) else body.encode("utf-8")
        self.kind, self.status, self.headers, self.slow = kind, status, list(headers), slow
        if packed:
            self.body = gzip.compress(self.body)
            self.headers.append(("Content-Encoding", "gzip"))


class Site:
    """Serves a dictionary of paths and answers; remembers the paths that were asked for."""

    def __init__(self, answers, port=0):
        site = self
        self.answers, self.asked = answers, []

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_GET(self):
                site.asked.append(self.path)
                answer = site.answers.get(self.path) or Answer("<p>Nothing here", status=404)
                self.send_response(answer.status)
                self.send_header("Content-Type", answer.kind)
                self.send_header("Content-Length", str(len(answer.body)))
                self.send_header("Cache-Control", "no-store")
                for name, value in answer.headers:
                    self.send_header(name, value)
                self.end_headers()
                with contextlib.suppress(OSError):
                    site.write(self.wfile, answer)

            def log_message(self, *_):
                pass

        class Server(http.server.ThreadingHTTPServer):
            daemon_threads = True

            def handle_error(self, *_):
                """A client that goes away is no news."""

        self.server = Server(("127.0.0.1", port), Handler)
        self.port = self.server.server_address[1]
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    @staticmethod
    def write(stream, answer):
        if not answer.slow:
            stream.write(answer.body)
            return
        for byte in answer.body:
            stream.write(bytes([byte]))
            time.sleep(0.002)

    def address(self, path):
        return f"http://127.0.0.1:{self.port}{path}"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.shutdown()
        self.server.server_close()


def png(red, green, blue, size=24):
    """A picture of one colour."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    rows = (b"\0" + bytes((red, green, blue)) * size) * size
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def clip(title, source_url, body="<p>clipped</p>", resources=()):
    """A note of an ENEX file; resources are (bytes, MIME type, file name), each shown after the body."""
    shown = "".join(f'<en-media hash="{hashlib.md5(data).hexdigest()}" type="{kind}"/>'
                    for data, kind, _ in resources)
    held = "".join(
        f"<resource><data encoding=\"base64\">{base64.b64encode(data).decode('ascii')}</data><mime>{kind}</mime>"
        f"<resource-attributes><file-name>{html.escape(name)}</file-name></resource-attributes></resource>"
        for data, kind, name in resources)
    return (f"<note><title>{html.escape(title)}</title><content><![CDATA[<en-note>{body}{shown}</en-note>]]></content>"
            f"<note-attributes><source>web.clip</source><source-url>{html.escape(source_url)}</source-url>"
            f"</note-attributes>{held}</note>")


class Import:
    """One run of the program on a file; its items are the manifest's records in their order."""

    def __init__(self, program, scratch, enex, settings=()):
        os.makedirs(os.path.join(scratch, "home"))
        path = os.path.join(scratch, "Clips.enex")
        with open(path, "w", encoding="utf-8") as out:
            out.write(enex)
        report_path = os.path.join(scratch, "report.json")
        environment = {key: value for key, value in os.environ.items()
                       if not key.startswith("XDG_") and key != "DISPLAY"}
        environment.update(HOME=os.path.join(scratch, "home"), TZ="UTC", LC_ALL="C.UTF-8")
        options = [option for setting in settings for option in ("--set", setting)]
        self.run = subprocess.run([program, *options, "--files-folder", scratch, "--report", report_path, path],
                                  env=environment, stdin=subprocess.DEVNULL, capture_output=True,
                                  timeout=ALLOWED_SECONDS)
        if self.run.returncode not in (0, 3):
            raise RuntimeError(f"exit code {self.run.returncode}: {self.run.stderr.decode(errors='replace')}")
        with open(report_path, encoding="utf-8") as source:
            self.report = json.load(source)
        with open(os.path.join(scratch, "Evernote", "Evernote.qllibxml"), "rb") as source:
            entities = plistlib.load(source)["Entities"]
        self.items = [entities["Item"][key] for folder in entities["Folder"].values() for key in folder["items"]]


def enex(*notes):
    return '<?xml version="1.0" encoding="UTF-8"?>\n<en-export>' + "".join(notes) + "</en-export>"
