#!/usr/bin/python3
"""Users at work when something dies. Afterwards nothing acknowledged is missing, and what was left half done is found
by the audit and belongs to an operation that had not been acknowledged.

    kill_test.py programs CUVEXA    programs are killed between two statements of an operation
    kill_test.py server CUVEXA      the server that with_postgresql started is killed and started again
    options: [--users N] [--rounds N] [--kills N] [--repeat N] [--seed N]

On files, or on the server that CUVEXA_TEST_DB names.
"""
import argparse
import os
import random
import select
import shlex
import subprocess
import sys
import threading
import time

from users import Databases, Died, Refused, User, work_at_once
from verify import Books, verify

LOST = ("Se perdió la conexión con el servidor de base de datos",
        "La unidad de trabajo terminó cuando se perdió la conexión con el servidor de base de datos",
        "No es posible abrir la sesión con el servidor de base de datos")


class Mortal(User):
    """A user whose program is killed in some of its operations, and who starts another one and goes on with the next
    round.
    """

    def __init__(self, program, database, trace, chances):
        self.chances = chances  # after how many statements each operation kills the program; 0: it does not
        self.dead_after = 0
        self.deaths = 0
        super().__init__(program, database, trace)

    def call(self, member, *arguments):
        self.dead_after = next(self.chances, 0)
        super().call(member, *arguments)

    def answer(self):
        if not self.dead_after:
            return super().answer()
        after, self.dead_after = self.dead_after, 0
        with open(self.trace, encoding="utf-8") as trace:
            trace.seek(0, os.SEEK_END)
            statements = 0
            while statements < after and not select.select([self.process.stdout], [], [], 0.0002)[0]:
                statements += trace.read().count("\n")
        self.process.kill()
        self.deaths += 1
        self.process.wait()
        return self.process.stdout.read()  # what it said before it died is said

    def work(self, numbers):
        for number in numbers:
            try:
                self.round(number)
            except Died:
                self.start()
            except Refused as refusal:
                self.failures.append(str(refusal))


class Survivor(User):
    """A user whose server is killed: the program is told so, and goes on as soon as the server lets it in."""
    clear_texts = LOST
    patience = 60  # seconds

    def __init__(self, *arguments):
        self.lost = 0
        super().__init__(*arguments)

    def work(self, numbers):
        for number in numbers:
            try:
                self.round(number)
            except (Refused, Died) as failure:
                self.survive(failure)

    def survive(self, failure):
        self.lost += 1
        end = time.monotonic() + self.patience
        while not self.failures:
            if not any(text in str(failure) for text in self.clear_texts) or time.monotonic() > end:
                self.failures.append(f"no clear text: {failure}")
            try:
                return self.call("Cancelar_Deposito", "NO-HAY")
            except Died as dead:
                failure = dead
            except Refused as refusal:
                if "no existe!" in str(refusal):
                    return None
                failure = refusal
            time.sleep(0.05)
        return None


def chances(random_numbers, kills, users, rounds):
    """For each user, after how many statements each operation kills the program; so many kills in all, at random."""
    operations = [(user, operation) for user in range(users) for operation in range(rounds * 4)]
    chosen = set(random_numbers.sample(operations, min(kills, len(operations))))
    return [iter([random_numbers.randint(1, 24) if (user, operation) in chosen else 0
                  for operation in range(rounds * 4)]) for user in range(users)]


def restart_server():
    command = shlex.split(os.environ["CUVEXA_TEST_SERVER"]) + ["-m", "immediate", "-w", "-l",
                                                               os.environ["CUVEXA_TEST_SERVER_LOG"], "restart"]
    owner = os.environ["CUVEXA_TEST_SERVER_USER"]
    if os.getuid() == 0:
        command = ["runuser", "-u", owner, "--", *command]
    silent = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
    if subprocess.run(command, cwd="/", **silent).returncode != 0:
        raise SystemExit("the server did not start again")


def kill_server_now_and_then(users, rounds, kills, done):
    """After each such part of the work, counted in operations that were acknowledged."""
    whole = len(users) * rounds * 4
    for kill in range(kills):
        while sum(user.operations for user in users) < whole * (kill + 1) // (kills + 1):
            if done.wait(0.001):
                return
        restart_server()


def work(options, databases, database, random_numbers):
    traces = [databases.scratch(f"trace-{databases.count}-{i}") for i in range(options.users)]
    if options.what == "programs":
        when = chances(random_numbers, options.kills, options.users, options.rounds)
        users = [Mortal(options.program, database, trace, chance) for trace, chance in zip(traces, when)]
        work_at_once(users, options.rounds)
        return users, sum(user.deaths for user in users)
    users = [Survivor(options.program, database, trace) for trace in traces]
    done = threading.Event()
    killer = threading.Thread(target=kill_server_now_and_then, args=(users, options.rounds, options.kills, done))
    killer.start()
    work_at_once(users, options.rounds)
    done.set()
    killer.join()
    return users, sum(user.lost for user in users)


def run(options, databases, seed):
    database = databases.fresh()
    users, deaths = work(options, databases, database, random.Random(seed))
    for user in users:
        user.stop()
    databases.wait_for_sessions(database)
    documents = [document for user in users for document in user.documents]
    wrong = [failure for user in users for failure in user.failures]
    books = Books(options.program, database)
    wrong += verify(books, documents)
    doubts = sum(1 for document in documents if document.doubt)
    kept = sum(user.operations for user in users)
    told = "programs killed" if options.what == "programs" else "programs told that the server was gone"
    print(f"seed {seed}: {kept} operations acknowledged, {deaths} {told}, {doubts} operations in doubt, "
          f"{len(books.findings)} findings of the audit, {len(wrong)} problems", flush=True)
    if deaths == 0 or doubts == 0:
        wrong.append("nothing died in the middle of an operation")
    return wrong


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("what", choices=["programs", "server"])
    parser.add_argument("program")
    parser.add_argument("--users", type=int, default=4)
    parser.add_argument("--rounds", type=int, default=6)
    parser.add_argument("--kills", type=int, default=8)
    parser.add_argument("--repeat", type=int, default=1)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    databases = Databases(options.program)
    for seed in range(options.seed, options.seed + options.repeat):
        if wrong := run(options, databases, seed):
            sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
