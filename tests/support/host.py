#!/usr/bin/env python3
"""host.py COMMAND...: runs a test, and for it programs of this machine, which one under an emulator cannot start. Who
connects to 127.0.0.1:$KALVENOR_HOST sends the words of a program, a line of JSON, and reads its output until it ends;
hanging up ends it."""
import contextlib
import json
import os
import socket
import socketserver
import subprocess
import sys
import threading


class Program(socketserver.StreamRequestHandler):
    def handle(self):
        program = subprocess.Popen(
            json.loads(self.rfile.readline()), stdin=subprocess.DEVNULL, stdout=self.connection,
            stderr=subprocess.STDOUT)
        threading.Thread(target=self.tell_end, args=(program,), daemon=True).start()
        with contextlib.suppress(ConnectionError):
            self.rfile.read()
        program.terminate()
        program.wait()

    def tell_end(self, program):
        program.wait()
        with contextlib.suppress(OSError):
            self.connection.shutdown(socket.SHUT_WR)


class Host(socketserver.ThreadingTCPServer):
    daemon_threads = False  # its end waits for those of the programs


with Host(("127.0.0.1", 0), Program) as host:
    threading.Thread(target=host.serve_forever, daemon=True).start()
    code = subprocess.call(sys.argv[1:], env={**os.environ, "KALVENOR_HOST": str(host.server_address[1])})
    host.shutdown()
sys.exit(code)
