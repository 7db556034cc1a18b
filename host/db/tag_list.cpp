#include "host/db/tag_list.h"

#include <algorithm>

namespace host {

std::size_t TagList::find(int code, std::size_t from, std::size_t to) const
{
    to = std::min(to, tags_.size());
    for (std::size_t i = from; i < to; ++i)
        if (tags_[i].code == code)
            return i;
    return npos;
}

std::size_t TagList::find(int code, std::string_view bytes, std::size_t from, std::size_t to) const
{
    to = std::min(to, tags_.size());
    for (std::size_t i = from; i < to; ++i)
        if (tags_[i].code == code && tags_[i].bytes() == bytes)
            return i;
    return npos;
}

void TagList::setBytes(std::size_t i, std::string_view bytes)
{
    const std::string_view kept = source_->keep(bytes);
    Tag& tag = tags_[i];
    tag.value = kept.data();
    tag.length = static_cast<std::uint32_t>(kept.size());
    tag.endLength = 0;
}

void TagList::setText(std::size_t i, std::wstring_view value)
{
    setBytes(i, form().textValue(tags_[i].code, value));
}

void TagList::setReal(std::size_t i, double value)
{
    setBytes(i, form().realValue(tags_[i].code, value));
}

void TagList::setInteger(std::size_t i, std::int64_t value)
{
    setBytes(i, form().integerValue(tags_[i].code, value));
}

void TagList::setHandle(std::size_t i, std::uint64_t value)
{
    setBytes(i, form().handleValue(tags_[i].code, value));
}

void TagList::insertBytes(std::size_t at, int code, std::string_view bytes)
{
    const std::string_view kept = source_->keep(bytes);
    Tag tag;
    tag.code = static_cast<std::int16_t>(code);
    tag.value = kept.data();
    tag.length = static_cast<std::uint32_t>(kept.size());
    tags_.insert(tags_.begin() + static_cast<std::ptrdiff_t>(at), tag);
}

void TagList::insertText(std::size_t at, int code, std::wstring_view value)
{
    insertBytes(at, code, form().textValue(code, value));
}

void TagList::insertReal(std::size_t at, int code, double value)
{
    insertBytes(at, code, form().realValue(code, value));
}

void TagList::insertInteger(std::size_t at, int code, std::int64_t value)
{
    insertBytes(at, code, form().integerValue(code, value));
}

void TagList::insertHandle(std::size_t at, int code, std::uint64_t value)
{
    insertBytes(at, code, form().handleValue(code, value));
}

void TagList::insertBinary(std::size_t at, int code, std::span<const std::uint8_t> value)
{
    insertBytes(at, code, form().binaryValue(code, value));
}

void TagList::erase(std::size_t first, std::size_t last)
{
    tags_.erase(tags_.begin() + static_cast<std::ptrdiff_t>(first),
                tags_.begin() + static_cast<std::ptrdiff_t>(last));
}

TagList TagList::inSource(std::shared_ptr<TagSource> source) const
{
    TagList copy(std::move(source));
    copy.tags_.reserve(tags_.size());
    for (std::size_t i = 0; i < tags_.size(); ++i) {
        const int code = tags_[i].code;
        // up to R14 a 5 in a dimension style is an arrow block's name
        const bool arrow = code == 5 && tags_[0].bytes() == "DIMSTYLE";
        switch (arrow ? TagKind::text : tagKind(code)) {
        case TagKind::real:
            copy.addReal(code, real(i));
            break;
        case TagKind::int16:
        case TagKind::int32:
        case TagKind::int64:
        case TagKind::boolean:
            copy.addInteger(code, integer(i));
            break;
        case TagKind::handle:
            copy.addHandle(code, handle(i));
            break;
        case TagKind::binary: {
            const std::vector<std::uint8_t> bytes = form().binary(tags_[i]);
            copy.insertBinary(copy.size(), code, bytes);
            break;
        }
        case TagKind::comment:
            break; // a remark about the file, not about the object
        case TagKind::text:
            copy.addText(code, text(i));
            break;
        }
    }
    return copy;
}

} // namespace host
