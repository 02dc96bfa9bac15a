#!/usr/bin/env python3
"""Makes the interchange documents under data/xml from the tables that stand beside this script.

    data/make_interchange.py [folder for the documents]

Numbers go over digit by digit. `xml/sample.xml` is a library of pair, group and side banks;
`xml/<source>.xml` is the library of one source of pure component data. Each names its banks by
`import` tags. `xml/alkanes.xml` is a bank of its own.
"""

import csv
import pathlib
import re
import sys
from xml.sax.saxutils import escape, quoteattr

DATA = pathlib.Path(__file__).resolve().parent
BANK = "SAMPLE"
ATMOSPHERE = "101.325"  # kPa
LONGEST_MEMO = 3999

SOURCES = {
    "PERRY": "Perry's handbook",
    "CHEMSEP": "ChemSep data",
    "VDI": "VDI Heat Atlas",
    "POLING": "Poling, Prausnitz, O'Connell, and others",
    "CRC": "CRC Handbook, and others",
    "NIST": "NIST WebBook, and others",
}
ALKANES = ("METHANE ETHANE PROPANE NBUTANE NPENTANE NHEXANE NHEPTANE NOCTANE NNONANE NDECANE").split()
# Words of property units, by code.
UNIT_WORDS = {
    "4014": "pa", "4015": "kpa", "19081": "kg/m3", "22024": "m3/kg-mole", "28012": "j/kg",
    "28018": "kj/kg", "30012": "j/kg-k", "30016": "kj/kg-k", "35010": "w/m-k", "40010": "cp",
    "40012": "pa-sec", "42012": "dyne/cm", "42015": "n/m",
}


def table(name):
    """Rows of a table as dictionaries of texts; "-" is left out."""
    columns = None
    rows = []
    for number, line in enumerate((DATA / name).read_text(encoding="utf-8").splitlines(), 1):
        if line.startswith("#!"):
            columns = line[2:].split()
        if not line.strip() or line.startswith("#"):
            continue
        words = line.split("  #")[0].split()
        if len(words) != len(columns):
            sys.exit(f"{name}, line {number}: {len(words)} words, not {len(columns)}")
        rows.append({c: w for c, w in zip(columns, words) if w != "-"})
    return rows


COMPONENTS = table("components.txt")
NUMBERS = {row["ids"].split(",")[0]: row["number"] for row in COMPONENTS}


def header(what, tables):
    return ["<!--", f"  {what}, made by data/make_interchange.py from {' and '.join(tables)}.",
            "  Reference codes: data/references.txt. Sources and licences: data/README.md.", "-->", ""]


def write(folder, name, lines):
    (folder / name).write_text("\n".join(lines) + "\n", encoding="utf-8")


def item(key_tag, keys, names, tags):
    """One item; `names` are shown beside the key, a tag without a value is left out."""
    lines = ["  <item>"]
    if keys:
        comment = f"  <!-- {', '.join(names)} -->" if names else ""
        lines.append(f"    <{key_tag}> {' '.join(keys)} </{key_tag}>{comment}")
    lines += [f"    <{tag}> {escape(value)} </{tag}>" for tag, value in tags if value is not None]
    return lines + ["  </item>"]


def components(row, columns):
    return [NUMBERS[row[c]] for c in columns], [row[c] for c in columns]


PAIR_RANGE = [("pMin", ATMOSPHERE), ("pMax", ATMOSPHERE)]


# Tags of an item of each bank, from a row of its table.
def nrtl(r):
    return PAIR_RANGE + [("aij", "0"), ("bij", r["bij"]), ("cij", "0"), ("dij", "0"), ("eij", "0"),
                         ("fij", "0"), ("aji", "0"), ("bji", r["bji"]), ("cji", "0"), ("dji", "0"),
                         ("eji", "0"), ("fji", "0"), ("alphaij", r["alphaij"]), ("betaij", "0"),
                         ("refCode", r["refCode"])]


def wilson(r):
    return PAIR_RANGE + [("aij", r["aij"]), ("aji", r["aji"]), ("form", "KCAL"),
                         ("eqnForm", "WILSON"), ("volRatio", "STD25C"), ("refCode", r["refCode"])]


def uniquac(r):
    return PAIR_RANGE + [("aij", r["aij"]), ("aji", r["aji"]), ("bij", "0"), ("bji", "0"),
                         ("cij", "0"), ("cji", "0"), ("dij", "0"), ("dji", "0"),
                         ("refCode", r["refCode"])]


def named(*columns, **others):
    """The columns under their own names, others as tag=column."""
    pairs = [(c, c) for c in columns] + list(others.items())
    return lambda r: [(tag, r.get(column)) for tag, column in pairs]


# type, table, key columns, tags
SAMPLE_BANKS = [
    ("NRTL", "nrtl.txt", "ij", nrtl),
    ("WILSON", "wilson.txt", "ij", wilson),
    ("UNIQUAC", "uniquac.txt", "ij", uniquac),
    ("PRO", "pr_kij.txt", "ij", named("tMin", "tMax", "kij", "refCode")),
    ("SRKO", "srk_kij.txt", "ij", named("tMin", "tMax", "kij", "refCode")),
    ("LKP", "lkp_kij.txt", "ij", named("kij", "refCode")),
    ("PCSAFT", "pcsaft_kij.txt", "ij", named("kij", "refCode")),
    ("PCSAFTPU", "pcsaft_pure.txt", ["component"],
     named("sigma", "epsilon", "epsHB", "volHB", "refCode", rmw="m")),
    ("COSTALD", "costald.txt", ["component"], named("Tc", "omega", "charVol")),
    ("RACKETT", "rackett.txt", ["component"], named("zRa")),
    ("OCTANE", "octane.txt", ["component"], named("MON", "RON")),
]


def component_items(table_rows, columns, tags):
    lines = []
    for row in table_rows:
        lines += item("keys", *components(row, columns), tags(row))
    return lines


def structure_items():
    lines = []
    for row in table("unifac_structures.txt"):
        groups = [part.rstrip(")").split("(") for part in row["groups"].split(",")]
        tags = [("count", str(len(groups))), ("groupNumber", " ".join(g[0] for g in groups)),
                ("groupCount", " ".join(g[1] for g in groups))]
        lines += item("keys", *components(row, ["component"]), tags)
    return lines


def group_names():
    lines = []
    for row in table("unifac_groups.txt"):
        lines += item("numerickey", [row["group"]], [], [("name", row["name"])])
    return lines


def group_set():
    """The set as a whole (no group in the key), its groups (one) and their interactions (two)."""
    lines = item("numerickey", [], [], [("structure", BANK), ("context", "orig-public")])
    for row in table("unifac_groups.txt"):
        lines += item("numerickey", [row["group"]], [row["name"]],
                      [("mainGroup", row["main"]), ("r", row["r"]), ("q", row["q"]),
                       ("refCode", row["refCode"])])
    for row in table("unifac_interactions.txt"):
        lines += item("numerickey", [row["main_i"], row["main_j"]], [],
                      [("vlij", row["aij"]), ("vlji", row["aji"]), ("refCode", row["refCode"])])
    return lines


def bank(folder, file, bank_type, name, tables, items):
    write(folder, file, header(f"bank {bank_type}, {name}", tables) +
          [f'<bank type="{bank_type}" name="{name}">'] + items + ["</bank>"])


def citations(lines):
    """A line for each reference code of the items: what is cited for it."""
    text = (DATA / "references.txt").read_text(encoding="utf-8")
    known = dict(line.split(maxsplit=1) for line in text.splitlines() if not line.startswith("#"))
    codes = {int(code) for line in lines
             for code in re.findall(r'<refCode> ([0-9]+) |refCode="([0-9]+)"', line) for code in code if code}
    return [f"ref {code}: {known[str(code)]}" for code in sorted(codes)]


def meanings():
    """A line for each parameter of a model: how the data use it."""
    lines = []
    with open(DATA / "parameters.csv", encoding="utf-8", newline="") as file:
        for row in csv.DictReader(file):
            head = "equation " + row["type"]
            if row["field"] != "equation":
                unit = f" [{row['unit']}]" if row["unit"] else ""
                head = f"parameter {row['type']} {row['field']}{unit}"
            lines.append(f"{head}: {row['meaning']}")
    return lines


def memo(notes):
    """The memo of a library: notes that travel with it, see docs/notes.md."""
    size = len("\n".join(notes).encode("utf-8"))
    if size > LONGEST_MEMO:
        sys.exit(f"a memo would have {size} characters")
    lines = ["    <![CDATA[ " + notes[0]] + ["            [ " + note for note in notes[1:]]
    return ["  <memo>"] + lines[:-1] + [lines[-1] + "]]>", "  </memo>"]


def library(folder, file, description, imports, notes):
    lines = header(f'library "{description}"', ["data"])
    lines += ["<library>", f"  <description> {escape(description)} </description>",
              "  <version> 1 </version>"] + memo(notes)
    lines += [f"  <import file={quoteattr(name)} />" for name in imports]
    write(folder, file, lines + ["</library>"])


def sample(folder):
    files = []
    written = []

    def add(bank_type, tables, items):
        written.extend(items)
        files.append(f"sample-{bank_type.lower()}.xml")
        bank(folder, files[-1], bank_type, BANK, tables, items)

    for bank_type, name, columns, tags in SAMPLE_BANKS:
        add(bank_type, [name], component_items(table(name), list(columns), tags))
    add("GRPDESC", ["unifac_groups.txt"], group_names())
    add("UNFORIG", ["unifac_groups.txt", "unifac_interactions.txt"], group_set())
    add("STRUCT", ["unifac_structures.txt"], structure_items())
    library(folder, "sample.xml", "Published pair and group parameters", files,
            citations(written) + meanings())
    alkanes = [row for row in table("rackett.txt") if row["component"] in ALKANES]
    bank(folder, "alkanes.xml", "RACKETT", "ALKANES", ["rackett.txt"],
         component_items(alkanes, ["component"], named("zRa")))


def by_component(rows):
    groups = {}
    for row in rows:
        groups.setdefault(row["component"], []).append(row)
    return groups


def correlation(row):
    attributes = [("name", row["correlation"]), ("equation", row["equation"]),
                  ("tempUnit", row["tempUnit"].lower()),
                  ("propUnit", UNIT_WORDS.get(row["unitCode"], "")), ("logBasis", row["log"]),
                  ("moleWtBasis", row.get("basis", "")), ("tMin", row.get("tMin")),
                  ("tMax", row.get("tMax")), ("refCode", row["refCode"])]
    words = " ".join(f"{name}={quoteattr(value)}" for name, value in attributes if value)
    return [f"    <correlation {words}>", f"      {row['coefficients'].replace(',', ' ')}",
            "    </correlation>"]


def component(row, smiles, constants, curves):
    name = row["name"].replace("_", " ")
    lines = ["  <comp>",
             f'    <id number="{row["number"]}" name={quoteattr(name)} formula="{row["formula"]}"'
             f' casNum="{row["cas"]}" refCode="{row["refCode"]}">',
             f"      {row['ids'].replace(',', ' ')}", "    </id>",
             f'    <flags phase="{row["phase"]}" />']
    if smiles:
        lines.append(f"    <smiles> {escape(smiles)} </smiles>")
    lines += [f'    <property name="{c["constant"]}" value="{c["value"]}" refCode="{c["refCode"]}" />'
              for c in constants]
    for curve in curves:
        lines += correlation(curve)
    return lines + ["  </comp>"]


def pure(folder):
    smiles = {row["component"]: row["smiles"] for row in table("smiles.txt")}
    for source, what in SOURCES.items():
        stem = source.lower()
        tables = [f"pure/{stem}_constants.txt", f"pure/{stem}_correlations.txt"]
        constants, curves = (by_component(table(name)) for name in tables)
        lines = []
        for row in COMPONENTS:
            main_id = row["ids"].split(",")[0]
            if main_id in constants or main_id in curves:
                lines += component(row, smiles.get(main_id), constants.get(main_id, []),
                                   curves.get(main_id, []))
        bank(folder, f"{stem}-purecomp.xml", "PURECOMP", source, tables, lines)
        library(folder, f"{stem}.xml", what, [f"{stem}-purecomp.xml"], citations(lines))


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else DATA / "xml"
    folder.mkdir(parents=True, exist_ok=True)
    sample(folder)
    pure(folder)


if __name__ == "__main__":
    main()
