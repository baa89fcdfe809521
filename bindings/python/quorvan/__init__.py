"""Transfer files of finished reinforcement drawings: reading and writing."""

from . import elements
from ._library import QuorvanError, QuorvanFileNotFoundError
from .elements import Bar, Element, Problem
from .reading import Drawing, read, read_bytes
from .writing import Filing, filing

__version__ = "1.0.0"

__all__ = [
    "Bar",
    "Drawing",
    "Element",
    "Filing",
    "Problem",
    "QuorvanError",
    "QuorvanFileNotFoundError",
    "elements",
    "filing",
    "read",
    "read_bytes",
]
