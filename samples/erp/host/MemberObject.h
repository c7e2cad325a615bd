#pragma once

#include "automation/Object.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

namespace orv::erp {

class MemberObject;

enum class MemberKind : std::uint8_t {
    method,
    readOnly, ///< property that can only be read
    property, ///< property that can be read and written
};

/// One row of an object's member table.
struct Member {
    std::u16string_view name;
    MemberKind kind = MemberKind::method;
    /// Arguments of a call or a read, at least and at most; a write takes the new value in addition.
    std::size_t least = 0;
    std::size_t most = 0;
    automation::Value (*read)(MemberObject&, automation::Arguments) = nullptr;
    automation::Value (*write)(MemberObject&, automation::Arguments) = nullptr;
    /// The member that the default member (dispatch id 0) stands for.
    bool isDefault = false;
};

/// A late-bound object whose members stand in a constant table, so that its members can be listed as well as called
/// (a COM class made of it answers names and ids from the table).
///
/// Unknown members and a read or write that a member does not allow raise 438, a wrong number of arguments 450.
class MemberObject : public automation::Object {
  public:
    virtual std::span<const Member> members() const = 0;
    automation::Value invoke(std::u16string_view member, automation::InvokeKind kind,
                             automation::Arguments arguments) final;

  protected:
    /// Runs before each call, when member and argument count are known to be right. May raise.
    virtual void beforeCall(const Member&, automation::InvokeKind, automation::Arguments) {}
};

namespace detail {
template <class>
struct MemberFunction;
template <class Result, class Owner>
struct MemberFunction<Result (Owner::*)(automation::Arguments)> {
    using owner = Owner;
    using result = Result;
};

template <auto function>
automation::Value run(MemberObject& self, automation::Arguments arguments) {
    using Traits = MemberFunction<decltype(function)>;
    auto& owner = static_cast<typename Traits::owner&>(self);
    if constexpr (std::is_void_v<typename Traits::result>) {
        (owner.*function)(arguments);
        return {};
    } else {
        return (owner.*function)(arguments);
    }
}
} // namespace detail

// Rows of a member table. The functions are members of the class: `Result f(automation::Arguments)`, where Result is
// void or converts to Value.

template <auto function>
constexpr Member method(std::u16string_view name, std::size_t least, std::size_t most) {
    return {name, MemberKind::method, least, most, &detail::run<function>, nullptr, false};
}
template <auto function>
constexpr Member method(std::u16string_view name, std::size_t count) {
    return method<function>(name, count, count);
}
template <auto function>
constexpr Member readOnly(std::u16string_view name, std::size_t least = 0, std::size_t most = 0) {
    return {name, MemberKind::readOnly, least, most, &detail::run<function>, nullptr, false};
}
template <auto read, auto write>
constexpr Member property(std::u16string_view name, std::size_t least = 0, std::size_t most = 0) {
    return {name, MemberKind::property, least, most, &detail::run<read>, &detail::run<write>, false};
}
/// The same row as the object's default member.
constexpr Member asDefault(Member member) {
    member.isDefault = true;
    return member;
}

} // namespace orv::erp
