#include "reader/CDxfRead.h"

// Nothing else ends a group: without those two lines it takes the rest of the file (quirk 15).
void CDxfRead::ReadGroup(CDxfStream& stream, DXF_STRING& text, std::string_view value, std::string_view code)
{
    store.Append(text, value);
    while (!stream.eof()) {
        const std::string_view line = ReadTrimmed(stream);
        if (line != code) {
            store.Append(text, "\n");
            store.Append(text, line);
        } else if (ReadTrimmed(stream) == "}") {
            return;
        }
    }
}
