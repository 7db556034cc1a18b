#pragma once

#include "host/db/tag_form.h"

namespace host {

// The tags of one object, the type (code 0) first. Copies share the bytes.
class TagList {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    explicit TagList(std::shared_ptr<TagSource> source) : source_(std::move(source)) {}

    const TagForm& form() const { return source_->form(); }
    const std::shared_ptr<TagSource>& source() const { return source_; }

    bool empty() const { return tags_.empty(); }
    std::size_t size() const { return tags_.size(); }
    const Tag& operator[](std::size_t i) const { return tags_[i]; }
    auto begin() const { return tags_.begin(); }
    auto end() const { return tags_.end(); }

    std::wstring text(std::size_t i) const { return form().text(tags_[i]); }
    double real(std::size_t i) const { return form().real(tags_[i]); }
    std::int64_t integer(std::size_t i) const { return form().integer(tags_[i]); }
    std::uint64_t handle(std::size_t i) const { return form().handle(tags_[i]); }

    // First tag of that code in [from, to), or npos.
    std::size_t find(int code, std::size_t from = 0, std::size_t to = npos) const;
    // First tag of that code whose bytes read exactly so, in [from, to), or npos.
    std::size_t find(int code, std::string_view bytes, std::size_t from = 0,
                     std::size_t to = npos) const;

    void splitRecord(const char* first, std::size_t length) { form().split(first, length, tags_); }

    // New values in the drawing's form; the code line of a tag that is given a new value stays.
    void setText(std::size_t i, std::wstring_view value);
    void setReal(std::size_t i, double value);
    void setInteger(std::size_t i, std::int64_t value);
    void setHandle(std::size_t i, std::uint64_t value);
    void setBytes(std::size_t i, std::string_view bytes);

    void insertText(std::size_t at, int code, std::wstring_view value);
    void insertReal(std::size_t at, int code, double value);
    void insertInteger(std::size_t at, int code, std::int64_t value);
    void insertHandle(std::size_t at, int code, std::uint64_t value);
    void insertBinary(std::size_t at, int code, std::span<const std::uint8_t> value);
    void insertBytes(std::size_t at, int code, std::string_view bytes);

    void addText(int code, std::wstring_view value) { insertText(size(), code, value); }
    void addReal(int code, double value) { insertReal(size(), code, value); }
    void addInteger(int code, std::int64_t value) { insertInteger(size(), code, value); }
    void addHandle(int code, std::uint64_t value) { insertHandle(size(), code, value); }
    void addTag(const Tag& tag) { tags_.push_back(tag); } // of the same source

    void erase(std::size_t first, std::size_t last);

    // The same tags in the form of another drawing. Handles keep their values; who clones maps
    // them.
    TagList inSource(std::shared_ptr<TagSource> source) const;

private:
    std::shared_ptr<TagSource> source_;
    std::vector<Tag> tags_;
};

} // namespace host
