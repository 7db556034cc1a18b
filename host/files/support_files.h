#pragma once

#include <filesystem>

namespace host {

// Puts the definition files that every installation has into the user's support folder: hatch
// patterns (`acad.pat`, `acadiso.pat`), linetypes (`acad.lin`, `acadiso.lin`) and multiline styles
// (`acad.mln`). The folder is made when it is missing. A file that is there stays as the user has
// it, so that later calls only look. What cannot be written is left out: the program runs without.
void ensureSupportFiles(const std::filesystem::path& folder);

} // namespace host
