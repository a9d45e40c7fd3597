"""A mail server that keeps what it gets."""

import base64
import socketserver
import threading


class SmtpReceiver:
    """Listens on a port of its own. `mails` are (sender, recipients, bytes). Recipients that begin
    with "no" and senders that begin with "bad" are refused; with `login` (user, password) nothing
    is taken before it; with `silent` nobody is answered."""

    def __init__(self, login=None, silent=False):
        self.mails = []
        self.login = login
        self.silent = silent
        receiver = self

        class Handler(socketserver.StreamRequestHandler):
            def handle(self):
                receiver.converse(self)

        class Server(socketserver.ThreadingTCPServer):
            daemon_threads = True

        self.server = Server(("127.0.0.1", 0), Handler)
        self.port = self.server.server_address[1]
        self.thread = threading.Thread(target=self.server.serve_forever, daemon=True)

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.server.shutdown()
        self.server.server_close()

    def converse(self, client):
        if self.silent:
            client.rfile.readline()
            return

        def say(line):
            client.wfile.write(line.encode("ascii") + b"\r\n")

        say("220 here")
        sender, recipients, known = None, [], self.login is None
        for raw in client.rfile:
            line = raw.decode("latin-1").rstrip("\r\n")
            word = line.split(" ")[0].upper()
            address = line.partition("<")[2].partition(">")[0]
            if word == "EHLO":
                say("250-here")
                say("250 AUTH PLAIN")
            elif word == "AUTH":
                given = line.split(" ")
                if len(given) < 3:
                    say("334 ")
                    given.append(client.rfile.readline().decode("ascii").strip())
                known = base64.b64decode(given[2]).decode() == "\0%s\0%s" % self.login
                say("235 ok" if known else "535 wrong")
            elif not known and word in ("MAIL", "RCPT", "DATA"):
                say("530 login first")
            elif word == "MAIL":
                if address.startswith("bad"):
                    say("553 not from you")
                else:
                    sender, recipients = address, []
                    say("250 ok")
            elif word == "RCPT":
                if address.startswith("no"):
                    say("550 nobody here")
                else:
                    recipients.append(address)
                    say("250 ok")
            elif word == "DATA":
                say("354 go on")
                data = b""
                while not data.endswith(b"\r\n.\r\n"):
                    data += client.rfile.readline()
                self.mails.append((sender, recipients, data[:-5].replace(b"\r\n..", b"\r\n.")))
                say("250 taken")
            elif word == "QUIT":
                say("221 bye")
                return
            else:
                say("250 ok")
