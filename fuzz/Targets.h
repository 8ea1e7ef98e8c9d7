#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

// A target feeds bytes to one reader of foreign bytes and checks what the reader promises for any input. It
// returns 0, or throws if a promise is broken (see Promise.h). The same functions run under libFuzzer and,
// with every kept input, as unit tests.
namespace plotvane::fuzz {

using Bytes = std::span<const std::uint8_t>;

int FuzzNumbers(Bytes input);        // base/Numbers
int FuzzRecord(Bytes input);         // link/RecordParser
int FuzzPipe(Bytes input);           // link/BlockReader, with the records it finds
int FuzzExchange(Bytes input);       // link/ExchangeFile, base/TextInput
int FuzzWholeCopy(Bytes input);      // base/WholeCopy
int FuzzModuleKey(Bytes input);      // logs/ModuleKey, base/FileName
int FuzzLabels(Bytes input);         // logs/LabelFile, redirects included
int FuzzDefaults(Bytes input);       // scaling/DefaultScaling
int FuzzModuleScaling(Bytes input);  // scaling/ModuleScaling, both forms
int FuzzPrefs(Bytes input);          // scaling/PrefsFile, both forms
int FuzzLog(Bytes input);            // logs/LogCheck, logs/LogReader, all three forms
int FuzzDrive(Bytes input);          // link/Acquisition: from bytes and clicks to traces and figures
int FuzzCsvDrive(Bytes input);       // tools/drives/PlainCsv, and the records and logs made from it
int FuzzHostScript(Bytes input);     // tools/sim/HostScript

struct Target {
    std::string_view name;  // of its folders in seeds/ and finds/
    int (*run)(Bytes input);
};

// CMakeLists.txt lists the same names.
constexpr std::array<Target, 14> kTargets = {{
    {"numbers", FuzzNumbers},
    {"record", FuzzRecord},
    {"pipe", FuzzPipe},
    {"exchange", FuzzExchange},
    {"whole_copy", FuzzWholeCopy},
    {"module_key", FuzzModuleKey},
    {"labels", FuzzLabels},
    {"defaults", FuzzDefaults},
    {"module_scaling", FuzzModuleScaling},
    {"prefs", FuzzPrefs},
    {"log", FuzzLog},
    {"drive", FuzzDrive},
    {"csv_drive", FuzzCsvDrive},
    {"host_script", FuzzHostScript},
}};

}  // namespace plotvane::fuzz
