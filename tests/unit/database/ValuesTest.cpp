// The host's value types and its rules for names: colours, handles, chains, texts, numbers.

#include "EngineTest.h"
#include "values/NameRules.h"

#include <set>

TEST(Color, BeginsAsTheForeground) {
    EXPECT_EQ(KelCmColor().colorIndex(), 7);
    EXPECT_TRUE(KelCmColor().isByPCI());
}

TEST(Color, TakesIndicesUpToByLayer) {
    KelCmColor color;
    EXPECT_EQ(color.setColorIndex(256), Vorn::eOk);
    EXPECT_EQ(color.setColorIndex(257), Vorn::eInvalidInput);
    EXPECT_EQ(color.colorIndex(), 256);
    EXPECT_EQ(color.setColorIndex(0), Vorn::eOk);
    EXPECT_EQ(color.colorIndex(), 0);
}

TEST(Color, ATrueColourKnowsItsComponentsAndTheNearestIndex) {
    KelCmColor color;
    color.setRGB(250, 4, 3);
    EXPECT_FALSE(color.isByPCI());
    EXPECT_EQ(color.red(), 250);
    EXPECT_EQ(color.green(), 4);
    EXPECT_EQ(color.blue(), 3);
    EXPECT_EQ(color.colorIndex(), 1);
}

TEST(Color, AnIndexKnowsItsComponents) {
    KelCmColor color;
    color.setColorIndex(2);
    EXPECT_EQ(color.red(), 255);
    EXPECT_EQ(color.green(), 255);
    EXPECT_EQ(color.blue(), 0);
}

TEST(Color, IsEqualByValueAndSurvivesPacking) {
    KelCmColor a, b;
    a.setRGB(1, 2, 3);
    EXPECT_NE(a, b);
    EXPECT_EQ(a, KelCmColor::fromPacked(a.packed()));
    EXPECT_EQ(b, KelCmColor::fromPacked(7));
    EXPECT_EQ(KelCmColor::fromPacked(0x12345678), KelCmColor()); // no colour at all
    b = a;
    EXPECT_EQ(a, b);
}

TEST(Color, IsNamedForACell) {
    KelCmColor color;
    const auto name = [&color](unsigned short index) {
        color.setColorIndex(index);
        return std::wstring(color.colorNameForDisplay());
    };
    EXPECT_EQ(name(0), L"ByBlock");
    EXPECT_EQ(name(1), L"Red");
    EXPECT_EQ(name(7), L"White");
    EXPECT_EQ(name(8), L"8");
    EXPECT_EQ(name(256), L"ByLayer");
    color.setRGB(1, 20, 255);
    EXPECT_STREQ(color.colorNameForDisplay(), L"1,20,255");
}

namespace {

KelCmColor signalBlue() {
    KelCmColor color;
    color.setRGB(0, 60, 140);
    EXPECT_EQ(color.setNames(L"Signal Blue", L"House Paints"), Vorn::eOk);
    return color;
}

} // namespace

TEST(ColorNames, StandBesideTheValue) {
    const KelCmColor color = signalBlue();
    EXPECT_TRUE(color.hasColorName());
    EXPECT_TRUE(color.hasBookName());
    EXPECT_STREQ(color.colorName(), L"Signal Blue");
    EXPECT_STREQ(color.bookName(), L"House Paints");
    EXPECT_EQ(color.packed(), 0xC2003C8Cu);
    EXPECT_FALSE(color.isByPCI());
    EXPECT_EQ(color.green(), 60);
}

TEST(ColorNames, AreThereOneByOne) {
    KelCmColor color = signalBlue();
    EXPECT_EQ(color.setNames(L"Signal Blue", nullptr), Vorn::eOk);
    EXPECT_TRUE(color.hasColorName());
    EXPECT_FALSE(color.hasBookName());
    EXPECT_STREQ(color.bookName(), L"");
    EXPECT_EQ(color.setNames(L"", L"House Paints"), Vorn::eOk);
    EXPECT_FALSE(color.hasColorName());
    EXPECT_TRUE(color.hasBookName());
    EXPECT_EQ(color.setNames(nullptr, L""), Vorn::eOk);
    EXPECT_EQ(color, KelCmColor::fromPacked(color.packed()));
}

TEST(ColorNames, CountInEqualityWithTheirCase) {
    KelCmColor other = signalBlue();
    EXPECT_EQ(other, signalBlue());
    for (const auto& [name, book] : {std::pair(L"Signal blue", L"House Paints"), std::pair(L"Signal Blue", L""),
                                     std::pair(L"Signal Blue", L"House paints"), std::pair(L"", L"House Paints"),
                                     std::pair(L"House Paints", L"Signal Blue"), std::pair(L"", L"")}) {
        EXPECT_EQ(other.setNames(name, book), Vorn::eOk);
        EXPECT_NE(other, signalBlue());
        EXPECT_NE(signalBlue(), other);
    }
    other = KelCmColor::fromPacked(0xC2003C8D);
    other.setNames(L"Signal Blue", L"House Paints");
    EXPECT_NE(other, signalBlue());
}

TEST(ColorNames, GoWithCopiesAndStayWithThem) {
    KelCmColor color = signalBlue();
    const KelCmColor copy = color;
    color.setNames(L"Amber", nullptr);
    EXPECT_EQ(copy, signalBlue());
    color = copy;
    EXPECT_EQ(color, signalBlue());
    EXPECT_EQ(color.setNames(color.bookName(), color.colorName()), Vorn::eOk);
    EXPECT_STREQ(color.colorName(), L"House Paints");
}

TEST(ColorNames, EndWithTheValueThatTheyWereOf) {
    KelCmColor color = signalBlue();
    color.setRGB(0, 60, 140);
    EXPECT_FALSE(color.hasColorName() || color.hasBookName());
    color = signalBlue();
    EXPECT_EQ(color.setColorIndex(257), Vorn::eInvalidInput);
    EXPECT_EQ(color, signalBlue());
    EXPECT_EQ(color.setColorIndex(5), Vorn::eOk);
    EXPECT_EQ(color, KelCmColor::fromPacked(5));
}

TEST(ColorNames, AreRefusedWhereTheyCannotBe) {
    KelCmColor palette;
    EXPECT_EQ(palette.setNames(L"Amber", nullptr), Vorn::eInvalidInput);
    EXPECT_EQ(palette, KelCmColor());
    KelCmColor color = signalBlue();
    const std::wstring longest(255, L'x'), pairs = longest + L"x";
    for (const wchar_t* wrong : {L"a\tb", L"\x7f", L"\x85"}) {
        EXPECT_EQ(color.setNames(wrong, nullptr), Vorn::eInvalidInput);
        EXPECT_EQ(color.setNames(nullptr, wrong), Vorn::eInvalidInput);
    }
    EXPECT_EQ(color.setNames(pairs.c_str(), nullptr), Vorn::eNameTooLong);
    EXPECT_EQ(color.setNames(nullptr, pairs.c_str()), Vorn::eNameTooLong);
    EXPECT_EQ(color, signalBlue());
    EXPECT_EQ(color.setNames(longest.c_str(), L"5/8 <blue> ! |*"), Vorn::eOk);
    EXPECT_EQ(color.colorName(), longest);
}

TEST(ColorNames, AreShownWithTheBookBehindThem) {
    KelCmColor color = signalBlue();
    EXPECT_STREQ(color.colorNameForDisplay(), L"Signal Blue (House Paints)");
    color.setNames(L"Signal Blue", nullptr);
    EXPECT_STREQ(color.colorNameForDisplay(), L"Signal Blue");
    color.setNames(nullptr, L"House Paints");
    EXPECT_STREQ(color.colorNameForDisplay(), L"0,60,140 (House Paints)");
}

TEST(ColorNames, AreToldByTheTrace) {
    KelCmColor color = signalBlue();
    EXPECT_EQ(instruments::describe(color), "rgb 0,60,140 \"Signal Blue\" of \"House Paints\"");
    color.setNames(nullptr, L"House Paints");
    EXPECT_EQ(instruments::describe(color), "rgb 0,60,140 of \"House Paints\"");
}

TEST(Color, ThePaletteHasRedInTheLowByte) {
    EXPECT_EQ(keledGetRGB(1), 0x0000FFu);
    EXPECT_EQ(keledGetRGB(5), 0xFF0000u);
    EXPECT_EQ(keledGetRGB(0), keledGetRGB(7));
    EXPECT_EQ(keledGetRGB(300), keledGetRGB(7));
    EXPECT_EQ(keledGetRGB(-1), keledGetRGB(7));
}

TEST(Color, ThePaletteHasManyDifferentColours) {
    std::set<std::uint32_t> different;
    for (int index = 1; index < 256; ++index)
        different.insert(keledGetRGB(index));
    EXPECT_GT(different.size(), 240u);
}

TEST(Handle, IsReadFromHexadecimalDigits) {
    KelDbHandle handle;
    handle = L"2a";
    EXPECT_EQ(handle.value(), 0x2Au);
    handle = L"FFFFFFFFFFFFFFFF";
    EXPECT_EQ(handle.value(), ~std::uint64_t{0});
    for (const wchar_t* wrong : {L"", L"2A ", L"x", L"0x2A", L"-1", L"10000000000000000"}) {
        handle = wrong;
        EXPECT_TRUE(handle.isNull()) << testing::PrintToString(std::wstring(wrong));
    }
    handle = nullptr;
    EXPECT_TRUE(handle.isNull());
}

TEST(Handle, IsWrittenWithoutLeadingZeros) {
    wchar_t buffer[17];
    EXPECT_TRUE(KelDbHandle(0x2A).getIntoAsciiBuffer(buffer));
    EXPECT_STREQ(buffer, L"2A");
    EXPECT_TRUE(KelDbHandle(~std::uint64_t{0}).getIntoAsciiBuffer(buffer));
    EXPECT_STREQ(buffer, L"FFFFFFFFFFFFFFFF");
    EXPECT_FALSE(KelDbHandle().getIntoAsciiBuffer(buffer));
    EXPECT_STREQ(buffer, L"0");
}

TEST(ObjectId, TheNullIdNamesNothing) {
    const KelDbObjectId none;
    EXPECT_TRUE(none.isNull());
    EXPECT_FALSE(none.isValid());
    EXPECT_TRUE(none.isErased());
    EXPECT_TRUE(none.handle().isNull());
    EXPECT_EQ(none.database(), nullptr);
}

TEST(ObjectId, AnIdOfAReplacedDrawingIsNotValid) {
    KelDbDatabase database(true, true);
    const KelDbObjectId before = database.clayer();
    EXPECT_TRUE(before.isValid());
    engine::replaceDrawing(database, engine::makeNewDrawing());
    EXPECT_FALSE(before.isValid());
    EXPECT_TRUE(before.isErased());
    EXPECT_TRUE(database.clayer().isValid());
}

TEST(Chain, ANewNodeIsEmpty) {
    ResultBuffer* node = kelutNewRb(kExtendedInt16);
    EXPECT_EQ(node->next, nullptr);
    EXPECT_EQ(node->type, kExtendedInt16);
    EXPECT_EQ(node->value.string, nullptr);
    kelutRelRb(node);
    kelutRelRb(nullptr);
    keldbFree(nullptr);
    vorn_free(nullptr);
    wchar_t* none = nullptr;
    kelutDelBuffer(none);
}

TEST(Status, EveryNamedOneHasATextOfItsOwn) {
    using namespace Vorn;
    std::set<std::wstring> texts;
    const ErrorStatus all[] = {eOk,
                               eNotApplicable,
                               eInvalidInput,
                               eNotOpenForWrite,
                               eWasOpenForRead,
                               eWasOpenForWrite,
                               eKeyNotFound,
                               eWasErased,
                               eNoDatabase,
                               eNullObjectId,
                               eDuplicateRecordName,
                               eNotThatKindOfClass,
                               eNameTooLong,
                               eLayerUnresolved,
                               eCannotFreezeCurrentLayer,
                               eFileUnreadable,
                               eFileNotFound,
                               eNotADrawing,
                               eFileCutOff,
                               eNewerVersion,
                               eFileWriteFailed,
                               eOutOfMemory,
                               eFileChangedOnDisk,
                               eCancelled,
                               eDependentRecord,
                               eRecordInUse,
                               eReservedName,
                               eNoWorkingDatabase,
                               eStyleMissing,
                               eNotNamedPlotStyles};
    for (const ErrorStatus status : all)
        texts.insert(vornErrorStatusText(status));
    EXPECT_EQ(texts.size(), std::size(all));
    EXPECT_STREQ(vornErrorStatusText(static_cast<ErrorStatus>(9999)), L"Unknown error");
}

class NameRules : public testing::Test {
  protected:
    const KelDbSymbolNameServices& services = *KelDbSymbolUtilities::servicesPtr106();
    Vorn::ErrorStatus check(const std::wstring& name, bool allowVerticalBar = false, bool extended = true) {
        return services.validateNameCharacters(name.c_str(), true, allowVerticalBar, extended);
    }
};

TEST_F(NameRules, RefuseWhatAFileNameCannotHoldAndTheReferencesSign) {
    for (const wchar_t character : std::wstring(L"<>:\"/\\?*!|\t\n\x7f\x85"))
        EXPECT_EQ(check(std::wstring(L"a") + character), Vorn::eInvalidInput) << static_cast<int>(character);
    for (const wchar_t* name : {L"a", L" ", L"a b", L"W\u00e4nde 1", L"(1)", L"{x}", L"$", L"#,;'`="})
        EXPECT_EQ(check(name), Vorn::eOk) << testing::PrintToString(std::wstring(name));
}

TEST_F(NameRules, AllowTheVerticalBarOnRequest) {
    EXPECT_EQ(check(L"a|b", true), Vorn::eOk);
    EXPECT_EQ(services.validateSymbolName(L"a|b", true), Vorn::eOk);
    EXPECT_EQ(services.validateSymbolName(L"a|b", false), Vorn::eInvalidInput);
}

TEST_F(NameRules, BoundTheLength) {
    EXPECT_EQ(check(L""), Vorn::eInvalidInput);
    EXPECT_EQ(check(std::wstring(255, L'x')), Vorn::eOk);
    EXPECT_EQ(check(std::wstring(256, L'x')), Vorn::eNameTooLong);
    EXPECT_EQ(services.validateNameCharacters(nullptr, true, false, true), Vorn::eInvalidInput);
    EXPECT_EQ(services.validateSymbolName(nullptr, false), Vorn::eInvalidInput);
}

TEST_F(NameRules, CountLengthAlikeOnEverySystem) {
    std::wstring pairs;
    for (int i = 0; i < 128; ++i)
        pairs += L"\U0001F3E0";
    EXPECT_EQ(check(pairs), Vorn::eNameTooLong); // 256 units of 16 bits
}

TEST_F(NameRules, LetAHiddenStateHaveAStarBeforeAnAllowedName) {
    EXPECT_EQ(engine::checkStateName(L"auto"), Vorn::eOk);
    EXPECT_EQ(engine::checkStateName(L"*auto"), Vorn::eOk);
    for (const wchar_t* name : {L"", L"*", L"**auto", L"a*", L"*a/b", L"*site!auto"})
        EXPECT_EQ(engine::checkStateName(name), Vorn::eInvalidInput) << testing::PrintToString(std::wstring(name));
    EXPECT_EQ(engine::checkStateName(L"*" + std::wstring(254, L'x')), Vorn::eOk);
    EXPECT_EQ(engine::checkStateName(L"*" + std::wstring(255, L'x')), Vorn::eNameTooLong);
    EXPECT_EQ(check(L"*auto"), Vorn::eInvalidInput) << "no one may give such a name";
}

TEST_F(NameRules, OldNamesAreShortAndPlain) {
    EXPECT_EQ(check(L"WALL_1-$", false, false), Vorn::eOk);
    EXPECT_EQ(check(L"a b", false, false), Vorn::eInvalidInput);
    EXPECT_EQ(check(std::wstring(32, L'x'), false, false), Vorn::eNameTooLong);
    EXPECT_EQ(check(L"a|b", false, false), Vorn::eInvalidInput);
    EXPECT_EQ(check(L"a|b", true, false), Vorn::eOk);
    EXPECT_EQ(check(L"a b", true, false), Vorn::eInvalidInput);
}

TEST_F(NameRules, AnswerTheirLimits) {
    int length = 0, old = 0;
    services.maxNameLength(length, old, true, true);
    EXPECT_EQ(length, 255);
    EXPECT_EQ(old, 31);
    services.maxNameLength(length, old, true, false);
    EXPECT_EQ(length, 31);
    KelDbDatabase database(true, true);
    EXPECT_TRUE(services.extendedNamesMode(&database));
}

TEST_F(NameRules, KnowTheReservedLayer) {
    EXPECT_TRUE(services.isReservedLayerName(L"ReferencePoints"));
    EXPECT_TRUE(services.isReservedLayerName(L"REFERENCEPOINTS"));
    EXPECT_FALSE(services.isReservedLayerName(L"Base"));
    EXPECT_FALSE(services.isReservedLayerName(nullptr));
}

TEST(ReservedWords, AreKnownByNumber) {
    EXPECT_STREQ(keldbGetReservedString(0, true), L"ByLayer");
    EXPECT_STREQ(keldbGetReservedString(1, true), L"ByBlock");
    EXPECT_STREQ(keldbGetReservedString(7, true), L"Default");
    EXPECT_STREQ(keldbGetReservedString(10, true), L"Model");
    EXPECT_EQ(keldbGetReservedString(3, true), nullptr);
}

TEST(NumberText, WritesRealsAndAngles) {
    wchar_t text[256];
    keldbRToS(1.5, -1, -1, text);
    EXPECT_STREQ(text, L"1.5000");
    keldbRToS(1.25, 2, 1, text);
    EXPECT_STREQ(text, L"1.2");
    keldbRToS(1250, 1, 2, text);
    EXPECT_STREQ(text, L"1.25E+03");
    keldbRToS(-1e300, -1, -1, text);
    EXPECT_STREQ(text, L"-1.0000E+300");
    keldbAngToS(3.14159265358979, -1, -1, text);
    EXPECT_STREQ(text, L"180");
    keldbAngToS(1, 3, 2, text);
    EXPECT_STREQ(text, L"1.00r");
    keldbAngToS(3.14159265358979, 2, 0, text);
    EXPECT_STREQ(text, L"200g");
}

TEST(Array, TakesACopyOfOneOfItsOwnElementsAlsoWhenItGrows) {
    KelArray<KelString> names(1, 1);
    names.append(L"A name that is too long for a short string");
    ASSERT_EQ(names.length(), names.physicalLength());
    EXPECT_EQ(names.append(names[0]), 1);
    EXPECT_STREQ(names[0].kwszPtr(), L"A name that is too long for a short string");
    EXPECT_STREQ(names[1].kwszPtr(), L"A name that is too long for a short string");
}
