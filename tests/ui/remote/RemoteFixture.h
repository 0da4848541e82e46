// What the tests of remote files share: a folder of their own, the service, and short waits.
#pragma once

#include "OrvUiInternet.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

std::string bytesOf(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, const std::string& bytes);
/// Bytes of all values in no order that anybody would make by mistake, the same in every run.
std::string manyBytes(std::size_t count);
/// A text for a message, in UTF-8.
std::string printed(const std::wstring& text);

/// The instruments watch, nginx has no files, a server is waited for only shortly, and nothing is lent out at the end.
class RemoteTest : public testing::Test {
  protected:
    RemoteTest();
    ~RemoteTest() override;

    /// Fetches into `local`, or uploads it, and answers the status; `problem()` is about the last one.
    int fetch(const std::wstring& url);
    int upload(const std::wstring& url);
    static std::wstring problem();
    /// What the service has printed on the command line so far.
    std::wstring printedLines;
    /// The files in the test's own folder. More than the ones it has put there: something was left.
    std::size_t entries() const;

    CProxyInet& service = *CProxyInet::GetProxyInet();
    const std::filesystem::path folder;
    const std::filesystem::path local = folder / L"local.las";
};
