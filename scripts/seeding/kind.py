"""A kind of mistake."""
from dataclasses import dataclass
from typing import Callable, Optional, Tuple


@dataclass(frozen=True)
class Kind:
    """`change(rng, datum, sources)` returns the changed datum, or None where the kind does not fit.
    `data` are the names of the data that it applies to, None for all."""
    name: str
    description: str
    data: Optional[Tuple[str, ...]]
    change: Callable
