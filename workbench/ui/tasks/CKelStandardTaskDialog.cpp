// The host's own questions and refusals about names. Their texts stand with the other task dialogs.

#include "OrvUiServices.h"

#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"
#include "tasks/TaskDialogFile.h"
#include "tasks/TaskDialogWindow.h"

using instruments::HostCall;

namespace {

std::wstring orEmpty(const wchar_t* text) {
    return text ? text : L"";
}

/// `second` is the value of the placeholder `secondName`, the other text besides the kind. `unshown` is the answer when
/// the dialog can't be shown.
unsigned int show(const char* operation, const wchar_t* key, const wchar_t* kind, const wchar_t* secondName,
                  const wchar_t* second, const CWnd* parent, unsigned int unshown = 0) {
    return framework::answerOr(unshown, [&] {
        HostCall call(operation, kind, second);
        const framework::TaskPairs pairs = {{L"Kind", orEmpty(kind)}, {secondName, orEmpty(second)}};
        const auto description = framework::readTaskDialog(L"/KelTaskDialogs;component/TaskDialogs.xaml", key, pairs);
        if (call.fault() || !description)
            return call.answer(unshown);
        const int pressed = framework::showTaskDialog(parent ? parent->GetSafeHwnd() : nullptr, *description);
        return call.answer(pressed ? static_cast<unsigned int>(pressed) : unshown);
    });
}

} // namespace

unsigned int CKelStandardTaskDialog::ShowDuplicateNameReplaceCancelDialog(const wchar_t* kind, const wchar_t* name,
                                                                          CWnd* parent) {
    // Nothing is replaced unasked.
    return show("ShowDuplicateNameReplaceCancelDialog", L"Kel.DuplicateName", kind, L"Name", name, parent, IDCANCEL);
}

unsigned int CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog(const wchar_t* kind, const wchar_t* detail,
                                                                    CWnd* parent) {
    return show("ShowInvalidNameEmptyNameDialog", L"Kel.EmptyName", kind, L"Detail", detail, parent);
}

unsigned int CKelStandardTaskDialog::ShowInvalidNameTooLongDialog(const wchar_t* kind, const wchar_t* detail,
                                                                  CWnd* parent) {
    return show("ShowInvalidNameTooLongDialog", L"Kel.NameTooLong", kind, L"Detail", detail, parent);
}

unsigned int CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters(const wchar_t* kind, const wchar_t* detail,
                                                                          CWnd* parent) {
    return show("ShowInvalidNameUnsupportedCharacters", L"Kel.NameCharacters", kind, L"Detail", detail, parent);
}
