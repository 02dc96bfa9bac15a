"""The pages of `zel sheet` and `zel report` in a browser.

    page_test.py ZEL FOLDER_OF_DOCUMENTS [FOLDER_FOR_PICTURES]

Ends with 77 where there is no Chromium.
"""

import json
import os
import subprocess
import sys
import tempfile
import time

from browser import Browser, find_chromium

SOURCES = ("perry", "crc", "chemsep", "nist", "poling", "vdi")
CONTRAST = """
(() => {
  const part = (c) => { c /= 255; return c <= 0.03928 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4; };
  const light = ([r, g, b]) => 0.2126 * part(r) + 0.7152 * part(g) + 0.0722 * part(b);
  const color = (text) => text.match(/[0-9.]+/g).map(Number);
  const bad = [];
  let seen = 0;
  for (const element of document.querySelectorAll('body *')) {
    const own = [...element.childNodes].some((n) => n.nodeType === 3 && n.textContent.trim());
    if (!own || !element.getClientRects().length) continue;
    let back = element;
    while (back && (color(getComputedStyle(back).backgroundColor)[3] === 0)) back = back.parentElement;
    const a = light(color(getComputedStyle(element).color));
    const b = light(back ? color(getComputedStyle(back).backgroundColor) : [255, 255, 255]);
    const ratio = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
    ++seen;
    if (ratio < 4.5) bad.push(element.textContent.slice(0, 30) + ' ' + ratio);
  }
  return [seen, bad];
})()
"""
passed = 0
failed = 0


def check(is_good, what):
    global passed, failed
    if is_good:
        passed += 1
    else:
        failed += 1
        print("failed: " + what)


def run(zel, *words):
    return subprocess.run([zel, *words], check=True, capture_output=True, text=True).stdout


def test_list(browser, library):
    browser.size(1280, 900)
    # Processor time, since other programs may keep the machine busy.
    before = browser.processor_time()
    start = time.time()
    browser.open(library)
    seconds = browser.processor_time() - before
    elapsed = time.time() - start
    check(seconds < 1.5, "opening takes less than 1.5 s of processor time in all processes: %.2f" % seconds)
    size = os.path.getsize(library)
    check(size < 5e6, "the page has less than 5 MB: %d" % size)
    print("%d bytes, opened with %.2f s of processor time, in %.2f s" % (size, seconds, elapsed))
    rows = "document.querySelectorAll('tbody tr').length"
    check(browser.evaluate(rows) == 340, "all components are listed")
    browser.key("/", "/")
    check(browser.evaluate("document.activeElement.id") == "search", "/ leads to the search")
    browser.type("ethanol")
    browser.wait_for(rows + " < 20")
    texts = browser.evaluate("[...document.querySelectorAll('tbody tr')].map((r) => r.textContent)")
    check(texts and all("ethanol" in text.lower() for text in texts), "the search finds its word only")
    browser.evaluate("(() => { const s = document.getElementById('search'); s.value = '';"
                     " s.dispatchEvent(new Event('input')); })()")
    heads = browser.evaluate("[...document.querySelectorAll('thead th')].map((h) => h.textContent)")
    column = [i for i, head in enumerate(heads) if head.startswith("NBP")][0]
    for is_down in (False, True):
        browser.click("thead th:nth-child(%d) button" % (column + 1))
        cells = browser.evaluate(
            "[...document.querySelectorAll('tbody tr')].map((r) => r.children[%d].textContent)" % column)
        values = [float(cell) for cell in cells if cell != "–"]
        check(len(values) > 300 and values == sorted(values, reverse=is_down),
              "sorted by NBP, down: %s" % is_down)
        check("–" not in cells[:len(values)], "missing values come last")


def open_sheet(browser):
    """By keys alone, from the search to a link in the list."""
    browser.evaluate("document.getElementById('search').focus()")
    browser.type("64-17-5")
    browser.wait_for("document.querySelectorAll('tbody tr').length === 1")
    for _ in range(30):
        browser.key("Tab")
        if (browser.evaluate("document.activeElement.getAttribute('href')") or "").startswith("#c/"):
            break
    browser.key("Enter")
    browser.wait_for("document.querySelector('h2').textContent === 'Ethanol'")
    check(browser.evaluate("document.querySelectorAll('.uplot').length") >= 10, "charts are drawn")


LEGEND = ("(() => { const c = document.querySelector('.chart[aria-label^=\"vapor pressure\"]');"
          "return [...c.querySelectorAll('.u-series')].map((s) =>"
          "[s.querySelector('.u-label').textContent, s.querySelector('.u-value').textContent]); })()")


def test_values(browser, zel, folder):
    """What a chart shows at the cursor is what zel evaluates there."""
    where = ("(() => { const o = document.querySelector('.chart[aria-label^=\"vapor pressure\"] .u-over');"
             "o.scrollIntoView({block: 'center'}); const b = o.getBoundingClientRect();"
             "return [b.x, b.y, b.width, b.height]; })()")
    compared = 0
    for share in (0.15, 0.4, 0.62, 0.9):
        x, y, width, height = browser.evaluate(where)
        browser.move(x + share * width, y + height / 2)
        browser.wait_for(LEGEND + "[0][1] !== '–'")
        legend = browser.evaluate(LEGEND)
        kelvin = float(legend[0][1])
        for source, shown in legend[1:]:
            if shown in ("–", "--"):
                continue
            answer = json.loads(run(zel, "eval", "ETHANOL", "VaporPressure", "--at", repr(kelvin), "-l",
                                    source, "--derivatives", "1", "--json"))
            point = answer["points"][0]
            # The temperature is shown with 6 digits.
            slack = abs(point["d/dt"]) * 0.5e-3 + 1e-6 * point["value"]
            difference = abs(float(shown) - point["value"])
            check(difference <= 1e-4 * point["value"] + slack,
                  "%s at %s K: %s shown, %r evaluated" % (source, kelvin, shown, point["value"]))
            compared += 1
    check(compared >= 8, "values of several sources are compared: %d" % compared)


def test_curves(browser, zel, folder):
    """Curves between their points, at temperatures that have nothing to do with these."""
    compared = 0
    worst = 0.0
    for word in ("ETHANOL", "WATER", "NBUTANE", "BENZENE", "METHANE"):
        for name in ("VaporPressure", "LiquidDensity", "LatentHeat", "IdealEnthalpy", "LiquidViscosity",
                     "VaporThermal"):
            answer = subprocess.run([zel, "eval", word, name, "-l", "perry.lb1", "--steps", "97",
                                     "--derivatives", "0", "--json"], capture_output=True, text=True)
            if answer.returncode != 0:  # not every component has every correlation
                continue
            answer = json.loads(answer.stdout)
            values = browser.evaluate(
                "(() => { const d = JSON.parse(document.getElementById('data').textContent);"
                "const c = d.components.find((one) => one.ids.includes(%s));"
                "const k = d.correlations.findIndex((one) => one[0] === %s);"
                "const curve = c.s[0][2].find((one) => one[0] === k);"
                "const pieces = Curves.piecesAt(curve[9]);"
                "return %s.map((t) => Curves.valueAt(pieces, t)); })()"
                % (json.dumps(word), json.dumps(name), json.dumps([p["t"] for p in answer["points"]])))
            most = max(abs(p["value"]) for p in answer["points"])
            for point, value in list(zip(answer["points"], values))[1:-1]:
                is_crossing = min(p["value"] for p in answer["points"]) <= 0
                scale = max(abs(point["value"]), 1e-3 * most if is_crossing else 0)
                error = 1.0 if value is None else abs(value - point["value"]) / scale
                worst = max(worst, error)
                compared += 1
    check(compared > 2000 and worst <= 1e-4, "%d values of curves, worst %.1e" % (compared, worst))
    print("%d values of curves, worst %.1e" % (compared, worst))


def test_keys_and_contrast(browser):
    browser.evaluate("document.querySelector('.chart[aria-label^=\"vapor pressure\"]').focus()")
    browser.key("Home")
    first = browser.evaluate(LEGEND)[0][1]
    browser.key("ArrowRight")
    browser.key("ArrowRight")
    second = browser.evaluate(LEGEND)[0][1]
    check(first not in ("–", "--") and float(second) > float(first), "keys move the cursor: %s %s" % (first, second))
    for view in ("#", "#pairs", "#findings", "#c/10000007"):
        browser.evaluate("location.hash = '%s'" % view)
        time.sleep(0.3)
        seen, bad = browser.evaluate(CONTRAST)
        check(seen > 20 and not bad, "contrast in %s of %d texts: %s" % (view, seen, bad[:3]))


def test_pairs_and_findings(browser):
    browser.evaluate("location.hash = '#pairs'")
    browser.wait_for("document.querySelector('#map svg')")
    browser.evaluate("document.querySelector('rect.cell').focus()")
    text = browser.evaluate("document.getElementById('pick').textContent")
    check(" + " in text and "sample.lb1" in text, "a pair is named: " + text)
    browser.evaluate("location.hash = '#findings'")
    browser.wait_for("document.querySelector('h2').textContent.startsWith('Findings')")
    check(browser.evaluate("document.querySelectorAll('tbody tr').length") > 10, "findings are listed")


def test_pair_in_sight(browser, library):
    """The pair that is pointed at is named in sight, wherever its square is."""
    browser.size(1280, 700)
    browser.open(library)
    browser.evaluate("location.hash = '#pairs'")
    browser.wait_for("document.querySelector('#map svg')")
    browser.evaluate(
        "(() => { const s = document.getElementById('bank');"
        "s.value = [...s.options].findIndex((o) => o.textContent.startsWith('NRTL'));"
        "s.dispatchEvent(new Event('change')); })()")
    browser.evaluate("(() => { const all = [...document.querySelectorAll('rect.cell')];"
                     "all.sort((a, b) => b.getAttribute('y') - a.getAttribute('y'))[0].focus(); })()")
    top, cell, text = browser.evaluate(
        "(() => { const p = document.getElementById('pick'); const b = p.getBoundingClientRect();"
        "const c = document.activeElement.getBoundingClientRect();"
        "return [[b.top, b.bottom], [c.top, c.bottom], p.textContent]; })()")
    check(browser.evaluate("window.scrollY") > 200, "the map is larger than the window")
    check(top[0] >= 0 and top[1] <= 700 and " + " in text, "the pair is named in sight: %s %s" % (top, text))
    check(cell[0] >= top[1] and cell[1] <= 700, "its square is in sight: %s" % cell)


def test_legend(browser, library):
    """Lines can be told apart without color: their samples have different dashes."""
    browser.open(library)
    browser.evaluate("location.hash = '#c/10000007'")
    browser.wait_for("document.querySelectorAll('.uplot').length > 5")
    dashes = browser.evaluate(
        "[...document.querySelectorAll('.chart[aria-label^=\"vapor pressure\"] .u-series .sample path')]"
        ".map((p) => p.getAttribute('stroke-dasharray'))")
    labels = browser.evaluate(
        "document.querySelectorAll('.chart[aria-label^=\"vapor pressure\"] .u-series').length")
    check(len(dashes) == labels - 1 >= 5 and len(set(dashes)) == len(dashes), "dashes differ: %s" % dashes)
    text = browser.evaluate("document.body.textContent")
    check("per mole" not in text and "step 3" not in text, "units and symbols are said in full")


def test_units(browser, zel):
    """A sheet in other units: heads, axes and the values at the cursor."""
    run(zel, "sheet", "ETHANOL", "-l", "perry.lb1", "--units", "US", "-o", "us.html")
    browser.size(1280, 900)
    browser.open("us.html")
    browser.evaluate("document.querySelector('.chart[aria-label^=\"vapor pressure\"]').focus()")
    browser.key("Home")
    for _ in range(40):
        browser.key("ArrowRight")
    legend = browser.evaluate(LEGEND)
    check(legend[0][0] == "T [F]", "the temperature is in F: %s" % legend[0])
    answer = json.loads(run(zel, "eval", "ETHANOL", "VaporPressure", "--at", legend[0][1], "-l", "perry.lb1",
                            "--units", "US", "--json"))
    value = answer["points"][0]["value"]
    check(abs(float(legend[1][1]) - value) <= 1e-3 * value, "%s at %s F: %r evaluated"
          % (legend[1][1], legend[0][1], value))
    text = browser.evaluate("document.body.textContent")
    check("[psia]" in text and "[kPa]" not in text, "the heads have the units asked for")


def test_print(browser, library, sheets):
    """In print nothing is wider than the page: A4 with its margins, 680 px."""
    for path, view in [(library, "#c/10000007")] + [(sheet, "") for sheet in sheets]:
        browser.media("print")
        browser.size(680, 900)
        browser.open(path)
        browser.evaluate("location.hash = '%s'" % view)
        browser.wait_for("document.querySelectorAll('.uplot').length > 5")
        browser.evaluate("window.dispatchEvent(new Event('beforeprint'))")
        wide = browser.evaluate(
            "Math.max(document.documentElement.scrollWidth,"
            "...[...document.querySelectorAll('table, .uplot, .map')].map((e) => e.getBoundingClientRect().right))")
        check(wide <= 681, "%s%s is as wide as the page in print: %s" % (path, view, wide))
        browser.media("")


def take_pictures(browser, library, sheet, folder):
    for width in (1280, 800, 390):
        browser.size(width, 900)
        browser.open(library)
        for name, view in (("list", "#"), ("sheet", "#c/10000007"), ("pairs", "#pairs")):
            browser.evaluate("location.hash = '%s'" % view)
            time.sleep(0.3)
            wide = browser.evaluate("document.documentElement.scrollWidth")
            check(wide <= width, "%s is not wider than %d: %d" % (name, width, wide))
            browser.picture(os.path.join(folder, "%s-%d.png" % (name, width)))
    browser.size(1280, 900)
    browser.open(library)
    browser.evaluate("location.hash = '#c/10000007'")
    time.sleep(0.3)
    browser.print_to(os.path.join(folder, "component.pdf"))
    browser.open(sheet)
    check(browser.evaluate("document.querySelectorAll('.uplot').length") >= 10, "the sheet has charts")
    check("Ethanol" in browser.evaluate("document.querySelector('h2').textContent"), "the sheet's title")
    browser.picture(os.path.join(folder, "two.png"))
    browser.print_to(os.path.join(folder, "two.pdf"))
    for name in ("component.pdf", "two.pdf"):
        check(os.path.getsize(os.path.join(folder, name)) > 20000, name + " has content")


def main():
    program = find_chromium()
    if program is None:
        print("skipped: no Chromium (Debian: apt-get install chromium)")
        return 77
    zel, documents = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    with tempfile.TemporaryDirectory() as work:
        pictures = os.path.abspath(sys.argv[3]) if len(sys.argv) > 3 else work
        os.makedirs(pictures, exist_ok=True)
        os.chdir(work)
        words = []
        for name in SOURCES + ("sample",):
            run(zel, "import", name + ".lb1", os.path.join(documents, name + ".xml"), "--create")
            words += ["-l", name + ".lb1"]
        run(zel, "report", *words, "-o", "library.html")
        run(zel, "sheet", "ETHANOL", "WATER", *words, "-o", "sheet.html")
        run(zel, "sheet", "ETHANOL", "WATER", "BENZENE", *words, "-o", "three.html")
        run(zel, "sheet", "ETHANOL", "--each", *words, "-o", "each.html")
        browser = Browser(program)
        try:
            test_list(browser, "library.html")
            open_sheet(browser)
            test_values(browser, zel, work)
            test_curves(browser, zel, work)
            test_keys_and_contrast(browser)
            test_pairs_and_findings(browser)
            test_pair_in_sight(browser, "library.html")
            test_legend(browser, "library.html")
            test_units(browser, zel)
            test_print(browser, "library.html", ("sheet.html", "three.html", "each.html"))
            take_pictures(browser, "library.html", "sheet.html", pictures)
            complaints = browser.complaints()
            check(not complaints, "console and network: " + str(complaints[:3]))
        finally:
            browser.close()
    print("%d passed, %d failed" % (passed, failed))
    return 0 if failed == 0 and passed > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
