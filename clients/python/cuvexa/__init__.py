"""Cuvexa, the treasury component, for programs in Python.

`Program` starts the component on a database of this machine; `Service` reaches it on another. The classes and records of
the component are those of `treasury`, under their published names.
"""

from .doors import Batch, Failed, Program, Refused, Service, Service_error, Unreachable
from .treasury import *  # noqa: F403
from .values import Later, no_date
