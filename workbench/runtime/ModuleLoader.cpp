#include "ModuleLoader.h"

#include "KelRuntime.h"
#include "SystemRegistry.h"

#include <algorithm>
#include <filesystem>

#include <windows.h>

namespace runtime {

namespace {

using EntryPoint = int (*)(unsigned int message, void* packet);
using ApiVersion = unsigned int (*)();

/// While it lives, a module that loads its resource file by the bare name finds it in its own folder.
class SearchFolder {
  public:
    explicit SearchFolder(const std::filesystem::path& folder) { SetDllDirectoryW(folder.c_str()); }
    ~SearchFolder() { SetDllDirectoryW(nullptr); }
    SearchFolder(const SearchFolder&) = delete;
    SearchFolder& operator=(const SearchFolder&) = delete;
};

std::filesystem::path fullPath(const std::wstring& path) {
    return std::filesystem::absolute(path).lexically_normal();
}

/// Whether the system takes both for the same file; two loads of one would be two modules in one library.
bool isSame(const std::filesystem::path& a, const std::filesystem::path& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::wstring systemText(DWORD error) {
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring out = length ? std::wstring(text, length) : L"error " + std::to_wstring(error);
    LocalFree(text);
    out.erase(out.find_last_not_of(L" .\r\n") + 1);
    return out;
}

template <class Function> Function exported(HMODULE library, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// What the user is told when a module answers kelrtAnswerNoResources.
std::wstring resourceSentence(const std::filesystem::path& path) {
    const std::filesystem::path resources = path.parent_path() / (path.stem().wstring() + L"Res.dll");
    std::error_code ignored;
    const bool there = std::filesystem::exists(resources, ignored);
    return path.filename().wstring() + L" could not start: its resource file " + resources.filename().wstring() +
           (there ? L" could not be loaded." : L" is missing beside it.");
}

} // namespace

struct ModuleLoader::Module {
    std::filesystem::path path;
    HMODULE library = nullptr;
    EntryPoint entry = nullptr;
    bool started = false;

    explicit Module(std::filesystem::path where) : path(std::move(where)) {}
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module() {
        if (started)
            send(kelrtUnloadMessage);
        forgetDeclarations(this);
        if (library)
            FreeLibrary(library);
    }
    // The packet that a module gets is the address of this record.
    int send(unsigned int message) {
        try {
            return entry(message, this);
        } catch (...) {
            return kelrtAnswerFailed;
        }
    }

    std::wstring name() const { return path.filename().wstring(); }
    std::wstring bind();
    std::wstring start();
};

std::wstring ModuleLoader::Module::bind() {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored))
        return L"The module " + path.wstring() + L" was not found.";
    library = LoadLibraryW(path.c_str());
    if (!library)
        return name() + L" could not be loaded: " + systemText(GetLastError()) + L".";
    entry = exported<EntryPoint>(library, "kelrtEntryPoint");
    const auto version = exported<ApiVersion>(library, "kelrtGetApiVersion");
    if (!entry || !version)
        return name() + L" is not a module of this program: it lacks the entry points of one.";
    const unsigned int major = version() >> 16;
    if (major != kelrtApiVersion >> 16)
        return name() + L" was built for version " + std::to_wstring(major) + L" of the module interface, and this " +
               L"program offers version " + std::to_wstring(kelrtApiVersion >> 16) + L".";
    return {};
}

std::wstring ModuleLoader::Module::start() {
    const SearchFolder folder(path.parent_path());
    const int answer = send(kelrtLoadMessage);
    if (answer == kelrtAnswerNoResources)
        return resourceSentence(path);
    if (answer == kelrtAnswerFailed)
        return name() + L" could not start: it failed while it was loaded.";
    if (answer != kelrtAnswerOk)
        return name() + L" could not start: it answered " + std::to_wstring(answer) + L" to being loaded.";
    started = true;
    return {};
}

ModuleLoader::ModuleLoader() : m_modules(new std::vector<std::unique_ptr<Module>>) {}

ModuleLoader::~ModuleLoader() {
    unloadAll();
    delete m_modules;
}

std::wstring ModuleLoader::load(const std::wstring& path) {
    auto module = std::make_unique<Module>(fullPath(path));
    const bool already = std::any_of(m_modules->begin(), m_modules->end(),
                                     [&module](const auto& other) { return isSame(other->path, module->path); });
    if (already)
        return module->name() + L" is loaded already.";
    if (std::wstring reason = module->bind(); !reason.empty())
        return reason;
    if (std::wstring reason = module->start(); !reason.empty())
        return reason;
    m_modules->push_back(std::move(module));
    return {};
}

bool ModuleLoader::unload(const std::wstring& path) {
    const std::filesystem::path wanted = fullPath(path);
    const auto found = std::find_if(m_modules->begin(), m_modules->end(), [&wanted](const auto& module) {
        return isSame(module->path, wanted) && declarationsOf(module.get()).acceptsUnload;
    });
    if (found == m_modules->end())
        return false;
    m_modules->erase(found);
    return true;
}

void ModuleLoader::unloadAll() {
    while (!m_modules->empty())
        m_modules->pop_back();
}

std::size_t ModuleLoader::count() const {
    return m_modules->size();
}

std::vector<std::wstring> ModuleLoader::paths() const {
    std::vector<std::wstring> paths;
    for (const auto& module : *m_modules)
        paths.push_back(module->path.wstring());
    return paths;
}

} // namespace runtime
