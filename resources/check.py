#!/usr/bin/env python3
"""Checks the compiled resource module against the rules that its templates and texts keep.

usage: check.py KelLayerAppsRes.dll resource.h
Prints each slip, and ends with 1 if there is one.
"""
import copy
import pathlib
import re
import sys

from pe_resources import Module

MARGIN = 7  # dialog units, between a control and the edge of its dialog
NO_ID = 0xFFFFFFFF
GROUP_BOX = 7
OWNER_DRAWN = 11
SS_NOPREFIX = 0x80
WS_TABSTOP = 0x10000

# The manager's panel: what closing it hides, and what it moves left by the panel's width.
MANAGER = "IDD_LSTATE_RES"
PANEL = "IDC_LSTATE_RES_PANEL"
BESIDE_PANEL = "IDC_LSTATE_RES_NEW"
HIDDEN = re.compile(r"IDC_LSTATE_RES_(PANEL|ON|FROZEN|VPFROZEN|LOCKED|PLOT|NEWVP|COLOR|LINETYPE|LINEWEIGHT|PLOTSTYLE"
                    r"|SELECTALL|CLEARALL)")
MOVED = ("IDC_LSTATE_RES_RESTORE", "IDC_LSTATE_RES_CLOSE", "ID_HELP", "IDC_LSTATE_RES_EXPAND")
# Escape and F1 are their keys.
WITHOUT_MNEMONIC = ("IDC_LSTATE_RES_CLOSE", "ID_HELP")

slips = []


def slip(text):
    slips.append(text)


def is_button(control, *types):
    return control.kind == "button" and control.style & 0xF in types


def mnemonic(control):
    """The letter after a single ampersand, or None."""
    if control.kind == "static" and control.style & SS_NOPREFIX or is_button(control, OWNER_DRAWN):
        return None
    found = re.search(r"&([^&])", control.text.replace("&&", ""))
    return found and found.group(1).upper()


def describe(control):
    return f'control {control.id if control.id != NO_ID else "without id"} "{control.text}"'


def check_mnemonics(where, dialog, names):
    """Unique, on every button, and on the label in front of everything else that takes the focus."""
    owners = {}
    previous = None
    for control in dialog.controls:
        letter = mnemonic(control)
        if letter in owners:
            slip(f"{where}: {describe(control)} has the mnemonic of {describe(owners[letter])}")
        elif letter:
            owners[letter] = control
        if control.style & WS_TABSTOP and not is_button(control, OWNER_DRAWN):
            named_by = control if control.kind == "button" else previous
            if names.get(control.id) not in WITHOUT_MNEMONIC and not (named_by and mnemonic(named_by)):
                slip(f"{where}: {describe(control)} can't be reached by a mnemonic")
        previous = control


def overlap(a, b):
    return a.left < b.right and b.left < a.right and a.top < b.bottom and b.top < a.bottom


def contains(group, control):
    return (group.left < control.left and control.right < group.right and group.top < control.top
            and control.bottom < group.bottom)


def check_layout(where, dialog):
    """Everything within the margins, and nothing over anything else but inside a group box."""
    for index, control in enumerate(dialog.controls):
        if not (MARGIN <= control.left and control.right <= dialog.width - MARGIN and MARGIN <= control.top
                and control.bottom <= dialog.height - MARGIN):
            slip(f"{where}: {describe(control)} isn't within the margins")
        for other in dialog.controls[index + 1 :]:
            inside = (is_button(control, GROUP_BOX) and contains(control, other)
                      or is_button(other, GROUP_BOX) and contains(other, control))
            if overlap(control, other) and not inside:
                slip(f"{where}: {describe(control)} and {describe(other)} overlap")


def contracted(dialog, ids):
    """The manager as it stands with its panel closed."""
    closed = copy.deepcopy(dialog)
    by_id = {control.id: control for control in closed.controls}
    panel_width = by_id[ids[PANEL]].right - by_id[ids[BESIDE_PANEL]].right
    hidden = {number for name, number in ids.items() if HIDDEN.fullmatch(name)}
    closed.controls = [control for control in closed.controls if control.id not in hidden]
    for name in MOVED:
        by_id[ids[name]].left -= panel_width
    closed.width -= panel_width
    return closed


def check_dialogs(module, ids):
    names = {number: name for name, number in ids.items() if name.startswith(("IDC_", "ID_"))}
    wanted = {number: name for name, number in ids.items() if name.startswith("IDD_")}
    shapes = {}
    for language, dialogs in module.dialogs.items():
        for number in wanted.keys() ^ dialogs.keys():
            slip(f"dialog {number}, language {language:#x}: without a name in resource.h, or without a template")
        for number, dialog in dialogs.items():
            where = f"{wanted.get(number, number)}, language {language:#x}"
            for control in dialog.controls:
                if control.id != NO_ID and control.id not in names:
                    slip(f"{where}: {describe(control)} has no name in resource.h")
            check_mnemonics(where, dialog, names)
            check_layout(where, dialog)
            if wanted.get(number) == MANAGER:
                check_layout(where + ", contracted", contracted(dialog, ids))
            # Tab order is template order: it is the same in every language.
            shape = [(control.id, control.kind, control.style) for control in dialog.controls]
            if shapes.setdefault(number, shape) != shape:
                slip(f"{where}: its controls aren't those of the other languages, in their order")


def check_strings(module, ids):
    wanted = {number: name for name, number in ids.items() if name.startswith("IDS_")}
    placeholders = {}
    for language, strings in module.strings.items():
        for number in sorted(wanted.keys() - strings.keys()):
            slip(f"{wanted[number]}: no text in language {language:#x}")
        for number, text in sorted(strings.items()):
            if number not in wanted:
                slip(f"string {number}, language {language:#x}: has no name in resource.h")
            found = re.findall(r"%[^%]", text.replace("%%", ""))
            if placeholders.setdefault(number, found) != found:
                slip(f"string {number}, language {language:#x}: its placeholders aren't those of the other languages")


def read_ids(header):
    defines = re.findall(r"^#define (ID[A-Z]?_\w+) (\d+)$", pathlib.Path(header).read_text("utf-8"), re.MULTILINE)
    ids = {name: int(number) for name, number in defines}
    for prefix in ("IDD_", "IDC_", "IDS_"):
        numbers = [number for name, number in ids.items() if name.startswith(prefix)]
        for number in sorted({number for number in numbers if numbers.count(number) > 1}):
            slip(f"resource.h: two names starting with {prefix} have the number {number}")
    return ids


def main(file, header):
    module, ids = Module(file), read_ids(header)
    languages = module.dialogs.keys()
    if len(languages) < 2 or languages != module.strings.keys():
        slip("dialogs and strings aren't in the same two languages or more")
    check_dialogs(module, ids)
    check_strings(module, ids)
    for text in slips:
        print(text)
    return 1 if slips else 0


sys.exit(main(*sys.argv[1:]))
