#include "StateNames.h"

#include "HostPrompts.h"
#include "KelEditor.h"
#include "OrvUiServices.h"
#include "WorkingDatabase.h"
#include "resource.h"

namespace {

/// The limit that the host gives for a new name.
int longestName(const KelDbSymbolNameServices& names, bool extendedNames) {
    int length = 0;
    int oldLength = 0;
    names.maxNameLength(length, oldLength, true, extendedNames);
    return length;
}

using Refusal = unsigned int (*)(const wchar_t* kind, const wchar_t* detail, CWnd* parent);

void tellRefusal(Refusal show) {
    CString kind;
    CString detail;
    // A missing string reads empty.
    static_cast<void>(kind.LoadString(IDS_LSTATE_KIND));
    static_cast<void>(detail.LoadString(IDS_LSTATE_NAME_ADVICE));
    show(kind, detail, threadMainWindow());
}

} // namespace

int CheckStateName(const wchar_t* name) {
    if (*name == L'\0') {
        tellRefusal(CKelStandardTaskDialog::ShowInvalidNameEmptyNameDialog);
        return 0;
    }
    const KelDbSymbolNameServices& names = *KelDbSymbolUtilities::servicesPtr106();
    const bool extendedNames = names.extendedNamesMode(workingDatabase());
    static_cast<void>(
        longestName(names, extendedNames)); // asked and not used: validateNameCharacters has the last word
    switch (names.validateNameCharacters(name, true, false, extendedNames)) {
    case Vorn::eOk:
        return 1;
    case Vorn::eInvalidInput:
        tellRefusal(CKelStandardTaskDialog::ShowInvalidNameUnsupportedCharacters);
        return 0;
    case Vorn::eNameTooLong:
        tellRefusal(CKelStandardTaskDialog::ShowInvalidNameTooLongDialog);
        return 0;
    default:
        return 0; // on purpose without a word
    }
}

int stateNameLimit() {
    const KelDbSymbolNameServices& names = *KelDbSymbolUtilities::servicesPtr106();
    return longestName(names, names.extendedNamesMode(workingDatabase()));
}
