"""A port of the loopback interface that stands before another one, as a network does: it can fall silent, and what is on its way
can be lost.
"""
import contextlib
import socket
import threading
import weakref


class Relay:
    def __init__(self, port):
        self.target = port
        self.listener = socket.create_server(("127.0.0.1", 0), backlog=128)
        self.port = self.listener.getsockname()[1]
        self.flows = threading.Event()
        self.flows.set()
        self.ends = weakref.WeakSet()
        threading.Thread(target=self.accept, daemon=True).start()

    def silence(self):
        """Nothing passes any more, and nobody is told."""
        self.flows.clear()

    def mend(self):
        """What was on its way is lost, with the connections on which it was; new ones pass."""
        for end in list(self.ends):
            with contextlib.suppress(OSError):
                end.shutdown(socket.SHUT_RDWR)
        self.flows.set()

    def accept(self):
        while True:
            client, _ = self.listener.accept()
            self.ends.add(client)
            threading.Thread(target=self.connect, args=(client,), daemon=True).start()

    def connect(self, client):
        self.flows.wait()
        try:
            server = socket.create_connection(("127.0.0.1", self.target))
        except OSError:
            client.close()
            return
        self.ends.add(server)
        for end in (client, server):
            end.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        threading.Thread(target=self.pump, args=(server, client), daemon=True).start()
        self.pump(client, server)

    def pump(self, source, target):
        with contextlib.suppress(OSError):
            while data := source.recv(65536):
                self.flows.wait()
                target.sendall(data)
        for end in (source, target):
            with contextlib.suppress(OSError):
                end.shutdown(socket.SHUT_RDWR)
