#pragma once

#include "host/db/tag_list.h"
#include "host/runtime/resbuf.h"

// Tags as items, which xrecords and extended data share. A point is one item under the code of its
// x, with the y and z that follow it.
namespace host {

// Tags from `first` to `last` as items; comments are left out.
ResbufChain itemsOf(const TagList& tags, std::size_t first, std::size_t last);

// One item as tags at the end of a list. A point is written with three coordinates.
void appendItem(TagList& tags, const resbuf& item);

// The item that begins at `at`, and where it ends.
std::size_t behindItem(const TagList& tags, std::size_t at, std::size_t last);
resbuf itemAt(const TagList& tags, std::size_t at, std::size_t end);

// Equal as values of the same code, so that the bytes of the one may stand for the other.
bool sameItem(const resbuf& a, const resbuf& b);

// Whether a file can hold the item: a code of 0 begins a new record, 999 is a comment, and a
// number that is none would make the file unreadable.
bool isWritable(const resbuf& item);

bool isPointCode(int code);

// Writes an item over the tags of another one of the same code and the same number of tags, whose
// code lines stay.
void overwriteItem(TagList& tags, std::size_t at, std::size_t end, const resbuf& item);

} // namespace host
