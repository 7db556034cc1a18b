#pragma once

#include <cstdint>
#include <string_view>

// The display order that a new object of a type starts with: hatches at the back, texts in front.
std::int32_t typePriority(std::wstring_view type);
