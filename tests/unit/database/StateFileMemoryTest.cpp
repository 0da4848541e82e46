// A layer states file that is refused takes at most four times its own size of memory, however it is made. Only
// natively, where the program's allocations can be measured.
#include "EngineTest.h"
#include "FailingAllocation.h"
#include "TemporaryFolder.h"
#include "files/TextCoding.h"

#include <functional>

using testing::HasSubstr;

namespace {

constexpr std::size_t kSize = std::size_t{1} << 18;

struct Bomb {
    const char* name;
    std::function<std::string()> text;
    const char* reason;
    Vorn::ErrorStatus status = Vorn::eInvalidInput;
};

void PrintTo(const Bomb& bomb, std::ostream* out) {
    *out << bomb.name;
}

/// A file of about kSize bytes: what stands before, as many pieces as there is room for, and what stands behind.
std::string filled(const std::string& before, const std::function<std::string(int)>& piece, const std::string& behind) {
    std::string text = before;
    for (int count = 0; text.size() < kSize; ++count)
        text += piece(count);
    return text + behind;
}

std::string repeated(const std::string& before, const std::string& piece, const std::string& behind) {
    std::string text = before;
    while (text.size() < kSize)
        text += piece;
    return text + behind;
}

const std::string kHeader = R"({"layerStateFile":1,"description":"","restores":[],"savedWithViewport":false)";
const std::string kNamed = kHeader + R"(,"name":"A")";
const std::string kLayers = kNamed + R"(,"layers":[)";

std::string layer(const std::string& name, const std::string& color, const std::string& linetype,
                  const std::string& plotStyle) {
    return R"({"name":")" + name +
           R"(","on":true,"frozen":true,"viewportFrozen":false,"locked":true,"plot":true,"newViewportFrozen":true,"color":)" +
           color + R"(,"linetype":")" + linetype + R"(","lineWeight":0,"plotStyle":")" + plotStyle + "\"}";
}

/// Layers up to the size, and then one that has the name of the first one.
std::string layersUpToATwin(const std::function<std::string(int)>& piece) {
    return filled(
        kLayers, [&](int count) { return piece(count) + ","; }, piece(0) + "]}");
}

std::string numbered(int number, std::size_t length, char filling = 'x') {
    std::string name = std::to_string(number);
    return std::string(length - std::min(length, name.size()), filling) + name;
}

std::string trueColor(int number) {
    return "[1,2,3],\"colorName\":\"" + numbered(number, 255) + "\",\"colorBook\":\"" + numbered(number, 255, 'y') +
           '"';
}

std::vector<Bomb> bombs() {
    const char* const twin = "has the name of layer 1";
    const char* const notAllowed = "\"name\" that isn't allowed";
    return {
        {"aName", [] { return repeated(kHeader + R"(,"layers":[],"name":")", "x", "\"}"); }, notAllowed,
         Vorn::eNameTooLong},
        {"aNameOfEscapes", [] { return repeated(kHeader + R"(,"layers":[],"name":")", "\\u0041", "\"}"); }, notAllowed,
         Vorn::eNameTooLong},
        {"aDescription", [] { return repeated(kNamed + R"(,"layers":[],"more":")", "x", R"(","description":""})"); },
         "\"more\", which this format doesn't know"},
        {"aDescriptionInAFileThatLacksOneThing",
         [] {
             return repeated(R"({"layerStateFile":1,"name":"A","layers":[],"restores":[],"description":")", "\xC3\xA4",
                             "\"}");
         },
         "has no \"savedWithViewport\""},
        {"aTextThatDoesNotEnd", [] { return repeated("{\"", "x", ""); }, "line 1, column "},
        {"aKey", [] { return repeated("{\"layerStateFile\":1,\"", "x", "\":1}"); }, "which this format doesn't know"},
        {"aNumber", [] { return repeated("{\"layerStateFile\":", "9", "}"); }, "isn't a whole number from 1"},
        {"keys",
         [] {
             return filled(
                 kNamed, [](int count) { return ",\"" + std::to_string(count) + "\":0"; }, "}");
         },
         "which this format doesn't know"},
        {"oneKeyForever", [] { return repeated(kNamed, ",\"\":0", "}"); }, "which this format doesn't know"},
        {"lists", [] { return repeated(kNamed + ",\"layers\":[[]", ",[]", "]}"); }, "layer 1 isn't an object"},
        {"numbers", [] { return repeated("[0", ",0", "]"); }, "it has no \"layerStateFile\""},
        {"blanks", [] { return repeated("{", " \n", "]"); }, "its text can't be understood from line "},
        {"properties", [] { return repeated(R"({"layerStateFile":1,"restores":["on")", ",\"on\"", "]}"); },
         "has no \"name\""},
        {"propertiesTwice",
         [] {
             return repeated(R"({"layerStateFile":1,"name":"A","description":"","restores":["on")", ",\"on\"", "]}");
         },
         "lists \"on\" twice"},
        {"channels",
         [] {
             return kLayers + repeated(R"({"name":"A","on":true,"frozen":true,"viewportFrozen":false,"locked":true,)"
                                       R"("plot":true,"newViewportFrozen":true,"color":[1)",
                                       ",1", "]}]}");
         },
         "has a \"color\" that is neither"},
        {"shortLayers", [] { return layersUpToATwin([](int n) { return layer(std::to_string(n), "1", "", ""); }); },
         twin},
        {"layersWithLongNames",
         [] { return layersUpToATwin([](int n) { return layer(numbered(n, 8000), "1", "", ""); }); }, twin},
        {"layersWithLongStyles",
         [] {
             return layersUpToATwin(
                 [](int n) { return layer(std::to_string(n), "1", numbered(n, 8000), numbered(n, 8000, 'y')); });
         },
         twin},
        {"layersWithNamesThatAreLongAndOneTooLong",
         [] {
             return filled(
                 kLayers, [](int n) { return layer(numbered(n, 8000), "1", "", "") + ","; },
                 layer(std::string(9000, 'x'), "1", "", "") + "]}");
         },
         "has a name of 9000 characters"},
        {"aLayerName", [] { return repeated(kLayers + "{\"name\":\"", "x", "\"}]}"); },
         "has a \"name\" that has more than 8192 characters"},
        {"layersWithColors",
         [] { return layersUpToATwin([](int n) { return layer(std::to_string(n), trueColor(n), "", ""); }); }, twin},
        {"aColorName",
         [] {
             return repeated(kLayers + R"({"name":"A","on":true,"frozen":true,"viewportFrozen":false,"locked":true,)"
                                       R"("plot":true,"newViewportFrozen":true,"color":[1,2,3],"colorName":")",
                             "x", "\"}]}");
         },
         "has a \"colorName\" that is empty, too long"},
        {"aCurrentLayer", [] { return repeated(kLayers + R"(],"currentLayer":")", "x", "\"}"); },
         "\"currentLayer\" that is none of its layers"},
        {"aNewerVersion", [] { return repeated(R"({"layerStateFile":3,"later":[1)", ",1", "]}"); },
         "was written by a newer version", Vorn::eNewerVersion},
        {"aStateThatTheDrawingHas",
         [] {
             return filled(
                 kHeader + R"(,"name":"plan","layers":[)",
                 [](int n) { return layer(std::to_string(n), trueColor(n), "", "") + ","; },
                 layer("last", "1", "", "") + "]}");
         },
         "the drawing has one of that name", Vorn::eDuplicateRecordName},
    };
}

class StateFileMemory : public EngineTest, public testing::WithParamInterface<Bomb> {
  protected:
    StateFileMemory() { states().saveLayerState(L"Plan", MaskOn); }
    const TemporaryFolder m_folder;
};

std::string bombName(const testing::TestParamInfo<Bomb>& info) {
    return info.param.name;
}

} // namespace

TEST_P(StateFileMemory, isFourTimesTheSizeOfARefusedFileAtMost) {
    const std::wstring path = m_folder.file(L"bomb.las");
    std::size_t size = 0;
    {
        const std::string text = GetParam().text();
        size = text.size();
        writeBytes(path, std::as_bytes(std::span(text)));
    }
    ASSERT_GE(size, kSize);
    Vorn::ErrorStatus status = Vorn::eOk;
    std::size_t peak = 0;
    {
        KelString name;
        const PeakMemory memory;
        status = states().importLayerState(path.c_str(), name);
        peak = memory.bytes();
    }
    EXPECT_EQ(status, GetParam().status);
    EXPECT_THAT(zdr::toUtf8(engine::lastFileProblem(m_database)), HasSubstr(GetParam().reason));
    EXPECT_LT(engine::lastFileProblem(m_database).size(), 10'000u);
    EXPECT_GE(peak, size) << "the file's own bytes count";
    EXPECT_LE(peak, 4 * size);
}

INSTANTIATE_TEST_SUITE_P(Bombs, StateFileMemory, testing::ValuesIn(bombs()), bombName);
