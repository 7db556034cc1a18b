#pragma once

// How the program ends; the first that applies.
enum class ExitStatus {
    done = 0,
    usage = 1,          // wrong arguments, a script that cannot be opened
    drawing = 2,        // a drawing could not be read or written
    description = 3,    // the description did not load
    unknownCommand = 4, // the input named a command that is none
};
