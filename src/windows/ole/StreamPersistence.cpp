#include "windows/ole/Persistence.h"

#include <ORVFilter.h>

#include <cstdint>

namespace orv::windows {

namespace {

constexpr std::uint32_t signature = 0x3156524F; // "ORV1" in the order of its bytes
constexpr std::uint16_t version = 1;

/// As the bytes stand in the stream; little-endian, without gaps.
struct Header {
    std::uint32_t signature;
    std::uint16_t version;
    std::uint16_t bodySize; ///< bytes that follow
};
struct Body {
    std::int32_t extentX;
    std::int32_t extentY;
    std::int32_t jcType;
    std::int32_t displayStyle;
};
static_assert(sizeof(Header) == 8 && sizeof(Body) == 16);

HRESULT readAll(IStream& stream, void* bytes, ULONG count) noexcept {
    ULONG read = 0;
    if (const HRESULT result = stream.Read(bytes, count, &read); FAILED(result))
        return result;
    return read == count ? S_OK : STG_E_READFAULT;
}

HRESULT writeAll(IStream& stream, const void* bytes, ULONG count) noexcept {
    ULONG written = 0;
    if (const HRESULT result = stream.Write(bytes, count, &written); FAILED(result))
        return result;
    return written == count ? S_OK : STG_E_MEDIUMFULL;
}

/// Leaves the stream behind the state, whatever a later version has put there.
HRESULT readState(IStream& stream, DesignState& state) noexcept {
    Header header{};
    if (const HRESULT read = readAll(stream, &header, sizeof header); FAILED(read))
        return read;
    if (header.signature != signature || header.version == 0 || header.bodySize < sizeof(Body))
        return STG_E_INVALIDHEADER;
    Body body{};
    if (const HRESULT read = readAll(stream, &body, sizeof body); FAILED(read))
        return read;
    if (body.extentX < 0 || body.extentY < 0)
        return STG_E_INVALIDHEADER;
    LARGE_INTEGER rest{};
    rest.QuadPart = header.bodySize - static_cast<LONGLONG>(sizeof body);
    if (rest.QuadPart > 0) {
        if (const HRESULT skipped = stream.Seek(rest, STREAM_SEEK_CUR, nullptr); FAILED(skipped))
            return skipped;
    }
    state = {{body.extentX, body.extentY}, body.jcType != 0, body.displayStyle};
    return S_OK;
}

HRESULT writeState(IStream& stream, const DesignState& state) noexcept {
    const Header header{signature, version, sizeof(Body)};
    const Body body{static_cast<std::int32_t>(state.extent.cx), static_cast<std::int32_t>(state.extent.cy),
                    state.jcType ? 1 : 0, state.displayStyle};
    const HRESULT written = writeAll(stream, &header, sizeof header);
    return FAILED(written) ? written : writeAll(stream, &body, sizeof body);
}

} // namespace

HRESULT StreamPersistence::GetClassID(CLSID* id) noexcept {
    if (!id)
        return E_POINTER;
    *id = __uuidof(::Filter);
    return S_OK;
}

HRESULT StreamPersistence::IsDirty() noexcept {
    return run([&] { return design_.isDirty() ? S_OK : S_FALSE; });
}

HRESULT StreamPersistence::Load(IStream* stream) noexcept {
    if (!stream)
        return E_POINTER;
    return run([&]() -> HRESULT {
        DesignState state;
        if (const HRESULT read = readState(*stream, state); FAILED(read))
            return read;
        design_.apply(state);
        activation_.layOut(state.extent);
        return S_OK;
    });
}

HRESULT StreamPersistence::Save(IStream* stream, BOOL clearDirty) noexcept {
    if (!stream)
        return E_POINTER;
    return run([&]() -> HRESULT {
        const HRESULT written = writeState(*stream, design_.current());
        if (SUCCEEDED(written) && clearDirty)
            design_.markSaved();
        return written;
    });
}

HRESULT StreamPersistence::GetSizeMax(ULARGE_INTEGER* size) noexcept {
    if (!size)
        return E_POINTER;
    size->QuadPart = sizeof(Header) + sizeof(Body);
    return S_OK;
}

HRESULT StreamPersistence::InitNew() noexcept {
    return run([&] {
        design_.apply(Design::initial());
        activation_.layOut(design_.extent());
    });
}

} // namespace orv::windows
