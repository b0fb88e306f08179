"""Values between Python and JSON, and those that are not there yet."""

import dataclasses
import datetime
from typing import Any, Callable, Generic, Optional, Type, TypeVar

T = TypeVar("T")

#: A date that was never set.
no_date = datetime.date(1899, 12, 30)


class Later(Generic[T]):
    """What an entry of a batch gives, once the batch is sent. It may be an argument of later entries of its batch, and so
    may a field of a record: `header.Rp_Folio`."""

    def __init__(self, entry: int, path: str, type_: Type[Any], read: Callable[[str], Any]):
        self._entry, self._path, self._type, self._read = entry, path, type_, read

    @property
    def value(self) -> T:
        """Raises `LookupError` before the batch was sent, and where the entry did not run."""
        return from_json(self._read(self._path), self._type)

    def __getattr__(self, name: str) -> "Later[Any]":
        fields = {field.name: field.type for field in dataclasses.fields(self._type)} if is_record(self._type) else {}
        if name not in fields:
            raise AttributeError(f"{self._type.__name__} has no {name}")
        return Later(self._entry, f"{self._path}/{name}", fields[name], self._read)


def is_record(type_: Optional[Type[Any]]) -> bool:
    return type_ is not None and dataclasses.is_dataclass(type_)


def to_json(value: Any) -> Any:
    """As the component reads it. Fields of a record that hold nothing are left out."""
    if isinstance(value, Later):
        return {"result": value._entry, "path": value._path}
    if isinstance(value, datetime.datetime):
        return value.isoformat(timespec="seconds")
    if isinstance(value, datetime.date):
        return value.isoformat()
    if dataclasses.is_dataclass(value):
        held = {field.name: getattr(value, field.name) for field in dataclasses.fields(value)}
        empty = type(value)()
        return {name: to_json(each) for name, each in held.items() if is_set(each, getattr(empty, name))}
    number = getattr(value, "_object", None)
    return value if number is None else {"object": number}


def is_set(value: Any, empty: Any) -> bool:
    return isinstance(value, Later) or value != empty


def from_json(json: Any, type_: Optional[Type[Any]]) -> Any:
    if is_record(type_):
        fields = {field.name: field.type for field in dataclasses.fields(type_)}
        return type_(**{name: from_json(each, fields[name]) for name, each in json.items()})
    if type_ is datetime.date:
        return datetime.datetime.fromisoformat(json) if "T" in json else datetime.date.fromisoformat(json)
    return json


def take_over(record: Any, json: Any) -> None:
    """Gives a record the values that a member left in it."""
    for name, value in vars(from_json(json, type(record))).items():
        setattr(record, name, value)
