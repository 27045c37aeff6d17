#!/usr/bin/env python3
"""pseudo_translation.py TEMPLATE.ts TRANSLATION.ts: "translates" every text into itself in brackets, with accents and
longer by two fifths, so that a run of the program shows what is no translated text and what has no room for one."""
import re
import sys
import xml.etree.ElementTree as ElementTree

ACCENTS = str.maketrans("aceinouyACEINOUY", "âçéîñôûýÂÇÉÎÑÔÛÝ")
KEPT = re.compile(r"(%L?\d+|%[nvm]|&.)")  # Places and mnemonics.


def pseudo(text):
    filter_pattern = re.search(r" ?\((?:\*|%)[^()]*\)$", text)
    end = filter_pattern.group() if filter_pattern else ""
    parts = KEPT.split(text[: len(text) - len(end)])  # Every second one is to be kept.
    words = "".join(part if place % 2 else part.translate(ACCENTS) for place, part in enumerate(parts))
    more = len(text) * 2 // 5
    more = ("~~~~~ " * more)[:more] if " " in text else "~" * more  # Sentences are broken between words.
    return f"[{words}{more}]{end}"


tree = ElementTree.parse(sys.argv[1])
root = tree.getroot()
root.set("language", "eo")
for message in root.iter("message"):
    translation = message.find("translation")
    translation.attrib.pop("type", None)
    text = pseudo(message.find("source").text)
    if message.get("numerus") == "yes":
        translation.clear()
        for _ in range(2):  # One and several, as the language above has them.
            ElementTree.SubElement(translation, "numerusform").text = text
    else:
        translation.text = text
tree.write(sys.argv[2], encoding="utf-8", xml_declaration=True)
