"""Findings on unchanged sources, and the verdicts on them."""
import csv
import json
from collections import Counter
from typing import Callable, Dict, List

FAULT, FALSE_ALARM, UNDECIDED = 'fault', 'false alarm', 'undecided'
VERDICTS = (FAULT, FALSE_ALARM, UNDECIDED)
_COLUMNS = ['verdict', 'reason', 'strength', 'rule', 'library', 'component', 'datum', 'finding', 'evidence',
            'fingerprint']


def by_strength(findings: List[dict]) -> List[dict]:
    return sorted(findings, key=lambda f: -f['strength'])


def read_sheet(path: str) -> Dict[str, dict]:
    """The rows of a sheet of judged findings, by fingerprint."""
    with open(path, encoding='utf-8', newline='') as stream:
        rows = {row['fingerprint']: row for row in csv.DictReader(stream) if row['fingerprint']}
    for row in rows.values():
        if row['verdict'] and row['verdict'] not in VERDICTS:
            raise SystemExit('%s: the verdict is "%s", not %s' % (path, row['verdict'], ' or '.join(VERDICTS)))
    return rows


def write_sheet(path: str, findings: List[dict], judged: Dict[str, dict]) -> None:
    """Findings to be judged; those judged before keep their verdict and its reason."""
    with open(path, 'w', encoding='utf-8', newline='') as stream:
        rows = csv.writer(stream)
        rows.writerow(_COLUMNS)
        for f in by_strength(findings):
            known = judged.get(f.get('fingerprint') or '', {})
            rows.writerow([known.get('verdict', ''), known.get('reason', ''), '%.3f' % f['strength'], f['id'],
                           f['library'], f['item'], f['datum'], f['text'], f.get('evidence') or '',
                           f.get('fingerprint') or ''])


class _Rules:
    """Counts of findings for each rule."""

    def __init__(self, findings: List[dict], judged: Dict[str, dict]):
        self.all = Counter(f['id'] for f in findings)
        self.verdicts = Counter((f['id'], judged.get(f.get('fingerprint') or '', {}).get('verdict', ''))
                                for f in findings)

    def of(self, verdict: str, rule: str = '') -> int:
        return sum(n for (of, which), n in self.verdicts.items()
                   if which == verdict and rule in ('', of))


def as_json(findings: List[dict], data: int, strongest: int, judged: Dict[str, dict]) -> str:
    rules = _Rules(findings, judged)
    return json.dumps({'data': data, 'findings': len(findings), 'faults': rules.of(FAULT),
                       'false_alarms': rules.of(FALSE_ALARM), 'rules': rules.all,
                       'strongest': by_strength(findings)[:strongest]}, indent=1)


def show_table(findings: List[dict], data: int, strongest: int, judged: Dict[str, dict],
               show: Callable[[str], None]) -> None:
    """How many findings the unchanged sources have, and the strongest of them."""
    rules = _Rules(findings, judged)
    show('%-27s %8s  per 200 of %d data%s' % (
        'rule', 'findings', data, '  faults  false alarms' if judged else ''))
    for rule, n in rules.all.most_common() + [('', len(findings))]:
        line = '%-27s %8d  %7.3f' % (rule or 'all', n, 200.0 * n / data)
        if judged:
            line += '%*d %13d' % (len(' of %d data' % data) + 7, rules.of(FAULT, rule),
                                  rules.of(FALSE_ALARM, rule))
        show(line)
    if judged:
        show('false alarms per 200 data: %.3f, and %.3f if all findings undecided or not judged are'
             % (200.0 * rules.of(FALSE_ALARM) / data,
                200.0 * (len(findings) - rules.of(FAULT)) / data))
    if strongest:
        show('')
        show('strength  rule                  finding')
        for f in by_strength(findings)[:strongest]:
            show('%8.3f  %-20s  %s' % (f['strength'], f['id'], f['what']))
            for line in filter(None, (f.get('evidence') or '').split('; ')):
                show(' ' * 32 + line)
