#include "svghost/DrawableNumbers.h"

#include "base/ScanReal.h"

#include <cfloat>
#include <cmath>

namespace svghost {

namespace {

template <class Char>
bool StepOver(const Char* end, double number, const Char*& at)
{
    if (end == nullptr || !IsDrawable(number))
        return false;
    at = end;
    return true;
}

} // namespace

bool IsDrawable(double number)
{
    return std::fabs(number) <= static_cast<double>(FLT_MAX);
}

bool ScanNumber(const wchar_t*& at, double& number, std::wstring_view& shortText)
{
    const wchar_t* const end = ScanReal(at, number, shortText);
    return StepOver(end, number, at);
}

bool ScanNumberAhead(const char*& at, double& number, std::string_view& shortText)
{
    const char* const end = ScanRealAhead(at, number, shortText);
    return StepOver(end, number, at);
}

bool ParseNumber(const wchar_t* text, double& number, std::wstring_view& shortText)
{
    while (*text == L' ')
        ++text;
    if (!ScanNumber(text, number, shortText))
        return false;
    while (*text == L' ')
        ++text;
    return *text == L'\0';
}

} // namespace svghost
