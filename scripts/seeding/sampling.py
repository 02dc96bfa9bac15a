"""Draws mistakes, so that each kind and each datum gets its share, and tries them."""
from dataclasses import dataclass
from random import Random
from typing import Dict, List, Optional, Set, Tuple

from . import constant_kinds, curve_kinds
from .documents import Datum, Source
from .kind import Kind
from .program import Bench, Refused, fingerprint, names_of, place_of, relative_change

SMALLEST = 0.05  # relative size from which a mistake counts
_DRAWS = 30      # of one kind and datum, until another pair is taken
_PAIRS = 8

Pair = Tuple[Kind, str]


@dataclass
class Result:
    kind: str
    old: Datum
    new: Datum
    size: float
    sources_with_datum: int
    number: int = 0              # in the sample
    told: bool = False           # a new finding about the substance
    elsewhere: bool = False      # told by a finding about a datum that had none before
    right: bool = False          # the strongest names the library and the datum
    strongest: Optional[dict] = None
    strays: int = 0              # new findings about other substances


@dataclass
class Trial:
    """What became of one place in the sample."""
    result: Optional[Result]
    too_small: List[str]   # kinds of mistakes that were drawn and are too small to count
    refused: List[str]     # and of those that zel import refuses


def pairs_of(sources: Dict[str, Source], changed: List[str], only: Set[str], data: Set[str]) -> List[Pair]:
    """The kinds with the data that they can be tried on."""
    probe = Random(0)
    pairs = []
    names = sorted({(d.name, d.is_curve) for s in changed for d in sources[s].data})
    for name, is_curve in names:
        if data and name not in data:
            continue
        places = [d for s in changed for d in sources[s].of_name.get(name, ())]
        for kind in curve_kinds.KINDS if is_curve else constant_kinds.KINDS:
            if (only and kind.name not in only) or (kind.data is not None and name not in kind.data):
                continue
            if any(draw(probe, kind, place, sources) for place in probe.sample(places, min(60, len(places)))):
                pairs.append((kind, name))
    return pairs


def draw(rng: Random, kind: Kind, datum: Datum, sources: Dict[str, Source]) -> Optional[Datum]:
    """A changed datum; None if the kind does not fit or changes nothing."""
    try:
        changed = kind.change(rng, datum, sources)
    except (ValueError, OverflowError):
        return None  # the text of the datum is not a number
    return None if changed is None or changed.same_content(datum) else changed


def schedule(rng: Random, pairs: List[Pair], count: int) -> List[Pair]:
    """Takes kinds and data in turn, so that all of both come equally often as far as they fit."""
    of_kind: Dict[str, int] = {}
    of_datum: Dict[str, int] = {}
    taken: Dict[int, int] = {}
    order = []
    for _ in range(count):
        place = min(range(len(pairs)), key=lambda i: (
            of_kind.get(pairs[i][0].name, 0) + of_datum.get(pairs[i][1], 0) + 2 * taken.get(i, 0),
            rng.random()))
        kind, name = pairs[place]
        of_kind[kind.name] = of_kind.get(kind.name, 0) + 1
        of_datum[name] = of_datum.get(name, 0) + 1
        taken[place] = taken.get(place, 0) + 1
        order.append(pairs[place])
    return order


class Sampler:
    def __init__(self, sources: Dict[str, Source], changed: List[str], pairs: List[Pair],
                 unchanged: Dict[Optional[str], List[dict]], alone: bool):
        self.sources, self.changed, self.pairs, self.alone = sources, changed, pairs, alone
        self.known = {key: {fingerprint(f) for f in findings} for key, findings in unchanged.items()}
        self.places = {key: {place_of(f) for f in findings} for key, findings in unchanged.items()}
        self.with_datum: Dict[Tuple[str, str], Set[str]] = {}
        for source in sources.values():
            for datum in source.data:
                self.with_datum.setdefault((datum.component.substance, datum.name), set()).add(source.name)

    def trial(self, bench: Bench, pair: Pair, seed: int, number: int) -> Trial:
        """The mistake of this number in the sample of a seed."""
        rng = Random('%d:%d' % (seed, number))
        trial = Trial(None, [], [])
        for _ in range(_PAIRS):
            if self._try_pair(bench, pair, rng, trial):
                trial.result.number = number
                break
            pair = rng.choice(self.pairs)
        return trial

    def _try_pair(self, bench: Bench, pair: Pair, rng: Random, trial: Trial) -> bool:
        kind, name = pair
        having = [s for s in self.changed if name in self.sources[s].of_name]
        for _ in range(_DRAWS):
            old = rng.choice(self.sources[rng.choice(having)].of_name[name])
            new = draw(rng, kind, old, self.sources)
            if new is None:
                continue
            if not old.is_curve:
                size = relative_change(old.value, new.value)
                if size < SMALLEST:
                    trial.too_small.append(kind.name)
                    continue
            try:
                bench.make_mistake(new)
                if old.is_curve:
                    size = bench.size_of_curve(old, new)
                if size >= SMALLEST:
                    trial.result = self._result(bench, kind, old, new, size)
                    return True
                if size > 1e-6:
                    trial.too_small.append(kind.name)
            except Refused:
                trial.refused.append(kind.name)
            finally:
                bench.undo(new)
        return False

    def _result(self, bench: Bench, kind: Kind, old: Datum, new: Datum, size: float) -> Result:
        library = old.component.source
        alone = library if self.alone else None
        fresh = [f for f in bench.check(alone) if fingerprint(f) not in self.known[alone]]
        names = names_of(old.component, self.sources)
        about = [f for f in fresh if f.get('item') in names]
        result = Result(kind.name, old, new, size,
                        1 if self.alone else len(self.with_datum[(old.component.substance, old.name)]))
        result.strays = len(fresh) - len(about)
        if about:
            strongest = max(about, key=lambda f: f['strength'])  # the first of equal ones
            result.told, result.strongest = True, strongest
            result.elsewhere = any(place_of(f) not in self.places[alone] for f in about)
            result.right = (strongest.get('library') == library + '.lb1' and
                            strongest.get('datum') == old.name)
        return result
