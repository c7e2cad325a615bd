#pragma once

#include "automation/AutomationError.h"

#include <memory>
#include <string>
#include <vector>

namespace orv::ui {

/// A control array: elements of one name with consecutive indexes from `lowerBound` up. Elements keep their address.
template <class T>
class ControlArray {
  public:
    ControlArray(std::u16string name, int lowerBound) : name_(std::move(name)), lowerBound_(lowerBound) {}

    const std::u16string& name() const noexcept { return name_; }
    int lowerBound() const noexcept { return lowerBound_; }
    int count() const noexcept { return static_cast<int>(elements_.size()); }
    /// The highest index; one below the lower bound when there is no element.
    int upperBound() const noexcept { return lowerBound_ + count() - 1; }

    /// The element of that index; error 340's automation equivalent (9, subscript out of range) when there is none.
    T& operator()(int index) const {
        if (index < lowerBound_ || index > upperBound())
            throw automation::AutomationError::runtime(automation::errorNumber::subscriptOutOfRange);
        return *elements_[static_cast<std::size_t>(index - lowerBound_)];
    }

    /// Loads the next element and returns it.
    T& load() {
        elements_.push_back(std::make_unique<T>(name_, upperBound() + 1));
        return *elements_.back();
    }
    /// Loads or unloads elements at the end until there are `count`; error 5 for a negative count. An element may be
    /// unloaded while its own event runs.
    void resize(int count) {
        if (count < 0)
            throw automation::AutomationError::runtime(automation::errorNumber::invalidCall);
        while (this->count() > count)
            elements_.pop_back();
        while (this->count() < count)
            load();
    }

    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

  private:
    std::u16string name_;
    int lowerBound_;
    std::vector<std::unique_ptr<T>> elements_;
};

} // namespace orv::ui
