#!/usr/bin/python3
"""Several users at once on one account: each a program of its own that captures receipts, deposits them, writes checks
and takes all of it back. Afterwards no folio was given twice or lost, every balance is what the movements say, and the
audit finds nothing.

    load_test.py CUVEXA DATABASE [--users N,N,…] [--rounds N]

DATABASE is a file that does not exist yet, or the connection string of an empty database. Prints one line per number of
users: operations and statements per second.
"""
import argparse
import collections
import json
import os
import subprocess
import sys
import tempfile
import threading
import time

HEADER = {"Rp_Fecha": "2024-03-15", "Rp_Fecha_Deposito": "2024-03-15", "Sucursal": {"Sc_Cve_Sucursal": "MTY"},
          "TipoReciboPago": {"Trp_Cve_Tipo_Recibo_Pago": "01"}, "Mn_Cve_Moneda": "MXN", "Rp_Tipo_Cambio": 1}
LINE = {"Fp_Cve_Forma_Pago": {"Fp_Cve_Forma_Pago": "01"}}
TRANSFER = {"Ch_Fecha": "2024-03-15", "Tc_Cve_Tipo_Cheque": "0004", "Ch_Transferencia": "NO",
            "Ch_Concepto": "Préstamo", "Ch_Beneficiario": "Empleado", "Bc_Cve_Banco_Cuenta": "SRR-MXN",
            "Mn_Cve_Moneda": "MXN", "Ch_Tipo_Cambio": 1, "Ch_Solicitar_Valor": "DE01",
            "Sucursal": {"Sc_Cve_Sucursal": "MTY"}}


class Refused(Exception):
    pass


class User:
    """One program, and the object in it."""

    def __init__(self, program, database, trace):
        self.process = subprocess.Popen([program, "rpc", "--db", database, "--trace", trace, "--server-date", "2024-03-15"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        self.object = self.ask("create", {"class": "Tesoreria"})["object"]
        self.operations = 0
        self.failures = []

    def ask(self, method, params):
        self.process.stdin.write(json.dumps({"jsonrpc": "2.0", "id": 1, "method": method, "params": params}) + "\n")
        answer = json.loads(self.process.stdout.readline())
        if "error" in answer:
            raise Refused(json.dumps(answer["error"], ensure_ascii=False))
        return answer["result"]

    def let(self, member, value):
        self.ask("let", {"object": self.object, "member": member, "value": value})

    def get(self, member):
        return self.ask("get", {"object": self.object, "member": member})["value"]

    def call(self, member, *arguments):
        result = self.ask("call", {"object": self.object, "member": member, "args": list(arguments)})["value"]
        self.operations += 1
        if result is False:
            raise Refused(member + ": " + self.get("Error"))

    def round(self, number, amount):
        self.ask("call", {"object": self.object, "member": "NuevoReciboCaja"})
        self.let("RpEncabezado", HEADER)
        self.let("RpDetalle", {**LINE, "Rp_Importe": amount})
        self.call("Add_Recibo_Caja_Detalle")
        receipt = self.get("RpEncabezado")["Rp_Folio"]
        self.call("FinReciboCaja", receipt)
        self.call("Genera_Deposito", "SRR-MXN", receipt, "2024-03-15", True, "2024-03-15")
        self.ask("call", {"object": self.object, "member": "Nuevo"})
        self.let("Encabezado", {**TRANSFER, "Ch_Referencia": str(number)})
        self.let("Detalle", {"Ch_Concepto": "Préstamo", "Mn_Cve_Moneda": "MXN", "Ch_Tipo_Cambio": 1,
                             "Ch_Importe": amount / 4})
        self.call("Add_Cheque_Detalle")
        self.call("Crear_Cheque_Deudor")
        if number % 2:
            self.call("Cancelar_Cheque", self.get("Encabezado")["Ch_Folio"])
            self.call("Cancelar_Recibo_Caja", receipt, True, True)

    def work(self, first, rounds):
        for number in range(first, first + rounds):
            try:
                self.round(number, 100.37 + number % 97)
            except Refused as refusal:
                self.failures.append(str(refusal))

    def stop(self):
        self.process.stdin.close()
        self.process.wait()


def show(program, database, view):
    done = subprocess.run([program, "show", view, "--json", "--db", database], capture_output=True, text=True, check=True)
    return json.loads(done.stdout)


def run(program, database, users, rounds, first, folder):
    traces = [os.path.join(folder, f"trace-{users}-{i}") for i in range(users)]
    company = [User(program, database, trace) for trace in traces]
    threads = [threading.Thread(target=user.work, args=(first + i * rounds, rounds)) for i, user in enumerate(company)]
    start = time.monotonic()
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    seconds = time.monotonic() - start
    for user in company:
        user.stop()
    failures = [failure for user in company for failure in user.failures]
    operations = sum(user.operations for user in company)
    statements = sum(sum(1 for _ in open(trace, encoding="utf-8")) for trace in traces)
    print(f"{users:3} users: {operations / seconds:8.1f} operations/s, {statements / seconds:8.1f} statements/s, "
          f"{statements / max(operations, 1):.1f} statements per operation, {len(failures)} failures", flush=True)
    return failures


def folios_without_gap(rows, column):
    """The folios of a view, each once and counting from 1."""
    numbers = collections.Counter(row[column] for row in rows)
    counted = sorted(int(folio.rsplit("-", 1)[1]) for folio in numbers)
    return counted == list(range(1, len(counted) + 1))


def verify(program, database):
    wrong = []
    audit = subprocess.run([program, "audit", "--db", database], capture_output=True, text=True)
    if audit.returncode != 0:
        wrong.append("audit: " + audit.stdout + audit.stderr)
    movements = show(program, database, "movements")
    if len({row["Bm_Folio"] for row in movements}) != len(movements):
        wrong.append("a movement's folio was given twice")
    if not folios_without_gap(movements, "Bm_Folio"):
        wrong.append("a movement is missing")
    for view, column in (("receipts", "Rp_Folio"), ("deposits", "Dp_Folio"), ("checks", "Ch_Folio")):
        if not folios_without_gap(show(program, database, view), column):
            wrong.append("a folio is missing among the " + view)
    return wrong


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("database")
    parser.add_argument("--users", default="1,2,4,8,16")
    parser.add_argument("--rounds", type=int, default=5)
    options = parser.parse_args()
    subprocess.run([options.program, "init", "--sample", "--db", options.database], check=True, stdout=subprocess.DEVNULL)
    wrong, first = [], 1
    with tempfile.TemporaryDirectory() as folder:
        for users in map(int, options.users.split(",")):
            wrong += run(options.program, options.database, users, options.rounds, first, folder)
            first += users * options.rounds
    wrong += verify(options.program, options.database)
    for text in wrong:
        print(text)
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
