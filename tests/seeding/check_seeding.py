"""Tests scripts/seed-mistakes: what each kind of mistake does, and whole runs with zel.

    check_seeding.py ROOT ZEL
"""
import csv
import glob
import json
import math
import os
import subprocess
import sys
import tempfile
import time
import unittest
from random import Random

sys.dont_write_bytecode = True
ROOT, ZEL = sys.argv.pop(1), sys.argv.pop(1)
sys.path.insert(0, os.path.join(ROOT, 'scripts'))
from seeding import constant_kinds, curve_kinds, digits, sampling  # noqa: E402
from seeding.documents import Source  # noqa: E402
from seeding.program import fingerprint  # noqa: E402

NAMES = ('perry', 'chemsep', 'vdi', 'poling', 'crc', 'nist')
SOURCES = {n: Source(os.path.join(ROOT, 'data/xml', n + '.xml')) for n in NAMES}


def run(*words):
    return subprocess.run([sys.executable, os.path.join(ROOT, 'scripts/seed-mistakes'), *words],
                          env={**os.environ, 'ZEL': ZEL}, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, encoding='utf-8')


def datum(source, component, name):
    return next(c.data[name] for c in SOURCES[source].components if component in c.ids)


def kind(name):
    return next(k for k in constant_kinds.KINDS + curve_kinds.KINDS if k.name == name)


class Digits(unittest.TestCase):
    def test_each_mistake_in_a_number(self):
        rng = Random(1)
        self.assertIn(digits.swapped(rng, '351.4'), ('531.4', '315.4', '354.1'))
        self.assertIsNone(digits.swapped(rng, '33.3'))
        changed = digits.replaced(rng, '-0.0153')
        self.assertEqual(1, sum(a != b for a, b in zip(changed, '-0.0153')))
        self.assertTrue(changed.startswith('-0.0'))
        self.assertIn(digits.lost(rng, '351.4'), ('51.4', '31.4', '35.4', '351.'))
        self.assertIn(digits.doubled(rng, '12'), ('112', '122'))
        self.assertEqual('3514', digits.without_point(rng, '351.4'))
        self.assertEqual('35', digits.without_sign(rng, '-35'))
        self.assertIsNone(digits.without_sign(rng, '35'))
        self.assertEqual('-35', digits.other_sign(rng, '35'))
        self.assertEqual('5.2e6', digits.other_exponent_sign(rng, '5.2e-6'))
        self.assertEqual('0.00043541', digits.other_exponent_sign(rng, '43541'))
        self.assertIsNone(digits.other_exponent_sign(rng, '351.4'))


class Kinds(unittest.TestCase):
    def test_each_kind_changes_a_datum(self):
        pairs = sampling.pairs_of(SOURCES, list(NAMES), set(), set())
        fitting = {k.name for k, _ in pairs}
        for each in constant_kinds.KINDS + curve_kinds.KINDS:
            self.assertIn(each.name, fitting)
        self.assertGreater(len({name for _, name in pairs}), 40)

    def test_names_are_used_once(self):
        names = [k.name for k in constant_kinds.KINDS + curve_kinds.KINDS]
        self.assertEqual(len(names), len(set(names)))

    def test_units_of_constants(self):
        for name, source, component, of, expected in (
                ('c-for-k', 'chemsep', 'CCL4', 'TC', 556.3 - 273.15),
                ('f-for-k', 'chemsep', 'CCL4', 'TC', 556.3 * 1.8 - 459.67),
                ('cal-for-j', 'chemsep', 'CCL4', 'HFORMATION', -95810 / 4.184),
                ('per-mass', 'chemsep', 'CCL4', 'HFUSIONNMP', 2535 / 153.8227),
                ('bar-for-kpa', 'chemsep', 'CCL4', 'PC', 45.57),
                ('mmhg-for-kpa', 'chemsep', 'CCL4', 'PC', 4557 * 7.50062),
                ('cm3-per-mol', 'chemsep', 'CCL4', 'VC', 276)):
            changed = kind(name).change(Random(1), datum(source, component, of), SOURCES)
            self.assertAlmostEqual(1, changed.value / expected, 6, name)

    def test_units_of_curves(self):
        old = datum('perry', 'CCL4', 'LiquidDensity')  # equation 16: only C1 has the unit of the value
        new = kind('curve-in-another-unit').change(Random(1), old, SOURCES)
        self.assertEqual(old.coefficients[1:], new.coefficients[1:])
        factor = float(new.coefficients[0]) / float(old.coefficients[0])
        self.assertTrue(any(abs(factor ** sign / f - 1) < 1e-6 for sign in (1, -1)
                            for f in curve_kinds.UNIT_FACTORS['LiquidDensity']), factor)
        old = datum('perry', 'CCL4', 'VaporPressure')  # equation 20: exp(C1 + ...)
        new = kind('curve-in-another-unit').change(Random(1), old, SOURCES)
        factor = math.exp(float(new.coefficients[0]) - float(old.coefficients[0]))
        self.assertTrue(any(abs(factor ** sign / f - 1) < 1e-4 for sign in (1, -1)
                            for f in curve_kinds.UNIT_FACTORS['VaporPressure']), factor)

    def test_a_line_slip_takes_the_next_component(self):
        table = SOURCES['chemsep'].of_name['TC']
        changed = kind('line-slip').change(Random(1), table[5], SOURCES)
        self.assertIn(changed.value, (table[4].value, table[6].value))

    def test_a_mistake_that_changes_nothing_is_none(self):
        mine = datum('chemsep', 'CCL4', 'DIPOLE')
        self.assertEqual('0', mine.attributes['value'])
        self.assertIsNone(sampling.draw(Random(1), kind('ten-times'), mine, SOURCES))
        self.assertIsNone(sampling.draw(Random(1), kind('lost-sign'), mine, SOURCES))

    def test_only_the_element_of_the_datum_changes(self):
        old = datum('perry', 'CCL4', 'VaporPressure')
        new = kind('unit-word').change(Random(1), old, SOURCES)
        with tempfile.TemporaryDirectory() as folder:
            SOURCES['perry'].write(folder, new)
            with open(os.path.join(folder, old.file), encoding='utf-8') as stream:
                text = stream.read()
        before = SOURCES['perry'].texts[old.file]
        self.assertEqual(before[:old.start], text[:old.start])
        self.assertTrue(text.endswith(before[old.end:]))
        self.assertNotEqual(before, text)


class Fingerprints(unittest.TestCase):
    def test_numbers_alone_do_not_make_a_finding_new(self):
        def of(text, **more):
            return fingerprint({'library': 'a.lb1', 'item': 'X2', 'id': 'rule', 'datum': 'TC', 'text': text,
                                **more})
        self.assertEqual(of('TC is 12.5 K'), of('TC is -1e-05 K'))
        self.assertNotEqual(of('TC of C4 is 12 K'), of('TC of C5 is 12 K'))
        self.assertNotEqual(of('a', fingerprint='1'), of('a', fingerprint='2'))


class Runs(unittest.TestCase):
    def test_a_short_run_ends_with_counts(self):
        done = run('--count', '6', '--seed', '1')
        self.assertEqual((0, ''), (done.returncode, done.stderr))
        line = next(line for line in done.stdout.splitlines() if line.startswith('all '))
        self.assertEqual('6', line.split()[1])
        self.assertIn('too small to count', done.stdout)

    def test_the_sample_does_not_depend_on_the_jobs(self):
        one, two = (run('--count', '3', '--seed', '7', '--jobs', jobs, '--json') for jobs in '12')
        self.assertEqual(0, one.returncode, one.stderr)
        self.assertEqual(json.loads(one.stdout), json.loads(two.stdout))
        self.assertEqual(3, json.loads(one.stdout)['overall']['all']['n'])

    def test_gross_mistakes_are_told_and_the_others_are_listed(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, 'misses.csv')
            done = run('--count', '3', '--only', 'lost-sign', 'ten-times', '--datum', 'NBP', '--json',
                       '--misses', path)
            self.assertEqual(0, done.returncode, done.stderr)
            made = json.loads(done.stdout)
            with open(path, encoding='utf-8', newline='') as stream:
                rows = list(csv.DictReader(stream))
        self.assertGreater(made['overall']['all']['told'], 0)
        self.assertEqual(sum(not m['told'] or not m['culprit_right'] for m in made['mistakes']), len(rows))

    def test_one_mistake_of_a_sample_is_left_in_libraries(self):
        with tempfile.TemporaryDirectory() as folder:
            some = json.loads(run('--count', '2', '--only', 'wrong-digit', '--json').stdout)['mistakes']
            one = run('--number', '1', '--only', 'wrong-digit', '--json', '--leave', folder)
            self.assertEqual(0, one.returncode, one.stderr)
            mistake, = json.loads(one.stdout)['mistakes']
            self.assertEqual(some[1], mistake)
            left = subprocess.run([ZEL, 'export', mistake['source'] + '.lb1', '-o', 'left.xml'], cwd=folder,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding='utf-8')
            self.assertEqual(0, left.returncode, left.stderr)
            left = Source(os.path.join(folder, 'left.xml'))
        component = next(c for c in left.components if mistake['component'] in c.ids)
        self.assertAlmostEqual(1, component.data[mistake['datum']].value / float(mistake['new']), 6)

    def test_a_run_that_is_stopped_shows_what_it_has(self):
        with tempfile.TemporaryDirectory() as folder, subprocess.Popen(
                [sys.executable, os.path.join(ROOT, 'scripts/seed-mistakes'), '--count', '5000',
                 '--only', 'c-for-k'], env={**os.environ, 'ZEL': ZEL, 'TMPDIR': folder},
                stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding='utf-8') as started:
            while started.poll() is None and not glob.glob(folder + '/*/job0/libraries/nist.lb2'):
                time.sleep(0.1)
            time.sleep(1)
            started.terminate()
            printed, errors = started.communicate()
        self.assertRegex(errors, r'^stopped after \d+ of 5000 mistakes\n$')
        self.assertEqual(0, started.returncode)
        line = next(line for line in printed.splitlines() if line.startswith('all '))
        self.assertEqual(errors.split()[2], line.split()[1])

    def test_words_that_do_not_exist_are_refused(self):
        done = run('--only', 'no-such-kind')
        self.assertEqual(1, done.returncode)
        self.assertIn('no-such-kind is not a kind', done.stderr)

    def test_documents_of_other_sources(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, 'own.xml')
            with open(path, 'w', encoding='utf-8') as stream:
                stream.write("<library><bank type='PURECOMP' name='OWN'><comp><id number='1' "
                             "casNum='7732-18-5' formula='H2O'> AQUA </id>"
                             "<property name='MW' value='18.015'/></comp></bank></library>")
            done = run(path, '--count', '2', '--only', 'ten-times', '--json')
        self.assertEqual((0, ''), (done.returncode, done.stderr))
        self.assertEqual([('own', 'AQUA', 'MW', '18.015', '180.15', True)] * 2, [
            tuple(m[key] for key in ('source', 'component', 'datum', 'old', 'new', 'told'))
            for m in json.loads(done.stdout)['mistakes']])

    def test_findings_without_a_mistake(self):
        done = run('--unchanged', '--alone', 'nist', '--strongest', '2')
        self.assertEqual((0, ''), (done.returncode, done.stderr))
        self.assertIn('of %d data' % len(SOURCES['nist'].data), done.stdout)
        self.assertIn('nist.lb1', done.stdout)

    def test_findings_keep_their_verdicts(self):
        with tempfile.TemporaryDirectory() as folder:
            first, second = (os.path.join(folder, name) for name in ('first.csv', 'second.csv'))

            def rows(path):
                with open(path, encoding='utf-8', newline='') as stream:
                    return list(csv.DictReader(stream))
            self.assertEqual(0, run('--unchanged', '--sheet', first, '--strongest', '3').returncode)
            made = rows(first)
            self.assertEqual(3, len(made))
            judged = {**made[1], 'verdict': 'false alarm', 'reason': 'isotopes'}
            with open(first, 'w', encoding='utf-8', newline='') as stream:
                sheet = csv.DictWriter(stream, made[0])
                sheet.writeheader()
                sheet.writerows([made[0], judged])
            done = run('--unchanged', '--judged', first, '--sheet', second, '--strongest', '3')
            self.assertEqual(0, done.returncode, done.stderr)
            self.assertEqual([made[0], judged, made[2]], rows(second))
            counts = json.loads(run('--unchanged', '--judged', second, '--json').stdout)
        self.assertEqual((0, 1), (counts['faults'], counts['false_alarms']))


if __name__ == '__main__':
    unittest.main(verbosity=0)
