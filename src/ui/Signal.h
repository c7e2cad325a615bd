#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace orv::ui {

/// Ends a subscription when it goes out of scope. Move-only; outliving the signal is harmless.
class Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            end();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }
    ~Subscription() { end(); }

    void end() {
        if (auto end = std::exchange(end_, nullptr))
            end();
    }

  private:
    std::function<void()> end_;
};

/// An event of a model. Handlers run synchronously, in the order in which they subscribed; they may subscribe, end
/// subscriptions, raise the event again or destroy the signal while it runs. What a handler throws reaches the raiser.
template <class... Args> class Signal {
  public:
    using Handler = std::function<void(Args...)>;

    [[nodiscard]] Subscription subscribe(Handler handler) {
        const std::uint64_t id = ++state_->lastId;
        state_->handlers.push_back({id, std::make_shared<Handler>(std::move(handler))});
        return Subscription([weak = std::weak_ptr<State>(state_), id] {
            if (auto state = weak.lock())
                std::erase_if(state->handlers, [id](const Entry& e) { return e.id == id; });
        });
    }

    void raise(Args... args) const {
        const std::shared_ptr<State> keep = state_;
        if (keep->handlers.empty())
            return;
        const auto snapshot = keep->handlers;
        for (const Entry& entry : snapshot) {
            const bool stillThere =
                std::ranges::any_of(keep->handlers, [&](const Entry& e) { return e.id == entry.id; });
            if (stillThere)
                (*entry.handler)(args...);
        }
    }

  private:
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<Handler> handler;
    };
    struct State {
        std::uint64_t lastId = 0;
        std::vector<Entry> handlers;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace orv::ui
