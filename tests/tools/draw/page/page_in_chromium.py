#!/usr/bin/env python3
"""Drives the page of `quorvan draw` in Chromium by mouse and keys.

usage: page_in_chromium.py PROGRAM PROJECT FOLDER [CHECK...]

Ends with 77 where Chromium is not on this system.
"""

import math
import pathlib
import re
import shutil
import subprocess
import sys

import chromium

MISSING = 77
BOX = "document.querySelector('main svg').getAttribute('viewBox').split(' ').map(Number)"
SHIFT = 8


def same(what, expected, found):
    if expected != found:
        sys.exit(f"{what}: {found!r}, expected {expected!r}")


def near(what, expected, found, tolerance):
    if not abs(expected - found) <= tolerance:
        sys.exit(f"{what}: {found!r}, expected {expected!r} within {tolerance}")


def run(*arguments):
    done = subprocess.run([str(one) for one in arguments], capture_output=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{arguments}: exit code {done.returncode}\n{done.stderr.decode()}")
    return done.stdout


class Page:
    """A page in the browser, and what is asked of it again and again."""

    def __init__(self, browser, address):
        self.browser = browser
        self.address = address
        browser.open(address)

    def message(self):
        return self.text("#message")

    def text(self, selector):
        return self.browser.value(f"document.querySelector('{selector}').textContent")

    def box(self):
        return self.browser.value(BOX)

    def look_for(self, text):
        self.browser.value("document.getElementById('mark').select()")
        self.browser.type(text)
        self.browser.key("Enter")
        return self.message()

    def on_window(self, x, y):
        """Where a point of the sheet, y downwards, lies in the window."""
        return self.browser.value(f"""(function () {{
            const matrix = document.querySelector('main svg').getScreenCTM();
            return [{x} * matrix.a + matrix.e, {y} * matrix.d + matrix.f];
        }}())""")

    def ends_of(self, layer, number):
        """The first and the last point of a path of a layer, on the sheet."""
        data = self.browser.value(f"""document.querySelectorAll(
            'g[data-layer={layer}] path')[{number}].getAttribute('d')""")
        points = [tuple(float(one) for one in re.findall(r"-?[0-9.]+", step)[-2:])
                  for step in re.findall(r"[MLA][^MLAZ]*", data)]
        return points[0], points[-1]

    def focus(self):
        self.browser.value("document.getElementById('view').focus()")


def check_search(page, _):
    same("mark", "2 elements of mark 6.", page.look_for("6"))
    whole = page.browser.value("document.querySelector('main svg .paper').width.baseVal.value")
    if not page.box()[2] < whole:
        sys.exit("the search did not go to what it found")
    same("no mark", "No bar has the mark 77.", page.look_for("77"))
    same("text, whatever its case", "1 text with \u201cPOUTRE\u201d.", page.look_for("POUTRE"))
    same("nothing", "No text has \u201cnowhere\u201d.", page.look_for("nowhere"))
    same("mark again", "2 elements of mark 6.", page.look_for("6"))
    page.browser.key("Enter")
    same("one by one", "2 elements of mark 6. This is number 1.", page.message())
    same("its items", True, "mark 6" in page.text("#element"))
    page.browser.click_on("#clear")
    same("cleared", ["", 0], [page.message(), page.browser.value("document.querySelectorAll('.found').length")])


def check_measuring(page, _):
    browser = page.browser
    begin, end = page.ends_of("lines", 0)
    browser.click_on("#measure")
    for point in (begin, end):
        x, y = page.on_window(*point)
        browser.click(x + 4, y - 3)  # beside it: the end is taken
    scale = browser.value("JSON.parse(document.getElementById('data').textContent).unit.perMillimetre")
    length = round(math.dist(begin, end) * scale)
    if not page.message().startswith(f"Length {length} mm (across "):
        sys.exit(f"measured {page.message()!r}, expected {length} mm")
    x, y = page.on_window(*begin)
    browser.click(x, y)
    same("running length", True, page.message().startswith(f"Length {2 * length} mm, the last {length} mm"))
    same("points", 3, browser.value("document.querySelectorAll('#tape circle').length"))
    page.focus()
    browser.key("Backspace")
    same("taken back", 2, browser.value("document.querySelectorAll('#tape circle').length"))
    browser.key("Escape")
    same("ended", [0, "false"], browser.value("[document.querySelectorAll('#tape circle').length, "
                                              "document.getElementById('measure').getAttribute('aria-pressed')]"))


def check_cycling(page, _):
    browser = page.browser
    # Where two paths of bars begin at one place, several elements lie on each other.
    begin, _ = page.ends_of("links", 0)
    x, y = page.on_window(*begin)
    browser.click(x, y)
    match = re.match(r"1 of ([0-9]+) that lie here", page.message())
    if match is None:
        sys.exit(f"nothing lies on each other: {page.message()!r}")
    seen = {page.text("#element")}
    for _ in range(int(match.group(1)) - 1):
        browser.click(x, y)
        seen.add(page.text("#element"))
    same("elements", int(match.group(1)), len(seen))
    browser.click(x, y)
    same("round", True, page.message().startswith("1 of "))


def check_keys(page, _):
    browser = page.browser
    browser.value("document.activeElement.blur()")
    browser.key("Tab")
    same("first", "view", browser.value("document.activeElement.id"))
    same("outline", "solid", browser.value("getComputedStyle(document.activeElement).outlineStyle"))
    browser.key("n")
    first = page.text("#element")
    browser.key("n")
    browser.key("p")
    same("there and back", first, page.text("#element"))
    browser.key("0")
    before = page.box()
    browser.key("ArrowRight")
    near("step", before[0] + 0.1 * before[2], page.box()[0], 1e-6)
    browser.key("ArrowLeft", SHIFT)
    near("small step", before[0] + 0.09 * before[2], page.box()[0], 1e-6)
    # To the beginning of a link by the keys alone, nearer and nearer.
    begin, _ = page.ends_of("links", 0)
    browser.key("0")
    for _ in range(3):
        for axis, forth, back in ((0, "ArrowRight", "ArrowLeft"), (1, "ArrowDown", "ArrowUp")):
            box = page.box()
            steps = round((begin[axis] - box[axis] - box[2 + axis] / 2) / box[2 + axis] * 100)
            for _ in range(abs(steps) // 10):
                browser.key(forth if steps > 0 else back)
            for _ in range(abs(steps) % 10):
                browser.key(forth if steps > 0 else back, SHIFT)
        for _ in range(8):
            browser.key("+")
    browser.key("Enter")
    same("chosen in the middle", True, "mark" in page.text("#element"))
    browser.key("m")
    browser.key("Enter")
    browser.key("ArrowRight")
    browser.key("Enter")
    same("measured", True, page.message().startswith("Length "))
    browser.key("Escape")
    browser.key("Escape")
    same("nothing chosen", "ElementClick on an element of the drawing.", page.text("#element"))
    browser.key("/")
    same("search", "mark", browser.value("document.activeElement.id"))
    browser.value("document.querySelector('#bars .list tbody tr').focus()")
    browser.key("ArrowDown")
    browser.key("Enter")
    same("row", 1, browser.value("""Array.from(document.querySelectorAll('#bars .list tbody tr')).findIndex(
        row => row.classList.contains('found'))"""))
    order = []
    browser.value("document.activeElement.blur(); document.getElementById('view').focus()")
    for _ in range(9):
        browser.key("Tab")
        order.append(browser.value("document.activeElement.id || document.activeElement.textContent"))
    same("order", ["fold", "mark", "Find", "clear", "whole", "measure"], order[:6])


def check_list(page, folder):
    browser = page.browser
    csv = run(page.program, "bars", "--csv", page.file).decode()
    browser.call("Browser.grantPermissions", permissions=["clipboardReadWrite", "clipboardSanitizedWrite"])
    browser.click_on("#bars .buttons button:nth-child(1)")
    same("told", "The bar list is on the clipboard.", page.message())
    copied = browser.value("navigator.clipboard.readText()")
    same("copied", csv.replace("\r\n", "\n"), copied.replace("\r\n", "\n"))
    table = browser.value("""navigator.clipboard.read().then(items => items[0].getType('text/html')).then(
        blob => blob.text()).then(text => new DOMParser().parseFromString(text, 'text/html')).then(
        page => Array.from(page.querySelectorAll('tr')).map(row => row.children.length))""")
    same("table", [13] * len(csv.splitlines()), table)
    downloads = folder / "downloads"
    shutil.rmtree(downloads, ignore_errors=True)
    downloads.mkdir()
    browser.call("Page.setDownloadBehavior", behavior="allow", downloadPath=str(downloads.resolve()))
    browser.click_on("#bars .buttons button:nth-child(2)")
    browser.wait_for("Page.downloadProgress", lambda event: event["state"] == "completed")
    saved = list(downloads.glob("*.csv"))
    same("files", 1, len(saved))
    same("saved", b"\xef\xbb\xbf" + csv.encode(), saved[0].read_bytes())
    sums = browser.value("""Array.from(document.querySelectorAll('#bars .sums tbody tr')).map(
        row => Array.from(row.cells).map(cell => cell.textContent))""")
    rows = [line.split(",") for line in csv.splitlines()[1:]]
    same("diameters", sorted({row[5] for row in rows}, key=float), [one[0] for one in sums])
    same("numbers", sum(int(row[6]) for row in rows), sum(int(one[1]) for one in sums))
    near("mass", sum(float(row[10]) for row in rows), sum(float(one[4]) for one in sums), 0.05)


def check_address(page, _):
    browser = page.browser
    whole = page.box()
    for bad in ("#mark=%E0%A4%A", "#element=999999", "#element=-1", "#element=__proto__", "#nothing", "#mark=", "#"):
        browser.value(f"location.hash = {bad!r}")
        browser.frames()
        same(bad, [whole, ""], [page.box(), page.message()])
    browser.value("location.hash = '#mark=6'")
    browser.frames()
    same("mark", "2 elements of mark 6.", page.message())
    browser.value("location.hash = '#text=%C3%A9l%C3%A9'")
    browser.frames()
    same("text", "1 text with \u201c\u00e9l\u00e9\u201d.", page.message())
    browser.value("location.hash = '#element=3'")
    browser.frames()
    same("element", True, "class" in page.text("#element"))
    browser.open(page.address + "#mark=6")
    same("opened", "2 elements of mark 6.", page.message())


def check_layout(page, folder):
    browser = page.browser
    light = browser.screenshot(folder / "light.png")
    browser.colors("dark")
    browser.frames()
    dark = browser.screenshot(folder / "dark.png")
    same("panel", "rgb(27, 33, 40)", browser.value("getComputedStyle(document.querySelector('aside')).backgroundColor"))
    same("another picture", False, light == dark)
    browser.colors("light")
    browser.resize(390, 844)
    browser.frames()
    browser.screenshot(folder / "phone.png")
    same("below", True, browser.value("""document.querySelector('aside').getBoundingClientRect().top >=
        document.querySelector('main').getBoundingClientRect().bottom"""))
    same("no wider than the phone", True, browser.value("document.documentElement.scrollWidth <= 390"))
    browser.click_on("#fold")
    browser.frames()
    same("folded", 844, browser.value("document.querySelector('main').clientHeight"))
    browser.screenshot(folder / "phone-folded.png")
    browser.click_on("#fold")
    same("back", "true", browser.value("document.getElementById('fold').getAttribute('aria-expanded')"))
    browser.call("Emulation.clearDeviceMetricsOverride")


def check_print(page, folder):
    browser = page.browser
    page.look_for("6")
    before = page.box()
    path = folder / "printed.pdf"
    browser.print(path)
    same("view", before, page.box())
    told = run("pdfinfo", "-l", "9", path).decode()
    sizes = [(float(width), float(height)) for width, height in
             re.findall(r"Page +[0-9]+ size: +([0-9.]+) x ([0-9.]+)", told)]
    same("pages", 2, len(sizes))
    sheet = browser.value("(function () { const paper = document.querySelector('main svg .paper'); "
                          "return [paper.width.baseVal.value, paper.height.baseVal.value]; }())")
    for size, length in zip(sizes[0], sheet):
        near("size of the sheet", length / 25.4 * 72, size, 1.0)
    near("width of the list's page", 210 / 25.4 * 72, sizes[1][0], 1.0)
    # The title stands where it stands on the sheet, so the scale holds.
    run("pdftotext", "-f", "1", "-l", "1", "-bbox", path, folder / "sheet.html")
    words = (folder / "sheet.html").read_text(encoding="utf-8")
    x = float(re.search(r'xMin="([0-9.]+)"[^>]*>{}<'.format(re.escape(page.word[0])), words).group(1))
    near("place", page.word[1] / 25.4 * 72, x, 1.5)
    listed = run("pdftotext", "-f", "2", "-layout", path, "-").decode()
    for words in ("rectangular frame", "Sums by diameter"):
        same(words, True, words in listed)
    for words in ("Copy list", "Hide panel", "Layers"):
        same(words, False, words in listed)


def main():
    program, project, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    if shutil.which("chromium") is None or shutil.which("pdfinfo") is None:
        print("Chromium or pdfinfo is not on this system")
        sys.exit(MISSING)
    folder.mkdir(parents=True, exist_ok=True)
    file = folder / "sample.xml"
    run(program, "write", project / "tests/tools/data/sample.json", "-o", file)
    run(program, "draw", file, "-o", file.with_suffix(".html"), "--marks", "all")
    text = re.search(r'<text class="[^"]*" x="([0-9.]+)"[^>]*>([0-9A-Za-z]+)</text>',
                     file.with_suffix(".html").read_text(encoding="utf-8"))
    checks = {name[len("check_"):]: check for name, check in globals().items() if name.startswith("check_")}
    with chromium.Chromium(folder) as browser:
        for name in sys.argv[4:] or checks:
            page = Page(browser, file.with_suffix(".html").resolve().as_uri())
            page.program, page.file = program, file
            page.word = (text.group(2), float(text.group(1)))
            checks[name](page, folder)
            same(f"errors in the page ({name})", [], browser.errors)
            print("passed:", name)


if __name__ == "__main__":
    main()
