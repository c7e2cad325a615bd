#include "ui/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace orv::ui {
namespace {

TEST(Signal, CallsHandlersInTheOrderOfTheirSubscription) {
    Signal<int> signal;
    std::string calls;
    const auto a = signal.subscribe([&](int n) { calls += "a" + std::to_string(n); });
    auto b = signal.subscribe([&](int n) { calls += "b" + std::to_string(n); });
    const auto c = signal.subscribe([&](int n) { calls += "c" + std::to_string(n); });
    signal.raise(1);
    b.end();
    b.end();
    signal.raise(2);
    EXPECT_EQ(calls, "a1b1c1a2c2");
}

TEST(Signal, EveryHandlerGetsTheTextAndSharesAReference) {
    Signal<std::string, bool&> signal;
    std::string calls;
    const auto eats = signal.subscribe([&](std::string text, bool& cancel) {
        calls += std::move(text);
        cancel = true;
    });
    const auto reads = signal.subscribe([&](const std::string& text, bool& cancel) {
        calls += text;
        calls += cancel ? "!" : "?";
    });
    bool cancel = false;
    signal.raise("x", cancel);
    EXPECT_EQ(calls, "xx!");
    EXPECT_TRUE(cancel);
}

TEST(Signal, AHandlerMayEndItsOwnAndALaterSubscription) {
    Signal<> signal;
    std::string calls;
    Subscription own;
    Subscription later;
    own = signal.subscribe([&] {
        calls += "a";
        own.end();
        later.end();
    });
    later = signal.subscribe([&] { calls += "b"; });
    const auto last = signal.subscribe([&] { calls += "c"; });
    signal.raise();
    signal.raise();
    EXPECT_EQ(calls, "acc");
}

TEST(Signal, AHandlerThatComesDuringARaiseIsCalledByTheNextOne) {
    Signal<> signal;
    std::string calls;
    Subscription added;
    const auto first = signal.subscribe([&] {
        calls += "a";
        if (calls.size() == 1)
            added = signal.subscribe([&] { calls += "b"; });
    });
    signal.raise();
    EXPECT_EQ(calls, "a");
    signal.raise();
    EXPECT_EQ(calls, "aab");
}

TEST(Signal, ANestedRaiseReachesAllHandlersBeforeTheOuterOneGoesOn) {
    Signal<int> signal;
    std::string calls;
    const auto first = signal.subscribe([&](int depth) {
        calls += "a" + std::to_string(depth);
        if (depth < 2)
            signal.raise(depth + 1);
    });
    const auto second = signal.subscribe([&](int depth) { calls += "b" + std::to_string(depth); });
    signal.raise(1);
    EXPECT_EQ(calls, "a1a2b2b1");
}

TEST(Signal, DestroyedByAHandlerItCallsNoOther) {
    auto signal = std::make_optional<Signal<>>();
    std::string calls;
    auto captured = std::make_shared<std::string>("alive");
    const auto first = signal->subscribe([&, captured] {
        signal.reset();
        calls += *captured;
    });
    const auto second = signal->subscribe([&] { calls += " too late"; });
    signal->raise();
    EXPECT_EQ(calls, "alive");
    captured.reset();
}

TEST(Signal, AHandlerMayOwnSubscriptionsOfTheSameSignal) {
    Signal<> signal;
    int calls = 0;
    auto inner = std::make_shared<Subscription>(signal.subscribe([&] { ++calls; }));
    Subscription outer = signal.subscribe([inner] {});
    inner.reset();
    signal.raise();
    outer.end();
    signal.raise();
    EXPECT_EQ(calls, 1) << "the inner subscription ends with the handler that owns it";
}

TEST(Signal, WhatAHandlerThrowsReachesTheRaiserAndTheSignalStaysUsable) {
    Signal<> signal;
    int calls = 0;
    auto throwing = signal.subscribe([] { throw std::runtime_error("stop"); });
    const auto after = signal.subscribe([&] { ++calls; });
    EXPECT_THROW(signal.raise(), std::runtime_error);
    EXPECT_EQ(calls, 0);
    throwing.end();
    signal.raise();
    EXPECT_EQ(calls, 1);
}

TEST(Subscription, EndsWithItsOwnerAndOnceOnlyAfterAMove) {
    Signal<> signal;
    int calls = 0;
    Subscription kept;
    {
        Subscription first = signal.subscribe([&] { ++calls; });
        kept = std::move(first);
    }
    signal.raise();
    EXPECT_EQ(calls, 1);
    kept = Subscription();
    signal.raise();
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace orv::ui
