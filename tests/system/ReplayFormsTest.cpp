// What the program shows of each form of the host's logs.
#include <array>

#include "tests/support/DegreeSign.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

using BoxTexts = std::array<std::wstring, 12>;

class ReplayForms : public Replay {
protected:
    void SetUp() override { Start(); }

    // The values once the program has read the last row.
    void ExpectValues(const BoxTexts& wanted) {
        EXPECT_TRUE(Becomes(
            [this] {
                BoxTexts seen;
                for (int slot = 0; slot < 12; ++slot)
                    seen[static_cast<std::size_t>(slot)] = session.ValueText(slot);
                return seen;
            },
            wanted));
    }
};

TEST_F(ReplayForms, ThreeChartRowsOfOneGroupEach) {
    Load(WriteLog("x.csv",
                  "Friday,20,November,2026,10:15:30\n"
                  "038 906 019 FT,Engine control\n"
                  "\n"
                  ",Row A,'001,,,,Row B,'003,,,,Row C,none\n"
                  ",,Speed,Coolant,Flow,Lambda,,Speed,Mass,Mass,Duty,,,,,\n"
                  ",,actual,temp.,,bank 1,,actual,spec.,actual,EGR,,,,,\n"
                  "mark,time, /min," DEGREES_C ", l/h,,time, /min, mg/str, mg/str, %,time,,,,\n"
                  "0,0.00,780,90.0,0.9,1.02,0.12,780,240.5,238.0,12.5,,,,,\n"
                  "1,0.05,1240,90.0,4.2,0.98,0.62,1240,310.0,305.5,40.1,,,,,\n"
                  "2,0.10,n/a,91.8,6.5,1.00,3.62,2110,322.5,320.0,38.0,,,,,"));  // no last line end
    ExpectValues({L"0 /min",
                  L"91.8 \u00B0"
                  L"C",
                  L"6.5 l/h", L"1 ", L"2110 /min", L"322.5 mg/str", L"320 mg/str", L"38 %", L"", L"", L"",
                  L""});
    EXPECT_TRUE(Becomes([this] { return main.Text(); }, L"Plotvane   -   038-906-019-FT  -   x.csv"));
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    EXPECT_FALSE(HasDialog());
}

TEST_F(ReplayForms, TenChannelsInPlaceOfTheFirstChartRow) {
    const std::string row = "1,2,3,4,5,6,7,8,9,10,0.3,11,12,13,14,0.6,21,22,23,24,\n";
    Load(WriteLog("x.csv",
                  "Friday,20,November,2026,10:15:30\n"
                  "038 906 019 FT,x\n"
                  "\n"
                  ",Row A,'000,,,,,,,,,,Row B,'003,,,,Row C,'005\n"
                  ",,,,,,,,,,,,,,,,,,,,,\n"
                  ",,,,,,,,,,,,,,,,,,,,,\n"
                  "mark,time,,,,,,,,,,,time,b0,b1,b2,b3,time,c0,c1,c2,c3\n"
                  "0,0.01," +
                      row + "0,0.02," + row));
    for (int channel = 0; channel < 10; ++channel)
        EXPECT_TRUE(Becomes([&] { return main.Text(IDC_CHANNEL_VALUE_FIRST + channel); },
                            std::to_wstring(channel + 1)));
    EXPECT_TRUE(session.Shows(4, L"11 b0"));
    EXPECT_TRUE(session.Shows(7, L"14 b3"));
    EXPECT_TRUE(session.Shows(8, L"21 c0"));
    EXPECT_TRUE(session.Shows(11, L"24 c3"));
    for (int channel = 0; channel < 10; ++channel)
        EXPECT_TRUE(main.IsShown(IDC_CHANNEL_VALUE_FIRST + channel)) << channel;
    for (int slot = 0; slot < 4; ++slot) EXPECT_FALSE(main.IsShown(IDC_VALUE_FIRST + slot)) << slot;
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    EXPECT_FALSE(HasDialog()) << "here a row is whole with eighteen values";
}

TEST_F(ReplayForms, FieldsOfTheUsersChoice) {
    Load(WriteLog("x.csv",
                  "Friday,20,November,2026,10:15:30\n"
                  "038 906 019 FT,ADVMB,\n"
                  ",,G001,F0,G001,F1,G001,F3,G003,F0,G003,F2,G000,F0,G000,F0,G000,F0,G000,F0,G000,F0,G000,F0,"
                  "G000,F0,\n"
                  "names 1\nnames 2\nnames 3\n"
                  "mark,time, /min,time," DEGREES_C
                  ",time, km/h,time, /min,time, mg/str,time,,time,,time,,time,,time,,time,,time,,\n"
                  "0,0.00,780,0.03,90.0,0.06,0,0.09,780,0.12,240.5,,,,,,,,,,,,,,,\n"
                  "1,0.05,1240,0.53,90.0,0.56,12,0.59,1240,0.62,310.0,,,,,,,,,,,,,,,\n"
                  "2,0.10,2110,3.53,91.8,3.56,31,3.59,2110,3.62,322.5,,,,,,,,,,,,,,,\n"));
    ExpectValues({L"2110 /min",
                  L"91.8 \u00B0"
                  L"C",
                  L"31 km/h", L"2110 /min", L"322.5 mg/str", L"", L"", L"", L"", L"", L"", L""});
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    EXPECT_FALSE(HasDialog());
}

TEST_F(ReplayForms, GenericObdData) {
    Load(WriteLog("x.csv",
                  "Friday,20,November,2026,10:15:30\n"
                  "OBD-II,generic data\n"
                  "mark,time,PID- 012,time,PID- 013,time,PID- 005,time,PID- 000\n"
                  "mark,time,Engine speed (/min),time,Vehicle speed (km/h),time,Coolant (" DEGREES_C
                  "),time,none\n"
                  "0,0.00,780,0.05,0,0.10,90,,\n"
                  "1,0.05,1240,0.55,12,0.60,90,,\n"
                  "2,0.10,2110,3.55,31,3.60,91,,\n"));
    ExpectValues({L"2110 /min", L"31 km/h",
                  L"91 \u00B0"
                  L"C",
                  L"", L"PID 12", L"PID 13", L"PID 5", L"", L"", L"", L"", L""});
    EXPECT_TRUE(Becomes([this] { return main.Text(); }, L"Plotvane   -   OBD.LBL  -   x.csv"));
    EXPECT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    const std::string ranges = BytesOf(session.Scaling("OBD.SCL"));
    EXPECT_NE(ranges.find("\r\n12,0,6000,\r\n13,0,250,\r\n14,0,100,\r\n"), std::string::npos);
}

}  // namespace
}  // namespace plotvane::test
