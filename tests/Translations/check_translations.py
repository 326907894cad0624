#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Finds what is wrong in the files of translations.

    check_translations.py ROOT      ROOT has the sources, and translations/

Prints a line for each mistake, with the file, the text and what was expected; fails if there are any.
docs/translating.md has the rules.
"""

import gettext
import re
import sys
from collections import Counter
from pathlib import Path

import polib

# Texts that applications with HighLevelServices show; they have no other translation.
TEXTS_OF_THE_LIBRARY = {
    ("AddToTKGroupCmd", "Add to Group"),
    ("CreateTKGroupCmd", "Create Group"),
    ("CreateTKGroupCmd", "Group"),
    ("MoveTKGroupElementsCmd", "Move Elements"),
    ("RemoveFromTKGroupCmd", "Remove Point Collection(s) From Group"),
    ("RemoveTKGroupsCmd", "Remove Group"),
    ("RenameTKGroupCmd", "Rename Group"),
    ("SortTKGroupsAlphabeticallyCmd", "Sort Groups"),
}
CONSOLE = "PointCollections"  # the context of texts with {}; all others have Qt's placeholders
FULL_WIDTH_LANGUAGES = ("ja", "ko", "zh")
FULL_WIDTH_MARKS = "：；，。、！？（）「」『』“”…"
GREATEST_NUMBER = 1000  # plural forms repeat from there on

BRACES = re.compile(r"(?<!\\u)\{(\d*)(:[^{}]*)?\}")
PERCENT = re.compile(r"%(?:L?[1-9][0-9]?|L?n)")
KEY = re.compile(r"&(?=[^\s&])")
FULL_WIDTH_KEY = re.compile(r"\(&[A-Z0-9]\)")

# What users type, wherever it occurs.
ALWAYS_TYPED = (
    re.compile(r"--[a-z][a-z-]*"),
    re.compile(r"(?<![A-Za-z_])(?:[A-Z][A-Z_]+|N)(?![A-Za-z_])"),
    re.compile(r"\.(?:tkpc|csv|png|pcs)(?![a-z])"),
    re.compile(r"\\(?:u\{[0-9A-F]+\}|x[0-9A-F]{2}|[\"\\nrtxu])?"),
    re.compile(r"@(?:[0-9]+|[a-z]+\.[a-z]+|\./|(?=[{A-Z]))"),
    re.compile(r":\*"),
    re.compile(r"(?<![\w.])[0-9]+(?:[KMG]|\.[0-9]+(?:e[0-9]+)?)(?!\w)"),
    re.compile(r"collection,x,y,z"),
    re.compile(r"(?<!\S)#(?!\S)"),
    re.compile(r"(?m)^  (\S.*?)  +\S"),  # the left column of a table
)
ANSWERS = ("save", "discard", "cancel", "recover", "later")
COLUMNS = ("collection", "group", "place", "x", "y", "z")
COORDINATES = re.compile(r"(\bcollection, )?\bx, y(?:,|,? and|,? or) z\b")
GROUP_COLUMNS = re.compile(r"\bcolumns\b.*\bgroup and place\b", re.DOTALL)
PLACE_COLUMN = re.compile(r"^place is \{")
DOES = "brings|explains|gives|keeps|lists|looks|makes|reads|repeats|shows|takes|tells|writes"
ASKED_FOR = re.compile(r"\b(?:[Tt]ype|[Rr]un)\b([^.:;]*)")


# What has to occur in a translation


def verbs(root):
    """The commands of the console program."""
    names = {name for file in root.glob("PointCollections/Console/Verbs/*Verb.cpp")
             for name in re.findall(r'\.name = "([a-z-]+)"', file.read_text(encoding="utf-8"))}
    if not names:
        raise SystemExit(f"error: no verbs have been found in {root}/PointCollections/Console/Verbs")
    return names


def any_of(words):
    longest_first = sorted(map(re.escape, words), key=len, reverse=True)
    return "(" + ("|".join(longest_first) or "(?!)") + ")"


class TypedWords:
    """Finds the words in a text that users type. Verbs are common words as well, so they count only
    where the text shows that they are typed."""

    def __init__(self, verb_names):
        verb, typed = any_of(verb_names), any_of({*verb_names, *ANSWERS})
        self._verbs = (
            re.compile(rf"\b(?:command|commands|help|see|usage:)\s+{verb}(?![\w-])"),
            re.compile(rf"(?<![\w-])(?!add --){verb}(?= (?:with |without )?(?:\[|--|[A-Z]{{2,}}\b))"),
            re.compile(rf"(?:^|[;:.,] ){verb}(?=(?: \{{[0-9]*\}})? (?:{DOES})\b)"),
            re.compile(rf"(?<![\w-]){any_of(name for name in verb_names if '-' in name)}(?![\w-])"),
        )
        self._quoted = re.compile(rf'"{any_of({*verb_names, *ANSWERS, *COLUMNS})}(?![\w-])[^"]*"')
        self._asked_for = re.compile(rf"(?<![\w-]){typed}(?![\w-])")

    def of(self, context, text):
        found = {match.group(match.lastindex or 0) for typed in ALWAYS_TYPED for match in typed.finditer(text)}
        found |= set(self._quoted.findall(text))
        if context.partition("|")[0] == CONSOLE:
            found |= {word for verb in self._verbs for word in verb.findall(text)}
            for asked in ASKED_FOR.findall(text):
                found |= set(self._asked_for.findall(asked))
        for columns in COORDINATES.finditer(text):
            found |= {"x", "y", "z"}
            if context == CONSOLE and columns[1]:  # elsewhere it says what is in the column
                found.add("collection")
        if context == CONSOLE and GROUP_COLUMNS.search(text):
            found |= {"group", "place"}
        if context == CONSOLE and PLACE_COLUMN.search(text):
            found.add("place")
        return found - {text.strip()}  # a heading, such as OPTIONS


def has_word(text, word):
    before = r"(?<![A-Za-z])" if re.match(r"[A-Za-z]", word) else ""
    after = r"(?![A-Za-z])" if re.match(r"[A-Za-z]", word[-1]) else ""
    return re.search(before + re.escape(word) + after, text) is not None


# Placeholders


def form_of(specification):
    """What has to be alike in it. Of a date, that is its parts; their order is that of the language."""
    if "%" in specification:
        return ":" + "".join(sorted(set(re.findall(r"%[A-Za-z]", specification))))
    return specification


def placeholders(text):
    """The placeholders in braces by their numbers, or nothing if only some are numbered."""
    found = [(number, form_of(specification))
             for number, specification in BRACES.findall(text.replace("{{", "").replace("}}", ""))]
    numbers = [number for number, _ in found]
    if all(numbers):
        return {(int(number), form) for number, form in found}
    if any(numbers):
        return None
    return {(position, form) for position, (_, form) in enumerate(found)}


def without_placeholders(text):
    return BRACES.sub("", text.replace("{{", "").replace("}}", ""))


def other_braces(text):
    return Counter(c for c in without_placeholders(text) if c in "{}")


def shown(braces):
    return " ".join("{%d%s}" % each for each in sorted(braces)) or "none"


def without_number(braces):
    return {each for each in braces if each[0] != 0}


def complaints_about_placeholders(english, translation, numbers):
    """numbers: how many numbers a plural form is for; nothing if the text has no such forms."""
    is_for_one_number = numbers == 1
    expected, found = placeholders(english), placeholders(translation)
    if found is None:
        yield "some of the placeholders {} have numbers and some have none"
    elif found != expected:
        can_leave_out = is_for_one_number and found == without_number(expected)
        can_add = numbers is not None and found == expected | {(0, "")} and expected == without_number(expected)
        if not can_leave_out and not can_add:
            yield f"its placeholders are {shown(found)}; expected {shown(expected)}"
    if other_braces(english) != other_braces(translation):
        yield "its braces are not those of the text"

    expected, found = Counter(PERCENT.findall(english)), Counter(PERCENT.findall(translation))
    if is_for_one_number and "%n" not in found:
        del expected["%n"]
    if found != expected:
        yield (f"its placeholders are {' '.join(sorted(found.elements())) or 'none'}; expected "
               f"{' '.join(sorted(expected.elements())) or 'none'}")


# Everything else about one text


def is_full_width(language):
    return language.partition("_")[0] in FULL_WIDTH_LANGUAGES


def complaints_about_key(english, translation, language):
    expected, found = len(KEY.findall(english)), len(KEY.findall(translation))
    if expected != found:
        yield f"it has {found} keys that are marked with &; expected {expected}"
    elif expected and is_full_width(language) and len(FULL_WIDTH_KEY.findall(translation)) != expected:
        yield "its key is not in the form (&F)"


def blanks(text):
    stripped = text.strip(" \t\n")
    if not stripped:
        return text, ""
    start = text.index(stripped)
    return text[:start], text[start + len(stripped):]


def complaints_about_ends(english, translation, language):
    (before, after), (found_before, found_after) = blanks(english), blanks(translation)
    stripped = translation.strip()
    if is_full_width(language) and stripped:  # a full-width mark has its blank in it
        if found_before == "" and before == " " and stripped[0] in FULL_WIDTH_MARKS:
            before = ""
        if found_after == "" and after == " " and stripped[-1] in FULL_WIDTH_MARKS:
            after = ""
    if before != found_before:
        yield f"it begins with {found_before!r}; expected {before!r}"
    if after != found_after:
        yield f"it ends with {found_after!r}; expected {after!r}"
    for end, others in (("…", ("…",)), (":", (":", "：") if is_full_width(language) else (":",))):
        if english.rstrip().endswith(end) and not stripped.endswith(others):
            yield f'it does not end with "{end}", as the text does'
    if english.count("\n") != translation.count("\n"):
        yield f"it has {translation.count(chr(10))} line breaks; expected {english.count(chr(10))}"


def complaints_about_text(context, english, translation, language, typed_words, numbers=None):
    """Of one translation, or of one plural form."""
    yield from complaints_about_placeholders(english, translation, numbers)
    if context.partition("|")[0] != CONSOLE:
        yield from complaints_about_key(english, translation, language)
    yield from complaints_about_ends(english, translation, language)
    for word in sorted(typed_words.of(context, english)):
        if not has_word(translation, word):
            yield f'users type "{word}", but it is not in the translation'


# Whole files


def numbers_of_forms(plural_forms):
    """For each plural form, how many numbers it is for; nothing if the rule is wrong."""
    match = re.fullmatch(r"\s*nplurals\s*=\s*(\d+)\s*;\s*plural\s*=\s*([^;]+);?\s*", plural_forms)
    if match is None:
        return None
    try:
        form = gettext.c2py(match.group(2))
        used = Counter(form(number) for number in range(GREATEST_NUMBER + 1))
    except ValueError:
        return None
    forms = int(match.group(1))
    if any(each >= forms for each in used):
        return None
    return [used[each] for each in range(forms)]


def complaints_about_entry(entry, language, forms, typed_words):
    if "fuzzy" in entry.flags:
        yield "it is marked as fuzzy"
    if not entry.msgid_plural:
        if not entry.msgstr:
            yield "it is not translated"
            return
        yield from complaints_about_text(entry.msgctxt or "", entry.msgid, entry.msgstr, language, typed_words)
        return
    if sorted(entry.msgstr_plural) != list(range(len(forms))):
        yield f"it has {len(entry.msgstr_plural)} plural forms; expected {len(forms)}"
        return
    for form, translation in sorted(entry.msgstr_plural.items()):
        if not translation:
            yield f"form {form} is not translated"
            continue
        for complaint in complaints_about_text(entry.msgctxt or "", entry.msgid_plural, translation, language,
                                               typed_words, forms[form]):
            yield f"form {form}: {complaint}"


def key(entry):
    return entry.msgctxt or "", entry.msgid, entry.msgid_plural


def complaints_about_header(translation, language):
    expected = {"Language": language, "Content-Type": "text/plain; charset=UTF-8",
                "Content-Transfer-Encoding": "8bit", "MIME-Version": "1.0"}
    for name, value in expected.items():
        found = translation.metadata.get(name)
        if found != value:
            yield f"the header {name} is {found!r}; expected {value!r}"


def complaints_about_file(template, translation, language, typed_words):
    """What is wrong in the translation into one language."""
    yield from complaints_about_header(translation, language)
    forms = numbers_of_forms(translation.metadata.get("Plural-Forms", ""))
    if forms is None:
        yield "the header Plural-Forms is not a rule that can be used"
        return
    expected = {key(entry) for entry in template}
    entries = [entry for entry in translation if not entry.obsolete]
    found = Counter(map(key, entries))
    for context, text, _ in sorted(expected - set(found)):
        yield f'"{text}" of {context} is missing'
    for context, text, _ in sorted(set(found) - expected):
        yield f'"{text}" of {context} is not in the template'
    for (context, text, _), number in sorted(found.items()):
        if number > 1:
            yield f'"{text}" of {context} is there {number} times'
    for context, text in sorted(TEXTS_OF_THE_LIBRARY - {each[:2] for each in found}):
        yield f'"{text}" of {context}, a text of HighLevelServices, is missing'
    for entry in translation.obsolete_entries():
        yield f'"{entry.msgid}" is obsolete; remove it'
    for entry in entries:
        for complaint in complaints_about_entry(entry, language, forms, typed_words):
            yield f'"{entry.msgid}" of {entry.msgctxt}: {complaint}'


def complaints(root):
    folder = root / "translations"
    template = polib.pofile(str(folder / "TKMService.pot"), encoding="utf-8")
    typed_words = TypedWords(verbs(root))
    files = sorted(folder.glob("*.po"))
    if not files:
        yield f"{folder}: there are no translations"
    for file in files:
        translation = polib.pofile(str(file), encoding="utf-8")
        for complaint in complaints_about_file(template, translation, file.stem, typed_words):
            yield f"{file.relative_to(root)}: {complaint}".replace("\n", "\\n")


def main(root):
    found = list(complaints(Path(root).resolve()))
    print("\n".join(found) or "The translations are complete, and fit.")
    return 1 if found else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
