#include "app/ChartExport.h"

#include "base/AtomicFile.h"
#include "framework/Clipboard.h"
#include "framework/FileDialog.h"
#include "framework/Png.h"
#include "framework/Text.h"
#include "res/resource.h"

namespace plotvane {
namespace {

// Of the size of the chart's client area.
class ShownPicture {
public:
    explicit ShownPicture(CMultiPlotCtrl& chart) : ShownPicture(chart, chart.GetClientRect()) {}
    const Picture& Get() const { return m_picture; }

private:
    ShownPicture(CMultiPlotCtrl& chart, const CRect& client) : m_picture(client.Width(), client.Height()) {
        CDC dc(m_picture.Dc());
        if (m_picture) chart.Draw(dc);
    }

    Picture m_picture;
};

}  // namespace

void ChartExport::Copy() {
    const ShownPicture shown(m_chart);
    if (!CopyPictureToClipboard(m_dialog.m_hWnd, shown.Get()))
        m_window.ShowMessage(IDS_PICTURE_NOT_COPIED, IDS_ERROR);
}

void ChartExport::Save() {
    const ShownPicture shown(m_chart);  // before the user has looked for a place
    const auto path = AskWhereToSave(m_dialog.m_hWnd, {.title = LoadText(IDS_SAVE_PICTURE),
                                                       .types = {{LoadText(IDS_PNG_PICTURES), "*.png"}},
                                                       .name = "chart.png",
                                                       .extension = "png"});
    if (!path) return;
    const std::string bytes = EncodePng(shown.Get());
    if (bytes.empty() || !ReplaceFileBytes(*path, bytes))
        m_window.ShowMessage(IDS_PICTURE_NOT_SAVED, IDS_ERROR);
}

}  // namespace plotvane
