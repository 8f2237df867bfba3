// The section driver: from the open file to the callbacks.
#include "input/CDxfFile.h"
#include "reader/CDxfRead.h"

void CDxfRead::ReadDxfFile(const char* path)
{
    lineCount = 0;
    CDxfFile file(path);
    if (!file.IsOpen()) {
        OnError(0, DXF_ERROR_OPEN, L"Failed to load DXF file.", 0);
        return;
    }
    ReadDxfSource(file);
}

void CDxfRead::ReadDxfSource(CDxfSource& source)
{
    ReportingMemory([&] {
        InitColorTable();
        CDxfStream stream(source);
        ReadSections(stream);
    });
    EmitCallbacks();
}

// Only "0", "SECTION", "2", name is acted on, and between these four the end of the file is not looked for:
// a file that stops there has a section with an empty name. "EOF" ends the reading only where a "0" is
// expected, which a value of an unknown section can be, too (quirk 13).
void CDxfRead::ReadSections(CDxfStream& stream)
{
    std::string_view line = ReadTrimmed(stream);
    while (!stream.eof()) {
        if (line == "EOF")
            return;
        if (line == "0" && ReadTrimmed(stream) == "SECTION" && ReadTrimmed(stream) == "2")
            ReadSection(stream, ReadTrimmed(stream));
        line = ReadTrimmed(stream);
    }
}

void CDxfRead::ReadSection(CDxfStream& stream, std::string_view name)
{
    if (name == "HEADER" || name == "CLASSES" || name == "OBJECTS" || name == "THUMBNAILIMAGE") {
        ReadLine(stream); // the next code
        SkipToENDSEC(stream);
    } else if (name == "TABLES") {
        ReadSectionTABLES(stream);
    } else if (name == "BLOCKS") {
        ReadLine(stream); // the first "0"
        ReadBLOCKS(stream);
    } else if (name == "ENTITIES") {
        ReadSectionENTITIES(stream);
    } else {
        Report(DXF_ERROR_SECTION, L"%s - Unknown Section Name Line (%d)", {name, lineCount});
    }
}

// Code lines and value lines alike are compared (quirk 12).
void CDxfRead::SkipToENDSEC(CDxfStream& stream)
{
    while (!stream.eof() && ReadTrimmed(stream) != "ENDSEC") {
    }
}

void CDxfRead::ReadSectionENTITIES(CDxfStream& stream)
{
    ReadLine(stream); // the first "0"
    std::string_view typeName = ReadTrimmed(stream);
    do {
        if (typeName == "ENDSEC")
            return;
        ReadENTITIES(stream, typeName, entities);
        typeName = ReadTrimmed(stream);
    } while (!stream.eof());
}
