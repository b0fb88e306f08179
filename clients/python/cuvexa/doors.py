"""The ways to the component: a program of this machine, and a service."""

import http.client
import json
import random
import ssl
import subprocess
import time
import urllib.parse
import uuid
from typing import Any, Dict, List, Mapping, Optional, Sequence, Tuple, Type

from .treasury import Batched_objects, Objects
from .values import Later, from_json, is_record, take_over, to_json


class Refused(Exception):
    """A member gave False, and nothing of the batch was kept. The text is what the component's `Error` says."""

    def __init__(self, member: str, text: str):
        super().__init__(text)
        self.member = member


class Failed(Exception):
    """An entry that does not fit (-32602), or a run-time error of the component (-32000, with its number)."""

    def __init__(self, error: Mapping[str, Any]):
        super().__init__(error["message"])
        self.code: int = error["code"]
        self.number: Optional[int] = (error.get("data") or {}).get("number")


class Service_error(Exception):
    """The service did not do it: who asks may not (401, 403), too much is asked (413), a key was used for another request
    (422), the disk is full (507), …"""

    def __init__(self, status: int, text: str):
        super().__init__(f"{status}: {text}")
        self.status = status


class Unreachable(Exception):
    """No answer came, however often it was tried. What was sent may have been done: send it again with its `key`, or ask
    `Service.answer_to(key)`."""

    def __init__(self, key: str, reason: str):
        super().__init__(reason)
        self.key = key


# ---- A program ------------------------------------------------------------------------------------------------------


class Program(Objects):
    """The component on a database, served by a program that is started and ended with this. Each call is kept whole or not
    at all, unless `atomic` is taken away.

        with Program("company.db") as program:
            treasury = program.Tesoreria()
            if not treasury.FinReciboCaja("RP-MTY-00000001"):
                print(treasury.Error)
    """

    def __init__(self, database: str, *, program: str = "cuvexa", arguments: Sequence[str] = (), atomic: bool = True):
        command = [program, "rpc", "--db", database, *(["--atomic"] if atomic else []), *arguments]
        self._process = subprocess.Popen(
            command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8", bufsize=1)
        self._last = 0

    def __enter__(self) -> "Program":
        return self

    def __exit__(self, *_: Any) -> None:
        self.close()

    def close(self) -> None:
        """Ends the program, which finishes what it does."""
        self._process.stdin.close()
        self._process.wait()
        self._process.stdout.close()

    def create(self, name: str) -> int:
        return self._ask("create", {"class": name})["object"]

    def call(self, target: Any, member: str, type_: Optional[Type[Any]], arguments: Sequence[Any]) -> Any:
        asked = {"object": target._object, "member": member, "args": [to_json(each) for each in arguments]}
        result = self._ask("call", asked)
        give_back(arguments, result["args"])
        return from_json(result["value"], type_)

    def get(self, target: Any, member: str, type_: Optional[Type[Any]]) -> Any:
        return from_json(self._ask("get", {"object": target._object, "member": member})["value"], type_)

    def let(self, target: Any, member: str, value: Any) -> None:
        self._ask("let", {"object": target._object, "member": member, "value": to_json(value)})

    def _ask(self, method: str, params: Mapping[str, Any]) -> Any:
        self._last += 1
        self._process.stdin.write(json.dumps(entry_of(self._last, method, params)) + "\n")
        line = self._process.stdout.readline()
        if not line:
            raise EOFError(f"the program ended with exit code {self._process.wait()}")
        answer = json.loads(line)
        if "error" in answer:
            raise Failed(answer["error"])
        return answer["result"]


# ---- A service ------------------------------------------------------------------------------------------------------


longest_rest = 10.0  # seconds between two tries


class Service:
    """A service that runs somewhere. Used by one thread at a time; a connection is kept open."""

    def __init__(self, address: str, token: str, *, company: str = "", tries: int = 8, timeout: float = 60,
                 context: Optional[ssl.SSLContext] = None):
        """`company` where the service has several; `context` where its certificate is not one that this machine trusts."""
        parts = urllib.parse.urlsplit(address)
        if parts.scheme == "https":
            self._connection: http.client.HTTPConnection = http.client.HTTPSConnection(
                parts.netloc, timeout=timeout, context=context)
        else:
            self._connection = http.client.HTTPConnection(parts.netloc, timeout=timeout)
        self._path = parts.path.rstrip("/") + (f"/{company}" if company else "")
        self._headers = {"Authorization": f"Bearer {token}", "Content-Type": "application/json"}
        self._tries = tries

    def batch(self, key: Optional[str] = None) -> "Batch":
        """A request that is kept whole or not at all, and once, however often it is sent with its key."""
        return Batch(self, key or str(uuid.uuid4()))

    def answer_to(self, key: str) -> Optional[List[Any]]:
        """What was answered to a batch with that key; None when nothing was kept under it."""
        status, _, body = self._sent("GET", "/requests-done/" + urllib.parse.quote(key, safe=""), b"", {}, key)
        if status == 404:
            return None
        return json.loads(checked(status, body))

    def post(self, entries: Sequence[Any], key: str) -> Tuple[Mapping[str, str], List[Any]]:
        """Headers and answers."""
        status, headers, body = self._sent("POST", "/rpc", json.dumps(entries).encode(), {"Idempotency-Key": key}, key)
        return headers, json.loads(checked(status, body) or "[]")

    def close(self) -> None:
        self._connection.close()

    def _sent(self, method: str, path: str, body: bytes, headers: Mapping[str, str],
              key: str) -> Tuple[int, Mapping[str, str], bytes]:
        """Sends it, again and again while the answer is that it may be sent again, or none: with its key it is safe to."""
        reason = ""
        asked_to_wait = 0.0
        for attempt in range(self._tries):
            if attempt > 0:
                time.sleep(min(longest_rest, max(asked_to_wait, random.uniform(0.5, 1) * 0.1 * 2**attempt)))
            try:
                self._connection.request(method, self._path + path, body or None, {**self._headers, **headers})
                response = self._connection.getresponse()
                content = response.read()
            except (OSError, http.client.HTTPException) as failure:
                self._connection.close()
                reason = str(failure) or type(failure).__name__
                continue
            if response.status not in (429, 503, 504):
                return response.status, response.headers, content
            reason = f"{response.status}: {message_in(content)}"
            asked_to_wait = float(response.headers.get("Retry-After", 0))
        raise Unreachable(key, reason)


class Batch(Batched_objects):
    """Entries that are sent as one request when the `with` ends well, and not at all when it ends by an exception.

        with service.batch(key="web-order-4711") as batch:
            treasury = batch.Tesoreria()
            saldo = treasury.GetSaldo("SRR-MXN")
        print(saldo.value)
    """

    def __init__(self, service: Service, key: str):
        self._service = service
        self.key = key
        self.replayed = False  #: the answer is that of an earlier request with the same key
        self._entries: List[Dict[str, Any]] = []
        self._given: Dict[int, Sequence[Any]] = {}
        self._objects = 0
        self._answers: Dict[int, Any] = {}

    def __enter__(self) -> "Batch":
        return self

    def __exit__(self, failure: Optional[Type[BaseException]], *_: Any) -> None:
        if failure is None:
            self.send()

    def create(self, name: str) -> int:
        self._add("create", {"class": name})
        self._objects += 1
        return self._objects

    def call(self, target: Any, member: str, type_: Optional[Type[Any]], arguments: Sequence[Any]) -> Later[Any]:
        asked = {"object": target._object, "member": member, "args": [to_json(each) for each in arguments]}
        entry = self._add("call", asked)
        self._given[entry] = arguments
        return Later(entry, "/value", type_, lambda path: self._at(entry, path))

    def get(self, target: Any, member: str, type_: Optional[Type[Any]]) -> Later[Any]:
        entry = self._add("get", {"object": target._object, "member": member})
        return Later(entry, "/value", type_, lambda path: self._at(entry, path))

    def let(self, target: Any, member: str, value: Any) -> None:
        self._add("let", {"object": target._object, "member": member, "value": to_json(value)})

    def send(self) -> None:
        """Raises `Refused`, `Failed` or `Service_error`, and nothing was kept; or `Unreachable`."""
        if not self._entries:
            return
        headers, answers = self._service.post(self._entries, self.key)
        self.replayed = headers.get("Idempotency-Replayed") == "true"
        ended_by = headers.get("Cuvexa-Ended-By")
        if ended_by is not None:
            self._refuse(int(ended_by), answers)
        self._answers = {answer["id"]: answer["result"] for answer in answers}
        for entry, arguments in self._given.items():
            give_back(arguments, self._answers[entry]["args"])

    def _refuse(self, entry: int, answers: Sequence[Any]) -> None:
        answer = answers[entry - 1]
        if "error" in answer:
            raise Failed(answer["error"])
        raise Refused(self._entries[entry - 1]["params"]["member"], answer["result"].get("Error", ""))

    def _add(self, method: str, params: Mapping[str, Any]) -> int:
        self._entries.append(entry_of(len(self._entries) + 1, method, params))
        return len(self._entries)

    def _at(self, entry: int, path: str) -> Any:
        if entry not in self._answers:
            raise LookupError("the batch was not sent, or not kept")
        found = self._answers[entry]
        for step in path.split("/")[1:]:
            found = found[step]
        return found


def entry_of(number: int, method: str, params: Mapping[str, Any]) -> Dict[str, Any]:
    return {"jsonrpc": "2.0", "id": number, "method": method, "params": params}


def give_back(given: Sequence[Any], after: Sequence[Any]) -> None:
    """Records go by reference: what the member left in them is the caller's."""
    for argument, value in zip(given, after):
        if is_record(type(argument)):
            take_over(argument, value)


def message_in(body: bytes) -> str:
    try:
        return json.loads(body)["error"]["message"]
    except (ValueError, KeyError, TypeError):
        return body.decode(errors="replace")


def checked(status: int, body: bytes) -> bytes:
    if status not in (200, 204):
        raise Service_error(status, message_in(body))
    return body
