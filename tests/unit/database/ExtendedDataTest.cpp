// Extended data of layers, as result-buffer chains.

#include "EngineTest.h"
#include "KelDbPointers.h"

#include <cstdlib>
#include <cwchar>
#include <utility>

class ExtendedData : public EngineTest {
  protected:
    ExtendedData() {
        zdr::Drawing withData = makeDrawing({{L"Walls"}, {L"Doors"}});
        const zdr::Handle walls = withData.layers[1].handle;
        withData.extendedData.push_back(
            {walls, L"OLD", {{kExtendedString, std::wstring(L"{PLAN")}, {kExtendedInt16, -5}}});
        withData.extendedData.push_back({walls, L"OTHER", {{kExtendedInt32, 70000}}});
        use(std::move(withData));
    }
    /// The nodes of an application's data on Walls, as code and value.
    std::vector<std::pair<int, std::wstring>> data(const wchar_t* application) {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
        ResultBuffer* chain = record->getExtendedData(application);
        std::vector<std::pair<int, std::wstring>> nodes;
        for (const ResultBuffer* node = chain; node; node = node->next) {
            const bool text = node->type <= kExtendedHandle;
            const int number = node->type == kExtendedInt16 ? node->value.int16 : node->value.int32;
            nodes.emplace_back(node->type, text ? node->value.string : std::to_wstring(number));
        }
        kelutRelRb(chain);
        return nodes;
    }
    /// A chain that begins with an application's name.
    static ResultBuffer* chainOf(const wchar_t* application) { return node(kExtendedAppName, application); }
    static ResultBuffer* node(int code, const wchar_t* text) {
        ResultBuffer* made = kelutNewRb(code);
        made->value.string = static_cast<wchar_t*>(std::malloc((std::wcslen(text) + 1) * sizeof(wchar_t)));
        std::wcscpy(made->value.string, text);
        return made;
    }
    Vorn::ErrorStatus store(const ResultBuffer* chain, const wchar_t* layerName = L"Walls") {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(layerName), KelDb::kForWrite);
        return record->setExtendedData(chain);
    }
    using Nodes = std::vector<std::pair<int, std::wstring>>;
};

TEST_F(ExtendedData, IsHandedOutAsAChainThatBeginsWithTheApplication) {
    EXPECT_EQ(data(L"old"), (Nodes{{kExtendedAppName, L"OLD"}, {kExtendedString, L"{PLAN"}, {kExtendedInt16, L"-5"}}));
    EXPECT_EQ(data(L"OTHER"), (Nodes{{kExtendedAppName, L"OTHER"}, {kExtendedInt32, L"70000"}}));
}

TEST_F(ExtendedData, IsNullWhereThereIsNone) {
    EXPECT_EQ(data(L"NEW"), Nodes{});
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Doors"), KelDb::kForRead);
    EXPECT_EQ(record->getExtendedData(L"OLD"), nullptr);
    EXPECT_EQ(record->getExtendedData(nullptr), nullptr);
    KelDbLayerTableRecord inMemory;
    EXPECT_EQ(inMemory.getExtendedData(L"OLD"), nullptr);
}

TEST_F(ExtendedData, AChainStaysInTheLedgerUntilItIsReleased) {
    KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
    ResultBuffer* chain = record->getExtendedData(L"OLD");
    EXPECT_EQ(instruments::ledger().size(), 4u); // the record and three nodes
    kelutRelRb(chain);
}

TEST_F(ExtendedData, IsReplacedForItsApplicationAlone) {
    ResultBuffer* chain = chainOf(L"OLD");
    chain->next = node(kExtendedHandle, L"2A");
    chain->next->next = kelutNewRb(kExtendedInt32);
    chain->next->next->value.int32 = 25;
    EXPECT_EQ(store(chain), Vorn::eOk);
    kelutRelRb(chain);
    EXPECT_EQ(data(L"OLD"), (Nodes{{kExtendedAppName, L"OLD"}, {kExtendedHandle, L"2A"}, {kExtendedInt32, L"25"}}));
    EXPECT_EQ(data(L"OTHER").size(), 2u);
}

TEST_F(ExtendedData, AChainOfTheApplicationAloneTakesItAway) {
    ResultBuffer* chain = chainOf(L"OLD");
    EXPECT_EQ(store(chain), Vorn::eOk);
    kelutRelRb(chain);
    EXPECT_EQ(data(L"OLD"), Nodes{});
    EXPECT_EQ(drawing().extendedData.size(), 1u);
}

TEST_F(ExtendedData, IsStoredForANewApplicationOnceThatIsRegistered) {
    ResultBuffer* chain = chainOf(L"NEW");
    chain->next = node(kExtendedString, L"x");
    EXPECT_EQ(store(chain), Vorn::eKeyNotFound);
    keldbHostApplicationServices()->setWorkingDatabase(&m_database);
    EXPECT_TRUE(keldbRegApp(L"New"));
    EXPECT_FALSE(keldbRegApp(L"NEW"));
    EXPECT_FALSE(keldbRegApp(L"a*b"));
    EXPECT_FALSE(keldbRegApp(nullptr));
    EXPECT_EQ(store(chain), Vorn::eOk);
    kelutRelRb(chain);
    EXPECT_EQ(data(L"NEW").size(), 2u);
    keldbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_FALSE(keldbRegApp(L"NEWER"));
}

TEST_F(ExtendedData, RefusesChainsThatAreNone) {
    EXPECT_EQ(store(nullptr), Vorn::eInvalidInput);
    ResultBuffer* headless = node(kExtendedString, L"OLD");
    EXPECT_EQ(store(headless), Vorn::eInvalidInput);
    kelutRelRb(headless);
    ResultBuffer* withReal = chainOf(L"OLD");
    withReal->next = kelutNewRb(kVariableReal);
    EXPECT_EQ(store(withReal), Vorn::eInvalidInput);
    kelutRelRb(withReal);
    EXPECT_EQ(data(L"OLD").size(), 3u);
}

TEST_F(ExtendedData, NeedsTheObjectOpenForWriting) {
    ResultBuffer* chain = chainOf(L"OLD");
    {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
        EXPECT_EQ(record->setExtendedData(chain), Vorn::eNotOpenForWrite);
    }
    KelDbLayerTableRecord inMemory;
    EXPECT_EQ(inMemory.setExtendedData(chain), Vorn::eNotOpenForWrite);
    kelutRelRb(chain);
    EXPECT_EQ(data(L"OLD").size(), 3u);
}

TEST_F(ExtendedData, IsUndone) {
    engine::beginUndoGroup(m_database);
    ResultBuffer* chain = chainOf(L"OLD");
    store(chain);
    kelutRelRb(chain);
    engine::endUndoGroup(m_database);
    EXPECT_EQ(data(L"OLD"), Nodes{});
    engine::undo(m_database);
    EXPECT_EQ(data(L"OLD").size(), 3u);
    engine::redo(m_database);
    EXPECT_EQ(data(L"OLD"), Nodes{});
}

TEST_F(ExtendedData, IsNoChangeToUndoWhenItIsThereAlready) {
    ResultBuffer* chain =
        KelDbObjectPointer<KelDbLayerTableRecord>(layerId(L"Walls"), KelDb::kForRead)->getExtendedData(L"OLD");
    EXPECT_EQ(store(chain), Vorn::eOk);
    EXPECT_FALSE(engine::canUndo(m_database));
    chain->next->next->value.int16 = -4;
    EXPECT_EQ(store(chain), Vorn::eOk);
    EXPECT_TRUE(engine::canUndo(m_database));
    EXPECT_EQ(data(L"OLD"), (Nodes{{kExtendedAppName, L"OLD"}, {kExtendedString, L"{PLAN"}, {kExtendedInt16, L"-4"}}));
    kelutRelRb(chain);
}

TEST_F(ExtendedData, IsOtherDataWhenTheSameCharactersStandInOtherTexts) {
    const auto storeTexts = [this](const wchar_t* first, const wchar_t* second) {
        ResultBuffer* chain = chainOf(L"OLD");
        chain->next = node(kExtendedString, first);
        chain->next->next = node(kExtendedHandle, second);
        EXPECT_EQ(store(chain), Vorn::eOk);
        kelutRelRb(chain);
        EXPECT_EQ(data(L"OLD"),
                  (Nodes{{kExtendedAppName, L"OLD"}, {kExtendedString, first}, {kExtendedHandle, second}}));
    };
    storeTexts(L"ab", L"c");
    storeTexts(L"a", L"bc");
    storeTexts(L"", L"abc");
}

TEST_F(ExtendedData, IsStoredWhenItIsLongerOrShorterThanBefore) {
    ResultBuffer* chain =
        KelDbObjectPointer<KelDbLayerTableRecord>(layerId(L"Walls"), KelDb::kForRead)->getExtendedData(L"OLD");
    ResultBuffer* last = chain->next->next;
    last->next = kelutNewRb(kExtendedInt16);
    EXPECT_EQ(store(chain), Vorn::eOk);
    EXPECT_EQ(data(L"OLD").size(), 4u);
    kelutRelRb(std::exchange(last->next, nullptr));
    EXPECT_EQ(store(chain), Vorn::eOk);
    EXPECT_EQ(data(L"OLD").size(), 3u);
    kelutRelRb(chain);
}

TEST_F(ExtendedData, IsNoChangeToUndoWhereThereIsNoneToTakeAway) {
    ResultBuffer* chain = chainOf(L"OLD");
    EXPECT_EQ(store(chain, L"Doors"), Vorn::eOk);
    EXPECT_FALSE(engine::canUndo(m_database));
    kelutRelRb(chain);
}

TEST_F(ExtendedData, IsHandedOutWholeOrNotAtAllWhenMemoryRunsOut) {
    int failed = 0;
    for (;; ++failed) {
        KelDbObjectPointer<KelDbLayerTableRecord> record(layerId(L"Walls"), KelDb::kForRead);
        instruments::failAllocation(failed + 1);
        ResultBuffer* chain = record->getExtendedData(L"OLD");
        instruments::clearFaults();
        EXPECT_EQ(chain == nullptr, instruments::faultStruck());
        kelutRelRb(chain);
        if (chain)
            break;
    }
    EXPECT_EQ(failed, 5); // three nodes, two texts
}
