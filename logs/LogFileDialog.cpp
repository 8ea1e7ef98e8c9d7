#include "logs/LogFileDialog.h"

#include "framework/FileDialog.h"
#include "framework/Text.h"
#include "res/resource.h"

namespace plotvane {

std::optional<std::filesystem::path> AskForLogFile(HWND owner) {
    FileQuestion question;
    question.title = LoadText(IDS_CHOOSE_LOG);
    question.types = {{LoadText(IDS_DIAGNEL_LOGS), "*.csv"}, {LoadText(IDS_ALL_FILES), "*.*"}};
    question.folder = CurrentFolder() / "LOGS";
    return AskWhichFile(owner, question);
}

}  // namespace plotvane
