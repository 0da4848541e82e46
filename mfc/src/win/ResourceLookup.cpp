// Where resources are found: the current resource handle, then the extension DLLs, then this library.

#include "ThreadState.h"

#include <algorithm>
#include <ranges>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace {

HMODULE ownModule() {
    HMODULE module = nullptr;
    ::GetModuleHandleEx(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                        reinterpret_cast<LPCWSTR>(&ownModule), &module);
    return module;
}

/// Every place a resource may be, in the order of the search.
std::vector<HINSTANCE> searchOrder() {
    std::vector<HINSTANCE> order = {AfxGetResourceHandle()};
    const auto& libraries = kelmfc::theState().libraries;
    for (const BOOL system : {FALSE, TRUE}) {
        for (const CDynLinkLibrary* library : libraries | std::views::reverse) {
            if ((library->m_bSystem != FALSE) == (system != FALSE) && library->m_hResource)
                order.push_back(library->m_hResource);
        }
    }
    order.push_back(ownModule());
    return order;
}

} // namespace

HINSTANCE AfxGetResourceHandle() {
    const HINSTANCE resources = kelmfc::theState().resources;
    return resources ? resources : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE hInstResource) {
    kelmfc::theState().resources = hInstResource;
}

HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType) {
    for (const HINSTANCE place : searchOrder()) {
        if (::FindResource(place, lpszName, lpszType))
            return place;
    }
    return AfxGetResourceHandle();
}

int AfxLoadString(UINT nIDS, LPTSTR lpszBuf, UINT nMaxBuf) {
    if (nMaxBuf > 0)
        *lpszBuf = 0;
    // Strings stand in blocks of 16, so a module may have the block without the string.
    for (const HINSTANCE place : searchOrder()) {
        if (const int length = ::LoadString(place, nIDS, lpszBuf, static_cast<int>(nMaxBuf)))
            return length;
    }
    return 0;
}

void AfxFormatStrings(CString& rString, LPCTSTR lpszFormat, const LPCTSTR* rglpsz, int nString) {
    CString text;
    for (const wchar_t* at = lpszFormat; *at; ++at) {
        const int place = at[0] == L'%' && at[1] ? at[1] - L'1' : -1;
        if (place >= 0 && place < nString && place < 9) {
            text += rglpsz[place] ? rglpsz[place] : L"";
            ++at;
        } else {
            text += *at;
        }
    }
    rString = text;
}

void AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1) {
    CString format;
    format.LoadString(nIDS);
    AfxFormatStrings(rString, format, &lpsz1, 1);
}

void AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2) {
    CString format;
    format.LoadString(nIDS);
    const LPCTSTR texts[] = {lpsz1, lpsz2};
    AfxFormatStrings(rString, format, texts, 2);
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem) {
    kelmfc::theState().libraries.push_back(this);
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_bSystem(FALSE) {
    kelmfc::theState().libraries.push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    std::erase(kelmfc::theState().libraries, this);
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule) {
    if (state.bInitialized)
        return TRUE;
    if (!hModule)
        return FALSE;
    state.bInitialized = TRUE;
    state.hModule = hModule;
    state.hResource = hModule;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL) {
    if (!state.bInitialized)
        return;
    // From the end, since each takes itself out of the list; a copy of it would need memory in the midst of an unload.
    const auto& libraries = kelmfc::theState().libraries;
    for (std::size_t index = libraries.size(); index-- > 0;) {
        if (libraries[index]->m_hModule == state.hModule)
            delete libraries[index];
    }
    // Emptied, because the module may be loaded again into the same memory.
    state = {};
}
