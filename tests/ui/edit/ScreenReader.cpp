#include "ScreenReader.h"

#include "View.h"

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

namespace reader {

Holder<IAccessible> asked(HWND window) {
    void* found = nullptr;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &found);
    return Holder<IAccessible>(static_cast<IAccessible*>(found));
}

Holder<IAccessible> standard(HWND window) {
    void* made = nullptr;
    CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), &made);
    return Holder<IAccessible>(static_cast<IAccessible*>(made));
}

VARIANT child(long number) {
    VARIANT row{};
    row.vt = VT_I4;
    row.lVal = number;
    return row;
}

void PrintTo(const Said& said, std::ostream* stream) {
    *stream << std::hex << static_cast<unsigned long>(said.status) << " \"" << ui::narrow(said.text) << '"';
}

Said say(IAccessible& object, Question question, VARIANT about) {
    BSTR text = nullptr;
    const HRESULT status = (object.*question)(about, &text);
    Said said{status, text ? std::wstring(text, SysStringLen(text)) : L""};
    SysFreeString(text);
    return said;
}

std::wstring nameOf(IAccessible& object, long row) {
    return say(object, &IAccessible::get_accName, child(row)).text;
}
std::wstring descriptionOf(IAccessible& object, long row) {
    return say(object, &IAccessible::get_accDescription, child(row)).text;
}

void PrintTo(const Row& row, std::ostream* stream) {
    *stream << ui::narrow(row.name) << ": " << ui::narrow(row.description);
}

std::vector<Row> rowsOf(IAccessible& object) {
    std::vector<Row> rows;
    for (long row = 1; !nameOf(object, row).empty(); ++row)
        rows.push_back({nameOf(object, row), descriptionOf(object, row)});
    return rows;
}

std::vector<std::string> allElseOf(IAccessible& object, const VARIANT& about) {
    std::vector<std::string> answers;
    const auto add = [&answers](HRESULT status, const auto&... values) {
        std::ostringstream text;
        text << std::hex << static_cast<unsigned long>(status);
        ((text << ' ' << values), ...);
        answers.push_back(text.str());
    };
    for (const Question question :
         {Question{&IAccessible::get_accValue}, Question{&IAccessible::get_accHelp},
          Question{&IAccessible::get_accKeyboardShortcut}, Question{&IAccessible::get_accDefaultAction}}) {
        const Said said = say(object, question, about);
        add(said.status, ui::narrow(said.text));
    }
    for (const auto question : {&IAccessible::get_accRole, &IAccessible::get_accState}) {
        VARIANT answer{};
        const HRESULT status = (object.*question)(about, &answer);
        add(status, answer.vt, answer.lVal);
    }
    for (const auto question : {&IAccessible::get_accFocus, &IAccessible::get_accSelection}) {
        VARIANT answer{};
        const HRESULT status = (object.*question)(&answer);
        add(status, answer.vt);
        VariantClear(&answer);
    }
    IDispatch* found = nullptr;
    add(object.get_accParent(&found), found != nullptr);
    const Holder<IDispatch> parent(std::exchange(found, nullptr));
    add(object.get_accChild(about, &found), found != nullptr);
    const Holder<IDispatch> row(found);
    long count = 0;
    add(object.get_accChildCount(&count), count);
    BSTR file = nullptr;
    long topic = 0;
    add(object.get_accHelpTopic(&file, about, &topic), topic);
    long left = 0, top = 0, width = 0, height = 0;
    add(object.accLocation(&left, &top, &width, &height, about), left, top, width, height);
    VARIANT answer{};
    add(object.accNavigate(NAVDIR_FIRSTCHILD, about, &answer), answer.vt);
    VariantClear(&answer);
    add(object.accHitTest(left + width / 2, top + height / 2, &answer), answer.vt);
    VariantClear(&answer);
    add(object.accSelect(SELFLAG_NONE, about));
    add(object.accDoDefaultAction(about));
    add(object.put_accName(about, nullptr));
    add(object.put_accValue(about, nullptr));
    return answers;
}

void Changes::listenTo(HWND list) {
    m_list = list;
    m_hook = SetWinEventHook(EVENT_OBJECT_DESCRIPTIONCHANGE, EVENT_OBJECT_DESCRIPTIONCHANGE, nullptr, hear,
                             GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
    ASSERT_NE(m_hook, nullptr);
}

void CALLBACK Changes::hear(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG row, DWORD, DWORD) {
    if (window == s_here->m_list && object == OBJID_CLIENT)
        s_here->rows.push_back(row);
}

} // namespace reader
