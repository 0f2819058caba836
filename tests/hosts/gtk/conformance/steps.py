"""The notation of the scenarios: the command line program's own steps, read so that both sides run the same list."""

import re
import shlex
from dataclasses import dataclass


@dataclass(frozen=True)
class Member:
    """A row of docs/members.md."""

    name: str
    parameters: tuple  # the types of a method's parameters; None for a property
    type: str  # of the result or the property; "" for a method without result
    can_put: bool = False

    @property
    def is_property(self):
        return self.parameters is None

    @property
    def spelling(self):
        """The member in GObject's spelling, as Python writes it: GetRHistogram is get_r_histogram."""
        words = re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", self.name)
        return words.lower()


def read_members(path):
    """The members of the interface by name."""
    method = re.compile(r"\| 0x.. \| `(\w+)(?:\((.*?)\))?`(?: → (\w+))? \|")
    prop = re.compile(r"\| 0x.. \| `(\w+)`: (\w+) \| get(, put)? \|")
    members = {}
    for line in open(path, encoding="utf-8"):
        if row := prop.match(line):
            members[row[1]] = Member(row[1], None, row[2], row[3] is not None)
        elif row := method.match(line):
            types = tuple(parameter.split()[0] for parameter in row[2].split(", ")) if row[2] else ()
            members[row[1]] = Member(row[1], types, row[3] or "")
    return members


ARITY = {"@size": 2, "@press": 2, "@move": 2, "@release": 2, "@rightpress": 2, "@rightrelease": 2, "@drop": 1,
         "@tick": 1, "@view": 1, "-o": 1}


def parse(text, members):
    """The steps of a scenario, each a list of words."""
    words, steps = shlex.split(text, comments=True), []
    while words:
        word = words[0]
        if word == "@drag":
            count = words.index("@end")
        elif word in ARITY:
            count = ARITY[word]
        elif "=" in word or word.endswith("?"):
            count = 0
        else:
            member = members[word]
            count = len(member.parameters) + (member.type == "ByteArray")  # GetImageArray FILE
        steps.append(words[:count + 1])
        words = words[count + 1:]
    return steps


def as_a_hand_does(steps):
    """The same steps with single mouse messages, and with the moves that a real pointer makes: it has to go where
    it presses or lets go. It starts at the view's upper left corner, as the pointer of a window in memory does."""
    pointer, result = ("0", "0"), []

    def go(x, y):
        nonlocal pointer
        if pointer != (x, y):
            result.append(["@move", x, y])
        pointer = (x, y)

    for step in steps:
        if step[0] == "@drag":
            points = list(zip(step[1:-1:2], step[2:-1:2]))
            go(*points[0])
            result.append(["@press", *points[0]])
            for point in points[1:]:
                go(*point)
            result.append(["@release", *points[-1]])
        elif step[0] in ("@move", "@press", "@release", "@rightpress", "@rightrelease"):
            go(*step[1:])
            if step[0] != "@move":
                result.append(step)
        else:
            result.append(step)
    return result
