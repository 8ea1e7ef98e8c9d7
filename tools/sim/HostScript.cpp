#include "tools/sim/HostScript.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/TextInput.h"
#include "model/RecordBuffer.h"
#include "tools/drives/RecordText.h"
#include "tools/drives/TextLine.h"

namespace plotvane {
namespace {

using Milliseconds = std::chrono::milliseconds;

constexpr std::size_t kMaxLineLength = 16'384;
constexpr std::size_t kMaxSteps = 10'000;
constexpr std::size_t kMaxBytes = 4096;  // of one command: it must fit the pipe in one piece
constexpr int kLongestWaitMs = 600'000;
constexpr Milliseconds kRetryStep{5};

std::optional<char> ByteInHex(std::string_view digits) {
    unsigned value = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() != 2 || result.ec != std::errc{} || result.ptr != end) return std::nullopt;
    return static_cast<char>(value);
}

// Pairs of hexadecimal digits, with or without blanks between the pairs.
std::optional<std::string> BytesInHex(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        if (text.front() == ' ') {
            text.remove_prefix(1);
            continue;
        }
        const auto byte = ByteInHex(text.substr(0, 2));
        if (!byte || bytes.size() == kMaxBytes) return std::nullopt;
        bytes += *byte;
        text.remove_prefix(2);
    }
    if (bytes.empty()) return std::nullopt;
    return bytes;
}

// "\xHH" stands for that byte, "\\" for a backslash.
std::optional<std::string> Unescaped(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        std::size_t length = 1;
        std::optional<char> c = text.front();
        if (text.starts_with("\\\\")) {
            length = 2;
        } else if (text.front() == '\\') {
            length = 4;
            c = text.starts_with("\\x") ? ByteInHex(text.substr(2, 2)) : std::nullopt;
        }
        if (!c) return std::nullopt;
        plain += *c;
        text.remove_prefix(length);
    }
    return plain;
}

std::optional<Milliseconds> TimeIn(std::string_view text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc{} || result.ptr != end || value < 0 || value > kLongestWaitMs)
        return std::nullopt;
    return Milliseconds(value);
}

std::optional<ScriptStep> RecordStep(std::string_view text) {
    const auto record = Unescaped(text);
    const auto block = record ? MakeBlock(*record) : std::nullopt;
    if (!block) return std::nullopt;
    return ScriptStep{ScriptStep::Kind::Send, {block->begin(), block->end()}, {}};
}

std::optional<ScriptStep> TimedStep(ScriptStep::Kind kind, std::string_view text) {
    const auto time = TimeIn(text);
    if (!time) return std::nullopt;
    return ScriptStep{kind, {}, *time};
}

// Nothing if the command is unknown or its argument is invalid.
std::optional<ScriptStep> StepIn(std::string_view line) {
    const std::size_t blank = line.find(' ');
    const std::string_view command = line.substr(0, blank);
    const std::string_view rest = blank == std::string_view::npos ? "" : line.substr(blank + 1);
    if (command == "record") return RecordStep(rest);
    if (command == "bytes") {
        const auto bytes = BytesInHex(rest);
        if (!bytes) return std::nullopt;
        return ScriptStep{ScriptStep::Kind::Send, *bytes, {}};
    }
    if (command == "wait") return TimedStep(ScriptStep::Kind::Wait, rest);
    if (command == "drain") return TimedStep(ScriptStep::Kind::Drain, rest);
    if (line == "close") return ScriptStep{ScriptStep::Kind::Close, {}, {}};
    if (line == "die") return ScriptStep{ScriptStep::Kind::Die, {}, {}};
    return std::nullopt;
}

HostScript Failed(std::string error) {
    return {{}, std::move(error)};
}

bool SendSurely(HostLink& link, std::string_view bytes) {
    for (;;) {
        const HostLink::WriteResult result = link.Write(bytes);
        if (result != HostLink::WriteResult::NoRoom) return result == HostLink::WriteResult::Written;
        if (!link.Wait(kRetryStep)) return false;
    }
}

bool Drain(HostLink& link, Milliseconds longest) {
    const Milliseconds start = link.Now();
    while (!link.IsDrained() && link.Now() - start < longest) {
        if (!link.Wait(kRetryStep)) return false;
    }
    return true;
}

}  // namespace

HostScript LoadHostScript(const std::filesystem::path& path) {
    TextInput input(path);
    if (!input.IsOpen()) return Failed("cannot be opened");
    HostScript script;
    std::string line;
    bool isClosed = false;
    for (int number = 1; ReadTextLine(input, line, kMaxLineLength); ++number) {
        if (line.empty() || line.front() == '#') continue;
        const auto step = StepIn(line);
        const std::string where = "line " + std::to_string(number) + ": ";
        if (!step) return Failed(where + "no such command, or not in this form");
        if (isClosed && step->kind == ScriptStep::Kind::Send) return Failed(where + "the pipe is closed");
        if (script.steps.size() == kMaxSteps) return Failed(where + "too many commands");
        isClosed = isClosed || step->kind == ScriptStep::Kind::Close;
        script.steps.push_back(*step);
    }
    if (input.HasFailed()) return Failed("cannot be read to its end");
    if (script.steps.empty()) return Failed("holds no command");
    return script;
}

PlayResult RunScript(HostLink& link, const std::vector<ScriptStep>& steps) {
    bool isClosed = false;
    for (const ScriptStep& step : steps) {
        bool alive = true;
        switch (step.kind) {
            case ScriptStep::Kind::Send:
                alive = SendSurely(link, step.bytes);
                break;
            case ScriptStep::Kind::Wait:
                alive = link.Wait(step.time);
                break;
            case ScriptStep::Kind::Drain:
                alive = Drain(link, step.time);
                break;
            case ScriptStep::Kind::Close:
                link.Close();
                isClosed = true;
                break;
            case ScriptStep::Kind::Die:
                link.Die();
                return PlayResult::Died;
        }
        if (!alive) return PlayResult::ProgramGone;
    }
    return isClosed ? PlayResult::PipeClosed : PlayResult::Stopped;
}

}  // namespace plotvane
