#!/usr/bin/python3
"""Many users at once on one account. Afterwards nothing is missing, no folio was given twice or lost, every balance is
what the movements say to the last cent, no deadlock was kept quiet, and the audit finds nothing.

    load_test.py CUVEXA [--users N,N,…] [--rounds N] [--repeat N] [--bare REPLAY]

On files, or on the server that CUVEXA_TEST_DB names. Prints one line per number of users: operations and statements per
second; with the program REPLAY (cuvexa_replay), also how many the engine does per second when as many programs give it
the same texts bare.
"""
import argparse
import subprocess
import sys
import time

from users import Databases, User, work_at_once
from verify import Books, verify


def run(databases, count, rounds, bare):
    database = databases.fresh()
    traces = [databases.scratch(f"trace-{databases.count}-{i}") for i in range(count)]
    users = [User(databases.program, database, trace) for trace in traces]
    start = time.monotonic()
    work_at_once(users, rounds)
    seconds = time.monotonic() - start
    for user in users:
        user.stop()
    wrong = [failure for user in users for failure in user.failures]
    reported = sum("deadlock" in failure for failure in wrong)
    if databases.log().count("deadlock detected") > reported:
        wrong.append("the server met a deadlock that no operation reported")
    wrong += verify(Books(databases.program, database), [document for user in users for document in user.documents])
    operations = sum(user.operations for user in users)
    statements = sum(sum(1 for _ in open(trace, encoding="utf-8")) for trace in traces)
    line = (f"{count:3} users: {operations / seconds:8.1f} operations/s, {statements / seconds:8.1f} statements/s, "
            f"{statements / max(operations, 1):.1f} statements per operation")
    if bare:
        done = subprocess.run([bare, databases.fresh(), *traces], check=True, capture_output=True, text=True)
        line += f", bare {float(done.stdout):8.1f} statements/s"
    print(line + f", {len(wrong)} problems", flush=True)
    return wrong


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--users", default="1,2,4,8,16")
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--repeat", type=int, default=1)
    parser.add_argument("--bare")
    options = parser.parse_args()
    databases = Databases(options.program)
    for _ in range(options.repeat):
        for count in map(int, options.users.split(",")):
            if wrong := run(databases, count, options.rounds, options.bare):
                sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
