#pragma once

#include "windows/com/ComPtr.h"

#include <ocidl.h>

namespace orv::windows {

/// Who wants to hear of the control: the holders of compound-document connections and the one view sink.
class Advice {
  public:
    HRESULT advise(IAdviseSink* sink, DWORD* connection) noexcept;
    HRESULT unadvise(DWORD connection) noexcept;
    HRESULT enumerate(IEnumSTATDATA** connections) noexcept;
    void sendSaved() noexcept;
    void sendClosed() noexcept;

    /// `flags` are ADVF_ values; a null sink ends the connection.
    void setView(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept;
    void getView(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const noexcept;
    /// The picture of the control is another one.
    void sendViewChange() noexcept;

  private:
    ComPtr<IOleAdviseHolder> holder_;
    ComPtr<IAdviseSink> view_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
};

} // namespace orv::windows
