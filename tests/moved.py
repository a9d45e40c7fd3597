"""A site in the customary dialect, as people wrote them, and a visitor who keeps cookies."""

import urllib.parse

from serving import REPOSITORY, Server

SETTINGS = {"Customary": "2", "ErrorPage": "/errors/failure.asp",
            "NotFoundPage": "/errors/notfound.asp", "MailFolder": "mail"}


def moved_site():
    """The server of the site; mail goes into a folder of its own."""
    server = Server(site=REPOSITORY / "tests/sites/moved", settings=SETTINGS)
    mail_folder(server).mkdir()
    return server


def mail_folder(server):
    return server.folder / "main/mail"


class Visitor:
    """Speaks raw bytes to a server and sends back the cookies it got."""

    def __init__(self, server):
        self.server = server
        self.cookies = {}

    def _headers(self, headers):
        if not self.cookies:
            return headers
        pairs = "; ".join("%s=%s" % pair for pair in self.cookies.items())
        return headers + "Cookie: " + pairs + "\r\n"

    def _keep(self, response):
        for line in response.lines:
            if line.startswith("Set-Cookie: "):
                name, _, value = line[len("Set-Cookie: "):].partition(";")[0].partition("=")
                self.cookies[name] = value
        return response

    def get(self, target, headers=""):
        return self._keep(self.server.get(target, self._headers(headers)))

    def post(self, target, fields, charset="windows-1252"):
        body = urllib.parse.urlencode(fields, encoding=charset).encode()
        return self.post_bytes(target, body, "application/x-www-form-urlencoded")

    def post_bytes(self, target, body, kind):
        headers = self._headers("Content-Type: " + kind + "\r\n")
        return self._keep(self.server.post(target, body, headers))


def upload(fields, name, data):
    """The body and content type of a form with a file, in the field `picture`."""
    edge = "----edge"
    parts = [("--%s\r\nContent-Disposition: form-data; name=\"%s\"\r\n\r\n%s\r\n" % (edge, *field))
             .encode() for field in fields.items()]
    parts.append(("--%s\r\nContent-Disposition: form-data; name=\"picture\"; filename=\"%s\"\r\n"
                  "Content-Type: application/octet-stream\r\n\r\n" % (edge, name)).encode())
    return b"".join([*parts, data, b"\r\n--", edge.encode(), b"--\r\n"]), \
        "multipart/form-data; boundary=" + edge
