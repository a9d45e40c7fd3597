"""nginx, HAProxy and Caddy with a configuration and a folder of their own, in front of a server."""

import os
import pathlib
import shutil
import subprocess
import tempfile

from serving import Server, end, free_port, is_listened_on, wait_until

from hosting.recipes import recipes, settings_of, with_own

NGINX = """daemon off;
pid nginx.pid;
error_log stderr;
worker_processes 1;
events {}
http {
    access_log off;
    client_body_temp_path body;
    proxy_temp_path proxy;
    fastcgi_temp_path fastcgi;
    uwsgi_temp_path uwsgi;
    scgi_temp_path scgi;
    include site.conf;
}
"""


class Proxy:
    """A proxy with a recipe's configuration, where `settings` are the server's, or without a
    heading with another."""

    KIND = None  # language of the recipe's block
    FILE = None

    def __init__(self, heading=None):
        self.recipe = recipes()[heading] if heading else {}
        self.is_secure = "TLS" in (heading or "")
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-proxy-"))
        # Workers run as another user.
        self.folder.chmod(0o755)
        self.port = free_port()
        self.process = None

    def settings(self, port):
        """Those of the recipe, with places of the test's own."""
        settings = settings_of(self.recipe["ini"])
        self.target = settings["Listen"]
        if self.target.startswith("unix:"):
            own = "unix:%s" % (self.folder / "site.sock")
        else:
            own = "127.0.0.1:%d" % port
        self.changes = {self.target.removeprefix("unix:"): own.removeprefix("unix:")}
        return {**settings, "Listen": own}

    def start(self):
        changes = {**self.changes, self.printed_address(): self.own_address()}
        if self.is_secure:
            changes.update(self.certificate())
        self.start_with(with_own(self.recipe[self.KIND], changes))

    def start_with(self, text):
        (self.folder / self.FILE).write_text(self.whole(text))
        log = open(self.folder / "log", "wb")
        self.process = subprocess.Popen(
            self.command(), cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log,
            stderr=subprocess.STDOUT,
            env={**os.environ, "HOME": str(self.folder), "XDG_DATA_HOME": str(self.folder),
                 "XDG_CONFIG_HOME": str(self.folder)})
        log.close()
        wait_until(self.listens, "the proxy to listen")

    def listens(self):
        if self.process.poll() is not None:
            raise AssertionError("the proxy ended:\n" + self.log_text())
        return is_listened_on(self.port)

    def log_text(self):
        return (self.folder / "log").read_text(errors="replace")

    def certificate(self):
        """Certificate and key in a file each and in one, and what they are called in recipes."""
        subprocess.run(
            ["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
             "/CN=site.example", "-addext", "subjectAltName=DNS:site.example", "-keyout", "key",
             "-out", "cert"],
            cwd=self.folder, check=True, capture_output=True)
        both = (self.folder / "cert").read_text() + (self.folder / "key").read_text()
        (self.folder / "both").write_text(both)
        text = self.recipe[self.KIND]
        names = {"/etc/ssl/site.example.pem": "cert", "/etc/ssl/site.example.key": "key",
                 "/etc/ssl/site.example.both.pem": "both"}
        return {printed: str(self.folder / own) for printed, own in names.items() if printed in text}

    def close(self):
        if self.process:
            end(self.process)
        shutil.rmtree(self.folder, ignore_errors=True)

    def whole(self, text):
        return text


class Nginx(Proxy):
    KIND = "nginx"
    FILE = "site.conf"

    def printed_address(self):
        return "listen 443 " if self.is_secure else "listen 80;"

    def own_address(self):
        return "listen 127.0.0.1:%d%s" % (self.port, " " if self.is_secure else ";")

    def whole(self, text):
        (self.folder / "nginx.conf").write_text(NGINX)
        return text

    def command(self):
        # A user of its own would not find the folders of this test.
        user = "user root;" if os.geteuid() == 0 else ""
        return ["/usr/sbin/nginx", "-p", str(self.folder), "-c", str(self.folder / "nginx.conf"),
                "-g", user]


class HAProxy(Proxy):
    KIND = "haproxy"
    FILE = "haproxy.cfg"

    def printed_address(self):
        return "bind :443 " if self.is_secure else "bind :80\n"

    def own_address(self):
        return "bind 127.0.0.1:%d%s" % (self.port, " " if self.is_secure else "\n")

    def command(self):
        return ["/usr/sbin/haproxy", "-db", "-f", str(self.folder / self.FILE)]


class Caddy(Proxy):
    KIND = "caddy"
    FILE = "Caddyfile"

    def printed_address(self):
        return "%s://site.example {" % ("https" if self.is_secure else "http")

    def own_address(self):
        scheme = "https" if self.is_secure else "http"
        return "%s://site.example:%d {\n\tbind 127.0.0.1" % (scheme, self.port)

    def whole(self, text):
        return "{\n\tadmin off\n\tauto_https disable_redirects\n}\n" + text

    def command(self):
        return ["/usr/bin/caddy", "run", "--adapter", "caddyfile", "--config",
                str(self.folder / self.FILE)]


class ProxiedServer(Server):
    """A server that listens where its recipe says."""

    def __init__(self, proxy, pages, settings):
        super().__init__(pages)
        self.proxy = proxy
        own = {**proxy.settings(self.port), **settings}
        self.set(own)
        self.listens_at = own["Listen"]

    def place(self):
        file = self.listens_at.removeprefix("unix:")
        return self.port if file == self.listens_at else file
