// What a user reads about something that takes long: how much of it is done, and how long the rest may take.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace progress {

/// A number of bytes as people say it: "812 bytes", "1.5 KB", "23 MB". A KB is 1024 bytes here, as in the system's
/// windows.
std::wstring sizeText(std::uint64_t bytes);
/// "1.5 MB of 23 MB".
std::wstring amountText(std::uint64_t done, std::uint64_t total);

/// How long the rest takes if it goes on as so far, as "About 20 seconds left". Empty for as long as that can't be
/// told: in the first seconds, and while nothing is done.
std::wstring timeLeftText(std::uint64_t done, std::uint64_t total, std::chrono::milliseconds elapsed);

/// How far a bar of that length is filled; never more than its length.
int barPosition(std::uint64_t done, std::uint64_t total, int length);

} // namespace progress
