#include "tools/sim/SimOptions.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <set>
#include <system_error>

namespace plotvane {
namespace {

constexpr std::size_t kLongestModule = 100;

// Options are ASCII; other characters can occur only in a path or a module name.
std::string Ascii(std::wstring_view text) {
    std::string ascii;
    for (const wchar_t c : text) ascii += c < 0x80 ? static_cast<char>(c) : '?';
    return ascii;
}

// Takes the characters that have the same number in Windows-1252. Returns nothing if the text has any other,
// or a comma, which would end the identifier.
std::optional<std::string> ModuleName(std::wstring_view text) {
    if (text.empty() || text.size() > kLongestModule) return std::nullopt;
    std::string name;
    for (const wchar_t c : text) {
        const bool plain = c >= 0x20 && c < 0x7F && c != L',';
        const bool latin = c >= 0xA0 && c <= 0xFF;
        if (!plain && !latin) return std::nullopt;
        name += static_cast<char>(c);
    }
    // A record must not begin with a control code of the pipe.
    if (static_cast<unsigned char>(name.front()) >= 0xFD) return std::nullopt;
    return name;
}

std::optional<double> Number(const std::string& text, double lowest, double highest) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value, std::chars_format::fixed);
    if (result.ec != std::errc{} || result.ptr != end || !std::isfinite(value)) return std::nullopt;
    if (value < lowest || value > highest) return std::nullopt;
    return value;
}

template <typename Choice>
struct Named {
    std::string_view name;
    Choice choice;
};

constexpr const char* kTrialModule = "TRIAL DRIVE";

constexpr Named<RecordForm> kForms[] = {
    {"normal", RecordForm::Normal}, {"obd", RecordForm::TenChannels}, {"obd-pid", RecordForm::ObdPid}};
constexpr Named<HostEnd> kEnds[] = {
    {"stop", HostEnd::Stop}, {"close", HostEnd::Close}, {"both", HostEnd::Both}};
constexpr Named<Fault> kFaults[] = {{"none", Fault::None},       {"stop-mid-block", Fault::StopMidBlock},
                                    {"die", Fault::Die},         {"malformed", Fault::Malformed},
                                    {"silence", Fault::Silence}, {"flood", Fault::Flood},
                                    {"garbage", Fault::Garbage}};

template <typename Choice, std::size_t kCount>
bool Choose(const Named<Choice> (&table)[kCount], std::string_view name, Choice& chosen) {
    for (const auto& entry : table) {
        if (entry.name != name) continue;
        chosen = entry.choice;
        return true;
    }
    return false;
}

class Parser {
public:
    SimOptionsResult Parse(const std::vector<std::wstring>& arguments) {
        for (std::size_t i = 0; i < arguments.size() && m_result.error.empty();) {
            const std::string name = Ascii(arguments[i]);
            if (!name.starts_with("--")) {
                TakeProgram(arguments[i++]);
                continue;
            }
            if (!m_seen.insert(name).second) Complain("option given twice: " + name);
            ++i;
            if (TakeFlag(name)) continue;
            if (!IsValueOption(name))
                Complain("unknown option " + name);
            else if (i == arguments.size() || arguments[i].starts_with(L"--"))
                Complain(name + " needs a value");
            else if (!TakeValue(name, arguments[i++]))
                Complain("bad value for " + name + ": " + Ascii(arguments[i - 1]));
        }
        if (m_result.error.empty()) CheckTogether();
        // A drive of one's own must not spoil the ranges of the module that the samples are of.
        if (m_seen.contains("--csv") && !m_seen.contains("--module"))
            m_result.options.play.module = kTrialModule;
        return m_result;
    }

private:
    void Complain(std::string error) {
        if (m_result.error.empty()) m_result.error = std::move(error);
    }

    void TakeProgram(const std::wstring& argument) {
        if (!m_result.options.program.empty() || argument.empty())
            Complain("only one program can be started");
        m_result.options.program = argument;
    }

    bool TakeFlag(const std::string& name) {
        if (name == "--help")
            m_result.options.help = true;
        else if (name == "--loop")
            m_result.options.play.loop = true;
        else if (name == "--keep-open")
            m_result.options.play.keepOpen = true;
        else
            return false;
        return true;
    }

    static bool IsValueOption(const std::string& name) {
        static const std::set<std::string, std::less<>> kNames = {
            "--folder", "--csv",     "--script", "--module", "--form", "--rate",
            "--speed",  "--seconds", "--fault",  "--end",    "--pause"};
        return kNames.contains(name);
    }

    bool TakeValue(const std::string& name, const std::wstring& value) {
        PlayPlan& play = m_result.options.play;
        const std::string text = Ascii(value);
        if (name == "--folder") return TakePath(m_result.options.folder, value);
        if (name == "--csv") return TakePath(m_result.options.csv, value);
        if (name == "--script") return TakePath(m_result.options.script, value);
        if (name == "--module") return Take(play.module, ModuleName(value));
        if (name == "--form") return Choose(kForms, text, play.form);
        if (name == "--rate") return Take(play.rate, Number(text, 0.1, 200));
        if (name == "--speed") return Take(play.speed, Number(text, 0.01, 100));
        if (name == "--seconds") return Take(play.seconds, Number(text, 0, 1e6));
        if (name == "--end") return Choose(kEnds, text, play.end);
        if (name == "--pause") return Take(play.pause, Number(text, 0, 3600));
        return TakeFault(text);
    }

    static bool TakePath(std::filesystem::path& path, const std::wstring& value) {
        path = value;
        return !value.empty();
    }

    template <typename Target, typename Value>
    static bool Take(Target& target, const std::optional<Value>& value) {
        if (value) target = *value;
        return value.has_value();
    }

    // "die" or "die@7.5"
    bool TakeFault(const std::string& text) {
        PlayPlan& play = m_result.options.play;
        const std::size_t at = text.find('@');
        if (at != std::string::npos && !Take(play.faultAt, Number(text.substr(at + 1), 0, 1e6))) return false;
        return Choose(kFaults, std::string_view(text).substr(0, at), play.fault);
    }

    void CheckTogether() {
        if (m_result.options.script.empty()) {
            if (m_seen.contains("--keep-open") && m_seen.contains("--end"))
                Complain("--keep-open cannot be used with --end");
            if (m_seen.contains("--pause") && m_result.options.play.end != HostEnd::Both)
                Complain("--pause needs --end both");
            return;
        }
        for (const char* name : {"--csv", "--module", "--form", "--rate", "--speed", "--seconds", "--loop",
                                 "--keep-open", "--fault", "--end", "--pause"}) {
            if (m_seen.contains(name)) Complain(name + std::string(" cannot be used with --script"));
        }
    }

    SimOptionsResult m_result;
    std::set<std::string, std::less<>> m_seen;
};

}  // namespace

SimOptionsResult ParseSimOptions(const std::vector<std::wstring>& arguments) {
    return Parser().Parse(arguments);
}

std::string_view SimHelp() {
    return R"(diagnel-sim [OPTION...] [PROGRAM]

Stands in for the host Diagnel: starts PROGRAM (by default plotvane.exe in the same folder) with the
read end of a pipe and plays a drive into the pipe. Ends when PROGRAM ends, with its exit code.

  --folder DIR      working folder of PROGRAM, where MB-PIPE.TXT is written (default: the current one)
  --csv FILE        plays this drive: a line of column names, then numbers. A column named t or t_*
                    holds the time in seconds; the others end in their unit: rpm, _kmh, _c, _pct,
                    _mbar, _deg, volt, _lph, _gs, _nm, _l, _ms, _mgstr; lambda* has no unit.
                    (default: a built-in drive of four minutes)
  --module NAME     identifier of the records (default: 038 906 019 FT; with --csv: TRIAL DRIVE)
  --form FORM       normal    three groups of four fields (default)
                    obd       generic OBD: the ten channels, as raw bytes
                    obd-pid   generic OBD identifiers in place of groups, up to four
  --rate R          records per second, 0.1 to 200 (default: 10; the program takes up to 20)
  --speed F         seconds of the drive per second of real time, 0.01 to 100 (default: 1)
  --seconds N       plays at most N seconds (default: to the end of the drive)
  --loop            starts the drive again at its end
  --end END         stop      0xFE: stops sending; PROGRAM is left open
                    close     0xFD: closes PROGRAM (default)
                    both      0xFE, a pause, 0xFD: PROGRAM closes once it reads again
  --pause N         seconds between 0xFE and 0xFD (default: 1)
  --keep-open       after 0xFE waits until PROGRAM reads again (its Pause button), then plays again
  --fault KIND[@N]  goes wrong N seconds after the start (default: 5)
                    stop-mid-block   half a block, then nothing; closes the pipe at the end
                    die              half a block, then this host ends; PROGRAM keeps running
                    malformed        one record that cannot be parsed
                    silence          nothing at all, not even 0xFF
                    flood            20,000 bytes of 0xFF per second between the records
                    garbage          one block of arbitrary bytes
                    none             (default)
  --script FILE     sends exactly what FILE says, one command per line:
                    record TEXT   a block: TEXT, padded with NULs to 513 bytes
                    bytes HEX     these bytes, for instance FF or 47 30 30 31
                    wait MS       lets time pass
                    drain MS      waits until PROGRAM has read everything, at most MS
                    close         closes the pipe
                    die           ends this host at once
                    # ...         a comment. TEXT may hold \xHH for any byte and \\ for a backslash.
  --help            prints this text

Exit code: that of PROGRAM; 0 after a fault "die"; 2 for bad arguments, a bad CSV or script; 3 if the
host could not start; 4 if PROGRAM did not close within 20 seconds of being told to.
)";
}

}  // namespace plotvane
