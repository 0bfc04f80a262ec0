"""nginx on free ports of this machine, and behind it a page that takes forms and commands."""

import contextlib
import http.server
import os
import pathlib
import shutil
import socket
import subprocess
import threading
import time

from interop import check

NGINX = shutil.which("nginx", path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin")

# One process, which is stopped by its id; everything that it writes lies in the test's folder.
CONFIGURATION = """
daemon off;
master_process off;
pid {folder}/nginx.pid;
error_log {folder}/error.log;
events {{}}
http {{
  access_log off;
  types {{}}
  client_max_body_size 0;
  proxy_http_version 1.1;
  client_body_temp_path {folder}/body;
  proxy_temp_path {folder}/proxy;
  fastcgi_temp_path {folder}/fastcgi;
  uwsgi_temp_path {folder}/uwsgi;
  scgi_temp_path {folder}/scgi;
  server {{
    listen 127.0.0.1:{port};
    root {folder}/site;
    location /slow/ {{ alias {folder}/site/; limit_rate 5m; }}
    location /redirect/ {{ rewrite ^/redirect(/.*)$ $1 redirect; }}
    location /moved/ {{ rewrite ^/moved(/.*)$ $1 permanent; }}
    location /unchanged {{ return 304; }}
    location /failing {{ return 500; }}
    location /page/ {{ proxy_pass http://127.0.0.1:{page_port}; }}
    location /page/without-length {{
      proxy_pass http://127.0.0.1:{page_port};
      chunked_transfer_encoding off;
    }}
  }}
  {secure_server}
}}
"""

SECURE_SERVER = """
  server {{
    listen 127.0.0.1:{port} ssl;
    root {folder}/site;
    ssl_certificate {certificate}.pem;
    ssl_certificate_key {certificate}.key;
    location /insecure/ {{ rewrite ^/insecure(/.*)$ http://{address}$1 redirect; }}
  }}
"""


class Page(http.server.BaseHTTPRequestHandler):
    """Answers commands by the table of its server, and notes the forms that are sent to it."""

    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def do_GET(self):
        answer, is_broken = self.server.answers[self.path.removeprefix("/page/").split("?")[0]]
        self.close_connection = True
        self.send_response(200)
        self.send_header("Transfer-Encoding", "chunked")
        self.end_headers()
        for start in range(0, len(answer), 70_000):
            chunk = answer[start : start + 70_000]
            self.wfile.write(b"%x\r\n%s\r\n" % (len(chunk), chunk))
        if not is_broken:
            self.wfile.write(b"0\r\n\r\n")

    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"]))
        # No header announces the boundary: it is the body's first line.
        boundary = body.split(b"\r\n", 1)[0]
        end = b"\r\n" + boundary + b"--\r\n"
        is_form = boundary.startswith(b"--") and body.count(boundary) == 2 and body.endswith(end)
        part = body[len(boundary) + 2 : -len(end)]
        head, separator, payload = part.partition(b"\r\n\r\n")
        self.server.forms.append((head.split(b"\r\n"), payload))
        self.send_response(200 if is_form and separator else 400)
        self.send_header("Content-Length", 0)
        self.end_headers()


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Web:
    """What is served: files in `site`, answers of the page in `answers`: bytes, and whether the
    connection breaks under them."""

    def __init__(self, folder):
        self.site = folder / "site"
        self.site.mkdir()
        self.answers = {}
        self.forms = []
        self.port, self.secure_port = free_port(), free_port()

    @property
    def address(self):
        return f"127.0.0.1:{self.port}"

    def url(self, path):
        return f"http://{self.address}/{path}"


@contextlib.contextmanager
def serving(folder, certificate=None):
    """certificate: the path of its files without .pem and .key, for a secure server besides."""
    check(NGINX, "there is no nginx: run tools/setup")
    folder = pathlib.Path(folder) / "web"
    folder.mkdir()
    web = Web(folder)
    page = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Page)
    page.handle_error = lambda *_: None  # clients that were killed
    page.answers, page.forms = web.answers, web.forms
    threading.Thread(target=page.serve_forever, daemon=True).start()
    secure_server = SECURE_SERVER.format(
        folder=folder, port=web.secure_port, certificate=certificate, address=web.address
    )
    configuration = folder / "nginx.conf"
    configuration.write_text(
        CONFIGURATION.format(
            folder=folder,
            port=web.port,
            page_port=page.server_port,
            secure_server=secure_server if certificate else "",
        )
    )
    nginx = subprocess.Popen(
        [NGINX, "-p", folder, "-c", configuration, "-e", folder / "error.log"],
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    )
    try:
        wait_for(web.port, nginx, folder / "error.log")
        yield web
    finally:
        nginx.terminate()
        nginx.wait()
        page.shutdown()
        page.server_close()


def wait_for(port, process, log):
    for _ in range(200):
        check(process.poll() is None, f"nginx has ended: {log.read_text() if log.exists() else ''}")
        with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port), 1):
            return
        time.sleep(0.05)
    check(False, "nginx does not answer")
