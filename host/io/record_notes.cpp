#include "host/io/record_notes.h"

#include "host/text/number_format.h"

namespace host {

bool RecordNotes::beginOdd(std::uint16_t number, std::string_view type)
{
    if (number >= kinds_.size())
        kinds_.resize(number + std::size_t{1}, Kind::unknown);
    Kind& kind = kinds_[number];
    if (kind == Kind::unknown) {
        if (type == "SECTION" || type == "TABLE")
            kind = Kind::named;
        else if (type == "ENDSEC" || type == "ENDTAB" || type == "CLASS")
            kind = Kind::structure;
        else if (type == "DIMSTYLE")
            kind = Kind::dimStyle;
        else
            kind = type == "EOF" ? Kind::end : Kind::plain;
    }
    wantsName_ = kind == Kind::named;
    dimStyle_ = kind == Kind::dimStyle;
    // A section's tags are header variables, or a picture: nothing of its own but the name.
    if (kind == Kind::structure || type == "SECTION")
        part_ = Part::closed;
    return kind == Kind::end;
}

void RecordNotes::note(TagRole role, std::string_view value, bool one)
{
    RecordNote& record = records.back();
    switch (role) {
    case TagRole::name:
        if (wantsName_) {
            wantsName_ = false;
            std::string name(typeTable_.name(record.type));
            name += ' ';
            name += value;
            record.type = types_.number(name);
        }
        break;
    case TagRole::handle:
    case TagRole::dimHandle:
        if (part_ != Part::head || depth_ > 0 || (record.marks & kHandleGiven) ||
            dimStyle_ != (role == TagRole::dimHandle))
            break;
        record.marks |= kHandleGiven;
        if (const std::optional<std::uint64_t> handle = parseHandle(value))
            record.handle = *handle;
        else if (value.find_first_not_of(" \t") != std::string_view::npos)
            record.marks |= kHandleWrong;
        break;
    case TagRole::layer:
        if (part_ <= Part::entity && !record.layer)
            record.layer = layers_.number(value);
        break;
    case TagRole::space:
        if (part_ <= Part::entity && one)
            record.flags |= kPaperSpace;
        break;
    case TagRole::marker:
        if (part_ != Part::closed)
            part_ = value == "AcDbEntity" ? Part::entity : Part::other;
        break;
    case TagRole::bracket:
        if (part_ != Part::head)
            break;
        if (value.starts_with('{')) {
            ++depth_;
            if (value == "{ACAD_XDICTIONARY")
                record.flags |= kHasDictionary;
            else if (value == "{ACAD_REACTORS")
                record.flags |= kHasReactors;
        } else if (value == "}" && depth_ > 0) {
            --depth_;
        }
        break;
    case TagRole::owner:
        if (part_ == Part::head && depth_ == 0 && !(record.marks & kOwnerGiven)) {
            record.marks |= kOwnerGiven;
            record.owner = parseHandle(value).value_or(0);
        }
        break;
    case TagRole::embedded:
    case TagRole::data:
        part_ = Part::closed;
        break;
    case TagRole::none:
    case TagRole::type:
        break;
    }
}

} // namespace host
