#pragma once

#include "host/edit/pick_first.h"
#include "host/text/encoding.h"
#include "tests/support/plugin_test.h"
#include "tests/templates/look_drawing.h"

#include <iterator>

// KELMARO_TEMPLATE as it is typed, and the file that it writes.
class TemplateTest : public PluginTest {
protected:
    std::filesystem::path target() const { return folder() / "made.txt"; }
    std::wstring quoted(const std::filesystem::path& path) const
    {
        return L"\"" + path.wstring() + L"\"\n";
    }
    // With everything taken by Enter and this answer for the format; what was printed.
    std::wstring generate(std::wstring_view format = L"")
    {
        return transcript(L"kelmaro_template\n\n" + std::wstring(format) + L"\n" +
                          quoted(target()));
    }
    // The same over a file that is there, with this answer to the question.
    std::wstring replace(std::wstring_view answer)
    {
        const std::wstring asked = generate();
        return asked + transcript(answer);
    }

    // Tabs as "|".
    std::wstring written() const
    {
        std::ifstream file(target(), std::ios::binary);
        std::wstring text = host::fromUtf8(
            std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
        std::replace(text.begin(), text.end(), L'\t', L'|');
        return text;
    }
    // The part behind the head, which names the drawing.
    std::wstring body() const
    {
        const std::wstring text = written();
        const std::size_t blank = text.find(L"\n\n");
        return blank == text.npos ? text : text.substr(blank + 2);
    }
    // The lines that begin so, without that.
    std::vector<std::wstring> rest(std::wstring_view begin) const
    {
        std::vector<std::wstring> found;
        std::wstring text = L"\n" + written();
        const std::wstring wanted = L"\n" + std::wstring(begin);
        for (std::size_t at = text.find(wanted); at != text.npos; at = text.find(wanted, at + 1)) {
            const std::size_t from = at + wanted.size();
            found.push_back(text.substr(from, text.find(L'\n', from) - from));
        }
        return found;
    }
};

inline bool tells(const std::wstring& printed, std::wstring_view text)
{
    return printed.find(text) != std::wstring::npos;
}
