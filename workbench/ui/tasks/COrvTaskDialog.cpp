// A task dialog described in a XAML file of the host.

#include "OrvUiServices.h"

#include "base/OutOfMemory.h"
#include "instruments/HostCalls.h"
#include "tasks/TaskDialogFile.h"
#include "tasks/TaskDialogWindow.h"

using instruments::HostCall;

struct COrvTaskDialog::Description {
    std::optional<framework::TaskDescription> loaded;
};

COrvTaskDialog::COrvTaskDialog() : m_description(new Description) {}

COrvTaskDialog::~COrvTaskDialog() {
    delete m_description;
}

BOOL COrvTaskDialog::LoadFromFile(const wchar_t* file, const wchar_t* key, const TASKDIALOG_KEYVALUE* pairs,
                                  int count) {
    return framework::answerOr(FALSE, [&] {
        HostCall call("taskDialog.LoadFromFile", file, key, static_cast<const void*>(pairs), count);
        m_description->loaded.reset();
        if (call.fault() || !file || !key)
            return call.answer(false);
        framework::TaskPairs values;
        for (int i = 0; pairs && i < count; ++i)
            if (pairs[i].key && pairs[i].value)
                values[pairs[i].key] = pairs[i].value;
        m_description->loaded = framework::readTaskDialog(file, key, values);
        return call.answer(m_description->loaded.has_value());
    });
}

int COrvTaskDialog::ShowDialog(HWND parent) {
    return framework::answerOr(0, [&] {
        HostCall call("taskDialog.ShowDialog", static_cast<const void*>(parent));
        if (call.fault() || !m_description->loaded)
            return call.answer(0);
        return call.answer(framework::showTaskDialog(parent, *m_description->loaded));
    });
}
