// The program writes numbers with a point, even if the user's system writes a comma. The comma is a setting
// of the user, so these tests run only where nobody lives.
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

std::wstring DecimalSeparator() {
    wchar_t separator[8]{};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 8);
    return separator;
}

// The user's settings, for as long as this object lives.
class DecimalComma {
public:
    DecimalComma() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L","); }
    ~DecimalComma() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, m_before.c_str()); }
    DecimalComma(const DecimalComma&) = delete;
    DecimalComma& operator=(const DecimalComma&) = delete;

private:
    const std::wstring m_before = DecimalSeparator();
};

class ReplayWithDecimalComma : public Replay {
protected:
    void SetUp() override {
        ASSERT_EQ(DecimalSeparator(), L",");
        Start();
    }

private:
    const DecimalComma m_comma;
};

TEST_F(ReplayWithDecimalComma, ReadsAndShowsPoints) {
    Load(WriteLog("x.csv", LogThatLingersAt("1240.5,90.25,50,4.2")));
    ASSERT_TRUE(session.Shows(0, L"1240.5 /min"));
    EXPECT_TRUE(session.Shows(3, L"4.2 l/h"));
    EXPECT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"0.04"));
    main.Click(IDC_REPLAY_SLOWER);
    EXPECT_EQ(main.Text(IDC_REPLAY_SPEED), L"0.5x");
    Press(IDC_STOP);
    EXPECT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"0.00"));
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(3, kUnitRanges));
}

}  // namespace
}  // namespace plotvane::test
