#!/usr/bin/env python3
"""Checks an installation folder: catalogues, dimension files, user's files and translations.

Usage: check_sample.py [installation folder]

Without a folder the sample installation is checked, also for the variety that its readers rely on. Prints one line per
check and a closing line with the counts. The exit code is 1 if a check failed.
"""

import re
import sys
import xml.etree.ElementTree as ET
from pathlib import Path

# The texts that the program itself looks up in the common message file.
PROGRAM_TEXTS = (
    "An unspecified error has occurred!",
    "An unspecified error has occurred!\nContinue?",
    "OK",
    "Ok",
    "Cancel",
    "Abort",
    "Retry",
    "Ignore",
    "Yes",
    "No",
    "Cannot find the html page!",
    "Cannot find the default html page!",
    "Cannot find a html page of the component!",
    "Cannot get a geometry file of the component!",
    "Out of memory!",
    "Choose a component",
    "Choose a file to export the moldbase to",
    "Choose a folder to export the moldbase to",
    "Cannot open the catalogue database:\n%s",
    "Cannot read the catalogue database:\n%s",
    "A catalogue without ID has been found in the database!\nIt won't be shown in the list.\nContinue?",
    "A catalogue without a name has been found in the database!\nIt won't be shown in the list.\nContinue?",
    "An error has been found in a component description!\nContinue?",
    "Cannot open the catalogue (ID: %s)",
    "Cannot read the catalogue (ID: %s)",
    "Draft",
    "Component draft",
    "Components",
    "Define filter...",
    "Turn off filter",
    "Sort in ascending order",
    "Sort in descending order",
)

# The chooser reads a tree label back through a buffer of 64 bytes, a table reads 127 characters of a value.
LONGEST_LABEL = 63
LONGEST_VALUE = 127

# What is left of a caption in a narrow column.
SHORTEST_CAPTION = 6

NUMBER = re.compile(r"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?")
COMPONENT_ID = re.compile(r"[A-Za-z0-9_]+")


def is_number(value):
    return NUMBER.fullmatch(value) is not None


def is_word(value):
    """A text that reads differently in another language; a designation with a digit (M6, P10A) doesn't."""
    return not is_number(value) and not any(c.isdigit() for c in value)


def parse(path):
    builder = ET.TreeBuilder(insert_comments=True, insert_pis=True)
    return ET.parse(path, ET.XMLParser(target=builder)).getroot()


def elements(parent):
    """The child elements; comments and processing instructions have no tag name."""
    return [e for e in parent if isinstance(e.tag, str)] if parent is not None else []


def text_of(element, child):
    return element.findtext(child) or ""


class Component:
    def __init__(self, part, folders):
        self.id = text_of(part, "ID")
        self.name = text_of(part, "Name")
        self.code = text_of(part, "CodeName")
        self.folders = folders
        self.drafts = [(d.get("title", ""), d.get("desc", ""), d.text or "") for d in part.findall("Draft")]
        self.page = text_of(part, "Geometry")
        self.captions = {e.tag: e.text or "" for e in elements(part.find("Dimensions"))}
        self.defaults = {e.tag: e.text or "" for e in elements(part.find("DefaultValues"))}

    def label(self, name):
        return f"{name} ({self.code})" if name and self.code else name or self.code


class Catalogue:
    def __init__(self, folder, identifier, name):
        self.folder = folder / identifier
        self.id = identifier
        self.name = name
        self.components = []
        self.folder_paths = []
        self._walk(parse(self.folder / "Catalog.xml"), ())

    def _walk(self, node, path):
        for folder in node.findall("Folder"):
            inner = path + (text_of(folder, "Name"),)
            self.folder_paths.append(inner)
            self._walk(folder, inner)
        self.components += [Component(part, path) for part in node.findall("Part")]

    def standard_file(self, component):
        return self.folder / "StdDimensions" / f"{component.id}.xml"


class Family:
    def __init__(self, node):
        self.id = node.get("id", "")
        self.name = node.get("name", "")
        self.type = node.get("type", "0")
        self.members = [m.get("id", "") for m in node.findall("Catalog")]
        self.bases = [m.get("id", "") for m in node.findall("Catalog") if m.get("base") == "1"]


class Installation:
    def __init__(self, folder):
        self.folder = folder
        catalogs = folder / "catalogs"
        root = parse(catalogs / "Catalogs.xml")
        self.catalogues = [
            Catalogue(catalogs, text_of(entry, "ID"), text_of(entry, "Name"))
            for entry in root.findall("Catalog")
        ]
        self.families = [Family(u) for u in root.findall("CatalogUnions/CatalogUnion")]
        # A language counts only with a folder here, also if every catalogue brings its messages along.
        self.languages = sorted(path.name for path in (folder / "locale").glob("*") if path.is_dir())
        self.rows = {}
        for catalogue in self.catalogues:
            for component in catalogue.components:
                path = catalogue.standard_file(component)
                if path.is_file():
                    self.rows[component.id] = elements(parse(path))

    def catalogue(self, identifier):
        return next((c for c in self.catalogues if c.id == identifier), None)

    def components(self):
        return [(catalogue, part) for catalogue in self.catalogues for part in catalogue.components]

    def members(self, family):
        return [c for c in map(self.catalogue, family.members) if c]

    def user_files(self):
        return sorted((self.folder / "custom" / "catalogs").glob("*/UsrDimensions/*.xml"))

    def message_places(self, identifier, language):
        """The two places of a message file, in the order in which they are tried."""
        name = f"{identifier}_Msgs.xml"
        return (
            self.folder / "locale" / language / name,
            self.folder / "catalogs" / identifier / "locale" / language / name,
        )

    def messages(self, identifier, language):
        for path in self.message_places(identifier, language):
            if path.is_file():
                table = {}
                for key, text in message_pairs(parse(path)):
                    table.setdefault(key, text)
                return table
        return {}

    def message_files(self):
        return sorted(self.folder.glob("**/*_Msgs.xml"))

    def texts(self, catalogue):
        """Every text that is looked up in the catalogue's own message file."""
        found = {name for path in catalogue.folder_paths for name in path}
        for component in catalogue.components:
            found |= {component.name, *component.captions.values()}
            for title, description, _ in component.drafts:
                found |= {title, description}
            for row in self.rows.get(component.id, []):
                found |= {value for value in row.attrib.values() if is_word(value)}
        return found - {""}


def message_pairs(root):
    """A message is a MsgID and the node behind it, whatever that node is."""
    nodes = list(root)
    for i, node in enumerate(nodes):
        if node.tag == "MsgID":
            following = nodes[i + 1] if i + 1 < len(nodes) else None
            is_element = following is not None and isinstance(following.tag, str)
            yield node.text or "", (following.text or "") if is_element else ""


def values(row):
    return tuple(row.attrib.values())


# Every check yields its complaints; none means that the check passed.


def all_xml_well_formed(folder):
    for path in sorted(folder.glob("**/*.xml")):
        try:
            parse(path)
        except ET.ParseError as error:
            yield f"{path.relative_to(folder)}: {error}"


def utf8_declarations(folder):
    for path in sorted(folder.glob("**/*.xml")):
        if not path.read_bytes().startswith(b'<?xml version="1.0" encoding="UTF-8"?>\n'):
            yield f"{path.relative_to(folder)}: no UTF-8 declaration"


def file_names_ascii(folder):
    for path in sorted(folder.glob("**/*")):
        if not path.name.isascii():
            yield str(path.relative_to(folder))


def counts(installation):
    for language in {"French", "German"} - set(installation.languages):
        yield f"no {language}"
    for what, least, found in (
        ("catalogues", 4, len(installation.catalogues)),
        ("components", 30, len(installation.components())),
        ("dimension files", 20, len(installation.rows)),
        ("user's files", 3, len(installation.user_files())),
    ):
        if found < least:
            yield f"{found} {what}, at least {least} wanted"


def catalogue_list(installation):
    seen = set()
    for entry in installation.catalogues + installation.families:
        if not entry.id or not entry.name:
            yield f"an entry lacks its ID or name: '{entry.id}' '{entry.name}'"
        if entry.id.upper() in seen:
            yield f"ID {entry.id} occurs twice"
        seen.add(entry.id.upper())


def families(installation):
    placed = set()
    for family in installation.families:
        if not family.members:
            yield f"{family.id} has no members"
        for member in family.members:
            if not installation.catalogue(member):
                yield f"{family.id}: member {member} is no catalogue"
            if member in placed:
                yield f"{member} is a member of two families"
            placed.add(member)
        if len(family.bases) != (1 if family.type == "1" else 0):
            yield f"{family.id} of type {family.type} has {len(family.bases)} base members"


def merged_families_translate_alike(installation):
    for family in installation.families:
        if family.type != "1":
            continue
        for language in installation.languages:
            spelling = {}
            for member in installation.members(family):
                table = installation.messages(member.id, language)
                for name in {n for path in member.folder_paths for n in path}:
                    if spelling.setdefault(name, table.get(name)) != table.get(name):
                        yield f"{family.id}, {language}: folder '{name}' is translated in two ways"


def component_ids(installation):
    seen = set()
    for catalogue, component in installation.components():
        if not COMPONENT_ID.fullmatch(component.id):
            yield f"{catalogue.id}: '{component.id}' is no plain ID"
        if component.id.upper() in seen:
            yield f"{component.id} occurs twice"
        seen.add(component.id.upper())


def component_descriptions(installation):
    for catalogue, component in installation.components():
        where = f"{catalogue.id}/{component.id}"
        if not component.name and not component.code:
            yield f"{where} has neither name nor code name"
        if not (catalogue.folder / component.page).is_file():
            yield f"{where}: no page '{component.page}'"
        if set(component.captions) != set(component.defaults):
            yield f"{where}: captions and default values name different dimensions"
        if bool(component.captions) != (component.id in installation.rows):
            yield f"{where}: dimensions and dimension file do not come together"


def named_folders(installation):
    for catalogue in installation.catalogues:
        for path in catalogue.folder_paths:
            if not all(path):
                yield f"{catalogue.id}: a folder has no name"
            if not any(component.folders[: len(path)] == path for component in catalogue.components):
                yield f"{catalogue.id}: folder {'/'.join(path)} holds no component"


def standard_files_belong(installation):
    known = {catalogue.standard_file(component) for catalogue, component in installation.components()}
    for path in sorted((installation.folder / "catalogs").glob("*/StdDimensions/*")):
        if path not in known:
            yield f"{path.name} belongs to no component"


def row_complaints(path, component):
    root = parse(path)
    rows = elements(root)
    names = list(component.captions)
    if root.tag != "Dimensions" or not rows or {row.tag for row in rows} != {"Row"}:
        yield f"{path.name}: not a file of rows"
    if len(rows) != sum("<Row" in line for line in path.read_text(encoding="utf-8").splitlines()):
        yield f"{path.name}: a row does not have a line of its own"
    if len({values(row) for row in rows}) != len(rows):
        yield f"{path.name}: a row occurs twice"
    for number, row in enumerate(rows, 1):
        if list(row.attrib) != names or [e.tag for e in elements(row)] != names:
            yield f"{path.name}, row {number}: not the dimensions {' '.join(names)}"
        elif [e.text or "" for e in elements(row)] != list(values(row)):
            yield f"{path.name}, row {number}: attributes and elements differ"
        if not all(0 < len(value) <= LONGEST_VALUE for value in values(row)):
            yield f"{path.name}, row {number}: a value is empty or too long"
    for column in zip(*map(values, rows)):
        if len({is_number(value) for value in column}) != 1:
            yield f"{path.name}: a column mixes numbers and texts"


def standard_rows(installation):
    for catalogue, component in installation.components():
        if component.id in installation.rows:
            yield from row_complaints(catalogue.standard_file(component), component)


def variety(installation):
    for kind in ("0", "1"):
        if kind not in [family.type for family in installation.families]:
            yield f"no family of type {kind}"
    for family in installation.families:
        paths = [set(member.folder_paths) for member in installation.members(family)]
        if family.type == "1" and sum(map(len, paths)) == len(set().union(*paths)):
            yield f"{family.id}: no folder stands in two members"
    if all(len(path) < 2 for catalogue in installation.catalogues for path in catalogue.folder_paths):
        yield "no folder lies in a folder"
    for catalogue, component in installation.components():
        if not component.drafts or not all(file.startswith("drafts/") for _, _, file in component.drafts):
            yield f"{component.id}: a draft is missing or lies outside drafts"
    if not list(installation.folder.glob("catalogs/*/locale/*/*_Msgs.xml")):
        yield "no catalogue brings a translation with it"
    for path in installation.user_files():
        if not 5 <= len(elements(parse(path))) <= 10:
            yield f"{path.name} has not 5 to 10 rows"


def variety_of_rows(installation):
    if not any(len(rows) >= 250 for rows in installation.rows.values()):
        yield "no file has 250 rows"
    first_rows = [values(rows[0]) for rows in installation.rows.values() if rows]
    with_text = sum(not all(map(is_number, row)) for row in first_rows)
    if with_text < 3:
        yield f"{with_text} files have a text column, at least 3 wanted"


def default_values(installation):
    for catalogue, component in installation.components():
        wanted = {name: value for name, value in component.defaults.items() if value}
        for name, value in wanted.items():
            if is_word(value):
                yield f"{component.id}: the default '{value}' of {name} would match in English only"
        rows = installation.rows.get(component.id, [])
        if rows and not any(all(row.get(name) == value for name, value in wanted.items()) for row in rows):
            yield f"{component.id}: the default values match no row"
        if rows and not wanted:
            yield f"{component.id}: no default value is given"


def user_rows(installation):
    for path in installation.user_files():
        catalogue = installation.catalogue(path.parent.parent.name)
        component = next((c for c in catalogue.components if c.id == path.stem), None) if catalogue else None
        if not component or component.id not in installation.rows:
            yield f"{path.name} belongs to no component with standard sizes"
            continue
        yield from row_complaints(path, component)
        rows = [values(row) for row in elements(parse(path))]
        for row in set(rows) & {values(row) for row in installation.rows[component.id]}:
            yield f"{path.name}: {' '.join(row)} is a standard size"


def message_files(installation):
    for path in installation.message_files():
        where = path.relative_to(installation.folder)
        root = parse(path)
        nodes = list(root)
        keys = [key for key, _ in message_pairs(root)]
        if root.tag != "Messages" or len(nodes) != 2 * len(keys):
            yield f"{where}: not pairs of MsgID and text"
        if len(set(keys)) != len(keys):
            yield f"{where}: a MsgID occurs twice"
        for key, text in message_pairs(root):
            if not key or not text or key != key.strip() or text != text.strip():
                yield f"{where}: empty or padded: '{key}'"
            if re.findall("%.", key) != re.findall("%.", text):
                yield f"{where}: placeholders differ: '{key}'"


def one_place_per_message_file(installation):
    identifiers = [catalogue.id for catalogue in installation.catalogues]
    for identifier in identifiers:
        for language in installation.languages:
            found = [place.is_file() for place in installation.message_places(identifier, language)]
            if sum(found) != 1:
                yield f"{identifier}, {language}: {sum(found)} message files"
    known = identifiers + [family.id for family in installation.families] + ["COMMON"]
    names = {f"{identifier}_Msgs.xml" for identifier in known}
    for path in installation.message_files():
        if path.name not in names:
            yield f"{path.relative_to(installation.folder)} belongs to no catalogue"


def missing_entries(installation, identifier, texts):
    for language in installation.languages:
        table = installation.messages(identifier, language)
        for text in sorted(texts):
            if not table.get(text):
                yield f"{identifier or 'COMMON'}, {language}: no entry for '{text}'"
        for text in sorted(set(table) - set(texts)):
            yield f"{identifier or 'COMMON'}, {language}: nothing asks for '{text}'"


def common_translations(installation):
    names = {entry.name for entry in installation.catalogues + installation.families}
    yield from missing_entries(installation, "COMMON", names | set(PROGRAM_TEXTS))


def catalogue_translations(installation):
    for catalogue in installation.catalogues:
        yield from missing_entries(installation, catalogue.id, installation.texts(catalogue))


def family_translations(installation):
    """While a family is shown, rebuilt labels ask for component names under the family's own ID."""
    for family in installation.families:
        members = installation.members(family)
        names = {component.name for member in members for component in member.components} - {""}
        yield from missing_entries(installation, family.id, names)
        for language in installation.languages:
            table = installation.messages(family.id, language)
            for member in members:
                own = installation.messages(member.id, language)
                for name in sorted(names & set(own)):
                    if table.get(name) != own[name]:
                        yield f"{family.id} and {member.id}, {language}: '{name}' is translated in two ways"


def labels_and_captions(installation):
    """Tree labels have to survive being read back; captions name registry keys, so no table has two alike."""
    for catalogue in installation.catalogues:
        for language in [""] + installation.languages:
            table = installation.messages(catalogue.id, language) if language else {}
            for component in catalogue.components:
                captions = [table.get(caption, caption) for caption in component.captions.values()]
                label = component.label(table.get(component.name, component.name))
                where = f"{component.id}, {language or 'English'}"
                if len(label) > LONGEST_LABEL:
                    yield f"{where}: label of {len(label)} characters"
                if len(set(map(str.lower, captions))) != len(captions):
                    yield f"{where}: two captions are alike"
                if any("\\" in text for text in [label] + captions):
                    yield f"{where}: a backslash would split a registry key"


def narrow_captions(installation):
    for catalogue in installation.catalogues:
        for language in [""] + installation.languages:
            table = installation.messages(catalogue.id, language) if language else {}
            for component in catalogue.components:
                starts = [table.get(caption, caption)[:SHORTEST_CAPTION] for caption in component.captions.values()]
                for start in sorted({start for start in starts if starts.count(start) > 1}):
                    yield f"{component.id}, {language or 'English'}: two captions start with '{start}'"


def western_texts(installation):
    for path in installation.message_files():
        for _, text in message_pairs(parse(path)):
            try:
                text.encode("cp1252")
            except UnicodeEncodeError:
                yield f"{path.relative_to(installation.folder)}: '{text}'"


def pages(installation):
    for page in ("data/Tarnvale.htm", "data/Wizard.htm", "gui/wizard"):
        if not (installation.folder / page).exists():
            yield f"{page} is missing"


FOLDER_CHECKS = (
    ("every XML file is well formed", all_xml_well_formed),
    ("every file name is ASCII", file_names_ascii),
)

CHECKS = (
    ("catalogues and families have names and IDs of their own", catalogue_list),
    ("families have members that exist, and one base member where they merge", families),
    ("members of a merged family translate their folders alike", merged_families_translate_alike),
    ("component IDs are plain and unique", component_ids),
    ("components have a name, a page, captions and default values", component_descriptions),
    ("folders are named and not empty", named_folders),
    ("every standard dimension file belongs to a component", standard_files_belong),
    ("standard rows carry every dimension as attribute and as element", standard_rows),
    ("default values match a row", default_values),
    ("user's rows are well made and are no standard sizes", user_rows),
    ("message files hold pairs of ID and text", message_files),
    ("every catalogue has one message file per language", one_place_per_message_file),
    ("the program's texts and the catalogue names are translated", common_translations),
    ("the catalogues' texts are translated", catalogue_translations),
    ("the families' component names are translated as their members' are", family_translations),
    ("labels and captions suit the tree and the registry", labels_and_captions),
    ("captions can be told apart in narrow columns", narrow_captions),
    ("the installation has its pages", pages),
)

SAMPLE_FOLDER_CHECKS = (("every XML file says that it is UTF-8", utf8_declarations),)

SAMPLE_CHECKS = (
    ("there are enough languages, catalogues, components and files", counts),
    ("there are families of both types, shared and nested folders, drafts, and user's files of some rows", variety),
    ("there is a long file, and files with text columns", variety_of_rows),
    ("translations are in the Western European code page", western_texts),
)


def report(title, complaints):
    print(f"FAILED {title}: {'; '.join(complaints)}" if complaints else f"ok     {title}")
    return not complaints


def main(arguments):
    sample = Path(__file__).resolve().parent.parent / "sample" / "installation"
    folder = Path(arguments[0]).resolve() if arguments else sample
    is_sample = folder == sample
    folder_checks = FOLDER_CHECKS + (SAMPLE_FOLDER_CHECKS if is_sample else ())
    passed = [report(title, list(check(folder))) for title, check in folder_checks]
    try:
        installation = Installation(folder)
        checks = CHECKS + (SAMPLE_CHECKS if is_sample else ())
        passed += [report(title, list(check(installation))) for title, check in checks]
    except (OSError, ET.ParseError) as error:
        passed.append(report("the installation can be read", [str(error)]))
    print(f"{folder}: {sum(passed)} passed, {len(passed) - sum(passed)} failed")
    return 0 if all(passed) else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
