#pragma once

#include "description/description.h"
#include "objects/stored_tables.h"

#include <map>
#include <span>
#include <unordered_map>
#include <vector>

// The objects that records of an entity stand for, each once, in the order of their lower-cased
// names.
std::vector<const ObjectDef*> objectsOfRecords(const Description& description, StoredTables& tables,
                                               std::span<const OdRecord> records);

// Which objects of a description an entity is, with any values: what asking validateObject for
// every object in turn tells, but only those are asked for whose key some record may have. Expands
// keys when it is made; must not outlive the command, the description or the tables.
class ValidObjects {
public:
    ValidObjects(const Description& description, StoredTables& tables);

    // The first in the order of lower-cased names, or the first behind `after`; null for none.
    const ObjectDef* next(std::span<const OdRecord> records,
                          const ObjectDef* after = nullptr) const;

    // The highest display priority among them; the least integer for an entity that is no object.
    std::int32_t highestPriority(std::span<const OdRecord> records) const;

private:
    // Objects by their place in the order of names.
    using Places = std::vector<std::size_t>;

    // The objects whose first table, by its exact name, is this one and has its key field at this
    // position.
    struct Keyed {
        std::size_t position = 0;
        std::unordered_map<std::wstring, Places> byText; // what a key of type character has to be
        Places all;                                      // a key of another type may equal any text
    };

    void enter(std::size_t place);
    Places candidates(std::span<const OdRecord> records) const; // ascending, each once
    bool isValid(std::size_t place, std::span<const OdRecord> records) const;

    const Description& description_;
    StoredTables& tables_;
    std::vector<const ObjectDef*> objects_; // in the order of their names
    std::unordered_map<const ObjectDef*, std::size_t> places_;
    std::map<std::wstring, std::vector<Keyed>, std::less<>> byTable_;
    Places withoutTables_; // any record makes an entity these
};
