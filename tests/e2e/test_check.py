"""The check of the catalogue by the real Quillon.exe, while a feed plays."""
import ssl
import subprocess
import unittest

from hostile_server import HostileServer, make_certificate, make_expired_certificate, make_tone, trust
from session import World
from world.feeds import FEEDS
from world.world import SOUNDS

ROWS = ('10|CYYZ|broken||Only 1 "|" instead of 3: the list stops here', "2|EGLL refuse|*The server takes no connections",
        "3|EGLL 404|*(404)", "4|EGLL untrusted|*certificate is from an unknown issuer*redirected to https",
        "5|EGLL mute|*within ten seconds", "6|EGLL gone|*Cannot reach C:\\none",
        "1|EGLL relative-redirect|*|Redirected to *.end?a=b", *(f"{7 + n}|{feed.icao} *|Plays" for n, feed in enumerate(FEEDS)))


class Check(unittest.TestCase):
    def test_what_answers_is_told_while_a_feed_plays_on(self):
        with World() as world:
            server = HostileServer({"relative-redirect": make_tone(SOUNDS / "hostile-check.mp3", 900)}, world.folder)
            world.start_simulator()
            world.start_quillon()
            copilot, feed = world.copilot, FEEDS[0]
            copilot.ask(f"tune com2stby {feed.frequency}")
            world.ear.await_(feed.icao)
            names = ("relative-redirect", "refuse", "404", "untrusted", "mute")
            lines = [f"EGLL|{name}|http://{server.address(name)}|" for name in names]
            (world.data / "live_atc_feeds.txt").write_text(
                "\r\n".join([*lines, "EGLL|gone|C:\\none\\|", world.feeds.catalogue().split("\n", 1)[1].rstrip(),
                             "CYYZ|broken\r\n"]), newline="")
            for title, button in (("Load User Frequency Error", "IDOK"), ("LoadList Error", "IDOK"),
                                  ("Faulty Lines", "IDNO")):  # the changed file is loaded again
                copilot.box(title, press=button)

            def check(until):
                server.asked.clear()
                copilot.ask("command CheckFeeds")
                return copilot.await_text("field IDC_CHECK_STATE", lambda text: text.startswith(until), 40)

            check("Tried 5 of 9. Trying: EGLL mute")  # the one without a server came in between
            self.assertEqual(world.ear.listens(2), feed.icao)
            check("Done. Good: 3. Redirected: 1. Failed: 5. Faults in the file: 1.")
            for number, row in enumerate(ROWS, 1):
                shown = copilot.ask(f"row {number} IDC_CHECK_LIST")
                for part in row.split("*"):
                    self.assertIn(part, shown)
            self.assertEqual(world.ear.listens(1), feed.icao)
            copilot.ask("press IDC_CHECK_FAULTS")
            copilot.await_text("rows IDC_CHECK_LIST", "6")
            copilot.ask("press IDC_CHECK_SAVE")
            copilot.ask("wait Notepad 20000")
            self.assertEqual((world.data / "Check.txt").read_text("utf-8-sig").splitlines()[2],
                             f'Line 10: {ROWS[0].split("||")[1]} (CYYZ|broken)')
            copilot.ask("close Notepad")
            check("Tried 5 of 9")
            copilot.ask("press IDCANCEL")
            copilot.await_text("field IDC_CHECK_STATE", lambda text: text.startswith("Cancelled after 5 of 9."))
            check("Tried 5 of 9")
            copilot.ask("close QuillonMain")
            self.assertEqual(world.quillon.wait(8), 0)  # before the address is given up

    def test_secure_servers_are_heard_or_refused_with_their_reason(self):
        servers = {  # certificate, version of the protocol, and what the check says
            "older": (make_certificate, "DNS:localhost", ssl.TLSVersion.TLSv1_2, "Plays"),
            "newer": (make_certificate, "DNS:localhost", ssl.TLSVersion.TLSv1_3, "Plays"),
            "expired": (make_expired_certificate, "DNS:localhost", None, "The server's certificate is not valid today"),
            "misnamed": (make_certificate, "DNS:elsewhere", None, "The server's certificate is for another name"),
            "stranger": (make_certificate, "DNS:localhost", None, "The server's certificate is from an unknown issuer"),
        }
        with World() as world:
            world.prefix.env["LD_LIBRARY_PATH"] = str(offer_newest_tls(world.folder / "tls"))
            tones = {"trusted": make_tone(SOUNDS / "hostile-check.mp3", 900)}
            lines = []
            world.start_simulator()
            for name, (make, host, version, _) in servers.items():
                certificate = make(world.folder / f"{name}.pem", host)
                if name != "stranger":
                    trust(world.prefix, certificate)
                port = HostileServer(tones, world.folder, certificate, version).server_address[1]
                lines.append(f"EGLL|{name}|https://localhost:{port}/trusted.mp3|\r\n")
            (world.data / "live_atc_feeds.txt").write_text("".join(lines), newline="")
            world.start_quillon()
            world.copilot.ask("command CheckFeeds")
            world.copilot.await_text("field IDC_CHECK_STATE", lambda text: text.startswith("Done."), 40)
            shown = [world.copilot.ask(f"row {number} IDC_CHECK_LIST") for number in range(1, len(servers) + 1)]
            for name, (*_, words) in servers.items():
                self.assertEqual([row.split("|")[-1] for row in shown if f"EGLL {name}" in row], [words])


def offer_newest_tls(folder):
    """Makes a stand-in for the library that Wine's TLS is built on; it offers TLS 1.3, which Wine itself never does."""
    folder.mkdir()
    (folder / "stub.c").write_text("int unused;")
    (folder / "tls.c").write_text("""
        #define _GNU_SOURCE
        #include <dlfcn.h>
        #include <stdio.h>
        int gnutls_priority_set_direct(void* session, const char* priorities, const char** error) {
            int (*real)(void*, const char*, const char**) = dlsym(RTLD_NEXT, "gnutls_priority_set_direct");
            char text[4096];
            snprintf(text, sizeof text, "%s:+VERS-TLS1.3", priorities);
            return real(session, text, error);
        }""")
    build = ["gcc", "-shared", "-fPIC", "-o"]
    library = "/usr/lib/x86_64-linux-gnu/libgnutls.so.30"
    subprocess.run([*build, folder / "stub.so", folder / "stub.c", f"-Wl,-soname,{library}"], check=True)
    subprocess.run([*build, folder / "libgnutls.so.30", folder / "tls.c", "-Wl,--no-as-needed", folder / "stub.so"],
                   check=True)
    return folder
