"""What the tests of the clients stand on: a sample company of their own, and a service of it."""

import http.client
import http.server
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest

from ports import free_port

CUVEXA = os.environ["CUVEXA"]
SOURCE = os.environ["CUVEXA_SOURCE"]
CLIENTS = os.environ["CUVEXA_CLIENTS"]
DAY = "2024-03-15"

sys.path.insert(0, os.path.join(CLIENTS, "python"))


def run(*arguments):
    return subprocess.run([CUVEXA, *arguments], check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout


class Company(unittest.TestCase):
    """Each test has a folder with company.db."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="cuvexa-clients-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.database = os.path.join(self.folder, "company.db")
        run("init", "--db", self.database, "--sample")

    def shown(self, view):
        return json.loads(run("show", view, "--json", "--db", self.database))


class Service_process:
    """`cuvexa serve` on a database, with a token of its own, in a folder of its own."""

    def __init__(self, database, folder, *arguments):
        tokens = os.path.join(folder, "tokens.json")
        self.token = run("token", "add", "ana", "--tokens", tokens).split()[-1]
        self.command = [CUVEXA, "serve", "--db", database, "--tokens", tokens, "--server-date", DAY, *arguments]
        self.start("127.0.0.1:0")

    def start(self, listen):
        self.process = subprocess.Popen([*self.command, "--listen", listen], stderr=subprocess.PIPE, encoding="utf-8")
        self.listen = json.loads(self.process.stderr.readline())["listening"]
        self.address = "http://" + self.listen
        self.log = threading.Thread(target=self.process.stderr.read)
        self.log.start()

    def kill(self):
        self.process.kill()
        self.gone()

    def end(self):
        """It finishes what it does; its exit code."""
        self.process.terminate()
        return self.gone()

    def gone(self):
        code = self.process.wait()
        self.log.join()
        self.process.stderr.close()
        return code


class Served(Company):
    """And a service of it, which ends with the test."""

    def setUp(self):
        super().setUp()
        service = Service_process(self.database, self.folder, "--synchronous", "off")
        self.addCleanup(lambda: self.assertEqual(service.end(), 0))
        self.address, self.token = service.address, service.token


class Obstacle(http.server.ThreadingHTTPServer):
    """Stands between a client and a service, and does to each request what comes next of `deeds`: "lose" the answer after
    the service gave it, "refuse" with 503, or "drop" the request. Further ones pass."""

    daemon_threads = True

    def __init__(self, address, deeds):
        self.behind, self.deeds, self.keys = address, list(deeds), []
        super().__init__(("127.0.0.1", 0), Passing)
        self.address = f"http://127.0.0.1:{self.server_port}"

    def __enter__(self):
        threading.Thread(target=self.serve_forever, kwargs={"poll_interval": 0.01}, daemon=True).start()
        return self

    def __exit__(self, *_):
        self.shutdown()
        self.server_close()


class Passing(http.server.BaseHTTPRequestHandler):
    def do_POST(self):
        self.server.keys.append(self.headers["Idempotency-Key"])
        body = self.rfile.read(int(self.headers["Content-Length"]))
        deed = self.server.deeds.pop(0) if self.server.deeds else "pass"
        if deed == "drop":
            self.close_connection = True
        elif deed == "refuse":
            self.send_response(503)
            self.send_header("Content-Length", "0")
            self.end_headers()
        else:
            self.pass_on(body, lose=deed == "lose")

    def pass_on(self, body, lose):
        connection = http.client.HTTPConnection(self.server.behind.rpartition("/")[2])
        connection.request("POST", self.path, body, dict(self.headers.items()))
        response = connection.getresponse()
        content = response.read()
        connection.close()
        if lose:
            self.close_connection = True
            return
        self.send_response(response.status)
        for name, value in response.headers.items():
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(content)

    def log_message(self, *_):
        pass


def readme():
    with open(os.path.join(SOURCE, "README.md"), encoding="utf-8") as file:
        return file.read()


def blocks(language):
    """What stands between the fences of a language in the README's section on other machines."""
    section = readme().split("\n## From other machines\n")[1].split("\n## ")[0]
    return re.findall(rf"\n```{language}\n(.*?)\n```\n", section, re.DOTALL)


def run_readme(folder, language, command):
    """The README's shell lines, and then its example in that language; what they print."""
    port = str(free_port())
    example = os.path.join(folder, "example." + language)
    with open(example, "w", encoding="utf-8") as file:
        file.write(blocks(language)[0].replace("8470", port))
    shell = "\n".join(blocks("sh")).replace("8470", port).replace("serve ", f"serve --listen 127.0.0.1:{port} ")
    script = f"set -e\ntrap 'kill $!; wait' EXIT\n{shell}\n{command} {example}\n"
    environment = {**os.environ, "PATH": os.path.dirname(CUVEXA) + os.pathsep + os.environ["PATH"],
                   "PYTHONPATH": os.path.join(CLIENTS, "python")}
    done = subprocess.run(["sh", "-c", script], cwd=folder, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, encoding="utf-8", timeout=60)
    return done.returncode, done.stdout
