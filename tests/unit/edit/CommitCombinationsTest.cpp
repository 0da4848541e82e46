// The commit over every combination of marks: the calls that must come, stated a second time in the plainest way.

#include "StateCommit.h"

#include "DomainTest.h"
#include "FaultSweep.h"
#include "LayerRecords.h"

namespace {

using Calls = std::vector<std::string>;

/// A record's four marks and what its id is, as one number below kShapes.
struct Shape {
    bool added, removed, modified, current;
    enum Id { good, none, stale } id;
};
constexpr unsigned kMarks = 16, kIds = 3, kShapes = kMarks * kIds;

Shape shapeOf(unsigned number) {
    return {(number & 1) != 0, (number & 2) != 0, (number & 4) != 0, (number & 8) != 0,
            static_cast<Shape::Id>(number / kMarks)};
}

std::string joined(const std::vector<std::string>& items) {
    std::string text = "[";
    for (const std::string& item : items)
        text += (text.size() > 1 ? ", " : "") + item;
    return text + "]";
}

class CommitCombinations : public DomainTest {
  protected:
    CommitCombinations() {
        m_stale = layerId(L"Walls");
        zdr::Drawing drawing = makeDrawing({{L"Walls"}, {L"Doors"}, {L"Pipes"}});
        use(std::move(drawing));
        EXPECT_FALSE(m_stale.isValid());
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskAllProperties), Vorn::eOk);
    }
    ~CommitCombinations() override { deleteRecords(m_layers); }

    void fill(const std::vector<Shape>& shapes) {
        deleteRecords(m_layers);
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            auto record = std::make_unique<CLayerRcd>();
            record->m_name = kNames[i];
            record->m_isAdded = shapes[i].added;
            record->m_isRemoved = shapes[i].removed;
            record->m_isModified = shapes[i].modified;
            record->m_isCurrent = shapes[i].current;
            if (shapes[i].id != Shape::none)
                record->m_layerId = shapes[i].id == Shape::good ? layerId(kNames[i]) : m_stale;
            m_layers.AddTail(record.release());
        }
    }
    /// The calls of a commit, without their answers.
    Calls commit() {
        instruments::clearTrace();
        commitRemovals(m_states, L"Plan", m_layers);
        commitAdditions(m_states, L"Plan", m_layers);
        commitChanges(m_database, L"Plan", m_layers);
        Calls calls;
        for (const std::string& line : instruments::trace())
            calls.push_back(line.substr(0, line.rfind(" = ")));
        return calls;
    }
    Calls expected(const std::vector<Shape>& shapes) const {
        Calls removed, added, calls;
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            if (shapes[i].removed)
                removed.push_back(quoted(i));
            if (shapes[i].added && shapes[i].id == Shape::good)
                added.push_back(instruments::describe(layerId(kNames[i])));
        }
        if (!removed.empty())
            calls.push_back("removeLayerStateLayers(\"Plan\", " + joined(removed) + ")");
        if (!added.empty())
            calls.push_back("addLayerStateLayers(\"Plan\", " + joined(added) + ")");
        calls.emplace_back("impDatabase()");
        calls.emplace_back("getImpLayerStateManager()");
        for (std::size_t i = 0; i < shapes.size(); ++i)
            if (shapes[i].modified)
                appendUpdate(calls, quoted(i), shapes[i].current);
        return calls;
    }
    static std::string quoted(std::size_t record) { return instruments::describe(kNames[record]); }
    // With the values of a new record.
    void appendUpdate(Calls& calls, const std::string& name, bool current) const {
        calls.emplace_back("layerRecord.new()");
        calls.push_back("record.setName(null, " + name + ")");
        for (const char* set : {"setIsFrozen(null, false)", "setIsOff(null, false)", "setVPDFLT(null, false)",
                                "setIsLocked(null, false)", "setIsPlottable(null, false)", "setColor(null, color 7)",
                                "setLinetypeObjectId(null, null)", "setLineWeight(null, -1)"})
            calls.push_back(std::string("record.") + set);
        calls.emplace_back("plotStyleMode()");
        if (!drawing().colorDependentPlotStyles) {
            calls.emplace_back("record.setPlotStyleName(null, \"\")");
            calls.emplace_back("record.setPlotStyleName(null, null)");
        }
        calls.push_back(std::string("imp.updateLayerStateLayer(\"Plan\", object, ") + (current ? "true)" : "false)"));
    }
    void check(const std::vector<Shape>& shapes) {
        fill(shapes);
        EXPECT_EQ(commit(), expected(shapes));
        EXPECT_THAT(instruments::ledger(), testing::IsEmpty()); // no scratch record is left
    }
    void useColorDependentPlotStyles() {
        zdr::Drawing other = drawing();
        other.colorDependentPlotStyles = true;
        use(std::move(other));
    }

    static constexpr const wchar_t* kNames[] = {L"Walls", L"Doors", L"Pipes"};
    KelDbLayerStateManager& m_states = states();
    CObList m_layers;
    KelDbObjectId m_stale; // of a drawing that is gone
};

TEST_F(CommitCombinations, OfOneRecord) {
    for (unsigned one = 0; one < kShapes && !HasFailure(); ++one)
        check({shapeOf(one)});
}

TEST_F(CommitCombinations, OfTwoRecords) {
    for (unsigned one = 0; one < kShapes; ++one)
        for (unsigned two = 0; two < kShapes && !HasFailure(); ++two)
            check({shapeOf(one), shapeOf(two)});
}

TEST_F(CommitCombinations, OfThreeRecords) {
    for (unsigned one = 0; one < kMarks; ++one)
        for (unsigned two = 0; two < kMarks; ++two)
            for (unsigned three = 0; three < kMarks && !HasFailure(); ++three)
                check({shapeOf(one), shapeOf(two), shapeOf(three)});
}

TEST_F(CommitCombinations, OfTwoRecordsWherePlotStylesFollowTheColour) {
    useColorDependentPlotStyles();
    for (unsigned one = 0; one < kMarks; ++one)
        for (unsigned two = 0; two < kMarks && !HasFailure(); ++two)
            check({shapeOf(one), shapeOf(two)});
}

TEST_F(CommitCombinations, GoOnWhicheverCallFails) {
    const std::vector<Shape> shapes = {
        {.added = false, .removed = true, .modified = false, .current = false, .id = {}},
        {.added = true, .removed = false, .modified = true, .current = true, .id = {}},
        {.added = false, .removed = false, .modified = true, .current = false, .id = {}}};
    int failed = 0;
    for (bool struck = true; struck && !HasFailure(); ++failed) {
        fill(shapes);
        instruments::failAnyCall(failed + 1, &sweep::statusOf);
        const Calls calls = commit();
        struck = instruments::faultStruck();
        const std::string operation = struck ? instruments::struckOperation() : "";
        instruments::clearFaults();
        SCOPED_TRACE(operation);
        Calls wanted = expected(shapes);
        if (operation == "getImpLayerStateManager") // nothing can be updated without it
            wanted.resize(4);
        EXPECT_EQ(calls, wanted);
        EXPECT_THAT(instruments::ledger(), testing::IsEmpty());
    }
    EXPECT_GT(failed, 8);
}

} // namespace
