#!/usr/bin/python3
"""The service on a PostgreSQL server that is lost at the worst moments, full, or used by many at once: each document is
there as often as the answers say.

    service_test.py CUVEXA CLIENTS    CLIENTS is the folder of the written clients; on the server that with_postgresql started
"""
import http.client
import json
import os
import re
import socket
import sys
import tempfile
import threading
import unittest

os.environ.update(CUVEXA=sys.argv[1], CUVEXA_CLIENTS=sys.argv[2], CUVEXA_SOURCE="")
sys.path.append(os.path.join(os.path.dirname(__file__), "..", "clients"))

import running  # noqa: E402
from users import Databases  # noqa: E402

import cuvexa  # noqa: E402
from receipts import capture  # noqa: E402

databases = Databases(running.CUVEXA)


class Relay:
    """Stands between the service and the server, and breaks the line where it is told to."""

    def __init__(self, port):
        self.port = port
        self.deed = None  # what happens to the next COMMIT: "lose it", "lose its answer"
        self.messages = None  # how many may still pass before the line breaks
        self.is_closed = False  # no new lines
        self.listener = socket.create_server(("127.0.0.1", 0))
        threading.Thread(target=self.accept, daemon=True).start()

    def accept(self):
        while True:
            client, _ = self.listener.accept()
            if self.is_closed:
                client.close()
                continue
            server = socket.create_connection(("127.0.0.1", self.port))
            swallows = threading.Event()
            threading.Thread(target=self.to_server, args=(client, server, swallows), daemon=True).start()
            threading.Thread(target=self.to_client, args=(server, client, swallows), daemon=True).start()

    def to_server(self, client, server, swallows):
        for data in received(client):
            if self.breaks(data, swallows):
                break
            server.sendall(data)
        end(client, server)

    def breaks(self, data, swallows):
        if self.messages is not None:
            self.messages -= 1
            if self.messages < 0:
                self.messages = None
                return True
        if self.deed is None or b"COMMIT" not in data:
            return False
        deed, self.deed = self.deed, None
        if deed == "lose its answer":
            swallows.set()
        return deed == "lose it"

    @staticmethod
    def to_client(server, client, swallows):
        for data in received(server):
            if swallows.is_set():
                break
            try:
                client.sendall(data)
            except OSError:
                break
        end(client, server)


def received(source):
    try:
        while data := source.recv(65536):
            yield data
    except OSError:
        pass


def end(*sides):
    for side in sides:
        try:
            side.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass


class Service(unittest.TestCase):
    def setUp(self):
        self.database = databases.fresh()
        port = int(re.search(r":(\d+)/", self.database)[1])
        self.relay = Relay(port)
        relayed = self.database.replace(f":{port}/", f":{self.relay.listener.getsockname()[1]}/")
        folder = tempfile.TemporaryDirectory(prefix="cuvexa-")
        self.addCleanup(folder.cleanup)
        self.process = running.Service_process(relayed, folder.name)
        self.addCleanup(lambda: self.assertEqual(self.process.end(), 0))
        self.capture(self.service(), "the first")  # a session is open

    def service(self, **options):
        service = cuvexa.Service(self.process.address, self.process.token, **options)
        self.addCleanup(service.close)
        return service

    def capture(self, service, key):
        with service.batch(key) as batch:
            capture(batch.Tesoreria(), 10)
        return batch

    def post_without_key(self):
        """Status, headers and body."""
        batch = cuvexa.Batch(None, "")
        capture(batch.Tesoreria(), 10)
        connection = http.client.HTTPConnection(self.process.listen)
        headers = {"Authorization": f"Bearer {self.process.token}", "Content-Type": "application/json"}
        connection.request("POST", "/rpc", json.dumps(batch._entries), headers)
        response = connection.getresponse()
        body = response.read().decode()
        connection.close()
        return response.status, response.headers, body

    def receipts(self):
        """How many there are beside the first."""
        return len(json.loads(running.run("show", "receipts", "--json", "--db", self.database))) - 1

    def psql(self, text):
        databases.tool("psql", "-d", re.search(r":\d+/(\w+)", self.database)[1], "-c", text)

    def test_what_is_lost_before_it_is_kept_runs_again(self):
        for messages in (0, 1, 4, 8):
            self.relay.messages = messages
            before = self.receipts()
            status, headers, body = self.post_without_key()
            self.assertEqual((status, headers["Cuvexa-Outcome"], headers["Cuvexa-Repeats"]), (200, "kept", "1"), body)
            self.assertEqual(self.receipts(), before + 1)

    def test_what_was_kept_and_not_answered_is_found_by_its_key(self):
        self.relay.deed = "lose its answer"
        self.assertTrue(self.capture(self.service(tries=1), "k").replayed)
        self.assertEqual(self.receipts(), 1)

    def test_what_did_not_reach_the_server_is_done_again_under_its_key(self):
        self.relay.deed = "lose it"
        self.assertFalse(self.capture(self.service(tries=1), "k").replayed)
        self.assertEqual(self.receipts(), 1)

    def test_without_a_key_the_outcome_is_unknown_and_nothing_runs_again(self):
        for deed, kept in (("lose its answer", 1), ("lose it", 1)):
            self.relay.deed = deed
            status, headers, body = self.post_without_key()
            self.assertEqual((status, headers["Cuvexa-Outcome"]), (503, "unknown"), body)
            self.assertIn("look before you send it again", body)
            self.assertEqual(self.receipts(), kept)

    def test_while_the_database_stays_away_the_outcome_is_unknown_and_can_be_asked_for_later(self):
        self.relay.deed = "lose its answer"
        self.relay.is_closed = True
        with self.assertRaises(cuvexa.Unreachable) as raised:
            self.capture(self.service(tries=1), "k")
        self.assertIn("its outcome is unknown: ask requests-done", str(raised.exception))
        self.relay.is_closed = False
        self.assertIsNotNone(self.service().answer_to("k"))
        self.assertTrue(self.capture(self.service(), "k").replayed)
        self.assertEqual(self.receipts(), 1)

    def test_a_full_disk_is_told_and_nothing_is_kept(self):
        self.psql("CREATE FUNCTION fill() RETURNS trigger LANGUAGE plpgsql AS "
                  "$$ BEGIN RAISE EXCEPTION 'no space' USING ERRCODE = '53100'; END $$; "
                  "CREATE TRIGGER full_disk BEFORE INSERT ON Recibo_Pago FOR EACH ROW EXECUTE FUNCTION fill()")
        with self.assertRaises(cuvexa.Service_error) as raised:
            self.capture(self.service(), "k")
        self.assertEqual(raised.exception.status, 507)
        self.psql("DROP TRIGGER full_disk ON Recibo_Pago")
        self.assertFalse(self.capture(self.service(), "k").replayed)
        self.assertEqual(self.receipts(), 1)

    def test_many_at_once_are_all_kept_once(self):
        def work(number):
            service = self.service()
            for i in range(5):
                self.capture(service, f"{number}-{i}")

        threads = [threading.Thread(target=work, args=(number,)) for number in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(self.receipts(), 40)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], warnings="ignore")
