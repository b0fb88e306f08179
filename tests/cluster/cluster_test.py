#!/usr/bin/python3
"""Users at work on a cluster while its primary is killed, isolated and switched over, and replicas are lost, in turn. Afterwards
nothing acknowledged is missing, nothing is there twice, the audit finds nothing of users whose calls are units of work and what
was left half done of the others, and the servers have one history and the same rows.

    cluster_test.py CUVEXA [--events N] [--only EVENT] [--synchronous N]
    cluster_test.py CUVEXA --rates [--seconds N]

    --events N        so many in all; 40 if not given
    --only EVENT      all of them this one
    --synchronous N   on how many replicas an acknowledged statement is, 1 if not given; with 0 a replica may be behind when it takes
                      over, and the test is to fail
    --rates           no event: what the cluster writes when an acknowledged statement is on no replica, on one and on both, for
                      N seconds each, 3 if not given; by cuvexa_server_load, which stands beside CUVEXA
"""
import argparse
import contextlib
import itertools
import json
import os
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time

from clerks import Caller, Clerk, Service
from cluster import NODES, SUPERUSER, Cluster, Direct, until
from verify import Books, identify, verify

EVENTS = ("primary killed", "primary isolated", "switchover", "replica lost")


def befall(cluster, event):
    """Does it, and gives when, and what brings the machine back."""
    primary = cluster.primary()
    if event == "primary killed":
        # What it does in its last second reaches nobody but its users.
        to_replicas = cluster.nodes[primary].to_replicas
        to_replicas.silence()
        time.sleep(1)
        moment = time.monotonic()
        cluster.kill(primary)
        to_replicas.mend()
        return moment, lambda: cluster.start_node(primary)
    moment = time.monotonic()
    if event == "primary isolated":
        cluster.isolate(primary)
        return moment, lambda: cluster.rejoin(primary)
    if event == "switchover":
        cluster.switch_over()
        return moment, lambda: None
    replica = cluster.replica()
    cluster.kill(replica)
    return moment, lambda: cluster.start_node(replica)


def acknowledged(users, begin, end):
    return sorted(when for user in users for when in list(user.acknowledged) if begin < when < end)


def longest_pause(users, begin, end):
    """How long nobody's work was acknowledged."""
    moments = [begin, *acknowledged(users, begin, end), end]
    return max(later - earlier for earlier, later in itertools.pairwise(moments))


def let_befall(cluster, users, event):
    primary = cluster.primary()
    begin, restore = befall(cluster, event)
    if event != "replica lost":
        until("another primary", lambda: cluster.primary() not in (None, primary))
    lost = time.monotonic()
    until("acknowledged work", lambda: acknowledged(users, lost, time.monotonic()))
    restore()
    until("a whole cluster", cluster.is_whole)
    return longest_pause(users, begin, time.monotonic())


def work(cluster, users, events):
    """All users at once, for ten seconds and as long as there are events. Gives the pauses by event, and how much was done in a
    second before the first of them.
    """
    done = threading.Event()
    threads = [threading.Thread(target=user.work_to_the_end,
                                args=(itertools.takewhile(lambda _: not done.is_set(), itertools.count(i * 10000)),))
               for i, user in enumerate(users)]
    begin = time.monotonic()
    for thread in threads:
        thread.start()
    pauses = {}
    try:
        time.sleep(10)
        rate = len(acknowledged(users, begin, time.monotonic())) / 10
        print(f"{rate:.1f} calls acknowledged per second", flush=True)
        for event in events:
            pause = let_befall(cluster, users, event)
            pauses.setdefault(event, []).append(pause)
            print(f"{event}: nobody could write for {pause:.1f} s", flush=True)
    finally:
        done.set()
        for thread in threads:
            thread.join()
    return pauses


def happened(books, document):
    """Whether what a user was not told about has been done; for calls that are done whole or not at all."""
    rows = books.receipts if document.kind == "receipt" else books.checks
    row = rows.get(document.folio)
    wanted = {"deposited": "DP", "cancelled": "CA"}.get(document.doubt)
    return row is not None and wanted in (None, row["Es_Cve_Estado"])


def settle(books, users):
    """The rows tell what those users were not told whose calls are units of work: after this nothing of theirs is in doubt."""
    for document in (document for user in users if user.sure for document in user.documents):
        identify(books, [document])
        if document.doubt and happened(books, document):
            document.stage = document.doubt
        document.doubt = None


def rows_of(cluster, name):
    """All rows as that machine has them."""
    dump = subprocess.run(["pg_dump", "-d", cluster.by_name(name)], check=True, capture_output=True, text=True).stdout
    return [line for line in dump.splitlines() if not line.startswith(("\\restrict", "\\unrestrict"))]


def split(cluster):
    """What the machines do not agree on when nobody works any more."""
    primary = cluster.primary()
    written = cluster.ask(cluster.by_proxy("postgres", SUPERUSER), "SELECT pg_current_wal_lsn()")
    caught_up = f"SELECT pg_is_in_recovery() AND pg_last_wal_replay_lsn() >= '{written}'"
    for name in NODES:
        until(f"{name} has applied everything", lambda: name == primary or cluster.ask(cluster.by_name(name), caught_up) == "t")
    truth = rows_of(cluster, primary)
    return [f"{name} has other rows than the primary" for name in NODES if rows_of(cluster, name) != truth]


def problems(cluster, program, users):
    books = Books(program, cluster.by_proxy())
    wrong = split(cluster) + [failure for user in users for failure in user.failures]
    timeline = cluster.members()[0]["timeline"]
    settle(books, users)
    documents = [document for user in users for document in user.documents]
    wrong += verify(books, documents)  # which takes its time, and nothing of the cluster
    doubts = sum(1 for document in documents if document.doubt)
    print(f"{sum(user.operations for user in users)} operations acknowledged, {doubts} bare ones in doubt, "
          f"{len(books.findings)} findings of the audit, {sum(getattr(user, 'sent_again', 0) for user in users)} requests sent again, "
          f"timeline {timeline}, {len(wrong)} problems")
    return wrong


def rates(program, seconds):
    """Rows of the table in docs/scaling.md."""
    load = os.path.join(os.path.dirname(os.path.abspath(program)), "cuvexa_server_load")
    print("| on replicas | work | one session, per second | eight sessions, per second |\n|---|---|---|---|")
    for synchronous in (0, 1, 2):
        with Cluster(synchronous, Direct) as cluster:
            primary = cluster.by_name(cluster.primary())
            subprocess.run([program, "init", "--sample", "--db", primary], check=True, stdout=subprocess.DEVNULL)
            for kind, title in (("receipt", "receipt of two lines captured and closed"), ("deposit", "the same with its deposit"),
                                ("check1", "check of one line created and applied")):
                done = [subprocess.run([load, "work", kind, "--atomic", "--made-alone", "--seconds", str(seconds), "--users", users, primary],
                                       check=True, stdout=subprocess.PIPE, text=True).stdout for users in ("1", "8")]
                print(f"| {synchronous} | {title} |", " | ".join(f"{json.loads(each)['made']['per_second']:.0f}" for each in done),
                      "|", flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--rates", action="store_true")
    parser.add_argument("--seconds", type=float, default=3)
    parser.add_argument("--events", type=int, default=10 * len(EVENTS))
    parser.add_argument("--only", choices=EVENTS)
    parser.add_argument("--synchronous", type=int, choices=(0, 1, 2), default=1)
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))  # what was started is stopped
    if options.rates:
        return rates(options.program, options.seconds)
    events = itertools.islice(itertools.cycle([options.only] if options.only else EVENTS), options.events)
    with contextlib.ExitStack() as stack:
        scratch = stack.enter_context(tempfile.TemporaryDirectory())
        cluster = stack.enter_context(Cluster(options.synchronous))
        subprocess.run([options.program, "init", "--sample", "--db", cluster.by_proxy()], check=True)
        # No check waits for money, however many are written.
        cluster.ask(cluster.by_proxy(), "UPDATE Prestamo_Deudor_Presupuesto SET Pdp_03 = 1000000000")
        service = Service(options.program, cluster.by_hosts(), scratch)
        stack.callback(service.stop)
        # Half of the programs go through the proxy, the others know all machines; two of them are bare.
        users = [Clerk(options.program, (cluster.by_hosts(), cluster.by_proxy())[i % 2], os.path.join(scratch, f"trace-{i}"),
                       atomic=i > 1) for i in range(6)]
        users += [Caller(service) for _ in range(2)]
        pauses = work(cluster, users, events)
        for user in users:
            user.stop()
        wrong = problems(cluster, options.program, users)
    for event, seconds in pauses.items():
        print(f"{event}: nobody could write for {statistics.median(seconds):.1f} s (median of {len(seconds)}), "
              f"{max(seconds):.1f} s at worst")
    if wrong:
        sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
