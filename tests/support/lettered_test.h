#pragma once

#include "host/db/entity.h"
#include "host/edit/pick_first.h"
#include "host/text/encoding.h"
#include "tests/support/plugin_test.h"

#include <map>

inline bool tells(const std::wstring& printed, std::wstring_view text)
{
    return printed.find(text) != std::wstring::npos;
}

// A test of commands on a drawing whose entities are named by letters; the derived test draws them,
// and says in its comment which is which.
class LetteredTest : public PluginTest {
protected:
    const Description& description() { return *::session().description; }
    AcDbObjectId id(char letter) { return idOf(lettered.at(letter)); }
    void classify(char letter, std::wstring_view name)
    {
        classifyAs(description(), storeId(), id(letter), name);
    }

    void select(std::string_view letters)
    {
        std::vector<AcDbObjectId> ids;
        for (const char letter : letters)
            ids.push_back(id(letter));
        host::setPickFirst(ids);
    }
    // The selection as letters, in its order.
    std::string selected()
    {
        std::string letters;
        for (const AcDbObjectId entity : host::currentPickFirst())
            for (const auto& [letter, handle] : lettered)
                if (idOf(handle) == entity)
                    letters += letter;
        return letters;
    }

    // "Layer colour".
    std::string look(char letter)
    {
        const AcDbObjectPointer<AcDbEntity> entity(id(letter), AcDb::kForRead);
        return host::toUtf8(entity->layer()) + " " + std::to_string(entity->colorIndex());
    }

    std::map<char, std::string> lettered;
};
