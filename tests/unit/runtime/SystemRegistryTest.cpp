// The system registry: classes, services, the dynamic linker.

#include "KelDbTables.h"
#include "RuntimeTest.h"
#include "SystemRegistry.h"

using SystemRegistryTest = RuntimeTest;

TEST_F(SystemRegistryTest, HoldsTheHostsDictionariesUnderTheirKeys) {
    KelRtDictionary* registry = kelrtSystemRegistry();
    EXPECT_NE(kelrtCast<KelRtDictionary>(registry->at(L"ServiceDictionary")), nullptr);
    EXPECT_NE(kelrtCast<KelRtDictionary>(registry->at(L"ClassDictionary")), nullptr);
    EXPECT_NE(kelrtCast<KelRtDynamicLinker>(registry->at(L"DynamicLinker")), nullptr);
    EXPECT_NE(kelrtCast<KelEdCommandStack>(registry->at(L"VORN_REGISTERED_COMMANDS")), nullptr);
    EXPECT_EQ(registry->at(L"servicedictionary"), nullptr) << "case is significant";
}

TEST_F(SystemRegistryTest, FindsClassRecordsByName) {
    auto* classes = kelrtCast<KelRtDictionary>(kelrtSystemRegistry()->at(kelrtClassDictionaryKey));
    ASSERT_NE(classes, nullptr);
    EXPECT_EQ(classes->at(L"KelEdCommandStack"), KelEdCommandStack::desc());
    EXPECT_EQ(classes->at(L"KelRtDictionary"), KelRtDictionary::desc());
    EXPECT_EQ(classes->at(L"KelDbLayerTableRecord"), KelDbLayerTableRecord::desc());
    EXPECT_EQ(classes->at(L"NoSuchClass"), nullptr);
}

TEST_F(SystemRegistryTest, KnowsKindsUpToTheRoot) {
    KelRtDictionary dictionary;
    EXPECT_TRUE(dictionary.isKindOf(KelRtDictionary::desc()));
    EXPECT_TRUE(dictionary.isKindOf(KelRtObject::desc()));
    EXPECT_FALSE(dictionary.isKindOf(KelRtDynamicLinker::desc()));
    EXPECT_FALSE(dictionary.isKindOf(nullptr));
}

TEST_F(SystemRegistryTest, RegistersAServiceOnce) {
    EXPECT_FALSE(kelrtServiceIsRegistered(L"Sample"));
    EXPECT_NE(kelrtRegisterService(L"Sample"), nullptr);
    EXPECT_TRUE(kelrtServiceIsRegistered(L"Sample"));
    EXPECT_EQ(kelrtRegisterService(L"Sample"), nullptr) << "it stands already";
    EXPECT_EQ(kelrtRegisterService(L""), nullptr);
    EXPECT_EQ(kelrtRegisterService(nullptr), nullptr);
}

TEST_F(SystemRegistryTest, AServiceTakenOutOfItsDictionaryIsTheCallers) {
    kelrtRegisterService(L"Sample");
    auto* services = kelrtCast<KelRtDictionary>(kelrtSystemRegistry()->at(kelrtServiceDictionaryKey));
    KelRtObject* service = services->remove(L"Sample");
    ASSERT_NE(service, nullptr);
    EXPECT_FALSE(kelrtServiceIsRegistered(L"Sample"));
    EXPECT_EQ(services->remove(L"Sample"), nullptr);
    delete service;
}

TEST_F(SystemRegistryTest, KeepsWhatAModuleDeclaresByItsPacket) {
    int packet = 0;
    int other = 0;
    kelrtCast<KelRtDynamicLinker>(kelrtSystemRegistry()->at(kelrtDynamicLinkerKey))->acceptApplication(&packet);
    EXPECT_TRUE(runtime::declarationsOf(&packet).acceptsUnload);
    EXPECT_FALSE(runtime::declarationsOf(&packet).mdiAware);
    EXPECT_TRUE(kelrtRegisterAppMDIAware(&packet));
    EXPECT_TRUE(runtime::declarationsOf(&packet).mdiAware);
    EXPECT_FALSE(runtime::declarationsOf(&other).acceptsUnload);
    runtime::forgetDeclarations(&packet);
    EXPECT_FALSE(runtime::declarationsOf(&packet).acceptsUnload);
}

TEST_F(SystemRegistryTest, AResetLeavesAFreshRegistry) {
    kelrtRegisterService(L"Sample");
    runtime::reset();
    EXPECT_FALSE(kelrtServiceIsRegistered(L"Sample"));
}

TEST_F(SystemRegistryTest, EveryOperationIsTracedAndCanFail) {
    instruments::failCall("kelrtRegisterService", 1);
    EXPECT_EQ(kelrtRegisterService(L"Sample"), nullptr);
    instruments::failCall("kelrtRegisterAppMDIAware", 1);
    EXPECT_FALSE(kelrtRegisterAppMDIAware(nullptr));
    instruments::failCall("at", 1);
    EXPECT_EQ(kelrtSystemRegistry()->at(kelrtServiceDictionaryKey), nullptr);
    EXPECT_THAT(instruments::trace(),
                testing::ElementsAre("kelrtRegisterService(\"Sample\") = null",
                                     "kelrtRegisterAppMDIAware(null) = false", "kelrtSystemRegistry()",
                                     "at(\"ServiceDictionary\") = null"));
}
