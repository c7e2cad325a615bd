#pragma once

#include "automation/Object.h"
#include "windows/com/ComObject.h"

#include <oaidl.h>

#include <string>
#include <vector>

namespace orv::windows {

/// A core object as a host sees it: late-bound, without type information. Made by `expose`.
///
/// Ids are handed out by name as they are asked for, from 1 up; any name gets one, and a name that the object does not
/// know fails with 438 when it is used. Id 0 is the default member. Named arguments are refused.
class ObjectDispatch final : public ComObject<IDispatch> {
  public:
    explicit ObjectDispatch(automation::ObjectRef object);

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* details, UINT* wrongArgument) noexcept override;

  private:
    ~ObjectDispatch() override;

    automation::ObjectRef object_;
    std::vector<std::u16string> names_; ///< the name of id i + 1
};

/// Removes the entries of a wrapper that is going. For ObjectDispatch alone.
void forgetWrapper(IDispatch* wrapper, const automation::Object* object) noexcept;

} // namespace orv::windows
