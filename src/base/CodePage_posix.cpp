#include "base/CodePage.h"
#include "base/Utf8.h"

bool IsCodePageUtf8()
{
    return true;
}

std::size_t ToWide(std::string_view narrow, wchar_t* wide)
{
    return Utf8ToWide(narrow, wide);
}

std::string ToNarrowPath(const wchar_t* path)
{
    return Utf8FromWide(path);
}
