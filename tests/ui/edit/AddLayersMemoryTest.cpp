// What the edit dialog and the one that adds layers have in memory, once they are closed, and what they do when there
// is none for a layer.

#include "AddLayersTest.h"
#include "CLayerRcd.h"
#include "ImportTable.h"

#include <new>
#include <set>
#include <string_view>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::Script;
using ui::View;

/// The objects that the module makes and deletes while this lives, records of layers among them.
class ModuleObjects {
  public:
    ModuleObjects() {
        s_living.clear();
        s_made = s_recordsLeft = 0;
        forEachImport(GetModuleHandleW(L"KelLayerApps.xmod"), [this](const char* name, void** entry) {
            if (std::string_view(name) == "_Znwy")
                stand(entry, reinterpret_cast<void*>(&make));
            else if (std::string_view(name).starts_with("_ZdlPv"))
                stand(entry, reinterpret_cast<void*>(&drop));
        });
    }
    ~ModuleObjects() {
        for (const auto& [entry, before] : m_before)
            writeImport(entry, before);
    }
    ModuleObjects(const ModuleObjects&) = delete;
    ModuleObjects& operator=(const ModuleObjects&) = delete;
    int made() const { return s_made; }
    /// There is no memory for the `nth` record of a layer that is asked for from now on.
    static void failRecord(int nth) { s_recordsLeft = nth; }
    const std::set<void*>& living() const { return s_living; }

  private:
    void stand(void** entry, void* replacement) {
        m_before.emplace_back(entry, *entry);
        writeImport(entry, replacement);
    }
    static void* make(std::size_t size) {
        if (size == sizeof(CLayerRcd) && --s_recordsLeft == 0)
            throw std::bad_alloc();
        void* const object = ::operator new(size);
        s_living.insert(object);
        ++s_made;
        return object;
    }
    static void drop(void* object) {
        s_living.erase(object);
        ::operator delete(object);
    }
    static inline std::set<void*> s_living;
    static inline int s_made = 0;
    static inline int s_recordsLeft = 0;
    std::vector<std::pair<void**, void*>> m_before;
};

class AddLayersMemory : public AddLayersTest {};

TEST_F(AddLayersMemory, HoldsNoRecordOfALayerOnceTheDialogsAreClosed) {
    open(grown());
    const ModuleObjects objects;
    EXPECT_TRUE(add(Script().clickCellOf(grid, L"Yard").click(IDOK)));
    EXPECT_GE(objects.made(), 2 + 3 + 1) << "records: of the state, on offer, and added";
    EXPECT_THAT(objects.living(), IsEmpty());
}

TEST_F(AddLayersMemory, OffersTheLayersBeforeTheFirstThatHasNoMemory) {
    open(grown());
    const ModuleObjects objects;
    editPlan(Script()
                 .look("there to be no memory for the second layer", [](const View&) { ModuleObjects::failRecord(2); })
                 .then(openDialog())
                 .look("the rows", [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Attic")); })
                 .press(VK_ESCAPE)
                 .waitForControl(IDC_ADD_LAYERS)
                 .press(VK_ESCAPE));
    EXPECT_THAT(objects.living(), IsEmpty());
}

TEST_F(AddLayersMemory, AddsTheLayersBeforeTheFirstThatHasNoMemory) {
    open(grown());
    const ModuleObjects objects;
    add(Script()
            .clickCell(grid, 0, 0)
            .clickCell(grid, 2, 0, ui::holdShift)
            .look("there to be no memory for the second layer", [](const View&) { ModuleObjects::failRecord(2); })
            .click(IDOK),
        [](const View& view) { EXPECT_THAT(rows(view), ElementsAre(L"Cellar", L"Walls", L"Base")); });
    EXPECT_THAT(objects.living(), IsEmpty());
}

} // namespace
