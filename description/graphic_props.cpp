#include "description/graphic_props.h"

namespace {

constexpr std::wstring_view kNoType = L"\x01"; // stands where the types were never given

} // namespace

bool GraphicProps::isValid() const
{
    return !name.empty() && !types.empty() && types.front() != kNoType;
}

bool GraphicProps::isComplete() const
{
    return isValid() && types.front() != unknownType;
}
