"""Holds what zel prints with --json against the published schemas.

check_schemas.py ZEL SCHEMAS DOCUMENTS DATA WORK

Every command of the sessions in zel.md runs with --json, then some more and some that fail. An object
may have only members that its schema names, although the schemas themselves allow more: later
versions may add members. Each schema must have been used. Ends with 77 if the Debian package
python3-jsonschema is missing, but with 1 where CI is set.
"""
import glob
import json
import os
import re
import shutil
import subprocess
import sys

try:
    import jsonschema
    import jsonschema.exceptions
except ImportError:
    print("python3-jsonschema is not installed")
    sys.exit(1 if os.environ.get("CI") else 77)

# Run after the session, in the same folder; words as a shell reads them, and the exit status.
MORE = [
    ("types", 0),
    ("types NRTL", 0),
    ("types PURECOMP", 0),
    ("banks sample.lb1", 0),
    ("items perry.lb1 PERRY --fields TC VaporPressure", 0),
    ("items sample.lb1 NRTL --fields bij --names perry.lb1", 0),
    ("show perry.lb1 PERRY ETHANOL --complete", 0),
    ("memo sample.lb1", 0),
    ("memo sample.lb1 --bank NRTL", 0),
    ("memo sample.lb1 --set x --dry-run", 0),
    ("set sample.lb1 --description x --dry-run", 0),
    ("search ETHANOL -l perry.lb1 -l crc.lb1", 0),
    ("why ETHANOL VaporPressure -l perry.lb1 -l crc.lb1", 0),
    ("eval ETHANOL WATER VaporPressure LiquidDensity -l perry.lb1 --components ETHANOL WATER", None),
    ("eval ETHANOL --correlations VaporPressure LiquidCp -l perry.lb1", None),
    ("table ETHANOL WATER --fields TC VaporPressure --sources -l perry.lb1", 0),
    ("coverage ETHANOL WATER --details -l perry.lb1 -l sample.lb1", 0),
    ("export sample.lb1 -o out.xml", 0),
    ("dump perry.lb1", 0),
    ("compare perry.lb1 crc.lb1 --components ETHANOL WATER --codes --missing", 0),
    ("merge own.lb1 sample.lb1 --list", 0),
    ("template NRTL", 0),
    ("template PURECOMP", 0),
    ("path perry", 0),
    ("schema", 0),
    ("check --ids", 0),
    ("check perry.lb1 --fail-on warning", 1),
    ("delete perry.lb1 PERRY ETHANOL --dry-run", 0),
    # Failures.
    ("info nowhere.lb1", 1),
    ("why ETHANL NBP -l perry.lb1", 1),
    ("why ETHANOL NPB -l perry.lb1", 1),
    ("show sample.lb1 NRTL ETHANOL NOTHING --names perry.lb1", 1),
    ("inffo perry.lb1", 2),
    ("info perry.lb1 --jason", 2),
    ("info", 2),
]


# Commands that print something else than a report, or whose output goes elsewhere.
NO_REPORT = r"--(csv|format)|>|\||-o -( |$)|zel schema \S"


def steps(document):
    """The commands of the sessions, and the files that blocks `ini` describe, as (name, text)."""
    kind, found = "", []
    for line in document.splitlines():
        if line.startswith("```"):
            kind = line[3:]
            if kind == "ini":
                found.append(["", []])
        elif kind == "console" and line.startswith("$ "):
            found.append(line[2:])
        elif kind == "ini":
            found[-1][0] = found[-1][0] or line[2:]
            found[-1][1].append(line)
    return found


def closed(schema):
    """The schema without members that it does not name."""
    if isinstance(schema, list):
        return [closed(one) for one in schema]
    if not isinstance(schema, dict):
        return schema
    result = {name: closed(value) for name, value in schema.items()}
    if "properties" in result and "anyOf" not in result:
        result.setdefault("additionalProperties", False)
    return result


class Checker:
    def __init__(self, zel, schemas, work):
        self.work = work
        self.used = set()
        self.faults = []
        self.path = os.path.dirname(zel) + ":" + os.environ["PATH"]
        self.validators = {}
        for file in sorted(glob.glob(os.path.join(schemas, "*.json"))):
            schema = json.load(open(file))
            jsonschema.Draft202012Validator.check_schema(schema)
            name = os.path.basename(file)[:-5]
            self.validators["zel/" + name] = (
                jsonschema.Draft202012Validator(schema), jsonschema.Draft202012Validator(closed(schema)))

    def run(self, command, status):
        environment = dict(os.environ, PATH=self.path, ZEL_CONFIG="")
        for name in ("ZEL_PATH", "ZEL_NAMES", "ZEL_UNITS"):
            environment.pop(name, None)
        done = subprocess.run(command, shell=True, cwd=self.work, env=environment,
                              stdin=subprocess.DEVNULL, capture_output=True)
        if status is not None and done.returncode != status:
            self.faults.append(f"{command}: status {done.returncode}, expected {status}\n"
                               + done.stderr.decode(errors="replace"))
        return done

    def json(self, command, status=0):
        done = self.run(command + " --json", status)
        try:
            value = json.loads(done.stdout)
        except ValueError:
            self.faults.append(f"{command}: no JSON\n{done.stdout[:300]}\n{done.stderr[:300]}")
            return
        name = value.get("schema")
        if name not in self.validators:
            self.faults.append(f"{command}: no schema {name}")
            return
        self.used.add(name)
        expected = "zel/" + re.search(r"(?:^| )zel (\S+)", command).group(1)
        if status == 0 and name != expected:
            self.faults.append(f"{command}: the schema is {name}")
        for validator in self.validators[name]:
            error = jsonschema.exceptions.best_match(validator.iter_errors(value))
            if error:
                where = "/".join(str(part) for part in error.absolute_path)
                self.faults.append(f"{command}: {where}: {error.message[:400]}")
                return


def main():
    zel, schemas, documents, data, work = sys.argv[1:]
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(os.path.join(work, "data"))
    os.symlink(data, os.path.join(work, "data/xml"))
    checker = Checker(zel, schemas, work)
    for step in steps(open(os.path.join(documents, "zel.md")).read()):
        if not isinstance(step, str):
            with open(os.path.join(work, step[0]), "w") as file:
                file.write("\n".join(step[1]) + "\n")
        elif not re.search(r"(?:^| )zel ", step) or re.search(NO_REPORT, step):
            checker.run(step, 0)
        else:
            checker.json(step.replace(" --json", ""))
    for words, status in MORE:
        checker.json("zel " + words, status)
    for name in sorted(set(checker.validators) - checker.used):
        checker.faults.append(f"{name}: no command printed it")
    # A schema that accepts anything would pass all of this.
    for name, (validator, _) in checker.validators.items():
        for wrong in ({}, {"schema": name}, {"schema": name + "x", "schema_version": 1}):
            if validator.is_valid(wrong):
                checker.faults.append(f"{name}: accepts {wrong}")
    print("\n".join(checker.faults))
    print(f"{len(checker.used)} schemas, {len(checker.faults)} faults")
    sys.exit(1 if checker.faults else 0)


main()
