#pragma once

#include "description/description.h"
#include "description/macro_defines.h"
#include "import/resource_kind.h"
#include "store/od_store.h"
#include "text/message_sink.h"

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The parts of a line, the keyword first.
using Tokens = std::span<const std::wstring>;

// What is open while a description is read, and what is known so far. An object stays open until
// the next one or the end of the file, a table until the next table or the end of its object.
//
// Directives work on it. They answer false after an error, which ends the reading.
struct ReadingState {
    ReadingState(std::wstring_view path, MessageSink& messages, OdStore& tables)
        : sink(messages), store(tables)
    {
        description.filePath = path;
    }
    ReadingState(const ReadingState&) = delete;
    ReadingState& operator=(const ReadingState&) = delete;

    // With the number of the line.
    void warn(Message id, std::wstring_view item = {}) { sink.message(lineNumber, id, item); }
    bool fail(Message id, std::wstring_view item = {})
    {
        warn(id, item);
        return false;
    }

    // The working drawing's dictionary of tables, made if there is none.
    AcDbObjectId storeId() { return store.getStoreId(store.currentDatabase()); }

    Description description;
    MessageSink& sink;
    OdStore& store;

    // Kinds that the directives ask of each file, by its lower-cased full path.
    std::map<std::wstring, ResourceKinds> resourceRequests;
    // A font cannot be found. What follows is still read up to the next table or variable, so that
    // its faults are told as well.
    bool failed = false;

    int lineNumber = 0; // pieces read
    int classDepth = 0;
    bool classEnabled = true; // whether objects may be drawable
    bool autoConst = false;
    MacroDefines defines;
    // The open classes, innermost last. Only the innermost gets children, so none of them moves.
    std::vector<ClassDef*> classStack{&description.rootClass};
    std::set<std::wstring> classNames{std::wstring()}; // lower-cased, that of the root too
    std::wstring currentName;     // lower-cased name of the open object; empty when none is
    std::wstring lastClassedName; // the last one that a class took in
    ObjectDef currentObject;
    TableDef currentTable;                       // without a name when none is open
    std::map<std::wstring, TableDef> seenTables; // the first of each name, lower-cased
};
