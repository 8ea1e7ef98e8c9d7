#include "history/HistorySaves.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/ClipboardHolder.h"

namespace plotvane {
namespace {

using namespace std::chrono_literals;

class HistorySavesTest : public testing::Test {
protected:
    HistorySavesTest() { test::CreateHidden(m_owner); }

    CWnd m_owner;
    HistorySaves m_saves;
    Picture m_picture{4, 3};
};

TEST_F(HistorySavesTest, ACopyThatFailsSaysSo) {
    Recording recording;
    const LookBack state(recording);
    {
        const test::ClipboardHolder holder(1min);
        m_saves.CopyPicture(m_owner.m_hWnd, m_picture);
        EXPECT_EQ(m_saves.Note(), "the picture COULD NOT BE COPIED");
        m_saves.CopyTable(m_owner.m_hWnd, state);
        EXPECT_EQ(m_saves.Note(), "the values COULD NOT BE COPIED");
    }
    m_saves.Forget();
    m_saves.CopyPicture(m_owner.m_hWnd, m_picture);
    EXPECT_EQ(m_saves.Note(), "");
}

}  // namespace
}  // namespace plotvane
