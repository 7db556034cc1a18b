#pragma once

#include "host/ui/modal_dialog.h"

#include <string>
#include <string_view>

// Shows a long text for reading; it is closed, and that is all it answers.
class GUITextBox : public host::ModalDialog {
public:
    std::wstring title; // the window's caption
    std::wstring text;  // lines apart by carriage return and line feed, a last carriage return
    int width = 0;      // the size at which it opens, in pixels
    int height = 0;

    // Takes lines ended by line feeds and puts a carriage return before each of these. From the
    // last line feed on the text is dropped, so one without any shows nothing.
    void SetText(std::wstring_view lines);

    int DoModal();

private:
    host::TextPane& box_ = add<host::TextPane>(std::wstring());
};
