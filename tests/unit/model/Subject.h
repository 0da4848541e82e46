// The engine under test: the same operations as the model's, done through the host's interface as a caller does them.
#pragma once

#include "KelDbDatabase.h"
#include "Model.h"
#include "TemporaryFolder.h"
#include "model/Drawing.h"

#include <memory>

namespace model {

/// A drawing of the engine that holds what the model's does.
zdr::Drawing engineDrawing(const Drawing& drawing);

std::wstring wide(std::string_view text);
std::string narrow(std::wstring_view text);

class Subject {
  public:
    Subject();
    ~Subject();
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    /// Does an operation; answers what the engine answered, in the model's form.
    std::string apply(const Operation& operation);
    KelDbDatabase& database() { return m_database; }

  private:
    using Arguments = std::array<std::uint32_t, 5>;

    std::string applyToState(const Operation& operation);
    std::string applyToLayer(const Operation& operation);
    std::string applyToDrawing(const Operation& operation);
    Vorn::ErrorStatus addLayers(const wchar_t* name, std::uint32_t bits);
    Vorn::ErrorStatus removeLayers(const wchar_t* name, std::uint32_t bits);
    bool updateLayer(const wchar_t* name, const Arguments& arguments);
    std::string askLayers(const wchar_t* name, bool others);
    Vorn::ErrorStatus setLayer(KelDbLayerTableRecord& record, std::uint32_t property, const Look& look);
    Vorn::ErrorStatus addLayer(const Arguments& arguments);
    Vorn::ErrorStatus setData(KelDbLayerTableRecord& record, const Arguments& arguments);
    std::string changeViewport(const Operation& operation);
    Vorn::ErrorStatus reload();
    void shelve();
    std::string import(std::uint32_t file);
    Vorn::ErrorStatus clone(const wchar_t* name);
    Vorn::ErrorStatus putBack(const wchar_t* name);
    void start(bool colorDependent);

    KelDbLayerStateManager& states() { return *m_database.getLayerStateManager(); }
    KelDbImpLayerStateManager& impStates() { return *m_database.impDatabase()->getImpLayerStateManager(); }
    std::optional<zdr::Handle> viewportHandle(std::uint32_t argument) const;
    KelDbObjectId viewportId(std::uint32_t argument) const;
    KelDbObjectId linetypeId(const std::string& name);
    std::wstring file(std::uint32_t number) const;

    TemporaryFolder m_folder;
    KelDbDatabase m_database{false, true};
    KelDbDatabase m_shelf{false, true};
    std::unique_ptr<KelDbObject> m_clone;
};

} // namespace model
