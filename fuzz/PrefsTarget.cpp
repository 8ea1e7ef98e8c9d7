#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "scaling/PrefsFile.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;

namespace {

// The value of a hexadecimal digit in either case.
std::optional<unsigned> ValueOf(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
    return std::nullopt;
}

bool AreEqual(const Prefs& a, const Prefs& b) {
    return a.backColor == b.backColor && a.gridColor == b.gridColor && a.lineColor == b.lineColor &&
           a.thickness == b.thickness && a.autorun == b.autorun && a.showUnits == b.showUnits &&
           a.showZeros == b.showZeros && a.saveWindowSize == b.saveWindowSize && a.width == b.width &&
           a.height == b.height && a.maxMileage == b.maxMileage && a.maxConsumption == b.maxConsumption &&
           a.fuelHistoryDepth == b.fuelHistoryDepth;
}

Prefs Loaded(const ScratchFile& file) {
    Prefs prefs;
    LoadPrefs(file.Path(), prefs);
    return prefs;
}

std::string Saved(const ScratchFile& file, const Prefs& prefs) {
    Require(SavePrefs(file.Path(), prefs, prefs.width, prefs.height) == 0, "the preferences are saved");
    return file.Bytes();
}

// A hexadecimal ffffffff reads as a missing key.
bool HoldsTheMissingValue(const Prefs& prefs) {
    const auto isMissing = [](auto value) { return static_cast<std::uint32_t>(value) == kNoPrefsValue; };
    return isMissing(prefs.backColor) || isMissing(prefs.gridColor) ||
           std::ranges::any_of(prefs.lineColor, isMissing) || isMissing(prefs.thickness) ||
           isMissing(prefs.width) || isMissing(prefs.height);
}

void RequireSaneFile(const ScratchFile& file) {
    const Prefs prefs = Loaded(file);
    Require(prefs.maxMileage >= 0 && prefs.maxConsumption >= 0 && prefs.fuelHistoryDepth >= 0,
            "a decimal value has no sign");
    const std::string first = Saved(file, prefs);
    Require(first.size() <= 1024 && std::ranges::count(first, '\n') == 24, "a file has its 24 lines");

    const Prefs again = Loaded(file);
    if (HoldsTheMissingValue(prefs)) {
        Require(!HoldsTheMissingValue(again), "what reads as missing is gone after a save");
    } else {
        Require(AreEqual(prefs, again), "saved preferences reload to the same");
    }
    const std::string second = Saved(file, again);
    Require(first == second || HoldsTheMissingValue(prefs), "reloaded preferences save the same bytes");
    Require(AreEqual(Loaded(file), again), "saved preferences reload to the same");
    Require(Saved(file, Loaded(file)) == second, "reloaded preferences save the same bytes");
}

// Checks the reader of the old form by itself, on any file.
void RequireSaneOldForm(const ScratchFile& file) {
    Prefs prefs;
    const int answer = LoadLegacyPrefs(file.Path(), prefs);
    Require(answer == 0 || answer == 1, "an existing file is read");
    const Prefs defaults;
    Prefs others = prefs;
    others.autorun = defaults.autorun;
    others.backColor = defaults.backColor;
    others.gridColor = defaults.gridColor;
    others.lineColor = defaults.lineColor;
    others.showUnits = defaults.showUnits;
    others.showZeros = defaults.showZeros;
    Require(AreEqual(others, defaults), "the old form has seventeen values");
}

// The text of the key's value, found by a simpler search; nothing if it is missing.
std::optional<std::string_view> DigitsOf(std::string_view text, std::string_view key) {
    constexpr std::size_t kMaxDigits = 11;
    for (std::size_t start = 0; start + key.size() < text.size(); ++start) {
        if (text.substr(start, key.size()) != key) continue;
        const auto rest = text.substr(start + key.size());
        if (rest.front() != '=') return std::nullopt;
        std::size_t length = 0;
        while (length < kMaxDigits && 1 + length < rest.size() && ValueOf(rest[1 + length])) ++length;
        if (length == 0) return std::nullopt;
        return rest.substr(1, length);
    }
    return std::nullopt;
}

void RequireSaneSearch(std::string_view text, std::string_view key) {
    const auto digits = DigitsOf(text, key);
    std::uint64_t hex = kNoPrefsValue;
    std::uint64_t decimal = kNoPrefsValue;
    if (digits) {
        hex = 0;
        for (const char c : *digits) hex = hex * 16 + *ValueOf(c);
        hex = std::min<std::uint64_t>(hex, kNoPrefsValue);
        const auto end = std::ranges::find_if(*digits, [](char c) { return *ValueOf(c) > 9; });
        if (end != digits->begin()) {
            decimal = 0;
            std::for_each(digits->begin(), end, [&](char c) { decimal = decimal * 10 + *ValueOf(c); });
            decimal = std::min<std::uint64_t>(decimal, std::numeric_limits<int>::max());
        }
    }
    Require(FindPrefsValue(text, key, false) == hex,
            "a key's value is the run of hexadecimal digits after it");
    Require(FindPrefsValue(text, key, true) == decimal,
            "a key's value is the run of decimal digits after it");
}

}  // namespace

// Two parts: Prefs.cfg, and a key to look for.
int FuzzPrefs(Bytes input) {
    std::string_view rest = AsText(input);
    const std::string_view bytes = TakePart(rest);
    const std::string_view key = TakePart(rest);
    const ScratchFile file("Prefs.cfg", bytes);

    RequireSaneOldForm(file);
    if (bytes.find('\r') == std::string_view::npos) {
        const Prefs lf = Loaded(file);
        file.Write(WithCrLf(bytes));
        Require(AreEqual(lf, Loaded(file)), "both line ends read the same");
        file.Write(bytes);
    }
    RequireSaneFile(file);
    if (!key.empty()) RequireSaneSearch(bytes, key);
    return 0;
}

}  // namespace plotvane::fuzz
