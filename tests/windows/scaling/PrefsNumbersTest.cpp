#include "tests/windows/scaling/PrefsDlgFixture.h"

namespace plotvane::test {
namespace {

const Box kBox0To10{"Incorrect value", "Please enter an integer between 0 and 10"};
const Box kBox1To1000{"Incorrect value", "Please enter an integer between 1 and 1000"};
const Box kBox1To20{"Incorrect value", "Please enter an integer between 1 and 20"};

constexpr int kThickness = 1234;
constexpr int kMileage = 1235;
constexpr int kConsumption = 1236;
constexpr int kDepth = 1237;

class PrefsDlgNumbers : public PrefsDlgFixture {
protected:
    // Types into an edit and goes on to another control.
    static void Enter(DialogUser& user, int edit, std::string_view text) {
        user.Type(edit, text);
        user.GoTo(1225);
    }
};

TEST_F(PrefsDlgNumbers, AreThoseOfTheFileAtTheStart) {
    WriteBytes(PrefsFile(), "Thickness=a\r\nMaxMileage=45\r\nMaxConsumption=12\r\nFuelHistoryDepth=7\r\n");
    Use([](DialogUser& user) {
        EXPECT_EQ(user.TextOf(kThickness), "10");
        EXPECT_EQ(user.TextOf(kMileage), "45");
        EXPECT_EQ(user.TextOf(kConsumption), "12");
        EXPECT_EQ(user.TextOf(kDepth), "7");
    });
}

TEST_F(PrefsDlgNumbers, AreTakenWhenTheirEditIsLeft) {
    Use([this](DialogUser& user) {
        Enter(user, kThickness, "10");
        Enter(user, kMileage, "1000");
        Enter(user, kConsumption, "1");
        Enter(user, kDepth, "20");
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(m_prefs.thickness, 10);
        EXPECT_EQ(m_prefs.maxMileage, 1000);
        EXPECT_EQ(m_prefs.maxConsumption, 1);
        EXPECT_EQ(m_prefs.fuelHistoryDepth, 20);
        EXPECT_EQ(user.BoxCount(), 0);
    });
}

TEST_F(PrefsDlgNumbers, StayAsTypedWhereTheyAreTaken) {
    Use([this](DialogUser& user) {
        Enter(user, kThickness, "thick");
        Enter(user, kMileage, "45x");
        Enter(user, kDepth, "007");
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(m_prefs.thickness, 0);
        EXPECT_EQ(user.TextOf(kThickness), "thick");
        EXPECT_EQ(m_prefs.maxMileage, 45);
        EXPECT_EQ(user.TextOf(kMileage), "45x");
        EXPECT_EQ(m_prefs.fuelHistoryDepth, 7);
        EXPECT_EQ(user.TextOf(kDepth), "007");
        // They also stay when the dialog shows everything again.
        user.Choose(1225, 3);
        EXPECT_EQ(user.TextOf(kMileage), "45x");
        EXPECT_EQ(user.BoxCount(), 0);
    });
}

TEST_F(PrefsDlgNumbers, AnEmptyThicknessCountsAsZeroAndStaysEmpty) {
    m_prefs.thickness = 5;
    Use([this](DialogUser& user) {
        user.GoTo(kThickness);
        user.SetText(kThickness, "");
        user.GoTo(1225);
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(m_prefs.thickness, 0);
        EXPECT_EQ(user.TextOf(kThickness), "");
        EXPECT_EQ(user.BoxCount(), 0);
    });
}

struct Rejected {
    int edit;
    const char* text;
    const Box& box;
    const char* shown;
};

const Rejected kRejected[] = {
    {kThickness, "11", kBox0To10, "0"},
    {kThickness, "-1", kBox0To10, "0"},
    {kThickness, "99999999999", kBox0To10, "0"},
    {kMileage, "0", kBox1To1000, "60"},
    {kMileage, "1001", kBox1To1000, "60"},
    {kMileage, "-3", kBox1To1000, "60"},
    {kMileage, "lots", kBox1To1000, "60"},
    {kConsumption, "0", kBox1To1000, "20"},
    {kConsumption, "1001", kBox1To1000, "20"},
    {kConsumption, "99999999999", kBox1To1000, "20"},
    {kDepth, "0", kBox1To20, "1"},
    {kDepth, "21", kBox1To20, "1"},
    {kDepth, ".", kBox1To20, "1"},
};

TEST_F(PrefsDlgNumbers, AreRejectedWithOneBoxAndTheFocusBack) {
    Use([](DialogUser& user) {
        int boxes = 0;
        for (const auto& [edit, text, box, shown] : kRejected) {
            Enter(user, edit, text);
            EXPECT_TRUE(user.SeesBox(box)) << edit << ' ' << text;
            EXPECT_TRUE(user.IsAtRest()) << edit << ' ' << text;
            EXPECT_EQ(user.TextOf(edit), shown) << edit << ' ' << text;
            EXPECT_TRUE(user.GetsFocus(edit)) << edit << ' ' << text;
            EXPECT_EQ(user.BoxCount(), ++boxes);
        }
    });
    EXPECT_EQ(m_prefs.maxMileage, 60);
    EXPECT_EQ(m_prefs.maxConsumption, 20);
    EXPECT_EQ(m_prefs.fuelHistoryDepth, 1);
}

TEST_F(PrefsDlgNumbers, AnEmptyEditIsNoNumber) {
    Use([this](DialogUser& user) {
        user.Type(kDepth, "5");
        user.SetText(kDepth, "");
        user.GoTo(1225);
        EXPECT_TRUE(user.SeesBox(kBox1To20));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.TextOf(kDepth), "1");
        EXPECT_EQ(m_prefs.fuelHistoryDepth, 1);
    });
}

TEST_F(PrefsDlgNumbers, AreResetToTheValueTakenLast) {
    WriteBytes(PrefsFile(), "MaxMileage=45\r\n");
    Use([](DialogUser& user) {
        Enter(user, kMileage, "30");
        Enter(user, kMileage, "0");
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.TextOf(kMileage), "30");
    });
}

TEST_F(PrefsDlgNumbers, ARejectedThicknessStaysInTheRecordAndIsSaved) {
    Use([this](DialogUser& user) {
        Enter(user, kThickness, "11");
        EXPECT_TRUE(user.SeesBox(kBox0To10));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.TextOf(kThickness), "0");
        EXPECT_EQ(m_prefs.thickness, 11);
        user.Click(IDOK);  // takes the focus out of the edit, which still shows the "0"
        EXPECT_TRUE(user.Ends());
    });
    EXPECT_EQ(m_result, IDOK);
    EXPECT_NE(BytesOf(PrefsFile()).find("\r\nThickness=b\r\n"), std::string::npos);
}

TEST_F(PrefsDlgNumbers, ARejectedThicknessIsReplacedByTheNextOneThatIsTyped) {
    for (const char* text : {"0", "7"}) {
        Use([&](DialogUser& user) {
            Enter(user, kThickness, "11");
            EXPECT_TRUE(user.SeesBox(kBox0To10));
            EXPECT_TRUE(user.IsAtRest());
            Enter(user, kMileage, "61");  // leaving it again is not an edit
            EXPECT_TRUE(user.IsAtRest());
            EXPECT_EQ(m_prefs.thickness, 11);
            Enter(user, kThickness, text);
            EXPECT_TRUE(user.IsAtRest());
            EXPECT_EQ(m_prefs.thickness, text[0] - '0');
        });
    }
}

TEST_F(PrefsDlgNumbers, TwoBadOnesShowOneBoxEachAndNeverASecond) {
    WriteBytes(PrefsFile(), "MaxMileage=0\r\nMaxConsumption=0\r\n");
    Use([](DialogUser& user) {
        // The box takes the focus from the second edit too, and resetting does not make either text valid.
        user.GoTo(kMileage);
        user.GoTo(kConsumption);
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.BoxCount(), 1);
        EXPECT_TRUE(user.GetsFocus(kMileage));
        EXPECT_EQ(user.TextOf(kMileage), "0");

        Enter(user, kMileage, "60");
        user.GoTo(kConsumption);
        user.GoTo(kThickness);
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.BoxCount(), 2);
        EXPECT_TRUE(user.GetsFocus(kConsumption));

        user.Press(VK_ESCAPE);  // while the focus is in the edit with the bad text
        EXPECT_TRUE(user.Ends());
        EXPECT_EQ(user.BoxCount(), 2);
    });
    EXPECT_EQ(m_result, IDCANCEL);
}

// Another window of the dialog's thread. When it comes to the front, it takes the focus from the dialog.
class OtherWindow {
public:
    OtherWindow()
        : m_window(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 20, 20, nullptr, nullptr,
                                     nullptr, nullptr)) {}
    ~OtherWindow() { ::DestroyWindow(m_window); }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    HWND Get() const { return m_window; }

private:
    HWND m_window;
};

// The display may take the focus by itself after a box has closed.
TEST_F(PrefsDlgNumbers, ARejectedOneIsNotJudgedAgainWhenTheWholeDialogLosesTheFocus) {
    WriteBytes(PrefsFile(), "MaxMileage=0\r\n");
    const OtherWindow other;
    Use([&other](DialogUser& user) {
        Enter(user, kMileage, "1001");
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.GetsFocus(kMileage));
        ::SetForegroundWindow(other.Get());
        EXPECT_TRUE(user.WaitUntil("the edit loses the focus", [&] { return !user.HasFocus(kMileage); }));
        EXPECT_TRUE(user.IsAtRest());
        ::SetForegroundWindow(user.Dialog());
        EXPECT_TRUE(user.GetsFocus(kMileage));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.BoxCount(), 1);

        user.GoTo(kConsumption);  // from a bad number to another control
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.BoxCount(), 2);
        EXPECT_TRUE(user.GetsFocus(kMileage));
    });
}

TEST_F(PrefsDlgNumbers, ANewOneIsTakenAlsoWhenTheWholeDialogLosesTheFocus) {
    const OtherWindow other;
    Use([&](DialogUser& user) {
        Enter(user, kMileage, "1001");
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.GetsFocus(kMileage));
        user.Type(kMileage, "45");
        ::SetForegroundWindow(other.Get());
        EXPECT_TRUE(user.WaitUntil("the number is taken", [&] { return m_prefs.maxMileage == 45; }));
        EXPECT_EQ(user.BoxCount(), 1);
    });
}

TEST_F(PrefsDlgNumbers, EnterTakesWhatIsBeingTyped) {
    Use([](DialogUser& user) {
        user.Type(kMileage, "80");
        user.Press(VK_RETURN);
        EXPECT_TRUE(user.Ends());
        EXPECT_EQ(user.BoxCount(), 0);
    });
    EXPECT_EQ(m_result, IDOK);
    EXPECT_EQ(m_prefs.maxMileage, 80);
    EXPECT_NE(BytesOf(PrefsFile()).find("\r\nMaxMileage=80\r\n"), std::string::npos);
}

TEST_F(PrefsDlgNumbers, EnterDoesNotSaveWhatIsRejected) {
    Use([this](DialogUser& user) {
        user.Type(kMileage, "8000");
        user.Press(VK_RETURN);
        EXPECT_TRUE(user.SeesBox(kBox1To1000));
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_FALSE(user.IsOver());
        EXPECT_TRUE(user.GetsFocus(kMileage));
        EXPECT_FALSE(std::filesystem::exists(PrefsFile()));
    });
}

TEST_F(PrefsDlgNumbers, EditsThatLoseTheFocusToTheEndAreNotRead) {
    Use([](DialogUser& user) {
        user.Type(kMileage, "8000");
        user.Press(VK_ESCAPE);
        EXPECT_TRUE(user.Ends());
        EXPECT_EQ(user.BoxCount(), 0);
    });
    EXPECT_EQ(m_prefs.maxMileage, 60);
}

}  // namespace
}  // namespace plotvane::test
