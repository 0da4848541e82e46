// A file of tips looks like this; a dialog finds its tips by the name and the prefix that it has set:
//   <DialogToolTips>
//     <Dialog Name="Module:Dialog" Prefix="LAST">
//       <Tip Control="1003">Text</Tip>

#include "TipFile.h"

#include "base/ComponentFile.h"
#include "base/XmlFile.h"

#include <cwchar>

namespace framework {
namespace {

void addTips(TipTexts& tips, const XmlElement& dialog) {
    for (const XmlElement& tip : dialog.children) {
        const std::wstring id(tip.attribute(L"Control"));
        const long control = std::wcstol(id.c_str(), nullptr, 10);
        if (tip.name == L"Tip" && control > 0 && control <= 0xFFFF && !tip.text.empty())
            tips[static_cast<int>(control)] = tip.text;
    }
}

} // namespace

TipTexts readTips(const std::wstring& file, const std::wstring& scope, const std::wstring& prefix) {
    TipTexts tips;
    const auto root = file.empty() || scope.empty() ? std::nullopt : readXmlFile(componentFile(file));
    if (!root)
        return tips;
    for (const XmlElement& dialog : root->children)
        if (dialog.name == L"Dialog" && dialog.attribute(L"Name") == scope && dialog.attribute(L"Prefix") == prefix)
            addTips(tips, dialog);
    return tips;
}

} // namespace framework
