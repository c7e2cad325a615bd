#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
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
        auto slot = std::make_shared<Slot>(std::move(handler));
        auto handlers = std::make_shared<Handlers>();
        if (state_->handlers)
            std::ranges::copy_if(*state_->handlers, std::back_inserter(*handlers),
                                 [](const auto& s) { return !s->ended; });
        handlers->push_back(slot);
        Subscription subscription([weak = std::weak_ptr<State>(state_), ended = std::weak_ptr<Slot>(slot)] {
            const auto state = weak.lock();
            const auto gone = ended.lock();
            if (state && gone)
                state->remove(*gone);
        });
        // Last, when nothing can fail any more: a handler without its subscription could never be ended.
        state_->handlers = std::move(handlers);
        return subscription;
    }

    void raise(Args... args) const {
        // The list is not changed while it is walked; nothing is allocated here.
        std::shared_ptr<Handlers> atStart = state_->handlers;
        if (!atStart)
            return;
        const std::shared_ptr<State> state = state_;
        for (const auto& slot : *atStart) {
            if (!slot->ended && state->handlers)
                slot->handler(args...);
        }
        atStart.reset();
        state->dropEnded();
    }

  private:
    struct Slot {
        explicit Slot(Handler h) : handler(std::move(h)) {}
        Handler handler;
        bool ended = false;
    };
    using Handlers = std::vector<std::shared_ptr<Slot>>;
    struct State {
        std::shared_ptr<Handlers> handlers; ///< null when there are none

        /// Runs in destructors: allocates nothing.
        void remove(Slot& slot) noexcept {
            slot.ended = true;
            dropEnded();
        }
        /// Takes ended handlers out, unless a raise walks the list: it does so itself when it is done.
        void dropEnded() noexcept {
            while (handlers && handlers.use_count() == 1) {
                const auto at = std::ranges::find_if(*handlers, [](const auto& s) { return s->ended; });
                if (at == handlers->end())
                    return;
                // What the handler holds may end further subscriptions when it goes: by then it is out of the list.
                const std::shared_ptr<Slot> gone = std::move(*at);
                handlers->erase(at);
                if (handlers->empty())
                    handlers = nullptr;
            }
        }
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace orv::ui
