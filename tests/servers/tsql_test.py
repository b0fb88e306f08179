#!/usr/bin/python3
"""Every statement of a full run is T-SQL: the trace of the demonstration, the suite's administration and the audit parses
with a parser of that dialect, but for the statements that must fail by contract.

    tsql_test.py CUVEXA

CUVEXA is the program. The status is 77 where the parser (package python3-sqlglot) is not installed.
"""
import json
import os
import re
import subprocess
import sys
import tempfile

try:
    import sqlglot
    from sqlglot.errors import SqlglotError
except ImportError:
    print("no T-SQL parser (package python3-sqlglot)")
    sys.exit(77)


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


# The parser knows neither the OUTPUT clause nor a join in the FROM of an UPDATE, which T-SQL has. The clause is taken out;
# the FROM and all that follows are read as those of a SELECT.
OUTPUT = re.compile(r" OUTPUT inserted\.\w+(?= WHERE )")
JOINED = re.compile(r"(UPDATE .*? )(FROM \w+ +INNER JOIN .*)", re.DOTALL)


def parses(statement):
    text = OUTPUT.sub("", statement) if statement.startswith("UPDATE ") else statement
    if is_statement(text):
        return True
    joined = JOINED.fullmatch(text)
    return joined is not None and is_statement(joined[1]) and is_statement("SELECT 1 " + joined[2])


def statements_of(trace):
    with open(trace, encoding="utf-8") as lines:
        return [json.loads(line) for line in lines]


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

        os.remove(trace)
        run(program, "rpc", *options, input="".join(json.dumps(request) + "\n" for request in FIRM_BALANCE))
        firm = [entry for entry in statements_of(trace) if "SUM(" in entry["text"]]

    failures = [entry["text"] for entry in good if not parses(entry["text"])]
    for text in failures:
        print("does not parse:", text)
    failed = [entry for entry in good if entry["error"]]
    for entry in failed:
        print("failed on the way:", entry["text"], entry["error"])
    refused = [entry for entry in firm if entry["error"]]
    if len(refused) != 1 or parses(refused[0]["text"]):
        print("the balance of firm movements was expected to be no statement:", firm)
        failures.append("GetSaldo")
    shapes = len({entry["text"] for entry in good})
    print(f"{len(good)} statements, {shapes} different, {len(failures)} that do not parse")
    sys.exit(1 if failures or failed or len(good) < 500 else 0)


FIRM_BALANCE = [
    {"jsonrpc": "2.0", "id": 1, "method": "create", "params": {"class": "Tesoreria"}},
    {"jsonrpc": "2.0", "id": 2, "method": "call",
     "params": {"object": 1, "member": "GetSaldo", "args": ["SRR-MXN", True]}},
]

if __name__ == "__main__":
    main()
