#include "text/text_file.h"

#include "host/files/open_file.h"
#include "host/files/paths.h"
#include "host/files/safe_save.h"
#include "host/text/encoding.h"

#include <algorithm>
#include <filesystem>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

void dropReturnsBeforeFeeds(std::string& bytes)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n')
            bytes[kept++] = bytes[i];
    }
    bytes.resize(kept);
}

} // namespace

std::optional<TextFileLines> TextFileLines::open(std::wstring_view path)
{
    const std::optional<std::filesystem::path> found = host::findPath(path);
    if (!found)
        return std::nullopt;
    std::string error;
    std::string bytes = host::readWholeFile(*found, error);
    if (!error.empty())
        return std::nullopt;
    if (bytes.starts_with(kByteOrderMark))
        bytes.erase(0, kByteOrderMark.size());
    dropReturnsBeforeFeeds(bytes);
    return TextFileLines(host::fromUtf8(bytes));
}

std::optional<std::wstring_view> TextFileLines::next()
{
    if (at_ >= text_.size())
        return std::nullopt;
    const std::wstring_view rest = std::wstring_view(text_).substr(at_, kLongestPiece);
    const std::size_t feed = rest.find(L'\n');
    const std::wstring_view piece = feed == rest.npos ? rest : rest.substr(0, feed + 1);
    at_ += piece.size();
    return piece;
}

bool writeTextFile(std::wstring_view path, std::wstring_view text)
{
    std::string error;
    const std::unique_ptr<host::SafeSave> save =
        host::SafeSave::begin(host::toPath(path), error, host::SafeSave::Backup::none);
    if (!save)
        return false;
    save->write(host::toUtf8(text));
    return save->commit(error);
}
