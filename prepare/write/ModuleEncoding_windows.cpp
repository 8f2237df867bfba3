#include "prepare/write/ModuleEncoding.h"

#include "base/Api_windows.h"
#include "base/CodePage.h"
#include "base/Utf8.h"

#include <cstddef>
#include <optional>

namespace prepare {

bool EncodeForModule(std::string& text)
{
    const std::optional<std::wstring> wide = IsCodePageUtf8() ? std::nullopt : WideFromUtf8(text);
    if (!wide || wide->empty())
        return true;
    constexpr std::size_t kMostBytes = 4; // of a letter
    text.resize(kMostBytes * wide->size());
    BOOL isReplaced = FALSE;
    const int size = WideCharToMultiByte(CP_ACP, 0, wide->data(), static_cast<int>(wide->size()), text.data(),
                                         static_cast<int>(text.size()), nullptr, &isReplaced);
    text.resize(static_cast<std::size_t>(size));
    return !isReplaced;
}

} // namespace prepare
