#include "convert/CDxfReadToQuillmar.h"

#include "drawing/CDxfText.h"

#include <cstdint>

int CDxfReadToQuillmar::OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra)
{
    return qlmSetLastError(static_cast<int>(code), L"DXF", kind, message, false,
                           static_cast<std::intptr_t>(extra));
}

void CDxfReadToQuillmar::SetNumber(QlmNode node, const wchar_t* name, double value) const
{
    SetAttribute(node, name, CDxfNumberText().AddFixed6(value).c_str());
}
