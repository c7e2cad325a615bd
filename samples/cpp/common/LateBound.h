#pragma once

#include "Com.h"

#include <string>
#include <vector>

/// A failure that a late-bound caller sees as an error with this number and text.
struct Failure {
    HRESULT code;
    std::wstring description;
};

/// A call that arrived.
struct Call {
    std::wstring member; ///< as listed by the object; empty for the default member
    bool isWrite;        ///< a property is written: its new value is the last argument
    std::vector<Variant> arguments;

    /// An argument by its position from 0; raises Failure when it is not there.
    const Variant& argument(std::size_t position) const;
};

/// An object that is called by the names of its members: all that the filter control asks of its host is. Scripts and
/// Visual Basic have such objects by nature; in C++ this class makes them.
class LateBound : public IDispatch {
  public:
    LateBound(const LateBound&) = delete;
    LateBound& operator=(const LateBound&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* error, UINT*) override;

  protected:
    /// `members` are the names that callers may use, in any letter case.
    explicit LateBound(std::vector<std::wstring> members);
    virtual ~LateBound();

  private:
    /// Does what is called for; raises Failure.
    virtual Variant answer(const Call& call) = 0;

    std::vector<std::wstring> members_;
    LONG references_ = 1;
};

/// How many objects there are: a DLL stays loaded as long as there is one.
LONG liveObjects();

template <class T, class... Arguments>
ComPtr<IDispatch> make(Arguments&&... arguments) {
    return ComPtr<IDispatch>::attach(new T(std::forward<Arguments>(arguments)...));
}
