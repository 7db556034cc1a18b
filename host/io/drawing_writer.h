#pragma once

#include "host/db/drawing_format.h"

namespace host {

// A file to be written: ranges of the image with new bytes between them, in order.
struct WritePiece {
    std::size_t offset = 0; // in the image
    std::size_t length = 0; // 0: `bytes` count
    std::string bytes;
};

struct WritePlan {
    std::vector<WritePiece> pieces;
    std::wstring message; // what the user should know; empty as a rule
};

// The file as saving would write it, in the form and version as read. An unchanged drawing is one
// piece. The drawing stays as it is.
WritePlan planWriting(Drawing& drawing);

} // namespace host
