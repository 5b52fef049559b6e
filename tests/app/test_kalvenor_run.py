"""Runs the real kalvenor-run on real folders and a real SMTP server: exit codes, files, output, and the mails as an
independent parser reads them."""
import email
import email.policy
import json
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from smtp_server import SmtpServer
from systems import Linux, Wine

COMMAND = sys.argv[1:]  # the program, behind its emulator if it needs one
sys.argv[1:] = []
IS_LINUX = len(COMMAND) == 1


class RunFixture(unittest.TestCase):
    """Files and settings of its own for each test."""

    def setUp(self):
        self.root = Path(tempfile.mkdtemp(prefix="kalvenor-run-"))
        self.addCleanup(shutil.rmtree, self.root, True)
        self.system = Linux(self.root) if IS_LINUX else Wine(COMMAND[0])
        self.system.write_settings("Kalvenor", "Options", {"Accepted": "Yes"})
        for application in "Kalvenor", "Postrelle":
            self.addCleanup(self.system.forget_settings, application)
        self.file = self.root / "jobs.kvd"

    def shown(self, value):
        return self.system.path(value) if isinstance(value, Path) else str(value)

    def activity(self, name, source=None, **fields):
        usual, target = self.root / f"{name}-in", self.root / f"{name}-out"
        for folder in (usual, target):
            folder.mkdir(exist_ok=True)
        (usual / "file.txt").write_text(f"content of {name}")
        record = {
            "sourcedir": source or usual, "targetdir": target, "type": "0", "intervall": "10", "action": "0",
            "overwrite": "Y", "onlynew": "N", "alert": "N", "includesubdirs": "Y", "allfiles": "1", "activ": "1", **fields}
        return f"<{name}>" + "".join(f"<{key}>{self.shown(value)}</{key}>" for key, value in record.items()) + f"</{name}>"

    def write(self, *activities):
        text = '<?xml version="1.0" encoding="ISO-8859-1"?><items>' + "".join(activities) + "</items>\r\n"
        self.file.write_bytes(text.encode("latin-1", "xmlcharrefreplace"))

    def run_program(self, *words):
        return subprocess.run(
            [*COMMAND, *map(self.shown, words)], env=self.system.environment, capture_output=True, text=True,
            timeout=60, stdin=subprocess.DEVNULL)

    def copied(self, name):
        return sorted(path.name for path in (self.root / f"{name}-out").iterdir())


class KalvenorRun(RunFixture):
    def test_a_dry_run_says_what_the_run_does(self):
        self.write(self.activity("Mirror", action="3", logfile=self.root / "log"))
        (self.root / "Mirror-out" / "old.txt").write_text("old")
        before = sorted(self.root.rglob("*"))
        result = self.run_program("--dry-run", "--json", self.file)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        [plan] = json.loads(result.stdout)
        self.assertEqual({Path(act["path"].replace("\\", "/")).name: act["deed"] for act in plan["acts"]},
                         {"file.txt": "copy", "old.txt": "delete"})
        self.assertEqual(plan["totals"]["copy"], {"files": 1, "bytes": len("content of Mirror")})
        self.assertIn("old.txt", self.run_program("--dry-run", self.file, "Mirror").stdout)
        self.assertEqual(sorted(self.root.rglob("*")), before)
        result = self.run_program("--json", self.file)
        self.assertEqual(result.returncode, 0)
        [told] = json.loads(result.stdout)
        self.assertEqual([told[key] for key in ("activity", "ending", "files", "copied", "moved", "bytes", "deleted", "failures", "reason")],
                         ["Mirror", "fine", 1, 1, 0, len("content of Mirror"), 1, 0, ""])
        self.assertEqual(self.copied("Mirror"), ["file.txt"])

    def test_too_many_deletions_and_nobody_to_ask(self):
        self.write(self.activity("Mirror", action="3", askfiles="1"))
        for name in ("old1", "old2"):
            (self.root / "Mirror-out" / name).touch()
        result = self.run_program("--json", self.file)
        self.assertEqual(result.returncode, 1)
        self.assertIn("'Mirror' would delete 2 and replace 0 of the 2 files", result.stderr)
        self.assertIn("is held", json.loads(result.stdout)[0]["reason"])
        self.assertEqual(self.copied("Mirror"), ["old1", "old2"])

    def test_runs_active_activities(self):
        log = self.root / "A.log"
        self.write(self.activity("A", logfile=log), self.activity("B", activ="0"), self.activity("C", action="1"),
                   self.activity("A"))  # the name of the first one
        odd = self.system.odd_name
        (self.root / "A-in" / odd).touch()
        before = self.file.read_bytes()
        result = self.run_program(self.file)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual([self.copied(name) for name in "ABC"], [sorted([odd, "file.txt"]), [], ["file.txt"]])
        self.assertFalse((self.root / "C-in" / "file.txt").exists())
        self.assertTrue((self.root / "A-in" / "file.txt").exists())
        self.assertEqual(result.stdout.count("Activity 'A' - Checking starts"), 1)
        self.assertNotIn("Activity 'B' - ", result.stdout)
        # A name commands neither the terminal nor the log's reader, and adds no line.
        for text in (result.stdout, log.read_text(encoding=self.system.log_encoding)):
            self.assertIn(self.system.shown_name + "' [", text)
            self.assertNotIn("\x1b", text)
        self.assertEqual(self.file.read_bytes(), before)

    def test_missing_directory_fails_and_the_others_run_even_if_not_active(self):
        self.write(self.activity("A", source=self.root / "gone"), self.activity("B", activ="0"), self.activity("C"))
        before = self.file.read_bytes()
        self.assertEqual(self.run_program(self.file, "A", "B").returncode, 1)
        self.assertEqual([self.copied(name) for name in "ABC"], [[], ["file.txt"], []])
        self.assertEqual(self.file.read_bytes(), before)

    def test_unusable(self):
        self.write(self.activity("A"), '<x:B xmlns:x="urn:x"><activ>1</activ></x:B>')
        damaged = self.root / "damaged.kvd"
        damaged.write_text("<items><A>")
        for words in ([], ["--fast", self.file], [self.root / "none.kvd"], [self.root], [damaged],
                      [self.file, "A", "unknown name"], [self.file, "A", "x:B"]):
            with self.subTest(words):
                result = self.run_program(*words)
                self.assertEqual(result.returncode, 2, result.stderr)
                self.assertNotEqual(result.stderr.strip(), "")
        self.assertEqual(self.copied("A"), [])
        self.assertEqual(damaged.read_text(), "<items><A>")
        self.assertEqual(list(self.root.glob("**/*.OLD")), [])
        for word in ("--help", "--help-all"):
            result = self.run_program(word)
            self.assertEqual((result.returncode, "--new-drive" in result.stdout), (0, True), word)

    def test_notice_not_accepted(self):
        self.system.forget_settings("Kalvenor")
        self.write(self.activity("A"))
        before = sorted(self.root.rglob("*"))
        result = self.run_program(self.file)
        self.assertEqual(result.returncode, 3)
        self.assertIn("Accepted=Yes", result.stderr)
        self.assertEqual(sorted(self.root.rglob("*")), before)

    @unittest.skipUnless(IS_LINUX, "no signal stops a process there, or asks it to end")
    def test_second_process_and_signal(self):
        source = self.root / "A-in"
        self.write(self.activity("A"))
        for number in range(400):
            (source / f"part{number:03}").write_bytes(os.urandom(1 << 18))
        first = subprocess.Popen([*COMMAND, str(self.file)], env=self.system.environment, stdout=subprocess.PIPE, text=True)
        self.addCleanup(first.kill)
        first.stdout.readline()  # it is at work now
        first.send_signal(signal.SIGSTOP)
        self.system.environment["XDG_RUNTIME_DIR"] = str(self.root / "home")  # as in another session
        link = self.root / "link.kvd"
        os.link(self.file, link)
        refused = [self.run_program(self.file), self.run_program(link)]
        state = self.root / "data" / "Kalvenor"
        state.rename(self.root / "moved")
        state.write_text("")
        unlockable = self.run_program(self.file)
        state.unlink()
        (self.root / "moved").rename(state)
        first.send_signal(signal.SIGTERM)
        first.send_signal(signal.SIGCONT)
        first.communicate(timeout=60)
        self.assertEqual([process.returncode for process in [*refused, unlockable]], [4, 4, 4])
        self.assertIn("Another process is using", refused[1].stderr)
        self.assertIn("No lock could be created", unlockable.stderr)
        self.assertEqual(first.returncode, 1)
        for path in (self.root / "A-out").iterdir():
            self.assertEqual(path.stat().st_size, (source / path.name).stat().st_size, path.name)
        self.assertLess(len(self.copied("A")), 400)
        self.assertEqual([p.name for p in (self.root / "A-out").iterdir() if p.name.startswith(".")], [])


class Mail(RunFixture):
    def serve(self, **more):
        self.told = []
        self.server = SmtpServer(self.told.append)
        self.server.start()
        self.addCleanup(self.server.stop)
        self.system.write_settings(
            "Postrelle", "Settings", {"PersistentSettings": 1, "RemotePort": self.server.port, **more})

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
        return email.message_from_bytes(self.told[-1]["content"].encode("latin-1"), policy=email.policy.default)

    def test_umlauts_recipients_and_details(self):
        self.serve()
        output = self.run_once(self.notifying(
            subject="Überraschung für 5 €", message="Größe: 5 €\n.\nEnde\n", recipient=";anna@dort.de;bert@dort.de",
            attachaction="0", computername="1"))
        self.assertIn("E-Mail send to ';anna@dort.de;bert@dort.de'\n", output)
        mail, [envelope] = self.the_mail(), self.told
        addresses = ["anna@dort.de", "bert@dort.de"]
        self.assertEqual((envelope["mail_from"], envelope["rcpt_tos"]), ("kalvenor@hier.de", addresses))
        self.assertTrue(envelope["content"].startswith('From: "Kalvenor Pro" <kalvenor@hier.de>\r\n'))
        self.assertEqual([(one.display_name, one.addr_spec) for one in mail["To"].addresses],
                         [(address, address) for address in addresses])
        self.assertEqual(mail["Subject"], "Überraschung für 5 ?")
        lines = mail.get_content().splitlines()
        self.assertEqual(lines[0], f"from system (name): {socket.gethostname()}")
        self.assertEqual(lines[2:5], ["Größe: 5 ?", ".", "Ende"])
        self.assertEqual(lines[-1], f"Last accessed:{self.shown(self.root / 'Akten-out')} -> {self.shown(self.root / 'Akten-in')}")

    def test_attached_log_and_login(self):
        self.serve(UseAuthentication="True", Username="kalvenor")
        output = self.run_once(self.notifying(attachlogfile="1", sendlastfile="1"))
        self.assertEqual(self.told[0], {"mechanism": "LOGIN", "login": "kalvenor", "password": ""})
        self.assertEqual(len(self.told), 2)
        folder = self.shown(self.root / "Akten-out")
        self.assertIn(f"'{folder}' is not attached: The file you tried to attach does not exist\n", output)
        mail = self.the_mail()
        self.assertEqual(mail.get_body().get_content().strip(), "Es gibt etwas.")
        [attachment] = mail.iter_attachments()
        self.assertEqual(attachment.get_filename(), "Akten.log")
        log = (self.root / "Akten.log").read_bytes()
        self.assertIn(b"E-Mail send to 'anna@dort.de'\r\n", log)
        self.assertTrue(log.startswith(attachment.get_payload(decode=True)))
        self.assertIn(b"Copy file", attachment.get_payload(decode=True))

    @unittest.skipUnless(IS_LINUX, "nobody looks at the rights of a file there")
    def test_a_password_file_is_for_its_owner_alone(self):
        passwords = self.root / "netrc"
        passwords.write_text("machine 127.0.0.1 login kalvenor password geheim\n")
        self.serve(MailSecurity=2, UseAuthentication=1, Username="kalvenor", PasswordFile=passwords)
        for mode, reason in ((0o640, "is refused: it must belong to you"), (0o604, "is refused: it must belong to you"),
                             (0o400, "The encryption with 127.0.0.1 failed: ")):  # this server cannot
            passwords.chmod(mode)
            self.assertIn(reason, self.run_once(self.notifying()), oct(mode))
        self.assertEqual(self.told, [])
        for file in self.root.rglob("*"):
            if file.is_file() and file != passwords:
                self.assertNotIn(b"geheim", file.read_bytes(), file)

    def test_a_silent_server_holds_up_nobody_else(self):
        self.serve(ConnectTimeout=3, ConnectRetry=1)
        with socket.create_server(("127.0.0.2", self.server.port)):
            output = self.run_once(
                self.notifying("Stumm", SMTPHost="127.0.0.2", recipient="stumm@dort.de"), self.notifying(),
                self.notifying("Falsch", recipient="anna"))
        self.assertEqual([mail["rcpt_tos"] for mail in self.told], [["anna@dort.de"]])
        self.assertIn("E-Mail send to 'stumm@dort.de' - Timeout occurred: ", output)
        self.assertNotIn("E-Mail send to 'anna@dort.de' - ", output)
        self.assertIn("E-Mail send to 'anna' - Missing or Invalid Recipient E-mail Address\n", output)


if __name__ == "__main__":
    unittest.main()
