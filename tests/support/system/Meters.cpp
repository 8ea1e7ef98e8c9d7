#include "tests/support/system/Meters.h"

namespace plotvane::test {

std::vector<RemoteWindow> OpenMeters(const RemoteWindow& main) {
    std::vector<RemoteWindow> meters;
    for (const RemoteWindow& window : WindowsOf(main.ProcessId())) {
        wchar_t name[64]{};
        ::GetClassNameW(window.Get(), name, 64);
        if (std::wstring_view(name) == L"PlotvaneMeter") meters.push_back(window);
    }
    return meters;
}

std::multiset<std::wstring> MeterTitles(const RemoteWindow& main) {
    std::multiset<std::wstring> titles;
    for (const RemoteWindow& meter : OpenMeters(main)) titles.insert(meter.Text());
    return titles;
}

void RightClick(const RemoteWindow& main, int control) {
    const RECT place = main.Control(control).ScreenRect();
    main.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(main.Get()),
              MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2));
}

int SideOfNeedle(const RemoteWindow& meter, COLORREF needle) {
    const ScreenPicture picture = PictureOf(meter.ClientScreenRect());
    int left = 0;
    int right = 0;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (picture.At(x, y) == needle) ++(x < picture.width / 2 ? left : right);
        }
    }
    return left > right ? -1 : right > left ? 1 : 0;
}

}  // namespace plotvane::test
