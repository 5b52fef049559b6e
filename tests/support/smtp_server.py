"""A real SMTP server. As a program it prints its port, then a line of JSON for each login and each mail."""
import asyncio
import json
import os
import sys
import threading

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


def tell(**what):
    print(json.dumps(what), flush=True)


class Handler:
    async def handle_DATA(self, server, session, envelope):
        tell(mail_from=envelope.mail_from, options=envelope.mail_options, rcpt_tos=envelope.rcpt_tos,
             content=envelope.content.decode("latin-1"))
        return "250 Taken"


def authenticate(server, session, envelope, mechanism, data):
    tell(mechanism=mechanism, login=data.login.decode(), password=data.password.decode())
    return AuthResult(success=data.password == b"secret", handled=False)


def end_with_parent():
    sys.stdin.read()
    os._exit(0)


async def main():
    server = await asyncio.get_running_loop().create_server(
        lambda: LoginSmtp(Handler(), authenticator=authenticate, auth_require_tls=False), "127.0.0.1", 0)
    print(server.sockets[0].getsockname()[1], flush=True)
    await server.serve_forever()


if __name__ == "__main__":
    threading.Thread(target=end_with_parent, daemon=True).start()
    asyncio.run(main())
