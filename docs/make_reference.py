#!/usr/bin/env python3
"""Makes docs/reference.md of the interface descriptions and their help texts, which object browsers show too.

    docs/make_reference.py            writes docs/reference.md
    docs/make_reference.py --check    ends with 1 if docs/reference.md is not what would be written, or a help text
                                      is missing
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TARGET = ROOT / "docs" / "reference.md"
DESCRIPTIONS = [
    ("control/nuxStdPartsAX.idl", "What hosts and scripts call"),
    ("environment/Inux3D.idl", "What a host implements"),
    ("sample/host/SampleHost.idl", "The sample host, for scripts without a CAD application"),
]

TEXT = r'"(?:\\.|[^"\\])*"'
ATTRIBUTES = rf"\[((?:{TEXT}|[^\]\"])*)\]"
INTERFACE = re.compile(rf"{ATTRIBUTES}\s*(dispinterface|interface|coclass)\s+(\w+)[^{{;]*\{{(.*?)\n    \}};", re.S)
MEMBER = re.compile(rf"{ATTRIBUTES}\s*(?:HRESULT|void)\s+(\w+)\s*\(((?:[^()]|\([^()]*\))*)\)\s*;", re.S)
ARGUMENT = re.compile(r"\[([^\]]*)\]\s*(\w+)\s*(\**)\s*(\w+)")


def without_comments(text):
    return re.sub(rf"({TEXT})|//[^\n]*", lambda found: found.group(1) or "", text)


def help_text(attributes):
    found = re.search(rf"helpstring\(({TEXT})\)", attributes)
    return re.sub(r"\\(.)", r"\1", found.group(1)[1:-1]) if found else ""


def member_row(interface, attributes, name, arguments, lacking):
    number = re.search(r"\bid\((\d+)\)", attributes).group(1)
    given, result = [], ""
    for directions, kind, stars, argument in ARGUMENT.findall(arguments):
        words = directions.replace(" ", "").split(",")
        if "retval" in words:
            result = kind + stars[1:]
        else:
            default = re.search(r"defaultvalue\(([^)]*)\)", directions)
            given.append(f"{kind}{stars} {argument}" + (f" = {default.group(1)}" if default else ""))
    if "propget" in attributes:
        call = f"{name}: {result}"
    elif "propput" in attributes:
        call = f"{name} = {given[-1].split()[0]}"
    else:
        call = f"{name}({', '.join(given)})" + (f": {result}" if result else "")
    said = help_text(attributes)
    if not said:
        lacking.append(f"{interface}.{name}")
    return f"| {number} | `{call}` | {said.replace('|', chr(92) + '|')} |"


def reference():
    lacking = []
    lines = [
        "# Reference",
        "",
        "Made by `docs/make_reference.py` of the interface descriptions; `./test` compares it with them. Types are those",
        "of automation: BSTR a text, long a number of 32 bits, VARIANT any value, IDispatch an object. `Name: type` is",
        "read, `Name = type` is written; numbers are DISPIDs. [hosting.md](hosting.md) tells how the calls belong together.",
    ]
    for file, title in DESCRIPTIONS:
        text = without_comments((ROOT / file).read_text(encoding="utf-8"))
        lines += ["", f"## {title}", "", f"`{file}`"]
        for attributes, kind, interface, body in INTERFACE.findall(text):
            members = MEMBER.findall(body)
            if kind == "coclass" or not help_text(attributes):
                if kind != "coclass":
                    lacking.append(interface)
                continue
            lines += ["", f"### {interface}"]
            if help_text(attributes) != f"{interface} Interface":  # the usual word for the one that says it all
                lines += ["", help_text(attributes) + "."]
            if members:
                lines += ["", "| Number | Member | Does |", "|---|---|---|"]
                lines += [member_row(interface, *member, lacking) for member in members]
    return "\n".join(lines) + "\n", lacking


def main():
    text, lacking = reference()
    for member in lacking:
        print(f"{member} has no help text", file=sys.stderr)
    if "--check" not in sys.argv[1:]:
        TARGET.write_text(text, encoding="utf-8")
    elif not TARGET.exists() or TARGET.read_text(encoding="utf-8") != text:
        print("docs/reference.md is older than the interface descriptions: docs/make_reference.py", file=sys.stderr)
        return 1
    return 1 if lacking else 0


if __name__ == "__main__":
    sys.exit(main())
