#!/usr/bin/env python3
"""Finds assertions of tests that name the value that came before the one that is expected.

    check_assertions.py [--fix] [FILE...]      all sources of tests/ and bench/ if none is named

What is expected comes first: EXPECT_EQ(S_OK, object.Save()). A value counts as expected if it is made of literals,
constants and types alone, or is called so. --fix exchanges the two; clang-format then sees to the lines.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
ASSERTION = re.compile(r"\b(?:EXPECT|ASSERT)_(?:EQ|NE|STREQ|STRNE|DOUBLE_EQ|FLOAT_EQ|NEAR)\(")
LITERAL = re.compile(r'(?:u8|[uUL])?R"([^(\s]*)\(.*?\)\1"\w*|(?:u8|[uUL])?"(?:\\.|[^"\\])*"\w*'
                     r"|[uUL]?'(?:\\.|[^'\\])+'|\b\d[\w.']*", re.DOTALL)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
# What a constant may be made with beside literals.
MAKERS = re.compile(r"""\b(?:std::)?(?:string|wstring|u8string|string_view|wstring_view|vector|pair|tuple|set|map|array
    |multiset|optional|nullopt|make_pair|size_t|u?int\d+_t|numeric_limits|static_cast|unsigned|signed|int|long|short
    |char|wchar_t|bool|double|float|const|true|false|nullptr|sizeof|RECT|POINT|SIZE|GUID|HRESULT|LONG|DWORD|UINT|BSTR
    |HWND|WORD|LPARAM|WPARAM|COLORREF)\b""", re.VERBOSE)
CONSTANT_NAME = re.compile(r"\b[A-Z][A-Z0-9]*(?:_[A-Za-z0-9]+)+\b|\b[A-Z][A-Za-z]*::[A-Z]\w*\b(?!\s*[(:])")
EXPECTED = re.compile(r"\b(?:expected|wanted)\w*", re.IGNORECASE)


def blank(match):
    """Literals and comments, as long as they were, without what could be read as code."""
    return "0" * len(match.group()) if not match.group().startswith("/") else " " * len(match.group())


def arguments_of(code, start):
    """The places of a call's arguments, from behind its opening parenthesis."""
    places, depth, begin = [], 0, start
    for index in range(start, len(code)):
        letter = code[index]
        if letter in "([{":
            depth += 1
        elif letter in ")]}":
            if depth == 0:
                return places + [(begin, index)]
            depth -= 1
        elif letter == "," and depth == 0:
            places.append((begin, index))
            begin = index + 1
    return []


def joined_templates(code, places):
    """Commas between the angle brackets of a template separate nothing."""
    joined = []
    for begin, end in places:
        if joined and code[joined[-1][0]:joined[-1][1]].count("<") > code[joined[-1][0]:joined[-1][1]].count(">"):
            joined[-1] = (joined[-1][0], end)
        else:
            joined.append((begin, end))
    return joined


def constant(code):
    rest = CONSTANT_NAME.sub("", MAKERS.sub("", code))
    return not re.search(r"[A-Za-z_]", rest) and bool(re.search(r"\w", code))


def turned(text):
    """The places of both values of each assertion that names them in the other order."""
    code = COMMENT.sub(blank, LITERAL.sub(blank, text))
    for match in ASSERTION.finditer(code):
        places = joined_templates(code, arguments_of(code, match.end()))
        if len(places) < 2:
            continue
        first, second = (code[begin:end] for begin, end in places[:2])
        if constant(first):
            continue
        if constant(second) or (EXPECTED.search(second) and not EXPECTED.search(first)):
            yield places[0], places[1]


def exchanged(text):
    for (first, first_end), (second, second_end) in reversed(list(turned(text))):
        left, right = text[first:first_end].strip(), text[second:second_end].strip()
        text = f"{text[:first]}{right}, {left}{text[second_end:]}"
    return text


def main():
    names = sys.argv[1:]
    fix = "--fix" in names
    paths = [pathlib.Path(name) for name in names if name != "--fix"]
    if not paths:
        paths = sorted(path for folder in ("tests", "bench") for path in (ROOT / folder).rglob("*.[ch]*")
                       if path.suffix in (".cpp", ".h"))
    found = 0
    for path in paths:
        text = path.read_text("utf-8")
        if fix:
            path.write_text(exchanged(text), "utf-8")
            continue
        for (begin, _), (_, end) in turned(text):
            line = text.count("\n", 0, begin) + 1
            print(f"{path}:{line}: {' '.join(text[begin:end].split())}")
            found += 1
    if found:
        print(f"{found} assertions name what is expected second")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
