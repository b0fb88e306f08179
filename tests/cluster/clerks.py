"""Who works on the cluster: users of `cuvexa rpc`, and callers of `cuvexa serve` whose requests have keys. All of them go on
whatever befalls the servers, and write down when something was acknowledged.
"""
import http.client
import json
import os
import subprocess
import sys
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "servers"))
from kill_test import LOST, Survivor
from users import ACCOUNT, DAY, HEADER, LINE, Document

CONFLICT = "Otra sesión trabaja con los mismos datos; repita la operación"
PATIENCE = 120  # seconds


class Clerk(Survivor):
    """A user of one program, with --atomic or bare."""
    clear_texts = (*LOST, CONFLICT)
    patience = PATIENCE

    def __init__(self, program, database, trace, atomic=True):
        self.sure = atomic
        self.acknowledged = []
        super().__init__(program, database, trace)

    def start(self):
        if self.sure:
            self.command.append("--atomic")
        super().start()

    def call(self, member, *arguments):
        super().call(member, *arguments)
        self.acknowledged.append(time.monotonic())


class Service:
    """A `cuvexa serve` on a free port, and a token for it."""

    def __init__(self, program, database, folder):
        tokens = os.path.join(folder, "tokens.json")
        added = subprocess.run([program, "token", "add", "ana", "--tokens", tokens], check=True, capture_output=True, text=True)
        self.token = added.stdout.split()[-1]
        self.process = subprocess.Popen([program, "serve", "--db", database, "--tokens", tokens, "--listen", "127.0.0.1:0",
                                         "--server-date", DAY], stderr=subprocess.PIPE, text=True)
        self.address = json.loads(self.process.stderr.readline())["listening"]
        threading.Thread(target=self.process.stderr.read, daemon=True).start()

    def stop(self):
        self.process.terminate()
        self.process.wait()


class Caller:
    """Sends each request under a key of its own until it is answered, so nothing is in doubt."""
    sure = True

    def __init__(self, service):
        self.service = service
        self.documents, self.acknowledged, self.failures = [], [], []
        self.operations = self.sent_again = 0

    def stop(self):
        pass

    def work_to_the_end(self, numbers):
        for number in numbers:
            try:
                self.deposit(number)
            except Exception as failure:
                self.failures.append(f"stopped calling: {failure!r}")
                return

    def deposit(self, number):
        receipt = Document("receipt", 10037 + 101 * number)
        self.documents.append(receipt)
        answers = {answer["id"]: answer["result"] for answer in self.send(str(number), request(receipt.cents))}
        receipt.folio, receipt.deposit = answers["header"]["value"]["Rp_Folio"], answers["deposit"]["value"]
        receipt.stage = "deposited"
        self.operations += 3
        self.acknowledged.append(time.monotonic())

    def send(self, key, body):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            status, outcome, text = self.post(key, body)
            if status == 200 and outcome == "kept":
                return json.loads(text)
            if status not in (503, 504):
                raise RuntimeError(f"{status} {outcome}: {text}")
            self.sent_again += 1
            time.sleep(0.2)
        raise RuntimeError(f"not answered in {PATIENCE} seconds")

    def post(self, key, body):
        connection = http.client.HTTPConnection(self.service.address, timeout=PATIENCE)
        connection.request("POST", "/rpc", body, {"Authorization": f"Bearer {self.service.token}", "Idempotency-Key": key,
                                                  "Content-Type": "application/json"})
        answer = connection.getresponse()
        text = answer.read().decode()
        connection.close()
        return answer.status, answer.headers["Cuvexa-Outcome"], text


def request(cents):
    """A receipt captured, closed and deposited."""
    folio = {"result": "header", "path": "/value/Rp_Folio"}
    steps = [("create", {"class": "Tesoreria"}), ("call", {"member": "NuevoReciboCaja"}),
             ("let", {"member": "RpEncabezado", "value": HEADER}),
             ("let", {"member": "RpDetalle", "value": {**LINE, "Rp_Importe": cents / 100}}),
             ("call", {"member": "Add_Recibo_Caja_Detalle"}), ("get", {"member": "RpEncabezado"}),
             ("call", {"member": "FinReciboCaja", "args": [folio]}),
             ("call", {"member": "Genera_Deposito", "args": [ACCOUNT, folio, DAY, True, DAY]}), ("get", {"member": "Dp_Folio"})]
    names = {5: "header", len(steps) - 1: "deposit"}
    return json.dumps([{"jsonrpc": "2.0", "id": names.get(i, i), "method": method,
                        "params": params if method == "create" else {"object": 1, **params}}
                       for i, (method, params) in enumerate(steps)])
