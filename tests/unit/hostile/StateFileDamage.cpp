#include "StateFileDamage.h"

#include "../files/TemporaryFolder.h"

#include "files/TextCoding.h"

#include <iterator>
#include <stdexcept>

namespace {

StateFileDamage content(std::string name, std::string text, std::string reason,
                        Vorn::ErrorStatus status = Vorn::eInvalidInput) {
    return {std::move(name), std::move(text), std::move(reason), status};
}

const std::string& goodText() {
    static const std::string text = [] {
        const std::vector<std::byte> bytes = bytesOf(zdr::widePath(TEST_DATA) + L"/state_version1.las");
        return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }();
    return text;
}

/// The good text with the first `piece` replaced.
std::string with(const std::string& piece, const std::string& other) {
    const std::size_t at = goodText().find(piece);
    if (at == std::string::npos)
        throw std::runtime_error(piece + " isn't in the file");
    return std::string(goodText()).replace(at, piece.size(), other);
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

std::string manyKeys() {
    std::string text = "{\"layerStateFile\": 1";
    for (int i = 0; i < 100'000; ++i)
        text += ",\"k" + std::to_string(i) + "\":0";
    return text + "}";
}

std::string megabyte() {
    return std::string(std::size_t{1} << 20, 'x');
}

/// Three layers for the list's end, whose names differ in case alone.
std::string sameLayers() {
    std::string layers;
    for (const char* name : {"again", "AGAIN", "Again"}) {
        layers += R"(,{"name":")";
        layers += name;
        layers += R"(","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,)"
                  R"("newViewportFrozen":false,"color":7,"linetype":"","lineWeight":-3,"plotStyle":""})";
    }
    return layers;
}

void append(std::vector<StateFileDamage>& all, std::vector<StateFileDamage> more) {
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::vector<StateFileDamage> strangers() {
    constexpr int veryDeep = 100'000;
    const std::string noText = "its text can't be understood from line 1, column 1 on";
    return {
        content("nothing", "", "is empty"),
        content("drawing", "\x10\0\0\0KZDR", noText),
        content("text16", std::string("\xFF\xFE{\0}\0", 6), noText),
        content("halfAByteOrderMark", "\xEF\xBB{}", "from line 1, column 3 on"),
        content("number", "7", "isn't a layer states file: it has no \"layerStateFile\""),
        content("otherObject", R"({"name": "Plan"})", "isn't a layer states file: it has no \"layerStateFile\""),
        content("list", "[{\"layerStateFile\": 1}]", "isn't a layer states file"),
        content("aHundredThousandLists", repeated("[", veryDeep), "deeper than a layer states file has them"),
        content("aHundredThousandClosedLists", repeated("[", veryDeep) + repeated("]", veryDeep),
                "lists and objects stand within each other"),
        content("aHundredThousandObjects", repeated("{\"a\":", veryDeep) + "1" + repeated("}", veryDeep),
                "lists and objects stand within each other"),
        content("depthInALayer", with("[255,128,0]", "[[[[255]]]]"), "lists and objects stand within each other"),
        content("aHundredThousandKeys", manyKeys(), "which this format doesn't know"),
        content("twoStates", goodText() + goodText(), "from line 15, column 1 on"),
        content("comment", with("{\n", "{ // mine\n"), "from line 1, column 3 on"),
        content("commaTooMany", with("}\n  ]", "},\n  ]"), "from line 13, column 3 on"),
        content("notUtf8", with("Gro\xC3\x9F", "Gro\xFF\xFF"), "from line 3, column 15 on"),
        content("byteOrderMarkTwice", "\xEF\xBB\xBF\xEF\xBB\xBF{}", "from line 1, column 4 on"),
        content("zeroBehindTheEnd", goodText() + std::string(1, '\0'), "from line 15, column 1 on"),
        content("listClosedAsAnObject", with("\n  ]", "\n  }"), "from line 13, column 3 on"),
        content("twoLayersWithoutAComma", with("},\n", "}\n"), "from line 11, column 5 on"),
        content("memberWithoutAColon", with("\"name\": ", "\"name\" "), "from line 3, column 16 on"),
        content("keyWithoutQuotes", with("\"name\": ", "name: "), "from line 3, column 4 on"),
        content("commaBehindTheLastMember", with("\"\"}", "\"\",}"), "from line 11, column "),
        content("textInSingleQuotes", with("\"Base\"", "'Base'"), "from line 10, column 13 on"),
        content("lineEndInAText", with("Gro\xC3\x9F", "Gro\n\xC3\x9F"), "from line 3, column 15 on"),
        content("overlongCharacter", with("Gro\xC3\x9F", "Gro\xC1\x9F"), "from line 3, column 15 on"),
        content("halfAPairInUtf8", with("Gro\xC3\x9F", "Gro\xED\xA0\x80"), "from line 3, column 16 on"),
        content("lowHalfAlone", with("Gro\xC3\x9F", "\\uDE00"), "from line 3, column 17 on"),
        content("numberWithALeadingZero", with("Weight\":25", "Weight\":025"), "from line 11, column "),
        content("cutOffBehindAWrongLayer", with("\"color\":1", "\"color\":[]").substr(0, 500),
                "or is cut off: its text"),
    };
}

std::vector<StateFileDamage> falseHeaders() {
    return {
        content("newerVersion", with("File\": 1", "File\": 3, \"unheardOf\": true"),
                "written by a newer version of this program: its format is 3", Vorn::eNewerVersion),
        content("versionZero", with("File\": 1", "File\": 0"), "\"layerStateFile\" that isn't a whole number from 1"),
        content("versionAsText", with("File\": 1", "File\": \"1\""), "\"layerStateFile\" that isn't a whole number"),
        content("unknownField", with("\"savedWith", "\"owner\": 1, \"savedWith"),
                "the layer state has a \"owner\", which this format doesn't know"),
        content("noDescription", with("  \"description\": \"line one\\nline \\\"two\\\"\",\n", ""),
                "the layer state has no \"description\""),
        content("nameTwice", with("\"name\": \"Gro\xC3\x9F\"", "\"name\": \"A\", \"name\": \"B\""),
                "it has two values of \"name\" in one place"),
        content("numberAsName", with("\"Gro\xC3\x9F\"", "5"), "the layer state has a \"name\" that isn't a text"),
        content("emptyName", with("Gro\xC3\x9F", ""), "\"name\" that isn't allowed"),
        content("controlCharacterInTheName", with("Gro\xC3\x9F", "a\\u001Fb"), "\"name\" that isn't allowed"),
        content("zeroInTheName", with("Gro\xC3\x9F", "a\\u0000b"), "\"name\" that holds characters that no text has"),
        content("nameOfAReference", with("Gro\xC3\x9F", "plan!Gro"), "\"name\" that isn't allowed: \"plan!Gro\""),
        content("hiddenName", with("Gro\xC3\x9F", "*Gro"), "\"name\" that isn't allowed: \"*Gro\""),
        content("colonInTheName", with("Gro\xC3\x9F", "a:b"), "\"name\" that isn't allowed: \"a:b\""),
        content("nameTooLong", with("Gro\xC3\x9F", std::string(256, 'x')), "\"name\" that isn't allowed",
                Vorn::eNameTooLong),
        content("halfACharacter", with("Gro\xC3\x9F", "\\uD83D"), "from line 3, column "),
        content("maskTwice", with("[\"on\",", "[\"on\",\"on\","), "\"restores\" that lists \"on\" twice"),
        content("maskOfNothing", with("[\"on\",", "[\"shade\","), "lists something that is no property of layers"),
        content("maskOfNumbers", with("[\"on\",", "[1,"), "lists something that is no property of layers"),
        content("furtherBitsBeyond32", with("65536", "4294967296"), "\"furtherMaskBits\" that isn't a whole number"),
        content("furtherBitsOfProperties", with("65536", "65537"), "\"furtherMaskBits\" that holds bits of the prop"),
        content("newerVersionBehindAllElse",
                R"({"name":5,"layers":[7],"unheardOf":{"a":[1],"a":[]},"layerStateFile":2147483647})",
                "written by a newer version of this program: its format is 2147483647", Vorn::eNewerVersion),
        content("versionBeyond31Bits", with("File\": 1", "File\": 2147483648"),
                "\"layerStateFile\" that isn't a whole number from 1 to 2147483647"),
        content("versionTwice", with("File\": 1", "File\": 1, \"layerStateFile\": 3"),
                "it has two values of \"layerStateFile\" in one place"),
        content("nameTwiceOnceInEscapes", with("\"name\": ", "\"n\\u0061me\": \"A\", \"name\": "),
                "it has two values of \"name\" in one place"),
        content("unknownFieldOfAMegabyte", with("\"savedWith", "\"" + megabyte() + "\": 1, \"savedWith"),
                "the layer state has a \"...\", which this format doesn't know"),
        content("nameOfAMegabyte", with("Gro\xC3\x9F", megabyte()),
                "\"name\" that isn't allowed: it has more than 255 characters", Vorn::eNameTooLong),
        content("zeroInTheDescription", with("line one", "\\\\\\u0000"),
                "\"description\" that holds characters that no text has"),
        content("currentLayerAsNumber", with("Layer\": \"A-WALL\"", "Layer\": 2"),
                "\"currentLayer\" that isn't a text"),
        content("emptyCurrentLayer", with("Layer\": \"A-WALL\"", "Layer\": \"\""),
                "\"currentLayer\" that is none of its layers"),
        content("currentLayerOfAMegabyte", with("Layer\": \"A-WALL\"", "Layer\": \"" + megabyte() + "\""),
                "\"currentLayer\" that is none of its layers"),
        content("maskOfLists", with("[\"on\",", "[[\"on\"],"), "lists something that is no property of layers"),
        content("unknownCurrentLayer", with("Layer\": \"A-WALL\"", "Layer\": \"Roof\""),
                "\"currentLayer\" that is none of its layers"),
    };
}

std::vector<StateFileDamage> falseLayers() {
    return {
        content("layersAsObject", with("\"layers\": [", "\"layers\": {}, \"more\": ["),
                "which this format doesn't know"),
        content("layersAsNumber",
                R"({"layerStateFile":1,"name":"A","description":"","restores":[],)"
                R"("savedWithViewport":false,"layers":1000000000})",
                "the layer state has a \"layers\" that isn't a list"),
        content("layerAsNumber", with("\"layers\": [", "\"layers\": [7,"), "layer 1 isn't an object"),
        content("layerTwice", with("\"name\":\"A-WALL\"", "\"name\":\"BASE\""),
                "layer 2 (\"Base\") has the name of layer 1"),
        content("layersTwice", with("\"layers\": [", "\"layers\": [], \"layers\": ["),
                "it has two values of \"layers\" in one place"),
        content("layerWithoutAName", with("{\"name\":\"Base\",", "{"), "layer 1 has no \"name\""),
        content("layerWithAnEmptyName", with("{\"name\":\"Base\"", "{\"name\":\"\""),
                "layer 1 has no name, in \"name\""),
        content("layerWithAnUnknownField", with("\"locked\":true", "\"locked\":true,\"lokced\":true"),
                "layer 2 has a \"lokced\", which this format doesn't know"),
        content("flagTwice", with("\"locked\":true", "\"locked\":true,\"locked\":true"),
                "it has two values of \"locked\" in one place"),
        content("layerOfManyThatHaveOneName", with("\n  ]", sameLayers() + "\n  ]"),
                "layer 5 (\"again\") has the name of layer 4"),
        content("layerNameOfAMegabyte", with("\"name\":\"A-WALL\"", "\"name\":\"" + megabyte() + "\""),
                "layer 2 has a \"name\" that has more than 8192 characters"),
        content("flagAsText", with("\"locked\":true", "\"locked\":\"true\""),
                "layer 2 (\"A-WALL\") has a \"locked\" that is neither true nor false"),
        content("colorOfTexts", with("[255,128,0]", "[\"255\",128,0]"), "has a \"color\" that is neither"),
        content("colorOfNone", with("[255,128,0]", "[]"), "has a \"color\" that is neither"),
        content("layerWithoutColor", with("\"color\":1,", ""), "layer 1 (\"Base\") has no \"color\""),
        content("layerWithAControlCharacter", with("\"name\":\"A-WALL\"", "\"name\":\"A\\nWALL\""),
                "layer 2 has a control character in its name, in \"name\""),
        content("layerNameTooLong", with("\"name\":\"A-WALL\"", "\"name\":\"" + std::string(9000, 'x') + "\""),
                "layer 2 has a name of 9000 characters; names have at most 8192"),
        content("linetypeWithAControlCharacter", with("\"Dashed\"", "\"Da\\tshed\""),
                "layer 2 (\"A-WALL\") has a control character in its name, in \"linetype\""),
        content("plotStyleAsList", with("\"plotStyle\":\"\"", "\"plotStyle\":[]"),
                "layer 2 (\"A-WALL\") has a \"plotStyle\" that isn't a text"),
        content("flagAsNumber", with("\"locked\":true", "\"locked\":1"),
                "layer 2 (\"A-WALL\") has a \"locked\" that is neither true nor false"),
        content("colorAsText", with("[255,128,0]", "\"red\""), "layer 2 (\"A-WALL\") has a \"color\" that is neither"),
        content("colorOfTwo", with("[255,128,0]", "[255,128]"), "has a \"color\" that is neither"),
        content("colorOfFour", with("[255,128,0]", "[255,128,0,9]"), "has a \"color\" that is neither"),
        content("colorBeyond", with("[255,128,0]", "[256,128,0]"), "has a \"color\" that is neither"),
        content("colorBelow", with("[255,128,0]", "-1"), "has a \"color\" that is neither"),
        content("colorOf64Bits", with("[255,128,0]", "18446744073709551615"), "has a \"color\" that is neither"),
        content("lineWeightBetween", with("\"lineWeight\":25", "\"lineWeight\":36"),
                "layer 2 (\"A-WALL\") has a \"lineWeight\" that isn't a lineweight: 36"),
        content("lineWeightOf64Bits", with("\"lineWeight\":25", "\"lineWeight\":18446744073709551615"),
                "\"lineWeight\" that isn't a whole number from -3 to 211"),
        content("lineWeightWithAFraction", with("\"lineWeight\":25", "\"lineWeight\":25.5"),
                "\"lineWeight\" that isn't a whole number"),
        content("lineWeightBeyondEveryNumber", with("\"lineWeight\":25", "\"lineWeight\":1e999"),
                "layer 2 (\"A-WALL\") has a \"lineWeight\" that isn't a whole number from -3 to 211"),
        content("lineWeightThatIsNoNumber", with("\"lineWeight\":25", "\"lineWeight\":NaN"), "from line 11, column "),
        content("viewportWithoutOne", with("Viewport\": true", "Viewport\": false"),
                "layer 3 (\"plan!A-WALL\") is frozen in a viewport, but the state was saved without one"),
    };
}

} // namespace

std::string goodStateFile() {
    return goodText();
}

std::vector<StateFileDamage> damagedStateFiles() {
    std::vector<StateFileDamage> all = strangers();
    append(all, falseHeaders());
    append(all, falseLayers());
    return all;
}

std::vector<StateFileDamage> cutStateFiles() {
    std::vector<StateFileDamage> cuts;
    const std::size_t end = goodText().rfind('}');
    for (std::size_t at = 1; at < end; at = goodText().find_first_of("\n{}[]", at) + 1)
        cuts.push_back(
            content("at" + std::to_string(at), goodText().substr(0, at), "or is cut off: its text can't be"));
    return cuts;
}
