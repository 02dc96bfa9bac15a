"""Runs zel: imports documents, checks libraries, evaluates curves."""
import json
import os
import re
import shutil
import subprocess
from typing import Dict, List, Optional, Set

from .documents import Component, Datum, Source, number

_NUMBER = re.compile(r'(?<![A-Za-z0-9])-?\d+(?:\.\d+)?(?:[eE][-+]?\d+)?')
_CENTRAL = (0.25, 0.375, 0.5, 0.625, 0.75)  # of the range, where curves are compared


class Refused(Exception):
    """An import that zel refuses."""


class Zel:
    def __init__(self, program: str, min_strength: Optional[str], home: str):
        self.program = os.path.abspath(program)
        # Settings of the user change neither units nor folders.
        self.environment = {**os.environ, 'HOME': home, 'XDG_CONFIG_HOME': home}
        self.options = ['--min-strength', min_strength] if min_strength else []
        if self.options and '--min-strength' not in self.run(['check', '--help'], home).stdout:
            self.options = []

    def run(self, arguments: List[str], folder: str) -> subprocess.CompletedProcess:
        return subprocess.run([self.program] + arguments, cwd=folder, env=self.environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, encoding='utf-8', errors='replace')

    def make_library(self, source: Source, documents: str, libraries: str) -> None:
        for ending in ('.lb1', '.lb2'):
            path = os.path.join(libraries, source.name + ending)
            if os.path.exists(path):
                os.remove(path)
        done = self.run(['import', source.name + '.lb1', os.path.join(documents, source.main),
                         '--create', '--keep', '0'], libraries)
        if done.returncode != 0:
            raise Refused((done.stderr or done.stdout).strip())

    def check(self, sources: List[str], libraries: str) -> List[dict]:
        done = self.run(['check'] + [name + '.lb1' for name in sources] + ['--json'] + self.options,
                        libraries)
        try:
            findings = json.loads(done.stdout)['findings']
        except (ValueError, KeyError):
            raise SystemExit('zel check failed: ' + (done.stderr or done.stdout)[:500])
        for finding in findings:
            finding.setdefault('strength', 1.0)
        return findings

    def values(self, datum: Datum, kelvins: List[float], libraries: str) -> List[Optional[float]]:
        """The values of a curve in internal units; None where it has none."""
        done = self.run(['eval', datum.component.number, datum.name, '-l', datum.component.source + '.lb1',
                         '--derivatives', '0', '--json', '--at'] + ['%.10gK' % t for t in kelvins],
                        libraries)
        try:
            points = json.loads(done.stdout)['points']
        except (ValueError, KeyError):
            return [None] * len(kelvins)
        values = [point.get('value') for point in points]
        return values if len(values) == len(kelvins) else [None] * len(kelvins)


def fingerprint(finding: dict) -> tuple:
    """The same for a finding whose numbers alone differ, unless zel says what is the same."""
    if finding.get('fingerprint'):
        return (finding['fingerprint'],)
    return place_of(finding) + (finding['id'], _NUMBER.sub('#', finding.get('text') or ''))


def place_of(finding: dict) -> tuple:
    return tuple(finding.get(key) for key in ('library', 'item', 'datum'))


def kelvin(datum: Datum, end: str) -> Optional[float]:
    limit = number(datum.attributes.get(end))
    if limit is None:
        return None
    unit = datum.attributes.get('tempUnit', 'k').lower()
    others = {'c': limit + 273.15, 'r': limit / 1.8, 'f': (limit + 459.67) / 1.8}
    return others.get(unit, limit)


def relative_change(old: float, new: Optional[float], scale: Optional[float] = None) -> float:
    """In relation to the old value if there is no scale; infinite if that is 0 or the new one is lost."""
    if old == new:
        return 0.0
    scale = abs(old) if scale is None else scale
    return abs(new - old) / scale if new is not None and scale > 0 else float('inf')


class Bench:
    """A folder with documents and libraries of all sources, in which one mistake at a time is made."""

    def __init__(self, zel: Zel, sources: Dict[str, Source], folder: str, base: Optional['Bench'] = None):
        self.zel, self.sources, self.base = zel, sources, base
        self.documents = os.path.join(folder, 'documents')
        self.libraries = os.path.join(folder, 'libraries')
        os.makedirs(self.documents)
        for source in sources.values():
            source.write(os.path.join(self.documents, source.name))
        if base:
            shutil.copytree(base.libraries, self.libraries)
        else:
            os.makedirs(self.libraries)
            for source in sources.values():
                self._make(source)

    def _make(self, source: Source) -> None:
        self.zel.make_library(source, os.path.join(self.documents, source.name), self.libraries)

    def check(self, alone: Optional[str] = None) -> List[dict]:
        return self.zel.check([alone] if alone else list(self.sources), self.libraries)

    def make_mistake(self, changed: Datum) -> None:
        source = self.sources[changed.component.source]
        source.write(os.path.join(self.documents, source.name), changed, changed.file)
        self._make(source)

    def undo(self, changed: Datum) -> None:
        source = self.sources[changed.component.source]
        source.write(os.path.join(self.documents, source.name), None, changed.file)
        for ending in ('.lb1', '.lb2'):
            shutil.copyfile(os.path.join(self.base.libraries, source.name + ending),
                            os.path.join(self.libraries, source.name + ending))

    def size_of_curve(self, before: Datum, after: Datum) -> float:
        """The relative change of the values in the middle of the range, or of its limits."""
        size = 0.0
        limits = [kelvin(before, end) for end in ('tMin', 'tMax')]
        for limit, end in zip(limits, ('tMin', 'tMax')):
            if limit is not None:
                size = max(size, relative_change(limit, kelvin(after, end)))
        low, high = limits if None not in limits else (300.0, 400.0)
        kelvins = [low + (high - low) * part for part in _CENTRAL]
        old = self.zel.values(before, kelvins, self.base.libraries)
        new = self.zel.values(before, kelvins, self.libraries)
        largest = max((abs(v) for v in old if v is not None), default=0.0)
        for a, b in zip(old, new):
            if a is not None:
                # Enthalpies have a zero point of their own.
                size = max(size, relative_change(a, b, largest if 'Enthalpy' in before.name else None))
        return size


def names_of(component: Component, sources: Dict[str, Source]) -> Set[str]:
    """The words by which findings name a substance in any of the libraries."""
    return {word for s in sources.values() for c in s.components
            if c.substance == component.substance for word in c.ids + (c.number,)}
