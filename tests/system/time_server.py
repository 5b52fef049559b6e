"""A server of the Time Protocol (RFC 868) on loopback; prints its port."""
import socketserver
import struct
import time

SECONDS_FROM_1900_TO_1970 = 2208988800


class Answer(socketserver.BaseRequestHandler):
    def handle(self):
        self.request.sendall(struct.pack("!I", int(time.time()) + SECONDS_FROM_1900_TO_1970))


with socketserver.TCPServer(("127.0.0.1", 0), Answer) as server:
    print(server.server_address[1], flush=True)
    server.serve_forever()
