"""Mistakes in the text of one number, as they are made in reading and typing.

Each function takes a random generator and the text and returns the changed text, or None if the text
cannot have this mistake.
"""
import math
import re
from random import Random
from typing import List, Optional

_EXPONENT = re.compile(r'[eE]([-+]?)(\d+)$')


def _places(text: str) -> List[int]:
    """Where the significant digits are."""
    mantissa = re.split('[eE]', text)[0]
    first = next((i for i, c in enumerate(mantissa) if c in '123456789'), len(mantissa))
    return [i for i in range(first, len(mantissa)) if mantissa[i].isdigit()]


def shown(value: float) -> str:
    return '%.7g' % value


def swapped(rng: Random, text: str) -> Optional[str]:
    places = _places(text)
    pairs = [(a, b) for a, b in zip(places, places[1:]) if text[a] != text[b]]
    if not pairs:
        return None
    a, b = rng.choice(pairs)
    letters = list(text)
    letters[a], letters[b] = letters[b], letters[a]
    return ''.join(letters)


def replaced(rng: Random, text: str) -> Optional[str]:
    places = _places(text)
    if not places:
        return None
    place = rng.choice(places)
    return text[:place] + rng.choice([d for d in '0123456789' if d != text[place]]) + text[place + 1:]


def lost(rng: Random, text: str) -> Optional[str]:
    places = _places(text)
    if len(places) < 2:
        return None
    place = rng.choice(places)
    return text[:place] + text[place + 1:]


def doubled(rng: Random, text: str) -> Optional[str]:
    places = _places(text)
    if not places:
        return None
    place = rng.choice(places)
    return text[:place] + text[place] + text[place:]


def without_point(rng: Random, text: str) -> Optional[str]:
    return text.replace('.', '') if '.' in text else None


def without_sign(rng: Random, text: str) -> Optional[str]:
    return text[1:] if text.startswith('-') else None


def other_sign(rng: Random, text: str) -> Optional[str]:
    return text[1:] if text.startswith('-') else '-' + text


def times_ten(rng: Random, text: str) -> Optional[str]:
    return shown(float(text) * 10)


def tenth(rng: Random, text: str) -> Optional[str]:
    return shown(float(text) / 10)


def power_of_ten(rng: Random, text: str) -> Optional[str]:
    return shown(float(text) * rng.choice([10, 0.1]))


def other_exponent_sign(rng: Random, text: str) -> Optional[str]:
    """1e-5 for 1e5; of a number that is written without exponent, that of its scientific form."""
    found = _EXPONENT.search(text)
    if found:
        return text[:found.start()] + 'e' + ('' if found[1] == '-' else '-') + found[2]
    value = float(text)
    if value == 0 or 0.01 <= abs(value) < 10000:
        return None  # no table prints it with an exponent
    power = math.floor(math.log10(abs(value)))
    return shown(value * 10.0 ** (-2 * power))
