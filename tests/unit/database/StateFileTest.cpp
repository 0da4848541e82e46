// Layer states files: what they look like, and that nothing in one is taken on trust.

#include "EngineTest.h"

#include "files/TextCoding.h"

#include <filesystem>
#include <fstream>

using testing::HasSubstr;

class StateFile : public EngineTest {
  protected:
    StateFile() {
        std::filesystem::create_directories(m_folder);
        use(makeDrawing(
            {{.name = L"W\u00e4nde", .color = 3, .linetype = L"Dashed", .lineWeight = 35, .plotStyle = L"Fine"}}));
        KelCmColor color;
        color.setRGB(1, 2, 3);
        setColor(L"Base", color.packed());
        states().saveLayerState(L"Plan", MaskOn | MaskColor | 0x10000);
        states().setLayerStateDescription(L"Plan", L"\"ground\"");
    }
    ~StateFile() override { std::filesystem::remove_all(m_folder); }

    std::wstring path(const char* name = "plan.las") const { return (m_folder / name).wstring(); }
    std::string read(const char* name = "plan.las") const {
        std::ifstream in(m_folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void write(const std::string& content) const { std::ofstream(m_folder / "plan.las", std::ios::binary) << content; }
    Vorn::ErrorStatus import(std::string* name = nullptr) {
        KelString found(L"?");
        const Vorn::ErrorStatus status = states().importLayerState(path().c_str(), found);
        if (name)
            *name = instruments::describe(found);
        return status;
    }
    /// Imports the written text with one piece replaced by another, into a drawing that lacks the state.
    Vorn::ErrorStatus importWith(const std::string& piece, const std::string& other) {
        if (m_written.empty()) {
            EXPECT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
            m_written = read();
            states().deleteLayerState(L"Plan");
        }
        std::string content = m_written;
        const std::size_t at = content.find(piece);
        EXPECT_NE(at, std::string::npos) << piece;
        content.replace(at, piece.size(), other);
        write(content);
        return import();
    }
    /// Gives Base a true colour of that name and book, and saves the state with it.
    KelCmColor paintBase(const wchar_t* name, const wchar_t* book) {
        KelCmColor color;
        color.setRGB(0, 60, 140);
        EXPECT_EQ(color.setNames(name, book), Vorn::eOk);
        setColor(L"Base", engine::colorId(m_database, color));
        EXPECT_EQ(states().saveLayerState(L"Plan", MaskColor), Vorn::eOk);
        return color;
    }
    std::string m_written;
    const std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("statefile" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
};

TEST_F(StateFile, HasALayerALineInAStableOrder) {
    ASSERT_EQ(states().exportLayerState(L"plan", path().c_str()), Vorn::eOk);
    EXPECT_EQ(
        read(),
        R"({
  "layerStateFile": 1,
  "name": "Plan",
  "description": "\"ground\"",
  "restores": ["on","color"],
  "furtherMaskBits": 65536,
  "currentLayer": "Base",
  "savedWithViewport": false,
  "layers": [
    {"name":"Base","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":[1,2,3],"linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":")"
        "W\xC3\xA4nde"
        R"(","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":3,"linetype":"Dashed","lineWeight":35,"plotStyle":"Fine"}
  ]
}
)");
}

TEST_F(StateFile, BringsTheStateBackAsItWas) {
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    const zdr::LayerState before = drawing().states[0];
    states().deleteLayerState(L"Plan");
    std::string name;
    ASSERT_EQ(import(&name), Vorn::eOk);
    EXPECT_EQ(name, "\"Plan\"");
    const zdr::LayerState& after = drawing().states[0];
    EXPECT_EQ(after.name, before.name);
    EXPECT_EQ(after.description, before.description);
    EXPECT_EQ(after.mask, before.mask);
    EXPECT_EQ(after.currentLayer, before.currentLayer);
    EXPECT_EQ(after.layers, drawing().layerSet);
    EXPECT_TRUE(after.columns.flags.equals(before.columns.flags));
    EXPECT_TRUE(after.columns.colors.equals(before.columns.colors));
    EXPECT_TRUE(after.columns.linetypes.equals(before.columns.linetypes));
    EXPECT_TRUE(after.columns.lineWeights.equals(before.columns.lineWeights));
    EXPECT_TRUE(after.columns.plotStyles.equals(before.columns.plotStyles));
}

TEST_F(StateFile, HasTheNamesOfColorsBehindTheirValues) {
    paintBase(L"Signal Blue", L"House \u00dcberzug");
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    EXPECT_THAT(read(), HasSubstr("\"layerStateFile\": 2,"));
    EXPECT_THAT(read(), HasSubstr("\"color\":[0,60,140],\"colorName\":\"Signal Blue\",\"colorBook\":"
                                  "\"House \xC3\x9C"
                                  "berzug\",\"linetype\""));
    EXPECT_THAT(read(), HasSubstr("\"color\":3,\"linetype\"")) << "the other layer";
    paintBase(L"Slate", nullptr);
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    EXPECT_THAT(read(), HasSubstr("\"color\":[0,60,140],\"colorName\":\"Slate\",\"linetype\""));
    paintBase(nullptr, L"House Paints");
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    EXPECT_THAT(read(), HasSubstr("\"color\":[0,60,140],\"colorBook\":\"House Paints\",\"linetype\""));
}

TEST_F(StateFile, BringsTheNamesOfColorsToAnotherDrawing) {
    const KelCmColor blue = paintBase(L"Signal Blue", L"House Paints");
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    zdr::Drawing other = makeDrawing();
    KelCmColor amber = blue;
    amber.setNames(L"Amber", nullptr);
    other.namedColors.intern(amber); // stands where the other drawing has the blue
    use(std::move(other));
    ASSERT_EQ(import(), Vorn::eOk);
    EXPECT_EQ(drawing().namedColors.color(drawing().states[0].columns.colors[0]), blue);
    EXPECT_EQ(drawing().states[0].columns.colors[1], 3u);
}

TEST_F(StateFile, WithOneThingWrongInANameOfAColorIsRefused) {
    paintBase(L"Signal Blue", L"House Paints");
    const std::pair<const char*, const char*> slips[] = {
        {"\"Signal Blue\"", "\"\""},
        {"\"Signal Blue\"", "\"Signal\\tBlue\""},
        {"\"Signal Blue\"", "\"Signal\\u0000Blue\""},
        {"\"Signal Blue\"", "5"},
        {"\"Signal Blue\"", "null"},
        {"\"House Paints\"", "\"\""},
        {"\"House Paints\"", "{}"},
        {"colorBook", "colorbook"},
        {"colorBook", "colorName"},
        {"[0,60,140],\"colorName\":\"Signal Blue\",", "5,"},
        {"[0,60,140]", "256"},
    };
    for (const auto& [piece, other] : slips) {
        EXPECT_EQ(importWith(piece, other), Vorn::eInvalidInput) << piece << " -> " << other;
        EXPECT_TRUE(stateNames().empty());
    }
    const std::string longest(255, 'x');
    EXPECT_EQ(importWith("Signal Blue", longest + "x"), Vorn::eInvalidInput);
    EXPECT_EQ(drawing().namedColors.size(), 1u) << "nothing of them comes into the drawing";
    EXPECT_EQ(importWith("Signal Blue", longest), Vorn::eOk);
}

TEST_F(StateFile, BringsViewportDataBack) {
    engine::setFrozenInViewport(m_database, viewport().handle, 1, true);
    states().saveLayerState(L"Plan", MaskAllProperties, viewportId());
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    states().deleteLayerState(L"Plan");
    ASSERT_EQ(import(), Vorn::eOk);
    EXPECT_TRUE(states().layerStateHasViewportData(L"Plan"));
    EXPECT_TRUE(matches(L"Plan", viewportId()));
}

TEST_F(StateFile, AnswersAClashWithTheNameInTheFile) {
    states().exportLayerState(L"Plan", path().c_str());
    states().renameLayerState(L"Plan", L"PLAN");
    std::string name;
    EXPECT_EQ(import(&name), Vorn::eDuplicateRecordName);
    EXPECT_EQ(name, "\"Plan\"");
    EXPECT_EQ(stateNames().size(), 1u);
}

TEST_F(StateFile, IsReplacedAsAWhole) {
    write("something else, much longer than any state would ever be in this test, so that a rest would show");
    ASSERT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eOk);
    EXPECT_TRUE(read().ends_with("  ]\n}\n"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder), {}), 1);
}

TEST_F(StateFile, AnswersFilesThatCannotBeReadOrWritten) {
    std::string name;
    EXPECT_EQ(import(&name), Vorn::eFileNotFound);
    EXPECT_EQ(name, "\"\"");
    KelString found;
    EXPECT_EQ(states().importLayerState(nullptr, found), Vorn::eFileNotFound);
    EXPECT_EQ(states().exportLayerState(L"Plan", path("no such folder/plan.las").c_str()), Vorn::eFileWriteFailed);
    EXPECT_EQ(states().exportLayerState(L"Plan", nullptr), Vorn::eInvalidInput);
    EXPECT_EQ(states().exportLayerState(L"Section", path().c_str()), Vorn::eKeyNotFound);
}

TEST_F(StateFile, LargerThanAnyIsRefusedUnread) {
    write("{");
    std::filesystem::resize_file(path(), (std::uintmax_t{1} << 28) + 1);
    EXPECT_EQ(import(), Vorn::eInvalidInput);
    EXPECT_THAT(zdr::toUtf8(engine::lastFileProblem(m_database)), HasSubstr("larger than a layer states file can be"));
}

TEST_F(StateFile, IsNotWrittenOfANameWithHalfACharacter) {
    use(makeDrawing({{L"Wall\xD800"}}));
    ASSERT_EQ(states().saveLayerState(L"Plan", MaskOn), Vorn::eOk);
    EXPECT_EQ(states().exportLayerState(L"Plan", path().c_str()), Vorn::eInvalidInput);
    EXPECT_THAT(zdr::toUtf8(engine::lastFileProblem(m_database)), HasSubstr("half a character"));
    EXPECT_FALSE(std::filesystem::exists(path()));
}

TEST_F(StateFile, MayHaveItsFieldsInAnyOrderAndLayout) {
    write("\xEF\xBB\xBF\r\n{\"layers\":[\t{\"plotStyle\":\"\",\"lineWeight\":-3,\"linetype\":\"\",\"color\" : [ 1 , 2 "
          ", 3 ],"
          "\"newViewportFrozen\":false,\"plot\":true,\"locked\":false,\"viewportFrozen\":true,\"frozen\":false,"
          "\"on\":true,\"n\\u0061me\":\"B\\u00e4u\"}],\"savedWithViewport\":true,\"currentLayer\":\"B\xC3\x84U\","
          "\"restores\":[\"color\" , \"\\u006fn\"],\"description\":\"\",\"name\":\"Odd\",\"layerStateFile\":1}\n\n");
    ASSERT_EQ(import(), Vorn::eOk) << zdr::toUtf8(engine::lastFileProblem(m_database));
    const zdr::LayerState& state = drawing().states.at(1);
    EXPECT_EQ(state.name, L"Odd");
    EXPECT_EQ(state.mask, MaskOn | MaskColor);
    EXPECT_EQ(drawing().names.text(state.currentLayer), L"B\u00e4u");
    EXPECT_EQ(state.currentLayer, state.layers->names.at(0));
    EXPECT_EQ(state.columns.flags[0], zdr::kLayerOn | zdr::kLayerPlot | zdr::kLayerViewportFrozen);
    EXPECT_EQ(state.columns.colors[0], 0xC2010203u);
}

TEST_F(StateFile, OfANewerVersionIsRefused) {
    EXPECT_EQ(importWith("\"layerStateFile\": 1", "\"layerStateFile\": 3, \"unheardOf\": true"), Vorn::eNewerVersion);
}

TEST_F(StateFile, ThatIsNoStateIsRefused) {
    for (const char* content : {"", "{", "[]", "null", "{}", "KZDR", "{\"layerStateFile\": 1}", "\xFF\xFE{\0}\0"}) {
        write(content);
        EXPECT_EQ(import(), Vorn::eInvalidInput) << content;
    }
}

TEST_F(StateFile, WithOneThingWrongIsRefused) {
    const std::pair<const char*, const char*> slips[] = {
        {"\"layerStateFile\": 1", "\"layerStateFile\": 0"},
        {"\"name\": \"Plan\"", "\"name\": 5"},
        {"\"name\": \"Plan\"", "\"name\": \"a!b\""},
        {"\"name\": \"Plan\"", "\"name\": \"\""},
        {"\"name\": \"Plan\"", "\"name\": \"Pl\\u0000an\""},
        {"\"name\": \"Plan\",", ""},
        {"\"description\"", "\"remark\""},
        {"\"description\": \"\\\"ground\\\"\"", "\"description\": null"},
        {"[\"on\",\"color\"]", "[\"on\",\"on\"]"},
        {"[\"on\",\"color\"]", "[\"on\",\"colour\"]"},
        {"[\"on\",\"color\"]", "[1]"},
        {"[\"on\",\"color\"]", "{}"},
        {"65536", "1"},
        {"65536", "4294967296"},
        {"65536", "0"},
        {"\"currentLayer\": \"Base\"", "\"currentLayer\": \"Roof\""},
        {"\"savedWithViewport\": false", "\"savedWithViewport\": 0"},
        {"\"on\":true", "\"on\":1"},
        {"\"on\":true,", ""},
        {"\"on\":true", "\"on\":true,\"on\":false"},
        {"\"name\": \"Plan\"", "\"name\": \"Plan\", \"name\": \"Section\""},
        {"\"on\":true", "\"onn\":true"},
        {"\"viewportFrozen\":false", "\"viewportFrozen\":true"}, // without viewport data
        {"[1,2,3]", "[1,2]"},
        {"[1,2,3]", "[1,2,256]"},
        {"[1,2,3]", "257"},
        {"[1,2,3]", "-1"},
        {"[1,2,3]", "1.5"},
        {"\"lineWeight\":35", "\"lineWeight\":36"},
        {"\"lineWeight\":35", "\"lineWeight\":\"35\""},
        {"\"name\":\"Base\"", "\"name\":\"\""},
        {"\"name\":\"Base\"", "\"name\":\"W\xC3\x84NDE\""}, // the other layer's name, in capitals
        {"\"linetype\":\"Dashed\"", "\"linetype\":5"},
        {"\"layers\": [", "\"layers\": 5, \"rows\": ["},
        {"\n  ]\n}\n", "\n  ]\n}\n}"},
    };
    for (const auto& [piece, other] : slips) {
        EXPECT_EQ(importWith(piece, other), Vorn::eInvalidInput) << piece << " -> " << other;
        EXPECT_TRUE(stateNames().empty());
    }
    EXPECT_EQ(importWith("\"layerStateFile\": 1", "\"layerStateFile\": 1"), Vorn::eOk);
}
