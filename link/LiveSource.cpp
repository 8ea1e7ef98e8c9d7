#include "link/LiveSource.h"

#include "link/ExchangeFile.h"

namespace plotvane {

bool LiveSource::Open() {
    const auto descriptor = ReadExchangeFile(kExchangeFileName);
    if (!descriptor) return false;
    m_blocks.Attach(*descriptor);
    return true;
}

}  // namespace plotvane
