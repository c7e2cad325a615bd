#pragma once

#include "windows/com/ComObject.h"
#include "windows/com/Handles.h"

#include <oaidl.h>

#include <functional>
#include <map>
#include <string>

namespace orv::windows::test {

/// What a fake member sees of a call.
struct FakeCall {
    WORD flags;
    DISPPARAMS& parameters;
    VARIANT* result;
    EXCEPINFO* details;

    /// Argument by position from 0.
    VARIANT& argument(UINT i) const { return parameters.rgvarg[parameters.cArgs - 1 - i]; }
};

/// A host's object with the members that a test gives it. Names compare exactly, so that a wrong spelling shows.
class FakeDispatch final : public ComObject<IDispatch> {
  public:
    std::map<std::u16string, std::function<HRESULT(const FakeCall&)>> members; ///< "" is the default member
    int nameLookUps = 0;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override {
        *info = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept override {
        ++nameLookUps;
        const auto found = members.find(asUtf16(names[0]));
        if (found == members.end())
            return DISP_E_UNKNOWNNAME;
        ids[0] = static_cast<DISPID>(100 + std::distance(members.begin(), found));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* details, UINT*) noexcept override {
        auto member = id == DISPID_VALUE ? members.find(u"") : std::next(members.begin(), id - 100);
        return member == members.end() ? DISP_E_MEMBERNOTFOUND
                                       : member->second(FakeCall{flags, *parameters, result, details});
    }
    ULONG references() noexcept {
        AddRef();
        return Release();
    }

  private:
    ~FakeDispatch() override = default;
};

/// A fake whose member `name` does `what`.
inline ComPtr<FakeDispatch> fakeWith(std::u16string name, std::function<HRESULT(const FakeCall&)> what) {
    ComPtr<FakeDispatch> fake = makeComObject<FakeDispatch>();
    fake->members[std::move(name)] = std::move(what);
    return fake;
}

} // namespace orv::windows::test
