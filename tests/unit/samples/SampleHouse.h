// The sample house as the programs read it, once for all tests.
#pragma once

#include "files/DrawingFile.h"
#include "files/References.h"
#include "files/TextCoding.h"

#include <gtest/gtest.h>

class SampleHouse : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        const std::wstring path = L"samples/house.zdr";
        s_house = zdr::Drawing{};
        s_status = zdr::readDrawingFile(path, s_house, s_reason);
        s_problems.clear();
        if (s_status == Vorn::eOk)
            zdr::resolveReferences(s_house, path, s_problems);
    }
    void SetUp() override { ASSERT_EQ(s_status, Vorn::eOk) << zdr::toUtf8(s_reason); }

    static const std::wstring& name(zdr::NameId id) { return s_house.names.text(id); }

    static inline zdr::Drawing s_house;
    static inline Vorn::ErrorStatus s_status = Vorn::eOk;
    static inline std::wstring s_reason;
    static inline std::vector<zdr::ReferenceProblem> s_problems;
};
