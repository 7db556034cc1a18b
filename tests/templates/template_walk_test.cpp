// The whole command against a walk that compares each entity with every object before it.

#include "host/db/block_table.h"
#include "host/edit/document.h"
#include "templates/object_from_entity.h"
#include "templates/object_name.h"
#include "templates/object_writer.h"
#include "templates/same_object.h"
#include "tests/templates/template_test.h"

#include <set>

namespace {

constexpr unsigned kDrawings = 1000;

class TemplateWalkTest : public TemplateTest {
protected:
    std::vector<GraphicProps> plainObjects()
    {
        std::vector<GraphicProps> objects;
        for (const AcDbObjectId id : entities()) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            GraphicProps props;
            ObjectFromEntity(props, *entity);
            const std::wstring block = props.blockName.value;
            bool known = props.types.front() == L"BlockReference" &&
                         (block.empty() || block.front() == L'*');
            for (const GraphicProps& other : objects)
                known = known || SameObject(other, props);
            if (!known)
                objects.push_back(props);
        }
        return objects;
    }

    static std::wstring plainBody(const std::vector<GraphicProps>& objects, const wchar_t* format)
    {
        std::set<std::wstring> types;
        for (const GraphicProps& object : objects)
            types.insert(object.types.front());
        std::wstring text;
        for (const std::wstring& type : types) {
            text += L"Class|" + type + L"|1\n\n";
            std::size_t number = 0;
            for (GraphicProps object : objects) {
                if (object.types.front() != type)
                    continue;
                object.name = FormatObjectName(format, object, ++number);
                std::wstring lines;
                text += WriteObject(object, lines) + L"|od_name|OD_NAME\n||od_key|OD_KEY\n\n";
            }
            text += L"/Class\n\n";
        }
        std::replace(text.begin(), text.end(), L'\t', L'|');
        return text;
    }
};

} // namespace

TEST_F(TemplateWalkTest, WritesTheSameOnRandomDrawings)
{
    constexpr int kEntities = 24;
    constexpr const wchar_t* kFormat = L"%T_%i_%l";
    std::mt19937 random(20260);
    std::size_t repeated = 0;
    for (unsigned round = 0; round < kDrawings; ++round) {
        SCOPED_TRACE(round);
        DxfDrawing drawing;
        drawing.luprec = static_cast<int>(round % 7);
        look::addResources(drawing);
        look::addRandomEntities(drawing, random, kEntities);
        open(drawing);
        const std::vector<GraphicProps> objects = plainObjects();
        const std::wstring precision = std::to_wstring(drawing.luprec);

        ASSERT_TRUE(
            tells(generate(kFormat), L"Completed: " + std::to_wstring(objects.size()) + L"/24\n"));
        ASSERT_EQ(body(), L"Variable|INSUNITS|6\nVariable|LUPREC|" + precision + L"\n\n" +
                              plainBody(objects, kFormat));
        repeated += kEntities - objects.size();
        std::filesystem::remove(target());
        session().documents().closeDocument(curDoc());
    }
    EXPECT_GT(repeated, 2000u);
}
