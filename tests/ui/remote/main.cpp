// The tests of remote files run where the authority of their nginx is trusted.

#include "Nginx.h"
#include "RemoteFixture.h"

#include <afxwin.h>

#include <memory>
#include <string_view>

namespace {

CWinApp theApp;

/// Set up first of all, because the system reads only once whom the user trusts.
class Trusting : public testing::Environment {
  public:
    void SetUp() override {
        m_trust = std::make_unique<nginx::Trust>();
        ASSERT_TRUE(m_trust->stands());
    }
    void TearDown() override { m_trust.reset(); }

  private:
    std::unique_ptr<nginx::Trust> m_trust;
};

/// Makes a temporary file, writes its path into another file, and ends.
/// @return 0 when it was there
int makeTemporary(const char* told) {
    OrvXREFString name;
    const int status = CProxyInet::GetProxyInet()->CreateInternetTempFile(L"http://h/plan.las", name);
    const std::filesystem::path path = static_cast<const wchar_t*>(name);
    writeBytes(told, path.string());
    return status == eInetOk && exists(path) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (!AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), SW_SHOW))
        return 3;
    if (argc == 3 && std::string_view(argv[1]) == "--make-temporary")
        return makeTemporary(argv[2]);
    testing::InitGoogleMock(&argc, argv);
    testing::AddGlobalTestEnvironment(new Trusting);
    return RUN_ALL_TESTS();
}
