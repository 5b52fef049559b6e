"""A real SMTP server. As a program it prints its port, then a line of JSON for each login and each mail."""
import json
import logging
import socket
import threading

from aiosmtpd.controller import Controller
from aiosmtpd.smtp import SMTP, AuthResult


class LoginSmtp(SMTP):
    """Logs in as most servers do: method names in any case, the usual prompts, AUTH= with the sender (RFC 4954)."""

    AuthLoginUsernameChallenge = "Username:"
    AuthLoginPasswordChallenge = "Password:"
    auth_Login = SMTP.auth_LOGIN

    def _getparams(self, params):
        known = super()._getparams(params)
        if known:
            known.pop("AUTH", None)
        return known


class SmtpServer(Controller):
    """Lets one user in, takes every mail and tells of each. `ssl_context` encrypts from the start, what is in `more`
    goes to the dialogue."""

    def __init__(self, tell, ssl_context=None, **more):
        with socket.create_server(("127.0.0.1", 0)) as free:
            port = free.getsockname()[1]
        super().__init__(self, hostname="127.0.0.1", port=port, ssl_context=ssl_context)
        self.tell = tell
        self.more = more

    def factory(self):
        return LoginSmtp(self, authenticator=self.authenticate, auth_require_tls=False, **self.more)

    async def handle_DATA(self, server, session, envelope):
        self.tell({"mail_from": envelope.mail_from, "options": envelope.mail_options,
                   "rcpt_tos": envelope.rcpt_tos, "content": envelope.content.decode("latin-1")})
        return "250 Taken"

    def authenticate(self, server, session, envelope, mechanism, data):
        self.tell({"mechanism": mechanism, "login": data.login.decode(), "password": data.password.decode()})
        return AuthResult(success=data.login == b"kalvenor" and data.password != b"wrong", handled=False)


if __name__ == "__main__":
    logging.disable()
    server = SmtpServer(lambda what: print(json.dumps(what), flush=True))
    server.start()
    print(server.port, flush=True)
    threading.Event().wait()
