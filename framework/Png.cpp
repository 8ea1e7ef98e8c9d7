#include "framework/Png.h"

#include <objbase.h>
#include <wincodec.h>

#include <cstdint>
#include <span>
#include <vector>

#include "framework/SystemLibrary.h"

namespace {

// Owns a reference to an object of COM, or none.
template <typename Interface>
class ComOwner {
public:
    ComOwner() = default;
    ~ComOwner() {
        if (m_object) m_object->Release();
    }
    ComOwner(const ComOwner&) = delete;
    ComOwner& operator=(const ComOwner&) = delete;

    Interface* operator->() const { return m_object; }
    Interface* Get() const { return m_object; }
    Interface** Receive() { return &m_object; }

private:
    Interface* m_object = nullptr;
};

// COM in this thread, from a library that is not linked: the program does without it until a picture is
// saved.
class Com {
public:
    Com() {
        auto* const begin = m_ole.Function<HRESULT WINAPI(void*, DWORD)>("CoInitializeEx");
        m_hasBegun = begin && SUCCEEDED(begin(nullptr, COINIT_APARTMENTTHREADED));
    }
    ~Com() {
        auto* const end = m_ole.Function<void WINAPI()>("CoUninitialize");
        if (m_hasBegun && end) end();
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

    bool Create(REFCLSID type, REFIID id, void** object) const {
        auto* const create =
            m_ole.Function<HRESULT WINAPI(REFCLSID, IUnknown*, DWORD, REFIID, void**)>("CoCreateInstance");
        return create && SUCCEEDED(create(type, nullptr, CLSCTX_INPROC_SERVER, id, object));
    }
    bool CreateMemoryStream(IStream** stream) const {
        auto* const create =
            m_ole.Function<HRESULT WINAPI(HGLOBAL, BOOL, IStream**)>("CreateStreamOnHGlobal");
        return create && SUCCEEDED(create(nullptr, TRUE, stream));
    }

private:
    SystemLibrary m_ole{L"ole32.dll"};
    bool m_hasBegun = false;
};

// Three bytes a pixel: blue, green, red.
std::vector<BYTE> PixelBytes(const Picture& picture) {
    const std::span<const std::uint32_t> pixels = picture.Pixels();
    std::vector<BYTE> bytes;
    bytes.reserve(pixels.size() * 3);
    for (const std::uint32_t pixel : pixels) {
        bytes.push_back(static_cast<BYTE>(pixel));
        bytes.push_back(static_cast<BYTE>(pixel >> 8));
        bytes.push_back(static_cast<BYTE>(pixel >> 16));
    }
    return bytes;
}

bool Encode(IWICImagingFactory& factory, const Picture& picture, IStream& stream) {
    const auto width = static_cast<UINT>(picture.Width());
    const auto height = static_cast<UINT>(picture.Height());
    std::vector<BYTE> bytes = PixelBytes(picture);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    ComOwner<IWICBitmapEncoder> encoder;
    ComOwner<IWICBitmapFrameEncode> frame;
    return SUCCEEDED(factory.CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Receive())) &&
           SUCCEEDED(encoder->Initialize(&stream, WICBitmapEncoderNoCache)) &&
           SUCCEEDED(encoder->CreateNewFrame(frame.Receive(), nullptr)) &&
           SUCCEEDED(frame->Initialize(nullptr)) && SUCCEEDED(frame->SetSize(width, height)) &&
           SUCCEEDED(frame->SetPixelFormat(&format)) && format == GUID_WICPixelFormat24bppBGR &&
           SUCCEEDED(frame->WritePixels(height, width * 3, static_cast<UINT>(bytes.size()), bytes.data())) &&
           SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

std::string AllOf(IStream& stream) {
    STATSTG about{};
    if (FAILED(stream.Stat(&about, STATFLAG_NONAME))) return {};
    if (FAILED(stream.Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr))) return {};
    std::string bytes(static_cast<std::size_t>(about.cbSize.QuadPart), '\0');
    ULONG count = 0;
    const bool isRead = SUCCEEDED(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &count));
    return isRead && count == bytes.size() ? bytes : std::string();
}

}  // namespace

std::string EncodePng(const Picture& picture) {
    if (!picture) return {};
    const Com com;
    ComOwner<IWICImagingFactory> factory;
    ComOwner<IStream> stream;
    void** const receiver = reinterpret_cast<void**>(factory.Receive());
    if (!com.Create(CLSID_WICImagingFactory, IID_IWICImagingFactory, receiver)) return {};
    if (!com.CreateMemoryStream(stream.Receive())) return {};
    return Encode(*factory.Get(), picture, *stream.Get()) ? AllOf(*stream.Get()) : std::string();
}
