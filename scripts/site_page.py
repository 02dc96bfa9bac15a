#!/usr/bin/env python3
"""Prints a document in the form that Doxygen needs: scripts/site_page.py docs/lists.md

Links to what is not on the site become plain text, those to headers the name of the header, which
Doxygen makes a link again. Doxygen does not know places within a page: a link to one becomes a link
to its page, or plain text on that page itself. Code spans with quotes or a percent sign, which Doxygen does not keep as
they are, become HTML, and two hyphens stay two.
"""
import os
import re
import sys

BLOCK = re.compile(r"(^```.*?^```$|^(?:    [^\n]*\n)+)", re.M | re.S)  # fenced or indented code
LINK = r"(?<!!)\[(?P<label>(?:`[^`]*`|[^][`])+)\]\((?P<target>[^)\s]*)\)"
SPAN = r"(?<!`)(?P<quotes>`+)(?!`)(?P<code>(?:(?!\n\n).)+?)(?<!`)(?P=quotes)(?!`)"
HYPHENS = r"(?<![-|:\w])(?P<hyphens>--)(?=\w)"
INLINE = re.compile(f"{LINK}|{SPAN}|{HYPHENS}", re.S)


def link(label, target, folder):
    plain = label.replace("`", "")
    path = os.path.normpath(os.path.join(folder, target.split("#")[0]))
    on_site = path.endswith(".md") and os.path.dirname(path) in ("", "docs")
    if re.match(r"https?:", target):
        return f"[{plain}]({target})"
    if on_site and not target.startswith("#"):
        return f"[{plain}]({target.split('#')[0]})"
    return plain if path.endswith(".h") and path.startswith("include/") else label


def span(whole, code):
    if not re.search("['\"%]", code):
        return whole
    return "<code>" + re.sub(r"([\\@&$#<>%\"])", r"\\\1", code) + "</code>"


def main():
    path = sys.argv[1]
    folder = os.path.dirname(os.path.relpath(path))

    def inline(match):
        if match["target"] is not None:
            return link(match["label"], match["target"], folder)
        return span(match[0], match["code"]) if match["code"] else r"\--"

    with open(path, encoding="utf-8") as file:
        parts = BLOCK.split(file.read())
    for at, part in enumerate(parts):  # each second one is code
        sys.stdout.write(part if at % 2 else INLINE.sub(inline, part))


main()
