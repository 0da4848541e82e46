// What the host offers every module beside drawings: who it is and which drawing is the current one.

#include "KelDbDatabase.h"
#include "RuntimeParts.h"

#include "engine/DatabaseAccess.h"
#include "instruments/HostCalls.h"
#include "objects/ExtendedDataChain.h"

using instruments::HostCall;

KelDbHostApplicationServices::~KelDbHostApplicationServices() = default;

namespace {

class WorkbenchServices : public KelDbHostApplicationServices {
  public:
    KelDbDatabase* workingDatabase() const override {
        HostCall call("workingDatabase");
        return call.answer(call.fault() ? nullptr : m_workingDatabase);
    }
    void setWorkingDatabase(KelDbDatabase* database) override {
        HostCall call("setWorkingDatabase", database);
        m_workingDatabase = database;
    }
    const wchar_t* productName() const override {
        HostCall call("productName");
        return call.answer(L"Kel Workbench");
    }
    const wchar_t* userRegistryProductRootKey() const override {
        HostCall call("userRegistryProductRootKey");
        return call.answer(L"Software\\KelWorkbench");
    }

    KelDbDatabase* m_workingDatabase = nullptr;
};

WorkbenchServices g_services;

} // namespace

KelDbHostApplicationServices* keldbHostApplicationServices() {
    HostCall call("keldbHostApplicationServices");
    return &g_services;
}

namespace runtime {

KelDbDatabase* workingDatabase() {
    return g_services.m_workingDatabase;
}

void setWorkingDatabase(KelDbDatabase* database) {
    g_services.m_workingDatabase = database;
}

} // namespace runtime

bool keldbRegApp(const wchar_t* name) {
    HostCall call("keldbRegApp", name);
    KelDbDatabase* database = runtime::workingDatabase();
    return call.valueOr(false, [database, name] {
        return database && name && engine::registerApplication(engine::impOf(*database), name);
    });
}
