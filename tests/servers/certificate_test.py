#!/usr/bin/python3
"""A server's certificate: with sslmode=verify-full one that the client does not know is refused, and one of another name; one that
fits is taken. Each refusal says why, with its SQLSTATE.

    certificate_test.py CUVEXA     under with_postgresql, whose server is told to speak TLS
"""
import os
import re
import shutil
import subprocess
import sys
import time

from users import Databases


def certificate(databases, name, alternative):
    """A certificate that its owner has signed, and its key."""
    files = databases.scratch(f"{name}.crt"), databases.scratch(f"{name}.key")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", f"/CN={name}", "-addext",
                    f"subjectAltName={alternative}", "-out", files[0], "-keyout", files[1]], check=True, capture_output=True)
    return files


def serve_with(databases, files):
    """The server shows that certificate from now on."""
    data = re.search(r"-D (\S+)", os.environ["CUVEXA_TEST_SERVER"])[1]
    for file, name in zip(files, ("server.crt", "server.key")):
        target = os.path.join(data, name)
        shutil.copyfile(file, target)
        os.chmod(target, 0o600)
        shutil.chown(target, os.environ["CUVEXA_TEST_SERVER_USER"])
    databases.tool("psql", "-c", "ALTER SYSTEM SET ssl = on", "-c", "SELECT pg_reload_conf()", "postgres")
    shown = subprocess.run(["openssl", "x509", "-noout", "-serial", "-in", files[0]], check=True, capture_output=True, text=True)
    until_shown(databases, shown.stdout)


def until_shown(databases, serial):
    end = time.monotonic() + 30
    port = databases.named.rsplit(":", 1)[1].split("/")[0]
    while True:
        asked = subprocess.run(["openssl", "s_client", "-starttls", "postgres", "-connect", f"127.0.0.1:{port}"],
                               stdin=subprocess.DEVNULL, capture_output=True, text=True).stdout
        shown = subprocess.run(["openssl", "x509", "-noout", "-serial"], input=asked, capture_output=True, text=True).stdout
        if shown == serial:
            return
        if time.monotonic() > end:
            raise SystemExit("the server does not show its certificate")
        time.sleep(0.05)


def main():
    program = sys.argv[1]
    databases = Databases(program)
    database = databases.fresh()
    other, fitting = certificate(databases, "otra", "DNS:otra.example"), certificate(databases, "esta", "IP:127.0.0.1")

    def show(root):
        done = subprocess.run([program, "show", "accounts", "--db", f"{database}?sslmode=verify-full&sslrootcert={root}"],
                              capture_output=True, text=True)
        return done.returncode, done.stdout + done.stderr

    def refused(root, why):
        status, said = show(root)
        assert status == 1 and said.startswith("No es posible abrir la sesión con el servidor de base de datos ("), said
        assert why in said and said.endswith(" [08001])\n"), said

    serve_with(databases, other)
    refused(databases.scratch("no.crt"), "does not exist")
    refused(fitting[0], "certificate verify failed")
    refused(other[0], 'does not match host name "127.0.0.1"')
    serve_with(databases, fitting)
    status, said = show(fitting[0])
    assert status == 0 and "SRR-MXN" in said, said


if __name__ == "__main__":
    main()
