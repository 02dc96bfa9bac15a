"""Headless Chromium, steered through a pipe: pages, clicks, keys, pictures and what the console says."""

import base64
import json
import os
import shutil
import subprocess
import tempfile
import time


def find_chromium():
    """Path of the program, None where there is none."""
    for name in ("chromium", "chromium-browser", "google-chrome"):
        path = shutil.which(name)
        if path:
            return path
    return None


class Browser:
    def __init__(self, program):
        self.profile = tempfile.mkdtemp(prefix="page-test-")
        to_browser, self.out = os.pipe()
        self.back, from_browser = os.pipe()
        # The browser reads commands from 3 and writes answers to 4.
        line = 'exec "$0" "$@" 3<&%d 4>&%d' % (to_browser, from_browser)
        self.process = subprocess.Popen(
            ["bash", "-c", line, program, "--headless=new", "--no-sandbox", "--disable-gpu",
             "--disable-dev-shm-usage", "--no-first-run", "--disable-background-networking",
             "--hide-scrollbars", "--user-data-dir=" + self.profile, "--remote-debugging-pipe",
             "about:blank"],
            pass_fds=(to_browser, from_browser), stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self.buffer = b""
        self.number = 0
        self.events = []
        target = self.send("Target.createTarget", {"url": "about:blank"}, None)["targetId"]
        self.session = self.send("Target.attachToTarget", {"targetId": target, "flatten": True},
                                 None)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.send(domain + ".enable")

    def close(self):
        self.process.terminate()
        self.process.wait()
        shutil.rmtree(self.profile, ignore_errors=True)

    def processor_time(self):
        """Seconds that the browser and its processes have used."""
        used = {}
        for name in os.listdir("/proc"):
            try:
                with open("/proc/" + name + "/stat", encoding="utf-8", errors="replace") as file:
                    fields = file.read().rsplit(")", 1)[1].split()
            except (OSError, IndexError):
                continue
            used[name] = (fields[1], int(fields[11]) + int(fields[12]))
        ours = {str(self.process.pid)}
        while True:
            more = {name for name, (parent, _) in used.items() if parent in ours} - ours
            if not more:
                break
            ours |= more
        ticks = sum(used[name][1] for name in ours if name in used)
        return ticks / os.sysconf("SC_CLK_TCK")

    def read(self):
        while b"\0" not in self.buffer:
            part = os.read(self.back, 1 << 20)
            if not part:
                raise RuntimeError("the browser has ended")
            self.buffer += part
        text, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(text)

    def send(self, method, parameters=None, session=""):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters or {}}
        if session is not None:
            message["sessionId"] = self.session
        os.write(self.out, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.read()
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise RuntimeError(method + ": " + str(answer["error"]))
                return answer["result"]
            self.events.append(answer)

    def evaluate(self, script):
        """Value of an expression in the page."""
        answer = self.send("Runtime.evaluate", {"expression": script, "returnByValue": True,
                                                "awaitPromise": True})
        if "exceptionDetails" in answer:
            raise RuntimeError(script + ": " + str(answer["exceptionDetails"]))
        return answer["result"].get("value")

    def wait_for(self, script, seconds=20):
        end = time.time() + seconds
        while time.time() < end:
            if self.evaluate("!!(" + script + ")"):
                return
            time.sleep(0.02)
        raise RuntimeError("never true: " + script)

    def size(self, width, height):
        self.send("Emulation.setDeviceMetricsOverride",
                  {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})

    def media(self, name):
        """Styles for "print", or "" for those of the screen."""
        self.send("Emulation.setEmulatedMedia", {"media": name})

    def open(self, path):
        self.send("Page.navigate", {"url": "file://" + os.path.abspath(path)})
        self.wait_for("!!document.documentElement && document.documentElement.dataset.ready === '1'")

    def move(self, x, y):
        self.send("Input.dispatchMouseEvent", {"type": "mouseMoved", "x": x, "y": y})

    def click(self, selector):
        x, y = self.evaluate(
            "(() => { const e = document.querySelector(%s); e.scrollIntoView({block: 'center'});"
            " const b = e.getBoundingClientRect(); return [b.x + b.width / 2, b.y + b.height / 2];"
            " })()" % json.dumps(selector))
        for kind in ("mousePressed", "mouseReleased"):
            self.send("Input.dispatchMouseEvent",
                      {"type": kind, "x": x, "y": y, "button": "left", "clickCount": 1})

    def key(self, key, text=""):
        code = {"Tab": 9, "Enter": 13, "ArrowRight": 39, "ArrowLeft": 37, "Home": 36, "/": 191}.get(key, 0)
        if key == "Enter":
            text = "\r"
        self.send("Input.dispatchKeyEvent", {"type": "keyDown", "key": key, "text": text,
                                             "windowsVirtualKeyCode": code})
        self.send("Input.dispatchKeyEvent", {"type": "keyUp", "key": key,
                                             "windowsVirtualKeyCode": code})

    def type(self, text):
        self.send("Input.insertText", {"text": text})

    def picture(self, path, is_whole=False):
        data = self.send("Page.captureScreenshot",
                         {"format": "png", "captureBeyondViewport": is_whole})["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def print_to(self, path):
        data = self.send("Page.printToPDF", {"printBackground": False, "preferCSSPageSize": True})["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def complaints(self):
        """What the console reported as errors, and every address that was asked for from a network."""
        found = []
        for event in self.events:
            method, parameters = event.get("method"), event.get("params", {})
            if method == "Runtime.exceptionThrown":
                found.append(str(parameters["exceptionDetails"]))
            elif method == "Runtime.consoleAPICalled" and parameters["type"] in ("error", "warning"):
                found.append(str(parameters["args"]))
            elif method == "Log.entryAdded" and parameters["entry"]["level"] in ("error", "warning"):
                found.append(str(parameters["entry"]))
            elif method == "Network.requestWillBeSent":
                url = parameters["request"]["url"]
                if not url.startswith(("file:", "data:", "about:", "blob:")):
                    found.append("asked for " + url)
        return found
