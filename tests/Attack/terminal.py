# SPDX-License-Identifier: MIT
"""point-collections on a terminal: it goes on after a mistake, and its prompt says when it has answered."""

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


def without_echo(terminal):
    attributes = termios.tcgetattr(terminal)
    attributes[3] &= ~termios.ECHO
    termios.tcsetattr(terminal, termios.TCSANOW, attributes)


class Terminal:
    """The running program. Use it in a `with` statement: it is killed at the end."""

    def __init__(self, program, arguments, environment=None, folder=None):
        self.keyboard, inside = os.openpty()
        without_echo(inside)
        self.process = subprocess.Popen(
            [program, *arguments], stdin=inside, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            env={**os.environ, "LC_ALL": "C.UTF-8", **(environment or {})}, cwd=folder)
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
        said = b""
        deadline = time.monotonic() + LONGEST_ANSWER_SECONDS
        while True:
            prompt = PROMPT.search(said)
            if prompt:
                return Answer(said[:prompt.start()].decode(errors="replace"), prompt[1] == b"*")
            ready, _, _ = select.select([self.process.stdout], [], [], max(0, deadline - time.monotonic()))
            if not ready:
                raise Ended("no answer after %d s; so far: %r" % (LONGEST_ANSWER_SECONDS, said))
            part = os.read(self.process.stdout.fileno(), 65536)
            if not part:
                raise Ended("ended with status %d; so far: %r" % (self.process.wait(), said))
            said += part
