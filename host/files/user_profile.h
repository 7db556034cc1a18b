#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// Texts that the user keeps between runs, by name without regard to case. They stand in a file
// `profile`, one NAME=VALUE a line in UTF-8; "\\", "\n", "\r" and, in names, "\=" spell out what
// would break a line. Other lines stay as they are.
class UserProfile {
public:
    explicit UserProfile(std::filesystem::path folder = defaultFolder());

    // $XDG_CONFIG_HOME/kelmaro, or ~/.config/kelmaro.
    static std::filesystem::path defaultFolder();

    std::optional<std::wstring> get(std::wstring_view name) const;

    // Written at once, over the file as it is by then: other programs' changes to other names stay.
    // Nothing is written when the value is the same. False when it cannot be written; the value
    // then holds for this run.
    bool set(std::wstring_view name, std::wstring_view value, std::string& error);

    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path supportFolder() const { return folder_ / "support"; } // not made here

private:
    struct Line {
        std::wstring name; // empty: `value` is the whole line
        std::wstring value;
    };

    static std::vector<Line> linesOf(std::string_view bytes);
    static void assign(std::vector<Line>& lines, std::wstring_view name, std::wstring_view value);

    std::filesystem::path folder_;
    std::vector<Line> lines_;
};

} // namespace host
