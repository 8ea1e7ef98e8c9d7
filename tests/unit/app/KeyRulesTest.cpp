#include "app/KeyRules.h"

#include <gtest/gtest.h>

#include <set>

#include "res/resource.h"

namespace plotvane {
namespace {

TEST(KeyRules, EachKeyOfAButtonHasItsOwn) {
    std::set<int> buttons;
    for (int command = ID_KEY_FIRST; command <= ID_KEY_LAST; ++command) {
        if (const int button = ButtonOfKey(command)) {
            EXPECT_TRUE(buttons.insert(button).second) << command;
        }
    }
    EXPECT_EQ(buttons, (std::set<int>{IDC_LOAD_LOG, IDC_PAUSE, IDC_STOP, IDC_REPLAY_SLOWER, IDC_REPLAY_FASTER,
                                      IDC_SCALE_NEXT, IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_SHIFT_UP}));
}

TEST(KeyRules, KeysWithoutAButtonHaveNone) {
    for (const int command : {ID_KEY_STEP_ROW, ID_KEY_METER, ID_KEY_FIT, ID_KEY_COPY, ID_KEY_SAVE_PICTURE,
                              ID_KEY_PREFERENCES, ID_KEY_MANUAL, 0})
        EXPECT_EQ(ButtonOfKey(command), 0) << command;
}

TEST(KeyRules, AHeldKeyRepeatsWhereEachPressGoesOneStepFurther) {
    std::set<int> repeating;
    for (int command = ID_KEY_FIRST; command <= ID_KEY_LAST; ++command) {
        if (RepeatsWhileHeld(command)) repeating.insert(command);
    }
    EXPECT_EQ(repeating, (std::set<int>{ID_KEY_STEP_ROW, ID_KEY_PREVIOUS, ID_KEY_NEXT, ID_KEY_SHIFT_DOWN,
                                        ID_KEY_SHIFT_UP}));
}

TEST(KeyRules, AnEditKeepsTheKeysOfItsCaretAndCopiesWhatIsSelected) {
    for (int command = ID_KEY_FIRST; command <= ID_KEY_LAST; ++command) {
        const bool movesTheCaret = command == ID_KEY_SHIFT_DOWN || command == ID_KEY_SHIFT_UP;
        EXPECT_EQ(IsKeyOfEdit(command, false), movesTheCaret) << command;
        EXPECT_EQ(IsKeyOfEdit(command, true), movesTheCaret || command == ID_KEY_COPY) << command;
    }
}

}  // namespace
}  // namespace plotvane
