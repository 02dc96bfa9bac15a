"""The kinds of mistakes in constants."""
from typing import Callable, List, Optional

from . import digits
from .documents import Datum
from .kind import Kind

TEMPERATURES = ('TC', 'NMP', 'NBP', 'TTP', 'FLASHPOINT', 'AUTOIGNITION', 'TDIELECTRIC')
PRESSURES = ('PC', 'PTP')
VOLUMES = ('VC', 'MVOL25C')
ENERGIES = ('GFORMATION', 'HFORMATION', 'HCOMBUST', 'HFUSIONNMP', 'HVAPNBP', 'GHV', 'LHV')
FRACTIONS = ('LOFLAMM', 'HIFLAMM')
# Columns that stand side by side in tables and have values of the same order.
COLUMNS = (TEMPERATURES, PRESSURES, VOLUMES, ENERGIES, FRACTIONS, ('ZC', 'RACKETT', 'ACENTRIC', 'DIPOLE'),
           ('VDWA', 'VDWV'), ('SG60F', 'ACENTRIC', 'ZC'), ('PARACHOR', 'MW'), ('SOLUPARA', 'DIELECTRIC'))


def _of_text(change) -> Callable:
    def apply(rng, datum, sources):
        text = change(rng, datum.attributes['value'])
        return None if text is None else datum.with_value(text)
    return apply


def _of_value(change: Callable[[float], float]) -> Callable:
    def apply(rng, datum, sources):
        return datum.with_value(digits.shown(change(datum.value)))
    return apply


def _with_weight(power: int) -> Callable:
    def apply(rng, datum, sources):
        weight = _weight(datum, sources)
        return datum.with_value(digits.shown(datum.value * weight ** power)) if weight else None
    return apply


def _weight(datum: Datum, sources) -> Optional[float]:
    for source in sources.values():
        for other in source.of_name.get('MW', ()):
            if other.component.substance == datum.component.substance:
                return other.value
    return None


def another_component(rng, datum, sources):
    return datum.with_content_of(rng.choice(sources[datum.component.source].of_name[datum.name]))


def neighbour(rng, datum, sources):
    others = sources[datum.component.source].neighbours(datum)
    return datum.with_content_of(rng.choice(others)) if others else None


def isomer(rng, datum, sources):
    mine = datum.component
    others = [d for d in sources[mine.source].of_name[datum.name]
              if d.component is not mine and mine.formula and d.component.formula == mine.formula]
    return datum.with_content_of(rng.choice(others)) if others else None


def _another_column(rng, datum, sources):
    names = {name for group in COLUMNS if datum.name in group for name in group} - {datum.name}
    others = [datum.component.data[name] for name in sorted(names) if name in datum.component.data]
    return datum.with_value(rng.choice(others).attributes['value']) if others else None


def _positive(rng, datum, sources):
    return datum.with_value('-' + datum.attributes['value']) if datum.value > 0 else None


def _factor(name: str, description: str, data, factor: float) -> Kind:
    return Kind(name, description, data, _of_value(lambda value: value * factor))


def _shift(name: str, description: str, change) -> Kind:
    return Kind(name, description, TEMPERATURES, _of_value(change))


KINDS: List[Kind] = [
    Kind('ten-times', 'the decimal point one place too far right', None, _of_text(digits.times_ten)),
    Kind('a-tenth', 'the decimal point one place too far left', None, _of_text(digits.tenth)),
    Kind('swapped-digits', 'two neighbouring digits exchanged', None, _of_text(digits.swapped)),
    Kind('wrong-digit', 'a digit replaced', None, _of_text(digits.replaced)),
    Kind('lost-digit', 'a digit left out', None, _of_text(digits.lost)),
    Kind('doubled-digit', 'a digit written twice', None, _of_text(digits.doubled)),
    Kind('lost-point', 'the decimal point left out', None, _of_text(digits.without_point)),
    Kind('lost-sign', 'the minus sign left out', None, _of_text(digits.without_sign)),
    Kind('gained-sign', 'a minus sign where there is none',
         ('HFORMATION', 'GFORMATION', 'HCOMBUST', 'ACENTRIC'), _positive),
    Kind('exponent-sign', 'the sign of the exponent', None, _of_text(digits.other_exponent_sign)),
    _shift('c-for-k', 'the value in C', lambda value: value - 273.15),
    _shift('k-as-c', 'K taken for C and converted', lambda value: value + 273.15),
    _shift('f-for-k', 'the value in F', lambda value: value * 1.8 - 459.67),
    _shift('r-for-k', 'the value in R', lambda value: value * 1.8),
    _shift('f-as-c', 'the value in F taken for C and converted',
           lambda value: value * 1.8 - 459.67 + 273.15),
    _factor('cal-for-j', 'the value in calories', ENERGIES, 1 / 4.184),
    _factor('j-as-cal', 'J taken for calories and converted', ENERGIES, 4.184),
    _factor('btu-for-kj', 'the value in BTU/lb-mol', ENERGIES, 1 / 2.326),
    _factor('kj-as-btu', 'kJ/kg-mol taken for BTU/lb-mol and converted', ENERGIES, 2.326),
    _factor('kj-per-mol', 'the value in kJ/mol', ENERGIES, 1e-3),
    _factor('kcal-per-mol', 'the value in kcal/mol', ENERGIES, 1 / 4184),
    Kind('per-mass', 'the value per kg', ENERGIES + VOLUMES, _with_weight(-1)),
    Kind('per-mole-twice', 'a molar value taken for one per kg and converted', ENERGIES + VOLUMES,
         _with_weight(1)),
    _factor('bar-for-kpa', 'the value in bar', PRESSURES, 1e-2),
    _factor('kpa-as-bar', 'kPa taken for bar and converted', PRESSURES, 1e2),
    _factor('atm-for-kpa', 'the value in atm', PRESSURES, 1 / 101.325),
    _factor('psi-for-kpa', 'the value in psi', PRESSURES, 1 / 6.894757),
    _factor('kpa-as-psi', 'kPa taken for psi and converted', PRESSURES, 6.894757),
    _factor('mmhg-for-kpa', 'the value in mm Hg', PRESSURES, 7.50062),
    _factor('mpa-for-kpa', 'the value in MPa', PRESSURES, 1e-3),
    _factor('pa-for-kpa', 'the value in Pa', PRESSURES, 1e3),
    _factor('cm3-per-mol', 'the value in cm3/mol', VOLUMES, 1e3),
    _factor('ft3-per-lbmol', 'the value in ft3/lb-mol', VOLUMES, 16.01846),
    _factor('percent', 'the value in percent', FRACTIONS, 1e2),
    _factor('si-solubility', 'the value in (J/cm3)^0.5', ('SOLUPARA',), 2.04548),
    _factor('si-dipole', 'the value in 1e-30 C m', ('DIPOLE',), 3.33564),
    _factor('nm-for-angstrom', 'the value in nm taken for Angstrom', ('RADIUS',), 0.1),
    Kind('another-component', 'the value of another component', None, another_component),
    Kind('line-slip', 'the value of the component before or after in the table', None, neighbour),
    Kind('wrong-isomer', 'the value of another component with the same formula', None, isomer),
    Kind('another-column', 'another datum of the component', None, _another_column),
]
