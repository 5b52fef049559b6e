#!/usr/bin/env python3
"""SMTP servers that encrypt, with certificates of their own. Prints a line of JSON with the ports and the issuer's
certificate, then one for each login and mail, and for each command that a client sends to the rude ones in the clear."""
import datetime
import json
import logging
import pathlib
import socketserver
import ssl
import tempfile
import threading

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import ec
from cryptography.x509.oid import NameOID

from smtp_server import SmtpServer


class Issuer:
    def __init__(self):
        self.key = ec.generate_private_key(ec.SECP256R1())
        self.name = x509.Name([x509.NameAttribute(NameOID.COMMON_NAME, "Issuer of the test")])
        self.certificate = self.sign(
            self.name, self.key.public_key(), x509.BasicConstraints(ca=True, path_length=None), 30)

    def sign(self, name, key, extension, days):
        now = datetime.datetime.utcnow()
        return (x509.CertificateBuilder().subject_name(name).issuer_name(self.name).public_key(key)
                .serial_number(x509.random_serial_number()).not_valid_before(now - datetime.timedelta(days=60))
                .not_valid_after(now + datetime.timedelta(days=days)).add_extension(extension, critical=False)
                .sign(self.key, hashes.SHA256()))

    def pem(self):
        return self.certificate.public_bytes(serialization.Encoding.PEM)

    def context(self, days):
        """For a server that is called localhost."""
        key = ec.generate_private_key(ec.SECP256R1())
        names = x509.SubjectAlternativeName([x509.DNSName("localhost")])
        certificate = self.sign(x509.Name([]), key.public_key(), names, days)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, "pem")
            file.write_bytes(certificate.public_bytes(serialization.Encoding.PEM) + key.private_bytes(
                serialization.Encoding.PEM, serialization.PrivateFormat.PKCS8, serialization.NoEncryption()))
            context.load_cert_chain(file)
        return context


class Rude(socketserver.StreamRequestHandler):
    """Answers STARTTLS with what it should not, then encrypts or never says another word."""

    timeout = 20

    def handle(self):
        clear = []
        try:
            self.wfile.write(b"220 hello\r\n")
            while line := self.rfile.readline():
                clear.append(line.decode("latin-1").strip())
                if clear[-1] != "STARTTLS":
                    self.wfile.write(b"250-hello\r\n250-starttls\r\n250 AUTH PLAIN\r\n")
                    continue
                self.wfile.write(self.server.answer)
                if self.server.is_silent:
                    while self.rfile.read1():
                        pass
                    break
                self.connection = self.server.context.wrap_socket(self.connection, server_side=True)
                clear.append(self.connection.recv(1000).decode("latin-1"))
                break
        except OSError:
            pass
        self.server.tell({"clear": clear})


def serve_rudely(tell, context, answer, is_silent=False):
    server = socketserver.ThreadingTCPServer(("127.0.0.1", 0), Rude)
    server.daemon_threads = True
    server.tell, server.context, server.answer, server.is_silent = tell, context, answer, is_silent
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_address[1]


if __name__ == "__main__":
    logging.disable()
    lock = threading.Lock()

    def tell(what):
        with lock:
            print(json.dumps(what), flush=True)

    issuer = Issuer()
    good, expired = issuer.context(30), issuer.context(-1)
    servers = {
        "tls": SmtpServer(tell, ssl_context=good),
        "starttls": SmtpServer(tell, tls_context=good, auth_exclude_mechanism=["PLAIN"]),
        "expired": SmtpServer(tell, tls_context=expired),
        "plain": SmtpServer(tell),
    }
    for server in servers.values():
        server.start()
    ports = {name: server.port for name, server in servers.items()}
    ports["injecting"] = serve_rudely(tell, good, b"220 go\r\n250-hello\r\n250 AUTH PLAIN\r\n")
    ports["refused"] = serve_rudely(tell, expired, b"220 go\r\n")
    ports["silent"] = serve_rudely(tell, good, b"220 go\r\n", is_silent=True)
    tell({"ports": ports, "issuer": issuer.pem().decode()})
    threading.Event().wait()
