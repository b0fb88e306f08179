#!/usr/bin/python3
"""A value never becomes part of a statement. Every text in every statement that the files of tests/statements tell is taken
for a hole and filled with hostile values: each is refused before anything is sent, or an independent parser of T-SQL finds
one statement with the tree of a harmless value. Then the members are called with such values as their arguments on the
sample company: whatever is refused leaves the whole database as it was. Where CUVEXA_TEST_DB names a server (with_postgresql
starts one), the members are called on that server, and the statements are left to the run without one.

    values_test.py CUVEXA COMPOSE [--values N] [--parsed N] [--seed N]
    with_postgresql values_test.py CUVEXA COMPOSE

CUVEXA is the program, COMPOSE what composes statements as the product does (cuvexa_compose). N values per hole are
composed, and of those that pass, N are parsed (0: all). The status is 77 where the parser (package python3-sqlglot) is not
installed; then, with CUVEXA_TEST_MUST_RUN=1, it is a failure.
"""
import argparse
import glob
import json
import os
import random
import re
import sqlite3
import subprocess
import sys
import tempfile

from tsql_test import JOINED, told, without_output

import sqlglot
from sqlglot import exp
from sqlglot.errors import SqlglotError

# What people who attack a statement try, and what engines read in different ways.
PIECES = ["'", "''", "'''", "''''", "x", " ", " OR ", "1=1", "0", "--", "/*", "*/", ";", "DELETE Banco", "0DELETE Banco",
          "1.DELETE Banco", "1e0DELETE Banco", "0xINSERT", ")", "(", ",", "VALUES", " SELECT 7 AS siete INTO Hackt FROM Banco ",
          "UNION SELECT 1", "USE master", "COMMIT", "CHECKPOINT", "SET NOCOUNT ON", "WAITFOR DELAY '1'", "EXEC xp",
          "\u00a0", "\u3000", "\u200b", "\uff07", "\u2019", "\\", "\\'", "N'", "E'", "[", "]", '"', "{}", "@a", "?", "%",
          "\n", "\r\n", "\t", "é", "Ñ", "😀", "ON CONFLICT DO UPDATE SET a=1", "\x01", "AND", "LIKE", "=", "<>", "+", "-1"]
KNOWN = ["x' OR '1'='1", "x'' OR ''1''=''1", "x' OR 1=0DELETE Banco WHERE 'a'<>'", "O'Higgins", "O''Higgins", "'", "''", "'''",
         "'); DELETE FROM Banco; --", "x') SELECT 7 AS siete INTO Hackt FROM Banco WHERE ('1'='1", "\\'; DROP TABLE Banco --",
         "x'\u00a0OR\u00a0'1'='1", "a','b", "a'',''b", "a' + (SELECT 1) + 'b"]


SERVER = os.environ.get("CUVEXA_TEST_DB")


def hostile(count, seed):
    values, chance = list(KNOWN), random.Random(seed)
    while len(values) < count:
        values.append("".join(chance.choice(PIECES) for _ in range(chance.randint(1, 8))))
    return values


def holes(statement):
    """The statement with one text after the other replaced by a hole."""
    for text in re.finditer(r"'(?:[^']|'')*'", statement):
        yield statement[:text.start()] + "'{}'" + statement[text.end():]


def trees(text):
    text = without_output(text)
    try:
        return sqlglot.parse(text, read="tsql")
    except SqlglotError:
        joined = JOINED.fullmatch(text)
        if joined is None:
            raise
        return sqlglot.parse(joined[1], read="tsql") + sqlglot.parse("SELECT 1 " + joined[2], read="tsql")


def form(text, value):
    """The trees of a text with a mark where the value stands."""
    content, found = value.replace("''", "'"), trees(text)
    for tree in found:
        for literal in tree.find_all(exp.Literal):
            if literal.is_string and literal.this == content:
                literal.set("this", "the value")
    return [repr(tree) for tree in found]


def check_statements(options):
    chance, values = random.Random(options.seed), hostile(options.values, options.seed)
    literals = sorted({hole for _, text, refused in told() if not refused for hole in holes(text) if "{}" not in text})
    questions = "".join(json.dumps({"literal": literal, "values": values}) + "\n" for literal in literals)
    answers = subprocess.run([options.compose], input=questions, capture_output=True, text=True, check=True).stdout
    refused = parsed = 0
    for literal, line in zip(literals, answers.splitlines(), strict=True):
        passed = [(value, text) for value, text in zip(values, json.loads(line), strict=True) if text is not None]
        refused += len(values) - len(passed)
        for value, text in passed:
            if re.search(r"(?<!')'(?:'')*(?!')", value):
                sys.exit(f"a lone apostrophe passed: {value!r} in {literal}")
        if options.parsed:
            passed = chance.sample(passed, min(options.parsed, len(passed)))
        harmless = form(literal.replace("{}", "harmless"), "harmless")
        for value, text in passed:
            parsed += 1
            if form(text, value) != harmless:
                sys.exit(f"{value!r} changes the meaning of {literal}")
    print(f"{len(literals)} holes, {len(literals) * len(values)} values, {refused} refused, {parsed} parsed: one statement each, "
          "of the meaning of a harmless value")
    if len(literals) < 300 or refused < len(literals) or parsed < len(literals):
        sys.exit("that is not all of it")


# Finalizar_Cheque is not among them: it registers whatever folio it is given.
CALLS = [("Cancelar_Deposito", 1), ("Cancelar_Cheque", 1), ("Cancelar_Aplicacion_Cheque", 1), ("Cancelar_Recibo_Caja", 1),
         ("Cancelar_Movimiento_Bancos", 1), ("Cancelar_Documento_Bancos", 2), ("Cancelar_Solicitud_Cheque", 1),
         ("Autorizar_Solicitud_Cheque", 1), ("FinReciboCaja", 1), ("GetSaldo", 1),
         ("Registra_Movimiento_Bancario_Cheque", 1)]


def requests(values):
    yield {"method": "create", "params": {"class": "Tesoreria"}}
    for value in values:
        for member, arguments in CALLS:
            yield {"method": "call", "params": {"object": 1, "member": member, "args": [value] * arguments}}
            yield {"method": "get", "params": {"object": 1, "member": "Error"}}
        for arguments in ([value, "2024-03-15"], ["CH-MTY-00000001", "2024-03-15"]):
            yield {"method": "call", "params": {"object": 1, "member": "Aplicar_Cheque", "args": arguments}}
        for account, folio in ((value, "R1"), ("SRR-MXN", value), ("SRR-MXN", "R1," + value)):
            yield {"method": "call", "params": {"object": 1, "member": "Genera_Deposito",
                                                "args": [account, folio, "2024-03-15", True, "2024-03-15", value]}}
        movement = {"Bt_Cve_Banco_Tipo_Movimiento": "INT", "Bm_Fecha": "2024-03-15", "Bm_Fecha_Firme": "2024-03-15",
                    "Cuenta": {"Bc_Cve_Banco_Cuenta": value}, "Bm_Importe": 1, "Bm_Tipo_Cambio": 1}
        yield {"method": "call", "params": {"object": 1, "member": "Registra_Movimiento_Banco", "args": [movement]}}


def content_of_server():
    """Every table, row and definition of a PostgreSQL database; an update that changes nothing may move a row."""
    programs = sorted(glob.glob("/usr/lib/postgresql/*/bin/pg_dump"))
    dump = subprocess.run([programs[-1], "--inserts", os.environ["CUVEXA_TEST_URI"]], check=True, capture_output=True, text=True)
    # The marks around the whole are others each time.
    return sorted(line for line in dump.stdout.splitlines() if not line.startswith(("\\restrict ", "\\unrestrict ")))


def content(database):
    if database == SERVER:
        return content_of_server()
    with sqlite3.connect(database) as connection:
        return list(connection.iterdump())


def check_members(options):
    values = [value for value in hostile(150, options.seed + 1) if "\x00" not in value]
    with tempfile.TemporaryDirectory(prefix="cuvexa-") as folder:
        database = SERVER or os.path.join(folder, "company.db")
        subprocess.run([options.cuvexa, "init", "--sample", "--db", database], check=True, capture_output=True)
        before = content(database)
        if not any("Sierra, operación en pesos" in line for line in before):
            sys.exit("the content of the database cannot be seen")
        lines = "".join(json.dumps({"jsonrpc": "2.0", "id": number, **request}) + "\n"
                        for number, request in enumerate(requests(values), 1))
        done = subprocess.run([options.cuvexa, "rpc", "--db", database, "--synchronous", "off", "--server-date", "2024-03-15"],
                              input=lines, capture_output=True, text=True, check=True)
        answers = [json.loads(line) for line in done.stdout.splitlines()]
        succeeded = [line for line, answer in zip(lines.splitlines(), answers, strict=True)
                     if isinstance(answer.get("result"), dict) and answer["result"].get("value") is True]
        if succeeded or content(database) != before:
            changed = set(content(database)) ^ set(before)
            sys.exit(f"{len(succeeded)} calls gave True: {succeeded[:3]}; {len(changed)} rows changed: {sorted(changed)[:3]}")
    print(f"{len(answers)} answers to hostile arguments: every row of the database is as it was")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("cuvexa")
    parser.add_argument("compose")
    parser.add_argument("--values", type=int, default=3000)
    parser.add_argument("--parsed", type=int, default=6)
    parser.add_argument("--seed", type=int, default=20240315)
    options = parser.parse_args()
    if not SERVER:
        check_statements(options)
    check_members(options)


main()
