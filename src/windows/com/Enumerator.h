#pragma once

#include "windows/com/ComObject.h"
#include "windows/com/Errors.h"

#include <vector>

namespace orv::windows {

/// A COM enumerator over a fixed list. `Held` keeps one item and hands out a copy that the caller owns: `Item give()`.
template <class Interface, class Item, class Held>
class Enumerator final : public ComObject<Interface> {
  public:
    explicit Enumerator(std::vector<Held> list, std::size_t position = 0)
        : list_(std::move(list)), position_(position) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, Item* items, ULONG* fetched) noexcept override {
        if (fetched)
            *fetched = 0;
        if (!items || (!fetched && count != 1))
            return E_POINTER;
        ULONG given = 0;
        for (; given < count && position_ < list_.size(); ++given, ++position_)
            items[given] = list_[position_].give();
        if (fetched)
            *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
        const std::size_t left = list_.size() - position_;
        position_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(Interface** copy) noexcept override {
        if (!copy)
            return E_POINTER;
        *copy = nullptr;
        return guarded([&] { *copy = makeComObject<Enumerator>(list_, position_).detach(); });
    }

  private:
    std::vector<Held> list_;
    std::size_t position_;
};

} // namespace orv::windows
