"""Runs the session of docs/python.md and the tutorial in a folder, and says what is there then.

    PYTHONPATH=$PWD/build/python/python /usr/bin/python3 hosts/python/demo.py FOLDER
"""

import ast
import os
import re
import runpy
import shutil
import sys
from pathlib import Path

import matplotlib
import pandas

matplotlib.use("Agg")
from matplotlib import pyplot  # noqa: E402

import zelaccess as za  # noqa: E402

ROOT = Path(__file__).resolve().parents[2]
DOCUMENT = ROOT / "docs" / "python.md"
TUTORIAL = Path(__file__).resolve().parent / "tutorial"


def session():
    """The first session of the document."""
    return re.search(r"```python\n(.*?)```", DOCUMENT.read_text(encoding="utf-8"), re.DOTALL)[1]


def make_libraries():
    """perry.lb1 and crc.lb1 with published data, own.lb1 with two components and all pairs."""
    for library in Path().glob("*.lb?"):
        library.unlink()
    for history in Path().glob(".*.zel-history"):
        shutil.rmtree(history)
    for name in ("perry", "crc"):
        with za.edit(f"{name}.lb1", new=True) as library:
            library.import_document(ROOT / "data" / "xml" / f"{name}.xml")
    table = za.Libraries("perry.lb1", "crc.lb1").constants(["MW", "TC", "PC"],
                                                           components=["ETHANOL", "WATER"])
    with za.edit("own.lb1", new=True) as own:
        own.import_document(ROOT / "data" / "xml" / "sample.xml")
        own.import_table(table, "PURECOMP:OWN")


def type_in(text):
    """Run each statement of a session, with its lines and its result, as the interpreter does."""
    lines, names = text.splitlines(), {}
    for statement in ast.parse(text).body:
        shown = lines[statement.lineno - 1:statement.end_lineno]
        print("\n".join((">>> " if i == 0 else "... ") + line for i, line in enumerate(shown)))
        if isinstance(statement, ast.Expr):
            value = eval(compile(ast.Expression(statement.value), "session", "eval"), names)
            if value is not None:
                print(repr(value))
        else:
            exec(compile(ast.Module([statement], []), "session", "exec"), names)
    return names


def run_tutorial():
    """Run its scripts, whose output is kept in files."""
    sys.path.insert(0, str(TUTORIAL))
    sys.dont_write_bytecode = True
    for script in sorted(TUTORIAL.glob("0*.py")):
        printed, sys.stdout = sys.stdout, open(f"{script.stem}.txt", "w", encoding="utf-8")
        try:
            runpy.run_path(str(script))
        finally:
            sys.stdout.close()
            sys.stdout = printed
        pyplot.close("all")


def main(folder):
    os.makedirs(folder, exist_ok=True)
    os.chdir(folder)
    pandas.set_option("display.width", 100, "display.max_columns", 20, "display.max_colwidth", 30)
    make_libraries()
    names = type_in(session())
    pyplot.gcf().savefig("vapor-pressure.png", dpi=120)
    names["eth"].sheet().save("ethanol.html")
    pyplot.close("all")
    here = Path.cwd()
    os.makedirs("tutorial", exist_ok=True)
    os.chdir("tutorial")
    for library in Path().glob("*.lb?"):
        library.unlink()
    run_tutorial()
    print(f"\nIn {here}:")
    print("  vapor-pressure.png   what the session has drawn")
    print("  ethanol.html         the data sheet of ethanol")
    print("  perry.lb1 ...        the libraries, mine.lb1 among them")
    for picture in sorted(Path().glob("*.png")):
        print(f"  tutorial/{picture.name}")
    print(f"{DOCUMENT} goes on from here; the scripts of the tutorial are in\n{TUTORIAL}")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
