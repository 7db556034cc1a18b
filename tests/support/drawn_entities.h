#pragma once

#include "host/db/angle.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/object_pointer.h"
#include "host/geom/point.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

#include <cstdio>
#include <span>
#include <string>
#include <vector>

// Drawing commands as a user types them, and what is then in model space: an entity is one short
// text of its values, rounded to a millionth.
class DrawnTest : public DrawingTest {
protected:
    static std::string number(double value)
    {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.6f", value);
        std::string text = digits;
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
        return text == "-0" ? "0" : text;
    }
    static std::string degrees(double radians) { return number(host::toDegrees(radians)); }
    static std::string plane(const AcGePoint3d& p) { return number(p.x) + "," + number(p.y); }
    static std::string space(const AcGePoint3d& p) { return plane(p) + "," + number(p.z); }

    std::vector<AcDbObjectId> drawn() { return entities(); }
    // What a typed text leaves in model space, entities apart by "; ".
    struct Row {
        const wchar_t* typed;
        const char* drawn;
    };
    void expect(std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            SCOPED_TRACE(host::toUtf8(row.typed));
            clear();
            type(row.typed);
            EXPECT_EQ(session().engine().waiting().command, L""); // it has ended
            std::string all;
            for (const AcDbObjectId id : drawn())
                all += (all.empty() ? "" : "; ") + text(id);
            EXPECT_EQ(all, row.drawn);
        }
    }
    virtual std::string text(AcDbObjectId entity) = 0;

    // Takes them all away, so that each row of a table begins with an empty drawing.
    void clear()
    {
        for (const AcDbObjectId id : drawn()) {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
            entity->erase();
        }
    }
    template <class T> AcDbObjectPointer<T> last()
    {
        const std::vector<AcDbObjectId> ids = drawn();
        return ids.empty() ? AcDbObjectPointer<T>()
                           : AcDbObjectPointer<T>(ids.back(), AcDb::kForRead);
    }
};
