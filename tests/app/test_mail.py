"""Activities that notify, run by the real program against a real SMTP server; an independent parser reads the mails."""
import email
import email.policy
import socket
import threading
import unittest

from aiosmtpd.controller import Controller
from aiosmtpd.smtp import AuthResult

from RunFixture import RunFixture
from smtp_server import LoginSmtp


class Mailbox(Controller):
    """A real SMTP server that keeps what it is given."""

    def __init__(self):
        with socket.create_server(("127.0.0.1", 0)) as free:
            port = free.getsockname()[1]
        super().__init__(self, hostname="127.0.0.1", port=port)
        self.envelopes = []
        self.logins = []

    def factory(self):
        return LoginSmtp(self, authenticator=self.authenticate, auth_require_tls=False)

    async def handle_DATA(self, server, session, envelope):
        self.envelopes.append(envelope)
        return "250 Taken"

    def authenticate(self, server, session, envelope, mechanism, data):
        self.logins.append((mechanism, data.login.decode(), data.password.decode()))
        return AuthResult(success=data.login == b"kalvenor")


class ClosingServer:
    """Says its lines, one for each line it hears, and is then gone."""

    def __init__(self, lines):
        self.lines = lines
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            with connection, connection.makefile("rb") as reader:
                for line in self.lines:
                    connection.sendall(line)
                    heard = reader.readline()
                    while line.startswith(b"354") and heard not in (b".\r\n", b""):
                        heard = reader.readline()


class Mail(RunFixture):
    def serve(self):
        self.box = Mailbox()
        self.box.start()
        self.addCleanup(self.box.stop)
        self.mail_settings(self.box.port)

    def mail_settings(self, port, **more):
        values = {"PersistentSettings": 1, "RemotePort": port, "ConnectTimeout": 5, "MessageTimeout": 5, **more}
        self.settings("Postrelle", "[Settings]\n" + "".join(f"{key}={value}\n" for key, value in values.items()))

    def notifying(self, name="Akten", **fields):
        return self.activity(name, **{
            "sendmail": "1", "UseSMTP": "1", "SMTPHost": "127.0.0.1", "sender": "kalvenor@hier.de",
            "recipient": "anna@dort.de", "subject": "Neue Akten", "message": "Es gibt etwas.", "attachaction": "1",
            "logfile": self.root / f"{name}.log", **fields})

    def run_once(self, *activities):
        self.write(*activities)
        result = self.run_program(self.file)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def the_mail(self):
        [envelope] = self.box.envelopes
        return email.message_from_bytes(envelope.content, policy=email.policy.default)

    def test_umlauts_recipients_and_details(self):
        self.serve()
        output = self.run_once(self.notifying(
            subject="Überraschung für 5 €", message="Größe: 5 €\n.\nEnde\n", recipient=";anna@dort.de;bert@dort.de",
            attachaction="0", computername="1"))
        self.assertIn("E-Mail send to ';anna@dort.de;bert@dort.de'\n", output)
        mail, envelope = self.the_mail(), self.box.envelopes[0]
        self.assertEqual(envelope.mail_from, "kalvenor@hier.de")
        self.assertEqual(envelope.rcpt_tos, ["anna@dort.de", "bert@dort.de"])
        self.assertTrue(envelope.content.startswith(b'From: "Kalvenor Pro" <kalvenor@hier.de>\r\n'))
        self.assertEqual([(one.display_name, one.addr_spec) for one in mail["To"].addresses],
                         [(address, address) for address in envelope.rcpt_tos])
        self.assertEqual(mail["Subject"], "Überraschung für 5 ?")
        self.assertIsNotNone(mail["Date"].datetime.tzinfo)
        lines = mail.get_content().splitlines()
        self.assertEqual(lines[0], f"from system (name): {socket.gethostname()}")
        self.assertEqual(lines[2:5], ["Größe: 5 ?", ".", "Ende"])
        self.assertEqual(lines[-1], f"Last accessed:{self.root}/Akten-out -> {self.root}/Akten-in")

    def test_attached_log_and_login(self):
        self.serve()
        self.mail_settings(self.box.port, UseAuthentication="True", Username="kalvenor")
        output = self.run_once(self.notifying(attachlogfile="1", sendlastfile="1"))
        self.assertEqual(self.box.logins, [("LOGIN", "kalvenor", "")])
        self.assertIn(f"'{self.root}/Akten-out' is not attached: The file you tried to attach does not exist\n", output)
        mail = self.the_mail()
        self.assertEqual(mail.get_body().get_content().strip(), "Es gibt etwas.")
        [attachment] = mail.iter_attachments()
        self.assertEqual(attachment.get_filename(), "Akten.log")
        log = (self.root / "Akten.log").read_bytes()
        self.assertIn(b"E-Mail send to 'anna@dort.de'\r\n", log)
        self.assertTrue(log.startswith(attachment.get_payload(decode=True)))
        self.assertIn(b"Copy file", attachment.get_payload(decode=True))

    def test_server_gone_at_each_step(self):
        dialogue = [b"220 hi\r\n", b"250 hello\r\n", b"250 sender\r\n", b"250 recipient\r\n", b"354 go\r\n", b""]
        for step in range(len(dialogue)):
            with self.subTest(said=dialogue[:step]):
                server = ClosingServer(dialogue[:step])
                self.addCleanup(server.listener.close)
                self.mail_settings(server.port)
                output = self.run_once(self.notifying())
                self.assertRegex(output, "E-Mail send to 'anna@dort.de' - (Timeout occurred: .*|Socket not Open)\n")
                self.assertIn("Socket not Open" if step else "Timeout occurred",
                              (self.root / "Akten.log").read_text())
                self.assertEqual(self.copied("Akten"), ["file.txt"])
                (self.root / "Akten.log").unlink()

    def test_a_silent_server_holds_up_nobody_else(self):
        self.serve()
        self.mail_settings(self.box.port, ConnectTimeout=3, ConnectRetry=1)
        with socket.create_server(("127.0.0.2", self.box.port)):
            output = self.run_once(
                self.notifying("Stumm", SMTPHost="127.0.0.2", recipient="stumm@dort.de"), self.notifying(),
                self.notifying("Falsch", recipient="anna"))
        self.assertEqual([envelope.rcpt_tos for envelope in self.box.envelopes], [["anna@dort.de"]])
        self.assertIn("E-Mail send to 'stumm@dort.de' - Timeout occurred: ", output)
        self.assertNotIn("E-Mail send to 'anna@dort.de' - ", output)
        self.assertIn("E-Mail send to 'anna' - Missing or Invalid Recipient E-mail Address\n", output)


if __name__ == "__main__":
    unittest.main()
