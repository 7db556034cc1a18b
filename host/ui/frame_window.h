#pragma once

// The host's main window: whether typed input goes to it, or to a palette or a dialog.
class CMDIFrameWnd {
public:
    void SetFocus() { focused_ = true; }
    void KillFocus() { focused_ = false; } // another window has it
    bool hasFocus() const { return focused_; }

private:
    bool focused_ = true;
};

// The program's one.
CMDIFrameWnd* acedGetAcadFrame();
