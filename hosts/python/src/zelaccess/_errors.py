"""The exceptions of the package, each with a message that says what helps."""

from typing import Any


class ZelError(Exception):
    """Base of all exceptions of the package.

    Attributes
    ----------
    file : str
        The library or document that it is about, as it was named; empty if the error is not about a file.
    """

    def __init__(self, message: str = "", file: str = ""):
        super().__init__(message)
        self.message = message
        self.file = file

    def __str__(self) -> str:
        return self.message

    def __reduce__(self) -> Any:
        return type(self), (self.message, self.file)


class OpenError(ZelError):
    """A library that cannot be opened."""


class LibraryNotFound(OpenError, FileNotFoundError):
    """A library that does not exist."""


class LibraryInUse(OpenError):
    """A library that another program, or an edit of this one, is using."""


class DamagedLibrary(ZelError):
    """A library of which a block is damaged."""


class MissingComponent(ZelError, KeyError):
    """A component that no library has."""


class MissingItem(ZelError, KeyError):
    """An item that no library has."""


class MissingPair(MissingItem):
    """A pair of components that no library has."""


class MissingBank(ZelError, KeyError):
    """A bank that a library does not have."""


class MissingDatum(ZelError, AttributeError):
    """A datum that a component does not have, or that does not exist."""


class MissingField(MissingDatum, KeyError):
    """A field that items of a bank type do not have."""


class IdentityConflict(ZelError):
    """Sources that mean different substances by one word."""


class WrongUsage(ZelError, ValueError):
    """A word that means nothing: a unit, a bank type, a field, an option."""
