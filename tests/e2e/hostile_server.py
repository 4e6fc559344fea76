"""A badly behaved server of live audio, on loopback. The requested path names the behaviour."""
import collections
import hashlib
import os
import random
import re
import socket
import socketserver
import ssl
import struct
import subprocess
import threading
import time

SECONDS = 60  # length of the tones
BYTES_A_SECOND = 8000
FRAME = 288  # bytes: 64 kbit/s at 32 kHz never needs padding
ROOTS = r"HKCU\Software\Microsoft\SystemCertificates\Root\Certificates"
OK = b"HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\n\r\n"
GARBAGE = random.Random(1).randbytes(700)


def make_tone(path, tone, rate=32000, channels=1, quality="-b:a 64k -reservoir 0"):
    if not path.exists():
        wave = f"sine=frequency={tone}:sample_rate={rate}:duration={SECONDS},volume=3"
        subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", wave, "-ac", str(channels), *quality.split(),
                        "-write_xing", "0", "-id3v2_version", "0", path], check=True)
    return path.read_bytes()


def with_lengths(sound, change, every):
    """ADTS whose headers, one in so many, lie about the length of their frame by `change` bytes."""
    frames = []
    while len(sound) > 6:
        length = (sound[3] & 3) << 11 | sound[4] << 3 | sound[5] >> 5
        lie = min(length + change, 8191) if len(frames) % every == 0 else length
        frames.append(sound[:3] + bytes([sound[3] & 0xFC | lie >> 11, lie >> 3 & 255, sound[5] & 31 | (lie & 7) << 5])
                      + sound[6:length])
        sound = sound[length:]
    return b"".join(frames)


def with_titles(sound, every, title):
    """The sound with announcements in it: empty, odd and of the greatest length."""
    pieces = [sound[at:at + every] for at in range(0, len(sound), every)]
    lengths = (0, 1, 3, 0, 255, 0, 7) * len(pieces)
    return b"".join(piece + bytes([length]) + title[:16 * length] for piece, length in zip(pieces, lengths))


class Visit(socketserver.BaseRequestHandler):
    """One request. The methods send or wait, and can be chained."""

    def handle(self):
        try:
            self.name = name = self.request.recv(4096).decode("latin-1").split(" ")[1].lstrip("/").split("?")[0]
            self.server.asked[name] += 1
            self.number = self.server.asked[name]  # this name's visits so far
            self.tone = self.server.tones.get(name.split(".")[0], b"")
            self.request.settimeout(90)
            BEHAVIOURS.get(name, lambda visit: visit.answer("404 Not Found"))(self)
        except (OSError, IndexError):
            pass  # the client has gone

    def send(self, data):
        self.request.sendall(data)
        return self

    def answer(self, status, more=""):
        return self.send(f"HTTP/1.1 {status}\r\n{more}\r\n".encode())

    def body(self, kind, body):
        return self.answer("200 OK", f"Content-Type: {kind}\r\n").send(body)

    def wait(self, seconds):
        time.sleep(max(0, seconds))
        return self

    def drip(self, data, pause):
        for byte in data:
            self.send(bytes([byte])).wait(pause)
        return self

    def play(self, seconds=SECONDS, sound=None, rate=BYTES_A_SECOND, packed=lambda piece: piece):
        """Sends sound in real time, one second ahead."""
        sound = (sound or self.tone)[:int(seconds * rate)]
        start = time.monotonic() - 1
        for at in range(0, len(sound), FRAME * 5):
            self.send(packed(sound[at:at + FRAME * 5])).wait(start + at / rate - time.monotonic())
        return self

    def fine(self):
        return self.send(OK).play()

    def reset(self):
        self.request.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self.request.close()


class SecureVisit(Visit):
    """One connection to a server that a redirect of the same name leads to."""

    def handle(self):
        name = self.server.name
        self.number, self.tone = self.server.plain.asked[name], self.server.plain.tones[name]
        try:
            TROUBLES[name](self)
        except OSError:
            pass  # the client has gone
        self.request.close()

    def shake_hands(self):
        self.request = self.server.context.wrap_socket(self.request, server_side=True)
        self.request.recv(4096)
        return self

    def fine(self):
        self.shake_hands()
        return super().fine()

    def spoil(self, bytes):
        """Sends what is not encrypted."""
        os.write(self.request.fileno(), bytes)


def on_first(spoil):
    """Misbehaves on the first visit and plays on later ones."""
    return lambda visit: spoil(visit) if visit.number == 1 else visit.fine()


BEHAVIOURS = {
    **dict.fromkeys(("relative-redirect.end", "trusted.mp3", "nested.mp3", "wpl.2"), Visit.fine),
    "mute": on_first(lambda v: v.wait(40)), "hang-up": lambda v: v, "empty": lambda v: v.send(OK),
    "slow-head": lambda v: v.drip(OK, 0.08).play(),
    "endless-head": lambda v: v.send(b"HTTP/1.1 200 OK\r\n" + b"X-More: and more\r\n" * 20000),
    "stranger": lambda v: v.send(b"SSH-2.0-OpenSSH_9.2\r\n").wait(5),
    "endless-playlist": lambda v: v.body("audio/x-mpegurl", b"#EXTM3U\n" + b"# more\n" * 90000),
    "redirect-loop": lambda v: v.answer("302 Found", "Location:redirect-loop\r\n"),
    "relative-redirect": lambda v: v.answer("302 Found", "location: ../relative-redirect.end?a=b\r\n"),
    "untrusted": lambda v: v.answer("302 Found", f"Location: https://{v.server.untrusted.address('untrusted')}\r\n"),
    "length-too-short": lambda v: v.answer("200 OK", "Content-Length: 24000\r\n").play(),
    "length-too-long": on_first(lambda v: v.answer("200 OK", "Content-Length: 99999999\r\n").play(3)),
    "icy": lambda v: v.send(b"ICY 200 OK\nicy-name:x\nContent-Type:audio/mpeg\n\n").play(),
    "chunked": lambda v: v.answer("200 OK", "Transfer-Encoding: chunked\r\n").play(
        packed=lambda p: b"1\r\n" + p[:1] + b"\r\n%X;x=y\r\n" % (len(p) - 1) + p[1:] + b"\r\n"),
    "close-in-frame": on_first(lambda v: v.send(OK).play(sound=v.tone[:FRAME * 85 + 100])),
    "reset": on_first(lambda v: v.send(OK).play(4).reset()),
    "garbage": lambda v: v.send(OK).play(packed=lambda p: p + GARBAGE),
    "format-change": lambda v: v.send(OK).play(3).play(sound=v.server.tones["other"]),
    "404-then-fine": lambda v: v.answer("404 Not Found") if v.number < 3 else v.fine(),
    "401": lambda v: v.answer("401 Unauthorized"), "410": lambda v: v.answer("410 Gone"),
    "html": lambda v: v.body("text/html", b"<html>Log in to listen</html>"),
    "sly-html": lambda v: v.body("audio/mpeg", b"\r\n<!DOCTYPE html><p>Log in to listen"),
    **dict.fromkeys(("aac", "aac-mono", "aac-without-decoder"), lambda v: v.answer(
        "200 OK", "Content-Type: audio/aac\r\n").play(sound=v.tone[len(v.tone) // 3:], rate=len(v.tone) / SECONDS)),
    "drip": on_first(lambda v: v.send(OK).drip(v.tone[:60], 1)),
    "titles": lambda v: v.send(b"ICY 200 OK\r\nicy-metaint:997\r\n\r\n").play(
        sound=with_titles(v.tone, 997, v.server.tones["none"]), rate=2 * BYTES_A_SECOND),
    "tagged": lambda v: v.send(OK + b"ID3\4\0\0\0\x0c\0\0" + GARBAGE * 280 + b"\0" * 608).play(),
    "nested": lambda v: v.body("audio/x-mpegurl", b"\xef\xbb\xbf#EXTM3U\r#\r\r  gone \rnested.pls\r"),
    "nested.pls": lambda v: v.body(
        "audio/x-scpls", b"[Playlist]\r\n\r\nFile7 = /x/../nested.asx\r\nTitle7=x\rNumberOfEntries=9\n"),
    "nested.asx": lambda v: v.body("video/x-ms-asf", b"<ASX><Entry>\n<REF HREF='/nested.mp3?a=1&b=2' ></ASX>").wait(2),
    "wpl": lambda v: v.body("text/plain", b"<?wpl?><smil><media src='/wpl.1'/><media src='wpl.2'/></smil>"),
    "silence": lambda v: v.send(OK).play(14, v.server.tones["none"]).play(),
    "stall": on_first(lambda v: v.send(OK).play(4).wait(40)),
    "adts-short": lambda v: v.send(OK).play(sound=with_lengths(v.tone, -40, 9)),
    "adts-long": lambda v: v.send(OK).play(sound=with_lengths(v.tone, 40, 9)),
    "adts-endless": lambda v: v.send(OK + with_lengths(v.tone, 8191, 1)),
    "adts-reserved": lambda v: v.send(OK + v.tone.replace(v.tone[:3], v.tone[:2] + b"\x74")),
    "aac-change": lambda v: v.send(OK).play(3).play(sound=v.server.tones["other-aac"]),
    "aac-garbage": on_first(lambda v: v.send(OK).play(4).send(GARBAGE * 200).wait(9)),
    "mp4": lambda v: v.send(OK + b"\0\0\0\x1cftypM4A " + GARBAGE), "adif": lambda v: v.send(OK + b"ADIF" + GARBAGE),
    "latm": lambda v: v.send(OK).play(9),
    **{f"mp3-{number}": lambda v: v.send(OK).play(  # joined in the middle of a frame, most likely
        sound=v.tone[len(v.tone) // 3:], rate=len(v.tone) / SECONDS) for number in range(12)},
}

TROUBLES = {  # of TLS
    "tls-mute": on_first(lambda v: v.wait(40)), "tls-stranger": on_first(lambda v: v.send(GARBAGE)),
    "tls-half": on_first(lambda v: v.send(b"\x16\3\3\0\x7a\2\0\0\x76\3\3" + GARBAGE[:60])),
    "tls-empty": on_first(lambda v: [v.send(b"\x16\3\3\0\0" * 999) for _ in range(99999)]),
    "tls-cut": on_first(lambda v: v.shake_hands().send(OK).play(4)),
    "tls-damaged": on_first(lambda v: v.shake_hands().send(OK).play(4).spoil(b"\x17\3\3\2\0" + GARBAGE)),
}
BEHAVIOURS |= dict.fromkeys(TROUBLES, lambda visit: visit.answer(
    "302 Found", f"Location: https://localhost:{visit.server.troubled[visit.name].server_address[1]}/\r\n"))


def make_certificate(path, name):
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=Hostile", "-addext",
                    f"subjectAltName={name}", "-keyout", path, "-out", path], check=True, capture_output=True)
    return path


def make_expired_certificate(path, name):
    """Valid for its first second only."""
    valid = make_certificate(path.with_suffix(".valid"), name)
    subprocess.run(["openssl", "x509", "-in", valid, "-signkey", valid, "-days", "0", "-out", path], check=True)
    path.write_text(valid.read_text().partition("-----BEGIN CERT")[0] + path.read_text())
    return path


def trust(prefix, certificate):
    """Makes it a root of the prefix's user: its hash and itself, each behind its number, a 1 and its length."""
    der = ssl.PEM_cert_to_DER_cert(re.search("-----BEGIN CERT.*", certificate.read_text(), re.DOTALL)[0])
    sha1 = hashlib.sha1(der).digest()
    blob = struct.pack("<III", 3, 1, len(sha1)) + sha1 + struct.pack("<III", 32, 1, len(der)) + der
    key = ROOTS + "\\" + sha1.hex().upper()
    prefix.run("reg", "add", key, "/v", "Blob", "/t", "REG_BINARY", "/d", blob.hex(), "/f")


class HostileServer(socketserver.ThreadingTCPServer):
    """`tones` maps the names of behaviours to their sounds."""
    daemon_threads = True

    def __init__(self, tones, folder, certificate=None, version=None):
        super().__init__(("127.0.0.1", 0), Visit)
        self.tones, self.asked = tones, collections.Counter()
        self.certificate = certificate
        if certificate:
            self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            self.context.load_cert_chain(certificate)
            if version:
                self.context.minimum_version = self.context.maximum_version = version
            self.socket = self.context.wrap_socket(self.socket, server_side=True)
        else:
            self.untrusted = HostileServer(tones, folder, make_certificate(folder / "untrusted.pem", "IP:127.0.0.1"))
            self.trusted = HostileServer(tones, folder, make_certificate(folder / "trusted.pem", "DNS:localhost"))
            self.troubled = {name: TroubledServer(name, self) for name in TROUBLES}
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def address(self, name):
        return f"127.0.0.1:{1 if name == 'refuse' else self.server_address[1]}/{name}"


class TroubledServer(socketserver.ThreadingTCPServer):
    """Where a trouble's redirect leads to."""
    daemon_threads = True

    def __init__(self, name, plain):
        super().__init__(("127.0.0.1", 0), SecureVisit)
        self.name, self.plain, self.context = name, plain, plain.trusted.context
        threading.Thread(target=self.serve_forever, daemon=True).start()
