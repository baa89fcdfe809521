#!/usr/bin/env python3
"""Drives the page of a drawing that is large enough for a canvas, and holds its picture against the SVG.

usage: canvas_in_chromium.py PROGRAM PROJECT FOLDER [ELEMENTS]

With ELEMENTS, such as 200000, it tells how long the page takes instead. Ends with 77 where Chromium is not on
this system.
"""

import base64
import json
import math
import pathlib
import re
import shutil
import sys
import time

import chromium
import job_drawing
from page_in_chromium import MISSING, Page, near, run, same

ELEMENTS = 6000          # enough for a canvas
MOST_DIFFERENT = 0.005   # of the pixels
VISIBLE = 32             # of 255: what differs by less in each colour is the same
PAINTED = "document.querySelector('main canvas').dataset.painted === 'true'"


class CanvasPage(Page):
    def settle(self):
        """Waits until all is painted."""
        self.browser.value(f"new Promise(done => {{ const look = () => {PAINTED} ? done(0) : setTimeout(look, 5); "
                           "requestAnimationFrame(() => requestAnimationFrame(look)); })")
        self.browser.frames()

    def keys(self, keys):
        self.focus()
        for key in keys:
            self.browser.key(key)
        self.browser.value("document.activeElement.blur()")
        self.settle()

    def show(self, box):
        """Goes to a box of the sheet by wheel and mouse, as near as a step of each goes."""
        wanted = box[2]
        middle = (box[0] + box[2] / 2, box[1] + box[3] / 2)
        self.browser.drag(self.on_window(*middle), (500, 400))
        for _ in range(60):
            ratio = wanted / self.box()[2]
            if abs(math.log(ratio)) < 0.01:
                break
            delta = max(-300.0, min(300.0, math.log(ratio) / 0.0015))
            self.browser.wheel(*self.on_window(*middle), delta)
            self.browser.frames(1)
        self.settle()


def pixels(browser, pictures):
    """How many pixels of the first picture differ from those of the second, as a share."""
    both = [base64.b64encode(picture).decode() for picture in pictures]
    return browser.value(f"""(async function () {{
        const read = async function (text) {{
            const bytes = Uint8Array.from(atob(text), one => one.charCodeAt(0));
            const bitmap = await createImageBitmap(new Blob([bytes]));
            const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext('2d');
            context.drawImage(bitmap, 0, 0);
            return context.getImageData(0, 0, bitmap.width, bitmap.height).data;
        }};
        const [a, b] = await Promise.all({json.dumps(both)}.map(read));
        let different = 0;
        for (let i = 0; i < a.length; i += 4) {{
            if ([0, 1, 2].some(k => Math.abs(a[i + k] - b[i + k]) > {VISIBLE})) {{ different += 1; }}
        }}
        return different / (a.length / 4);
    }}())""")


def put_svg_in(browser, svg):
    """Puts the SVG where the canvas was."""
    browser.value(f"""(function () {{
        const page = new DOMParser().parseFromString({json.dumps(svg)}, 'image/svg+xml');
        const svg = document.importNode(page.documentElement, true);
        ['width', 'height'].forEach(name => svg.removeAttribute(name));
        svg.querySelector('.paper').style.filter = 'none';
        document.querySelector('main').replaceChildren(svg);
    }}())""")


def check_picture(page, files):
    browser = page.browser
    browser.click_on("#fold")
    shots = []
    for keys in ("", "+++++", "++++++++++"):
        page.keys("0" + keys)
        shots.append((page.box(), browser.screenshot()))
    browser.value("document.querySelector('#layers input[name=texts]').click()")
    page.settle()
    shots.append((page.box(), browser.screenshot()))
    put_svg_in(browser, files["svg"].read_text(encoding="utf-8"))
    for i, (box, shot) in enumerate(shots):
        if i == 3:
            browser.value("document.querySelector('main g[data-layer=texts]').style.display = 'none'")
        browser.value(f"document.querySelector('main svg').setAttribute('viewBox', '{' '.join(map(str, box))}')")
        browser.frames()
        expected = browser.screenshot()
        share = pixels(browser, [shot, expected])
        print(f"view {i}: {100 * share:.3f} % of the pixels differ")
        if share > MOST_DIFFERENT:
            sys.exit("that is too much")
        if len(expected) < 10000:
            sys.exit("there is nothing on the picture")


def write_turned_texts(path):
    """A drawing of texts that come again at many angles, over lines."""
    elements = []
    for i in range(ELEMENTS):
        x, y = i % 100 * 150.0, i // 100 * 120.0
        elements.append(f'<CKtZantoLine version="1" index="{i + 1}"><Point1 X="{x}" Y="{y}" Z="0"/>'
                        f'<Point2 X="{x + 100}" Y="{y + i % 90}" Z="0"/><Color long="8"/></CKtZantoLine>')
        if i % 5 == 0:
            contents = "קורה B12 - 3 Ø16" if i % 45 == 0 else f"{i % 7} HA20"
            elements.append(f'<CKtZantoText version="1" index="{i // 5 + 1}"><Contents string="{contents}"/>'
                            f'<Location X="{x}" Y="{y + 60}" Z="0"/><Angle double="{i * 0.7 % 360:.1f}"/>'
                            f'<JustificationX long="{i % 3}"/><JustificationY long="{i % 4}"/>'
                            f'<Color long="{i % 6 + 1}"/><Height double="{(8, 12, 30)[i % 3]}"/></CKtZantoText>')
    path.write_text('<?xml version="1.0" encoding="UTF-8"?>\n<Document>' + "".join(elements) + "</Document>\n",
                    encoding="utf-8")


def orange(page):
    """Pixels in the colour of what is found, or nearly so."""
    return page.browser.value("""(function () {
        const canvas = document.querySelector('main canvas');
        const data = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
        let found = 0;
        for (let i = 0; i < data.length; i += 4) {
            if (data[i] > 230 && data[i + 1] > 110 && data[i + 1] - data[i + 2] > 25) { found += 1; }
        }
        return found;
    }())""")


def check_search(page, files):
    text = files["xml"].read_text(encoding="latin-1")
    marked = len(re.findall(r'<Reference long="5"/>', text))
    same("mark", f"{marked} elements of mark 5.", page.look_for("5"))
    page.settle()
    if orange(page) < 20:
        sys.exit("what is found is not painted")
    words = "coupe A-A"
    contents = re.findall(r'<Contents string="([^"]*)"', text)
    number = sum(words.lower() in one.lower() for one in contents)
    same("text", f"{number} texts with \u201c{words}\u201d.", page.look_for(words))
    page.browser.key("Enter")
    same("one by one", True, page.message().endswith("This is number 1."))
    same("items", True, "Contents" in page.text("#element"))
    page.browser.click_on("#clear")
    page.settle()
    same("cleared", 0, orange(page))


def line_of(files, layer):
    """The ends of the first path of a layer in the SVG."""
    svg = files["svg"].read_text(encoding="utf-8")
    data = re.search(r'd="([^"]*)"', svg[svg.index(f'data-layer="{layer}"'):]).group(1)
    points = [tuple(float(one) for one in re.findall(r"-?[0-9.]+", part)[-2:])
              for part in re.findall(r"[MLA][^MLAZ]*", data)]
    return points[0], points[-1]


def check_pointing(page, files):
    browser = page.browser
    begin, end = line_of(files, "bars")
    page.keys("0")
    length = math.dist(begin, end)
    page.show([begin[0] - length / 4, begin[1] - length / 4, 1.5 * length, 1.5 * length])
    browser.click_on("#measure")
    for point in (begin, end):
        x, y = page.on_window(*point)
        browser.click(x + 0.5, y)
    scale = browser.value("JSON.parse(document.getElementById('data').textContent).unit.perMillimetre")
    measured = int(re.match(r"Length ([0-9]+) mm", page.message()).group(1))
    near("length", length * scale, measured, 1.0)
    browser.click_on("#measure")
    browser.click(*page.on_window(*begin))
    same("chosen", True, "StraightBar" in page.text("#element"))
    page.settle()
    if orange(page) < 20:
        sys.exit("what is chosen is not painted")
    first = page.text("#element")
    page.keys("np")
    page.keys("n")
    same("steps", False, first == page.text("#element"))
    browser.colors("dark")
    page.settle()
    same("dark paper", True, browser.value("""(function () {
        const data = document.querySelector('main canvas').getContext('2d').getImageData(0, 0, 1400, 800).data;
        let dark = 0;
        for (let i = 0; i < data.length; i += 4) { if (data[i] + data[i + 1] + data[i + 2] < 120) { dark += 1; } }
        return dark > data.length / 8;
    }())"""))
    browser.colors("light")
    page.settle()


def check_print(page, files):
    path = files["xml"].with_suffix(".printed.pdf")
    page.browser.print(path)
    page.settle()
    sizes = re.findall(r"size: +([0-9.]+) x ([0-9.]+)", run("pdfinfo", "-l", "2", path).decode())
    for size, name in zip(sizes[0], ("width", "height")):
        sheet = page.browser.value(f"document.querySelector('main svg').viewBox.baseVal.{name}")
        near(name, sheet / 25.4 * 72, float(size), 1.0)
    image = path.with_suffix(".png")
    run("pdftoppm", "-png", "-singlefile", "-r", "20", "-f", "1", "-l", "1", path, image.with_suffix(""))
    if image.stat().st_size < 20000:
        sys.exit("the sheet is printed empty")


FRAMES = """new Promise(done => {
    const times = [];
    const view = document.getElementById('view');
    const box = view.getBoundingClientRect();
    let last = performance.now();
    const next = function () {
        const now = performance.now();
        times.push(now - last);
        last = now;
        const i = times.length;
        if (i > 60) {
            times.shift();
            times.sort((a, b) => a - b);
            return done([times[30], times[56]]);
        }
        ACTION;
        requestAnimationFrame(next);
    };
    requestAnimationFrame(next);
})"""
PAN = "view.dispatchEvent(new KeyboardEvent('keydown', {key: i % 8 < 4 ? 'ArrowRight' : 'ArrowLeft', shiftKey: true}))"
ZOOM = """view.dispatchEvent(new WheelEvent('wheel', {deltaY: i % 8 < 4 ? -20 : 20, clientX: box.left + 400,
    clientY: box.top + 400, bubbles: true, cancelable: true}))"""


def tell_times(browser, address):
    begin = time.monotonic()
    page = CanvasPage(browser, address)
    page.settle()
    print(f"first picture: {time.monotonic() - begin:.2f} s")
    for where, keys in (("the whole", "0"), ("near", "++++++++++"), ("nearer", "++++++++")):
        page.keys(keys)
        for what, action in (("pan", PAN), ("zoom", ZOOM)):
            median, late = browser.value(FRAMES.replace("ACTION", action))
            print(f"{what} at {where}: a frame in {median:.1f} ms, 95 of 100 within {late:.1f} ms")
            page.settle()
    mark = browser.value("JSON.parse(document.getElementById('data').textContent).marks[3][0]")
    told = browser.value(f"""new Promise(done => {{
        document.getElementById('mark').value = '{mark}';
        const begin = performance.now();
        document.querySelector('#search button').click();
        requestAnimationFrame(() => setTimeout(() => done(performance.now() - begin)));
    }})""")
    print(f"mark search: {told:.0f} ms, {page.message()}")


def main():
    program, project, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    if shutil.which("chromium") is None or shutil.which("pdfinfo") is None:
        print("Chromium or pdfinfo is not on this system")
        sys.exit(MISSING)
    folder.mkdir(parents=True, exist_ok=True)
    elements = int(sys.argv[4]) if len(sys.argv) > 4 else ELEMENTS
    run(program, "write", project / "examples/drawings/beam-b12.json", "-o", folder / "beam.xml")
    files = {"xml": folder / "job.xml", "html": folder / "job.html", "svg": folder / "job.svg"}
    job_drawing.write_job(folder / "beam.xml", elements, files["xml"])
    for form in ("html", "svg"):
        begin = time.monotonic()
        run(program, "draw", files["xml"], "-o", files[form])
        if len(sys.argv) > 4:
            print(f"{form}: {time.monotonic() - begin:.2f} s, {files[form].stat().st_size / 1e6:.1f} MB")
    with chromium.Chromium(folder) as browser:
        address = files["html"].resolve().as_uri()
        if len(sys.argv) > 4:
            return tell_times(browser, address)
        for name, check in (("search", check_search), ("pointing", check_pointing), ("print", check_print),
                            ("picture", check_picture)):
            check(CanvasPage(browser, address), files)
            same(f"errors in the page ({name})", [], browser.errors)
            print("passed:", name)
        turned = {"xml": folder / "turned.xml", "html": folder / "turned.html", "svg": folder / "turned.svg"}
        write_turned_texts(turned["xml"])
        for form in ("html", "svg"):
            run(program, "draw", turned["xml"], "-o", turned[form])
        check_picture(CanvasPage(browser, turned["html"].resolve().as_uri()), turned)
        same("errors in the page (turned)", [], browser.errors)
        print("passed: texts at any angle")
    return None


if __name__ == "__main__":
    main()
