#include "UnitsText.h"

#include "values/NumberText.h"

namespace workbench {

namespace {

std::wstring lengthText(double length) {
    std::wstring text = engine::realText(length);
    // What is rounded to zero has no sign.
    const bool isZero = text.find_first_of(L"123456789") == std::wstring::npos;
    return isZero && text.starts_with(L'-') ? text.substr(1) : text;
}

} // namespace

std::wstring placeText(zdr::Point point) {
    return lengthText(point.x) + L", " + lengthText(point.y);
}

} // namespace workbench
