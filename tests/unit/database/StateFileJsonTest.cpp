// What is JSON, and where a text stops being JSON: the reader of layer states files beside a library. Only natively,
// where the tests see the reader without a file.
#include "JsonByLibrary.h"
#include "Tally.h"
#include "files/TextCoding.h"
#include "statefile/StateFile.h"

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>

#include <fstream>
#include <random>

using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* kNoJson = "its text can't be understood from ";

struct Answer {
    Vorn::ErrorStatus status;
    std::string cause;
    zdr::LayerState state;
};

Answer parse(std::string_view text) {
    Answer answer;
    zdr::ColumnTables tables;
    std::wstring cause;
    answer.status = engine::parseState(text, tables, answer.state, cause);
    answer.cause = zdr::toUtf8(cause);
    return answer;
}

Tally g_compared("layer states files, most of them damaged, were read as by the library");

/// Expects both to find the same place, or none. Answers whether they could be compared: the reader refuses depth, too.
bool expectAsByLibrary(const std::string& text) {
    const Answer answer = parse(text);
    const JsonReading library = readByLibrary(text);
    if (library.verdict == JsonVerdict::NotCompared || text.empty() ||
        answer.cause.find("stand within each other") != std::string::npos)
        return false;
    if (library.verdict == JsonVerdict::Bad)
        EXPECT_THAT(answer.cause, HasSubstr(kNoJson + library.place + " on")) << text;
    else
        EXPECT_THAT(answer.cause, Not(HasSubstr(kNoJson))) << text;
    g_compared.add(1);
    return true;
}

/// A file with texts, numbers and blanks in all their forms.
const std::string kGood = "\xEF\xBB\xBF{\r\n"
                          R"(  "layerStateFile": 1, "n\u0061me" : "\u00C4 \ud83D\uDE00 \" \\ \/ \b\f\n\r\t",)"
                          "\n\t\"description\": \"\xC3\x9F \xE2\x82\xAC \xED\x9F\xBF \xF0\x9F\x98\x80 \x7F\",\n"
                          R"("restores": [ "on","color" ], "furtherMaskBits": 65536, "currentLayer": "A",
  "savedWithViewport": false,
  "layers": [
    {"name":"A","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,)"
                          R"("color":[1,2,255],"linetype":"","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"B","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,)"
                          R"("color":0,"linetype":"","lineWeight":0,"plotStyle":"Normal"}]})";

std::string withDescription(const std::string& text) {
    return R"({"layerStateFile":1,"name":"A","restores":[],"savedWithViewport":false,"layers":[],"description":)" +
           text + "}";
}

} // namespace

TEST(StateFileJson, TheTextThatTheseTestsDamageIsGood) {
    const Answer answer = parse(kGood);
    EXPECT_EQ(answer.status, Vorn::eOk) << answer.cause;
    EXPECT_EQ(zdr::toUtf8(answer.state.name), "\xC3\x84 \xF0\x9F\x98\x80 \" \\ / \b\f\n\r\t");
    EXPECT_EQ(readByLibrary(kGood).verdict, JsonVerdict::Good);
}

TEST(StateFileJson, EachCutIsFoundWhereALibraryFindsIt) {
    for (std::size_t size = 1; size < kGood.size(); ++size)
        EXPECT_TRUE(expectAsByLibrary(kGood.substr(0, size)));
}

TEST(StateFileJson, EachByteLeftOutIsFoundWhereALibraryFindsIt) {
    for (std::size_t at = 0; at < kGood.size(); ++at)
        EXPECT_TRUE(expectAsByLibrary(std::string(kGood).erase(at, 1)));
}

TEST(StateFileJson, EachByteReplacedOrPutInIsFoundWhereALibraryFindsIt) {
    const std::string bytes = std::string("{}[]:,\"\\/ \t\n\x01\x1F\x7F"
                                          "0159-+.eEuntfabAFx") +
                              "\x80\x9F\xA0\xBF\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xFF";
    // Each place gets some of the bytes; all of them everywhere would take a minute.
    constexpr std::size_t kBytesAPlace = 3;
    std::size_t compared = 0, byte = 0;
    for (std::size_t at = 0; at < kGood.size(); ++at)
        for (std::size_t count = 0; count < kBytesAPlace; ++count, byte = (byte + 1) % bytes.size()) {
            std::string text = kGood;
            text[at] = bytes[byte];
            compared += expectAsByLibrary(text);
            compared += expectAsByLibrary(std::string(kGood).insert(at, 1, bytes[byte]));
        }
    EXPECT_GT(compared, kGood.size() * kBytesAPlace * 19 / 10);
}

TEST(StateFileJson, EachFormOfAValueIsOneWhereItIsOneForALibrary) {
    for (const char* value : {"0",
                              "-0",
                              "00",
                              "01",
                              "-",
                              "-a",
                              "1.",
                              "1.5",
                              ".5",
                              "1e5",
                              "1E+5",
                              "1e-05",
                              "1e",
                              "1e+",
                              "1.e5",
                              "+1",
                              "0x10",
                              "1 2",
                              "tru",
                              "trues",
                              "nulll",
                              "True",
                              "nan",
                              "[]",
                              "[1,]",
                              "[,1]",
                              "[1 2]",
                              "[1",
                              "]",
                              "{}",
                              "{\"a\"}",
                              "{\"a\":}",
                              "{\"a\":1,}",
                              "{,}",
                              "{1:2}",
                              "{\"a\":1 2}",
                              "'a'",
                              "\"\\u12G4\"",
                              "\"\\uD800\"",
                              "\"\\uDC00\"",
                              "\"\\x\"",
                              "\"\\uD800\\n\"",
                              "\"\\uD800\\uD800\"",
                              "\"\\U0041\"",
                              "\"\t\"",
                              "\"\xED\xA0\x80\"",
                              "\"\xC0\x80\"",
                              "\"\xF4\x90\x80\x80\"",
                              "//",
                              "",
                              "1}{",
                              "\xC2\xA0"
                              "1",
                              "\"a\"\"b\"",
                              "18446744073709551616"})
        EXPECT_TRUE(expectAsByLibrary(withDescription(value))) << value;
}

TEST(StateFileJson, ATextIsWhatALibraryMakesOfIt) {
    for (const char* text : {R"("")", R"("\u0041\u00e9\u20AC")", R"("a\ud83d\ude00\ud83D\uDe01b")", R"("\\u0041\/")",
                             R"("\"\b\f\n\r\t\u001f\u007F")", "\"\xC3\xA9\xF0\x9F\x98\x80\\n\xE2\x82\xAC\""}) {
        const Answer answer = parse(withDescription(text));
        EXPECT_EQ(answer.status, Vorn::eOk) << answer.cause;
        EXPECT_EQ(zdr::toUtf8(answer.state.description), nlohmann::json::parse(text).get<std::string>());
    }
}

TEST(StateFileJson, WhatIsWrittenIsWhatALibraryWouldWrite) {
    std::mt19937 random(17);
    std::uniform_int_distribution<int> codes(1, 0x2FFF), lengths(0, 40), low(0, 1);
    for (int round = 0; round < 500; ++round) {
        std::wstring description;
        for (int length = lengths(random); length > 0; --length)
            description.push_back(static_cast<wchar_t>(low(random) ? codes(random) % 0x90 + 1 : codes(random)));
        description += L"\xD83D\xDE00";
        zdr::LayerState state;
        state.name = L"A";
        state.description = description;
        state.layers = std::make_shared<zdr::LayerSet>();
        const std::string text = engine::stateText(state, {});
        const std::string line = "\n  \"description\": " + nlohmann::json(zdr::toUtf8(description)).dump() + ",\n";
        ASSERT_THAT(text, HasSubstr(line));
        EXPECT_EQ(parse(text).state.description, *zdr::fromUtf8(zdr::toUtf8(description)));
    }
}
