#pragma once

namespace plotvane {

// Asked now and then in the midst of a long read, which may go on for seconds where a file is huge.
struct ReadWatch {
    virtual ~ReadWatch() = default;

    // May dispatch messages, so that the window stays alive. False if what is read is no longer wanted. May
    // be asked from any read of its text, which must not be closed or opened meanwhile.
    virtual bool GoOn() = 0;
};

}  // namespace plotvane
