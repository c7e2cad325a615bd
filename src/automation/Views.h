#pragma once

#include "automation/Object.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv::automation {

// Assigning swaps: the old object may call back when it goes, and must find the new one in its place. (libstdc++'s copy
// assignment of a shared pointer lets the old object go first, with the pointer half changed.)

/// A string-keyed dictionary behind a late-bound object. Keys compare exactly. A view holds one reference.
class Dictionary {
  public:
    Dictionary() = default;
    explicit Dictionary(ObjectRef object) : object_(std::move(object)) {}
    Dictionary(const Dictionary&) = default;
    Dictionary(Dictionary&&) noexcept = default;
    Dictionary& operator=(Dictionary other) noexcept {
        object_.swap(other.object_);
        return *this;
    }
    ~Dictionary() = default;

    explicit operator bool() const noexcept { return object_ != nullptr; }
    const ObjectRef& object() const noexcept { return object_; }

    /// The entry; whatever error the dictionary raises for an absent key passes through.
    Value get(std::u16string_view key) const;
    /// The entry, or `fallback` when the key is absent (one call of the dictionary's own `GetValue`).
    Value getValue(std::u16string_view key, Value fallback) const;
    void set(std::u16string_view key, Value value) const;
    bool exists(std::u16string_view key) const;
    std::int32_t count() const;
    /// The keys in the dictionary's order (an automation array or collection of texts).
    std::vector<std::u16string> keys() const;
    /// A full copy: nested dictionaries are copied, other objects are shared.
    Dictionary cloneAll() const;

    friend bool operator==(const Dictionary&, const Dictionary&) = default;

  private:
    ObjectRef object_;
};

/// A 1-based list of records behind a late-bound object.
class Collection {
  public:
    Collection() = default;
    explicit Collection(ObjectRef object) : object_(std::move(object)) {}
    Collection(const Collection&) = default;
    Collection(Collection&&) noexcept = default;
    Collection& operator=(Collection other) noexcept {
        object_.swap(other.object_);
        return *this;
    }
    ~Collection() = default;

    explicit operator bool() const noexcept { return object_ != nullptr; }
    const ObjectRef& object() const noexcept { return object_; }

    std::int32_t count() const;
    /// Item `index` (1-based); the collection's own error passes through when it is out of range.
    Value item(std::int32_t index) const;
    Dictionary record(std::int32_t index) const;
    void add(Value value) const;

    friend bool operator==(const Collection&, const Collection&) = default;

  private:
    ObjectRef object_;
};

/// A forward-readable recordset behind a late-bound object.
class Recordset {
  public:
    Recordset() = default;
    explicit Recordset(ObjectRef object) : object_(std::move(object)) {}
    Recordset(const Recordset&) = default;
    Recordset(Recordset&&) noexcept = default;
    Recordset& operator=(Recordset other) noexcept {
        object_.swap(other.object_);
        return *this;
    }
    ~Recordset() = default;

    explicit operator bool() const noexcept { return object_ != nullptr; }
    const ObjectRef& object() const noexcept { return object_; }

    bool eof() const;
    void moveNext() const;
    std::int32_t recordCount() const;
    /// The value of a column of the current record, by name or by 0-based position.
    Value field(std::u16string_view name) const;
    Value field(std::int32_t position) const;
    /// Narrows the recordset to the records that `criterion` selects.
    void setFilter(std::u16string_view criterion) const;

  private:
    ObjectRef object_;
};

} // namespace orv::automation
