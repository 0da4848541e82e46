#include "FileChoice.h"

#include "CResourceScope.h"
#include "HostOwners.h"
#include "OrvUiPickers.h"

CString chooseFile(UINT titleId, const wchar_t* defaultName, const wchar_t* extensions, int flags) {
    ResultBuffer* result = nullptr;
    const int answer = keledGetFileNavDialog(loadResourceString(titleId), defaultName, extensions,
                                             L"LayerStatesFileDialog", flags, &result);
    const HostChain chain(result);
    const bool chosen = answer == kResultNormal && chain && chain->type == kVariableString;
    return chosen ? CString(chain->value.string) : CString();
}
