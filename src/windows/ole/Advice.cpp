#include "windows/ole/Advice.h"

namespace orv::windows {

namespace {

// The picture has one part only.
constexpr LONG wholePicture = -1;

} // namespace

HRESULT Advice::advise(IAdviseSink* sink, DWORD* connection) noexcept {
    if (!holder_) {
        if (const HRESULT made = CreateOleAdviseHolder(holder_.put()); FAILED(made))
            return made;
    }
    return holder_->Advise(sink, connection);
}

HRESULT Advice::unadvise(DWORD connection) noexcept {
    return holder_ ? holder_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT Advice::enumerate(IEnumSTATDATA** connections) noexcept {
    return holder_ ? holder_->EnumAdvise(connections) : S_OK;
}

void Advice::sendSaved() noexcept {
    if (const ComPtr<IOleAdviseHolder> holder = holder_)
        holder->SendOnSave();
}

void Advice::sendClosed() noexcept {
    if (const ComPtr<IOleAdviseHolder> holder = holder_)
        holder->SendOnClose();
}

void Advice::setView(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    view_ = ComPtr<IAdviseSink>::copyFrom(sink);
    viewAspects_ = sink ? aspects : 0;
    viewFlags_ = sink ? flags : 0;
    if (flags & ADVF_PRIMEFIRST)
        sendViewChange();
}

void Advice::getView(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const noexcept {
    if (aspects)
        *aspects = viewAspects_;
    if (flags)
        *flags = viewFlags_;
    if (sink)
        *sink = ComPtr<IAdviseSink>(view_).detach();
}

void Advice::sendViewChange() noexcept {
    const ComPtr<IAdviseSink> sink = view_;
    if (!sink || !(viewAspects_ & DVASPECT_CONTENT))
        return;
    if (viewFlags_ & ADVF_ONLYONCE)
        setView(0, 0, nullptr);
    sink->OnViewChange(DVASPECT_CONTENT, wholePicture);
}

} // namespace orv::windows
