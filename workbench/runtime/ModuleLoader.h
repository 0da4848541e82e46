// Loads plug-in modules into the process and unloads them, with the messages that tell them so. Windows tier.
#pragma once

#include "KelExport.h"

#include <memory>
#include <string>
#include <vector>

namespace runtime {

/// The modules that one owner has loaded. They are unloaded in reverse order at its end.
class KELDB_API ModuleLoader {
  public:
    ModuleLoader();
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    /// Loads the module and sends it the load message. Answers an empty text on success; otherwise the reason in one
    /// sentence, and nothing of the module stays loaded.
    [[nodiscard]] std::wstring load(const std::wstring& path);
    /// Unloads the module of that path. False when it wasn't loaded here, or hasn't agreed to be unloaded.
    bool unload(const std::wstring& path);
    /// Sends every module the unload message and frees it.
    void unloadAll();
    std::size_t count() const;
    /// The full paths of the modules, in the order in which they were loaded.
    std::vector<std::wstring> paths() const;

  private:
    struct Module;
    std::vector<std::unique_ptr<Module>>* m_modules;
};

} // namespace runtime
