#include "console/script_input.h"

#include "console/console_output.h"
#include "host/edit/typed_input.h"
#include "host/files/open_file.h"
#include "host/text/encoding.h"

namespace {

constexpr wchar_t kByteOrderMark = L'\uFEFF';

std::optional<std::wstring> scriptText(const std::string& path)
{
    std::string error;
    const std::string bytes = host::readWholeFile(path, error);
    if (!error.empty()) {
        reportTrouble(error);
        return std::nullopt;
    }
    std::wstring text = host::fromUtf8(bytes);
    if (!text.empty() && text.front() == kByteOrderMark)
        text.erase(0, 1);
    return host::withoutComments(text);
}

} // namespace

std::optional<std::vector<std::wstring>> typedTexts(const std::vector<Arguments::Source>& sources)
{
    std::vector<std::wstring> texts;
    for (const Arguments::Source& source : sources) {
        if (source.kind == Arguments::Source::Kind::text) {
            texts.push_back(source.value.empty() ? std::wstring()
                                                 : host::fromUtf8(source.value) + L'\n');
            continue;
        }
        std::optional<std::wstring> text = scriptText(source.value);
        if (!text)
            return std::nullopt;
        texts.push_back(std::move(*text));
    }
    return texts;
}
