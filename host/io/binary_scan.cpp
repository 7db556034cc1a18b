#include "host/io/binary_scan.h"

#include <bit>
#include <cmath>

namespace host {

BinaryCodes binaryCodesOf(std::string_view file)
{
    const std::size_t behind = kBinarySentinel.size() + 1;
    return file.size() > behind && file[behind] != 0 ? BinaryCodes::oneByte : BinaryCodes::twoBytes;
}

ScanTrouble scanBinary(std::string_view file, BinaryCodes codes, RecordNotes& notes, bool& ended)
{
    const char* const base = file.data();
    const char* const last = base + file.size();
    const char* at = base + kBinarySentinel.size();
    const BinaryForm form(DxfVersion::r12, CodePage(), codes);
    ended = false;
    bool begun = false;
    while (at < last) {
        const std::size_t offset = static_cast<std::size_t>(at - base);
        Tag tag;
        switch (takeBinaryTag(at, last, codes, tag)) {
        case BinaryTrouble::none:
            break;
        case BinaryTrouble::cut:
            return {ScanFault::cutTag, offset, 0};
        case BinaryTrouble::unknownCode: {
            const bool escaped = codes == BinaryCodes::oneByte && at[0] == '\xFF';
            const char* const first = escaped ? at + 1 : at;
            const int number =
                codes == BinaryCodes::oneByte && !escaped
                    ? static_cast<unsigned char>(first[0])
                    : static_cast<std::int16_t>(static_cast<unsigned char>(first[0]) |
                                                static_cast<unsigned char>(first[1]) << 8);
            return {ScanFault::unknownCode, offset, number};
        }
        }
        if (tagKind(tag.code) == TagKind::real && !std::isfinite(form.real(tag)))
            return {ScanFault::badReal, offset, tag.code};
        if (tag.code == 0) {
            const std::size_t start = begun ? offset : 0;
            begun = true;
            if (notes.begin(start, tag.bytes())) {
                ended = true;
                return {};
            }
        } else if (!begun) {
            if (tag.code != 999)
                return {ScanFault::noDrawing, offset, tag.code};
        } else if (const auto number = static_cast<std::size_t>(tag.code);
                   number < kRoleTableSize && kTagRoles[number] != TagRole::none) {
            notes.tag(kTagRoles[number], tag.bytes(),
                      kTagRoles[number] == TagRole::space && form.integer(tag) == 1);
        }
    }
    return {};
}

} // namespace host
