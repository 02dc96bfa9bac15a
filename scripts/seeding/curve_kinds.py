"""The kinds of mistakes in curves, the correlations with temperature."""
import math
from typing import List

from . import digits
from .constant_kinds import another_component, isomer, neighbour
from .documents import number
from .kind import Kind

_ENERGY = ('kj/kg', 'j/kg', 'cal/g', 'kcal/kg', 'cal/kg', 'btu/lb')
_HEAT_CAPACITY = ('kj/kg-k', 'j/kg-k', 'cal/g-k', 'kcal/kg-k', 'cal/kg-k', 'btu/lb-f')
_DENSITY = ('kg/m3', 'g/cm3', 'g/lit', 'lb/ft3', 'lb/gal')
_CONDUCTIVITY = ('w/m-k', 'kw/m-k', 'cal/sec-cm-c', 'kcal/hr-m-c', 'btu/hr-ft-f')
_VISCOSITY = ('cp', 'pa-sec', 'lb-sec/ft2')
UNIT_WORDS = {
    'VaporPressure': ('kpa', 'pa', 'mpa', 'bar', 'mbar', 'mm hg', 'atm', 'psia', 'kg/cm2'),
    'IdealEnthalpy': _ENERGY, 'LiquidEnthalpy': _ENERGY, 'SolidEnthalpy': _ENERGY, 'LatentHeat': _ENERGY,
    'IdealGasCp': _HEAT_CAPACITY, 'LiquidCp': _HEAT_CAPACITY, 'SolidCp': _HEAT_CAPACITY,
    'LiquidDensity': _DENSITY, 'SolidDensity': _DENSITY,
    'LiquidThermal': _CONDUCTIVITY, 'VaporThermal': _CONDUCTIVITY,
    'LiquidViscosity': _VISCOSITY, 'VaporViscosity': _VISCOSITY,
    'SurfaceTension': ('n/m', 'dyne/cm'),
    'CharacteristicVolume': ('m3/kg-mole', 'cm3/g-mole', 'm3/g-mole', 'ft3/lb-mole'),
}
# What a value in another unit is, for conversions that were forgotten or made twice.
_ENERGY_FACTORS = (4.184, 2.326, 1000.0)
UNIT_FACTORS = {
    'VaporPressure': (100.0, 6.894757, 101.325, 7.50062, 1000.0),
    'IdealEnthalpy': _ENERGY_FACTORS, 'LiquidEnthalpy': _ENERGY_FACTORS,
    'SolidEnthalpy': _ENERGY_FACTORS, 'LatentHeat': _ENERGY_FACTORS,
    'IdealGasCp': (4.184, 8.314471, 1000.0), 'LiquidCp': (4.184, 1000.0), 'SolidCp': (4.184, 1000.0),
    'LiquidDensity': (16.01846, 1000.0), 'SolidDensity': (16.01846, 1000.0),
    'LiquidThermal': (1.730735, 418.4, 1000.0), 'VaporThermal': (1.730735, 418.4, 1000.0),
    'LiquidViscosity': (10.0, 1000.0), 'VaporViscosity': (10.0, 1000.0),
    'SurfaceTension': (10.0, 1000.0), 'CharacteristicVolume': (16.01846, 1000.0),
}
# How many coefficients have the unit of the value, None for all; of the others one is a logarithm.
_LINEAR = {'1': None, '25': None, '32': None, '15': 1, '16': 1, '19': 1}
_LOGARITHMIC = ('12', '20', '21')
# Curves that a table has for each phase.
PHASES = (('LiquidViscosity', 'VaporViscosity'), ('LiquidThermal', 'VaporThermal'),
          ('IdealGasCp', 'LiquidCp', 'SolidCp'), ('IdealEnthalpy', 'LiquidEnthalpy', 'SolidEnthalpy'),
          ('LiquidDensity', 'SolidDensity'))


def _coefficient(change):
    """A change of the text of one coefficient."""
    def apply(rng, datum, sources):
        if not datum.coefficients:
            return None
        place = rng.randrange(len(datum.coefficients))
        text = change(rng, datum.coefficients[place])
        if text is None:
            return None
        return datum.with_coefficients(datum.coefficients[:place] + (text,) + datum.coefficients[place + 1:])
    return apply


def _nonzero(change):
    return lambda rng, text: change(rng, text) if float(text) != 0 else None


def _exchanged(rng, datum, sources):
    texts = list(datum.coefficients)
    if len(texts) < 2:
        return None
    a, b = rng.sample(range(len(texts)), 2)
    texts[a], texts[b] = texts[b], texts[a]
    return datum.with_coefficients(texts)


def _lost(rng, datum, sources):
    if len(datum.coefficients) < 2:
        return None
    place = rng.randrange(len(datum.coefficients))
    return datum.with_coefficients(datum.coefficients[:place] + datum.coefficients[place + 1:])


def _one_line_up(rng, datum, sources):
    """One coefficient is that of the next component: a slip within a line."""
    others = [d for d in sources[datum.component.source].neighbours(datum)
              if len(d.coefficients) == len(datum.coefficients)]
    if not others:
        return None
    place = rng.randrange(len(datum.coefficients))
    texts = list(datum.coefficients)
    texts[place] = rng.choice(others).coefficients[place]
    return datum.with_coefficients(texts)


def _another_equation(rng, datum, sources):
    """A number that some curve with as many coefficients has."""
    numbers = {n for s in sources.values() for n in s.equations.get(len(datum.coefficients), ())}
    numbers.discard(datum.attributes.get('equation'))
    return datum.with_attributes(equation=rng.choice(sorted(numbers))) if numbers else None


def _has_range(datum) -> bool:
    return None not in (number(datum.attributes.get('tMin')), number(datum.attributes.get('tMax')))


def _range(change, ends=(('tMin', 'tMax'),)):
    """A change of the limits of the range, both or one of them."""
    def apply(rng, datum, sources):
        if not _has_range(datum):
            return None
        texts = {end: change(rng, datum.attributes[end]) for end in rng.choice(ends)}
        return None if None in texts.values() else datum.with_attributes(**texts)
    return apply


def _shifted(rng, datum, sources):
    by = rng.choice([-273.15, 273.15])
    return _range(lambda _, text: digits.shown(float(text) + by),
                  (('tMin', 'tMax'), ('tMin',), ('tMax',)))(rng, datum, sources)


def _range_exchanged(rng, datum, sources):
    if not _has_range(datum):
        return None
    return datum.with_attributes(tMin=datum.attributes['tMax'], tMax=datum.attributes['tMin'])


def _another_range(rng, datum, sources):
    other = rng.choice(sources[datum.component.source].of_name[datum.name])
    if not _has_range(other) or not _has_range(datum):
        return None
    return datum.with_attributes(tMin=other.attributes['tMin'], tMax=other.attributes['tMax'])


def _unit_word(rng, datum, sources):
    now = datum.attributes.get('propUnit')
    words = [word for word in UNIT_WORDS.get(datum.name, ()) if word != now]
    return datum.with_attributes(propUnit=rng.choice(words)) if now and words else None


def _in_another_unit(rng, datum, sources):
    """All that has the unit of the value is in another unit, while the word for the unit is not."""
    if datum.name not in UNIT_FACTORS:
        return None
    equation = datum.attributes.get('equation')
    factor = rng.choice(UNIT_FACTORS[datum.name]) ** rng.choice([-1, 1])
    texts = list(datum.coefficients)
    if equation in _LINEAR:
        for i in range(len(texts))[:_LINEAR[equation]]:
            texts[i] = digits.shown(float(texts[i]) * factor)
    elif equation in _LOGARITHMIC and texts:
        base = math.log(10) if datum.attributes.get('logBasis') == 'log' else 1.0
        texts[0] = digits.shown(float(texts[0]) + math.log(factor) / base)
    else:
        return None
    return datum.with_coefficients(texts)


def _other_word(attribute, words):
    def apply(rng, datum, sources):
        now = datum.attributes.get(attribute)
        others = [word for word in words if word != now]
        return datum.with_attributes(**{attribute: rng.choice(others)}) if now else None
    return apply


def _another_phase(rng, datum, sources):
    names = [name for group in PHASES if datum.name in group for name in group
             if name != datum.name and name in datum.component.data]
    return datum.with_content_of(datum.component.data[rng.choice(names)]) if names else None


_ONE_END = (('tMin',), ('tMax',))
KINDS: List[Kind] = [
    Kind('coefficient-digit', 'a digit of a coefficient replaced', None, _coefficient(digits.replaced)),
    Kind('coefficient-swapped', 'two neighbouring digits of a coefficient exchanged', None,
         _coefficient(digits.swapped)),
    Kind('coefficient-digit-lost', 'a digit of a coefficient left out', None, _coefficient(digits.lost)),
    Kind('coefficient-point', 'the decimal point of a coefficient left out', None,
         _coefficient(digits.without_point)),
    Kind('coefficient-sign', 'the other sign of a coefficient', None,
         _coefficient(_nonzero(digits.other_sign))),
    Kind('coefficient-exponent', 'the exponent of ten of a coefficient off by one', None,
         _coefficient(_nonzero(digits.power_of_ten))),
    Kind('coefficient-exponent-sign', 'the sign of the exponent of ten of a coefficient', None,
         _coefficient(digits.other_exponent_sign)),
    Kind('coefficient-column', 'a coefficient whose column has a power of ten in its head', None,
         _coefficient(_nonzero(lambda rng, text: digits.shown(
             float(text) * 10.0 ** rng.choice([-6, -5, -3, -2, 2, 3, 5, 6]))))),
    Kind('coefficients-exchanged', 'two coefficients exchanged', None, _exchanged),
    Kind('coefficient-lost', 'a coefficient left out', None, _lost),
    Kind('coefficient-line-slip', 'a coefficient of the component before or after', None, _one_line_up),
    Kind('another-equation', 'another equation number', None, _another_equation),
    Kind('another-curve', 'the curve of another component', None, another_component),
    Kind('curve-line-slip', 'the curve of the component before or after in the table', None, neighbour),
    Kind('curve-of-isomer', 'the curve of another component with the same formula', None, isomer),
    Kind('another-phase', 'the curve of another phase', None, _another_phase),
    Kind('range-off-273', 'the range or one of its limits off by 273.15', None, _shifted),
    Kind('range-in-f', 'the limits in F', None,
         _range(lambda _, text: digits.shown(float(text) * 1.8 - 459.67))),
    Kind('range-in-r', 'the limits in R', None, _range(lambda _, text: digits.shown(float(text) * 1.8))),
    Kind('range-digit', 'a digit of a limit replaced', None, _range(digits.replaced, _ONE_END)),
    Kind('range-swapped', 'two digits of a limit exchanged', None, _range(digits.swapped, _ONE_END)),
    Kind('range-exchanged', 'the limits exchanged', None, _range_exchanged),
    Kind('another-range', 'the range of another component', None, _another_range),
    Kind('curve-in-another-unit', 'coefficients of another unit of the value', None, _in_another_unit),
    Kind('unit-word', 'another unit of the value', None, _unit_word),
    Kind('basis-word', 'per mass for per mole, or the reverse', None,
         _other_word('moleWtBasis', ('m', 'wt'))),
    Kind('log-word', 'decimal logarithms for natural ones, or the reverse', None,
         _other_word('logBasis', ('ln', 'log'))),
    Kind('temperature-word', 'another unit of the temperature', None,
         _other_word('tempUnit', ('k', 'c', 'r', 'f'))),
]
