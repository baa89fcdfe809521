"""Chromium without a window, driven over its debugging pipe: keys, mouse, screenshots, prints."""

import base64
import json
import os
import pathlib
import shutil
import subprocess


class PageError(Exception):
    """A script in the page failed, or Chromium refused a command."""


class Chromium:
    """One tab. What a page logs as an error while it runs is in `errors`."""

    def __init__(self, folder, width=1400, height=900):
        self.errors = []
        self._number = 0
        self._rest = b""
        self._events = []
        to_browser, self._out = os.pipe()
        self._in, from_browser = os.pipe()
        profile = pathlib.Path(folder).resolve() / "profile"
        shutil.rmtree(profile, ignore_errors=True)

        def pipes():
            # Neither of the two may be overwritten before it has its place.
            commands, answers = os.dup(to_browser), os.dup(from_browser)
            commands, answers = os.dup(commands), os.dup(answers)
            os.dup2(commands, 3)
            os.dup2(answers, 4)

        self._process = subprocess.Popen(
            ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             "--remote-debugging-pipe", f"--user-data-dir={profile}", f"--window-size={width},{height}",
             "--hide-scrollbars", "--disable-quic", "--no-first-run", "--disable-sync",
             "--disable-background-networking", "--disable-component-update"],
            preexec_fn=pipes, close_fds=False, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self._session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log"):
            self.call(domain + ".enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.kill()
        self._process.wait()

    def _message(self):
        while b"\0" not in self._rest:
            piece = os.read(self._in, 1 << 20)
            if not piece:
                raise PageError("Chromium has ended")
            self._rest += piece
        text, self._rest = self._rest.split(b"\0", 1)
        return json.loads(text)

    def _take(self, message):
        method = message.get("method")
        if method == "Runtime.exceptionThrown":
            details = message["params"]["exceptionDetails"]
            self.errors.append(details.get("exception", {}).get("description", details["text"]))
        elif method == "Log.entryAdded" and message["params"]["entry"]["level"] == "error":
            self.errors.append(message["params"]["entry"]["text"])
        elif method:
            self._events.append((method, message["params"]))

    def call(self, method, **parameters):
        """Sends a command and gives its result."""
        self._number += 1
        message = {"id": self._number, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._out, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._message()
            if answer.get("id") == self._number:
                if "error" in answer:
                    raise PageError(f"{method}: {answer['error']['message']}")
                return answer["result"]
            self._take(answer)

    def wait_for(self, method, is_wanted):
        """Waits for an event of which the function says yes to its parameters."""
        while not any(name == method and is_wanted(parameters) for name, parameters in self._events):
            self._take(self._message())

    def open(self, address):
        """Opens an address and waits until the page says that it is ready."""
        self._events.clear()
        self.call("Page.navigate", url="about:blank")
        self.call("Page.navigate", url=str(address))
        self.value("new Promise(done => { const look = () => document.documentElement && "
                   "document.documentElement.dataset.ready ? done(true) : setTimeout(look, 5); look(); })")

    def value(self, script):
        """What the script gives; of a promise, what it comes to."""
        result = self.call("Runtime.evaluate", expression=script, returnByValue=True, awaitPromise=True,
                           userGesture=True)
        if "exceptionDetails" in result:
            details = result["exceptionDetails"]
            raise PageError(details.get("exception", {}).get("description", details["text"]))
        return result["result"].get("value")

    def frames(self, number=2):
        """Waits until so many frames were painted."""
        self.value(f"new Promise(done => {{ let left = {number}; const next = () => --left < 0 ? done(0) : "
                   "requestAnimationFrame(next); next(); })")

    def key(self, key, modifiers=0):
        codes = {"Enter": 13, "Tab": 9, "Escape": 27, "Backspace": 8, "ArrowLeft": 37, "ArrowUp": 38,
                 "ArrowRight": 39, "ArrowDown": 40, "Home": 36, "End": 35}
        text = "\r" if key == "Enter" else key if len(key) == 1 else ""
        code = codes.get(key, ord(key.upper()[0]))
        self.call("Input.dispatchKeyEvent", type="keyDown", key=key, text=text, modifiers=modifiers,
                  windowsVirtualKeyCode=code)
        self.call("Input.dispatchKeyEvent", type="keyUp", key=key, modifiers=modifiers,
                  windowsVirtualKeyCode=code)

    def type(self, text):
        for letter in text:
            self.key(letter)

    def mouse(self, kind, x, y, **parameters):
        self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, **parameters)

    def click(self, x, y):
        self.mouse("mouseMoved", x, y)
        self.mouse("mousePressed", x, y, button="left", buttons=1, clickCount=1)
        self.mouse("mouseReleased", x, y, button="left", clickCount=1)

    def drag(self, start, end, steps=5):
        self.mouse("mouseMoved", *start)
        self.mouse("mousePressed", *start, button="left", buttons=1, clickCount=1)
        for i in range(1, steps + 1):
            self.mouse("mouseMoved", start[0] + (end[0] - start[0]) * i / steps,
                       start[1] + (end[1] - start[1]) * i / steps, button="left", buttons=1)
        self.mouse("mouseReleased", *end, button="left", clickCount=1)

    def wheel(self, x, y, delta):
        self.mouse("mouseWheel", x, y, deltaX=0, deltaY=delta)

    def click_on(self, selector):
        """Clicks in the middle of the first element that the selector finds."""
        x, y = self.value(f"""(function () {{
            const node = document.querySelector({json.dumps(selector)});
            node.scrollIntoView({{block: 'nearest'}});
            const box = node.getBoundingClientRect();
            return [box.left + box.width / 2, box.top + box.height / 2];
        }}())""")
        self.click(x, y)

    def screenshot(self, path=None):
        """The window as PNG."""
        data = base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"])
        if path:
            pathlib.Path(path).write_bytes(data)
        return data

    def print(self, path):
        """The page as PDF, on pages of the sizes that it asks for."""
        data = base64.b64decode(self.call("Page.printToPDF", preferCSSPageSize=True, printBackground=True)["data"])
        pathlib.Path(path).write_bytes(data)

    def resize(self, width, height):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                  mobile=False)

    def colors(self, scheme):
        self.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
