// What the tests of import and export over a server share: the manager with a drawing of two states, a real nginx with
// WebDAV, servers of the tests' own, and what is looked at whatever happened.
#pragma once

#include "Nginx.h"
#include "TestServer.h"
#include "TransferTest.h"

#include <filesystem>

/// The drawing that is open has the states "One", which is selected, and "Two". At the end of each test it has them, as
/// they were, and no temporary file is left.
class RemoteManagerTest : public TransferTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Exports the state that is selected to that address.
    static ui::Script exportTo(const std::wstring& url) { return choose(IDC_LSTATE_RES_EXPORT, url); }
    static ui::Script importFrom(const std::wstring& url) { return choose(IDC_LSTATE_RES_IMPORT, url); }
    /// Waits for the window of the transfer and cancels it.
    static ui::Script cancelTransfer();
    static ui::Script unchanged() { return backInManager({L"One", L"Two"}, L"One"); }
    /// What the transfers have answered, in their order.
    static std::vector<int> transfers();
    /// A state called "Three", in a layer states file that the real server has.
    void serveState(const std::wstring& name) const;
    /// A drawing with the states "One" and "Three", in a file that the real server has.
    void serveDrawing(const std::wstring& name) const;

    /// What the service has told on the command line.
    std::wstring told;

  private:
    std::vector<std::filesystem::path> m_temporaryBefore;
};
