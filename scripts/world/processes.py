"""Child processes that never outlive us."""
import subprocess
import time

# Stops the program when we end, however we end. setpriv replaces itself with the program.
END_WITH_PARENT = ("setpriv", "--pdeathsig", "TERM", "--")


class Processes:
    def __init__(self, log_folder):
        self.log_folder = log_folder
        self.running = []

    def start(self, name, command, env=None, **options):
        with open(self.log_folder / f"{name}.log", "ab") as log:
            options.setdefault("stdout", log)
            process = subprocess.Popen([*END_WITH_PARENT, *command], env=env, stderr=log, start_new_session=True,
                                       **options)
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
    """Polls until the condition returns something true, and returns that. Raises TimeoutError."""
    deadline = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {seconds} s for {what}")
        time.sleep(0.05)
