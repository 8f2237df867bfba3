// A reader that writes down the callbacks it gets.
#pragma once

#include "reader/EntityTypes.h"
#include "support/Import.h"

#include <string>
#include <vector>

#define DECLARE_CALLBACK(number, TYPE, Callback, constness)                                                  \
    void On##Callback(constness DXF_GRAPHIC_##TYPE& entity) override;

// Keeps one text for each callback, errors among them, in the order in which they came: the callback's name
// and, after a blank, what identifies the record: a block's name, an entity's layer.
class CallbackReader : public ReportingReader {
public:
    int OnError(std::uint32_t code, int kind, const wchar_t* message, std::int64_t extra) override;
    void OnBlockBegin(const DXF_BLOCKS_BLOCK& block) override;
    void OnBlockEnd(const DXF_BLOCKS_BLOCK& block) override;
    DXF_DRAWN_TYPES(DECLARE_CALLBACK)

    std::vector<std::string> calls;

private:
    void Keep(const char* callback, const DXF_GRAPHIC_BASE& entity);
};

#undef DECLARE_CALLBACK

// The callbacks that a whole drawing gives.
std::vector<std::string> CallbacksOf(std::string_view dxf);
