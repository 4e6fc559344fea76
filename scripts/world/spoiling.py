"""Ways in which the files of a station's data folder cannot be used. Each is a function of station and path."""
import contextlib
import subprocess


def read_only(_, path):
    path.chmod(0o444)


def lock(station, path):
    """As another program does that opens it for itself alone."""
    station.copilot.ask(f"lock {station.windows_path(path)}")


def put_folder(_, path):
    """A folder in the file's place, which lies beside it."""
    path.rename(path.with_name(path.name + ".was"))
    path.mkdir()


def take_folder(station, _):
    """The whole data folder goes."""
    if station.data.exists():
        station.data.rename(station.data.with_name("Quillon.was"))


def fill_disk(station, _):
    with open(station.data / "ballast", "ab", buffering=0) as ballast:
        with contextlib.suppress(OSError):
            while ballast.write(bytes(4096)):
                pass


@contextlib.contextmanager
def small_disk(station):
    """An empty data folder on a disk of 1 MB; takes root."""
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", station.data], check=True)
    try:
        yield
    finally:
        subprocess.run(["umount", "-l", station.data])
