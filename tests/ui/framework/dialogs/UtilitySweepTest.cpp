// Registry access, expanded strings and paths, replayed with each of their calls failing once.

#include "SweepFixture.h"

#include "OrvUiUtilities.h"

using testing::IsSupersetOf;

namespace {

constexpr const wchar_t* kProductKey = L"Software\\KelWorkbench";
// What a comparison of paths answers when the system couldn't compare them: not equal.
constexpr int kNotCompared = -2;

TEST_F(FrameworkSweep, ofTheRegistryAccess) {
    writeValue(kept(), L"Text", REG_SZ, L"a longer value", 30);
    writeNumber(kept(), L"Number", 42);
    // Made outside of the scenario, because making them takes memory too.
    const CString keyPath(kept().c_str());
    const CString textName(L"Text");
    const CString numberName(L"Number");
    scenario = [&] {
        const auto key = made<COrvUiRegistryAccess>(HKEY_CURRENT_USER, keyPath);
        if (!key)
            return false;
        const CString text = key->GetString(textName);
        const unsigned int number = key->GetDWord(numberName);
        const unsigned long type = key->ValueType(numberName, nullptr);
        wchar_t path[64] = L"untouched";
        const unsigned int length = GetProductRegistryRootKey(path, 64);
        EXPECT_TRUE(text.IsEmpty() || text == L"a longer value");
        EXPECT_TRUE(number == 0 || number == 42u);
        EXPECT_TRUE(type == 0 || type == REG_DWORD);
        EXPECT_STREQ(path, length == 0 ? L"" : kProductKey);
        EXPECT_EQ(wcslen(path), length);
        return !text.IsEmpty() && number == 42u && type == REG_DWORD && length > 0;
    };
    EXPECT_THAT(sweep(kEveryCall),
                IsSupersetOf({kHostCall, "_Znwy", "RegOpenKeyExW", "RegGetValueW", "RegQueryValueExW"}));
}

TEST_F(FrameworkSweep, ofExpandedStringsAndPaths) {
    const OrvXREFString path(L"C:\\Plan.zdr");
    const OrvXREFString same(L"c:\\plan.ZDR");
    const OrvXREFString other(L"C:\\Street.zdr");
    scenario = [&] {
        CKelUiStringExp text;
        const bool loaded = text.LoadString(IDS_TEST_PRODUCT);
        EXPECT_EQ(loaded, !text.GetString().IsEmpty());
        const int order = path.CollateNoCase(same);
        const int otherOrder = other.CollateNoCase(path);
        EXPECT_TRUE(order == 0 || order == kNotCompared) << order;
        EXPECT_TRUE(otherOrder == 1 || otherOrder == kNotCompared) << otherOrder;
        return loaded && order == 0 && otherOrder == 1;
    };
    EXPECT_THAT(sweep(kEveryCall),
                IsSupersetOf({kHostCall, "_Znwy", "GetModuleHandleExW", "LoadStringW", "CompareStringEx"}));
}

TEST_F(FrameworkSweep, ofAPathThatIsAssigned) {
    const std::wstring before(100, L'b'), after(200, L'a');
    scenario = [&] {
        const auto path = made<OrvXREFString>(before.c_str());
        if (!path)
            return false;
        *path = after.c_str();
        const std::wstring now(*path);
        EXPECT_TRUE(now == after || now == before);
        return now == after;
    };
    EXPECT_THAT(sweep(kEveryCall), testing::UnorderedElementsAre("_Znwy"));
}

} // namespace
