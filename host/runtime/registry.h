#pragma once

#include "host/runtime/rx_object.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

// Objects of the running program by name. Names compare exactly; the objects belong to those who
// put them in, and who take them out before they die.
class AcRxDictionary : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcRxDictionary)

public:
    AcRxObject* at(std::wstring_view key) const; // null when nothing has the name
    AcRxObject* atPut(std::wstring_view key,
                      AcRxObject* object);     // what had the name before, or null
    AcRxObject* remove(std::wstring_view key); // what had the name, or null
    bool has(std::wstring_view key) const { return at(key) != nullptr; }

private:
    std::map<std::wstring, AcRxObject*, std::less<>> objects_;
};

// The program's one dictionary. Names in it: "ACAD_REGISTERED_COMMANDS" (the command stack),
// "AcEditor" (the editor's notices), "KELMARO" (how the module's last load ended).
AcRxDictionary* acrxSysRegistry();
