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
/// subscriptions, raise the event again or destroy the signal while it runs. A handler that subscribes during a raise
/// is first called by the next one; one that has ended, or whose signal is gone, is not called any more. What a
/// handler throws reaches the raiser, and the handlers after it are not called.
template <class... Args>
class Signal {
  public:
    using Handler = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() { state_->handlers = nullptr; }

    [[nodiscard]] Subscription subscribe(Handler handler) {
        const std::uint64_t id = ++state_->lastId;
        auto handlers = state_->handlers ? std::make_shared<Handlers>(*state_->handlers) : std::make_shared<Handlers>();
        handlers->push_back({id, std::make_shared<const Handler>(std::move(handler))});
        state_->handlers = std::move(handlers);
        return Subscription([weak = std::weak_ptr<State>(state_), id] {
            if (auto state = weak.lock())
                state->remove(id);
        });
    }

    void raise(Args... args) const {
        // The list is replaced, never changed, so a raise walks the one that it began with; nothing is allocated here.
        const std::shared_ptr<const Handlers> atStart = state_->handlers;
        if (!atStart)
            return;
        const std::shared_ptr<const State> state = state_;
        for (const Entry& entry : *atStart) {
            if (state->handlers == atStart || state->contains(entry.id))
                (*entry.handler)(args...);
        }
    }

  private:
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<const Handler> handler;
    };
    using Handlers = std::vector<Entry>;
    struct State {
        std::uint64_t lastId = 0;
        std::shared_ptr<const Handlers> handlers; ///< null when there are none

        bool contains(std::uint64_t id) const {
            return handlers && std::ranges::any_of(*handlers, [id](const Entry& e) { return e.id == id; });
        }
        void remove(std::uint64_t id) {
            if (!contains(id))
                return;
            auto left = std::make_shared<Handlers>(*handlers);
            std::erase_if(*left, [id](const Entry& e) { return e.id == id; });
            // What the handler holds may end further subscriptions when it goes: by then the new list is in place.
            const auto old = std::exchange(handlers, left->empty() ? nullptr : std::move(left));
        }
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace orv::ui
