#pragma once

#include "tools/sim/Console.h"
#include "tools/sim/HostLink.h"
#include "tools/sim/HostedProgram.h"
#include "tools/sim/PipeToProgram.h"

namespace plotvane {

// The real environment of the stand-in host: a pipe, a process, the system's clock and the console.
class PipeLink final : public HostLink {
public:
    PipeLink(PipeToProgram& pipe, const HostedProgram& program, Console& console)
        : m_pipe(pipe), m_program(program), m_console(console) {}

    WriteResult Write(std::string_view bytes) override;
    bool IsDrained() override { return m_pipe.IsDrained(); }
    bool Wait(Milliseconds time) override;
    Milliseconds Now() override;
    void Close() override { m_pipe.CloseWriteEnd(); }
    void Die() override;
    void Report(const PlayProgress& progress) override;

private:
    PipeToProgram& m_pipe;
    const HostedProgram& m_program;
    Console& m_console;
    double m_nextReport = 0;  // seconds since playing began
    double m_lastReport = 0;
};

}  // namespace plotvane
