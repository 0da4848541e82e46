// What a screen reader is told about the grid.

#include "ScreenReader.h"

#include "GridColumns.h"
#include "ImportFaults.h"
#include "OwnDialog.h"
#include "engine/DatabaseAccess.h"

#include <atomic>
#include <future>

namespace {

using reader::allElseOf;
using reader::asked;
using reader::Changes;
using reader::child;
using reader::ComScope;
using reader::descriptionOf;
using reader::Holder;
using reader::nameOf;
using reader::Question;
using reader::Row;
using reader::rowsOf;
using reader::Said;
using reader::say;
using reader::standard;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using ui::Script;
using ui::View;

const std::wstring kLinesAndStyle = L"Linetype: Continuous; Lineweight: Default; Plot style: Normal; ";

/// In another thread or program, which is how screen readers ask. The dialog's own thread takes no part in COM by
/// itself.
class ScreenReaderElsewhere : public EditTest {};

class ScreenReader : public EditTest {
  protected:
    const ComScope m_com;
};

TEST_F(ScreenReader, HearsTheNameAndTheCellsOfEachRow) {
    open(house().state(L"Mixed", MaskAllProperties, L"", [](zdr::LayerColumns& columns) {
        columns.flags.set(1, 0);
        columns.flags.set(2, zdr::kLayerOn | zdr::kLayerFrozen | zdr::kLayerLocked | zdr::kLayerNewViewportFrozen);
    }));
    edit(L"Mixed",
         Script()
             .look("the rows",
                   [](const View& view) {
                       const auto object = asked(view.control(grid));
                       ASSERT_TRUE(object);
                       EXPECT_EQ(
                           rowsOf(*object),
                           (std::vector<Row>{
                               {L"Pipes", L"On: on; Freeze: thawed; Lock: unlocked; Color: Cyan; " + kLinesAndStyle +
                                              L"Plot: plotted; Freeze in new viewports: thawed"},
                               {L"Doors", L"On: on; Freeze: frozen; Lock: locked; Color: Green; " + kLinesAndStyle +
                                              L"Plot: not plotted; Freeze in new viewports: frozen"},
                               {L"Walls", L"On: off; Freeze: thawed; Lock: unlocked; Color: White; " + kLinesAndStyle +
                                              L"Plot: not plotted; Freeze in new viewports: thawed"},
                               {L"Base", L"current layer; On: on; Freeze: thawed; Lock: unlocked; Color: White; " +
                                             kLinesAndStyle + L"Plot: plotted; Freeze in new viewports: thawed"}}));
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReader, HearsThePlotStyleOfTheColourWhereThereAreNoNamedOnes) {
    open(house());
    zdr::Drawing drawing = house().drawing();
    drawing.colorDependentPlotStyles = true;
    engine::replaceDrawing(database(), drawing);
    edit(Script()
             .look("the rows",
                   [](const View& view) {
                       const auto object = asked(view.control(grid));
                       EXPECT_THAT(descriptionOf(*object, 2), HasSubstr(L"; Plot style: Color_3; "));
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReaderElsewhere, HearsTheSame) {
    open(house());
    std::future<Row> told;
    edit(Script()
             .look("another thread asks",
                   [&told](const View& view) {
                       told = std::async(std::launch::async, [list = view.control(grid)] {
                           const ComScope com;
                           const auto object = asked(list);
                           return object ? rowsOf(*object).at(0) : Row();
                       });
                   })
             .waitUntil(
                 "it has its answer",
                 [&told](const View&) { return told.wait_for(std::chrono::seconds(0)) == std::future_status::ready; })
             .press(VK_ESCAPE));
    const Row row = told.get();
    EXPECT_EQ(row.name, L"Pipes");
    EXPECT_THAT(row.description, StartsWith(L"On: on; Freeze: thawed; "));
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED) << "after the dialog";
}

TEST_F(ScreenReader, HearsTheNewValueAfterAnEditAndIsToldOfTheFocusedRow) {
    open(house());
    Changes changes;
    Holder<IAccessible> object;
    edit(Script()
             .look("a reader comes",
                   [&](const View& view) {
                       object = asked(view.control(grid));
                       changes.listenTo(view.control(grid));
                   })
             .clickCell(grid, 0, onGridColumn)
             .waitUntil("it is told", [&](const View&) { return !changes.rows.empty(); })
             .look("what it hears",
                   [&](const View&) {
                       EXPECT_THAT(changes.rows, ElementsAre(1));
                       EXPECT_THAT(descriptionOf(*object, 1), StartsWith(L"On: off; "));
                       EXPECT_THAT(descriptionOf(*object, 2), StartsWith(L"On: on; "));
                       changes.rows.clear();
                   })
             .clickCell(grid, 1, plotStyleGridColumn)
             .waitUntil("the styles are shown", [](const View& view) { return !view.has(grid); })
             .press(VK_RETURN)
             .waitUntil("it is told", [&](const View&) { return !changes.rows.empty(); })
             .look("what it hears",
                   [&](const View&) {
                       EXPECT_THAT(changes.rows, ElementsAre(2));
                       changes.rows.clear();
                   })
             .doubleClickCell(grid, 1, nameGridColumn)
             .waitUntil("it is told", [&](const View&) { return !changes.rows.empty(); })
             .look("what it hears",
                   [&](const View&) {
                       EXPECT_THAT(changes.rows, ElementsAre(2));
                       EXPECT_THAT(descriptionOf(*object, 2), StartsWith(L"current layer; "));
                       EXPECT_THAT(descriptionOf(*object, 4), StartsWith(L"On: "));
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReader, IsToldNothingOfAnEditThatIsRefused) {
    open(house());
    Changes changes;
    edit(Script()
             .look("a reader comes", [&](const View& view) { changes.listenTo(view.control(grid)); })
             .clickCell(grid, 3, freezeGridColumn)
             .waitForText(resourceText(IDS_LSTATE_CURRENT_LAYER_NO_FREEZE))
             .press(VK_RETURN)
             .waitForControl(grid)
             .clickCell(grid, 3, lockGridColumn)
             .waitUntil("it is told", [&](const View&) { return !changes.rows.empty(); })
             .press(VK_ESCAPE));
    EXPECT_THAT(changes.rows, ElementsAre(4)) << "of the second click alone";
}

TEST_F(ScreenReader, HearsTheRowsInTheOrderInWhichTheyStand) {
    open(house());
    edit(Script()
             .clickHeading(grid, nameGridColumn)
             .waitUntil("they are sorted",
                        [](const View& view) {
                            return rows(view) == std::vector<std::wstring>{L"Base", L"Doors", L"Pipes", L"Walls"};
                        })
             .look("the rows",
                   [](const View& view) {
                       const auto object = asked(view.control(grid));
                       EXPECT_EQ(nameOf(*object, 1), L"Base");
                       EXPECT_THAT(descriptionOf(*object, 1), StartsWith(L"current layer; "));
                       EXPECT_EQ(nameOf(*object, 4), L"Walls");
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReader, HearsWhatTheSystemSaysOfAllElse) {
    open(house());
    edit(Script()
             .clickCell(grid, 1, nameGridColumn)
             .look("the list",
                   [](const View& view) {
                       const auto object = asked(view.control(grid));
                       const auto system = standard(view.control(grid));
                       VARIANT text{};
                       text.vt = VT_BSTR;
                       for (const VARIANT& about : {child(CHILDID_SELF), child(5), child(-1), text})
                           for (const Question question :
                                {Question{&IAccessible::get_accName}, Question{&IAccessible::get_accDescription}})
                               EXPECT_EQ(say(*object, question, about), say(*system, question, about));
                       for (const long row : {0l, 1l, 4l, 5l})
                           EXPECT_EQ(allElseOf(*object, child(row)), allElseOf(*system, child(row))) << row;
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReader, CallsNothingByNameAndIsToldWhereItLeavesNoRoomForTheAnswer) {
    open(house().state(L"Plan", MaskAllProperties));
    edit(L"Plan", Script()
                      .look("the grid's object",
                            [](const View& view) {
                                const auto object = asked(view.control(grid));
                                ASSERT_TRUE(object);
                                UINT count = 7;
                                EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
                                EXPECT_EQ(count, 0u);
                                ITypeInfo* info = nullptr;
                                EXPECT_EQ(object->GetTypeInfo(0, 0, &info), E_NOTIMPL);
                                std::wstring accName = L"accName";
                                LPOLESTR name = accName.data();
                                DISPID member = 0;
                                EXPECT_EQ(object->GetIDsOfNames(GUID{}, &name, 1, 0, &member), E_NOTIMPL);
                                DISPPARAMS none = {};
                                EXPECT_EQ(object->Invoke(DISPID_ACC_NAME, GUID{}, 0, DISPATCH_PROPERTYGET, &none,
                                                         nullptr, nullptr, nullptr),
                                          E_NOTIMPL);
                                EXPECT_EQ(object->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
                                EXPECT_EQ(object->get_accName(child(1), nullptr), E_POINTER);
                            })
                      .press(VK_ESCAPE));
}

TEST_F(ScreenReader, IsToldOfALackOfMemoryAndHearsAllTheNextTime) {
    open(house());
    edit(Script()
             .look("the rows",
                   [](const View& view) {
                       const auto object = asked(view.control(grid));
                       const ImportFaults faults({L"KelLayerApps.xmod", L"kelmfc.dll"});
                       const auto describe = [&object] {
                           return say(*object, &IAccessible::get_accDescription, child(2));
                       };
                       const Said all = describe();
                       EXPECT_EQ(all.status, S_OK);
                       int lacks = 0;
                       for (bool struck = true; struck; lacks += struck) {
                           ImportFaults::begin(ImportFaults::kMemory, lacks + 1);
                           const Said said = describe();
                           ImportFaults::end();
                           struck = ImportFaults::struck();
                           EXPECT_EQ(said, struck ? (Said{E_OUTOFMEMORY, L""}) : all);
                       }
                       EXPECT_GT(lacks, 0);
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReader, HearsWhatTheSystemSaysWhenThereIsNoMemoryForTheGridsObject) {
    open(house());
    edit(Script()
             .look("the first row",
                   [](const View& view) {
                       const ImportFaults faults({L"KelLayerApps.xmod"});
                       ImportFaults::begin("CreateStdAccessibleObject", 1);
                       const auto object = asked(view.control(grid));
                       EXPECT_TRUE(ImportFaults::struck());
                       ASSERT_TRUE(object);
                       const auto ofSystem = standard(view.control(grid));
                       for (const Question question : {&IAccessible::get_accName, &IAccessible::get_accDescription})
                           EXPECT_EQ(say(*object, question, child(1)), say(*ofSystem, question, child(1)));
                   })
             .press(VK_ESCAPE));
}

TEST_F(ScreenReader, IsToldThatTheGridIsGoneAndHoldsItsObjectAlone) {
    open(house());
    Holder<IAccessible> object;
    edit(Script()
             .look("a reader comes",
                   [&object](const View& view) {
                       object = asked(view.control(grid));
                       const auto again = asked(view.control(grid));
                       EXPECT_EQ(again.get(), object.get()) << "one object, however often it is asked for";
                   })
             .press(VK_ESCAPE));
    ASSERT_TRUE(object);
    for (const long row : {0l, 1l}) {
        const Said gone{CO_E_OBJNOTCONNECTED, L""};
        EXPECT_EQ(say(*object, &IAccessible::get_accName, child(row)), gone);
        EXPECT_EQ(say(*object, &IAccessible::get_accDescription, child(row)), gone);
        EXPECT_THAT(allElseOf(*object, child(row)), Each(StartsWith("800401fd")));
    }
    EXPECT_EQ(object.release()->Release(), 0u) << "the last one, which ends it";
}

class ScreenReaderOfOwnDialog : public OwnDialogTest {
  protected:
    const ComScope m_com;
};

TEST_F(ScreenReaderOfOwnDialog, IsToldThatTheGridIsGoneAsSoonAsItsWindowIs) {
    OwnDialog dialog;
    Holder<IAccessible> object;
    look(dialog, [&] { object = asked(dialog.m_layerGrid.m_hWnd); });
    ASSERT_TRUE(object);
    EXPECT_EQ(say(*object, &IAccessible::get_accName, child(CHILDID_SELF)), (Said{CO_E_OBJNOTCONNECTED, L""}));
}

TEST_F(ScreenReaderElsewhere, IsToldThatTheGridIsGone) {
    open(house());
    std::atomic<bool> heard = false;
    std::promise<void> closed;
    std::future<HRESULT> told;
    manage(Script()
               .clickCellOf(IDC_LSTATE_RES_LIST, L"Bare")
               .click(IDC_LSTATE_RES_EDIT)
               .waitForControl(grid)
               .look("another thread asks",
                     [&](const View& view) {
                         told = std::async(std::launch::async, [list = view.control(grid), &heard, &closed] {
                             const ComScope com;
                             const auto object = asked(list);
                             heard = true;
                             closed.get_future().wait();
                             return object ? say(*object, &IAccessible::get_accName, child(1)).status : E_FAIL;
                         });
                     })
               .waitUntil("it has the object", [&heard](const View&) { return heard.load(); })
               .press(VK_ESCAPE)
               .waitForControl(IDC_LSTATE_RES_LIST)
               .look("the grid is gone", [&closed](const View&) { closed.set_value(); })
               .waitUntil(
                   "it has its answer",
                   [&told](const View&) { return told.wait_for(std::chrono::seconds(0)) == std::future_status::ready; })
               .press(VK_ESCAPE));
    EXPECT_TRUE(FAILED(told.get()));
}

} // namespace
