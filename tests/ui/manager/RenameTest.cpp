#include "RenameTest.h"

using testing::ElementsAreArray;
using ui::Script;
using ui::View;

namespace {

const Calls callsOfLimit = {"keldbHostApplicationServices()", "workingDatabase() = object",
                            "extendedNamesMode(object) = true", "maxNameLength(true, true), length=255"};

std::string quoted(const std::string& name) {
    return "\"" + name + "\"";
}

} // namespace

Calls callsOfBox(const std::string& name) {
    return joined({callsOfLimit, callsOfService(), {"isDependentLayerState(" + quoted(name) + ") = false"}});
}

Calls callsOfCheck(const std::string& name, int status) {
    return joined({callsOfLimit,
                   {"validateNameCharacters(" + quoted(name) + ", true, false, true) = " + std::to_string(status)}});
}

ui::TestDrawing RenameTest::threeStates() {
    return ui::TestDrawing().state(L"One", kMask).state(L"Two", kMask).state(L"Three", kMask);
}

Script RenameTest::begin() {
    return Script().press(VK_F2).waitUntil(
        "the box is open", [](const View& view) { return view.labelEditorText(IDC_LSTATE_RES_LIST).has_value(); });
}

Script RenameTest::typeName(const std::wstring& name) {
    return begin().type(name).then(boxHolds(name));
}

Script RenameTest::rename(const std::wstring& name) {
    return typeName(name).press(VK_RETURN);
}

Script RenameTest::boxHolds(const std::wstring& text) {
    return Script().waitUntil("the box holds \"" + ui::narrow(text) + "\"",
                              [text](const View& view) { return view.labelEditorText(IDC_LSTATE_RES_LIST) == text; });
}

Script RenameTest::count() {
    return Script().look("the calls count from here", [](const View&) { instruments::clearTrace(); });
}

Script RenameTest::expectCalls(const Calls& calls) {
    return Script().look("the calls", [calls](const View&) {
        EXPECT_THAT(instruments::trace(), ElementsAreArray(calls));
        instruments::clearTrace();
    });
}

Script RenameTest::expectOver(const std::vector<std::wstring>& names) {
    return Script()
        .look("no box, and the names",
              [names](const View& view) {
                  EXPECT_EQ(view.labelEditorText(IDC_LSTATE_RES_LIST), std::nullopt);
                  EXPECT_THAT(view.column(IDC_LSTATE_RES_LIST, 0), ElementsAreArray(names));
              })
        .click(IDC_LSTATE_RES_CLOSE);
}

Script RenameTest::answer(const std::wstring& text) {
    return Script().waitForText(text).press(VK_RETURN);
}

std::wstring RenameTest::resourceTextWith(unsigned int id, const std::wstring& name) {
    std::wstring text = resourceText(id);
    return text.replace(text.find(L"%s"), 2, name);
}

std::vector<std::wstring> RenameTest::namesOfDrawing() const {
    KelArray<KelString> names;
    EXPECT_EQ(states().getLayerStateNames(names, false, false), Vorn::eOk);
    std::vector<std::wstring> found;
    for (const KelString& name : names)
        found.emplace_back(name.kwszPtr());
    return found;
}
