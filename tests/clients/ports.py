"""Ports for what is told beforehand where to listen."""
import random
import socket


def free_port():
    """One that nobody listens on, below those that the system gives to who asks for any: nobody is given it meanwhile."""
    while True:
        port = random.randrange(20000, 32000)
        with socket.socket() as probe:
            if probe.connect_ex(("127.0.0.1", port)) != 0:
                return port
