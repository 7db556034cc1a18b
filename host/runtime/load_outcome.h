#pragma once

#include "host/runtime/rx_object.h"

namespace host {

// How the last load of a description ended. The module keeps one such object under "KELMARO" in
// acrxSysRegistry() while it is loaded; a program that loads a description asks it for its exit
// status.
class LoadOutcome : public AcRxObject {
public:
    enum class State {
        notLoaded, // nothing was chosen yet
        notOpened, // the file could not be opened
        failed,    // the reader told an error; the description is empty
        loaded,
    };

    virtual State state() const = 0;
    virtual bool loaded() const { return state() == State::loaded; }
};

} // namespace host
