#!/usr/bin/env python3
"""Runs the program and reads what it writes with readers that are not its own.

usage: independent_readers.py CHECK PROGRAM PROJECT FOLDER

CHECK is json, xml, pdf or page. Ends with 77 where the reader is not on this system.
"""

import json
import pathlib
import re
import shutil
import subprocess
import sys

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


def check_json(shop):
    try:
        import jsonschema
    except ImportError:
        print("python3-jsonschema is not on this system")
        sys.exit(MISSING)
    schemas = {}
    for path in (shop.project / "docs/schema").glob("*.schema.json"):
        schema = json.loads(path.read_text(encoding="utf-8"))
        jsonschema.Draft202012Validator.check_schema(schema)
        schemas[path.name.split(".")[0]] = jsonschema.Draft202012Validator(schema)
    broken = shop.folder / "broken.xml"
    broken.write_bytes(b"<Document>\x01<CKtZantoLine/></Document>")
    malformed = shop.folder / "malformed.xml"
    malformed.write_bytes(b"<Document>")
    for file in shop.files:
        for command, schema in (("info", "info"), ("bars", "bars"), ("list", "drawing")):
            schemas[schema].validate(read_twice(run(shop.program, command, "--json", file)))
    findings = subprocess.run(
        [shop.program, "check", "--json", *shop.files, broken, malformed],
        capture_output=True, check=False)
    schemas["check"].validate(read_twice(findings.stdout))
    differences = subprocess.run(
        [shop.program, "diff", "--json", shop.files[0], shop.files[1]],
        capture_output=True, check=False)
    schemas["diff"].validate(read_twice(differences.stdout))
    for path in [*(shop.project / "examples/drawings").glob("*.json")]:
        schemas["drawing"].validate(json.loads(path.read_text(encoding="utf-8")))


def check_xml(shop):
    xmllint = need("xmllint")
    for file in shop.files:
        for ending in (".svg", ".html"):
            run(xmllint, "--noout", "--nonet", shop.draw(file, ending, "--marks", "all"))


def check_pdf(shop):
    pdftoppm = need("pdftoppm")
    for file in shop.files:
        picture = shop.draw(file, ".pdf")
        run(pdftoppm, "-r", "20", "-png", "-singlefile", picture, file.with_suffix(""))
        # A drawing of any kind is no plain sheet.
        if file.with_suffix(".png").stat().st_size < 2000:
            sys.exit(f"{picture}: there is nothing on it")


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
  result.rows = document.querySelectorAll('#bars tbody tr').length;
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
  document.querySelector('#bars tbody tr:nth-child(2)').click();
  result.rowFound = found();
  document.getElementById('whole').click();
  const bar = Array.from(document.querySelectorAll('g[data-layer=bars] path'))[5];
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


def check_page(shop):
    chromium = shutil.which("chromium") or need("google-chrome")
    sample = [file for file in shop.files if file.stem == "sample"][0]
    # At this scale bars of 16 are drawn as wide as lines are without a width of their own.
    page = shop.draw(sample, ".html", "--marks", "all", "--sheet", "A3", "--scale", "16")
    probed = page.with_name("probed.html")
    probed.write_text(
        page.read_text(encoding="utf-8").replace("</body>", PROBE), encoding="utf-8")
    dom = in_chromium(chromium, shop, probed)
    match = re.search(r'data-result="([^"]*)"', dom)
    if match is None:
        sys.exit("the page did not come to its end:\n" + dom[-2000:])
    result = json.loads(match.group(1).replace("&quot;", '"').replace("&amp;", "&"))
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


def main():
    check, program, project, folder = sys.argv[1:]
    checks = {
        "json": check_json, "xml": check_xml, "pdf": check_pdf, "page": check_page,
    }
    checks[check](Workshop(program, project, folder))


if __name__ == "__main__":
    main()
