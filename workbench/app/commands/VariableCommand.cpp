// SETVAR. The values of some variables come from the drawing: SETVAR sets those by the command that changes the
// drawing, as CLAYER by LAYER SET, and otherwise only shows them.

#include "CommandFunctions.h"
#include "PropertyText.h"
#include "Session.h"
#include "SystemVariables.h"

#include "KelEditor.h"

#include "engine/DatabaseAccess.h"

#include <algorithm>
#include <limits>

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
    int type() const { return m_value.type; }
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

template <class Integer> std::optional<runtime::VariableValue> integerOf(const std::wstring& text) {
    const auto number = parseNumber(text);
    const bool fits = number && *number >= std::numeric_limits<Integer>::min() &&
                      *number <= std::numeric_limits<Integer>::max() &&
                      *number == static_cast<double>(static_cast<Integer>(*number));
    return fits ? std::optional<runtime::VariableValue>(static_cast<Integer>(*number)) : std::nullopt;
}

/// The typed value in the variable's type; none when it isn't one.
std::optional<runtime::VariableValue> valueOf(const std::wstring& text, int type) {
    switch (type) {
    case kVariableString:
        return unquoted(text);
    case kVariableInt16:
        return integerOf<std::int16_t>(text);
    case kVariableInt32:
        return integerOf<std::int32_t>(text);
    default:
        return parseNumber(text);
    }
}

void setCurrentTab(Session& session, const std::wstring& name) {
    session.showLayout(name);
}

void setTileMode(Session& session, const std::wstring& value) {
    const zdr::Drawing& drawing = session.drawing();
    if (value == L"1")
        session.showModel();
    else if (value != L"0")
        session.window().print(L"TILEMODE takes 1 for model space or 0 for a layout.\n");
    else if (drawing.layouts.empty())
        session.window().print(L"The drawing has no layout that TILEMODE could show: leave it at 1.\n");
    else
        session.showTab(drawing.activeLayout.value_or(0) + 1);
}

void setCurrentViewport(Session& session, const std::wstring& value) {
    const int number = parseViewportNumber(value);
    if (number < 0)
        session.window().print(L"CVPORT takes the number of a viewport, or 0 for the paper.\n");
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

/// A variable whose value comes from the drawing, and the function that changes the drawing accordingly.
struct Redirection {
    const wchar_t* name;
    void (*set)(Session& session, const std::wstring& value);
};
constexpr Redirection kRedirections[] = {
    {L"CLAYER", setCurrentLayer},
    {L"CTAB", setCurrentTab},
    {L"CVPORT", setCurrentViewport},
    {L"TILEMODE", setTileMode},
};

void listAll(Session& session) {
    std::wstring text;
    for (const std::wstring& name : runtime::systemVariableNames())
        if (const VariableRead read(name); read.isFound())
            text += name + L" = " + read.text() + L"\n";
    session.window().print(text);
}

void set(Session& session, const std::wstring& name, const std::wstring& typed, int type) {
    const auto* redirection =
        std::ranges::find_if(kRedirections, [&name](const Redirection& row) { return sameName(row.name, name); });
    if (redirection != std::end(kRedirections)) {
        redirection->set(session, unquoted(typed));
        return;
    }
    const auto value = valueOf(typed, type);
    const Vorn::ErrorStatus status =
        value ? runtime::setSystemVariable(name.c_str(), *value) : Vorn::ErrorStatus{Vorn::eInvalidInput};
    if (status == Vorn::eOk) {
        session.window().print(name + L" = " + VariableRead(name).text() + L"\n");
        session.window().drawingChanged(); // LTSCALE changes how it looks
    } else if (status == Vorn::eNotApplicable)
        session.window().print(name + L" tells about the drawing: SETVAR can only show it.\n");
    else if (value) // of the right type, but refused
        session.window().print(quotation(typed) + L" is no value of " + name + L": give a number above 0.\n");
    else
        session.window().print(
            quotation(typed) + L" is no value of " + name +
            (type == kVariableReal || type == kVariableAngle ? L": give a number.\n" : L": give a whole number.\n"));
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
        session.window().print(L"There is no system variable " + quotation(unquoted(text.words[0])) +
                               L": SETVAR alone lists them.\n");
    else if (text.words.size() == 1)
        session.window().print(name + L" = " + read.text() + L"\n");
    else
        set(session, name, text.words[1], read.type());
}

} // namespace workbench::commands
