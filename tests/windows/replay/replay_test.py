"""The JSON-RPC scripts of the other tests, replayed through Cuvexa.dll by late binding.

    replay_test.py WITH_WINE WINDOWS_BIN NATIVE_BUILD

Every script runs on a fresh sample company three times: in the program for this machine, and in the library of WINDOWS_BIN over
its own reference suite and over the one that CuvexaSuite.dll publishes. The answers must be the same byte for byte, the
databases row by row, the statements text by text; but for the look-ups of the published suite, which nobody tells where
an operation begins: it reads one by one what the other reads together.

The scripts: the first session of the examples, a row of refusals written here, and random sequences of the property tests.
"""

import json
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile

SKIP = 1 if os.environ.get("CUVEXA_TEST_MUST_RUN") else 77
SEEDS = (1, 2, 3)
SERVER_DATE = "2024-03-15T10:20:30"
USER = "MARÍA"
LOOKED_UP = {"parametro_sistema", "servidor_suite", "configuracion_contable", "banco_tipo_movimiento", "cliente", "proveedor",
             "sucursal", "tipo_cheque"}


def request(number, method, **params):
    return json.dumps({"jsonrpc": "2.0", "id": number, "method": method, "params": params}, ensure_ascii=False)


def refusals():
    """One call after another that the component refuses, and what it says about each."""
    strange = ("", "NO-EXISTE", "Ñandú's", 'comilla " doble', "日本 🙂", "x" * 300)
    calls = [(member, [folio]) for folio in strange for member in (
        "Cancelar_Deposito", "FinReciboCaja", "Cancelar_Cheque", "Registra_Movimiento_Bancario_Cheque",
        "Cancelar_Aplicacion_Cheque", "Crear_Cheque", "Cancelar_Movimiento_Bancos", "Cancelar_Recibo_Caja", "GetSaldo",
        "Crear_Cheque_Pago_Proveedor", "Crear_Cheque_Devolucion_Anticipo", "Finalizar_Cheque", "Autorizar_Solicitud_Cheque",
        "Cancelar_Solicitud_Cheque")]
    calls += [(member, []) for member in (
        "Add_Recibo_Caja_Detalle", "Add_Cheque_Detalle", "Crear_Cheque_Anticipo_Cxp", "Crear_Cheque_Devolucion_Cliente",
        "Crear_Cheque_Gasto_x_Comprobar", "Crear_Cheque_Deudor", "Crear_Traspaso_Cuenta_Propia", "Add_Solicitud_Cheque",
        "Add_Solicitud_Cheque_Detalle")]
    calls += [
        ("Aplicar_Cheque", ["NO-EXISTE", "2024-03-15"]),
        ("Aplicar_Cheque", ["NO-EXISTE", "2024-03-15", True]),
        ("Genera_Deposito", ["SRR-OLD", "RP-1", "2024-03-15", True, "2024-03-15"]),
        ("Genera_Deposito", ["SRR-MXN", "RP-1, RP-2", "2024-03-15T23:59:59", False, "1899-12-30", "Corte del día"]),
        ("Registra_Movimiento_Banco", [{"Bt_Cve_Banco_Tipo_Movimiento": "ANT", "Cuenta": {"Bc_Cve_Banco_Cuenta": "SRR-MXN"}}]),
        ("Registra_Movimiento_Banco", [{"Bt_Cve_Banco_Tipo_Movimiento": "INT", "Bm_Fecha": "2024-03-15",
                                        "Bm_Fecha_Firme": "2024-03-15", "Bm_Importe": 12.34, "Bm_Tipo_Cambio": 1,
                                        "Cuenta": {"Bc_Cve_Banco_Cuenta": "SRR-MXN"}}]),
        ("Afectar_Cheque_Presupuesto", ["NO-EXISTE", 1]),
        ("Afectar_Cheque_Presupuesto", ["NO-EXISTE", 40000]),
        ("Cancelar_Documento_Bancos", ["CHEQUE", "NO-EXISTE"]),
        ("Registrar_Deposito_Recibo_Caja", ["RP-1", "SRR-MXN"]),
        ("GetSaldo", ["SRR-MXN", True]),
        ("NoExiste", []),
    ]
    lines = [request(0, "create", **{"class": "Tesoreria"})]
    for member, arguments in calls:
        lines.append(request(len(lines), "call", object=1, member=member, args=arguments))
        lines.append(request(len(lines), "get", object=1, member="Error"))
    for member in ("RpDetalle2", "RpEncabezado", "Encabezado", "SchEncabezado", "Detalle", "FolioMovimiento", "Dp_Folio"):
        lines.append(request(len(lines), "get", object=1, member=member))
    lines.append(request(len(lines), "create", **{"class": "clsRpDetalle"}))
    lines.append(request(len(lines), "let", object=2, member="Rp_Vendedor", value="Peña ☂"))
    lines.append(request(len(lines), "let", object=1, member="RpDetalle2", value={"object": 2}))
    lines.append(request(len(lines), "get", object=1, member="RpDetalle2"))
    lines.append(request(len(lines), "get", object=3, member="Rp_Vendedor"))
    lines.append(request(len(lines), "let", object=1, member="Ch_Banco_Destino", value="PTO-MXN"))
    lines.append(request(len(lines), "get", object=1, member="Ch_Banco_Destino"))
    return "\n".join(lines) + "\n"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def statements(trace):
    return [json.loads(line).get("text", line) for line in trace.read_text(encoding="utf-8").splitlines()]


def without_look_ups(texts):
    def looks_up(text):
        tables = {table.lower() for table in re.findall(r"\bFROM (\w+)", text)}
        return text.startswith("SELECT ") and bool(tables) and tables <= LOOKED_UP

    return [text for text in texts if not looks_up(text)]


def dump(database):
    with sqlite3.connect(database) as connection:
        return list(connection.iterdump())


class Replay:
    def __init__(self, with_wine, windows, native, folder):
        self.with_wine, self.windows, self.native, self.folder = with_wine, windows, native, folder
        self.failures = 0
        self.sample = folder / "sample.db"
        subprocess.run([native / "bin" / "cuvexa", "init", "--sample", "--db", self.sample], check=True, stdout=subprocess.DEVNULL)

    def register(self, library, undo=False):
        flags = ["/s", "/u"] if undo else ["/s"]
        subprocess.run([self.with_wine, "regsvr32", *flags, windows_path(self.windows / library)], check=True,
                       env=self.environment(None, None))

    def environment(self, database, trace):
        environment = dict(os.environ, CUVEXA_WINE_PREFIX=str(self.folder / "wine"), CUVEXA_SERVER_DATE=SERVER_DATE,
                           CUVEXA_USER=USER, CUVEXA_SYNCHRONOUS="off")
        if database:
            environment.update(CUVEXA_DB=windows_path(database), CUVEXA_TRACE=windows_path(trace))
        return environment

    def run(self, name, script, command, environment):
        database, trace = self.folder / f"{name}.db", self.folder / f"{name}.trace"
        shutil.copy(self.sample, database)
        answers = subprocess.run(command(database, trace), input=script.encode(), stdout=subprocess.PIPE, check=True,
                                 env=environment(database, trace)).stdout
        return answers, statements(trace), dump(database)

    def native_run(self, name, script):
        return self.run(name, script, lambda database, trace: [
            self.native / "bin" / "cuvexa", "rpc", "--db", database, "--trace", trace, "--server-date", SERVER_DATE,
            "--user", USER, "--synchronous", "off"], lambda database, trace: None)

    def library_run(self, name, script):
        return self.run(name, script,
                        lambda database, trace: [self.with_wine, self.windows / "cuvexa_windows_replay.exe"], self.environment)

    def compare(self, name, door, expected, found):
        if door == "CuvexaSuite":
            expected, found = ((answers, without_look_ups(texts), rows) for answers, texts, rows in (expected, found))
        for what, ours, theirs in zip(("answers", "statements", "rows"), expected, found):
            if ours == theirs:
                continue
            self.failures += 1
            ours, theirs = ((part.splitlines() if isinstance(part, bytes) else part) for part in (ours, theirs))
            at = next((i for i, pair in enumerate(zip(ours, theirs)) if pair[0] != pair[1]), min(len(ours), len(theirs)))
            print(f"DIFFERENT {name}, {door}: {what}, line {at + 1}\n  program: {ours[at:at + 1]}\n  library: {theirs[at:at + 1]}")

    def replay(self, scripts):
        expected = {name: self.native_run(name, script) for name, script in scripts.items()}
        self.register("Cuvexa.dll")
        for door in ("fallback", "CuvexaSuite"):
            if door == "CuvexaSuite":
                self.register("CuvexaSuite.dll")
            for name, script in scripts.items():
                self.compare(name, door, expected[name], self.library_run(f"{name}-{door}", script))
                print(f"{name}, {door}: {len(expected[name][0].splitlines())} answers, {len(expected[name][1])} statements")


def property_scripts(native, folder):
    seeds = ":".join(f"*/seed_{seed}" for seed in SEEDS)
    subprocess.run([native / "bin" / "cuvexa_properties_tests", "--gtest_brief=1", f"--gtest_filter={seeds}"], check=True,
                   stdout=subprocess.DEVNULL, env=dict(os.environ, CUVEXA_SCRIPTS=str(folder)))
    return {path.stem: path.read_text() for path in sorted(folder.glob("seed_*.jsonl"))}


def main():
    with_wine, windows, native = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    for program in ("cuvexa", "cuvexa_properties_tests"):
        if not (native / "bin" / program).exists():
            print(f"replay_test: no {program} for this machine in {native}")
            return SKIP
    if subprocess.run(["sh", "-c", "command -v wine"], stdout=subprocess.DEVNULL).returncode:
        print("replay_test: no Wine")
        return SKIP
    first = pathlib.Path(__file__).resolve().parents[3] / "examples" / "first_session.jsonl"
    with tempfile.TemporaryDirectory(prefix="cuvexa-replay-") as name:
        folder = pathlib.Path(name)
        scripts = {"first_session": first.read_text(), "refusals": refusals(), **property_scripts(native, folder)}
        if len(scripts) != 2 + len(SEEDS):
            print("replay_test: the property tests left no scripts")
            return 1
        replay = Replay(with_wine, windows, native, folder)
        replay.replay(scripts)
        return 1 if replay.failures else 0


if __name__ == "__main__":
    sys.exit(main())
