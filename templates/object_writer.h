#pragma once

#include "description/description.h"

#include <cstdint>
#include <string>
#include <string_view>

// Replaces `text` by the lines of an object's block in a description file, and returns it. Reals
// have as many decimals as the working drawing shows (LUPREC). The description tells whether the
// object is drawable, its icon and its priority; without one, or where it does not know the name,
// the object is drawable, has its type's icon and the highest priority of its types.
std::wstring& WriteObject(const GraphicProps& props, std::wstring& text,
                          const Description* description = nullptr);

// The words of a description. Empty for an entry that is neither one number nor three, and for
// codes that have no word.
std::wstring TextOfColor(const ColorEntry& entry);
std::wstring_view TextOfAttachment(std::int32_t code);
std::wstring_view TextOfJustification(std::int32_t code);

// "Unknown" for none.
std::wstring_view fieldTypeWord(OdType type);
