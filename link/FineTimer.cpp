#include "link/FineTimer.h"

namespace plotvane {
namespace {

constexpr UINT kPeriodMs = 1;

}  // namespace

FineTimer::FineTimer() : m_multimedia(L"winmm.dll") {
    if (auto* const begin = m_multimedia.Function<SetPeriod>("timeBeginPeriod")) begin(kPeriodMs);
}

FineTimer::~FineTimer() {
    if (auto* const end = m_multimedia.Function<SetPeriod>("timeEndPeriod")) end(kPeriodMs);
}

}  // namespace plotvane
