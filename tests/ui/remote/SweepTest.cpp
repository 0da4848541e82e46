// Fetching and uploading replayed with each of its system calls, and each of its requests for memory, failing once.
// Whatever fails: no exception comes out, files are as they were or whole, nothing is left beside them, no handle stays
// open.

#include "HandleCount.h"
#include "ImportFaults.h"
#include "Nginx.h"
#include "RemoteFixture.h"

#include "instruments/HostCalls.h"
#include "remote/Timeouts.h"

#include <windows.h>

#include <functional>
#include <map>
#include <new>
#include <optional>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

class RemoteSweep : public RemoteTest {
  protected:
    /// What is replayed. `prepare` and `check` run without failures; `check` is given the status of `operate`.
    std::function<void()> prepare = [] {};
    std::function<int()> operate;
    std::function<void(int)> check;
    const std::string content = manyBytes(200'000);

    RemoteSweep() {
        // The instruments use memory for their lines, which isn't what is to fail here.
        instruments::watch(false);
        remote::setTimeouts({.resolve = 2s, .connect = 2s, .send = 500ms, .receive = 500ms});
    }

    /// @return how many failures there were; each function that is called has had one
    int sweep(const std::vector<std::wstring>& libraries = {L"kelui.dll", L"keldb.dll"}) {
        const ImportFaults faults(libraries);
        run({}, 0); // makes what is made once and kept
        run({}, 0);
        std::map<std::string, int> calls;
        for (const std::string& function : ImportFaults::functions())
            calls[function] = ImportFaults::calls(function);
        int failures = 0;
        for (const auto& [function, count] : calls) {
            const int before = failures;
            for (int nth = 1; nth <= count && !HasFailure(); ++nth)
                failures += expectNoHandleLost(function, nth);
            EXPECT_TRUE(failures > before || count == 0 || HasFailure()) << function << " has never failed";
        }
        RecordProperty("failures", failures);
        return failures;
    }

  private:
    /// @return whether the call has failed
    bool expectNoHandleLost(const std::string& function, int nth) {
        SCOPED_TRACE("failing: " + function + ", call " + std::to_string(nth));
        const unsigned before = countHandles().value_or(0);
        run(function, nth);
        const bool struck = ImportFaults::struck();
        // Handles of threads of the system's pool come and go; a handle that is lost by a failure is lost again in each
        // repeat.
        constexpr unsigned repeats = 6;
        for (unsigned i = 0; i < repeats && countHandles() > before && !HasFailure(); ++i)
            run(function, nth);
        EXPECT_LT(countHandles(), before + repeats);
        return struck;
    }

    void run(const std::string& function, int nth) {
        prepare();
        int status = 0;
        ImportFaults::begin(function, nth);
        try {
            status = operate();
        } catch (const std::bad_alloc&) {
            ADD_FAILURE() << "a lack of memory has come out";
        }
        ImportFaults::end();
        // How often memory is asked for depends on how much room earlier runs have left in the buffers that are kept.
        EXPECT_TRUE(ImportFaults::struck() == (nth > 0) || function == ImportFaults::kMemory || function == "malloc");
        EXPECT_GE(status, eInetOk);
        EXPECT_LE(status, eInetSystemFailed);
        EXPECT_TRUE(problem().empty() == (status == eInetOk) || status == eInetNoMemory) << status;
        check(status);
    }
};

TEST_F(RemoteSweep, ofAFetchOverAnOldFile) {
    prepare = [this] {
        writeBytes(nginx::file(L"plan.las"), content);
        writeBytes(local, "old");
    };
    operate = [this] { return fetch(nginx::address(L"plan.las")); };
    check = [this](int status) {
        EXPECT_TRUE(bytesOf(local) == (status == eInetOk ? content : "old")) << status;
        EXPECT_EQ(entries(), 1u);
    };
    EXPECT_GT(sweep(), 20);
}

TEST_F(RemoteSweep, ofAFetchIntoATemporaryFile) {
    OrvXREFString name;
    prepare = [this, &name] {
        writeBytes(nginx::file(L"plan.las"), content);
        name = L"";
    };
    operate = [this, &name] {
        const std::wstring url = nginx::address(L"plan.las");
        const int status = service.CreateInternetTempFile(url.c_str(), name);
        return status == eInetOk ? service.TransferFile(url.c_str(), name, kInetFetch, 1) : status;
    };
    check = [this, &name](int status) {
        const fs::path path = static_cast<const wchar_t*>(name);
        EXPECT_EQ(path.empty() ? std::string() : bytesOf(path), status == eInetOk ? content : "") << status;
        fs::remove(path);
    };
    const auto entriesOf = [](const fs::path& where) { return std::distance(fs::directory_iterator(where), {}); };
    const auto before = entriesOf(fs::temp_directory_path());
    EXPECT_GT(sweep(), 20);
    EXPECT_EQ(entriesOf(fs::temp_directory_path()), before);
}

// Texts take their memory in the standard library.
TEST_F(RemoteSweep, ofATemporaryFileByTheMemoryOfItsPath) {
    std::optional<OrvXREFString> name; // a new one each time, without room from the time before
    const std::wstring url = L"http://h/plan.las";
    prepare = [&name] { name.emplace(); };
    operate = [this, &name, &url] { return service.CreateInternetTempFile(url.c_str(), *name); };
    check = [&name](int status) {
        const wchar_t* const path = *name;
        EXPECT_EQ(*path == L'\0', status != eInetOk) << status;
        if (status == eInetOk)
            EXPECT_TRUE(DeleteFileW(path));
    };
    EXPECT_GT(sweep({L"libstdc++-6.dll"}), 3);
}

TEST_F(RemoteSweep, ofAnUpload) {
    prepare = [this] {
        nginx::clear();
        writeBytes(local, content);
    };
    operate = [this] { return upload(nginx::address(L"uploads/plan.las")); };
    check = [this](int status) {
        const fs::path arrived = nginx::file(L"uploads/plan.las");
        EXPECT_TRUE(status != eInetOk || exists(arrived));
        EXPECT_TRUE(!exists(arrived) || bytesOf(arrived) == content) << status;
        EXPECT_TRUE(bytesOf(local) == content);
    };
    EXPECT_GT(sweep(), 20);
}

TEST_F(RemoteSweep, ofAnExportToANewRemoteFile) {
    OrvXREFString name;
    prepare = [&name] {
        nginx::clear();
        name = L"";
    };
    operate = [this, &name] {
        const std::wstring url = nginx::address(L"uploads/plan.las");
        int status = service.TransferFile(url.c_str(), name, kInetFetch, 1);
        if (status != eInetTargetAbsent)
            return status;
        status = service.CreateInternetTempFile(url.c_str(), name);
        return status == eInetOk ? service.TransferFile(url.c_str(), name, kInetUpload, 1) : status;
    };
    check = [&name](int status) {
        EXPECT_TRUE(status != eInetOk || fs::exists(nginx::file(L"uploads/plan.las")));
        if (status != eInetOk && *name != L'\0')
            fs::remove(static_cast<const wchar_t*>(name));
    };
    EXPECT_GT(sweep(), 20);
}

TEST_F(RemoteSweep, ofANameBeyondAscii) {
    operate = [this] { return fetch(L"http://pl\u00e4ne.invalid/a.las"); };
    check = [this](int status) {
        EXPECT_NE(status, eInetOk);
        EXPECT_EQ(entries(), 0u);
    };
    EXPECT_GT(sweep(), 10);
}

} // namespace
