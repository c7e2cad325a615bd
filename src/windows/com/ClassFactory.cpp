#include "windows/com/ComObject.h"
#include "windows/com/Errors.h"
#include "windows/com/Server.h"

namespace orv::windows {

namespace {

class ClassFactory final : public ComObject<IClassFactory> {
  public:
    explicit ClassFactory(std::function<ComPtr<IUnknown>()> create) : create_(std::move(create)) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) noexcept override {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return guarded([&]() -> HRESULT { return create_()->QueryInterface(id, out); });
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override {
        if (lock)
            module::addUse();
        else
            module::releaseUse();
        return S_OK;
    }

  private:
    std::function<ComPtr<IUnknown>()> create_;
};

} // namespace

ComPtr<IUnknown> makeClassFactory(std::function<ComPtr<IUnknown>()> create) {
    const ComPtr<ClassFactory> factory = makeComObject<ClassFactory>(std::move(create));
    return ComPtr<IUnknown>::copyFrom(factory->identity());
}

} // namespace orv::windows
