// SampleHost.dll: the entry point through which COM, and so the filter control, gets the components of this host.
#include "Components.h"

#include <new>

namespace {

class ComponentFactory final : public IClassFactory {
  public:
    explicit ComponentFactory(const Component& component) : component_(component) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (id != IID_IUnknown && id != IID_IClassFactory)
            return E_NOINTERFACE;
        *out = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    // There is one for each component, as long as the DLL is loaded.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        try {
            return component_.create()->QueryInterface(id, out);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (...) {
            return E_UNEXPECTED;
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    const Component& component_;
};

} // namespace

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, LPVOID* out) {
    static std::vector<ComponentFactory> factories = [] {
        std::vector<ComponentFactory> made;
        for (const Component& component : components())
            made.emplace_back(component);
        return made;
    }();
    if (!out)
        return E_POINTER;
    *out = nullptr;
    for (std::size_t i = 0; i < factories.size(); ++i) {
        if (components()[i].id == id)
            return factories[i].QueryInterface(interfaceId, out);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return liveObjects() == 0 ? S_OK : S_FALSE;
}
