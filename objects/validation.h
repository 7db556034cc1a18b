#pragma once

#include "description/description.h"
#include "objects/stored_tables.h"

#include <span>
#include <string_view>

// Whether the records of an entity are right. Nothing is changed or printed.

enum class Values { any, legal };    // whether the values of the records are tested too
enum class Fields { all, required }; // which fields are

// One value against one definition, whose texts may hold macros of the object.
bool valueAccepted(const FieldDef& field, const ObjectDef& object, const OdValue& value);

// The entity is an object of that name: each of the object's tables has a record there with the
// object's key, compared with case, whose values are legal if that is asked for. Where no object
// has the name, an object of the class of that name will do; its values are not tested.
bool validateObject(const Description& description, StoredTables& tables, AcDbObjectId entity,
                    std::wstring_view name, Values values, Fields fields);

// The same of an entity whose records have been read.
bool validateObject(const Description& description, StoredTables& tables,
                    std::span<const OdRecord> records, std::wstring_view name, Values values,
                    Fields fields);

// The entity is an object of the class or of a class below it; values are not tested.
bool classValid(const Description& description, StoredTables& tables, AcDbObjectId entity,
                const ClassDef& classDef);
