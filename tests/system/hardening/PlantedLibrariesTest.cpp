// Somebody has put libraries with the names of Windows' own beside the program and into its working folder,
// for example in a folder of logs that came by mail. The program must never load one of them.
#include <algorithm>

#include "tests/support/system/KnownLibraries.h"
#include "tests/support/system/LookAlike.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

constexpr WPARAM kPreferencesCommand = 16;

// Every library of the system but those that Windows guards itself, which other systems may not.
const std::set<std::string>& NamesToPlant() {
    static const std::set<std::string> names = [] {
        std::set<std::string> libraries = SystemLibraries();
        for (const std::string& guarded : GuardedLibraries()) libraries.erase(guarded);
        libraries.insert(kCommonControls);
        return libraries;
    }();
    return names;
}

// Wine prefers its own libraries to others of the same names unless its settings say otherwise. For as long
// as the object lives, they do. Windows ignores these settings.
class ForeignLibrariesFirst {
public:
    explicit ForeignLibrariesFirst(const std::set<std::string>& names) {
        if (!RunsUnderWine()) return;
        constexpr char kOrder[] = "native,builtin";
        for (const std::string& name : names) {
            const std::string value = name.ends_with(".dll") ? name.substr(0, name.size() - 4) : name;
            ::RegSetKeyValueA(HKEY_CURRENT_USER, kKey, value.c_str(), REG_SZ, kOrder, sizeof kOrder);
        }
    }
    ~ForeignLibrariesFirst() {
        if (RunsUnderWine()) ::RegDeleteTreeA(HKEY_CURRENT_USER, kKey);
    }
    ForeignLibrariesFirst(const ForeignLibrariesFirst&) = delete;
    ForeignLibrariesFirst& operator=(const ForeignLibrariesFirst&) = delete;

private:
    static constexpr const char* kKey = "Software\\Wine\\AppDefaults\\plotvane.exe\\DllOverrides";
};

std::vector<std::string> MarksIn(const std::filesystem::path& folder) {
    std::vector<std::string> marks;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".loaded") marks.push_back(entry.path().filename().string());
    }
    return marks;
}

// A folder with a planted library of every name.
class PlantedFolder {
public:
    PlantedFolder() {
        const std::string library = BytesOf(ProgramFolder() / "planted.dll");
        for (const std::string& name : NamesToPlant()) WriteBytes(m_folder / name, library);
    }
    const std::filesystem::path& Path() const { return m_folder.Path(); }

private:
    TempFolder m_folder;
};

class PlantedLibraries : public Replay {
protected:
    PlantedLibraries() : Replay(s_folders->working.Path()) { session.RunFrom(s_folders->program.Path()); }

    static void SetUpTestSuite() {
        s_folders = std::make_unique<Folders>();
        std::filesystem::copy_file(ProgramFolder() / "plotvane.exe",
                                   s_folders->program.Path() / "plotvane.exe");
    }
    static void TearDownTestSuite() { s_folders.reset(); }

    void ExpectNoneLoaded() const {
        EXPECT_EQ(MarksIn(s_folders->program.Path()), std::vector<std::string>());
        EXPECT_EQ(MarksIn(s_folders->working.Path()), std::vector<std::string>());
    }
    // Opens Preferences through the system menu, and cancels the dialog.
    void OpenAndCancelPreferences() {
        main.Post(WM_SYSCOMMAND, kPreferencesCommand);
        const RemoteWindow preferences = session.DialogWith(IDC_PREFS_TRACE_LIST);
        preferences.PostClick(IDCANCEL);
        EXPECT_TRUE(Becomes([&] { return preferences.Exists(); }, false));
    }

private:
    struct Folders {
        PlantedFolder program;
        PlantedFolder working;
        ForeignLibrariesFirst order{NamesToPlant()};
    };
    static inline std::unique_ptr<Folders> s_folders;
};

TEST(APlantedLibrary, LeavesAMarkWhereItIsLoaded) {
    const TempFolder folder;
    std::filesystem::copy_file(ProgramFolder() / "planted.dll", folder / "stranger.dll");
    const HMODULE loaded = ::LoadLibraryW((folder / "stranger.dll").c_str());
    ASSERT_TRUE(loaded);
    ::FreeLibrary(loaded);
    EXPECT_EQ(MarksIn(folder.Path()), std::vector<std::string>{"stranger.dll.loaded"});
    EXPECT_TRUE(NamesToPlant().contains("winmm.dll"));
    EXPECT_GT(NamesToPlant().size(), 100u);
}

TEST_F(PlantedLibraries, AreNotLoadedWhileAHostSends) {
    session.StartWithHost();
    main = session.Main();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    RightClick(main, IDC_SWATCH_FIRST);
    EXPECT_EQ(OpenMeters(main).size(), 1u);
    OpenAndCancelPreferences();
    EXPECT_TRUE(session.Closes());
    ExpectNoneLoaded();
}

// The dialogs of Windows itself load the most.
TEST_F(PlantedLibraries, AreNotLoadedByTheDialogForFiles) {
    Start();
    Load(WriteLog("x.csv", LogThatLingersAt(kDriving)));
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_TRUE(session.Closes());
    ExpectNoneLoaded();
}

}  // namespace
}  // namespace plotvane::test
