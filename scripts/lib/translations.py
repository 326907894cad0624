# SPDX-License-Identifier: MIT
"""Keeps translations/ up to date with the texts in the sources. scripts/translations runs it.

    translations.py renew         writes the template and merges it into every translation
    translations.py check         fails if that would change a file
    translations.py add LANGUAGE  begins a translation into another language

    --root FOLDER      of the project; the one that this file is in, unless given
    --lupdate PROGRAM  Qt's finder of texts; looked for, unless given

Texts without Qt are found by xgettext, those with Qt by lupdate. Entries are in the order of the files
and of the texts in them. They name the files, but no line, so that edits do not change them.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
from dataclasses import dataclass, field
from pathlib import Path

import polib

FOLDER = "translations"
TEMPLATE = "TKMService.pot"
PLAIN_FOLDERS = ("GroupHosting", "HighLevelServices", "PointCollections")
QT_FOLDERS = ("PointCollections/Desktop", "QtModels")
# The context of the texts that are marked by PointCollections/Text/Translated.h.
OWN_CONTEXT = "PointCollections"
OWN_KEYWORDS = ("translated:1", "translatable:1", "translatedCount:2,3")
FOR_TRANSLATORS = "For translators:"
WIDTH = 100

ONE_FORM = "nplurals=1; plural=0;"
ONE_IS_SINGULAR = "nplurals=2; plural=(n != 1);"
NONE_IS_SINGULAR = "nplurals=2; plural=(n > 1);"
RUSSIAN_FORMS = ("nplurals=3; plural=(n%10==1 && n%100!=11 ? 0 : n%10>=2 && n%10<=4 && (n%100<10 || n%100>=20) ? 1 : "
                 "2);")
LANGUAGES = {
    "ar": ("Arabic", "nplurals=6; plural=(n==0 ? 0 : n==1 ? 1 : n==2 ? 2 : n%100>=3 && n%100<=10 ? 3 : n%100>=11 ? 4 "
                     ": 5);"),
    "cs": ("Czech", "nplurals=3; plural=(n==1 ? 0 : n>=2 && n<=4 ? 1 : 2);"),
    "da": ("Danish", ONE_IS_SINGULAR),
    "de": ("German", ONE_IS_SINGULAR),
    "es": ("Spanish", ONE_IS_SINGULAR),
    "fi": ("Finnish", ONE_IS_SINGULAR),
    "fr": ("French", NONE_IS_SINGULAR),
    "it": ("Italian", ONE_IS_SINGULAR),
    "ja": ("Japanese", ONE_FORM),
    "ko": ("Korean", ONE_FORM),
    "nl": ("Dutch", ONE_IS_SINGULAR),
    "pl": ("Polish", "nplurals=3; plural=(n==1 ? 0 : n%10>=2 && n%10<=4 && (n%100<10 || n%100>=20) ? 1 : 2);"),
    "pt": ("Portuguese", ONE_IS_SINGULAR),
    "pt_BR": ("Brazilian Portuguese", NONE_IS_SINGULAR),
    "ru": ("Russian", RUSSIAN_FORMS),
    "sv": ("Swedish", ONE_IS_SINGULAR),
    "uk": ("Ukrainian", RUSSIAN_FORMS),
    "zh_CN": ("Simplified Chinese", ONE_FORM),
    "zh_TW": ("Traditional Chinese", ONE_FORM),
}


class Problem(Exception):
    """What the user has to know and to do."""


@dataclass
class Text:
    """A text in the sources, at one or more places."""

    context: str
    text: str
    plural: str = ""
    places: list = field(default_factory=list)  # (file, line, position in what the tool found)
    comments: list = field(default_factory=list)

    def key(self):
        return self.context, self.text


# Finding texts


def sources(root, folders, without=()):
    """The C++ files of the folders, relative to root."""
    found = []
    for folder in folders:
        for file in (root / folder).rglob("*"):
            name = file.relative_to(root).as_posix()
            if file.suffix in (".h", ".cpp") and not name.startswith(tuple(other + "/" for other in without)):
                found.append(name)
    return sorted(found)


def run_xgettext(root, files, keywords):
    """The entries that xgettext finds."""
    if not files:
        return []
    if shutil.which("xgettext") is None:
        raise Problem("xgettext is missing; on Debian, it is in the package gettext")
    options = ["xgettext", "--language=C++", "--from-code=UTF-8", "--keyword", "--output=-", "--files-from=-"]
    # "% of" is no placeholder of C.
    options += [f"--flag={keyword.split(':')[0]}:{place}:no-c-format"
                for keyword in keywords for place in re.findall(r"[0-9]+(?!c)", keyword.split(":")[1])]
    result = subprocess.run(options + ["--keyword=" + keyword for keyword in keywords], cwd=root,
                            input="\n".join(files), capture_output=True, encoding="utf-8")
    if result.returncode != 0:
        raise Problem(result.stderr.strip())
    return list(polib.pofile(result.stdout)) if result.stdout else []


def ends_statement(line):
    return not line or line.endswith((";", "{", "}", "},"))


def begins_element(line):
    """Whether it begins with a field or a row in braces."""
    return re.match(r"\{|\.\w+ =", line) is not None


def comment_above(lines, number):
    """What a comment tells translators right above the line of this number, or above the statement or the
    row of a table that the line belongs to. Between arguments, a comment is for the next text only."""
    lines = [line.strip() for line in lines[:number]]
    row, has_passed_text = number - 1, False
    while row > 0:
        start = row
        while start > 0 and lines[start - 1].startswith("//"):
            start -= 1
        is_between = start > 0 and not ends_statement(lines[start - 1])
        comment = " ".join(line.lstrip("/").strip() for line in lines[start:row])
        if FOR_TRANSLATORS in comment and not (is_between and has_passed_text):
            return comment.partition(FOR_TRANSLATORS)[2].strip()
        if begins_element(lines[row]) or not is_between:
            return None
        row = start - 1
        has_passed_text |= re.search(r"translat\w+\(.", lines[row]) is not None
    return None


def plain_texts(root):
    """The texts of the sources without Qt."""
    files = sources(root, PLAIN_FOLDERS, without=QT_FOLDERS)
    for entry in run_xgettext(root, files, ["translate:3"]):
        file, line = entry.occurrences[0]
        raise Problem(f'{file}:{line}: the disambiguation "{entry.msgid}" would be lost; use another context')
    lines = {}
    found = run_xgettext(root, files, ["translate:1c,2", *OWN_KEYWORDS])
    for position, entry in enumerate(found):
        text = Text(entry.msgctxt or OWN_CONTEXT, entry.msgid, entry.msgid_plural)
        for file, line in entry.occurrences:
            if file not in lines:
                lines[file] = (root / file).read_text(encoding="utf-8").split("\n")
            text.places.append((file, int(line), position))
            comment = comment_above(lines[file], int(line))
            if comment and comment not in text.comments:
                text.comments.append(comment)
        yield text


def found_lupdate(given):
    """Qt's lupdate. On Debian it is in no folder that shells search."""
    for program in (given, "lupdate6", "lupdate-qt6", "/usr/lib/qt6/bin/lupdate"):
        if program and shutil.which(program):
            return shutil.which(program)
    raise Problem("Qt's lupdate is missing; on Debian, it is in the package qt6-l10n-tools")


def qt_texts(root, lupdate):
    """The texts of the sources with Qt."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder).resolve() / "found.ts"
        result = subprocess.run(
            [found_lupdate(lupdate), "-silent", "-extensions", "h,cpp", "-I", ".", "-locations", "absolute",
             *QT_FOLDERS, "-ts", str(file)],
            cwd=root, capture_output=True, encoding="utf-8")
        if result.returncode != 0:
            raise Problem(result.stderr.strip())
        content = xml.parse(file).getroot()
    position = 0
    for context in content.iter("context"):
        for message in context.iter("message"):
            position += 1
            yield qt_text(root, file.parent, context.findtext("name"), message, position)


def qt_text(root, place, context, message, position):
    """The text of one message in a .ts file that is in the folder `place`."""
    source = message.findtext("source")
    disambiguation = message.findtext("comment")
    text = Text(f"{context}|{disambiguation}" if disambiguation else context, source)
    if message.get("numerus") == "yes":
        text.plural = source
    for location in message.iter("location"):
        file = os.path.relpath(os.path.normpath(place / location.get("filename")), root)
        text.places.append((Path(file).as_posix(), int(location.get("line")), position))
    comment = message.findtext("extracomment")
    if comment:
        text.comments.append(" ".join(comment.split()))
    return text


def refuse_overlooked(root, found):
    """lupdate overlooks a text if other arguments of the call are hard to read, and says nothing."""
    known = {(text.context.partition("|")[0], text.text) for text in found}
    for entry in run_xgettext(root, sources(root, QT_FOLDERS), ["translate:1c,2", "QT_TRANSLATE_NOOP:1c,2"]):
        if (entry.msgctxt, entry.msgid) not in known:
            file, line = entry.occurrences[0]
            raise Problem(f'{file}:{line}: lupdate does not find "{entry.msgid}"; write the other arguments of the '
                          "call as plain names")


def found_texts(root, lupdate=None):
    """All texts, in their order. A text that is in several places is there once."""
    found = {}
    with_qt = list(qt_texts(root, lupdate))
    refuse_overlooked(root, with_qt)
    for text in [*plain_texts(root), *with_qt]:
        first = found.setdefault(text.key(), text)
        if first is text:
            continue
        if first.plural != text.plural:
            raise Problem(f'"{text.text}" of {text.context} has other plural forms in {first.places[0][0]} than in '
                          f"{text.places[0][0]}")
        first.places += text.places
        first.comments += [comment for comment in text.comments if comment not in first.comments]
    for text in found.values():
        text.places.sort()
    return sorted(found.values(), key=lambda text: text.places[0])


# Writing them


def template_of(texts):
    """A file that has every text, without translations."""
    template = polib.POFile(wrapwidth=WIDTH)
    template.header = "The texts of TKMService. Made by scripts/translations: do not edit this file."
    template.metadata = metadata()
    for text in texts:
        template.append(polib.POEntry(
            msgctxt=text.context, msgid=text.text, msgid_plural=text.plural,
            msgstr_plural={0: "", 1: ""} if text.plural else {}, comment="\n".join(text.comments),
            occurrences=[(file, "") for file in dict.fromkeys(place[0] for place in text.places)]))
    return template


def metadata():
    return {"Project-Id-Version": "TKMService",
            "Report-Msgid-Bugs-To": "maintainers@tkmservice.invalid",
            "MIME-Version": "1.0",
            "Content-Type": "text/plain; charset=UTF-8",
            "Content-Transfer-Encoding": "8bit"}


def begun(language):
    """A translation without any entry."""
    if language not in LANGUAGES:
        raise Problem(f'the plural forms of "{language}" are not known; add them to LANGUAGES in '
                      f"scripts/lib/translations.py, which has {', '.join(sorted(LANGUAGES))}")
    name, plural_forms = LANGUAGES[language]
    translation = polib.POFile(wrapwidth=WIDTH)
    translation.header = f"The texts of TKMService in {name}."
    translation.metadata = {**metadata(), "PO-Revision-Date": "", "Last-Translator": "The TKMService authors",
                            "Language-Team": name, "Language": language, "Plural-Forms": plural_forms}
    return translation


def number_of_forms(translation):
    found = re.match(r"\s*nplurals\s*=\s*(\d+)", translation.metadata.get("Plural-Forms", ""))
    return int(found.group(1)) if found else 2


def merged(template, translation):
    """The texts of the template with what there is of their translations."""
    result = polib.POFile(wrapwidth=WIDTH)
    result.header = translation.header
    result.metadata = translation.metadata
    known = {(entry.msgctxt, entry.msgid): entry for entry in translation if not entry.obsolete}
    for text in template:
        entry = polib.POEntry(msgctxt=text.msgctxt, msgid=text.msgid, msgid_plural=text.msgid_plural,
                              comment=text.comment, occurrences=text.occurrences)
        if text.msgid_plural:
            entry.msgstr_plural = dict.fromkeys(range(number_of_forms(translation)), "")
        old = known.get((text.msgctxt, text.msgid))
        if old is not None and old.msgid_plural == text.msgid_plural:
            entry.msgstr = old.msgstr
            entry.msgstr_plural.update(old.msgstr_plural)
            entry.tcomment = old.tcomment
            entry.flags = [flag for flag in old.flags if flag == "fuzzy"]
        result.append(entry)
    return result


def renewed(root, lupdate=None, added=None):
    """What every file of translations has to contain."""
    template = template_of(found_texts(root, lupdate))
    files = {root / FOLDER / TEMPLATE: str(template)}
    for file in sorted((root / FOLDER).glob("*.po")):
        files[file] = str(merged(template, read(file)))
    if added:
        files[root / FOLDER / f"{added}.po"] = str(merged(template, begun(added)))
    return files


def read(file):
    try:
        return polib.pofile(str(file), encoding="utf-8")
    except (OSError, UnicodeDecodeError) as error:
        raise Problem(f"{file}: {error}") from error


# Comparing them


def keys(content):
    return {(entry.msgctxt, entry.msgid, entry.msgid_plural) for entry in polib.pofile(content)
            if not entry.obsolete}


def in_one_line(text):
    return text.replace("\n", "\\n")


def differences(file, old, new):
    """What renewing changes, in words."""
    old_keys, new_keys = (keys(old) if old.strip() else set()), keys(new)
    for context, text, _ in sorted(new_keys - old_keys):
        yield f'{file}: "{in_one_line(text)}" of {context} is new'
    for context, text, _ in sorted(old_keys - new_keys):
        yield f'{file}: "{in_one_line(text)}" of {context} is gone from the sources'
    if old_keys == new_keys:
        yield f"{file}: the order, the comments, the names of files or the line breaks are others"


def check(root, lupdate=None):
    """What is not up to date, in words."""
    complaints = []
    for file, new in renewed(root, lupdate).items():
        old = file.read_text(encoding="utf-8") if file.exists() else ""
        if old != new:
            complaints += differences(file.relative_to(root), old, new)
    return complaints


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("action", choices=("renew", "check", "add"))
    parser.add_argument("language", nargs="?")
    parser.add_argument("--root", type=Path, default=Path(__file__).parents[2])
    parser.add_argument("--lupdate")
    given = parser.parse_args(arguments)
    if (given.language is None) == (given.action == "add"):
        parser.error("a language is given with add, and only with it")
    root = given.root.resolve()
    try:
        if given.action == "check":
            complaints = check(root, given.lupdate)
            for complaint in complaints:
                print(complaint, file=sys.stderr)
            if complaints:
                raise Problem("the translations are not up to date; run scripts/translations")
            return
        if given.language and (root / FOLDER / f"{given.language}.po").exists():
            raise Problem(f"{FOLDER}/{given.language}.po is there already")
        for file, content in renewed(root, given.lupdate, given.language).items():
            file.parent.mkdir(exist_ok=True)
            file.write_text(content, encoding="utf-8", newline="\n")
    except Problem as problem:
        sys.exit(f"error: {problem}")


if __name__ == "__main__":
    main(sys.argv[1:])
