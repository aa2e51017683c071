"""Web servers on the loopback address: a real one, and one that misbehaves as it is told."""

import contextlib
import os
import pathlib
import re
import socket
import subprocess
import threading
import time

HTTP = int(os.environ["PIROL_HTTP"])
HTTPS = HTTP + 1
KEYS = pathlib.Path(os.environ["PIROL_KEYS"])
MODULES = "/usr/lib/apache2/modules"
LIST = "pirol_version.ver"


def wait_for_port(port):
    end = time.monotonic() + 20
    while time.monotonic() < end:
        with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port), timeout=1):
            return
        time.sleep(0.05)
    raise TimeoutError(f"nothing listens on port {port}")


class Apache:
    """Serves the folder "pirol" of a folder on both ports; `speed` in KB a second for all but the list."""

    def __init__(self, root, work, certificate="server", speed=None):
        modules = ["mpm_event", "authz_core", "ssl", "env", "ratelimit", "filter"]
        lines = [f"ServerRoot {work}", "ServerName localhost", f"PidFile {work}/pid", f"DefaultRuntimeDir {work}",
                 f"Mutex file:{work}", f"ErrorLog {work}/error.log",
                 *(f"LoadModule {name}_module {MODULES}/mod_{name}.so" for name in modules),
                 f"Listen 127.0.0.1:{HTTP}", f"Listen 127.0.0.1:{HTTPS}", f"DocumentRoot {root}", "SSLSessionCache none",
                 f"<Directory {root}>\nRequire all granted\n</Directory>",
                 f"<VirtualHost 127.0.0.1:{HTTPS}>\nSSLEngine on\nSSLCertificateFile {KEYS}/{certificate}.crt\n"
                 f"SSLCertificateKeyFile {KEYS}/{certificate}.key\n</VirtualHost>"]
        if os.geteuid() == 0:
            lines += ["User nobody", "Group nogroup"]
        if speed:
            lines += [f"<FilesMatch \"deb$\">\nSetOutputFilter RATE_LIMIT\nSetEnv rate-limit {speed}\n</FilesMatch>"]
        (work / "conf").write_text("\n".join(lines) + "\n")
        self.server = subprocess.Popen([os.environ["PIROL_APACHE"], "-X", "-f", str(work / "conf")])
        wait_for_port(HTTP)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


class Misbehaving:
    """Answers requests for the list well and all others by the function given: answer(connection, head, first byte).
    The server notes which first bytes were asked for."""

    def __init__(self, root, answer, list_answer=None):
        self.root, self.answer, self.list_answer, self.asked = root, answer, list_answer, []
        self.listener = socket.create_server(("127.0.0.1", HTTP), backlog=64)
        self.thread = threading.Thread(target=self.listen, daemon=True)
        self.thread.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()
        self.thread.join()

    def listen(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            threading.Thread(target=self.serve, args=(connection,), daemon=True).start()

    def serve(self, connection):
        connection.setsockopt(socket.SOL_SOCKET, socket.SO_SNDBUF, 16384)
        with connection, contextlib.suppress(OSError):
            head = b""
            while not head.endswith(b"\r\n\r\n"):
                piece = connection.recv(4096)
                if not piece:
                    return
                head += piece
            head = head.decode()
            path = self.root / re.sub("^http://[^/]+", "", head.split()[1]).lstrip("/")  # a proxy is asked by whole addresses
            if path.name == LIST and not self.list_answer:
                connection.sendall(whole(path.read_bytes()))
            elif path.name == LIST:
                self.list_answer(connection, path.read_bytes())
            else:
                found = re.search(r"^Range: bytes=(\d+)-\r$", head, re.M | re.I)
                first = int(found[1]) if found else 0
                self.asked.append(first)
                self.answer(connection, path.read_bytes(), first)


def head(status, **fields):
    lines = [f"HTTP/1.1 {status}", *(f"{key.replace('_', '-')}: {value}" for key, value in fields.items()),
             "Connection: close"]
    return "\r\n".join(lines).encode() + b"\r\n\r\n"


def whole(content, length=None, **fields):
    return head("200 OK", Content_Length=len(content) if length is None else length, ETag='"1"', **fields) + content


def rest(content, first, **fields):
    described = {"Content_Length": len(content) - first, "ETag": '"1"',
                 "Content_Range": f"bytes {first}-{len(content) - 1}/{len(content)}", **fields}
    return head("206 Partial Content", **described) + content[first:]
