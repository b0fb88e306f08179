#!/usr/bin/python3
"""Every statement of the product is T-SQL: those that the files of tests/statements tell, and the trace of a full run of
the program, with the demonstration, the views, the suite's administration and the audit, parse with a parser of that
dialect. Two statements must fail by contract, and do: the balance of firm movements is no statement, and the cancellation
of the deposit of a receipt whose lines are in two states has a sub-select that gives two values.

    tsql_test.py CUVEXA

CUVEXA is the program. The status is 77 where the parser (package python3-sqlglot) is not installed; then, with
CUVEXA_TEST_MUST_RUN=1, it is a failure.
"""
import contextlib
import glob
import json
import os
import re
import sqlite3
import subprocess
import sys
import tempfile

from users import ACCOUNT, Refused, User

try:
    import sqlglot
    from sqlglot.errors import SqlglotError
except ImportError:
    print("no T-SQL parser (package python3-sqlglot)")
    sys.exit(1 if os.environ.get("CUVEXA_TEST_MUST_RUN") else 77)


def run(program, *arguments, input=None):
    done = subprocess.run([program, *arguments], input=input, capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{' '.join(arguments)}: {done.stdout}{done.stderr}")
    return done.stdout


def is_statement(text):
    try:
        trees = sqlglot.parse(text, read="tsql")
    except SqlglotError:
        return False
    return len(trees) == 1 and trees[0] is not None


# The parser knows neither the OUTPUT clause nor a join in the FROM of an UPDATE, which T-SQL has. The clause is taken
# out; the FROM and all that follows are read as those of a SELECT.
OUTPUT = re.compile(r" OUTPUT inserted\.\w+(?= (WHERE|SELECT) )")
JOINED = re.compile(r"(UPDATE .*? )(FROM \w+ +INNER JOIN .*)", re.DOTALL)


def without_output(statement):
    return OUTPUT.sub("", statement) if statement.startswith(("UPDATE ", "INSERT ")) else statement


def parses(statement):
    text = without_output(statement)
    if is_statement(text):
        return True
    joined = JOINED.fullmatch(text)
    return joined is not None and is_statement(joined[1]) and is_statement("SELECT 1 " + joined[2])


def told():
    """The statements of the files, as (file, text, whether the database refuses it). A line break stands for a blank."""
    folder = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "statements")
    for path in sorted(glob.glob(os.path.join(folder, "**", "*.sql"), recursive=True)):
        lines, refused = [], False
        with open(path, encoding="utf-8") as content:
            for line in content.read().splitlines():
                if not lines and (not line or line.startswith("--")):
                    refused = line == "-- The database refuses this one:"
                    continue
                lines.append(line)
                if line.endswith(";"):
                    yield os.path.basename(path), " ".join(lines)[:-1], refused
                    lines = []


def told_failures():
    """What the files tell and does not parse, but for the one that must not."""
    statements = list(told())
    refused = [(file, parses(text)) for file, text, refused in statements if refused]
    if len(statements) < 180 or refused != [("GetSaldo.sql", False)]:
        sys.exit(f"{len(statements)} statements in the files, and the database refuses {refused}")
    print(f"{len(statements)} statements in the files")
    return [text for _, text, refused in statements if not refused and not parses(text)]


def statements_of(trace):
    with open(trace, encoding="utf-8") as lines:
        return [json.loads(line) for line in lines]


def statements_that_must_fail(program, database, trace):
    """What failed of the trace of the two."""
    user = User(program, database, trace)
    saldo = user.ask("call", {"object": user.object, "member": "GetSaldo", "args": [ACCOUNT, True]})["value"]
    answers = [saldo == 0 and user.get("Error").startswith("Cuvexa.dll - GetSaldo()\r\n")]
    receipt = user.receive(10000, lines=2, between=lambda folio: applied(database, folio))
    try:
        user.call("Cancelar_Deposito", receipt.deposit)
    except Refused as refusal:
        answers.append(str(refusal).startswith("Cancelar_Deposito: Cuvexa.dll - Cancelar_Deposito()\r\n"))
    user.stop()
    if answers != [True, True]:
        sys.exit("the operations whose statements must fail did not say so")
    return [entry for entry in statements_of(trace) if entry["error"]]


def applied(database, folio):
    """One of the receipt's lines is applied, which no operation does to one line alone."""
    with contextlib.closing(sqlite3.connect(database)) as rows, rows:
        rows.execute("UPDATE Recibo_Pago SET Es_Cve_Estado = 'AP' WHERE Rp_Folio = ? AND Rp_Id = '0002'", (folio,))


def main():
    program = sys.argv[1]
    with tempfile.TemporaryDirectory() as folder:
        database = os.path.join(folder, "muestra.db")
        trace = os.path.join(folder, "trace")
        options = ["--db", database, "--trace", trace]
        run(program, "init", "--sample", *options)
        run(program, "demo", *options)
        run(program, "audit", *options)
        for view in ("receipts", "deposits", "movements", "accounts", "checks", "requests", "budgets", "advances",
                     "receivables", "payables", "vouchers"):
            run(program, "show", view, *options)
        run(program, "parameter", "list", *options)
        run(program, "suite", "show", *options)

        good = statements_of(trace)

        failing = statements_that_must_fail(program, database, os.path.join(folder, "failing"))

    failures = told_failures() + [entry["text"] for entry in good if not parses(entry["text"])]
    for text in failures:
        print("does not parse:", text)
    failed = [entry for entry in good if entry["error"]]
    for entry in failed:
        print("failed on the way:", entry["text"], entry["error"])
    expected = [("SELECT SUM(Bm_Importe) as Saldo ", False),
                ("UPDATE Recibo_Pago SET    Es_Cve_Estado = (SELECT ", True)]
    if len(failing) != 2 or any(not entry["text"].startswith(text) or parses(entry["text"]) != parsing
                                for entry, (text, parsing) in zip(failing, expected)):
        print("these two were expected to fail:", expected, "and these did:", failing)
        failures.append("")
    shapes = len({entry["text"] for entry in good})
    print(f"{len(good)} statements, {shapes} different, {len(failures)} that do not parse")
    sys.exit(1 if failures or failed or len(good) < 500 else 0)


if __name__ == "__main__":
    main()
