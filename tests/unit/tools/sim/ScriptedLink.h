#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/drives/RecordText.h"
#include "tools/sim/HostLink.h"

namespace plotvane::test {

// A pipe of a given capacity. Its reader takes everything at each wait, unless a test makes it stop.
class ScriptedLink final : public HostLink {
public:
    struct Sent {
        Milliseconds at;
        std::string bytes;
    };

    WriteResult Write(std::string_view bytes) override {
        if (gone || closed) return WriteResult::ProgramGone;
        if (unread + bytes.size() > capacity) return WriteResult::NoRoom;
        unread += bytes.size();
        sent.push_back({now, std::string(bytes)});
        return WriteResult::Written;
    }
    bool IsDrained() override { return unread == 0; }
    bool Wait(Milliseconds time) override {
        now += time;
        if (onWait) onWait();
        if (reads) unread = 0;
        return !gone;
    }
    Milliseconds Now() override { return now; }
    void Close() override { closed = true; }
    void Die() override { died = true; }
    void Report(const PlayProgress& progress) override { reports.push_back(progress); }

    // The values of the records, "0.0 0.5 ...", and the control codes in hex; 0xFF only if asked for.
    std::string Story(bool withIdle = false) const {
        std::string story;
        for (const Sent& write : sent) {
            const std::string_view bytes = write.bytes;
            if (bytes.size() == 1) {
                if (bytes[0] == kLeadNothingNew && !withIdle) continue;
                story += bytes[0] == kLeadNothingNew ? "FF " : bytes[0] == kLeadHostStopped ? "FE " : "FD ";
            } else if (bytes.size() == RecordBuffer::kBlockSize && bytes.starts_with("M,G001,F0,")) {
                story += std::string(bytes.substr(10, bytes.find(',', 10) - 10)) + ' ';
            } else {
                story += '[' + std::to_string(bytes.size()) + "] ";
            }
        }
        return story;
    }

    std::vector<Sent> sent;
    std::vector<PlayProgress> reports;
    std::function<void()> onWait;
    std::size_t capacity = 4096;
    std::size_t unread = 0;
    Milliseconds now{1000};
    bool reads = true;
    bool gone = false;
    bool closed = false;
    bool died = false;
};

}  // namespace plotvane::test
