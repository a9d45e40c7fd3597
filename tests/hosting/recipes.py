"""The recipes of docs/hosting.md, as they are printed there."""

import re

from serving import REPOSITORY

HEADING = re.compile(r"^#{2,3} (.*)$", re.MULTILINE)
BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)

IN_MEMORY, IN_REDIS = "HAProxy, sessions in memory", "HAProxy, sessions in Redis"
OF_INSTANCES = {IN_MEMORY, IN_REDIS}  # have several servers behind them, and tests of their own


def recipes():
    """By heading: the section's blocks by their language."""
    text = (REPOSITORY / "docs/hosting.md").read_text()
    places = list(HEADING.finditer(text)) + [None]
    found = {}
    for place, following in zip(places, places[1:]):
        section = text[place.end():following.start() if following else len(text)]
        found[place.group(1)] = dict(BLOCK.findall(section))
    return found


def settings_of(block):
    """The lines of Server.ini in a block."""
    return dict(line.split("=", 1) for line in block.splitlines())


def with_own(text, changes):
    """The text with this machine's ports and paths. Each has to be there, so that none of the
    recipe's own is used by mistake."""
    for printed, own in changes.items():
        if printed not in text:
            raise AssertionError("%r is not in the recipe:\n%s" % (printed, text))
        text = text.replace(printed, own)
    return text
