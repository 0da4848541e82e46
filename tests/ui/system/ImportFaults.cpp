// Replaces each entry of a library's import table that leads to a function of the table below by a function of ours,
// which counts the call and passes it on. What libraries look up by name comes through GetProcAddress, which is one of
// these functions. Each row of the table has a function of its own, an instance of a template by the number of its
// line.

#include "ImportFaults.h"

#include "ImportTable.h"

#include <objbase.h>
#include <shellapi.h>

#include <commctrl.h>
#include <commdlg.h>
#include <oleacc.h>
#include <uxtheme.h>
#include <winhttp.h>
#include <xmllite.h>

#include <cstring>
#include <new>
#include <type_traits>

namespace {

struct Function {
    const char* name;
    void* replacement;
    void** real;
    std::size_t* index; // receives the row's place in the table
    int calls = 0;
};

struct Plan {
    bool counting = false;
    std::size_t function = 0;
    int nth = 0;
    bool struck = false;
};
Plan g_plan;

std::vector<Function>& table();

bool isToFail(std::size_t index) {
    if (!g_plan.counting)
        return false;
    Function& function = table()[index];
    ++function.calls;
    if (g_plan.nth == 0 || g_plan.function != index || function.calls != g_plan.nth)
        return false;
    g_plan.struck = true;
    return true;
}

/// One imported function: what it is called with, what it answers when it fails, and the error that it leaves then.
template <int Line, class Result, class... Arguments> struct Import {
    using Pointer = Result (*)(Arguments...);
    static inline Pointer real = nullptr;
    static inline Result failure = {};
    static inline DWORD error = 0;
    static inline std::size_t index = 0;

    static Result call(Arguments... arguments) {
        if (isToFail(index)) {
            SetLastError(error);
            return failure;
        }
        return real(arguments...);
    }
};

template <int Line, class Result, class... Arguments>
Function import(const char* name, Result (*real)(Arguments...), std::type_identity_t<Result> failure, DWORD error) {
    using One = Import<Line, Result, Arguments...>;
    One::real = real;
    One::failure = failure;
    One::error = error;
    return {name, reinterpret_cast<void*>(&One::call), reinterpret_cast<void**>(&One::real), &One::index};
}

/// In place of ShellExecuteEx, which would start a browser for a page of the help.
BOOL pretendToOpen(SHELLEXECUTEINFOW*) {
    return TRUE;
}

// What is looked up by name.
HRESULT taskDialogStandIn(const TASKDIALOGCONFIG*, int*, int*, BOOL*);
HRESULT xmlReaderStandIn(REFIID, void**, IMalloc*);
void* g_taskDialog = nullptr;
void* g_xmlReader = nullptr;

HRESULT taskDialogReal(const TASKDIALOGCONFIG* config, int* button, int* radio, BOOL* tick) {
    return reinterpret_cast<decltype(&taskDialogReal)>(g_taskDialog)(config, button, radio, tick);
}
HRESULT xmlReaderReal(REFIID id, void** object, IMalloc* memory) {
    return reinterpret_cast<decltype(&xmlReaderReal)>(g_xmlReader)(id, object, memory);
}

FARPROC lookUp(HMODULE library, const char* name) {
    const FARPROC found = GetProcAddress(library, name);
    if (found && std::strcmp(name, "TaskDialogIndirect") == 0) {
        g_taskDialog = reinterpret_cast<void*>(found);
        return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&taskDialogStandIn));
    }
    if (found && std::strcmp(name, "CreateXmlReader") == 0) {
        g_xmlReader = reinterpret_cast<void*>(found);
        return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&xmlReaderStandIn));
    }
    return found;
}

/// Memory for the framework's own objects and texts: no memory is an exception.
using Allocate = void* (*)(std::size_t);
void* g_allocate = nullptr;
std::size_t g_allocation = 0;
void* allocate(std::size_t size) {
    if (isToFail(g_allocation))
        throw std::bad_alloc();
    return reinterpret_cast<Allocate>(g_allocate)(size);
}

std::vector<Function> numbered(std::vector<Function> functions) {
    for (std::size_t i = 0; i < functions.size(); ++i)
        *functions[i].index = i;
    return functions;
}

#define FUNCTION(name, failure, error) import <__LINE__>(#name, &name, failure, error)

// clang-format off
std::vector<Function>& table() {
    static std::vector<Function> all = numbered({
        {ImportFaults::kMemory, reinterpret_cast<void*>(&allocate), &g_allocate, &g_allocation},
        FUNCTION(_wcsdup, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(malloc, nullptr, ERROR_NOT_ENOUGH_MEMORY), // by which libstdc++-6.dll takes the memory of texts
        // registry
        FUNCTION(RegOpenKeyExW, ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED),
        FUNCTION(RegCreateKeyExW, ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED),
        FUNCTION(RegQueryValueExW, ERROR_NOT_ENOUGH_MEMORY, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(RegGetValueW, ERROR_NOT_ENOUGH_MEMORY, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(RegSetValueExW, ERROR_NO_SYSTEM_RESOURCES, ERROR_NO_SYSTEM_RESOURCES),
        FUNCTION(RegDeleteValueW, ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED),
        // files, libraries and resources
        FUNCTION(CreateFileW, INVALID_HANDLE_VALUE, ERROR_SHARING_VIOLATION),
        FUNCTION(GetFileSizeEx, FALSE, ERROR_IO_DEVICE),
        FUNCTION(ReadFile, FALSE, ERROR_READ_FAULT),
        FUNCTION(WriteFile, FALSE, ERROR_DISK_FULL),
        FUNCTION(FlushFileBuffers, FALSE, ERROR_DISK_FULL),
        FUNCTION(CreateHardLinkW, FALSE, ERROR_INVALID_FUNCTION),
        FUNCTION(ReplaceFileW, FALSE, ERROR_UNABLE_TO_REMOVE_REPLACED),
        FUNCTION(MoveFileExW, FALSE, ERROR_DISK_FULL),
        FUNCTION(DeleteFileW, FALSE, ERROR_SHARING_VIOLATION),
        FUNCTION(GetTempPathW, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(GetFileInformationByHandle, FALSE, ERROR_IO_DEVICE),
        FUNCTION(GetFileSecurityW, FALSE, ERROR_ACCESS_DENIED),
        FUNCTION(GetFileAttributesW, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED),
        FUNCTION(GetModuleFileNameW, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(GetModuleHandleW, nullptr, ERROR_MOD_NOT_FOUND),
        FUNCTION(GetModuleHandleExW, FALSE, ERROR_MOD_NOT_FOUND),
        FUNCTION(LoadLibraryW, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        import<__LINE__>("GetProcAddress", &lookUp, nullptr, ERROR_PROC_NOT_FOUND),
        import<__LINE__>("CreateXmlReader", &xmlReaderReal, E_OUTOFMEMORY, 0),
        FUNCTION(FindResourceW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND),
        FUNCTION(LoadResource, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(LockResource, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(LoadStringW, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(LoadImageW, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        // windows
        FUNCTION(CreateDialogParamW, nullptr, ERROR_NO_SYSTEM_RESOURCES),
        FUNCTION(CreateDialogIndirectParamW, nullptr, ERROR_NO_SYSTEM_RESOURCES),
        FUNCTION(CreateWindowExW, nullptr, ERROR_NO_SYSTEM_RESOURCES),
        FUNCTION(RegisterClassW, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(SetWindowsHookExW, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(SetWindowTextW, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(SetWindowPos, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FUNCTION(GetWindowRect, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FUNCTION(GetClientRect, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FUNCTION(MapDialogRect, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FUNCTION(BeginDeferWindowPos, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(DeferWindowPos, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(EndDeferWindowPos, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FUNCTION(EnumDisplayMonitors, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(GetMonitorInfoW, FALSE, ERROR_INVALID_MONITOR_HANDLE),
        FUNCTION(TrackMouseEvent, FALSE, ERROR_INVALID_WINDOW_HANDLE),
        FUNCTION(MessageBoxW, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(CreateStdAccessibleObject, E_OUTOFMEMORY, 0),
        FUNCTION(MessageBeep, FALSE, ERROR_ACCESS_DENIED),
        FUNCTION(SetWindowSubclass, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        import<__LINE__>("TaskDialogIndirect", &taskDialogReal, E_OUTOFMEMORY, 0),
        FUNCTION(ChooseColorW, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(GetOpenFileNameW, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(GetSaveFileNameW, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        import<__LINE__>("ShellExecuteExW", &pretendToOpen, FALSE, ERROR_NO_ASSOCIATION),
        // drawing
        FUNCTION(GetDC, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(BeginPaint, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(CreateCompatibleDC, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(CreateDIBSection, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(GetObjectW, 0, ERROR_INVALID_HANDLE),
        FUNCTION(GetDIBits, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(SelectObject, nullptr, ERROR_INVALID_HANDLE),
        FUNCTION(GdiAlphaBlend, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(ImageList_Create, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(SaveDC, 0, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(OpenThemeData, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(DrawThemeBackground, E_OUTOFMEMORY, 0),
        FUNCTION(DrawThemeParentBackground, E_OUTOFMEMORY, 0),
        // remote files
        FUNCTION(WinHttpOpen, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(WinHttpSetTimeouts, FALSE, ERROR_WINHTTP_INTERNAL_ERROR),
        FUNCTION(WinHttpSetOption, FALSE, ERROR_WINHTTP_INVALID_OPTION),
        FUNCTION(WinHttpConnect, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(WinHttpOpenRequest, nullptr, ERROR_WINHTTP_INTERNAL_ERROR),
        FUNCTION(WinHttpSendRequest, FALSE, ERROR_WINHTTP_CONNECTION_ERROR),
        FUNCTION(WinHttpWriteData, FALSE, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(WinHttpReceiveResponse, FALSE, ERROR_WINHTTP_CONNECTION_ERROR),
        FUNCTION(WinHttpQueryHeaders, FALSE, ERROR_WINHTTP_INTERNAL_ERROR),
        FUNCTION(WinHttpQueryDataAvailable, FALSE, ERROR_WINHTTP_CONNECTION_ERROR),
        FUNCTION(WinHttpReadData, FALSE, ERROR_WINHTTP_CONNECTION_ERROR),
        FUNCTION(CreateEventW, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(CreateThread, nullptr, ERROR_NOT_ENOUGH_MEMORY),
        FUNCTION(IdnToAscii, 0, ERROR_NOT_ENOUGH_MEMORY),
        // text
        FUNCTION(CompareStringEx, 0, ERROR_INVALID_PARAMETER),
    });
    return all;
}
// clang-format on

Function* find(const std::string& name) {
    for (Function& function : table())
        if (name == function.name)
            return &function;
    return nullptr;
}

HRESULT taskDialogStandIn(const TASKDIALOGCONFIG* config, int* button, int* radio, BOOL* tick) {
    static const auto replacement =
        reinterpret_cast<decltype(&taskDialogReal)>(find("TaskDialogIndirect")->replacement);
    return replacement(config, button, radio, tick);
}
HRESULT xmlReaderStandIn(REFIID id, void** object, IMalloc* memory) {
    static const auto replacement = reinterpret_cast<decltype(&xmlReaderReal)>(find("CreateXmlReader")->replacement);
    return replacement(id, object, memory);
}

struct Replaced {
    void** entry;
    void* before;
};
std::vector<Replaced> g_replaced;

void replaceImports(HMODULE library) {
    forEachImport(library, [](const char* name, void** entry) {
        Function* const function = find(name);
        if (!function)
            return;
        if (!*function->real)
            *function->real = *entry;
        g_replaced.push_back({entry, *entry});
        writeImport(entry, function->replacement);
    });
}

} // namespace

ImportFaults::ImportFaults(const std::vector<std::wstring>& libraries) {
    for (const std::wstring& library : libraries)
        replaceImports(GetModuleHandleW(library.c_str()));
}

ImportFaults::~ImportFaults() {
    end();
    for (const Replaced& replaced : g_replaced)
        writeImport(replaced.entry, replaced.before);
    g_replaced.clear();
}

std::vector<std::string> ImportFaults::functions() {
    std::vector<std::string> names;
    for (const Function& function : table())
        names.emplace_back(function.name);
    return names;
}

void ImportFaults::begin(const std::string& function, int nth) {
    for (Function& each : table())
        each.calls = 0;
    const Function* const planned = find(function);
    g_plan = {true, planned ? static_cast<std::size_t>(planned - table().data()) : 0, planned ? nth : 0, false};
}

void ImportFaults::end() {
    g_plan.counting = false;
}

int ImportFaults::calls(const std::string& function) {
    const Function* const found = find(function);
    return found ? found->calls : 0;
}

bool ImportFaults::struck() {
    return g_plan.struck;
}
