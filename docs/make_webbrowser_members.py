#!/usr/bin/env python3
"""Makes docs/webbrowser-members.md of the sources of the WebBrowser control.

    docs/make_webbrowser_members.py            writes docs/webbrowser-members.md
    docs/make_webbrowser_members.py --check    ends with 1 if that isn't what would be written
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TARGET = ROOT / "docs" / "webbrowser-members.md"
SOURCES = sorted((ROOT / "webbrowser").glob("*.h")) + sorted((ROOT / "webbrowser").glob("*.cpp"))

# A class says above its functions which interface they are of.
SECTION = re.compile(r"^ *// (I\w+)(?:\b|$)(.*)")
MEMBER = re.compile(r"STDMETHODIMP (\w+)\(((?:[^()]|\([^()]*\))*)\) override(;| \{(.*?)\}(?=\n|  //))", re.S)
BODY = r"\b\w+::{}\((?:[^()]|\([^()]*\))*\) \{{\n    (return [^\n]*;)\n\}}"

REFUSALS = {"Refuse": "E_NOTIMPL", "NotOffered": "E_NOTIMPL"}


def refusal(body):
    """The code with which a function refuses whatever it is asked, '' for one that answers."""
    thrown = re.fullmatch(r"\s*return Operation\(\[&\]\(\) -> HRESULT \{ throw HResultError\((E_\w+), .*\}\);\s*", body)
    if thrown:
        return thrown.group(1)
    found = re.fullmatch(r"\s*return (?:(\w+)\([^()]*\)|(E_\w+|\w+_E_\w+));\s*", body)
    if not found:
        return ""
    return REFUSALS.get(found.group(1), "") if found.group(1) else found.group(2)


def sections(text):
    """The interfaces that a source implements, each with its functions."""
    name, lines = None, []
    for line in text.splitlines() + ["};"]:
        heading = SECTION.match(line)
        if heading or line.startswith("}") or re.match(r" *(private|protected|public):", line):
            if name and lines:
                yield name, "\n".join(lines) + "\n"
            name, lines = (heading.group(1) if heading else None), []
        else:
            lines.append(line)


def interfaces():
    texts = [source.read_text(encoding="utf-8") for source in SOURCES]
    everything = "\n".join(texts)
    found = {}
    for text in texts:
        for name, body in sections(text):
            if not name.startswith(("IWebBrowser", "IHTML")):
                continue
            members = found.setdefault(name, {})
            for function, _, end, inline in MEMBER.findall(body):
                if end == ";":
                    definition = re.search(BODY.format(function), everything)
                    inline = definition.group(1) if definition else ""
                kind, member = ("read", function[4:]) if function.startswith("get_") else \
                    ("written", function[4:]) if function.startswith("put_") else ("called", function + "()")
                members.setdefault(member, {})[kind] = refusal(inline)
    return found


def table(name, members):
    functions = [code for kinds in members.values() for code in kinds.values()]
    answered = sum(not code for code in functions)
    lines = ["", f"## {name}", "", f"{answered} of {len(functions)} functions answer.", "",
             "| Member | Answers | Refuses |", "|---|---|---|"]
    for member, kinds in members.items():
        ordered = sorted(kinds.items())
        answers = ", ".join(kind for kind, code in ordered if not code)
        refuses = ", ".join(f"{kind}: {code}" for kind, code in ordered if code)
        lines.append(f"| `{member}` | {answers} | {refuses} |")
    return lines


def page():
    lines = [
        "# What the WebBrowser control answers",
        "",
        "Made by `docs/make_webbrowser_members.py` of the sources in `webbrowser/`; `./test` compares it with them. A",
        "member that answers does so by the page, so that an object of a document that is no longer shown fails with",
        "RPC_E_DISCONNECTED, and what a script throws fails with its number, or E_FAIL, and its words. A member that",
        "refuses does so whatever it is asked. By name (`IDispatch`), a member that refuses is looked up in the page, which",
        "may have it, as are all members that an interface doesn't have. A style offers IHTMLStyle and IHTMLCurrentStyle;",
        "what both have in the same form stands in IHTMLStyle's table.",
    ]
    for name, members in sorted(interfaces().items()):
        lines += table(name, members)
    return "\n".join(lines) + "\n"


def main():
    text = page()
    if "--check" not in sys.argv[1:]:
        TARGET.write_text(text, encoding="utf-8")
    elif not TARGET.exists() or TARGET.read_text(encoding="utf-8") != text:
        print("docs/webbrowser-members.md is older than webbrowser/: docs/make_webbrowser_members.py",
              file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
