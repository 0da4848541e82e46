// Windows counts by GetGuiResources. Wine answers 0 there, but has a table of the process's GDI objects at the same
// place as Windows, in the process environment block. The form of that table isn't documented, so counting by it is
// first tried on pens made for the purpose.
//
// Wine shows no table of menus, icons and cursors. But it accepts the lower half of a handle in place of the whole, and
// knows only handles of this process, so we ask about every handle that there can be. That is tried first, too.

#include "GuiObjects.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

struct TableEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type; ///< 0: free
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(TableEntry) == 24);
constexpr int kEntries = 0x4000;
constexpr std::ptrdiff_t kTableInBlock = 0xF8;  // of the process environment block, 64 bits
constexpr std::ptrdiff_t kBlockInThread = 0x60; // of the thread environment block, 64 bits

const TableEntry* table() {
    const auto* thread = reinterpret_cast<const std::byte*>(NtCurrentTeb());
    const auto* block = *reinterpret_cast<const std::byte* const*>(thread + kBlockInThread);
    return *reinterpret_cast<const TableEntry* const*>(block + kTableInBlock);
}

int countTable(const TableEntry* entries) {
    int count = 0;
    for (int i = 0; i < kEntries; ++i)
        count += entries[i].type != 0;
    return count;
}

bool isReadable(const void* address) {
    MEMORY_BASIC_INFORMATION region{};
    return address && VirtualQuery(address, &region, sizeof region) && region.State == MEM_COMMIT &&
           !(region.Protect & (PAGE_NOACCESS | PAGE_GUARD)) && region.RegionSize >= sizeof(TableEntry) * kEntries;
}

bool provesItself(const TableEntry* entries) {
    std::array<HPEN, 50> pens{};
    const int before = countTable(entries);
    for (HPEN& pen : pens)
        pen = CreatePen(PS_SOLID, 1, 0);
    const int during = countTable(entries);
    for (const HPEN pen : pens)
        DeleteObject(pen);
    return during == before + static_cast<int>(pens.size()) && countTable(entries) == before;
}

// The lower halves of Wine's user handles.
constexpr std::uintptr_t kFirstUserHandle = 0x20, kLastUserHandle = 0xFFEF, kUserHandleStep = 2;

bool isIcon(HICON handle) {
    ICONINFO info{};
    if (!GetIconInfo(handle, &info))
        return false;
    // GetIconInfo makes these bitmaps as copies for the caller.
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return true;
}

int askAboutUserHandles() {
    int count = 0;
    for (std::uintptr_t handle = kFirstUserHandle; handle <= kLastUserHandle; handle += kUserHandleStep)
        count += IsMenu(reinterpret_cast<HMENU>(handle)) || isIcon(reinterpret_cast<HICON>(handle));
    return count;
}

bool askingProvesItself() {
    constexpr int menuCount = 20, iconCount = 10;
    const BYTE bits[2] = {0xFF, 0xFF};
    std::array<HMENU, menuCount> menus{};
    std::array<HICON, iconCount> icons{};
    const int before = askAboutUserHandles();
    for (HMENU& menu : menus)
        menu = CreatePopupMenu();
    for (HICON& icon : icons)
        icon = CreateIcon(nullptr, 8, 1, 1, 1, bits, bits);
    const int during = askAboutUserHandles();
    for (const HMENU menu : menus)
        DestroyMenu(menu);
    for (const HICON icon : icons)
        DestroyIcon(icon);
    return during == before + menuCount + iconCount && askAboutUserHandles() == before;
}

BOOL CALLBACK countOne(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM count) {
    countOne(window, count);
    EnumChildWindows(window, countOne, count);
    return TRUE;
}

} // namespace

std::optional<int> countGdiObjects() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(counted);
    const TableEntry* entries = table();
    if (!isReadable(entries) || !provesItself(entries))
        return std::nullopt;
    return countTable(entries);
}

std::optional<int> countUserObjects() {
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS))
        return static_cast<int>(counted);
    static const bool proven = askingProvesItself();
    return proven ? std::optional(askAboutUserHandles()) : std::nullopt;
}

int countWindows() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWithChildren, reinterpret_cast<LPARAM>(&count));
    const DWORD own = GetCurrentThreadId();
    for (HWND window = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, nullptr); window;
         window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr))
        count += GetWindowThreadProcessId(window, nullptr) == own;
    return count;
}
