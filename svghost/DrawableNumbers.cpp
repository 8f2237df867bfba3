#include "svghost/DrawableNumbers.h"

#include "base/ScanReal.h"

#include <cfloat>
#include <cmath>

namespace svghost {

bool IsDrawable(double number)
{
    return std::fabs(number) <= static_cast<double>(FLT_MAX);
}

template <class Char>
bool ScanNumber(const Char*& at, double& number, std::basic_string_view<Char>& shortText)
{
    const Char* const end = ScanReal(at, number, shortText);
    if (end == nullptr || !IsDrawable(number))
        return false;
    at = end;
    return true;
}

template bool ScanNumber(const char*&, double&, std::string_view&);
template bool ScanNumber(const wchar_t*&, double&, std::wstring_view&);

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
