"""Reads mails as they went out after DATA with decoders that know nothing of the program which wrote them."""
import binascii
import email
import email.header
import email.policy
import sys
import unittest
from pathlib import Path

FOLDER = Path(sys.argv.pop(1))
END = b"\r\n.\r\n"


def received(name):
    """What a server makes of it: the end mark cut off, dot-stuffing undone (RFC 5321)."""
    data = (FOLDER / name).read_bytes()
    assert data.endswith(END)
    lines = data[: -len(END)].split(b"\r\n")
    for line in lines:
        assert len(line) <= 999 and b"\r" not in line and b"\n" not in line, line
        assert line != b"."
    return b"\r\n".join(line[1:] if line.startswith(b".") else line for line in lines)


def parsed(name, strict=True):
    message = email.message_from_bytes(received(name), policy=email.policy.default)
    for part in message.walk():
        assert not part.defects, part.defects
        for header in part.values() if strict else ():
            assert not getattr(header, "defects", None), (header, header.defects)
    return message


def decoded(text):
    return str(email.header.make_header(email.header.decode_header(text)))


def named(header):
    return [(one.display_name, one.addr_spec) for one in header.addresses]


def attachments(message):
    return {part.get_filename(): part.get_payload(decode=True) for part in message.iter_attachments()}


# Of files whose names are not possible on each system.
hostile = unittest.skipUnless((FOLDER / "hostile.mail").exists(), "no such names here")


class Messages(unittest.TestCase):
    def test_plain(self):
        message = parsed("plain.mail")
        self.assertEqual(list(message.keys()), [
            "From", "To", "Cc", "Subject", "Date", "MIME-Version", "X-Priority", "X-MSMail-Priority",
            "Disposition-Notification-To", "Content-Type", "Content-Transfer-Encoding"])
        sender = [('Jörg "der" Müller, genannt <Öhm>', "me@example.org")]
        self.assertEqual(named(message["From"]), sender)
        self.assertTrue(message["Disposition-Notification-To"].endswith(" <me@example.org>"))
        self.assertEqual(named(message["To"]), [('Doe, "J\\ohn"', "you@example.org"), ("Zoë", "her@example.org"),
                                                ("", "plain@example.org")])
        self.assertEqual(message["Cc"], "copy@xn--bcher-kva.example")
        self.assertNotIn(b"secret", received("plain.mail"))
        self.assertEqual(message["Subject"], "Grüße für 5 ?: " + "äöü und mehr " * 20)
        self.assertIn(b"\r\nDate: Sun, 5 Oct 2003 14:07:09 -0330\r\n", received("plain.mail"))
        self.assertEqual(message["Content-Transfer-Encoding"], "8bit")
        self.assertEqual(message.get_content(), ".Punkt\r\n..\r\n.\r\n\r\nÄÖÜß ? ? Ende\r\n")

    def test_attachments(self):
        message = parsed("mime.mail")
        self.assertEqual(message.get_content_type(), "multipart/mixed")
        self.assertEqual(message.get_body().get_content(), "cid:size0.bin")
        found = attachments(message)
        self.assertEqual(len(found), 8)
        for part in message.iter_attachments():
            self.assertIsNone(part["Content-ID"])
            self.assertLessEqual(max(map(len, part.get_payload().splitlines()), default=0), 76)
        for name, content in found.items():
            self.assertEqual(content, (FOLDER / name).read_bytes(), name)

    def test_uuencode(self):
        message = parsed("uuencode.mail")
        self.assertEqual(list(message.keys()), ["From", "To", "Subject", "Date"])
        lines = message.get_payload().splitlines()
        self.assertEqual(lines.pop(0), "cid:size0.bin")
        found = 0
        while lines:
            begin, mode, name = lines.pop(0).split(" ")
            self.assertEqual((begin, mode), ("begin", "600"))
            content = b""
            while (line := lines.pop(0)) != "`":
                self.assertNotIn(" ", line)  # at its end a server may cut it off
                content += binascii.a2b_uu(line)
            self.assertEqual(lines.pop(0), "end")
            self.assertEqual(content, (FOLDER / name).read_bytes(), name)
            found += 1
        self.assertEqual(found, 8)

    @hostile
    def test_hostile(self):
        flat = "x  X-Evil: 1    .  QUIT  "
        message = parsed("hostile.mail", strict=False)
        self.assertEqual(message["Subject"], flat)
        self.assertEqual(message["From"].addresses[0].display_name, flat + '"')
        # This reader joins blanks inside encoded words.
        self.assertEqual(message["To"].addresses[0].display_name.split(), ('ä"' + flat).split())
        self.assertEqual(len(message["To"].addresses), 1)
        for part in message.walk():
            self.assertNotIn("X-Evil", part)
        self.assertEqual(message.get_body().get_content(), "x\r\nX-Evil: 1\r\n\r\n.\r\nQUIT\r\n")
        self.assertEqual(attachments(message), {
            'x"__X-Evil: 1____.txt': b"1", 'a\\b";name=c.txt': b"2", "ä\"\\_€'%.txt": b"3",
            "\\xe4\\xf6\\xfc.txt": b"4"})
        names = [decoded(part.get_param("name")) for part in message.iter_attachments()]
        self.assertEqual(names[2], "ä\"\\_?'%.txt")

    @hostile
    def test_hostile_uuencode(self):
        message = parsed("hostile-uu.mail", strict=False)
        self.assertNotIn("X-Evil", message)
        self.assertEqual(message.get_payload().count("\nbegin 600 "), 4)

    def test_long(self):
        message = parsed("long.mail", strict=False)
        self.assertNotIn("X-Evil", message)
        attack = "a" * 985 + "X-Evil:1" * 300
        self.assertEqual(message["Subject"], attack)
        self.assertEqual(message.get_content(), "\r\n".join(["." * 998] * 3))
        self.assertEqual(list(message.keys())[:5], ["From", "To", "Subject", "Reply-to", "Date"])
        self.assertEqual(parsed("words.mail")["Subject"], "word and word " * 500)


if __name__ == "__main__":
    unittest.main()
