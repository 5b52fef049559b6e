"""What scripts that start the program need to know of the system it is for: Linux, or Windows under Wine."""
import os
import subprocess


class Linux:
    """Files and settings below a folder of the test's own."""

    odd_name, shown_name = "\x1b[2J\n", "\ufffd[2J "  # commands neither the terminal nor the log's reader
    log_encoding = "utf-8"

    def __init__(self, root):
        self.root = root
        self.environment = {**os.environ, "LANG": "C.UTF-8", "LANGUAGE": "en"}
        for variable, name in {"HOME": "home", "XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data",
                               "XDG_STATE_HOME": "data", "XDG_RUNTIME_DIR": "run"}.items():
            (root / name).mkdir(mode=0o700, exist_ok=True)
            self.environment[variable] = str(root / name)

    def path(self, path):
        return str(path)

    def write_settings(self, application, section, values):
        folder = self.root / "config" / application
        folder.mkdir(exist_ok=True)
        lines = "".join(f"{key}={value}\n" for key, value in values.items())
        (folder / f"{application}.ini").write_text(f"[{section}]\n{lines}", encoding="utf-8")

    def forget_settings(self, application):
        (self.root / "config" / application / f"{application}.ini").unlink(missing_ok=True)


class Wine:
    """Files on Wine's drive Z:, settings in the registry of its prefix."""

    odd_name = shown_name = "\u00e4 '[2J'"
    log_encoding = "cp1252"

    def __init__(self, emulator):
        self.emulator = emulator
        self.environment = {**os.environ, "LANG": "C.UTF-8", "LANGUAGE": "en"}

    def path(self, path):
        return "Z:" + str(path).replace("/", "\\")

    def write_settings(self, application, section, values):
        self.forget_settings(application)
        for key, value in values.items():
            self.registry("add", rf"HKCU\Software\{application}\{section}", "/v", key, "/d", str(value), "/f")

    def forget_settings(self, application):
        self.registry("delete", rf"HKCU\Software\{application}", "/f")

    def registry(self, *words):
        subprocess.run([self.emulator, "reg", *words], env=self.environment, capture_output=True, check=False)
