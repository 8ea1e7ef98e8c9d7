#pragma once

#include <string>
#include <string_view>

#include "framework/Wnd.h"

namespace plotvane {

// The title of the main window: in the first seconds a hint that points at the system menu, then the name of
// the program or of the module.
class TitleBar {
public:
    // `title` follows the hint until a module is known; `hintText` is what the hint says.
    TitleBar(CWnd& window, std::wstring title, std::string hintText)
        : m_window(window), m_title(std::move(title)), m_hintText(std::move(hintText)) {}

    // Shows the hint's next step, or the title when the hint is over. True while more steps are to come, one
    // every 100 ms.
    bool StepHint();

    // A name that arrives during the hint is shown when the hint is over.
    void SetTitle(std::u16string_view title);

private:
    void ShowTitle();

    CWnd& m_window;
    std::wstring m_title;
    const std::string m_hintText;
    int m_countdown = 15;  // steps of the hint still to come
    bool m_isHintOver = false;
};

}  // namespace plotvane
