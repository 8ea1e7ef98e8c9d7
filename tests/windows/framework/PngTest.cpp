#include "framework/Png.h"

#include <gtest/gtest.h>
#include <objbase.h>
#include <wincodec.h>

#include <algorithm>
#include <vector>

namespace {

// Reads the bytes with Windows' own reader.
class PngReader {
public:
    explicit PngReader(std::string bytes) : m_bytes(std::move(bytes)) {
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        Read();
    }
    ~PngReader() { ::CoUninitialize(); }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;

    UINT width = 0;
    UINT height = 0;
    std::vector<std::uint32_t> pixels;  // 0x00RRGGBB, from the top

private:
    void Read() {
        IWICImagingFactory* factory = nullptr;
        IWICStream* stream = nullptr;
        IWICBitmapDecoder* decoder = nullptr;
        IWICBitmapFrameDecode* frame = nullptr;
        IWICBitmapSource* source = nullptr;
        ASSERT_EQ(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IWICImagingFactory, reinterpret_cast<void**>(&factory)),
                  S_OK);
        ASSERT_EQ(factory->CreateStream(&stream), S_OK);
        ASSERT_EQ(stream->InitializeFromMemory(reinterpret_cast<BYTE*>(m_bytes.data()),
                                               static_cast<DWORD>(m_bytes.size())),
                  S_OK);
        ASSERT_EQ(factory->CreateDecoderFromStream(stream, nullptr, WICDecodeMetadataCacheOnDemand, &decoder),
                  S_OK);
        ASSERT_EQ(decoder->GetFrame(0, &frame), S_OK);
        ASSERT_EQ(::WICConvertBitmapSource(GUID_WICPixelFormat32bppBGR, frame, &source), S_OK);
        source->GetSize(&width, &height);
        pixels.resize(std::size_t{width} * height);
        ASSERT_EQ(source->CopyPixels(nullptr, width * 4, width * height * 4,
                                     reinterpret_cast<BYTE*>(pixels.data())),
                  S_OK);
        for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
        for (IUnknown* object : std::initializer_list<IUnknown*>{source, frame, decoder, stream, factory})
            object->Release();
    }

    std::string m_bytes;
};

TEST(Png, HoldsEveryPixelOfThePicture) {
    const Picture picture(37, 21);  // sizes that are no multiple of two or four
    std::uint32_t colour = 0x010203;
    for (std::uint32_t& pixel : picture.Pixels()) pixel = (colour = colour * 69069 + 1) & 0xFFFFFF;

    const PngReader read(EncodePng(picture));

    EXPECT_EQ(read.width, 37u);
    EXPECT_EQ(read.height, 21u);
    EXPECT_TRUE(std::ranges::equal(read.pixels, picture.Pixels()));
}

TEST(Png, OfALargePictureHoldsItsLastPixelToo) {
    const Picture picture(1600, 900);
    picture.Pixels().back() = 0xFF8001;
    const PngReader read(EncodePng(picture));
    ASSERT_EQ(read.pixels.size(), std::size_t{1600} * 900);
    EXPECT_EQ(read.pixels.back(), 0xFF8001u);
    EXPECT_EQ(read.pixels.front(), 0u);
}

TEST(Png, BeginsAsTheFormatSays) {
    EXPECT_EQ(EncodePng(Picture(2, 2)).substr(0, 8), "\x89PNG\r\n\x1A\n");
}

TEST(Png, OfAPictureThatCouldNotBeMadeIsEmpty) {
    EXPECT_EQ(EncodePng(Picture(0, 0)), "");
}

}  // namespace
