#pragma once

#include "automation/Object.h"
#include "windows/com/ComPtr.h"

#include <oaidl.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace orv::windows {

/// A host's object as the core sees it. Made by `wrap`.
///
/// Dispatch ids are asked for once per object and spelling. Reads and methods are sent as script engines send them
/// (either kind will do). Writes are sent as PROPERTYPUT; where that member does not exist and the value is an object,
/// as PROPERTYPUTREF. By-reference arguments travel as references to variants; a component that insists on the declared
/// type (it answers "type mismatch") is called again with references to the type that the variable holds.
class DispatchObject final : public automation::Object {
  public:
    explicit DispatchObject(ComPtr<IDispatch> dispatch);
    ~DispatchObject() override;

    automation::Value invoke(std::u16string_view member, automation::InvokeKind kind,
                             automation::Arguments arguments) override;
    /// The ProgID that it was created by; else the name that its type information gives, "" when it has none.
    std::u16string_view typeName() const override;
    void setTypeName(std::u16string_view name) { typeName_ = name; }

    const ComPtr<IDispatch>& dispatch() const noexcept { return dispatch_; }

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const noexcept {
            return std::hash<std::u16string_view>()(text);
        }
    };
    DISPID idOf(std::u16string_view member);

    ComPtr<IDispatch> dispatch_;
    std::unordered_map<std::u16string, DISPID, Hash, std::equal_to<>> ids_;
    mutable std::u16string typeName_;
    mutable bool askedForType_ = false;
};

/// Removes the entry of a view that is going. For DispatchObject alone.
void forgetView(IDispatch* dispatch) noexcept;

} // namespace orv::windows
