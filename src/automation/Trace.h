#pragma once

#include "automation/TraceFile.h"
#include "automation/TraceText.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orv::automation {

/// Diagnostics of one control: a text file (UTF-8, a line an entry, the parts of a line separated by tabs) of what the
/// host and the control ask of each other. An entry is written when its call has ended, so the calls that were made
/// meanwhile stand above it, one deeper. A line has
///
///     time (UTC, begin)  trace  depth  microseconds  kind  member  arguments  outcome
///
/// where `trace` numbers the traces of the process, since controls may share a file. A trace never raises: an entry
/// that cannot be made or written is missing.
class Trace final {
  public:
    /// Null when the file cannot be opened: the control then works without a trace.
    static std::shared_ptr<Trace> open(const std::u16string& path, TraceMasking masking);
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;
    ~Trace();

    /// The trace of the control that is at work on this thread (see TraceScope); null when that one has none.
    static Trace* current() noexcept {
        return openTraces_.load(std::memory_order_relaxed) == 0 ? nullptr : innermost();
    }
    static bool anyOpen() noexcept { return openTraces_.load(std::memory_order_relaxed) != 0; }

    TraceText& text() noexcept { return text_; }
    /// An entry that took no time: a message that was shown, say.
    void note(std::u16string_view kind, std::u16string_view member, std::u16string_view shown) noexcept;

  private:
    friend class TraceEntry;
    friend class TraceScope;
    using Clock = std::chrono::system_clock;

    Trace(std::unique_ptr<TraceFile> file, TraceMasking masking);
    static Trace* innermost() noexcept;
    static Trace* replaceInnermost(Trace* trace) noexcept;
    void write(Clock::time_point began, std::int64_t microseconds, std::u16string_view rest) noexcept;

    static inline constinit std::atomic<int> openTraces_{0};
    std::unique_ptr<TraceFile> file_;
    TraceText text_;
    int number_;
    int depth_ = 0;
};

/// The time that a control is at work on this thread: late-bound calls go to its trace, or to none when it has none.
class TraceScope {
  public:
    explicit TraceScope(std::shared_ptr<Trace> trace) noexcept;
    TraceScope(const TraceScope&) = delete;
    TraceScope& operator=(const TraceScope&) = delete;
    ~TraceScope();

  private:
    std::shared_ptr<Trace> trace_; ///< kept: the control may end its trace meanwhile
    Trace* outer_ = nullptr;
    bool entered_ = false;
};

/// One call while it runs. Written when it goes out of scope; without `ended` or `failed` it counts as broken off.
class TraceEntry {
  public:
    /// A call of a host's object, or of the control itself when `target` is null.
    TraceEntry(Trace& trace, InvokeKind kind, const Object* target, std::u16string_view member,
               std::span<const Argument> arguments) noexcept;
    /// An entry of another kind than a call ("event", "create").
    TraceEntry(Trace& trace, std::u16string_view kind, std::u16string_view name) noexcept;
    TraceEntry(const TraceEntry&) = delete;
    TraceEntry& operator=(const TraceEntry&) = delete;
    ~TraceEntry();

    /// `arguments` as the call left them: those that it changed are shown once more.
    void ended(const Value& result, std::span<const Argument> arguments = {}) noexcept;
    void ended() noexcept;
    void failed(const AutomationError& error) noexcept;

  private:
    void begin() noexcept;

    Trace& trace_;
    std::u16string kind_;
    std::u16string name_;
    std::u16string member_;
    std::u16string arguments_;
    std::u16string outcome_;
    InvokeKind invokeKind_ = InvokeKind::method;
    std::chrono::system_clock::time_point began_;
    std::chrono::steady_clock::time_point start_;
    std::chrono::steady_clock::time_point end_; ///< the zero point while it runs
};

/// Makes a call and an entry for it.
Value tracedInvoke(Trace& trace, Object& object, std::u16string_view member, InvokeKind kind, Arguments arguments);

} // namespace orv::automation
