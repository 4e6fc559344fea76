"""Ways to make the files of a station's data folder unusable. Each is a function of a station and a path."""
import contextlib
import subprocess


def read_only(_, path):
    path.chmod(0o444)


def lock(station, path):
    """Like another program that opens it exclusively."""
    station.copilot.ask(f"lock {station.windows_path(path)}")


def put_folder(_, path):
    """Puts a folder in the file's place, and the file next to it."""
    path.rename(path.with_name(path.name + ".was"))
    path.mkdir()


def take_folder(station, _):
    """Moves the whole data folder away."""
    if station.data.exists():
        station.data.rename(station.data.with_name("Quillon.was"))


def fill_disk(station, _):
    with open(station.data / "ballast", "ab", buffering=0) as ballast:
        with contextlib.suppress(OSError):
            while ballast.write(bytes(4096)):
                pass


@contextlib.contextmanager
def small_disk(station):
    """Mounts an empty 1 MB disk over the data folder; needs root."""
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", station.data], check=True)
    try:
        yield
    finally:
        subprocess.run(["umount", "-l", station.data])
