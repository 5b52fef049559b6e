"""A real POP3 server, dovecot, that lets everybody in with the password "secret". Prints its port when it is ready."""
import contextlib
import os
import signal
import socket
import subprocess
import sys
import tempfile
import time

CONFIGURATION = """base_dir = {home}/run
state_dir = {home}/run
log_path = {home}/log
ssl = no
disable_plaintext_auth = no
protocols = pop3
mail_location = maildir:{home}/mail
passdb {{
  driver = static
  args = password=secret
}}
userdb {{
  driver = static
  args = uid={user} gid={user} home={home}/mail
}}
service pop3-login {{
  chroot =
  inet_listener pop3 {{
    address = 127.0.0.1
    port = {port}
  }}
  inet_listener pop3s {{
    port = 0
  }}
}}
service anvil {{
  chroot =
}}
"""


def greets(port):
    """It listens before it is ready."""
    with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port), timeout=10) as connection:
        return bool(connection.recv(1))
    return False


signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
with tempfile.TemporaryDirectory() as home:
    user = os.geteuid() or 65534  # mail of root is refused
    text = CONFIGURATION
    if user == os.geteuid():
        text += "default_internal_user = {name}\ndefault_login_user = {name}\n"
    os.chmod(home, 0o755)
    os.mkdir(f"{home}/mail")
    os.chown(f"{home}/mail", user, -1)
    with socket.create_server(("127.0.0.1", 0)) as free:
        port = free.getsockname()[1]
    with open(f"{home}/dovecot.conf", "w", encoding="utf-8") as file:
        file.write(text.format(home=home, user=user, port=port, name=os.environ.get("USER")))
    server = subprocess.Popen(["/usr/sbin/dovecot", "-F", "-c", file.name])
    try:
        while server.poll() is None and not greets(port):
            time.sleep(0.05)
        if server.poll() is None:
            print(port, flush=True)
        server.wait()
    finally:
        server.terminate()
        server.wait()
