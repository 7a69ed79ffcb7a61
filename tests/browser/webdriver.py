"""A browser driven through chromedriver, with the standard library alone."""
import json
import re
import subprocess
import time
import urllib.error
import urllib.request

CHROMIUM_ARGUMENTS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                      "--disable-background-networking", "--disable-component-update", "--disable-sync",
                      "--disable-dev-shm-usage",
                      "--window-size=1400,1100"]
KEYS = {"Enter": "\ue007", "Tab": "\ue004", "Esc": "\ue00c", "Control": "\ue009", "Alt": "\ue00a"}


def wait_until(condition, what, seconds=60):
    """What `condition` gives once that is true; an AssertionError naming `what` when it never is."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.05)


class Browser:
    """A page of headless Chromium; closes both programs at the end of a `with`."""

    def __init__(self, profile_folder):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE, text=True)
        for line in self.driver.stdout:
            started = re.search(r"started successfully on port (\d+)", line)
            if started:
                self.base = f"http://127.0.0.1:{started[1]}"
                break
        options = {"args": [*CHROMIUM_ARGUMENTS, f"--user-data-dir={profile_folder}"]}
        answer = self._send("POST", "/session", {"capabilities": {"alwaysMatch": {
            "browserName": "chrome", "goog:chromeOptions": options}}})
        self.session = f"/session/{answer['sessionId']}"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self._send("DELETE", self.session)
        finally:
            self.driver.terminate()
            self.driver.wait()
            self.driver.stdout.close()

    def _send(self, verb, path, body=None):
        request = urllib.request.Request(self.base + path, method=verb,
                                         data=json.dumps(body or {}).encode() if verb == "POST" else None,
                                         headers={"Content-Type": "application/json"})
        try:
            with urllib.request.urlopen(request, timeout=60) as response:
                return json.load(response)["value"]
        except urllib.error.HTTPError as refusal:
            raise AssertionError(f"{verb} {path}: {json.load(refusal)['value']['message']}") from None

    def open(self, address):
        self._send("POST", f"{self.session}/url", {"url": address})

    def run(self, script):
        """The value of a JavaScript function body."""
        return self._send("POST", f"{self.session}/execute/sync", {"script": script, "args": []})

    def type(self, *what):
        """Types texts, keys of `KEYS` by their names, and chords as pairs: the key held down and a text."""
        actions = []
        for item in what:
            held, text = item if isinstance(item, tuple) else (None, item)
            keys = [KEYS[text]] if text in KEYS else list(text)
            strokes = [{"type": kind, "value": key} for key in keys for kind in ("keyDown", "keyUp")]
            if held:
                strokes = [{"type": "keyDown", "value": KEYS[held]}, *strokes, {"type": "keyUp", "value": KEYS[held]}]
            actions += strokes
        self._send("POST", f"{self.session}/actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def screenshot(self):
        """PNG, in base 64."""
        return self._send("GET", f"{self.session}/screenshot")
