#include "host/io/definition_files.h"

#include "host/files/file_image.h"
#include "host/io/definition_text.h"
#include "host/io/lin_file.h"
#include "host/io/mln_file.h"
#include "host/io/pat_file.h"
#include "host/io/shape_names.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace host {

Acad::ErrorStatus DefinitionFileReader::pattern(const fs::path& file, std::wstring_view name,
                                                PatternDefinition& pattern)
{
    std::error_code failure;
    const fs::file_time_type time = fs::last_write_time(file, failure);
    const std::uintmax_t size = fs::file_size(file, failure);
    if (failure)
        return Acad::eFileNotFound;
    auto known = patternFiles_.find(file);
    if (known == patternFiles_.end() || known->second.time != time || known->second.size != size) {
        std::wstring text;
        if (const Acad::ErrorStatus status = readDefinitionText(file, text); status != Acad::eOk)
            return status;
        known =
            patternFiles_.insert_or_assign(file, PatternFile{time, size, readPatterns(text)}).first;
    }
    const std::vector<PatternDefinition>& patterns = known->second.patterns;
    const auto found =
        std::find_if(patterns.begin(), patterns.end(), [&](const PatternDefinition& one) {
            return equalNoCase(one.name, name) && !one.lines.empty();
        });
    if (found == patterns.end())
        return Acad::eKeyNotFound;
    pattern = *found;
    return Acad::eOk;
}

Acad::ErrorStatus DefinitionFileReader::linetypes(const fs::path& file,
                                                  std::vector<LinetypeDefinition>& linetypes)
{
    std::wstring text;
    const Acad::ErrorStatus status = readDefinitionText(file, text);
    linetypes = readLinetypes(text);
    return status;
}

Acad::ErrorStatus DefinitionFileReader::mlineStyles(const fs::path& file,
                                                    std::vector<MlineStyleDefinition>& styles)
{
    std::wstring text;
    const Acad::ErrorStatus status = readDefinitionText(file, text);
    styles = readMlineStyles(text);
    return status;
}

int DefinitionFileReader::shapeNumber(const fs::path& file, std::wstring_view name)
{
    std::string error;
    const std::shared_ptr<FileImage> image = FileImage::open(file, error);
    return image ? shapeNumberIn(image->bytes(), toUtf8(name)) : 0;
}

} // namespace host
