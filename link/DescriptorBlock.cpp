#include "link/DescriptorBlock.h"

namespace plotvane {
namespace {

constexpr std::size_t kCountSize = 4;
constexpr std::byte kOpen{0x01};

std::uint64_t LittleEndian(std::span<const std::byte> bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = bytes.size(); i > 0; --i) {
        number = number << 8 | std::to_integer<std::uint64_t>(bytes[i - 1]);
    }
    return number;
}

// How many bytes a handle has in a block of this size; 0 if neither width fits.
std::size_t HandleSizeIn(std::size_t blockSize, std::uint64_t count) {
    for (const std::size_t size : {std::size_t{4}, std::size_t{8}}) {
        if (blockSize == kCountSize + count * (1 + size)) return size;
    }
    return 0;
}

}  // namespace

std::optional<std::int64_t> InheritedHandleOf(std::span<const std::byte> block, int descriptor) {
    if (block.size() < kCountSize || descriptor < 0) return std::nullopt;
    const std::uint64_t count = LittleEndian(block.first(kCountSize));
    const std::size_t handleSize = HandleSizeIn(block.size(), count);
    const auto index = static_cast<std::size_t>(descriptor);
    if (handleSize == 0 || index >= count) return std::nullopt;
    if ((block[kCountSize + index] & kOpen) == std::byte{0}) return std::nullopt;

    const std::uint64_t handle =
        LittleEndian(block.subspan(kCountSize + count + index * handleSize, handleSize));
    if (handleSize == 4) return static_cast<std::int32_t>(handle);
    return static_cast<std::int64_t>(handle);
}

}  // namespace plotvane
