#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

// Owners of automation texts and variants, and the one place where UTF-16 texts meet the platform's wchar_t.
namespace orv::windows {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

inline const wchar_t* asWide(const char16_t* text) noexcept {
    return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* asWide(const std::u16string& text) noexcept {
    return asWide(text.c_str());
}
inline const char16_t* asUtf16(const wchar_t* text) noexcept {
    return reinterpret_cast<const char16_t*>(text);
}

/// A name as callers of GetIDsOfNames pass it; none is the empty name.
inline std::u16string_view viewOfName(const wchar_t* name) noexcept {
    return name ? std::u16string_view(asUtf16(name)) : std::u16string_view();
}

/// The text of a BSTR by its length, embedded NULs included; a null BSTR is the empty text.
inline std::u16string_view viewOf(BSTR text) noexcept {
    return text ? std::u16string_view(asUtf16(text), SysStringLen(text)) : std::u16string_view();
}

/// An owned BSTR.
class UniqueBstr {
  public:
    UniqueBstr() noexcept = default;
    /// A copy of a text; raises std::bad_alloc.
    explicit UniqueBstr(std::u16string_view text)
        : text_(SysAllocStringLen(asWide(text.data()), static_cast<UINT>(text.size()))) {
        if (!text_)
            throw std::bad_alloc();
    }
    UniqueBstr(UniqueBstr&& other) noexcept : text_(other.release()) {}
    UniqueBstr& operator=(UniqueBstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~UniqueBstr() { SysFreeString(text_); }

    static UniqueBstr attach(BSTR owned) noexcept {
        UniqueBstr taken;
        taken.text_ = owned;
        return taken;
    }

    BSTR get() const noexcept { return text_; }
    std::u16string_view view() const noexcept { return viewOf(text_); }
    /// Where a call may put a new text; what was held is freed first.
    BSTR* put() noexcept {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }
    [[nodiscard]] BSTR release() noexcept { return std::exchange(text_, nullptr); }

  private:
    BSTR text_ = nullptr;
};

/// An owned VARIANT, empty at first.
class UniqueVariant {
  public:
    UniqueVariant() noexcept = default;
    UniqueVariant(UniqueVariant&& other) noexcept : variant_(other.release()) {}
    UniqueVariant& operator=(UniqueVariant&& other) noexcept {
        std::swap(variant_, other.variant_);
        return *this;
    }
    ~UniqueVariant() { clear(); }

    static UniqueVariant attach(const VARIANT& owned) noexcept {
        UniqueVariant taken;
        taken.variant_ = owned;
        return taken;
    }

    const VARIANT& get() const noexcept { return variant_; }
    VARIANT& ref() noexcept { return variant_; }
    VARTYPE type() const noexcept { return V_VT(&variant_); }
    /// Where a call may put a new value; what was held is cleared first.
    VARIANT* put() noexcept {
        clear();
        return &variant_;
    }
    [[nodiscard]] VARIANT release() noexcept {
        const VARIANT given = variant_;
        V_VT(&variant_) = VT_EMPTY;
        return given;
    }

  private:
    // Most variants of a call are empty or numbers when they go: those need no call into the platform.
    void clear() noexcept {
        if (V_VT(&variant_) != VT_EMPTY)
            VariantClear(&variant_);
    }

    VARIANT variant_{};
};

} // namespace orv::windows
