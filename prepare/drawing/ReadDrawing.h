// Reads a drawing: once into an index, then its entities any number of times.
#pragma once

#include "input/CDxfSource.h"
#include "prepare/drawing/Drawing.h"
#include "prepare/report/Report.h"

#include <string_view>

namespace prepare {

// Reads everything but the entities of the ENTITIES section, which go to sink where it is given and where
// they come after TABLES and BLOCKS, as in nearly all files; returns whether all of them did. encoding
// overrides what the file says of itself, if it is not empty. A header that the drawing has already counts
// before the file's. Broken parts are skipped and reported. Throws std::bad_alloc. *hasFailed is set when the
// source could not be read to its end.
bool ReadIndex(CDxfSource& source, std::string_view encoding, Drawing& drawing, EntitySink* sink,
               Report& report, bool& hasFailed);

// Whether nothing says in which code page the texts are.
bool NamesNoCodePage(const Drawing& drawing, std::string_view encoding);
// Takes the one that all texts together show, if they do, as if the header named it; for where none is named,
// once all has been read.
void GuessCodePage(Drawing& drawing);
// Whether the code page was known only after texts had been read by it: the index must be read again, into a
// new drawing that has the header already.
bool MustReadAgain(const Drawing& drawing, std::string_view encoding);
// Reports that the code page is a guess, if it is.
void NoteGuess(const Drawing& drawing, Report& report);

// Reads the entities of the ENTITIES section (and of a block *Model_Space or *Paper_Space that has any: those
// come first) of a drawing whose index has been read. Reports nothing: ReadIndex did.
void ReadEntities(CDxfSource& source, std::string_view encoding, Drawing& drawing, EntitySink& sink,
                  bool& hasFailed, Report* report = nullptr);

} // namespace prepare
