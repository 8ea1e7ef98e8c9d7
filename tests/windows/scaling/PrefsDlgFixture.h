#pragma once

#include <gtest/gtest.h>

#include <thread>

#include "res/resource.h"
#include "scaling/PrefsDlg.h"
#include "tests/support/TempFolder.h"
#include "tests/windows/support/DialogUser.h"

namespace plotvane::test {

// The real dialog over files of the test's own. The main window is 700 x 500 pixels large.
class PrefsDlgFixture : public testing::Test {
protected:
    PrefsDlgFixture() {
        m_state.width = 700;
        m_state.height = 500;
    }

    // Shows the dialog to a user who follows the script.
    void Use(const std::function<void(DialogUser&)>& script) {
        CPrefsDlg dialog{nullptr, m_prefs, PrefsFile(), m_table, m_state};
        DialogUser user{L"Preferences"};
        std::thread person{[&] { user.Follow(script); }};
        m_result = dialog.DoModal();
        person.join();
    }

    std::filesystem::path PrefsFile() const { return m_folder / "Prefs.cfg"; }
    std::filesystem::path TableFile() const { return m_folder / "Defaults.cfg"; }

    TempFolder m_folder;
    Prefs m_prefs;
    DefaultScaling m_table{m_folder.Path()};
    RunState m_state;
    INT_PTR m_result = 0;
};

}  // namespace plotvane::test
