"""A browser driven through the WebDriver protocol, as far as the tests need it."""

import json
import shutil
import subprocess
import tempfile
import time
import urllib.error
import urllib.request

from serving import PATIENCE, free_port, wait_until

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
OPTIONS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
           "--disable-background-networking", "--disable-component-update", "--disable-sync",
           "--disable-dev-shm-usage", "--window-size=1100,900"]


def missing_programs():
    return [name for name in ("chromium", "chromedriver") if not shutil.which(name)]


class Browser:
    def __enter__(self):
        self.profile = tempfile.mkdtemp(prefix="quorvane-browser-")
        port = free_port()
        self.driver = subprocess.Popen(["chromedriver", "--port=%d" % port],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.base = "http://127.0.0.1:%d" % port
        self.session = None
        try:
            wait_until(self._ready, "the browser's driver")
            options = {"binary": shutil.which("chromium"),
                       "args": [*OPTIONS, "--user-data-dir=" + self.profile]}
            answer = self._call("POST", "/session", {"capabilities": {"alwaysMatch": {
                "browserName": "chrome", "goog:chromeOptions": options,
                "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"}}}})
            self.session = "/session/" + answer["sessionId"]
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        try:
            if self.session:
                self._call("DELETE", self.session)
        finally:
            self.driver.terminate()
            self.driver.wait(PATIENCE)
            shutil.rmtree(self.profile, ignore_errors=True)

    def _ready(self):
        try:
            return self._call("GET", "/status")["ready"]
        except OSError:
            return False

    def _call(self, method, path, body=None):
        data = None if method in ("GET", "DELETE") else json.dumps(body or {}).encode()
        request = urllib.request.Request(self.base + path, data, method=method)
        try:
            with urllib.request.urlopen(request, timeout=60) as response:
                return json.load(response)["value"]
        except urllib.error.HTTPError as error:
            raise AssertionError(json.load(error)["value"]["message"]) from None

    def open(self, url):
        self._call("POST", self.session + "/url", {"url": url})

    def run(self, script, *arguments):
        """The value that a script in the page returns."""
        return self._call("POST", self.session + "/execute/sync",
                          {"script": script, "args": list(arguments)})

    def find(self, selector):
        return self._call("POST", self.session + "/element",
                          {"using": "css selector", "value": selector})[ELEMENT]

    def text(self, selector):
        return self._call("GET", "%s/element/%s/text" % (self.session, self.find(selector)))

    def type(self, selector, text):
        self._call("POST", "%s/element/%s/value" % (self.session, self.find(selector)),
                   {"text": text})

    def click(self, selector):
        self._call("POST", "%s/element/%s/click" % (self.session, self.find(selector)))

    def title(self):
        return self._call("GET", self.session + "/title")

    def broken_images(self):
        return self.run("return [...document.images].filter(i => !i.complete || !i.naturalWidth)"
                        ".map(i => i.src)")

    def _log(self, kind):
        return self._call("POST", self.session + "/se/log", {"type": kind})

    def console_errors(self):
        """What went wrong in pages since the last call: scripts that failed, files not found."""
        return [line["message"] for line in self._log("browser") if line["level"] == "SEVERE"]

    def answers(self):
        """Target, status and headers (names in lower case) of the answers since the last call."""
        events = [json.loads(line["message"])["message"] for line in self._log("performance")]
        answers = [event["params"]["response"] for event in events
                   if event["method"] == "Network.responseReceived"]
        return [(answer["url"].partition("://")[2].partition("/")[2], answer["status"],
                 {name.lower(): value for name, value in answer["headers"].items()})
                for answer in answers]

    def wait_for(self, script, what):
        """Waits until a script in the page returns something true; that."""
        return wait_until(lambda: self.run(script), what)

    def wait_for_text(self, selector, condition):
        deadline = time.monotonic() + PATIENCE
        while True:
            try:
                text = self.text(selector)
                if condition(text):
                    return text
            except AssertionError:
                text = None
            if time.monotonic() > deadline:
                raise AssertionError("%s shows %r" % (selector, text))
            time.sleep(0.05)
