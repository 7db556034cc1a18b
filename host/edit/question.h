#pragma once

#include "host/db/object_id.h"
#include "host/geom/point.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace host {

enum class WaitKind { command, text, number, keyword, point, entity, selection, dialog, finished };

// What is asked.
struct Question {
    WaitKind kind = WaitKind::text;
    std::wstring prompt;
    bool takesSpaces = false;
    std::vector<std::wstring> keywords;
    std::optional<AcGePoint3d> base;
};

// What the engine waits for; a driver shows it and feeds what it gets.
struct Waiting : Question {
    std::wstring command; // that asks; empty at the command prompt
};

// One answer as it came: typed text, a point, or entities.
struct Answer {
    enum class Kind { text, point, entities };
    Kind kind = Kind::text;
    std::wstring text;
    AcGePoint3d point;
    std::vector<AcDbObjectId> entities;
};

// Takes an answer, or says why not: the text is shown (an empty one is not) and the question asked
// again.
using AnswerTaker = std::function<std::optional<std::wstring>(const Answer&)>;

} // namespace host
