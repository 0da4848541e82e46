// SETVAR. The values of nearly all variables come from the drawing: SETVAR sets some of those by the command that
// changes the drawing, as CLAYER by LAYER SET, and otherwise only shows them.

#include "CommandFunctions.h"
#include "PropertyText.h"
#include "Session.h"
#include "SystemVariables.h"

#include "KelEditor.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>

namespace workbench::commands {

namespace {

/// A variable's value as the host answers it. The host's string is given back at the end.
class VariableRead {
  public:
    explicit VariableRead(const std::wstring& name) : m_found(keledGetVar(name.c_str(), &m_value) == kResultNormal) {}
    ~VariableRead() {
        if (m_found && m_value.type == kVariableString)
            vorn_free(m_value.value.string);
    }
    VariableRead(const VariableRead&) = delete;
    VariableRead& operator=(const VariableRead&) = delete;

    bool isFound() const { return m_found; }
    std::wstring text() const {
        switch (m_value.type) {
        case kVariableString:
            return L'"' + std::wstring(m_value.value.string) + L'"';
        case kVariableInt16:
            return std::to_wstring(m_value.value.int16);
        case kVariableInt32:
            return std::to_wstring(m_value.value.int32);
        default: {
            wchar_t real[256];
            keldbRToS(m_value.value.real, -1, -1, real);
            return real;
        }
        }
    }

  private:
    ResultBuffer m_value{};
    bool m_found;
};

void setCurrentTab(Session& session, const std::wstring& name) {
    session.showLayout(name);
}

void setTileMode(Session& session, const std::wstring& value) {
    const zdr::Drawing& drawing = session.drawing();
    if (value == L"1")
        session.showModel();
    else if (value != L"0")
        session.refuse(L"TILEMODE takes 1 for model space or 0 for a layout.\n");
    else if (drawing.layouts.empty())
        session.refuse(L"The drawing has no layout that TILEMODE could show: leave it at 1.\n");
    else
        session.showTab(drawing.activeLayout.value_or(0) + 1);
}

void setCurrentViewport(Session& session, const std::wstring& value) {
    const int number = parseViewportNumber(value);
    if (number < 0)
        session.refuse(L"CVPORT takes the number of a viewport, or 0 for the paper.\n");
    else
        session.makeViewportCurrent(number);
}

void setCurrentLayer(Session& session, const std::wstring& name) {
    const Option* set = nullptr;
    for (const Option& option : layerOptions())
        if (sameName(option.name, L"SET"))
            set = &option;
    set->run(session, {L'"' + name + L'"'});
}

void setLinetypeScale(Session& session, const std::wstring& value) {
    const auto scale = parseNumber(value);
    if (!scale || !zdr::isLinetypeScale(*scale)) {
        session.refuse(quotation(value) + L" is no value of LTSCALE: give " + zdr::kLinetypeScaleText + L".\n");
        return;
    }
    session.change([&](KelDbDatabase& database) {
        if (engine::setLinetypeScale(database, *scale) == Vorn::eOk)
            session.window().print(L"LTSCALE = " + VariableRead(L"LTSCALE").text() + L"\n");
    });
}

void setProfile(Session& session, const std::wstring& name) {
    runtime::setProfile(name);
    session.window().print(L"CPROFILE = " + VariableRead(L"CPROFILE").text() + L"\n");
}

/// A variable that can be set, and how.
struct Setting {
    const wchar_t* name;
    void (*set)(Session& session, const std::wstring& value);
};
constexpr Setting kSettings[] = {
    {L"CLAYER", setCurrentLayer},    {L"CPROFILE", setProfile},      {L"CTAB", setCurrentTab},
    {L"CVPORT", setCurrentViewport}, {L"LTSCALE", setLinetypeScale}, {L"TILEMODE", setTileMode},
};

void listAll(Session& session) {
    std::wstring text;
    for (const std::wstring& name : runtime::systemVariableNames())
        if (const VariableRead read(name); read.isFound())
            text += name + L" = " + read.text() + L"\n";
    session.window().print(text);
}

void set(Session& session, const std::wstring& name, const std::wstring& typed) {
    const auto* setting =
        std::ranges::find_if(kSettings, [&name](const Setting& row) { return sameName(row.name, name); });
    if (setting != std::end(kSettings)) {
        session.nameCommand(std::wstring(L"SETVAR ") + setting->name);
        setting->set(session, unquoted(typed));
    } else {
        session.refuse(name + L" tells about the drawing: SETVAR can only show it.\n");
    }
}

} // namespace

void setVariable(Session& session, const CommandText& text) {
    if (text.words.empty()) {
        listAll(session);
        return;
    }
    std::wstring name = zdr::foldCase(unquoted(text.words[0]));
    const VariableRead read(name);
    if (!read.isFound())
        session.refuse(L"There is no system variable " + quotation(unquoted(text.words[0])) +
                       L": SETVAR alone lists them.\n");
    else if (text.words.size() == 1)
        session.window().print(name + L" = " + read.text() + L"\n");
    else
        set(session, name, text.words[1]);
}

} // namespace workbench::commands
