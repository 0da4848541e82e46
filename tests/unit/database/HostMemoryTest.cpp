// Each operation of the host with each of its allocations failing once. No exception leaves it; it answers that it has
// failed and has changed nothing, or has done everything; whatever it looks things up by still holds, nothing stays
// open, and the next call goes well. Only natively.

#include "HostMemory.h"

#include "DrawingDifference.h"
#include "EngineTest.h"
#include "FailingAllocation.h"
#include "KelDbPointers.h"
#include "Runtime.h"
#include "SweepScenarios.h"
#include "WholeDrawing.h"

using testing::IsEmpty;

void PrintTo(const HostOperation& operation, std::ostream* out) {
    *out << operation.name;
}

namespace {

/// A drawing with a viewport that shows some layers otherwise, and the states "Plan", which is the last restored one,
/// "Cut", which was saved with the viewport and doesn't match it any more, "Less", which holds one layer alone, and
/// "Same", which does match what the viewport shows.
zdr::Drawing preparedDrawing() {
    KelDbDatabase database(false, false);
    engine::replaceDrawing(database, makeDrawing({{L"Walls"}, {L"Doors"}, {L"Furniture"}}));
    prepareStates(database);
    KelDbLayerStateManager& states = *database.getLayerStateManager();
    states.saveLayerState(L"Less", MaskAllProperties);
    KelArray<KelString> layers;
    layers.append(L"Furniture");
    states.removeLayerStateLayers(L"Plan", layers);
    layers.append(L"Doors");
    layers.append(L"Base");
    states.removeLayerStateLayers(L"Less", layers);
    states.restoreLayerState(L"Plan", {}, 0, nullptr);
    engine::setCurrentLayer(database, engine::layerIndex(database, L"Doors"));
    engine::LayerValues walls = engine::layerValues(database, 1);
    walls.color = 4;
    EXPECT_EQ(engine::setLayerValues(database, 1, walls), Vorn::eOk);
    const zdr::Handle viewport = engine::drawingOf(database).layouts.at(0).viewports.at(0).handle;
    engine::setFrozenInViewport(database, viewport, 1, true);
    engine::setOverride(database, viewport, {1, MaskColor, 5});
    states.saveLayerState(L"Same", MaskAllProperties, firstViewport(database));
    zdr::Drawing drawing = engine::drawingOf(database);
    drawing.applications.emplace_back(L"A remembered application");
    drawing.extendedData.push_back({drawing.layers[1].handle, L"A remembered application", {{1070, 5}}});
    return drawing;
}

/// Every layer can be opened for write: nobody has left one open.
bool isClosed(const KelDbDatabase& database) {
    for (std::size_t i = 0; i < engine::drawingOf(database).layers.size(); ++i)
        if (KelDbObjectPointer<KelDbObject>(engine::layerId(database, i), KelDb::kForWrite).openStatus() != Vorn::eOk)
            return false;
    return true;
}

/// What is here needs no memory, or takes what it hands out from malloc.
bool asksForNone(const HostOperation& operation) {
    constexpr std::string_view kNames[] = {"layerStatesDictionaryId", "plotStyleName", "getExtendedData", "removeGroup",
                                           "lookup"};
    return std::ranges::find(kNames, operation.name) != std::end(kNames);
}

class HostMemory : public testing::TestWithParam<HostOperation> {
  protected:
    ~HostMemory() override { runtime::reset(); }

    /// A database as each run of the operation finds it.
    class Run {
      public:
        explicit Run(const zdr::Drawing& drawing) {
            runtime::reset();
            engine::replaceDrawing(m_database, drawing);
            keldbHostApplicationServices()->setWorkingDatabase(&m_database);
            m_call = GetParam().prepare(m_database);
        }
        ~Run() { keldbHostApplicationServices()->setWorkingDatabase(nullptr); }
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

        Answer call() { return m_call(); }
        /// Closes what was opened for the call.
        void end() { m_call = nullptr; }
        const KelDbDatabase& database() const { return m_database; }
        /// The drawing but for its next handle: a handle that was given and taken back is lost.
        zdr::Drawing drawing() const {
            zdr::Drawing drawing = engine::drawingOf(m_database);
            drawing.nextHandle = 0;
            return drawing;
        }

      private:
        KelDbDatabase m_database{false, false};
        std::function<Answer()> m_call;
    };
};

} // namespace

TEST_P(HostMemory, WithoutItAnOperationAnswersThatItHasFailedAndHasChangedNothing) {
    const zdr::Drawing prepared = preparedDrawing();
    Run undisturbed(prepared);
    const zdr::Drawing before = undisturbed.drawing();
    ASSERT_EQ(undisturbed.call(), Answer::Done);
    undisturbed.end();
    const zdr::Drawing after = undisturbed.drawing();
    bool struck = true;
    int failures = 0;
    for (int nth = 1; struck; ++nth) {
        Run run(prepared);
        Answer answer = Answer::Other;
        bool thrown = false;
        {
            const FailingAllocation failing(nth);
            try {
                answer = run.call();
            } catch (...) {
                thrown = true;
            }
            struck = failing.hasStruck();
        }
        ASSERT_FALSE(thrown) << "allocation " << nth;
        ASSERT_NE(answer, Answer::Other) << "allocation " << nth;
        const bool unchanged = difference(run.drawing(), before).empty();
        if (answer == Answer::Failed) {
            ASSERT_TRUE(struck && unchanged) << "allocation " << nth << ": " << difference(run.drawing(), before);
            ASSERT_EQ(run.call(), Answer::Done) << "the next call, after allocation " << nth;
        } else if (!(GetParam().isSilent && struck && unchanged)) {
            ASSERT_EQ(difference(run.drawing(), after), "") << "allocation " << nth;
        }
        run.end();
        ASSERT_THAT(wholenessProblems(run.database()), IsEmpty()) << "allocation " << nth;
        ASSERT_TRUE(isClosed(run.database())) << "allocation " << nth;
        failures += struck;
    }
    EXPECT_EQ(failures == 0, asksForNone(GetParam())) << failures;
}

namespace {

std::string nameOf(const testing::TestParamInfo<HostOperation>& test) {
    std::string name = test.param.name;
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(States, HostMemory, testing::ValuesIn(stateOperations()), nameOf);
INSTANTIATE_TEST_SUITE_P(Objects, HostMemory, testing::ValuesIn(objectOperations()), nameOf);
INSTANTIATE_TEST_SUITE_P(Runtime, HostMemory, testing::ValuesIn(runtimeOperations()), nameOf);
