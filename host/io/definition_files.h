#pragma once

#include "host/db/drawing_format.h"

#include <map>

namespace host {

// Pattern, linetype and multiline style files. Patterns are asked for one by one, so the file read
// last of each name stays in memory until its size or time differs.
class DefinitionFileReader : public DefinitionFiles {
public:
    Acad::ErrorStatus pattern(const std::filesystem::path& file, std::wstring_view name,
                              PatternDefinition& pattern) override;
    Acad::ErrorStatus linetypes(const std::filesystem::path& file,
                                std::vector<LinetypeDefinition>& linetypes) override;
    Acad::ErrorStatus mlineStyles(const std::filesystem::path& file,
                                  std::vector<MlineStyleDefinition>& styles) override;
    int shapeNumber(const std::filesystem::path& file, std::wstring_view name) override;

private:
    struct PatternFile {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        std::vector<PatternDefinition> patterns;
    };
    std::map<std::filesystem::path, PatternFile> patternFiles_;
};

} // namespace host
