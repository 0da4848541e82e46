#include "Nginx.h"

#include "RemoteFixture.h"

#include <windows.h>

#include <wincrypt.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace nginx {
namespace {

/// The value of a variable that with_nginx sets. Without it the program ends, because it has no server to test with and
/// no folder that it may empty.
std::wstring told(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> text{};
    const DWORD length = GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
    if (length == 0 || length >= text.size()) {
        std::fputs("Start this program by tests/ui/remote/with_nginx.\n", stderr);
        std::_Exit(2);
    }
    return text.data();
}

std::filesystem::path unixPath(const std::wstring& path) {
    return L"Z:" + path;
}

std::wstring root(Door door) {
    switch (door) {
    case Door::Http:
        return L"http://127.0.0.1:" + told(L"KEL_NGINX_HTTP");
    case Door::Good:
        return L"https://localhost:" + told(L"KEL_NGINX_GOOD");
    case Door::OtherName:
        return L"https://localhost:" + told(L"KEL_NGINX_OTHERNAME");
    case Door::Expired:
        return L"https://localhost:" + told(L"KEL_NGINX_EXPIRED");
    case Door::Unsigned:
        return L"https://localhost:" + told(L"KEL_NGINX_UNSIGNED");
    }
    return {};
}

} // namespace

std::wstring address(const std::wstring& name, Door door) {
    return root(door) + L"/" + name;
}

std::filesystem::path file(const std::wstring& name) {
    return unixPath(told(L"KEL_NGINX_FILES")) / name;
}

void clear() {
    for (const std::filesystem::directory_entry& entry : std::filesystem::recursive_directory_iterator(file(L"")))
        if (entry.is_regular_file())
            std::filesystem::remove(entry.path());
}

Trust::Trust() : m_store(CertOpenStore(CERT_STORE_PROV_SYSTEM_W, 0, 0, CERT_SYSTEM_STORE_CURRENT_USER, L"Root")) {
    const std::string bytes = bytesOf(unixPath(told(L"KEL_NGINX_AUTHORITY")));
    CertAddEncodedCertificateToStore(m_store, X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(bytes.data()),
                                     static_cast<DWORD>(bytes.size()), CERT_STORE_ADD_REPLACE_EXISTING,
                                     reinterpret_cast<PCCERT_CONTEXT*>(&m_certificate));
    CertControlStore(m_store, 0, CERT_STORE_CTRL_COMMIT, nullptr); // until it is stored nobody trusts it
}

Trust::~Trust() {
    if (m_certificate)
        CertDeleteCertificateFromStore(static_cast<PCCERT_CONTEXT>(m_certificate)); // frees it, too
    CertCloseStore(m_store, 0);
}

} // namespace nginx
