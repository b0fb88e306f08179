"""The cluster of examples/cluster on the loopback interface: etcd, three PostgreSQL servers under Patroni, HAProxy; in a scratch
folder, on free ports, stopped and removed at the end. Relays stand before each machine, and between it and etcd.
"""
import contextlib
import glob
import json
import os
import pwd
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import urllib.error
import urllib.request

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "clients"))
from ports import free_port  # noqa: E402
from relay import Relay  # noqa: E402

EXAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "examples", "cluster")
NODES = ("db1", "db2", "db3")
SUPERUSER, USER = "postgres:change-me-1", "caja:change-me-3"


def until(what, condition, seconds=180):
    end = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > end:
            raise SystemExit(f"cluster: {what}: not in {seconds} seconds")
        time.sleep(0.1)
    return value


def get(port, path):
    """The body of what is answered with 200, else None."""
    with contextlib.suppress(OSError, urllib.error.URLError):
        with urllib.request.urlopen(f"http://127.0.0.1:{port}{path}", timeout=2) as answer:
            return answer.read() or b"{}"
    return None


class Direct:
    """Where no relay stands."""

    def __init__(self, port):
        self.port = port


class Node:
    """One machine: its ports, and the relays through which others reach it and it reaches etcd."""

    def __init__(self, name, etcd_port, relay):
        self.name = name
        self.server_port, self.patroni_port = free_port(), free_port()
        self.to_users, self.to_replicas = relay(self.server_port), relay(self.server_port)
        self.to_patroni, self.to_etcd = relay(self.patroni_port), relay(etcd_port)
        self.relays = (self.to_users, self.to_replicas, self.to_patroni, self.to_etcd)

    def says(self, path):
        return get(self.to_patroni.port, path) is not None


class Cluster:
    def __init__(self, synchronous=1, relay=Relay):
        """`synchronous`: how many replicas an acknowledged statement is on. `relay`: what stands before each machine."""
        self.synchronous = synchronous
        # PostgreSQL refuses to run as root.
        self.owner = pwd.getpwnam("postgres") if os.getuid() == 0 else pwd.getpwuid(os.getuid())
        self.folder = tempfile.mkdtemp(prefix="cuvexa-cluster-")
        os.chmod(self.folder, 0o755)
        self.processes = {}
        self.etcd_port, self.proxy_port, self.replicas_port = free_port(), free_port(), free_port()
        self.nodes = {name: Node(name, self.etcd_port, relay) for name in NODES}

    def __enter__(self):
        try:
            self.start()
        except BaseException:
            self.__exit__(*sys.exc_info())
            raise
        return self

    def __exit__(self, kind, *_):
        if kind is not None:
            self.show_logs()
        for name in list(self.processes):
            self.kill(name)
        shutil.rmtree(self.folder, ignore_errors=True)

    def show_logs(self):
        for log in glob.glob(self.path("*", "log")):
            with open(log, encoding="utf-8", errors="replace") as lines:
                print(f"---- {log}\n", *lines.readlines()[-40:], sep="", end="", file=sys.stderr)

    # ---- Starting ---------------------------------------------------------------------------------------------------

    def start(self):
        client, peer = f"http://127.0.0.1:{self.etcd_port}", f"http://127.0.0.1:{free_port()}"
        self.run("etcd", "etcd", "--data-dir", "data", "--listen-client-urls", client, "--advertise-client-urls", client,
                 "--listen-peer-urls", peer, "--initial-advertise-peer-urls", peer, "--initial-cluster", f"default={peer}")
        until("etcd answers", lambda: get(self.etcd_port, "/health"))
        for node in self.nodes.values():
            self.write(node.name, "node.yml", self.settings_of(node))
            self.start_node(node.name)
            if node.name == NODES[0]:  # the first makes the cluster, the others copy it
                until("a primary", self.primary)
        until("a whole cluster", self.is_whole)
        self.write("proxy", "haproxy.cfg", self.settings_of_proxy())
        self.run("proxy", "/usr/sbin/haproxy", "-db", "-f", "haproxy.cfg")
        # Before it has looked for the first time the proxy takes every server for the primary.
        until("the proxy", lambda: all(self.ask(self.by_proxy("postgres", SUPERUSER), "SHOW transaction_read_only") == "off"
                                       for _ in range(6)))
        for statement in ("CREATE ROLE caja LOGIN PASSWORD 'change-me-3'", "CREATE DATABASE cuvexa OWNER caja"):
            self.ask(self.by_proxy("postgres", SUPERUSER), statement)

    def start_node(self, name):
        self.run(name, "patroni", "node.yml")

    def run(self, name, *command):
        """Starts a program in the folder of that name, by which all that it starts is known."""
        self.make_folder(name)
        another = {"user": self.owner.pw_uid, "group": self.owner.pw_gid, "extra_groups": []} if os.getuid() == 0 else {}
        with open(self.path(name, "log"), "ab") as log:
            self.processes[name] = subprocess.Popen(command, cwd=self.path(name), stdin=subprocess.DEVNULL, stdout=log,
                                                    stderr=log, start_new_session=True, **another)

    def make_folder(self, name):
        if not os.path.isdir(self.path(name)):
            os.mkdir(self.path(name), 0o700)
            shutil.chown(self.path(name), self.owner.pw_uid, self.owner.pw_gid)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def write(self, name, file, text):
        self.make_folder(name)
        with open(self.path(name, file), "w", encoding="utf-8") as out:
            out.write(text)
        os.chmod(self.path(name, file), 0o644)

    @staticmethod
    def example(file, here):
        """A file of the example with what stands there for what is here."""
        with open(os.path.join(EXAMPLES, file), encoding="utf-8") as lines:
            text = lines.read()
        for there, value in here.items():
            if there not in text:
                raise SystemExit(f"cluster: {file} says nothing of {there}")
            text = text.replace(there, value)
        return text

    def settings_of(self, node):
        text = self.example("node.yml", {
            "0.0.0.0:5432": f"127.0.0.1:{node.server_port}", "0.0.0.0:8008": f"127.0.0.1:{node.patroni_port}",
            "db1:5432": f"127.0.0.1:{node.to_replicas.port}", "db1:8008": f"127.0.0.1:{node.to_patroni.port}",
            # Else Patroni asks etcd where it is, and goes past the relay.
            '"etcd1:2379"]': f'"127.0.0.1:{node.to_etcd.port}"]\n  use_proxies: true', "name: db1": f"name: {node.name}",
            "/var/lib/postgresql/cuvexa.pgpass": self.path(node.name, "pgpass"),
            "/var/lib/postgresql/cuvexa": self.path(node.name, "data"), "/var/run/postgresql": self.path(node.name),
            "synchronous_node_count: 1": f"synchronous_node_count: {self.synchronous or 1}"})
        return text if self.synchronous else re.sub(r"(synchronous_mode\w*): true", r"\g<1>: false", text)

    def settings_of_proxy(self):
        text = self.example("haproxy.cfg", {"proxy:5000": f"127.0.0.1:{self.proxy_port}",
                                            "proxy:5001": f"127.0.0.1:{self.replicas_port}"})
        for node in self.nodes.values():
            text = text.replace(f"{node.name}:5432 check port 8008",
                                f"127.0.0.1:{node.to_users.port} check port {node.to_patroni.port}")
        return text

    # ---- What befalls a machine -------------------------------------------------------------------------------------

    def processes_of(self, name):
        """Whatever works in the machine's folder: Patroni, and the server, which it puts into a session of its own."""
        found = []
        for process in os.listdir("/proc"):
            with contextlib.suppress(OSError):
                if process.isdigit() and os.readlink(f"/proc/{process}/cwd").startswith(self.path(name)):
                    found.append(int(process))
        return found

    def kill(self, name):
        while found := self.processes_of(name):
            for process in found:
                with contextlib.suppress(ProcessLookupError):
                    os.kill(process, signal.SIGKILL)
            self.processes[name].poll()
        self.processes.pop(name).wait()

    def isolate(self, name):
        """Nobody reaches the machine and it reaches nobody; nobody is told."""
        for relay in self.nodes[name].relays:
            relay.silence()

    def rejoin(self, name):
        for relay in self.nodes[name].relays:
            relay.mend()

    def switch_over(self):
        body = json.dumps({"leader": self.primary()}).encode()
        url = f"http://127.0.0.1:{self.nodes[self.primary()].patroni_port}/switchover"
        request = urllib.request.Request(url, data=body, headers={"Content-Type": "application/json"})
        urllib.request.urlopen(request, timeout=60).read()

    # ---- What the cluster says --------------------------------------------------------------------------------------

    def primary(self):
        return next((node.name for node in self.nodes.values() if node.says("/primary")), None)

    def replica(self):
        """The one on which acknowledged statements are, where any is."""
        roles = {member["role"]: member["name"] for member in self.members()}
        return roles.get("sync_standby", roles.get("replica"))

    def members(self):
        """Of each machine its role, state, timeline and lag, as the primary sees it."""
        body = get(self.nodes[self.primary() or NODES[0]].to_patroni.port, "/cluster")
        return json.loads(body)["members"] if body else []

    def is_whole(self):
        """One primary and two replicas that follow it on its timeline, so many of them synchronous."""
        if not all(node.says("/primary") or node.says("/replica") for node in self.nodes.values()):
            return False
        members = self.members()
        return (sorted(member["role"] for member in members) == sorted(self.roles())
                and all(member["state"] in ("running", "streaming") for member in members)
                and len({member.get("timeline") for member in members}) == 1)

    def roles(self):
        replicas = len(NODES) - 1
        return ["leader"] + ["sync_standby"] * self.synchronous + ["replica"] * (replicas - self.synchronous)

    # ---- How programs reach it ----------------------------------------------------------------------------------------

    def by_proxy(self, database="cuvexa", user=USER):
        return f"postgresql://{user}@127.0.0.1:{self.proxy_port}/{database}?target_session_attrs=read-write&connect_timeout=3"

    def by_hosts(self, attributes="read-write"):
        hosts = ",".join(f"127.0.0.1:{node.to_users.port}" for node in self.nodes.values())
        return f"postgresql://{USER}@{hosts}/cuvexa?target_session_attrs={attributes}&connect_timeout=3"

    def by_name(self, name):
        return f"postgresql://{USER}@127.0.0.1:{self.nodes[name].to_users.port}/cuvexa"

    @staticmethod
    def ask(uri, statement):
        done = subprocess.run(["psql", "-XAt", "-d", uri, "-c", statement], capture_output=True, text=True)
        return done.stdout.strip() if done.returncode == 0 else None
