// The nginx that with_nginx has started beside this program.
#pragma once

#include <filesystem>
#include <string>

namespace nginx {

/// Its ports: plain HTTP, and HTTPS with a certificate that is good, for another name, expired, or signed by nobody.
enum class Door { Http, Good, OtherName, Expired, Unsigned };

/// The address of a file that it serves.
std::wstring address(const std::wstring& name, Door door = Door::Http);
/// Where that file stands.
std::filesystem::path file(const std::wstring& name);

/// Removes all its files; the folders stay.
void clear();

/// Makes the authority that signed its certificates one that this user trusts.
class Trust {
  public:
    Trust();
    ~Trust();
    Trust(const Trust&) = delete;
    Trust& operator=(const Trust&) = delete;
    bool stands() const { return m_certificate != nullptr; }

  private:
    void* m_store;
    const void* m_certificate = nullptr;
};

} // namespace nginx
