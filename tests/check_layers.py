#!/usr/bin/env python3
"""Shows that includes point one way.

    check_layers.py BUILD LAYER[:USED,...]...

BUILD is the folder of a build that is up to date. The layers come from the lowest to the highest, each with those that
its CMakeLists.txt names, and may name only lower ones. A source of a layer must find the headers of its own layer, of
those named and of what these name, and no other layer's: that is asked of the preprocessor, with the options that the
source is compiled with. No source goes round that with "..".
"""

import json
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
INCLUDE_UPWARD = re.compile(r'^\s*#\s*include\s*["<](?:[^">]*/)?\.\./', re.MULTILINE)


def probe_of(headers):
    """A source whose preprocessed text is the list of the headers that it can include."""
    return "".join(f"#if __has_include(<{name}>)\nfound {name}\n#endif\n" for name in headers)


def include_options(command):
    """The compiler and what it is told of includes."""
    words = shlex.split(command)
    options = [words[0]]
    for word, following in zip(words, words[1:] + [""]):
        if word in ("-isystem", "-include", "-iquote", "-idirafter", "-I"):
            options += [word, following]
        elif word.startswith("-I"):
            options.append(word)
    return tuple(options)


def check(build, layers):
    with open(build / "compile_commands.json", encoding="utf-8") as file:
        commands = json.load(file)
    failures = []
    reached = {}  # what a layer may include, directly or not
    for layer, used in layers.items():
        for name in used:
            if name not in reached:
                failures.append(f"{layer}/CMakeLists.txt names {name}, which isn't lower")
        reached[layer] = {layer}.union(*(reached.get(name, {name}) for name in used))

    headers = {}
    for layer in layers:
        headers[layer] = [f"{layer}/{path.name}" for path in sorted((ROOT / layer).glob("*.h"))]
        if not headers[layer]:
            failures.append(f"{layer}/ holds no header")
        # Interfaces and the like are included by their bare names.
        headers[layer] += [path.name for path in sorted((build / "generated" / layer).glob("*.h"))]
    probe = probe_of(name for names in headers.values() for name in names)
    answers = {}  # by options: the headers found
    sources = dict.fromkeys(layers, 0)
    for command in commands:
        path = pathlib.Path(command["file"])
        if path.suffix != ".cpp" or path.parent.parent != ROOT or path.parent.name not in layers:
            continue
        layer = path.parent.name
        sources[layer] += 1
        options = include_options(command["command"])
        if options not in answers:
            with tempfile.NamedTemporaryFile("w", suffix=".cpp") as file:
                file.write(probe)
                file.flush()
                text = subprocess.run([*options, "-E", "-P", file.name], cwd=command["directory"], check=True,
                                      capture_output=True, text=True).stdout
            answers[options] = set(re.findall(r"^found (\S+)$", text, re.MULTILINE))
        expected = {name for used in reached[layer] for name in headers[used]}
        for name in sorted(answers[options] - expected):
            failures.append(f"{layer}/{path.name} can include {name}")
        for name in sorted(expected - answers[options]):
            failures.append(f"{layer}/{path.name} can't include {name}")
    # The identifiers of resources are headers alone.
    failures += [f"no source of {layer}/ is compiled" for layer, count in sources.items()
                 if count == 0 and layer != "resources"]

    for layer in layers:
        for path in sorted((ROOT / layer).rglob("*")):
            if path.suffix in (".cpp", ".h", ".rc", ".idl") and INCLUDE_UPWARD.search(path.read_text("utf-8-sig")):
                failures.append(f'{path.relative_to(ROOT)} includes by ".."')
    return failures


def main():
    layers = {}
    for argument in sys.argv[2:]:
        layer, _, used = argument.partition(":")
        layers[layer] = used.split(",") if used else []
    failures = check(pathlib.Path(sys.argv[1]), layers)
    for failure in failures[:20]:
        print(failure)
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
