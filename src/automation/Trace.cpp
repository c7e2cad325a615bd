#include "automation/Trace.h"

#include "automation/Coercion.h"
#include "automation/Text.h"

#include <array>
#include <cstdio>
#include <utility>

namespace orv::automation {

namespace {

/// A plain pointer, so that no thread has anything to destroy when it ends.
constinit thread_local Trace* innermostTrace = nullptr;

/// What a trace cannot note is missing from it; the control goes on.
template <class Action>
void unlessImpossible(Action action) noexcept {
    try {
        action();
    } catch (...) { // no memory for a line
    }
}

/// "2024-02-29T10:00:00.123Z"
std::string timeText(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{floor<milliseconds>(time - day)};
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int{date.year()},
                  unsigned{date.month()}, unsigned{date.day()}, static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()),
                  static_cast<int>(clock.subseconds().count()));
    return text.data();
}

std::u16string_view nameOf(InvokeKind kind) {
    switch (kind) {
    case InvokeKind::get:
        return u"get";
    case InvokeKind::let:
        return u"let";
    case InvokeKind::set:
        return u"set";
    case InvokeKind::method:
        break;
    }
    return u"method";
}

} // namespace

Trace* Trace::innermost() noexcept {
    return innermostTrace;
}

Trace* Trace::replaceInnermost(Trace* trace) noexcept {
    return std::exchange(innermostTrace, trace);
}

std::shared_ptr<Trace> Trace::open(const std::u16string& path, TraceMasking masking) {
    auto file = TraceFile::open(path);
    if (!file)
        return nullptr;
    file->append("# time\ttrace\tdepth\tmicroseconds\tkind\tmember\targuments\toutcome\n");
    return std::shared_ptr<Trace>(new Trace(std::move(file), masking));
}

Trace::Trace(std::unique_ptr<TraceFile> file, TraceMasking masking) : file_(std::move(file)), text_(masking) {
    static std::atomic<int> lastNumber{0};
    number_ = ++lastNumber;
    ++openTraces_;
}

Trace::~Trace() {
    --openTraces_;
}

void Trace::note(std::u16string_view kind, std::u16string_view member, std::u16string_view shown) noexcept {
    unlessImpossible([&] {
        std::u16string rest(kind);
        ((rest += u'\t') += member) += u"\t\t";
        write(Clock::now(), 0, rest += text_.shown(shown));
    });
}

void Trace::write(Clock::time_point began, std::int64_t microseconds, std::u16string_view rest) noexcept {
    unlessImpossible([&] {
        std::string line = timeText(began);
        for (const std::int64_t number : {std::int64_t{number_}, std::int64_t{depth_}, microseconds})
            (line += '\t') += std::to_string(number);
        (line += '\t') += toUtf8(rest);
        file_->append(line += '\n');
    });
}

TraceScope::TraceScope(std::shared_ptr<Trace> trace) noexcept : trace_(std::move(trace)) {
    if (!trace_ && !Trace::anyOpen())
        return;
    outer_ = Trace::replaceInnermost(trace_.get());
    entered_ = true;
}

TraceScope::~TraceScope() {
    if (entered_)
        Trace::replaceInnermost(outer_);
}

TraceEntry::TraceEntry(Trace& trace, InvokeKind kind, const Object* target, std::u16string_view member,
                       std::span<const Argument> arguments) noexcept
    : trace_(trace), invokeKind_(kind) {
    unlessImpossible([&] {
        kind_ = nameOf(kind);
        name_ = target ? target->typeName() : u"Filter";
        if (name_.empty())
            name_ = u"Object";
        (name_ += u'.') += member.empty() ? std::u16string_view(u"[default]") : member;
        member_ = member;
        arguments_ = trace_.text().arguments(member, kind, arguments);
    });
    begin();
}

TraceEntry::TraceEntry(Trace& trace, std::u16string_view kind, std::u16string_view name) noexcept : trace_(trace) {
    unlessImpossible([&] {
        kind_ = kind;
        name_ = name;
    });
    begin();
}

void TraceEntry::begin() noexcept {
    ++trace_.depth_;
    began_ = Trace::Clock::now();
    start_ = std::chrono::steady_clock::now();
}

void TraceEntry::ended(const Value& result, std::span<const Argument> arguments) noexcept {
    end_ = std::chrono::steady_clock::now();
    unlessImpossible([&] {
        outcome_ = trace_.text().result(member_, result);
        const std::u16string after = trace_.text().arguments(member_, invokeKind_, arguments);
        if (!arguments.empty() && after != arguments_)
            outcome_ += u" left " + after;
    });
}

void TraceEntry::ended() noexcept {
    end_ = std::chrono::steady_clock::now();
    unlessImpossible([&] { outcome_ = u"done"; });
}

void TraceEntry::failed(const AutomationError& error) noexcept {
    end_ = std::chrono::steady_clock::now();
    unlessImpossible([&] { outcome_ = trace_.text().error(error); });
}

TraceEntry::~TraceEntry() {
    if (end_ == std::chrono::steady_clock::time_point{})
        end_ = std::chrono::steady_clock::now();
    --trace_.depth_;
    unlessImpossible([&] {
        const std::u16string_view outcome = outcome_.empty() ? std::u16string_view(u"broken off") : outcome_;
        std::u16string rest = kind_;
        for (const std::u16string_view part : {std::u16string_view(name_), std::u16string_view(arguments_), outcome})
            (rest += u'\t') += part;
        const auto lasted = std::chrono::duration_cast<std::chrono::microseconds>(end_ - start_);
        trace_.write(began_, lasted.count(), rest);
    });
}

Value tracedInvoke(Trace& trace, Object& object, std::u16string_view member, InvokeKind kind, Arguments arguments) {
    TraceEntry entry(trace, kind, &object, member, arguments);
    try {
        Value result = object.invoke(member, kind, arguments);
        entry.ended(result, arguments);
        return result;
    } catch (const AutomationError& error) {
        entry.failed(error);
        throw;
    }
}

} // namespace orv::automation
