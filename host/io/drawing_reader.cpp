#include "host/io/drawing_reader.h"

#include "host/db/implicit_objects.h"
#include "host/io/binary_scan.h"
#include "host/io/drawing_structure.h"
#include "host/io/dwg_versions.h"
#include "host/io/text_form.h"
#include "host/io/text_lines.h"
#include "host/io/text_scan.h"
#include "host/text/number_format.h"

#include <algorithm>
#include <limits>
#include <thread>

namespace host {

namespace {

// From here on two threads scan a text file.
constexpr std::size_t kTwoThreadsAbove = std::size_t{4} << 20; // bytes

std::wstring shownValue(std::string_view bytes)
{
    constexpr std::size_t kLongest = 40;
    std::wstring shown = CodePage::utf8().decode(bytes.substr(0, kLongest));
    if (bytes.size() > kLongest)
        shown += L"...";
    return L"'" + shown + L"'";
}

std::wstring describe(std::string_view file, const ScanTrouble& trouble, bool binary)
{
    const char* next = nullptr;
    const char* const at = file.data() + trouble.offset;
    const char* const last = file.data() + file.size();
    std::string_view line;
    if (!binary && trouble.offset < file.size())
        line = {at, static_cast<std::size_t>(findLineEnd(at, last, next) - at)};
    switch (trouble.fault) {
    case ScanFault::badCode:
        return shownValue(line) + L" is no group code";
    case ScanFault::unknownCode:
        return format(L"%d is no group code", trouble.code);
    case ScanFault::badReal:
    case ScanFault::badInteger: {
        const wchar_t* const wanted =
            trouble.fault == ScanFault::badReal ? L"number" : L"whole number";
        return (binary ? std::wstring(L"a value") : shownValue(line)) +
               format(L" is no %s, but group code %d wants one", wanted, trouble.code);
    }
    case ScanFault::cutTag:
        return L"the file ends inside a group";
    case ScanFault::noEnd:
        return L"the file ends without EOF";
    default:
        return L"";
    }
}

// Two parts, each with notes of its own; the second has its own numbers of types and layers.
struct Scan {
    explicit Scan(RecordIndex& index) : first(index.types(), index.layers()) {}

    RecordNotes first;
    NameTable<std::uint16_t> types;
    NameTable<std::uint32_t> layers;
    RecordNoteList second;
    ScanTrouble trouble;
    bool ended = false;
};

void scanTextFile(std::string_view file, Scan& scan)
{
    std::size_t middle = file.size();
    if (file.size() >= kTwoThreadsAbove && std::thread::hardware_concurrency() > 1)
        middle = findRecordStart(file, file.size() / 2);
    if (middle >= file.size()) {
        scan.trouble = scanText(file, 0, file.size(), scan.first, scan.ended);
        return;
    }
    RecordNotes secondNotes(scan.types, scan.layers);
    ScanTrouble secondTrouble;
    bool secondEnded = false;
    std::thread helper(
        [&] { secondTrouble = scanText(file, middle, file.size(), secondNotes, secondEnded); });
    scan.trouble = scanText(file, 0, middle, scan.first, scan.ended);
    helper.join();
    if (scan.trouble.fault != ScanFault::none || scan.ended)
        return;
    scan.trouble = secondTrouble;
    scan.ended = secondEnded;
    scan.second = std::move(secondNotes.records);

    std::vector<std::uint16_t> types(1);
    for (std::size_t i = 1; i <= scan.types.size(); ++i)
        types.push_back(scan.first.typeNumber(scan.types.name(static_cast<std::uint16_t>(i))));
    std::vector<std::uint32_t> layers(1);
    for (std::size_t i = 1; i <= scan.layers.size(); ++i)
        layers.push_back(scan.first.layerNumber(scan.layers.name(static_cast<std::uint32_t>(i))));
    for (std::size_t i = 0; i < scan.second.size(); ++i) {
        RecordNote& note = scan.second[i];
        note.type = types[note.type];
        note.layer = layers[note.layer];
    }
}

struct HeaderFacts {
    DxfVersion version = DxfVersion::r12;
    std::string codePage;
    std::uint64_t seed = 0;
};

// The version that a header names; names between two known ones count as the lower one.
DxfVersion versionOf(std::string_view name)
{
    constexpr DxfVersion kVersions[] = {DxfVersion::r10,   DxfVersion::r12,   DxfVersion::r13,
                                        DxfVersion::r14,   DxfVersion::r2000, DxfVersion::r2004,
                                        DxfVersion::r2007, DxfVersion::r2010, DxfVersion::r2013,
                                        DxfVersion::r2018};
    DxfVersion version = DxfVersion::r10;
    const std::int64_t number =
        name.starts_with("AC") ? parseInteger(name.substr(2)).value_or(0) : 0;
    for (const DxfVersion known : kVersions)
        if (number >= static_cast<std::int64_t>(known))
            version = known;
    return version;
}

HeaderFacts readHeader(const TagForm& form, std::string_view record)
{
    HeaderFacts facts;
    std::vector<Tag> tags;
    form.split(record.data(), record.size(), tags);
    for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
        if (tags[i].code != 9)
            continue;
        const std::string_view name = tags[i].bytes();
        const Tag& value = tags[i + 1];
        if (name == "$ACADVER" && value.code == 1)
            facts.version = versionOf(value.bytes());
        else if (name == "$DWGCODEPAGE" && value.code == 3)
            facts.codePage = value.bytes();
        else if (name == "$HANDSEED" && value.code == 5)
            facts.seed = form.handle(value);
    }
    return facts;
}

} // namespace

FileOutcome readDrawing(std::shared_ptr<const FileImage> image, std::wstring_view name,
                        Drawing& drawing)
{
    const std::string_view file = image->bytes();
    const std::wstring fileName(name);
    const bool binary = file.starts_with(kBinarySentinel);
    if (const std::optional<std::wstring> release = dwgRelease(file))
        return {Acad::eInvalidDwgVersion,
                fileName + L" is a DWG of " + *release + L"; only DXF can be read"};

    Scan scan(drawing.index);
    const BinaryCodes codes = binaryCodesOf(file);
    if (binary)
        scan.trouble = scanBinary(file, codes, scan.first, scan.ended);
    else
        scanTextFile(file, scan);

    const std::size_t firstCount = scan.first.records.size();
    const std::size_t count = firstCount + scan.second.size();
    ScanTrouble trouble = scan.trouble;
    if (trouble.fault == ScanFault::none && !scan.ended)
        trouble = {count == 0 ? ScanFault::noDrawing : ScanFault::noEnd, file.size(), 0};
    const auto failure = [&](Acad::ErrorStatus status, std::size_t offset,
                             const std::wstring& what) {
        if (binary)
            return FileOutcome{status, fileName + format(L", byte %zu: ", offset) + what};
        if (offset >= file.size() && file.ends_with('\n'))
            --offset; // the end belongs to the last line
        return FileOutcome{status,
                           fileName + format(L", line %zu: ", lineNumber(file, offset)) + what};
    };
    if (trouble.fault == ScanFault::noDrawing)
        return {Acad::eBadDxfFile, fileName + L" is no drawing"};

    // A record that the structure forbids may stand before what stopped the scan; the first trouble
    // is told.
    const auto note = [&](std::size_t i) -> const RecordNote& {
        return i < firstCount ? scan.first.records[i] : scan.second[i - firstCount];
    };
    DrawingStructure structure(drawing);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = i + 1 < count ? note(i + 1).offset : file.size();
        if (end - note(i).offset > std::numeric_limits<std::uint32_t>::max())
            return failure(Acad::eBadDxfFile, note(i).offset, L"a record is longer than 4 GiB");
        if (const std::wstring wrong = structure.add(note(i), end); !wrong.empty())
            return failure(Acad::eBadDxfSequence, note(i).offset, wrong);
        i < firstCount ? scan.first.records.releaseBefore(i)
                       : scan.second.releaseBefore(i - firstCount);
    }
    if (trouble.fault != ScanFault::none)
        return failure(trouble.fault == ScanFault::noEnd || trouble.fault == ScanFault::cutTag
                           ? Acad::eEndOfFile
                           : Acad::eBadDxfFile,
                       trouble.offset, describe(file, trouble, binary));
    structure.finishSections();

    TextStyle style;
    if (!binary)
        style = TextStyle::learn(file);
    const auto makeForm = [&](const HeaderFacts& facts) -> std::unique_ptr<const TagForm> {
        const CodePage page = pageOfDrawing(facts.version, facts.codePage);
        if (binary)
            return std::make_unique<BinaryForm>(facts.version, page, codes);
        return std::make_unique<TextForm>(facts.version, page, style);
    };
    HeaderFacts facts;
    if (drawing.header) {
        const Stub& header = drawing.index[drawing.header];
        facts = readHeader(*makeForm(facts), file.substr(header.offset, header.length));
    }
    drawing.version = facts.version;
    drawing.binary = binary;
    drawing.fileSeed = facts.seed;
    drawing.source = std::make_shared<TagSource>(std::move(image), makeForm(facts));
    structure.giveHandles();
    structure.findOwners();
    completeDrawing(drawing);
    return {};
}

} // namespace host
