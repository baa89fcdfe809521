#!/usr/bin/env python3
"""Runs the program and reads what it writes with readers that are not its own.

usage: independent_readers.py CHECK PROGRAM PROJECT FOLDER

CHECK is json, xml, pdf, page, workbook or printed_list. Ends with 77 where the reader is not on this system.
"""

import html
import json
import pathlib
import re
import shutil
import subprocess
import sys
import zlib

MISSING = 77


def run(*arguments):
    """The output of a program that must not fail."""
    done = subprocess.run(arguments, capture_output=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{arguments}: exit code {done.returncode}\n{done.stderr.decode()}")
    return done.stdout


def need(program):
    path = shutil.which(program)
    if path is None:
        print(f"{program} is not on this system")
        sys.exit(MISSING)
    return path


class Workshop:
    """The program, and transfer files made with it."""

    def __init__(self, program, project, folder):
        self.program = program
        self.project = pathlib.Path(project)
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        drawings = sorted((self.project / "examples/drawings").glob("*.json"))
        drawings.append(self.project / "tests/tools/data/sample.json")
        self.files = []
        for drawing in drawings:
            file = self.folder / (drawing.stem + ".xml")
            run(program, "write", drawing, "-o", file)
            self.files.append(file)

    def draw(self, file, ending, *options):
        picture = file.with_suffix(ending)
        run(self.program, "draw", file, "-o", picture, *options)
        return picture


def read_twice(text):
    """A JSON text as two readers have it, which must agree."""
    value = json.loads(text)
    other = subprocess.run([need("jq"), "."], input=text, capture_output=True, check=False)
    if other.returncode != 0:
        sys.exit(other.stderr.decode())
    if json.loads(other.stdout) != value:
        sys.exit("the readers differ over " + text[:200].decode())
    return value


class Schema:
    """A schema, and which of the members that it describes were met in what it was held against."""

    def __init__(self, text):
        import jsonschema
        self.root = json.loads(text)
        self.validator = jsonschema.Draft202012Validator
        self.validator.check_schema(self.root)
        self.met = set()
        self.validators = {}

    def fits(self, schema, value):
        """Whether the value is as this part says, which may name others."""
        validator = self.validators.get(id(schema))
        if validator is None:
            validator = self.validator({**schema, "$defs": self.root.get("$defs", {})})
            self.validators[id(schema)] = validator
        return validator.is_valid(value)

    def resolved(self, schema):
        while "$ref" in schema:
            place = self.root
            for step in schema["$ref"].lstrip("#/").split("/"):
                place = place[step]
            schema = place
        return schema

    def validate(self, value):
        self.validator(self.root).validate(value)
        self.note(self.root, value)

    def note(self, schema, value):
        schema = self.resolved(schema)
        for choice in schema.get("anyOf", []):
            if self.fits(choice, value):
                self.note(choice, value)
        if isinstance(value, dict):
            for name, member in value.items():
                if name in schema.get("properties", {}):
                    self.met.add((id(schema), name))
                    self.note(schema["properties"][name], member)
        elif isinstance(value, list) and "items" in schema:
            for entry in value:
                self.note(schema["items"], entry)

    def never_met(self, schema=None, path=""):
        schema = self.root if schema is None else schema
        missing = []
        for key, part in schema.items() if isinstance(schema, dict) else enumerate(schema):
            if key == "properties":
                missing += [f"{path}/{name}" for name in part if (id(schema), name) not in self.met]
            if isinstance(part, (dict, list)):
                missing += self.never_met(part, f"{path}/{key}")
        return missing


def check_json(shop):
    try:
        import jsonschema  # noqa: F401, what Schema needs
    except ImportError:
        print("python3-jsonschema is not on this system")
        sys.exit(MISSING)
    schemas = {path.name.split(".")[0]: Schema(path.read_text(encoding="utf-8"))
               for path in (shop.project / "docs/schema").glob("*.schema.json")}
    broken = shop.folder / "broken.xml"
    broken.write_bytes(b"<Document>\x01<CKtZantoLine/></Document>")
    malformed = shop.folder / "malformed.xml"
    malformed.write_bytes(b"<Document>")
    for file in shop.files:
        for command, schema in (("info", "info"), ("bars", "bars"), ("list", "drawing")):
            schemas[schema].validate(read_twice(run(shop.program, command, "--json", file)))
        for schedule in ("iso3766", "bs8666"):
            schemas["bars"].validate(read_twice(
                run(shop.program, "bars", "--json", "--schedule", schedule, file)))
    findings = subprocess.run(
        [shop.program, "check", "--json", *shop.files, broken, malformed],
        capture_output=True, check=False)
    schemas["check"].validate(read_twice(findings.stdout))
    detailing = subprocess.run(
        [shop.program, "check", "--json", "--rules", "bs8666", *shop.files],
        capture_output=True, check=False)
    schemas["check"].validate(read_twice(detailing.stdout))
    differences = subprocess.run(
        [shop.program, "diff", "--json", shop.files[0], shop.files[1]],
        capture_output=True, check=False)
    schemas["diff"].validate(read_twice(differences.stdout))
    for path in [*(shop.project / "examples/drawings").glob("*.json")]:
        schemas["drawing"].validate(json.loads(path.read_text(encoding="utf-8")))
    # What is described and never comes is wrong too. The item tables hold the drawing's schema.
    for name in ("info", "bars", "check", "diff"):
        if missing := schemas[name].never_met():
            sys.exit(f"{name}.schema.json describes what never came: {missing}")


def check_xml(shop):
    xmllint = need("xmllint")
    for file in shop.files:
        for ending in (".svg", ".html"):
            run(xmllint, "--noout", "--nonet", shop.draw(file, ending, "--marks", "all"))


DOTS = "60"        # an inch, of pictures that are held against each other
PATCH = 10         # dots a side, whose mean is compared: edges are smoothed in many ways
MOST_APART = 0.25  # of the way from black to white


def rows_of_png(data):
    """The rows of a picture of eight bits a colour."""
    packed = b""
    at = 8
    while at < len(data):
        size = int.from_bytes(data[at:at + 4], "big")
        if data[at + 4:at + 8] == b"IHDR":
            width = int.from_bytes(data[at + 8:at + 12], "big")
        elif data[at + 4:at + 8] == b"IDAT":
            packed += data[at + 8:at + 8 + size]
        at += size + 12
    raw = zlib.decompress(packed)
    above = bytearray(3 * width)
    rows = []
    for begin in range(0, len(raw), 3 * width + 1):
        row = bytearray(raw[begin + 1:begin + 3 * width + 1])
        kind = raw[begin]
        for i, value in enumerate(row) if kind else ():
            left = row[i - 3] if i > 2 else 0
            corner = above[i - 3] if i > 2 else 0
            near = min((abs(above[i] - corner), 0, left), (abs(left - corner), 1, above[i]),
                       (abs(left + above[i] - 2 * corner), 2, corner))[2]
            row[i] = (value + (0, left, above[i], (left + above[i]) // 2, near)[kind]) & 255
        rows.append(row)
        above = row
    return rows


def patches_of(rows):
    """How bright each patch is, from 0 to 1."""
    sums = [[sum(row[at:at + 3 * PATCH]) for at in range(0, len(row) - 3 * PATCH + 1, 3 * PATCH)] for row in rows]
    return [[sum(column) / (PATCH * PATCH * 3 * 255) for column in zip(*sums[at:at + PATCH])]
            for at in range(0, len(sums) - PATCH + 1, PATCH)]


def same_picture(name, pdf, png):
    """The page of a PDF has the same on it as a PNG of the drawing."""
    page = run(need("pdftocairo"), "-r", DOTS, "-png", "-singlefile", pdf, "-")
    one, other = patches_of(rows_of_png(page)), patches_of(rows_of_png(png.read_bytes()))
    if abs(len(one) - len(other)) > 1 or min(min(row) for row in one) > 0.8:
        sys.exit(f"{name}: another size, or nothing on it")
    apart = max(abs(a - b) for row, line in zip(one, other) for a, b in zip(row, line))
    if apart > MOST_APART:
        sys.exit(f"{name}: the PDF differs from the PNG by {apart:.2f} somewhere")


def check_pdf(shop):
    pdftotext = need("pdftotext")
    for file in shop.files:
        picture = shop.draw(file, ".pdf")
        if file in (shop.files[0], shop.files[-1]):
            same_picture(file.name, picture, shop.draw(file, ".png", "--dpi", DOTS))
        # Each text is found, and as often as the drawing has it.
        words = run(pdftotext, "-raw", picture, "-").decode().split()
        texts = re.findall(r"<text[^>]*>([^<]*)</text>", shop.draw(file, ".svg").read_text(encoding="utf-8"))
        wanted = html.unescape(" ".join(texts)).split()
        if sorted("".join(words)) != sorted("".join(wanted)):
            sys.exit(f"{picture}: has other letters than the drawing")


# Clicks on elements, switches layers, moves about; the page then says what came of it.
PROBE = """
<script>
//<![CDATA[
window.addEventListener('load', function () {
  const result = {};
  const svg = document.querySelector('main svg');
  const text = function (id) { return document.getElementById(id).textContent; };
  const view = document.getElementById('view');
  const found = function () { return svg.querySelectorAll('.found[data-e]').length; };
  result.rows = document.querySelectorAll('#bars .list tbody tr').length;
  result.layers = document.querySelectorAll('#layers input').length;
  document.getElementById('mark').value = '6';
  document.querySelector('#search button').click();
  result.markMessage = text('message');
  result.markFound = found();
  result.zoomed = svg.getAttribute('viewBox');
  document.getElementById('whole').click();
  result.whole = svg.getAttribute('viewBox');
  document.getElementById('mark').value = '1';
  document.querySelector('#search button').click();
  result.strokes = Array.from(svg.querySelectorAll('g[data-layer=bars] .found')).map(
      function (bar) { return getComputedStyle(bar).stroke; });
  document.querySelector('#bars .list tbody tr:nth-child(2)').click();
  result.rowFound = found();
  document.getElementById('whole').click();
  const bar = document.querySelector('g[data-layer=bars] path[data-e="14"]');
  const point = bar.getPointAtLength(bar.getTotalLength() * 0.95).matrixTransform(svg.getScreenCTM());
  view.dispatchEvent(new MouseEvent('click', {bubbles: true, clientX: point.x, clientY: point.y}));
  result.element = text('element');
  const input = document.querySelector('#layers input[name=bars]');
  input.click();
  result.off = getComputedStyle(document.querySelector('g[data-layer=bars]')).display;
  input.click();
  view.dispatchEvent(new WheelEvent('wheel', {deltaY: -300, clientX: 200, clientY: 200,
                                              bubbles: true, cancelable: true}));
  result.wheel = svg.getAttribute('viewBox') !== result.whole;
  const box = function () { return svg.getAttribute('viewBox'); };
  document.getElementById('whole').click();
  view.setPointerCapture = function () {};  // there is no pointer to capture
  const pointer = function (kind, x) {
    view.dispatchEvent(new PointerEvent(kind, {pointerId: 1, clientX: x, clientY: 300, bubbles: true}));
  };
  pointer('pointerdown', 300);
  pointer('pointermove', 340);
  pointer('pointerup', 340);
  result.panned = Number(box().split(' ')[0]) < 0 && box().endsWith(' 420 297');
  document.getElementById('whole').click();
  view.dispatchEvent(new KeyboardEvent('keydown', {key: '+'}));
  result.key = Number(box().split(' ')[2]) < 420;
  view.dispatchEvent(new KeyboardEvent('keydown', {key: '0'}));
  result.zero = box() === result.whole;
  result.resources = performance.getEntriesByType('resource').length;
  document.body.setAttribute('data-result', JSON.stringify(result));
});
//]]>
</script>
</body>"""


def in_chromium(chromium, shop, page):
    dom = run(
        chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
        "--window-size=1400,900", f"--user-data-dir={shop.folder.resolve() / 'profile'}",
        "--disable-quic", "--no-first-run", "--disable-background-networking",
        "--disable-component-update", "--disable-sync",
        "--virtual-time-budget=4000", "--dump-dom", page.resolve().as_uri()).decode()
    return dom


# Goes from a note to its cloud, and from the cloud back to the note.
REVIEW_PROBE = """
<script>
//<![CDATA[
window.addEventListener('load', function () {
  const result = {};
  const svg = document.querySelector('main svg');
  const notes = document.querySelectorAll('#notes button');
  const box = function () { return svg.getAttribute('viewBox'); };
  const chosen = function () { return document.querySelectorAll('#notes .found').length; };
  const whole = box();
  result.notes = notes.length;
  notes[0].click();
  result.zoomed = box() !== whole;
  result.cloud = getComputedStyle(svg.querySelector('g[data-layer=marks] path.found')).stroke;
  document.getElementById('whole').click();
  document.querySelectorAll('.found').forEach(function (one) { one.classList.remove('found'); });
  const around = svg.querySelector('g[data-layer=marks] path').getBoundingClientRect();
  document.getElementById('view').dispatchEvent(new MouseEvent('click', {
    bubbles: true, clientX: around.left + around.width / 2, clientY: around.top + around.height / 2}));
  result.chosen = chosen();
  result.focus = document.activeElement === notes[0];
  result.resources = performance.getEntriesByType('resource').length;
  document.body.setAttribute('data-result', JSON.stringify(result));
});
//]]>
</script>
</body>"""


def check_review(shop):
    chromium = shutil.which("chromium") or need("google-chrome")
    sample = [file for file in shop.files if file.stem == "sample"][0]
    revised = sample.with_name("revised.xml")
    revised.write_bytes(re.sub(rb"<CKtZantoPin .*?</CKtZantoPin>", b"", sample.read_bytes(), count=1, flags=re.DOTALL))
    page = sample.with_name("review.html")
    subprocess.run([shop.program, "diff", sample, revised, "-o", page], check=False, capture_output=True)
    run(need("xmllint"), "--noout", "--nonet", page)
    page.write_text(page.read_text(encoding="utf-8").replace("</body>", REVIEW_PROBE), encoding="utf-8")
    result = probed_result(in_chromium(chromium, shop, page))
    expected = {"notes": 1, "zoomed": True, "cloud": "rgb(255, 138, 0)", "chosen": 1, "focus": True, "resources": 0}
    if result != expected:
        sys.exit(f"{result}, expected {expected}")


def probed_result(dom):
    match = re.search(r'data-result="([^"]*)"', dom)
    if match is None:
        sys.exit("the page did not come to its end:\n" + dom[-2000:])
    return json.loads(match.group(1).replace("&quot;", '"').replace("&amp;", "&"))


def check_page(shop):
    chromium = shutil.which("chromium") or need("google-chrome")
    sample = [file for file in shop.files if file.stem == "sample"][0]
    # At this scale bars of 16 are drawn as wide as lines are without a width of their own.
    page = shop.draw(sample, ".html", "--marks", "all", "--sheet", "A3", "--scale", "16")
    probed = page.with_name("probed.html")
    probed.write_text(
        page.read_text(encoding="utf-8").replace("</body>", PROBE), encoding="utf-8")
    result = probed_result(in_chromium(chromium, shop, probed))
    print(json.dumps(result, indent=2, ensure_ascii=False))
    expected = {
        "rows": 8, "strokes": ["rgb(255, 138, 0)"] * 2, "layers": 13, "markMessage": "2 elements of mark 6.", "off": "none",
        "wheel": True, "panned": True, "key": True, "zero": True, "resources": 0,
    }
    for key, value in expected.items():
        if result[key] != value:
            sys.exit(f"{key}: {result[key]!r}, expected {value!r}")
    if result["markFound"] < 2 or result["rowFound"] < 1:
        sys.exit("nothing was marked")
    if result["zoomed"] == result["whole"]:
        sys.exit("the search did not go to what it found")
    if "polygon bar, mark 5" not in result["element"] or "HookLength1" not in result["element"]:
        sys.exit("a click did not show the element: " + result["element"])


def bars_of(shop, *arguments):
    return json.loads(run(shop.program, "bars", "--json", *arguments))


def written_list(shop, name, *arguments):
    """A list in the form that the name says; nothing where this build does not write it."""
    path = shop.folder / name
    done = subprocess.run([shop.program, "bars", "-o", path, *arguments], capture_output=True,
                          check=False)
    if b"this build does not write it" in done.stderr:
        print(done.stderr.decode())
        sys.exit(MISSING)
    if done.returncode != 0:
        sys.exit(done.stderr.decode())
    return path


def same(what, expected, found):
    if expected != found:
        sys.exit(f"{what}: {found!r}, expected {expected!r}")


def check_workbook(shop):
    try:
        import openpyxl
    except ImportError:
        print("python3-openpyxl is not on this system")
        sys.exit(MISSING)
    for schedule in ("axis", "bs8666"):
        arguments = ["--schedule", schedule, *shop.files]
        expected = bars_of(shop, *arguments)
        book = openpyxl.load_workbook(written_list(shop, schedule + ".xlsx", *arguments))
        same("sheets", ["Bars", "By diameter and grade", "By drawing", "Meshes", "Not in these sums",
                        "Conventions"], book.sheetnames)
        rows = list(book["Bars"].values)
        place = {title: i for i, title in enumerate(rows[0])}
        same("rows", len(expected["bars"]), len(rows) - 1)
        for row, bar in zip(rows[1:], expected["bars"]):
            for title, key in (("mark", "mark"), ("diameter [mm]", "diameter"),
                               ("number", "number"), ("length [mm]", "length")):
                value = row[place[title]]
                if value is not None and not isinstance(value, (int, float)):
                    sys.exit(f"{title} is no number: {value!r}")
                same(title, bar[key], value)
            if bar["mass"] is not None and abs(row[place["mass [kg]"]] - bar["mass"]) > 0.00501:
                sys.exit(f"mass {row[place['mass [kg]']]}, expected {bar['mass']}")
            if schedule == "bs8666" and bar.get("code") == 21:
                letters = {one["letter"]: one["value"] for one in bar["bent"]["dimensions"]}
                same("B", letters["B"], row[place["B [mm]"]])
        masses = [row[4] for row in list(book["By diameter and grade"].values)[1:]]
        if abs(sum(masses) - expected["mass"]) > 0.01:
            sys.exit(f"{sum(masses)} kg by diameter, expected {expected['mass']}")
        first = (shop.folder / (schedule + ".xlsx")).read_bytes()
        same("bytes", first, written_list(shop, schedule + ".xlsx", *arguments).read_bytes())


def check_printed_list(shop):
    pdftotext = need("pdftotext")
    for language, total, page in (("en", "Total mass: ", "Page 1 of"),
                                  ("fr", "Masse totale\u00a0: ", "Page 1 sur")):
        for file in shop.files:
            arguments = ["--schedule", "bs8666", file]
            expected = bars_of(shop, *arguments)
            path = written_list(shop, language + ".pdf", "--lang", language, *arguments)
            text = run(pdftotext, "-layout", path, "-").decode()
            mass = f"{expected['mass']:.2f}".replace(".", "," if language == "fr" else ".")
            for words in (total + mass + " kg", page):
                if words not in text and words.replace("\u00a0", " ") not in text:
                    sys.exit(f"{path}: {words!r} is not in\n{text}")
            for bar in expected["bars"]:
                for one in bar.get("bent", {"dimensions": []})["dimensions"]:
                    value = "?" if one["value"] is None else f"{one['value']:g}"
                    if value not in text:
                        sys.exit(f"{path}: mark {bar['mark']} lacks {value} in\n{text}")


def main():
    check, program, project, folder = sys.argv[1:]
    checks = {
        "json": check_json, "xml": check_xml, "pdf": check_pdf, "page": check_page, "review": check_review,
        "workbook": check_workbook, "printed_list": check_printed_list,
    }
    checks[check](Workshop(program, project, folder))


if __name__ == "__main__":
    main()
