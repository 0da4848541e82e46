// The resource scope: inside it ids resolve in the resource module, outside it wherever they did before.
#include "CResourceScope.h"
#include "FrameworkFaults.h"
#include "ModuleHandles.h"
#include "resource.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace {

class ResourceScope : public testing::Test {
  protected:
    void SetUp() override {
        g_resourceModule = LoadLibraryW(L"KelLayerAppsRes.dll");
        ASSERT_NE(g_resourceModule, nullptr);
        AfxSetResourceHandle(m_before);
    }
    void TearDown() override {
        FreeLibrary(g_resourceModule);
        g_resourceModule = nullptr;
    }

    const HINSTANCE m_before = GetModuleHandleW(nullptr);
};

} // namespace

TEST_F(ResourceScope, MakesTheResourceModuleCurrentForItsLife) {
    {
        CResourceScope scope;
        EXPECT_EQ(AfxGetResourceHandle(), g_resourceModule);
    }
    EXPECT_EQ(AfxGetResourceHandle(), m_before);
}

TEST_F(ResourceScope, NestsAndPutsBackWhatWasCurrentAtItsOwnStart) {
    CResourceScope outer;
    {
        CResourceScope inner;
        EXPECT_EQ(AfxGetResourceHandle(), g_resourceModule);
    }
    EXPECT_EQ(AfxGetResourceHandle(), g_resourceModule);
}

TEST_F(ResourceScope, PutsThePreviousModuleBackWhenAnExceptionPasses) {
    EXPECT_THROW(
        {
            CResourceScope scope;
            throw std::runtime_error("passes");
        },
        std::runtime_error);
    EXPECT_EQ(AfxGetResourceHandle(), m_before);
}

TEST_F(ResourceScope, LoadsAStringThatThePreviousModuleLacks) {
    CString text;
    EXPECT_FALSE(text.LoadString(m_before, IDS_LSTATE_COLUMN_NAME));
    wchar_t expected[64] = {};
    ASSERT_GT(LoadStringW(g_resourceModule, IDS_LSTATE_COLUMN_NAME, expected, 64), 0);
    EXPECT_STREQ(loadResourceString(IDS_LSTATE_COLUMN_NAME).GetString(), expected);
    EXPECT_EQ(AfxGetResourceHandle(), m_before);
}

TEST_F(ResourceScope, LoadsAMissingStringAsEmpty) {
    EXPECT_STREQ(loadResourceString(64000).GetString(), L"");
    EXPECT_EQ(AfxGetResourceHandle(), m_before);
}

TEST_F(ResourceScope, PutsThePreviousModuleBackWhenTheLoadOfAStringThrows) {
    failFramework(FrameworkCall::loadString);
    EXPECT_THROW(static_cast<void>(loadResourceString(IDS_LSTATE_COLUMN_NAME)), std::bad_alloc);
    EXPECT_EQ(AfxGetResourceHandle(), m_before);
}
