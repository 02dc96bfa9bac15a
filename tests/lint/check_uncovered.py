"""The lines that tests/uncovered.txt names exist and have reasons (scripts/coverage --check), and the check
finds those that do not.

    check_uncovered.py <root of the sources> <folder to work in>
"""
import importlib.machinery
import importlib.util
import pathlib
import sys

SOURCE = "int f(int x) {\n  if (x)\n    return   1;\n  return 2;\n  return 2;\n}\n"

# What is named, and what the check says of it.
CASES = [
    ("# why\nstore/a.cpp\n    return 1;\n    if (x)\n", []),
    ("# why\nstore/a.cpp\n    return 2;\n    return 2;\n", []),
    ("# why\nstore/a.cpp\n    return 2;\n\n# else\nstore/a.cpp\n    return 2;\n", []),
    ("# why\nstore/a.cpp\n    return 1;\n    return 1;\n", ["store/a.cpp: has 1 lines, not 2: return 1;"]),
    ("# why\nstore/a.cpp\n    return 3;\n", ["store/a.cpp: has 0 lines, not 1: return 3;"]),
    ("# why\nstore/b.cpp\n    return 1;\n", ["store/b.cpp: does not exist"]),
    ("store/a.cpp\n    return 1;\n", ["1: a source without a reason"]),
    ("# why\nstore/a.cpp\n    return 1;\n\nstore/a.cpp\n    if (x)\n", ["5: a source without a reason"]),
    ("# why\n    return 1;\n", ["2: a line without its source", ": does not exist"]),
]


def main():
    root, work = (pathlib.Path(word) for word in sys.argv[1:])
    loader = importlib.machinery.SourceFileLoader("coverage_script", str(root / "scripts" / "coverage"))
    script = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(script)
    (work / "store").mkdir(parents=True, exist_ok=True)
    (work / "store" / "a.cpp").write_text(SOURCE, encoding="utf-8")
    wrong = script.faults_of_names(script.NAMES.read_text(encoding="utf-8"))
    for text, expected in CASES:
        found = script.faults_of_names(text, work)
        if found != expected:
            wrong.append(f"{text!r}: {found}, not {expected}")
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
