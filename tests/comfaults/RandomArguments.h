#pragma once

#include "windows/FakeDispatch.h"
#include "windows/com/Handles.h"

#include <deque>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace orv::windows::test {

/// How many arguments a call takes, and whether the last one is a property's new value.
struct CallShape {
    std::size_t count;
    bool isWrite;
};

/// The arguments of one call, drawn at random: values of every type, references to them and to nothing, arrays, types
/// that do not exist. What they refer to lives as long as they do.
class RandomArguments {
  public:
    /// Without a `shape` the lists are as wrong as the values.
    RandomArguments(std::mt19937& random, const std::vector<IDispatch*>& objects, std::optional<CallShape> shape);
    RandomArguments(const RandomArguments&) = delete;
    RandomArguments& operator=(const RandomArguments&) = delete;
    ~RandomArguments();

    /// Null now and then, as are the lists in it.
    DISPPARAMS* parameters() noexcept { return isNull_ ? nullptr : &parameters_; }
    std::size_t count() const noexcept { return arguments_.size(); }
    /// Empty when the callee left everything as it must: arguments by value untouched, what others refer to still
    /// valid for its type. Else what is wrong.
    std::string damage() const;

  private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    VARIANT value(int depth);
    VARIANT plain();
    VARIANT reference(int depth);
    VARIANT array(int depth);
    VARIANT& keep(const VARIANT& variant);

    std::mt19937& random_;
    const std::vector<IDispatch*>& objects_;
    std::deque<VARIANT> referents_;     ///< owned, each at a place of its own
    std::vector<VARIANT> arguments_;    ///< owned
    std::vector<VARIANT> before_;       ///< the same bit by bit
    std::vector<std::u16string> texts_; ///< contents of those arguments that are texts
    std::vector<DISPID> names_;
    DISPPARAMS parameters_{};
    bool isNull_ = false;
};

} // namespace orv::windows::test
