#include "host/io/definition_text.h"

#include "host/files/file_image.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

namespace host {

namespace {

constexpr std::wstring_view kBlank = L" \t\r\n";
constexpr wchar_t kByteOrderMark = 0xFEFF;

} // namespace

Acad::ErrorStatus readDefinitionText(const std::filesystem::path& file, std::wstring& text)
{
    std::error_code failure;
    if (!std::filesystem::is_regular_file(file, failure))
        return Acad::eFileNotFound;
    std::string error;
    const std::shared_ptr<FileImage> image = FileImage::open(file, error);
    if (!image)
        return Acad::eFileAccessErr;
    text = fromUtf8(image->bytes());
    if (text.starts_with(kByteOrderMark))
        text.erase(0, 1);
    return Acad::eOk;
}

std::wstring_view trimmedText(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(kBlank);
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

std::vector<std::wstring_view> trimmedLines(std::wstring_view text)
{
    std::vector<std::wstring_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(L"\r\n");
        lines.push_back(trimmedText(text.substr(0, end)));
        if (end == std::wstring_view::npos)
            break;
        text.remove_prefix(end + (text.substr(end).starts_with(L"\r\n") ? 2 : 1));
    }
    return lines;
}

std::vector<std::wstring_view> commaParts(std::wstring_view line)
{
    std::vector<std::wstring_view> parts;
    std::size_t first = 0;
    bool quoted = false;
    int depth = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
        if (i == line.size() || (line[i] == L',' && !quoted && depth == 0)) {
            parts.push_back(trimmedText(line.substr(first, i - first)));
            first = i + 1;
        } else if (line[i] == L'"') {
            quoted = !quoted;
        } else if (!quoted && (line[i] == L'[' || line[i] == L']')) {
            depth += line[i] == L'[' ? 1 : -1;
        }
    }
    return parts;
}

std::optional<double> definitionNumber(std::wstring_view text)
{
    return parseReal(toUtf8(text));
}

std::optional<DefinitionHeader> definitionHeader(std::wstring_view line)
{
    if (!line.starts_with(L'*'))
        return std::nullopt;
    const std::size_t comma = line.find(L',');
    const std::wstring_view name = trimmedText(line.substr(1, comma - 1));
    if (name.empty())
        return std::nullopt;
    return DefinitionHeader{name, comma == std::wstring_view::npos
                                      ? std::wstring_view()
                                      : trimmedText(line.substr(comma + 1))};
}

} // namespace host
