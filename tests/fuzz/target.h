#pragma once

#include "tests/fuzz/mutator.h"

#include <cstddef>
#include <cstdint>

// One input to what is tested; the usual entry of fuzzers, so that other engines can drive it too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

Language language(); // of the target's inputs

// Ends the program, naming the promise that was broken.
void require(bool holds, const char* promise, std::wstring_view detail = {});

} // namespace fuzz
