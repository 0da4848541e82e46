#include "FileDialogSteps.h"

namespace ui {

Script typeFileName(const std::wstring& name) {
    Script script;
    // The dialog is shown before it gives the box the focus.
    script
        .waitUntil("the focus is in the name's box",
                   [](const View& view) { return IsChild(view.control(kFileNameBox), GetFocus()) != FALSE; })
        .type(name)
        .waitUntil("the name is in its box", [name](const View& view) { return view.text(kFileNameBox) == name; });
    return script;
}

Script enterFileName(const std::wstring& name) {
    return typeFileName(name).press(VK_RETURN);
}

} // namespace ui
