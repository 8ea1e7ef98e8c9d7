#include "tools/sim/SimOptions.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace plotvane {
namespace {

std::string ErrorOf(const std::vector<std::wstring>& arguments) {
    return ParseSimOptions(arguments).error;
}

SimOptions Parsed(const std::vector<std::wstring>& arguments) {
    const SimOptionsResult result = ParseSimOptions(arguments);
    EXPECT_EQ(result.error, "");
    return result.options;
}

TEST(SimOptions, WithoutArgumentsPlaysTheBuiltInDriveOnce) {
    const SimOptions options = Parsed({});
    EXPECT_TRUE(options.program.empty());
    EXPECT_TRUE(options.csv.empty());
    EXPECT_EQ(options.play.module, "038 906 019 FT");
    EXPECT_EQ(options.play.form, RecordForm::Normal);
    EXPECT_EQ(options.play.rate, 10);
    EXPECT_EQ(options.play.end, HostEnd::Close);
    EXPECT_FALSE(options.play.seconds);
    EXPECT_FALSE(options.play.loop);
}

TEST(SimOptions, ADriveOfOnesOwnHasAModuleOfItsOwn) {
    EXPECT_EQ(Parsed({L"--csv", L"d.csv"}).play.module, "TRIAL DRIVE");
    EXPECT_EQ(Parsed({L"--module", L"A 1", L"--csv", L"d.csv"}).play.module, "A 1");
}

TEST(SimOptions, ReadsEveryOption) {
    const SimOptions options = Parsed(
        {L"--folder", L"w",      L"--csv", L"d.csv",   L"--module", L"A 1",       L"--form",
         L"obd-pid",  L"--rate", L"20",    L"--speed", L"0.5",      L"--seconds", L"7.5",
         L"--loop",   L"--end",  L"both",  L"--pause", L"2",        L"--fault",   L"stop-mid-block@3.25",
         L"p.exe"});
    EXPECT_EQ(options.program, "p.exe");
    EXPECT_EQ(options.folder, "w");
    EXPECT_EQ(options.csv, "d.csv");
    EXPECT_EQ(options.play.module, "A 1");
    EXPECT_EQ(options.play.form, RecordForm::ObdPid);
    EXPECT_EQ(options.play.rate, 20);
    EXPECT_EQ(options.play.speed, 0.5);
    EXPECT_EQ(options.play.seconds, 7.5);
    EXPECT_TRUE(options.play.loop);
    EXPECT_EQ(options.play.end, HostEnd::Both);
    EXPECT_EQ(options.play.pause, 2);
    EXPECT_EQ(options.play.fault, Fault::StopMidBlock);
    EXPECT_EQ(options.play.faultAt, 3.25);
}

TEST(SimOptions, ReadsEveryFaultFormAndEnd) {
    EXPECT_EQ(Parsed({L"--fault", L"die"}).play.fault, Fault::Die);
    EXPECT_EQ(Parsed({L"--fault", L"die"}).play.faultAt, 5);
    EXPECT_EQ(Parsed({L"--fault", L"malformed"}).play.fault, Fault::Malformed);
    EXPECT_EQ(Parsed({L"--fault", L"silence@0"}).play.fault, Fault::Silence);
    EXPECT_EQ(Parsed({L"--fault", L"flood"}).play.fault, Fault::Flood);
    EXPECT_EQ(Parsed({L"--fault", L"garbage"}).play.fault, Fault::Garbage);
    EXPECT_EQ(Parsed({L"--fault", L"none"}).play.fault, Fault::None);
    EXPECT_EQ(Parsed({L"--form", L"normal"}).play.form, RecordForm::Normal);
    EXPECT_EQ(Parsed({L"--form", L"obd"}).play.form, RecordForm::TenChannels);
    EXPECT_EQ(Parsed({L"--end", L"close"}).play.end, HostEnd::Close);
    EXPECT_EQ(Parsed({L"--end", L"stop"}).play.end, HostEnd::Stop);
    EXPECT_EQ(Parsed({L"--end", L"both"}).play.end, HostEnd::Both);
    EXPECT_TRUE(Parsed({L"--keep-open"}).play.keepOpen);
    EXPECT_TRUE(Parsed({L"--help"}).help);
    EXPECT_EQ(Parsed({L"--script", L"s.txt", L"p.exe"}).script, "s.txt");
}

TEST(SimOptions, TakesAModuleNameInWindows1252) {
    EXPECT_EQ(Parsed({L"--module", L"K\u00FChlung"}).play.module, "K\xFChlung");
    EXPECT_NE(ErrorOf({L"--module", L"K\u0142"}), "");
    EXPECT_NE(ErrorOf({L"--module", L"a,b"}), "");
    EXPECT_NE(ErrorOf({L"--module", L""}), "");
    EXPECT_NE(ErrorOf({L"--module", std::wstring(101, L'a')}), "");
    EXPECT_NE(ErrorOf({L"--module", L"\u00FDa"}), "");  // it would begin the record with a control code
}

TEST(SimOptions, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(ErrorOf({L"--rates", L"3"}), "unknown option --rates");
    EXPECT_EQ(ErrorOf({L"--rate"}), "--rate needs a value");
    EXPECT_EQ(ErrorOf({L"--rate", L"--loop"}), "--rate needs a value");
    EXPECT_EQ(ErrorOf({L"--loop", L"--loop"}), "option given twice: --loop");
    EXPECT_EQ(ErrorOf({L"a.exe", L"b.exe"}), "only one program can be started");
    for (const wchar_t* rate : {L"0", L"-1", L"201", L"1,5", L"ten", L"5x", L"", L"nan", L"1e1"})
        EXPECT_NE(ErrorOf({L"--rate", rate}), "") << std::string(rate, rate + std::wcslen(rate));
    for (const wchar_t* fault : {L"dies", L"die@", L"die@x", L"@3", L"die@-1"})
        EXPECT_NE(ErrorOf({L"--fault", fault}), "");
    EXPECT_NE(ErrorOf({L"--form", L"OBD"}), "");
    EXPECT_NE(ErrorOf({L"--end", L""}), "");
}

TEST(SimOptions, RefusesOptionsThatExcludeEachOther) {
    EXPECT_NE(ErrorOf({L"--script", L"s", L"--rate", L"5"}), "");
    EXPECT_NE(ErrorOf({L"--script", L"s", L"--loop"}), "");
    EXPECT_NE(ErrorOf({L"--keep-open", L"--end", L"both"}), "");
    EXPECT_NE(ErrorOf({L"--pause", L"2"}), "");
    EXPECT_NE(ErrorOf({L"--pause", L"2", L"--end", L"stop"}), "");
}

TEST(SimOptions, HelpNamesEveryOption) {
    for (const char* name : {"--folder", "--csv", "--module", "--form", "--rate", "--speed", "--seconds",
                             "--loop", "--end", "--pause", "--keep-open", "--fault", "--script", "--help"})
        EXPECT_NE(SimHelp().find(name), std::string_view::npos) << name;
}

}  // namespace
}  // namespace plotvane
