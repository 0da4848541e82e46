// A text in which the host has filled in its own names.

#include "OrvUiUtilities.h"

#include "KelDbDatabase.h"
#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"
#include "tasks/TaskDialogFile.h"

using instruments::HostCall;

namespace {

CString expanded(const CString& text) {
    const framework::TaskPairs names = {{L"Product", keldbHostApplicationServices()->productName()}};
    return CString(framework::substituted(text.GetString(), names).c_str());
}

} // namespace

CKelUiStringExp::CKelUiStringExp(const CString& text) {
    HostCall call("CKelUiStringExp", text.GetString());
    m_text = expanded(text);
}

BOOL CKelUiStringExp::LoadString(unsigned int id) {
    return framework::answerOr(FALSE, [&] {
        HostCall call("stringExp.LoadString", id);
        CString text;
        m_text.Empty();
        if (call.fault() || !text.LoadString(id))
            return call.answer(false);
        m_text = expanded(text);
        return call.answer(true);
    });
}
