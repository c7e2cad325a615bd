#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace orv::ui {

/// Keeps equal values once: thousands of cells have a handful of formats, and the field list of a grid stands in all of
/// its rows. A value goes when its last user has gone and the pool next looks for room.
template <class T>
class SharedValues {
  public:
    std::shared_ptr<const T> share(T value) {
        const auto known = std::ranges::find_if(values_, [&](const auto& entry) { return *entry == value; });
        if (known != values_.end())
            return *known;
        if (values_.size() >= sweepAt_) {
            std::erase_if(values_, [](const auto& entry) { return entry.use_count() == 1; });
            sweepAt_ = std::max<std::size_t>(minimumSweep, values_.size() * 2);
        }
        values_.push_back(std::make_shared<const T>(std::move(value)));
        return values_.back();
    }

  private:
    static constexpr std::size_t minimumSweep = 16;
    std::vector<std::shared_ptr<const T>> values_;
    std::size_t sweepAt_ = minimumSweep;
};

} // namespace orv::ui
