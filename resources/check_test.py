#!/usr/bin/env python3
"""Tests of check.py: a small module without a slip, and each slip made in it."""
import types
import unittest
from unittest import mock

import check
from pe_resources import CBS_DROPDOWN, CBS_SIMPLE, Control, Dialog

ENGLISH, GERMAN = 0x409, 0x7
BUTTON, CHECK_BOX, GROUP_BOX = check.WS_TABSTOP, check.WS_TABSTOP | 3, check.GROUP_BOX

HEADER = """
#define IDD_LSTATE_RES 201
#define IDD_LSTATE_SAVE 200
#define IDC_LSTATE_RES_NEW 1003
#define IDC_LSTATE_RES_PANEL 1007
#define IDC_LSTATE_RES_ON 1008
#define IDC_LSTATE_RES_CLEARALL 1019
#define IDC_LSTATE_RES_CLOSE 1022
#define IDC_LSTATE_SAVE_NAME 1022
#define IDC_LSTATE_INPLACE_EDIT 1973
#define ID_HELP 57670
#define IDS_LSTATE_CURRENT_STATE 165
#define IDB_LSTATE_GRID_IMAGES 305
#define IDI_LSTATE_ADD_LAYERS 300
"""
PANEL = """
inline constexpr int kPanelFrame = IDC_LSTATE_RES_PANEL;
inline constexpr int kBesidePanel = IDC_LSTATE_RES_NEW;
inline constexpr int kPanelControls[] = {kPanelFrame, IDC_LSTATE_RES_CLEARALL};
inline constexpr int kEdgeControls[] = {IDC_LSTATE_RES_CLOSE, ID_HELP};
inline constexpr PropertyBox kPropertyTable[] = {
    {IDC_LSTATE_RES_ON, MaskOn, EnableRule::oneRow},
};
"""


def button(number, text, left, top, style=BUTTON, width=40, height=14):
    return Control(number, "button", style, text, left, top, width, height)


def manager():
    """As in the module, closing the panel moves Close and Help left by 60, the panel's width."""
    return Dialog("Manager", 160, 80, [
        button(1003, "&New", 53, 7),
        button(1007, "Properties", 100, 7, GROUP_BOX, 53, 44),
        button(1008, "&On", 105, 15, CHECK_BOX, 40, 10),
        button(1019, "&Clear", 105, 30),
        button(1022, "Close", 70, 59),
        button(57670, "Help", 113, 59),
    ])


def save():
    return Dialog("Save", 100, 60, [
        Control(check.NO_ID, "static", 0, "&Name:", 7, 7, 30, 8),
        Control(1022, "combo box", check.WS_TABSTOP | CBS_DROPDOWN, "", 40, 7, 50, 90),
        button(1, "OK", 7, 39),
        button(2, "Cancel", 53, 39),
    ])


class CheckTest(unittest.TestCase):
    def setUp(self):
        languages = ENGLISH, GERMAN
        self.header, self.panel = HEADER, PANEL
        self.exceptions({"IDC_LSTATE_INPLACE_EDIT": ()})
        self.module = types.SimpleNamespace(
            dialogs={language: {201: manager(), 200: save()} for language in languages},
            strings={language: {165: "Current: %s"} for language in languages},
            bitmaps={305}, icons={300})

    def exceptions(self, names):
        patch = mock.patch.dict(check.STANDS_IN, names, clear=True)
        patch.start()
        self.addCleanup(patch.stop)

    def control(self, dialog, number, language=ENGLISH):
        return next(found for found in self.module.dialogs[language][dialog].controls if found.id == number)

    def in_both(self, dialog, change):
        for dialogs in self.module.dialogs.values():
            change(dialogs[dialog].controls)

    def slips(self):
        return list(check.check(self.module, check.read_ids(self.header), check.read_panel(self.panel)))

    def expect(self, *parts):
        slips = self.slips()
        self.assertTrue(any(all(part in text for part in parts) for text in slips), f"{parts} not in {slips}")

    def test_a_good_module_has_no_slip(self):
        self.assertEqual(self.slips(), [])

    # Names and numbers.

    def test_two_dialogs_may_share_a_number_and_one_may_not(self):
        self.header += "#define IDC_LSTATE_SAVE_OTHER 1022\n"
        self.expect("IDC_LSTATE_SAVE_NAME", "IDC_LSTATE_SAVE_OTHER", "number 1022")

    def test_the_systems_numbers_are_taken_in_every_dialog(self):
        self.header += "#define IDC_LSTATE_SAVE_FIRST 1\n"
        self.expect("IDOK", "IDC_LSTATE_SAVE_FIRST", "number 1")

    def test_two_dialogs_of_one_number(self):
        self.header += "#define IDD_LSTATE_DEL 200\n"
        self.expect("IDD_", "number 200")

    def test_two_strings_of_one_number(self):
        self.header += "#define IDS_LSTATE_OTHER 165\n"
        self.expect("IDS_", "number 165")

    def test_a_control_whose_name_starts_with_no_dialogs(self):
        self.header += "#define IDC_LAYER_GRID 16214\n"
        self.expect("IDC_LAYER_GRID", "starts with no dialog's name")

    def test_the_longest_of_the_dialogs_names_counts(self):
        self.header += "#define IDD_LSTATE_SAVE_AS 199\n#define IDC_LSTATE_SAVE_AS_NAME 1022\n"
        ids = check.read_ids(self.header)
        self.assertEqual(check.dialogs_of("IDC_LSTATE_SAVE_AS_NAME", ids), ("IDD_LSTATE_SAVE_AS",))
        self.assertEqual(check.dialogs_of("IDC_LSTATE_SAVE_NAME", ids), ("IDD_LSTATE_SAVE",))

    def test_an_exception_stands_in_the_templates_that_it_names(self):
        self.header += "#define IDC_LAYER_GRID 1000\n"
        self.exceptions({"IDC_LSTATE_INPLACE_EDIT": (), "IDC_LAYER_GRID": ("IDD_LSTATE_RES", "IDD_LSTATE_SAVE")})
        self.in_both(200, lambda controls: controls.append(button(1000, "&Grid", 7, 22)))
        self.expect("IDD_LSTATE_RES", "IDC_LAYER_GRID isn't in the template")
        self.in_both(201, lambda controls: controls.append(button(1000, "&Grid", 7, 30)))
        self.assertEqual(self.slips(), [])

    def test_an_exception_that_is_none_any_more(self):
        self.header = self.header.replace("#define IDC_LSTATE_INPLACE_EDIT 1973\n", "")
        self.expect("IDC_LSTATE_INPLACE_EDIT", "among the exceptions")

    def test_a_name_that_its_template_doesnt_use(self):
        self.header += "#define IDC_LSTATE_SAVE_DESCRIPTION 1026\n"
        self.expect("IDD_LSTATE_SAVE", "IDC_LSTATE_SAVE_DESCRIPTION isn't in the template")

    def test_a_control_with_another_dialogs_name(self):
        self.in_both(200, lambda controls: controls.append(button(1003, "&Third", 7, 22)))
        self.expect("IDD_LSTATE_SAVE", "control 1003", "has no name of this dialog")

    def test_a_template_without_a_name_and_a_name_without_a_template(self):
        self.header = self.header.replace("IDD_LSTATE_SAVE 200", "IDD_LSTATE_SAVE 204")
        self.expect("dialog 200")
        self.expect("dialog 204")

    def test_two_bitmaps_of_one_number(self):
        self.header += "#define IDB_LSTATE_OTHER 305\n"
        self.expect("IDB_", "number 305")

    def test_two_icons_of_one_number(self):
        self.header += "#define IDI_LSTATE_OTHER 300\n"
        self.expect("IDI_", "number 300")

    def test_a_bitmap_without_a_name_and_a_name_without_a_bitmap(self):
        self.header = self.header.replace("GRID_IMAGES 305", "GRID_IMAGES 315")
        self.expect("IDB_ 305")
        self.expect("IDB_ 315")

    def test_an_icon_without_a_name_and_a_name_without_an_icon(self):
        self.header = self.header.replace("ADD_LAYERS 300", "ADD_LAYERS 301")
        self.expect("IDI_ 300")
        self.expect("IDI_ 301")

    # Mnemonics.

    def test_one_mnemonic_twice(self):
        self.control(201, 1008).text = "O&ne"
        self.expect("control 1008", "has the mnemonic of control 1003")

    def test_a_control_without_a_mnemonic(self):
        self.control(201, 1003).text = "New"
        self.expect("control 1003", "can't be reached")

    def test_a_list_without_a_label(self):
        self.in_both(200, lambda controls: controls.pop(0))
        self.expect("control 1022", "can't be reached")

    # Places.

    def test_a_control_in_the_margin(self):
        self.control(200, 1).left = 6
        self.expect("control 1 ", "margins")

    def test_two_controls_over_each_other(self):
        self.control(200, 2).left = 46
        self.expect("control 1 ", "control 2 ", "overlap")

    def test_a_closed_combo_box_over_another_control(self):
        self.control(200, 2).top = 20
        self.expect("control 1022 ", "control 2 ", "overlap")

    def test_a_combo_box_whose_list_is_always_open(self):
        self.in_both(200, lambda controls: setattr(controls[1], "style", check.WS_TABSTOP | CBS_SIMPLE))
        self.expect("control 1022 ", "margins")

    def test_a_control_that_the_closed_panel_leaves_outside(self):
        self.control(201, 57670).left = 107
        self.control(201, 1022).left = 64
        self.expect("contracted", "control 1022", "margins")

    def test_a_panel_that_names_what_the_template_lacks(self):
        self.panel = self.panel.replace("CLEARALL", "NONE")
        self.expect("IDC_LSTATE_RES_NONE is in the tables of the panel")

    def test_a_property_box_that_isnt_hidden_with_the_panel(self):
        self.panel = self.panel.replace("    {IDC_LSTATE_RES_ON, MaskOn, EnableRule::oneRow},\n", "")
        self.expect("contracted", "control 1008", "margins")

    def test_headers_without_the_panels_tables(self):
        self.panel = ""
        self.assertRaisesRegex(ValueError, "kPanelFrame", self.slips)

    # Languages.

    def test_controls_in_another_order_in_one_language(self):
        self.module.dialogs[GERMAN][200].controls.reverse()
        self.expect("IDD_LSTATE_SAVE", "aren't those of the other languages")

    def test_one_language_alone(self):
        del self.module.dialogs[GERMAN], self.module.strings[GERMAN]
        self.expect("two languages")

    def test_a_language_without_its_strings(self):
        del self.module.strings[GERMAN]
        self.expect("two languages")

    def test_a_text_that_a_language_lacks(self):
        self.module.strings[GERMAN].clear()
        self.expect("IDS_LSTATE_CURRENT_STATE", "no text in language 0x7")

    def test_a_text_without_a_name(self):
        self.module.strings[GERMAN][166] = "Mehr"
        self.expect("string 166", "no name")

    def test_placeholders_that_differ(self):
        self.module.strings[GERMAN][165] = "Aktuell: %d"
        self.expect("string 165", "placeholders")

    def test_placeholders_of_a_control_that_differ(self):
        for text, german in (("Delete %s?", "%d?"), ("Delete %s?", "?"), ("100 %%", "100 %s")):
            with self.subTest(german=german):
                self.control(200, check.NO_ID).text = text
                self.control(200, check.NO_ID, GERMAN).text = german
                self.expect("IDD_LSTATE_SAVE", "placeholders")


if __name__ == "__main__":
    unittest.main()
