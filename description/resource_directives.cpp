#include "description/resource_directives.h"

#include "host/files/paths.h"
#include "host/text/case_mapping.h"
#include "import/readable_file.h"
#include "import/support_path.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <iterator>

namespace {

// What a directive does with a file that counts. False: the files behind it are left alone.
using TakeFile = bool (*)(ReadingState& state, const std::wstring& path);

template <ResourceKind kind> bool request(ReadingState& state, const std::wstring& path)
{
    state.resourceRequests[host::lowerCased(path)] |= bitOf(kind);
    return true;
}

bool addBlockFile(ReadingState& state, const std::wstring& path)
{
    constexpr std::size_t kExtension = 4; // ".dwg"
    std::wstring title = host::fileNameOf(path);
    title.resize(title.size() - kExtension);
    state.description.blockFiles.try_emplace(host::lowerCased(title),
                                             BlockFileDef{host::lowerCased(path), title});
    return true;
}

bool addFont(ReadingState& state, const std::wstring& path)
{
    if (readableFile(path) && addSupportFolder(host::folderOf(path)))
        return true;
    state.sink.message(std::nullopt, Message::unableToLoad, path);
    state.failed = true;
    return false;
}

struct FileRule {
    std::wstring_view extension;
    TakeFile take;
};

// Files with other extensions are passed over.
struct DirectiveRow {
    Message wrongCount;
    std::array<FileRule, 4> files;
};

template <ResourceKind kind> constexpr FileRule kDrawing{L".dwg", request<kind>};
template <ResourceKind kind> constexpr FileRule kTemplate{L".dwt", request<kind>};
constexpr FileRule kFont{L".shx", addFont};

using enum ResourceKind;
constexpr DirectiveRow kDirectives[] = {
    {Message::invalidBlockReference, {kDrawing<block>, kTemplate<block>}},
    {Message::invalidBlockReferenceFile, {{{L".dwg", addBlockFile}, {L".dwt", addBlockFile}}}},
    {Message::invalidDimension, {kDrawing<dimensionStyle>, kTemplate<dimensionStyle>}},
    {Message::invalidFont, {kFont}},
    {Message::invalidLayer, {kDrawing<layer>, kTemplate<layer>}},
    {Message::invalidLayout, {kDrawing<layout>, kTemplate<layout>}},
    {Message::invalidLinetype,
     {kDrawing<linetype>, kTemplate<linetype>, FileRule{L".lin", request<linetype>}, kFont}},
    {Message::invalidMleader, {kDrawing<mleaderStyle>, kTemplate<mleaderStyle>}},
    {Message::invalidMline,
     {kDrawing<mlineStyle>, kTemplate<mlineStyle>, FileRule{L".mln", request<mlineStyle>}}},
    {Message::invalidPattern, {FileRule{L".pat", request<pattern>}}},
    {Message::invalidTextStyle, {kDrawing<textStyle>, kTemplate<textStyle>}},
};

// With a drive, or from the root of the file system, a pattern stands as written. Any other is
// relative to the folder of the description, also one that begins with "\".
std::wstring resolvedPattern(std::wstring_view descriptionPath, std::wstring_view token)
{
    std::wstring folder = host::folderOf(descriptionPath);
    if (token.find(L':') != token.npos || token.starts_with(L'/') || folder.empty())
        return host::shownPath(token);
    if (!folder.ends_with(L'/') && !folder.ends_with(L'\\'))
        folder += L'/';
    folder += token;
    return host::shownPath(std::wstring_view(folder));
}

} // namespace

bool readResource(ReadingState& state, Tokens tokens, Message wrongCount)
{
    if (tokens.size() != 2)
        return state.fail(wrongCount);
    const std::wstring pattern = resolvedPattern(state.description.filePath, tokens[1]);
    const std::vector<std::wstring> files = host::findFiles(pattern);
    if (files.empty()) {
        state.sink.message(std::nullopt, Message::invalidPath, pattern);
        return false;
    }
    const auto row =
        std::find_if(std::begin(kDirectives), std::end(kDirectives),
                     [&](const DirectiveRow& each) { return each.wrongCount == wrongCount; });
    assert(row != std::end(kDirectives));
    for (const std::wstring& file : files) {
        for (const FileRule& rule : row->files) {
            if (rule.take && hasExtension(file, rule.extension) && !rule.take(state, file))
                return true;
        }
    }
    return true;
}
