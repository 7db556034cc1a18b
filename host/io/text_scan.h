#pragma once

#include "host/io/record_notes.h"

#include <string_view>

// The one pass over a text file: tags in lines of two, every group code an integer, every value of
// a numeric code a number. The bytes are those of a file's image.
namespace host {

// Scans [first, last) of the file's bytes: `first` is the file's beginning or the code line of a
// record, `last` the file's end or the code line of another. Sets `ended` when EOF was met.
ScanTrouble scanText(std::string_view file, std::size_t first, std::size_t last, RecordNotes& notes,
                     bool& ended);

// The code line of some record behind `from`, or the file's size where none follows. A line that is
// no integer is a value for certain, so the one behind it is a code. On a file with a bad code line
// the answer may be wrong, which scanning what precedes it tells.
std::size_t findRecordStart(std::string_view file, std::size_t from);

// Of the line with this byte; counts from 1.
std::size_t lineNumber(std::string_view file, std::size_t offset);

} // namespace host
