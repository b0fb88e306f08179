#!/usr/bin/python3
"""The service is killed in the middle of its work, again and again, while its clients send again with their keys.
Afterwards the document of each key is there exactly once, and the audit finds nothing.

    service_kill_test.py CUVEXA CLIENTS [--runs N] [--clients N] [--documents N] [--kills N]

CLIENTS is the folder of the written clients. On files, or on the server that CUVEXA_TEST_DB names.
"""
import argparse
import collections
import json
import os
import subprocess
import sys
import tempfile
import threading

os.environ.update(CUVEXA=sys.argv[1], CUVEXA_CLIENTS=sys.argv[2], CUVEXA_SOURCE="")
sys.path.append(os.path.join(os.path.dirname(__file__), "..", "clients"))

import running  # noqa: E402
from users import Databases  # noqa: E402

import cuvexa  # noqa: E402
from receipts import DAY, capture  # noqa: E402


def deposited(service, amount):
    """The folio of the deposit of a receipt of that amount, which is its key too."""
    with service.batch(f"receipt {amount}") as batch:
        treasury = batch.Tesoreria()
        capture(treasury, amount)
        folio = treasury.RpEncabezado.Rp_Folio
        treasury.FinReciboCaja(folio)
        treasury.Genera_Deposito("SRR-MXN", folio, DAY, True, DAY)
        deposit = treasury.Dp_Folio
    return deposit.value


class Clients:
    """Each deposits receipts, and does not give up."""

    def __init__(self, process, clients, documents):
        self.process, self.documents = process, documents
        self.folios, self.failures = {}, []
        self.progress = threading.Condition()
        self.threads = [threading.Thread(target=self.work, args=(number,)) for number in range(clients)]
        for thread in self.threads:
            thread.start()

    def work(self, number):
        service = cuvexa.Service(self.process.address, self.process.token)
        try:
            for amount in range(number * self.documents, (number + 1) * self.documents):
                self.done(amount + 1, self.persist(service, amount + 1))
        except Exception as failure:
            with self.progress:
                self.failures.append(repr(failure))
                self.progress.notify_all()
        service.close()

    @staticmethod
    def persist(service, amount):
        while True:
            try:
                return deposited(service, amount)
            except cuvexa.Unreachable:
                continue

    def done(self, amount, folio):
        with self.progress:
            self.folios[amount] = folio
            self.progress.notify_all()

    def wait_for(self, documents):
        with self.progress:
            self.progress.wait_for(lambda: len(self.folios) >= documents or self.failures)


def run(options, database):
    with tempfile.TemporaryDirectory(prefix="cuvexa-") as folder:
        process = running.Service_process(database, folder)
        clients = Clients(process, options.clients, options.documents)
        for kill in range(options.kills):
            clients.wait_for((kill + 1) * options.clients * options.documents // (options.kills + 1))
            process.kill()
            process.start(process.listen)
        for thread in clients.threads:
            thread.join()
        code = process.end()
    check(options, clients, database)
    expect(code == 0, f"the service ended with {code}")


def check(options, clients, database):
    wanted = options.clients * options.documents
    expect(not clients.failures, f"clients failed: {clients.failures}")
    expect(len(set(clients.folios.values())) == wanted, "a deposit was answered to two keys")
    receipts = json.loads(running.run("show", "receipts", "--json", "--db", database))
    times = collections.Counter(receipt["Rp_Importe"] for receipt in receipts)
    expect(times == {amount: 1 for amount in range(1, wanted + 1)}, f"documents that are not there once: {times}")
    audit = subprocess.run([running.CUVEXA, "audit", "--db", database], stdout=subprocess.PIPE, encoding="utf-8")
    expect(audit.returncode == 0, audit.stdout)


def expect(holds, otherwise):
    if not holds:
        raise SystemExit(otherwise)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("folder")
    for name, default in (("runs", 1), ("clients", 16), ("documents", 4), ("kills", 4)):
        parser.add_argument(f"--{name}", type=int, default=default)
    options = parser.parse_args()
    databases = Databases(running.CUVEXA)
    for number in range(options.runs):
        run(options, databases.fresh())
        print(f"run {number + 1}: {options.clients * options.documents} documents, each once, "
              f"after {options.kills} kills of the service", flush=True)


if __name__ == "__main__":
    main()
