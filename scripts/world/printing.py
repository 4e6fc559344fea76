"""A private CUPS server whose only queue keeps each print job as a PostScript file."""
import subprocess
from pathlib import Path

from .processes import wait_until

SERVER = """LogLevel warn
Listen {folder}/socket
Browsing No
WebInterface No
ErrorPolicy abort-job
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
Allow all
</Limit>
</Policy>
"""
FILES = """ServerRoot {folder}/etc
RequestRoot {folder}/spool
CacheDir {folder}/cache
StateDir {folder}/state
TempDir {folder}/spool/tmp
ErrorLog {folder}/error.log
AccessLog {folder}/access.log
PageLog {folder}/page.log
DataDir /usr/share/cups
ServerBin {folder}/bin
SystemGroup root lpadmin
User lp
Group lp
"""
BACKEND = """#!/bin/sh
[ $# = 0 ] && {{ echo 'file keep "Unknown" "keeps documents"'; exit 0; }}
cat ${{6:+"$6"}} > {folder}/.job && mv {folder}/.job {folder}/job-$1.ps
"""


class PrintServer:
    """The default printer of every program that is started in the world afterwards."""

    QUEUE = "Quill"

    def __init__(self, world):
        self.folder = folder = world.folder / "cups"
        world.prefix.env["CUPS_SERVER"] = f"{folder}/socket"
        self.env = world.prefix.env
        for name in ("spool/tmp", "cache", "state", "etc/ppd", "etc/ssl", "bin/backend"):
            (folder / name).mkdir(parents=True)
        for path in Path("/usr/lib/cups").iterdir():
            if path.name != "backend":
                (folder / "bin" / path.name).symlink_to(path)
        backend = folder / "bin/backend/keep"
        backend.write_text(BACKEND.format(folder=folder))
        backend.chmod(0o700)  # so that CUPS runs it as the user who owns the server
        (folder / "etc/cupsd.conf").write_text(SERVER.format(folder=folder))
        (folder / "etc/cups-files.conf").write_text(FILES.format(folder=folder))
        world.processes.start("cupsd", ["/usr/sbin/cupsd", "-f", "-c", folder / "etc/cupsd.conf",
                                        "-s", folder / "etc/cups-files.conf"])
        wait_until("CUPS", lambda: "is running" in self.run("lpstat", "-r"), 10)
        self.run("lpadmin", "-p", self.QUEUE, "-E", "-v", "keep:/", "-m", "raw")
        self.run("lpadmin", "-d", self.QUEUE)

    def run(self, *command):
        return subprocess.run(command, env=self.env, capture_output=True, text=True, timeout=30).stdout

    def documents(self):
        """The printed documents as PostScript files, oldest first."""
        return sorted(self.folder.glob("job-*.ps"), key=lambda path: path.stat().st_mtime)

    def next_pdf(self, seconds=20):
        """Waits for the next printed document and returns it as a PDF file."""
        document = wait_until("a printed document", self.documents, seconds)[0]
        pdf = document.with_suffix(".pdf")
        subprocess.run(["ps2pdf", document, pdf], check=True, timeout=60)
        document.rename(document.with_suffix(".done"))
        return pdf
