#include "scaling/PrefsFile.h"

#include <optional>
#include <span>
#include <string>

#include "base/AtomicFile.h"
#include "base/FileOperations.h"
#include "base/Numbers.h"
#include "scaling/ScalingTokens.h"

namespace plotvane {
namespace {

constexpr std::size_t kMaxTextLength = 1024;  // keys after it are missing
constexpr std::size_t kMaxDigits = 11;
constexpr std::string_view kHexDigits = "0123456789abcdefABCDEF";

// The beginning of the file; nothing if it cannot be read.
std::optional<std::string> TextOf(const std::filesystem::path& path) {
    TextInput file = OpenWholeFile(path);
    if (!file.IsOpen()) return std::nullopt;
    std::string text;
    while (text.size() < kMaxTextLength && file.Peek() != TextInput::kEnd) {
        text += static_cast<char>(file.Get());
    }
    if (file.HasFailed()) return std::nullopt;
    return text;
}

// A missing file certainly holds nothing. A file that exists but cannot be read holds what the user has set,
// and only the user may overwrite it.
bool UseDefaults(const std::filesystem::path& file, Prefs& prefs) {
    const bool saveWindowSize = prefs.saveWindowSize;
    prefs = Prefs{};
    prefs.saveWindowSize = saveWindowSize;
    return KindOf(file) == FileKind::Missing;
}

std::string LineColorKey(int trace) {
    std::string key = "Line";
    AppendDecimal(key, trace);
    key += "Color";
    return key;
}

// The text's values by key. Also says whether the text had a key that only the present form has.
class KeyedText {
public:
    explicit KeyedText(std::string_view text) : m_text(text) {}

    std::uint32_t Hex(std::string_view key, std::uint32_t missing) { return Value(key, false, missing); }
    int HexInt(std::string_view key, int missing) {
        return static_cast<int>(Hex(key, static_cast<std::uint32_t>(missing)));
    }
    int Decimal(std::string_view key, int missing) {
        return static_cast<int>(Value(key, true, static_cast<std::uint32_t>(missing)));
    }

    // Switches do not tell the form, because an old file may begin with one.
    std::uint32_t Switch(std::string_view key) const { return FindPrefsValue(m_text, key, false); }

    bool HasKeys() const { return m_hasKeys; }

private:
    std::uint32_t Value(std::string_view key, bool decimal, std::uint32_t missing) {
        const std::uint32_t value = FindPrefsValue(m_text, key, decimal);
        if (value == kNoPrefsValue) return missing;
        m_hasKeys = true;
        return value;
    }

    std::string_view m_text;
    bool m_hasKeys = false;
};

// The older form, token by token. At the end of the text, Take returns false and leaves the value as it is.
class OldTokens {
public:
    explicit OldTokens(const std::filesystem::path& path) : m_input(OpenWholeFile(path)) {}

    bool IsOpen() const { return m_input.IsOpen(); }
    bool HaveFailed() const { return m_input.HasFailed(); }
    bool Take(bool& value) { return Store(ReadIntToken(m_input), value); }
    bool Take(Colour& value) { return Store(ReadHexToken(m_input), value); }
    bool Take(std::span<Colour> values) {
        for (Colour& value : values) {
            if (!Take(value)) return false;
        }
        return true;
    }

private:
    template <typename Value>
    static bool Store(int token, Value& value) {
        if (token == kEndMarker) return false;
        value = static_cast<Value>(token);
        return true;
    }

    TextInput m_input;
};

}  // namespace

bool LoadPrefs(const std::filesystem::path& file, Prefs& prefs) {
    const Prefs defaults;
    const std::optional<std::string> text = TextOf(file);
    if (!text) return UseDefaults(file, prefs);
    if (text->empty()) {
        UseDefaults(file, prefs);
        return true;
    }

    KeyedText keyed(*text);
    prefs.backColor = keyed.Hex("BackColor", defaults.backColor);
    prefs.gridColor = keyed.Hex("GridColor", defaults.gridColor);
    for (int trace = 0; trace < kSlotCount; ++trace) {
        prefs.lineColor[trace] = keyed.Hex(LineColorKey(trace), prefs.lineColor[trace]);
    }
    prefs.thickness = keyed.HexInt("Thickness", defaults.thickness);
    prefs.autorun = keyed.Switch("Autorun") != 0;
    prefs.showUnits = keyed.Switch("ShowUnits") != 0;
    prefs.showZeros = keyed.Switch("ShowZeros") == 1;
    prefs.saveWindowSize = keyed.Switch("SaveWindowSize") != 0;
    prefs.width = keyed.HexInt("Width", defaults.width);
    prefs.height = keyed.HexInt("Height", defaults.height);
    prefs.maxMileage = keyed.Decimal("MaxMileage", defaults.maxMileage);
    prefs.maxConsumption = keyed.Decimal("MaxConsumption", defaults.maxConsumption);
    prefs.fuelHistoryDepth = keyed.Decimal("FuelHistoryDepth", defaults.fuelHistoryDepth);
    if (!keyed.HasKeys() && LoadLegacyPrefs(file, prefs) == -1) return UseDefaults(file, prefs);
    return true;
}

int SavePrefs(const std::filesystem::path& file, const Prefs& prefs, int windowWidth, int windowHeight) {
    std::string text;
    const auto addHex = [&text](std::string_view key, std::uint32_t value) {
        text.append(key).append("=");
        AppendHex(text, value);
        text += '\n';
    };
    const auto addHexInt = [&addHex](std::string_view key, int value) {
        addHex(key, static_cast<std::uint32_t>(value));
    };
    const auto addDecimal = [&text](std::string_view key, int value) {
        text.append(key).append("=");
        AppendDecimal(text, value);
        text += '\n';
    };
    addHex("BackColor", prefs.backColor);
    addHex("GridColor", prefs.gridColor);
    for (int trace = 0; trace < kSlotCount; ++trace) {
        addHex(LineColorKey(trace), prefs.lineColor[trace]);
    }
    addHexInt("Thickness", prefs.thickness);
    addHex("Autorun", prefs.autorun);
    addHex("ShowUnits", prefs.showUnits);
    addHex("ShowZeros", prefs.showZeros);
    addHex("SaveWindowSize", prefs.saveWindowSize);
    addHexInt("Width", windowWidth);
    addHexInt("Height", windowHeight);
    addDecimal("MaxMileage", prefs.maxMileage);
    addDecimal("MaxConsumption", prefs.maxConsumption);
    addDecimal("FuelHistoryDepth", prefs.fuelHistoryDepth);
    return ReplaceTextFile(file, text) ? 0 : -1;
}

std::uint32_t FindPrefsValue(std::string_view text, std::string_view key, bool decimal) {
    const std::size_t found = text.find(key);
    if (found == std::string_view::npos) return kNoPrefsValue;
    std::string_view rest = text.substr(found + key.size());
    if (!rest.starts_with('=')) return kNoPrefsValue;
    rest.remove_prefix(1);
    const std::string_view digits = rest.substr(0, rest.find_first_not_of(kHexDigits)).substr(0, kMaxDigits);
    if (!decimal) return ParseHex(digits).value_or(kNoPrefsValue);
    const std::optional<int> number = TryParseDecimal(digits);
    return number ? static_cast<std::uint32_t>(*number) : kNoPrefsValue;
}

int LoadLegacyPrefs(const std::filesystem::path& file, Prefs& prefs) {
    OldTokens tokens(file);
    Prefs read = prefs;
    const bool isWhole = tokens.Take(read.autorun) && tokens.Take(read.backColor) &&
                         tokens.Take(read.gridColor) && tokens.Take(read.lineColor) &&
                         tokens.Take(read.showUnits) && tokens.Take(read.showZeros);
    if (!tokens.IsOpen() || tokens.HaveFailed()) {
        MakeFolders(file.parent_path());
        const Prefs defaults;
        prefs.autorun = defaults.autorun;
        prefs.backColor = defaults.backColor;
        prefs.gridColor = defaults.gridColor;
        prefs.lineColor = defaults.lineColor;
        return -1;
    }
    prefs = read;
    return isWhole ? 1 : 0;
}

}  // namespace plotvane
