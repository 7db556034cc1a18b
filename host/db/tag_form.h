#pragma once

#include "host/db/tag.h"
#include "host/files/file_image.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// The versions of drawing files, by the number in $ACADVER.
enum class DxfVersion : std::uint16_t {
    r10 = 1006,
    r12 = 1009,
    r13 = 1012,
    r14 = 1014,
    r2000 = 1015,
    r2004 = 1018,
    r2007 = 1021,
    r2010 = 1024,
    r2013 = 1027,
    r2018 = 1032
};

// How one drawing writes its tags: text or binary, line end, widths of codes and integers, code
// page. Values come in and go out through it, so that nobody else knows the form of the file.
class TagForm {
public:
    virtual ~TagForm() = default;

    virtual DxfVersion version() const = 0;

    // Cuts the bytes of one record into tags, appended to `tags`. The bytes were checked when the
    // file was opened.
    virtual void split(const char* first, std::size_t length, std::vector<Tag>& tags) const = 0;

    // Values out. A value that is none of the kind asked for gives 0 or no text.
    virtual std::wstring text(const Tag& tag) const = 0;
    virtual double real(const Tag& tag) const = 0;
    virtual std::int64_t integer(const Tag& tag) const = 0;
    virtual std::uint64_t handle(const Tag& tag) const = 0;
    virtual std::vector<std::uint8_t> binary(const Tag& tag) const = 0;

    // Values in: the bytes that stand for the value under this code.
    virtual std::string textValue(int code, std::wstring_view value) const = 0;
    virtual std::string realValue(int code, double value) const = 0;
    virtual std::string integerValue(int code, std::int64_t value) const = 0;
    virtual std::string handleValue(int code, std::uint64_t value) const = 0;
    virtual std::string binaryValue(int code, std::span<const std::uint8_t> value) const = 0;

    // Appends the tag as the file writes it: its own code line where it has one, else one in the
    // file's style.
    virtual void write(const Tag& tag, std::string& out) const = 0;
};

// Where the bytes of a drawing's tags lie: the image of its file, and what was made since.
// Nothing is given back before the drawing closes; earlier states of objects point here too.
class TagSource {
public:
    TagSource(std::shared_ptr<const FileImage> image, std::unique_ptr<const TagForm> form);

    const FileImage* image() const { return image_.get(); } // null for objects outside of a drawing
    const TagForm& form() const { return *form_; }
    void setForm(std::unique_ptr<const TagForm> form) { form_ = std::move(form); }

    std::string_view keep(std::string_view bytes); // a copy that lives as long as the source

private:
    std::shared_ptr<const FileImage> image_;
    std::unique_ptr<const TagForm> form_;
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t used_ = 0;     // bytes of the last block
    std::size_t capacity_ = 0; // size of the last block
};

} // namespace host
