#include "windows/com/Handles.h"
#include "windows/ole/Persistence.h"

#include <ORVFilter.h>

namespace orv::windows {

namespace {

constexpr const wchar_t* extentXName = L"_ExtentX";
constexpr const wchar_t* extentYName = L"_ExtentY";
constexpr const wchar_t* jcTypeName = L"m_JCType";
constexpr const wchar_t* displayStyleName = L"ShowFilterStyle";

/// Reads properties of one bag until one fails.
class BagReader {
  public:
    BagReader(IPropertyBag& bag, IErrorLog* log) noexcept : bag_(bag), log_(log) {}

    /// The number of that name, `otherwise` when the bag has none.
    LONG number(const wchar_t* name, LONG otherwise) noexcept {
        const UniqueVariant value = read(name, VT_I4);
        return value.type() == VT_I4 ? V_I4(&value.get()) : otherwise;
    }
    bool flag(const wchar_t* name, bool otherwise) noexcept {
        const UniqueVariant value = read(name, VT_BOOL);
        return value.type() == VT_BOOL ? V_BOOL(&value.get()) != VARIANT_FALSE : otherwise;
    }
    /// Reports a value that the control cannot have.
    void refuse(const wchar_t* name, HRESULT why) noexcept {
        if (log_) {
            EXCEPINFO details{};
            details.scode = why;
            log_->AddError(name, &details);
        }
        result_ = why;
    }
    HRESULT result() const noexcept { return result_; }

  private:
    UniqueVariant read(const wchar_t* name, VARTYPE type) noexcept {
        UniqueVariant value;
        // Of what type the value is to be is told by the variant that goes in.
        V_VT(&value.ref()) = type;
        // E_INVALIDARG, as other failures here, is a bag's word for a property that it has not.
        if (FAILED(result_) || FAILED(bag_.Read(name, &value.ref(), log_)) || value.type() == VT_EMPTY)
            return {};
        const HRESULT converted = VariantChangeType(&value.ref(), &value.ref(), 0, type);
        if (SUCCEEDED(converted))
            return value;
        refuse(name, converted);
        return {};
    }

    IPropertyBag& bag_;
    IErrorLog* log_;
    HRESULT result_ = S_OK;
};

HRESULT write(IPropertyBag& bag, const wchar_t* name, LONG number) noexcept {
    VARIANT value;
    V_VT(&value) = VT_I4;
    V_I4(&value) = number;
    return bag.Write(name, &value);
}

HRESULT write(IPropertyBag& bag, const wchar_t* name, bool flag) noexcept {
    VARIANT value;
    V_VT(&value) = VT_BOOL;
    V_BOOL(&value) = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return bag.Write(name, &value);
}

HRESULT writeState(IPropertyBag& bag, const DesignState& state, bool saveAll) noexcept {
    const DesignState initial = Design::initial();
    HRESULT written = write(bag, extentXName, state.extent.cx);
    if (SUCCEEDED(written))
        written = write(bag, extentYName, state.extent.cy);
    if (SUCCEEDED(written) && (saveAll || state.jcType != initial.jcType))
        written = write(bag, jcTypeName, state.jcType);
    if (SUCCEEDED(written) && (saveAll || state.displayStyle != initial.displayStyle))
        written = write(bag, displayStyleName, static_cast<LONG>(state.displayStyle));
    return written;
}

} // namespace

HRESULT BagPersistence::GetClassID(CLSID* id) noexcept {
    if (!id)
        return E_POINTER;
    *id = __uuidof(::Filter);
    return S_OK;
}

HRESULT BagPersistence::InitNew() noexcept {
    return run([&] {
        design_.apply(Design::initial());
        activation_.layOut(design_.extent());
    });
}

HRESULT BagPersistence::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    if (!bag)
        return E_POINTER;
    return run([&]() -> HRESULT {
        BagReader reader(*bag, log);
        DesignState state = Design::initial();
        state.extent.cx = reader.number(extentXName, state.extent.cx);
        state.extent.cy = reader.number(extentYName, state.extent.cy);
        state.jcType = reader.flag(jcTypeName, state.jcType);
        state.displayStyle = static_cast<std::int32_t>(reader.number(displayStyleName, state.displayStyle));
        if (state.extent.cx < 0 || state.extent.cy < 0)
            reader.refuse(state.extent.cx < 0 ? extentXName : extentYName, E_INVALIDARG);
        if (FAILED(reader.result()))
            return reader.result();
        design_.apply(state);
        activation_.layOut(state.extent);
        return S_OK;
    });
}

HRESULT BagPersistence::Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept {
    if (!bag)
        return E_POINTER;
    return run([&]() -> HRESULT {
        const HRESULT written = writeState(*bag, design_.current(), saveAll != FALSE);
        if (SUCCEEDED(written) && clearDirty)
            design_.markSaved();
        return written;
    });
}

} // namespace orv::windows
