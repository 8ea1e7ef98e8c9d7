#include "tools/sim/DrivePlayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "tools/drives/RecordText.h"

namespace plotvane {
namespace {

using Milliseconds = HostLink::Milliseconds;
using WriteResult = HostLink::WriteResult;

// The program reads one lead byte every 50 ms.
constexpr Milliseconds kIdleStep{50};
constexpr Milliseconds kFloodStep{10};
constexpr std::size_t kFloodBytes = 200;
constexpr Milliseconds kRetryStep{20};

Milliseconds FromSeconds(double seconds) {
    return Milliseconds(std::llround(seconds * 1000.0));
}

std::string_view ViewOf(const PipeBlock& block) {
    return {block.data(), block.size()};
}

// Always the same bytes, so that a failure can be reproduced.
PipeBlock ArbitraryBytes() {
    PipeBlock block;
    std::uint32_t random = 2463534242U;
    for (char& c : block) {
        random = random * 1664525U + 1013904223U;
        c = static_cast<char>(random >> 24U);
    }
    block.front() = '#';  // no control code, so the program takes the block for a record
    return block;
}

std::string FirstValues(const Drive& drive, double seconds) {
    std::string text;
    int shown = 0;
    for (int slot = 0; slot < kSlotCount && shown < 2; ++slot) {
        const DriveChannel& channel = drive.Channels().at(static_cast<std::size_t>(slot));
        if (!channel.IsUsed()) continue;
        if (shown++ > 0) text += "  ";
        text += ValueText(drive, slot, seconds) + ' ' + channel.unit;
    }
    return text;
}

// One run of the drive, from its start to its end.
class Session {
public:
    Session(HostLink& link, const Drive& drive, const PlayPlan& plan)
        : m_link(link), m_drive(drive), m_plan(plan), m_start(link.Now()) {}

    PlayResult Run() {
        while (m_alive && !m_died && !IsOver()) {
            Strike();
            SendRecord();
            ++m_number;
            IdleUntil(DueTime());
        }
        if (m_died) return PlayResult::Died;
        if (!m_alive) return PlayResult::ProgramGone;
        return TakeLeave();
    }

private:
    Milliseconds DueTime() const { return FromSeconds(Seconds()); }
    // The time of record m_number, in seconds since the start.
    double Seconds() const { return m_number / m_plan.rate; }

    double DriveSeconds() const {
        const double seconds = Seconds() * m_plan.speed;
        const double length = m_drive.Seconds();
        return m_plan.loop && length > 0 ? std::fmod(seconds, length) : seconds;
    }

    bool IsOver() const {
        if (m_plan.seconds && Seconds() >= *m_plan.seconds) return true;
        return !m_plan.loop && Seconds() * m_plan.speed > m_drive.Seconds();
    }

    void Strike() {
        if (m_struck || m_plan.fault == Fault::None || Seconds() < m_plan.faultAt) return;
        m_struck = true;
        const std::string record = CurrentRecord();
        const auto block = MakeBlock(record);
        switch (m_plan.fault) {
            case Fault::StopMidBlock:
                if (block) WriteSurely(ViewOf(*block).substr(0, block->size() / 2));
                m_mute = m_inBlock = true;
                break;
            case Fault::Die:
                if (block) WriteSurely(ViewOf(*block).substr(0, block->size() / 2));
                m_died = true;
                m_link.Die();
                break;
            case Fault::Malformed:
                if (const auto bad = MakeBlock(m_plan.module + ",G001,X0,0,,")) WriteSurely(ViewOf(*bad));
                break;
            case Fault::Silence:
                m_mute = true;
                break;
            case Fault::Garbage:
                WriteSurely(ViewOf(ArbitraryBytes()));
                break;
            case Fault::Flood:
            case Fault::None:
                break;
        }
    }

    std::string CurrentRecord() const {
        return RecordOf(m_drive, DriveSeconds(), m_plan.form, m_plan.module);
    }

    // Leaves out a record if the program reads too slowly; the next one holds newer values.
    void SendRecord() {
        if (!m_alive || m_died) return;
        if (!m_mute) {
            if (const auto block = MakeBlock(CurrentRecord())) {
                const WriteResult result = m_link.Write(ViewOf(*block));
                m_alive = result != WriteResult::ProgramGone;
                ++(result == WriteResult::Written ? m_records : m_heldBack);
            }
        }
        const double driveSeconds = DriveSeconds();
        m_link.Report({.seconds = Seconds(),
                       .driveSeconds = driveSeconds,
                       .records = m_records,
                       .heldBack = m_heldBack,
                       .phase = m_drive.Phase(driveSeconds),
                       .values = FirstValues(m_drive, driveSeconds)});
    }

    bool IsFlooding() const { return m_struck && m_plan.fault == Fault::Flood; }

    // Tells the program now and then that nothing is new, but only after it has read everything: empty
    // messages must not make a slow reader fall further behind.
    void IdleUntil(Milliseconds due) {
        static const std::string flood(kFloodBytes, kLeadNothingNew);
        while (m_alive && !m_died) {
            const Milliseconds left = m_start + due - m_link.Now();
            if (left <= Milliseconds::zero()) return;
            m_alive = m_link.Wait(std::min(left, IsFlooding() ? kFloodStep : kIdleStep));
            if (!m_alive || m_mute) continue;
            if (IsFlooding())
                m_alive = m_link.Write(flood) != WriteResult::ProgramGone;
            else if (m_start + due > m_link.Now() && m_link.IsDrained())
                m_alive = m_link.Write({&kLeadNothingNew, 1}) != WriteResult::ProgramGone;
        }
    }

    // Waits for room until the bytes are written or the program is gone.
    void WriteSurely(std::string_view bytes) {
        while (m_alive) {
            const WriteResult result = m_link.Write(bytes);
            if (result == WriteResult::Written) return;
            m_alive = result == WriteResult::NoRoom && m_link.Wait(kRetryStep);
        }
    }

    PlayResult TakeLeave() {
        if (m_inBlock) {
            // No control code: the program would take it for part of the block.
            m_link.Close();
            return PlayResult::PipeClosed;
        }
        if (m_plan.end != HostEnd::Close || m_plan.keepOpen) WriteSurely({&kLeadHostStopped, 1});
        if (m_plan.keepOpen) return m_alive ? PlayResult::Stopped : PlayResult::ProgramGone;
        if (m_alive && m_plan.end == HostEnd::Both) m_alive = m_link.Wait(FromSeconds(m_plan.pause));
        if (m_plan.end != HostEnd::Stop) WriteSurely({&kLeadHostClosing, 1});
        if (!m_alive) return PlayResult::ProgramGone;
        return m_plan.end == HostEnd::Close ? PlayResult::Closed : PlayResult::Stopped;
    }

    HostLink& m_link;
    const Drive& m_drive;
    const PlayPlan& m_plan;
    const Milliseconds m_start;
    int m_number = 0;  // of the record that is due
    int m_records = 0;
    int m_heldBack = 0;
    bool m_alive = true;
    bool m_struck = false;
    bool m_mute = false;
    bool m_inBlock = false;
    bool m_died = false;
};

// After 0xFE the program reads nothing until its user resumes it; then it reads this byte first.
bool WaitForRestart(HostLink& link) {
    while (!link.IsDrained()) {
        if (!link.Wait(kRetryStep)) return false;
    }
    if (link.Write({&kLeadNothingNew, 1}) != WriteResult::Written) return false;
    while (!link.IsDrained()) {
        if (!link.Wait(kRetryStep)) return false;
    }
    return true;
}

}  // namespace

PlayResult Play(HostLink& link, const Drive& drive, const PlayPlan& plan) {
    PlayResult result = Session(link, drive, plan).Run();
    PlayPlan again = plan;
    again.fault = Fault::None;
    while (plan.keepOpen && result == PlayResult::Stopped) {
        if (!WaitForRestart(link)) return PlayResult::ProgramGone;
        result = Session(link, drive, again).Run();
    }
    return result;
}

}  // namespace plotvane
