#pragma once

#include <gtest/gtest.h>
#include <objbase.h>
#include <wincodec.h>

#include <cstdint>
#include <string>
#include <vector>

namespace plotvane::test {

// Reads the bytes of a PNG file with Windows' own reader.
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

}  // namespace plotvane::test
