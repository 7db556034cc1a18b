#include "host/io/drawing_writer.h"

#include "host/db/symbol_names.h"
#include "host/db/tag_view.h"
#include "host/io/class_records.h"
#include "host/io/raise_version.h"
#include "host/io/raised_drawing.h"
#include "host/io/record_bytes.h"
#include "host/io/section_order.h"
#include "host/io/written_records.h"

#include <algorithm>
#include <map>

namespace host {

namespace {

// What becomes of one record of the file, and what is put before it.
struct Edit {
    std::string before;
    bool replaced = false;
    std::string bytes; // in the record's stead; empty when it goes
};

class Planner {
public:
    Planner(Drawing& drawing, const WrittenRecords& written)
        : drawing_(drawing), written_(written), bytes_(drawing), firstSpare_(drawing.spareHandle()),
          nextHandle_(firstSpare_)
    {
    }

    std::vector<WritePiece> plan();

private:
    std::string_view typeName(std::uint32_t stub) const
    {
        return drawing_.index.types().name(drawing_.index[stub].type);
    }
    bool isAdded(std::uint32_t stub) const { return written_.added.contains(stub); }
    std::string imageOf(std::uint32_t stub) const
    {
        const Stub& record = drawing_.index[stub];
        return std::string(drawing_.source->image()->bytes().substr(record.offset, record.length));
    }

    void replace(std::uint32_t stub, std::string bytes);
    void drop(std::uint32_t stub) { replace(stub, {}); }
    void changeRecords();
    void eraseRecords();
    void addChildren();
    void addEntities();
    void addTableRecords();
    void addObjects();
    void addClasses();
    void setSeed();
    void makeSections();

    // Bytes for the end of a section, be it in the file or not.
    std::string& tail(std::string_view section) { return tails_[std::string(section)]; }
    std::vector<WritePiece> pieces();

    Drawing& drawing_;
    const WrittenRecords& written_;
    RecordBytes bytes_;
    std::map<std::uint32_t, Edit> edits_; // by record of the file
    std::map<std::string, std::string> tails_;
    std::map<std::string, std::string> heads_; // behind SECTION
    const std::uint64_t firstSpare_;
    std::uint64_t nextHandle_; // for what is made here
    std::string header_;       // the record of a header that the file lacks
};

void Planner::replace(std::uint32_t stub, std::string bytes)
{
    Edit& edit = edits_[stub];
    edit.replaced = true;
    edit.bytes = std::move(bytes);
}

void Planner::changeRecords()
{
    for (const std::uint32_t stub : written_.changed) {
        std::string now = bytes_.record(stub);
        if (now != imageOf(stub))
            replace(stub, std::move(now));
    }
}

void Planner::eraseRecords()
{
    for (const std::uint32_t stub : written_.erased) {
        drop(stub);
        const std::string_view type = typeName(stub);
        if (type == "POLYLINE" || type == "INSERT")
            for (std::uint32_t i = stub + 1;
                 i <= drawing_.fileRecords && (drawing_.index[i].flags & kChild) != 0; ++i) {
                drop(i);
                if (typeName(i) == "SEQEND")
                    break;
            }
        const auto block = drawing_.blocks.find(stub);
        if (block != drawing_.blocks.end() && block->second.begin &&
            block->second.end <= drawing_.fileRecords)
            for (std::uint32_t i = block->second.begin; i <= block->second.end; ++i)
                drop(i);
    }
}

// New members of sequences that stand in the file.
void Planner::addChildren()
{
    for (const auto& [parent, children] : drawing_.addedChildren) {
        if (parent > drawing_.fileRecords || written_.erased.contains(parent))
            continue;
        std::uint32_t end = parent + 1;
        while (end < drawing_.fileRecords && (drawing_.index[end].flags & kChild) != 0 &&
               typeName(end) != "SEQEND")
            ++end;
        std::string members;
        std::string last;
        for (const std::uint32_t child : children)
            if (isAdded(child))
                (typeName(child) == "SEQEND" ? last : members) += bytes_.record(child);
        if (!members.empty() || !last.empty())
            edits_[end].before += members + last;
    }
}

void Planner::addEntities()
{
    std::vector<std::uint32_t> inSpaces;
    for (const auto& [record, block] : drawing_.blocks) {
        if (written_.erased.contains(record))
            continue;
        std::vector<std::uint32_t> added;
        for (std::size_t i = block.entities.size(); i-- > 0;) {
            if (block.entities[i] <= drawing_.fileRecords)
                break; // those of the file stand first
            if (isAdded(block.entities[i]))
                added.push_back(block.entities[i]);
        }
        std::reverse(added.begin(), added.end());
        if (record == drawing_.modelSpace || record == drawing_.paperSpace) {
            inSpaces.insert(inSpaces.end(), added.begin(), added.end());
            added.clear();
        }
        std::string contents;
        for (const std::uint32_t entity : added)
            for (const std::uint32_t part : withChildren(drawing_, entity))
                contents += bytes_.record(part);
        if (block.end && block.end <= drawing_.fileRecords) {
            if (!contents.empty())
                edits_[block.end].before += contents;
        } else if (block.begin && (isAdded(block.begin) || isAdded(record))) {
            tail("BLOCKS") += bytes_.record(block.begin) + contents + bytes_.record(block.end);
        } else if (!block.begin && isAdded(record) && drawing_.version > DxfVersion::r12) {
            const bool paper = record == drawing_.paperSpace;
            const std::uint64_t handle = drawing_.index[record].handle;
            const auto source = drawing_.source;
            const TagList begin = makeBlockBegin(
                source, nextHandle_++, handle, symbolName(drawing_, "BLOCK_RECORD", record), paper);
            const TagList end = makeBlockEnd(source, nextHandle_++, handle, paper);
            tail("BLOCKS") += bytes_.tags(begin) + contents + bytes_.tags(end);
        }
    }
    std::sort(inSpaces.begin(), inSpaces.end());
    std::string contents;
    for (const std::uint32_t entity : inSpaces)
        for (const std::uint32_t part : withChildren(drawing_, entity))
            contents += bytes_.record(part);
    if (!contents.empty())
        tail("ENTITIES") += contents;
}

void Planner::addTableRecords()
{
    std::map<std::size_t, std::string> made; // tables that the file lacks, by their usual place
    for (const auto& [name, table] : drawing_.tables) {
        if (name == "BLOCK_RECORD" && drawing_.version <= DxfVersion::r12)
            continue;
        std::string records;
        int count = 0;
        for (const std::uint32_t record : table.records)
            if (isAdded(record)) {
                records += bytes_.record(record);
                ++count;
            }
        if (count == 0)
            continue;
        TagList head = *drawing_.tagsOf(table.table);
        const std::size_t number = head.find(70);
        if (number != TagList::npos)
            head.setInteger(number, head.integer(number) + count);
        if (table.end && table.end <= drawing_.fileRecords) {
            replace(table.table, bytes_.tags(head));
            edits_[table.end].before += records;
            continue;
        }
        if (drawing_.version <= DxfVersion::r12) {
            head = TagList(drawing_.source);
            head.addText(0, L"TABLE");
            head.addText(2, std::wstring(name.begin(), name.end()));
            head.addInteger(70, count);
        }
        made[placeInOrder(kTableOrder, name)] +=
            bytes_.tags(head) + records + bytes_.text(0, "ENDTAB");
    }
    for (const auto& [place, table] : made) {
        std::uint32_t next = 0; // the first table of the file that comes later
        for (const auto& [name, other] : drawing_.tables)
            if (other.end && other.end <= drawing_.fileRecords &&
                placeInOrder(kTableOrder, name) > place && (!next || other.table < next))
                next = other.table;
        if (next)
            edits_[next].before += table;
        else
            tail("TABLES") += table;
    }
}

void Planner::addObjects()
{
    if (isAdded(drawing_.rootDictionary))
        heads_["OBJECTS"] += bytes_.record(drawing_.rootDictionary);
    for (const std::uint32_t stub : written_.added)
        if (stub != drawing_.rootDictionary && isObjectRecord(drawing_, stub))
            tail("OBJECTS") += bytes_.record(stub);
}

void Planner::addClasses()
{
    if (drawing_.version <= DxfVersion::r12)
        return;
    std::set<std::string_view> needed;
    for (const std::uint32_t stub : written_.added)
        if (classRecordOf(typeName(stub)) || drawing_.borrowedClasses.contains(typeName(stub)))
            needed.insert(typeName(stub));
    if (needed.empty())
        return;
    for (const SectionPlace& section : drawing_.sections)
        if (section.name == "CLASSES")
            for (std::uint32_t i = section.first + 1; i < section.end; ++i) {
                const std::shared_ptr<const TagList> tags = drawing_.tagsOf(i);
                const std::size_t name = tags->find(1);
                if (name != TagList::npos)
                    needed.erase((*tags)[name].bytes());
            }
    for (const std::string_view type : needed) {
        const ClassRecord* const record = classRecordOf(type);
        tail("CLASSES") += record ? bytes_.classRecord(*record)
                                  : bytes_.tags(drawing_.borrowedClasses.find(type)->second);
    }
}

// Only new handles move the seed, and only when they reach the file's.
void Planner::setSeed()
{
    std::uint64_t greatest = 0;
    for (const std::set<std::uint32_t>* const stubs : {&written_.added, &written_.changed})
        for (const std::uint32_t stub : *stubs)
            greatest = std::max(greatest, drawing_.index[stub].handle);
    if (nextHandle_ > firstSpare_)
        greatest = nextHandle_ - 1;
    if (greatest == 0 || greatest < drawing_.fileSeed || !drawing_.header)
        return;
    const bool inFile = drawing_.header <= drawing_.fileRecords;
    if (!inFile && !isAdded(drawing_.header))
        return;
    TagList header = *drawing_.tagsOf(drawing_.header);
    setHandleSeed(header, greatest + 1);
    if (inFile)
        replace(drawing_.header, bytes_.tags(header));
    else
        header_ = bytes_.tags(header);
}

// Puts what was gathered into the file's sections, and makes those that it lacks.
void Planner::makeSections()
{
    if (drawing_.header > drawing_.fileRecords && isAdded(drawing_.header)) {
        if (header_.empty())
            header_ = bytes_.record(drawing_.header);
        heads_["HEADER"] = header_;
    }
    for (const std::string_view name : kSectionOrder) {
        const std::string& head = heads_[std::string(name)];
        const std::string& end = tails_[std::string(name)];
        if (head.empty() && end.empty())
            continue;
        const auto section =
            std::find_if(drawing_.sections.begin(), drawing_.sections.end(),
                         [&](const SectionPlace& place) { return place.name == name; });
        if (section != drawing_.sections.end()) {
            edits_[section->first + 1].before.insert(0, head);
            edits_[section->end].before += end;
            continue;
        }
        std::uint32_t next = drawing_.fileRecords; // EOF
        for (const SectionPlace& other : drawing_.sections)
            if (placeInOrder(kSectionOrder, other.name) > placeInOrder(kSectionOrder, name)) {
                next = other.first;
                break;
            }
        const bool hasBegin = name == "HEADER"; // the header's record is its SECTION
        edits_[next].before += (hasBegin ? std::string() : bytes_.sectionBegin(name)) + head + end +
                               bytes_.sectionEnd();
    }
}

std::vector<WritePiece> Planner::pieces()
{
    std::vector<WritePiece> pieces;
    const FileImage& image = *drawing_.source->image();
    std::size_t at = 0; // what is before it is written
    const auto keepUpTo = [&](std::size_t end) {
        if (end > at)
            pieces.push_back({at, end - at, {}});
        at = std::max(at, end);
    };
    const auto addBytes = [&](const std::string& bytes) {
        if (bytes.empty())
            return;
        if (pieces.empty() || pieces.back().length)
            pieces.push_back({});
        pieces.back().bytes += bytes;
    };
    for (const auto& [stub, edit] : edits_) {
        if (!edit.replaced && edit.before.empty())
            continue;
        const Stub& record = drawing_.index[stub];
        std::size_t begin = record.offset;
        if (stub == 1) { // what precedes its first tag is none: a byte order mark, a sentinel
            std::vector<Tag> tags;
            drawing_.source->form().split(image.data(), record.length, tags);
            std::size_t first = 0;
            while (!edit.replaced && first + 1 < tags.size() && tags[first].code != 0)
                ++first;
            begin = static_cast<std::size_t>(tags[first].codeLine - image.data());
        }
        keepUpTo(begin);
        addBytes(edit.before);
        if (edit.replaced) {
            addBytes(edit.bytes);
            at = record.offset + record.length;
        }
    }
    keepUpTo(image.size());
    return pieces;
}

std::vector<WritePiece> Planner::plan()
{
    changeRecords();
    eraseRecords();
    addChildren();
    addEntities();
    addTableRecords();
    addObjects();
    addClasses();
    setSeed();
    makeSections();
    return pieces();
}

} // namespace

WritePlan planWriting(Drawing& drawing)
{
    const WrittenRecords written = findWrittenRecords(drawing);
    WritePlan plan;
    if (const std::optional<Raise> raise = findRaise(drawing, written)) {
        plan.pieces.push_back({0, 0, raisedDrawing(drawing, written, raise->version)});
        plan.message = raiseMessage(*raise);
        return plan;
    }
    plan.pieces = Planner(drawing, written).plan();
    return plan;
}

} // namespace host
