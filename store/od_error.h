#pragma once

// The codes of the object data layer: returned by operations, thrown by conversions of values.
namespace AcMap {

enum EErrCode {
    kOk = 0,
    kRecordNotOpened = 3,  // the record's extension dictionary or xrecord cannot be opened
    kNoConversion = 6,     // between these types of value
    kNotFound = 11,        // a table, a field, a record, an extension dictionary, a point in a text
    kEntityNotOpened = 18, // the entity cannot be opened
    kTableExists = 20,     // under that name
};

} // namespace AcMap
