"""The examples of a Markdown page: its fenced blocks, in their order."""

import collections
import re

Block = collections.namedtuple("Block", "line language words text")  # words: what else stands on the fence


class BadPage(Exception):
    """What is wrong with the page, and where."""


def blocks(path):
    """The fenced blocks of a page; an example that isn't fenced, or doesn't say what it is, is a BadPage."""
    found, inside, before = [], None, ""
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file.read().split("\n"), 1):
            if inside is None and line.startswith("```"):
                language, *words = line[3:].split() or [""]
                if not language:
                    raise BadPage("%d: this fence doesn't say what is in it" % number)
                inside = Block(number, language, words, [])
            elif inside is not None and line.startswith("```"):
                found.append(inside._replace(text="".join(row + "\n" for row in inside.text)))
                inside = None
            elif inside is not None:
                inside.text.append(line)
            elif re.match(r" {4,}\S|\t", line) and before == "":
                raise BadPage("%d: an indented example; fence it, and say on the fence what it is" % number)
            before = line.strip()
    if inside is not None:
        raise BadPage("%d: this fence isn't closed" % inside.line)
    return found
