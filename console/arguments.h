#pragma once

#include "console/exit_status.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

// What the program was asked to do. Texts are as they were given.
struct Arguments {
    // Typed in this order, whichever option it came by.
    struct Source {
        enum class Kind { script, text } kind;
        std::string value; // the script's path, or the text
    };

    std::vector<std::string> drawings; // the last one is the current one
    std::optional<std::string> description;
    std::vector<Source> sources;
    std::optional<std::string> output;
    std::string supportFolder;
    bool save = false;
    bool newDrawing = false;
    bool readOnly = false;
};

// The arguments; or, when all is said and done (help, the version, an error), the exit status.
std::variant<Arguments, ExitStatus> parseArguments(int count, const char* const* values);
