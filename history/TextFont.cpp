#include "history/TextFont.h"

namespace plotvane {

CFont CreateTextFont() {
    return CFont{::CreateFontW(14, 0, 0, 0, 300, FALSE, FALSE, FALSE, ANSI_CHARSET, OUT_DEFAULT_PRECIS,
                               CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FF_SWISS, L"Arial")};
}

}  // namespace plotvane
