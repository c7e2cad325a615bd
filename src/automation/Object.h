#pragma once

#include "automation/Value.h"

#include <concepts>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

namespace orv::automation {

/// What a call wants of a member. A call that may be either a method or a property read uses `method` where the
/// member takes arguments by its name (`GetProfile`) and `get` where it is a property ("ClassTypeID").
enum class InvokeKind {
    method, ///< run the method (on Windows a property read is accepted too, as script engines ask)
    get,    ///< read the property, with index arguments if any
    let,    ///< write the property; the last argument is the new value, objects included
    set,    ///< write the property by reference; sent only where a host's object refuses `let`
};

/// One argument of a late-bound call: by value, or by reference to a variable of the caller.
/// A by-reference argument must not outlive the variable that it names.
class Argument {
  public:
    template <class T>
    requires std::is_constructible_v<Value, T> Argument(T&& value) : own_(std::forward<T>(value)) {}
    static Argument byReference(Value& variable) { return Argument(&variable, 0); }

    bool isByReference() const noexcept { return referent_ != nullptr; }
    const Value& value() const noexcept { return referent_ ? *referent_ : own_; }
    /// What the callee leaves in the argument; lost when the argument came by value.
    void assign(Value value) { (referent_ ? *referent_ : own_) = std::move(value); }

  private:
    Argument(Value* referent, int) : referent_(referent) {}
    Value own_;
    Value* referent_ = nullptr;
};

using Arguments = std::span<Argument>;

/// The member name of the default member (dispatch id 0).
inline constexpr std::u16string_view defaultMember{};

/// A late-bound object. Member names compare ignoring ASCII letter case.
class Object : public std::enable_shared_from_this<Object> {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    /// Runs `member`. Raises AutomationError: 438 for an unknown member, 450 for a wrong number of arguments, 13 for
    /// an argument of a wrong type, or whatever the member itself raises. The object may run the host's code: the
    /// caller may be re-entered, or released, before this returns.
    virtual Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) = 0;

    /// What kind of object this is, for diagnostics ("Dictionary", a ProgID, ...).
    virtual std::u16string_view typeName() const { return u"Object"; }
};

/// Shorthands of a call: `call(service, u"GetData", sql, props)`. Null objects raise error 91.
Value callMember(const ObjectRef& object, std::u16string_view member, InvokeKind kind, Arguments arguments);

template <class... Args>
Value call(const ObjectRef& object, std::u16string_view member, Args&&... args) {
    Argument list[sizeof...(Args) + 1] = {Argument(std::forward<Args>(args))..., Argument(Empty{})};
    return callMember(object, member, InvokeKind::method, Arguments(list, sizeof...(Args)));
}
template <class... Args>
Value get(const ObjectRef& object, std::u16string_view member, Args&&... index) {
    Argument list[sizeof...(Args) + 1] = {Argument(std::forward<Args>(index))..., Argument(Empty{})};
    return callMember(object, member, InvokeKind::get, Arguments(list, sizeof...(Args)));
}
/// `let(object, member, index..., value)`: the last argument is the new value.
template <class... Args>
void let(const ObjectRef& object, std::u16string_view member, Args&&... args) {
    Argument list[sizeof...(Args)] = {Argument(std::forward<Args>(args))...};
    callMember(object, member, InvokeKind::let, Arguments(list, sizeof...(Args)));
}

/// True when two member names are the same, ignoring ASCII letter case.
bool sameMember(std::u16string_view a, std::u16string_view b) noexcept;

} // namespace orv::automation
