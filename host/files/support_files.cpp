#include "host/files/support_files.h"

#include "host/files/safe_save.h"
#include "host/files/support_definitions.h"

#include <system_error>

namespace fs = std::filesystem;

namespace host {

namespace {

struct SupportFile {
    const char* name;
    std::string (*contents)(double scale);
    double scale; // drawing units to an inch
};

constexpr SupportFile kFiles[] = {
    {"acad.pat", patternDefinitions, 1.0},
    {"acadiso.pat", patternDefinitions, kMillimetresPerInch},
    {"acad.lin", linetypeDefinitions, 1.0},
    {"acadiso.lin", linetypeDefinitions, kMillimetresPerInch},
    {"acad.mln", multilineStyleDefinitions, 1.0},
};

} // namespace

void ensureSupportFiles(const fs::path& folder)
{
    std::error_code failure;
    for (const SupportFile& file : kFiles) {
        const fs::path path = folder / file.name;
        if (fs::exists(path, failure))
            continue;
        fs::create_directories(folder, failure);
        std::string error;
        const std::unique_ptr<SafeSave> save = SafeSave::begin(path, error, SafeSave::Backup::none);
        if (!save)
            return; // the other files have the same folder
        save->write(file.contents(file.scale));
        save->commit(error);
    }
}

} // namespace host
