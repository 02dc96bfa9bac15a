"""Holds what zel prints with --json against the published schemas.

check_schemas.py ZEL SCHEMAS DOCUMENTS DATA WORK

Every command of the sessions in zel.md runs with --json, then some more and some that fail. An object
may have only members that its schema names, although the schemas themselves allow more: later
versions may add members. Each schema must have been used, each of its members printed, and each
member that is not required missing at least once: so an output that gains or loses a member fails.
Ends with 77 if the Debian package python3-jsonschema is missing, but with 1 where CI is set.
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

# Files that the commands below read.
FILES = {
    "mixed.xml": "<DataReport><Compound><RegNum><nOrgNum>1</nOrgNum></RegNum><sFormulaMolec>H2O"
                 "</sFormulaMolec></Compound><PureOrMixtureData><Component><RegNum><nOrgNum>1"
                 "</nOrgNum></RegNum></Component>" + "".join(
                     "<Property><nPropNumber>%d</nPropNumber><G><ePropName>%s</ePropName></G>"
                     "<PropPhaseID><ePropPhase>Liquid</ePropPhase></PropPhaseID></Property>"
                     % (number, name) for number, name in
                     [(1, "Mass density, kg/m3"), (2, "Speed of sound, m/s")]) +
                 "<Variable><nVarNumber>1</nVarNumber><VariableID><VariableType><eTemperature>"
                 "Temperature, K</eTemperature></VariableType></VariableID></Variable><NumValues>"
                 "<VariableValue><nVarNumber>1</nVarNumber><nVarValue>300</nVarValue></VariableValue>"
                 "<PropertyValue><nPropNumber>1</nPropNumber><nPropValue>997</nPropValue>"
                 "</PropertyValue><PropertyValue><nPropNumber>2</nPropNumber><nPropValue>1497"
                 "</nPropValue></PropertyValue></NumValues></PureOrMixtureData></DataReport>",
    "uncertain.csv": "T,value,uncertainty [%]\n280,1,2\n300,3.5,2\n320,10.5,1\n340,27,1\n380,129,1\n",
    "plain.csv": "T,value\n280,107\n300,113\n320,120\n",
    "wrong.csv": "T,value\n280,-10\n300,-20\n320,-25\n",
    "other.xml": "<bank type='PURECOMP' name='OWN'><comp><id number='10000112' name='Water' "
                 "formula='H2O' casNum='7732-18-5'> AQUA </id><property name='MW' value='18'/>"
                 "</comp></bank>",
    "altered.xml": "<bank type='PURECOMP' name='P'><comp><id number='7' name='\u03b1-Pinene' "
                   "formula='CH4'> A </id></comp></bank>",
    "lost.xml": "<library><bank type='PURECOMP' name='P'><comp/><memo>m</memo><comp><id number='7' "
                "name='\u03b1' formula='CH4'> A </id><property name='MW' value='1x'/></comp></bank>"
                "<bank type='RACKETT' name='R'><item><keys> 7 </keys></item><item/></bank>"
                "<bank type='NRTL' name='EMPTY'/><import> nowhere.xml </import></library>",
    "long.xml": "<bank type='PURECOMP' name='P'>" + "".join(
        f"<comp><id number='{i}'> C{i} </id><property name='MW' value='1x'/></comp>"
        for i in range(1, 1102)) + "</bank>",
    "broken.xml": "<library>",
    "far.xml": "<bank type='PURECOMP' name='P'><comp><id number='10000112'> NBUTANE </id>"
               "<correlation name='VaporPressure' equation='21' tempUnit='k' tMin='900' "
               "tMax='990'> 14 -2500 </correlation></comp></bank>",
    "impossible.xml": "<bank type='PURECOMP' name='Q'><comp><id number='21000009'> ODD </id>"
                      "<property name='PC' value='-5' /></comp></bank>",
    "foreign.xml": "<compounds><compound><CompoundID value='Odd'/><Family value='1'/>"
                   "<CriticalPressure units='Pa' value='-5e3'/></compound></compounds>",
    "foreign2.xml": "<compounds><compound><CAS value='64-17-5'/><CriticalTemperature units='K' "
                    "value='x'/></compound></compounds>",
    "refused.csv": "id,TC [K]\nETHANOL,5x4\n",
    "short.csv": "id,correlation,equation,coefficients\nETHANOL,VaporPressure,20,66.4 -7122.3 -7.1424\n",
    "groups.csv": "id,model,groups\nETHANOL,dort-public,1(2)\n",
    "given.csv": "id,TC [K]\nOWN,500\n",
    "volume.csv": "number,id,VC [m3/kg-mol],ZC\n10000007,ETHANOL,1,0.2\n",
    "lossy.csv": "item 1,item 2,temp,x1\n7,9,350,1e-09\n",
    "meanings.csv": "type,field,unit,meaning\nUNIQUAC,cij,K2,zero\n",
    "nothing.csv": "type,field,unit,meaning\nUNIQUAC,cij,K2,\n",
    "refs.csv": "code,citation\nx,y\n",
}

# Two libraries with different substances of one number.
CONFLICT = "--accept-identity -l other.lb1 -l crc.lb1"

# Run after the session, in the same folder; words as a shell reads them, and the exit status.
MORE = [
    ("types", 0),
    ("types NRTL", 0),
    ("types PURECOMP", 0),
    ("banks sample.lb1", 0),
    ("items perry.lb1 PERRY --fields TC VaporPressure", 0),
    ("items sample.lb1 NRTL --fields bij --names perry.lb1", 0),
    ("show perry.lb1 PERRY ETHANOL --complete", 0),
    ("refs crc.lb1 remove 54 --dry-run", 0),
    ("parameters sample.lb1 remove UNIQUAC cij --dry-run", 0),
    ("parameters sample.lb1 -o p.tsv", 0),
    ("memo sample.lb1", 0),
    ("memo sample.lb1 --bank NRTL", 0),
    ("memo sample.lb1 --set x --dry-run", 0),
    ("memo sample.lb1 --set x --all --dry-run", 0),
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
    # Members that are not always there.
    ("create new.lb1 --dry-run", 0),
    ("set own.lb1 --description x", 0),
    ("copy perry.lb1 own.lb1 --bank PERRY --item WATER --dry-run", 0),
    ("edit plant.lb1 ETHANOL NBP=351 TC=514", 0),
    ("edit plant.lb1 ETHANOL NBP=351", 0),
    ("fit plant.lb1 plain.csv --to LiquidCp --equation 1 --terms 2 --component ETHANOL --residuals", 0),
    ("points mixed.xml", 0),
    ("points mixed.xml --to LiquidDensity", 0),
    ("fit crc.lb1 uncertain.csv --to VaporP --equation 20 --terms 3 --component WATER --residuals "
     "--range 290K:400K --plot fit.svg --dry-run", 0),
    ("fit crc.lb1 wrong.csv --to VaporP --equation 99 --component WATER", 1),
    ("renumber own.lb1 21000001 21000002 --dry-run", 0),
    ("undo own.lb1 --dry-run", 0),
    ("flatten perry.lb1 crc.lb1 -o merged2.lb1 --components ETHANOL --dry-run", 0),
    ("merge own.lb1 sample.lb1 --bank NRTL --dry-run", 0),
    ("edit plant.lb1 NRTL WATER ETHANOL bij=1 --names perry.lb1", 0),
    ("merge plant.lb1 sample.lb1 --bank NRTL --list --names perry.lb1", 0),
    ("items sample.lb1 RACKETT --names perry.lb1", 0),
    ("show sample.lb1 RACKETT ETHANOL --names perry.lb1", 0),
    ("create lossy.lb1", 0),
    ("import lossy.lb1 --bank AZEOTROP:B --table lossy.csv", 0),
    ("renumber lossy.lb1 7 20", 0),
    ("show lossy.lb1 AZEOTROP 9 20", 0),
    ("salvage perry.lb1 whole.lb1 --dry-run", 0),
    ("salvage perry.lb1 whole.lb1", 0),
    ("create empty.lb1", 0),
    ("info empty.lb1", 0),
    ("copy perry.lb1 empty.lb1 --bank PERRY --item ETHANOL", 0),
    ("memo empty.lb1 --clear", 0),
    ("show empty.lb1 PERRY ETHANOL", 0),
    ("show empty.lb1 PERRY ETHANOL --complete", 0),
    ("create volume.lb1", 0),
    ("import volume.lb1 --bank PURECOMP:V --table volume.csv", 0),
    ("import volume.lb1 --bank PURECOMP:V --table given.csv", 0),
    ("search ETHANOL -l volume.lb1 -l perry.lb1", 0),
    ("show sample.lb1 STRUCT ETHANOL --names perry.lb1", 0),
    ("check damaged.lb1", 1),
    ("import empty.lb1 --table groups.csv --bank PERRY", 0),
    ("show empty.lb1 PERRY ETHANOL", 0),
    ("eval ETHANOL VaporPressure -l perry.lb1 --at 25", 0),
    ("eval ETHANOL VaporPressure -l perry.lb1 --components WATER --at 25", 0),
    ("search ETHANOL -l empty.lb1", 0),
    ("why ETHANOL VaporPressure -l empty.lb1", 0),
    ("why ETHANOL VaporPressure -l cited.lb1", 0),
    ("refs own.lb1 add 5 x --dry-run", 0),
    ("refs own.lb1 import refs.csv", 1),
    ("refs own.lb1 import refs.csv --skip-bad --dry-run", 0),
    ("parameters sample.lb1 import meanings.csv", 0),
    ("parameters sample.lb1 import nothing.csv", 1),
    ("parameters sample.lb1 import nothing.csv --skip-bad --dry-run", 0),
    ("import perry.lb1 --table refused.csv --bank PERRY", 1),
    ("import perry.lb1 --table short.csv --bank PERRY --dry-run", 0),
    ("import foreign.lb1 foreign.xml --format chemsep --create", 0),
    ("import foreign.lb1 foreign.xml --format chemsep --dry-run", 0),
    ("import foreign.lb1 foreign2.xml --format chemsep", 1),
    ("export crc.lb1 --sqlite crc.db", 0),
    ("export foreign.lb1 --sqlite foreign.db", 0),
    ("import --format sqlite database.lb1 foreign.db --create", 0),
    ("import --format sqlite database.lb1 crc.db --dry-run", 0),
    ("import other.lb1 other.xml --create", 0),
    ("import lost.lb1 lost.xml --create --lenient", 0),
    ("import long.lb1 long.xml --create --lenient", 0),
    ("import long2.lb1 long.xml --create", 1),
    ("import altered.lb1 altered.xml --create", 0),
    ("import unformed.lb1 broken.xml --create", 1),
    ("import own.lb1 far.xml --dry-run", 0),
    ("import far.lb1 far.xml --create", 0),
    ("compare far.lb1 crc.lb1", 0),
    ("compare perry.lb1 crc.lb1 --components ETHANOL --units C", 0),
    ("search 10000112 " + CONFLICT, 0),
    ("why 10000112 TC " + CONFLICT, 0),
    ("why 10000112 VaporPressure " + CONFLICT, 0),
    ("coverage 10000112 " + CONFLICT, 0),
    ("eval 10000112 VaporPressure " + CONFLICT, 0),
    ("eval 10000112 VaporPressure --components ETHANOL --at 300K " + CONFLICT, 0),
    ("plot VaporPressure 10000112 -o conflict.svg " + CONFLICT, 0),
    ("plot VaporPressure ETHANOL -l perry.lb1 -o plain.svg", 0),
    ("plot VaporPressure NBUTANE -l far.lb1 -o short.svg", 0),
    ("table 10000112 --fields TC " + CONFLICT, 0),
    ("table ETHANOL --fields VaporPressure -l perry.lb1", 0),
    ("pairs WILSON -l empty.lb1", 0),
    ("coverage --model NRTL -l crc.lb1", 0),
    ("sheet 10000112 -o conflict.html " + CONFLICT, 0),
    ("report -o conflicts.html " + CONFLICT, 0),
    ("compare other.lb1 crc.lb1", 0),
    ("copy crc.lb1 one.lb1 --create --bank CRC --item ETHANOL", 0),
    ("copy crc.lb1 two.lb1 --create --bank CRC --item WATER", 0),
    ("refs two.lb1 add 54 x --replace", 0),
    ("flatten one.lb1 two.lb1 -o three.lb1", 0),
    ("merge one.lb1 two.lb1 --dry-run", 0),
    ("copy two.lb1 one.lb1 --dry-run", 0),
    ("import one.lb1 impossible.xml --dry-run", 0),
    ("edit one.lb1 WATER DIPOLE=1.85 --from two.lb1 --dry-run", 0),
    ("fit one.lb1 wrong.csv --to LiquidCp --equation 1 --terms 2 --component WATER --from two.lb1 "
     "--dry-run", 0),
    ("flatten other.lb1 crc.lb1 -o conflict.lb1 --accept-identity", 0),
    ("merge other.lb1 crc.lb1 --accept-identity", 0),
    ("check perry.lb1 --baseline known.json", None),
    # Failures.
    ("info nowhere.lb1", 1),
    ("why ETHANL NBP -l perry.lb1", 1),
    ("why ETHANOL NPB -l perry.lb1", 1),
    ("show sample.lb1 NRTL ETHANOL NOTHING --names perry.lb1", 1),
    ("inffo perry.lb1", 2),
    ("info perry.lb1 --jason", 2),
    ("info", 2),
]


# Members of many commands; each must be printed by one at least.
GENERAL = {"units", "problems", "dry_run", "identity_warning", "identities", "error", "doi"}

# Members that need an item that cannot be read, a bank of a type that this program does not know, or
# an equation that a document cannot hold.
RARE = {
    "zel/export/0/cannot_be_read_back", "zel/export/0/banks_not_whole", "zel/export/0/unreadable",
    "zel/export/0/missing", "zel/export/0/left_out", "zel/flatten/warning", "zel/flatten/left_out",
}

# Commands that print something else than a report, or whose output goes elsewhere.
NO_REPORT = r"--(csv|format)|>|\||-o -( |$)|zel schema \S"
# In a session, this ends a command that exits with 1 after a report.
IN_ANY_CASE = " || true"


def steps(document):
    """The sessions: [command, whether it fails], and [name, lines] of files from blocks `ini`."""
    kind, found = "", []
    for line in document.splitlines():
        if line.startswith("```"):
            kind = line[3:]
            if kind == "ini":
                found.append(["", []])
        elif kind == "console" and line.startswith("$ "):
            found.append([line[2:], False])
        elif kind == "console" and line.startswith("zel: ") and not line.startswith("zel: warning: "):
            found[-1][1] = True
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
        self.members = {}  # how often each was there, and missing, by path
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
        self.count(validator.schema, value, name)

    def count(self, schema, value, path):
        """Counts how often the members of a valid value were there and missing."""
        for branch in schema.get("anyOf", []):
            if jsonschema.Draft202012Validator(branch).is_valid(value):
                return self.count(branch, value, path + "/" + str(schema["anyOf"].index(branch)))
        if isinstance(value, list):
            for one in value:
                self.count(schema.get("items", {}), one, path)
        elif isinstance(value, dict):
            for member, part in schema.get("properties", {}).items():
                seen = self.members.setdefault(path + "/" + member, [0, 0])
                seen[0 if member in value else 1] += 1
                if member in value:
                    below = member if member in GENERAL else path + "/" + member
                    self.count(part, value[member], below)

    def report_members(self, schema, path):
        """Faults for members that were never printed, or never missing although not required."""
        for i, branch in enumerate(schema.get("anyOf", [])):
            self.report_members(branch, path + "/" + str(i))
        if "items" in schema:
            self.report_members(schema["items"], path)
        for member, part in schema.get("properties", {}).items():
            there, missing = self.members.get(path + "/" + member, [0, 0])
            if there == 0 and (member in GENERAL or path + "/" + member in RARE):
                continue
            if there == 0:
                self.faults.append(f"{path}/{member}: no command printed it")
            elif missing == 0 and member not in schema.get("required", []):
                self.faults.append(f"{path}/{member}: always printed, but not required")
            self.report_members(part, member if member in GENERAL else path + "/" + member)


def main():
    zel, schemas, documents, data, work = sys.argv[1:]
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(os.path.join(work, "data"))
    os.symlink(data, os.path.join(work, "data/xml"))
    checker = Checker(zel, schemas, work)
    for step in steps(open(os.path.join(documents, "zel.md")).read()):
        name, more = step
        if isinstance(more, list):
            with open(os.path.join(work, name), "w") as file:
                file.write("\n".join(more) + "\n")
            continue
        status = 1 if more else 0
        if name.endswith(IN_ANY_CASE):
            name, status = name[:-len(IN_ANY_CASE)], 1
        if not re.search(r"(?:^| )zel ", name) or re.search(NO_REPORT, name):
            checker.run(name, status)
        else:
            checker.json(name.replace(" --json", ""), status)
    for name, text in FILES.items():
        with open(os.path.join(work, name), "w", encoding="utf-8") as file:
            file.write(text)
    with open(os.path.join(work, "perry.lb1"), "rb") as file:
        library = bytearray(file.read())
    library[1000] = 0x63  # the length of the free list, in the block table
    with open(os.path.join(work, "damaged.lb1"), "wb") as file:
        file.write(library)
    shutil.copy(os.path.join(work, "perry.lb2"), os.path.join(work, "damaged.lb2"))
    for words, status in MORE:
        checker.json("zel " + words, status)
    for name in sorted(set(checker.validators) - checker.used):
        checker.faults.append(f"{name}: no command printed it")
    for name, (validator, _) in checker.validators.items():
        if name in checker.used:
            checker.report_members(validator.schema, name)
    printed = {path.rsplit("/", 1)[1] for path, (there, _) in checker.members.items() if there}
    checker.faults += [f"{member}: no command printed it" for member in sorted(GENERAL - printed)]
    # A schema that accepts anything would pass all of this.
    for name, (validator, _) in checker.validators.items():
        for wrong in ({}, {"schema": name}, {"schema": name + "x", "schema_version": 1}):
            if validator.is_valid(wrong):
                checker.faults.append(f"{name}: accepts {wrong}")
    print("\n".join(checker.faults))
    print(f"{len(checker.used)} schemas, {len(checker.faults)} faults")
    sys.exit(1 if checker.faults else 0)


main()
