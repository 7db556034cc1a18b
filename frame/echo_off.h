#pragma once

// The host's echo of commands (CMDECHO) off while the scope lasts.
class EchoOff {
public:
    EchoOff();
    ~EchoOff();
    EchoOff(const EchoOff&) = delete;
    EchoOff& operator=(const EchoOff&) = delete;

private:
    short before_ = 1;
};
