#include "host/io/tag_script.h"

#include "host/io/text_form.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

namespace host {

std::string tagsFromScript(std::string_view script)
{
    const TextForm form(DxfVersion::r2018, CodePage::utf8(), TextStyle());
    std::string text;
    while (!script.empty()) {
        const std::size_t end = std::min(script.find('\n'), script.size());
        const std::string_view line = script.substr(0, end);
        script.remove_prefix(std::min(end + 1, script.size()));
        const std::size_t blank = std::min(line.find(' '), line.size());
        const std::optional<std::int64_t> code = parseInteger(line.substr(0, blank));
        if (!code)
            continue;
        std::string value(line.substr(std::min(blank + 1, line.size())));
        switch (tagKind(static_cast<int>(*code))) {
        case TagKind::int16:
        case TagKind::int32:
        case TagKind::boolean:
            value = form.integerValue(static_cast<int>(*code), parseInteger(value).value_or(0));
            break;
        default:
            break;
        }
        Tag tag;
        tag.code = static_cast<std::int16_t>(*code);
        tag.value = value.data();
        tag.length = static_cast<std::uint32_t>(value.size());
        form.write(tag, text);
    }
    return text;
}

} // namespace host
