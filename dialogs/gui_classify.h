#pragma once

#include "host/ui/modal_dialog.h"

// What is done to entities that are made into objects; kept from run to run.
struct ClassifyParameters {
    bool assign = true;      // give them the look
    bool attach = true;      // give them the records
    bool change = true;      // take off what they were; only together with `attach`
    bool defineField = true; // has no effect
};

// "Classification parameters". What was answered is taken over by OK alone.
class GUIClassify : public host::ModalDialog {
public:
    explicit GUIClassify(ClassifyParameters& parameters);

    int DoModal();

private:
    ClassifyParameters& parameters_;
    host::CheckBox& assign_;
    host::CheckBox& attach_;
    host::CheckBox& change_;
    host::CheckBox defineField_; // never shown
};
