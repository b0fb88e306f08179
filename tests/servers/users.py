"""Users that work on one database at once, each a program of its own: they capture receipts, deposit them, write checks
and take half of it back. Each keeps a journal of what the program acknowledged, and of what it left in doubt.
"""
import contextlib
import json
import os
import re
import shlex
import subprocess
import tempfile
import threading
import time
import urllib.parse

ACCOUNT = "SRR-MXN"
DAY = "2024-03-15"
HEADER = {"Rp_Fecha": DAY, "Rp_Fecha_Deposito": DAY, "Sucursal": {"Sc_Cve_Sucursal": "MTY"},
          "TipoReciboPago": {"Trp_Cve_Tipo_Recibo_Pago": "01"}, "Mn_Cve_Moneda": "MXN", "Rp_Tipo_Cambio": 1}
LINE = {"Fp_Cve_Forma_Pago": {"Fp_Cve_Forma_Pago": "01"}}
CHECK = {"Ch_Fecha": DAY, "Tc_Cve_Tipo_Cheque": "0004", "Ch_Transferencia": "NO", "Ch_Concepto": "Préstamo",
         "Ch_Beneficiario": "Empleado", "Bc_Cve_Banco_Cuenta": ACCOUNT, "Mn_Cve_Moneda": "MXN", "Ch_Tipo_Cambio": 1,
         "Ch_Solicitar_Valor": "DE01", "Sucursal": {"Sc_Cve_Sucursal": "MTY"}}


class Refused(Exception):
    """An operation that answered False, or a request that failed; the text says why."""


class Died(Exception):
    """The program ended before it answered; the text is what it wrote to standard error."""


class Document:
    """A receipt or a check as its user knows it."""

    def __init__(self, kind, cents):
        self.kind, self.cents = kind, cents
        self.folio = self.deposit = None
        self.stage = None  # the last operation that was acknowledged
        self.doubt = None  # the operation that was begun and not acknowledged

    @contextlib.contextmanager
    def becoming(self, stage):
        self.doubt = stage
        yield
        self.stage, self.doubt = stage, None


class User:
    """One program, and the object in it."""

    def __init__(self, program, database, trace):
        self.command = [program, "rpc", "--db", database, "--trace", trace, "--server-date", DAY]
        self.trace = trace
        self.documents = []
        self.operations = 0
        self.failures = []
        self.start()

    def start(self):
        self.process = subprocess.Popen(self.command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True, bufsize=1)
        self.object = self.ask("create", {"class": "Tesoreria"})["object"]

    def stop(self):
        self.process.stdin.close()
        self.process.wait()

    def answer(self):
        return self.process.stdout.readline()

    def ask(self, method, params):
        request = json.dumps({"jsonrpc": "2.0", "id": 1, "method": method, "params": params}) + "\n"
        try:
            self.process.stdin.write(request)
            line = self.answer()
        except BrokenPipeError:
            line = ""
        if not line.endswith("\n"):
            raise Died(self.process.stderr.read())
        answer = json.loads(line)
        if "error" in answer:
            raise Refused(json.dumps(answer["error"], ensure_ascii=False))
        return answer["result"]

    def let(self, member, value):
        self.ask("let", {"object": self.object, "member": member, "value": value})

    def get(self, member):
        return self.ask("get", {"object": self.object, "member": member})["value"]

    def run(self, member):
        self.ask("call", {"object": self.object, "member": member})

    def call(self, member, *arguments):
        """An operation; it answers True or its reason is raised."""
        result = self.ask("call", {"object": self.object, "member": member, "args": list(arguments)})["value"]
        if result is False:
            raise Refused(member + ": " + self.get("Error"))
        self.operations += 1

    def begin(self, kind, cents):
        self.documents.append(Document(kind, cents))
        return self.documents[-1]

    def round(self, number):
        cents = 10037 + 101 * number  # no two rounds alike
        receipt, check = self.receive(cents), self.pay(cents // 4, number)
        if number % 2:
            with check.becoming("cancelled"):
                self.call("Cancelar_Cheque", check.folio)
            with receipt.becoming("cancelled"):
                self.call("Cancelar_Recibo_Caja", receipt.folio, True, True)

    def receive(self, cents, lines=1, between=None):
        """A receipt, closed and deposited; `between` is done with its folio before the deposit."""
        receipt = self.begin("receipt", cents * lines)
        self.run("NuevoReciboCaja")
        self.let("RpEncabezado", HEADER)
        self.let("RpDetalle", {**LINE, "Rp_Importe": cents / 100})
        with receipt.becoming("captured"):
            for _ in range(lines):
                self.call("Add_Recibo_Caja_Detalle")
        receipt.folio = self.get("RpEncabezado")["Rp_Folio"]
        with receipt.becoming("closed"):
            self.call("FinReciboCaja", receipt.folio)
        if between:
            between(receipt.folio)
        with receipt.becoming("deposited"):
            self.call("Genera_Deposito", ACCOUNT, receipt.folio, DAY, True, DAY)
        receipt.deposit = self.get("Dp_Folio")
        return receipt

    def pay(self, cents, number):
        check = self.begin("check", cents)
        self.run("Nuevo")
        self.let("Encabezado", {**CHECK, "Ch_Referencia": str(number)})
        self.let("Detalle", {"Ch_Concepto": "Préstamo", "Mn_Cve_Moneda": "MXN", "Ch_Tipo_Cambio": 1,
                             "Ch_Importe": cents / 100})
        with check.becoming("created"):
            self.call("Crear_Cheque_Deudor")
        check.folio = self.get("Encabezado")["Ch_Folio"]
        return check

    def work(self, numbers):
        for number in numbers:
            try:
                self.round(number)
            except Refused as refusal:
                self.failures.append(str(refusal))

    def work_to_the_end(self, numbers):
        """In a thread nobody would hear of an exception."""
        try:
            self.work(numbers)
        except Exception as failure:
            self.failures.append(f"stopped working: {failure!r}")


def work_at_once(users, rounds):
    """Every user does so many rounds, all of them at once."""
    threads = [threading.Thread(target=user.work_to_the_end, args=(range(i * rounds, (i + 1) * rounds),))
               for i, user in enumerate(users)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()


class Databases:
    """Databases with the sample company, as many as wanted: on the server that CUVEXA_TEST_DB names and with_postgresql
    started, or files that are thrown away. A server that somebody else keeps gives the one that is named, which must be
    empty.
    """

    def __init__(self, program):
        self.program = program
        self.named = os.environ.get("CUVEXA_TEST_DB")
        self.own_server = self.named is not None and "CUVEXA_TEST_SERVER" in os.environ
        self.folder = tempfile.TemporaryDirectory(prefix="cuvexa-")
        self.count = 0

    def fresh(self):
        self.count += 1
        if self.named is None:
            database = self.scratch(f"{self.count}.db")
        elif self.own_server:
            name = f"company_{os.getpid()}_{self.count}"
            self.tool("createdb", name)
            database = re.sub(r"(Database=|:\d+/)\w+", r"\g<1>" + name, self.named)
        elif self.count == 1:
            database = self.named
        else:
            raise SystemExit("the server gives one database only")
        subprocess.run([self.program, "init", "--sample", "--db", database], check=True, stdout=subprocess.DEVNULL)
        return database

    def scratch(self, name):
        return os.path.join(self.folder.name, name)

    def wait_for_sessions(self, database):
        """What a program that was killed had sent, the server may still be doing."""
        if not self.own_server:
            return
        name = re.search(r"(?:Database=|:\d+/)(\w+)", database)[1]
        sessions = ("SELECT COUNT(*) FROM pg_stat_activity "
                    f"WHERE datname = '{name}' AND pid <> pg_backend_pid() AND backend_type = 'client backend'")
        end = time.monotonic() + 60
        while self.tool("psql", "-At", "-d", name, "-c", sessions).strip() != "0":
            if time.monotonic() > end:
                raise SystemExit("a session of a program that was killed does not end")
            time.sleep(0.01)

    def tool(self, tool, *arguments):
        """A client program of PostgreSQL, on the server."""
        binaries = os.path.dirname(shlex.split(os.environ["CUVEXA_TEST_SERVER"])[0])
        server = urllib.parse.urlsplit(os.environ["CUVEXA_TEST_URI"])
        command = [os.path.join(binaries, tool), "-h", server.hostname, "-p", str(server.port), "-U", server.username]
        done = subprocess.run([*command, *arguments], env={**os.environ, "PGPASSWORD": server.password},
                              capture_output=True, text=True)
        if done.returncode != 0:
            raise SystemExit(f"{tool}: {done.stderr}")
        return done.stdout

    def log(self):
        """What the server wrote down."""
        if not self.own_server:
            return ""
        with open(os.environ["CUVEXA_TEST_SERVER_LOG"], encoding="utf-8", errors="replace") as log:
            return log.read()
