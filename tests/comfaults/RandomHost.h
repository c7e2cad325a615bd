#pragma once

#include "windows/com/ComObject.h"

#include <oaidl.h>

#include <random>

namespace orv::windows::test {

/// A host's object that answers anything to everything: values of every type, results that make no sense, errors whose
/// details are late, empty or absent. Numbers stay small, so that what loops over a count comes to its end.
class RandomHost final : public ComObject<IDispatch> {
  public:
    explicit RandomHost(std::mt19937& random) : random_(random) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* details, UINT* wrongArgument) noexcept override;

    long calls() const noexcept { return calls_; }

  private:
    ~RandomHost() override = default;

    std::size_t below(std::size_t limit) { return random_() % limit; }
    void answer(VARIANT& result);
    HRESULT fail(EXCEPINFO& details);

    std::mt19937& random_;
    long calls_ = 0;
};

} // namespace orv::windows::test
