#pragma once

#include "host/ui/modal_dialog.h"

#include <string>
#include <vector>

// "Remove": shows names in alphabetical order, none of them selected. OK leaves in `names` what the
// user selected, in the order it had; of equal names as many as rows were selected.
class GUIOD : public host::ModalDialog {
public:
    explicit GUIOD(std::vector<std::wstring>& names);

    int DoModal();

    // The button "Select All": all rows, or none when all are selected already.
    void SelectAll();

private:
    std::vector<std::wstring>& names_;
    host::ChoiceList& list_;
};
