#include "app/TitleBar.h"

#include "app/TitleHint.h"

namespace plotvane {

bool TitleBar::StepHint() {
    if (m_countdown == 0) {
        m_isHintOver = true;
        ShowTitle();
        return false;
    }
    --m_countdown;
    m_window.SetWindowText(TitleHint(m_countdown, m_hintText));
    return true;
}

void TitleBar::SetTitle(std::u16string_view title) {
    m_title.assign(title.begin(), title.end());
    if (m_isHintOver) ShowTitle();
}

void TitleBar::ShowTitle() {
    ::SetWindowTextW(m_window.m_hWnd, m_title.c_str());
}

}  // namespace plotvane
