#include "host/db/tag_form.h"

#include <algorithm>
#include <cstring>

namespace host {

namespace {

// A scratch object keeps little, a drawing much: each block is twice the one before.
constexpr std::size_t kFirstBlock = 512;
constexpr std::size_t kGreatestBlock = 64 * 1024;

} // namespace

TagSource::TagSource(std::shared_ptr<const FileImage> image, std::unique_ptr<const TagForm> form)
    : image_(std::move(image)), form_(std::move(form))
{
}

std::string_view TagSource::keep(std::string_view bytes)
{
    if (capacity_ - used_ < bytes.size()) {
        capacity_ = std::max(std::clamp(2 * capacity_, kFirstBlock, kGreatestBlock), bytes.size());
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(capacity_));
        used_ = 0;
    }
    if (bytes.empty())
        return std::string_view("", 0);
    char* const place = blocks_.back().get() + used_;
    std::memcpy(place, bytes.data(), bytes.size());
    used_ += bytes.size();
    return {place, bytes.size()};
}

} // namespace host
