#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// The places of a list's entries in ascending order of priority. Equal ones stand as exchange
// passes leave them, which compare each entry with each behind it and swap the two where the first
// is greater; near linear all the same.
std::vector<std::size_t> priorityOrder(std::span<const std::int32_t> priorities);
