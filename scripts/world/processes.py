"""Processes that are stopped again."""
import ctypes
import signal
import subprocess
import time


PR_SET_PDEATHSIG = 1


def end_with_parent():
    """Whatever ends us, our processes do not stay behind."""
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


class Processes:
    def __init__(self, log_folder):
        self.log_folder = log_folder
        self.running = []

    def start(self, name, command, env=None, **options):
        with open(self.log_folder / f"{name}.log", "ab") as log:
            options.setdefault("stdout", log)
            process = subprocess.Popen(command, env=env, stderr=log, start_new_session=True,
                                       preexec_fn=end_with_parent, **options)
        self.running.append(process)
        return process

    def close(self):
        for process in reversed(self.running):
            if process.poll() is None:
                process.terminate()
        for process in reversed(self.running):
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
            for pipe in (process.stdin, process.stdout):
                if pipe:
                    pipe.close()
        self.running.clear()


def wait_until(what, condition, seconds):
    """Polls until the condition gives something true, which is returned."""
    deadline = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {seconds} s for {what}")
        time.sleep(0.05)
