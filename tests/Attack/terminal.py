# SPDX-License-Identifier: MIT
"""point-collections on a terminal: it goes on after a mistake, and its prompt says when it has answered."""

import fcntl
import os
import re
import select
import subprocess
import termios
import time
from dataclasses import dataclass

LONGEST_ANSWER_SECONDS = 20
PROMPT = re.compile(rb"(?:^|\n)(\*?)> $")


class Ended(Exception):
    """The program has ended, or does not answer."""


@dataclass(frozen=True)
class Answer:
    text: str
    is_unsaved: bool  # whether the prompt after it shows unsaved changes

    @property
    def is_mistake(self):
        return any(line.startswith("error:") for line in self.text.splitlines())


def make_plain(terminal):
    """Shows what the program writes as it is, and not what is typed."""
    attributes = termios.tcgetattr(terminal)
    attributes[1] &= ~termios.OPOST
    attributes[3] &= ~termios.ECHO
    termios.tcsetattr(terminal, termios.TCSANOW, attributes)


def take_terminal():
    """Makes standard input the terminal of a new session: prompts are shown there."""
    os.setsid()
    fcntl.ioctl(0, termios.TIOCSCTTY, 0)


class Terminal:
    """The running program. Use it in a `with` statement: it is killed at the end."""

    def __init__(self, program, arguments, environment=None, folder=None):
        self.keyboard, inside = os.openpty()
        make_plain(inside)
        self.process = subprocess.Popen(
            [program, *arguments], stdin=inside, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            env={**os.environ, "LC_ALL": "C.UTF-8", **(environment or {})}, cwd=folder,
            preexec_fn=take_terminal)
        os.close(inside)
        try:
            self.welcome = self._answer()
        except Ended:
            self.__exit__()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        os.close(self.keyboard)

    def ask(self, line):
        """Types a line, and returns what the program says until it shows its prompt."""
        os.write(self.keyboard, line.encode() + b"\n")
        return self._answer()

    def _answer(self):
        output = self.process.stdout.fileno()
        said = {output: b"", self.keyboard: b""}
        deadline = time.monotonic() + LONGEST_ANSWER_SECONDS
        while True:
            prompt = PROMPT.search(said[self.keyboard])
            # What was written before the prompt is there by now.
            ready, _, _ = select.select(list(said), [], [], 0 if prompt else max(0, deadline - time.monotonic()))
            if prompt and not ready:
                text = said[output] + said[self.keyboard][:prompt.start()]
                return Answer(text.decode(errors="replace"), prompt[1] == b"*")
            if not ready:
                raise Ended("no answer after %d s; so far: %r" % (LONGEST_ANSWER_SECONDS, said))
            for source in ready:
                said[source] += self._read(source, said)

    def _read(self, source, said):
        try:
            part = os.read(source, 65536)
        except OSError:  # from a terminal that nobody has open any more
            part = b""
        if not part:
            raise Ended("ended with status %d; so far: %r" % (self.process.wait(), said))
        return part
