#include "host/db/angle.h"
#include "host/db/database.h"
#include "host/db/hatch.h"
#include "host/text/case_mapping.h"

#include <algorithm>

namespace {

constexpr std::wstring_view kSolid = L"SOLID";
constexpr std::wstring_view kUserNames[] = {L"_USER", L"U"};
constexpr std::wstring_view kNoFileName = L"/\\:*?\"<>|";

// Predefined patterns are the same for everybody, in inches or in millimetres; every other one has
// a file of its own.
std::wstring fileOfPattern(AcDbHatch::HatchPatternType type, std::wstring_view name, bool metric)
{
    if (type == AcDbHatch::kPreDefined)
        return metric ? L"acadiso.pat" : L"acad.pat";
    return std::wstring(name) + L".pat";
}

} // namespace

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, std::wstring_view name)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (type == kUserDefined) {
        if (std::none_of(std::begin(kUserNames), std::end(kUserNames),
                         [&](std::wstring_view own) { return host::equalNoCase(own, name); }))
            return Acad::eInvalidInput;
        std::vector<host::PatternLine> lines{{0.0, {}, {0.0, 1.0}, {}}};
        if (patternDouble())
            lines.push_back({host::toRadians(90.0), {}, {0.0, 1.0}, {}});
        return setPatternLines(kUserDefined, kUserNames[0], lines);
    }
    if (type == kPreDefined && host::equalNoCase(name, kSolid))
        return setSolidFill();
    if (name.empty() || name.find_first_of(kNoFileName) != name.npos)
        return Acad::eInvalidInput;

    const AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    const AcDbDatabase* const drawn = database() ? database() : services.workingDatabase();
    const bool metric = drawn && drawn->measurement() != 0;
    const std::optional<std::filesystem::path> file =
        services.findFile(fileOfPattern(type, name, metric), drawn);
    host::PatternDefinition pattern;
    if (!file || host::drawingFormat().definitions().pattern(*file, name, pattern) != Acad::eOk)
        return Acad::eInvalidInput;
    return setPatternLines(type, pattern.name, pattern.lines);
}
