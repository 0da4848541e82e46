#!/usr/bin/env python3
"""Checks the compiled resource module against the rules that its templates and texts keep.

usage: check.py KelLayerAppsRes.dll resource.h manager-header...
Prints each slip, and ends with 1 if there is one. The headers are those that hold the tables of the manager's panel.
"""
import copy
import dataclasses
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

MANAGER = "IDD_LSTATE_RES"
# The controls whose name doesn't start with the name of one dialog: in whose templates they stand. The module itself
# makes the ones that stand in none.
STANDS_IN = {
    "IDC_LSTATE_INPLACE_EDIT": (),
    "IDC_LSTATE_KEEP_THIS": ("IDD_LSTATE_DEL",),
    "IDC_LAYER_GRID": ("IDD_EDIT_LAYER_STATE", "IDD_ADD_LAYERS"),
    "IDC_ADD_LAYERS": ("IDD_EDIT_LAYER_STATE",),
    "IDC_REMOVE_LAYERS": ("IDD_EDIT_LAYER_STATE",),
}
# The system's own ids, which any template may hold, like ID_HELP of resource.h.
SYSTEM_IDS = {"IDOK": 1, "IDCANCEL": 2, "IDHELP": 9}
# Enter, Escape and F1 are their keys.
WITHOUT_MNEMONIC = (*SYSTEM_IDS, "ID_HELP", "IDC_LSTATE_RES_CLOSE")


@dataclasses.dataclass
class Panel:
    """The manager's panel, by names of controls: what closing it hides, what that moves left, and by which width."""

    frame: str
    beside: str
    hidden: list
    moved: list


def is_button(control, *types):
    return control.kind == "button" and control.style & 0xF in types


def mnemonic(control):
    """The letter after a single ampersand, or None."""
    if control.kind == "static" and control.style & SS_NOPREFIX or is_button(control, OWNER_DRAWN):
        return None
    found = re.search(r"&([^&])", control.text.replace("&&", ""))
    return found and found.group(1).upper()


def placeholders(text):
    return re.findall(r"%[^%]", text.replace("%%", ""))


def describe(control):
    return f'control {control.id if control.id != NO_ID else "without id"} "{control.text}"'


def check_mnemonics(where, dialog, names):
    """Unique, on every button, and on the label in front of everything else that takes the focus."""
    owners = {}
    previous = None
    for control in dialog.controls:
        letter = mnemonic(control)
        if letter in owners:
            yield f"{where}: {describe(control)} has the mnemonic of {describe(owners[letter])}"
        elif letter:
            owners[letter] = control
        if control.style & WS_TABSTOP and not is_button(control, OWNER_DRAWN):
            named_by = control if control.kind == "button" else previous
            if names.get(control.id) not in WITHOUT_MNEMONIC and not (named_by and mnemonic(named_by)):
                yield f"{where}: {describe(control)} can't be reached by a mnemonic"
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
            yield f"{where}: {describe(control)} isn't within the margins"
        for other in dialog.controls[index + 1 :]:
            inside = (is_button(control, GROUP_BOX) and contains(control, other)
                      or is_button(other, GROUP_BOX) and contains(other, control))
            if overlap(control, other) and not inside:
                yield f"{where}: {describe(control)} and {describe(other)} overlap"


def contracted(dialog, names, panel):
    """The manager as it stands with its panel closed."""
    closed = copy.deepcopy(dialog)
    by_name = {names.get(control.id): control for control in closed.controls}
    panel_width = by_name[panel.frame].right - by_name[panel.beside].right
    closed.controls = [control for control in closed.controls if names.get(control.id) not in panel.hidden]
    for name in panel.moved:
        by_name[name].left -= panel_width
    closed.width -= panel_width
    return closed


def check_panel(where, dialog, names, panel):
    present = {names.get(control.id) for control in dialog.controls}
    missing = sorted({panel.frame, panel.beside, *panel.hidden, *panel.moved} - present)
    for name in missing:
        yield f"{where}: {name} is in the tables of the panel but not in the template"
    if not missing:
        yield from check_layout(where + ", contracted", contracted(dialog, names, panel))


def dialogs_of(name, ids):
    """The dialogs in whose templates the control of that name stands; None when nothing tells."""
    if name in STANDS_IN:
        return STANDS_IN[name]
    prefixes = [dialog for dialog in ids if dialog.startswith("IDD_") and name.startswith(f"IDC{dialog[3:]}_")]
    return (max(prefixes, key=len),) if prefixes else None


def control_names(dialog, ids):
    """The ids that the template of a dialog may hold, with their names."""
    def may_stand(name):
        return name.startswith("ID_") or name.startswith("IDC_") and dialog in (dialogs_of(name, ids) or ())

    return [*SYSTEM_IDS.items(), *((name, number) for name, number in ids.items() if may_stand(name))]


def check_control_names(ids):
    """Every control belongs to a dialog, and its number is its own there."""
    for name in ids:
        if name.startswith("IDC_") and dialogs_of(name, ids) is None:
            yield f"resource.h: {name} starts with no dialog's name and isn't among the exceptions of check.py"
    for name, dialogs in STANDS_IN.items():
        for absent in {name, *dialogs} - ids.keys():
            yield f"check.py: {absent} is among the exceptions but not in resource.h"
    for dialog in ids:
        owners = {}
        for name, number in control_names(dialog, ids) if dialog.startswith("IDD_") else ():
            if owners.setdefault(number, name) != name:
                yield f"resource.h: {owners[number]} and {name} of {dialog} have the number {number}"


def check_template(where, dialog, names):
    """Each control has a name of this dialog, and each name of this dialog a control."""
    present = {control.id for control in dialog.controls}
    for control in dialog.controls:
        if control.id != NO_ID and control.id not in names:
            yield f"{where}: {describe(control)} has no name of this dialog in resource.h"
    for number, name in sorted(names.items()):
        if name.startswith("IDC_") and number not in present:
            yield f"{where}: {name} isn't in the template"


def check_dialogs(module, ids, panel):
    wanted = {number: name for name, number in ids.items() if name.startswith("IDD_")}
    shapes = {}
    formats = {}
    for language, dialogs in module.dialogs.items():
        for number in wanted.keys() ^ dialogs.keys():
            yield f"dialog {number}, language {language:#x}: without a name in resource.h, or without a template"
        for number in dialogs.keys() & wanted.keys():
            dialog = dialogs[number]
            where = f"{wanted[number]}, language {language:#x}"
            names = {number: name for name, number in control_names(wanted[number], ids)}
            yield from check_template(where, dialog, names)
            yield from check_mnemonics(where, dialog, names)
            yield from check_layout(where, dialog)
            if wanted[number] == MANAGER:
                yield from check_panel(where, dialog, names, panel)
            # Tab order is template order: it is the same in every language.
            shape = [(control.id, control.kind, control.style) for control in dialog.controls]
            if shapes.setdefault(number, shape) != shape:
                yield f"{where}: its controls aren't those of the other languages, in their order"
            found = [placeholders(control.text) for control in dialog.controls]
            if formats.setdefault(number, found) != found:
                yield f"{where}: its placeholders aren't those of the other languages"


def check_strings(module, ids):
    wanted = {number: name for name, number in ids.items() if name.startswith("IDS_")}
    formats = {}
    for language, strings in module.strings.items():
        for number in sorted(wanted.keys() - strings.keys()):
            yield f"{wanted[number]}: no text in language {language:#x}"
        for number, text in sorted(strings.items()):
            if number not in wanted:
                yield f"string {number}, language {language:#x}: has no name in resource.h"
            found = placeholders(text)
            if formats.setdefault(number, found) != found:
                yield f"string {number}, language {language:#x}: its placeholders aren't those of the other languages"


def check_pictures(module, ids):
    """Each bitmap and icon with a number has a name, and each name a picture."""
    for prefix, present in (("IDB_", module.bitmaps), ("IDI_", module.icons)):
        named = {number for name, number in ids.items() if name.startswith(prefix)}
        for number in sorted(named ^ present):
            yield f"{prefix} {number}: without a name in resource.h, or without a picture"


def check_numbers(ids):
    """Dialogs, strings, bitmaps and icons are found by number alone."""
    for prefix in ("IDD_", "IDS_", "IDB_", "IDI_"):
        numbers = [number for name, number in ids.items() if name.startswith(prefix)]
        for number in sorted({number for number in numbers if numbers.count(number) > 1}):
            yield f"resource.h: two names starting with {prefix} have the number {number}"


def check_languages(module):
    if len(module.dialogs) < 2 or module.dialogs.keys() != module.strings.keys():
        yield "dialogs and strings aren't in the same two languages or more"


def read_ids(header):
    defines = re.findall(r"^#define (ID[A-Z]?_\w+) (\d+)$", header, re.MULTILINE)
    return {name: int(number) for name, number in defines}


def read_panel(headers):
    """The panel, out of the tables that the manager works with."""

    def names(table):
        found = re.search(rf"\b{table}(?:\[\])? = (.*?);", headers, re.DOTALL)
        if not found:
            raise ValueError(f"the manager's headers have no {table}")
        return re.findall(r"\bIDC?_\w+", found.group(1))

    frame, beside = names("kPanelFrame")[0], names("kBesidePanel")[0]
    return Panel(frame, beside, [frame, *names("kPropertyTable"), *names("kPanelControls")], names("kEdgeControls"))


def check(module, ids, panel):
    """All slips."""
    yield from check_languages(module)
    yield from check_numbers(ids)
    yield from check_control_names(ids)
    yield from check_dialogs(module, ids, panel)
    yield from check_strings(module, ids)
    yield from check_pictures(module, ids)


def main(module, header, *manager_headers):
    def texts(*files):
        return "".join(pathlib.Path(file).read_text("utf-8") for file in files)

    slips = list(check(Module(module), read_ids(texts(header)), read_panel(texts(*manager_headers))))
    for text in slips:
        print(text)
    return 1 if slips else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
