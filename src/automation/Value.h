#pragma once

#include <compare>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace orv::automation {

class Object;
/// A counted reference to a late-bound object; null is "Nothing".
using ObjectRef = std::shared_ptr<Object>;

struct Empty {
    friend bool operator==(Empty, Empty) = default;
};
struct Null {
    friend bool operator==(Null, Null) = default;
};
/// An optional argument that the caller left out.
struct Missing {
    friend bool operator==(Missing, Missing) = default;
};

/// A fixed-point amount in units of 1/10000.
struct Currency {
    std::int64_t tenThousandths = 0;
    friend bool operator==(Currency, Currency) = default;
};

/// A 96-bit integer with a decimal scale of 0 to 28: value = (negative ? -1 : 1) * (hi:lo) / 10^scale.
struct Decimal {
    std::uint32_t hi = 0;
    std::uint64_t lo = 0;
    std::uint8_t scale = 0;
    bool negative = false;
    friend bool operator==(Decimal, Decimal) = default;
};

/// Days since 30 December 1899; the fraction is the time of day (also for negative days).
struct Date {
    double days = 0;
    friend bool operator==(Date, Date) = default;
};

/// An error handed over as a value (a result code), not raised.
struct ErrorCode {
    std::int32_t code = 0;
    friend bool operator==(ErrorCode, ErrorCode) = default;
};

/// The automation variant. Copies of a text copy it; copies of an object share it.
class Value {
  public:
    using Storage = std::variant<Empty, Null, Missing, bool, std::int16_t, std::int32_t, double, Currency, Decimal,
                                 Date, std::u16string, ObjectRef, ErrorCode>;

    Value() noexcept = default;
    Value(Empty) noexcept {}
    Value(Null v) noexcept : storage_(v) {}
    Value(Missing v) noexcept : storage_(v) {}
    Value(bool v) noexcept : storage_(v) {}
    Value(std::int16_t v) noexcept : storage_(v) {}
    Value(std::int32_t v) noexcept : storage_(v) {}
    Value(double v) noexcept : storage_(v) {}
    Value(Currency v) noexcept : storage_(v) {}
    Value(Decimal v) noexcept : storage_(v) {}
    Value(Date v) noexcept : storage_(v) {}
    Value(std::u16string v) noexcept : storage_(std::move(v)) {}
    Value(std::u16string_view v) : storage_(std::u16string(v)) {}
    Value(const char16_t* v) : storage_(std::u16string(v)) {}
    Value(ObjectRef v) noexcept : storage_(std::move(v)) {}
    Value(ErrorCode v) noexcept : storage_(v) {}
    Value(const void*) = delete; // a pointer must not turn into a Boolean

    // Copied by hand: libstdc++ 12 takes a variant of these types for one that is never without a value, and destroys
    // what was not there yet when memory runs out under its own copy constructor.
    Value(const Value& other) : storage_(copyOf(other.storage_)) {}
    Value(Value&&) noexcept = default;
    Value& operator=(const Value& other) {
        storage_ = copyOf(other.storage_);
        return *this;
    }
    Value& operator=(Value&&) noexcept = default;
    ~Value() = default;

    template <class T>
    bool is() const noexcept {
        return std::holds_alternative<T>(storage_);
    }
    template <class T>
    const T* getIf() const noexcept {
        return std::get_if<T>(&storage_);
    }
    bool isEmpty() const noexcept { return is<Empty>(); }
    bool isNull() const noexcept { return is<Null>(); }
    bool isMissing() const noexcept { return is<Missing>(); }
    bool isText() const noexcept { return is<std::u16string>(); }
    bool isObject() const noexcept { return is<ObjectRef>(); }
    const Storage& storage() const noexcept { return storage_; }

    /// Same type and same content; objects compare by identity. Not the comparison of the `=` operator of scripts.
    friend bool operator==(const Value&, const Value&) = default;

  private:
    static Storage copyOf(const Storage& storage) {
        return std::visit(
            []<class Content>(const Content& content) { return Storage(std::in_place_type<Content>, content); },
            storage);
    }

    Storage storage_;
};

} // namespace orv::automation
