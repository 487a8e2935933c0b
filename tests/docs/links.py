"""Every page of docs/ is linked from docs/README.md, and no link of any page leads nowhere. Usage: links.py"""

import os
import re
import sys

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
INDEX = "docs/README.md"
# This one is the first part of docs/commands.md, and its links count from there.
PARTS = ("docs/make/commands_head.md",)


def pages():
    """All Markdown files of the tree, but what is built or hidden."""
    for folder, folders, files in os.walk(SOURCE):
        folders[:] = [name for name in folders if not name.startswith(".") and (folder != SOURCE or name != "build")]
        for name in files:
            page = os.path.relpath(os.path.join(folder, name), SOURCE)
            if name.endswith(".md") and page not in PARTS:
                yield page


def prose(page):
    """The lines of a page that aren't in a fenced example, numbered."""
    inside = False
    with open(os.path.join(SOURCE, page), encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if line.startswith("```"):
                inside = not inside
            elif not inside:
                yield number, line


def anchors(page):
    """What a link into a page can name: its headings in small letters, blanks as hyphens, without other signs."""
    found = set()
    for _, line in prose(page):
        heading = re.match(r"#+ +(.*?) *$", line)
        if heading:
            text = re.sub(r"[^\w -]", "", heading[1].lower()).replace(" ", "-")
            found.add(text if text not in found else text + "-1")
    return found


def links(page):
    """Line and target of each link and picture that stays in the tree."""
    for number, line in prose(page):
        text = re.sub(r"`[^`]*`(?!\])", "", line)  # code has brackets of its own
        for target in re.findall(r"\]\(([^)\s]*)\)|<img src=\"([^\"]*)\"", text):
            target = "".join(target)
            if not re.match(r"[a-z]+:", target):
                yield number, target


failed = []
linked = set()
for page in sorted(pages()):
    for number, target in links(page):
        path, _, anchor = target.partition("#")
        to = os.path.normpath(os.path.join(os.path.dirname(page), path)) if path else page
        if page == INDEX:
            linked.add(to)
        if not os.path.exists(os.path.join(SOURCE, to)):
            failed.append("%s:%d: %s isn't there" % (page, number, target))
        elif anchor and (not to.endswith(".md") or anchor not in anchors(to)):
            failed.append("%s:%d: %s has no heading #%s" % (page, number, to, anchor))
for page in sorted(pages()):
    if page not in linked | {INDEX}:
        failed.append("%s isn't linked from %s" % (page, INDEX))
print("\n".join(failed) or "%d pages are linked" % len(linked))
sys.exit(1 if failed else 0)
