// The commands that go through a whole drawing against walks that do what they promise one entity,
// object and record at a time, on random drawings.

#include "host/edit/document.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/wide_format.h"
#include "objects/conformity.h"
#include "objects/record_object.h"
#include "objects/validation.h"
#include "store/od_tables.h"
#include "store/record_writing.h"
#include "tests/support/dice.h"
#include "tests/support/draw_order.h"
#include "tests/support/plugin_test.h"

#include <limits>
#include <map>
#include <set>

namespace {

constexpr unsigned kDrawings = 1000;

// The tables that objects share: a key, and one field more.
struct Table {
    const wchar_t* name;
    const wchar_t* field;
    OdType type;
    const char* rest;                             // of the field's line
    const wchar_t* defaults;                      // of a record, behind its key
    std::initializer_list<const wchar_t*> values; // for records; not all are legal
};

const Table kTables[] = {
    {L"WALLS", L"FLOORS", OdType::integer, "required integer|2|1:9", L",2", {L"2", L"9", L"99"}},
    {L"OWNERS",
     L"OWNER",
     OdType::character,
     "required character|city|city,state",
     L",city",
     {L"city", L"nobody"}},
    {L"PIPES", L"DEPTH", OdType::integer, "integer|3|1,2,3", L",3", {L"1", L"50"}},
};

class PlainWalkTest : public PluginTest {
protected:
    // A drawing, a description of it and records, as this throw of the dice has them.
    void make(Dice& dice)
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("ROOFS");
        drawing.layer("Locked", 4);
        std::vector<std::pair<std::string, bool>> made; // and whether it may be touched
        for (int count = dice.below(9); count >= 0; --count) {
            // of one at least
            const char* const layer =
                count == 0 ? "0" : dice.of({"0", "Walls", "ROOFS", "Walls", "ROOFS", "Locked"});
            const std::string color = "62\n" + std::to_string(1 + dice.below(3)) + "\n";
            made.emplace_back(dice.oneIn(3)
                                  ? drawing.entity("POINT", "AcDbPoint",
                                                   "10\n0.0\n20\n0.0\n30\n0.0\n", layer, color)
                                  : drawing.line(layer, color),
                              std::string_view(layer) != "Locked");
        }
        // loaded elsewhere: this drawing's tables may differ
        const std::wstring printed = load(randomObjects(dice));
        ASSERT_EQ(printed.find(L"rror"), std::wstring::npos) << host::toUtf8(printed);
        open(drawing);
        all_.clear();
        std::set<AcDbObjectId> locked;
        for (const auto& [handle, isUsable] : made) {
            all_.push_back(idOf(handle));
            if (!isUsable)
                locked.insert(all_.back());
        }
        // the last one takes the place of what is left out
        usable_ = all_;
        for (std::size_t at = 0; at < usable_.size();)
            if (locked.contains(usable_[at])) {
                usable_[at] = usable_.back();
                usable_.pop_back();
            } else {
                ++at;
            }
        addRandomRecords(dice);
    }

    void checkStatistics();
    void checkDisplayOrder();
    void checkByLook(bool undrawable);
    void checkByRecords(bool undrawable);

    int classes_ = 0; // drawings with some, and with some entity moved
    int moved_ = 0;
    int attached_ = 0; // entities
    int assigned_ = 0;
    int dropped_ = 0;

private:
    const Description& description() { return *::session().description; }

    // "WALLS,Object1,2" of each record, sorted.
    std::multiset<std::wstring> records(AcDbObjectId id)
    {
        std::multiset<std::wstring> texts;
        for (const OdRecord& record : StoredTables(storeId()).recordsOf(id)) {
            std::wstring text;
            for (const auto& field : record.fields)
                text += L"," + field.value.displayText();
            texts.insert(record.name + text);
        }
        return texts;
    }
    std::wstring look(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        return host::lowerCased(entity->layer()) + L" " + std::to_wstring(entity->colorIndex());
    }
    bool isObject(AcDbObjectId id, const ObjectDef& object, Values values = Values::any,
                  Fields fields = Fields::all)
    {
        StoredTables tables(storeId());
        return validateObject(description(), tables, id, object.props.name, values, fields);
    }

    std::wstring plainReport();
    std::vector<AcDbObjectId> plainOrder();
    const ObjectDef* plainBestByLook(AcDbObjectId id, bool undrawable);
    const ObjectDef* plainBestByRecords(AcDbObjectId id, bool undrawable);
    static std::wstring plainLook(const AcDbEntity& entity, const GraphicProps& wanted);

    // As the tables of the drawing take it.
    std::wstring newRecord(const std::wstring& table, const std::wstring& object)
    {
        OdTable stored;
        getTable(storeId(), table, stored);
        const auto row = std::find_if(std::begin(kTables), std::end(kTables),
                                      [&](const Table& each) { return each.name == table; });
        const bool hasNote = stored.fields.size() == 3;
        return table + L"," + object + row->defaults + (hasNote ? L"," : L"");
    }
    void checkCompleted(const wchar_t* mode, bool undrawable, int count, std::size_t left)
    {
        const std::wstring printed = transcript(std::wstring(L"kelmaro_classify_auto\n") + mode +
                                                (undrawable ? L"\n1\n\n" : L"\n0\n\n"));
        const std::wstring line =
            host::format(L"Completed: %i/%i\n", count, static_cast<int>(left));
        EXPECT_NE(printed.find(line), std::wstring::npos)
            << host::toUtf8(printed) << host::toUtf8(line);
    }

    static std::string tableLines(const Table& row)
    {
        return "od_name|" + host::toUtf8(row.name) + "\nod_key|NAME\nod_fld|" +
               host::toUtf8(row.field) + "|f|" + row.rest + "\n";
    }

    static std::string randomObjects(Dice& dice)
    {
        std::string lines;
        const int count = 1 + dice.below(7);
        for (int at = 0; at < count; ++at) {
            lines += "obj_name|Object" + std::to_string(at) + (dice.oneIn(4) ? "|0|" : "|1|");
            lines += dice.oneIn(8) ? dice.of({"-2147483648", "-2147483647", "-2147483646"})
                                   : std::to_string(dice.below(4) - 1);
            lines += "\nobj_type|" + std::string(dice.of({"Line", "Point", "Line,Point"})) + "\n";
            lines += dice.of({"", "obj_prop|layer|walls\n", "obj_prop|layer|roofs|roofs,walls\n",
                              "obj_prop|layer|walls|0:roofs\n"});
            lines += dice.of({"", "obj_prop|color|1\n", "obj_prop|color|2,3\n"});
            const int first = dice.below(3);
            lines += tableLines(kTables[first]);
            if (dice.oneIn(3))
                lines += tableLines(kTables[(first + 1) % 3]);
        }
        return lines;
    }

    // Their keys name objects in either case, or none; a table may differ from the description's.
    void addRandomRecords(Dice& dice)
    {
        for (const Table& row : kTables) {
            std::vector<OdField> fields;
            fields.emplace_back(L"NAME", OdType::character);
            fields.emplace_back(row.field, row.type);
            if (dice.oneIn(6))
                fields.emplace_back(L"NOTE", OdType::character);
            ASSERT_EQ(createTable(storeId(), row.name, fields), AcMap::kOk);
        }
        for (const AcDbObjectId id : usable_)
            for (int count = dice.below(4); count > 0; --count) {
                const Table& row = dice.of(kTables);
                OdTable stored;
                ASSERT_EQ(getTable(storeId(), row.name, stored), AcMap::kOk);
                OdRecord record;
                initRecord(stored, record);
                record.fields[0].value = OdValue((dice.oneIn(6) ? L"OBJECT" : L"Object") +
                                                 std::to_wstring(dice.below(8)));
                record.fields[1].value = OdValue::fromText(row.type, dice.of(row.values));
                ASSERT_EQ(addRecord(stored, record, id), AcMap::kOk);
            }
    }

    std::vector<AcDbObjectId> all_; // in the order of the drawing
    std::vector<AcDbObjectId> usable_;
};

std::wstring PlainWalkTest::plainReport()
{
    std::set<std::wstring> lines;
    std::set<AcDbObjectId> classified;
    int classes = 0;
    int invalid = 0;
    for (const auto& [name, object] : description().objects) {
        int count = 0;
        for (const AcDbObjectId id : usable_) {
            StoredTables tables(storeId());
            bool named = false;
            for (const OdRecord& record : tables.recordsOf(id))
                named = named || objectOfRecord(description(), record, tables) == &object;
            if (!named || !isObject(id, object))
                continue;
            ++count;
            classified.insert(id);
            if (!isObject(id, object, Values::legal, Fields::required))
                ++invalid;
        }
        if (count == 0)
            continue;
        ++classes;
        lines.insert(L"\t" + object.props.name + L": " + std::to_wstring(count) +
                     L" (0 invalid)\n");
    }
    std::wstring report = host::format(
        L"Objects: %i (%i unclassified)\nClasses: %i\n", static_cast<int>(usable_.size()),
        static_cast<int>(usable_.size() - classified.size()), classes);
    for (const std::wstring& line : lines)
        report += line;
    return report + (lines.empty() ? L"" : L"\n") + L"Invalid definitions: " +
           std::to_wstring(invalid) + L"\n";
}

// What may not be touched keeps its place.
std::vector<AcDbObjectId> PlainWalkTest::plainOrder()
{
    std::vector<std::pair<std::int32_t, AcDbObjectId>> sorted;
    for (const AcDbObjectId id : usable_) {
        std::int32_t priority = std::numeric_limits<std::int32_t>::min();
        for (const auto& [name, object] : description().objects)
            if (object.priority > priority && isObject(id, object))
                priority = object.priority;
        sorted.emplace_back(priority, id);
    }
    for (bool changed = true; changed;) {
        changed = false;
        for (std::size_t i = 0; i < sorted.size(); ++i)
            for (std::size_t j = i + 1; j < sorted.size(); ++j)
                if (sorted[i].first > sorted[j].first) {
                    std::swap(sorted[i], sorted[j]);
                    changed = true;
                }
    }
    std::vector<AcDbObjectId> order = all_;
    auto next = sorted.begin();
    for (AcDbObjectId& place : order)
        if (std::find(usable_.begin(), usable_.end(), place) != usable_.end())
            place = (next++)->second;
    return order;
}

const ObjectDef* PlainWalkTest::plainBestByLook(AcDbObjectId id, bool undrawable)
{
    std::int32_t priority = std::numeric_limits<std::int32_t>::min();
    const ObjectDef* best = nullptr;
    for (const auto& [name, object] : description().objects)
        if ((object.drawable || undrawable) && object.priority > priority &&
            conforms(description(), id, name)) {
            priority = object.priority;
            best = &object;
        }
    return best;
}

const ObjectDef* PlainWalkTest::plainBestByRecords(AcDbObjectId id, bool undrawable)
{
    std::int32_t priority = std::numeric_limits<std::int32_t>::min() + 1;
    const ObjectDef* best = nullptr;
    StoredTables tables(storeId());
    for (const OdRecord& record : tables.recordsOf(id)) {
        const ObjectDef* const object = objectOfRecord(description(), record, tables);
        if (object && (object->drawable || undrawable) && object->priority > priority) {
            priority = object->priority;
            best = object;
        }
    }
    return best;
}

// Accepted values stay; the objects have layers and colours only.
std::wstring PlainWalkTest::plainLook(const AcDbEntity& entity, const GraphicProps& wanted)
{
    const std::wstring drawn = entity.layer();
    const PropConstraint<std::wstring>& layers = wanted.layer;
    const auto isDrawn = [&](const std::wstring& name) { return host::equalNoCase(name, drawn); };
    const std::vector<std::wstring>& more = layers.accepted;
    const bool inList =
        layers.mode == kValueAndList && std::any_of(more.begin(), more.end(), isDrawn);
    const bool inRange = layers.mode == kValueAndRange && (isDrawn(more[0]) || more[0] < drawn) &&
                         (isDrawn(more[1]) || drawn < more[1]);
    const bool stays = !layers.isGiven() || isDrawn(layers.value) || inList || inRange;
    const std::wstring layer = host::lowerCased(stays ? drawn : layers.value);

    std::int32_t color = entity.colorIndex();
    const ColorList& colors = wanted.color;
    if (!colors.empty() &&
        std::find(colors.begin(), colors.end(), ColorEntry{color}) == colors.end())
        color = colors.front().front();
    return layer + L" " + std::to_wstring(color);
}

void PlainWalkTest::checkStatistics()
{
    const std::wstring report = plainReport();
    const std::wstring printed = transcript(L"kelmaro_stat\n\n");
    ASSERT_NE(printed.find(report), std::wstring::npos)
        << host::toUtf8(printed) << host::toUtf8(report);
    classes_ += report.find(L"Classes: 0") == std::wstring::npos;
}

void PlainWalkTest::checkDisplayOrder()
{
    const std::vector<AcDbObjectId> order = plainOrder();
    type(L"kelmaro_sort\n\n");
    ASSERT_EQ(drawOrderOf(database()), order);
    moved_ += order != all_;
}

void PlainWalkTest::checkByLook(bool undrawable)
{
    int count = 0;
    std::map<AcDbObjectId, std::multiset<std::wstring>> expected;
    for (const AcDbObjectId id : all_)
        expected[id] = records(id);
    for (const AcDbObjectId id : usable_) {
        const ObjectDef* const best = plainBestByLook(id, undrawable);
        if (!best || isObject(id, *best))
            continue;
        ++count;
        for (const TableDef& table : best->props.tables)
            expected[id].insert(newRecord(table.name, best->props.name));
    }
    checkCompleted(L"0", undrawable, count, usable_.size());
    for (const AcDbObjectId id : all_)
        ASSERT_EQ(records(id), expected[id]);
    attached_ += count;
}

void PlainWalkTest::checkByRecords(bool undrawable)
{
    int count = 0;
    std::size_t left = usable_.size();
    std::map<AcDbObjectId, std::wstring> expected;
    for (const AcDbObjectId id : all_)
        expected[id] = look(id);
    for (const AcDbObjectId id : usable_) {
        const ObjectDef* const best = plainBestByRecords(id, undrawable);
        if (!best)
            continue;
        if (AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            typeAccepted(*best, *entity)) {
            ++count;
            expected[id] = plainLook(*entity, best->props);
        } else {
            --left;
        }
    }
    checkCompleted(L"1", undrawable, count, left);
    for (const AcDbObjectId id : all_)
        ASSERT_EQ(look(id), expected[id]);
    assigned_ += count;
    dropped_ += static_cast<int>(usable_.size() - left);
}

} // namespace

TEST_F(PlainWalkTest, CommandsDoTheSameOnRandomDrawings)
{
    for (unsigned seed = 0; seed < kDrawings; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        ASSERT_NO_FATAL_FAILURE(make(dice));
        ASSERT_NO_FATAL_FAILURE(checkStatistics());
        ASSERT_NO_FATAL_FAILURE(checkDisplayOrder());
        ASSERT_NO_FATAL_FAILURE(checkByLook(dice.oneIn(2)));
        ASSERT_NO_FATAL_FAILURE(checkByRecords(dice.oneIn(2)));
        session().documents().closeDocument(curDoc());
    }
    // the drawings are not beside the descriptions
    EXPECT_GT(classes_, 300);
    EXPECT_GT(moved_, 300);
    EXPECT_GT(attached_, 1000);
    EXPECT_GT(assigned_, 1000);
    EXPECT_GT(dropped_, 100);
}
