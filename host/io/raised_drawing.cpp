#include "host/io/raised_drawing.h"

#include "host/db/symbol_names.h"
#include "host/db/tag_view.h"
#include "host/io/binary_form.h"
#include "host/io/raised_record.h"
#include "host/io/record_bytes.h"
#include "host/io/section_order.h"
#include "host/io/standard_objects.h"
#include "host/io/tag_script.h"
#include "host/io/text_form.h"
#include "host/text/number_format.h"

#include <algorithm>
#include <set>

namespace host {

namespace {

// Header variables of R12 that later versions do not have.
constexpr std::string_view kGoneVariables[] = {"$AXISMODE", "$AXISUNIT", "$FLATLAND",
                                               "$HANDLING", "$UCSXORI",  "$UCSYORI"};

class RaisedFile {
public:
    RaisedFile(Drawing& drawing, const WrittenRecords& written, DxfVersion version);

    std::string text();

private:
    bool lives(std::uint32_t stub) const
    {
        return (drawing_.index[stub].flags & (kErased | kNeverWas)) == 0;
    }
    std::uint64_t handleOf(std::uint32_t stub) const { return drawing_.index[stub].handle; }
    std::uint64_t spare() { return nextHandle_++; }
    std::string spareText() { return handleText(spare()); }

    void add(const TagList& tags)
    {
        for (const Tag& tag : tags)
            source_->form().write(tag, out_);
    }
    void addScript(std::string_view script);
    void addEntity(std::uint32_t stub, std::uint64_t owner);
    void addClasses();
    void addTables();
    void addBlock(std::uint32_t record, const BlockPlace& block);
    void addBlocks();
    void addEntities();
    void addObjects();
    void addHeader();

    Drawing& drawing_;
    const WrittenRecords& written_;
    DxfVersion version_;
    std::shared_ptr<TagSource> source_;
    RaisedRecord raised_;
    std::string out_;
    std::uint64_t nextHandle_;
    std::string modelLayout_;
    std::string paperLayout_;
    std::string plotStyle_;
};

std::unique_ptr<const TagForm> formOf(const Drawing& drawing, DxfVersion version)
{
    if (drawing.binary)
        return std::make_unique<BinaryForm>(
            version, static_cast<const BinaryForm&>(drawing.source->form()).page(),
            BinaryCodes::twoBytes);
    const auto& form = static_cast<const TextForm&>(drawing.source->form());
    return std::make_unique<TextForm>(version, form.page(), form.style());
}

RaisedFile::RaisedFile(Drawing& drawing, const WrittenRecords& written, DxfVersion version)
    : drawing_(drawing), written_(written), version_(version),
      source_(std::make_shared<TagSource>(nullptr, formOf(drawing, version))),
      raised_(drawing, source_), nextHandle_(drawing.spareHandle())
{
    modelLayout_ = spareText();
    paperLayout_ = spareText();
    plotStyle_ = spareText();
}

void RaisedFile::addScript(std::string_view script)
{
    const auto image = FileImage::fromBytes(tagsFromScript(script));
    const auto source = std::make_shared<TagSource>(
        image, std::make_unique<TextForm>(version_, CodePage::utf8(), TextStyle()));
    TagList tags(source);
    tags.splitRecord(image->data(), image->size());
    add(tags.inSource(source_));
}

void RaisedFile::addHeader()
{
    TagList tags(source_);
    const std::shared_ptr<const TagList> own = drawing_.tagsOf(drawing_.header);
    const TagList header = drawing_.binary ? own->inSource(source_) : *own;
    bool gone = false;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const Tag& tag = header[i];
        if (tag.code == 9)
            gone = std::find(std::begin(kGoneVariables), std::end(kGoneVariables), tag.bytes()) !=
                   std::end(kGoneVariables);
        if (!gone)
            tags.addTag(tag);
    }
    const std::string name = "AC" + std::to_string(static_cast<int>(version_));
    std::size_t at = tags.find(9, "$ACADVER");
    if (at == TagList::npos) {
        at = std::min(tags.find(2), tags.size() - 1) + 1;
        tags.insertText(at, 9, L"$ACADVER");
    }
    if (at + 1 < tags.size() && tags[at + 1].code == 1)
        tags.setBytes(at + 1, name);
    else
        tags.insertBytes(at + 1, 1, name);
    setHandleSeed(tags, nextHandle_);
    std::string body;
    body.swap(out_);
    if (drawing_.binary)
        out_ = kBinarySentinel;
    add(tags);
    addScript("0 ENDSEC\n");
    out_ += body;
}

void RaisedFile::addTables()
{
    addScript("0 SECTION\n2 TABLES\n");
    for (const std::string_view name : kTableOrder) {
        const TablePlace& table = drawing_.tables.find(name)->second;
        std::vector<std::uint32_t> records;
        for (const std::uint32_t record : table.records)
            if (lives(record))
                records.push_back(record);
        add(raised_.table(table.table, name, records.size()));
        for (const std::uint32_t record : records) {
            TagList entry = raised_.tableEntry(record, name);
            if (name == "BLOCK_RECORD") {
                const bool model = record == drawing_.modelSpace;
                const std::size_t layout = entry.find(340);
                if (model || record == drawing_.paperSpace) {
                    const std::string& handle = model ? modelLayout_ : paperLayout_;
                    if (layout != TagList::npos)
                        entry.setBytes(layout, handle);
                    else
                        entry.insertBytes(entry.find(2) + 1, 340, handle);
                }
            } else if (name == "LAYER" && entry.find(390) == TagList::npos) {
                entry.insertBytes(dataEnd(entry), 390, plotStyle_);
            }
            add(entry);
        }
        addScript("0 ENDTAB\n");
    }
    addScript("0 ENDSEC\n");
}

void RaisedFile::addEntity(std::uint32_t stub, std::uint64_t owner)
{
    add(raised_.entity(stub, owner));
    for (const std::uint32_t child : drawing_.children(stub, true))
        add(raised_.entity(child, handleOf(stub)));
}

void RaisedFile::addBlock(std::uint32_t record, const BlockPlace& block)
{
    const bool model = record == drawing_.modelSpace;
    const bool paper = record == drawing_.paperSpace;
    if (block.begin) {
        add(raised_.blockMark(block.begin, handleOf(record), paper));
    } else {
        add(makeBlockBegin(source_, spare(), handleOf(record),
                           symbolName(drawing_, "BLOCK_RECORD", record), paper));
    }
    if (!model && !paper)
        for (const std::uint32_t entity : block.entities)
            if (lives(entity))
                addEntity(entity, handleOf(record));
    if (block.end) {
        add(raised_.blockMark(block.end, handleOf(record), paper));
    } else {
        add(makeBlockEnd(source_, spare(), handleOf(record), paper));
    }
}

void RaisedFile::addBlocks()
{
    addScript("0 SECTION\n2 BLOCKS\n");
    const auto addOne = [&](std::uint32_t record) {
        const auto block = drawing_.blocks.find(record);
        if (block != drawing_.blocks.end())
            addBlock(record, block->second);
    };
    addOne(drawing_.modelSpace);
    addOne(drawing_.paperSpace);
    for (const auto& [record, block] : drawing_.blocks)
        if (record != drawing_.modelSpace && record != drawing_.paperSpace && lives(record))
            addBlock(record, block);
    addScript("0 ENDSEC\n");
}

void RaisedFile::addEntities()
{
    addScript("0 SECTION\n2 ENTITIES\n");
    std::vector<std::uint32_t> entities; // of both spaces, in file order
    for (const std::uint32_t space : {drawing_.modelSpace, drawing_.paperSpace})
        for (const std::uint32_t entity : drawing_.blocks[space].entities)
            if (lives(entity))
                entities.push_back(entity);
    std::sort(entities.begin(), entities.end());
    for (const std::uint32_t entity : entities)
        addEntity(entity, handleOf(drawing_.index[entity].owner));
    addScript("0 ENDSEC\n");
}

void RaisedFile::addObjects()
{
    addScript("0 SECTION\n2 OBJECTS\n");
    const std::string root = handleText(handleOf(drawing_.rootDictionary));
    const std::string group = spareText();
    const std::string layouts = spareText();
    const std::string lines = spareText();
    const std::string line = spareText();
    const std::string plots = spareText();
    const std::string styles = spareText();
    const ScriptEntry standard[] = {{"ACAD_GROUP", group},
                                    {"ACAD_LAYOUT", layouts},
                                    {"ACAD_MLINESTYLE", lines},
                                    {"ACAD_PLOTSETTINGS", plots},
                                    {"ACAD_PLOTSTYLENAME", styles}};
    TagList rootTags = raised_.complete(drawing_.rootDictionary);
    for (const ScriptEntry& entry : standard) {
        rootTags.addText(3, std::wstring(entry.name.begin(), entry.name.end()));
        rootTags.insertBytes(rootTags.size(), 350, entry.handle);
    }
    add(rootTags);
    addScript(dictionaryScript({group, root}, {}));
    addScript(
        dictionaryScript({layouts, root}, {{"Layout1", paperLayout_}, {"Model", modelLayout_}}));
    addScript(dictionaryScript({lines, root}, {{"Standard", line}}));
    addScript(dictionaryScript({plots, root}, {}));
    addScript(plotStyleScript({styles, root}, plotStyle_));
    addScript(multilineStyleScript({line, lines}));
    addScript(layoutScript({paperLayout_, layouts},
                           {"Layout1", handleText(handleOf(drawing_.paperSpace)), false}));
    addScript(layoutScript({modelLayout_, layouts},
                           {"Model", handleText(handleOf(drawing_.modelSpace)), true}));
    for (const std::uint32_t stub : written_.added)
        if (stub != drawing_.rootDictionary && isObjectRecord(drawing_, stub))
            add(raised_.complete(stub));
    addScript("0 ENDSEC\n0 EOF\n");
}

// Of the plot styles' dictionary and of what came from newer drawings.
void RaisedFile::addClasses()
{
    std::set<std::string_view> types{"ACDBDICTIONARYWDFLT"};
    for (const std::uint32_t stub : written_.added)
        types.insert(drawing_.index.types().name(drawing_.index[stub].type));
    addScript("0 SECTION\n2 CLASSES\n");
    for (const std::string_view type : types) {
        const auto borrowed = drawing_.borrowedClasses.find(type);
        if (const ClassRecord* const record = classRecordOf(type))
            addScript("0 CLASS\n1 " + std::string(record->type) + "\n2 " +
                      std::string(record->className) + "\n3 " + std::string(record->application) +
                      "\n90 " + std::to_string(record->capabilities) + "\n" +
                      (version_ >= DxfVersion::r2004 ? "91 1\n" : "") + "280 0\n281 " +
                      (record->entity ? "1" : "0") + "\n");
        else if (borrowed != drawing_.borrowedClasses.end())
            add(borrowed->second.inSource(source_));
    }
    addScript("0 ENDSEC\n");
}

std::string RaisedFile::text()
{
    addClasses();
    addTables();
    addBlocks();
    addEntities();
    addObjects();
    addHeader(); // last, for the seed; goes in front
    return std::move(out_);
}

} // namespace

std::string raisedDrawing(Drawing& drawing, const WrittenRecords& written, DxfVersion version)
{
    return RaisedFile(drawing, written, version).text();
}

} // namespace host
