"""Tables of what was measured."""
import csv
import json
from collections import Counter
from typing import Callable, Dict, Iterable, List

from .sampling import Result, Trial


def _share(part: int, whole: int) -> str:
    return '%3.0f %%' % (100.0 * part / whole) if whole else '   - '


class Count:
    def __init__(self, results: Iterable[Result]):
        results = list(results)
        self.n = len(results)
        self.told = sum(r.told for r in results)
        self.right = sum(r.right for r in results)
        shared = [r for r in results if r.sources_with_datum > 1]
        self.shared, self.shared_told = len(shared), sum(r.told for r in shared)

    def members(self) -> dict:
        return {'n': self.n, 'told': self.told, 'culprit_right': self.right, 'shared': self.shared,
                'shared_told': self.shared_told}

    def line(self, name: str) -> str:
        return '%-27s %5d %5d %6s %5d %6s %8d %6s' % (
            name, self.n, self.told, _share(self.told, self.n), self.right,
            _share(self.right, self.told), self.shared, _share(self.shared_told, self.shared))


def _groups(results: List[Result], key: Callable[[Result], str]) -> Dict[str, Count]:
    names = sorted({key(r) for r in results})
    return {name: Count(r for r in results if key(r) == name) for name in names}


def _overall(results: List[Result]) -> Dict[str, Count]:
    return {'all': Count(results),
            'of two sources or more': Count(r for r in results if r.sources_with_datum > 1),
            'of three sources or more': Count(r for r in results if r.sources_with_datum > 2),
            'of one source': Count(r for r in results if r.sources_with_datum == 1),
            'constants': Count(r for r in results if not r.old.is_curve),
            'curves': Count(r for r in results if r.old.is_curve)}


def _weighted(results: List[Result], numbers: Dict[str, int]) -> float:
    """The share told if data were drawn as often as the sources have them."""
    told = {name: c.told / c.n for name, c in _groups(results, lambda r: r.old.name).items()}
    return sum(told[n] * numbers[n] for n in told) / sum(numbers[n] for n in told) if told else 0.0


def print_results(trials: List[Trial], numbers: Dict[str, int], show: Callable[[str], None]) -> None:
    """`numbers` has how many data of each name there are."""
    results = [t.result for t in trials if t.result]
    heads = '%-27s %5s %5s %6s %5s %6s %8s %6s' % (
        '', 'n', 'told', '', 'right', 'of told', 'shared n', 'told')
    for title, groups in (('kind', _groups(results, lambda r: r.kind)),
                          ('datum', _groups(results, lambda r: r.old.name)),
                          ('source', _groups(results, lambda r: r.old.component.source)),
                          ('overall', _overall(results))):
        show(title + heads[len(title):])
        for name, count in groups.items():
            show(count.line(name))
        show('')
    show('told, each datum weighted with how often the sources have it: %.0f %%'
         % (100 * _weighted(results, numbers)))
    show('told by a finding about a datum that had none before: %d'
         % sum(r.told and r.elsewhere for r in results))
    show('new findings about other substances: %d, with %d of the mistakes'
         % (sum(r.strays for r in results), sum(r.strays > 0 for r in results)))
    show('')
    rules = Counter(r.strongest['id'] for r in results if r.told)
    wrong = Counter(r.strongest['id'] for r in results if r.told and not r.right)
    show('strongest finding             told  culprit not right')
    for rule, n in rules.most_common():
        show('%-27s %6d %18d' % (rule, n, wrong[rule]))
    show('')
    for title, name in (('too small to count', 'too_small'), ('refused by the import', 'refused')):
        kinds = Counter(k for t in trials for k in getattr(t, name))
        show('%s: %d%s' % (title, sum(kinds.values()),
                           ''.join('; %s %d' % item for item in kinds.most_common())))


def write_misses(path: str, results: List[Result]) -> None:
    with open(path, 'w', encoding='utf-8', newline='') as stream:
        rows = csv.writer(stream)
        rows.writerow(['number', 'told', 'source', 'component', 'datum', 'kind', 'old', 'new', 'size',
                       'sources', 'strongest'])
        for r in results:
            if not r.told or not r.right:
                rows.writerow([r.number, 'yes' if r.told else 'no', r.old.component.source,
                               r.old.component.ids[0], r.old.name, r.kind, r.old.brief(),
                               r.new.brief(), '%.3g' % r.size, r.sources_with_datum, r.strongest['what'] if r.strongest else ''])


def results_json(trials: List[Trial], numbers: Dict[str, int]) -> str:
    results = [t.result for t in trials if t.result]

    def members(groups):
        return {name: count.members() for name, count in groups.items()}
    return json.dumps({
        'overall': members(_overall(results)),
        'told_weighted': _weighted(results, numbers),
        'kinds': members(_groups(results, lambda r: r.kind)),
        'data': members(_groups(results, lambda r: r.old.name)),
        'sources': members(_groups(results, lambda r: r.old.component.source)),
        'too_small': Counter(k for t in trials for k in t.too_small),
        'refused': Counter(k for t in trials for k in t.refused),
        'mistakes': [{
            'number': r.number, 'source': r.old.component.source, 'component': r.old.component.ids[0], 'datum': r.old.name,
            'kind': r.kind, 'old': r.old.brief(), 'new': r.new.brief(), 'size': min(r.size, 1e300),
            'sources_with_datum': r.sources_with_datum, 'told': r.told, 'culprit_right': r.right,
            'strongest': r.strongest and r.strongest['what']} for r in results]}, indent=1)
