#pragma once

namespace plotvane {

// Called now and then during a long read, which may take seconds if a file is huge.
struct ReadWatch {
    virtual ~ReadWatch() = default;

    // May dispatch messages, so that the window stays alive. False if the text is no longer wanted. Any read
    // of the text may call it; it must not close or open the text.
    virtual bool GoOn() = 0;
};

}  // namespace plotvane
